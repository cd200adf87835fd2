#include "ComboListTest.h"

#include "kit/Pump.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

class ComboListScroll : public ComboListTest
{
protected:
    void Scroll(int code, int position = 0)
    {
        m_combo->SendMessage(WM_VSCROLL, MAKEWPARAM(code, position), reinterpret_cast<LPARAM>(Bar()));
    }
};

// The pointer over the window, and the timer's message by hand.
class ComboListHotTrack : public ComboListTest
{
protected:
    void TickAt(CPoint client, UINT_PTR timer = 1)
    {
        m_combo->ClientToScreen(&client);
        ASSERT_TRUE(SetCursorPos(client.x, client.y));
        m_combo->SendMessage(WM_TIMER, timer);
    }
};

enum class Way
{
    Destroy,
    Delete
};

// An opener that takes the list away in the middle of its own message.
class ComboListTakenAway : public ComboListTest, public testing::WithParamInterface<Way>
{
protected:
    void SetUp() override
    {
        ComboListTest::SetUp();
        Open(5);
        m_combo->SetActive(BarWidth);
        m_window = m_combo->m_hWnd;
        m_opener.told.clear();
        m_opener.react = [this] {
            if (GetParam() == Way::Destroy)
                m_combo->DestroyWindow();
            else
                m_combo.reset();
        };
    }

    void ExpectGone(const char* message)
    {
        EXPECT_THAT(m_opener.told, ElementsAre(message));
        EXPECT_FALSE(::IsWindow(m_window));
    }

    HWND m_window = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Ways, ComboListTakenAway, testing::Values(Way::Destroy, Way::Delete),
                         [](const auto& way) { return way.param == Way::Destroy ? "Destroy" : "Delete"; });

} // namespace

TEST_F(ComboListScroll, MovesTheBarByTheCode)
{
    struct Move
    {
        int code;
        int argument;
        int from;
        int position; // as worked out, before it is brought into the range
    };
    OpenActive(30, 5, 0);
    for (const Move& move : std::initializer_list<Move>{{SB_LINEUP, 0, 10, 9},
                                                        {SB_LINEUP, 0, 0, -1},
                                                        {SB_LINEDOWN, 0, 10, 11},
                                                        {SB_LINEDOWN, 0, 26, 27},
                                                        {SB_PAGEUP, 0, 10, 5},
                                                        {SB_PAGEUP, 0, 3, -2},
                                                        {SB_PAGEDOWN, 0, 10, 15},
                                                        {SB_PAGEDOWN, 0, 24, 29},
                                                        {SB_THUMBPOSITION, 18, 10, 18},
                                                        {SB_THUMBPOSITION, 500, 10, 500},
                                                        {SB_THUMBTRACK, 4, 10, 4},
                                                        {SB_TOP, 0, 10, 0},
                                                        {SB_BOTTOM, 0, 10, 30},
                                                        {SB_ENDSCROLL, 0, 10, 10},
                                                        {77, 3, 10, 10}})
    {
        MoveBar(move.from);
        Scroll(move.code, move.argument);
        EXPECT_EQ(BarPosition(), Reachable(move.position)) << "code " << move.code << " from " << move.from;
    }
    EXPECT_THAT(m_opener.told, IsEmpty());
}

TEST_F(ComboListScroll, BottomIsTheMaximum)
{
    OpenActive(30, 1, 0);
    Scroll(SB_BOTTOM);
    EXPECT_EQ(BarPosition(), 30);
    Scroll(SB_LINEDOWN);
    EXPECT_EQ(BarPosition(), 30);
    Scroll(SB_THUMBTRACK, 31);
    EXPECT_EQ(BarPosition(), 30);
}

TEST_F(ComboListScroll, EveryMessageIsPassedOnToTheListAsItIs)
{
    OpenActive(30, 5, 0);
    for (const int code : {SB_LINEDOWN, SB_THUMBTRACK, SB_ENDSCROLL, 77}) {
        const SentMessages scrolls(WM_VSCROLL);
        Scroll(code, 12);
        ASSERT_THAT(scrolls.To(List()), SizeIs(1)) << code;
        EXPECT_EQ(scrolls.To(List())[0].wParam, static_cast<WPARAM>(MAKEWPARAM(code, 12)));
        EXPECT_EQ(scrolls.To(List())[0].lParam, reinterpret_cast<LPARAM>(Bar()));
    }
}

TEST_F(ComboListScroll, MovesTheListToo)
{
    OpenActive(30, 5, 0);
    Scroll(SB_LINEDOWN);
    Scroll(SB_LINEDOWN);
    EXPECT_EQ(TopItem(), 2);
    Scroll(SB_LINEUP);
    EXPECT_EQ(TopItem(), 1);
    EXPECT_EQ(Selection(), 0);
}

TEST_F(ComboListScroll, WithoutListLeavesTheBar)
{
    OpenActive(30, 5, 7);
    m_combo->m_ListBox.DestroyWindow();
    Scroll(SB_LINEDOWN);
    Scroll(SB_BOTTOM);
    EXPECT_EQ(BarPosition(), 7);
}

TEST_F(ComboListHotTrack, SelectsTheItemUnderThePointer)
{
    OpenActive(30, 5, 0);
    for (const int item : {3, 1, 4, 0}) {
        TickAt({30, item * ItemHeight() + ItemHeight() / 2});
        EXPECT_EQ(Selection(), item);
    }
    EXPECT_THAT(m_opener.told, IsEmpty());
}

