#include "DescriptionFile.h"

#include <shellapi.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

namespace
{

// Descriptions are written by hand; anything larger is another file by mistake.
constexpr std::streamoff LargestFile = 16 * 1024 * 1024;

struct LocalMemoryDeleter
{
    void operator()(wchar_t** memory) const { ::LocalFree(memory); }
};

std::optional<CString> FromUtf16(std::string_view bytes)
{
    if (bytes.size() % sizeof(wchar_t) != 0)
        return std::nullopt;
    CString text;
    for (size_t i = 0; i < bytes.size(); i += sizeof(wchar_t)) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        text.AppendChar(static_cast<wchar_t>(low | high << 8));
    }
    return text;
}

std::optional<CString> FromUtf8(std::string_view bytes)
{
    const int size = static_cast<int>(bytes.size());
    if (size == 0)
        return CString();
    const int length = ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
    if (length == 0)
        return std::nullopt;
    std::wstring text(static_cast<size_t>(length), L'\0');
    ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), size, text.data(), length);
    return CString(text.c_str(), length);
}

} // namespace

CString DescriptionFromCommandLine()
{
    int count = 0;
    const std::unique_ptr<wchar_t*, LocalMemoryDeleter> arguments(
        ::CommandLineToArgvW(::GetCommandLineW(), &count));
    if (arguments) {
        for (int i = 1; i + 1 < count; ++i) {
            if (wcscmp(arguments.get()[i], L"--description") == 0)
                return CString(arguments.get()[i + 1]);
        }
    }
    return CString();
}

std::optional<CString> ReadDescription(const wchar_t* fileName)
{
    std::ifstream file(std::filesystem::path(fileName), std::ios::binary | std::ios::ate);
    if (!file)
        return std::nullopt;
    const std::streamoff size = file.tellg();
    if (size < 0 || size > LargestFile)
        return std::nullopt;
    std::string bytes(static_cast<size_t>(size), '\0');
    file.seekg(0);
    if (!file.read(bytes.data(), size))
        return std::nullopt;

    std::string_view text(bytes);
    if (text.substr(0, 2) == "\xFF\xFE")
        return FromUtf16(text.substr(2));
    if (text.substr(0, 3) == "\xEF\xBB\xBF")
        text.remove_prefix(3);
    return FromUtf8(text);
}
