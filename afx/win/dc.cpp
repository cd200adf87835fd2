#include "afxwin.h"
#include "win/state.h"

IMPLEMENT_DYNCREATE(CDC, CObject)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)

CDC::CDC() : m_hDC(nullptr), m_hAttribDC(nullptr) {}

CDC::~CDC()
{
    DeleteDC();
}

CDC* PASCAL CDC::FromHandle(HDC hDC)
{
    return AfxGetWindowState().dcs.FromHandle(hDC, [](HDC) { return new CDC; });
}

void PASCAL CDC::DeleteTempMap()
{
    AfxGetWindowState().dcs.DeleteTemporary();
}

BOOL CDC::Attach(HDC hDC)
{
    if (hDC == nullptr)
        return FALSE;
    // What the object held would be lost without an owner.
    DeleteDC();
    AfxGetWindowState().dcs.SetPermanent(hDC, this);
    m_hDC = hDC;
    SetAttribDC(hDC);
    return TRUE;
}

HDC CDC::Detach()
{
    const HDC hDC = std::exchange(m_hDC, nullptr);
    if (hDC != nullptr)
        AfxGetWindowState().dcs.RemovePermanent(hDC, this);
    ReleaseAttribDC();
    return hDC;
}

void CDC::SetOutputDC(HDC hDC)
{
    ReleaseOutputDC();
    if (hDC != nullptr)
        AfxGetWindowState().dcs.SetPermanent(hDC, this);
    m_hDC = hDC;
}

void CDC::ReleaseOutputDC()
{
    if (m_hDC != nullptr)
        AfxGetWindowState().dcs.RemovePermanent(m_hDC, this);
    m_hDC = nullptr;
}

BOOL CDC::CreateCompatibleDC(CDC* pDC)
{
    return Attach(::CreateCompatibleDC(pDC == nullptr ? nullptr : pDC->m_hDC));
}

BOOL CDC::DeleteDC()
{
    const HDC hDC = Detach();
    return hDC != nullptr && ::DeleteDC(hDC);
}

CWnd* CDC::GetWindow() const
{
    return CWnd::FromHandle(::WindowFromDC(m_hDC));
}

namespace
{
// Sets an attribute in the DC that is drawn on and, when it is another one, in the DC that is asked; what
// the latter says is the result.
template <class Setter>
auto SetInBoth(const CDC& dc, Setter setter)
{
    auto result = setter(dc.m_hDC);
    if (dc.m_hAttribDC != dc.m_hDC && dc.m_hAttribDC != nullptr)
        result = setter(dc.m_hAttribDC);
    return result;
}

template <class Handle>
Handle SelectInBoth(const CDC& dc, HGDIOBJ hObject)
{
    return static_cast<Handle>(SetInBoth(dc, [hObject](HDC hDC) { return ::SelectObject(hDC, hObject); }));
}
} // namespace

int CDC::SaveDC()
{
    const int nSaved = ::SaveDC(m_hDC);
    if (m_hAttribDC != m_hDC && m_hAttribDC != nullptr)
        ::SaveDC(m_hAttribDC);
    return nSaved;
}

BOOL CDC::RestoreDC(int nSavedDC)
{
    return SetInBoth(*this, [nSavedDC](HDC hDC) { return ::RestoreDC(hDC, nSavedDC); });
}

CGdiObject* CDC::SelectStockObject(int nIndex)
{
    return CGdiObject::FromHandle(SelectInBoth<HGDIOBJ>(*this, ::GetStockObject(nIndex)));
}
CPen* CDC::SelectObject(CPen* pPen)
{
    return CPen::FromHandle(SelectInBoth<HPEN>(*this, AfxSafe(pPen)));
}
CBrush* CDC::SelectObject(CBrush* pBrush)
{
    return CBrush::FromHandle(SelectInBoth<HBRUSH>(*this, AfxSafe(pBrush)));
}
CFont* CDC::SelectObject(CFont* pFont)
{
    return CFont::FromHandle(SelectInBoth<HFONT>(*this, AfxSafe(pFont)));
}
// A bitmap fits in one DC only.
CBitmap* CDC::SelectObject(CBitmap* pBitmap)
{
    return CBitmap::FromHandle(
        static_cast<HBITMAP>(::SelectObject(m_hDC, AfxSafe(static_cast<CGdiObject*>(pBitmap)))));
}
int CDC::SelectObject(CRgn* pRgn)
{
    const HRGN hRgn = AfxSafe(pRgn);
    return SetInBoth(*this, [hRgn](HDC hDC) {
        return static_cast<int>(reinterpret_cast<INT_PTR>(::SelectObject(hDC, hRgn)));
    });
}

