#include "AutomationFixture.h"
#include "ModelReaction.h"

using namespace hosttest;
using namespace velmhost;

namespace
{

class AutomationToolbars : public AutomationFixture
{
protected:
    static Object AddFlyout(const Object& toolbar)
    {
        return toolbar.Call(L"AddToolbarButton", 99L, L"More", L"help", L"x", true);
    }
    static std::wstring Names(const Object& toolbar)
    {
        std::wstring names;
        const long count = toolbar.Get(L"Count").Number();
        for (long i = 0; i < count; ++i) {
            const Object item = toolbar.Call(L"Item", i);
            EXPECT_EQ(item.Get(L"Index").Number(), i);
            names += names.empty() ? L"" : L" ";
            names += item.Get(L"Type").Number() == 1 ? L"-" : item.Get(L"Name").Text();
        }
        return names;
    }
};

} // namespace

TEST_F(AutomationToolbars, AddedToolbarIsVisibleFloatingAndEmpty)
{
    const Object toolbar = AddToolbar(L"Draw bar");
    EXPECT_EQ(toolbar.Get(L"Name").Text(), L"Draw bar");
    EXPECT_TRUE(toolbar.Get(L"Visible").Flag());
    EXPECT_EQ(toolbar.Get(L"DockStatus").Number(), 4);
    EXPECT_EQ(toolbar.Get(L"Count").Number(), 0);
    EXPECT_EQ(toolbar.Get(L"FloatingRows").Number(), 1);
    EXPECT_EQ(toolbar.Get(L"HelpString").Text(), L"");
    EXPECT_FALSE(toolbar.Get(L"TagString").Text().empty());
    EXPECT_EQ(Object(toolbar.Get(L"Parent")), Toolbars());
    EXPECT_EQ(Object(toolbar.Get(L"Application")), App());
}

TEST_F(AutomationToolbars, ToolbarIsFoundByPositionAndName)
{
    const Object toolbar = AddToolbar(L"Draw");
    EXPECT_EQ(Object(Toolbars().Call(L"Item", 0L)), toolbar);
    EXPECT_EQ(Object(Toolbars().Call(L"Item", L"DRAW")), toolbar);
    ExpectRefused(Toolbars().Call(L"Item", L"Other"), DISP_E_BADINDEX);
    ExpectRefused(Toolbars().Call(L"Item", 1L), DISP_E_BADINDEX);
}

