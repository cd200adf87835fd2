// Messages, commands and notifications on their way through the maps.
#include "TestWindow.h"
#include "resource.h"

#include <string>
#include <vector>

namespace
{
UINT registeredMessage = 0;

class CBaseWnd : public TestWindow<>
{
public:
    std::vector<std::string> m_log;
    UINT m_lastId = 0;
    LRESULT m_default = -1;

protected:
    afx_msg void OnSize(UINT nType, int cx, int cy)
    {
        m_log.push_back("base size");
        CWnd::OnSize(nType, cx, cy);
    }
    afx_msg void OnBaseCommand() { m_log.push_back("base command"); }
    afx_msg void OnHidden() { m_log.push_back("base hidden"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CBaseWnd, CWnd)
ON_WM_SIZE()
ON_COMMAND(10, &CBaseWnd::OnBaseCommand)
ON_COMMAND(11, &CBaseWnd::OnHidden)
END_MESSAGE_MAP()

class CMapWnd : public CBaseWnd
{
public:
    CPoint m_point;
    UINT m_flags = 0;
    UINT m_key[3] = {};
    int m_wheel = 0;
    BOOL m_takesWheel = FALSE;
    BOOL m_passOn = FALSE;

protected:
    afx_msg void OnDerived() { m_log.push_back("derived hidden"); }
    afx_msg void OnRange(UINT nID)
    {
        m_lastId = nID;
        m_log.push_back("range");
    }
    afx_msg BOOL OnEx(UINT nID)
    {
        m_lastId = nID;
        m_log.push_back("ex");
        return !m_passOn;
    }
    afx_msg LRESULT OnUser(WPARAM wParam, LPARAM lParam)
    {
        return static_cast<LRESULT>(wParam) * 100 + lParam;
    }
    afx_msg LRESULT OnRegistered(WPARAM, LPARAM) { return 77; }
    afx_msg LRESULT OnGetText(WPARAM, LPARAM)
    {
        m_default = Default();
        return m_default;
    }
    afx_msg void OnMouseMove(UINT nFlags, CPoint point)
    {
        m_flags = nFlags;
        m_point = point;
    }
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
    {
        m_key[0] = nChar;
        m_key[1] = nRepCnt;
        m_key[2] = nFlags;
    }
    afx_msg BOOL OnMouseWheel(UINT, short zDelta, CPoint)
    {
        m_wheel = zDelta;
        return m_takesWheel;
    }
    afx_msg void OnEditChange() { m_log.push_back("edit change"); }
    afx_msg void OnControlRange(UINT nID)
    {
        m_lastId = nID;
        m_log.push_back("control range");
    }
    afx_msg void OnClickNotify(NMHDR* pNMHDR, LRESULT* pResult)
    {
        m_log.push_back("notify");
        m_lastId = static_cast<UINT>(pNMHDR->idFrom);
        *pResult = 5;
    }
    afx_msg void OnNotifyRange(UINT nID, NMHDR*, LRESULT* pResult)
    {
        m_log.push_back("notify range");
        m_lastId = nID;
        *pResult = 6;
    }
    afx_msg BOOL OnNotifyEx(UINT nID, NMHDR*, LRESULT* pResult)
    {
        m_log.push_back("notify ex");
        m_lastId = nID;
        *pResult = 7;
        return !m_passOn;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CMapWnd, CBaseWnd)
ON_WM_MOUSEMOVE()
ON_WM_CHAR()
ON_WM_MOUSEWHEEL()
ON_MESSAGE(WM_USER + 1, &CMapWnd::OnUser)
ON_REGISTERED_MESSAGE(registeredMessage, &CMapWnd::OnRegistered)
ON_MESSAGE(WM_GETTEXTLENGTH, &CMapWnd::OnGetText)
ON_COMMAND(11, &CMapWnd::OnDerived)
ON_COMMAND_EX(25, &CMapWnd::OnEx)
ON_COMMAND_RANGE(20, 29, &CMapWnd::OnRange)
ON_EN_CHANGE(40, &CMapWnd::OnEditChange)
ON_CONTROL_RANGE(BN_CLICKED, 50, 52, &CMapWnd::OnControlRange)
ON_NOTIFY(NM_CLICK, 60, &CMapWnd::OnClickNotify)
ON_NOTIFY_RANGE(NM_DBLCLK, 60, 65, &CMapWnd::OnNotifyRange)
ON_NOTIFY_EX(NM_RCLICK, 60, &CMapWnd::OnNotifyEx)
END_MESSAGE_MAP()

class MessageMaps : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(window.Make()); }

    std::vector<std::string> TakeLog() { return std::exchange(window.m_log, {}); }
    LRESULT Notify(HWND control, UINT code)
    {
        NMHDR header{control, static_cast<UINT_PTR>(::GetDlgCtrlID(control)), code};
        return window.SendMessage(WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
    }
    HWND Child(int id, LPCTSTR windowClass = _T("STATIC"))
    {
        return ::CreateWindow(windowClass, nullptr, WS_CHILD, 0, 0, 20, 20, window,
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }

    CMapWnd window;
};

using Log = std::vector<std::string>;
} // namespace

TEST_F(MessageMaps, HandlerGetsTheMessagesArguments)
{
    window.SendMessage(WM_MOUSEMOVE, MK_CONTROL | MK_LBUTTON, MAKELPARAM(-3, 12));
    EXPECT_EQ(UINT(MK_CONTROL | MK_LBUTTON), window.m_flags);
    EXPECT_EQ(CPoint(-3, 12), window.m_point);

    window.SendMessage(WM_CHAR, 'x', MAKELPARAM(3, 0x1234));
    EXPECT_EQ(UINT('x'), window.m_key[0]);
    EXPECT_EQ(3u, window.m_key[1]);
    EXPECT_EQ(0x1234u, window.m_key[2]);
}

TEST_F(MessageMaps, HandlerOfAnyMessageGivesItsResult)
{
    EXPECT_EQ(207, window.SendMessage(WM_USER + 1, 2, 7));
}

TEST_F(MessageMaps, RegisteredMessageIsKnownByItsVariable)
{
    registeredMessage = 0;
    EXPECT_EQ(0, window.SendMessage(WM_NULL));
    const UINT number = ::RegisterWindowMessage(_T("afx test message"));
    EXPECT_EQ(0, window.SendMessage(number)) << "the variable does not hold the number yet";
    registeredMessage = number;
    EXPECT_EQ(77, window.SendMessage(number));
    EXPECT_EQ(0, window.SendMessage(::RegisterWindowMessage(_T("another afx test message"))));
}

TEST_F(MessageMaps, DefaultDoesWhatTheMessageWouldDoWithoutHandler)
{
    window.SetWindowText(_T("twelve chars"));
    EXPECT_EQ(12, window.SendMessage(WM_GETTEXTLENGTH));
    EXPECT_EQ(12, window.m_default);
}

TEST_F(MessageMaps, BaseClassesHandlersWorkInDerivedWindows)
{
    TakeLog();
    window.SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(10, 20));
    EXPECT_EQ(Log{"base size"}, TakeLog());
    window.SendMessage(WM_COMMAND, 10);
    EXPECT_EQ(Log{"base command"}, TakeLog());
}

TEST_F(MessageMaps, DerivedHandlerHidesTheBases)
{
    TakeLog();
    window.SendMessage(WM_COMMAND, 11);
    EXPECT_EQ(Log{"derived hidden"}, TakeLog());
}

TEST_F(MessageMaps, CommandRangeIncludesBothEnds)
{
    TakeLog();
    window.SendMessage(WM_COMMAND, 19);
    window.SendMessage(WM_COMMAND, 30);
    EXPECT_EQ(Log{}, TakeLog());
    window.SendMessage(WM_COMMAND, 20);
    EXPECT_EQ(20u, window.m_lastId);
    window.SendMessage(WM_COMMAND, 29);
    EXPECT_EQ(29u, window.m_lastId);
    EXPECT_EQ((Log{"range", "range"}), TakeLog());
}

TEST_F(MessageMaps, FirstEntryThatFitsTakesTheCommand)
{
    TakeLog();
    window.SendMessage(WM_COMMAND, 25);
    EXPECT_EQ(Log{"ex"}, TakeLog()) << "the range, which comes later, holds 25 as well";
}

TEST_F(MessageMaps, CommandExHandlerMayPassTheCommandOn)
{
    TakeLog();
    EXPECT_NE(0, window.SendMessage(WM_COMMAND, 25));
    window.m_passOn = TRUE;
    EXPECT_EQ(0, window.SendMessage(WM_COMMAND, 25));
    EXPECT_EQ((Log{"ex", "ex"}), TakeLog());
}

TEST_F(MessageMaps, ControlsNotificationIsKnownByCodeAndNumber)
{
    TakeLog();
    const HWND edit = Child(40, _T("EDIT"));
    ::SetWindowText(edit, _T("new"));
    EXPECT_EQ(Log{"edit change"}, TakeLog());
    window.SendMessage(WM_COMMAND, MAKEWPARAM(40, EN_KILLFOCUS), reinterpret_cast<LPARAM>(edit));
    EXPECT_EQ(Log{}, TakeLog());
}

TEST_F(MessageMaps, ControlRangeTellsWhichControl)
{
    TakeLog();
    const HWND button = Child(51, _T("BUTTON"));
    ::SendMessage(button, BM_CLICK, 0, 0);
    EXPECT_EQ(Log{"control range"}, TakeLog());
    EXPECT_EQ(51u, window.m_lastId);
}

TEST_F(MessageMaps, NotifyHandlersSetTheResult)
{
    TakeLog();
    EXPECT_EQ(5, Notify(Child(60), NM_CLICK));
    EXPECT_EQ(60u, window.m_lastId);
    EXPECT_EQ(6, Notify(Child(64), NM_DBLCLK));
    EXPECT_EQ(64u, window.m_lastId);
    EXPECT_EQ((Log{"notify", "notify range"}), TakeLog());
    EXPECT_EQ(0, Notify(Child(66), NM_DBLCLK));
    EXPECT_EQ(Log{}, TakeLog());
}

TEST_F(MessageMaps, NotifyExHandlerMayPassTheNotificationOn)
{
    const HWND control = Child(60);
    EXPECT_EQ(7, Notify(control, NM_RCLICK));
    window.m_passOn = TRUE;
    EXPECT_EQ(0, Notify(control, NM_RCLICK)) << "the default's result";
}

TEST_F(MessageMaps, UnusedWheelGoesOnToTheParent)
{
    CMapWnd child;
    ASSERT_TRUE(child.Make(WS_CHILD, &window));
    window.m_takesWheel = TRUE;
    child.m_takesWheel = TRUE;
    child.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0);
    EXPECT_EQ(120, child.m_wheel);
    EXPECT_EQ(0, window.m_wheel);
    child.m_takesWheel = FALSE;
    child.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)), 0);
    EXPECT_EQ(-120, child.m_wheel);
    EXPECT_EQ(-120, window.m_wheel);
}

