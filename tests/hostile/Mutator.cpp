#include "Mutator.h"

#include <algorithm>

#include "kit/Text.h"

namespace hostile
{

namespace
{

using namespace std::string_view_literals;

struct Part
{
    size_t begin = 0;
    size_t size = 0;
};

// What stands between each "<" and the next ">", both included.
std::vector<Part> TagsOf(std::string_view text)
{
    std::vector<Part> tags;
    for (size_t at = text.find('<'); at != text.npos; at = text.find('<', at + 1)) {
        const size_t end = text.find('>', at);
        if (end == text.npos)
            break;
        tags.push_back({at, end + 1 - at});
    }
    return tags;
}

// name="value" wherever it stands, with the blank before it.
std::vector<Part> AttributesOf(std::string_view text)
{
    std::vector<Part> attributes;
    for (size_t at = text.find('='); at != text.npos; at = text.find('=', at + 1)) {
        if (at + 1 >= text.size() || (text[at + 1] != '"' && text[at + 1] != '\''))
            continue;
        const size_t begin = text.find_last_of(" \t\r\n", at);
        const size_t end = text.find(text[at + 1], at + 2);
        if (begin == text.npos || end == text.npos)
            continue;
        attributes.push_back({begin, end + 1 - begin});
    }
    return attributes;
}

std::string Repeated(std::string_view part, size_t count)
{
    std::string text;
    while (count-- > 0)
        text += part;
    return text;
}

std::string InUtf16(std::string_view utf8, bool isBigEndian)
{
    std::string bytes;
    for (const wchar_t unit : testkit::Wide(utf8)) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        bytes += isBigEndian ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
}

std::string InUtf32(std::string_view utf8)
{
    std::string bytes;
    for (const wchar_t unit : testkit::Wide(utf8))
        bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8), '\0', '\0'};
    return bytes;
}

std::string InLatin1(std::string_view utf8)
{
    std::string bytes;
    for (const wchar_t unit : testkit::Wide(utf8))
        bytes += static_cast<char>(unit < 256 ? unit : L'?');
    return bytes;
}

constexpr std::string_view HostileMarkup[] = {
    "<!--"sv,
    "-->"sv,
    "<![CDATA["sv,
    "]]>"sv,
    "<?"sv,
    "?>"sv,
    "<?xml?>"sv,
    "<?xml version='1.0'?>"sv,
    "</"sv,
    "/>"sv,
    "<"sv,
    ">"sv,
    "<a/>"sv,
    "</a>"sv,
    "<:a/>"sv,
    "<a:/>"sv,
    "<p:a/>"sv,
    "<a:b:c/>"sv,
    "<Menu/>"sv,
    "<Menus>"sv,
    "</Menus>"sv,
    "<Toolbar/>"sv,
    "<Toolbars>"sv,
    "<Menu Name='%s%n' Help='x'>"sv,
    "<!DOCTYPE"sv,
    "<!DOCTYPE a>"sv,
    "<!DOCTYPE a ["sv,
    "<!ENTITY"sv,
    "<!DOCTYPE a [<!ENTITY e '&e;'>]>"sv,
    "<!DOCTYPE a [<!ATTLIST a b CDATA 'c'>]>"sv,
    "<!DOCTYPE a [<!ELEMENT a (b,(c|d)*)>]>"sv,
    "<!DOCTYPE a SYSTEM 'a.dtd'>"sv,
    "&e;"sv,
    "&amp;"sv,
    "&#0;"sv,
    "&#x10FFFF;"sv,
    "<!-- -- -->"sv,
    "<?p ?>"sv,
    "<![CDATA[]]>"sv,
    "<![CDATA[a]]]]><![CDATA[>]]>"sv,
};

constexpr std::string_view HostileNames[] = {
    "Name"sv,  "Cmd"sv,       "Help"sv,        "ToolTip"sv,   "ImageList"sv,
    "xmlns"sv, "xmlns:p"sv,   "p:a"sv,         "xml:space"sv, "xml:lang"sv,
    "xml:a"sv, "xmlns:xml"sv, "xmlns:xmlns"sv, ":"sv,         "a:b:c"sv,
    "1"sv,     "\xC3\xA4"sv,  "a\xC2\xB7"sv,   "Separator"sv, ""sv,
};

constexpr std::string_view HostileValues[] = {
    ""sv,
    " "sv,
    "%s%s%s%n"sv,
    "%"sv,
    "&amp;"sv,
    "&lt;&gt;&quot;&apos;"sv,
    "&#9;"sv,
    "&#10;"sv,
    "&#13;"sv,
    "&#x1F600;"sv,
    "&#0;"sv,
    "&#1;"sv,
    "&#xD800;"sv,
    "&#xFFFE;"sv,
    "&#x110000;"sv,
    "&#;"sv,
    "&;"sv,
    "&e;"sv,
    "&"sv,
    "<"sv,
    ">"sv,
    "]]>"sv,
    "Separator"sv,
    "SubToolbar"sv,
    "POP0"sv,
    "^C^C"sv,
    "^Z"sv,
    "..\\..\\a"sv,
    "C:\\a"sv,
    "\\\\a\\b"sv,
    "a|b"sv,
    "\t\r\n"sv,
    "preserve"sv,
    "default"sv,
    "http://www.w3.org/2000/xmlns/"sv,
    "http://www.w3.org/XML/1998/namespace"sv,
    "\xC3\xA9"sv,
    "\xF0\x9F\x98\x80"sv,
    "&&"sv,
};