// The window's coordinates serve as the list's, which lies one pixel lower and further to the right.
TEST_F(ComboListHotTrack, AsksByTheWindowsCoordinates)
{
    OpenActive(30, 5, 0);
    TickAt({30, 2 * ItemHeight()});
    EXPECT_EQ(Selection(), 2);
    TickAt({30, 2 * ItemHeight() - 1});
    EXPECT_EQ(Selection(), 1);
    TickAt({0, 0});
    EXPECT_EQ(Selection(), 0);
}

TEST_F(ComboListHotTrack, CountsFromTheTopItem)
{
    OpenActive(30, 5, 11);
    ASSERT_EQ(TopItem(), 10);
    TickAt({30, 2 * ItemHeight() + 3});
    EXPECT_EQ(Selection(), 12);
}

TEST_F(ComboListHotTrack, OutsideTheListChangesNothing)
{
    OpenActive(30, 5, 2);
    CRect list;
    m_combo->m_ListBox.GetClientRect(&list);
    for (const CPoint point : {CPoint(list.right, 5), CPoint(list.right + 5, 5), CPoint(30, list.bottom),
                               CPoint(-1, 5), CPoint(30, -1), CPoint(30, list.bottom + 90)})
    {
        TickAt(point);
        EXPECT_EQ(Selection(), 2) << point.x << ", " << point.y;
    }
    TickAt({list.right - 1, list.bottom - 1});
    EXPECT_NE(Selection(), 2) << "the last pixel is inside";
}

TEST_F(ComboListHotTrack, SelectedItemIsNotSelectedAgain)
{
    OpenActive(30, 5, 0);
    const SentMessages selections(LB_SETCURSEL);
    TickAt({30, ItemHeight() + 3});
    EXPECT_THAT(selections.To(List()), SizeIs(1));
    TickAt({33, ItemHeight() + 4});
    EXPECT_THAT(selections.To(List()), SizeIs(1));
}

TEST_F(ComboListHotTrack, EmptyListSelectsNothing)
{
    OpenActive(0, 5, -1);
    const SentMessages selections(LB_SETCURSEL);
    TickAt({30, 5});
    EXPECT_THAT(selections.To(List()), IsEmpty());
    EXPECT_EQ(Selection(), -1);
}

TEST_F(ComboListHotTrack, TimerOfAnyNumberCounts)
{
    OpenActive(30, 5, 0);
    TickAt({30, 3 * ItemHeight() + 3}, 77);
    EXPECT_EQ(Selection(), 3);
}

TEST_F(ComboListHotTrack, WithoutListDoesNothing)
{
    OpenActive(30, 5, 0);
    const int itemHeight = ItemHeight();
    m_combo->m_ListBox.DestroyWindow();
    const SentMessages selections(LB_SETCURSEL);
    TickAt({30, itemHeight + 3});
    EXPECT_THAT(selections.To(List()), IsEmpty());
}

TEST_F(ComboListHotTrack, ItsTimerIsNumberOneAndRunsFromTheFirstActivation)
{
    Open(5);
    EXPECT_FALSE(m_combo->KillTimer(1));
    m_combo->SetActive(BarWidth);
    CPoint point(30, 3 * ItemHeight() + 3);
    m_combo->ClientToScreen(&point);
    SetCursorPos(point.x, point.y);
    EXPECT_TRUE(testkit::PumpUntil([&] { return Selection() == 3; }));
    EXPECT_TRUE(m_combo->KillTimer(1));
}

TEST_P(ComboListTakenAway, InReturn)
{
    EXPECT_FALSE(Key(VK_RETURN));
    ExpectGone("return");
}

TEST_P(ComboListTakenAway, InEscape)
{
    EXPECT_FALSE(Key(VK_ESCAPE));
    ExpectGone("escape");
}

TEST_P(ComboListTakenAway, InAMove)
{
    EXPECT_FALSE(Key(VK_DOWN));
    ExpectGone("key");
}

TEST_P(ComboListTakenAway, InALetter)
{
    EXPECT_FALSE(Key('I'));
    ExpectGone("key");
}

TEST_P(ComboListTakenAway, InAButtonRelease)
{
    EXPECT_FALSE(PreTranslate(WM_LBUTTONUP, 0));
    ExpectGone("button");
}

TEST_P(ComboListTakenAway, InAButtonPress)
{
    ::SendMessageW(m_window, WM_LBUTTONDOWN, MK_LBUTTON, 0);
    ExpectGone("button");
}

TEST_P(ComboListTakenAway, InALossOfFocus)
{
    m_combo->m_nKillFocusCount = 2;
    ::SendMessageW(m_window, WM_KILLFOCUS, 0, 0);
    ExpectGone("escape");
}

TEST_P(ComboListTakenAway, InAnActivation)
{
    m_opener.SetFocus();
    m_combo->m_bFirstActivation = TRUE;
    m_combo->KillTimer(1);
    m_opener.reactToLostFocus = m_opener.react;
    m_combo->SetActive(BarWidth);
    EXPECT_FALSE(::IsWindow(m_window));
    if (GetParam() == Way::Destroy)
        EXPECT_EQ(m_combo->m_bFirstActivation, TRUE) << "not laid out without a window";
    else
        EXPECT_EQ(m_combo, nullptr);
}

TEST_P(ComboListTakenAway, InTheProgramsMessageLoop)
{
    for (const WPARAM key : {WPARAM{VK_RETURN}, WPARAM{VK_DOWN}})
        ::PostMessageW(List(), WM_KEYDOWN, key, 0);
    testkit::PumpPending();
    ExpectGone("return");
}
