// Cells that show text alone.
#include "CellDrawing.h"

#include "kit/UserObjects.h"

class TextCell : public CellDrawingTest
{
};

struct Alignment
{
    int headerFormat;
    UINT drawFormat;
};

class TextCellAlignment : public CellDrawingTest, public testing::WithParamInterface<Alignment>
{
};

TEST_P(TextCellAlignment, FollowsTheHeaderItem)
{
    for (int column = 0; column < 2; ++column) {
        SetHeaderFormat(column, GetParam().headerFormat);
        m_list.SetItemText(1, column, L"Text g");
        CellPainter painter = Painter();
        painter.TextCell(CellOf(1, column), L"Text g", Normal, GetParam().drawFormat);
        EXPECT_TRUE(SamePixels(Draw(1, column), painter.Result())) << "column " << column;
    }
}

INSTANTIATE_TEST_SUITE_P(
    , TextCellAlignment,
    testing::Values(Alignment{HDF_STRING | HDF_LEFT, DT_LEFT}, Alignment{HDF_STRING | HDF_CENTER, DT_CENTER},
                    Alignment{HDF_STRING | HDF_RIGHT, DT_RIGHT}, Alignment{HDF_STRING | 3, DT_RIGHT},
                    Alignment{HDF_STRING | HDF_SORTUP | HDF_RTLREADING | HDF_CENTER, DT_CENTER}));

TEST_F(TextCell, FillsTheWholeCellAndNothingElse)
{
    m_list.SetItemText(2, 1, L"x", RGB(1, 2, 3), RGB(0, 200, 0));
    CellPainter painter = Painter();
    painter.TextCell(CellOf(2, 1), L"x", {RGB(1, 2, 3), RGB(0, 200, 0)});
    EXPECT_TRUE(SamePixels(Draw(2, 1), painter.Result()));
}

TEST_F(TextCell, WithoutTextIsBackgroundAlone)
{
    CellPainter painter = Painter();
    painter.Fill(CellOf(0, 1), Normal.background);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(TextCell, Column0EndsWhereColumn1Begins)
{
    m_list.SetItemText(0, 0, L"A text that is far too long for the first column", Normal.text,
                       Normal.background);
    CellPainter painter = Painter();
    painter.TextCell(CellOf(0, 0), L"A text that is far too long for the first column", Normal);
    EXPECT_TRUE(SamePixels(Draw(0, 0), painter.Result()));
}

TEST_F(TextCell, IsCentredVertically)
{
    UseImages({{1, 31}}); // makes the rows high
    ASSERT_GT(CellOf(0, 1).Height(), 30);
    m_list.SetItemText(0, 1, L"middle");
    CellPainter painter = Painter();
    painter.TextCell(CellOf(0, 1), L"middle", Normal);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(TextCell, KeepsALineBreakOnOneLine)
{
    m_list.SetItemText(0, 1, L"one\r\ntwo");
    CellPainter painter = Painter();
    painter.TextCell(CellOf(0, 1), L"one\r\ntwo", Normal);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(TextCell, TakesAnAmpersandAsPrefix)
{
    m_list.SetItemText(0, 1, L"R&D");
    CellPainter painter = Painter();
    painter.TextCell(CellOf(0, 1), L"R&D", Normal);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(TextCell, IsNotCutShortHoweverLong)
{
    m_list.SetColumnWidth(1, 4000);
    const CRect cell = CellOf(0, 1);
    for (const int length : {257, 258, 259, 260, 261, 500}) {
        const std::wstring text = std::wstring(static_cast<size_t>(length - 3), L'i') + L"End";
        m_list.SetItemText(0, 1, text.c_str());
        testkit::Picture drawn(cell.right, cell.bottom, own::Backdrop);
        DrawCell(drawn.Dc(), 0, 1);
        CellPainter painter(cell.right, cell.bottom, m_font);
        painter.TextCell(cell, text, Normal);
        const CRect ink(painter.Result().BoxOf(Normal.text));
        ASSERT_GT(ink.Width(), 2 * length) << "nothing to see";
        ASSERT_LT(ink.right, cell.right - 10) << "no room for the end";
        EXPECT_TRUE(SamePixels(drawn, painter.Result())) << length;
    }
}

TEST_F(TextCell, BoldIsTheFontInWeight700)
{
    m_list.SetItemText(0, 1, L"Weight");
    m_list.SetBold(0, 1, TRUE);
    CellPainter painter = Painter();
    painter.TextCell(CellOf(0, 1), L"Weight", Normal, DT_LEFT, true);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));

    CellPainter plain = Painter();
    plain.TextCell(CellOf(0, 1), L"Weight", Normal);
    EXPECT_FALSE(SamePixels(Draw(0, 1), plain.Result()));
}

// The platform has but one bold face for several weights, so the weight is read from a recording.
TEST_F(TextCell, BoldChangesNothingOfTheFontButItsWeight)
{
    m_list.SetItemText(0, 1, L"Weight");
    m_list.SetBold(0, 1, TRUE);
    const HDC recorder = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    const HGDIOBJ oldFont = SelectObject(recorder, m_font);
    Notify(recorder, CDDS_ITEMPREPAINT | CDDS_SUBITEM, 0, 1);
    SelectObject(recorder, oldFont);
    const HENHMETAFILE recording = CloseEnhMetaFile(recorder);
    std::vector<LOGFONTW> created;
    const auto note = [](HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM list) {
        if (record->iType == EMR_EXTCREATEFONTINDIRECTW) {
            const auto font = reinterpret_cast<const EMREXTCREATEFONTINDIRECTW*>(record);
            reinterpret_cast<std::vector<LOGFONTW>*>(list)->push_back(font->elfw.elfLogFont);
        }
        return TRUE;
    };
    EnumEnhMetaFile(nullptr, recording, note, &created, nullptr);
    DeleteEnhMetaFile(recording);

    LOGFONTW expected{};
    GetObjectW(m_font, sizeof expected, &expected);
    ASSERT_FALSE(created.empty());
    EXPECT_EQ(created.back().lfWeight, 700);
    EXPECT_EQ(created.back().lfHeight, expected.lfHeight);
    EXPECT_STREQ(created.back().lfFaceName, expected.lfFaceName);
}

TEST_F(TextCell, BoldIsOfTheCellAlone)
{
    m_list.SetItemText(0, 1, L"Weight");
    m_list.SetItemText(0, 2, L"Weight");
    m_list.SetBold(0, 1, TRUE);
    testkit::Picture drawn = Blank();
    DrawCell(drawn.Dc(), 0, 1);
    DrawCell(drawn.Dc(), 0, 2);
    CellPainter painter = Painter();
    painter.TextCell(CellOf(0, 1), L"Weight", Normal, DT_LEFT, true);
    painter.TextCell(CellOf(0, 2), L"Weight", Normal);
    EXPECT_TRUE(SamePixels(drawn, painter.Result()));
}

TEST_F(TextCell, BoldFollowsTheFontOfTheContext)
{
    m_list.SetItemText(0, 1, L"Weight");
    m_list.SetBold(0, 1, TRUE);
    Draw(0, 1);
    for (const wchar_t* face : {L"Courier New", L"Tahoma"}) {
        UseFont(face, -13);
        CellPainter painter = Painter();
        painter.TextCell(CellOf(0, 1), L"Weight", Normal, DT_LEFT, true);
        EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result())) << testkit::Utf8(face);
    }
}