CGdiObject* CDC::SelectObject(CGdiObject* pObject)
{
    // A region's result is a number, not an object.
    if (pObject != nullptr && ::GetObjectType(pObject->m_hObject) == OBJ_REGION) {
        SelectObject(static_cast<CRgn*>(pObject));
        return nullptr;
    }
    return CGdiObject::FromHandle(SelectInBoth<HGDIOBJ>(*this, AfxSafe(pObject)));
}

CPalette* CDC::SelectPalette(CPalette* pPalette, BOOL bForceBackground)
{
    return CPalette::FromHandle(
        ::SelectPalette(m_hDC, static_cast<HPALETTE>(AfxSafe(pPalette)), bForceBackground));
}

CPoint CDC::GetBrushOrg() const
{
    CPoint point;
    ::GetBrushOrgEx(m_hDC, &point);
    return point;
}

CPoint CDC::SetBrushOrg(int x, int y)
{
    CPoint before;
    ::SetBrushOrgEx(m_hDC, x, y, &before);
    return before;
}

COLORREF CDC::SetBkColor(COLORREF crColor)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::SetBkColor(hDC, crColor); });
}
int CDC::SetBkMode(int nBkMode)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::SetBkMode(hDC, nBkMode); });
}
int CDC::SetPolyFillMode(int nPolyFillMode)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::SetPolyFillMode(hDC, nPolyFillMode); });
}
int CDC::SetROP2(int nDrawMode)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::SetROP2(hDC, nDrawMode); });
}
int CDC::SetStretchBltMode(int nStretchMode)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::SetStretchBltMode(hDC, nStretchMode); });
}
COLORREF CDC::SetTextColor(COLORREF crColor)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::SetTextColor(hDC, crColor); });
}
UINT CDC::SetTextAlign(UINT nFlags)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::SetTextAlign(hDC, nFlags); });
}
int CDC::SetTextCharacterExtra(int nCharExtra)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::SetTextCharacterExtra(hDC, nCharExtra); });
}
int CDC::SetTextJustification(int nBreakExtra, int nBreakCount)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::SetTextJustification(hDC, nBreakExtra, nBreakCount); });
}

CPoint CDC::GetViewportOrg() const
{
    CPoint point;
    ::GetViewportOrgEx(m_hAttribDC, &point);
    return point;
}

CSize CDC::GetViewportExt() const
{
    CSize size;
    ::GetViewportExtEx(m_hAttribDC, &size);
    return size;
}

CPoint CDC::GetWindowOrg() const
{
    CPoint point;
    ::GetWindowOrgEx(m_hAttribDC, &point);
    return point;
}

CSize CDC::GetWindowExt() const
{
    CSize size;
    ::GetWindowExtEx(m_hAttribDC, &size);
    return size;
}

namespace
{
// Calls a function that leaves the earlier value in its last argument.
template <class Value, class Setter>
Value ExchangeInBoth(const CDC& dc, Setter setter)
{
    return SetInBoth(dc, [&](HDC hDC) {
        Value before;
        setter(hDC, &before);
        return before;
    });
}
} // namespace

