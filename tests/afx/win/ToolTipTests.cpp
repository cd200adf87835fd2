// Tooltips that come from OnToolHitTest, with the real mouse.
#include "TestWindow.h"

#include "kit/Input.h"
#include "kit/Pump.h"

namespace
{
// The upper half of the window is tool 5, the lower half none.
class CTipped : public TestWindow<>
{
public:
    mutable int m_hitTests = 0;
    int m_asked = 0;
    UINT_PTR m_askedId = 0;
    CString m_text = _T("tip text");
    bool m_ownText = false;

    virtual INT_PTR OnToolHitTest(CPoint point, TOOLINFO* pTI) const
    {
        ++m_hitTests;
        if (point.y >= 75)
            return -1;
        if (pTI != nullptr) {
            pTI->hwnd = m_hWnd;
            pTI->uId = 5;
            pTI->rect = CRect(0, 0, 200, 75);
            pTI->lpszText = m_ownText ? _tcsdup(m_text) : LPSTR_TEXTCALLBACK;
        }
        return 5;
    }

protected:
    afx_msg BOOL OnNeedText(UINT, NMHDR* pNMHDR, LRESULT* pResult)
    {
        ++m_asked;
        m_askedId = pNMHDR->idFrom;
        ::lstrcpyn(reinterpret_cast<NMTTDISPINFO*>(pNMHDR)->szText, m_text, 80);
        *pResult = 0;
        return TRUE;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CTipped, CWnd)
ON_NOTIFY_EX(TTN_NEEDTEXT, 0, &CTipped::OnNeedText)
END_MESSAGE_MAP()

// The visible tooltip of this thread, or null.
HWND VisibleTip()
{
    HWND found = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND hWnd, LPARAM lParam) -> BOOL {
            TCHAR windowClass[40]{};
            ::GetClassName(hWnd, windowClass, _countof(windowClass));
            if (::lstrcmpi(windowClass, TOOLTIPS_CLASS) != 0 || !::IsWindowVisible(hWnd))
                return TRUE;
            *reinterpret_cast<HWND*>(lParam) = hWnd;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

CString TipText(HWND tip)
{
    CString text;
    TOOLINFO tool{};
    tool.cbSize = TTTOOLINFO_V1_SIZE;
    tool.lpszText = text.GetBuffer(200);
    tool.lpszText[0] = 0;
    ::SendMessage(tip, TTM_GETCURRENTTOOL, 0, reinterpret_cast<LPARAM>(&tool));
    text.ReleaseBuffer();
    return text;
}

class ToolTips : public testing::Test
{
protected:
    void SetUp() override
    {
        testkit::Mouse::MoveTo({700, 600});
        ASSERT_TRUE(window.CreateEx(WS_EX_TOPMOST, nullptr, nullptr, WS_POPUP | WS_VISIBLE,
                                    CRect(CPoint(100, 100), CSize(200, 150)), nullptr, 0));
        window.SetActiveWindow();
        window.SetForegroundWindow();
        testkit::PumpPending();
    }
    void TearDown() override
    {
        CWnd::CancelToolTips();
        window.DestroyWindow();
        testkit::Mouse::MoveTo({700, 600});
    }
    testing::AssertionResult Hover(CPoint client)
    {
        const POINT target{100 + client.x, 100 + client.y};
        const bool moved = testkit::Mouse::MoveTo(target);
        if (testkit::PumpUntil([] { return VisibleTip() != nullptr; }, 3000))
            return testing::AssertionSuccess();
        POINT cursor{};
        ::GetCursorPos(&cursor);
        return testing::AssertionFailure()
               << "no tip; move seen: " << moved << ", hit tests: " << window.m_hitTests << ", cursor at "
               << cursor.x << ", " << cursor.y
               << ", over the window: " << (::WindowFromPoint(target) == window.m_hWnd);
    }

    CTipped window;
};
} // namespace

TEST_F(ToolTips, HoverShowsTheTextOfTheCallback)
{
    window.EnableToolTips(TRUE);
    ASSERT_TRUE(Hover({50, 30}));
    EXPECT_GE(window.m_asked, 1);
    EXPECT_EQ(UINT_PTR(5), window.m_askedId);
}

TEST_F(ToolTips, HoverShowsAGivenText)
{
    window.m_ownText = true;
    window.EnableToolTips(TRUE);
    ASSERT_TRUE(Hover({50, 30}));
    EXPECT_EQ(0, window.m_asked);
    EXPECT_EQ(CString(_T("tip text")), TipText(VisibleTip()));
}

TEST_F(ToolTips, LeavingTheToolHidesTheTip)
{
    window.EnableToolTips(TRUE);
    ASSERT_TRUE(Hover({50, 30}));
    testkit::Mouse::MoveTo({150, 220});
    EXPECT_TRUE(testkit::PumpUntil([] { return VisibleTip() == nullptr; }, 3000));
}

TEST_F(ToolTips, AreOffUntilEnabled)
{
    testkit::Mouse::MoveTo({150, 130});
    testkit::Mouse::MoveTo({152, 131});
    EXPECT_EQ(0, window.m_hitTests);
    EXPECT_TRUE(window.EnableToolTips(TRUE));
    testkit::Mouse::MoveTo({154, 132});
    EXPECT_GE(window.m_hitTests, 1);
    const int before = window.m_hitTests;
    EXPECT_FALSE(window.EnableToolTips(FALSE));
    testkit::Mouse::MoveTo({156, 133});
    EXPECT_EQ(before, window.m_hitTests);
}

TEST_F(ToolTips, WindowThatGoesTakesItsTipAlong)
{
    window.EnableToolTips(TRUE);
    ASSERT_TRUE(Hover({50, 30}));
    const HWND tip = VisibleTip();
    window.DestroyWindow();
    EXPECT_FALSE(::IsWindow(tip));
}

TEST_F(ToolTips, InnerWindowComesFirst)
{
    CTipped child;
    ASSERT_TRUE(child.CreateEx(0, nullptr, nullptr, WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 75), &window, 8));
    child.EnableToolTips(TRUE);
    window.EnableToolTips(TRUE);
    ASSERT_TRUE(Hover({50, 30}));
    EXPECT_GE(child.m_asked, 1);
    EXPECT_EQ(0, window.m_asked);
}

TEST_F(ToolTips, ChildControlsAreToolsByDefault)
{
    TestWindow<> plain;
    ASSERT_TRUE(plain.Make(WS_POPUP | WS_VISIBLE));
    CButton button;
    ASSERT_TRUE(button.Create(_T("b"), WS_CHILD | WS_VISIBLE, CRect(10, 10, 60, 40), &plain, 12));
    TOOLINFO tool{};
    tool.cbSize = TTTOOLINFO_V1_SIZE;
    EXPECT_EQ(12, plain.OnToolHitTest(CPoint(20, 20), &tool));
    EXPECT_EQ(plain.m_hWnd, tool.hwnd);
    EXPECT_EQ(reinterpret_cast<UINT_PTR>(button.m_hWnd), tool.uId);
    EXPECT_NE(0u, tool.uFlags & TTF_IDISHWND);
    EXPECT_EQ(LPSTR_TEXTCALLBACK, tool.lpszText);
    EXPECT_EQ(-1, plain.OnToolHitTest(CPoint(100, 100), nullptr));
}
