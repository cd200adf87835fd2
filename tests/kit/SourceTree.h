// The project's own files, for tests of what stands in them.
#pragma once

#include <string>
#include <string_view>

namespace testkit
{

// A file of the source tree, by its path from the root, with line feeds as line ends. Throws
// std::runtime_error if it cannot be read.
std::string SourceText(std::wstring_view path);

// The code between the first opening fence for a language of a page and its closing one; empty if there is
// none.
std::string FirstCodeOf(std::string_view page, std::string_view language = "cpp");

} // namespace testkit
