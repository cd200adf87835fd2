// Appending to a log file.
#pragma once

#include <cstdio>

#include "frame/Portability.h"

// Appends `text` to the file `path`, which is made if it is not there. Does so only when `stream` is
// null and `path` is not: with a stream nothing is written anywhere, neither to it nor to the file.
// The file is opened in text mode, so a line feed becomes carriage return and line feed; no line end
// is added. Characters go out in the encoding of the run-time library's current locale (in the classic
// one a byte each, up to U+00FF); what stands from the first character on that this encoding lacks is
// lost. A null text is written as "(null)". A file that cannot be opened is ignored. Rests on _wfopen
// and fputws.
VELM_API void DebugPrint(const wchar_t* text, FILE* stream, const wchar_t* path);
