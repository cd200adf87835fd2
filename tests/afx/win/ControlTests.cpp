// The controls' members that are more than one message, each control at least once.
#include "TestWindow.h"

namespace
{
class Controls : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(parent.Make()); }
    TestWindow<> parent;
    const CRect place{0, 0, 150, 120};
};
} // namespace

TEST_F(Controls, ListBoxGivesTextsOfAnyLength)
{
    CListBox list;
    ASSERT_TRUE(list.Create(WS_CHILD, place, &parent, 1));
    const CString text(_T('x'), 1000);
    EXPECT_EQ(0, list.AddString(_T("a")));
    EXPECT_EQ(1, list.AddString(text));
    CString read;
    list.GetText(1, read);
    EXPECT_EQ(text, read);
    EXPECT_EQ(LB_ERR, list.GetTextLen(2));
}

TEST_F(Controls, TextOfAWrongIndexIsAnInvalidArgument)
{
    CListBox list;
    ASSERT_TRUE(list.Create(WS_CHILD, place, &parent, 1));
    CComboBox combo;
    ASSERT_TRUE(combo.Create(WS_CHILD | CBS_DROPDOWN, place, &parent, 2));
    for (const bool useList : {true, false}) {
        bool thrown = false;
        CString read;
        try {
            useList ? list.GetText(0, read) : combo.GetLBText(0, read);
        } catch (CInvalidArgException* e) {
            thrown = true;
            e->Delete();
        }
        EXPECT_TRUE(thrown);
    }
}

TEST_F(Controls, ListBoxFindsTheItemUnderAPoint)
{
    CListBox list;
    ASSERT_TRUE(list.Create(WS_CHILD, place, &parent, 1));
    list.AddString(_T("a"));
    list.AddString(_T("b"));
    CRect second;
    ASSERT_NE(LB_ERR, list.GetItemRect(1, second));
    BOOL outside = TRUE;
    EXPECT_EQ(1u, list.ItemFromPoint(second.CenterPoint(), outside));
    EXPECT_FALSE(outside);
    list.ItemFromPoint(CPoint(-5, -5), outside);
    EXPECT_TRUE(outside);
}

TEST_F(Controls, EditGivesItsLines)
{
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | ES_MULTILINE, place, &parent, 1));
    edit.SetWindowText(_T("first\r\nsecond"));
    EXPECT_EQ(2, edit.GetLineCount());
    TCHAR line[20]{};
    EXPECT_EQ(6, edit.GetLine(1, line, 20));
    EXPECT_STREQ(_T("second"), line);
    edit.SetSel(2, 4);
    int start = 0, end = 0;
    edit.GetSel(start, end);
    EXPECT_EQ(2, start);
    EXPECT_EQ(4, end);
    edit.ReplaceSel(_T("XYZ"));
    EXPECT_EQ(5, edit.GetLine(0, line, 5));
    EXPECT_EQ(CString(_T("fiXYZ")), CString(line, 5));
}

TEST_F(Controls, ButtonKeepsItsCheck)
{
    CButton button;
    ASSERT_TRUE(button.Create(_T("check"), WS_CHILD | BS_AUTOCHECKBOX, place, &parent, 1));
    EXPECT_EQ(0, button.GetCheck());
    button.SetCheck(BST_CHECKED);
    EXPECT_EQ(1, button.GetCheck());
    EXPECT_EQ(UINT(BS_AUTOCHECKBOX), button.GetButtonStyle() & BS_TYPEMASK);
}

TEST_F(Controls, ScrollBarsLimitIsTheMaximumLessThePage)
{
    CScrollBar bar;
    ASSERT_TRUE(bar.Create(WS_CHILD | SBS_VERT, place, &parent, 1));
    SCROLLINFO info{};
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMin = 0;
    info.nMax = 99;
    info.nPage = 10;
    info.nPos = 5;
    EXPECT_TRUE(bar.SetScrollInfo(&info));
    EXPECT_EQ(90, bar.GetScrollLimit());
    EXPECT_EQ(5, bar.GetScrollPos());
    EXPECT_EQ(5, bar.SetScrollPos(20));
    SCROLLINFO read{};
    EXPECT_TRUE(bar.GetScrollInfo(&read));
    EXPECT_EQ(20, read.nPos);
    EXPECT_EQ(99, read.nMax);
}

TEST_F(Controls, SiblingScrollBarServesAWindow)
{
    class CServed : public TestWindow<>
    {
    public:
        CScrollBar m_bar;
        virtual CScrollBar* GetScrollBarCtrl(int nBar) const
        {
            return nBar == SB_VERT ? const_cast<CScrollBar*>(&m_bar) : nullptr;
        }
    } window;
    ASSERT_TRUE(window.Make());
    ASSERT_TRUE(window.m_bar.Create(WS_CHILD | SBS_VERT, place, &window, 1));
    window.SetScrollRange(SB_VERT, 0, 50);
    window.SetScrollPos(SB_VERT, 30);
    EXPECT_EQ(30, window.m_bar.GetScrollPos());
    EXPECT_EQ(30, window.GetScrollPos(SB_VERT));
    EXPECT_EQ(0u, window.GetStyle() & WS_VSCROLL);
}

