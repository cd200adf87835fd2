#include "Suggestion.h"

#include <algorithm>
#include <cwctype>
#include <vector>

namespace velmmenu
{

namespace
{

std::wstring Lower(std::wstring text)
{
    for (wchar_t& c : text)
        c = static_cast<wchar_t>(std::towlower(c));
    return text;
}

// The number of letters to be added, dropped, replaced, or swapped with their neighbour.
std::size_t Changes(const std::wstring& a, const std::wstring& b)
{
    std::vector<std::vector<std::size_t>> cost(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                cost[i][j] = i + j;
                continue;
            }
            const bool same = a[i - 1] == b[j - 1];
            cost[i][j] =
                std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, cost[i - 1][j - 1] + (same ? 0 : 1)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
        }
    }
    return cost[a.size()][b.size()];
}

bool HoldsLettersOf(const std::wstring& longer, const std::wstring& shorter)
{
    if (shorter.size() < 3 || longer.front() != shorter.front())
        return false;
    std::size_t found = 0;
    for (const wchar_t c : longer)
        found += found < shorter.size() && c == shorter[found] ? 1 : 0;
    return found == shorter.size();
}

} // namespace

std::wstring NearestName(const std::wstring& written, std::initializer_list<const wchar_t*> names)
{
    constexpr std::size_t holdsLetters = 3;
    const std::wstring lower = Lower(written);
    std::wstring nearest;
    std::size_t best = holdsLetters + 1;
    for (const wchar_t* const name : names) {
        const std::wstring known = Lower(name);
        std::size_t distance = Changes(lower, known);
        const std::size_t allowed = std::min(lower.size(), known.size()) <= 4 ? 1 : 2;
        if (distance > allowed) {
            const bool isHeld = HoldsLettersOf(lower.size() > known.size() ? lower : known,
                                               lower.size() > known.size() ? known : lower);
            distance = isHeld ? holdsLetters : best;
        }
        if (distance < best) {
            best = distance;
            nearest = name;
        }
    }
    return nearest;
}

std::wstring DidYouMean(const std::wstring& name)
{
    return name.empty() ? std::wstring() : L"; did you mean " + name + L"?";
}

} // namespace velmmenu
