// Pull-down menus: creation, the menu bar, and second runs.
#include "CompanionTest.h"

namespace companiontest
{

using testing::ElementsAre;
using velmhost::DuplicateAdd;
using velmhost::MenuGroupType;

class Menu : public CompanionTest
{
};

TEST_F(Menu, IsMadeInTheFirstMenuGroup)
{
    host.model.AddGroup(L"OTHER", MenuGroupType::Partial, L"other.mnu");
    NewMenu(L"&Tools");
    EXPECT_THAT(host.MenuNames(), ElementsAre(L"&Tools"));
    EXPECT_TRUE(host.model.Groups()[1]->menus.empty());
}

TEST_F(Menu, IsMadeInTheBaseGroupWhateverItsName)
{
    host.model.AddGroup(L"Drawing office", MenuGroupType::Base, L"office.mnu");
    ASSERT_EQ(L"Drawing office", host.Base().name);
    NewMenu(L"&Tools");
    EXPECT_THAT(host.MenuNames(), ElementsAre(L"&Tools"));
}

TEST_F(Menu, StandsAtTheRightEndOfTheBar)
{
    NewMenu(L"&File");
    NewMenu(L"&Edit");
    NewMenu(L"&Tools");
    EXPECT_THAT(host.BarNames(), ElementsAre(L"&File", L"&Edit", L"&Tools"));
}

TEST_F(Menu, IsReturnedWithOneReferenceOfTheCallers)
{
    IDispatch* const menu = Create_ACADMenu(host.Application(), L"&Tools");
    ASSERT_NE(nullptr, menu);
    EXPECT_EQ(1, host.automation.LiveObjects());
    EXPECT_EQ(1, host.automation.OutstandingReferences());
    EXPECT_EQ(0u, menu->Release());
}

TEST_F(Menu, OfASecondRunIsTheSameAndEmpty)
{
    for (const DuplicateAdd rule :
         {DuplicateAdd::Fail, DuplicateAdd::ReturnExisting, DuplicateAdd::AddSecond}) {
        host.model.Policies().duplicateAdd = rule;
        IAcadPopupMenu menu = NewMenu(L"&Tools");
        ASSERT_TRUE(host.FindMenu(L"&Tools")->items.empty());
        AddItem(menu, L"A", L"A ", L"a");
        AddSeparator(menu);
        IAcadPopupMenu sub(Append_SubMenu(menu, L"B"));
        AddItem(sub, L"C", L"C ", L"c");
    }
    EXPECT_THAT(host.MenuNames(), ElementsAre(L"&Tools"));
    EXPECT_THAT(host.BarNames(), ElementsAre(L"&Tools"));
    EXPECT_EQ(3u, host.FindMenu(L"&Tools")->items.size());
}

TEST_F(Menu, OfASecondRunKeepsItsPlaceOnTheBar)
{
    NewMenu(L"&Tools");
    NewMenu(L"&Help");
    NewMenu(L"&Tools");
    EXPECT_THAT(host.BarNames(), ElementsAre(L"&Tools", L"&Help"));
}

TEST_F(Menu, TakenOffTheBarIsPutBackAtTheRightEnd)
{
    NewMenu(L"&Tools");
    NewMenu(L"&Help");
    host.model.RemoveFromMenuBar(host.FindMenu(L"&Tools")->id);
    NewMenu(L"&Tools");
    EXPECT_THAT(host.BarNames(), ElementsAre(L"&Help", L"&Tools"));
    EXPECT_EQ(2u, host.MenuNames().size());
}

TEST_F(Menu, WhoseNameDiffersInCaseOnlyIsUsedAgain)
{
    for (const DuplicateAdd rule :
         {DuplicateAdd::Fail, DuplicateAdd::ReturnExisting, DuplicateAdd::AddSecond}) {
        host.model.Policies().duplicateAdd = rule;
        AddItem(NewMenu(L"&Tools"), L"A", L"A ", nullptr);
        NewMenu(L"&TOOLS");
        EXPECT_THAT(host.MenuNames(), ElementsAre(L"&Tools"));
        EXPECT_TRUE(host.FindMenu(L"&Tools")->items.empty());
    }
}

TEST_F(Menu, OfExactlyTheNameGoesBeforeOneThatDiffersInCase)
{
    host.model.Policies().duplicateAdd = DuplicateAdd::AddSecond;
    host.model.AddMenu(host.Base().id, L"&TOOLS");
    host.model.AddMenu(host.Base().id, L"&Tools");
    AddItem(NewMenu(L"&Tools"), L"A", L"A ", nullptr);
    EXPECT_EQ(1u, host.FindMenu(L"&Tools")->items.size());
    EXPECT_EQ(0u, host.FindMenu(L"&TOOLS")->items.size());
}

TEST_F(Menu, WithAnotherMnemonicIsAnotherMenu)
{
    NewMenu(L"&Tools");
    NewMenu(L"T&ools");
    NewMenu(L"Tools");
    EXPECT_THAT(host.MenuNames(), ElementsAre(L"&Tools", L"T&ools", L"Tools"));
}

TEST_F(Menu, OfOthersIsNotTouched)
{
    const auto& other = host.model.AddMenu(host.Base().id, L"&Other");
    host.model.AddMenuItem(other.id, 0L, L"X", L"X ");
    const auto& group = host.model.AddGroup(L"OTHER", MenuGroupType::Partial, L"other.mnu");
    const auto& same = host.model.AddMenu(group.id, L"&Tools");
    host.model.AddMenuItem(same.id, 0L, L"Y", L"Y ");
    NewMenu(L"&Tools");
    NewMenu(L"&Tools");
    EXPECT_EQ(1u, other.items.size());
    EXPECT_EQ(1u, same.items.size());
}

TEST_F(Menu, MayHaveAnEmptyName)
{
    NewMenu(L"");
    NewMenu(L"");
    EXPECT_THAT(host.MenuNames(), ElementsAre(L""));
    EXPECT_THAT(host.BarNames(), ElementsAre(L""));
}

TEST_F(Menu, WithoutANameIsOneWithAnEmptyName)
{
    NewMenu(nullptr);
    AddItem(NewMenu(L""), L"A", L"A ", nullptr);
    EXPECT_EQ(1u, host.FindMenu(L"")->items.size());
    NewMenu(nullptr);
    EXPECT_THAT(host.MenuNames(), ElementsAre(L""));
    EXPECT_THAT(host.BarNames(), ElementsAre(L""));
    EXPECT_TRUE(host.FindMenu(L"")->items.empty());
}

TEST_F(Menu, ThatIsThereAlreadyIsEmptiedWhoeverMadeItAlsoWithoutAName)
{
    for (const wchar_t* name : {L"&Tools", L""}) {
        const auto& other = host.model.AddMenu(host.Base().id, name);
        host.model.AddMenuItem(other.id, 0L, L"X", L"X ");
        NewMenu(name);
        EXPECT_TRUE(other.items.empty());
    }
    EXPECT_THAT(host.MenuNames(), ElementsAre(L"&Tools", L""));
}

TEST_F(Menu, IsNeverAShortcutMenu)
{
    for (const bool isThere : {false, true}) {
        if (isThere) {
            const auto& shortcut = host.model.AddMenu(host.Base().id, L"POP0");
            ASSERT_TRUE(shortcut.shortcut);
            host.model.AddMenuItem(shortcut.id, 0L, L"X", L"X ");
        }
        for (const wchar_t* name : {L"POP0", L"pop0", L"Pop0"}) {
            const auto failure = FailureOf([&] { NewMenu(name); });
            ASSERT_TRUE(failure);
            EXPECT_EQ(E_INVALIDARG, failure->status);
            EXPECT_EQ(0, failure->code);
            EXPECT_EQ(L"CorvanUtil22.Create_ACADMenu", failure->source);
            EXPECT_EQ(L"\"" + std::wstring(name) +
                          L"\" is the name of a shortcut menu, which is no menu of the menu bar.",
                      failure->description);
            EXPECT_EQ(isThere ? 1u : 0u, host.MenuNames().size());
        }
    }
    EXPECT_EQ(1u, host.FindMenu(L"POP0")->items.size());
    EXPECT_TRUE(host.BarNames().empty());
}

TEST_F(Menu, MayHaveANameOfAnyCharactersAndLength)
{
    const std::wstring name = L"&\u00DC\u0416\u6982\U0001F4D0" + std::wstring(5000, L'x');
    NewMenu(name.c_str());
    NewMenu(name.c_str());
    EXPECT_THAT(host.MenuNames(), ElementsAre(name));
}

TEST_F(Menu, WithoutAnApplicationFails)
{
    const auto failure = FailureOf([] { Create_ACADMenu(nullptr, L"&Tools"); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(E_POINTER, failure->status);
    EXPECT_FALSE(failure->description.empty());
}

} // namespace companiontest
