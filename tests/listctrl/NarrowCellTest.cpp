// Cells too narrow for what they show: a rectangle whose sides are crossed holds nothing, lines are drawn to
// their ends. Whole pictures are compared, so what a cell draws beyond its sides counts too.
#include "CellDrawing.h"
#include "DropDownWarmUp.h"

namespace
{

constexpr COLORREF Black = RGB(0, 0, 0);
constexpr wchar_t Dense[] = L"WWWW";

} // namespace

class NarrowCell : public CellDrawingTest
{
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(WarmUpDropDownClass()); }

    void SetUp() override
    {
        CellDrawingTest::SetUp();
        m_choices.Add(Dense);
    }

    // From nothing to the first widths at which every part of every kind of cell has room.
    std::vector<int> Widths()
    {
        const int height = CellOf(1, 1).Height();
        std::vector<int> widths{0, 1, 2, 3, 4, 5, 6, 7, 8, 12, 20};
        for (const int room : {height + 3, height + 4, height + 5, height + 12, height + 13})
            widths.push_back(room);
        return widths;
    }

    // Cell (1, 1) in every width of its column; without any it is not drawn.
    template <class Paint>
    void ExpectInColumn(Paint paint)
    {
        for (const int width : Widths()) {
            m_list.SetColumnWidth(1, width);
            const CRect cell = CellOf(1, 1);
            ASSERT_EQ(cell.Width(), width);
            CellPainter painter = Painter();
            if (width > 0)
                paint(painter, cell);
            EXPECT_TRUE(SamePixels(Draw(1, 1), painter.Result())) << "a column of " << width;
        }
    }

    // The same by a drawing member of the list, in the middle of a picture; also with crossed sides.
    template <class DrawIt, class Paint>
    void ExpectAlone(DrawIt drawIt, Paint paint)
    {
        std::vector<int> widths = Widths();
        widths.push_back(-4);
        for (const int width : widths) {
            const CRect cell(100, 100, 100 + width, 117);
            testkit::Picture picture = Blank();
            const HGDIOBJ oldFont = SelectObject(picture.Dc(), m_font);
            CRect rect(cell);
            drawIt(CDC::FromHandle(picture.Dc()), rect);
            SelectObject(picture.Dc(), oldFont);
            CellPainter painter = Painter();
            paint(painter, cell);
            EXPECT_TRUE(SamePixels(picture, painter.Result())) << "alone in " << width;
        }
    }

    XLISTCTRLDATA* Records() { return m_list.Record(1, 0); }

    void ExpectCheckbox(const wchar_t* text, int state)
    {
        m_list.SetItemText(1, 1, text);
        m_list.SetCheckbox(1, 1, state);
        const auto paint = [&](CellPainter& painter, const CRect& cell) {
            painter.CheckboxCell(cell, text, Normal, state == 1 ? Black : CLR_NONE);
        };
        ExpectInColumn(paint);
        ExpectAlone(
            [&](CDC* dc, CRect& rect) {
                m_list.DrawCheckbox(1, 1, dc, Normal.text, Normal.background, rect, Records());
            },
            paint);
    }

    void ExpectCombo(const wchar_t* text, bool isDown)
    {
        const auto paint = [&](CellPainter& painter, const CRect& cell) {
            painter.ComboCell(cell, text, own::WindowText, isDown);
        };
        ExpectInColumn(paint);
        ExpectAlone(
            [&](CDC* dc, CRect& rect) {
                m_list.DrawComboBox(1, 1, dc, Normal.text, Normal.background, rect, Records());
            },
            paint);
    }

    void MakeSelectedCombo()
    {
        ASSERT_TRUE(m_list.SetComboBox(1, 1, TRUE, &m_choices, 5, 0));
        Select(1);
    }

    CStringArray m_choices;
};

TEST_F(NarrowCell, WithText)
{
    m_list.SetItemText(1, 1, Dense);
    const auto paint = [&](CellPainter& painter, const CRect& cell) {
        painter.TextCell(cell, Dense, Normal);
    };
    ExpectInColumn(paint);
    ExpectAlone(
        [&](CDC* dc, CRect& rect) {
            m_list.DrawText(1, 1, dc, Normal.text, Normal.background, rect, Records());
        },
        paint);
}

