// Cells with an image before the text.
#include "CellDrawing.h"

namespace
{

constexpr int Gap = 6; // the header's spacing as it is at first
constexpr PatternImage First{16, 16, 0};
constexpr PatternImage Second{16, 16, 3};

} // namespace

class ImageCell : public CellDrawingTest
{
protected:
    // What DrawImage draws into a rectangle of any kind, and its result.
    testkit::Picture DrawImageInto(CRect rect, int row, int column)
    {
        testkit::Picture picture = Blank();
        m_width = m_list.DrawImage(row, column, CDC::FromHandle(picture.Dc()), Normal.text, Normal.background,
                                   rect, m_list.Record(row, 0));
        return picture;
    }

    int m_width = 0;
};

TEST_F(ImageCell, ShowsTheImageBehindTheGapAndThenTheText)
{
    UseImages({First, Second});
    for (int column = 0; column < 2; ++column) {
        m_list.SetItemText(0, column, L"Text");
        m_list.SetItemImage(0, column, 1);
        CellPainter painter = Painter();
        painter.ImageCell(CellOf(0, column), &Second, L"Text", Normal);
        EXPECT_TRUE(SamePixels(Draw(0, column), painter.Result())) << "column " << column;
    }
}

TEST_F(ImageCell, WithoutTextShowsTheImageAlone)
{
    UseImages({First, Second});
    m_list.SetItemImage(0, 1, 0);
    CellPainter painter = Painter();
    painter.Image(CellOf(0, 1), &First, Normal.background, Gap);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(ImageCell, TextIsAlignedInWhatTheImageLeaves)
{
    UseImages({First});
    SetHeaderFormat(1, HDF_STRING | HDF_CENTER);
    m_list.SetItemText(0, 1, L"Text");
    m_list.SetItemImage(0, 1, 0);
    CellPainter painter = Painter();
    CRect cell = CellOf(0, 1);
    cell.left += painter.Image(cell, &First, Normal.background, Gap);
    painter.TextCell(cell, L"Text", Normal, DT_CENTER);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(ImageCell, IsCutToTheWidthThatTheCellLeaves)
{
    UseImages({First});
    m_list.SetItemImage(0, 1, 0);
    m_list.SetColumnWidth(1, Gap + 16);
    CellPainter whole = Painter();
    whole.Image(CellOf(0, 1), &First, Normal.background, Gap);
    EXPECT_TRUE(SamePixels(Draw(0, 1), whole.Result()));

    for (const int width : {1, 9, 15}) {
        const CRect rect(50, 100, 50 + Gap + width, 117);
        CellPainter cut = Painter();
        cut.Image(rect, &First, Normal.background, Gap);
        EXPECT_TRUE(SamePixels(DrawImageInto(rect, 0, 1), cut.Result())) << width;
    }
}

// The text's rectangle then begins behind the cell's right end: nothing is in it.
TEST_F(ImageCell, NarrowerThanItsImageDrawsNothingBesideItself)
{
    UseImages({First});
    m_list.SetItemImage(0, 1, 0);
    m_list.SetColumnWidth(1, Gap + 9);
    CellPainter painter = Painter();
    painter.Image(CellOf(0, 1), &First, Normal.background, Gap);
    for (const wchar_t* text : {L"", L"Text"}) {
        m_list.SetItemText(0, 1, text);
        EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result())) << testkit::Quoted(text);
    }
}

TEST_F(ImageCell, IsCutToTheHeightOfTheRectangle)
{
    UseImages({First});
    m_list.SetItemImage(0, 1, 0);
    for (const int height : {1, 10, 11, 15, 16}) {
        const CRect rect(50, 100, 120, 100 + height);
        CellPainter painter = Painter();
        painter.Image(rect, &First, Normal.background, Gap);
        EXPECT_TRUE(SamePixels(DrawImageInto(rect, 0, 1), painter.Result())) << height;
        EXPECT_EQ(m_width, Gap + 16);
    }
}

TEST_F(ImageCell, IsCentredByHalvesThatAreCut)
{
    for (const int imageHeight : {8, 9}) {
        const PatternImage image{12, imageHeight};
        UseImages({image});
        m_list.SetItemImage(0, 1, 0);
        for (const int top : {100, 101}) {
            for (const int height : {20, 21}) {
                const CRect rect(50, top, 120, top + height);
                CellPainter painter = Painter();
                painter.Image(rect, &image, Normal.background, Gap);
                EXPECT_TRUE(SamePixels(DrawImageInto(rect, 0, 1), painter.Result()))
                    << imageHeight << " in " << top << " + " << height;
            }
        }
    }
}

TEST_F(ImageCell, UsesGapAndFullWidthAlsoWhenCut)
{
    UseImages({First});
    m_list.SetItemImage(0, 1, 0);
    DrawImageInto(CRect(50, 100, 120, 117), 0, 1);
    EXPECT_EQ(m_width, Gap + 16);
    DrawImageInto(CRect(50, 100, 50 + Gap + 9, 117), 0, 1);
    EXPECT_EQ(m_width, Gap + 16);
    const CRect onePixel(50, 100, 50 + Gap + 1, 117);
    CellPainter painter = Painter();
    painter.Image(onePixel, &First, Normal.background, Gap);
    EXPECT_TRUE(SamePixels(DrawImageInto(onePixel, 0, 1), painter.Result()));
    EXPECT_EQ(m_width, Gap + 16);
}

