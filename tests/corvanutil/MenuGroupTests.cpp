// Which of the host's menu groups, and which of their menus, are used.
#include "CompanionTest.h"
#include "ScriptedObject.h"

#include <array>

namespace companiontest
{

// An application with two menu groups, of which each has one menu collection.
class MenuGroups : public testing::Test
{
protected:
    ScriptedObject object;
    ScriptedObject groups;
    std::array<ScriptedObject, 2> group;
    std::array<ScriptedObject, 2> menus;
    ScriptedObject menu, bar;
    // The group in which a menu was added; -1 for none.
    int used = -1;

    MenuGroups()
    {
        object.members[L"MenuGroups"] = Gives(groups);
        object.members[L"MenuBar"] = Gives(bar);
        bar.members[L"Count"] = Gives(0L);
        menu.members[L"OnMenuBar"] = Gives(-1L);
        groups.members[L"Count"] = Gives(2L);
        groups.members[L"Item"] = [this](const ScriptedCall& call, VARIANT* result, EXCEPINFO* info) {
            return Gives(group.at(V_I4(&call.parameters->rgvarg[0])))(call, result, info);
        };
        for (int i = 0; i < 2; ++i) {
            group[i].members[L"Menus"] = Gives(menus[i]);
            menus[i].members[L"Count"] = Gives(0L);
            menus[i].members[L"Add"] = [this, i](const ScriptedCall& call, VARIANT* result, EXCEPINFO* info) {
                used = i;
                return Gives(menu)(call, result, info);
            };
        }
    }
    ~MenuGroups() override
    {
        EXPECT_EQ(0, object.references + groups.references + menu.references + bar.references);
        for (int i = 0; i < 2; ++i)
            EXPECT_EQ(0, group[i].references + menus[i].references);
    }
    std::optional<Failure> FailureOfCreation()
    {
        return FailureOf([this] { IAcadPopupMenu created(Create_ACADMenu(&object, L"&Tools")); });
    }
};

TEST_F(MenuGroups, AreSearchedForTheBaseGroup)
{
    group[0].members[L"Type"] = Gives(1L);
    group[1].members[L"Type"] = Gives(0L);
    EXPECT_FALSE(FailureOfCreation());
    EXPECT_EQ(1, used);
}

TEST_F(MenuGroups, OfWhichTwoAreBaseAreUsedFromTheFirst)
{
    group[0].members[L"Type"] = Gives(0L);
    group[1].members[L"Type"] = Gives(0L);
    EXPECT_FALSE(FailureOfCreation());
    EXPECT_EQ(0, used);
}

TEST_F(MenuGroups, OfWhichNoneIsBaseAreUsedFromTheFirst)
{
    group[0].members[L"Type"] = Gives(1L);
    group[1].members[L"Type"] = Gives(1L);
    EXPECT_FALSE(FailureOfCreation());
    EXPECT_EQ(0, used);
}

TEST_F(MenuGroups, WithoutATypeAreUsedFromTheFirst)
{
    EXPECT_FALSE(FailureOfCreation());
    EXPECT_EQ(0, used);
}

TEST_F(MenuGroups, WhoseTypeFailsAreNotUsed)
{
    group[0].members[L"Type"] = Fails(E_ACCESSDENIED);
    group[1].members[L"Type"] = Gives(0L);
    const auto failure = FailureOfCreation();
    ASSERT_TRUE(failure);
    EXPECT_EQ(E_ACCESSDENIED, failure->status);
    EXPECT_EQ(-1, used);
}

TEST_F(MenuGroups, KeepAShortcutMenuOfAnyName)
{
    group[0].members[L"Type"] = Gives(0L);
    menus[0].members[L"Count"] = Gives(1L);
    menus[0].members[L"Item"] = Gives(menu);
    menu.members[L"Name"] = Gives(L"&Tools");
    menu.members[L"ShortcutMenu"] = Gives(-1L);
    // Were it emptied, this would fail in another way.
    menu.members[L"Count"] = Fails(E_UNEXPECTED);
    const auto failure = FailureOfCreation();
    ASSERT_TRUE(failure);
    EXPECT_EQ(E_INVALIDARG, failure->status);
    EXPECT_EQ(-1, used);
}

} // namespace companiontest
