// CListCtrl: the list view control.
//
// Create makes a child control of the platform's class with the given style bits; FALSE on failure.
// Image lists that are set stay the caller's; those returned are the owners' objects or temporary.
// Members without a comment send the control's message of the like name and return its result.
#pragma once

#include "win/headerctrl.h"
#include "win/tooltipctrl.h"

// A list view. Items and columns count from 0.
class AFX_CORE_API CListCtrl : public CWnd
{
    DECLARE_DYNAMIC(CListCtrl)

public:
    CListCtrl();
    virtual ~CListCtrl();

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Colours
    COLORREF GetBkColor() const { return (COLORREF)AfxSend(m_hWnd, LVM_GETBKCOLOR, 0, 0); }
    BOOL SetBkColor(COLORREF cr) { return (BOOL)AfxSend(m_hWnd, LVM_SETBKCOLOR, 0, cr); }
    COLORREF GetTextColor() const { return (COLORREF)AfxSend(m_hWnd, LVM_GETTEXTCOLOR, 0, 0); }
    BOOL SetTextColor(COLORREF cr) { return (BOOL)AfxSend(m_hWnd, LVM_SETTEXTCOLOR, 0, cr); }
    COLORREF GetTextBkColor() const { return (COLORREF)AfxSend(m_hWnd, LVM_GETTEXTBKCOLOR, 0, 0); }
    BOOL SetTextBkColor(COLORREF cr) { return (BOOL)AfxSend(m_hWnd, LVM_SETTEXTBKCOLOR, 0, cr); }
    COLORREF GetOutlineColor() const { return (COLORREF)AfxSend(m_hWnd, LVM_GETOUTLINECOLOR, 0, 0); }
    COLORREF SetOutlineColor(COLORREF color)
    {
        return (COLORREF)AfxSend(m_hWnd, LVM_SETOUTLINECOLOR, 0, color);
    }
    BOOL GetBkImage(LVBKIMAGE* plvbkImage) const
    {
        return (BOOL)AfxSend(m_hWnd, LVM_GETBKIMAGE, 0, plvbkImage);
    }
    BOOL SetBkImage(LVBKIMAGE* plvbkImage) { return (BOOL)AfxSend(m_hWnd, LVM_SETBKIMAGE, 0, plvbkImage); }

    // Image lists
    CImageList* GetImageList(int nImageList) const
    {
        return CImageList::FromHandle((HIMAGELIST)AfxSend(m_hWnd, LVM_GETIMAGELIST, nImageList, 0));
    }
    // Returns the earlier list.
    CImageList* SetImageList(CImageList* pImageList, int nImageListType)
    {
        return CImageList::FromHandle(
            (HIMAGELIST)AfxSend(m_hWnd, LVM_SETIMAGELIST, nImageListType, AfxSafe(pImageList)));
    }