TEST_F(Controls, ListViewKeepsItemsColumnsAndTexts)
{
    CListCtrl list;
    ASSERT_TRUE(list.Create(WS_CHILD | LVS_REPORT, place, &parent, 1));
    EXPECT_EQ(0, list.InsertColumn(0, _T("First"), LVCFMT_LEFT, 60));
    EXPECT_EQ(1, list.InsertColumn(1, _T("Second"), LVCFMT_RIGHT, 40, 1));
    EXPECT_EQ(40, list.GetColumnWidth(1));
    EXPECT_EQ(2, list.GetHeaderCtrl()->GetItemCount());
    EXPECT_EQ(0, list.InsertItem(0, _T("row")));
    const CString text(_T('y'), 700);
    EXPECT_TRUE(list.SetItemText(0, 1, text));
    EXPECT_EQ(text, list.GetItemText(0, 1)) << "whole, however long";
    EXPECT_EQ(CString(_T("row")), list.GetItemText(0, 0));
    EXPECT_TRUE(list.SetItemData(0, 77));
    EXPECT_EQ(DWORD_PTR(77), list.GetItemData(0));
    int order[2] = {9, 9};
    EXPECT_TRUE(list.GetColumnOrderArray(order));
    EXPECT_EQ(0, order[0]);
    EXPECT_EQ(1, order[1]);
    CRect cell;
    EXPECT_TRUE(list.GetSubItemRect(0, 1, LVIR_BOUNDS, cell));
    EXPECT_EQ(40, cell.Width());
}

TEST_F(Controls, SelectedItemsAreWalkedByPosition)
{
    CListCtrl list;
    ASSERT_TRUE(list.Create(WS_CHILD | LVS_REPORT, place, &parent, 1));
    for (int i = 0; i < 5; ++i)
        list.InsertItem(i, _T("item"));
    EXPECT_EQ(nullptr, list.GetFirstSelectedItemPosition());
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    list.SetItemState(3, LVIS_SELECTED, LVIS_SELECTED);
    POSITION pos = list.GetFirstSelectedItemPosition();
    ASSERT_NE(nullptr, pos);
    EXPECT_EQ(0, list.GetNextSelectedItem(pos));
    ASSERT_NE(nullptr, pos);
    EXPECT_EQ(3, list.GetNextSelectedItem(pos));
    EXPECT_EQ(nullptr, pos);
}

TEST_F(Controls, ListViewsImageListIsTheObjectThatWasSet)
{
    CListCtrl list;
    ASSERT_TRUE(list.Create(WS_CHILD | LVS_REPORT | LVS_SHAREIMAGELISTS, place, &parent, 1));
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR, 1, 1));
    EXPECT_EQ(nullptr, list.SetImageList(&images, LVSIL_SMALL));
    EXPECT_EQ(&images, list.GetImageList(LVSIL_SMALL));
    EXPECT_EQ(&images, list.SetImageList(nullptr, LVSIL_SMALL));
}

TEST_F(Controls, TreeViewKeepsItsItems)
{
    CTreeCtrl tree;
    ASSERT_TRUE(tree.Create(WS_CHILD | TVS_HASBUTTONS | TVS_LINESATROOT, place, &parent, 1));
    const HTREEITEM root = tree.InsertItem(_T("root"));
    ASSERT_NE(nullptr, root);
    const CString text(_T('z'), 200);
    const HTREEITEM child = tree.InsertItem(text, root);
    EXPECT_EQ(2u, tree.GetCount());
    EXPECT_EQ(text, tree.GetItemText(child));
    EXPECT_EQ(root, tree.GetParentItem(child));
    EXPECT_EQ(child, tree.GetChildItem(root));
    EXPECT_TRUE(tree.ItemHasChildren(root));
    EXPECT_FALSE(tree.ItemHasChildren(child));
    EXPECT_TRUE(tree.SetItemData(child, 9));
    EXPECT_EQ(DWORD_PTR(9), tree.GetItemData(child));
    CRect label;
    EXPECT_FALSE(tree.GetItemRect(child, label, TRUE)) << "hidden while the parent is closed";
    EXPECT_TRUE(tree.Expand(root, TVE_EXPAND));
    EXPECT_TRUE(tree.GetItemRect(child, label, TRUE));
    UINT flags = 0;
    EXPECT_EQ(root, tree.HitTest(CPoint(60, 5), &flags));
}

TEST_F(Controls, ProgressBarStepsAndClamps)
{
    CProgressCtrl progress;
    ASSERT_TRUE(progress.Create(WS_CHILD, place, &parent, 1));
    progress.SetRange32(10, 50000);
    int lower = 0, upper = 0;
    progress.GetRange(lower, upper);
    EXPECT_EQ(10, lower);
    EXPECT_EQ(50000, upper);
    progress.SetPos(60000);
    EXPECT_EQ(50000, progress.GetPos());
    progress.SetStep(7);
    progress.SetPos(20);
    EXPECT_EQ(20, progress.StepIt());
    EXPECT_EQ(27, progress.GetPos());
}

