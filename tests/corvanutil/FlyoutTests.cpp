// Fly-outs: their buttons, the names of their toolbars, and what becomes of former ones.
#include "CompanionTest.h"

#include <algorithm>
#include <set>

namespace companiontest
{

using testing::ElementsAre;
using testing::IsEmpty;
using velmhost::DuplicateAdd;
using velmhost::MenuGroupType;
using velmhost::ToolbarItemType;

class Flyout : public CompanionTest
{
protected:
    IAcadToolbar toolbar = NewToolbar(L"Draw");
    const velmhost::ToolbarItem& LastItem(const wchar_t* toolbarName)
    {
        return *host.FindToolbar(toolbarName)->items.back();
    }
};

TEST_F(Flyout, ButtonOpensItsToolbar)
{
    IAcadToolbar flyout = NewToolbar(L"SubToolbar");
    EXPECT_TRUE(AddFlyout(toolbar, L"CIRCLE ", L"Circle", flyout));
    const auto& button = LastItem(L"Draw");
    EXPECT_EQ(ToolbarItemType::Flyout, button.type);
    EXPECT_EQ(host.FindToolbar(L"SubToolbar"), button.flyout);
    EXPECT_EQ(L"Circle", button.name);
    EXPECT_EQ(L"Circle", button.help);
    EXPECT_EQ(L"CIRCLE ", button.macro);
    EXPECT_EQ(L"f16.bmp", button.smallBitmap);
    EXPECT_EQ(L"f24.bmp", button.largeBitmap);
}

TEST_F(Flyout, WithoutACommandIsNamedAfterItsToolbarThere)
{
    IAcadToolbar first = NewFlyout(toolbar, L"A");
    IAcadToolbar second = NewToolbar(L"SubToolbar");
    EXPECT_TRUE(AddFlyout(toolbar, nullptr, L"Circle", second));
    EXPECT_EQ(ToolbarItemType::Flyout, LastItem(L"Draw").type);
    EXPECT_EQ(L"SubToolbar_2", LastItem(L"Draw").macro);
    EXPECT_EQ(L"Circle", LastItem(L"Draw").name);
}

TEST_F(Flyout, IsFoundInABaseGroupOfAnyName)
{
    host.model.AddGroup(L"Drawing office", MenuGroupType::Base, L"office.mnu");
    IAcadToolbar carrier = NewToolbar(L"Draw");
    NewFlyout(carrier, L"A");
    ASSERT_NE(nullptr, host.FindToolbar(L"SubToolbar"));
    EXPECT_EQ(host.FindToolbar(L"SubToolbar"), LastItem(L"Draw").flyout);
}

TEST_F(Flyout, ToolbarIsHiddenFromTheMomentItHasItsButton)
{
    IAcadToolbar flyout = NewToolbar(L"SubToolbar");
    EXPECT_TRUE(host.FindToolbar(L"SubToolbar")->visible);
    AddFlyout(toolbar, L"A ", L"A", flyout);
    EXPECT_FALSE(host.FindToolbar(L"SubToolbar")->visible);
}

TEST_F(Flyout, ToolbarTakesButtonsAfterwards)
{
    host.model.Policies().toolbarEditsNeedVisible = true;
    IAcadToolbar flyout = NewToolbar(L"SubToolbar");
    AddFlyout(toolbar, L"A ", L"A", flyout);
    AddButton(flyout, L"A ", L"A");
    AddButton(flyout, L"B ", L"B");
    flyout.SetVisible(0);
    EXPECT_EQ(2u, host.FindToolbar(L"SubToolbar")->items.size());
    EXPECT_FALSE(host.FindToolbar(L"SubToolbar")->visible);
}

TEST_F(Flyout, ToolbarIsReturnedWithOneReferenceOfTheCallers)
{
    const long before = host.automation.OutstandingReferences();
    IDispatch* const flyout = Create_ACADToolBar(host.Application(), L"SubToolbar");
    EXPECT_EQ(before + 1, host.automation.OutstandingReferences());
    flyout->Release();
}

TEST_F(Flyout, ToolbarsAreUniqueInTheHost)
{
    for (const DuplicateAdd rule :
         {DuplicateAdd::Fail, DuplicateAdd::ReturnExisting, DuplicateAdd::AddSecond}) {
        host.model.Policies().duplicateAdd = rule;
        NewFlyout(toolbar, L"A");
        NewFlyout(toolbar, L"B");
    }
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw", L"SubToolbar", L"SubToolbar_2", L"SubToolbar_3",
                                                 L"SubToolbar_4", L"SubToolbar_5", L"SubToolbar_6"));
    std::set<const velmhost::Toolbar*> opened;
    for (const auto& item : host.FindToolbar(L"Draw")->items)
        opened.insert(item->flyout);
    EXPECT_EQ(6u, opened.size());
    EXPECT_EQ(0u, opened.count(nullptr));
}

