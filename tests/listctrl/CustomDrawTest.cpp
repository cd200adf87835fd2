// The draw notification: its stages, the choice of what a cell is drawn as, and whole lists on the screen.
#include "CellDrawing.h"
#include "UnlikeColors.h"

#include "kit/UserObjects.h"

namespace
{

constexpr COLORREF Black = RGB(0, 0, 0);
constexpr COLORREF ListBackground = RGB(30, 200, 90);

} // namespace

class CustomDraw : public CellDrawingTest
{
protected:
    LRESULT ResultOf(DWORD stage)
    {
        testkit::Picture picture = Blank();
        Notify(picture.Dc(), stage, 0, 0);
        CellPainter untouched = Painter();
        EXPECT_EQ(static_cast<bool>(SamePixels(picture, untouched.Result())),
                  stage != (CDDS_ITEMPREPAINT | CDDS_SUBITEM));
        return m_result;
    }
};

TEST_F(CustomDraw, AsksForTheItemsAndTheirCells)
{
    EXPECT_EQ(ResultOf(CDDS_PREPAINT), CDRF_NOTIFYITEMDRAW);
    EXPECT_EQ(ResultOf(CDDS_ITEMPREPAINT), CDRF_NOTIFYITEMDRAW);
}

TEST_F(CustomDraw, LeavesEveryOtherStageToTheListView)
{
    for (const DWORD stage :
         {CDDS_POSTPAINT, CDDS_PREERASE, CDDS_POSTERASE, CDDS_ITEMPOSTPAINT, CDDS_ITEMPREERASE,
          CDDS_ITEMPOSTERASE, CDDS_SUBITEM, CDDS_SUBITEM | CDDS_ITEMPOSTPAINT,
          CDDS_SUBITEM | CDDS_ITEMPREERASE, CDDS_SUBITEM | CDDS_ITEMPOSTERASE, CDDS_SUBITEM | CDDS_PREPAINT})
        EXPECT_EQ(ResultOf(static_cast<DWORD>(stage)), CDRF_DODEFAULT) << stage;
}

TEST_F(CustomDraw, SkipsTheListViewsDrawingAfterEveryKindOfCell)
{
    constexpr DWORD cell = CDDS_ITEMPREPAINT | CDDS_SUBITEM;
    CStringArray choices;
    choices.Add(L"choice");
    EXPECT_EQ(ResultOf(cell), CDRF_SKIPDEFAULT);
    m_list.SetCheckbox(0, 0, 1);
    EXPECT_EQ(ResultOf(cell), CDRF_SKIPDEFAULT);
    m_list.SetComboBox(0, 0, TRUE, &choices, 5, 0);
    EXPECT_EQ(ResultOf(cell), CDRF_SKIPDEFAULT);
    Select(0);
    EXPECT_EQ(ResultOf(cell), CDRF_SKIPDEFAULT);
    m_list.SetProgress(0, 0, TRUE, L"");
    EXPECT_EQ(ResultOf(cell), CDRF_SKIPDEFAULT);
}

TEST_F(CustomDraw, WritesTheCellsColoursBack)
{
    m_list.SetItemText(1, 2, nullptr, RGB(1, 2, 3), RGB(4, 5, 6));
    Draw(1, 2);
    EXPECT_EQ(m_draw.clrText, RGB(1, 2, 3));
    EXPECT_EQ(m_draw.clrTextBk, RGB(4, 5, 6));
    EXPECT_EQ(m_result, CDRF_SKIPDEFAULT);
}

TEST_F(CustomDraw, WritesGreyTextBackForADisabledRow)
{
    m_list.SetEnabled(1, FALSE);
    Draw(1, 2);
    EXPECT_EQ(m_draw.clrText, own::GrayText);
    EXPECT_EQ(m_draw.clrTextBk, Normal.background);
}

TEST_F(CustomDraw, WritesTheCellsColoursBackAlsoWhenSelected)
{
    Select(1);
    m_list.SetFocus();
    Draw(1, 0);
    EXPECT_EQ(m_draw.clrText, Normal.text);
    EXPECT_EQ(m_draw.clrTextBk, Normal.background);
}

