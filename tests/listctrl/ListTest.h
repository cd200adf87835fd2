// What the tests of the list control share.
#pragma once

#include <VelmUtil22.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kit/Picture.h"
#include "kit/Pump.h"
#include "kit/Text.h"

// A header and a list with their protected members open to the tests.
class OpenHeader : public CXHeaderCtrl
{
public:
    using CXHeaderCtrl::DrawBitmap;
    using CXHeaderCtrl::DrawCtrl;
    using CXHeaderCtrl::DrawImage;
    using CXHeaderCtrl::DrawItem;
    using CXHeaderCtrl::DrawText;
    using CXHeaderCtrl::m_bDoubleBuffer;
    using CXHeaderCtrl::m_bWideLayout;
    using CXHeaderCtrl::m_cr3DFace;
    using CXHeaderCtrl::m_cr3DHighLight;
    using CXHeaderCtrl::m_cr3DShadow;
    using CXHeaderCtrl::m_crText;
    using CXHeaderCtrl::m_nProperty4;
    using CXHeaderCtrl::m_nReserved1;
    using CXHeaderCtrl::m_nReserved2;
    using CXHeaderCtrl::m_nReserved3;
    using CXHeaderCtrl::m_nSpacing;
    using CXHeaderCtrl::m_sizeImage;
    using CXHeaderCtrl::m_sizeProperty2;
};

class OpenList : public CXListCtrl
{
public:
    using CXListCtrl::DrawCheckbox;
    using CXListCtrl::DrawComboBox;
    using CXListCtrl::DrawImage;
    using CXListCtrl::DrawProgress;
    using CXListCtrl::DrawText;
    using CXListCtrl::GetDrawColors;
    using CXListCtrl::OnToolTipText;
    using CXListCtrl::SubclassHeaderControl;
    using CXListCtrl::UnpressComboButton;

    using CXListCtrl::m_bComboButtonHeld;
    using CXListCtrl::m_bComboFontCreated;
    using CXListCtrl::m_bHeaderSubclassed;
    using CXListCtrl::m_cImageList;
    using CXListCtrl::m_cr3DFace;
    using CXListCtrl::m_cr3DHighLight;
    using CXListCtrl::m_cr3DShadow;
    using CXListCtrl::m_crBtnFace;
    using CXListCtrl::m_crBtnShadow;
    using CXListCtrl::m_crBtnText;
    using CXListCtrl::m_crGrayText;
    using CXListCtrl::m_crHighLight;
    using CXListCtrl::m_crHighLightText;
    using CXListCtrl::m_crWindow;
    using CXListCtrl::m_crWindowText;
    using CXListCtrl::m_dwExtendedStyleX;
    using CXListCtrl::m_fontComboList;
    using CXListCtrl::m_HeaderCtrl;
    using CXListCtrl::m_nComboItem;
    using CXListCtrl::m_nComboSubItem;
    using CXListCtrl::m_pCombo;
    using CXListCtrl::m_rectComboButton;
    using CXListCtrl::m_rectComboList;
    using CXListCtrl::m_strComboOpenText;
    using CXListCtrl::m_strNoItemsMessage;

    // The record of a cell, by the row's parameter; null for a row without records.
    XLISTCTRLDATA* Record(int row, int column)
    {
        const auto records = reinterpret_cast<XLISTCTRLDATA*>(CListCtrl::GetItemData(row));
        return records != nullptr ? records + column : nullptr;
    }
};

// What the list told its parent.
struct ParentMessage
{
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    bool operator==(const ParentMessage&) const = default;
};

// A parent that notes the list's registered messages and the codes of its notifications, in order.
class ListParent : public CWnd
{
public:
    std::vector<ParentMessage> messages;
    std::vector<UINT> notifications;
    // The notification that it answers with TRUE, after all else that hears of it.
    UINT answered = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_XLISTCTRL_CHECKBOX_CLICKED || message == WM_XLISTCTRL_COMBO_SELECTION)
            messages.push_back({message, wParam, lParam});
        if (message == WM_NOTIFY)
            notifications.push_back(reinterpret_cast<NMHDR*>(lParam)->code);
        const bool isAnswered = message == WM_NOTIFY && answered != 0 && notifications.back() == answered;
        const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
        return isAnswered ? TRUE : result;
    }
};

// A visible parent with a list of three columns (100, 80 and 60 pixels), without rows, and the focus
// elsewhere.
class ListTest : public testing::Test
{
protected:
    static constexpr DWORD Style = WS_CHILD | WS_VISIBLE | LVS_REPORT;

    void SetUp() override { MakeList(); }

    void MakeList(DWORD style = Style)
    {
        m_parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE,
                          CRect(20, 20, 420, 320), nullptr, 0);
        ASSERT_TRUE(m_list.Create(style, CRect(10, 10, 310, 260), &m_parent, 1));
        m_list.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
        m_list.InsertColumn(1, L"Second", LVCFMT_LEFT, 80);
        m_list.InsertColumn(2, L"Third", LVCFMT_LEFT, 60);
        m_parent.SetFocus();
    }

    // The windows go before the objects, as in a program.
    void TearDown() override
    {
        if (m_parent.GetSafeHwnd() != nullptr)
            m_parent.DestroyWindow();
    }

    void AddRows(int count)
    {
        for (int row = 0; row < count; ++row) {
            CString text;
            text.Format(L"row %d", row);
            const int end = m_list.GetItemCount();
            ASSERT_EQ(m_list.InsertItem(end, text), end);
        }
    }

    // Sends button down and up to the list as the platform does for a click.
    void Click(CPoint point)
    {
        m_list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
        m_list.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    }

    CRect Cell(int row, int column)
    {
        CRect rect;
        m_list.GetSubItemRect(row, column, LVIR_BOUNDS, rect);
        return rect;
    }

    ListParent m_parent;
    OpenList m_list;
};
