// Toolbars and plain buttons.
#include "CompanionTest.h"

namespace companiontest
{

using testing::ElementsAre;
using velmhost::DockStatus;
using velmhost::DuplicateAdd;
using velmhost::MenuGroupType;
using velmhost::ToolbarItemType;

class Toolbar : public CompanionTest
{
};

TEST_F(Toolbar, IsMadeVisibleInTheFirstMenuGroup)
{
    host.model.AddGroup(L"OTHER", MenuGroupType::Partial, L"other.mnu");
    NewToolbar(L"Draw");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw"));
    EXPECT_TRUE(host.FindToolbar(L"Draw")->visible);
    EXPECT_TRUE(host.model.Groups()[1]->toolbars.empty());
}

TEST_F(Toolbar, IsReturnedWithOneReferenceOfTheCallers)
{
    IDispatch* const toolbar = Create_ACADToolBar(host.Application(), L"Draw");
    EXPECT_EQ(1, host.automation.LiveObjects());
    EXPECT_EQ(1, host.automation.OutstandingReferences());
    EXPECT_EQ(0u, toolbar->Release());
}

TEST_F(Toolbar, OfASecondRunIsTheSameAndEmpty)
{
    for (const DuplicateAdd rule :
         {DuplicateAdd::Fail, DuplicateAdd::ReturnExisting, DuplicateAdd::AddSecond}) {
        host.model.Policies().duplicateAdd = rule;
        IAcadToolbar toolbar = NewToolbar(L"Draw");
        ASSERT_TRUE(host.FindToolbar(L"Draw")->items.empty());
        AddButton(toolbar, L"LINE ", L"Line");
        host.model.AddToolbarSeparator(host.FindToolbar(L"Draw")->id, velmhost::kAtEnd);
        AddButton(toolbar, L"ARC ", L"Arc");
    }
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw"));
    EXPECT_EQ(3u, host.FindToolbar(L"Draw")->items.size());
}

TEST_F(Toolbar, OfASecondRunKeepsThePlaceThatTheUserGaveIt)
{
    NewToolbar(L"Draw");
    const auto* toolbar = host.FindToolbar(L"Draw");
    host.model.FloatToolbar(toolbar->id, 120, 340, 2);
    host.model.DockToolbar(toolbar->id, DockStatus::Left);
    NewToolbar(L"Draw");
    ASSERT_EQ(toolbar, host.FindToolbar(L"Draw"));
    EXPECT_EQ(DockStatus::Left, toolbar->dock);
    EXPECT_EQ(120, toolbar->frame.top);
    EXPECT_EQ(340, toolbar->frame.left);
    EXPECT_EQ(2, toolbar->floatingRows);
}

TEST_F(Toolbar, HiddenByTheUserIsShownAndEmptied)
{
    host.model.Policies().toolbarEditsNeedVisible = true;
    AddButton(NewToolbar(L"Draw"), L"LINE ", L"Line");
    host.model.SetToolbarVisible(host.FindToolbar(L"Draw")->id, false);
    NewToolbar(L"Draw");
    EXPECT_TRUE(host.FindToolbar(L"Draw")->visible);
    EXPECT_TRUE(host.FindToolbar(L"Draw")->items.empty());
}

TEST_F(Toolbar, WhoseNameDiffersInCaseOnlyIsUsedAgain)
{
    for (const DuplicateAdd rule :
         {DuplicateAdd::Fail, DuplicateAdd::ReturnExisting, DuplicateAdd::AddSecond}) {
        host.model.Policies().duplicateAdd = rule;
        AddButton(NewToolbar(L"Draw"), L"LINE ", L"Line");
        NewToolbar(L"DRAW");
        EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw"));
        EXPECT_TRUE(host.FindToolbar(L"Draw")->items.empty());
    }
}

TEST_F(Toolbar, OfOthersIsNotTouched)
{
    AddButton(NewToolbar(L"Other"), L"X ", L"X");
    const auto& group = host.model.AddGroup(L"OTHER", MenuGroupType::Partial, L"other.mnu");
    const auto& same = host.model.AddToolbar(group.id, L"Draw");
    host.model.AddToolbarButton(same.id, 0L, L"Y", L"Y", L"Y ", false);
    NewToolbar(L"Draw");
    NewToolbar(L"Draw");
    EXPECT_EQ(1u, host.FindToolbar(L"Other")->items.size());
    EXPECT_EQ(1u, same.items.size());
}

TEST_F(Toolbar, MayHaveAnEmptyName)
{
    NewToolbar(L"");
    NewToolbar(L"");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L""));
}

