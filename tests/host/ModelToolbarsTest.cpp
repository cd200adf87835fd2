#include "ModelFixture.h"

using namespace hosttest;
using namespace velmhost;

namespace
{

using ModelToolbars = ModelFixture;

}

TEST_F(ModelToolbars, NewToolbarIsVisibleFloatingAndEmpty)
{
    const Toolbar& toolbar = m_model.AddToolbar(Base(), L"Draw");
    EXPECT_EQ(toolbar.name, L"Draw");
    EXPECT_TRUE(toolbar.visible);
    EXPECT_EQ(toolbar.dock, DockStatus::Floating);
    EXPECT_EQ(toolbar.floatingRows, 1);
    EXPECT_TRUE(toolbar.items.empty());
}

TEST_F(ModelToolbars, DuplicateToolbarFollowsThePolicy)
{
    const ElementId first = AddToolbar(L"Draw");
    EXPECT_EQ(ReasonOf([&] { AddToolbar(L"DRAW"); }), Refusal::Duplicate);
    m_model.Policies().duplicateAdd = DuplicateAdd::ReturnExisting;
    EXPECT_EQ(AddToolbar(L"Draw"), first);
    EXPECT_EQ(m_model.Groups()[0]->toolbars.size(), 1u);
    m_model.Policies().duplicateAdd = DuplicateAdd::AddSecond;
    EXPECT_NE(AddToolbar(L"Draw"), first);
    EXPECT_EQ(m_model.Groups()[0]->toolbars.size(), 2u);
}

TEST_F(ModelToolbars, RenamingToATakenNameIsRefused)
{
    AddToolbar(L"One");
    const ElementId two = AddToolbar(L"Two");
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarName(two, L"ONE"); }), Refusal::Duplicate);
    m_model.Policies().duplicateAdd = DuplicateAdd::AddSecond;
    m_model.SetToolbarName(two, L"ONE");
    EXPECT_EQ(m_model.FindToolbar(two)->name, L"ONE");
}

TEST_F(ModelToolbars, ButtonKeepsItsTextVerbatim)
{
    const std::wstring macro = L"\x1B\x03_circle ";
    const ToolbarItem& item =
        m_model.AddToolbarButton(AddToolbar(), kAtEnd, L"Name \x00e9", L"Help", macro, false);
    EXPECT_EQ(item.type, ToolbarItemType::Button);
    EXPECT_EQ(item.name, L"Name \x00e9");
    EXPECT_EQ(item.help, L"Help");
    EXPECT_EQ(item.macro, macro);
    EXPECT_EQ(item.smallBitmap, L"");
    EXPECT_EQ(item.largeBitmap, L"");
    EXPECT_EQ(item.flyout, nullptr);
}

TEST_F(ModelToolbars, ButtonsFollowTheIndexRules)
{
    const ElementId toolbar = AddToolbar();
    AddButton(toolbar, L"a", 0L);
    AddButton(toolbar, L"b", 0L);
    AddButton(toolbar, L"c", L"A");
    AddButton(toolbar, L"d", L"nothing");
    AddButton(toolbar, L"e", 99L);
    EXPECT_EQ(ButtonNames(toolbar), L"b c a d e");
    EXPECT_EQ(ReasonOf([&] { AddButton(toolbar, L"f", -2L); }), Refusal::NotFound);
    EXPECT_EQ(m_model.ToolbarItemAt(toolbar, L"D").name, L"d");
    EXPECT_EQ(ReasonOf([&] { m_model.ToolbarItemAt(toolbar, 5L); }), Refusal::NotFound);
    EXPECT_EQ(HostModel::PositionOf(m_model.ToolbarItemAt(toolbar, L"a")), 2);
}

