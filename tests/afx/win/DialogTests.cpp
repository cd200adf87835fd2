// Dialogs from templates, modal and not, and the modal loop.
#include "TestWindow.h"
#include "resource.h"

#include "kit/Pump.h"

#include <functional>
#include <vector>

namespace
{
class CTestDialog : public CDialog
{
public:
    explicit CTestDialog(UINT nTemplate, CWnd* pParent = nullptr) : CDialog(nTemplate, pParent) {}
    explicit CTestDialog(LPCTSTR name) : CDialog(name) {}
    CTestDialog() {}

    std::function<void()> m_onInit;
    std::function<void()> m_onIdle;
    int m_inits = 0;
    int m_oks = 0;
    int m_cancels = 0;
    bool m_shownOnIdle = false;
    BOOL m_initResult = TRUE;

protected:
    virtual BOOL OnInitDialog()
    {
        ++m_inits;
        CDialog::OnInitDialog();
        if (m_onInit)
            m_onInit();
        return m_initResult;
    }
    virtual void OnOK()
    {
        ++m_oks;
        CDialog::OnOK();
    }
    virtual void OnCancel()
    {
        ++m_cancels;
        CDialog::OnCancel();
    }
    // The modal loop has shown the dialog and has nothing to do.
    afx_msg LRESULT OnKickIdle(WPARAM, LPARAM)
    {
        m_shownOnIdle = IsWindowVisible();
        if (m_onIdle)
            std::exchange(m_onIdle, {})();
        return FALSE;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CTestDialog, CDialog)
ON_MESSAGE(WM_KICKIDLE, &CTestDialog::OnKickIdle)
END_MESSAGE_MAP()

void Key(CWnd& window, WPARAM key)
{
    window.PostMessage(WM_KEYDOWN, key, 1);
}
} // namespace

TEST(Dialog, ModalResultIsThatOfTheButton)
{
    CTestDialog dialog(IDD_PLAIN);
    dialog.m_onIdle = [&] {
        dialog.PostMessage(WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(dialog.GetDlgItem(IDOK)->m_hWnd));
    };
    EXPECT_EQ(IDOK, dialog.DoModal());
    EXPECT_EQ(1, dialog.m_inits);
    EXPECT_EQ(1, dialog.m_oks);
    EXPECT_TRUE(dialog.m_shownOnIdle);
    EXPECT_EQ(nullptr, dialog.m_hWnd);
}

TEST(Dialog, EnterMeansOkAndEscapeMeansCancel)
{
    CTestDialog enter(IDD_PLAIN);
    enter.m_onIdle = [&] { Key(*enter.GetDlgItem(IDC_NAME), VK_RETURN); };
    EXPECT_EQ(IDOK, enter.DoModal());
    CTestDialog escape(IDD_PLAIN);
    escape.m_onIdle = [&] { Key(*escape.GetDlgItem(IDC_NAME), VK_ESCAPE); };
    EXPECT_EQ(IDCANCEL, escape.DoModal());
    EXPECT_EQ(1, escape.m_cancels);
}

TEST(Dialog, EndDialogMayComeInOnInitDialog)
{
    CTestDialog dialog(IDD_PLAIN);
    dialog.m_onInit = [&] { dialog.EndDialog(77); };
    EXPECT_EQ(77, dialog.DoModal());
    EXPECT_FALSE(dialog.m_shownOnIdle);
}

TEST(Dialog, MayRunAgain)
{
    CTestDialog dialog(IDD_PLAIN);
    for (int i = 1; i <= 2; ++i) {
        dialog.m_onIdle = [&] { dialog.EndDialog(i); };
        EXPECT_EQ(i, dialog.DoModal());
    }
    EXPECT_EQ(2, dialog.m_inits);
}

TEST(Dialog, OwnerIsDisabledMeanwhile)
{
    TestWindow<> owner;
    ASSERT_TRUE(owner.Make(WS_POPUP | WS_VISIBLE));
    CTestDialog dialog(IDD_PLAIN, &owner);
    BOOL enabledMeanwhile = TRUE;
    HWND ownerOfDialog = nullptr;
    dialog.m_onIdle = [&] {
        enabledMeanwhile = owner.IsWindowEnabled();
        ownerOfDialog = ::GetWindow(dialog, GW_OWNER);
        dialog.EndDialog(1);
    };
    EXPECT_EQ(1, dialog.DoModal());
    EXPECT_FALSE(enabledMeanwhile);
    EXPECT_EQ(owner.m_hWnd, ownerOfDialog);
    EXPECT_TRUE(owner.IsWindowEnabled());
}

TEST(Dialog, ChildAsParentMeansItsTopLevelWindow)
{
    TestWindow<> owner;
    ASSERT_TRUE(owner.Make(WS_POPUP | WS_VISIBLE));
    CButton child;
    ASSERT_TRUE(child.Create(_T(""), WS_CHILD, CRect(0, 0, 10, 10), &owner, 1));
    CTestDialog dialog(IDD_PLAIN, &child);
    HWND ownerOfDialog = nullptr;
    dialog.m_onIdle = [&] {
        ownerOfDialog = ::GetWindow(dialog, GW_OWNER);
        dialog.EndDialog(1);
    };
    dialog.DoModal();
    EXPECT_EQ(owner.m_hWnd, ownerOfDialog);
}

TEST(Dialog, MissingTemplateIsAFailure)
{
    CTestDialog dialog(9999);
    EXPECT_EQ(-1, dialog.DoModal());
    CTestDialog modeless;
    EXPECT_FALSE(modeless.Create(9999));
    EXPECT_EQ(nullptr, modeless.m_hWnd);
}

TEST(Dialog, TemplateIsFoundInAnExtensionModule)
{
    CTestDialog before(IDD_EXTENSION);
    EXPECT_EQ(-1, before.DoModal()) << "the program has no such template";

    const HINSTANCE extension = AfxLoadLibrary(_T("AfxExtensionOne.dll"));
    ASSERT_NE(nullptr, extension);
    {
        CTestDialog dialog(IDD_EXTENSION);
        CString caption;
        dialog.m_onIdle = [&] {
            dialog.GetWindowText(caption);
            dialog.EndDialog(5);
        };
        EXPECT_EQ(5, dialog.DoModal());
        EXPECT_EQ(CString(_T("From extension one")), caption);
    }
    AfxFreeLibrary(extension);
}

TEST(Dialog, ModelessStaysUntilDestroyed)
{
    CTestDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_PLAIN));
    EXPECT_EQ(1, dialog.m_inits);
    EXPECT_FALSE(dialog.IsWindowVisible()) << "the template is not visible";
    dialog.ShowWindow(SW_SHOW);
    dialog.SendMessage(WM_COMMAND, IDOK);
    EXPECT_FALSE(dialog.IsWindowVisible()) << "EndDialog hides a modeless dialog";
    ASSERT_NE(nullptr, dialog.m_hWnd);
    EXPECT_TRUE(dialog.DestroyWindow());
    EXPECT_EQ(nullptr, dialog.m_hWnd);
}

