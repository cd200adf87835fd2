#include "kit/SourceTree.h"

#include "kit/Files.h"

#include <filesystem>

namespace testkit
{

std::string SourceText(std::wstring_view path)
{
    std::filesystem::path folder = ProgramFolder();
    // Some programs lie in a folder of their own below the others.
    if (!std::filesystem::exists(folder / VELM_SOURCE_FOLDER / path))
        folder = folder.parent_path();
    std::string text = ReadBytes(folder / VELM_SOURCE_FOLDER / path);
    std::erase(text, '\r');
    return text;
}

std::string FirstCodeOf(std::string_view page, std::string_view language)
{
    const std::string opening = "\n```" + std::string(language) + "\n";
    const size_t start = page.find(opening);
    if (start == std::string_view::npos)
        return "";
    const size_t first = start + opening.size();
    const size_t last = page.find("\n```\n", first);
    return last == std::string_view::npos ? "" : std::string(page.substr(first, last + 1 - first));
}

} // namespace testkit