TEST_F(ModelToolbars, StrictSeparatorIsNeitherFirstNorDoubled)
{
    const ElementId toolbar = AddToolbar();
    EXPECT_EQ(ReasonOf([&] { m_model.AddToolbarSeparator(toolbar, kAtEnd); }), Refusal::NotAllowed);
    AddButton(toolbar, L"a");
    m_model.AddToolbarSeparator(toolbar, kAtEnd);
    EXPECT_EQ(ReasonOf([&] { m_model.AddToolbarSeparator(toolbar, kAtEnd); }), Refusal::NotAllowed);
    EXPECT_EQ(ButtonNames(toolbar), L"a -");
    m_model.Policies().separators = SeparatorRule::Lenient;
    m_model.AddToolbarSeparator(toolbar, 0L);
    EXPECT_EQ(ButtonNames(toolbar), L"- a -");
}

TEST_F(ModelToolbars, SeparatorHasNeitherTextNorImages)
{
    const ElementId toolbar = AddToolbar();
    AddButton(toolbar, L"a");
    const ElementId separator = m_model.AddToolbarSeparator(toolbar, kAtEnd).id;
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarItemName(separator, L"x"); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarItemMacro(separator, L"x"); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarItemHelp(separator, L"x"); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarItemBitmaps(separator, L"x", L"y"); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarItemCommandDisplayName(separator, L"x"); }),
              Refusal::NotAllowed);
}

TEST_F(ModelToolbars, FlyoutNeedsAMacro)
{
    const ElementId toolbar = AddToolbar();
    EXPECT_EQ(ReasonOf([&] { m_model.AddToolbarButton(toolbar, kAtEnd, L"f", L"", L"", true); }),
              Refusal::Invalid);
    const ToolbarItem& item = m_model.AddToolbarButton(toolbar, kAtEnd, L"f", L"", L"x", true);
    EXPECT_EQ(item.type, ToolbarItemType::Flyout);
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarItemMacro(item.id, L""); }), Refusal::Invalid);
    EXPECT_EQ(item.macro, L"x");
}

TEST_F(ModelToolbars, PlainButtonMayHaveAnEmptyMacro)
{
    EXPECT_EQ(m_model.AddToolbarButton(AddToolbar(), kAtEnd, L"b", L"", L"", false).macro, L"");
}

TEST_F(ModelToolbars, FlyoutOpensTheToolbarNamed)
{
    const ElementId toolbar = AddToolbar(L"Draw"), drop = AddToolbar(L"Drop");
    const ToolbarItem& item = m_model.AddToolbarButton(toolbar, kAtEnd, L"f", L"", L"x", true);
    m_model.AttachFlyout(item.id, L"base", L"drop");
    EXPECT_EQ(item.flyout, m_model.FindToolbar(drop));
}

TEST_F(ModelToolbars, AttachingNeedsAFlyoutAndAToolbarThatExists)
{
    const ElementId toolbar = AddToolbar(L"Draw");
    AddToolbar(L"Drop");
    const ElementId button = AddButton(toolbar, L"b");
    const ElementId flyout = m_model.AddToolbarButton(toolbar, kAtEnd, L"f", L"", L"x", true).id;
    EXPECT_EQ(ReasonOf([&] { m_model.AttachFlyout(button, L"BASE", L"Drop"); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.AttachFlyout(flyout, L"OTHER", L"Drop"); }), Refusal::NotFound);
    EXPECT_EQ(ReasonOf([&] { m_model.AttachFlyout(flyout, L"BASE", L"Other"); }), Refusal::NotFound);
    EXPECT_EQ(ReasonOf([&] { m_model.AttachFlyout(flyout, L"BASE", L"Draw"); }), Refusal::Invalid);
}

TEST_F(ModelToolbars, RemovedToolbarLeavesItsFlyoutsWithNone)
{
    const ElementId toolbar = AddToolbar(L"Draw"), drop = AddToolbar(L"Drop");
    const ToolbarItem& item = m_model.AddToolbarButton(toolbar, kAtEnd, L"f", L"", L"x", true);
    m_model.AttachFlyout(item.id, L"BASE", L"Drop");
    m_model.RemoveToolbar(drop);
    EXPECT_EQ(item.flyout, nullptr);
    EXPECT_EQ(m_model.FindToolbar(drop), nullptr);
}

