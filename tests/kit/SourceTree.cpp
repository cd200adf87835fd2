#include "kit/SourceTree.h"

#include "kit/Files.h"

namespace testkit
{

std::string SourceText(std::wstring_view path)
{
    std::string text = ReadBytes(ProgramFolder() / VELM_SOURCE_FOLDER / path);
    std::erase(text, '\r');
    return text;
}

std::string FirstCodeOf(std::string_view page)
{
    constexpr std::string_view opening = "\n```cpp\n";
    const size_t start = page.find(opening);
    if (start == std::string_view::npos)
        return "";
    const size_t first = start + opening.size();
    const size_t last = page.find("\n```\n", first);
    return last == std::string_view::npos ? "" : std::string(page.substr(first, last + 1 - first));
}

} // namespace testkit
