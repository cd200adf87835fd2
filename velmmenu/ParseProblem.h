// Why a text is no XML document.
#pragma once

#include <string>

namespace velmmenu
{

struct ParseProblem
{
    unsigned line = 1;
    std::wstring reason;
};

// What keeps `text`, which the document model refused, from being a document. The document model does not
// tell; rests on MSXML 6's SAX reader, which does.
ParseProblem FindParseProblem(const std::wstring& text);

} // namespace velmmenu
