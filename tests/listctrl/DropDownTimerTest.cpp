// The life of an open drop-down list: what it tells the control, and the timers that this starts.
#include "InputTest.h"

#include "kit/ImportTable.h"

namespace
{

class DropDownTimer : public InputTest
{
protected:
    void SetUp() override
    {
        InputTest::SetUp();
        AddRows(3);
    }
    void Select(int entry) { m_list.m_pCombo->SetCurSel(entry); }
    bool IsDown(int row, int column) { return m_list.Record(row, column)->bComboButtonDown != FALSE; }
    void PutCursor(CPoint client)
    {
        m_list.ClientToScreen(&client);
        ::SetCursorPos(client.x, client.y);
    }
};

using ButtonTimer = DropDownTimer;
using CloseTimer = DropDownTimer;
using CommitTimer = DropDownTimer;
using CopyTimer = DropDownTimer;
using OtherTimer = DropDownTimer;
using DropDownNotice = DropDownTimer;
using DropDownKey = DropDownTimer;

// Notes the timers that the library starts for a window.
class StartedTimers
{
public:
    explicit StartedTimers(HWND window)
    {
        s_window = window;
        s_started.clear();
        Replace(reinterpret_cast<void*>(&Start));
    }
    ~StartedTimers() { Replace(reinterpret_cast<void*>(&::SetTimer)); }
    StartedTimers(const StartedTimers&) = delete;
    StartedTimers& operator=(const StartedTimers&) = delete;

    static std::vector<std::pair<UINT_PTR, UINT>> Take() { return std::exchange(s_started, {}); }

private:
    static UINT_PTR WINAPI Start(HWND window, UINT_PTR id, UINT period, TIMERPROC procedure)
    {
        if (window == s_window)
            s_started.emplace_back(id, period);
        return ::SetTimer(window, id, period, procedure);
    }
    static void Replace(void* function)
    {
        const testkit::ImportReplacement replacement[] = {{"user32.dll", "SetTimer", function}};
        testkit::ReplaceImports(::GetModuleHandle(L"VelmUtil22.dll"), replacement);
    }

    static inline HWND s_window = nullptr;
    static inline std::vector<std::pair<UINT_PTR, UINT>> s_started;
};

class ForwardingList : public OpenList
{
public:
    using OpenList::DefWindowProc;
};

// The list view's own procedure, with a note of the timers that come through to it.
WNDPROC g_listView = nullptr;
std::vector<WPARAM> g_timersOfListView;

LRESULT CALLBACK NotingListView(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_TIMER)
        g_timersOfListView.push_back(wParam);
    return ::CallWindowProc(g_listView, window, message, wParam, lParam);
}

} // namespace

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST_F(DropDownTimer, PeriodsAre100And50Milliseconds)
{
    MakeCombo(0, 1);
    const StartedTimers timers(m_list.m_hWnd);
    PressButton(0, 1);
    EXPECT_THAT(StartedTimers::Take(), ElementsAre(Pair(1, 100)));
    m_list.SendMessage(WM_XCOMBOLIST_KEYDOWN);
    EXPECT_THAT(StartedTimers::Take(), ElementsAre(Pair(4, 50)));
    m_list.SendMessage(WM_XCOMBOLIST_VK_RETURN);
    EXPECT_THAT(StartedTimers::Take(), ElementsAre(Pair(3, 50)));
    m_list.SendMessage(WM_XCOMBOLIST_LBUTTONUP);
    EXPECT_THAT(StartedTimers::Take(), ElementsAre(Pair(3, 50)));
    m_list.SendMessage(WM_XCOMBOLIST_VK_ESCAPE);
    EXPECT_THAT(StartedTimers::Take(), ElementsAre(Pair(2, 50)));
}

TEST_F(ButtonTimer, KeepsTheButtonDownWhileTheCursorIsOnIt)
{
    OpenCombo(0, 1);
    const CRect button = m_list.m_rectComboButton;
    for (const CPoint& point : {button.TopLeft(), CPoint(button.right - 1, button.bottom - 1)}) {
        PutCursor(point);
        Tick(1);
        EXPECT_EQ(m_list.m_bComboButtonHeld, TRUE);
        EXPECT_TRUE(IsDown(0, 1));
    }
    EXPECT_TRUE(StopTimer(1));
}