TEST_F(Flyout, TwoToolbarsMayWaitForTheirButtonsAtOnce)
{
    IAcadToolbar first = NewToolbar(L"SubToolbar");
    IAcadToolbar second = NewToolbar(L"SubToolbar");
    AddFlyout(toolbar, L"B ", L"B", second);
    EXPECT_EQ(host.FindToolbar(L"SubToolbar_2"), LastItem(L"Draw").flyout);
    AddFlyout(toolbar, L"A ", L"A", first);
    EXPECT_EQ(host.FindToolbar(L"SubToolbar"), LastItem(L"Draw").flyout);
}

TEST_F(Flyout, MayStandInAFlyout)
{
    IAcadToolbar outer = NewToolbar(L"SubToolbar");
    AddFlyout(toolbar, L"A ", L"A", outer);
    AddButton(outer, L"A ", L"A");
    IAcadToolbar inner = NewFlyout(outer, L"B");
    IAcadToolbar innermost = NewFlyout(inner, L"C");
    AddButton(outer, L"D ", L"D");
    outer.SetVisible(0);
    EXPECT_EQ(host.FindToolbar(L"SubToolbar"), host.FindToolbar(L"Draw")->items[0]->flyout);
    ASSERT_EQ(3u, host.FindToolbar(L"SubToolbar")->items.size());
    EXPECT_EQ(host.FindToolbar(L"SubToolbar_2"), host.FindToolbar(L"SubToolbar")->items[1]->flyout);
    EXPECT_EQ(host.FindToolbar(L"SubToolbar_3"), host.FindToolbar(L"SubToolbar_2")->items[1]->flyout);
}

TEST_F(Flyout, NameIsFoundBesideOthersInAnyCase)
{
    NewToolbar(L"Own");
    host.model.AddToolbar(host.Base().id, L"SUBTOOLBAR");
    const auto& group = host.model.AddGroup(L"OTHER", MenuGroupType::Partial, L"other.mnu");
    host.model.AddToolbar(group.id, L"SubToolbar_2");
    NewFlyout(toolbar, L"A");
    EXPECT_NE(nullptr, host.FindToolbar(L"SubToolbar_3"));
}

TEST_F(Flyout, IsAskedForByAnyNameOfTheFamily)
{
    NewFlyout(toolbar, L"A");
    NewToolbar(L"SubToolbar_1");
    NewToolbar(L"subtoolbar");
    EXPECT_EQ(1u, host.FindToolbar(L"SubToolbar")->items.size());
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw", L"SubToolbar", L"SubToolbar_2", L"SubToolbar_3"));
}

TEST_F(Flyout, NamesLikeTheFamilysAreToolbarsOfTheirOwn)
{
    for (const wchar_t* name : {L"SubToolbars", L"SubToolbar_", L"SubToolbar_2b", L"SubToolbar 2", L"Sub"}) {
        AddButton(NewToolbar(name), L"A ", L"A");
        NewToolbar(name);
    }
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw", L"SubToolbars", L"SubToolbar_", L"SubToolbar_2b",
                                                 L"SubToolbar 2", L"Sub"));
}

TEST_F(Flyout, OfFormerButtonsGoWithThem)
{
    IAcadToolbar outer = NewToolbar(L"SubToolbar");
    AddFlyout(toolbar, L"A ", L"A", outer);
    NewFlyout(outer, L"B");
    NewFlyout(toolbar, L"C");
    ASSERT_EQ(4u, host.ToolbarNames().size());
    outer.ReleaseDispatch();
    NewToolbar(L"Draw");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw"));
}

TEST_F(Flyout, OfFormerButtonsGoAlsoWhenTheUserShowedThem)
{
    IAcadToolbar outer = NewToolbar(L"SubToolbar");
    AddFlyout(toolbar, L"A ", L"A", outer);
    NewFlyout(outer, L"B");
    for (const wchar_t* name : {L"SubToolbar", L"SubToolbar_2"})
        host.model.SetToolbarVisible(host.FindToolbar(name)->id, true);
    NewToolbar(L"Draw");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw"));
}

