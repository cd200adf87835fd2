#include "afxwin.h"
#include "win/state.h"

IMPLEMENT_DYNCREATE(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CPalette, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)

CGdiObject::CGdiObject() : m_hObject(nullptr) {}
CGdiObject::~CGdiObject()
{
    DeleteObject();
}

namespace
{
CGdiObject* MakeTemporary(HGDIOBJ hObject)
{
    switch (::GetObjectType(hObject)) {
    case OBJ_PEN:
    case OBJ_EXTPEN:
        return new CPen;
    case OBJ_BRUSH:
        return new CBrush;
    case OBJ_FONT:
        return new CFont;
    case OBJ_BITMAP:
        return new CBitmap;
    case OBJ_PAL:
        return new CPalette;
    case OBJ_REGION:
        return new CRgn;
    default:
        return new CGdiObject;
    }
}
} // namespace

CGdiObject* PASCAL CGdiObject::FromHandle(HGDIOBJ hObject)
{
    return AfxGetWindowState().gdiObjects.FromHandle(hObject, &MakeTemporary);
}
CPen* PASCAL CPen::FromHandle(HPEN hPen)
{
    return static_cast<CPen*>(CGdiObject::FromHandle(hPen));
}
CBrush* PASCAL CBrush::FromHandle(HBRUSH hBrush)
{
    return static_cast<CBrush*>(CGdiObject::FromHandle(hBrush));
}
CFont* PASCAL CFont::FromHandle(HFONT hFont)
{
    return static_cast<CFont*>(CGdiObject::FromHandle(hFont));
}
CBitmap* PASCAL CBitmap::FromHandle(HBITMAP hBitmap)
{
    return static_cast<CBitmap*>(CGdiObject::FromHandle(hBitmap));
}
CPalette* PASCAL CPalette::FromHandle(HPALETTE hPalette)
{
    return static_cast<CPalette*>(CGdiObject::FromHandle(hPalette));
}
CRgn* PASCAL CRgn::FromHandle(HRGN hRgn)
{
    return static_cast<CRgn*>(CGdiObject::FromHandle(hRgn));
}

void PASCAL CGdiObject::DeleteTempMap()
{
    AfxGetWindowState().gdiObjects.DeleteTemporary();
}

BOOL CGdiObject::Attach(HGDIOBJ hObject)
{
    if (hObject == nullptr)
        return FALSE;
    // What the object held would be lost without an owner.
    DeleteObject();
    AfxGetWindowState().gdiObjects.SetPermanent(hObject, this);
    m_hObject = hObject;
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    const HGDIOBJ hObject = std::exchange(m_hObject, nullptr);
    if (hObject != nullptr)
        AfxGetWindowState().gdiObjects.RemovePermanent(hObject, this);
    return hObject;
}

BOOL CGdiObject::DeleteObject()
{
    const HGDIOBJ hObject = Detach();
    return hObject != nullptr && ::DeleteObject(hObject);
}

CPen::CPen() {}
CBrush::CBrush() {}
CFont::CFont() {}
CBitmap::CBitmap() {}
CPalette::CPalette() {}
CRgn::CRgn() {}

CPen::CPen(int nPenStyle, int nWidth, COLORREF crColor)
{
    if (!CreatePen(nPenStyle, nWidth, crColor))
        AfxThrowResourceException();
}

CPen::CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount, const DWORD* lpStyle)
{
    if (!CreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle))
        AfxThrowResourceException();
}

CBrush::CBrush(COLORREF crColor)
{
    if (!CreateSolidBrush(crColor))
        AfxThrowResourceException();
}

CBrush::CBrush(int nIndex, COLORREF crColor)
{
    if (!CreateHatchBrush(nIndex, crColor))
        AfxThrowResourceException();
}

CBrush::CBrush(CBitmap* pBitmap)
{
    if (!CreatePatternBrush(pBitmap))
        AfxThrowResourceException();
}

BOOL CBrush::CreatePatternBrush(CBitmap* pBitmap)
{
    return Attach(::CreatePatternBrush(static_cast<HBITMAP>(AfxSafe(pBitmap))));
}

BOOL CBrush::CreateDIBPatternBrush(HGLOBAL hPackedDIB, UINT nUsage)
{
    const void* const pPacked = ::GlobalLock(hPackedDIB);
    if (pPacked == nullptr)
        return FALSE;
    const BOOL bMade = CreateDIBPatternBrush(pPacked, nUsage);
    ::GlobalUnlock(hPackedDIB);
    return bMade;
}

BOOL CFont::CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC)
{
    LOGFONT font{};
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfHeight = nPointSize;
    ::lstrcpyn(font.lfFaceName, lpszFaceName, _countof(font.lfFaceName));
    return CreatePointFontIndirect(&font, pDC);
}

BOOL CFont::CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC)
{
    const HDC hDC = pDC == nullptr ? ::GetDC(nullptr) : pDC->m_hAttribDC;
    // 72 points to the inch, tenths of a point; the DC's mapping decides how large a pixel is.
    POINT height{0, ::MulDiv(::GetDeviceCaps(hDC, LOGPIXELSY), lpLogFont->lfHeight, 720)};
    POINT origin{0, 0};
    ::DPtoLP(hDC, &height, 1);
    ::DPtoLP(hDC, &origin, 1);
    LOGFONT font = *lpLogFont;
    font.lfHeight = -std::abs(height.y - origin.y);
    if (pDC == nullptr)
        ::ReleaseDC(nullptr, hDC);
    return CreateFontIndirect(&font);
}

CSize CBitmap::GetBitmapDimension() const
{
    SIZE size{};
    ::GetBitmapDimensionEx(static_cast<HBITMAP>(m_hObject), &size);
    return size;
}

CSize CBitmap::SetBitmapDimension(int nWidth, int nHeight)
{
    SIZE before{};
    ::SetBitmapDimensionEx(static_cast<HBITMAP>(m_hObject), nWidth, nHeight, &before);
    return before;
}

BOOL CBitmap::LoadBitmap(LPCTSTR lpszResourceName)
{
    return Attach(::LoadBitmap(AfxFindResourceHandle(lpszResourceName, RT_BITMAP), lpszResourceName));
}

BOOL CBitmap::LoadBitmap(UINT nIDResource)
{
    return LoadBitmap(MAKEINTRESOURCE(nIDResource));
}
BOOL CBitmap::LoadOEMBitmap(UINT nIDBitmap)
{
    return Attach(::LoadBitmap(nullptr, MAKEINTRESOURCE(nIDBitmap)));
}

BOOL CBitmap::LoadMappedBitmap(UINT nIDBitmap, UINT nFlags, LPCOLORMAP lpColorMap, int nMapSize)
{
    const HINSTANCE hInstance = AfxFindResourceHandle(MAKEINTRESOURCE(nIDBitmap), RT_BITMAP);
    return Attach(
        ::CreateMappedBitmap(hInstance, static_cast<INT_PTR>(nIDBitmap), nFlags, lpColorMap, nMapSize));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight)
{
    return Attach(::CreateCompatibleBitmap(pDC->m_hDC, nWidth, nHeight));
}
BOOL CBitmap::CreateDiscardableBitmap(CDC* pDC, int nWidth, int nHeight)
{
    return Attach(::CreateDiscardableBitmap(pDC->m_hDC, nWidth, nHeight));
}

BOOL CRgn::CreateFromPath(CDC* pDC)
{
    return Attach(::PathToRegion(pDC->m_hDC));
}
