// Text pointers that may be null.
#pragma once

#include <string>

// A copy of `text`; empty for null.
inline std::wstring TextOrEmpty(const wchar_t* text)
{
    return text == nullptr ? std::wstring() : std::wstring(text);
}
