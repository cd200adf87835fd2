// How objects get their windows: creation, subclassing, and the way back.
#include "TestWindow.h"

#include <vector>

namespace
{
class CRecording : public TestWindow<>
{
public:
    std::vector<UINT> m_messages;
    int m_preSubclass = 0;
    int m_postNcDestroy = 0;
    HWND m_handleInPreSubclass = nullptr;
    BOOL m_allow = TRUE;
    int m_createResult = 0;
    CString m_class;

protected:
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs)
    {
        if (!CWnd::PreCreateWindow(cs))
            return FALSE;
        m_class = cs.lpszClass;
        cs.dwExStyle |= WS_EX_TOOLWINDOW;
        return m_allow;
    }
    virtual void PreSubclassWindow()
    {
        ++m_preSubclass;
        m_handleInPreSubclass = m_hWnd;
    }
    virtual void PostNcDestroy() { ++m_postNcDestroy; }
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
    {
        m_messages.push_back(message);
        return CWnd::WindowProc(message, wParam, lParam);
    }
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct)
    {
        return CWnd::OnCreate(lpCreateStruct) == -1 ? -1 : m_createResult;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CRecording, CWnd)
ON_WM_CREATE()
END_MESSAGE_MAP()

LRESULT CALLBACK ForeignProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return message == WM_USER + 3 ? 333 : ::DefWindowProc(hWnd, message, wParam, lParam);
}

HWND MakeForeignWindow()
{
    WNDCLASS traits{};
    traits.lpfnWndProc = &ForeignProc;
    traits.hInstance = ::GetModuleHandle(nullptr);
    traits.lpszClassName = _T("afx test foreign");
    ::RegisterClass(&traits);
    return ::CreateWindow(traits.lpszClassName, nullptr, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                          traits.hInstance, nullptr);
}

WNDPROC ProcedureOf(HWND hWnd)
{
    return reinterpret_cast<WNDPROC>(::GetWindowLongPtr(hWnd, GWLP_WNDPROC));
}
} // namespace

TEST(Creation, ObjectSeesItsWindowsFirstMessages)
{
    CRecording window;
    ASSERT_TRUE(window.Make());
    const auto& messages = window.m_messages;
    EXPECT_NE(messages.end(), std::find(messages.begin(), messages.end(), UINT(WM_NCCREATE)));
    EXPECT_NE(messages.end(), std::find(messages.begin(), messages.end(), UINT(WM_CREATE)));
    EXPECT_EQ(1, window.m_preSubclass);
    EXPECT_EQ(window.m_hWnd, window.m_handleInPreSubclass);
}

TEST(Creation, PreCreateWindowMayChangeWhatIsCreated)
{
    CRecording window;
    ASSERT_TRUE(window.Make());
    EXPECT_EQ(DWORD(WS_EX_TOOLWINDOW), window.GetExStyle() & WS_EX_TOOLWINDOW);
    EXPECT_FALSE(window.m_class.IsEmpty()) << "a class is supplied when none is named";
}

TEST(Creation, PreCreateWindowMayRefuse)
{
    CRecording window;
    window.m_allow = FALSE;
    EXPECT_FALSE(window.Make());
    EXPECT_EQ(nullptr, window.m_hWnd);
    EXPECT_EQ(1, window.m_postNcDestroy);
}

TEST(Creation, FailedOnCreateFailsTheCreation)
{
    CRecording window;
    window.m_createResult = -1;
    EXPECT_FALSE(window.Make());
    EXPECT_EQ(nullptr, window.m_hWnd);
    EXPECT_EQ(1, window.m_postNcDestroy) << "exactly once";
}

