// GDI objects: CGdiObject and the classes over it.
//
// An object owns the handle that it created or that was attached to it: its destructor deletes it,
// and Detach gives it up. FromHandle gives an object for any handle: the one that owns it, else a
// temporary one that owns nothing and lives until the thread is idle next.
// Members without a comment call the GDI function of the like name and return its result.
#pragma once

class CBitmap;
class CDC;
class CGdiObject;
class CRgn;

// The handle of an object that may be null.
inline HGDIOBJ AfxSafe(const CGdiObject* pObject);
inline HRGN AfxSafe(const CRgn* pRgn);

class AFX_CORE_API CGdiObject : public CObject
{
    DECLARE_DYNCREATE(CGdiObject)

public:
    HGDIOBJ m_hObject; // null when there is none

    CGdiObject();
    virtual ~CGdiObject();

    // Attributes
public:
    operator HGDIOBJ() const { return m_hObject; }
    // The handle, or null for a null pointer.
    HGDIOBJ GetSafeHandle() const;
    UINT GetObjectType() const { return ::GetObjectType(m_hObject); }
    int GetObject(int nCount, LPVOID lpObject) const { return ::GetObject(m_hObject, nCount, lpObject); }
    BOOL operator==(const CGdiObject& obj) const { return m_hObject == obj.m_hObject; }

    // The object for hObject; null for a null handle.
    static CGdiObject* PASCAL FromHandle(HGDIOBJ hObject);

    // Operations
public:
    // Takes hObject over, in place of what the object held, which is deleted. FALSE for null.
    BOOL Attach(HGDIOBJ hObject);
    // Gives the handle up to the caller, or returns null.
    HGDIOBJ Detach();
    // Deletes the GDI object; FALSE when there is none.
    BOOL DeleteObject();
    // Takes a stock object, which deleting does not harm.
    BOOL CreateStockObject(int nIndex) { return Attach(::GetStockObject(nIndex)); }
    BOOL UnrealizeObject() { return ::UnrealizeObject(m_hObject); }

    // Deletes the thread's temporary objects now.
    static void PASCAL DeleteTempMap();
};

class AFX_CORE_API CPen : public CGdiObject
{
    DECLARE_DYNAMIC(CPen)

public:
    CPen();
    // Create as the functions below do; they throw CResourceException* on failure.
    CPen(int nPenStyle, int nWidth, COLORREF crColor);
    CPen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0,
         const DWORD* lpStyle = nullptr);

    operator HPEN() const { return static_cast<HPEN>(m_hObject); }
    static CPen* PASCAL FromHandle(HPEN hPen);
    int GetLogPen(LOGPEN* pLogPen) { return ::GetObject(m_hObject, sizeof(LOGPEN), pLogPen); }
    int GetExtLogPen(EXTLOGPEN* pLogPen) { return ::GetObject(m_hObject, sizeof(EXTLOGPEN), pLogPen); }

    BOOL CreatePen(int nPenStyle, int nWidth, COLORREF crColor)
    {
        return Attach(::CreatePen(nPenStyle, nWidth, crColor));
    }
    BOOL CreatePen(int nPenStyle, int nWidth, const LOGBRUSH* pLogBrush, int nStyleCount = 0,
                   const DWORD* lpStyle = nullptr)
    {
        return Attach(::ExtCreatePen(nPenStyle, nWidth, pLogBrush, nStyleCount, lpStyle));
    }
    BOOL CreatePenIndirect(LPLOGPEN lpLogPen) { return Attach(::CreatePenIndirect(lpLogPen)); }
};

class AFX_CORE_API CBrush : public CGdiObject
{
    DECLARE_DYNAMIC(CBrush)

public:
    CBrush();
    // Create as the functions below do; they throw CResourceException* on failure.
    CBrush(COLORREF crColor);
    CBrush(int nIndex, COLORREF crColor);
    explicit CBrush(CBitmap* pBitmap);

    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
    static CBrush* PASCAL FromHandle(HBRUSH hBrush);
    int GetLogBrush(LOGBRUSH* pLogBrush) { return ::GetObject(m_hObject, sizeof(LOGBRUSH), pLogBrush); }

