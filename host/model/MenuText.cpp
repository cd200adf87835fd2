#include "model/MenuText.h"

#include <afxwin.h>

namespace velmhost
{

std::wstring WithoutMnemonic(const std::wstring& text)
{
    std::wstring plain;
    plain.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&')
            ++i; // what follows is shown, be it another mark
        if (i < text.size())
            plain += text[i];
    }
    return plain;
}

std::wstring CaptionOf(const std::wstring& label)
{
    std::wstring shown;
    for (size_t i = 0; i < label.size(); ++i) {
        if (label[i] != L'$' || i + 1 == label.size() || label[i + 1] != L'(') {
            shown += label[i];
            continue;
        }
        int depth = 0;
        for (++i; i < label.size(); ++i) {
            depth += label[i] == L'(' ? 1 : label[i] == L')' ? -1 : 0;
            if (depth == 0)
                break;
        }
    }
    return WithoutMnemonic(shown);
}

bool SameName(std::wstring_view left, std::wstring_view right) noexcept
{
    if (left.size() != right.size())
        return false;
    // An empty view may have no address at all, which the call refuses even with a length of 0.
    return left.empty() || CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                                                static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

} // namespace velmhost