TEST_F(Controls, ToolBarKeepsItsButtons)
{
    CToolBarCtrl bar;
    ASSERT_TRUE(bar.Create(WS_CHILD | CCS_NODIVIDER, place, &parent, 1));
    TBBUTTON buttons[2]{};
    buttons[0].idCommand = 100;
    buttons[0].fsState = TBSTATE_ENABLED;
    buttons[1].idCommand = 101;
    buttons[1].iString = bar.AddStrings(_T("Label\0"));
    EXPECT_TRUE(bar.AddButtons(2, buttons));
    EXPECT_EQ(2, bar.GetButtonCount());
    EXPECT_EQ(1u, bar.CommandToIndex(101));
    EXPECT_TRUE(bar.IsButtonEnabled(100));
    EXPECT_FALSE(bar.IsButtonEnabled(101));
    EXPECT_TRUE(bar.EnableButton(101));
    EXPECT_TRUE(bar.IsButtonEnabled(101));
    EXPECT_EQ(CString(_T("Label")), bar.GetButtonText(101));
}

TEST_F(Controls, StatusBarKeepsItsTexts)
{
    CStatusBarCtrl bar;
    ASSERT_TRUE(bar.Create(WS_CHILD, place, &parent, 1));
    int widths[] = {50, -1};
    EXPECT_TRUE(bar.SetParts(2, widths));
    EXPECT_TRUE(bar.SetText(_T("second part"), 1, 0));
    EXPECT_EQ(CString(_T("second part")), bar.GetText(1));
}

TEST_F(Controls, ToolTipControlKnowsItsTools)
{
    CToolTipCtrl tips;
    ASSERT_TRUE(tips.Create(&parent));
    CButton button;
    ASSERT_TRUE(button.Create(_T("b"), WS_CHILD, CRect(0, 0, 20, 20), &parent, 3));
    EXPECT_TRUE(tips.AddTool(&button, _T("for the button")));
    EXPECT_TRUE(tips.AddTool(&parent, _T("for a part"), CRect(30, 30, 60, 60), 9));
    EXPECT_EQ(2, tips.GetToolCount());
    CString text;
    tips.GetText(text, &button);
    EXPECT_EQ(CString(_T("for the button")), text);
    tips.UpdateTipText(_T("changed"), &parent, 9);
    tips.GetText(text, &parent, 9);
    EXPECT_EQ(CString(_T("changed")), text);
    tips.DelTool(&button);
    EXPECT_EQ(1, tips.GetToolCount());
}

TEST_F(Controls, WindowTextOfAnyLength)
{
    const CString text(_T('w'), 5000);
    parent.SetWindowText(text);
    CString read;
    parent.GetWindowText(read);
    EXPECT_EQ(text, read);
}

TEST_F(Controls, StyleBitsAreAddedAndRemoved)
{
    EXPECT_TRUE(parent.ModifyStyle(0, WS_VSCROLL));
    EXPECT_NE(0u, parent.GetStyle() & WS_VSCROLL);
    EXPECT_FALSE(parent.ModifyStyle(0, WS_VSCROLL)) << "nothing to change";
    EXPECT_TRUE(parent.ModifyStyle(WS_VSCROLL, 0));
    EXPECT_EQ(0u, parent.GetStyle() & WS_VSCROLL);
}

TEST_F(Controls, RectanglesAreMappedBetweenClientAndScreen)
{
    CRect rect(1, 2, 11, 12);
    parent.ClientToScreen(rect);
    EXPECT_EQ(CRect(101, 102, 111, 112), rect);
    parent.ScreenToClient(rect);
    EXPECT_EQ(CRect(1, 2, 11, 12), rect);
}

TEST_F(Controls, OwnerIsTheParentUnlessSet)
{
    CButton button;
    ASSERT_TRUE(button.Create(_T("b"), WS_CHILD, CRect(0, 0, 20, 20), &parent, 3));
    TestWindow<> other;
    ASSERT_TRUE(other.Make());
    EXPECT_EQ(&parent, button.GetOwner());
    button.SetOwner(&other);
    EXPECT_EQ(&other, button.GetOwner());
    EXPECT_EQ(&parent, button.GetParentOwner());
    EXPECT_EQ(&parent, button.GetTopLevelParent());
    EXPECT_EQ(&button, parent.GetDescendantWindow(3));
}

TEST_F(Controls, ColourChangesReachControls)
{
    class CHearing : public CButton
    {
    public:
        int m_heard = 0;

    protected:
        virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
        {
            if (message == WM_SYSCOLORCHANGE)
                ++m_heard;
            return CButton::WindowProc(message, wParam, lParam);
        }
    } button;
    ASSERT_TRUE(button.Create(_T("b"), WS_CHILD, CRect(0, 0, 20, 20), &parent, 3));
    parent.SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_EQ(1, button.m_heard);
}