TEST_F(CustomDraw, RowWithoutRecordsIsPlainInTheWindowsColours)
{
    UseImages({{16, 16}});
    m_list.CListCtrl::InsertItem(Rows, L"bare");
    m_list.CListCtrl::SetItemText(Rows, 1, L"bare too");
    ASSERT_EQ(m_list.Record(Rows, 0), nullptr);
    const wchar_t* const texts[] = {L"bare", L"bare too", L""};
    for (int column = 0; column < 3; ++column) {
        CellPainter painter = Painter();
        painter.TextCell(CellOf(Rows, column), texts[column], {own::WindowText, own::Window});
        EXPECT_TRUE(SamePixels(Draw(Rows, column), painter.Result())) << "column " << column;
        EXPECT_EQ(m_draw.clrText, own::WindowText);
        EXPECT_EQ(m_draw.clrTextBk, own::Window);
        EXPECT_EQ(m_result, CDRF_SKIPDEFAULT);
    }
}

TEST_F(CustomDraw, SelectedRowWithoutRecordsHasTheColoursOfTheSelection)
{
    m_list.CListCtrl::InsertItem(Rows, L"bare");
    Select(Rows);
    m_list.SetFocus();
    CellPainter painter = Painter();
    painter.TextCell(CellOf(Rows, 0), L"bare", {own::HighLightText, own::HighLight});
    EXPECT_TRUE(SamePixels(Draw(Rows, 0), painter.Result()));
}

TEST_F(CustomDraw, ColumnWithoutRecordsIsPlainInTheWindowsColours)
{
    m_list.InsertColumn(3, L"Fourth", LVCFMT_LEFT, 50);
    m_list.SetItemText(1, 3, L"later");
    CellPainter painter = Painter();
    painter.TextCell(CellOf(1, 3), L"later", {own::WindowText, own::Window});
    EXPECT_TRUE(SamePixels(Draw(1, 3), painter.Result()));
    EXPECT_EQ(m_draw.clrText, own::WindowText);
    EXPECT_EQ(m_draw.clrTextBk, own::Window);
    EXPECT_EQ(m_result, CDRF_SKIPDEFAULT);
}

TEST_F(CustomDraw, ColumnWithoutRecordsIsGreyInADisabledRow)
{
    m_list.InsertColumn(3, L"Fourth", LVCFMT_LEFT, 50);
    m_list.SetItemText(1, 3, L"later");
    m_list.SetEnabled(1, FALSE);
    CellPainter painter = Painter();
    painter.TextCell(CellOf(1, 3), L"later", {own::GrayText, own::Window});
    EXPECT_TRUE(SamePixels(Draw(1, 3), painter.Result()));
}

TEST_F(CustomDraw, RowMadeWithoutColumnsIsPlainInTheWindowsColours)
{
    for (int column = 2; column >= 0; --column)
        m_list.DeleteColumn(column);
    ASSERT_EQ(m_list.InsertItem(Rows, L"early"), Rows);
    m_list.InsertColumn(0, L"Late", LVCFMT_LEFT, 90);
    m_list.CListCtrl::SetItemText(Rows, 0, L"early");
    CellPainter painter = Painter();
    painter.TextCell(CellOf(Rows, 0), L"early", {own::WindowText, own::Window});
    EXPECT_TRUE(SamePixels(Draw(Rows, 0), painter.Result()));
}

TEST_F(CustomDraw, ProgressGoesBeforeDropDownBeforeCheckboxBeforeImage)
{
    const PatternImage image{16, 16};
    UseImages({image});
    CStringArray choices;
    choices.Add(L"choice");
    m_list.SetItemImage(1, 1, 0);
    m_list.SetComboBox(1, 1, TRUE, &choices, 5, 0);
    m_list.SetCheckbox(1, 1, 1);
    m_list.SetProgress(1, 1, TRUE, L"");
    m_list.UpdateProgress(1, 1, 30);
    Select(1);
    const CRect cell = CellOf(1, 1);

    CellPainter progress = Painter();
    progress.ProgressCell(cell, 30, L"30%", Normal);
    EXPECT_TRUE(SamePixels(Draw(1, 1), progress.Result()));
    m_list.DeleteProgress(1, 1);
    CellPainter dropDown = Painter();
    dropDown.ComboCell(cell, L"choice", own::WindowText, false);
    EXPECT_TRUE(SamePixels(Draw(1, 1), dropDown.Result()));
    m_list.SetItemState(1, 0, LVIS_SELECTED);
    CellPainter plain = Painter();
    plain.TextCell(cell, L"choice", Normal);
    EXPECT_TRUE(SamePixels(Draw(1, 1), plain.Result()));
    m_list.SetComboBox(1, 1, FALSE, &choices, 5, 0);
    CellPainter checkbox = Painter();
    checkbox.CheckboxCell(cell, L"choice", Normal, Black);
    EXPECT_TRUE(SamePixels(Draw(1, 1), checkbox.Result()));
    m_list.SetCheckbox(1, 1, -1);
    CellPainter picture = Painter();
    picture.ImageCell(cell, &image, L"choice", Normal);
    EXPECT_TRUE(SamePixels(Draw(1, 1), picture.Result()));
}

