// One entry of a toolbar description.
#pragma once

#include "frame/Msxml.h"
#include "frame/Portability.h"
#include "hostmenu/HostWrappers.h"

// Adds the entry `node` to the host toolbar `toolbar`, with all that is nested below it. `folder` is the
// folder of the add-in's module with its trailing backslash; the bitmaps are taken from its sub-folder
// Bmps.
//
// An entry is any node with attributes, whatever its name. It adds nothing, and its child nodes are
// ignored, when
// - its attribute Name is "Separator" in any case;
// - its attribute ImageList is absent or empty.
// Otherwise it becomes a button with the attribute Cmd, a blank behind it, as its macro, ToolTip as its
// tool tip (each null if absent), and the bitmap files <folder>Bmps\<ImageList>16.bmp and
// <folder>Bmps\<ImageList>24.bmp. White space around ImageList is left out; names may have any length,
// and it is not looked whether the files exist.
//
// An entry with child nodes of any kind becomes a fly-out: a further host toolbar "SubToolbar" is made,
// the button opens it, the same button without a fly-out is the first one on it, the child nodes are
// processed as its further entries, and it is hidden.
//
// A node without attributes, or null, adds nothing. The arguments are copies of the function's own,
// released when it is done; the reference to a fly-out toolbar is released once.
//
// Throws _com_error when the document model fails (a node that refuses to give its attributes counts as
// one without), CMemoryException* when a text cannot be allocated, COleDispatchException* when a fly-out
// needs the host's application and there is none, and lets pass what the companion throws:
// COleDispatchException* when the host fails. Buttons added before that stay in the host. Rests on
// IXMLDOMNode and on the companion's Create_ACADToolBar, Append_ToolBarItem and IAcadToolbar::SetVisible.
VELM_API void ProcessTBarNode(IXMLDOMNodePtr node, IAcadToolbar toolbar, CString folder);
