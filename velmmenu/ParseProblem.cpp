#include "ParseProblem.h"

#include "Sax.h"

namespace velmmenu
{

ParseProblem FindParseProblem(const std::wstring& text)
{
    const std::size_t first = text.find_first_not_of(L" \t\r\n");
    if (first == std::wstring::npos)
        return ParseProblem{1, L"there is nothing but white space"};
    if (first > 0 && text.compare(first, 6, L"<?xml ") == 0)
        return ParseProblem{1, L"the XML declaration does not stand at the very beginning"};
    ParseProblem problem{1, std::wstring()};
    SaxHandlers handlers;
    handlers.onError = [&](SaxPlace place, const std::wstring& reason) { problem = {place.line, reason}; };
    if (ReadBySax(text, handlers))
        return ParseProblem{1, L"the document model does not take the encoding that the text declares"};
    if (problem.reason.empty())
        problem.reason = L"the text is no XML document";
    return problem;
}

} // namespace velmmenu
