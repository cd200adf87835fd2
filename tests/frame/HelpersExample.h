// The parts of an order like "Bolt:12; Nut:24 pcs; Washer", and how many of each, 1 where nothing is said.
std::list<CString> PartsOf(const CString& order, std::vector<__int64>& counts)
{
    CStringArray entries, names;
    Split2Array(order, L"; ", entries, true); // at runs of these characters: no empty pieces
    for (INT_PTR i = 0; i < entries.GetSize(); ++i) {
        CStringArray pieces;
        Split2Array(entries[i], L":", pieces, false); // at each colon: empty pieces are kept
        if (pieces[0] == L"pcs")
            continue;
        names.Add(pieces[0]);
        counts.push_back(pieces.GetSize() > 1 ? GetStrToInt(GetNumberFromText(pieces[1])) : 1);
    }
    std::list<CString> parts;
    FillStringList(names, parts);
    return parts;
}