TEST(Creation, UnknownClassFailsTheCreation)
{
    CRecording window;
    EXPECT_FALSE(window.CreateEx(0, _T("no such class"), nullptr, WS_POPUP, CRect(), nullptr, 0));
    EXPECT_EQ(1, window.m_postNcDestroy);
    EXPECT_EQ(0, window.m_preSubclass);
    // The mark that waited for the window must not catch the next one.
    TestWindow<> next;
    ASSERT_TRUE(next.Make());
    EXPECT_EQ(0, window.m_preSubclass);
    EXPECT_EQ(nullptr, window.m_hWnd);
}

TEST(Creation, OnlyTheWindowBeingCreatedIsAttached)
{
    // A combo box makes an edit control and a list while it is made itself.
    TestWindow<> parent;
    ASSERT_TRUE(parent.Make());
    CComboBox combo;
    ASSERT_TRUE(combo.Create(WS_CHILD | CBS_DROPDOWN, CRect(0, 0, 100, 100), &parent, 1));
    TCHAR windowClass[20];
    ::GetClassName(combo, windowClass, _countof(windowClass));
    EXPECT_STREQ(_T("ComboBox"), windowClass);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    ASSERT_TRUE(combo.GetComboBoxInfo(&info));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(info.hwndItem));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(info.hwndList));
}

TEST(Creation, WindowsCreatedInOnCreateGetTheirOwnObjects)
{
    class CNesting : public TestWindow<>
    {
    public:
        CButton m_button;
        BOOL m_made = FALSE;

    protected:
        virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
        {
            if (message == WM_CREATE)
                m_made = m_button.Create(_T("inner"), WS_CHILD, CRect(0, 0, 10, 10), this, 3);
            return CWnd::WindowProc(message, wParam, lParam);
        }
    } window;
    ASSERT_TRUE(window.Make());
    EXPECT_TRUE(window.m_made);
    EXPECT_EQ(&window.m_button, window.GetDlgItem(3));
    EXPECT_EQ(&window, window.m_button.GetParent());
}

TEST(Creation, SameTraitsGiveTheSameWindowClass)
{
    const CString first = AfxRegisterWndClass(CS_SAVEBITS, ::LoadCursor(nullptr, IDC_ARROW));
    const CString second = AfxRegisterWndClass(CS_SAVEBITS, ::LoadCursor(nullptr, IDC_ARROW));
    const CString other = AfxRegisterWndClass(CS_SAVEBITS | CS_DBLCLKS, ::LoadCursor(nullptr, IDC_ARROW));
    EXPECT_EQ(first, second);
    EXPECT_NE(first, other);
    WNDCLASS found{};
    ASSERT_TRUE(::GetClassInfo(AfxGetInstanceHandle(), first, &found));
    EXPECT_EQ(UINT(CS_SAVEBITS), found.style);
    EXPECT_EQ(::LoadCursor(nullptr, IDC_ARROW), found.hCursor);
    EXPECT_EQ(nullptr, found.hbrBackground);
}

TEST(Subclassing, TakesTheMessagesAndGivesThemBack)
{
    const HWND hWnd = MakeForeignWindow();
    ASSERT_NE(nullptr, hWnd);
    const WNDPROC before = ProcedureOf(hWnd);
    CRecording window;
    ASSERT_TRUE(window.SubclassWindow(hWnd));
    EXPECT_EQ(1, window.m_preSubclass);
    EXPECT_EQ(hWnd, window.m_handleInPreSubclass);
    EXPECT_NE(before, ProcedureOf(hWnd));
    window.m_messages.clear();
    EXPECT_EQ(333, ::SendMessage(hWnd, WM_USER + 3, 0, 0)) << "the earlier procedure is the default";
    EXPECT_EQ(std::vector<UINT>{WM_USER + 3}, window.m_messages);

    EXPECT_EQ(hWnd, window.UnsubclassWindow());
    EXPECT_EQ(before, ProcedureOf(hWnd));
    EXPECT_EQ(nullptr, window.m_hWnd);
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
    window.m_messages.clear();
    EXPECT_EQ(333, ::SendMessage(hWnd, WM_USER + 3, 0, 0));
    EXPECT_TRUE(window.m_messages.empty());
    ::DestroyWindow(hWnd);
}

