// Folders and files for one test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace testkit
{

// A new, empty folder under the platform's folder for temporary files; removed with all that is in it.
class TempFolder
{
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    // The full name of an entry of the folder, which need not exist.
    std::filesystem::path operator/(std::wstring_view name) const { return m_path / name; }

private:
    std::filesystem::path m_path;
};

// Writes the bytes as they are; an older file is replaced. Throws std::runtime_error if that fails.
void WriteBytes(const std::filesystem::path& file, std::string_view bytes);
// The bytes of a file. Throws std::runtime_error if it cannot be read.
std::string ReadBytes(const std::filesystem::path& file);

// The folder of the running program.
std::filesystem::path ProgramFolder();

} // namespace testkit