TEST_F(CustomDraw, SingleColumnSpansItsHeaderItem)
{
    m_list.DeleteColumn(2);
    m_list.DeleteColumn(1);
    CellPainter painter = Painter();
    painter.TextCell(CellOf(1, 0), L"row 1", Normal);
    EXPECT_TRUE(SamePixels(Draw(1, 0), painter.Result()));
}

TEST_F(CustomDraw, SystemColoursAreReadAnewWhenTheyChange)
{
    const UnlikeSystemColors colors;
    ASSERT_TRUE(colors.AreGiven());
    m_list.SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_EQ(m_list.m_cr3DFace, UnlikeColor(COLOR_BTNFACE));
    EXPECT_EQ(m_list.m_cr3DHighLight, UnlikeColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(m_list.m_cr3DShadow, UnlikeColor(COLOR_BTNSHADOW));
    EXPECT_EQ(m_list.m_crBtnFace, UnlikeColor(COLOR_BTNFACE));
    EXPECT_EQ(m_list.m_crBtnShadow, UnlikeColor(COLOR_BTNSHADOW));
    EXPECT_EQ(m_list.m_crBtnText, UnlikeColor(COLOR_BTNTEXT));
    EXPECT_EQ(m_list.m_crGrayText, UnlikeColor(COLOR_GRAYTEXT));
    EXPECT_EQ(m_list.m_crHighLight, UnlikeColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(m_list.m_crHighLightText, UnlikeColor(COLOR_HIGHLIGHTTEXT));
    EXPECT_EQ(m_list.m_crWindow, UnlikeColor(COLOR_WINDOW));
    EXPECT_EQ(m_list.m_crWindowText, UnlikeColor(COLOR_WINDOWTEXT));
}

TEST_F(CustomDraw, SystemColoursInRecordsStayWhenTheyChange)
{
    const int row = m_list.InsertItem(Rows, L"in the window's colours");
    m_list.SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_EQ(m_list.Record(row, 0)->crText, own::WindowText);
    EXPECT_EQ(m_list.Record(row, 0)->crBackground, own::Window);
    EXPECT_EQ(m_list.Record(0, 1)->crText, Normal.text);
    EXPECT_EQ(m_list.Record(0, 1)->crBackground, Normal.background);
}

TEST_F(CustomDraw, LeavesTheContextWithTheTextsColoursAndTransparent)
{
    const auto expectLeft = [&](int column, COLORREF text, COLORREF background) {
        const testkit::Picture drawn = Draw(1, column);
        EXPECT_EQ(GetBkMode(drawn.Dc()), TRANSPARENT) << column;
        EXPECT_EQ(GetTextColor(drawn.Dc()), text) << column;
        EXPECT_EQ(GetBkColor(drawn.Dc()), background) << column;
    };
    CStringArray choices;
    choices.Add(L"choice");
    m_list.SetItemText(1, 1, L"checked");
    m_list.SetCheckbox(1, 1, 1);
    m_list.SetComboBox(1, 2, TRUE, &choices, 5, 0);
    expectLeft(0, Normal.text, Normal.background);
    expectLeft(1, Normal.text, Normal.background);
    Select(1);
    m_list.SetFocus();
    expectLeft(0, own::HighLightText, own::HighLight);
    expectLeft(2, own::WindowText, own::Window);
    m_list.SetEnabled(1, FALSE);
    expectLeft(1, own::GrayText, Normal.background);
    expectLeft(2, own::GrayText, own::Window);
}

TEST_F(CustomDraw, LeavesNoGdiObjectBehind)
{
    UseImages({{16, 16}});
    CStringArray choices;
    choices.Add(L"choice");
    m_list.SetItemImage(0, 0, 0);
    m_list.SetCheckbox(1, 1, 1);
    m_list.SetComboBox(1, 2, TRUE, &choices, 5, 0);
    m_list.SetProgress(2, 1, TRUE, L"");
    m_list.UpdateProgress(2, 1, 57);
    Select(1);
    testkit::Picture picture = Blank();
    const int before = testkit::CountGdiObjects();
    for (int row = 0; row < Rows; ++row) {
        for (int column = 0; column < 3; ++column)
            DrawCell(picture.Dc(), row, column);
    }
    EXPECT_EQ(testkit::CountGdiObjects(), before);
}

// A list with one cell of each kind, as it stands on the screen and as it prints.
class DrawnList : public CellDrawingTest
{
protected:
    void SetUp() override
    {
        CellDrawingTest::SetUp();
        m_list.SendMessage(LVM_SETBKCOLOR, 0, ListBackground);
        UseImages({m_image});
        m_choices.Add(L"Choice");
        m_list.SetItemImage(0, 0, 0);
        m_list.SetItemText(0, 1, L"Bold", RGB(200, 0, 0), RGB(200, 255, 200));
        m_list.SetBold(0, 1, TRUE);
        m_list.SetCheckbox(1, 0, 1);
        m_list.SetCheckbox(1, 1, 0);
        m_list.SetComboBox(1, 2, TRUE, &m_choices, 5, 0);
        m_list.SetComboBox(2, 2, TRUE, &m_choices, 5, 0);
        m_list.SetProgress(2, 1, TRUE, L"");
        m_list.UpdateProgress(2, 1, 57);
        Select(1);
        m_list.SetFocus();
        m_list.Invalidate();
    }

    void PaintRows(CellPainter& painter)
    {
        const CellColors selected{own::HighLightText, own::HighLight};
        painter.ImageCell(CellOf(0, 0), &m_image, L"row 0", Normal);
        painter.TextCell(CellOf(0, 1), L"Bold", {RGB(200, 0, 0), RGB(200, 255, 200)}, DT_LEFT, true);
        painter.TextCell(CellOf(0, 2), L"", Normal);
        painter.CheckboxCell(CellOf(1, 0), L"row 1", selected, Black);
        painter.CheckboxCell(CellOf(1, 1), L"", Normal, CLR_NONE);
        painter.ComboCell(CellOf(1, 2), L"Choice", own::WindowText, false);
        painter.TextCell(CellOf(2, 0), L"row 2", Normal);
        painter.ProgressCell(CellOf(2, 1), 57, L"57%", Normal);
        painter.TextCell(CellOf(2, 2), L"Choice", Normal);
    }

    // The list view's background, on which the cells are drawn.
    CellPainter ListPainter() { return {ClientSize().cx, ClientSize().cy, m_font, ListBackground}; }

    CRect AllCells() { return {CellOf(0, 0).TopLeft(), CellOf(2, 2).BottomRight()}; }

    const PatternImage m_image{16, 16};
    CStringArray m_choices;
};

TEST_F(DrawnList, HasItsCellsOnTheScreen)
{
    CellPainter painter = ListPainter();
    PaintRows(painter);
    EXPECT_TRUE(SamePixels(testkit::Picture::OfClient(m_list.m_hWnd), painter.Result(), AllCells()));
}

TEST_F(DrawnList, HasItsCellsInPrint)
{
    CellPainter painter = ListPainter();
    PaintRows(painter);
    EXPECT_TRUE(SamePixels(testkit::Picture::OfControl(m_list.m_hWnd), painter.Result(), AllCells()));
}

TEST_F(DrawnList, ChangeOfACellIsOnTheScreenAtOnce)
{
    m_list.UpdateWindow();
    m_list.UpdateProgress(2, 1, 90);
    EXPECT_FALSE(GetUpdateRect(m_list.m_hWnd, nullptr, FALSE));
    CellPainter painter = ListPainter();
    PaintRows(painter);
    painter.Fill(CellOf(2, 1), ListBackground);
    painter.ProgressCell(CellOf(2, 1), 90, L"90%", Normal);
    EXPECT_TRUE(SamePixels(testkit::Picture::OfClient(m_list.m_hWnd), painter.Result(), AllCells()));
}

TEST_F(DrawnList, ChangeOfACellRedrawsThatCellAlone)
{
    m_list.UpdateWindow();
    // A mark on the screen that any redrawing of its cell would wipe away.
    const CPoint mark = CellOf(2, 2).CenterPoint(), below = CellOf(0, 0).CenterPoint();
    const HDC dc = GetDC(m_list.m_hWnd);
    SetPixelV(dc, mark.x, mark.y, RGB(255, 0, 255));
    SetPixelV(dc, below.x, below.y, RGB(255, 0, 255));
    ReleaseDC(m_list.m_hWnd, dc);
    m_list.UpdateProgress(2, 1, 90);
    const testkit::Picture drawn = testkit::Picture::OfClient(m_list.m_hWnd);
    EXPECT_EQ(drawn.Pixel(mark.x, mark.y), RGB(255, 0, 255));
    EXPECT_EQ(drawn.Pixel(below.x, below.y), RGB(255, 0, 255));
}
