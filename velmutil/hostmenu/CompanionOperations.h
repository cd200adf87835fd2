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
// added before a failure stays. Memory that runs out for a text of the host is such a failure, with
// E_OUTOFMEMORY; for an operation's own texts and lists it leaves as std::bad_alloc or CMemoryException*. In
// clean-ups it counts as a refusal of the host.
#pragma once

#include "hostmenu/HostWrappers.h"

// Creates the host pop-up menu called `name` in the base group and shows it at the right end of the menu
// bar. Null is an empty name, and that is a name like any other. `application` is the application's dispatch
// interface; no reference to it is kept.
//
// A menu of that name which is there already, letter case aside and the mnemonic sign `&` included, is taken
// for that of an earlier run: it is emptied and used again, keeps its place on the bar, and is put back there
// if it was taken off. The host does not tell who made a menu, so a menu of its own that bears the name, be
// it the empty one, is emptied just so: give a name that no other menu bears.
//
// A shortcut menu is never touched nor made: when a menu of that name is one, or the name is "POP0" in any
// letter case, the operation fails with E_INVALIDARG and has changed nothing.
//
// Returns the menu's dispatch interface.
CORVAN_API IDispatch* Create_ACADMenu(IDispatch* application, const wchar_t* name);

// Creates the host toolbar called `name` in the base group and makes it visible. Null is an empty name, and
// that is a name like any other.
//
// A toolbar of that name which is there already, letter case aside, is emptied and used again, and keeps the
// place that the user gave it. As with menus, give a name that no other toolbar bears.
//
// "SubToolbar" asks for the toolbar of a fly-out, which is always a new one, visible until
// Append_ToolBarItem gives it a button. Fly-out toolbars have names of their own in the host: "SubToolbar",
// "SubToolbar_2", "SubToolbar_3" and so on, the first that is free. The user meets them in the host's list of
// toolbars only. All these names are reserved.
//
// Each call also deletes toolbars of these names in the base group that no button in any menu group opens:
// - those that the emptied toolbar's buttons opened, and those inside them, hidden or not;
// - of the others the hidden ones, which a run that failed left behind. Visible ones stay.
// While the host does not tell what some fly-out button opens, only the first kind is deleted, as far as no
// other button is known to open it; what failed runs leave behind then stays until the host tells again. No
// failure of this clean-up, nor of a toolbar that is not asked for, makes the operation fail.
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
// - If the host refuses the item, and label or macro are empty, it is asked once more, with a blank for an
//   empty label and for an empty macro the control character 26, which ends a macro without an Enter.
// - The help text is set only when `help` is not null.
//
// Returns whether an entry was added: false for a separator that was left out, and for an item that the host
// has no room for in the menu.
CORVAN_API bool Append_MenuItem(IAcadPopupMenu menu, const wchar_t* label, const wchar_t* macro,
                                const wchar_t* help, bool, bool);

// Adds a cascading sub-menu called `label` (may be null, then empty; a blank where the host refuses that) at
// the end of `menu` and returns its dispatch interface. When the host has no room for it in the menu, that is
// a failure.
CORVAN_API IDispatch* Append_SubMenu(IAcadPopupMenu menu, const wchar_t* label);

// Adds a button at the end of `toolbar`. `macro` (caret notation as above) and `tooltip` may be null;
// `smallImage` and `largeImage` are full names of bitmap files, which need not exist. With `isFlyout` the
// button opens the toolbar `flyout`, which Create_ACADToolBar returned for a fly-out; without, `flyout` is
// an empty wrapper.
//
// - The button's name and help are the tooltip. Without one the name is what can be shown of the macro, else
//   "Button", since the host wants a name; the help is empty.
// - Without a macro a button sends nothing; where the host refuses that, its macro is the control character
//   26, as above. A fly-out button never sends its own; the host wants one, so it is given the name of
//   `flyout` where there is none.
// - A hidden toolbar is shown while the button is added and is hidden again afterwards.
// - `flyout` is hidden as soon as it is attached. If it cannot be attached, the button is removed again and
//   `flyout` is hidden, or deleted where the host does not hide it, before the failure leaves.
// - A refusal of the bitmaps is a failure only when both files exist; the button stays either way.
//
// Returns true.
CORVAN_API bool Append_ToolBarItem(IAcadToolbar toolbar, const wchar_t* macro, const wchar_t* tooltip,
                                   const wchar_t* smallImage, const wchar_t* largeImage, bool isFlyout,
                                   IAcadToolbar flyout);