int CDC::SetMapMode(int nMapMode)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::SetMapMode(hDC, nMapMode); });
}
CPoint CDC::SetViewportOrg(int x, int y)
{
    return ExchangeInBoth<CPoint>(*this,
                                  [=](HDC hDC, LPPOINT before) { ::SetViewportOrgEx(hDC, x, y, before); });
}
CPoint CDC::OffsetViewportOrg(int nWidth, int nHeight)
{
    return ExchangeInBoth<CPoint>(
        *this, [=](HDC hDC, LPPOINT before) { ::OffsetViewportOrgEx(hDC, nWidth, nHeight, before); });
}
CSize CDC::SetViewportExt(int cx, int cy)
{
    return ExchangeInBoth<CSize>(*this,
                                 [=](HDC hDC, LPSIZE before) { ::SetViewportExtEx(hDC, cx, cy, before); });
}
CSize CDC::ScaleViewportExt(int xNum, int xDenom, int yNum, int yDenom)
{
    return ExchangeInBoth<CSize>(*this, [=](HDC hDC, LPSIZE before) {
        ::ScaleViewportExtEx(hDC, xNum, xDenom, yNum, yDenom, before);
    });
}
CPoint CDC::SetWindowOrg(int x, int y)
{
    return ExchangeInBoth<CPoint>(*this,
                                  [=](HDC hDC, LPPOINT before) { ::SetWindowOrgEx(hDC, x, y, before); });
}
CPoint CDC::OffsetWindowOrg(int nWidth, int nHeight)
{
    return ExchangeInBoth<CPoint>(
        *this, [=](HDC hDC, LPPOINT before) { ::OffsetWindowOrgEx(hDC, nWidth, nHeight, before); });
}
CSize CDC::SetWindowExt(int cx, int cy)
{
    return ExchangeInBoth<CSize>(*this,
                                 [=](HDC hDC, LPSIZE before) { ::SetWindowExtEx(hDC, cx, cy, before); });
}
CSize CDC::ScaleWindowExt(int xNum, int xDenom, int yNum, int yDenom)
{
    return ExchangeInBoth<CSize>(
        *this, [=](HDC hDC, LPSIZE before) { ::ScaleWindowExtEx(hDC, xNum, xDenom, yNum, yDenom, before); });
}

namespace
{
// A size is the distance between two points.
template <class Converter>
void ConvertSize(LPSIZE lpSize, Converter converter)
{
    POINT points[2] = {{0, 0}, {lpSize->cx, lpSize->cy}};
    converter(points);
    lpSize->cx = std::abs(points[1].x - points[0].x);
    lpSize->cy = std::abs(points[1].y - points[0].y);
}
} // namespace

void CDC::DPtoLP(LPSIZE lpSize) const
{
    ConvertSize(lpSize, [this](LPPOINT points) { ::DPtoLP(m_hAttribDC, points, 2); });
}

void CDC::LPtoDP(LPSIZE lpSize) const
{
    ConvertSize(lpSize, [this](LPPOINT points) { ::LPtoDP(m_hAttribDC, points, 2); });
}

int CDC::SelectClipRgn(CRgn* pRgn)
{
    const HRGN hRgn = AfxSafe(pRgn);
    return SetInBoth(*this, [=](HDC hDC) { return ::SelectClipRgn(hDC, hRgn); });
}

int CDC::SelectClipRgn(CRgn* pRgn, int nMode)
{
    const HRGN hRgn = AfxSafe(pRgn);
    return SetInBoth(*this, [=](HDC hDC) { return ::ExtSelectClipRgn(hDC, hRgn, nMode); });
}

int CDC::ExcludeClipRect(int x1, int y1, int x2, int y2)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::ExcludeClipRect(hDC, x1, y1, x2, y2); });
}
int CDC::ExcludeUpdateRgn(CWnd* pWnd)
{
    return ::ExcludeUpdateRgn(m_hDC, AfxSafe(pWnd));
}
int CDC::IntersectClipRect(int x1, int y1, int x2, int y2)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::IntersectClipRect(hDC, x1, y1, x2, y2); });
}
int CDC::OffsetClipRgn(int x, int y)
{
    return SetInBoth(*this, [=](HDC hDC) { return ::OffsetClipRgn(hDC, x, y); });
}

