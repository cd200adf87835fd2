#include <algorithm>

#include "model/HostModel.h"
#include "model/ModelLookup.h"

namespace velmhost
{

namespace
{

const wchar_t kShortcutMenuName[] = L"POP0";

const Menu& RootOf(const Menu& menu)
{
    const Menu* root = &menu;
    while (root->owner)
        root = root->owner->parent;
    return *root;
}

unsigned CountItems(const Menu& menu)
{
    unsigned count = 0;
    for (const auto& item : menu.items)
        count += 1 + (item->subMenu ? CountItems(*item->subMenu) : 0);
    return count;
}

bool HasTag(const Menu& menu, const std::wstring& tag)
{
    return std::any_of(menu.items.begin(), menu.items.end(), [&tag](const auto& item) {
        return SameName(item->tag, tag) || (item->subMenu && HasTag(*item->subMenu, tag));
    });
}

} // namespace

long HostModel::PositionOf(const MenuItem& item)
{
    const auto& items = item.parent->items;
    auto found =
        std::find_if(items.begin(), items.end(), [&item](const auto& each) { return each.get() == &item; });
    return static_cast<long>(found - items.begin());
}

unsigned HostModel::CountHierarchy(const Menu& menu)
{
    return CountItems(RootOf(menu));
}

const Menu& HostModel::AddMenu(ElementId groupId, const std::wstring& name)
{
    MenuGroup& group = Require<MenuGroup>(groupId);
    const bool shortcut = SameName(name, kShortcutMenuName);
    const size_t existing = PositionOfName(group.menus, name);
    if (existing < group.menus.size()) {
        if (m_policies.duplicateAdd == DuplicateAdd::ReturnExisting)
            return *group.menus[existing];
        if (m_policies.duplicateAdd == DuplicateAdd::Fail || shortcut)
            throw HostError(Refusal::Duplicate, L"The menu group has a menu of this name.");
    }
    auto menu = std::make_unique<Menu>();
    menu->id = NewId(menu.get());
    menu->group = &group;
    menu->name = name;
    menu->tag = L"ID_" + std::to_wstring(menu->id);
    menu->shortcut = shortcut;
    const ElementId added = menu->id;
    group.menus.push_back(std::move(menu));
    Notify(ModelChange::What::Menu, ModelChange::Kind::Added, added, groupId);
    return Require<Menu>(added);
}

void HostModel::SetMenuName(ElementId id, const std::wstring& name)
{
    Menu& menu = Require<Menu>(id);
    if (menu.owner)
        return SetMenuItemLabel(menu.owner->id, name);
    if (menu.name == name)
        return;
    if (menu.shortcut || SameName(name, kShortcutMenuName))
        throw HostError(Refusal::NotAllowed, L"The shortcut menu keeps its name.");
    if (m_policies.duplicateAdd != DuplicateAdd::AddSecond) {
        for (const auto& other : menu.group->menus) {
            if (other.get() != &menu && SameName(other->name, name))
                throw HostError(Refusal::Duplicate, L"The menu group has a menu of this name.");
        }
    }
    menu.name = name;
    Notify(ModelChange::What::Menu, ModelChange::Kind::Changed, id, menu.group->id);
}

void HostModel::InsertInMenuBar(ElementId id, const Index& before)
{
    const Menu& menu = Require<Menu>(id);
    if (menu.owner || menu.shortcut)
        throw HostError(Refusal::NotAllowed, L"Only pull-down menus stand on the menu bar.");
    if (IsOnMenuBar(id))
        throw HostError(Refusal::NotAllowed, L"The menu is on the menu bar already.");
    const size_t position = PositionToInsert(m_menuBar, before);
    m_menuBar.insert(m_menuBar.begin() + static_cast<std::ptrdiff_t>(position), &menu);
    Notify(ModelChange::What::MenuBar, ModelChange::Kind::Changed, 0, 0);
}

void HostModel::RemoveFromMenuBar(ElementId id)
{
    const Menu& menu = Require<Menu>(id);
    if (std::erase(m_menuBar, &menu) == 0)
        throw HostError(Refusal::NotAllowed, L"The menu is not on the menu bar.");
    Notify(ModelChange::What::MenuBar, ModelChange::Kind::Changed, 0, 0);
}

const MenuItem* HostModel::InsertMenuItem(Menu& menu, const Index& before, std::unique_ptr<MenuItem> item)
{
    const size_t position = PositionToInsert(menu.items, before);
    if (item->type == MenuItemType::Separator && m_policies.separators == SeparatorRule::Strict)
        RequireSeparatorAllowed(menu.items, position, MenuItemType::Separator);
    const Menu& root = RootOf(menu);
    if (CountItems(root) >= (root.shortcut ? m_policies.shortcutItemLimit : m_policies.menuItemLimit))
        return nullptr;

    item->id = NewId(item.get());
    item->parent = &menu;
    item->tag = L"ID_" + std::to_wstring(item->id);
    while (HasTag(root, item->tag)) // a client may have chosen just this one
        item->tag += L'_';
    if (Menu* subMenu = item->subMenu.get()) {
        subMenu->id = NewId(subMenu);
        subMenu->group = menu.group;
        subMenu->owner = item.get();
        subMenu->name = item->label;
        subMenu->tag = item->tag;
    }
    const auto place = menu.items.begin() + static_cast<std::ptrdiff_t>(position);
    const ElementId added = item->id;
    menu.items.insert(place, std::move(item));
    Notify(ModelChange::What::MenuItem, ModelChange::Kind::Added, added, menu.id);
    return &Require<MenuItem>(added);
}

const MenuItem* HostModel::AddMenuItem(ElementId menu, const Index& before, const std::wstring& label,
                                       const std::wstring& macro)
{
    Menu& parent = Require<Menu>(menu);
    RequireLabel(label);
    RequireMacro(macro);
    auto item = std::make_unique<MenuItem>();
    item->label = label;
    item->macro = macro;
    return InsertMenuItem(parent, before, std::move(item));
}

const MenuItem* HostModel::AddSubMenu(ElementId menu, const Index& before, const std::wstring& label)
{
    Menu& parent = Require<Menu>(menu);
    RequireLabel(label);
    auto item = std::make_unique<MenuItem>();
    item->type = MenuItemType::SubMenu;
    item->label = label;
    item->subMenu = std::make_unique<Menu>();
    return InsertMenuItem(parent, before, std::move(item));
}

const MenuItem* HostModel::AddMenuSeparator(ElementId menu, const Index& before)
{
    auto item = std::make_unique<MenuItem>();
    item->type = MenuItemType::Separator;
    return InsertMenuItem(Require<Menu>(menu), before, std::move(item));
}

void HostModel::RemoveMenuItem(ElementId id)
{
    const MenuItem& item = Require<MenuItem>(id);
    Menu& menu = *item.parent;
    Forget(item);
    std::erase_if(menu.items, [id](const auto& each) { return each->id == id; });
    Notify(ModelChange::What::MenuItem, ModelChange::Kind::Removed, id, menu.id);
}

void HostModel::NotifyChanged(const MenuItem& item)
{
    Notify(ModelChange::What::MenuItem, ModelChange::Kind::Changed, item.id, item.parent->id);
}

MenuItem& HostModel::RequireLabelled(ElementId id) const
{
    MenuItem& item = Require<MenuItem>(id);
    if (item.type == MenuItemType::Separator)
        throw HostError(Refusal::NotAllowed, L"A separator has neither a label nor a help text.");
    return item;
}

void HostModel::RequireLabel(const std::wstring& label) const
{
    if (m_policies.labelsNeedText && label.empty())
        throw HostError(Refusal::Invalid, L"The label or name is empty.");
}

void HostModel::RequireMacro(const std::wstring& macro) const
{
    if (m_policies.macrosNeedText && macro.empty())
        throw HostError(Refusal::Invalid, L"The macro is empty.");
}

void HostModel::SetMenuItemLabel(ElementId id, const std::wstring& label)
{
    MenuItem& item = RequireLabelled(id);
    RequireLabel(label);
    if (item.label == label)
        return;
    item.label = label;
    if (item.subMenu)
        item.subMenu->name = label;
    NotifyChanged(item);
}

void HostModel::SetMenuItemMacro(ElementId id, const std::wstring& macro)
{
    MenuItem& item = Require<MenuItem>(id);
    if (item.type != MenuItemType::Item)
        throw HostError(Refusal::NotAllowed, L"Separators and sub-menus have no macro.");
    RequireMacro(macro);
    if (item.macro == macro)
        return;
    item.macro = macro;
    NotifyChanged(item);
}

void HostModel::SetMenuItemHelp(ElementId id, const std::wstring& help)
{
    MenuItem& item = RequireLabelled(id);
    if (item.help == help)
        return;
    item.help = help;
    NotifyChanged(item);
}

void HostModel::SetMenuItemTag(ElementId id, const std::wstring& tag)
{
    MenuItem& item = Require<MenuItem>(id);
    if (item.tag == tag)
        return;
    RequireTag(tag);
    if (!SameName(item.tag, tag) && HasTag(RootOf(*item.parent), tag))
        RefuseTakenTag();
    item.tag = tag;
    if (item.subMenu)
        item.subMenu->tag = tag;
    NotifyChanged(item);
}

void HostModel::SetMenuItemEnabled(ElementId id, bool enabled)
{
    MenuItem& item = Require<MenuItem>(id);
    if (item.enabled == enabled)
        return;
    item.enabled = enabled;
    NotifyChanged(item);
}

void HostModel::SetMenuItemChecked(ElementId id, bool checked)
{
    MenuItem& item = Require<MenuItem>(id);
    if (item.checked == checked)
        return;
    item.checked = checked;
    NotifyChanged(item);
}

void HostModel::SetMenuItemEndSubMenuLevel(ElementId id, long level)
{
    MenuItem& item = Require<MenuItem>(id);
    if (level < 0)
        throw HostError(Refusal::Invalid, L"The level is negative.");
    if (item.endSubMenuLevel == level)
        return;
    item.endSubMenuLevel = level;
    NotifyChanged(item);
}

} // namespace velmhost
