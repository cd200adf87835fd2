#include "xml/XmlName.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace
{

struct CharacterRange
{
    uint32_t first;
    uint32_t last;
};

// Characters with which a name, or the part behind a prefix, may begin.
constexpr CharacterRange StartRanges[] = {
    {'A', 'Z'},       {'_', '_'},       {'a', 'z'},       {0xC0, 0xD6},     {0xD8, 0xF6},
    {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F},
    {0x2C00, 0x2FEF}, {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};

// Characters that may follow besides those.
constexpr CharacterRange FurtherRanges[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040},
};

template <size_t Count>
bool IsIn(const CharacterRange (&ranges)[Count], uint32_t character)
{
    return std::any_of(std::begin(ranges), std::end(ranges), [=](const CharacterRange& range) {
        return range.first <= character && character <= range.last;
    });
}

// Takes one character off the text; half of a surrogate pair comes as it is, and is in no range.
uint32_t TakeCharacter(const wchar_t*& text)
{
    const uint32_t unit = *text++;
    if (unit < 0xD800 || unit > 0xDBFF || *text < 0xDC00 || *text > 0xDFFF)
        return unit;
    return 0x10000 + ((unit - 0xD800) << 10) + (*text++ - 0xDC00u);
}

} // namespace

bool IsXmlName(const wchar_t* name)
{
    if (name == nullptr)
        return false;
    bool hasPrefix = false;
    bool isAtStart = true;
    while (*name != L'\0') {
        const uint32_t character = TakeCharacter(name);
        if (character == ':' && !isAtStart && !hasPrefix) {
            hasPrefix = true;
            isAtStart = true;
        } else if (IsIn(StartRanges, character) || (!isAtStart && IsIn(FurtherRanges, character))) {
            isAtStart = false;
        } else {
            return false;
        }
    }
    return !isAtStart;
}
