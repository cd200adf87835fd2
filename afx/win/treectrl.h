// CTreeCtrl: the tree view control.
//
// Create makes a child control of the platform's class with the given style bits; FALSE on failure.
// Image lists that are set stay the caller's; those returned are the owners' objects or temporary.
// Members without a comment send the control's message of the like name and return its result.
#pragma once

#include "win/controls.h"
#include "win/imagelist.h"
#include "win/tooltipctrl.h"

// A tree view.
class AFX_CORE_API CTreeCtrl : public CWnd
{
    DECLARE_DYNAMIC(CTreeCtrl)

public:
    CTreeCtrl();
    virtual ~CTreeCtrl();

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Items
    HTREEITEM InsertItem(LPTVINSERTSTRUCT lpInsertStruct)
    {
        return (HTREEITEM)AfxSend(m_hWnd, TVM_INSERTITEM, 0, lpInsertStruct);
    }
    HTREEITEM InsertItem(UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                         UINT nStateMask, LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter);
    HTREEITEM InsertItem(LPCTSTR lpszItem, HTREEITEM hParent = TVI_ROOT, HTREEITEM hInsertAfter = TVI_LAST)
    {
        return InsertItem(TVIF_TEXT, lpszItem, 0, 0, 0, 0, 0, hParent, hInsertAfter);
    }
    HTREEITEM InsertItem(LPCTSTR lpszItem, int nImage, int nSelectedImage, HTREEITEM hParent = TVI_ROOT,
                         HTREEITEM hInsertAfter = TVI_LAST)
    {
        return InsertItem(TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE, lpszItem, nImage, nSelectedImage, 0, 0,
                          0, hParent, hInsertAfter);
    }
    BOOL DeleteItem(HTREEITEM hItem) { return (BOOL)AfxSend(m_hWnd, TVM_DELETEITEM, 0, hItem); }
    BOOL DeleteAllItems() { return (BOOL)AfxSend(m_hWnd, TVM_DELETEITEM, 0, TVI_ROOT); }
    UINT GetCount() const { return (UINT)AfxSend(m_hWnd, TVM_GETCOUNT, 0, 0); }
    BOOL GetItem(TVITEM* pItem) const { return (BOOL)AfxSend(m_hWnd, TVM_GETITEM, 0, pItem); }
    BOOL SetItem(TVITEM* pItem) { return (BOOL)AfxSend(m_hWnd, TVM_SETITEM, 0, pItem); }
    BOOL SetItem(HTREEITEM hItem, UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                 UINT nStateMask, LPARAM lParam);
    UINT GetItemState(HTREEITEM hItem, UINT nStateMask) const
    {
        return (UINT)AfxSend(m_hWnd, TVM_GETITEMSTATE, hItem, nStateMask);
    }
    BOOL SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask)
    {
        return SetItem(hItem, TVIF_STATE, nullptr, 0, 0, nState, nStateMask, 0);
    }
    BOOL GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const;
    BOOL SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage)
    {
        return SetItem(hItem, TVIF_IMAGE | TVIF_SELECTEDIMAGE, nullptr, nImage, nSelectedImage, 0, 0, 0);
    }
    // The whole text.
    CString GetItemText(HTREEITEM hItem) const;
    BOOL SetItemText(HTREEITEM hItem, LPCTSTR lpszItem)
    {
        return SetItem(hItem, TVIF_TEXT, lpszItem, 0, 0, 0, 0, 0);
    }
    DWORD_PTR GetItemData(HTREEITEM hItem) const;
    BOOL SetItemData(HTREEITEM hItem, DWORD_PTR dwData)
    {
        return SetItem(hItem, TVIF_PARAM, nullptr, 0, 0, 0, 0, static_cast<LPARAM>(dwData));
    }
    BOOL GetCheck(HTREEITEM hItem) const
    {
        return ((GetItemState(hItem, TVIS_STATEIMAGEMASK) >> 12) - 1) == 1;
    }
    BOOL SetCheck(HTREEITEM hItem, BOOL fCheck = TRUE)
    {
        return SetItemState(hItem, INDEXTOSTATEIMAGEMASK(fCheck ? 2 : 1), TVIS_STATEIMAGEMASK);
    }
    BOOL ItemHasChildren(HTREEITEM hItem) const;

    // Walks
    HTREEITEM GetNextItem(HTREEITEM hItem, UINT nCode) const
    {
        return (HTREEITEM)AfxSend(m_hWnd, TVM_GETNEXTITEM, nCode, hItem);
    }
    HTREEITEM GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
    HTREEITEM GetChildItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_CHILD); }
    HTREEITEM GetParentItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PARENT); }
    HTREEITEM GetNextSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXT); }
    HTREEITEM GetPrevSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PREVIOUS); }
    HTREEITEM GetFirstVisibleItem() const { return GetNextItem(nullptr, TVGN_FIRSTVISIBLE); }
    HTREEITEM GetLastVisibleItem() const { return GetNextItem(nullptr, TVGN_LASTVISIBLE); }
    HTREEITEM GetNextVisibleItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXTVISIBLE); }
    HTREEITEM GetPrevVisibleItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PREVIOUSVISIBLE); }
    HTREEITEM GetSelectedItem() const { return GetNextItem(nullptr, TVGN_CARET); }
    HTREEITEM GetDropHilightItem() const { return GetNextItem(nullptr, TVGN_DROPHILITE); }

    // Selection and display
    BOOL Select(HTREEITEM hItem, UINT nCode) { return (BOOL)AfxSend(m_hWnd, TVM_SELECTITEM, nCode, hItem); }
    BOOL SelectItem(HTREEITEM hItem) { return Select(hItem, TVGN_CARET); }
    BOOL SelectDropTarget(HTREEITEM hItem) { return Select(hItem, TVGN_DROPHILITE); }
    BOOL SelectSetFirstVisible(HTREEITEM hItem) { return Select(hItem, TVGN_FIRSTVISIBLE); }
    BOOL Expand(HTREEITEM hItem, UINT nCode) { return (BOOL)AfxSend(m_hWnd, TVM_EXPAND, nCode, hItem); }
    BOOL EnsureVisible(HTREEITEM hItem) { return (BOOL)AfxSend(m_hWnd, TVM_ENSUREVISIBLE, 0, hItem); }
    UINT GetVisibleCount() const { return (UINT)AfxSend(m_hWnd, TVM_GETVISIBLECOUNT, 0, 0); }
    BOOL GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const;
    HTREEITEM HitTest(TVHITTESTINFO* pHitTestInfo) const
    {
        return (HTREEITEM)AfxSend(m_hWnd, TVM_HITTEST, 0, pHitTestInfo);
    }
    HTREEITEM HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    BOOL SortChildren(HTREEITEM hItem) { return (BOOL)AfxSend(m_hWnd, TVM_SORTCHILDREN, 0, hItem); }
    BOOL SortChildrenCB(LPTVSORTCB pSort) { return (BOOL)AfxSend(m_hWnd, TVM_SORTCHILDRENCB, 0, pSort); }
    CEdit* EditLabel(HTREEITEM hItem)
    {
        return (CEdit*)CWnd::FromHandle((HWND)AfxSend(m_hWnd, TVM_EDITLABEL, 0, hItem));
    }
    BOOL EndEditLabelNow(BOOL fCancelWithoutSave)
    {
        return (BOOL)AfxSend(m_hWnd, TVM_ENDEDITLABELNOW, fCancelWithoutSave, 0);
    }
    CEdit* GetEditControl() const
    {
        return (CEdit*)CWnd::FromHandle((HWND)AfxSend(m_hWnd, TVM_GETEDITCONTROL, 0, 0));
    }
    // The image that a drag shows; the caller deletes it. Null on failure.
    CImageList* CreateDragImage(HTREEITEM hItem);

    // Appearance
    CImageList* GetImageList(UINT nImageList) const
    {
        return CImageList::FromHandle((HIMAGELIST)AfxSend(m_hWnd, TVM_GETIMAGELIST, nImageList, 0));
    }
    CImageList* SetImageList(CImageList* pImageList, int nImageListType)
    {
        return CImageList::FromHandle(
            (HIMAGELIST)AfxSend(m_hWnd, TVM_SETIMAGELIST, nImageListType, AfxSafe(pImageList)));
    }
    UINT GetIndent() const { return (UINT)AfxSend(m_hWnd, TVM_GETINDENT, 0, 0); }
    void SetIndent(UINT nIndent) { AfxSend(m_hWnd, TVM_SETINDENT, nIndent, 0); }
    SHORT GetItemHeight() const { return (SHORT)AfxSend(m_hWnd, TVM_GETITEMHEIGHT, 0, 0); }
    SHORT SetItemHeight(SHORT cyHeight) { return (SHORT)AfxSend(m_hWnd, TVM_SETITEMHEIGHT, cyHeight, 0); }
    COLORREF GetBkColor() const { return (COLORREF)AfxSend(m_hWnd, TVM_GETBKCOLOR, 0, 0); }
    COLORREF SetBkColor(COLORREF clr) { return (COLORREF)AfxSend(m_hWnd, TVM_SETBKCOLOR, 0, clr); }
    COLORREF GetTextColor() const { return (COLORREF)AfxSend(m_hWnd, TVM_GETTEXTCOLOR, 0, 0); }
    COLORREF SetTextColor(COLORREF clr) { return (COLORREF)AfxSend(m_hWnd, TVM_SETTEXTCOLOR, 0, clr); }
    COLORREF GetLineColor() const { return (COLORREF)AfxSend(m_hWnd, TVM_GETLINECOLOR, 0, 0); }
    COLORREF SetLineColor(COLORREF clrNew = CLR_DEFAULT)
    {
        return (COLORREF)AfxSend(m_hWnd, TVM_SETLINECOLOR, 0, clrNew);
    }
    COLORREF GetInsertMarkColor() const { return (COLORREF)AfxSend(m_hWnd, TVM_GETINSERTMARKCOLOR, 0, 0); }
    COLORREF SetInsertMarkColor(COLORREF clrNew)
    {
        return (COLORREF)AfxSend(m_hWnd, TVM_SETINSERTMARKCOLOR, 0, clrNew);
    }
    BOOL SetInsertMark(HTREEITEM hItem, BOOL fAfter = TRUE)
    {
        return (BOOL)AfxSend(m_hWnd, TVM_SETINSERTMARK, fAfter, hItem);
    }
    UINT GetScrollTime() const { return (UINT)AfxSend(m_hWnd, TVM_GETSCROLLTIME, 0, 0); }
    UINT SetScrollTime(UINT uScrollTime) { return (UINT)AfxSend(m_hWnd, TVM_SETSCROLLTIME, uScrollTime, 0); }
    CToolTipCtrl* GetToolTips() const
    {
        return (CToolTipCtrl*)CWnd::FromHandle((HWND)AfxSend(m_hWnd, TVM_GETTOOLTIPS, 0, 0));
    }
    CToolTipCtrl* SetToolTips(CToolTipCtrl* pWndTip)
    {
        return (CToolTipCtrl*)CWnd::FromHandle((HWND)AfxSend(m_hWnd, TVM_SETTOOLTIPS, AfxSafe(pWndTip), 0));
    }
};
