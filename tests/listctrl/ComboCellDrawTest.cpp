// Drop-down cells: plain ones in rows that are not selected, a white box with a button in the selected row.
#include "CellDrawing.h"
#include "DropDownWarmUp.h"

class ComboCellDraw : public CellDrawingTest
{
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(WarmUpDropDownClass()); }

    // Cell (1, 1) is a drop-down that shows "Second g".
    void SetUp() override
    {
        CellDrawingTest::SetUp();
        m_choices.Add(L"First");
        m_choices.Add(L"Second g");
        m_choices.Add(L"Third");
        ASSERT_TRUE(m_list.SetComboBox(1, 1, TRUE, &m_choices, 5, 1));
    }

    void Press(bool isDown) { m_list.Record(1, 1)->bComboButtonDown = isDown; }

    CStringArray m_choices;
};

TEST_F(ComboCellDraw, InARowNotSelectedIsAPlainTextCell)
{
    for (const bool isBold : {false, true}) {
        m_list.SetBold(1, 1, isBold);
        CellPainter painter = Painter();
        painter.TextCell(CellOf(1, 1), L"Second g", Normal, DT_LEFT, isBold);
        EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
    }
}

TEST_F(ComboCellDraw, InARowNotSelectedShowsNoImageAndFollowsTheHeader)
{
    UseImages({{16, 16}});
    m_list.SetItemImage(1, 1, 0);
    SetHeaderFormat(1, HDF_STRING | HDF_RIGHT);
    CellPainter painter = Painter();
    painter.TextCell(CellOf(1, 1), L"Second g", Normal, DT_RIGHT);
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
}

TEST_F(ComboCellDraw, InARowNotSelectedIsNeitherOpenedNorFilled)
{
    m_list.CListCtrl::SetItemText(1, 1, L"");
    Press(true);
    CellPainter painter = Painter();
    painter.Fill(CellOf(1, 1), Normal.background);
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_list.GetItemText(1, 1), L"");
}

// The picture's own colour shows at the cell's rim: nothing is filled there.
TEST_F(ComboCellDraw, InTheSelectedRowIsAWhiteBoxWithARaisedButton)
{
    Select(1);
    CellPainter painter = Painter();
    painter.ComboCell(CellOf(1, 1), L"Second g", own::WindowText, false);
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
}

TEST_F(ComboCellDraw, IsTheSameWithAndWithoutFocus)
{
    Select(1);
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    CellPainter painter = Painter();
    painter.ComboCell(CellOf(1, 1), L"Second g", own::WindowText, false);
    m_list.SetFocus();
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
    m_parent.SetFocus();
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
}

TEST_F(ComboCellDraw, IsTheSameInEveryColumnAndHeight)
{
    Select(1);
    for (const int imageHeight : {15, 16, 27}) {
        UseImages({{1, imageHeight}}); // makes the rows higher
        for (int column = 0; column < 3; ++column) {
            m_list.SetComboBox(1, column, TRUE, &m_choices, 5, 0);
            CellPainter painter = Painter();
            painter.ComboCell(CellOf(1, column), L"First", own::WindowText, false);
            EXPECT_TRUE(SamePixels(Draw(1, column), painter.Result()))
                << "column " << column << ", " << imageHeight;
        }
    }
}

TEST_F(ComboCellDraw, TextIsPlainAndLeftWhateverElseIsSet)
{
    Select(1);
    m_list.SetBold(1, 1, TRUE);
    SetHeaderFormat(1, HDF_STRING | HDF_CENTER);
    CellPainter painter = Painter();
    painter.ComboCell(CellOf(1, 1), L"Second g", own::WindowText, false);
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
}

// Dense texts in several widths, so that the column in which they are cut shows.
TEST_F(ComboCellDraw, TextEndsBeforeTheButton)
{
    Select(1);
    for (const wchar_t* text : {L"WWWWWWWWWWWWWWWWWWWW", L"####################"}) {
        m_list.SetItemText(1, 1, text);
        for (const int width : {80, 81, 82, 83}) {
            m_list.SetColumnWidth(1, width);
            CellPainter painter = Painter();
            painter.ComboCell(CellOf(1, 1), text, own::WindowText, false);
            EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result())) << width << ": " << testkit::Quoted(text);
        }
    }
}

TEST_F(ComboCellDraw, TextOfADisabledRowIsGrey)
{
    Select(1);
    m_list.SetEnabled(1, FALSE);
    CellPainter painter = Painter();
    painter.ComboCell(CellOf(1, 1), L"Second g", own::GrayText, false);
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
}

