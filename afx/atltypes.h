// CSize, CPoint and CRect: SIZE, POINT and RECT with constructors and arithmetic.
#pragma once

#include "afxver_.h"

class CPoint;
class CRect;

// A width and a height, or a distance. Without arguments: 0, 0.
class CSize : public tagSIZE
{
public:
    CSize() noexcept : CSize(0, 0) {}
    CSize(int initCX, int initCY) noexcept
    {
        cx = initCX;
        cy = initCY;
    }
    CSize(SIZE initSize) noexcept : CSize(initSize.cx, initSize.cy) {}
    CSize(POINT initPt) noexcept : CSize(initPt.x, initPt.y) {}
    // The low word is the width, the high word the height, both signed.
    CSize(DWORD dwSize) noexcept : CSize(short(LOWORD(dwSize)), short(HIWORD(dwSize))) {}

    BOOL operator==(SIZE size) const noexcept { return cx == size.cx && cy == size.cy; }
    BOOL operator!=(SIZE size) const noexcept { return !(*this == size); }
    BOOL operator==(const CSize& size) const noexcept { return *this == static_cast<const SIZE&>(size); }
    BOOL operator!=(const CSize& size) const noexcept { return !(*this == size); }
    void operator+=(SIZE size) noexcept
    {
        cx += size.cx;
        cy += size.cy;
    }
    void operator-=(SIZE size) noexcept
    {
        cx -= size.cx;
        cy -= size.cy;
    }
    void SetSize(int CX, int CY) noexcept
    {
        cx = CX;
        cy = CY;
    }

    CSize operator+(SIZE size) const noexcept { return CSize(cx + size.cx, cy + size.cy); }
    CSize operator-(SIZE size) const noexcept { return CSize(cx - size.cx, cy - size.cy); }
    CSize operator-() const noexcept { return CSize(-cx, -cy); }
    CPoint operator+(POINT point) const noexcept;
    CPoint operator-(POINT point) const noexcept;
    CRect operator+(const RECT* lpRect) const noexcept;
    CRect operator-(const RECT* lpRect) const noexcept;
};

// A position. Without arguments: 0, 0.
class CPoint : public tagPOINT
{
public:
    CPoint() noexcept : CPoint(0, 0) {}
    CPoint(int initX, int initY) noexcept
    {
        x = initX;
        y = initY;
    }
    CPoint(POINT initPt) noexcept : CPoint(initPt.x, initPt.y) {}
    CPoint(SIZE initSize) noexcept : CPoint(initSize.cx, initSize.cy) {}
    // The low word is x, the high word of the lower half y, both signed: what mouse messages carry.
    CPoint(LPARAM dwPoint) noexcept : CPoint(short(LOWORD(dwPoint)), short(HIWORD(dwPoint))) {}

    void Offset(int xOffset, int yOffset) noexcept
    {
        x += xOffset;
        y += yOffset;
    }
    void Offset(POINT point) noexcept { Offset(point.x, point.y); }
    void Offset(SIZE size) noexcept { Offset(size.cx, size.cy); }
    void SetPoint(int X, int Y) noexcept
    {
        x = X;
        y = Y;
    }

    BOOL operator==(POINT point) const noexcept { return x == point.x && y == point.y; }
    BOOL operator!=(POINT point) const noexcept { return !(*this == point); }
    BOOL operator==(const CPoint& point) const noexcept { return *this == static_cast<const POINT&>(point); }
    BOOL operator!=(const CPoint& point) const noexcept { return !(*this == point); }
    void operator+=(SIZE size) noexcept { Offset(size); }
    void operator-=(SIZE size) noexcept { Offset(-size.cx, -size.cy); }
    void operator+=(POINT point) noexcept { Offset(point); }
    void operator-=(POINT point) noexcept { Offset(-point.x, -point.y); }

    CPoint operator+(SIZE size) const noexcept { return CPoint(x + size.cx, y + size.cy); }
    CPoint operator-(SIZE size) const noexcept { return CPoint(x - size.cx, y - size.cy); }
    CPoint operator-() const noexcept { return CPoint(-x, -y); }
    CPoint operator+(POINT point) const noexcept { return CPoint(x + point.x, y + point.y); }
    CSize operator-(POINT point) const noexcept { return CSize(x - point.x, y - point.y); }
    CRect operator+(const RECT* lpRect) const noexcept;
    CRect operator-(const RECT* lpRect) const noexcept;
};

