// CImageList: a list of equal-sized images.
//
// It owns the list that it created or that was attached to it: its destructor destroys it. FromHandle
// gives temporary objects for other lists. Members without a comment call the function of the like
// name (ImageList_...) and return its result.
#pragma once

#include "win/gdiobject.h"

class CImageList;

inline HIMAGELIST AfxSafe(const CImageList* pList);

class AFX_CORE_API CImageList : public CObject
{
    DECLARE_DYNCREATE(CImageList)

public:
    HIMAGELIST m_hImageList; // null when there is none

    CImageList();
    virtual ~CImageList();

    // Life
public:
    operator HIMAGELIST() const { return m_hImageList; }
    // The handle, or null for a null pointer.
    HIMAGELIST GetSafeHandle() const;
    // The object for the list, a temporary one if none owns it; null for a null handle.
    static CImageList* PASCAL FromHandle(HIMAGELIST hImageList);
    // The owning object, or null.
    static CImageList* PASCAL FromHandlePermanent(HIMAGELIST hImageList);
    static void PASCAL DeleteTempMap();
    BOOL Attach(HIMAGELIST hImageList);
    HIMAGELIST Detach();

    BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
    // From a bitmap of the resource chain whose images are cx wide; crMask is transparent.
    BOOL Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask);
    BOOL Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask);
    // One image over another, the second moved by dx, dy.
    BOOL Create(CImageList& imagelist1, int nImage1, CImageList& imagelist2, int nImage2, int dx, int dy);
    // A copy.
    BOOL Create(CImageList* pImageList);
    BOOL DeleteImageList();

    // Images
public:
    int GetImageCount() const { return ImageList_GetImageCount(m_hImageList); }
    BOOL SetImageCount(UINT uNewCount) { return ImageList_SetImageCount(m_hImageList, uNewCount); }
    COLORREF GetBkColor() const { return ImageList_GetBkColor(m_hImageList); }
    COLORREF SetBkColor(COLORREF cr) { return ImageList_SetBkColor(m_hImageList, cr); }
    // The bitmaps belong to the list.
    BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const
    {
        return ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
    }
    // Add copies of images; the first one's index, -1 on failure.
    int Add(CBitmap* pbmImage, CBitmap* pbmMask)
    {
        return ImageList_Add(m_hImageList, (HBITMAP)AfxSafe(pbmImage), (HBITMAP)AfxSafe(pbmMask));
    }
    int Add(CBitmap* pbmImage, COLORREF crMask)
    {
        return ImageList_AddMasked(m_hImageList, (HBITMAP)AfxSafe(pbmImage), crMask);
    }
    int Add(HICON hIcon) { return ImageList_ReplaceIcon(m_hImageList, -1, hIcon); }
    // -1 removes all.
    BOOL Remove(int nImage) { return ImageList_Remove(m_hImageList, nImage); }
    BOOL Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask)
    {
        return ImageList_Replace(m_hImageList, nImage, (HBITMAP)AfxSafe(pbmImage), (HBITMAP)AfxSafe(pbmMask));
    }
    int Replace(int nImage, HICON hIcon) { return ImageList_ReplaceIcon(m_hImageList, nImage, hIcon); }
    // A new icon, which the caller destroys.
    HICON ExtractIcon(int nImage) { return ImageList_GetIcon(m_hImageList, nImage, ILD_NORMAL); }
    BOOL Copy(int iDst, int iSrc, UINT uFlags = ILCF_MOVE)
    {
        return ImageList_Copy(m_hImageList, iDst, m_hImageList, iSrc, uFlags);
    }
    BOOL Copy(int iDst, CImageList* pSrc, int iSrc, UINT uFlags = ILCF_MOVE)
    {
        return ImageList_Copy(m_hImageList, iDst, pSrc->m_hImageList, iSrc, uFlags);
    }
    BOOL SetOverlayImage(int nImage, int nOverlay)
    {
        return ImageList_SetOverlayImage(m_hImageList, nImage, nOverlay);
    }

    // Drawing
public:
    BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle);
    BOOL DrawEx(CDC* pDC, int nImage, POINT pt, SIZE sz, COLORREF clrBk, COLORREF clrFg, UINT nStyle);
    BOOL DrawIndirect(IMAGELISTDRAWPARAMS* pimldp);
    BOOL DrawIndirect(CDC* pDC, int nImage, POINT pt, SIZE sz, POINT ptOrigin, UINT fStyle = ILD_NORMAL,
                      DWORD dwRop = SRCCOPY, COLORREF rgbBack = CLR_DEFAULT, COLORREF rgbFore = CLR_DEFAULT,
                      DWORD fState = ILS_NORMAL, DWORD Frame = 0, COLORREF crEffect = CLR_DEFAULT);

    // Dragging
public:
    BOOL BeginDrag(int nImage, CPoint ptHotSpot)
    {
        return ImageList_BeginDrag(m_hImageList, nImage, ptHotSpot.x, ptHotSpot.y);
    }
    static void PASCAL EndDrag() { ImageList_EndDrag(); }
    static BOOL PASCAL DragMove(CPoint pt) { return ImageList_DragMove(pt.x, pt.y); }
    static BOOL PASCAL DragEnter(CWnd* pWndLock, CPoint point);
    static BOOL PASCAL DragLeave(CWnd* pWndLock);
    static BOOL PASCAL DragShowNolock(BOOL bShow) { return ImageList_DragShowNolock(bShow); }
    BOOL SetDragCursorImage(int nDrag, CPoint ptHotSpot)
    {
        return ImageList_SetDragCursorImage(m_hImageList, nDrag, ptHotSpot.x, ptHotSpot.y);
    }
    static CImageList* PASCAL GetDragImage(LPPOINT lpPoint, LPPOINT lpPointHotSpot)
    {
        return FromHandle(ImageList_GetDragImage(lpPoint, lpPointHotSpot));
    }
};

inline HIMAGELIST AfxSafe(const CImageList* pList)
{
    return pList == nullptr ? nullptr : pList->m_hImageList;
}