TEST(Dialog, TabMovesTheFocusInAModelessDialog)
{
    CTestDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_PLAIN));
    dialog.ShowWindow(SW_SHOW);
    dialog.GetDlgItem(IDC_NAME)->SetFocus();
    Key(*dialog.GetDlgItem(IDC_NAME), VK_TAB);
    EXPECT_TRUE(testkit::PumpUntil([&] { return ::GetFocus() == ::GetDlgItem(dialog, IDOK); }));
    dialog.DestroyWindow();
}

TEST(Dialog, WithoutAPlaceInTheTemplateIsCentredOverItsOwner)
{
    TestWindow<> owner;
    ASSERT_TRUE(
        owner.CreateEx(0, nullptr, nullptr, WS_POPUP | WS_VISIBLE, CRect(100, 100, 900, 700), nullptr, 0));
    CTestDialog dialog(IDD_PLAIN, &owner);
    CRect place;
    dialog.m_onIdle = [&] {
        dialog.GetWindowRect(place);
        dialog.EndDialog(1);
    };
    dialog.DoModal();
    EXPECT_NEAR(500, place.CenterPoint().x, 1);
    EXPECT_NEAR(400, place.CenterPoint().y, 1);
}

TEST(Dialog, WithAPlaceInTheTemplateStaysThere)
{
    TestWindow<> owner;
    ASSERT_TRUE(
        owner.CreateEx(0, nullptr, nullptr, WS_POPUP | WS_VISIBLE, CRect(100, 100, 900, 700), nullptr, 0));
    // Where the platform alone puts a dialog of that template.
    const HWND plain = ::CreateDialog(nullptr, MAKEINTRESOURCE(IDD_PLACED), owner, nullptr);
    CRect expected;
    ::GetWindowRect(plain, expected);
    ::DestroyWindow(plain);

    CTestDialog dialog(IDD_PLACED, &owner);
    CRect place;
    dialog.m_onIdle = [&] {
        dialog.GetWindowRect(place);
        dialog.EndDialog(1);
    };
    dialog.DoModal();
    EXPECT_EQ(expected, place);
    EXPECT_NE(500, place.CenterPoint().x) << "which is not the middle of the owner";
}

