#include "DocumentTree.h"

#include <algorithm>

#include "kit/Text.h"

namespace
{

constexpr wchar_t WhiteSpace[] = L" \t\r\n";

// A null result of a COM call that gives a text counts as the empty text.
std::wstring Taken(const _bstr_t& text)
{
    return text.length() == 0 ? std::wstring() : std::wstring(text, text.length());
}

std::wstring NameOf(const IXMLDOMNodePtr& node)
{
    _bstr_t name;
    _com_util::CheckError(node->get_nodeName(name.GetAddress()));
    return Taken(name);
}

std::wstring NamespaceOf(const IXMLDOMNodePtr& node)
{
    _bstr_t name;
    _com_util::CheckError(node->get_namespaceURI(name.GetAddress()));
    return Taken(name);
}

std::wstring ValueOf(const IXMLDOMNodePtr& node)
{
    _variant_t value;
    _com_util::CheckError(node->get_nodeValue(&value));
    return value.vt == VT_BSTR ? std::wstring(value.bstrVal, SysStringLen(value.bstrVal)) : std::wstring();
}

std::vector<TreeAttribute> AttributesOf(const IXMLDOMNodePtr& node)
{
    std::vector<TreeAttribute> attributes;
    IXMLDOMNamedNodeMapPtr map;
    _com_util::CheckError(node->get_attributes(&map));
    IXMLDOMNodePtr attribute;
    while (map->nextNode(&attribute) == S_OK)
        attributes.push_back({NameOf(attribute), ValueOf(attribute)});
    return attributes;
}

void AddNode(DocumentTree& tree, const IXMLDOMNodePtr& node, int depth);

void AddChildren(DocumentTree& tree, const IXMLDOMNodePtr& parent, int depth)
{
    IXMLDOMNodePtr node;
    for (HRESULT result = parent->get_firstChild(&node); result == S_OK;) {
        AddNode(tree, node, depth);
        IXMLDOMNodePtr next;
        result = node->get_nextSibling(&next);
        node = next;
    }
}

void AddNode(DocumentTree& tree, const IXMLDOMNodePtr& node, int depth)
{
    DOMNodeType type = NODE_INVALID;
    _com_util::CheckError(node->get_nodeType(&type));
    if (type == NODE_TEXT && !tree.empty() && tree.back().type == NODE_TEXT && tree.back().depth == depth) {
        tree.back().text += ValueOf(node);
        return;
    }
    TreeNode& entry = tree.emplace_back();
    entry.type = type;
    entry.depth = depth;
    if (type != NODE_TEXT && type != NODE_CDATA_SECTION && type != NODE_COMMENT)
        entry.name = NameOf(node);
    if (type == NODE_ELEMENT) {
        entry.space = NamespaceOf(node);
        entry.attributes = AttributesOf(node);
        AddChildren(tree, node, depth + 1);
    } else if (type != NODE_DOCUMENT_TYPE && type != NODE_ENTITY_REFERENCE) {
        entry.text = ValueOf(node);
    }
}

const char* TypeName(DOMNodeType type)
{
    switch (type) {
    case NODE_ELEMENT:
        return "element";
    case NODE_TEXT:
        return "text";
    case NODE_CDATA_SECTION:
        return "CDATA section";
    case NODE_COMMENT:
        return "comment";
    case NODE_PROCESSING_INSTRUCTION:
        return "processing instruction";
    case NODE_DOCUMENT_TYPE:
        return "document type";
    case NODE_ENTITY_REFERENCE:
        return "entity reference";
    default:
        return "node of another type";
    }
}

std::string Described(const DocumentTree& tree, size_t index)
{
    if (index >= tree.size())
        return "nothing more";
    const TreeNode& node = tree[index];
    std::string text = std::string(TypeName(node.type)) + " at depth " + std::to_string(node.depth);
    if (!node.space.empty())
        text += " in " + testkit::Quoted(node.space);
    if (!node.name.empty())
        text += " called " + testkit::Quoted(node.name);
    for (const TreeAttribute& attribute : node.attributes)
        text += "\n    " + testkit::Utf8(attribute.name) + " = " + testkit::Quoted(attribute.value);
    if (!node.text.empty())
        text += "\n    " + testkit::Quoted(node.text);
    return text;
}

} // namespace

DocumentTree TreeOf(const IXMLDOMDocument2Ptr& document)
{
    // A document type may not know its next sibling, so the document's own children are counted off.
    DocumentTree tree;
    IXMLDOMNodeListPtr children;
    _com_util::CheckError(document->get_childNodes(&children));
    long count = 0;
    _com_util::CheckError(children->get_length(&count));
    for (long i = 0; i < count; ++i) {
        IXMLDOMNodePtr child;
        _com_util::CheckError(children->get_item(i, &child));
        AddNode(tree, child, 0);
    }
    SortAttributes(tree);
    return tree;
}

void SortAttributes(DocumentTree& tree)
{
    for (TreeNode& node : tree) {
        std::sort(node.attributes.begin(), node.attributes.end(),
                  [](const TreeAttribute& a, const TreeAttribute& b) { return a.name < b.name; });
    }
}

DocumentTree DataOf(DocumentTree tree)
{
    std::erase_if(tree, [](const TreeNode& node) {
        return node.type == NODE_COMMENT || node.type == NODE_PROCESSING_INSTRUCTION ||
               node.type == NODE_DOCUMENT_TYPE;
    });
    return tree;
}

DocumentTree WithPlainTexts(DocumentTree tree)
{
    DocumentTree plain;
    for (TreeNode& node : tree) {
        if (node.type == NODE_TEXT) {
            node.text.erase(0, std::min(node.text.find_first_not_of(WhiteSpace), node.text.size()));
            node.text.resize(node.text.find_last_not_of(WhiteSpace) + 1);
        }
        const bool isMore = node.type == NODE_CDATA_SECTION && !plain.empty() &&
                            plain.back().type == node.type && plain.back().depth == node.depth;
        if (isMore)
            plain.back().text += node.text;
        else
            plain.push_back(std::move(node));
    }
    return plain;
}

std::string FirstDifference(const DocumentTree& expected, const DocumentTree& actual)
{
    const auto [left, right] = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    if (left == expected.end() && right == actual.end())
        return {};
    const size_t index = static_cast<size_t>(left - expected.begin());
    return "Node " + std::to_string(index) + ", expected: " + Described(expected, index) +
           "\nfound: " + Described(actual, index);
}
