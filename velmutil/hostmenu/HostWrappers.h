// Wrappers of the host's automation objects.
//
// Ten classes over MFC's COleDispatchDriver, one for each interface of the host that menus and
// toolbars need. They add no data and no properties or methods of the interface; they say in the
// type system which object a dispatch pointer belongs to, and own one reference to it.
#pragma once

#include <afxwin.h>
#include <afxdisp.h>

#include "frame/Portability.h"

// The five members that all ten share.
//
// Class()                 holds no interface.
// Class(IDispatch* p)     takes p over without adding a reference; the wrapper releases it. p may be
//                         null, and is then held and released as null.
// Class(const Class&)     shares the other's interface and adds a reference.
// operator=               releases the interface held (if auto-release is on), then shares the
//                         other's with an added reference. Assigning a wrapper to itself changes
//                         nothing.
// ~Class()                COleDispatchDriver::ReleaseDispatch: releases the interface if
//                         auto-release is on, and forgets it.
//
// None of them fails or throws. Rests on IUnknown::AddRef and IUnknown::Release.
#define VELM_HOST_WRAPPER_MEMBERS(Class)                                                                     \
public:                                                                                                      \
    VELM_API_INLINE Class() {}                                                                               \
    VELM_API_INLINE Class(IDispatch* p) : COleDispatchDriver(p, TRUE) {}                                     \
    VELM_API_INLINE Class(const Class& other) : COleDispatchDriver(other) {}                                 \
    VELM_API_INLINE Class& operator=(const Class& other)                                                     \
    {                                                                                                        \
        if (this != &other)                                                                                  \
            COleDispatchDriver::operator=(other);                                                            \
        return *this;                                                                                        \
    }                                                                                                        \
    VELM_API_INLINE ~Class()                                                                                 \
    {                                                                                                        \
        ReleaseDispatch();                                                                                   \
    }

// The host's application object.
class IAcadApplication : public COleDispatchDriver
{
    VELM_HOST_WRAPPER_MEMBERS(IAcadApplication)
};

// The collection of the menu groups that are loaded in the host.
class IAcadMenuGroups : public COleDispatchDriver
{
    VELM_HOST_WRAPPER_MEMBERS(IAcadMenuGroups)
};

// One menu group: a set of menus and toolbars that are loaded together.
class IAcadMenuGroup : public COleDispatchDriver
{
    VELM_HOST_WRAPPER_MEMBERS(IAcadMenuGroup)
};

// The pop-up menus of one menu group, on the menu bar or not.
class IAcadPopupMenus : public COleDispatchDriver
{
    VELM_HOST_WRAPPER_MEMBERS(IAcadPopupMenus)
};

// One pop-up menu or cascading sub-menu.
class IAcadPopupMenu : public COleDispatchDriver
{
    VELM_HOST_WRAPPER_MEMBERS(IAcadPopupMenu)
};

// One entry of a pop-up menu.
class IAcadPopupMenuItem : public COleDispatchDriver
{
    VELM_HOST_WRAPPER_MEMBERS(IAcadPopupMenuItem)
};

// The pop-up menus that stand on the host's menu bar now.
class IAcadMenuBar : public COleDispatchDriver
{
    VELM_HOST_WRAPPER_MEMBERS(IAcadMenuBar)
};

// The toolbars of one menu group.
class IAcadToolbars : public COleDispatchDriver
{
    VELM_HOST_WRAPPER_MEMBERS(IAcadToolbars)
};

// One toolbar.
class IAcadToolbar : public COleDispatchDriver
{
    VELM_HOST_WRAPPER_MEMBERS(IAcadToolbar)

    // Shows (visible not 0) or hides (0) the toolbar through its "Visible" property. Supplied by the
    // companion library. Throws COleDispatchException* when the host refuses, or when the wrapper
    // holds no interface.
    CORVAN_API void SetVisible(int visible);
};

// One button or separator of a toolbar.
class IAcadToolbarItem : public COleDispatchDriver
{
    VELM_HOST_WRAPPER_MEMBERS(IAcadToolbarItem)
};
