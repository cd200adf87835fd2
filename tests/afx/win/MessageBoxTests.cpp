// Message boxes of the application, and texts from resources.
#include "TestWindow.h"
#include "resource.h"

#include "kit/MessageBoxWatch.h"

TEST(MessageBoxes, HaveTheTextAndTheApplicationsName)
{
    testkit::MessageBoxWatch boxes;
    EXPECT_EQ(IDOK, AfxMessageBox(_T("What happened")));
    ASSERT_EQ(1u, boxes.Boxes().size());
    EXPECT_EQ(L"What happened", boxes.Boxes()[0].text);
    EXPECT_EQ(AfxGetAppName(), boxes.Boxes()[0].caption);
    EXPECT_EQ(L"afx_win_tests", boxes.Boxes()[0].caption)
        << "the program's file name, when no other was given";
}

TEST(MessageBoxes, ReturnTheButton)
{
    testkit::MessageBoxWatch boxes;
    boxes.Answer(IDNO);
    EXPECT_EQ(IDNO, AfxMessageBox(_T("?"), MB_YESNO));
    boxes.Answer(IDCANCEL);
    EXPECT_EQ(IDCANCEL, AfxMessageBox(_T("?"), MB_YESNOCANCEL));
}

TEST(MessageBoxes, TakeTheirTextFromTheStringTable)
{
    testkit::MessageBoxWatch boxes;
    EXPECT_EQ(IDOK, AfxMessageBox(IDS_GREETING));
    EXPECT_EQ(std::vector<std::wstring>{L"A text from the string table"}, boxes.Texts());
}

TEST(MessageBoxes, PlainOnesGetTheExclamationMark)
{
    testkit::MessageBoxWatch boxes;
    AfxMessageBox(_T("a"), MB_OK);
    AfxMessageBox(_T("b"), MB_YESNO);
    AfxMessageBox(_T("c"), MB_OK | MB_ICONINFORMATION);
    AfxMessageBox(_T("d"), MB_RETRYCANCEL);
    ASSERT_EQ(4u, boxes.Boxes().size());
    EXPECT_EQ(UINT(MB_ICONWARNING), boxes.Boxes()[0].icon);
    EXPECT_EQ(UINT(MB_ICONWARNING), boxes.Boxes()[1].icon);
    EXPECT_EQ(UINT(MB_ICONINFORMATION), boxes.Boxes()[2].icon) << "a given icon stays";
    EXPECT_EQ(0u, boxes.Boxes()[3].icon);
}

namespace
{
// Notes who owns the box and what is enabled while it is shown.
class COwnerLook
{
public:
    COwnerLook() { m_hook = ::SetWindowsHookEx(WH_CBT, &Hook, nullptr, ::GetCurrentThreadId()); }
    ~COwnerLook() { ::UnhookWindowsHookEx(m_hook); }
    static HWND owner;

private:
    static LRESULT CALLBACK Hook(int nCode, WPARAM wParam, LPARAM lParam)
    {
        TCHAR windowClass[10]{};
        ::GetClassName(reinterpret_cast<HWND>(wParam), windowClass, _countof(windowClass));
        if (nCode == HCBT_ACTIVATE && ::lstrcmp(windowClass, _T("#32770")) == 0)
            owner = ::GetWindow(reinterpret_cast<HWND>(wParam), GW_OWNER);
        return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
    }
    HHOOK m_hook;
};
HWND COwnerLook::owner = nullptr;
} // namespace

TEST(MessageBoxes, BelongToTheMainWindowsLastActivePopup)
{
    TestWindow<> mainWindow;
    ASSERT_TRUE(mainWindow.Make(WS_POPUP | WS_VISIBLE));
    AfxGetApp()->m_pMainWnd = &mainWindow;
    {
        testkit::MessageBoxWatch boxes;
        const COwnerLook look;
        AfxMessageBox(_T("over the main window"));
        EXPECT_EQ(mainWindow.m_hWnd, COwnerLook::owner);

        TestWindow<> popup;
        ASSERT_TRUE(popup.Make(WS_POPUP | WS_VISIBLE, &mainWindow));
        popup.SetActiveWindow();
        AfxMessageBox(_T("over the pop-up"));
        EXPECT_EQ(popup.m_hWnd, COwnerLook::owner);
        EXPECT_TRUE(mainWindow.IsWindowEnabled()) << "enabled again";
        EXPECT_TRUE(popup.IsWindowEnabled());
    }
    AfxGetApp()->m_pMainWnd = nullptr;
}

TEST(MessageBoxes, OfAWindowHaveTheApplicationsNameUnlessGivenAnother)
{
    TestWindow<> window;
    ASSERT_TRUE(window.Make(WS_POPUP | WS_VISIBLE));
    testkit::MessageBoxWatch boxes;
    window.MessageBox(_T("one"));
    window.MessageBox(_T("two"), _T("own"));
    ASSERT_EQ(2u, boxes.Boxes().size());
    EXPECT_EQ(AfxGetAppName(), boxes.Boxes()[0].caption);
    EXPECT_EQ(L"own", boxes.Boxes()[1].caption);
}

TEST(Texts, NumbersInAFormatAreReplaced)
{
    CString text;
    AfxFormatString2(text, IDS_TWO_PLACES, _T("A%2"), _T("B"));
    EXPECT_EQ(CString(_T("B comes before A%2 at 100%")), text) << "what is put in is not looked at again";
    AfxFormatString1(text, IDS_TWO_PLACES, _T("A"));
    EXPECT_EQ(CString(_T("%2 comes before A at 100%")), text);
}

TEST(Texts, PiecesBetweenSeparators)
{
    CString piece;
    EXPECT_TRUE(AfxExtractSubString(piece, _T("a\n\nc"), 0));
    EXPECT_EQ(CString(_T("a")), piece);
    EXPECT_TRUE(AfxExtractSubString(piece, _T("a\n\nc"), 1));
    EXPECT_TRUE(piece.IsEmpty());
    EXPECT_TRUE(AfxExtractSubString(piece, _T("a\n\nc"), 2));
    EXPECT_EQ(CString(_T("c")), piece);
    EXPECT_FALSE(AfxExtractSubString(piece, _T("a\n\nc"), 3));
    EXPECT_TRUE(piece.IsEmpty());
    EXPECT_TRUE(AfxExtractSubString(piece, _T("a;b"), 1, _T(';')));
    EXPECT_EQ(CString(_T("b")), piece);
}
