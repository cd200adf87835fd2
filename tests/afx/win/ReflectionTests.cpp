// Messages that a parent gives back to the control that they are about.
#include "TestWindow.h"

#include <string>
#include <vector>

namespace
{
std::vector<std::string> steps;

class CParent : public TestWindow<>
{
public:
    HBRUSH m_brush = nullptr;

protected:
    afx_msg void OnParentCommand() { steps.push_back("parent command"); }
    afx_msg void OnParentClick(NMHDR*, LRESULT* pResult)
    {
        steps.push_back("parent notify");
        *pResult = 2;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CParent, CWnd)
ON_BN_CLICKED(5, &CParent::OnParentCommand)
ON_NOTIFY(NM_CLICK, 5, &CParent::OnParentClick)
END_MESSAGE_MAP()

class CReflecting : public CButton
{
public:
    BOOL m_takes = TRUE;
    HBRUSH m_brush = nullptr;
    UINT m_colourKind = 99;

protected:
    afx_msg BOOL OnOwnClick()
    {
        steps.push_back("own command");
        return m_takes;
    }
    afx_msg BOOL OnOwnNotify(NMHDR*, LRESULT* pResult)
    {
        steps.push_back("own notify");
        *pResult = 1;
        return m_takes;
    }
    afx_msg void OnOwnDblClk(NMHDR*, LRESULT* pResult)
    {
        steps.push_back("own double click");
        *pResult = 3;
    }
    afx_msg HBRUSH CtlColor(CDC*, UINT nCtlColor)
    {
        m_colourKind = nCtlColor;
        return m_brush;
    }
    virtual void DrawItem(LPDRAWITEMSTRUCT) { steps.push_back("draw item"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CReflecting, CButton)
ON_CONTROL_REFLECT_EX(BN_CLICKED, &CReflecting::OnOwnClick)
ON_NOTIFY_REFLECT_EX(NM_CLICK, &CReflecting::OnOwnNotify)
ON_NOTIFY_REFLECT(NM_DBLCLK, &CReflecting::OnOwnDblClk)
ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

class CScrolled : public CScrollBar
{
public:
    UINT m_code = 0;
    UINT m_pos = 0;

protected:
    afx_msg void HScroll(UINT nSBCode, UINT nPos)
    {
        m_code = nSBCode;
        m_pos = nPos;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CScrolled, CScrollBar)
ON_WM_HSCROLL_REFLECT()
END_MESSAGE_MAP()

class CDrawnList : public CListBox
{
protected:
    virtual void MeasureItem(LPMEASUREITEMSTRUCT item)
    {
        steps.push_back("measure");
        item->itemHeight = 33;
    }
    virtual int CompareItem(LPCOMPAREITEMSTRUCT item)
    {
        return item->itemData1 < item->itemData2 ? -1 : item->itemData1 > item->itemData2 ? 1 : 0;
    }
    virtual void DeleteItem(LPDELETEITEMSTRUCT item)
    {
        steps.push_back("delete " + std::to_string(item->itemData));
    }
    virtual void DrawItem(LPDRAWITEMSTRUCT) { steps.push_back("draw"); }
};

class Reflection : public testing::Test
{
protected:
    void SetUp() override
    {
        steps.clear();
        steps.shrink_to_fit();
        ASSERT_TRUE(parent.Make());
        ASSERT_TRUE(control.Create(_T("button"), WS_CHILD, CRect(0, 0, 50, 20), &parent, 5));
    }
    void TearDown() override
    {
        control.DestroyWindow();
        parent.DestroyWindow();
        std::vector<std::string>().swap(steps);
    }
    LRESULT Notify(UINT code)
    {
        NMHDR header{control, 5, code};
        return parent.SendMessage(WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&header));
    }

    CParent parent;
    CReflecting control;
};

using Steps = std::vector<std::string>;
} // namespace

TEST_F(Reflection, ControlsHandlerTakesTheCommandFromTheParent)
{
    control.SendMessage(BM_CLICK);
    EXPECT_EQ(Steps{"own command"}, steps);
}

TEST_F(Reflection, PassedOnCommandReachesTheParent)
{
    control.m_takes = FALSE;
    control.SendMessage(BM_CLICK);
    EXPECT_EQ((Steps{"own command", "parent command"}), steps);
}

TEST_F(Reflection, ControlsHandlerTakesTheNotificationAndItsResult)
{
    EXPECT_EQ(1, Notify(NM_CLICK));
    EXPECT_EQ(Steps{"own notify"}, steps);
}

TEST_F(Reflection, PassedOnNotificationReachesTheParentWhoseResultCounts)
{
    control.m_takes = FALSE;
    EXPECT_EQ(2, Notify(NM_CLICK));
    EXPECT_EQ((Steps{"own notify", "parent notify"}), steps);
}

TEST_F(Reflection, PlainReflectHandlerAlwaysTakes)
{
    EXPECT_EQ(3, Notify(NM_DBLCLK));
    EXPECT_EQ(Steps{"own double click"}, steps);
}

TEST_F(Reflection, ControlAnswersForItsColours)
{
    CBrush brush(RGB(1, 2, 3));
    control.m_brush = brush;
    CClientDC dc(&control);
    const auto answer = parent.SendMessage(WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(dc.m_hDC),
                                           reinterpret_cast<LPARAM>(control.m_hWnd));
    EXPECT_EQ(brush.m_hObject, reinterpret_cast<HGDIOBJ>(answer));
    EXPECT_EQ(UINT(CTLCOLOR_BTN), control.m_colourKind);
}

TEST_F(Reflection, WithoutBrushTheColoursAreTheDefault)
{
    CClientDC dc(&control);
    const auto wParam = reinterpret_cast<WPARAM>(dc.m_hDC);
    const auto lParam = reinterpret_cast<LPARAM>(control.m_hWnd);
    EXPECT_EQ(::DefWindowProc(parent, WM_CTLCOLORBTN, wParam, lParam),
              parent.SendMessage(WM_CTLCOLORBTN, wParam, lParam));
    EXPECT_EQ(UINT(CTLCOLOR_BTN), control.m_colourKind);
}

TEST_F(Reflection, OwnerDrawnButtonDrawsItself)
{
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.CtlID = 5;
    item.hwndItem = control;
    EXPECT_EQ(TRUE, parent.SendMessage(WM_DRAWITEM, 5, reinterpret_cast<LPARAM>(&item)));
    EXPECT_EQ(Steps{"draw item"}, steps);
}

TEST_F(Reflection, ScrollBarHearsOfItsOwnScrolling)
{
    CScrolled bar;
    ASSERT_TRUE(bar.Create(WS_CHILD, CRect(0, 0, 50, 20), &parent, 6));
    parent.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 42), reinterpret_cast<LPARAM>(bar.m_hWnd));
    EXPECT_EQ(UINT(SB_THUMBPOSITION), bar.m_code);
    EXPECT_EQ(42u, bar.m_pos);
}

TEST_F(Reflection, OwnerDrawnListBoxMeasuresComparesAndDeletesItself)
{
    CDrawnList list;
    ASSERT_TRUE(list.Create(WS_CHILD | LBS_OWNERDRAWVARIABLE | LBS_SORT, CRect(0, 0, 50, 100), &parent, 7));
    steps.clear();
    EXPECT_EQ(0, list.AddString(reinterpret_cast<LPCTSTR>(30)));
    EXPECT_EQ(0, list.AddString(reinterpret_cast<LPCTSTR>(10))) << "sorted before 30";
    EXPECT_EQ(1, list.AddString(reinterpret_cast<LPCTSTR>(20))) << "sorted between";
    EXPECT_EQ(33, list.GetItemHeight(0));
    steps.clear();
    list.DeleteString(1);
    EXPECT_EQ(Steps{"delete 20"}, steps);
}

namespace
{
// Answers every message that can be reflected with its own kind of handler.
class CAllReflecting : public CButton
{
public:
    std::vector<std::string> m_heard;

protected:
    afx_msg int CompareItem(LPCOMPAREITEMSTRUCT) { return Hear("compare", 11); }
    afx_msg void DeleteItem(LPDELETEITEMSTRUCT) { Hear("delete"); }
    afx_msg void MeasureItem(LPMEASUREITEMSTRUCT) { Hear("measure"); }
    afx_msg int CharToItem(UINT nKey, UINT nIndex)
    {
        return Hear("char", static_cast<int>(nKey * 10 + nIndex));
    }
    afx_msg int VKeyToItem(UINT nKey, UINT nIndex)
    {
        return Hear("key", static_cast<int>(nKey * 10 + nIndex));
    }
    afx_msg void HScroll(UINT, UINT) { Hear("hscroll"); }
    afx_msg void VScroll(UINT, UINT) { Hear("vscroll"); }
    afx_msg void ParentNotify(UINT, LPARAM) { Hear("parent notify"); }
    afx_msg HBRUSH CtlColor(CDC*, UINT) { return nullptr; }
    int Hear(const char* what, int result = 0)
    {
        m_heard.push_back(what);
        return result;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CAllReflecting, CButton)
ON_WM_CTLCOLOR_REFLECT()
ON_WM_COMPAREITEM_REFLECT()
ON_WM_DELETEITEM_REFLECT()
ON_WM_DRAWITEM_REFLECT()
ON_WM_MEASUREITEM_REFLECT()
ON_WM_CHARTOITEM_REFLECT()
ON_WM_VKEYTOITEM_REFLECT()
ON_WM_HSCROLL_REFLECT()
ON_WM_VSCROLL_REFLECT()
ON_WM_PARENTNOTIFY_REFLECT()
END_MESSAGE_MAP()
} // namespace

TEST_F(Reflection, EveryReflectedMessageReachesItsHandler)
{
    CAllReflecting all;
    ASSERT_TRUE(all.Create(_T("all"), WS_CHILD, CRect(0, 0, 10, 10), &parent, 8));
    EXPECT_EQ(Steps{"parent notify"}, std::exchange(all.m_heard, {})) << "of its own creation";
    const auto handle = reinterpret_cast<LPARAM>(all.m_hWnd);
    COMPAREITEMSTRUCT compare{};
    compare.hwndItem = all;
    EXPECT_EQ(11, parent.SendMessage(WM_COMPAREITEM, 8, reinterpret_cast<LPARAM>(&compare)));
    DELETEITEMSTRUCT deletion{};
    deletion.hwndItem = all;
    parent.SendMessage(WM_DELETEITEM, 8, reinterpret_cast<LPARAM>(&deletion));
    MEASUREITEMSTRUCT measure{};
    measure.CtlType = ODT_LISTBOX;
    measure.CtlID = 8;
    parent.SendMessage(WM_MEASUREITEM, 8, reinterpret_cast<LPARAM>(&measure));
    EXPECT_EQ(34, parent.SendMessage(WM_CHARTOITEM, MAKEWPARAM(3, 4), handle));
    EXPECT_EQ(56, parent.SendMessage(WM_VKEYTOITEM, MAKEWPARAM(5, 6), handle));
    parent.SendMessage(WM_HSCROLL, 0, handle);
    parent.SendMessage(WM_VSCROLL, 0, handle);
    parent.SendMessage(WM_PARENTNOTIFY, WM_CREATE, handle);
    EXPECT_EQ((Steps{"compare", "delete", "measure", "char", "key", "hscroll", "vscroll", "parent notify"}),
              all.m_heard);
}
