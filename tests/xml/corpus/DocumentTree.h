// A document as a plain list of its nodes, to compare what two readers see in it.
#pragma once

#include <VelmUtil22.h>

#include <string>
#include <vector>

struct TreeAttribute
{
    std::wstring name; // with prefix, as all names here
    std::wstring value;
    bool operator==(const TreeAttribute&) const = default;
};

struct TreeNode
{
    DOMNodeType type = NODE_INVALID;
    int depth = 0;      // 0 for the root element and what stands beside it
    std::wstring name;  // of an element, a processing instruction, an entity reference, a DTD
    std::wstring space; // the namespace of an element
    std::wstring text;  // of a text, a CDATA section, a comment, a processing instruction
    std::vector<TreeAttribute> attributes;
    bool operator==(const TreeNode&) const = default;
};

// The nodes in document order, which gives the tree together with their depths. Texts side by side are
// one; attributes are sorted by name, as their order means nothing.
using DocumentTree = std::vector<TreeNode>;

DocumentTree TreeOf(const IXMLDOMDocument2Ptr& document);

void SortAttributes(DocumentTree& tree);

// Only what stands for data: elements, texts, CDATA sections and references to entities.
DocumentTree DataOf(DocumentTree tree);

// Texts without the white space at their ends, and CDATA sections side by side as one: Wine's parser keeps
// neither.
DocumentTree WithPlainTexts(DocumentTree tree);

// In words, the first place where the two differ; empty if they are equal.
std::string FirstDifference(const DocumentTree& expected, const DocumentTree& actual);
