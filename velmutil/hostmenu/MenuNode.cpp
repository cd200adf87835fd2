#include "hostmenu/MenuNode.h"

#include "hostmenu/CompanionOperations.h"
#include "hostmenu/EntryAttributes.h"
#include "hostmenu/NodeWalk.h"

namespace
{

// Adds the entry and returns the sub-menu made for it: an empty wrapper when it is no cascade.
IAcadPopupMenu AddEntry(IXMLDOMNode* node, const IAcadPopupMenu& menu)
{
    const CEntryAttributes attributes(node);
    if (!attributes.Exist())
        return IAcadPopupMenu();
    const std::optional<CString> name = attributes.Value(NameAttribute);
    const std::optional<CString> command = attributes.Command();
    const std::optional<CString> help = attributes.Value(HelpAttribute);
    if (!command && help)
        return IAcadPopupMenu(Append_SubMenu(menu, PointerOrNull(name)));
    Append_MenuItem(menu, PointerOrNull(name), PointerOrNull(command), PointerOrNull(help), true, false);
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
