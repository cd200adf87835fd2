#include "kit/Files.h"

#include "kit/Platform.h"

#include <atomic>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace testkit
{

TempFolder::TempFolder()
{
    static std::atomic<unsigned> count{0};
    const std::filesystem::path base = std::filesystem::temp_directory_path();
    do { // a number may be left over from a process that crashed
        m_path =
            base / (L"testkit-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++count));
    } while (!std::filesystem::create_directory(m_path));
}

TempFolder::~TempFolder()
{
    std::error_code ignored; // a file still in use stays
    std::filesystem::remove_all(m_path, ignored);
}

void WriteBytes(const std::filesystem::path& file, std::string_view bytes)
{
    std::ofstream stream(file, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) {
        throw std::runtime_error("cannot write " + file.string());
    }
}

std::string ReadBytes(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw std::runtime_error("cannot read " + file.string());
    }
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::filesystem::path ProgramFolder()
{
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

} // namespace testkit
