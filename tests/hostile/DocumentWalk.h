// A document as lines of text, read with a bound on the steps.
#pragma once

#include <VelmUtil22.h>

#include <map>
#include <string>
#include <vector>

namespace hostile
{

// More steps than a finite document of that length needs.
struct EndlessWalk
{
};

struct WalkedDocument
{
    // A node each, in document order: depth, kind, name, value, attributes. Texts side by side are one.
    std::vector<std::wstring> lines;
    // The values of the attributes, by name, in document order; without those whose prefix is not declared,
    // which Wine's parser takes but does not find again.
    std::map<std::wstring, std::vector<std::wstring>> attributes;
    size_t nodes = 0; // attributes included
    size_t elements = 0;
    size_t depth = 0;            // of the deepest element; 1 for the root
    bool hasLoosePrefix = false; // a name with a colon, but in no namespace or with nothing behind it
};

// Throws EndlessWalk after `mostSteps` nodes, and _com_error where the document model fails.
WalkedDocument Walk(const IXMLDOMDocument2Ptr& document, size_t mostSteps);

} // namespace hostile
