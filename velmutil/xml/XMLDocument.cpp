#include "xml/XMLDocument.h"

#include "frame/Bstr.h"
#include "xml/Prolog.h"
#include "xml/XmlName.h"

namespace
{

// Parsers differ in which of these they know and how they answer, so the answer is not looked at.
void ForbidReachingOutside(const IXMLDOMDocument2Ptr& document)
{
    (void)document->setProperty(CBstr(L"ProhibitDTD"), _variant_t(true));
    (void)document->put_resolveExternals(VARIANT_FALSE);
}

} // namespace

IXMLDOMDocument2Ptr CreateXmlDocument()
{
    IXMLDOMDocument2Ptr document;
    _com_util::CheckError(document.CreateInstance(L"Msxml2.DOMDocument.6.0", nullptr, CLSCTX_ALL));
    CheckCall(document->setProperty(CBstr(L"SelectionLanguage"), _variant_t(L"XPath")), document);
    ForbidReachingOutside(document);
    return document;
}

bool ParseText(const IXMLDOMDocument2Ptr& document, const CString& text)
{
    const CString parsed = TextDeclaresEntities(text) ? CString() : text;
    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    CheckCall(document->loadXML(CBstr(parsed), &isLoaded), document);
    return isLoaded != VARIANT_FALSE;
}

IXMLDOMNodePtr NamedItem(const IXMLDOMNamedNodeMapPtr& attributes, BSTR name)
{
    IXMLDOMNodePtr attribute;
    CheckCall(attributes->getNamedItem(name, &attribute), attributes);
    return attribute;
}

IXMLDOMNamedNodeMapPtr AttributesOf(const IXMLDOMNodePtr& node)
{
    IXMLDOMNamedNodeMapPtr attributes;
    CheckCall(node->get_attributes(&attributes), node);
    return attributes;
}

void RequireXmlName(const wchar_t* name)
{
    if (!IsXmlName(name))
        _com_issue_error(E_INVALIDARG);
}

IXMLDOMNodePtr MakeNode(const IXMLDOMDocument2Ptr& document, DOMNodeType type, const CBstr& name)
{
    if (!document)
        _com_issue_error(E_POINTER);
    RequireXmlName(name);
    IXMLDOMNodePtr node;
    CheckCall(document->createNode(_variant_t(static_cast<long>(type)), name, CBstr(L""), &node), document);
    if (!node)
        _com_issue_error(E_OUTOFMEMORY);
    return node;
}

DOMNodeType TypeOf(const IXMLDOMNodePtr& node)
{
    DOMNodeType type = NODE_INVALID;
    CheckCall(node->get_nodeType(&type), node);
    return type;
}

void AppendElement(const IXMLDOMNodePtr& parent, const IXMLDOMNodePtr& child)
{
    switch (TypeOf(parent)) {
    case NODE_ELEMENT:
    case NODE_DOCUMENT_FRAGMENT:
        break;
    case NODE_DOCUMENT:
        if (SelectSingle(parent, CBstr(L"/*")))
            _com_issue_error(E_INVALIDARG);
        break;
    default:
        _com_issue_error(E_INVALIDARG);
    }
    CheckCall(parent->appendChild(child, nullptr), parent);
}

void RemoveChild(const IXMLDOMNodePtr& parent, const IXMLDOMNodePtr& child)
{
    if (TypeOf(child) == NODE_ATTRIBUTE)
        _com_issue_error(E_INVALIDARG);
    CheckCall(parent->removeChild(child, nullptr), parent);
}
