// Menus: who owns them, what they hold, and the state of their items.
#include "TestWindow.h"
#include "resource.h"

TEST(Menus, DestructorDestroysTheMenuWithItsPopups)
{
    HMENU bar, popup;
    {
        CMenu menu;
        ASSERT_TRUE(menu.LoadMenu(IDR_MENU));
        bar = menu.m_hMenu;
        popup = menu.GetSubMenu(0)->m_hMenu;
        EXPECT_TRUE(::IsMenu(popup));
    }
    EXPECT_FALSE(::IsMenu(bar));
    EXPECT_FALSE(::IsMenu(popup));
}

TEST(Menus, TemporaryMenusOwnNothing)
{
    CMenu menu;
    ASSERT_TRUE(menu.LoadMenu(IDR_MENU));
    CMenu* const popup = menu.GetSubMenu(0);
    const HMENU handle = popup->m_hMenu;
    EXPECT_EQ(popup, menu.GetSubMenu(0));
    CMenu::DeleteTempMap();
    EXPECT_TRUE(::IsMenu(handle));
}

TEST(Menus, DetachedMenuIsTheCallers)
{
    HMENU handle;
    {
        CMenu menu;
        ASSERT_TRUE(menu.CreatePopupMenu());
        handle = menu.Detach();
        EXPECT_FALSE(menu.DestroyMenu());
    }
    EXPECT_TRUE(::IsMenu(handle));
    ::DestroyMenu(handle);
}

TEST(Menus, MissingResourceLoadsNothing)
{
    CMenu menu;
    EXPECT_FALSE(menu.LoadMenu(9999));
    EXPECT_EQ(nullptr, menu.m_hMenu);
}

TEST(Menus, ItemsAreAddedChangedAndTakenAway)
{
    CMenu menu;
    ASSERT_TRUE(menu.CreatePopupMenu());
    EXPECT_TRUE(menu.AppendMenu(MF_STRING, 1, _T("one")));
    EXPECT_TRUE(menu.AppendMenu(MF_STRING, 3, _T("three")));
    EXPECT_TRUE(menu.InsertMenu(1, MF_BYPOSITION | MF_STRING, 2, _T("two")));
    EXPECT_EQ(3u, menu.GetMenuItemCount());
    EXPECT_EQ(2u, menu.GetMenuItemID(1));
    EXPECT_TRUE(menu.ModifyMenu(2, MF_BYCOMMAND | MF_STRING, 2, _T("changed")));
    CString text;
    EXPECT_EQ(7, menu.GetMenuString(2, text, MF_BYCOMMAND));
    EXPECT_EQ(CString(_T("changed")), text);
    menu.CheckMenuItem(1, MF_BYCOMMAND | MF_CHECKED);
    EXPECT_EQ(UINT(MF_CHECKED), menu.GetMenuState(1, MF_BYCOMMAND) & MF_CHECKED);
    EXPECT_TRUE(menu.DeleteMenu(0, MF_BYPOSITION));
    EXPECT_EQ(2u, menu.GetMenuItemCount());
}

TEST(Menus, RemovedPopupLivesOn)
{
    CMenu menu;
    ASSERT_TRUE(menu.LoadMenu(IDR_MENU));
    CMenu popup;
    popup.Attach(menu.GetSubMenu(0)->m_hMenu);
    ASSERT_TRUE(menu.RemoveMenu(0, MF_BYPOSITION));
    EXPECT_TRUE(::IsMenu(popup));
    EXPECT_EQ(1u, menu.GetMenuItemCount());
}

namespace
{
class CMenuFrame : public CFrameWnd
{
public:
    int m_ones = 0;
    BOOL m_enableTwo = TRUE;
    BOOL m_checkTwo = FALSE;
    bool* m_pDeleted = nullptr;

    virtual ~CMenuFrame()
    {
        if (m_pDeleted != nullptr)
            *m_pDeleted = true;
    }
    CMenu* Popup(int nPos) { return GetMenu()->GetSubMenu(nPos); }
    UINT StateOf(int nPopup, int nItem)
    {
        SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(Popup(nPopup)->m_hMenu),
                    MAKELPARAM(nPopup, FALSE));
        return Popup(nPopup)->GetMenuState(nItem, MF_BYPOSITION);
    }

protected:
    afx_msg void OnOne() { ++m_ones; }
    afx_msg void OnTwo() {}
    afx_msg void OnUpdateTwo(CCmdUI* pCmdUI)
    {
        pCmdUI->Enable(m_enableTwo);
        pCmdUI->SetCheck(m_checkTwo);
        pCmdUI->SetText(m_checkTwo ? _T("Checked two") : _T("Two"));
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CMenuFrame, CFrameWnd)
ON_COMMAND(ID_TEST_ONE, &CMenuFrame::OnOne)
ON_COMMAND(ID_TEST_TWO, &CMenuFrame::OnTwo)
ON_UPDATE_COMMAND_UI(ID_TEST_TWO, &CMenuFrame::OnUpdateTwo)
END_MESSAGE_MAP()

class Frame : public testing::Test
{
protected:
    static CMenuFrame* Make()
    {
        auto* const made = new CMenuFrame;
        return made->Create(nullptr, _T("frame"), WS_OVERLAPPEDWINDOW, CFrameWnd::rectDefault, nullptr,
                            MAKEINTRESOURCE(IDR_MENU))
                   ? made
                   : nullptr;
    }
    // The system makes the pictures of menus with the first one, and keeps them.
    static void SetUpTestSuite()
    {
        if (CMenuFrame* const first = Make())
            first->DestroyWindow();
    }
    void SetUp() override
    {
        frame = Make();
        ASSERT_NE(nullptr, frame);
    }
    void TearDown() override
    {
        if (frame != nullptr)
            frame->DestroyWindow();
    }
    CMenuFrame* frame = nullptr;
};
} // namespace

