// CXTreeCtrl: a tree that owns what hangs on its items, and shows tips.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include "frame/Portability.h"

// What may hang on an item of a CXTreeCtrl as its item data (SetItemData), made with `new`. From then on the
// tree owns it.
class VELM_API ItemDataABSTRACT
{
public:
    // The text of the item's tip.
    virtual CString GetTipText() const = 0;

    ItemDataABSTRACT(const ItemDataABSTRACT& other);
    ItemDataABSTRACT& operator=(const ItemDataABSTRACT& other);
    virtual ~ItemDataABSTRACT();

protected:
    ItemDataABSTRACT();
};

// Item data must be null or an ItemDataABSTRACT; it is deleted with the window and on request. A tip of up to
// 79 characters shows the text of the item under the mouse, or a blank and the text of its data.
class VELM_API CXTreeCtrl : public CTreeCtrl
{
public:
    CXTreeCtrl();
    virtual ~CXTreeCtrl();

    // Deletes the data of the first visible item, of the siblings behind it, and of all their descendants.
    // Items above the first visible one are not visited: a tree that is to be cleaned whole must be
    // scrolled to its top. The items keep their data values: who goes on using them sets these to 0 first.
    // The window's end does the same.
    void CleanItemData();

    // Deletes the data of all descendants of an item, but not its own, in the order in which they stand. The
    // items keep their data values.
    void DeleteBranchData(HTREEITEM item);

    // The tool is the item whose label is under the point; its handle is the result. -1 off all labels.
    virtual INT_PTR OnToolHitTest(CPoint point, TOOLINFO* pTI) const;

    // Puts the tip of the item whose handle is the tool's number into the notification.
    BOOL OnToolTipText(UINT id, NMHDR* pNMHDR, LRESULT* pResult);

    // Enables tips.
    virtual void PreSubclassWindow();

protected:
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnDestroy();

    DECLARE_MESSAGE_MAP()

private:
    void DeleteDataOf(HTREEITEM item);
};
