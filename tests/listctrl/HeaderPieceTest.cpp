#include "HeaderGround.h"

namespace
{

// Draws single pieces onto a picture.
class HeaderPiece : public HeaderTest
{
protected:
    static constexpr int Width = 60;
    static constexpr int Height = 20;

    HeaderPiece() : m_picture(Width, Height, Face)
    {
        m_dc.Attach(m_picture.Dc());
        m_dc.SetBkColor(Face);
    }
    ~HeaderPiece() override { m_dc.Detach(); }

    void SetUp() override
    {
        HeaderTest::SetUp();
        m_item.mask = HDI_WIDTH | HDI_TEXT | HDI_FORMAT | HDI_BITMAP | HDI_IMAGE;
        m_item.fmt = HDF_STRING;
        m_item.pszText = m_caption.data();
    }

    int DrawBitmap(CRect rect, const PatternImage& pattern, BOOL isRight)
    {
        m_bitmaps.push_back(MakeBitmap(pattern));
        BITMAP record{};
        record.bmWidth = pattern.width;
        record.bmHeight = pattern.height;
        return m_header.DrawBitmap(&m_dc, rect, &m_item, CBitmap::FromHandle(m_bitmaps.back()), &record,
                                   isRight);
    }

    int DrawCaption(CRect rect)
    {
        const HGDIOBJ old = SelectObject(m_dc.GetSafeHdc(), m_font);
        const int width = m_header.DrawText(&m_dc, rect, &m_item);
        SelectObject(m_dc.GetSafeHdc(), old);
        return width;
    }

    int CaptionWidth()
    {
        SIZE size{};
        const HGDIOBJ old = SelectObject(m_dc.GetSafeHdc(), m_font);
        GetTextExtentPoint32W(m_dc.GetSafeHdc(), m_caption.c_str(), static_cast<int>(m_caption.size()),
                              &size);
        SelectObject(m_dc.GetSafeHdc(), old);
        return size.cx;
    }

    void ExpectPattern(int x, int y, int shownWidth, const PatternImage& pattern, COLORREF filler)
    {
        const testkit::Picture expected(Width, Height, Face);
        PaintPattern(expected.Dc(), x, y, shownWidth, pattern, filler);
        EXPECT_EQ(FirstDifference(m_picture, expected), "");
    }
    void ExpectUntouched() { EXPECT_EQ(m_picture.Count(Face), Width * Height); }

    testkit::Picture m_picture;
    CDC m_dc;
    HDITEM m_item{};
    std::wstring m_caption = L"Caption";
};

const PatternImage Images[] = {{12, 10, 0}, {12, 10, 1}};

} // namespace

TEST_F(HeaderPiece, ImageStandsAtEitherEnd)
{
    UseImages({Images[0], Images[1]});
    m_item.iImage = 1;
    EXPECT_EQ(m_header.DrawImage(&m_dc, CRect(5, 0, 50, 20), &m_item, FALSE), 12);
    ExpectPattern(5, 5, 12, Images[1], CLR_NONE);
    m_dc.FillSolidRect(0, 0, Width, Height, Face);
    EXPECT_EQ(m_header.DrawImage(&m_dc, CRect(5, 0, 50, 20), &m_item, TRUE), 12);
    ExpectPattern(50 - 12, 5, 12, Images[1], CLR_NONE);
}

TEST_F(HeaderPiece, ImageUsesItsWholeWidthEvenWhenCut)
{
    UseImages({Images[0], Images[1]});
    m_item.iImage = 1;
    EXPECT_EQ(m_header.DrawImage(&m_dc, CRect(5, 1, 9, 18), &m_item, FALSE), 12);
    ExpectPattern(5, (1 + 18) / 2 - 5, 4, Images[1], CLR_NONE);
}

TEST_F(HeaderPiece, ImageNeedsAListAnIndexAndRoom)
{
    m_item.iImage = 1;
    EXPECT_EQ(m_header.DrawImage(&m_dc, CRect(5, 0, 50, 20), &m_item, FALSE), 0);
    UseImages({Images[0], Images[1]});
    EXPECT_EQ(m_header.DrawImage(&m_dc, CRect(5, 0, 5, 20), &m_item, FALSE), 0);
    EXPECT_EQ(m_header.DrawImage(&m_dc, CRect(5, 0, 3, 20), &m_item, FALSE), 0);
    m_item.iImage = 0;
    EXPECT_EQ(m_header.DrawImage(&m_dc, CRect(5, 0, 50, 20), &m_item, FALSE), 0);
    ExpectUntouched();
}

TEST_F(HeaderPiece, BitmapStandsAtEitherEnd)
{
    const PatternImage bitmap{9, 7, 4};
    EXPECT_EQ(DrawBitmap(CRect(5, 1, 50, 18), bitmap, FALSE), 9);
    ExpectPattern(5, (1 + 18) / 2 - 3, 9, bitmap, BitmapFiller);
    m_dc.FillSolidRect(0, 0, Width, Height, Face);
    EXPECT_EQ(DrawBitmap(CRect(5, 1, 50, 18), bitmap, TRUE), 9);
    ExpectPattern(50 - 9, (1 + 18) / 2 - 3, 9, bitmap, BitmapFiller);
}

TEST_F(HeaderPiece, BitmapNeedsRoomForAllOfIt)
{
    BITMAP record{};
    EXPECT_EQ(m_header.DrawBitmap(&m_dc, CRect(5, 0, 50, 20), &m_item, nullptr, &record, TRUE), 0);
    EXPECT_EQ(DrawBitmap(CRect(5, 0, 13, 20), {9, 7, 4}, TRUE), 0);
    EXPECT_EQ(DrawBitmap(CRect(5, 0, 5, 20), {9, 7, 4}, TRUE), 0);
    ExpectUntouched();
}

TEST_F(HeaderPiece, CaptionGivesItsWidthOrTheRooms)
{
    const int width = CaptionWidth();
    ASSERT_LT(width, Width);
    EXPECT_EQ(DrawCaption(CRect(0, 0, Width, Height)), width);
    EXPECT_EQ(DrawCaption(CRect(0, 0, width - 1, Height)), width - 1);
    EXPECT_EQ(DrawCaption(CRect(0, 0, 1, Height)), 1);
}

TEST_F(HeaderPiece, CaptionNeedsRoomMaskAndFormat)
{
    EXPECT_EQ(DrawCaption(CRect(5, 0, 5, Height)), 0);
    EXPECT_EQ(DrawCaption(CRect(9, 0, 5, Height)), 0);
    m_item.mask &= ~static_cast<UINT>(HDI_TEXT);
    EXPECT_EQ(DrawCaption(CRect(0, 0, Width, Height)), 0);
    m_item.mask |= HDI_TEXT;
    m_item.fmt = HDF_LEFT;
    EXPECT_EQ(DrawCaption(CRect(0, 0, Width, Height)), 0);
    ExpectUntouched();
}

TEST_F(HeaderPiece, TextColorIsSetEvenWithoutCaption)
{
    m_dc.SetTextColor(Text);
    m_item.fmt = HDF_LEFT;
    DrawCaption(CRect(0, 0, Width, Height));
    EXPECT_EQ(m_dc.GetTextColor(), RGB(0, 0, 255));
}