    BOOL CreateSolidBrush(COLORREF crColor) { return Attach(::CreateSolidBrush(crColor)); }
    BOOL CreateHatchBrush(int nIndex, COLORREF crColor)
    {
        return Attach(::CreateHatchBrush(nIndex, crColor));
    }
    BOOL CreateBrushIndirect(const LOGBRUSH* lpLogBrush) { return Attach(::CreateBrushIndirect(lpLogBrush)); }
    BOOL CreatePatternBrush(CBitmap* pBitmap);
    BOOL CreateDIBPatternBrush(HGLOBAL hPackedDIB, UINT nUsage);
    BOOL CreateDIBPatternBrush(const void* lpPackedDIB, UINT nUsage)
    {
        return Attach(::CreateDIBPatternBrushPt(lpPackedDIB, nUsage));
    }
    BOOL CreateSysColorBrush(int nIndex) { return Attach(::GetSysColorBrush(nIndex)); }
};

class AFX_CORE_API CFont : public CGdiObject
{
    DECLARE_DYNAMIC(CFont)

public:
    CFont();

    operator HFONT() const { return static_cast<HFONT>(m_hObject); }
    static CFont* PASCAL FromHandle(HFONT hFont);
    int GetLogFont(LOGFONT* pLogFont) { return ::GetObject(m_hObject, sizeof(LOGFONT), pLogFont); }

    BOOL CreateFontIndirect(const LOGFONT* lpLogFont) { return Attach(::CreateFontIndirect(lpLogFont)); }
    BOOL CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                    BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                    BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename)
    {
        return Attach(::CreateFont(nHeight, nWidth, nEscapement, nOrientation, nWeight, bItalic, bUnderline,
                                   cStrikeOut, nCharSet, nOutPrecision, nClipPrecision, nQuality,
                                   nPitchAndFamily, lpszFacename));
    }
    // nPointSize and lfHeight are tenths of a point; they are converted for pDC, or the screen.
    BOOL CreatePointFont(int nPointSize, LPCTSTR lpszFaceName, CDC* pDC = nullptr);
    BOOL CreatePointFontIndirect(const LOGFONT* lpLogFont, CDC* pDC = nullptr);
};

class AFX_CORE_API CBitmap : public CGdiObject
{
    DECLARE_DYNAMIC(CBitmap)

public:
    CBitmap();

    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
    static CBitmap* PASCAL FromHandle(HBITMAP hBitmap);
    int GetBitmap(BITMAP* pBitMap) { return ::GetObject(m_hObject, sizeof(BITMAP), pBitMap); }
    DWORD GetBitmapBits(DWORD dwCount, LPVOID lpBits) const
    {
        return ::GetBitmapBits(static_cast<HBITMAP>(m_hObject), dwCount, lpBits);
    }
    DWORD SetBitmapBits(DWORD dwCount, const void* lpBits)
    {
        return ::SetBitmapBits(static_cast<HBITMAP>(m_hObject), dwCount, lpBits);
    }
    CSize GetBitmapDimension() const;
    CSize SetBitmapDimension(int nWidth, int nHeight);

    // Load from the module of the resource chain that holds the bitmap; FALSE when none does.
    BOOL LoadBitmap(LPCTSTR lpszResourceName);
    BOOL LoadBitmap(UINT nIDResource);
    BOOL LoadOEMBitmap(UINT nIDBitmap);
    // Colours of a 16-colour bitmap are replaced: by lpColorMap, or its greys by the system's
    // button colours.
    BOOL LoadMappedBitmap(UINT nIDBitmap, UINT nFlags = 0, LPCOLORMAP lpColorMap = nullptr, int nMapSize = 0);
    BOOL CreateBitmap(int nWidth, int nHeight, UINT nPlanes, UINT nBitcount, const void* lpBits)
    {
        return Attach(::CreateBitmap(nWidth, nHeight, nPlanes, nBitcount, lpBits));
    }
    BOOL CreateBitmapIndirect(LPBITMAP lpBitmap) { return Attach(::CreateBitmapIndirect(lpBitmap)); }
    BOOL CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight);
    BOOL CreateDiscardableBitmap(CDC* pDC, int nWidth, int nHeight);
};