TEST_F(Toolbar, WithoutANameIsOneWithAnEmptyName)
{
    NewToolbar(nullptr);
    AddButton(NewToolbar(L""), L"A ", L"A");
    EXPECT_EQ(1u, host.FindToolbar(L"")->items.size());
    NewToolbar(nullptr);
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L""));
    EXPECT_TRUE(host.FindToolbar(L"")->items.empty());
}

TEST_F(Toolbar, MayHaveANameOfAnyCharactersAndLength)
{
    const std::wstring name = L"&\u00DC\u0416\u6982\U0001F4D0" + std::wstring(5000, L'x');
    NewToolbar(name.c_str());
    NewToolbar(name.c_str());
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(name));
}

TEST_F(Toolbar, WithoutAnApplicationFails)
{
    for (const wchar_t* name : {L"Draw", L"SubToolbar"}) {
        const auto failure = FailureOf([name] { Create_ACADToolBar(nullptr, name); });
        ASSERT_TRUE(failure);
        EXPECT_EQ(E_POINTER, failure->status);
    }
}

TEST_F(Toolbar, IsHiddenAndShown)
{
    IAcadToolbar toolbar = NewToolbar(L"Draw");
    toolbar.SetVisible(0);
    EXPECT_FALSE(host.FindToolbar(L"Draw")->visible);
    toolbar.SetVisible(1);
    EXPECT_TRUE(host.FindToolbar(L"Draw")->visible);
    toolbar.SetVisible(0);
    toolbar.SetVisible(-5);
    EXPECT_TRUE(host.FindToolbar(L"Draw")->visible);
}

