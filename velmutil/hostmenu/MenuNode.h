// One entry of a menu description.
#pragma once

#include "frame/Msxml.h"
#include "frame/Portability.h"
#include "hostmenu/HostWrappers.h"

// Adds the entry `node` to the host menu `menu`, with all that is nested below it.
//
// An entry is any node with attributes, whatever its name. It becomes
// - an item when it has the attribute Cmd, or has no attribute Help. The item gets the attribute Name as
//   its label, Cmd with a blank behind it as its macro, and Help. An absent attribute is handed on as a
//   null pointer, an empty one as an empty text (Cmd as a single blank). Its child nodes are ignored;
// - a cascade when it has Help and no Cmd, named by Name (null if absent). Its child nodes are
//   processed as entries of the new sub-menu, in document order, if the companion gave one.
// A node without attributes, or null, adds nothing.
//
// Both arguments are copies of the function's own, released when it is done. The reference to a
// sub-menu is released once, after its last child.
//
// Throws _com_error when the document model fails (a node that refuses to give its attributes counts as
// one without), CMemoryException* when a text cannot be allocated, and lets pass what the companion throws:
// COleDispatchException* when the host fails.
// Entries added before that stay in the host. Rests on IXMLDOMNode and on the companion's
// Append_MenuItem and Append_SubMenu.
VELM_API void ProcessMenuNode(IXMLDOMNodePtr node, IAcadPopupMenu menu);