constexpr std::string_view EncodingNames[] = {
    "UTF-8"sv,      "utf8"sv,        "UTF-16"sv,       "UTF-16LE"sv,   "UTF-16BE"sv,
    "ISO-8859-1"sv, "ISO-8859-15"sv, "windows-1252"sv, "US-ASCII"sv,   "UTF-7"sv,
    "UTF-32"sv,     "UCS-4"sv,       "GB2312"sv,       "Big5"sv,       "Shift_JIS"sv,
    "EUC-JP"sv,     "EBCDIC"sv,      "ibm037"sv,       "x-nonsense"sv, ""sv,
    "-"sv,          "1"sv,
};

constexpr std::string_view BadSequences[] = {
    "\xC0\x80"sv,
    "\xC1\xA1"sv,
    "\xE0\x80\xBC"sv,
    "\xED\xA0\x80"sv,
    "\xED\xB0\x80"sv,
    "\xEF\xBF\xBE"sv,
    "\xF4\x90\x80\x80"sv,
    "\xF8\x88\x80\x80\x80"sv,
    "\xFE"sv,
    "\xFF"sv,
    "\x80"sv,
    "\xC3"sv,
    "\xE2\x82"sv,
    "\xF0\x9F\x98"sv,
    "\0"sv,
    "\0\0"sv,
    "\x01"sv,
    "\x1B"sv,
    "\xEF\xBB\xBF"sv,
    "\xFF\xFE"sv,
    "\xFE\xFF"sv,
    "\x85"sv,
    "\xC2\x85"sv,
    "\xE2\x80\xA8"sv,
};

} // namespace

std::string Mutator::Mutate(MutationKind kind, std::string_view document, std::string_view other)
{
    std::string text(document);
    // Mostly one, so that many mutants are still well-formed.
    for (size_t changes = 1 + Below(2) * Below(4); changes > 0; --changes) {
        switch (kind) {
        case MutationKind::Bytes:
            ChangeBytes(text, other);
            break;
        case MutationKind::Tags:
            ChangeTags(text, other);
            break;
        case MutationKind::Attributes:
            ChangeAttributes(text);
            break;
        case MutationKind::Encodings:
            ChangeEncoding(text);
            break;
        }
    }
    if (text.size() > LongestMutant)
        text.resize(LongestMutant);
    return text;
}

void Mutator::ChangeBytes(std::string& text, std::string_view other)
{
    constexpr std::string_view special = "<>&;'\"/=!?[]#%:- \n";
    const size_t at = Below(text.size() + 1);
    const size_t inside = text.empty() ? 0 : Below(text.size());
    switch (text.empty() ? 4 : Below(8)) {
    case 0:
        text[inside] = static_cast<char>(text[inside] ^ (1 << Below(8)));
        break;
    case 1:
        text[inside] = static_cast<char>(Below(256));
        break;
    case 2:
        text[inside] = special[Below(special.size())];
        break;
    case 3:
        text.erase(inside, 1 + Below(8));
        break;
    case 4:
        text.insert(at, other.substr(Below(other.size()), 1 + Below(40)));
        break;
    case 5:
        text.insert(at, text.substr(inside, Below(20)));
        break;
    case 6: {
        const std::string moved = text.substr(inside, Below(60));
        text.erase(inside, moved.size());
        text.insert(Below(text.size() + 1), moved);
        break;
    }
    default:
        // Rarely, as little is left of the document then.
        if (Below(4) == 0)
            text.resize(inside);
        else
            text.insert(at, 1, special[Below(special.size())]);
    }
}

