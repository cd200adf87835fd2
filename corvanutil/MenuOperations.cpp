// Menus, items and cascading sub-menus.
#include "hostmenu/CompanionOperations.h"

#include "HostEnumerations.h"
#include "HostFailure.h"
#include "HostGroup.h"
#include "HostObject.h"
#include "MacroText.h"
#include "StandIns.h"
#include "TextOrEmpty.h"

namespace
{

// The name by which the host asks for the shortcut menu of a group.
constexpr wchar_t ShortcutMenuName[] = L"POP0";

// The host allows a separator neither at the top nor beside another.
bool CanTakeSeparator(const CHostObject& menu, long count)
{
    return count > 0 && menu.Item(count - 1).Long(L"Type") != static_cast<long>(HostMenuItemType::separator);
}

// Adds an item; null when the host has no room for it.
CHostObject AddItem(const CHostObject& menu, long index, const std::wstring& label, const std::wstring& macro)
{
    const auto add = [&](const std::wstring& itemLabel, const std::wstring& itemMacro) {
        return menu.CallForObjectOrNull(L"AddMenuItem", index, itemLabel, itemMacro);
    };
    if (!label.empty() && !macro.empty())
        return add(label, macro);
    return AddElse([&] { return add(label, macro); },
                   [&] { return add(OrStandIn(label, LabelStandIn), OrStandIn(macro, MacroStandIn)); });
}

} // namespace

IDispatch* Create_ACADMenu(IDispatch* application, const wchar_t* name)
{
    const CHostObject host = CHostObject::Share(application);
    const std::wstring menuName = TextOrEmpty(name);
    const CHostObject menus = BaseGroup(host).Object(L"Menus");

    // A menu cannot be deleted, so one of an earlier run is emptied and used again.
    CHostObject menu = FindByName(menus, menuName);
    if (SameInAnyCase(menuName, ShortcutMenuName) || (!menu.IsNull() && menu.Flag(L"ShortcutMenu"))) {
        ThrowRefusal(L"Create_ACADMenu", L"\"" + menuName +
                                             L"\" is the name of a shortcut menu, which is no menu of the "
                                             L"menu bar.");
    }
    if (menu.IsNull())
        menu = menus.CallForObject(L"Add", menuName);
    else
        DeleteItems(menu);

    if (!menu.Flag(L"OnMenuBar"))
        menu.Call(L"InsertInMenuBar", host.Object(L"MenuBar").Count());
    return menu.Detach();
}

bool Append_MenuItem(IAcadPopupMenu menu, const wchar_t* label, const wchar_t* macro, const wchar_t* help,
                     bool, bool)
{
    const CHostObject target = CHostObject::Share(menu.m_lpDispatch);
    const std::wstring text = TextOrEmpty(label);
    const long end = target.Count();
    if (macro == nullptr && help == nullptr && text.empty()) {
        if (!CanTakeSeparator(target, end))
            return false;
        return !target.CallForObjectOrNull(L"AddSeparator", end).IsNull();
    }
    // A menu that holds as many items as the host allows takes no more, which is no error.
    const CHostObject item = AddItem(target, end, text, TranslateCarets(TextOrEmpty(macro)));
    if (item.IsNull())
        return false;
    if (help != nullptr)
        item.Put(L"HelpString", help);
    return true;
}

IDispatch* Append_SubMenu(IAcadPopupMenu menu, const wchar_t* label)
{
    const CHostObject target = CHostObject::Share(menu.m_lpDispatch);
    const std::wstring text = TextOrEmpty(label);
    const long end = target.Count();
    const auto add = [&](const std::wstring& itemLabel) {
        return target.CallForObject(L"AddSubMenu", end, itemLabel);
    };
    if (!text.empty())
        return add(text).Detach();
    return AddElse([&] { return add(text); }, [&] { return add(LabelStandIn); }).Detach();
}