TEST_F(ComboCellDraw, WithoutTextTakesTheInitialChoiceAsItsText)
{
    Select(1);
    for (const int initial : {0, 1, 2}) {
        m_list.Record(1, 1)->nComboInitialSel = initial;
        m_list.CListCtrl::SetItemText(1, 1, L"");
        const CString choice = m_choices[initial];
        CellPainter painter = Painter();
        painter.ComboCell(CellOf(1, 1), choice.GetString(), own::WindowText, false);
        EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result())) << initial;
        EXPECT_EQ(m_list.GetItemText(1, 1), choice);
    }
}

TEST_F(ComboCellDraw, WithTextLeavesTheInitialChoiceAlone)
{
    Select(1);
    m_list.Record(1, 1)->nComboInitialSel = 0;
    CellPainter painter = Painter();
    painter.ComboCell(CellOf(1, 1), L"Second g", own::WindowText, false);
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
    EXPECT_EQ(m_list.GetItemText(1, 1), L"Second g");
}

TEST_F(ComboCellDraw, WithoutSuchAChoiceStaysEmpty)
{
    Select(1);
    CellPainter painter = Painter();
    painter.ComboCell(CellOf(1, 1), L"", own::WindowText, false);
    for (const int initial : {-1, 3, 1000}) {
        m_list.Record(1, 1)->nComboInitialSel = initial;
        m_list.CListCtrl::SetItemText(1, 1, L"");
        EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result())) << initial;
        EXPECT_EQ(m_list.GetItemText(1, 1), L"");
    }
}

TEST_F(ComboCellDraw, WithAnEmptyChoiceStaysEmpty)
{
    Select(1);
    m_choices.SetAt(2, L"");
    m_list.Record(1, 1)->nComboInitialSel = 2;
    m_list.CListCtrl::SetItemText(1, 1, L"");
    CellPainter painter = Painter();
    painter.ComboCell(CellOf(1, 1), L"", own::WindowText, false);
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
}

TEST_F(ComboCellDraw, WithoutChoicesStaysEmpty)
{
    Select(1);
    m_list.Record(1, 1)->pComboStrings = nullptr;
    m_list.CListCtrl::SetItemText(1, 1, L"");
    CellPainter painter = Painter();
    painter.ComboCell(CellOf(1, 1), L"", own::WindowText, false);
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
}

TEST_F(ComboCellDraw, ButtonUpLeavesTheStoredRectangleAndOpensNothing)
{
    Select(1);
    m_list.m_rectComboButton = CRect(1, 2, 3, 4);
    Draw(1, 1);
    EXPECT_EQ(m_list.m_rectComboButton, CRect(1, 2, 3, 4));
    EXPECT_EQ(m_list.m_pCombo, nullptr);
}

TEST_F(ComboCellDraw, ButtonDownIsFramedWithItsArrowMoved)
{
    Select(1);
    Press(true);
    CellPainter painter = Painter();
    const CRect button = painter.ComboCell(CellOf(1, 1), L"Second g", own::WindowText, true);
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
    EXPECT_EQ(m_list.m_rectComboButton, button);
}

TEST_F(ComboCellDraw, ButtonDownInADisabledRowIsTheSameWithGreyText)
{
    Select(1);
    m_list.SetEnabled(1, FALSE);
    Press(true);
    CellPainter painter = Painter();
    painter.ComboCell(CellOf(1, 1), L"Second g", own::GrayText, true);
    EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result()));
}

TEST_F(ComboCellDraw, ButtonDownOpensTheListOnce)
{
    Select(1);
    Press(true);
    const testkit::Picture first = Draw(1, 1);
    CXComboList* const combo = m_list.m_pCombo;
    ASSERT_NE(combo, nullptr);
    EXPECT_TRUE(combo->IsWindowVisible());
    EXPECT_TRUE(SamePixels(Draw(1, 1), first));
    EXPECT_EQ(m_list.m_pCombo, combo);
}

TEST_F(ComboCellDraw, ChangesItsRectangleInPlace)
{
    Select(1);
    CRect rect(50, 100, 120, 117);
    testkit::Picture picture = Blank();
    m_list.DrawComboBox(1, 1, CDC::FromHandle(picture.Dc()), Normal.text, Normal.background, rect,
                        m_list.Record(1, 0));
    EXPECT_EQ(rect, CRect(51, 100, 118, 118));
}
