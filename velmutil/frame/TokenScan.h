// The scan for tokens that the splitting helpers share.
#pragma once

#include <cwchar>

// A set of separator characters that answers fast for those most used.
class CSeparatorSet
{
public:
    // `separators` is zero-terminated and must live as long as the set.
    explicit CSeparatorSet(const wchar_t* separators) : m_separators(separators)
    {
        for (const wchar_t* p = separators; *p != 0; ++p) {
            if (*p < LatinCount)
                m_latin[*p] = true;
        }
    }

    bool Contains(wchar_t character) const
    {
        return character < LatinCount ? m_latin[character] : std::wcschr(m_separators, character) != nullptr;
    }

private:
    static constexpr wchar_t LatinCount = 256;
    const wchar_t* m_separators;
    bool m_latin[LatinCount] = {};
};

// Calls take(first, length) for each token of the zero-terminated `text`, from the left: the longest
// runs of characters that are not in `separators`.
template <class Take>
void ForEachToken(const wchar_t* text, const CSeparatorSet& separators, Take take)
{
    for (const wchar_t* p = text;;) {
        while (*p != 0 && separators.Contains(*p))
            ++p;
        if (*p == 0)
            return;
        const wchar_t* const first = p;
        while (*p != 0 && !separators.Contains(*p))
            ++p;
        take(first, static_cast<int>(p - first));
    }
}