TEST_F(ModelToolbars, RemovedGroupLeavesFlyoutsOfOthersWithNone)
{
    const ElementId extra = m_model.AddGroup(L"EXTRA", MenuGroupType::Partial, L"").id;
    m_model.AddToolbar(extra, L"Drop");
    const ToolbarItem& item = m_model.AddToolbarButton(AddToolbar(), kAtEnd, L"f", L"", L"x", true);
    m_model.AttachFlyout(item.id, L"EXTRA", L"Drop");
    m_model.RemoveGroup(extra);
    EXPECT_EQ(item.flyout, nullptr);
}

TEST_F(ModelToolbars, DocksAtFourSidesOnly)
{
    const ElementId toolbar = AddToolbar();
    for (DockStatus side : {DockStatus::Bottom, DockStatus::Left, DockStatus::Right, DockStatus::Top}) {
        m_model.DockToolbar(toolbar, side);
        EXPECT_EQ(m_model.FindToolbar(toolbar)->dock, side);
    }
    EXPECT_EQ(ReasonOf([&] { m_model.DockToolbar(toolbar, DockStatus::Floating); }), Refusal::Invalid);
    EXPECT_EQ(ReasonOf([&] { m_model.DockToolbar(toolbar, static_cast<DockStatus>(-1)); }), Refusal::Invalid);
    EXPECT_EQ(m_model.FindToolbar(toolbar)->dock, DockStatus::Top);
}

TEST_F(ModelToolbars, FloatTakesPlaceAndRows)
{
    const ElementId toolbar = AddToolbar();
    m_model.DockToolbar(toolbar, DockStatus::Left);
    m_model.FloatToolbar(toolbar, 20, 30, 2);
    const Toolbar& floating = *m_model.FindToolbar(toolbar);
    EXPECT_EQ(floating.dock, DockStatus::Floating);
    EXPECT_EQ(floating.frame.top, 20);
    EXPECT_EQ(floating.frame.left, 30);
    EXPECT_EQ(floating.floatingRows, 2);
    EXPECT_EQ(ReasonOf([&] { m_model.FloatToolbar(toolbar, 0, 0, 0); }), Refusal::Invalid);
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarRows(toolbar, 0); }), Refusal::Invalid);
}

TEST_F(ModelToolbars, HiddenToolbarRefusesEditsOnlyWhenAsked)
{
    const ElementId toolbar = AddToolbar();
    const ElementId button = AddButton(toolbar, L"a");
    m_model.SetToolbarVisible(toolbar, false);
    AddButton(toolbar, L"b");
    m_model.Policies().toolbarEditsNeedVisible = true;
    EXPECT_EQ(ReasonOf([&] { AddButton(toolbar, L"c"); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.AddToolbarSeparator(toolbar, kAtEnd); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.RemoveToolbarItem(button); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.DockToolbar(toolbar, DockStatus::Top); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarPosition(toolbar, 1, 1); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.FloatToolbar(toolbar, 1, 1, 2); }), Refusal::NotAllowed);
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarRows(toolbar, 2); }), Refusal::NotAllowed);
    EXPECT_EQ(ButtonNames(toolbar), L"a b");
    m_model.SetToolbarVisible(toolbar, true);
    AddButton(toolbar, L"c");
    EXPECT_EQ(ButtonNames(toolbar), L"a b c");
}

TEST_F(ModelToolbars, ReportedFrameIsReadBack)
{
    const ElementId toolbar = AddToolbar();
    m_model.ReportToolbarFrame(toolbar, DockStatus::Bottom, {1, 2, 3, 4});
    const Toolbar& shown = *m_model.FindToolbar(toolbar);
    EXPECT_EQ(shown.dock, DockStatus::Bottom);
    EXPECT_EQ(shown.frame.left, 1);
    EXPECT_EQ(shown.frame.top, 2);
    EXPECT_EQ(shown.frame.width, 3);
    EXPECT_EQ(shown.frame.height, 4);
}

