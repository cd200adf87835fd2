#include "afxcmn.h"
#include "win/state.h"

IMPLEMENT_DYNCREATE(CImageList, CObject)

CImageList::CImageList() : m_hImageList(nullptr) {}
CImageList::~CImageList()
{
    DeleteImageList();
}

CImageList* PASCAL CImageList::FromHandle(HIMAGELIST hImageList)
{
    return AfxGetWindowState().imageLists.FromHandle(hImageList, [](HIMAGELIST) { return new CImageList; });
}

CImageList* PASCAL CImageList::FromHandlePermanent(HIMAGELIST hImageList)
{
    return AfxGetWindowState().imageLists.Permanent(hImageList);
}
void PASCAL CImageList::DeleteTempMap()
{
    AfxGetWindowState().imageLists.DeleteTemporary();
}

BOOL CImageList::Attach(HIMAGELIST hImageList)
{
    if (hImageList == nullptr)
        return FALSE;
    // What the object held would be lost without an owner.
    DeleteImageList();
    AfxGetWindowState().imageLists.SetPermanent(hImageList, this);
    m_hImageList = hImageList;
    return TRUE;
}

HIMAGELIST CImageList::Detach()
{
    const HIMAGELIST hImageList = std::exchange(m_hImageList, nullptr);
    if (hImageList != nullptr)
        AfxGetWindowState().imageLists.RemovePermanent(hImageList, this);
    return hImageList;
}

BOOL CImageList::DeleteImageList()
{
    const HIMAGELIST hImageList = Detach();
    return hImageList != nullptr && ImageList_Destroy(hImageList);
}

BOOL CImageList::Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow)
{
    return Attach(ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
}
BOOL CImageList::Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask)
{
    return Create(MAKEINTRESOURCE(nBitmapID), cx, nGrow, crMask);
}

BOOL CImageList::Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask)
{
    return Attach(ImageList_LoadImage(AfxFindResourceHandle(lpszBitmapID, RT_BITMAP), lpszBitmapID, cx, nGrow,
                                      crMask, IMAGE_BITMAP, 0));
}

BOOL CImageList::Create(CImageList& imagelist1, int nImage1, CImageList& imagelist2, int nImage2, int dx,
                        int dy)
{
    return Attach(
        ImageList_Merge(imagelist1.m_hImageList, nImage1, imagelist2.m_hImageList, nImage2, dx, dy));
}

BOOL CImageList::Create(CImageList* pImageList)
{
    return Attach(ImageList_Duplicate(AfxSafe(pImageList)));
}

BOOL CImageList::Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle)
{
    return ImageList_Draw(m_hImageList, nImage, pDC->m_hDC, pt.x, pt.y, nStyle);
}

BOOL CImageList::DrawEx(CDC* pDC, int nImage, POINT pt, SIZE sz, COLORREF clrBk, COLORREF clrFg, UINT nStyle)
{
    return ImageList_DrawEx(m_hImageList, nImage, pDC->m_hDC, pt.x, pt.y, sz.cx, sz.cy, clrBk, clrFg, nStyle);
}

BOOL CImageList::DrawIndirect(IMAGELISTDRAWPARAMS* pimldp)
{
    pimldp->cbSize = sizeof *pimldp;
    pimldp->himl = m_hImageList;
    return ImageList_DrawIndirect(pimldp);
}

BOOL CImageList::DrawIndirect(CDC* pDC, int nImage, POINT pt, SIZE sz, POINT ptOrigin, UINT fStyle,
                              DWORD dwRop, COLORREF rgbBack, COLORREF rgbFore, DWORD fState, DWORD Frame,
                              COLORREF crEffect)
{
    IMAGELISTDRAWPARAMS drawing{};
    drawing.i = nImage;
    drawing.hdcDst = pDC->m_hDC;
    drawing.x = pt.x;
    drawing.y = pt.y;
    drawing.cx = sz.cx;
    drawing.cy = sz.cy;
    drawing.xBitmap = ptOrigin.x;
    drawing.yBitmap = ptOrigin.y;
    drawing.rgbBk = rgbBack;
    drawing.rgbFg = rgbFore;
    drawing.fStyle = fStyle;
    drawing.dwRop = dwRop;
    drawing.fState = fState;
    drawing.Frame = Frame;
    drawing.crEffect = crEffect;
    return DrawIndirect(&drawing);
}

BOOL PASCAL CImageList::DragEnter(CWnd* pWndLock, CPoint point)
{
    return ImageList_DragEnter(AfxSafe(pWndLock), point.x, point.y);
}
BOOL PASCAL CImageList::DragLeave(CWnd* pWndLock)
{
    return ImageList_DragLeave(AfxSafe(pWndLock));
}
