#include "xml/Prolog.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include <shlwapi.h>
#include <wininet.h>

namespace
{

enum class Finding
{
    None,
    Entity,
    // The text ends before it can be told.
    Unfinished
};

class CPrologScanner
{
public:
    explicit CPrologScanner(std::wstring_view text) : m_text(text) {}

    Finding Scan()
    {
        for (;;) {
            while (!m_text.empty() && (IsBlank(m_text[0]) || m_text[0] == ByteOrderMark))
                m_text.remove_prefix(1);
            if (Starts(L"<?")) {
                if (!SkipBehind(L"?>"))
                    return Finding::Unfinished;
            } else if (Starts(L"<!--")) {
                if (!SkipComment())
                    return Finding::Unfinished;
            } else if (Starts(L"<!DOCTYPE")) {
                return ScanDefinition();
            } else {
                const bool mayGoOn = m_text.size() < LongestStart && (m_text.empty() || m_text[0] == L'<');
                return mayGoOn ? Finding::Unfinished : Finding::None;
            }
        }
    }

private:
    static constexpr wchar_t ByteOrderMark = 0xFEFF;
    static constexpr size_t LongestStart = 9;

    static bool IsBlank(wchar_t character)
    {
        return character == L' ' || character == L'\t' || character == L'\r' || character == L'\n';
    }

    bool Starts(std::wstring_view token) const { return m_text.substr(0, token.size()) == token; }

    bool SkipBehind(std::wstring_view token)
    {
        const size_t found = m_text.find(token);
        if (found == std::wstring_view::npos)
            return false;
        m_text.remove_prefix(found + token.size());
        return true;
    }

    bool SkipComment()
    {
        m_text.remove_prefix(4);
        return SkipBehind(L"-->");
    }

    bool SkipQuoted()
    {
        const wchar_t quote[] = {m_text[0], L'\0'};
        m_text.remove_prefix(1);
        return SkipBehind(quote);
    }

    // At "<!DOCTYPE".
    Finding ScanDefinition()
    {
        bool isInSubset = false;
        m_text.remove_prefix(9);
        while (!m_text.empty()) {
            if (m_text.size() < LongestStart && m_text[0] == L'<')
                return Finding::Unfinished;
            bool isComplete = true;
            if (m_text[0] == L'"' || m_text[0] == L'\'') {
                isComplete = SkipQuoted();
            } else if (Starts(L"<!--")) {
                isComplete = SkipComment();
            } else if (Starts(L"<?")) {
                isComplete = SkipBehind(L"?>");
            } else if (Starts(L"<!ENTITY")) {
                return Finding::Entity;
            } else if (!isInSubset && m_text[0] == L'>') {
                return Finding::None;
            } else {
                if (m_text[0] == L'[')
                    isInSubset = true;
                else if (m_text[0] == L']')
                    isInSubset = false;
                m_text.remove_prefix(1);
            }
            if (!isComplete)
                return Finding::Unfinished;
        }
        return Finding::Unfinished;
    }

    std::wstring_view m_text;
};

// The characters that the scanner looks for are the same in every encoding by bytes; of 16 bits there are
// two.
std::wstring Decoded(const std::string& bytes)
{
    const auto at = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    std::wstring text;
    text.reserve(bytes.size());
    const bool isWide = bytes.size() >= 2 && (at(0) == 0 || at(1) == 0 || (at(0) == 0xFF && at(1) == 0xFE) ||
                                              (at(0) == 0xFE && at(1) == 0xFF));
    if (!isWide) {
        // The mark of UTF-8 is three bytes here.
        for (size_t i = bytes.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0; i < bytes.size(); ++i)
            text += static_cast<wchar_t>(at(i));
        return text;
    }
    const bool isBigEndian = at(0) == 0 || at(0) == 0xFE;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const unsigned unit = isBigEndian ? at(i) * 256u + at(i + 1) : at(i + 1) * 256u + at(i);
        // Characters of 32 bits come with zeros between.
        if (unit != 0)
            text += static_cast<wchar_t>(unit);
    }
    return text;
}

struct FileCloser
{
    void operator()(FILE* file) const { std::fclose(file); }
};

// The file that an address of a file names.
std::wstring FileOfAddress(const std::wstring& address)
{
    std::wstring name(INTERNET_MAX_URL_LENGTH, L'\0');
    DWORD length = static_cast<DWORD>(name.size());
    if (FAILED(PathCreateFromUrlW(address.c_str(), name.data(), &length, 0)))
        return std::wstring();
    name.resize(length);
    return name;
}

std::wstring WithoutEscapes(std::wstring name)
{
    UrlUnescapeInPlace(name.data(), 0);
    name.resize(wcslen(name.c_str()));
    return name;
}

// The files that a parser may open for a path or an address, each once: it may take off a query and a
// fragment, unless there is a file of that very name, and resolve escapes.
std::set<std::wstring> FilesFor(const CString& path)
{
    const std::wstring name = path.GetString();
    const std::wstring cut = name.substr(0, name.find_first_of(L"?#"));
    if (PathIsURLW(name.c_str()))
        return {FileOfAddress(name), FileOfAddress(cut)};
    if (GetFileAttributesW(name.c_str()) == INVALID_FILE_ATTRIBUTES)
        return {cut, WithoutEscapes(name), WithoutEscapes(cut)};
    return {name, WithoutEscapes(name)};
}

// A prolog that is longer than this is no prolog.
constexpr size_t LongestProlog = 64 * 1024 * 1024;

bool DeclaresEntities(const std::wstring& fileName)
{
    const std::unique_ptr<FILE, FileCloser> file(_wfopen(fileName.c_str(), L"rb"));
    if (!file)
        return false;
    std::string bytes;
    // Twice as much each time, so that a long prolog is not looked through again and again.
    for (size_t wanted = 4096; wanted <= LongestProlog; wanted *= 2) {
        const size_t had = bytes.size();
        bytes.resize(wanted);
        const size_t got = std::fread(bytes.data() + had, 1, wanted - had, file.get());
        bytes.resize(had + got);
        const std::wstring text = Decoded(bytes);
        const Finding finding = CPrologScanner(text).Scan();
        if (finding != Finding::Unfinished)
            return finding == Finding::Entity;
        if (bytes.size() < wanted)
            return false;
    }
    return true;
}

} // namespace

bool TextDeclaresEntities(const CString& text)
{
    return CPrologScanner({text.GetString(), static_cast<size_t>(text.GetLength())}).Scan() ==
           Finding::Entity;
}

bool FileDeclaresEntities(const CString& path)
{
    const std::set<std::wstring> files = FilesFor(path);
    return std::any_of(files.begin(), files.end(), DeclaresEntities);
}
