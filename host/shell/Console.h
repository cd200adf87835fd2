// Text for whoever started the program.
#pragma once

#include <string>

namespace velmhost
{

// Writes to standard output or standard error: UTF-8 into a file or pipe, as it is to a console. A program
// with windows has neither of its own; the console that it was started from serves then, and without one the
// text is lost. Lines end with line feeds.
void PrintOutput(const std::wstring& text);
void PrintError(const std::wstring& text);

} // namespace velmhost
