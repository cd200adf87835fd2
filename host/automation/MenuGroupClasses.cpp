#include "automation/DispatchObject.h"
#include "automation/ElementLookup.h"
#include "model/MenuFile.h"

namespace velmhost
{

namespace
{

using D = DispatchObject;
using C = DispatchCall;

void LoadGroup(D& self, C& call)
{
    const MenuGroupType type = call.Flag(1) ? MenuGroupType::Base : MenuGroupType::Partial;
    const ElementId id = LoadMenuFile(self.Model(), call.Text(0), type).id;
    call.Return(ObjectFor(self, MenuGroupClass(), id));
}

void RefuseSaving(D& self, C&)
{
    GroupOf(self);
    throw HostError(Refusal::NotSupported, L"Menu groups cannot be saved.");
}

const Collection kGroups = {
    [](const D& self) { return IdsOf(self.Model().Groups()); },
    [](const D& self, const Index& index) { return self.Model().GroupAt(index).id; },
    MenuGroupClass,
    [](const HostModel& model, ElementId id) { return model.FindGroup(id) != nullptr; },
};

const Collection kBar = {
    [](const D& self) { return IdsOf(self.Model().MenuBar()); },
    [](const D& self, const Index& index) { return self.Model().BarMenuAt(index).id; },
    PopupMenuClass,
    [](const HostModel& model, ElementId id) { return model.IsOnMenuBar(id); },
};

} // namespace

const ClassTable& MenuGroupsClass()
{
    static const ClassTable table(
        L"MenuGroups", [](const D& self) { return ApplicationOf(self); }, &kGroups,
        {Method(L"Load", MemberId(0x05),
                {{L"MenuFileName", ArgumentType::Text}, {L"BaseMenu", ArgumentType::Flag, true}},
                LoadGroup)});
    return table;
}

const ClassTable& MenuGroupClass()
{
    static const ClassTable table(
        L"MenuGroup",
        [](const D& self) {
            GroupOf(self);
            return ObjectFor(self, MenuGroupsClass(), 0);
        },
        nullptr,
        {
            Property(L"Name", MemberId(0x02), [](D& self, C& call) { call.Return(GroupOf(self).name); }),
            Property(L"Type", MemberId(0x03),
                     [](D& self, C& call) { call.Return(static_cast<long>(GroupOf(self).type)); }),
            Property(L"MenuFileName", MemberId(0x04),
                     [](D& self, C& call) { call.Return(GroupOf(self).fileName); }),
            Property(
                L"Menus", MemberId(0x05),
                [](D& self, C& call) { call.Return(ObjectFor(self, PopupMenusClass(), GroupOf(self).id)); }),
            Property(
                L"Toolbars", MemberId(0x06),
                [](D& self, C& call) { call.Return(ObjectFor(self, ToolbarsClass(), GroupOf(self).id)); }),
            Method(L"Unload", MemberId(0x07), {}, RunOn<&HostModel::RemoveGroup>),
            Method(L"Save", MemberId(0x08), {{L"MenuFileType", ArgumentType::Number}}, RefuseSaving),
            Method(L"SaveAs", MemberId(0x09),
                   {{L"MenuFileName", ArgumentType::Text}, {L"MenuFileType", ArgumentType::Number}},
                   RefuseSaving),
        });
    return table;
}

const ClassTable& MenuBarClass()
{
    static const ClassTable table(L"MenuBar", [](const D& self) { return ApplicationOf(self); }, &kBar, {});
    return table;
}

} // namespace velmhost
