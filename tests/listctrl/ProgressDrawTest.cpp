// Progress cells.
#include "CellDrawing.h"

#include <climits>

class ProgressDraw : public CellDrawingTest
{
protected:
    // Makes cell (1, column) a bar and compares it with one that has this label.
    void ExpectBar(int column, int percent, const wchar_t* text, std::wstring_view label)
    {
        m_list.SetProgress(1, column, TRUE, text);
        m_list.UpdateProgress(1, column, percent);
        CellPainter painter = Painter();
        painter.ProgressCell(CellOf(1, column), percent, label, Normal);
        EXPECT_TRUE(SamePixels(Draw(1, column), painter.Result()))
            << percent << " % in column " << column << ": " << testkit::Quoted(label);
    }
};

TEST_F(ProgressDraw, AtZeroIsAnEmptyFrame)
{
    ExpectBar(1, 0, L"", L"");
    ExpectBar(1, 0, L"Text %d", L"");
}

TEST_F(ProgressDraw, BelowZeroIsAnEmptyFrame)
{
    for (const int percent : {-1, -57, INT_MIN})
        ExpectBar(1, percent, L"", L"");
}

TEST_F(ProgressDraw, HasTheBarAndTheLabelOfItsPercentage)
{
    for (int column = 0; column < 3; ++column) {
        ExpectBar(column, 1, L"", L"1%");
        ExpectBar(column, 57, L"", L"57%");
        ExpectBar(column, 99, L"", L"99%");
        ExpectBar(column, 100, L"", L"100%");
    }
}

TEST_F(ProgressDraw, LabelOverTheBarHasTheBackgroundsColour)
{
    m_list.SetItemText(1, 1, nullptr, RGB(255, 0, 0), RGB(0, 255, 0));
    m_list.SetProgress(1, 1, TRUE, L"in two colours");
    m_list.UpdateProgress(1, 1, 50);
    CellPainter painter = Painter();
    painter.ProgressCell(CellOf(1, 1), 50, L"in two colours", {RGB(255, 0, 0), RGB(0, 255, 0)});
    const testkit::Picture drawn = Draw(1, 1);
    EXPECT_TRUE(SamePixels(drawn, painter.Result()));

    // Left + 2 of the frame, and half of what remains to its right end.
    const CRect cell = CellOf(1, 1);
    const int left = cell.left + 3, end = left + (cell.right - 2 - left) / 2;
    EXPECT_GT(drawn.Count(RGB(0, 255, 0)), 0);
    EXPECT_LE(drawn.BoxOf(RGB(0, 255, 0)).right, end);
    EXPECT_GT(drawn.Count(RGB(255, 0, 0)), 0);
    EXPECT_GT(drawn.BoxOf(RGB(255, 0, 0)).left, end);
}

// Every length of the bar, so that its edge meets each column of the label once.
TEST_F(ProgressDraw, IsRightAtEveryPercentage)
{
    for (int percent = 1; percent <= 100; ++percent)
        ExpectBar(1, percent, L"WWWW", L"WWWW");
}

TEST_F(ProgressDraw, Above100RunsPastTheFrame)
{
    ExpectBar(1, 101, L"", L"101%");
    ExpectBar(1, 250, L"", L"250%");
    ExpectBar(2, 250, L"", L"250%");
    ExpectBar(0, 250, L"", L"250%");
}

// The bar's length is worked out in 32 bits. The room for it is the cell's width less 5: an odd number times
// the greatest percentage gives a great length, an even one a length of 0 or less.
TEST_F(ProgressDraw, LengthWrapsRoundAt32Bits)
{
    for (const int width : {80, 81, 204, 205}) {
        m_list.SetColumnWidth(1, width);
        ExpectBar(1, INT_MAX, L"", L"2147483647%");
        ExpectBar(1, 40'000'000, L"", L"40000000%");
    }
}

TEST_F(ProgressDraw, WithoutLabelShowsTheBarAlone)
{
    for (const int percent : {0, 57, 250}) {
        m_list.SetProgress(1, 1, FALSE, L"Text %d");
        m_list.UpdateProgress(1, 1, percent);
        CellPainter painter = Painter();
        painter.ProgressCell(CellOf(1, 1), percent, L"", Normal);
        EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result())) << percent;
    }
}

TEST_F(ProgressDraw, LabelIsItsTextWithThePercentageInIt)
{
    m_list.SetColumnWidth(1, 180);
    ExpectBar(1, 40, L"Done %d of 100", L"Done 40 of 100");
    ExpectBar(1, 57, L"Loading", L"Loading");
    ExpectBar(1, 57, L"%d", L"57");
    ExpectBar(1, 57, L"%d%%", L"57%");
    ExpectBar(1, 57, L"%%", L"%");
    ExpectBar(1, 57, L"100%% %d", L"100% 57");
    ExpectBar(1, 57, L"%%d", L"%d");
    ExpectBar(1, 57, L" ", L" ");
}