TEST_F(MessageMaps, CurrentMessageIsTheOneThatIsHandled)
{
    class CLooking : public TestWindow<>
    {
    public:
        MSG m_seen{};
        MSG m_afterNested{};
        CWnd* m_other = nullptr;

    protected:
        virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
        {
            if (message != WM_USER + 7)
                return CWnd::WindowProc(message, wParam, lParam);
            m_seen = *GetCurrentMessage();
            m_other->SendMessage(WM_USER + 1, 1, 1);
            m_afterNested = *GetCurrentMessage();
            return 0;
        }
    } looking;
    looking.m_other = &window;
    ASSERT_TRUE(looking.Make());
    looking.SendMessage(WM_USER + 7, 3, 4);
    EXPECT_EQ(looking.m_hWnd, looking.m_seen.hwnd);
    EXPECT_EQ(UINT(WM_USER + 7), looking.m_seen.message);
    EXPECT_EQ(WPARAM(3), looking.m_seen.wParam);
    EXPECT_EQ(LPARAM(4), looking.m_seen.lParam);
    EXPECT_EQ(UINT(WM_USER + 7), looking.m_afterNested.message) << "messages nest";
}

TEST_F(MessageMaps, HandlerInfoNamesTheHandlerWithoutCallingIt)
{
    TakeLog();
    AFX_CMDHANDLERINFO info{};
    EXPECT_TRUE(window.OnCmdMsg(10, CN_COMMAND, nullptr, &info));
    EXPECT_EQ(&window, info.pTarget);
    EXPECT_FALSE(window.OnCmdMsg(12, CN_COMMAND, nullptr, &info));
    EXPECT_EQ(Log{}, TakeLog());
}