TEST(Subclassing, EndOfTheWindowRestoresTheProcedure)
{
    const HWND hWnd = MakeForeignWindow();
    CRecording window;
    ASSERT_TRUE(window.SubclassWindow(hWnd));
    ::DestroyWindow(hWnd);
    EXPECT_EQ(nullptr, window.m_hWnd);
    EXPECT_EQ(1, window.m_postNcDestroy);
    // The object is free for another window.
    const HWND other = MakeForeignWindow();
    ASSERT_TRUE(window.SubclassWindow(other));
    EXPECT_EQ(333, ::SendMessage(other, WM_USER + 3, 0, 0));
    ::DestroyWindow(other);
}

TEST(Subclassing, AWindowHasOneObject)
{
    const HWND hWnd = MakeForeignWindow();
    CRecording first;
    CRecording second;
    ASSERT_TRUE(first.SubclassWindow(hWnd));
    EXPECT_FALSE(second.SubclassWindow(hWnd));
    EXPECT_EQ(nullptr, second.m_hWnd);
    EXPECT_EQ(&first, CWnd::FromHandlePermanent(hWnd));
    ::DestroyWindow(hWnd);
}

TEST(Subclassing, WhatIsNoWindowCannotBeSubclassed)
{
    CRecording window;
    EXPECT_FALSE(window.SubclassWindow(nullptr));
    const HWND hWnd = MakeForeignWindow();
    ::DestroyWindow(hWnd);
    EXPECT_FALSE(window.SubclassWindow(hWnd));
    EXPECT_EQ(nullptr, window.m_hWnd);
}

TEST(Subclassing, DialogItemIsFoundByItsNumber)
{
    TestWindow<> parent;
    ASSERT_TRUE(parent.Make());
    const HWND edit = ::CreateWindow(_T("EDIT"), _T("text"), WS_CHILD, 0, 0, 50, 20, parent,
                                     reinterpret_cast<HMENU>(9), nullptr, nullptr);
    CEdit control;
    ASSERT_TRUE(control.SubclassDlgItem(9, &parent));
    EXPECT_EQ(edit, control.m_hWnd);
    CString text;
    control.GetWindowText(text);
    EXPECT_EQ(CString(_T("text")), text);
    CEdit missing;
    EXPECT_FALSE(missing.SubclassDlgItem(10, &parent));
}

TEST(Destruction, AnObjectMadeWithNewMayDeleteItselfInPostNcDestroy)
{
    static int alive = 0;
    class CSelfDeleting : public TestWindow<>
    {
    public:
        CSelfDeleting() { ++alive; }
        virtual ~CSelfDeleting() { --alive; }

    protected:
        virtual void PostNcDestroy() { delete this; }
    };
    auto* const window = new CSelfDeleting;
    ASSERT_TRUE(window->Make());
    EXPECT_EQ(1, alive);
    window->DestroyWindow();
    EXPECT_EQ(0, alive);
}

TEST(Creation, AnObjectWithAWindowKeepsItWhenASecondOneIsAskedFor)
{
    CRecording window;
    ASSERT_TRUE(window.Make());
    const HWND first = window.m_hWnd;
    EXPECT_FALSE(window.Make());
    EXPECT_EQ(first, window.m_hWnd);
    EXPECT_EQ(&window, CWnd::FromHandlePermanent(first));
    EXPECT_EQ(0, window.m_postNcDestroy);
}

TEST(Creation, AnExceptionOfPreSubclassWindowFailsItAndCallsPostNcDestroy)
{
    class CRefusing : public CRecording
    {
    protected:
        virtual void PreSubclassWindow() { AfxThrowUserException(); }
    } window;
    EXPECT_FALSE(window.Make());
    EXPECT_EQ(nullptr, window.m_hWnd);
    EXPECT_EQ(1, window.m_postNcDestroy);
}
