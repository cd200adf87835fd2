// The operations of the companion library CorvanUtil22.dll, with which menus, items, toolbars and
// buttons are made in the host. Declared here because the builder of this folder calls them;
// the companion includes this header and implements them.
//
// Common rules. Every dispatch reference that an operation returns is counted for the caller, who
// releases it exactly once. Wrappers are taken by value: the callee owns and releases its copies.
// Text pointers may be null where a parameter says so, and are not kept after the call. Nothing but the
// host's documented automation members is used, found by name at each call.
//
// A failure of the host's automation leaves an operation as COleDispatchException*; the catcher calls
// Delete on it. It carries the host's own source, description, code and help where the host gave any. For a
// bare result code m_wCode is 0, m_scError the code, m_strDescription the system's message for it, and
// m_strSource "CorvanUtil22." and the member. A null interface is such a failure, with E_POINTER. What was
// added before a failure stays.
#pragma once

#include "hostmenu/HostWrappers.h"

// Creates the host pop-up menu called `name` (may be empty or null) in the host's base group, which is the
// first of its menu groups, and shows it at the right end of the menu bar. `application` is the
// application's dispatch interface; no reference to it is kept.
//
// A menu of that name which is there already, letter case aside and the mnemonic sign `&` included, is taken
// for that of an earlier run: it is emptied and used again, keeps its place on the bar, and is put back there
// if it was taken off. So no name may be given that a menu of the host itself bears.
//
// Returns the menu's dispatch interface.
CORVAN_API IDispatch* Create_ACADMenu(IDispatch* application, const wchar_t* name);

// Creates the host toolbar called `name` (may be empty or null) in the base group and makes it visible.
//
// A toolbar of that name which is there already, letter case aside, is emptied and used again, and keeps the
// place that the user gave it; the fly-out toolbars that its buttons opened, and those inside them, are
// deleted unless another button opens them.
//
// "SubToolbar" asks for the toolbar of a fly-out, which is always a new one, visible until
// Append_ToolBarItem gives it a button. Fly-out toolbars have names of their own in the host: "SubToolbar",
// "SubToolbar_2", "SubToolbar_3" and so on, the first that is free. The user meets them in the host's list of
// toolbars only. All these names are reserved. Hidden toolbars of these names that no button opens, left
// behind by a run that failed, are deleted at each call; those that any button in any menu group opens, or
// that are visible, never.
//
// Returns the toolbar's dispatch interface.
CORVAN_API IDispatch* Create_ACADToolBar(IDispatch* application, const wchar_t* name);

// Adds an item at the end of `menu`. `label`, `macro` (what the item sends to the host's command line) and
// `help` (the text of the status bar) may each be null. The two flags are always true and false, and have no
// effect.
//
// - Caret notation in `macro` reaches the host as control characters: a caret and one of '@' to '_', or a
//   letter of either case (^C: 3). Any other caret stays. Label and help are taken as they are.
// - With neither macro nor help, and with a label that is null or empty, it is a separator. It is left out
//   where the menu is empty or ends with one. A separator that nothing follows stays at the end.
// - With a label only, it is an item that sends nothing. A null label with a macro or help is an empty one.
// - The help text is set only when `help` is not null.
//
// Returns whether an entry was added: false for a separator that was left out, and for an item that the host
// has no room for in the menu.
CORVAN_API bool Append_MenuItem(IAcadPopupMenu menu, const wchar_t* label, const wchar_t* macro,
                                const wchar_t* help, bool, bool);

// Adds a cascading sub-menu called `label` (may be null, then empty) at the end of `menu` and returns its
// dispatch interface. When the host has no room for it in the menu, that is a failure.
CORVAN_API IDispatch* Append_SubMenu(IAcadPopupMenu menu, const wchar_t* label);

// Adds a button at the end of `toolbar`. `macro` (caret notation as above) and `tooltip` may be null;
// `smallImage` and `largeImage` are full names of bitmap files, which need not exist. With `isFlyout` the
// button opens the toolbar `flyout`, which Create_ACADToolBar returned for a fly-out; without, `flyout` is
// an empty wrapper.
//
// - The button's name and help are the tooltip. Without one the name is what can be shown of the macro, else
//   "Button", since the host wants a name; the help is empty.
// - Without a macro a button sends nothing. A fly-out button never sends its own; the host wants one, so it
//   is given the name of `flyout` where there is none.
// - A hidden toolbar is shown while the button is added and is hidden again afterwards.
// - `flyout` is hidden as soon as it is attached. If it cannot be, the button is removed again and `flyout`
//   is hidden, before the failure leaves.
// - A refusal of the bitmaps is a failure only when both files exist; the button stays either way.
//
// Returns true.
CORVAN_API bool Append_ToolBarItem(IAcadToolbar toolbar, const wchar_t* macro, const wchar_t* tooltip,
                                   const wchar_t* smallImage, const wchar_t* largeImage, bool isFlyout,
                                   IAcadToolbar flyout);
