// CHeaderCtrl: the header control of list views.
//
// Create makes a child control of the platform's class with the given style bits; FALSE on failure.
// Image lists that are set stay the caller's; those returned are the owners' objects or temporary.
// Members without a comment send the control's message of the like name and return its result.
#pragma once

#include "win/imagelist.h"
#include "win/wnd.h"

// A header. Items count from 0.
class AFX_CORE_API CHeaderCtrl : public CWnd
{
    DECLARE_DYNAMIC(CHeaderCtrl)

public:
    CHeaderCtrl();
    virtual ~CHeaderCtrl();

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetItemCount() const { return (int)AfxSend(m_hWnd, HDM_GETITEMCOUNT, 0, 0); }
    int InsertItem(int nPos, HDITEM* phdi) { return (int)AfxSend(m_hWnd, HDM_INSERTITEM, nPos, phdi); }
    BOOL DeleteItem(int nPos) { return (BOOL)AfxSend(m_hWnd, HDM_DELETEITEM, nPos, 0); }
    BOOL GetItem(int nPos, HDITEM* pHeaderItem) const
    {
        return (BOOL)AfxSend(m_hWnd, HDM_GETITEM, nPos, pHeaderItem);
    }
    BOOL SetItem(int nPos, HDITEM* pHeaderItem)
    {
        return (BOOL)AfxSend(m_hWnd, HDM_SETITEM, nPos, pHeaderItem);
    }
    BOOL GetItemRect(int nIndex, LPRECT lpRect) const
    {
        return (BOOL)AfxSend(m_hWnd, HDM_GETITEMRECT, nIndex, lpRect);
    }
    int HitTest(LPHDHITTESTINFO phdhti) { return (int)AfxSend(m_hWnd, HDM_HITTEST, 0, phdhti); }
    BOOL Layout(HDLAYOUT* pHeaderLayout) { return (BOOL)AfxSend(m_hWnd, HDM_LAYOUT, 0, pHeaderLayout); }
    int OrderToIndex(int nOrder) const { return (int)AfxSend(m_hWnd, HDM_ORDERTOINDEX, nOrder, 0); }
    // iCount -1: all items.
    BOOL GetOrderArray(LPINT piArray, int iCount = -1);
    BOOL SetOrderArray(int iCount, LPINT piArray)
    {
        return (BOOL)AfxSend(m_hWnd, HDM_SETORDERARRAY, iCount, piArray);
    }
    CImageList* GetImageList() const
    {
        return CImageList::FromHandle((HIMAGELIST)AfxSend(m_hWnd, HDM_GETIMAGELIST, 0, 0));
    }
    CImageList* SetImageList(CImageList* pImageList)
    {
        return CImageList::FromHandle((HIMAGELIST)AfxSend(m_hWnd, HDM_SETIMAGELIST, 0, AfxSafe(pImageList)));
    }
    // The image that a drag shows; the caller deletes it. Null on failure.
    CImageList* CreateDragImage(int nIndex);
    int GetBitmapMargin() const { return (int)AfxSend(m_hWnd, HDM_GETBITMAPMARGIN, 0, 0); }
    int SetBitmapMargin(int nWidth) { return (int)AfxSend(m_hWnd, HDM_SETBITMAPMARGIN, nWidth, 0); }
    int SetHotDivider(CPoint pt)
    {
        return (int)AfxSend(m_hWnd, HDM_SETHOTDIVIDER, TRUE, MAKELPARAM(pt.x, pt.y));
    }
    int SetHotDivider(int nIndex) { return (int)AfxSend(m_hWnd, HDM_SETHOTDIVIDER, FALSE, nIndex); }

    // Draws an item of format HDF_OWNERDRAW; the default does nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
};