TEST_F(Toolbar, ThatIsNoneCannotBeShown)
{
    const auto failure = FailureOf([] { IAcadToolbar().SetVisible(1); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(E_POINTER, failure->status);
}

class Button : public CompanionTest
{
protected:
    IAcadToolbar toolbar = NewToolbar(L"Draw");
    const std::vector<std::unique_ptr<velmhost::ToolbarItem>>& Items()
    {
        return host.FindToolbar(L"Draw")->items;
    }
};

TEST_F(Button, CarriesMacroTooltipAndBitmaps)
{
    EXPECT_TRUE(AddButton(toolbar, L"LINE ", L"Line", L"C:\\Bmps\\line16.bmp", L"C:\\Bmps\\line24.bmp"));
    ASSERT_EQ(1u, Items().size());
    EXPECT_EQ(ToolbarItemType::Button, Items()[0]->type);
    EXPECT_EQ(L"Line", Items()[0]->name);
    EXPECT_EQ(L"Line", Items()[0]->help);
    EXPECT_EQ(L"LINE ", Items()[0]->macro);
    EXPECT_EQ(L"C:\\Bmps\\line16.bmp", Items()[0]->smallBitmap);
    EXPECT_EQ(L"C:\\Bmps\\line24.bmp", Items()[0]->largeBitmap);
    EXPECT_EQ(nullptr, Items()[0]->flyout);
}

TEST_F(Button, GoesToTheEnd)
{
    for (const wchar_t* name : {L"A", L"B", L"C"})
        AddButton(toolbar, name, name);
    host.model.AddToolbarButton(host.FindToolbar(L"Draw")->id, 0L, L"Other", L"", L"o ", false);
    AddButton(toolbar, L"D", L"D");
    ASSERT_EQ(5u, Items().size());
    EXPECT_EQ(L"A", Items()[1]->name);
    EXPECT_EQ(L"D", Items()[4]->name);
}

TEST_F(Button, WithoutACommandSendsNothing)
{
    EXPECT_TRUE(AddButton(toolbar, nullptr, L"Line"));
    EXPECT_EQ(L"", Items()[0]->macro);
    EXPECT_EQ(ToolbarItemType::Button, Items()[0]->type);
}

TEST_F(Button, WithoutACommandEndsNoLineWhereTheHostRefusesAnEmptyMacro)
{
    host.model.Policies().macrosNeedText = true;
    host.model.Policies().labelsNeedText = true;
    EXPECT_TRUE(AddButton(toolbar, nullptr, nullptr));
    ASSERT_EQ(1u, Items().size());
    EXPECT_EQ(L"\x1A", Items()[0]->macro);
    EXPECT_EQ(L"Button", Items()[0]->name);
    EXPECT_EQ(ToolbarItemType::Button, Items()[0]->type);
}

TEST_F(Button, WithoutATooltipIsNamedAfterItsCommand)
{
    AddButton(toolbar, L"^C^C_LINE ", nullptr);
    AddButton(toolbar, L" ARC ", L"");
    AddButton(toolbar, L"CIRCLE ", L"  ");
    EXPECT_EQ(L"_LINE", Items()[0]->name);
    EXPECT_EQ(L"", Items()[0]->help);
    EXPECT_EQ(L"ARC", Items()[1]->name);
    EXPECT_EQ(L"CIRCLE", Items()[2]->name);
}

TEST_F(Button, WithNeitherTooltipNorCommandIsStillNamed)
{
    AddButton(toolbar, nullptr, nullptr);
    AddButton(toolbar, L"^C ", L"");
    EXPECT_EQ(L"Button", Items()[0]->name);
    EXPECT_EQ(L"Button", Items()[1]->name);
}

TEST_F(Button, WithoutBitmapNamesIsAdded)
{
    EXPECT_TRUE(AddButton(toolbar, L"LINE ", L"Line", nullptr, nullptr));
    ASSERT_EQ(1u, Items().size());
    EXPECT_EQ(L"", Items()[0]->smallBitmap);
}

TEST_F(Button, TakesTextsOfAnyCharactersAndLength)
{
    const std::wstring text = L"\u00E9&\u0416\u6982\U0001F4D0\"<" + std::wstring(5000, L'x');
    AddButton(toolbar, text.c_str(), text.c_str(), text.c_str(), text.c_str());
    EXPECT_EQ(text, Items()[0]->name);
    EXPECT_EQ(text, Items()[0]->help);
    EXPECT_EQ(text, Items()[0]->macro);
    EXPECT_EQ(text, Items()[0]->smallBitmap);
    EXPECT_EQ(text, Items()[0]->largeBitmap);
}

TEST_F(Button, OnAHiddenToolbarLeavesItHidden)
{
    host.model.Policies().toolbarEditsNeedVisible = true;
    toolbar.SetVisible(0);
    AddButton(toolbar, L"LINE ", L"Line");
    EXPECT_FALSE(host.FindToolbar(L"Draw")->visible);
    EXPECT_EQ(1u, Items().size());
}

TEST_F(Button, OnAHiddenToolbarLeavesItHiddenAlsoWhenItFails)
{
    toolbar.SetVisible(0);
    // Visible, Visible put, Count, AddToolbarButton.
    host.automation.FailInvoke(4, {});
    EXPECT_TRUE(FailureOf([&] { AddButton(toolbar, L"LINE ", L"Line"); }));
    EXPECT_FALSE(host.FindToolbar(L"Draw")->visible);
    EXPECT_TRUE(Items().empty());
}

TEST_F(Button, IgnoresAFlyoutThatItDoesNotOpen)
{
    IAcadToolbar flyout = NewToolbar(L"SubToolbar");
    Append_ToolBarItem(toolbar, L"LINE ", L"Line", L"a", L"b", false, flyout);
    EXPECT_EQ(ToolbarItemType::Button, Items()[0]->type);
    EXPECT_EQ(nullptr, Items()[0]->flyout);
    EXPECT_TRUE(host.FindToolbar(L"SubToolbar")->visible);
}

TEST_F(Button, OfNoToolbarFails)
{
    const auto failure = FailureOf([] { AddButton(IAcadToolbar(), L"LINE ", L"Line"); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(E_POINTER, failure->status);
}

} // namespace companiontest