TEST_F(Flyout, OfOthersIsNotTouched)
{
    IAcadToolbar other = NewToolbar(L"Other");
    IAcadToolbar outer = NewToolbar(L"SubToolbar");
    AddFlyout(other, L"A ", L"A", outer);
    AddButton(outer, L"A ", L"A");
    NewFlyout(outer, L"B");
    for (int run = 0; run < 3; ++run) {
        IAcadToolbar own = NewToolbar(L"Draw");
        NewFlyout(own, L"C");
        EXPECT_THAT(host.ToolbarNames(),
                    ElementsAre(L"Draw", L"Other", L"SubToolbar", L"SubToolbar_2", L"SubToolbar_3"));
    }
    EXPECT_EQ(2u, host.FindToolbar(L"SubToolbar")->items.size());
    EXPECT_EQ(1u, host.FindToolbar(L"SubToolbar_2")->items.size());
    EXPECT_EQ(host.FindToolbar(L"SubToolbar"), LastItem(L"Other").flyout);
    EXPECT_EQ(host.FindToolbar(L"SubToolbar_2"), LastItem(L"SubToolbar").flyout);
}

TEST_F(Flyout, OpenedFromAnotherGroupIsNotTouched)
{
    NewFlyout(toolbar, L"A");
    const auto& group = host.model.AddGroup(L"OTHER", MenuGroupType::Partial, L"other.mnu");
    const auto& strange = host.model.AddToolbar(group.id, L"Strange");
    const auto& button = host.model.AddToolbarButton(strange.id, 0L, L"X", L"", L"X ", true);
    host.model.AttachFlyout(button.id, host.Base().name, L"SubToolbar");
    NewToolbar(L"Draw");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw", L"SubToolbar"));
    EXPECT_EQ(1u, host.FindToolbar(L"SubToolbar")->items.size());
}

TEST_F(Flyout, ToolbarOfTheHostsOwnThatAButtonOpensIsNotDeleted)
{
    const auto& own = host.model.AddToolbar(host.Base().id, L"Zoom");
    host.model.AddToolbarButton(own.id, 0L, L"In", L"", L"ZOOM ", false);
    host.model.SetToolbarVisible(own.id, false);
    const auto& button =
        host.model.AddToolbarButton(host.FindToolbar(L"Draw")->id, 0L, L"Zoom", L"", L"x", true);
    host.model.AttachFlyout(button.id, host.Base().name, L"Zoom");
    NewToolbar(L"Draw");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw", L"Zoom"));
}

TEST_F(Flyout, LeftHiddenWithoutAButtonIsRemoved)
{
    const auto& left = host.model.AddToolbar(host.Base().id, L"SubToolbar_7");
    host.model.SetToolbarVisible(left.id, false);
    NewFlyout(toolbar, L"A");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw", L"SubToolbar"));
}

TEST_F(Flyout, LeftHiddenWithoutAButtonIsRemovedAlsoForANewToolbar)
{
    const auto& left = host.model.AddToolbar(host.Base().id, L"SubToolbar_7");
    host.model.SetToolbarVisible(left.id, false);
    NewToolbar(L"New");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw", L"New"));
}

TEST_F(Flyout, LeftHiddenIsRemovedAlsoWhereTheHostDeletesVisibleOnesOnly)
{
    host.model.Policies().toolbarRemovalNeedsVisible = true;
    const auto& left = host.model.AddToolbar(host.Base().id, L"SubToolbar_7");
    host.model.SetToolbarVisible(left.id, false);
    NewFlyout(toolbar, L"A");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw", L"SubToolbar"));
    NewToolbar(L"Draw");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw"));
}

TEST_F(Flyout, LeftHiddenOpenedOnlyByAnotherLeftOneIsRemoved)
{
    const auto& outer = host.model.AddToolbar(host.Base().id, L"SubToolbar");
    const auto& inner = host.model.AddToolbar(host.Base().id, L"SubToolbar_2");
    const auto& button = host.model.AddToolbarButton(outer.id, 0L, L"X", L"", L"x", true);
    host.model.AttachFlyout(button.id, host.Base().name, L"SubToolbar_2");
    host.model.SetToolbarVisible(outer.id, false);
    host.model.SetToolbarVisible(inner.id, false);
    NewToolbar(L"Draw");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw"));
}

TEST_F(Flyout, LeftVisibleWithoutAButtonStays)
{
    host.model.AddToolbar(host.Base().id, L"SubToolbar_7");
    NewFlyout(toolbar, L"A");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw", L"SubToolbar_7", L"SubToolbar"));
}

