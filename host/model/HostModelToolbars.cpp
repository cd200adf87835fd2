#include <algorithm>

#include "model/HostModel.h"
#include "model/ModelLookup.h"

namespace velmhost
{

namespace
{

bool HasTag(const Toolbar& toolbar, const std::wstring& tag)
{
    return std::any_of(toolbar.items.begin(), toolbar.items.end(),
                       [&tag](const auto& item) { return SameName(item->tag, tag); });
}

} // namespace

long HostModel::PositionOf(const ToolbarItem& item)
{
    const auto& items = item.parent->items;
    auto found =
        std::find_if(items.begin(), items.end(), [&item](const auto& each) { return each.get() == &item; });
    return static_cast<long>(found - items.begin());
}

const Toolbar& HostModel::AddToolbar(ElementId groupId, const std::wstring& name)
{
    MenuGroup& group = Require<MenuGroup>(groupId);
    const size_t existing = PositionOfName(group.toolbars, name);
    if (existing < group.toolbars.size()) {
        if (m_policies.duplicateAdd == DuplicateAdd::ReturnExisting)
            return *group.toolbars[existing];
        if (m_policies.duplicateAdd == DuplicateAdd::Fail)
            throw HostError(Refusal::Duplicate, L"The menu group has a toolbar of this name.");
    }
    auto toolbar = std::make_unique<Toolbar>();
    toolbar->id = NewId(toolbar.get());
    toolbar->group = &group;
    toolbar->name = name;
    toolbar->tag = L"ID_" + std::to_wstring(toolbar->id);
    const ElementId added = toolbar->id;
    group.toolbars.push_back(std::move(toolbar));
    Notify(ModelChange::What::Toolbar, ModelChange::Kind::Added, added, groupId);
    return Require<Toolbar>(added);
}

void HostModel::RemoveToolbar(ElementId id)
{
    const Toolbar& toolbar = Require<Toolbar>(id);
    if (m_policies.toolbarRemovalNeedsVisible && !toolbar.visible)
        throw HostError(Refusal::NotAllowed, L"The toolbar is hidden.");
    MenuGroup& group = *toolbar.group;
    Forget(toolbar);
    std::erase_if(group.toolbars, [id](const auto& each) { return each->id == id; });
    Notify(ModelChange::What::Toolbar, ModelChange::Kind::Removed, id, group.id);
}

void HostModel::NotifyChanged(const Toolbar& toolbar)
{
    Notify(ModelChange::What::Toolbar, ModelChange::Kind::Changed, toolbar.id, toolbar.group->id);
}

void HostModel::NotifyChanged(const ToolbarItem& item)
{
    Notify(ModelChange::What::ToolbarItem, ModelChange::Kind::Changed, item.id, item.parent->id);
}

void HostModel::RequireEditable(const Toolbar& toolbar) const
{
    if (m_policies.toolbarEditsNeedVisible && !toolbar.visible)
        throw HostError(Refusal::NotAllowed, L"The toolbar is hidden.");
}

Toolbar& HostModel::RequireEditable(ElementId id) const
{
    Toolbar& toolbar = Require<Toolbar>(id);
    RequireEditable(toolbar);
    return toolbar;
}

void HostModel::SetToolbarName(ElementId id, const std::wstring& name)
{
    Toolbar& toolbar = Require<Toolbar>(id);
    if (toolbar.name == name)
        return;
    if (m_policies.duplicateAdd != DuplicateAdd::AddSecond) {
        for (const auto& other : toolbar.group->toolbars) {
            if (other.get() != &toolbar && SameName(other->name, name))
                throw HostError(Refusal::Duplicate, L"The menu group has a toolbar of this name.");
        }
    }
    toolbar.name = name;
    NotifyChanged(toolbar);
}

void HostModel::SetToolbarHelp(ElementId id, const std::wstring& help)
{
    Toolbar& toolbar = Require<Toolbar>(id);
    if (toolbar.help == help)
        return;
    toolbar.help = help;
    NotifyChanged(toolbar);
}

void HostModel::SetToolbarVisible(ElementId id, bool visible)
{
    Toolbar& toolbar = Require<Toolbar>(id);
    if (toolbar.visible == visible)
        return;
    toolbar.visible = visible;
    NotifyChanged(toolbar);
}

void HostModel::DockToolbar(ElementId id, DockStatus side)
{
    Toolbar& toolbar = RequireEditable(id);
    if (side < DockStatus::Top || side > DockStatus::Right)
        throw HostError(Refusal::Invalid, L"A toolbar docks at one of four sides, 0 to 3.");
    if (toolbar.dock == side)
        return;
    toolbar.dock = side;
    NotifyChanged(toolbar);
}

void HostModel::FloatToolbar(ElementId id, long top, long left, long rows)
{
    Toolbar& toolbar = RequireEditable(id);
    if (rows < 1)
        throw HostError(Refusal::Invalid, L"A toolbar has at least one row.");
    if (toolbar.dock == DockStatus::Floating && toolbar.frame.top == top && toolbar.frame.left == left &&
        toolbar.floatingRows == rows)
        return;
    toolbar.dock = DockStatus::Floating;
    toolbar.frame.top = top;
    toolbar.frame.left = left;
    toolbar.floatingRows = rows;
    NotifyChanged(toolbar);
}

void HostModel::SetToolbarPosition(ElementId id, long left, long top)
{
    Toolbar& toolbar = RequireEditable(id);
    if (toolbar.frame.left == left && toolbar.frame.top == top)
        return;
    toolbar.frame.left = left;
    toolbar.frame.top = top;
    NotifyChanged(toolbar);
}

void HostModel::SetToolbarRows(ElementId id, long rows)
{
    Toolbar& toolbar = RequireEditable(id);
    if (rows < 1)
        throw HostError(Refusal::Invalid, L"A toolbar has at least one row.");
    if (toolbar.floatingRows == rows)
        return;
    toolbar.floatingRows = rows;
    NotifyChanged(toolbar);
}

void HostModel::SetLargeButtons(bool large)
{
    if (m_largeButtons == large)
        return;
    m_largeButtons = large;
    Notify(ModelChange::What::LargeButtons, ModelChange::Kind::Changed, 0, 0);
}

void HostModel::ReportToolbarFrame(ElementId id, DockStatus dock, const ToolbarFrame& frame)
{
    Toolbar& toolbar = Require<Toolbar>(id);
    toolbar.dock = dock;
    toolbar.frame = frame;
}

const ToolbarItem& HostModel::InsertToolbarItem(Toolbar& toolbar, const Index& before,
                                                std::unique_ptr<ToolbarItem> item)
{
    const size_t position = PositionToInsert(toolbar.items, before);
    if (item->type == ToolbarItemType::Separator && m_policies.separators == SeparatorRule::Strict)
        RequireSeparatorAllowed(toolbar.items, position, ToolbarItemType::Separator);

    item->id = NewId(item.get());
    item->parent = &toolbar;
    item->tag = L"ID_" + std::to_wstring(item->id);
    while (HasTag(toolbar, item->tag)) // a client may have chosen just this one
        item->tag += L'_';
    const auto place = toolbar.items.begin() + static_cast<std::ptrdiff_t>(position);
    const ElementId added = item->id;
    toolbar.items.insert(place, std::move(item));
    Notify(ModelChange::What::ToolbarItem, ModelChange::Kind::Added, added, toolbar.id);
    return Require<ToolbarItem>(added);
}

const ToolbarItem& HostModel::AddToolbarButton(ElementId id, const Index& before, const std::wstring& name,
                                               const std::wstring& help, const std::wstring& macro,
                                               bool flyout)
{
    Toolbar& toolbar = RequireEditable(id);
    RequireLabel(name);
    RequireMacro(macro);
    if (flyout && macro.empty())
        throw HostError(Refusal::Invalid, L"A fly-out needs a macro that is not empty.");
    auto item = std::make_unique<ToolbarItem>();
    item->type = flyout ? ToolbarItemType::Flyout : ToolbarItemType::Button;
    item->name = name;
    item->help = help;
    item->macro = macro;
    return InsertToolbarItem(toolbar, before, std::move(item));
}

const ToolbarItem& HostModel::AddToolbarSeparator(ElementId id, const Index& before)
{
    Toolbar& toolbar = RequireEditable(id);
    auto item = std::make_unique<ToolbarItem>();
    item->type = ToolbarItemType::Separator;
    return InsertToolbarItem(toolbar, before, std::move(item));
}

void HostModel::RemoveToolbarItem(ElementId id)
{
    Toolbar& toolbar = *Require<ToolbarItem>(id).parent;
    RequireEditable(toolbar);
    m_records.erase(id);
    std::erase_if(toolbar.items, [id](const auto& each) { return each->id == id; });
    Notify(ModelChange::What::ToolbarItem, ModelChange::Kind::Removed, id, toolbar.id);
}

void HostModel::AttachFlyout(ElementId id, const std::wstring& groupName, const std::wstring& toolbarName)
{
    ToolbarItem& item = Require<ToolbarItem>(id);
    if (item.type != ToolbarItemType::Flyout)
        throw HostError(Refusal::NotAllowed, L"Only a fly-out opens a toolbar.");
    MenuGroup& group = *m_groups[PositionFound(m_groups, groupName)];
    Toolbar& toolbar = *group.toolbars[PositionFound(group.toolbars, toolbarName)];
    if (&toolbar == item.parent)
        throw HostError(Refusal::Invalid, L"A fly-out cannot open the toolbar that it stands in.");
    if (item.flyout == &toolbar)
        return;
    item.flyout = &toolbar;
    NotifyChanged(item);
}

ToolbarItem& HostModel::RequireButton(ElementId id) const
{
    ToolbarItem& item = Require<ToolbarItem>(id);
    if (item.type == ToolbarItemType::Separator)
        throw HostError(Refusal::NotAllowed, L"A separator has neither texts nor images.");
    return item;
}

void HostModel::SetToolbarItemName(ElementId id, const std::wstring& name)
{
    ToolbarItem& item = RequireButton(id);
    RequireLabel(name);
    if (item.name == name)
        return;
    item.name = name;
    NotifyChanged(item);
}

void HostModel::SetToolbarItemMacro(ElementId id, const std::wstring& macro)
{
    ToolbarItem& item = RequireButton(id);
    RequireMacro(macro);
    if (item.type == ToolbarItemType::Flyout && macro.empty())
        throw HostError(Refusal::Invalid, L"A fly-out needs a macro that is not empty.");
    if (item.macro == macro)
        return;
    item.macro = macro;
    NotifyChanged(item);
}

void HostModel::SetToolbarItemHelp(ElementId id, const std::wstring& help)
{
    ToolbarItem& item = RequireButton(id);
    if (item.help == help)
        return;
    item.help = help;
    NotifyChanged(item);
}

void HostModel::SetToolbarItemTag(ElementId id, const std::wstring& tag)
{
    ToolbarItem& item = Require<ToolbarItem>(id);
    if (item.tag == tag)
        return;
    RequireTag(tag);
    if (!SameName(item.tag, tag) && HasTag(*item.parent, tag))
        RefuseTakenTag();
    item.tag = tag;
    NotifyChanged(item);
}

void HostModel::SetToolbarItemCommandDisplayName(ElementId id, const std::wstring& name)
{
    ToolbarItem& item = RequireButton(id);
    if (item.commandDisplayName == name)
        return;
    item.commandDisplayName = name;
    NotifyChanged(item);
}

void HostModel::SetToolbarItemBitmaps(ElementId id, const std::wstring& smallName,
                                      const std::wstring& largeName)
{
    ToolbarItem& item = RequireButton(id);
    if (item.smallBitmap == smallName && item.largeBitmap == largeName)
        return;
    item.smallBitmap = smallName;
    item.largeBitmap = largeName;
    NotifyChanged(item);
}

} // namespace velmhost
