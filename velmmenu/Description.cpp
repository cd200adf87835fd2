#include "Description.h"

#include <algorithm>

#include "Failure.h"
#include "ParseProblem.h"
#include "Positions.h"
#include "hostmenu/Entries.h"
#include "hostmenu/NodeWalk.h"
#include "xml/Prolog.h"

namespace velmmenu
{

namespace
{

// The document model gives a node another address at each question, so the elements of the tool's own copy
// bear their number in this attribute, which takes the place of one that the file has.
constexpr wchar_t NumberAttribute[] = L"velmmenu-number";

using Getter = HRESULT (STDMETHODCALLTYPE IXMLDOMNode::*)(BSTR*);

std::wstring TextOf(IXMLDOMNode* node, Getter get)
{
    BSTR text = nullptr;
    _com_util::CheckError((node->*get)(&text));
    const _bstr_t owner(text, false);
    return text != nullptr ? std::wstring(text, ::SysStringLen(text)) : std::wstring();
}

IXMLDOMDocument2Ptr Load(const std::wstring& text)
{
    IXMLDOMDocumentPtr document;
    _com_util::CheckError(document.CreateInstance(VelmDomDocument60, nullptr, CLSCTX_INPROC_SERVER));
    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    _com_util::CheckError(document->loadXML(_bstr_t(text.c_str()), &isLoaded));
    if (isLoaded == VARIANT_FALSE) {
        const ParseProblem problem = FindParseProblem(text);
        throw Failure{std::to_wstring(problem.line) + L": " + problem.reason};
    }
    return document;
}

} // namespace

std::size_t Element::CountBelow() const
{
    std::size_t count = children.size();
    for (const Element* child : children)
        count += child->CountBelow();
    return count;
}

bool Element::Has(const wchar_t* attribute) const
{
    return std::any_of(attributes.begin(), attributes.end(),
                       [&](const Attribute& own) { return own.name == attribute; });
}

Description::Description(const std::wstring& text)
{
    if (TextDeclaresEntities(CString(text.c_str()))) {
        // The library does not give it to the parser either.
        m_documentType = LineOfDocumentType(text);
        return;
    }
    m_document = Load(text);
    IXMLDOMElementPtr root;
    _com_util::CheckError(m_document->get_documentElement(&root));
    AddElements(root, nullptr);
    Place(text);
    if (m_elements.empty())
        return;
    m_menus = {Select(MenuHolderPath), Select(MenuEntriesPath)};
    m_toolBars = {Select(ToolBarHolderPath), Select(ToolBarEntriesPath)};
}

void Description::AddElements(IXMLDOMNode* node, Element* parent)
{
    const IXMLDOMElementPtr asElement(node);
    if (parent != nullptr)
        ++parent->childNodes;
    if (!asElement)
        return;
    const std::size_t number = m_elements.size();
    m_elements.push_back(std::make_unique<Element>());
    Element& element = *m_elements.back();
    element.node = node;
    element.name = TextOf(node, &IXMLDOMNode::get_baseName);
    element.isInNamespace = !TextOf(node, &IXMLDOMNode::get_namespaceURI).empty();
    element.parent = parent;
    if (parent != nullptr)
        parent->children.push_back(&element);
    _com_util::CheckError(
        asElement->setAttribute(_bstr_t(NumberAttribute), _variant_t(std::to_wstring(number).c_str())));

    IXMLDOMNodePtr child;
    for (HRESULT result = node->get_firstChild(&child); result == S_OK && child;) {
        AddElements(child, &element);
        IXMLDOMNodePtr next;
        result = child->get_nextSibling(&next);
        child = next;
    }
}

void Description::Place(const std::wstring& text)
{
    IXMLDOMDocumentType* type = nullptr;
    _com_util::CheckError(m_document->get_doctype(&type));
    const IXMLDOMNodePtr owner(type, false);
    if (type != nullptr) {
        // Entities may have brought elements that stand nowhere.
        m_documentType = LineOfDocumentType(text);
        m_elements.clear();
        return;
    }
    const std::vector<ElementPosition> positions = ReadPositions(text);
    if (positions.size() != m_elements.size())
        throw Failure{L"1: the platform's two XML parsers do not find the same elements"};
    for (std::size_t i = 0; i < m_elements.size(); ++i) {
        Element& element = *m_elements[i];
        const ElementPosition& position = positions[i];
        element.line = position.line;
        for (const auto& [name, line] : position.attributes) {
            if (name != L"xmlns" && name.find(L':') == std::wstring::npos)
                element.attributes.push_back({name, line});
        }
    }
}

std::vector<Element*> Description::Select(const wchar_t* xpath) const
{
    IXMLDOMNodeListPtr nodes;
    _com_util::CheckError(m_document->selectNodes(_bstr_t(xpath), &nodes));
    std::vector<Element*> selected;
    ForEachNode(nodes, NodeCount(nodes), [&](IXMLDOMNodePtr& node) {
        _variant_t number;
        _com_util::CheckError(IXMLDOMElementPtr(node)->getAttribute(_bstr_t(NumberAttribute), &number));
        selected.push_back(m_elements[std::stoul(static_cast<const wchar_t*>(_bstr_t(number)))].get());
    });
    return selected;
}

} // namespace velmmenu
