#include "DocumentWalk.h"

#include <algorithm>

namespace hostile
{

namespace
{

std::wstring TextOf(const _bstr_t& text)
{
    return text.length() == 0 ? std::wstring() : std::wstring(text, text.length());
}

std::wstring NameOf(const IXMLDOMNodePtr& node)
{
    _bstr_t name;
    _com_util::CheckError(node->get_nodeName(name.GetAddress()));
    return TextOf(name);
}

std::wstring ValueOf(const IXMLDOMNodePtr& node)
{
    _variant_t value;
    _com_util::CheckError(node->get_nodeValue(&value));
    return value.vt == VT_BSTR ? std::wstring(value.bstrVal, SysStringLen(value.bstrVal)) : std::wstring();
}

std::wstring NamespaceOf(const IXMLDOMNodePtr& node)
{
    _bstr_t name;
    _com_util::CheckError(node->get_namespaceURI(name.GetAddress()));
    return TextOf(name);
}

class Walker
{
public:
    explicit Walker(size_t mostSteps) : m_stepsLeft(mostSteps) {}

    void AddChildren(const IXMLDOMNodePtr& parent, size_t depth)
    {
        IXMLDOMNodePtr node;
        for (HRESULT result = parent->get_firstChild(&node); result == S_OK && node;) {
            Add(node, depth);
            IXMLDOMNodePtr next;
            result = node->get_nextSibling(&next);
            node = next;
        }
    }

    // A document type may not know its next sibling, so a document's own children are counted off.
    void AddTopLevel(const IXMLDOMDocument2Ptr& document)
    {
        IXMLDOMNodeListPtr children;
        _com_util::CheckError(document->get_childNodes(&children));
        long count = 0;
        _com_util::CheckError(children->get_length(&count));
        for (long i = 0; i < count; ++i) {
            IXMLDOMNodePtr child;
            _com_util::CheckError(children->get_item(i, &child));
            Add(child, 1);
        }
    }

    WalkedDocument walked;

private:
    void Step()
    {
        if (m_stepsLeft == 0)
            throw EndlessWalk{};
        --m_stepsLeft;
        ++walked.nodes;
    }

    void Add(const IXMLDOMNodePtr& node, size_t depth)
    {
        Step();
        DOMNodeType type = NODE_INVALID;
        _com_util::CheckError(node->get_nodeType(&type));
        const std::wstring start = std::to_wstring(depth) + L" " + std::to_wstring(type) + L" ";
        if (type == NODE_TEXT) {
            if (m_isAfterText && walked.lines.back().starts_with(start))
                walked.lines.back() += ValueOf(node);
            else
                walked.lines.push_back(start + ValueOf(node));
            m_isAfterText = true;
            return;
        }
        m_isAfterText = false;
        const bool hasName = type != NODE_CDATA_SECTION && type != NODE_COMMENT;
        walked.lines.push_back(start + (hasName ? NameOf(node) : std::wstring()));
        if (type == NODE_ELEMENT)
            AddElement(node, depth);
        else if (type != NODE_DOCUMENT_TYPE && type != NODE_ENTITY_REFERENCE)
            walked.lines.back() += L" " + ValueOf(node);
    }

    void AddElement(const IXMLDOMNodePtr& element, size_t depth)
    {
        ++walked.elements;
        walked.depth = std::max(walked.depth, depth);
        NoteLoosePrefix(NameOf(element), element);
        AddAttributes(element);
        AddChildren(element, depth + 1);
        m_isAfterText = false;
    }

    // Whether it has one.
    bool NoteLoosePrefix(const std::wstring& name, const IXMLDOMNodePtr& node)
    {
        const size_t colon = name.find(L':');
        const bool isDeclaration = name.starts_with(L"xmlns:");
        const bool isLoose = colon != std::wstring::npos &&
                             (colon + 1 == name.size() || (!isDeclaration && NamespaceOf(node).empty()));
        walked.hasLoosePrefix = walked.hasLoosePrefix || isLoose;
        return isLoose;
    }

    void AddAttributes(const IXMLDOMNodePtr& element)
    {
        std::vector<std::wstring> texts;
        IXMLDOMNamedNodeMapPtr map;
        _com_util::CheckError(element->get_attributes(&map));
        IXMLDOMNodePtr attribute;
        while (map->nextNode(&attribute) == S_OK) {
            Step();
            const std::wstring name = NameOf(attribute);
            const std::wstring value = ValueOf(attribute);
            if (!NoteLoosePrefix(name, attribute))
                walked.attributes[name].push_back(value);
            texts.push_back(L" " + name + L"=\"" + value + L"\"");
        }
        std::sort(texts.begin(), texts.end());
        for (const std::wstring& text : texts)
            walked.lines.back() += text;
    }

    size_t m_stepsLeft;
    bool m_isAfterText = false;
};

} // namespace

WalkedDocument Walk(const IXMLDOMDocument2Ptr& document, size_t mostSteps)
{
    Walker walker(mostSteps);
    walker.AddTopLevel(document);
    return std::move(walker.walked);
}

} // namespace hostile
