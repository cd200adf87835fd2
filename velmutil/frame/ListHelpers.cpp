#include "frame/ListHelpers.h"

#include "frame/BoundedList.h"
#include "frame/TokenScan.h"

void FillComboBox(CStringArray& items, CComboBox& box)
{
    for (INT_PTR i = 0; i < items.GetSize(); ++i)
        box.AddString(items[i]);
    box.SetCurSel(0);
}

void FillListBox(CStringArray& items, CListBox& box)
{
    for (INT_PTR i = 0; i < items.GetSize(); ++i)
        box.AddString(items[i]);
    box.SetCurSel(0);
}

void FillListBox1(CStringArray& items, CListBox& box)
{
    const CSeparatorSet comma(L",");
    for (INT_PTR i = 0; i < items.GetSize(); ++i) {
        // The box may tell its parent, which may change the array: the pieces are of a copy.
        const CString text = items[i];
        ForEachToken(text, comma,
                     [&](const wchar_t* first, int length) { box.AddString(CString(first, length)); });
    }
    box.SetCurSel(0);
}

void FillStringArray(CListBox& box, CStringArray& items)
{
    for (int i = 0; i < box.GetCount(); ++i) {
        CString text;
        box.GetText(i, text);
        items.Add(text);
    }
}

void FillStringList(CStringArray& items, std::list<CString>& list)
{
    for (INT_PTR i = 0; i < items.GetSize(); ++i)
        AppendWithinLimit(list, items[i]);
}
