// CPoint, CSize, CRect.
#include <atltypes.h>

#include <gtest/gtest.h>

TEST(Point, UnpacksMessageCoordinatesWithTheirSigns)
{
    EXPECT_TRUE(CPoint(MAKELPARAM(-5, 7)) == CPoint(-5, 7));
    EXPECT_TRUE(CSize(DWORD(MAKELONG(3, -4))) == CSize(3, -4));
    EXPECT_TRUE(CPoint() == CPoint(0, 0));
    EXPECT_TRUE(CPoint(CSize(1, 2)) == CPoint(1, 2));
}

TEST(Point, AddsAndSubtracts)
{
    CPoint point(10, 20);
    point.Offset(1, 2);
    point += CSize(1, 1);
    point -= CPoint(2, 3);
    EXPECT_TRUE(point == CPoint(10, 20));
    EXPECT_TRUE(point - CPoint(4, 5) == CSize(6, 15));
    EXPECT_TRUE(point - CSize(4, 5) == CPoint(6, 15));
    EXPECT_TRUE(-point == CPoint(-10, -20));
    const RECT rect = {0, 0, 5, 5};
    EXPECT_TRUE(point + &rect == CRect(10, 20, 15, 25));
    EXPECT_TRUE(point - &rect == CRect(-10, -20, -5, -15));
    EXPECT_TRUE(point != CPoint(10, 21));
}

TEST(Size, AddsAndSubtracts)
{
    CSize size(4, 6);
    size += CSize(1, 1);
    size -= CSize(0, 2);
    EXPECT_TRUE(size == CSize(5, 5));
    EXPECT_TRUE(size + CSize(1, 2) == CSize(6, 7));
    EXPECT_TRUE(-size == CSize(-5, -5));
    EXPECT_TRUE(size + CPoint(1, 2) == CPoint(6, 7));
    const RECT rect = {0, 0, 2, 2};
    EXPECT_TRUE(size + &rect == CRect(5, 5, 7, 7));
}

TEST(Rect, TellsItsMeasures)
{
    const CRect rect(10, 20, 40, 60);
    EXPECT_EQ(30, rect.Width());
    EXPECT_EQ(40, rect.Height());
    EXPECT_TRUE(rect.Size() == CSize(30, 40));
    EXPECT_TRUE(rect.TopLeft() == CPoint(10, 20));
    EXPECT_TRUE(rect.BottomRight() == CPoint(40, 60));
    EXPECT_TRUE(rect.CenterPoint() == CPoint(25, 40));
    EXPECT_TRUE(CRect(CPoint(1, 2), CSize(3, 4)) == CRect(1, 2, 4, 6));
    EXPECT_TRUE(CRect(CPoint(1, 2), CPoint(3, 4)) == CRect(1, 2, 3, 4));
    EXPECT_TRUE(CRect(static_cast<LPCRECT>(NULL)).IsRectNull());
}

TEST(Rect, LeavesOutRightAndBottom)
{
    const CRect rect(10, 20, 40, 60);
    EXPECT_TRUE(rect.PtInRect(CPoint(10, 20)));
    EXPECT_FALSE(rect.PtInRect(CPoint(40, 20)));
    EXPECT_FALSE(rect.PtInRect(CPoint(10, 60)));
    EXPECT_TRUE(CRect(5, 5, 5, 9).IsRectEmpty());
    EXPECT_FALSE(CRect(5, 5, 5, 9).IsRectNull());
}

TEST(Rect, InflatesDeflatesAndMoves)
{
    CRect rect(10, 10, 20, 20);
    rect.InflateRect(1, 2);
    EXPECT_TRUE(rect == CRect(9, 8, 21, 22));
    rect.DeflateRect(1, 2);
    rect.InflateRect(1, 2, 3, 4);
    EXPECT_TRUE(rect == CRect(9, 8, 23, 24));
    const RECT margins = {1, 2, 3, 4};
    rect.DeflateRect(&margins);
    EXPECT_TRUE(rect == CRect(10, 10, 20, 20));
    rect.MoveToXY(1, 2);
    EXPECT_TRUE(rect == CRect(1, 2, 11, 12));
    rect.MoveToX(0);
    rect.MoveToY(0);
    rect.OffsetRect(CSize(5, 5));
    EXPECT_TRUE(rect == CRect(5, 5, 15, 15));
    rect += CPoint(1, 1);
    EXPECT_TRUE(rect - CSize(1, 1) == CRect(5, 5, 15, 15));
    rect.TopLeft().x = 0;
    EXPECT_EQ(0, rect.left);
}

TEST(Rect, NormalizesItsEdges)
{
    CRect rect(20, 30, 10, 5);
    rect.NormalizeRect();
    EXPECT_TRUE(rect == CRect(10, 5, 20, 30));
}

TEST(Rect, IntersectsUnitesAndSubtracts)
{
    const CRect first(0, 0, 10, 10);
    const CRect second(5, 5, 15, 15);
    EXPECT_TRUE((first & second) == CRect(5, 5, 10, 10));
    EXPECT_TRUE((first | second) == CRect(0, 0, 15, 15));
    CRect result;
    EXPECT_FALSE(result.IntersectRect(first, CRect(20, 20, 30, 30)));
    EXPECT_TRUE(result.IsRectNull());
    EXPECT_TRUE(result.SubtractRect(first, CRect(0, 0, 10, 4)));
    EXPECT_TRUE(result == CRect(0, 4, 10, 10));
    EXPECT_TRUE(first.MulDiv(3, 2) == CRect(0, 0, 15, 15));
    EXPECT_TRUE(first != second);
}
