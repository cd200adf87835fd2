#include "SourceFile.h"

#include <afxwin.h>
#include <comdef.h>
#include <mlang.h>

#include <cstring>
#include <regex>

#include "Failure.h"
#include "shell/Handles.h"

namespace velmmenu
{

namespace
{

// Descriptions are written by hand; anything larger is another file by mistake.
constexpr LONGLONG LargestFile = 16 * 1024 * 1024;

// Not every toolchain's import libraries have these.
constexpr CLSID MultiLanguageClass = {
    0x275c23e2, 0x3747, 0x11d0, {0x9f, 0xea, 0x00, 0xaa, 0x00, 0x3f, 0x86, 0x46}};
constexpr IID MultiLanguageId = {
    0x275c23e1, 0x3747, 0x11d0, {0x9f, 0xea, 0x00, 0xaa, 0x00, 0x3f, 0x86, 0x46}};

std::wstring SystemText(DWORD code)
{
    std::wstring text = _com_error(HRESULT_FROM_WIN32(code)).ErrorMessage();
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L'.'))
        text.pop_back();
    return text;
}

velmhost::UniqueFile OpenFile(const std::wstring& fileName, DWORD access, DWORD disposition)
{
    const HANDLE file = ::CreateFileW(fileName.c_str(), access, FILE_SHARE_READ, nullptr, disposition,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    return velmhost::UniqueFile(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

std::string ReadBytes(const std::wstring& fileName)
{
    const velmhost::UniqueFile file = OpenFile(fileName, GENERIC_READ, OPEN_EXISTING);
    if (!file)
        throw Failure{L"cannot be opened: " + SystemText(::GetLastError())};
    LARGE_INTEGER size{};
    if (!::GetFileSizeEx(file.get(), &size))
        throw Failure{L"cannot be read: " + SystemText(::GetLastError())};
    if (size.QuadPart > LargestFile)
        throw Failure{L"is larger than 16 MB and no description"};
    std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD count = 0;
    if (!::ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) ||
        count != bytes.size())
        throw Failure{L"cannot be read: " + SystemText(::GetLastError())};
    return bytes;
}

std::wstring FromUtf16(std::string_view bytes, bool isBigEndian)
{
    if (bytes.size() % 2 != 0)
        throw Failure{L"is UTF-16 with half a character at its end"};
    std::wstring text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<wchar_t>(isBigEndian ? first << 8 | second : second << 8 | first);
    }
    return text;
}

std::wstring FromCodePage(std::string_view bytes, UINT codePage, const std::wstring& encoding)
{
    // What follows a zero is no part of the description, and need not be valid.
    const std::string_view text = bytes.substr(0, bytes.find('\0'));
    const int size = static_cast<int>(text.size());
    if (size == 0)
        return std::wstring();
    const int length = ::MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, text.data(), size, nullptr, 0);
    if (length <= 0)
        throw Failure{L"is not valid " + encoding};
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    ::MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, text.data(), size, wide.data(), length);
    return wide;
}

// The encoding that the XML declaration names; empty when it names none.
std::string DeclaredEncoding(std::string_view bytes)
{
    static const std::regex declaration(
        "^<\\?xml\\s[^>]*?\\sencoding\\s*=\\s*[\"']([A-Za-z][A-Za-z0-9._-]*)[\"']");
    const std::string beginning(bytes.substr(0, 400));
    std::smatch match;
    return std::regex_search(beginning, match, declaration) ? match[1].str() : std::string();
}

UINT CodePageOf(const std::wstring& encoding)
{
    IMultiLanguage* languages = nullptr;
    if (FAILED(::CoCreateInstance(MultiLanguageClass, nullptr, CLSCTX_INPROC_SERVER, MultiLanguageId,
                                  reinterpret_cast<void**>(&languages))))
        throw Failure{L"declares the encoding " + encoding + L", and the platform's list is not there"};
    MIMECSETINFO info{};
    const HRESULT result = languages->GetCharsetInfo(_bstr_t(encoding.c_str()), &info);
    languages->Release();
    constexpr UINT utf16 = 1200, utf16BigEndian = 1201;
    if (_wcsnicmp(encoding.c_str(), L"UTF-16", 6) == 0 ||
        (SUCCEEDED(result) &&
         (info.uiInternetEncoding == utf16 || info.uiInternetEncoding == utf16BigEndian)))
        throw Failure{L"declares the encoding " + encoding + L", but is not in it"};
    if (FAILED(result) || !::IsValidCodePage(info.uiInternetEncoding))
        throw Failure{L"declares the encoding " + encoding + L", which is not known here"};
    return info.uiInternetEncoding;
}

} // namespace

std::wstring DecodeXml(std::string_view bytes)
{
    const auto begins = [&](const char* mark, std::size_t length) {
        return bytes.size() >= length && std::memcmp(bytes.data(), mark, length) == 0;
    };
    if (begins("\xEF\xBB\xBF", 3))
        return FromCodePage(bytes.substr(3), CP_UTF8, L"UTF-8");
    if (begins("\xFF\xFE", 2) || begins("\xFE\xFF", 2))
        return FromUtf16(bytes.substr(2), begins("\xFE\xFF", 2));
    if (begins("<\0", 2) || begins("\0<", 2))
        return FromUtf16(bytes, begins("\0<", 2));
    const std::string declared = DeclaredEncoding(bytes);
    if (declared.empty())
        return FromCodePage(bytes, CP_UTF8, L"UTF-8");
    const std::wstring encoding(declared.begin(), declared.end());
    return FromCodePage(bytes, CodePageOf(encoding), encoding);
}

std::wstring ReadDescriptionFile(const std::wstring& fileName)
{
    try {
        const std::wstring text = DecodeXml(ReadBytes(fileName));
        return text.substr(0, text.find(L'\0'));
    } catch (const Failure& failure) {
        throw Failure{fileName + L": " + failure.text};
    }
}

void WriteNewFile(const std::wstring& fileName, std::wstring_view text)
{
    const velmhost::UniqueFile file = OpenFile(fileName, GENERIC_WRITE, CREATE_NEW);
    if (!file) {
        const DWORD code = ::GetLastError();
        throw Failure{fileName + (code == ERROR_FILE_EXISTS || code == ERROR_ALREADY_EXISTS
                                      ? std::wstring(L": exists already, and stays as it is")
                                      : L": cannot be written: " + SystemText(code))};
    }
    const int length = static_cast<int>(text.size());
    std::string bytes(static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr,
                                                                     0, nullptr, nullptr)),
                      '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()),
                          nullptr, nullptr);
    DWORD written = 0;
    if (!::WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
        written != bytes.size())
        throw Failure{fileName + L": cannot be written: " + SystemText(::GetLastError())};
}

} // namespace velmmenu