CPoint CDC::GetCurrentPosition() const
{
    CPoint point;
    ::GetCurrentPositionEx(m_hAttribDC, &point);
    return point;
}

CPoint CDC::MoveTo(int x, int y)
{
    return ExchangeInBoth<CPoint>(*this, [=](HDC hDC, LPPOINT before) { ::MoveToEx(hDC, x, y, before); });
}

BOOL CDC::LineTo(int x, int y)
{
    // The position moves with the line in the DC that is asked, too.
    if (m_hAttribDC != m_hDC && m_hAttribDC != nullptr)
        ::MoveToEx(m_hAttribDC, x, y, nullptr);
    return ::LineTo(m_hDC, x, y);
}

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr)
{
    // An opaque text without characters is the fastest solid fill, and needs no brush.
    const COLORREF clrBefore = ::SetBkColor(m_hDC, clr);
    if (clrBefore == CLR_INVALID)
        return;
    ::ExtTextOut(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
    ::SetBkColor(m_hDC, clrBefore);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr)
{
    FillSolidRect(CRect(x, y, x + cx, y + cy), clr);
}

void CDC::Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    Draw3dRect(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top,
               clrTopLeft, clrBottomRight);
}

void CDC::Draw3dRect(int x, int y, int cx, int cy, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    FillSolidRect(x, y, cx - 1, 1, clrTopLeft);
    FillSolidRect(x, y, 1, cy - 1, clrTopLeft);
    FillSolidRect(x + cx - 1, y, 1, cy, clrBottomRight);
    FillSolidRect(x, y + cy - 1, cx, 1, clrBottomRight);
}

BOOL CDC::DrawState(CPoint pt, CSize size, HBITMAP hBitmap, UINT nFlags, HBRUSH hBrush)
{
    return ::DrawState(m_hDC, hBrush, nullptr, reinterpret_cast<LPARAM>(hBitmap), 0, pt.x, pt.y, size.cx,
                       size.cy, nFlags | DST_BITMAP);
}

BOOL CDC::DrawState(CPoint pt, CSize size, CBitmap* pBitmap, UINT nFlags, CBrush* pBrush)
{
    return DrawState(pt, size, static_cast<HBITMAP>(AfxSafe(static_cast<CGdiObject*>(pBitmap))), nFlags,
                     static_cast<HBRUSH>(AfxSafe(pBrush)));
}

BOOL CDC::DrawState(CPoint pt, CSize size, HICON hIcon, UINT nFlags, HBRUSH hBrush)
{
    return ::DrawState(m_hDC, hBrush, nullptr, reinterpret_cast<LPARAM>(hIcon), 0, pt.x, pt.y, size.cx,
                       size.cy, nFlags | DST_ICON);
}

BOOL CDC::DrawState(CPoint pt, CSize size, HICON hIcon, UINT nFlags, CBrush* pBrush)
{
    return DrawState(pt, size, hIcon, nFlags, static_cast<HBRUSH>(AfxSafe(pBrush)));
}

BOOL CDC::DrawState(CPoint pt, CSize size, LPCTSTR lpszText, UINT nFlags, BOOL bPrefixText, int nTextLen,
                    HBRUSH hBrush)
{
    return ::DrawState(m_hDC, hBrush, nullptr, reinterpret_cast<LPARAM>(lpszText),
                       static_cast<WPARAM>(nTextLen), pt.x, pt.y, size.cx, size.cy,
                       nFlags | (bPrefixText ? DST_PREFIXTEXT : DST_TEXT));
}

CBrush* PASCAL CDC::GetHalftoneBrush()
{
    CBrush& brush = AfxGetWindowState().halftoneBrush;
    if (brush.m_hObject == nullptr) {
        const WORD rows[] = {0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA};
        CBitmap pattern;
        if (pattern.CreateBitmap(8, 8, 1, 1, rows))
            brush.CreatePatternBrush(&pattern);
    }
    return brush.m_hObject == nullptr ? nullptr : &brush;
}

