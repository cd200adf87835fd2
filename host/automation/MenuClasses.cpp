#include "automation/DispatchObject.h"
#include "automation/ElementLookup.h"
#include "model/MenuText.h"

namespace velmhost
{

namespace
{

using D = DispatchObject;
using C = DispatchCall;

const Argument kIndex{L"Index", ArgumentType::Index};

void AddMenu(D& self, C& call)
{
    call.Return(ObjectFor(self, PopupMenuClass(), self.Model().AddMenu(self.Id(), call.Text()).id));
}

void InsertMenuInBar(D& self, C& call)
{
    HostModel& model = self.Model();
    model.InsertInMenuBar(model.MenuAt(self.Id(), call.Text(0)).id, call.IndexAt(1));
}

void RemoveMenuFromBar(D& self, C& call)
{
    GroupOf(self);
    HostModel& model = self.Model();
    model.RemoveFromMenuBar(model.BarMenuAt(call.IndexAt(0)).id);
}

// A null item is an entry that the full menu did not take.
ComOwner<IDispatch> ObjectForItem(const D& self, const MenuItem* item)
{
    return item ? ObjectFor(self, PopupMenuItemClass(), item->id) : nullptr;
}

void AddItem(D& self, C& call)
{
    call.Return(ObjectForItem(
        self, self.Model().AddMenuItem(self.Id(), call.IndexAt(0), call.Text(1), call.Text(2))));
}

void AddSubMenu(D& self, C& call)
{
    const MenuItem* item = self.Model().AddSubMenu(self.Id(), call.IndexAt(0), call.Text(1));
    call.Return(item ? ObjectFor(self, PopupMenuClass(), item->subMenu->id) : nullptr);
}

void AddSeparator(D& self, C& call)
{
    call.Return(ObjectForItem(self, self.Model().AddMenuSeparator(self.Id(), call.IndexAt(0))));
}

void GetSubMenu(D& self, C& call)
{
    const MenuItem& item = MenuItemOf(self);
    if (!item.subMenu)
        throw HostError(Refusal::NotAllowed, L"The item opens no sub-menu.");
    call.Return(ObjectFor(self, PopupMenuClass(), item.subMenu->id));
}

ComOwner<IDispatch> ParentOfMenu(const D& self)
{
    const Menu& menu = MenuOf(self);
    return menu.owner ? ObjectFor(self, PopupMenuClass(), menu.owner->parent->id)
                      : ObjectFor(self, PopupMenusClass(), menu.group->id);
}

const Collection kMenus = {
    [](const D& self) { return IdsOf(GroupOf(self).menus); },
    [](const D& self, const Index& index) { return self.Model().MenuAt(self.Id(), index).id; },
    PopupMenuClass,
    [](const HostModel& model, ElementId id) { return model.FindMenu(id) != nullptr; },
};

const Collection kItems = {
    [](const D& self) { return IdsOf(MenuOf(self).items); },
    [](const D& self, const Index& index) { return self.Model().MenuItemAt(self.Id(), index).id; },
    PopupMenuItemClass,
    [](const HostModel& model, ElementId id) { return model.FindMenuItem(id) != nullptr; },
};

} // namespace

const ClassTable& PopupMenusClass()
{
    static const ClassTable table(
        L"PopupMenus", [](const D& self) { return ObjectFor(self, MenuGroupClass(), GroupOf(self).id); },
        &kMenus,
        {
            Method(L"Add", MemberId(0x05), {{L"MenuName", ArgumentType::Text}}, AddMenu),
            Method(L"InsertMenuInMenuBar", MemberId(0x06), {{L"MenuName", ArgumentType::Text}, kIndex},
                   InsertMenuInBar),
            Method(L"RemoveMenuFromMenuBar", MemberId(0x07), {kIndex}, RemoveMenuFromBar),
        });
    return table;
}

const ClassTable& PopupMenuClass()
{
    static const ClassTable table(
        L"PopupMenu", ParentOfMenu, &kItems,
        {
            Property(
                L"Name", MemberId(0x05), ArgumentType::Text,
                [](D& self, C& call) { call.Return(MenuOf(self).name); }, PutText<&HostModel::SetMenuName>),
            Property(L"NameNoMnemonic", MemberId(0x07),
                     [](D& self, C& call) { call.Return(WithoutMnemonic(MenuOf(self).name)); }),
            Property(L"ShortcutMenu", MemberId(0x08),
                     [](D& self, C& call) { call.Return(MenuOf(self).shortcut); }),
            Property(L"OnMenuBar", MemberId(0x09),
                     [](D& self, C& call) { call.Return(self.Model().IsOnMenuBar(MenuOf(self).id)); }),
            Method(L"AddMenuItem", MemberId(0x0a),
                   {kIndex, {L"Label", ArgumentType::Text}, {L"Macro", ArgumentType::Text}}, AddItem),
            Method(L"AddSubMenu", MemberId(0x0b), {kIndex, {L"Label", ArgumentType::Text}}, AddSubMenu),
            Method(L"AddSeparator", MemberId(0x0c), {kIndex}, AddSeparator),
            Method(L"InsertInMenuBar", MemberId(0x0d), {kIndex},
                   [](D& self, C& call) { self.Model().InsertInMenuBar(self.Id(), call.IndexAt(0)); }),
            Method(L"RemoveFromMenuBar", MemberId(0x0e), {}, RunOn<&HostModel::RemoveFromMenuBar>),
            Property(L"TagString", MemberId(0x0f), [](D& self, C& call) { call.Return(MenuOf(self).tag); }),
        });
    return table;
}

const ClassTable& PopupMenuItemClass()
{
    static const ClassTable table(
        L"PopupMenuItem",
        [](const D& self) { return ObjectFor(self, PopupMenuClass(), MenuItemOf(self).parent->id); }, nullptr,
        {
            Property(
                L"Label", MemberId(0x02), ArgumentType::Text,
                [](D& self, C& call) { call.Return(MenuItemOf(self).label); },
                PutText<&HostModel::SetMenuItemLabel>),
            Property(
                L"TagString", MemberId(0x04), ArgumentType::Text,
                [](D& self, C& call) { call.Return(MenuItemOf(self).tag); },
                PutText<&HostModel::SetMenuItemTag>),
            Property(
                L"Enable", MemberId(0x06), ArgumentType::Flag,
                [](D& self, C& call) { call.Return(MenuItemOf(self).enabled); },
                PutFlag<&HostModel::SetMenuItemEnabled>),
            Property(
                L"Check", MemberId(0x08), ArgumentType::Flag,
                [](D& self, C& call) { call.Return(MenuItemOf(self).checked); },
                PutFlag<&HostModel::SetMenuItemChecked>),
            Property(L"Type", MemberId(0x0a),
                     [](D& self, C& call) { call.Return(static_cast<long>(MenuItemOf(self).type)); }),
            Property(L"SubMenu", MemberId(0x0b), GetSubMenu),
            Property(
                L"Macro", MemberId(0x0c), ArgumentType::Text,
                [](D& self, C& call) { call.Return(MenuItemOf(self).macro); },
                PutText<&HostModel::SetMenuItemMacro>),
            Property(L"Index", MemberId(0x0e),
                     [](D& self, C& call) { call.Return(HostModel::PositionOf(MenuItemOf(self))); }),
            Property(L"Caption", MemberId(0x0f),
                     [](D& self, C& call) { call.Return(CaptionOf(MenuItemOf(self).label)); }),
            Property(
                L"HelpString", MemberId(0x10), ArgumentType::Text,
                [](D& self, C& call) { call.Return(MenuItemOf(self).help); },
                PutText<&HostModel::SetMenuItemHelp>),
            Method(L"Delete", MemberId(0x12), {}, RunOn<&HostModel::RemoveMenuItem>),
            Property(
                L"EndSubMenuLevel", MemberId(0x13), ArgumentType::Number,
                [](D& self, C& call) { call.Return(MenuItemOf(self).endSubMenuLevel); },
                PutNumber<&HostModel::SetMenuItemEndSubMenuLevel>),
        });
    return table;
}

} // namespace velmhost
