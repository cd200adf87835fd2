#include "automation/DispatchObject.h"
#include "automation/ElementLookup.h"

namespace velmhost
{

namespace
{

using D = DispatchObject;
using C = DispatchCall;

const Argument kIndex{L"Index", ArgumentType::Index};

void AddToolbar(D& self, C& call)
{
    call.Return(ObjectFor(self, ToolbarClass(), self.Model().AddToolbar(self.Id(), call.Text()).id));
}

void AddButton(D& self, C& call)
{
    const ToolbarItem& item = self.Model().AddToolbarButton(self.Id(), call.IndexAt(0), call.Text(1),
                                                            call.Text(2), call.Text(3), call.Flag(4));
    call.Return(ObjectFor(self, ToolbarItemClass(), item.id));
}

void AddSeparator(D& self, C& call)
{
    call.Return(
        ObjectFor(self, ToolbarItemClass(), self.Model().AddToolbarSeparator(self.Id(), call.IndexAt(0)).id));
}

void GetFlyout(D& self, C& call)
{
    const Toolbar* flyout = ToolbarItemOf(self).flyout;
    call.Return(flyout ? ObjectFor(self, ToolbarClass(), flyout->id) : nullptr);
}

void GetBitmaps(D& self, C& call)
{
    const ToolbarItem& item = ToolbarItemOf(self);
    call.SetText(0, item.smallBitmap);
    call.SetText(1, item.largeBitmap);
}

const Collection kToolbars = {
    [](const D& self) { return IdsOf(GroupOf(self).toolbars); },
    [](const D& self, const Index& index) { return self.Model().ToolbarAt(self.Id(), index).id; },
    ToolbarClass,
    [](const HostModel& model, ElementId id) { return model.FindToolbar(id) != nullptr; },
};

const Collection kItems = {
    [](const D& self) { return IdsOf(ToolbarOf(self).items); },
    [](const D& self, const Index& index) { return self.Model().ToolbarItemAt(self.Id(), index).id; },
    ToolbarItemClass,
    [](const HostModel& model, ElementId id) { return model.FindToolbarItem(id) != nullptr; },
};

} // namespace

const ClassTable& ToolbarsClass()
{
    static const ClassTable table(
        L"Toolbars", [](const D& self) { return ObjectFor(self, MenuGroupClass(), GroupOf(self).id); },
        &kToolbars,
        {
            Property(
                L"LargeButtons", MemberId(0x05), ArgumentType::Flag,
                [](D& self, C& call) {
                    GroupOf(self);
                    call.Return(self.Model().LargeButtons());
                },
                [](D& self, C& call) {
                    GroupOf(self);
                    self.Model().SetLargeButtons(call.Flag());
                }),
            Method(L"Add", MemberId(0x07), {{L"ToolbarName", ArgumentType::Text}}, AddToolbar),
        });
    return table;
}

const ClassTable& ToolbarClass()
{
    static const ClassTable table(
        L"Toolbar", [](const D& self) { return ObjectFor(self, ToolbarsClass(), ToolbarOf(self).group->id); },
        &kItems,
        {
            Property(
                L"Name", MemberId(0x05), ArgumentType::Text,
                [](D& self, C& call) { call.Return(ToolbarOf(self).name); },
                PutText<&HostModel::SetToolbarName>),
            Property(
                L"Visible", MemberId(0x07), ArgumentType::Flag,
                [](D& self, C& call) { call.Return(ToolbarOf(self).visible); },
                PutFlag<&HostModel::SetToolbarVisible>),
            Property(L"DockStatus", MemberId(0x09),
                     [](D& self, C& call) { call.Return(static_cast<long>(ToolbarOf(self).dock)); }),
            Property(L"LargeButtons", MemberId(0x0a),
                     [](D& self, C& call) {
                         ToolbarOf(self);
                         call.Return(self.Model().LargeButtons());
                     }),
            Property(
                L"left", MemberId(0x0b), ArgumentType::Number,
                [](D& self, C& call) { call.Return(ToolbarOf(self).frame.left); },
                [](D& self, C& call) {
                    self.Model().SetToolbarPosition(self.Id(), call.Number(), ToolbarOf(self).frame.top);
                }),
            Property(
                L"top", MemberId(0x0d), ArgumentType::Number,
                [](D& self, C& call) { call.Return(ToolbarOf(self).frame.top); },
                [](D& self, C& call) {
                    self.Model().SetToolbarPosition(self.Id(), ToolbarOf(self).frame.left, call.Number());
                }),
            Property(L"Width", MemberId(0x0f),
                     [](D& self, C& call) { call.Return(ToolbarOf(self).frame.width); }),
            Property(L"Height", MemberId(0x10),
                     [](D& self, C& call) { call.Return(ToolbarOf(self).frame.height); }),
            Property(
                L"FloatingRows", MemberId(0x11), ArgumentType::Number,
                [](D& self, C& call) { call.Return(ToolbarOf(self).floatingRows); },
                PutNumber<&HostModel::SetToolbarRows>),
            Property(
                L"HelpString", MemberId(0x13), ArgumentType::Text,
                [](D& self, C& call) { call.Return(ToolbarOf(self).help); },
                PutText<&HostModel::SetToolbarHelp>),
            Method(L"AddToolbarButton", MemberId(0x15),
                   {kIndex,
                    {L"Name", ArgumentType::Text},
                    {L"HelpString", ArgumentType::Text},
                    {L"Macro", ArgumentType::Text},
                    {L"FlyoutButton", ArgumentType::Flag, true}},
                   AddButton),
            Method(L"AddSeparator", MemberId(0x16), {kIndex}, AddSeparator),
            Method(L"Dock", MemberId(0x17), {{L"Side", ArgumentType::Number}},
                   [](D& self, C& call) {
                       self.Model().DockToolbar(self.Id(), static_cast<DockStatus>(call.Number()));
                   }),
            Method(L"Float", MemberId(0x18),
                   {{L"top", ArgumentType::Number},
                    {L"left", ArgumentType::Number},
                    {L"NumberFloatRows", ArgumentType::Number}},
                   [](D& self, C& call) {
                       self.Model().FloatToolbar(self.Id(), call.Number(0), call.Number(1), call.Number(2));
                   }),
            Method(L"Delete", MemberId(0x19), {}, RunOn<&HostModel::RemoveToolbar>),
            Property(L"TagString", MemberId(0x1a),
                     [](D& self, C& call) { call.Return(ToolbarOf(self).tag); }),
        });
    return table;
}

const ClassTable& ToolbarItemClass()
{
    static const ClassTable table(
        L"ToolbarItem",
        [](const D& self) { return ObjectFor(self, ToolbarClass(), ToolbarItemOf(self).parent->id); },
        nullptr,
        {
            Property(
                L"Name", MemberId(0x02), ArgumentType::Text,
                [](D& self, C& call) { call.Return(ToolbarItemOf(self).name); },
                PutText<&HostModel::SetToolbarItemName>),
            Property(
                L"TagString", MemberId(0x04), ArgumentType::Text,
                [](D& self, C& call) { call.Return(ToolbarItemOf(self).tag); },
                PutText<&HostModel::SetToolbarItemTag>),
            Property(L"Type", MemberId(0x06),
                     [](D& self, C& call) { call.Return(static_cast<long>(ToolbarItemOf(self).type)); }),
            Property(L"Flyout", MemberId(0x07), GetFlyout),
            Property(
                L"Macro", MemberId(0x08), ArgumentType::Text,
                [](D& self, C& call) { call.Return(ToolbarItemOf(self).macro); },
                PutText<&HostModel::SetToolbarItemMacro>),
            Property(L"Index", MemberId(0x0a),
                     [](D& self, C& call) { call.Return(HostModel::PositionOf(ToolbarItemOf(self))); }),
            Property(
                L"HelpString", MemberId(0x0b), ArgumentType::Text,
                [](D& self, C& call) { call.Return(ToolbarItemOf(self).help); },
                PutText<&HostModel::SetToolbarItemHelp>),
            Method(L"GetBitmaps", MemberId(0x0d),
                   {{L"SmallIconName", ArgumentType::OutText}, {L"LargeIconName", ArgumentType::OutText}},
                   GetBitmaps),
            Method(L"SetBitmaps", MemberId(0x0e),
                   {{L"SmallIconName", ArgumentType::Text}, {L"LargeIconName", ArgumentType::Text}},
                   [](D& self, C& call) {
                       self.Model().SetToolbarItemBitmaps(self.Id(), call.Text(0), call.Text(1));
                   }),
            Method(
                L"AttachToolbarToFlyout", MemberId(0x0f),
                {{L"MenuGroupName", ArgumentType::Text}, {L"ToolbarName", ArgumentType::Text}},
                [](D& self, C& call) { self.Model().AttachFlyout(self.Id(), call.Text(0), call.Text(1)); }),
            Method(L"Delete", MemberId(0x10), {}, RunOn<&HostModel::RemoveToolbarItem>),
            Property(
                L"CommandDisplayName", MemberId(0x11), ArgumentType::Text,
                [](D& self, C& call) { call.Return(ToolbarItemOf(self).commandDisplayName); },
                PutText<&HostModel::SetToolbarItemCommandDisplayName>),
        });
    return table;
}

} // namespace velmhost
