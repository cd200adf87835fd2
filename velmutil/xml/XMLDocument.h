// What the members of CXMLFile share.
#pragma once

#include "frame/Bstr.h"
#include "frame/ComFailure.h"
#include "frame/Msxml.h"

// A new, empty document of MSXML 6 that selects by XPath and does not reach outside itself.
IXMLDOMDocument2Ptr CreateXmlDocument();

// Parses a text into the document. False, and an empty document, for what is not well-formed and for what
// declares entities.
bool ParseText(const IXMLDOMDocument2Ptr& document, const CString& text);

// The first node that `xpath` finds from `context`; null if there is none.
template <class NodePointer>
IXMLDOMNodePtr SelectSingle(const NodePointer& context, BSTR xpath)
{
    IXMLDOMNodePtr node;
    CheckCall(context->selectSingleNode(xpath, &node), context);
    return node;
}

// The attribute `name` in a map of attributes; null if there is none.
IXMLDOMNodePtr NamedItem(const IXMLDOMNamedNodeMapPtr& attributes, BSTR name);

// The attributes of a node; null for a kind of node that has none.
IXMLDOMNamedNodeMapPtr AttributesOf(const IXMLDOMNodePtr& node);

// Raises E_INVALIDARG for what is no name of an element or an attribute: not every parser refuses to make
// a node that cannot be read back.
void RequireXmlName(const wchar_t* name);

// A node made by `document`, in no namespace. Raises as RequireXmlName does.
IXMLDOMNodePtr MakeNode(const IXMLDOMDocument2Ptr& document, DOMNodeType type, const CBstr& name);

// The kind of a node.
DOMNodeType TypeOf(const IXMLDOMNodePtr& node);

// The next two raise E_INVALIDARG for what cannot be; not every parser refuses it.

// Puts `child`, an element, at the end of the children of `parent`: an element, a fragment, or a document
// without one.
void AppendElement(const IXMLDOMNodePtr& parent, const IXMLDOMNodePtr& child);

// Removes `child`, which must be no attribute, from the children of `parent`.
void RemoveChild(const IXMLDOMNodePtr& parent, const IXMLDOMNodePtr& child);

// Runs `operation`; any exception of it shows `failure` and gives `otherwise`.
template <class Result, class Operation>
Result ReportingFailure(const wchar_t* failure, Result otherwise, Operation operation)
{
    try {
        return operation();
    } catch (CException* e) {
        e->Delete();
    } catch (...) {
    }
    AfxMessageBox(failure, MB_OK, 0);
    return otherwise;
}
