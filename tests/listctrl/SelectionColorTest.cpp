// The colours of cells in a selected row.
#include "CellDrawing.h"

#include <string>

namespace
{

enum class Shown
{
    Own,       // the cell's colours
    HighLight, // those of the selection
    Faded      // those of a selection without focus
};

struct Case
{
    bool hasFocus;
    bool isFullRow;
    bool showsAlways;
    Shown first; // in column 0
    Shown other; // in every other column
};

constexpr Case Cases[] = {
    {true, false, false, Shown::HighLight, Shown::Own},
    {true, false, true, Shown::HighLight, Shown::Own},
    {true, true, false, Shown::HighLight, Shown::HighLight},
    {true, true, true, Shown::HighLight, Shown::HighLight},
    {false, false, false, Shown::Own, Shown::Own},
    {false, false, true, Shown::Faded, Shown::Own},
    {false, true, false, Shown::Own, Shown::Own},
    {false, true, true, Shown::Faded, Shown::Faded},
};

} // namespace

class SelectionColor : public CellDrawingTest, public testing::WithParamInterface<Case>
{
protected:
    void SetUp() override
    {
        CellDrawingTest::SetUp();
        const Case& param = GetParam();
        if (param.isFullRow)
            m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
        if (param.showsAlways)
            m_list.ModifyStyle(0, LVS_SHOWSELALWAYS);
        CWnd& focused = param.hasFocus ? static_cast<CWnd&>(m_list) : m_parent;
        focused.SetFocus();
        ASSERT_EQ(GetFocus(), focused.m_hWnd);
        for (int column = 0; column < 3; ++column) {
            m_list.SetItemText(1, column, L"Text");
            m_list.SetItemText(2, column, L"Text");
        }
    }

    // What a cell of the selected row is drawn in, if these are its own colours.
    CellColors Expected(int column, CellColors ownColors = Normal)
    {
        switch (column == 0 ? GetParam().first : GetParam().other) {
        case Shown::HighLight:
            return {own::HighLightText, own::HighLight};
        case Shown::Faded:
            return {own::WindowText, own::BtnFace};
        default:
            return ownColors;
        }
    }
};

TEST_P(SelectionColor, OfTextCells)
{
    Select(1);
    for (int column = 0; column < 3; ++column) {
        CellPainter painter = Painter();
        painter.TextCell(CellOf(1, column), L"Text", Expected(column));
        EXPECT_TRUE(SamePixels(Draw(1, column), painter.Result())) << "column " << column;
    }
}

TEST_P(SelectionColor, OfCellsWithoutText)
{
    Select(1);
    for (int column = 0; column < 3; ++column) {
        m_list.SetItemText(1, column, L"");
        CellPainter painter = Painter();
        painter.Fill(CellOf(1, column), Expected(column).background);
        EXPECT_TRUE(SamePixels(Draw(1, column), painter.Result())) << "column " << column;
    }
}

TEST_P(SelectionColor, OfImageCells)
{
    const PatternImage image{16, 16};
    UseImages({image});
    Select(1);
    for (int column = 0; column < 3; ++column) {
        m_list.SetItemImage(1, column, 0);
        CellPainter painter = Painter();
        painter.ImageCell(CellOf(1, column), &image, L"Text", Expected(column));
        EXPECT_TRUE(SamePixels(Draw(1, column), painter.Result())) << "column " << column;
    }
}

TEST_P(SelectionColor, OfCheckboxCells)
{
    Select(1);
    for (int column = 0; column < 3; ++column) {
        m_list.SetCheckbox(1, column, 1);
        CellPainter painter = Painter();
        painter.CheckboxCell(CellOf(1, column), L"Text", Expected(column), RGB(0, 0, 0));
        EXPECT_TRUE(SamePixels(Draw(1, column), painter.Result())) << "column " << column;
    }
}

TEST_P(SelectionColor, OfADisabledRow)
{
    m_list.SetEnabled(1, FALSE);
    Select(1);
    for (int column = 0; column < 3; ++column) {
        CellPainter painter = Painter();
        painter.TextCell(CellOf(1, column), L"Text", Expected(column, {own::GrayText, Normal.background}));
        EXPECT_TRUE(SamePixels(Draw(1, column), painter.Result())) << "column " << column;
    }
}

TEST_P(SelectionColor, OfRowsNotSelectedAreTheirOwn)
{
    Select(1);
    for (int column = 0; column < 3; ++column) {
        CellPainter painter = Painter();
        painter.TextCell(CellOf(2, column), L"Text", Normal);
        EXPECT_TRUE(SamePixels(Draw(2, column), painter.Result())) << "column " << column;
    }
}

// The list's focus rectangle is the list view's matter; the colours go by the selection alone.
TEST_P(SelectionColor, OfTheFocusedRowThatIsNotSelectedAreItsOwn)
{
    m_list.SetItemState(1, LVIS_FOCUSED, LVIS_FOCUSED | LVIS_SELECTED);
    for (int column = 0; column < 3; ++column) {
        CellPainter painter = Painter();
        painter.TextCell(CellOf(1, column), L"Text", Normal);
        EXPECT_TRUE(SamePixels(Draw(1, column), painter.Result())) << "column " << column;
    }
}

TEST_P(SelectionColor, ReplacesTheColoursGiven)
{
    Select(1);
    for (int row = 1; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const CellColors expected = row == 1 ? Expected(column) : Normal;
            CellColors colors = Normal;
            m_list.GetDrawColors(row, column, colors.text, colors.background);
            EXPECT_EQ(colors.text, expected.text) << row << ", " << column;
            EXPECT_EQ(colors.background, expected.background) << row << ", " << column;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, SelectionColor, testing::ValuesIn(Cases), [](const auto& info) {
    return std::string(info.param.hasFocus ? "Focus" : "NoFocus") + (info.param.isFullRow ? "FullRow" : "") +
           (info.param.showsAlways ? "Always" : "");
});