TEST_F(AutomationToolbars, DuplicateAddFollowsThePolicy)
{
    const Object toolbar = AddToolbar(L"A");
    ExpectRefused(Toolbars().Call(L"Add", L"A"), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
    m_model.Policies().duplicateAdd = DuplicateAdd::ReturnExisting;
    EXPECT_EQ(Object(Toolbars().Call(L"Add", L"A")), toolbar);
    m_model.Policies().duplicateAdd = DuplicateAdd::AddSecond;
    EXPECT_FALSE(Object(Toolbars().Call(L"Add", L"A")) == toolbar);
}

TEST_F(AutomationToolbars, LargeButtonsActOnAll)
{
    const Object toolbar = AddToolbar();
    EXPECT_FALSE(Toolbars().Get(L"LargeButtons").Flag());
    EXPECT_FALSE(toolbar.Get(L"LargeButtons").Flag());
    EXPECT_EQ(Toolbars().Put(L"LargeButtons", true).result, S_OK);
    EXPECT_TRUE(Toolbars().Get(L"LargeButtons").Flag());
    EXPECT_TRUE(toolbar.Get(L"LargeButtons").Flag());
}

TEST_F(AutomationToolbars, ToolbarPropertiesAreWritable)
{
    const Object toolbar = AddToolbar();
    toolbar.Put(L"Name", L"New");
    toolbar.Put(L"Visible", false);
    toolbar.Put(L"left", 11L);
    toolbar.Put(L"top", 22L);
    toolbar.Put(L"FloatingRows", 3L);
    toolbar.Put(L"HelpString", L"help");
    EXPECT_EQ(toolbar.Get(L"Name").Text(), L"New");
    EXPECT_FALSE(toolbar.Get(L"Visible").Flag());
    EXPECT_EQ(toolbar.Get(L"Left").Number(), 11);
    EXPECT_EQ(toolbar.Get(L"Top").Number(), 22);
    EXPECT_EQ(toolbar.Get(L"FloatingRows").Number(), 3);
    EXPECT_EQ(toolbar.Get(L"HelpString").Text(), L"help");
    ExpectRefused(toolbar.Put(L"FloatingRows", 0L), E_INVALIDARG);
}

TEST_F(AutomationToolbars, SizeIsWhatTheShellReports)
{
    const Object toolbar = AddToolbar();
    EXPECT_EQ(toolbar.Get(L"Width").Number(), 0);
    m_model.ReportToolbarFrame(m_model.ToolbarAt(m_model.Groups()[0]->id, 0L).id, DockStatus::Top,
                               {1, 2, 300, 40});
    EXPECT_EQ(toolbar.Get(L"Width").Number(), 300);
    EXPECT_EQ(toolbar.Get(L"Height").Number(), 40);
    EXPECT_EQ(toolbar.Get(L"DockStatus").Number(), 0);
}

TEST_F(AutomationToolbars, DockTakesOneOfFourSides)
{
    const Object toolbar = AddToolbar();
    for (long side = 0; side <= 3; ++side) {
        EXPECT_EQ(toolbar.Call(L"Dock", side).result, S_OK);
        EXPECT_EQ(toolbar.Get(L"DockStatus").Number(), side);
    }
    ExpectRefused(toolbar.Call(L"Dock", 4L), E_INVALIDARG);
    ExpectRefused(toolbar.Call(L"Dock", -1L), E_INVALIDARG);
    EXPECT_EQ(toolbar.Call(L"Dock", 0L, 0L, 0L).result, DISP_E_BADPARAMCOUNT);
}

TEST_F(AutomationToolbars, FloatTakesTopLeftRows)
{
    const Object toolbar = AddToolbar();
    toolbar.Call(L"Dock", 2L);
    EXPECT_EQ(toolbar.Call(L"Float", 100L, 200L, 2L).result, S_OK);
    EXPECT_EQ(toolbar.Get(L"DockStatus").Number(), 4);
    EXPECT_EQ(toolbar.Get(L"top").Number(), 100);
    EXPECT_EQ(toolbar.Get(L"left").Number(), 200);
    EXPECT_EQ(toolbar.Get(L"FloatingRows").Number(), 2);
    ExpectRefused(toolbar.Call(L"Float", 0L, 0L, 0L), E_INVALIDARG);
}

TEST_F(AutomationToolbars, AddedButtonHasItsStateAndText)
{
    const Object toolbar = AddToolbar();
    const Object item = toolbar.Call(L"AddToolbarButton", 0L, L"Line", L"Draws", L"\x03_line ");
    EXPECT_EQ(item.Get(L"Name").Text(), L"Line");
    EXPECT_EQ(item.Get(L"HelpString").Text(), L"Draws");
    EXPECT_EQ(item.Get(L"Macro").Text(), L"\x03_line ");
    EXPECT_EQ(item.Get(L"Type").Number(), 0);
    EXPECT_EQ(item.Get(L"Index").Number(), 0);
    EXPECT_FALSE(Object(item.Get(L"Flyout")));
    EXPECT_EQ(item.Get(L"CommandDisplayName").Text(), L"");
    EXPECT_FALSE(item.Get(L"TagString").Text().empty());
    EXPECT_EQ(Object(item.Get(L"Parent")), toolbar);
    EXPECT_EQ(Object(item.Get(L"Application")), App());
}

TEST_F(AutomationToolbars, ButtonPropertiesAreWritable)
{
    const Object item = AddButton(AddToolbar(), L"a");
    item.Put(L"Name", L"New");
    item.Put(L"HelpString", L"help");
    item.Put(L"Macro", L"");
    item.Put(L"TagString", L"T_1");
    item.Put(L"CommandDisplayName", L"shown");
    EXPECT_EQ(item.Get(L"Name").Text(), L"New");
    EXPECT_EQ(item.Get(L"HelpString").Text(), L"help");
    EXPECT_EQ(item.Get(L"Macro").Text(), L"");
    EXPECT_EQ(item.Get(L"TagString").Text(), L"T_1");
    EXPECT_EQ(item.Get(L"CommandDisplayName").Text(), L"shown");
    EXPECT_EQ(item.Put(L"Flyout", L"x").result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(AutomationToolbars, FlyoutArgumentIsOptional)
{
    const Object toolbar = AddToolbar();
    EXPECT_EQ(AddButton(toolbar, L"a").Get(L"Type").Number(), 0);
    const Object missing = toolbar.Call(L"AddToolbarButton", 9L, L"b", L"h", L"m", Missing());
    EXPECT_EQ(missing.Get(L"Type").Number(), 0);
    const Object no = toolbar.Call(L"AddToolbarButton", 9L, L"c", L"h", L"m", false);
    EXPECT_EQ(no.Get(L"Type").Number(), 0);
    EXPECT_EQ(AddFlyout(toolbar).Get(L"Type").Number(), 3);
    EXPECT_EQ(toolbar.Call(L"AddToolbarButton", 9L, L"d", L"h").result, DISP_E_BADPARAMCOUNT);
}

TEST_F(AutomationToolbars, ItemsFollowTheIndexRules)
{
    const Object toolbar = AddToolbar();
    toolbar.Call(L"AddToolbarButton", 0L, L"a", L"h", L"m");
    toolbar.Call(L"AddToolbarButton", L"A", L"b", L"h", L"m");
    toolbar.Call(L"AddToolbarButton", L"?", L"c", L"h", L"m");
    toolbar.Call(L"AddToolbarButton", 50L, L"d", L"h", L"m");
    toolbar.Call(L"AddSeparator", 1L);
    EXPECT_EQ(Names(toolbar), L"b - a c d");
    EXPECT_EQ(Object(toolbar.Call(L"Item", L"C")).Get(L"Index").Number(), 3);
    ExpectRefused(toolbar.Call(L"Item", 5L), DISP_E_BADINDEX);
    ExpectRefused(toolbar.Call(L"AddToolbarButton", -1L, L"x", L"h", L"m"), DISP_E_BADINDEX);
}

TEST_F(AutomationToolbars, SeparatorRuleFollowsThePolicy)
{
    const Object toolbar = AddToolbar();
    ExpectRefused(toolbar.Call(L"AddSeparator", 0L), E_ACCESSDENIED);
    m_model.Policies().separators = SeparatorRule::Lenient;
    const Object separator = toolbar.Call(L"AddSeparator", 0L);
    EXPECT_EQ(separator.Get(L"Type").Number(), 1);
    EXPECT_EQ(separator.Get(L"Name").Text(), L"");
    EXPECT_EQ(separator.Get(L"Macro").Text(), L"");
    ExpectRefused(separator.Put(L"Name", L"x"), E_ACCESSDENIED);
    ExpectRefused(separator.Call(L"SetBitmaps", L"a", L"b"), E_ACCESSDENIED);
}

TEST_F(AutomationToolbars, FlyoutNeedsAMacro)
{
    const Object toolbar = AddToolbar();
    ExpectRefused(toolbar.Call(L"AddToolbarButton", 0L, L"f", L"h", L"", true), E_INVALIDARG);
    EXPECT_EQ(toolbar.Call(L"AddToolbarButton", 0L, L"b", L"h", L"", false).result, S_OK);
}

TEST_F(AutomationToolbars, FlyoutOpensTheAttachedToolbar)
{
    const Object toolbar = AddToolbar(L"Draw"), drop = AddToolbar(L"Drop");
    const Object flyout = AddFlyout(toolbar);
    EXPECT_FALSE(Object(flyout.Get(L"Flyout")));
    EXPECT_EQ(flyout.Call(L"AttachToolbarToFlyout", L"BASE", L"Drop").result, S_OK);
    EXPECT_EQ(Object(flyout.Get(L"Flyout")), drop);
    EXPECT_EQ(drop.Call(L"Delete").result, S_OK);
    EXPECT_FALSE(Object(flyout.Get(L"Flyout")));
}

TEST_F(AutomationToolbars, AttachingFailures)
{
    const Object toolbar = AddToolbar(L"Draw");
    const Object flyout = AddFlyout(toolbar), button = AddButton(toolbar, L"b");
    AddToolbar(L"Drop");
    ExpectRefused(button.Call(L"AttachToolbarToFlyout", L"BASE", L"Drop"), E_ACCESSDENIED);
    ExpectRefused(flyout.Call(L"AttachToolbarToFlyout", L"Drop", L"BASE"), DISP_E_BADINDEX);
    ExpectRefused(flyout.Call(L"AttachToolbarToFlyout", L"BASE", L"None"), DISP_E_BADINDEX);
    ExpectRefused(flyout.Call(L"AttachToolbarToFlyout", L"BASE", L"Draw"), E_INVALIDARG);
}

TEST_F(AutomationToolbars, BitmapNamesAreKeptAndHandedBack)
{
    const Object item = AddButton(AddToolbar(), L"a");
    EXPECT_EQ(item.Call(L"SetBitmaps", L"C:\\none\\s.bmp", L"l.ico").result, S_OK);

    BSTR small = SysAllocString(L"old"), large = nullptr;
    _variant_t bySmall, byLarge;
    bySmall.vt = byLarge.vt = VT_BYREF | VT_BSTR;
    bySmall.pbstrVal = &small;
    byLarge.pbstrVal = &large;
    EXPECT_EQ(item.Call(L"GetBitmaps", bySmall, byLarge).result, S_OK);
    EXPECT_STREQ(small, L"C:\\none\\s.bmp");
    EXPECT_STREQ(large, L"l.ico");
    SysFreeString(small);
    SysFreeString(large);
}

TEST_F(AutomationToolbars, BitmapNamesGoIntoVariantsAsWell)
{
    const Object item = AddButton(AddToolbar(), L"a");
    item.Call(L"SetBitmaps", L"s", L"l");
    _variant_t small(5L), large(L"old"), bySmall, byLarge;
    bySmall.vt = byLarge.vt = VT_BYREF | VT_VARIANT;
    bySmall.pvarVal = &small;
    byLarge.pvarVal = &large;
    EXPECT_EQ(item.Call(L"GetBitmaps", bySmall, byLarge).result, S_OK);
    ASSERT_EQ(small.vt, VT_BSTR);
    ASSERT_EQ(large.vt, VT_BSTR);
    EXPECT_STREQ(small.bstrVal, L"s");
    EXPECT_STREQ(large.bstrVal, L"l");
    EXPECT_EQ(item.Call(L"GetBitmaps", L"a", L"b").result, DISP_E_TYPEMISMATCH);
}

TEST_F(AutomationToolbars, DeletedObjectsFail)
{
    const Object toolbar = AddToolbar();
    const Object a = AddButton(toolbar, L"a"), b = AddButton(toolbar, L"b");
    EXPECT_EQ(a.Call(L"Delete").result, S_OK);
    EXPECT_EQ(Names(toolbar), L"b");
    ExpectRefused(a.Get(L"Name"), RPC_E_DISCONNECTED);
    EXPECT_EQ(toolbar.Call(L"Delete").result, S_OK);
    EXPECT_EQ(Toolbars().Get(L"Count").Number(), 0);
    for (const Outcome& outcome :
         {toolbar.Get(L"Name"), toolbar.Put(L"Visible", true), toolbar.Call(L"Dock", 0L),
          toolbar.Get(L"Count"), toolbar.Call(L"Delete"), toolbar.Get(L"LargeButtons"),
          toolbar.Get(L"Application"), b.Get(L"Macro"), b.Call(L"Delete"), b.Call(L"SetBitmaps", L"", L"")})
        ExpectRefused(outcome, RPC_E_DISCONNECTED);
}

TEST_F(AutomationToolbars, HiddenToolbarRefusesEditsWhenAsked)
{
    m_model.Policies().toolbarEditsNeedVisible = true;
    const Object toolbar = AddToolbar();
    toolbar.Put(L"Visible", false);
    ExpectRefused(toolbar.Call(L"AddToolbarButton", 0L, L"a", L"h", L"m"), E_ACCESSDENIED);
    toolbar.Put(L"Visible", true);
    EXPECT_EQ(toolbar.Call(L"AddToolbarButton", 0L, L"a", L"h", L"m").result, S_OK);
}

TEST_F(AutomationToolbars, ElementThatAnObserverTakesAwayAtOnceIsGone)
{
    const Object toolbars = Toolbars(), toolbar = AddToolbar();
    AddButton(toolbar, L"a");
    const ModelReaction reaction(m_model, TakeAway(m_model));
    ExpectRefused(toolbar.Call(L"AddToolbarButton", 9L, L"b", L"h", L"m"), RPC_E_DISCONNECTED);
    ExpectRefused(toolbar.Call(L"AddSeparator", 9L), RPC_E_DISCONNECTED);
    ExpectRefused(toolbars.Call(L"Add", L"b"), RPC_E_DISCONNECTED);
    EXPECT_EQ(Names(toolbar), L"a");
    EXPECT_EQ(toolbars.Get(L"Count").Number(), 1);
}

TEST_F(AutomationToolbars, HiddenToolbarIsNotDeletedWhenThatIsAsked)
{
    m_model.Policies().toolbarRemovalNeedsVisible = true;
    const Object toolbar = AddToolbar();
    toolbar.Put(L"Visible", false);
    ExpectRefused(toolbar.Call(L"Delete"), E_ACCESSDENIED);
    EXPECT_EQ(toolbar.Get(L"Name").Text(), L"Draw");
    toolbar.Put(L"Visible", true);
    EXPECT_EQ(toolbar.Call(L"Delete").result, S_OK);
}