TEST_F(ProgressDraw, LabelTakesEveryKindOfIntegerConversion)
{
    m_list.SetColumnWidth(1, 180);
    ExpectBar(1, 57, L"<%5d>", L"<   57>");
    ExpectBar(1, 57, L"<%-5d>", L"<57   >");
    ExpectBar(1, 57, L"<%05d>", L"<00057>");
    ExpectBar(1, 57, L"<%+d>", L"<+57>");
    ExpectBar(1, 57, L"<%.4d>", L"<0057>");
    ExpectBar(1, 57, L"<%i>", L"<57>");
    ExpectBar(1, 57, L"<%u>", L"<57>");
    ExpectBar(1, 57, L"<%x>", L"<39>");
    ExpectBar(1, 77, L"<%X>", L"<4D>");
    ExpectBar(1, 57, L"<%o>", L"<71>");
    ExpectBar(1, 57, L"<%ld>", L"<57>");
}

TEST_F(ProgressDraw, LabelShowsAnyOtherConversionAsItStands)
{
    m_list.SetColumnWidth(1, 180);
    ExpectBar(1, 57, L"<%s>", L"<%s>");
    ExpectBar(1, 57, L"<%n>", L"<%n>");
    ExpectBar(1, 57, L"<%f>", L"<%f>");
    ExpectBar(1, 57, L"<%*d>", L"<%*d>");
    ExpectBar(1, 57, L"<%99999d>", L"<%99999d>");
    ExpectBar(1, 57, L"50%", L"50%");
    ExpectBar(1, 57, L"%s %d", L"%s 57");
    ExpectBar(1, 57, L"%d %d %s", L"57 %d %s");
}

// DT_NOPREFIX is not among its flags.
TEST_F(ProgressDraw, LabelTakesAnAmpersandAsPrefix)
{
    ExpectBar(1, 57, L"R&D", L"R&D");
}

TEST_F(ProgressDraw, LabelTooLongIsCutInsideTheFrame)
{
    ExpectBar(1, 57, L"A label that is too long for it", L"A label that is too long for it");
    ExpectBar(1, 250, L"A label that is too long for it", L"A label that is too long for it");
}

TEST_F(ProgressDraw, LabelIsCentredInRowsOfEveryHeight)
{
    for (const int imageHeight : {16, 17, 30}) {
        UseImages({{1, imageHeight}}); // makes the rows higher
        ExpectBar(1, 57, L"", L"57%");
    }
}

TEST_F(ProgressDraw, LabelIsPlainAndCentredWhateverElseIsSet)
{
    m_list.SetBold(1, 1, TRUE);
    SetHeaderFormat(1, HDF_STRING | HDF_RIGHT);
    ExpectBar(1, 57, L"", L"57%");
}

TEST_F(ProgressDraw, StandsInsteadOfText)
{
    m_list.SetItemText(1, 1, L"hidden");
    ExpectBar(1, 57, L"", L"57%");
}

TEST_F(ProgressDraw, SelectionDoesNotColourIt)
{
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    Select(1);
    m_list.SetFocus();
    for (int column = 0; column < 2; ++column)
        ExpectBar(column, 57, L"", L"57%");
}

TEST_F(ProgressDraw, OfADisabledRowHasAGreyLabelBehindTheBar)
{
    m_list.SetEnabled(1, FALSE);
    m_list.SetProgress(1, 1, TRUE, L"two colours");
    m_list.UpdateProgress(1, 1, 50);
    CellPainter painter = Painter();
    painter.ProgressCell(CellOf(1, 1), 50, L"two colours", {own::GrayText, Normal.background});
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
}

TEST_F(ProgressDraw, LeavesNoClipRegion)
{
    const HRGN region = CreateRectRgn(0, 0, 1, 1);
    for (const int percent : {1, 57, 250, INT_MAX}) {
        m_list.SetProgress(1, 1, TRUE, L"");
        m_list.UpdateProgress(1, 1, percent);
        testkit::Picture picture = Blank();
        DrawCell(picture.Dc(), 1, 1);
        EXPECT_EQ(GetClipRgn(picture.Dc(), region), 0) << percent;
    }
    DeleteObject(region);
}

TEST_F(ProgressDraw, ChangesItsRectangleInPlace)
{
    m_list.SetProgress(1, 1, TRUE, L"");
    CRect rect(50, 100, 120, 117);
    testkit::Picture picture = Blank();
    m_list.DrawProgress(1, 1, CDC::FromHandle(picture.Dc()), Normal.text, Normal.background, rect,
                        m_list.Record(1, 0));
    EXPECT_EQ(rect, CRect(51, 100, 118, 116));
}