TEST_F(ModelToolbars, ButtonTagsAreUniqueInTheirToolbar)
{
    const ElementId toolbar = AddToolbar(L"One"), other = AddToolbar(L"Two");
    const ElementId a = AddButton(toolbar, L"a"), b = AddButton(toolbar, L"b"), c = AddButton(other, L"c");
    m_model.SetToolbarItemTag(a, L"mine");
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarItemTag(b, L"MINE"); }), Refusal::Duplicate);
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarItemTag(b, L"a b"); }), Refusal::Invalid);
    m_model.SetToolbarItemTag(c, L"mine");
    EXPECT_EQ(m_model.FindToolbarItem(c)->tag, L"mine");
}

TEST_F(ModelToolbars, GivenTagAvoidsOneThatAClientChose)
{
    const ElementId toolbar = AddToolbar();
    const ElementId first = AddButton(toolbar, L"a");
    m_model.SetToolbarItemTag(first, L"ID_" + std::to_wstring(first + 1));
    const ElementId second = AddButton(toolbar, L"b");
    ASSERT_EQ(second, first + 1);
    EXPECT_NE(m_model.FindToolbarItem(second)->tag, m_model.FindToolbarItem(first)->tag);
}

TEST_F(ModelToolbars, HiddenToolbarIsNotRemovedWhenThatIsAsked)
{
    const ElementId first = AddToolbar(L"One"), second = AddToolbar(L"Two");
    m_model.SetToolbarVisible(first, false);
    m_model.SetToolbarVisible(second, false);
    m_model.RemoveToolbar(first);
    EXPECT_EQ(m_model.FindToolbar(first), nullptr);
    m_model.Policies().toolbarRemovalNeedsVisible = true;
    EXPECT_EQ(ReasonOf([&] { m_model.RemoveToolbar(second); }), Refusal::NotAllowed);
    ASSERT_NE(m_model.FindToolbar(second), nullptr);
    m_model.SetToolbarVisible(second, true);
    m_model.RemoveToolbar(second);
    EXPECT_EQ(m_model.FindToolbar(second), nullptr);
}

TEST_F(ModelToolbars, HiddenToolbarGoesWithItsGroupEvenSo)
{
    m_model.Policies().toolbarRemovalNeedsVisible = true;
    const ElementId toolbar = AddToolbar();
    m_model.SetToolbarVisible(toolbar, false);
    m_model.RemoveGroup(Base());
    EXPECT_EQ(m_model.FindToolbar(toolbar), nullptr);
}

TEST_F(ModelToolbars, EmptyMacroIsRefusedOnlyWhenAsked)
{
    const ElementId toolbar = AddToolbar();
    const ElementId button = m_model.AddToolbarButton(toolbar, kAtEnd, L"a", L"", L"", false).id;
    m_model.Policies().macrosNeedText = true;
    EXPECT_EQ(ReasonOf([&] { m_model.AddToolbarButton(toolbar, kAtEnd, L"b", L"", L"", false); }),
              Refusal::Invalid);
    m_model.SetToolbarItemMacro(button, L"m");
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarItemMacro(button, L""); }), Refusal::Invalid);
    EXPECT_EQ(m_model.FindToolbarItem(button)->macro, L"m");
    m_model.AddToolbarSeparator(toolbar, kAtEnd);
    EXPECT_EQ(ButtonNames(toolbar), L"a -");
}

TEST_F(ModelToolbars, EmptyNameOfAButtonIsRefusedOnlyWhenAsked)
{
    const ElementId toolbar = AddToolbar();
    const ElementId button = AddButton(toolbar, L"");
    m_model.Policies().labelsNeedText = true;
    EXPECT_EQ(ReasonOf([&] { AddButton(toolbar, L""); }), Refusal::Invalid);
    EXPECT_EQ(ReasonOf([&] { m_model.AddToolbarButton(toolbar, kAtEnd, L"", L"", L"x", true); }),
              Refusal::Invalid);
    m_model.SetToolbarItemName(button, L"a");
    EXPECT_EQ(ReasonOf([&] { m_model.SetToolbarItemName(button, L""); }), Refusal::Invalid);
    m_model.AddToolbarSeparator(toolbar, kAtEnd);
    EXPECT_EQ(ButtonNames(toolbar), L"a -");
    EXPECT_EQ(m_model.FindToolbar(AddToolbar(L""))->name, L"");
}