TEST_F(ImageCell, WithNoRoomBehindTheGapShowsNone)
{
    UseImages({First});
    m_list.SetItemImage(0, 1, 0);
    for (const int width : {Gap, Gap - 2}) {
        const CRect rect(50, 100, 50 + width, 117);
        CellPainter painter = Painter();
        painter.Fill(rect, Normal.background);
        EXPECT_TRUE(SamePixels(DrawImageInto(rect, 0, 1), painter.Result())) << width;
        EXPECT_EQ(m_width, 0);
    }
}

TEST_F(ImageCell, WithoutImageListIsAPlainTextCell)
{
    m_list.SetItemText(0, 1, L"Text");
    m_list.SetItemImage(0, 1, 0);
    CellPainter painter = Painter();
    painter.TextCell(CellOf(0, 1), L"Text", Normal);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
    DrawImageInto(CellOf(0, 1), 0, 1);
    EXPECT_EQ(m_width, 0);
}

TEST_F(ImageCell, WithANegativeIndexIsAPlainTextCell)
{
    UseImages({First});
    m_list.SetItemText(0, 1, L"Text");
    for (const int index : {-1, -7}) {
        m_list.SetItemImage(0, 1, index);
        CellPainter painter = Painter();
        painter.TextCell(CellOf(0, 1), L"Text", Normal);
        EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result())) << index;
        DrawImageInto(CellOf(0, 1), 0, 1);
        EXPECT_EQ(m_width, 0);
    }
}

TEST_F(ImageCell, WithTooLargeAnIndexKeepsTheGapAlone)
{
    UseImages({First, Second});
    m_list.SetItemText(0, 1, L"Text");
    for (const int index : {2, 1000}) {
        m_list.SetItemImage(0, 1, index);
        const PatternImage nothing{0, 0};
        CellPainter painter = Painter();
        painter.ImageCell(CellOf(0, 1), &nothing, L"Text", Normal);
        EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result())) << index;
        DrawImageInto(CellOf(0, 1), 0, 1);
        EXPECT_EQ(m_width, Gap);
    }
}

TEST_F(ImageCell, GapIsTheSpacingOfTheHeader)
{
    UseImages({First});
    m_list.SetItemText(0, 1, L"Text");
    m_list.SetItemImage(0, 1, 0);
    for (const int spacing : {0, 1, 13}) {
        m_list.m_HeaderCtrl.SetSpacing(spacing);
        CellPainter painter = Painter();
        painter.ImageCell(CellOf(0, 1), &First, L"Text", Normal, spacing);
        EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result())) << spacing;
        DrawImageInto(CellOf(0, 1), 0, 1);
        EXPECT_EQ(m_width, spacing + 16);
    }
}

TEST_F(ImageCell, GapDoesNotMoveTextWithoutImage)
{
    UseImages({First});
    m_list.m_HeaderCtrl.SetSpacing(20);
    m_list.SetItemText(0, 1, L"Text");
    CellPainter painter = Painter();
    painter.TextCell(CellOf(0, 1), L"Text", Normal);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(ImageCell, GivesTheImageListItsBackgroundBack)
{
    UseImages({First});
    m_list.SetItemImage(0, 1, 0);
    const auto images = reinterpret_cast<HIMAGELIST>(m_list.SendMessage(LVM_GETIMAGELIST, LVSIL_SMALL));
    CellPainter painter = Painter();
    painter.Image(CellOf(0, 1), &First, Normal.background, Gap);
    for (const COLORREF background : {RGB(0, 255, 0), COLORREF{CLR_NONE}}) {
        ImageList_SetBkColor(images, background);
        EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
        EXPECT_EQ(ImageList_GetBkColor(images), background);
    }
}

TEST_F(ImageCell, StandsOnTheColoursOfTheSelection)
{
    UseImages({First});
    m_list.SetItemText(0, 0, L"Text");
    m_list.SetItemImage(0, 0, 0);
    Select(0);
    m_list.SetFocus();
    CellPainter painter = Painter();
    painter.ImageCell(CellOf(0, 0), &First, L"Text", {own::HighLightText, own::HighLight});
    EXPECT_TRUE(SamePixels(Draw(0, 0), painter.Result()));
}

TEST_F(ImageCell, OfARowWithoutRecordsShowsNone)
{
    UseImages({First});
    m_list.CListCtrl::InsertItem(Rows, L"bare");
    ASSERT_EQ(m_list.Record(Rows, 0), nullptr);
    CellPainter painter = Painter();
    painter.Fill(CellOf(Rows, 0), Normal.background);
    EXPECT_TRUE(SamePixels(DrawImageInto(CellOf(Rows, 0), Rows, 0), painter.Result()));
    EXPECT_EQ(m_width, 0);
}

TEST_F(ImageCell, LeavesTheCallersRectangleAlone)
{
    UseImages({First});
    m_list.SetItemImage(0, 1, 0);
    CRect rect(50, 100, 120, 117);
    testkit::Picture picture = Blank();
    m_list.DrawImage(0, 1, CDC::FromHandle(picture.Dc()), Normal.text, Normal.background, rect,
                     m_list.Record(0, 0));
    EXPECT_EQ(rect, CRect(50, 100, 120, 117));
}
