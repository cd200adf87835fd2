// Building a host menu and a host toolbar from an XML description.
#pragma once

#include "frame/Msxml.h"
#include "frame/Portability.h"

// The description. The root element may have any name.
//
//   <Anything>
//     <Menus Name="&amp;Tools">
//       <Menu Name="Draw" Help="Drawing commands">             a cascade: Help and no Cmd
//         <Entry Name="Line" Cmd="LINE" Help="Draws a line"/>  any element name, to any depth
//       </Menu>
//       <Menu Name="Erase" Cmd="ERASE" Help="Erases objects"/>
//     </Menus>
//     <Toolbars Name="Tools">
//       <Toolbar Name="Line" Cmd="LINE" ToolTip="Line" ImageList="line"/>
//     </Toolbars>
//   </Anything>
//
// The menu's name is that of the first Menus element (XPath "//Menus"), its entries are the Menu
// elements directly below any Menus element ("//Menus/Menu"), in document order; the toolbar likewise
// with Toolbars and Toolbar. ProcessMenuNode and ProcessTBarNode tell what becomes of each entry.

// Builds the menu and the toolbar that `xmlText` describes.
//
// The menu is made even when there is no Menus element or no Name, then with an empty name. The toolbar
// is made only when the folder of `moduleName` is known; it then is, even without a Toolbars element,
// and shown when its buttons are on it.
//
// moduleName: the add-in's module as GetModuleHandleW takes it, whose folder holds the sub-folder Bmps
// with the bitmaps of the buttons; null means the running program. For a module that is not loaded, and
// named without a path, the toolbar is left out in silence.
//
// Failures, shown with AfxMessageBox:
// - "MenuToolbar XML is not loaded": the text is not well-formed, or declares entities of its own; nothing
//   is made.
// - "Unable to Load Menu": the host failed (COleDispatchException) while the menu was made, or there is
//   no host application; its own description follows in a second message. Then the toolbar is made.
// - "Unable to Load Toolbar": the same for the toolbar. Then the call ends as usual.
// What was added before a failure stays in the host.
//
// Throws _com_error when the document object cannot be created or the document model fails, with the
// code of the failing call, and with E_OUTOFMEMORY when a text for the document model cannot be allocated.
// When memory runs out for one of the library's own texts, CMemoryException* is thrown; for the file name
// of the module, std::bad_alloc. Other exceptions of the companion pass through. A document object without
// its usual interfaces ends the call in silence.
//
// Calls CoInitialize on the calling thread and never uninitialises. References to host objects are
// balanced: whatever the companion hands out is released exactly once. `xmlText` is taken up to its first
// zero. Keeps nothing between calls. Rests on MSXML 6 and on the companion's operations.
VELM_API void Append_MenuToolBar(CString xmlText, wchar_t* moduleName);

// The same with the text of a resource of the loaded module `moduleName`: the resource whose integer id
// is the low 16 bits of `resourceId` and whose type is `resourceType`. Its text ends at its first zero
// byte, or where the resource ends, is read in the process's ANSI code page and trimmed. With null, or
// a module that is not loaded, the running program's own resources are searched.
//
// When no text is left, and when there is no such resource, "XML File String is empty" is shown with
// AfxMessageBox and nothing is made. All else as above.
VELM_API void Append_MenuToolBar(unsigned __int64 resourceId, CString resourceType, wchar_t* moduleName);

// The value of the node that the XPath expression `xpath` selects from `node`, as text: for an attribute
// "@Name" and the like. The empty string when `node` is null, when nothing is selected, or when the
// value is null, which that of an element always is. Throws _com_error when the document model fails, as
// for an expression that is not valid, when the value cannot be had as text, and with E_OUTOFMEMORY when
// the expression cannot be copied; CMemoryException* when the result cannot be allocated. Rests on
// IXMLDOMNode::selectSingleNode and IXMLDOMNode::get_nodeValue.
VELM_API CString GetAttribVal(IXMLDOMNodePtr node, wchar_t* xpath);
