// Descriptions kept in text files.
#pragma once

#include <afxwin.h>

#include <optional>

// The file that the program's command line names after the switch "--description"; empty when there is
// no such switch. Rests on CommandLineToArgvW.
CString DescriptionFromCommandLine();

// The whole text of `fileName`: UTF-16 (little-endian) when it begins with that byte-order mark, else
// UTF-8 with or without one. Nothing when the file cannot be opened or read, is larger than 16 MB, or is
// not valid in its encoding.
std::optional<CString> ReadDescription(const wchar_t* fileName);
