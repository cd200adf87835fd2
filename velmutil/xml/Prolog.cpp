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
    std::wstring name(std::max<size_t>(INTERNET_MAX_URL_LENGTH, address.size() + 1), L'\0');
    DWORD length = static_cast<DWORD>(name.size());
    if (FAILED(PathCreateFromUrlW(address.c_str(), name.data(), &length, 0)))
        return std::wstring();
    name.resize(wcslen(name.c_str())); // an escape may stand for a zero
    return name;
}

std::wstring WithoutEscapes(const std::wstring& escaped)
{
    std::wstring name = escaped;
    UrlUnescapeInPlace(name.data(), 0);
    name.resize(wcslen(name.c_str()));
    return name;
}

// A name that comes to this one when its escapes are resolved.
std::wstring KeepingEscapes(const std::wstring& name)
{
    std::wstring kept;
    for (const wchar_t c : name)
        kept += c == L'%' ? L"%25" : std::wstring(1, c);
    return kept;
}

// Without what may be a query or a fragment.
std::wstring WithoutMarks(const std::wstring& name)
{
    return name.substr(0, name.find_first_of(L"?#"));
}

// Without what does not count in an address: control characters, and blanks around it.
std::wstring WithoutFillers(std::wstring name)
{
    std::erase_if(name, [](wchar_t c) { return c < L' ' || (c >= 0x7F && c < 0xA0); });
    name.erase(0, name.find_first_not_of(L' '));
    name.erase(name.find_last_not_of(L' ') + 1);
    return name;
}

// The files that a parser may open for a path or an address, each once. It may resolve escapes or not, and
// take off a query and a fragment, also one that an escape has brought in. Only a path without escapes is
// sure to stand for the file of that very name, where there is one.
std::set<std::wstring> FilesFor(const CString& path)
{
    const std::wstring given = path.GetString();
    const std::wstring name = WithoutFillers(given);
    const auto resolved = PathIsURLW(name.c_str()) ? FileOfAddress : WithoutEscapes;
    const std::wstring plain = resolved(name);
    if (plain == given && GetFileAttributesW(given.c_str()) != INVALID_FILE_ATTRIBUTES)
        return {given};
    const std::wstring cut = WithoutMarks(name);
    return {given,
            plain,
            WithoutMarks(plain),
            resolved(KeepingEscapes(name)),
            resolved(cut),
            resolved(KeepingEscapes(cut))};
}

// The file that a search along the system's path finds for a relative name, or none: a parser may look there,
// and in the program's folder, before it looks in the current one.
std::wstring FoundAlongPath(const std::wstring& name)
{
    if (name.empty() || !PathIsRelativeW(name.c_str()))
        return std::wstring();
    const DWORD size = SearchPathW(nullptr, name.c_str(), nullptr, 0, nullptr, nullptr);
    std::wstring found(size, L'\0');
    const DWORD length =
        size != 0 ? SearchPathW(nullptr, name.c_str(), nullptr, size, found.data(), nullptr) : 0;
    found.resize(length < size ? length : 0);
    return found;
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
    return std::any_of(files.begin(), files.end(), [](const std::wstring& name) {
        return DeclaresEntities(name) || DeclaresEntities(FoundAlongPath(name));
    });
}
