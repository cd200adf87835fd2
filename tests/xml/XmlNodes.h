// What the tests of selection, attributes and editing share: current nodes, and a look at the tree past
// the code under test.
#pragma once

#include "XmlTest.h"

#include <optional>

// A text that can be given where a wchar_t* is asked for.
class Writable
{
public:
    Writable(std::wstring_view text) : m_text(text) {}
    Writable(const wchar_t* text) : m_text(text) {}
    operator wchar_t*() { return m_text.data(); }

private:
    std::wstring m_text;
};

inline std::wstring WideOf(const _bstr_t& text)
{
    return std::wstring(static_cast<const wchar_t*>(text) ? static_cast<const wchar_t*>(text) : L"",
                        text.length());
}

inline std::wstring WideOf(const CString& text)
{
    return std::wstring(text.GetString(), static_cast<size_t>(text.GetLength()));
}

inline std::vector<std::wstring> TextsOf(const CStringArray& array)
{
    std::vector<std::wstring> texts;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        texts.push_back(WideOf(array[i]));
    return texts;
}

inline std::wstring NameOf(const IXMLDOMNodePtr& node)
{
    _bstr_t name;
    node->get_nodeName(name.GetAddress());
    return WideOf(name);
}

inline std::wstring ValueOf(const IXMLDOMNodePtr& node)
{
    _variant_t value;
    node->get_nodeValue(&value);
    return value.vt == VT_BSTR ? WideOf(_bstr_t(value)) : std::wstring();
}

inline DOMNodeType TypeOf(const IXMLDOMNodePtr& node)
{
    DOMNodeType type = NODE_INVALID;
    node->get_nodeType(&type);
    return type;
}

// The first node that the XPath finds; null if there is none.
template <class NodePointer>
IXMLDOMNodePtr Find(const NodePointer& context, const wchar_t* xpath)
{
    IXMLDOMNodePtr node;
    context->selectSingleNode(_bstr_t(xpath), &node);
    return node;
}

// Null for a node that stands in no tree.
inline IXMLDOMNodePtr ParentOf(const IXMLDOMNodePtr& node)
{
    IXMLDOMNodePtr parent;
    node->get_parentNode(&parent);
    return parent;
}

// The attributes of an element, in the order of the platform.
inline std::vector<IXMLDOMNodePtr> AttributeNodes(const IXMLDOMNodePtr& node)
{
    std::vector<IXMLDOMNodePtr> attributes;
    IXMLDOMNamedNodeMapPtr map;
    node->get_attributes(&map);
    if (!map)
        return attributes;
    IXMLDOMNodePtr attribute;
    for (long i = 0; map->get_item(i, &attribute) == S_OK && attribute; ++i)
        attributes.push_back(attribute);
    return attributes;
}

// The attributes of an element as name="value".
inline std::vector<std::wstring> AttributesOf(const IXMLDOMNodePtr& node)
{
    std::vector<std::wstring> texts;
    for (const IXMLDOMNodePtr& attribute : AttributeNodes(node))
        texts.push_back(NameOf(attribute) + L"=\"" + ValueOf(attribute) + L"\"");
    return texts;
}

// The value of an attribute, if it is there.
inline std::optional<std::wstring> AttributeValue(const IXMLDOMNodePtr& node, std::wstring_view name)
{
    for (const IXMLDOMNodePtr& attribute : AttributeNodes(node)) {
        if (NameOf(attribute) == name)
            return ValueOf(attribute);
    }
    return std::nullopt;
}

inline std::vector<IXMLDOMNodePtr> ChildrenOf(const IXMLDOMNodePtr& node)
{
    std::vector<IXMLDOMNodePtr> children;
    IXMLDOMNodePtr child;
    node->get_firstChild(&child);
    while (child) {
        children.push_back(child);
        IXMLDOMNodePtr next;
        child->get_nextSibling(&next);
        child = next;
    }
    return children;
}

// The whole tree under a node, for a person and for comparison: r(a id="1"()'text').
inline std::wstring TreeOf(const IXMLDOMNodePtr& node)
{
    if (TypeOf(node) == NODE_TEXT)
        return L"'" + ValueOf(node) + L"'";
    std::wstring tree = NameOf(node);
    for (const std::wstring& attribute : AttributesOf(node))
        tree += L" " + attribute;
    tree += L"(" + ValueOf(node);
    for (const IXMLDOMNodePtr& child : ChildrenOf(node))
        tree += TreeOf(child);
    return tree + L")";
}

template <class NodePointer>
ULONG ReferencesOf(const NodePointer& pointer)
{
    pointer->AddRef();
    return pointer->Release();
}

class XmlNodeTest : public XmlTest
{
protected:
    // A document of that text; the current node is the first that the XPath finds.
    CXMLFile LoadedAt(std::string_view utf8, const wchar_t* xpath = L"/*")
    {
        CXMLFile file = Loaded(utf8);
        file.m_pCurNode = Find(file.m_pXMLDoc, xpath);
        EXPECT_TRUE(file.m_pCurNode) << testkit::Quoted(xpath);
        return file;
    }

    // The tree of a file's document.
    static std::wstring TreeOfDocument(const CXMLFile& file) { return TreeOf(file.m_pXMLDoc); }

    // That one message was shown, with an OK button and nothing else to press.
    void ExpectOneMessage(const std::wstring& text) const
    {
        EXPECT_THAT(Messages(), testing::ElementsAre(text));
        for (const testkit::MessageBoxRecord& box : m_watch.Boxes())
            EXPECT_THAT(box.buttons, testing::ElementsAre(int{IDOK}));
    }

    void ExpectNoMessage() const { EXPECT_THAT(Messages(), testing::IsEmpty()); }
};