TEST_F(TextCell, BoldWithoutTextIsBackgroundAlone)
{
    m_list.SetBold(0, 1, TRUE);
    CellPainter painter = Painter();
    painter.Fill(CellOf(0, 1), Normal.background);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(TextCell, OfADisabledRowIsGreyInEveryColumn)
{
    m_list.SetEnabled(1, FALSE);
    testkit::Picture drawn = Blank();
    CellPainter painter = Painter();
    for (int column = 0; column < 3; ++column) {
        m_list.SetItemText(1, column, L"grey");
        DrawCell(drawn.Dc(), 1, column);
        painter.TextCell(CellOf(1, column), L"grey", {own::GrayText, Normal.background});
    }
    EXPECT_TRUE(SamePixels(drawn, painter.Result()));
}

TEST_F(TextCell, RowIsDisabledByTheRecordOfColumn0Alone)
{
    m_list.SetItemText(1, 1, L"not grey");
    m_list.Record(1, 1)->bEnabled = FALSE;
    CellPainter painter = Painter();
    painter.TextCell(CellOf(1, 1), L"not grey", Normal);
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
}

TEST_F(TextCell, UsesTheRectangleAsItStands)
{
    m_list.SetItemText(0, 1, L"elsewhere");
    testkit::Picture drawn = Blank();
    const HGDIOBJ oldFont = SelectObject(drawn.Dc(), m_font);
    CRect place(33, 100, 90, 121);
    m_list.DrawText(0, 1, CDC::FromHandle(drawn.Dc()), RGB(9, 8, 7), RGB(99, 88, 77), place,
                    m_list.Record(0, 0));
    SelectObject(drawn.Dc(), oldFont);
    CellPainter painter = Painter();
    painter.TextCell(CRect(33, 100, 90, 121), L"elsewhere", {RGB(9, 8, 7), RGB(99, 88, 77)});
    EXPECT_TRUE(SamePixels(drawn, painter.Result()));
}

TEST_F(TextCell, DrawingAgainHoldsNoMoreGdiObjects)
{
    m_list.SetItemText(0, 1, L"bold");
    m_list.SetBold(0, 1, TRUE);
    m_list.SetItemText(0, 2, L"plain");
    testkit::Picture picture = Blank();
    DrawCell(picture.Dc(), 0, 1);
    const int before = testkit::CountGdiObjects();
    for (int i = 0; i < 20; ++i) {
        DrawCell(picture.Dc(), 0, 1);
        DrawCell(picture.Dc(), 0, 2);
    }
    EXPECT_EQ(testkit::CountGdiObjects(), before);
}