TEST_F(Frame, ItemsWithoutHandlerAreDisabledWhenTheMenuOpens)
{
    EXPECT_EQ(0u, frame->StateOf(0, 0) & MF_GRAYED) << "has a handler";
    EXPECT_EQ(UINT(MF_GRAYED), frame->StateOf(0, 3) & MF_GRAYED) << "has none";
    frame->m_bAutoMenuEnable = FALSE;
    EXPECT_EQ(0u, frame->StateOf(1, 0) & MF_GRAYED);
}

TEST_F(Frame, UpdateHandlerSetsTheItemsState)
{
    EXPECT_EQ(0u, frame->StateOf(0, 1) & (MF_GRAYED | MF_CHECKED));
    frame->m_enableTwo = FALSE;
    frame->m_checkTwo = TRUE;
    EXPECT_EQ(UINT(MF_GRAYED | MF_CHECKED), frame->StateOf(0, 1) & (MF_GRAYED | MF_CHECKED));
    CString text;
    frame->Popup(0)->GetMenuString(1, text, MF_BYPOSITION);
    EXPECT_EQ(CString(_T("Checked two")), text);
}

TEST_F(Frame, CommandOfADisabledItemIsNotCarriedOut)
{
    static int twos = 0;
    class CCounting : public CMenuFrame
    {
    protected:
        virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
        {
            if (nID == ID_TEST_TWO && nCode == CN_COMMAND && pHandlerInfo == nullptr)
                ++twos;
            return CMenuFrame::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
        }
    };
    auto* const counting = new CCounting;
    ASSERT_TRUE(counting->Create(nullptr, _T("counting")));
    counting->SendMessage(WM_COMMAND, ID_TEST_TWO);
    EXPECT_EQ(1, twos);
    counting->m_enableTwo = FALSE;
    counting->SendMessage(WM_COMMAND, ID_TEST_TWO);
    EXPECT_EQ(1, twos);
    counting->DestroyWindow();
}

TEST_F(Frame, DeletesItselfWithItsWindow)
{
    bool deleted = false;
    frame->m_pDeleted = &deleted;
    frame->SendMessage(WM_CLOSE);
    frame = nullptr;
    EXPECT_TRUE(deleted);
}

TEST_F(Frame, EndOfTheMainWindowEndsThePump)
{
    AfxGetApp()->m_pMainWnd = frame;
    frame->DestroyWindow();
    frame = nullptr;
    EXPECT_EQ(nullptr, AfxGetApp()->m_pMainWnd);
    MSG message{};
    EXPECT_TRUE(::PeekMessage(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(Frame, ModalStatesNest)
{
    frame->BeginModalState();
    frame->BeginModalState();
    EXPECT_FALSE(frame->IsWindowEnabled());
    EXPECT_TRUE(frame->InModalState());
    frame->EndModalState();
    EXPECT_FALSE(frame->IsWindowEnabled());
    frame->EndModalState();
    EXPECT_TRUE(frame->IsWindowEnabled());
    EXPECT_FALSE(frame->InModalState());
}

TEST_F(Frame, MissingMenuFailsTheCreation)
{
    bool deleted = false;
    auto* const other = new CMenuFrame;
    other->m_pDeleted = &deleted;
    EXPECT_FALSE(other->Create(nullptr, _T("x"), WS_OVERLAPPEDWINDOW, CFrameWnd::rectDefault, nullptr,
                               MAKEINTRESOURCE(9999)));
    EXPECT_TRUE(deleted);
}

namespace
{
class CPanel : public TestWindow<>
{
protected:
    afx_msg void OnUpdate(CCmdUI* pCmdUI)
    {
        pCmdUI->Enable(FALSE);
        pCmdUI->SetText(_T("off"));
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CPanel, CWnd)
ON_UPDATE_COMMAND_UI(31, &CPanel::OnUpdate)
END_MESSAGE_MAP()
} // namespace

TEST(CommandState, ControlsAreUpdatedByTheirNumbers)
{
    CPanel panel;
    ASSERT_TRUE(panel.Make());
    CButton known, orphan, check;
    ASSERT_TRUE(known.Create(_T("known"), WS_CHILD | BS_PUSHBUTTON, CRect(0, 0, 20, 20), &panel, 31));
    ASSERT_TRUE(orphan.Create(_T("orphan"), WS_CHILD | BS_PUSHBUTTON, CRect(0, 0, 20, 20), &panel, 32));
    ASSERT_TRUE(check.Create(_T("check"), WS_CHILD | BS_AUTOCHECKBOX, CRect(0, 0, 20, 20), &panel, 33));
    panel.UpdateDialogControls(&panel, TRUE);
    EXPECT_FALSE(known.IsWindowEnabled());
    CString text;
    known.GetWindowText(text);
    EXPECT_EQ(CString(_T("off")), text);
    EXPECT_FALSE(orphan.IsWindowEnabled()) << "a push button without handler";
    EXPECT_TRUE(check.IsWindowEnabled()) << "a check box is no command";
}
