#include "Positions.h"

#include <algorithm>
#include <cwctype>

#include "Failure.h"
#include "Sax.h"

namespace velmmenu
{

namespace
{

// Finds lines and offsets in a text.
class Lines
{
public:
    explicit Lines(const std::wstring& text) : m_starts{0}
    {
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == L'\n')
                m_starts.push_back(i + 1);
        }
    }

    // From 1.
    unsigned LineOf(std::size_t offset) const
    {
        const auto after = std::upper_bound(m_starts.begin(), m_starts.end(), offset);
        return static_cast<unsigned>(after - m_starts.begin());
    }

    std::size_t OffsetOf(SaxPlace place) const
    {
        const std::size_t line = std::min<std::size_t>(place.line, m_starts.size());
        return m_starts[line - 1] + place.column - 1;
    }

private:
    std::vector<std::size_t> m_starts;
};

// The same text in ASCII, character by character, so that columns are the same however they are counted.
// What stands outside ASCII may be part of a name, as a letter may.
std::wstring InAscii(std::wstring text)
{
    for (wchar_t& c : text) {
        if (c >= 0x80)
            c = static_cast<wchar_t>(L'a' + c % 26);
    }
    return text;
}

bool IsSpace(wchar_t c)
{
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}

// The attributes of a start tag, which begins at `at`. The text is well-formed.
std::vector<std::pair<std::wstring, unsigned>> AttributesOf(const std::wstring& text, std::size_t at,
                                                            const Lines& lines)
{
    std::vector<std::pair<std::wstring, unsigned>> attributes;
    const auto skip = [&](auto isSkipped) {
        while (at < text.size() && isSkipped(text[at]))
            ++at;
    };
    const auto isInName = [](wchar_t c) { return !IsSpace(c) && c != L'=' && c != L'/' && c != L'>'; };
    skip(isInName);
    for (;;) {
        skip(IsSpace);
        const std::size_t begin = at;
        skip(isInName);
        if (at == begin)
            return attributes;
        attributes.emplace_back(text.substr(begin, at - begin), lines.LineOf(begin));
        skip([](wchar_t c) { return c != L'"' && c != L'\''; });
        at = text.find(at < text.size() ? text[at] : L'"', at + 1);
        if (at == std::wstring::npos)
            return attributes;
        ++at;
    }
}

} // namespace

std::vector<ElementPosition> ReadPositions(const std::wstring& text)
{
    const Lines lines(text);
    std::vector<ElementPosition> positions;
    SaxHandlers handlers;
    handlers.onElement = [&](SaxPlace end) {
        // No attribute's value holds this mark, so the one before the tag's end begins the tag.
        const std::size_t offset = lines.OffsetOf(end);
        const std::size_t begin = offset > 0 ? text.rfind(L'<', offset - 1) : 0;
        if (begin != std::wstring::npos)
            positions.push_back({lines.LineOf(begin), AttributesOf(text, begin, lines)});
    };
    std::wstring failure;
    handlers.onError = [&](SaxPlace place, const std::wstring& reason) {
        failure = std::to_wstring(place.line) + L": " + reason;
    };
    if (!ReadBySax(InAscii(text), handlers))
        throw Failure{failure.empty() ? std::wstring(L"1: the SAX reader refuses the text") : failure};
    return positions;
}

unsigned LineOfDocumentType(const std::wstring& text)
{
    const Lines lines(text);
    std::size_t at = 0;
    for (;;) {
        const std::size_t type = text.find(L"<!DOCTYPE", at);
        const std::size_t comment = text.find(L"<!--", at);
        if (comment == std::wstring::npos || comment > type)
            return lines.LineOf(type == std::wstring::npos ? 0 : type);
        at = std::min(text.find(L"-->", comment), text.size());
    }
}

} // namespace velmmenu