TEST_F(NarrowCell, WithImage)
{
    const PatternImage image{16, 16};
    UseImages({image});
    m_list.SetItemImage(1, 1, 0);
    m_list.SetItemText(1, 1, Dense);
    ExpectInColumn(
        [&](CellPainter& painter, const CRect& cell) { painter.ImageCell(cell, &image, Dense, Normal); });
    ExpectAlone(
        [&](CDC* dc, CRect& rect) {
            const int room = rect.Width() - 6;
            EXPECT_EQ(m_list.DrawImage(1, 1, dc, Normal.text, Normal.background, rect, Records()),
                      room >= 1 ? 6 + 16 : 0);
        },
        [&](CellPainter& painter, const CRect& cell) { painter.Image(cell, &image, Normal.background, 6); });
}

TEST_F(NarrowCell, WithCheckbox)
{
    for (const int state : {0, 1})
        ExpectCheckbox(L"", state);
}

TEST_F(NarrowCell, WithCheckboxAndText)
{
    for (const int state : {0, 1})
        ExpectCheckbox(Dense, state);
}

TEST_F(NarrowCell, WithDropDown)
{
    MakeSelectedCombo();
    ExpectCombo(Dense, false);
}

TEST_F(NarrowCell, WithDropDownWithoutText)
{
    m_choices.SetAt(0, L"");
    MakeSelectedCombo();
    ExpectCombo(L"", false);
}

TEST_F(NarrowCell, WithPressedDropDown)
{
    MakeSelectedCombo();
    m_list.Record(1, 1)->bComboButtonDown = TRUE;
    Draw(1, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    ExpectCombo(Dense, true);
}

TEST_F(NarrowCell, WithProgressBar)
{
    m_list.SetProgress(1, 1, TRUE, Dense);
    for (const int percent : {0, 1, 57, 100, 250}) {
        SCOPED_TRACE(percent);
        m_list.UpdateProgress(1, 1, percent);
        const auto paint = [&](CellPainter& painter, const CRect& cell) {
            painter.ProgressCell(cell, percent, Dense, Normal);
        };
        ExpectInColumn(paint);
        ExpectAlone(
            [&](CDC* dc, CRect& rect) {
                m_list.DrawProgress(1, 1, dc, Normal.text, Normal.background, rect, Records());
            },
            paint);
    }
}

// Column 0 ends where column 1 begins: behind that one it has no width at all.
TEST_F(NarrowCell, OfTheFirstColumnBehindTheSecondIsNotDrawn)
{
    int order[] = {1, 0, 2};
    ASSERT_TRUE(m_list.SendMessage(LVM_SETCOLUMNORDERARRAY, 3, reinterpret_cast<LPARAM>(order)));
    CRect cell;
    ASSERT_TRUE(m_list.GetSubItemRect(1, 0, LVIR_BOUNDS, cell));
    ASSERT_LE(cell.right, cell.left);
    CellPainter untouched = Painter();
    EXPECT_TRUE(SamePixels(Draw(1, 0), untouched.Result())) << "text";
    m_list.SetCheckbox(1, 0, 1);
    EXPECT_TRUE(SamePixels(Draw(1, 0), untouched.Result())) << "check box";
    m_list.SetComboBox(1, 0, TRUE, &m_choices, 5, 0);
    Select(1);
    EXPECT_TRUE(SamePixels(Draw(1, 0), untouched.Result())) << "drop-down";
    m_list.SetProgress(1, 0, TRUE, Dense);
    m_list.UpdateProgress(1, 0, 57);
    EXPECT_TRUE(SamePixels(Draw(1, 0), untouched.Result())) << "progress bar";
    EXPECT_EQ(m_draw.clrText, Normal.text);
    EXPECT_EQ(m_draw.clrTextBk, Normal.background);
    EXPECT_EQ(m_result, CDRF_SKIPDEFAULT);
}