TEST_F(ButtonTimer, ReleasesTheButtonOnceTheCursorIsOff)
{
    OpenCombo(0, 1);
    const CRect button = m_list.m_rectComboButton;
    for (const CPoint& point : {CPoint(button.left - 1, button.top), CPoint(button.right, button.top),
                                CPoint(button.left, button.top - 1), CPoint(button.left, button.bottom)})
    {
        m_list.m_bComboButtonHeld = TRUE;
        m_list.Record(0, 1)->bComboButtonDown = TRUE;
        PutCursor(point);
        Tick(1);
        EXPECT_EQ(m_list.m_bComboButtonHeld, FALSE) << point.x << ", " << point.y;
        EXPECT_FALSE(IsDown(0, 1));
        EXPECT_FALSE(m_list.GetUpdateRect(nullptr)) << "drawn at once";
    }
    EXPECT_NE(m_list.m_pCombo, nullptr);
    EXPECT_TRUE(StopTimer(1));
}

TEST_F(ButtonTimer, GivesTheFocusBackToTheOpenListOnEveryTick)
{
    OpenCombo(0, 1);
    m_list.UnpressComboButton();
    const HWND list = ListBox();
    // A place for the focus within the window, which closes when it loses the focus too often.
    CWnd other;
    ASSERT_TRUE(other.Create(AfxRegisterWndClass(0), L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, 5, 5),
                             m_list.m_pCombo, 9));
    for (int i = 0; i < 3; ++i) {
        other.SetFocus();
        ASSERT_EQ(::GetFocus(), other.m_hWnd);
        Tick(1);
        EXPECT_EQ(::GetFocus(), list);
    }
    EXPECT_TRUE(StopTimer(1));
    other.DestroyWindow();
}

TEST_F(ButtonTimer, LeavesTheFocusWhileTheButtonIsHeld)
{
    OpenCombo(0, 1);
    PutCursor(m_list.m_rectComboButton.CenterPoint());
    m_parent.SetFocus();
    Tick(1);
    EXPECT_EQ(::GetFocus(), m_parent.m_hWnd);
}

TEST_F(ButtonTimer, EndsWithoutButtonAndList)
{
    MakeCombo(0, 1);
    Press(Button(0, 1));
    m_list.UnpressComboButton();
    ASSERT_EQ(m_list.m_pCombo, nullptr);
    Tick(1);
    EXPECT_FALSE(StopTimer(1));
}

