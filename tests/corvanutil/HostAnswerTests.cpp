// What the operations make of results of the host that are no objects.
#include "CompanionTest.h"
#include "ScriptedObject.h"

namespace companiontest
{

namespace
{

// A member that succeeds and gives a value of `type` without content.
ScriptedObject::Member GivesNothing(VARTYPE type)
{
    return [type](const ScriptedCall&, VARIANT* result, EXCEPINFO*) {
        V_VT(result) = type;
        return S_OK;
    };
}

} // namespace

class HostAnswer : public testing::Test
{
protected:
    ~HostAnswer() override
    {
        EXPECT_EQ(0, target.references);
        EXPECT_EQ(0, last.references);
    }

    // A menu or a toolbar with one entry, and the entry.
    ScriptedObject target;
    ScriptedObject last;

    HostAnswer()
    {
        target.members[L"Visible"] = Gives(-1L);
        target.members[L"Count"] = Gives(1L);
        target.members[L"Item"] = Gives(last);
        last.members[L"Type"] = Gives(0L);
    }
    IAcadPopupMenu Menu()
    {
        target.AddRef();
        return IAcadPopupMenu(&target);
    }
    IAcadToolbar Toolbar()
    {
        target.AddRef();
        return IAcadToolbar(&target);
    }
    bool AddItem() { return Append_MenuItem(Menu(), L"Line", L"LINE ", nullptr, true, false); }
    bool AddSeparator() { return Append_MenuItem(Menu(), nullptr, nullptr, nullptr, true, false); }
    bool AddButton()
    {
        return Append_ToolBarItem(Toolbar(), L"LINE ", L"Line", nullptr, nullptr, false, IAcadToolbar());
    }
};

TEST_F(HostAnswer, ThatIsNothingMeansThatTheMenuHasNoRoom)
{
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_DISPATCH, VT_UNKNOWN}) {
        target.members[L"AddMenuItem"] = GivesNothing(type);
        target.members[L"AddSeparator"] = GivesNothing(type);
        EXPECT_FALSE(AddItem()) << type;
        EXPECT_FALSE(AddSeparator()) << type;
    }
}

TEST_F(HostAnswer, ThatIsNothingIsAFailureWhereAnObjectIsReturned)
{
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_DISPATCH, VT_UNKNOWN}) {
        target.members[L"AddSubMenu"] = GivesNothing(type);
        target.members[L"AddToolbarButton"] = GivesNothing(type);
        const auto menuFailure = FailureOf([this] { Append_SubMenu(Menu(), L"More"); });
        const auto buttonFailure = FailureOf([this] { AddButton(); });
        ASSERT_TRUE(menuFailure) << type;
        ASSERT_TRUE(buttonFailure) << type;
        EXPECT_EQ(E_POINTER, menuFailure->status);
        EXPECT_EQ(L"The host returned no object for AddSubMenu.", menuFailure->description);
        EXPECT_EQ(E_POINTER, buttonFailure->status);
        EXPECT_EQ(L"The host returned no object for AddToolbarButton.", buttonFailure->description);
    }
}

TEST_F(HostAnswer, ThatCannotBeAnObjectIsAFailure)
{
    for (const auto& answer : {Gives(L"no object"), Gives(7L)}) {
        target.members[L"AddMenuItem"] = answer;
        target.members[L"AddSubMenu"] = answer;
        const auto itemFailure = FailureOf([this] { AddItem(); });
        const auto menuFailure = FailureOf([this] { Append_SubMenu(Menu(), L"More"); });
        ASSERT_TRUE(itemFailure);
        ASSERT_TRUE(menuFailure);
        EXPECT_EQ(DISP_E_TYPEMISMATCH, itemFailure->status);
        EXPECT_EQ(L"CorvanUtil22.AddMenuItem", itemFailure->source);
        EXPECT_EQ(DISP_E_TYPEMISMATCH, menuFailure->status);
        EXPECT_EQ(L"CorvanUtil22.AddSubMenu", menuFailure->source);
    }
}

} // namespace companiontest
