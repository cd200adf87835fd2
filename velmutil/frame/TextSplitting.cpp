#include "frame/TextSplitting.h"

#include <string_view>

#include "frame/TokenScan.h"

namespace
{

// Both forms count before they fill: the array is then allocated once, where growing it piece by
// piece would copy it again and again.

void SplitTokens(const CString& text, const CString& delimiter, CStringArray& out)
{
    const CSeparatorSet separators(delimiter);
    INT_PTR count = 0;
    ForEachToken(text, separators, [&](const wchar_t*, int) { ++count; });
    out.SetSize(count);
    INT_PTR next = 0;
    ForEachToken(text, separators,
                 [&](const wchar_t* first, int length) { out.ElementAt(next++).SetString(first, length); });
}

void SplitWhole(const CString& text, const CString& delimiter, CStringArray& out)
{
    const std::wstring_view separator(delimiter.GetString());
    const std::wstring_view searched(text.GetString());
    if (separator.empty()) {
        out.Add(text);
        return;
    }
    INT_PTR count = 1;
    for (size_t at = 0; (at = searched.find(separator, at)) != searched.npos; at += separator.size())
        ++count;
    out.SetSize(count);
    INT_PTR next = 0;
    size_t start = 0;
    for (size_t at; (at = searched.find(separator, start)) != searched.npos; start = at + separator.size())
        out.ElementAt(next++).SetString(searched.data() + start, static_cast<int>(at - start));
    out.SetAt(next, text.Mid(static_cast<int>(start)));
}

} // namespace

void Split2Array(CString text, CString delimiter, CStringArray& out, bool asTokens)
{
    out.RemoveAll();
    if (asTokens)
        SplitTokens(text, delimiter, out);
    else
        SplitWhole(text, delimiter, out);
}