// A rectangle; its right and bottom edges lie outside it. Without arguments: empty at 0, 0. Most
// members need a normalised rectangle, whose right and bottom are not less than left and top.
class CRect : public tagRECT
{
public:
    CRect() noexcept { SetRectEmpty(); }
    CRect(int l, int t, int r, int b) noexcept { SetRect(l, t, r, b); }
    CRect(const RECT& srcRect) noexcept { CopyRect(&srcRect); }
    CRect(LPCRECT lpSrcRect) noexcept { CopyRect(lpSrcRect); }
    CRect(POINT point, SIZE size) noexcept
    {
        SetRect(point.x, point.y, point.x + size.cx, point.y + size.cy);
    }
    CRect(POINT topLeft, POINT bottomRight) noexcept { SetRect(topLeft, bottomRight); }
    CRect(const CRect& srcRect) noexcept : tagRECT(srcRect) {}

    // Attributes
    int Width() const noexcept { return right - left; }
    int Height() const noexcept { return bottom - top; }
    CSize Size() const noexcept { return CSize(Width(), Height()); }
    CPoint& TopLeft() noexcept { return *reinterpret_cast<CPoint*>(this); }
    CPoint& BottomRight() noexcept { return *(reinterpret_cast<CPoint*>(this) + 1); }
    const CPoint& TopLeft() const noexcept { return *reinterpret_cast<const CPoint*>(this); }
    const CPoint& BottomRight() const noexcept { return *(reinterpret_cast<const CPoint*>(this) + 1); }
    CPoint CenterPoint() const noexcept { return CPoint((left + right) / 2, (top + bottom) / 2); }
    operator LPRECT() noexcept { return this; }
    operator LPCRECT() const noexcept { return this; }

    // Width or height is 0 or negative; all four coordinates are 0.
    BOOL IsRectEmpty() const noexcept { return right <= left || bottom <= top; }
    BOOL IsRectNull() const noexcept { return left == 0 && right == 0 && top == 0 && bottom == 0; }
    BOOL PtInRect(POINT point) const noexcept { return ::PtInRect(this, point); }

    // Operations
    void SetRect(int x1, int y1, int x2, int y2) noexcept
    {
        left = x1;
        top = y1;
        right = x2;
        bottom = y2;
    }
    void SetRect(POINT topLeft, POINT bottomRight) noexcept
    {
        SetRect(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y);
    }
    void SetRectEmpty() noexcept { SetRect(0, 0, 0, 0); }
    // A null pointer gives the empty rectangle.
    void CopyRect(LPCRECT lpSrcRect) noexcept
    {
        if (lpSrcRect == NULL)
            SetRectEmpty();
        else
            SetRect(lpSrcRect->left, lpSrcRect->top, lpSrcRect->right, lpSrcRect->bottom);
    }
    BOOL EqualRect(LPCRECT lpRect) const noexcept { return ::EqualRect(this, lpRect); }

    // Moves the sides away from the centre; Deflate towards it.
    void InflateRect(int x, int y) noexcept { InflateRect(x, y, x, y); }
    void InflateRect(SIZE size) noexcept { InflateRect(size.cx, size.cy); }
    void InflateRect(LPCRECT lpRect) noexcept
    {
        InflateRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
    }
    void InflateRect(int l, int t, int r, int b) noexcept
    {
        SetRect(left - l, top - t, right + r, bottom + b);
    }
    void DeflateRect(int x, int y) noexcept { InflateRect(-x, -y); }
    void DeflateRect(SIZE size) noexcept { InflateRect(-size.cx, -size.cy); }
    void DeflateRect(LPCRECT lpRect) noexcept
    {
        DeflateRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
    }
    void DeflateRect(int l, int t, int r, int b) noexcept { InflateRect(-l, -t, -r, -b); }

    void OffsetRect(int x, int y) noexcept { SetRect(left + x, top + y, right + x, bottom + y); }
    void OffsetRect(SIZE size) noexcept { OffsetRect(size.cx, size.cy); }
    void OffsetRect(POINT point) noexcept { OffsetRect(point.x, point.y); }
    void MoveToX(int x) noexcept { OffsetRect(x - left, 0); }
    void MoveToY(int y) noexcept { OffsetRect(0, y - top); }
    void MoveToXY(int x, int y) noexcept { OffsetRect(x - left, y - top); }
    void MoveToXY(POINT point) noexcept { MoveToXY(point.x, point.y); }
    // Exchanges left and right, top and bottom, where they stand the wrong way round.
    void NormalizeRect() noexcept
    {
        if (left > right)
            SwapLeftRight();
        if (top > bottom)
            SetRect(left, bottom, right, top);
    }
    void SwapLeftRight() noexcept { SetRect(right, top, left, bottom); }

