#include "MacroText.h"

#include <algorithm>

namespace
{

bool IsControl(wchar_t c)
{
    return c < 0x20 || c == 0x7F;
}

} // namespace

std::wstring TranslateCarets(std::wstring_view command)
{
    std::wstring macro;
    macro.reserve(command.size());
    for (size_t i = 0; i < command.size(); ++i) {
        if (command[i] == L'^' && i + 1 < command.size()) {
            wchar_t key = command[i + 1];
            if (key >= L'a' && key <= L'z')
                key -= L'a' - L'A';
            if (key >= L'@' && key <= L'_') {
                macro += static_cast<wchar_t>(key - L'@');
                ++i;
                continue;
            }
        }
        macro += command[i];
    }
    return macro;
}

std::wstring PrintablePart(std::wstring_view command)
{
    std::wstring text;
    std::copy_if(command.begin(), command.end(), std::back_inserter(text),
                 [](wchar_t c) { return !IsControl(c); });
    const size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring::npos)
        return std::wstring();
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}
