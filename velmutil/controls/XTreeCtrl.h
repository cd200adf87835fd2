// CXTreeCtrl: a tree that owns what hangs on its items, and shows tips.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include "frame/Portability.h"

// What may hang on an item of a CXTreeCtrl as its item data (SetItemData), made with `new`. From then on the
// tree owns it. An object hangs on one item only.
//
// While the tree deletes objects, all items whose objects are meant have no data: it is noted first what is
// to be deleted. So a destructor may delete items of the tree, its own among them, and may call
// CleanItemData and DeleteBranchData, which leave alone what is being deleted; then it sets to 0 the data of the
// items whose objects that call has deleted, before another destructor calls again. It must neither add items nor
// delete other objects that the tree owns, nor the CXTreeCtrl.
class VELM_API ItemDataABSTRACT
{
public:
    // The text of the item's tip.
    virtual CString GetTipText() const = 0;

    // Copies are new objects of their own.
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
    // scrolled to its top. The items get their data values back, unless a destructor has deleted items: who
    // goes on using them sets these to 0 first. Needs memory for a list of the objects and raises
    // std::bad_alloc, with nothing deleted, where there is none. The window's end does the same, but deletes
    // the objects one after the other then.
    void CleanItemData();

    // Deletes the data of all descendants of an item, but not its own, in the order in which they stand; an
    // item that says it has no children (TVITEM::cChildren) has no descendants. What stands about data values
    // and memory at CleanItemData holds here too: who keeps the items sets their data to 0 before the window
    // ends, or the objects are deleted twice.
    void DeleteBranchData(HTREEITEM item);

    // The tool is the item whose label is under the point; its handle is the result. -1 off all labels.
    virtual INT_PTR OnToolHitTest(CPoint point, TOOLINFO* pTI) const;

    // Puts the tip of the item whose handle is the tool's number into the notification, an empty one when
    // that is no item; into one of another code than TTN_NEEDTEXTW and TTN_NEEDTEXTA nothing. *pResult is set
    // to 0, the result is TRUE. FALSE, with nothing set, for a tool that is the tree's own window
    // (TTF_IDISHWND): such tips are the platform's.
    BOOL OnToolTipText(UINT id, NMHDR* pNMHDR, LRESULT* pResult);

    // Enables tips.
    virtual void PreSubclassWindow();

protected:
    // Passes the press on; deletes the data, as CleanItemData does.
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnDestroy();

    DECLARE_MESSAGE_MAP()
};
