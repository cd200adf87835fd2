// Text between the platform's UTF-16 and the UTF-8 of test output.
#pragma once

#include "kit/Platform.h"

#include <ostream>
#include <string>
#include <string_view>

namespace testkit
{

// Conversions by WideCharToMultiByte and MultiByteToWideChar. Text that is not valid becomes U+FFFD.
std::string Utf8(std::wstring_view text);
std::wstring Wide(std::string_view utf8);

// The text in quotation marks, with line ends, tabs and other control characters shown as \n, \t, \x01.
std::string Quoted(std::wstring_view text);

} // namespace testkit

#if defined(TESTKIT_WITH_MFC) && !defined(TESTKIT_BARE_PLATFORM)

// How GoogleTest shows a CString: as text, instead of as bytes. It is found by the rules of look-up
// because the string's traits, or the string itself, belong to the global name space.
inline void PrintTo(const CString& text, std::ostream* out)
{
    *out << testkit::Quoted(std::wstring_view(text.GetString(), static_cast<size_t>(text.GetLength())));
}

#endif