TEST_F(CloseTimer, ClosesTheListOnceAndTellsNobody)
{
    OpenCombo(0, 1);
    const HWND window = m_list.m_pCombo->m_hWnd;
    m_list.SetTimer(2, 60000, nullptr);
    Tick(2);
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_FALSE(StopTimer(2));
    EXPECT_EQ(Text(0, 1), L"zero");
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(CloseTimer, EndsWithoutAList)
{
    m_list.SetTimer(2, 60000, nullptr);
    Tick(2);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_FALSE(StopTimer(2));
}

TEST_F(CommitTimer, MakesTheSelectionTheTextTellsTheParentAndCloses)
{
    OpenCombo(2, 1);
    const HWND window = m_list.m_pCombo->m_hWnd;
    Select(1);
    m_list.SetTimer(3, 60000, nullptr);
    int calls = 0;
    React([&] {
        ++calls;
        EXPECT_EQ(Text(2, 1), L"one");
        EXPECT_FALSE(m_list.GetUpdateRect(nullptr)) << "drawn already";
        EXPECT_TRUE(::IsWindow(window)) << "closed afterwards";
    });
    Tick(3);
    EXPECT_EQ(calls, 1);
    EXPECT_THAT(m_parent.messages, ElementsAre(ParentMessage{WM_XLISTCTRL_COMBO_SELECTION, 2, 1}));
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_FALSE(StopTimer(3));
    EXPECT_EQ(Text(2, 1), L"one");
}

TEST_F(CommitTimer, TellsTheParentOfTheSameChoiceToo)
{
    OpenCombo(0, 2, 5, 1);
    Tick(3);
    EXPECT_THAT(m_parent.messages, ElementsAre(ParentMessage{WM_XLISTCTRL_COMBO_SELECTION, 0, 2}));
    EXPECT_EQ(Text(0, 2), L"one");
}

TEST_F(CommitTimer, OnlyClosesWithoutASelection)
{
    OpenCombo(0, 1);
    Select(-1);
    Tick(3);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_EQ(Text(0, 1), L"zero");
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(CommitTimer, OnlyClosesForACellOutOfRange)
{
    const std::vector<std::pair<int, int>> cells{{-1, 1}, {3, 1}, {0, -1}, {0, 3}};
    for (const auto& [row, column] : cells) {
        OpenCombo(0, 1);
        Select(2);
        m_list.m_nComboItem = row;
        m_list.m_nComboSubItem = column;
        Tick(3);
        EXPECT_EQ(m_list.m_pCombo, nullptr);
        EXPECT_EQ(Text(0, 1), L"zero") << row << ", " << column;
        m_list.Record(0, 1)->bComboButtonDown = FALSE;
    }
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(CommitTimer, WithoutAListOnlyEnds)
{
    m_list.SetTimer(3, 60000, nullptr);
    Tick(3);
    EXPECT_FALSE(StopTimer(3));
    EXPECT_EQ(Text(0, 0), L"row 0");
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(CopyTimer, MakesTheSelectionTheTextAndLeavesTheListOpen)
{
    OpenCombo(0, 1);
    CXComboList* const combo = m_list.m_pCombo;
    for (const int entry : {1, 2}) {
        Select(entry);
        m_list.SetTimer(4, 60000, nullptr);
        Tick(4);
        EXPECT_EQ(Text(0, 1), m_choices[entry]);
        EXPECT_FALSE(m_list.GetUpdateRect(nullptr)) << "drawn at once";
        EXPECT_FALSE(StopTimer(4));
    }
    EXPECT_EQ(m_list.m_pCombo, combo);
    EXPECT_TRUE(::IsWindow(combo->m_hWnd));
    EXPECT_TRUE(StopTimer(1));
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(CopyTimer, ChangesNothingWithoutASelectionOrACell)
{
    OpenCombo(0, 1);
    Select(-1);
    Tick(4);
    EXPECT_EQ(Text(0, 1), L"zero");
    Select(2);
    m_list.m_nComboItem = 3;
    Tick(4);
    m_list.m_nComboItem = 0;
    m_list.m_nComboSubItem = 3;
    Tick(4);
    EXPECT_EQ(Text(0, 1), L"zero");
    EXPECT_NE(m_list.m_pCombo, nullptr);
}

TEST_F(CopyTimer, WithoutAListOnlyEnds)
{
    m_list.SetTimer(4, 60000, nullptr);
    Tick(4);
    EXPECT_FALSE(StopTimer(4));
    EXPECT_EQ(Text(0, 0), L"row 0");
}

TEST_F(OtherTimer, ChangesNothing)
{
    OpenCombo(0, 1);
    Select(2);
    const CXComboList* const combo = m_list.m_pCombo;
    for (const UINT_PTR timer : {0, 5, 6, 99}) {
        m_list.SetTimer(timer, 60000, nullptr);
        Tick(timer);
        EXPECT_EQ(m_list.m_pCombo, combo);
        EXPECT_EQ(Text(0, 1), L"zero");
        EXPECT_TRUE(StopTimer(timer)) << timer;
    }
    EXPECT_EQ(m_list.m_bComboButtonHeld, TRUE);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(OtherTimer, DoesNotReachTheListView)
{
    WNDCLASS description = {};
    ASSERT_TRUE(::GetClassInfo(nullptr, WC_LISTVIEW, &description));
    g_listView = description.lpfnWndProc;
    g_timersOfListView.clear();
    description.lpfnWndProc = &NotingListView;
    description.hInstance = AfxGetInstanceHandle();
    description.lpszClassName = L"VelmNotingListView";
    ASSERT_NE(::RegisterClass(&description), 0);
    {
        ForwardingList list;
        ASSERT_TRUE(
            list.CWnd::CreateEx(0, description.lpszClassName, L"", Style, CRect(0, 0, 50, 50), &m_parent, 7));
        for (const WPARAM timer : {1, 2, 3, 4, 5, 99})
            list.SendMessage(WM_TIMER, timer, 0);
        EXPECT_THAT(g_timersOfListView, IsEmpty());
        list.DefWindowProc(WM_TIMER, 77, 0);
        EXPECT_THAT(g_timersOfListView, ElementsAre(77u)) << "which would be noted";
        list.DestroyWindow();
    }
    ::UnregisterClass(description.lpszClassName, description.hInstance);
    std::vector<WPARAM>().swap(g_timersOfListView);
}

TEST_F(DropDownNotice, OfReturnAndOfTheButtonStartsTheCommit)
{
    for (const UINT notice : {WM_XCOMBOLIST_VK_RETURN, WM_XCOMBOLIST_LBUTTONUP}) {
        OpenCombo(0, 1);
        Select(2);
        EXPECT_EQ(m_list.SendMessage(notice, 7, 9), 0);
        EXPECT_FALSE(StopTimer(1));
        EXPECT_TRUE(StopTimer(3));
        EXPECT_FALSE(StopTimer(2));
        EXPECT_NE(m_list.m_pCombo, nullptr);
        EXPECT_EQ(Text(0, 1), L"zero") << "until the timer";
        m_list.UnpressComboButton();
    }
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(DropDownNotice, OfEscapeRestoresTheTextAndStartsTheClosing)
{
    OpenCombo(0, 1, 5, 1);
    m_list.SetItemText(0, 1, L"two");
    EXPECT_EQ(m_list.SendMessage(WM_XCOMBOLIST_VK_ESCAPE, 7, 9), 0);
    EXPECT_EQ(Text(0, 1), L"one");
    EXPECT_FALSE(m_list.GetUpdateRect(nullptr)) << "drawn at once";
    EXPECT_FALSE(StopTimer(1));
    EXPECT_TRUE(StopTimer(2));
    EXPECT_FALSE(StopTimer(3));
    EXPECT_NE(m_list.m_pCombo, nullptr) << "until the timer";
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(DropDownNotice, OfEscapeWritesTheEntryThatWasSelectedAtTheOpening)
{
    MakeCombo(0, 1);
    m_list.SetItemText(0, 1, L"no choice");
    PressButton(0, 1);
    m_list.SendMessage(WM_XCOMBOLIST_VK_ESCAPE);
    EXPECT_EQ(Text(0, 1), L"zero");
}

TEST_F(DropDownNotice, OfEscapeForACellOutOfRangeOnlyStartsTheClosing)
{
    OpenCombo(2, 1);
    m_list.DeleteItem(2);
    EXPECT_EQ(m_list.SendMessage(WM_XCOMBOLIST_VK_ESCAPE), 0);
    EXPECT_TRUE(StopTimer(2));
    EXPECT_EQ(Text(0, 1), L"");
    EXPECT_EQ(Text(1, 1), L"");
}

TEST_F(DropDownNotice, OfAKeyStartsTheCopyAndNothingElse)
{
    OpenCombo(0, 1);
    Select(2);
    EXPECT_EQ(m_list.SendMessage(WM_XCOMBOLIST_KEYDOWN, 7, 9), 0);
    EXPECT_TRUE(StopTimer(4));
    EXPECT_TRUE(StopTimer(1));
    EXPECT_FALSE(StopTimer(2));
    EXPECT_FALSE(StopTimer(3));
    EXPECT_EQ(Text(0, 1), L"zero") << "until the timer";
}

TEST_F(DropDownKey, EscapeAfterArrowsRestoresTheTextAndTellsNobody)
{
    OpenCombo(0, 1, 5, 1);
    PressKey(VK_DOWN);
    EXPECT_TRUE(m_list.SetTimer(4, 60000, nullptr));
    Tick(4);
    EXPECT_EQ(Text(0, 1), L"two");
    PressKey(VK_ESCAPE);
    EXPECT_EQ(Text(0, 1), L"one");
    Tick(2);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_EQ(Text(0, 1), L"one");
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(DropDownKey, EnterAfterArrowsCommitsTheSelection)
{
    OpenCombo(1, 2);
    PressKey(VK_DOWN);
    EXPECT_TRUE(StopTimer(4));
    PressKey(VK_RETURN);
    EXPECT_TRUE(StopTimer(3));
    EXPECT_NE(m_list.m_pCombo, nullptr);
    Tick(3);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_EQ(Text(1, 2), L"one");
    EXPECT_THAT(m_parent.messages, ElementsAre(ParentMessage{WM_XLISTCTRL_COMBO_SELECTION, 1, 2}));
}

TEST_F(DropDownKey, ReleasedButtonOverTheListCommitsTheSelection)
{
    OpenCombo(1, 2);
    Select(2);
    MSG message = {};
    message.hwnd = ListBox();
    message.message = WM_LBUTTONUP;
    m_list.m_pCombo->PreTranslateMessage(&message);
    Tick(3);
    EXPECT_EQ(Text(1, 2), L"two");
    EXPECT_THAT(m_parent.messages, ElementsAre(ParentMessage{WM_XLISTCTRL_COMBO_SELECTION, 1, 2}));
}