    // Items
    int GetItemCount() const { return (int)AfxSend(m_hWnd, LVM_GETITEMCOUNT, 0, 0); }
    BOOL GetItem(LVITEM* pItem) const { return (BOOL)AfxSend(m_hWnd, LVM_GETITEM, 0, pItem); }
    BOOL SetItem(const LVITEM* pItem) { return (BOOL)AfxSend(m_hWnd, LVM_SETITEM, 0, pItem); }
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
                 UINT nStateMask, LPARAM lParam);
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState,
                 UINT nStateMask, LPARAM lParam, int nIndent);
    // Insert an item; its index, -1 on failure.
    int InsertItem(const LVITEM* pItem) { return (int)AfxSend(m_hWnd, LVM_INSERTITEM, 0, pItem); }
    int InsertItem(int nItem, LPCTSTR lpszItem) { return InsertItem(LVIF_TEXT, nItem, lpszItem, 0, 0, 0, 0); }
    int InsertItem(int nItem, LPCTSTR lpszItem, int nImage)
    {
        return InsertItem(LVIF_TEXT | LVIF_IMAGE, nItem, lpszItem, 0, 0, nImage, 0);
    }
    int InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage,
                   LPARAM lParam);
    BOOL DeleteItem(int nItem) { return (BOOL)AfxSend(m_hWnd, LVM_DELETEITEM, nItem, 0); }
    BOOL DeleteAllItems() { return (BOOL)AfxSend(m_hWnd, LVM_DELETEALLITEMS, 0, 0); }
    UINT GetCallbackMask() const { return (UINT)AfxSend(m_hWnd, LVM_GETCALLBACKMASK, 0, 0); }
    BOOL SetCallbackMask(UINT nMask) { return (BOOL)AfxSend(m_hWnd, LVM_SETCALLBACKMASK, nMask, 0); }
    int GetNextItem(int nItem, int nFlags) const
    {
        return (int)AfxSend(m_hWnd, LVM_GETNEXTITEM, nItem, MAKELPARAM(nFlags, 0));
    }
    // Walk the selected items: the position of the first, null for none; then the index of the one at
    // pos, which moves on to the next or to null.
    POSITION GetFirstSelectedItemPosition() const;
    int GetNextSelectedItem(POSITION& pos) const;
    UINT GetSelectedCount() const { return (UINT)AfxSend(m_hWnd, LVM_GETSELECTEDCOUNT, 0, 0); }
    int GetSelectionMark() { return (int)AfxSend(m_hWnd, LVM_GETSELECTIONMARK, 0, 0); }
    int SetSelectionMark(int iIndex) { return (int)AfxSend(m_hWnd, LVM_SETSELECTIONMARK, 0, iIndex); }
    UINT GetItemState(int nItem, UINT nMask) const
    {
        return (UINT)AfxSend(m_hWnd, LVM_GETITEMSTATE, nItem, nMask);
    }
    BOOL SetItemState(int nItem, LVITEM* pItem)
    {
        return (BOOL)AfxSend(m_hWnd, LVM_SETITEMSTATE, nItem, pItem);
    }
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    // The whole text; the first form cuts it to nLen with a final zero and returns the length.
    int GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const;
    CString GetItemText(int nItem, int nSubItem) const;
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);
    DWORD_PTR GetItemData(int nItem) const;
    BOOL SetItemData(int nItem, DWORD_PTR dwData);
    BOOL GetCheck(int nItem) const { return ((GetItemState(nItem, LVIS_STATEIMAGEMASK) >> 12) - 1) == 1; }
    BOOL SetCheck(int nItem, BOOL fCheck = TRUE)
    {
        return SetItemState(nItem, INDEXTOSTATEIMAGEMASK(fCheck ? 2 : 1), LVIS_STATEIMAGEMASK);
    }
    void SetItemCount(int nItems) { AfxSend(m_hWnd, LVM_SETITEMCOUNT, nItems, 0); }
    BOOL SetItemCountEx(int iCount, DWORD dwFlags = LVSICF_NOINVALIDATEALL)
    {
        return (BOOL)AfxSend(m_hWnd, LVM_SETITEMCOUNT, iCount, dwFlags);
    }
    int FindItem(LVFINDINFO* pFindInfo, int nStart = -1) const
    {
        return (int)AfxSend(m_hWnd, LVM_FINDITEM, nStart, pFindInfo);
    }
    BOOL SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData)
    {
        return (BOOL)AfxSend(m_hWnd, LVM_SORTITEMS, dwData, pfnCompare);
    }
    BOOL SortItemsEx(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData)
    {
        return (BOOL)AfxSend(m_hWnd, LVM_SORTITEMSEX, dwData, pfnCompare);
    }
    UINT MapIDToIndex(UINT id) const { return (UINT)AfxSend(m_hWnd, LVM_MAPIDTOINDEX, id, 0); }
    UINT MapIndexToID(UINT index) const { return (UINT)AfxSend(m_hWnd, LVM_MAPINDEXTOID, index, 0); }

    // Columns
    BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const
    {
        return (BOOL)AfxSend(m_hWnd, LVM_GETCOLUMN, nCol, pColumn);
    }
    BOOL SetColumn(int nCol, const LVCOLUMN* pColumn)
    {
        return (BOOL)AfxSend(m_hWnd, LVM_SETCOLUMN, nCol, pColumn);
    }
    int InsertColumn(int nCol, const LVCOLUMN* pColumn)
    {
        return (int)AfxSend(m_hWnd, LVM_INSERTCOLUMN, nCol, pColumn);
    }
    // A width of -1 is left to the control, a sub-item of -1 too.
    int InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    BOOL DeleteColumn(int nCol) { return (BOOL)AfxSend(m_hWnd, LVM_DELETECOLUMN, nCol, 0); }
    int GetColumnWidth(int nCol) const { return (int)AfxSend(m_hWnd, LVM_GETCOLUMNWIDTH, nCol, 0); }
    BOOL SetColumnWidth(int nCol, int cx)
    {
        return (BOOL)AfxSend(m_hWnd, LVM_SETCOLUMNWIDTH, nCol, MAKELPARAM(cx, 0));
    }
    // iCount -1: all columns.
    BOOL GetColumnOrderArray(LPINT piArray, int iCount = -1);
    BOOL SetColumnOrderArray(int iCount, LPINT piArray)
    {
        return (BOOL)AfxSend(m_hWnd, LVM_SETCOLUMNORDERARRAY, iCount, piArray);
    }
    UINT GetSelectedColumn() const { return (UINT)AfxSend(m_hWnd, LVM_GETSELECTEDCOLUMN, 0, 0); }
    LRESULT SetSelectedColumn(int iCol) { return AfxSend(m_hWnd, LVM_SETSELECTEDCOLUMN, iCol, 0); }
    CHeaderCtrl* GetHeaderCtrl() const
    {
        return (CHeaderCtrl*)CWnd::FromHandle((HWND)AfxSend(m_hWnd, LVM_GETHEADER, 0, 0));
    }

    // Places and sizes
    BOOL GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const;
    BOOL GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref);
    BOOL GetItemPosition(int nItem, LPPOINT lpPoint) const
    {
        return (BOOL)AfxSend(m_hWnd, LVM_GETITEMPOSITION, nItem, lpPoint);
    }
    BOOL SetItemPosition(int nItem, POINT pt)
    {
        return (BOOL)AfxSend(m_hWnd, LVM_SETITEMPOSITION32, nItem, &pt);
    }
    int HitTest(LVHITTESTINFO* pHitTestInfo) const
    {
        return (int)AfxSend(m_hWnd, LVM_HITTEST, 0, pHitTestInfo);
    }
    int HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    int SubItemHitTest(LPLVHITTESTINFO pInfo) { return (int)AfxSend(m_hWnd, LVM_SUBITEMHITTEST, 0, pInfo); }
    BOOL EnsureVisible(int nItem, BOOL bPartialOK)
    {
        return (BOOL)AfxSend(m_hWnd, LVM_ENSUREVISIBLE, nItem, bPartialOK);
    }
    BOOL IsItemVisible(int index) const { return (BOOL)AfxSend(m_hWnd, LVM_ISITEMVISIBLE, index, 0); }
    int GetTopIndex() const { return (int)AfxSend(m_hWnd, LVM_GETTOPINDEX, 0, 0); }
    int GetCountPerPage() const { return (int)AfxSend(m_hWnd, LVM_GETCOUNTPERPAGE, 0, 0); }
    BOOL GetOrigin(LPPOINT lpPoint) const { return (BOOL)AfxSend(m_hWnd, LVM_GETORIGIN, 0, lpPoint); }
    BOOL GetViewRect(LPRECT lpRect) const { return (BOOL)AfxSend(m_hWnd, LVM_GETVIEWRECT, 0, lpRect); }
    BOOL Scroll(CSize size) { return (BOOL)AfxSend(m_hWnd, LVM_SCROLL, size.cx, size.cy); }
    int GetStringWidth(LPCTSTR lpsz) const { return (int)AfxSend(m_hWnd, LVM_GETSTRINGWIDTH, 0, lpsz); }
    CSize ApproximateViewRect(CSize sz = CSize(-1, -1), int iCount = -1) const
    {
        return CSize((DWORD)AfxSend(m_hWnd, LVM_APPROXIMATEVIEWRECT, iCount, MAKELPARAM(sz.cx, sz.cy)));
    }
    CSize SetIconSpacing(int cx, int cy)
    {
        return CSize((DWORD)AfxSend(m_hWnd, LVM_SETICONSPACING, 0, MAKELPARAM(cx, cy)));
    }
    CSize SetIconSpacing(CSize size) { return SetIconSpacing(size.cx, size.cy); }
    BOOL Arrange(UINT nCode) { return (BOOL)AfxSend(m_hWnd, LVM_ARRANGE, nCode, 0); }
    BOOL RedrawItems(int nFirst, int nLast) { return (BOOL)AfxSend(m_hWnd, LVM_REDRAWITEMS, nFirst, nLast); }
    BOOL Update(int nItem) { return (BOOL)AfxSend(m_hWnd, LVM_UPDATE, nItem, 0); }

    // Styles and behaviour
    DWORD GetExtendedStyle() { return (DWORD)AfxSend(m_hWnd, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0); }
    DWORD SetExtendedStyle(DWORD dwNewStyle)
    {
        return (DWORD)AfxSend(m_hWnd, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, dwNewStyle);
    }
    DWORD GetView() const { return (DWORD)AfxSend(m_hWnd, LVM_GETVIEW, 0, 0); }
    DWORD SetView(int iView) { return (DWORD)AfxSend(m_hWnd, LVM_SETVIEW, iView, 0); }
    HCURSOR GetHotCursor() { return (HCURSOR)AfxSend(m_hWnd, LVM_GETHOTCURSOR, 0, 0); }
    HCURSOR SetHotCursor(HCURSOR hc) { return (HCURSOR)AfxSend(m_hWnd, LVM_SETHOTCURSOR, 0, hc); }
    int GetHotItem() { return (int)AfxSend(m_hWnd, LVM_GETHOTITEM, 0, 0); }
    int SetHotItem(int iIndex) { return (int)AfxSend(m_hWnd, LVM_SETHOTITEM, iIndex, 0); }
    DWORD GetHoverTime() const { return (DWORD)AfxSend(m_hWnd, LVM_GETHOVERTIME, 0, 0); }
    DWORD SetHoverTime(DWORD dwHoverTime = (DWORD)-1)
    {
        return (DWORD)AfxSend(m_hWnd, LVM_SETHOVERTIME, 0, dwHoverTime);
    }
    CToolTipCtrl* GetToolTips() const
    {
        return (CToolTipCtrl*)CWnd::FromHandle((HWND)AfxSend(m_hWnd, LVM_GETTOOLTIPS, 0, 0));
    }
    CToolTipCtrl* SetToolTips(CToolTipCtrl* pWndTip)
    {
        return (CToolTipCtrl*)CWnd::FromHandle((HWND)AfxSend(m_hWnd, LVM_SETTOOLTIPS, AfxSafe(pWndTip), 0));
    }
    CEdit* EditLabel(int nItem)
    {
        return (CEdit*)CWnd::FromHandle((HWND)AfxSend(m_hWnd, LVM_EDITLABEL, nItem, 0));
    }
    void CancelEditLabel() { AfxSend(m_hWnd, LVM_CANCELEDITLABEL, 0, 0); }
    CEdit* GetEditControl() const
    {
        return (CEdit*)CWnd::FromHandle((HWND)AfxSend(m_hWnd, LVM_GETEDITCONTROL, 0, 0));
    }
    // The image that a drag shows; the caller deletes it. Null on failure.
    CImageList* CreateDragImage(int nItem, LPPOINT lpPoint);

    // Groups
    LRESULT EnableGroupView(BOOL fEnable) { return AfxSend(m_hWnd, LVM_ENABLEGROUPVIEW, fEnable, 0); }
    BOOL IsGroupViewEnabled() const { return (BOOL)AfxSend(m_hWnd, LVM_ISGROUPVIEWENABLED, 0, 0); }
    LRESULT InsertGroup(int index, PLVGROUP pgrp) { return AfxSend(m_hWnd, LVM_INSERTGROUP, index, pgrp); }
    int SetGroupInfo(int iGroupId, PLVGROUP pgrp)
    {
        return (int)AfxSend(m_hWnd, LVM_SETGROUPINFO, iGroupId, pgrp);
    }
    int GetGroupInfo(int iGroupId, PLVGROUP pgrp) const
    {
        return (int)AfxSend(m_hWnd, LVM_GETGROUPINFO, iGroupId, pgrp);
    }
    LRESULT RemoveGroup(int iGroupId) { return AfxSend(m_hWnd, LVM_REMOVEGROUP, iGroupId, 0); }
    void RemoveAllGroups() { AfxSend(m_hWnd, LVM_REMOVEALLGROUPS, 0, 0); }
    BOOL HasGroup(int iGroupId) const { return (BOOL)AfxSend(m_hWnd, LVM_HASGROUP, iGroupId, 0); }

    // Draws an item of style LVS_OWNERDRAWFIXED; the default does nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
};
