// Cells with a check box.
#include "CellDrawing.h"

#include <string>
#include <tuple>

namespace
{

constexpr COLORREF Black = RGB(0, 0, 0);
constexpr COLORREF NoMark = CLR_NONE;

} // namespace

class CheckboxCell : public CellDrawingTest
{
};

// The state, the text, and whether the row is enabled.
class CheckboxCellKind : public CellDrawingTest,
                         public testing::WithParamInterface<std::tuple<int, const wchar_t*, bool>>
{
};

TEST_P(CheckboxCellKind, IsDrawn)
{
    const auto [state, text, isEnabled] = GetParam();
    m_list.SetEnabled(1, isEnabled);
    const COLORREF checked = isEnabled ? Black : own::GrayText;
    const CellColors colors{isEnabled ? Normal.text : own::GrayText, Normal.background};
    for (int column = 0; column < 3; ++column) {
        m_list.SetItemText(1, column, text);
        m_list.SetCheckbox(1, column, state);
        CellPainter painter = Painter();
        painter.CheckboxCell(CellOf(1, column), text, colors, state == 1 ? checked : NoMark);
        EXPECT_TRUE(SamePixels(Draw(1, column), painter.Result())) << "column " << column;
    }
}

INSTANTIATE_TEST_SUITE_P(, CheckboxCellKind,
                         testing::Combine(testing::Values(0, 1, 2, 100, -2), testing::Values(L"", L"Text g"),
                                          testing::Bool()),
                         [](const auto& info) {
                             const int state = std::get<0>(info.param);
                             return (state < 0 ? "Minus" : "") + std::to_string(std::abs(state)) +
                                    (*std::get<1>(info.param) ? "WithText" : "Bare") +
                                    (std::get<2>(info.param) ? "Enabled" : "Disabled");
                         });

// Width and height of the cell are halved apart, so all four pairs of odd and even count.
TEST_F(CheckboxCell, WithoutTextCentresTheBoxByHalvesThatAreCut)
{
    m_list.SetCheckbox(0, 1, 1);
    for (const int imageHeight : {15, 16, 20, 27}) {
        UseImages({{1, imageHeight}}); // makes the rows higher
        for (const int width : {60, 61, 62, 63}) {
            m_list.SetColumnWidth(1, width);
            CellPainter painter = Painter();
            painter.CheckboxCell(CellOf(0, 1), L"", Normal, Black);
            EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result())) << width << " by " << imageHeight;
        }
    }
}

TEST_F(CheckboxCell, WithTextIsAsHighAsTheRow)
{
    m_list.SetItemText(0, 1, L"Text");
    m_list.SetCheckbox(0, 1, 1);
    for (const int imageHeight : {15, 20, 27}) {
        UseImages({{1, imageHeight}});
        CellPainter painter = Painter();
        painter.CheckboxCell(CellOf(0, 1), L"Text", Normal, Black);
        EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result())) << imageHeight;
    }
}

TEST_F(CheckboxCell, WithTextTooLongIsCutAtTheCell)
{
    m_list.SetItemText(0, 1, L"A text that is too long for it");
    m_list.SetCheckbox(0, 1, 0);
    CellPainter painter = Painter();
    painter.CheckboxCell(CellOf(0, 1), L"A text that is too long for it", Normal, NoMark);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(CheckboxCell, TextStandsLeftWhateverTheHeaderSays)
{
    SetHeaderFormat(1, HDF_STRING | HDF_RIGHT);
    m_list.SetItemText(0, 1, L"Text");
    m_list.SetCheckbox(0, 1, 1);
    CellPainter painter = Painter();
    painter.CheckboxCell(CellOf(0, 1), L"Text", Normal, Black);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(CheckboxCell, TextIsNeverBold)
{
    m_list.SetItemText(0, 1, L"Text");
    m_list.SetCheckbox(0, 1, 1);
    m_list.SetBold(0, 1, TRUE);
    CellPainter painter = Painter();
    painter.CheckboxCell(CellOf(0, 1), L"Text", Normal, Black);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(CheckboxCell, ShowsNoImage)
{
    UseImages({{16, 16}});
    m_list.SetItemText(0, 1, L"Text");
    m_list.SetItemImage(0, 1, 0);
    m_list.SetCheckbox(0, 1, 0);
    CellPainter painter = Painter();
    painter.CheckboxCell(CellOf(0, 1), L"Text", Normal, NoMark);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(CheckboxCell, MarkIsGreyByTheRecordOfColumn0Alone)
{
    m_list.SetCheckbox(0, 1, 1);
    m_list.Record(0, 1)->bEnabled = FALSE;
    CellPainter painter = Painter();
    painter.CheckboxCell(CellOf(0, 1), L"", Normal, Black);
    EXPECT_TRUE(SamePixels(Draw(0, 1), painter.Result()));
}

TEST_F(CheckboxCell, SelectionColoursCellAndTextButNotTheBox)
{
    Select(0);
    m_list.SetFocus();
    for (const wchar_t* text : {L"Text", L""}) {
        m_list.SetItemText(0, 0, text);
        m_list.SetCheckbox(0, 0, 1);
        CellPainter painter = Painter();
        painter.CheckboxCell(CellOf(0, 0), text, {own::HighLightText, own::HighLight}, Black);
        EXPECT_TRUE(SamePixels(Draw(0, 0), painter.Result())) << testkit::Quoted(text);
    }
}

TEST_F(CheckboxCell, SelectionColoursTheTextOfADisabledRowButNotItsMark)
{
    m_list.SetEnabled(0, FALSE);
    Select(0);
    m_list.SetFocus();
    m_list.SetCheckbox(0, 0, 1);
    CellPainter painter = Painter();
    painter.CheckboxCell(CellOf(0, 0), L"row 0", {own::HighLightText, own::HighLight}, own::GrayText);
    EXPECT_TRUE(SamePixels(Draw(0, 0), painter.Result()));
}
