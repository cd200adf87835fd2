// A companion library whose operations do nothing but count, so that a benchmark times the library alone.
// It stands in for the real one by lying, under its name, beside the program.

#include "SilentCompanion.h"

#include "hostmenu/CompanionOperations.h"

namespace
{

size_t g_entries = 0;

// The caller releases what an operation returns: it gets one more reference to an object it has.
IDispatch* Another(IDispatch* object)
{
    object->AddRef();
    return object;
}

} // namespace

IDispatch* Create_ACADMenu(IDispatch* application, const wchar_t*)
{
    return Another(application);
}

IDispatch* Create_ACADToolBar(IDispatch* application, const wchar_t*)
{
    return Another(application);
}

bool Append_MenuItem(IAcadPopupMenu, const wchar_t*, const wchar_t*, const wchar_t*, bool, bool)
{
    ++g_entries;
    return true;
}

IDispatch* Append_SubMenu(IAcadPopupMenu menu, const wchar_t*)
{
    ++g_entries;
    return Another(menu.m_lpDispatch);
}

bool Append_ToolBarItem(IAcadToolbar, const wchar_t*, const wchar_t*, const wchar_t*, const wchar_t*, bool,
                        IAcadToolbar)
{
    ++g_entries;
    return true;
}

void IAcadToolbar::SetVisible(int) {}

size_t TakeEntryCount()
{
    const size_t count = g_entries;
    g_entries = 0;
    return count;
}
