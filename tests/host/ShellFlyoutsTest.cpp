// Fly-outs: opening, nesting, sending, closing.
#include "ShellFixture.h"

#include "kit/Input.h"
#include "kit/Picture.h"
#include "kit/Pump.h"

namespace hosttest
{

using namespace velmhost;

class ShellFlyouts : public ShellFixture
{
protected:
    ShellFlyouts()
    {
        m_inner = AddToolbar(L"Inner");
        m_innerButton = AddButton(m_inner, L"Deep", L"deep ");
        m_outer = AddToolbar(L"Outer");
        m_outerButton = AddButton(m_outer, L"Mid", L"mid ", L"In the middle");
        m_innerFlyout = AddFlyout(m_outer, L"Nested", m_inner);
        m_bar = AddToolbar(L"Bar");
        m_plain = AddButton(m_bar, L"Plain", L"plain ");
        m_flyout = AddFlyout(m_bar, L"Fly", m_outer);
        Show();
    }
    CFlyoutStack& Flyouts() { return Frame().Toolbars().Flyouts(); }
    void OpenOuter() { Click(Pane(m_bar), m_flyout); }
    void OpenInner()
    {
        OpenOuter();
        ASSERT_EQ(Flyouts().Count(), 1u);
        Click(*Flyouts().At(0), m_innerFlyout);
    }

    ElementId m_bar, m_plain, m_flyout, m_outer, m_outerButton, m_innerFlyout, m_inner, m_innerButton;
};

TEST_F(ShellFlyouts, AttachedToolbarsDoNotShowByThemselves)
{
    EXPECT_EQ(Frame().Toolbars().FindPane(m_outer), nullptr);
    EXPECT_TRUE(Flyouts().IsEmpty());
}

TEST_F(ShellFlyouts, ClickOpensTheToolbarBeneathTheButton)
{
    OpenOuter();
    ASSERT_EQ(Flyouts().Count(), 1u);
    CToolbarPane& flyout = *Flyouts().At(0);
    EXPECT_TRUE(flyout.IsWindowVisible());
    EXPECT_EQ(flyout.ToolbarId(), m_outer);
    EXPECT_EQ(flyout.ItemCount(), 2);
    CRect rect;
    flyout.GetWindowRect(&rect);
    const CRect button = Pane(m_bar).ButtonRect(1);
    EXPECT_EQ(rect.left, button.left);
    EXPECT_EQ(rect.top, button.bottom);
    EXPECT_TRUE(Sent().empty());
}

TEST_F(ShellFlyouts, ButtonInsideSendsAndCloses)
{
    OpenOuter();
    ASSERT_EQ(Flyouts().Count(), 1u);
    Click(*Flyouts().At(0), m_outerButton);
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"mid "});
    EXPECT_TRUE(Flyouts().IsEmpty());
}

TEST_F(ShellFlyouts, HelpOfAButtonInsideIsShown)
{
    OpenOuter();
    ASSERT_EQ(Flyouts().Count(), 1u);
    testkit::Mouse::MoveTo(ButtonPoint(*Flyouts().At(0), m_outerButton));
    EXPECT_TRUE(testkit::PumpUntil([this] { return Frame().StatusText() == L"In the middle"; }));
}

TEST_F(ShellFlyouts, NestedFlyoutOpensFurtherAndSends)
{
    OpenInner();
    ASSERT_EQ(Flyouts().Count(), 2u);
    EXPECT_EQ(Flyouts().At(1)->ToolbarId(), m_inner);
    Click(*Flyouts().At(1), m_innerButton);
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"deep "});
    EXPECT_TRUE(Flyouts().IsEmpty());
}

TEST_F(ShellFlyouts, EscapeClosesTheInnermost)
{
    OpenInner();
    ASSERT_EQ(Flyouts().Count(), 2u);
    testkit::Keyboard::Press(VK_ESCAPE);
    EXPECT_EQ(Flyouts().Count(), 1u);
    testkit::Keyboard::Press(VK_ESCAPE);
    EXPECT_EQ(Flyouts().Count(), 0u);
    EXPECT_TRUE(Sent().empty());
}

TEST_F(ShellFlyouts, SecondClickOnTheButtonCloses)
{
    OpenOuter();
    ASSERT_EQ(Flyouts().Count(), 1u);
    OpenOuter();
    EXPECT_TRUE(Flyouts().IsEmpty());
    OpenOuter();
    EXPECT_EQ(Flyouts().Count(), 1u);
}