TEST(Dialog, FocusSetInOnInitDialogStays)
{
    CTestDialog dialog(IDD_PLAIN);
    dialog.m_initResult = FALSE;
    dialog.m_onInit = [&] { dialog.GetDlgItem(IDCANCEL)->SetFocus(); };
    int focused = 0;
    dialog.m_onIdle = [&] {
        focused = CWnd::GetFocus()->GetDlgCtrlID();
        dialog.EndDialog(1);
    };
    dialog.DoModal();
    EXPECT_EQ(IDCANCEL, focused);
}

TEST(ModalLoop, ParentHearsThatItIsIdle)
{
    class COwner : public TestWindow<>
    {
    public:
        int m_idles = 0;
        HWND m_who = nullptr;

    protected:
        virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
        {
            if (message == WM_ENTERIDLE && wParam == MSGF_DIALOGBOX) {
                ++m_idles;
                m_who = reinterpret_cast<HWND>(lParam);
            }
            return CWnd::WindowProc(message, wParam, lParam);
        }
    } owner;
    ASSERT_TRUE(owner.Make(WS_POPUP | WS_VISIBLE));
    TestWindow<> window;
    ASSERT_TRUE(window.Make(WS_POPUP, &owner));
    window.PostMessage(WM_USER);
    int result = 0;
    class CEnding : public TestWindow<>
    {
    public:
        CWnd* m_loop = nullptr;

    protected:
        virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
        {
            if (message == WM_USER + 9)
                m_loop->EndModalLoop(17);
            return CWnd::WindowProc(message, wParam, lParam);
        }
    } ending;
    ending.m_loop = &window;
    ASSERT_TRUE(ending.Make());
    ::SetTimer(ending, 1, 10, [](HWND hWnd, UINT, UINT_PTR nId, DWORD) {
        ::KillTimer(hWnd, nId);
        ::SendMessage(hWnd, WM_USER + 9, 0, 0);
    });
    result = window.RunModalLoop();
    EXPECT_EQ(17, result);
    EXPECT_GE(owner.m_idles, 1);
    EXPECT_EQ(window.m_hWnd, owner.m_who);
}

TEST(ModalLoop, QuitEndsItAndStaysForTheOuterPump)
{
    TestWindow<> window;
    ASSERT_TRUE(window.Make());
    ::PostQuitMessage(23);
    EXPECT_EQ(-1, window.RunModalLoop());
    MSG message{};
    ASSERT_TRUE(::PeekMessage(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(WPARAM(23), message.wParam);
}

namespace
{
template <class Throw>
class CThrowingDialog : public CTestDialog
{
public:
    CThrowingDialog(CWnd* pParent, Throw throwIt) : CTestDialog(IDD_PLAIN, pParent), m_throw(throwIt)
    {
        m_onIdle = [this] { PostMessage(WM_USER + 40); };
    }
    virtual BOOL PreTranslateMessage(MSG* pMsg)
    {
        if (pMsg->message == WM_USER + 40)
            m_throw();
        return CTestDialog::PreTranslateMessage(pMsg);
    }

private:
    Throw m_throw;
};
} // namespace

TEST(Dialog, AnExceptionOfPreTranslateMessageEndsItWithMinusOne)
{
    TestWindow<> owner;
    ASSERT_TRUE(owner.Make(WS_POPUP | WS_VISIBLE));
    CThrowingDialog dialog(&owner, [] { AfxThrowUserException(); });
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_EQ(nullptr, dialog.m_hWnd);
    EXPECT_TRUE(owner.IsWindowEnabled());
}

TEST(Dialog, AForeignExceptionPassesAndLeavesTheOwnerEnabled)
{
    TestWindow<> owner;
    ASSERT_TRUE(owner.Make(WS_POPUP | WS_VISIBLE));
    CThrowingDialog dialog(&owner, [] { throw 5; });
    EXPECT_THROW(dialog.DoModal(), int);
    EXPECT_EQ(nullptr, dialog.m_hWnd);
    EXPECT_TRUE(owner.IsWindowEnabled());
}