namespace
{
// Names every window message that maps know; its handlers are CWnd's own.
class CEverything : public TestWindow<>
{
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CEverything, CWnd)
ON_WM_ACTIVATE()
ON_WM_ACTIVATEAPP()
ON_WM_APPCOMMAND()
ON_WM_CANCELMODE()
ON_WM_CAPTURECHANGED()
ON_WM_CHANGEUISTATE()
ON_WM_CHAR()
ON_WM_CHARTOITEM()
ON_WM_CHILDACTIVATE()
ON_WM_CLIPBOARDUPDATE()
ON_WM_CLOSE()
ON_WM_COMPACTING()
ON_WM_COMPAREITEM()
ON_WM_CONTEXTMENU()
ON_WM_COPYDATA()
ON_WM_CREATE()
ON_WM_DEADCHAR()
ON_WM_DELETEITEM()
ON_WM_DESTROY()
ON_WM_DESTROYCLIPBOARD()
ON_WM_DEVICECHANGE()
ON_WM_DEVMODECHANGE()
ON_WM_DRAWCLIPBOARD()
ON_WM_DRAWITEM()
ON_WM_DROPFILES()
ON_WM_ENABLE()
ON_WM_ENDSESSION()
ON_WM_ENTERIDLE()
ON_WM_ENTERMENULOOP()
ON_WM_ENTERSIZEMOVE()
ON_WM_ERASEBKGND()
ON_WM_EXITMENULOOP()
ON_WM_EXITSIZEMOVE()
ON_WM_FONTCHANGE()
ON_WM_GETDLGCODE()
ON_WM_GETMINMAXINFO()
ON_WM_HELPINFO()
ON_WM_HOTKEY()
ON_WM_HSCROLL()
ON_WM_ICONERASEBKGND()
ON_WM_INITMENU()
ON_WM_INITMENUPOPUP()
ON_WM_INPUTLANGCHANGE()
ON_WM_INPUTLANGCHANGEREQUEST()
ON_WM_KEYDOWN()
ON_WM_KEYUP()
ON_WM_KILLFOCUS()
ON_WM_LBUTTONDBLCLK()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_MBUTTONDBLCLK()
ON_WM_MBUTTONDOWN()
ON_WM_MBUTTONUP()
ON_WM_MEASUREITEM()
ON_WM_MENUCHAR()
ON_WM_MENUDRAG()
ON_WM_MENURBUTTONUP()
ON_WM_MENUSELECT()
ON_WM_MOUSEACTIVATE()
ON_WM_MOUSEHOVER()
ON_WM_MOUSEHWHEEL()
ON_WM_MOUSELEAVE()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEWHEEL()
ON_WM_MOVE()
ON_WM_MOVING()
ON_WM_NCACTIVATE()
ON_WM_NCCALCSIZE()
ON_WM_NCCREATE()
ON_WM_NCDESTROY()
ON_WM_NCHITTEST()
ON_WM_NCLBUTTONDBLCLK()
ON_WM_NCLBUTTONDOWN()
ON_WM_NCLBUTTONUP()
ON_WM_NCMBUTTONDBLCLK()
ON_WM_NCMBUTTONDOWN()
ON_WM_NCMBUTTONUP()
ON_WM_NCMOUSEHOVER()
ON_WM_NCMOUSELEAVE()
ON_WM_NCMOUSEMOVE()
ON_WM_NCPAINT()
ON_WM_NCRBUTTONDBLCLK()
ON_WM_NCRBUTTONDOWN()
ON_WM_NCRBUTTONUP()
ON_WM_NCXBUTTONDBLCLK()
ON_WM_NCXBUTTONDOWN()
ON_WM_NCXBUTTONUP()
ON_WM_NEXTMENU()
ON_WM_NOTIFYFORMAT()
ON_WM_PAINT()
ON_WM_PALETTECHANGED()
ON_WM_PALETTEISCHANGING()
ON_WM_PARENTNOTIFY()
ON_WM_POWERBROADCAST()
ON_WM_QUERYDRAGICON()
ON_WM_QUERYENDSESSION()
ON_WM_QUERYNEWPALETTE()
ON_WM_QUERYOPEN()
ON_WM_QUERYUISTATE()
ON_WM_RBUTTONDBLCLK()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_WM_RENDERALLFORMATS()
ON_WM_RENDERFORMAT()
ON_WM_SETCURSOR()
ON_WM_SETFOCUS()
ON_WM_SETTINGCHANGE()
ON_WM_SHOWWINDOW()
ON_WM_SIZE()
ON_WM_SIZING()
ON_WM_SPOOLERSTATUS()
ON_WM_STYLECHANGED()
ON_WM_STYLECHANGING()
ON_WM_SYSCHAR()
ON_WM_SYSCOLORCHANGE()
ON_WM_SYSCOMMAND()
ON_WM_SYSDEADCHAR()
ON_WM_SYSKEYDOWN()
ON_WM_SYSKEYUP()
ON_WM_TIMECHANGE()
ON_WM_TIMER()
ON_WM_UNICHAR()
ON_WM_UNINITMENUPOPUP()
ON_WM_UPDATEUISTATE()
ON_WM_USERCHANGED()
ON_WM_VKEYTOITEM()
ON_WM_VSCROLL()
ON_WM_WINDOWPOSCHANGED()
ON_WM_WINDOWPOSCHANGING()
ON_WM_WININICHANGE()
ON_WM_XBUTTONDBLCLK()
ON_WM_XBUTTONDOWN()
ON_WM_XBUTTONUP()
ON_WM_CTLCOLOR()
END_MESSAGE_MAP()
} // namespace