BOOL CDC::TransparentBlt(int xDest, int yDest, int nDestWidth, int nDestHeight, CDC* pSrcDC, int xSrc,
                         int ySrc, int nSrcWidth, int nSrcHeight, UINT clrTransparent)
{
    return ::GdiTransparentBlt(m_hDC, xDest, yDest, nDestWidth, nDestHeight, pSrcDC->m_hDC, xSrc, ySrc,
                               nSrcWidth, nSrcHeight, clrTransparent);
}

BOOL CDC::AlphaBlend(int xDest, int yDest, int nDestWidth, int nDestHeight, CDC* pSrcDC, int xSrc, int ySrc,
                     int nSrcWidth, int nSrcHeight, BLENDFUNCTION blend)
{
    return ::GdiAlphaBlend(m_hDC, xDest, yDest, nDestWidth, nDestHeight, pSrcDC->m_hDC, xSrc, ySrc, nSrcWidth,
                           nSrcHeight, blend);
}

BOOL CDC::GradientFill(TRIVERTEX* pVertices, ULONG nVertices, void* pMesh, ULONG nMeshElements, DWORD dwMode)
{
    return ::GdiGradientFill(m_hDC, pVertices, nVertices, pMesh, nMeshElements, dwMode);
}

CSize CDC::TabbedTextOut(int x, int y, LPCTSTR lpszString, int nCount, int nTabPositions,
                         LPINT lpnTabStopPositions, int nTabOrigin)
{
    return CSize(static_cast<DWORD>(
        ::TabbedTextOut(m_hDC, x, y, lpszString, nCount, nTabPositions, lpnTabStopPositions, nTabOrigin)));
}

int CDC::DrawTextEx(const CString& str, LPRECT lpRect, UINT nFormat, LPDRAWTEXTPARAMS lpDTParams)
{
    return DrawTextEx(const_cast<LPTSTR>(static_cast<LPCTSTR>(str)), str.GetLength(), lpRect,
                      nFormat & ~static_cast<UINT>(DT_MODIFYSTRING), lpDTParams);
}

CSize CDC::GetTextExtent(LPCTSTR lpszString, int nCount) const
{
    CSize size;
    ::GetTextExtentPoint32(m_hAttribDC, lpszString, nCount, &size);
    return size;
}

CSize CDC::GetOutputTextExtent(LPCTSTR lpszString, int nCount) const
{
    CSize size;
    ::GetTextExtentPoint32(m_hDC, lpszString, nCount, &size);
    return size;
}

CSize CDC::GetTabbedTextExtent(LPCTSTR lpszString, int nCount, int nTabPositions,
                               LPINT lpnTabStopPositions) const
{
    return CSize(::GetTabbedTextExtent(m_hAttribDC, lpszString, nCount, nTabPositions, lpnTabStopPositions));
}

int CDC::GetTextFace(CString& rString) const
{
    const int nLength = ::GetTextFace(m_hAttribDC, 0, nullptr);
    ::GetTextFace(m_hAttribDC, nLength, rString.GetBuffer(nLength));
    rString.ReleaseBuffer();
    return rString.GetLength();
}

BOOL CDC::GrayString(CBrush* pBrush, BOOL(CALLBACK* lpfnOutput)(HDC, LPARAM, int), LPARAM lpData, int nCount,
                     int x, int y, int nWidth, int nHeight)
{
    return ::GrayString(m_hDC, static_cast<HBRUSH>(AfxSafe(pBrush)), lpfnOutput, lpData, nCount, x, y, nWidth,
                        nHeight);
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(AfxSafe(pWnd))
{
    if (!Attach(::GetDC(m_hWnd)))
        AfxThrowResourceException();
}

CClientDC::~CClientDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(AfxSafe(pWnd))
{
    if (!Attach(::GetWindowDC(m_hWnd)))
        AfxThrowResourceException();
}

CWindowDC::~CWindowDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(AfxSafe(pWnd))
{
    if (!Attach(::BeginPaint(m_hWnd, &m_ps)))
        AfxThrowResourceException();
}

CPaintDC::~CPaintDC()
{
    ::EndPaint(m_hWnd, &m_ps);
    Detach();
}
