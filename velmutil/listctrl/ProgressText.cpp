#include "listctrl/ProgressText.h"

#include <cwchar>

namespace
{

// Longer numbers in a conversion would make a text of that length.
constexpr size_t MaxDigits = 3;

const wchar_t* SkipNumber(const wchar_t* text)
{
    const size_t digits = std::wcsspn(text, L"0123456789");
    return digits <= MaxDigits ? text + digits : nullptr;
}

// Behind the size that a conversion names; the percentage has its own.
const wchar_t* SkipSize(const wchar_t* text)
{
    return text + std::wcsspn(text, L"hl");
}

// If an integer conversion begins at `text`, behind its "%", puts it, complete with "%", into `conversion`
// and returns what follows; null if none does.
const wchar_t* ReadIntegerConversion(const wchar_t* text, CString& conversion)
{
    const wchar_t* end = SkipNumber(text + std::wcsspn(text, L"-+ #0"));
    if (end != nullptr && *end == L'.')
        end = SkipNumber(end + 1);
    if (end == nullptr)
        return nullptr;
    conversion = L"%" + CString(text, static_cast<int>(end - text));
    end = SkipSize(end);
    if (*end == L'\0' || std::wcschr(L"diuxXo", *end) == nullptr)
        return nullptr;
    conversion += *end;
    return end + 1;
}

} // namespace

CString ProgressText(const CString& format, int percent)
{
    CString text;
    if (format.IsEmpty()) {
        text.Format(L"%d%%", percent);
        return text;
    }
    bool isPercentageShown = false;
    for (const wchar_t* next = format.GetString(); *next != L'\0';) {
        CString conversion;
        const wchar_t* behind = nullptr;
        if (next[0] != L'%') {
            text += *next++;
        } else if (next[1] == L'%') {
            text += L'%';
            next += 2;
        } else if (!isPercentageShown && (behind = ReadIntegerConversion(next + 1, conversion)) != nullptr) {
            CString number;
            number.Format(conversion, percent);
            text += number;
            next = behind;
            isPercentageShown = true;
        } else {
            text += *next++;
        }
    }
    return text;
}