TEST(DefaultHandlers, DoWhatTheWindowWouldDoWithoutThem)
{
    CEverything window;
    ASSERT_TRUE(window.Make(WS_POPUP | WS_VISIBLE));
    const struct
    {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    } cases[] = {
        {WM_NCHITTEST, 0, MAKELPARAM(150, 150)},
        {WM_NCHITTEST, 0, MAKELPARAM(5, 5)},
        {WM_GETDLGCODE, 0, 0},
        {WM_QUERYOPEN, 0, 0},
        {WM_QUERYENDSESSION, 0, 0},
        {WM_NOTIFYFORMAT, reinterpret_cast<WPARAM>(window.m_hWnd), NF_QUERY},
        {WM_NCACTIVATE, FALSE, 0},
        {WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(window.m_hWnd), MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN)},
        {WM_MENUCHAR, 'x', 0},
        {WM_KEYDOWN, VK_SPACE, 1}};
    for (const auto& c : cases) {
        const LRESULT expected = ::DefWindowProc(window, c.message, c.wParam, c.lParam);
        EXPECT_EQ(expected, window.SendMessage(c.message, c.wParam, c.lParam)) << c.message;
    }
    CRect before, after;
    window.GetWindowRect(before);
    window.MoveWindow(120, 130, 90, 80);
    window.GetWindowRect(after);
    EXPECT_EQ(CRect(CPoint(120, 130), CSize(90, 80)), after);
    window.SendMessage(WM_CLOSE);
    EXPECT_EQ(nullptr, window.m_hWnd) << "the default of WM_CLOSE destroys the window";
}