void Mutator::ChangeTags(std::string& text, std::string_view other)
{
    const std::vector<Part> tags = TagsOf(text);
    if (tags.empty()) {
        text.insert(Below(text.size() + 1), OneOf(HostileMarkup));
        return;
    }
    const Part one = tags[Below(tags.size())];
    const Part two = tags[Below(tags.size())];
    const std::string tag = text.substr(one.begin, one.size);
    switch (Below(10)) {
    case 0:
        text.erase(one.begin, one.size);
        break;
    case 1:
        text.insert(two.begin, tag);
        break;
    case 2:
        text.replace(one.begin, one.size, std::string(text, two.begin, two.size));
        break;
    case 3: {
        // From one tag to another, elsewhere.
        const size_t begin = std::min(one.begin, two.begin);
        const size_t end = std::max(one.begin + one.size, two.begin + two.size);
        const std::string moved = text.substr(begin, end - begin);
        text.insert(tags[Below(tags.size())].begin, moved);
        break;
    }
    case 4: {
        // Opened where it was closed in itself, and the other way round.
        const bool isClosed = tag.size() > 2 && tag[tag.size() - 2] == '/';
        text.replace(one.begin, one.size,
                     tag.substr(0, tag.size() - (isClosed ? 2 : 1)) + (isClosed ? ">" : "/>"));
        break;
    }
    case 5: {
        // As deep as a parser may take it, and deeper.
        const size_t depth = 1 + Below(Below(3) == 0 ? 400 : 20);
        const bool areMenus = Below(2) == 0;
        text.insert(one.begin + one.size, Repeated(areMenus ? "</Menu>" : "</n>", depth));
        text.insert(one.begin, Repeated(areMenus ? "<Menu Help='h'>" : "<n>", depth));
        break;
    }
    case 6:
        text.insert(Below(2) == 0 ? one.begin : one.begin + 1 + Below(one.size), OneOf(HostileMarkup));
        break;
    case 7: {
        const std::vector<Part> others = TagsOf(other);
        if (!others.empty()) {
            const Part part = others[Below(others.size())];
            text.insert(one.begin, other.substr(part.begin, part.size));
        }
        break;
    }
    case 8:
        text.replace(one.begin, one.size, OneOf(HostileMarkup));
        break;
    default:
        text.insert(one.begin, Repeated("<e/>", Below(200)));
    }
}

void Mutator::ChangeAttributes(std::string& text)
{
    const std::vector<Part> attributes = AttributesOf(text);
    if (attributes.empty()) {
        const size_t end = text.find('>');
        if (end != text.npos)
            text.insert(end, " " + std::string(OneOf(HostileNames)) + "='" +
                                 std::string(OneOf(HostileValues)) + "'");
        return;
    }
    const Part one = attributes[Below(attributes.size())];
    const Part two = attributes[Below(attributes.size())];
    const std::string attribute = text.substr(one.begin, one.size);
    const size_t equals = attribute.find('=');
    const std::string name = attribute.substr(1, equals - 1);
    const std::string quoted = attribute.substr(equals + 1);
    switch (Below(11)) {
    case 0:
        text.erase(one.begin, one.size);
        break;
    case 1:
        text.insert(one.begin, attribute);
        break;
    case 2:
        text.insert(two.begin, attribute);
        break;
    case 3:
        text.replace(one.begin + 1, name.size(), OneOf(HostileNames));
        break;
    case 4:
    case 5:
        text.replace(one.begin + 1 + equals, quoted.size(), '"' + std::string(OneOf(HostileValues)) + '"');
        break;
    case 6:
        text.replace(one.begin + 1 + equals, quoted.size(),
                     '"' + Repeated(OneOf(HostileValues), Below(2000)) + '"');
        break;
    case 7:
        // Without one of its quotation marks, or both.
        text.erase(one.begin + one.size - 1, 1);
        if (Below(2) == 0)
            text.erase(one.begin + equals + 1, 1);
        break;
    case 8:
        text[one.begin + one.size - 1] = quoted.front() == '"' ? '\'' : '"';
        break;
    case 9: {
        std::string many;
        const bool areEqual = Below(4) == 0;
        for (size_t i = Below(200); i > 0; --i)
            many += " a" + (areEqual ? std::string() : std::to_string(i)) + "='" +
                    std::string(OneOf(HostileValues)) + "'";
        text.insert(one.begin, many);
        break;
    }
    default:
        text.insert(one.begin,
                    " " + std::string(OneOf(HostileNames)) + "='" + std::string(OneOf(HostileValues)) + "'");
    }
}

void Mutator::ChangeEncoding(std::string& text)
{
    switch (Below(9)) {
    case 0:
    case 1: {
        // Another name in the declaration, or a declaration with it.
        const size_t at = text.find("encoding=");
        const size_t end = at == text.npos ? at : text.find_first_of("\"'", at + 10);
        if (end != text.npos)
            text.replace(at + 10, end - at - 10, OneOf(EncodingNames));
        else if (!text.starts_with("<?xml"))
            text.insert(0, "<?xml version='1.0' encoding='" + std::string(OneOf(EncodingNames)) + "'?>");
        break;
    }
    case 2: {
        const bool isBigEndian = Below(2) == 0;
        const std::string_view mark = isBigEndian ? "\xFE\xFF"sv : "\xFF\xFE"sv;
        text = std::string(Below(4) == 0 ? ""sv : mark) + InUtf16(text, isBigEndian);
        break;
    }
    case 3:
        text = InUtf32(text);
        break;
    case 4:
        text = InLatin1(text);
        break;
    case 5:
        text.insert(0, OneOf(BadSequences));
        break;
    case 6:
        text.insert(Below(2) == 0 ? text.size() : Below(text.size() + 1), OneOf(BadSequences));
        break;
    case 7:
        // Half a character off.
        text.erase(0, 1);
        break;
    default:
        if (!text.empty())
            text[Below(text.size())] = static_cast<char>(128 + Below(128));
    }
}

} // namespace hostile
