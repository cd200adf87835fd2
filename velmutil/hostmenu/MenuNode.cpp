#include "hostmenu/MenuNode.h"

#include "hostmenu/CompanionOperations.h"
#include "hostmenu/Entries.h"
#include "hostmenu/NodeWalk.h"

namespace
{

// Adds the entry and returns the sub-menu made for it: an empty wrapper when it is no cascade.
IAcadPopupMenu AddEntry(IXMLDOMNode* node, const IAcadPopupMenu& menu)
{
    const std::optional<MenuEntry> entry = ReadMenuEntry(node);
    if (!entry)
        return IAcadPopupMenu();
    if (entry->Kind() == MenuEntryKind::Cascade)
        return IAcadPopupMenu(Append_SubMenu(menu, PointerOrNull(entry->name)));
    Append_MenuItem(menu, PointerOrNull(entry->name), PointerOrNull(entry->command),
                    PointerOrNull(entry->help), true, false);
    return IAcadPopupMenu();
}

} // namespace

void ProcessMenuNode(IXMLDOMNodePtr node, IAcadPopupMenu menu)
{
    if (!node)
        return;
    const IAcadPopupMenu subMenu = AddEntry(node, menu);

    IXMLDOMNodeListPtr children;
    _com_util::CheckError(node->get_childNodes(&children));
    ForEachNode(children, NodeCount(children), [&](IXMLDOMNodePtr& child) {
        if (subMenu.m_lpDispatch != nullptr)
            ProcessMenuNode(child, subMenu);
    });
}