    // FALSE and an empty rectangle if the result is empty.
    BOOL IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept
    {
        return ::IntersectRect(this, lpRect1, lpRect2);
    }
    BOOL UnionRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept { return ::UnionRect(this, lpRect1, lpRect2); }
    BOOL SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2) noexcept
    {
        return ::SubtractRect(this, lpRectSrc1, lpRectSrc2);
    }

    void operator=(const RECT& srcRect) noexcept { CopyRect(&srcRect); }
    CRect& operator=(const CRect& srcRect) noexcept
    {
        CopyRect(&srcRect);
        return *this;
    }
    BOOL operator==(const RECT& rect) const noexcept { return ::EqualRect(this, &rect); }
    BOOL operator!=(const RECT& rect) const noexcept { return !::EqualRect(this, &rect); }
    BOOL operator==(const CRect& rect) const noexcept { return ::EqualRect(this, &rect); }
    BOOL operator!=(const CRect& rect) const noexcept { return !::EqualRect(this, &rect); }
    void operator+=(POINT point) noexcept { OffsetRect(point); }
    void operator+=(SIZE size) noexcept { OffsetRect(size); }
    void operator+=(LPCRECT lpRect) noexcept { InflateRect(lpRect); }
    void operator-=(POINT point) noexcept { OffsetRect(-point.x, -point.y); }
    void operator-=(SIZE size) noexcept { OffsetRect(-size.cx, -size.cy); }
    void operator-=(LPCRECT lpRect) noexcept { DeflateRect(lpRect); }
    void operator&=(const RECT& rect) noexcept { ::IntersectRect(this, this, &rect); }
    void operator|=(const RECT& rect) noexcept { ::UnionRect(this, this, &rect); }

    // Moved by a point or a size; inflated or deflated by a rectangle's four coordinates.
    CRect operator+(POINT point) const noexcept
    {
        return Changed([&](CRect& r) { r += point; });
    }
    CRect operator-(POINT point) const noexcept
    {
        return Changed([&](CRect& r) { r -= point; });
    }
    CRect operator+(SIZE size) const noexcept
    {
        return Changed([&](CRect& r) { r += size; });
    }
    CRect operator-(SIZE size) const noexcept
    {
        return Changed([&](CRect& r) { r -= size; });
    }
    CRect operator+(LPCRECT lpRect) const noexcept
    {
        return Changed([&](CRect& r) { r += lpRect; });
    }
    CRect operator-(LPCRECT lpRect) const noexcept
    {
        return Changed([&](CRect& r) { r -= lpRect; });
    }
    CRect operator&(const RECT& rect2) const noexcept
    {
        return Changed([&](CRect& r) { r &= rect2; });
    }
    CRect operator|(const RECT& rect2) const noexcept
    {
        return Changed([&](CRect& r) { r |= rect2; });
    }
    // nMultiplier/nDivisor of each coordinate, rounded.
    CRect MulDiv(int nMultiplier, int nDivisor) const noexcept
    {
        return CRect(::MulDiv(left, nMultiplier, nDivisor), ::MulDiv(top, nMultiplier, nDivisor),
                     ::MulDiv(right, nMultiplier, nDivisor), ::MulDiv(bottom, nMultiplier, nDivisor));
    }

private:
    template <typename Change>
    CRect Changed(Change change) const noexcept
    {
        CRect rect(*this);
        change(rect);
        return rect;
    }
};

inline CPoint CSize::operator+(POINT point) const noexcept
{
    return CPoint(cx + point.x, cy + point.y);
}
inline CPoint CSize::operator-(POINT point) const noexcept
{
    return CPoint(cx - point.x, cy - point.y);
}
inline CRect CSize::operator+(const RECT* lpRect) const noexcept
{
    return CRect(lpRect) + *this;
}
inline CRect CSize::operator-(const RECT* lpRect) const noexcept
{
    return CRect(lpRect) - *this;
}
inline CRect CPoint::operator+(const RECT* lpRect) const noexcept
{
    return CRect(lpRect) + *this;
}
inline CRect CPoint::operator-(const RECT* lpRect) const noexcept
{
    return CRect(lpRect) - *this;
}
