// Where the elements of an XML text stand.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace velmmenu
{

// Lines count from 1.
struct ElementPosition
{
    unsigned line = 0;                                         // of the beginning of the start tag
    std::vector<std::pair<std::wstring, unsigned>> attributes; // with their prefixes
};

// The positions of all elements of a well-formed text without a document type declaration, in document
// order. Throws Failure when the SAX reader does not get through.
std::vector<ElementPosition> ReadPositions(const std::wstring& text);

// The line of the document type declaration of a well-formed text that has one.
unsigned LineOfDocumentType(const std::wstring& text);

} // namespace velmmenu