TEST_F(Flyout, LeftOnesStayWhenTheHostDoesNotTellWhatAButtonOpens)
{
    NewFlyout(toolbar, L"A");
    NewToolbar(L"Probe");
    const auto leaveOne = [this] {
        host.model.SetToolbarVisible(host.model.AddToolbar(host.Base().id, L"SubToolbar_9").id, false);
    };
    leaveOne();
    host.automation.KeepLog(true);
    NewToolbar(L"Probe");
    const auto log = host.automation.TakeLog();
    const auto asked = std::find(log.begin(), log.end(), L"ToolbarItem.Flyout get") - log.begin();
    ASSERT_LT(static_cast<size_t>(asked), log.size());
    ASSERT_EQ(nullptr, host.FindToolbar(L"SubToolbar_9"));

    leaveOne();
    host.automation.FailInvoke(static_cast<unsigned>(asked) + 1, {});
    EXPECT_FALSE(FailureOf([&] { NewToolbar(L"Probe"); }));
    EXPECT_NE(nullptr, host.FindToolbar(L"SubToolbar_9"));
    NewToolbar(L"Probe");
    EXPECT_EQ(nullptr, host.FindToolbar(L"SubToolbar_9"));
}

TEST_F(Flyout, WithoutAToolbarToOpenFails)
{
    const auto failure = FailureOf([&] { AddFlyout(toolbar, L"A ", L"A", IAcadToolbar()); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(E_POINTER, failure->status);
    EXPECT_THAT(host.FindToolbar(L"Draw")->items, IsEmpty());
}

TEST_F(Flyout, ThatCannotBeAttachedLeavesNoButtonAndNothingOnTheScreen)
{
    IAcadToolbar flyout = NewToolbar(L"SubToolbar");
    host.automation.KeepLog(true);
    AddFlyout(toolbar, L"A ", L"A", flyout);
    const auto log = host.automation.TakeLog();
    const auto attach = std::find(log.begin(), log.end(), L"ToolbarItem.AttachToolbarToFlyout") - log.begin();
    ASSERT_LT(static_cast<size_t>(attach), log.size());

    IAcadToolbar second = NewToolbar(L"SubToolbar");
    ASSERT_TRUE(host.FindToolbar(L"SubToolbar_2")->visible);
    host.automation.FailInvoke(static_cast<unsigned>(attach) + 1, {});
    EXPECT_TRUE(FailureOf([&] { AddFlyout(toolbar, L"B ", L"B", second); }));
    EXPECT_EQ(1u, host.FindToolbar(L"Draw")->items.size());
    EXPECT_FALSE(host.FindToolbar(L"SubToolbar_2")->visible);

    // The toolbar that was left goes with the next one that is asked for.
    second.ReleaseDispatch();
    NewFlyout(toolbar, L"C");
    EXPECT_THAT(host.ToolbarNames(), ElementsAre(L"Draw", L"SubToolbar", L"SubToolbar_2"));
    EXPECT_EQ(host.FindToolbar(L"SubToolbar_2"), LastItem(L"Draw").flyout);
}

TEST_F(Flyout, ThatCannotBeAttachedLeavesNoButtonOnAHiddenToolbarEither)
{
    host.model.Policies().toolbarEditsNeedVisible = true;
    IAcadToolbar outer = NewFlyout(toolbar, L"A");
    ASSERT_FALSE(host.FindToolbar(L"SubToolbar")->visible);
    IAcadToolbar first = NewToolbar(L"SubToolbar");
    host.automation.KeepLog(true);
    AddFlyout(outer, L"B ", L"B", first);
    const auto log = host.automation.TakeLog();
    const auto attach = std::find(log.begin(), log.end(), L"ToolbarItem.AttachToolbarToFlyout") - log.begin();
    ASSERT_LT(static_cast<size_t>(attach), log.size());
    ASSERT_EQ(2u, host.FindToolbar(L"SubToolbar")->items.size());

    IAcadToolbar second = NewToolbar(L"SubToolbar");
    host.automation.FailInvoke(static_cast<unsigned>(attach) + 1, {});
    EXPECT_TRUE(FailureOf([&] { AddFlyout(outer, L"C ", L"C", second); }));
    EXPECT_EQ(2u, host.FindToolbar(L"SubToolbar")->items.size());
    EXPECT_FALSE(host.FindToolbar(L"SubToolbar")->visible);
    EXPECT_FALSE(host.FindToolbar(L"SubToolbar_3")->visible);
}

} // namespace companiontest
