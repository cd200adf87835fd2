// Description files as text.
#pragma once

#include <string>
#include <string_view>

namespace velmmenu
{

// The whole text of a file, up to its first zero character, which ends a description. Throws Failure when
// the file cannot be read, is larger than 16 MB, or is not valid in its encoding; see DecodeXml.
std::wstring ReadDescriptionFile(const std::wstring& fileName);

// The text of an XML file. A byte-order mark tells the encoding (UTF-8, UTF-16 of both byte orders), else
// zero bytes beside the first character (UTF-16), else the encoding that the XML declaration names, else it
// is UTF-8. Throws Failure for an encoding that the platform does not know, and for bytes that are not
// valid. Rests on IMultiLanguage, which needs COM on the thread, and MultiByteToWideChar.
std::wstring DecodeXml(std::string_view bytes);

// Writes a new file in UTF-8. Throws Failure when there is one of that name already, and when it cannot be
// written.
void WriteNewFile(const std::wstring& fileName, std::wstring_view text);

} // namespace velmmenu
