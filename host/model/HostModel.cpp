#include "model/HostModel.h"

#include <algorithm>

#include "model/ModelLookup.h"

namespace velmhost
{

HostModel::HostModel()
{
    AddGroup(L"BASE", MenuGroupType::Base, std::wstring());
}

HostModel::~HostModel() = default;

bool HostModel::IsOnMenuBar(ElementId menu) const
{
    return std::any_of(m_menuBar.begin(), m_menuBar.end(),
                       [menu](const Menu* shown) { return shown->id == menu; });
}

const MenuGroup& HostModel::GroupAt(const Index& index) const
{
    return *m_groups[PositionFound(m_groups, index)];
}

const Menu& HostModel::MenuAt(ElementId group, const Index& index) const
{
    const auto& menus = Require<MenuGroup>(group).menus;
    return *menus[PositionFound(menus, index)];
}

const Menu& HostModel::BarMenuAt(const Index& index) const
{
    return *m_menuBar[PositionFound(m_menuBar, index)];
}

const MenuItem& HostModel::MenuItemAt(ElementId menu, const Index& index) const
{
    const auto& items = Require<Menu>(menu).items;
    return *items[PositionFound(items, index)];
}

const Toolbar& HostModel::ToolbarAt(ElementId group, const Index& index) const
{
    const auto& toolbars = Require<MenuGroup>(group).toolbars;
    return *toolbars[PositionFound(toolbars, index)];
}

const ToolbarItem& HostModel::ToolbarItemAt(ElementId toolbar, const Index& index) const
{
    const auto& items = Require<Toolbar>(toolbar).items;
    return *items[PositionFound(items, index)];
}

void HostModel::AddObserver(HostModelObserver& observer)
{
    m_observers.push_back(&observer);
}

void HostModel::RemoveObserver(HostModelObserver& observer)
{
    std::erase(m_observers, &observer);
}

void HostModel::Notify(ModelChange::What what, ModelChange::Kind kind, ElementId element, ElementId parent)
{
    // A copy, since observers may come and go meanwhile; those that went are not called any more.
    const auto observers = m_observers;
    for (HostModelObserver* observer : observers) {
        if (std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end())
            observer->OnModelChanged({what, kind, element, parent});
    }
}

const MenuGroup& HostModel::AddGroup(const std::wstring& name, MenuGroupType type,
                                     const std::wstring& fileName)
{
    auto base = std::find_if(m_groups.begin(), m_groups.end(),
                             [](const auto& group) { return group->type == MenuGroupType::Base; });
    for (const auto& group : m_groups) {
        const bool replaced = type == MenuGroupType::Base && base != m_groups.end() && group == *base;
        if (!replaced && SameName(group->name, name))
            throw HostError(Refusal::Duplicate, L"A menu group of this name is loaded already.");
    }
    // Nobody is told before the new group stands: observers must not meet the exchange half done.
    ElementId replaced = 0;
    bool barChanged = false;
    if (type == MenuGroupType::Base && base != m_groups.end()) {
        replaced = (*base)->id;
        barChanged = TakeOutGroup(replaced);
    }

    auto group = std::make_unique<MenuGroup>();
    group->id = NewId(group.get());
    group->name = name;
    group->type = type;
    group->fileName = fileName;
    auto place = type == MenuGroupType::Base ? m_groups.begin() : m_groups.end();
    const ElementId added = group->id;
    m_groups.insert(place, std::move(group));
    if (replaced != 0)
        NotifyGroupRemoved(replaced, barChanged);
    Notify(ModelChange::What::Group, ModelChange::Kind::Added, added, 0);
    return Require<MenuGroup>(added);
}

void HostModel::RemoveGroup(ElementId id)
{
    NotifyGroupRemoved(id, TakeOutGroup(id));
}

bool HostModel::TakeOutGroup(ElementId id)
{
    MenuGroup& group = Require<MenuGroup>(id);
    const size_t shown = m_menuBar.size();
    std::erase_if(m_menuBar, [&group](const Menu* menu) { return menu->group == &group; });
    const bool barChanged = m_menuBar.size() != shown;
    for (const auto& menu : group.menus)
        Forget(*menu);
    for (const auto& toolbar : group.toolbars)
        Forget(*toolbar);
    m_records.erase(id);
    std::erase_if(m_groups, [id](const auto& each) { return each->id == id; });
    return barChanged;
}

void HostModel::NotifyGroupRemoved(ElementId id, bool barChanged)
{
    Notify(ModelChange::What::Group, ModelChange::Kind::Removed, id, 0);
    if (barChanged)
        Notify(ModelChange::What::MenuBar, ModelChange::Kind::Changed, 0, 0);
}

void HostModel::Forget(const Menu& menu)
{
    for (const auto& item : menu.items)
        Forget(*item);
    m_records.erase(menu.id);
}

void HostModel::Forget(const MenuItem& item)
{
    if (item.subMenu)
        Forget(*item.subMenu);
    m_records.erase(item.id);
}

void HostModel::Forget(const Toolbar& toolbar)
{
    for (const auto& group : m_groups) {
        for (const auto& carrier : group->toolbars) {
            for (const auto& item : carrier->items) {
                if (item->flyout == &toolbar)
                    item->flyout = nullptr;
            }
        }
    }
    for (const auto& item : toolbar.items)
        m_records.erase(item->id);
    m_records.erase(toolbar.id);
}

} // namespace velmhost
