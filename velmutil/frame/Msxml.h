// The MSXML 6 interfaces with their smart pointers (IXMLDOMNodePtr and so on), the same for every
// toolchain.
#pragma once

#include <afxwin.h>
#include <comdef.h>

#ifdef __MINGW32__
// Its headers declare the interfaces without binding their ids to them.
#include <msxml2.h>
#define VELM_BIND_DOM_ID(Interface, first)                                                                   \
    __CRT_UUID_DECL(Interface, first, 0x7b36, 0x11d2, 0xb2, 0x0e, 0x00, 0xc0, 0x4f, 0x98, 0x3e, 0x60)
VELM_BIND_DOM_ID(IXMLDOMNode, 0x2933bf80)
VELM_BIND_DOM_ID(IXMLDOMDocument, 0x2933bf81)
VELM_BIND_DOM_ID(IXMLDOMNodeList, 0x2933bf82)
VELM_BIND_DOM_ID(IXMLDOMNamedNodeMap, 0x2933bf83)
VELM_BIND_DOM_ID(IXMLDOMAttribute, 0x2933bf85)
VELM_BIND_DOM_ID(IXMLDOMElement, 0x2933bf86)
VELM_BIND_DOM_ID(IXMLDOMText, 0x2933bf87)
VELM_BIND_DOM_ID(IXMLDOMComment, 0x2933bf88)
VELM_BIND_DOM_ID(IXMLDOMProcessingInstruction, 0x2933bf89)
VELM_BIND_DOM_ID(IXMLDOMDocument2, 0x2933bf95)
#undef VELM_BIND_DOM_ID
__CRT_UUID_DECL(IXMLDOMParseError, 0x3efaa426, 0x272f, 0x11d2, 0x83, 0x6f, 0x00, 0x00, 0xf8, 0x7a, 0x77, 0x82)
#else
#include <msxml6.h>
#endif

_COM_SMARTPTR_TYPEDEF(IXMLDOMNode, __uuidof(IXMLDOMNode));
_COM_SMARTPTR_TYPEDEF(IXMLDOMDocument, __uuidof(IXMLDOMDocument));
_COM_SMARTPTR_TYPEDEF(IXMLDOMNodeList, __uuidof(IXMLDOMNodeList));
_COM_SMARTPTR_TYPEDEF(IXMLDOMNamedNodeMap, __uuidof(IXMLDOMNamedNodeMap));
_COM_SMARTPTR_TYPEDEF(IXMLDOMAttribute, __uuidof(IXMLDOMAttribute));
_COM_SMARTPTR_TYPEDEF(IXMLDOMElement, __uuidof(IXMLDOMElement));
_COM_SMARTPTR_TYPEDEF(IXMLDOMText, __uuidof(IXMLDOMText));
_COM_SMARTPTR_TYPEDEF(IXMLDOMComment, __uuidof(IXMLDOMComment));
_COM_SMARTPTR_TYPEDEF(IXMLDOMProcessingInstruction, __uuidof(IXMLDOMProcessingInstruction));
_COM_SMARTPTR_TYPEDEF(IXMLDOMDocument2, __uuidof(IXMLDOMDocument2));
_COM_SMARTPTR_TYPEDEF(IXMLDOMParseError, __uuidof(IXMLDOMParseError));

// The class of the MSXML 6 document object, as a constant that needs no import library.
inline constexpr CLSID VelmDomDocument60 = {
    0x88d96a05, 0xf192, 0x11d4, {0xa6, 0x5f, 0x00, 0x40, 0x96, 0x32, 0x51, 0xe5}};
