// CXHeaderCtrl: a header that paints itself, with an image, a caption and a bitmap in each item.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include "frame/Portability.h"

// The header of a CXListCtrl, which subclasses the list view's own with it; it works on any header control.
// The pictures come from the header's image list, by the items' image index; index 0 shows none. A
// CXListCtrl keeps its columns' check boxes there: 0 none, 1 unchecked, 2 checked. This library supplies no
// such images. Painting goes through a bitmap, so it does not flicker.
class VELM_API CXHeaderCtrl : public CHeaderCtrl
{
    DECLARE_DYNCREATE(CXHeaderCtrl)

public:
    CXHeaderCtrl();
    virtual ~CXHeaderCtrl();

    // The gap in pixels at both sides of an item's content and between its pieces; 6 at first. Setting it
    // does not repaint.
    int GetSpacing() const { return m_nSpacing; }
    void SetSpacing(int spacing) { m_nSpacing = spacing; }

    // Sets a property and invalidates the header; FALSE, and no change, for any other.
    //   1  the gap (see SetSpacing)
    //   2  a size: the width in the low 16 bits, the height in the next; kept for the caller
    //   3  not 0: the header's layout grows to the right by two border widths
    //   4  a value kept for the caller
    BOOL ModifyProperty(WPARAM wProperty, LPARAM lParam);

    // Items with HDF_OWNERDRAW come here and are left as they are: face and divider alone.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    // Draws one item into its rectangle, which is already narrowed by the gap: the image at the left, the
    // bitmap at the right, the caption between them.
    virtual void DrawItem(CDC* pDC, CRect rect, HDITEM* pItem);

    // Draws the whole header inside the clip box of `pDC`, or nothing where that cannot be read. Captions are
    // cut at 159 characters. Rests on HDM_ORDERTOINDEX, HDM_GETITEM and HDM_GETITEMRECT.
    void DrawCtrl(CDC* pDC);

    // Each draws one piece, at the left or the right end of `rect`, and returns the width that it used, 0
    // if there is nothing to draw or no room for it. An image is cut to the room, but what is returned is the
    // whole width of the image list's images; a bitmap wider than the room is not drawn.
    int DrawImage(CDC* pDC, CRect rect, HDITEM* pItem, BOOL bRight);
    int DrawBitmap(CDC* pDC, CRect rect, HDITEM* pItem, CBitmap* pBitmap, BITMAP* pBitmapInfo, BOOL bRight);

    // Draws the caption, blue and centred whatever the item's alignment, with an ellipsis where it is too
    // long. Returns the width that it used.
    int DrawText(CDC* pDC, CRect rect, HDITEM* pItem);

    // Note the size of the images, widen the layout if that was asked for, and paint; items that come and go
    // are passed on.
    afx_msg LRESULT OnInsertItem(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnDeleteItem(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnSetImageList(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT OnLayout(WPARAM wParam, LPARAM lParam);
    afx_msg void OnPaint();
    afx_msg void OnSysColorChange();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);

    DECLARE_MESSAGE_MAP()

    // Whether to paint through a bitmap, the properties, the size of the image list's images, and the
    // system's colours as last read.
    BOOL m_bDoubleBuffer;
    int m_nSpacing;
    CSize m_sizeImage;
    CSize m_sizeProperty2;
    BOOL m_bWideLayout;
    unsigned __int64 m_nProperty4;
    int m_nReserved1;
    __int64 m_nReserved2;
    __int64 m_nReserved3;
    COLORREF m_cr3DHighLight;
    COLORREF m_cr3DShadow;
    COLORREF m_cr3DFace;
    COLORREF m_crText;

private:
    friend class CXListCtrl;

    // The number of items, 0 without a window. Rests on HDM_GETITEMCOUNT, sent again only after an item came
    // or went: a list asks for it with every access to a cell.
    int CountItems();
    void ForgetCount() { m_countedWindow = nullptr; }
    LRESULT ChangeItems();
    void ReadSystemColors();
    void DrawOwnerDrawn(CDC* pDC, int item, const CRect& rect);
    void DrawDivider(CDC* pDC, const CRect& rect);

    // The number of items of a window; of none at first.
    HWND m_countedWindow = nullptr;
    int m_itemCount = 0;
};