TEST_F(ShellFlyouts, ClickElsewhereClosesAll)
{
    OpenInner();
    ASSERT_EQ(Flyouts().Count(), 2u);
    testkit::Mouse::Click(testkit::MiddleOf(Frame().CommandPane().EditControl()));
    testkit::PumpPending();
    EXPECT_TRUE(Flyouts().IsEmpty());
    EXPECT_TRUE(Sent().empty());
}

TEST_F(ShellFlyouts, ClickInAnOuterFlyoutClosesTheInner)
{
    OpenInner();
    ASSERT_EQ(Flyouts().Count(), 2u);
    Click(*Flyouts().At(0), m_innerFlyout);
    EXPECT_EQ(Flyouts().Count(), 1u);
}

TEST_F(ShellFlyouts, ClickOnAPlainButtonClosesAndSends)
{
    OpenOuter();
    Click(Pane(m_bar), m_plain);
    EXPECT_TRUE(Flyouts().IsEmpty());
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"plain "});
}

TEST_F(ShellFlyouts, OpenFlyoutGoesWithItsToolbarOrButton)
{
    OpenInner();
    ASSERT_EQ(Flyouts().Count(), 2u);
    Model().RemoveToolbar(m_inner);
    Show();
    ASSERT_EQ(Flyouts().Count(), 1u);
    Model().RemoveToolbarItem(m_flyout);
    Show();
    EXPECT_TRUE(Flyouts().IsEmpty());
}

TEST_F(ShellFlyouts, OpenFlyoutGoesWithTheBarItCameFrom)
{
    OpenInner();
    Model().RemoveToolbar(m_bar);
    Show();
    EXPECT_TRUE(Flyouts().IsEmpty());
}

TEST_F(ShellFlyouts, OpenFlyoutFollowsItsToolbar)
{
    OpenOuter();
    ASSERT_EQ(Flyouts().Count(), 1u);
    const ElementId added = AddButton(m_outer, L"Added", L"added ");
    Show();
    EXPECT_EQ(Flyouts().At(0)->ItemCount(), 3);
    Click(*Flyouts().At(0), added);
    EXPECT_EQ(Sent(), std::vector<std::wstring>{L"added "});
}

TEST_F(ShellFlyouts, ButtonRemovedWhileItsFlyoutIsOpenSendsNothing)
{
    OpenOuter();
    ASSERT_EQ(Flyouts().Count(), 1u);
    const CPoint at = ButtonPoint(*Flyouts().At(0), m_outerButton);
    testkit::Mouse::Down(at);
    Model().RemoveToolbar(m_outer);
    testkit::Mouse::Up(at);
    testkit::PumpPending();
    EXPECT_TRUE(Sent().empty());
    Show();
    EXPECT_TRUE(Flyouts().IsEmpty());
}

TEST_F(ShellFlyouts, FlyoutWithoutAToolbarOpensNothing)
{
    const ElementId empty = Model().AddToolbarButton(m_bar, kAtEnd, L"Empty", L"", L"unused", true).id;
    Show();
    Click(Pane(m_bar), empty);
    EXPECT_TRUE(Flyouts().IsEmpty());
    EXPECT_TRUE(Sent().empty());
}

TEST_F(ShellFlyouts, MarkInTheCornerTellsAFlyout)
{
    const auto cornerPixels = [this](ElementId item) {
        CToolbarPane& pane = Pane(m_bar);
        CRect box = pane.ButtonRect(pane.PositionOf(item));
        pane.ScreenToClient(&box);
        box.DeflateRect(3, 3);
        box.left = box.right - 5;
        box.top = box.bottom - 5;
        ::RedrawWindow(pane.Control(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        pane.MapWindowPoints(CWnd::FromHandle(pane.Control()), &box);
        const HDC dc = ::GetDC(pane.Control());
        const testkit::Picture picture = testkit::Picture::OfDc(dc, box);
        ::ReleaseDC(pane.Control(), dc);
        return picture.Count(::GetSysColor(COLOR_BTNTEXT));
    };
    // A right-angled triangle of side 5.
    EXPECT_EQ(cornerPixels(m_flyout), 15);
    EXPECT_EQ(cornerPixels(m_plain), 0);
}

TEST_F(ShellFlyouts, OpeningAMenuClosesFlyouts)
{
    AddItem(AddBarMenu(L"Tools"), L"Line");
    Show();
    OpenOuter();
    ASSERT_EQ(Flyouts().Count(), 1u);
    EXPECT_TRUE(RunSteps({{StepKind::PressItem, L"Tools|Line"}}));
    EXPECT_TRUE(Flyouts().IsEmpty());
}

} // namespace hosttest
