// What a check has to say.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace velmmenu
{

struct Finding
{
    unsigned line = 0;
    std::wstring text;
};

class Findings
{
public:
    void Add(unsigned line, std::wstring text) { m_findings.push_back({line, std::move(text)}); }

    // By line; those of one line in the order in which they were added.
    std::vector<Finding> Sorted() const
    {
        std::vector<Finding> sorted = m_findings;
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const Finding& a, const Finding& b) { return a.line < b.line; });
        return sorted;
    }

private:
    std::vector<Finding> m_findings;
};

// The text in quotation marks.
inline std::wstring Quoted(std::wstring_view text)
{
    return L"\"" + std::wstring(text) + L"\"";
}

// "the element in it", "the 3 elements in it".
inline std::wstring ElementsInIt(std::size_t count)
{
    return count == 1 ? L"the element in it" : L"the " + std::to_wstring(count) + L" elements in it";
}

} // namespace velmmenu