class AFX_CORE_API CPalette : public CGdiObject
{
    DECLARE_DYNAMIC(CPalette)

public:
    CPalette();

    operator HPALETTE() const { return static_cast<HPALETTE>(m_hObject); }
    static CPalette* PASCAL FromHandle(HPALETTE hPalette);
    BOOL CreatePalette(LPLOGPALETTE lpLogPalette) { return Attach(::CreatePalette(lpLogPalette)); }
};

class AFX_CORE_API CRgn : public CGdiObject
{
    DECLARE_DYNAMIC(CRgn)

public:
    CRgn();

    operator HRGN() const { return static_cast<HRGN>(m_hObject); }
    static CRgn* PASCAL FromHandle(HRGN hRgn);

    BOOL CreateRectRgn(int x1, int y1, int x2, int y2) { return Attach(::CreateRectRgn(x1, y1, x2, y2)); }
    BOOL CreateRectRgnIndirect(LPCRECT lpRect) { return Attach(::CreateRectRgnIndirect(lpRect)); }
    BOOL CreateEllipticRgn(int x1, int y1, int x2, int y2)
    {
        return Attach(::CreateEllipticRgn(x1, y1, x2, y2));
    }
    BOOL CreateEllipticRgnIndirect(LPCRECT lpRect) { return Attach(::CreateEllipticRgnIndirect(lpRect)); }
    BOOL CreatePolygonRgn(LPPOINT lpPoints, int nCount, int nMode)
    {
        return Attach(::CreatePolygonRgn(lpPoints, nCount, nMode));
    }
    BOOL CreatePolyPolygonRgn(LPPOINT lpPoints, LPINT lpPolyCounts, int nCount, int nPolyFillMode)
    {
        return Attach(::CreatePolyPolygonRgn(lpPoints, lpPolyCounts, nCount, nPolyFillMode));
    }
    BOOL CreateRoundRectRgn(int x1, int y1, int x2, int y2, int x3, int y3)
    {
        return Attach(::CreateRoundRectRgn(x1, y1, x2, y2, x3, y3));
    }
    BOOL CreateFromPath(CDC* pDC);
    BOOL CreateFromData(const XFORM* lpXForm, int nCount, const RGNDATA* pRgnData)
    {
        return Attach(::ExtCreateRegion(lpXForm, nCount, pRgnData));
    }

    void SetRectRgn(int x1, int y1, int x2, int y2) { ::SetRectRgn(*this, x1, y1, x2, y2); }
    void SetRectRgn(LPCRECT lpRect)
    {
        ::SetRectRgn(*this, lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
    }
    int CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode)
    {
        return ::CombineRgn(*this, AfxSafe(pRgn1), AfxSafe(pRgn2), nCombineMode);
    }
    int CopyRgn(const CRgn* pRgnSrc) { return ::CombineRgn(*this, *pRgnSrc, nullptr, RGN_COPY); }
    BOOL EqualRgn(const CRgn* pRgn) const { return ::EqualRgn(*this, *pRgn); }
    int OffsetRgn(int x, int y) { return ::OffsetRgn(*this, x, y); }
    int OffsetRgn(POINT point) { return ::OffsetRgn(*this, point.x, point.y); }
    int GetRgnBox(LPRECT lpRect) const { return ::GetRgnBox(*this, lpRect); }
    BOOL PtInRegion(int x, int y) const { return ::PtInRegion(*this, x, y); }
    BOOL PtInRegion(POINT point) const { return ::PtInRegion(*this, point.x, point.y); }
    BOOL RectInRegion(LPCRECT lpRect) const { return ::RectInRegion(*this, lpRect); }
    int GetRegionData(LPRGNDATA lpRgnData, int nCount) const
    {
        return static_cast<int>(::GetRegionData(*this, nCount, lpRgnData));
    }
};

inline HGDIOBJ AfxSafe(const CGdiObject* pObject)
{
    return pObject == nullptr ? nullptr : pObject->m_hObject;
}
inline HRGN AfxSafe(const CRgn* pRgn)
{
    return pRgn == nullptr ? nullptr : static_cast<HRGN>(pRgn->m_hObject);
}
