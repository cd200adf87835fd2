// Which functions redraw what: the area that the list is asked to paint while the function runs.
#include "ListTest.h"

#include <commctrl.h>

#include <optional>

namespace
{

// What one WM_PAINT was about.
struct Painting
{
    CRect box;       // around the area to be painted
    bool isBoxWhole; // the area is the whole box
    bool isErased;   // the background was erased first
};

// Notes each painting of a window, before the window itself does it.
class PaintWatch
{
public:
    explicit PaintWatch(HWND window) : m_window(window)
    {
        ::SetWindowSubclass(window, Procedure, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    ~PaintWatch() { ::RemoveWindowSubclass(m_window, Procedure, 1); }
    PaintWatch(const PaintWatch&) = delete;
    PaintWatch& operator=(const PaintWatch&) = delete;

    const std::vector<Painting>& Paintings() const { return m_paintings; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR self)
    {
        const auto watch = reinterpret_cast<PaintWatch*>(self);
        if (message == WM_PAINT)
            watch->NoteArea();
        if (message == WM_ERASEBKGND && !watch->m_paintings.empty())
            watch->m_paintings.back().isErased = true;
        return ::DefSubclassProc(window, message, wParam, lParam);
    }

    void NoteArea()
    {
        CRgn area;
        area.CreateRectRgn(0, 0, 0, 0);
        ::GetUpdateRgn(m_window, area, FALSE);
        CRect box;
        area.GetRgnBox(&box);
        CRgn whole;
        whole.CreateRectRgnIndirect(&box);
        m_paintings.push_back({box, area.EqualRgn(&whole) != FALSE, false});
    }

    HWND m_window;
    std::vector<Painting> m_paintings;
};

class RedrawTest : public ListTest
{
protected:
    void SetUp() override
    {
        ListTest::SetUp();
        AddRows(3);
        m_list.CListCtrl::InsertItem(PlainRow, L"plain");
        m_choices.Add(L"choice");
        PaintAll();
    }

    void PaintAll()
    {
        m_list.SetColumnWidth(0, 100); // what the first painting brings about is done
        testkit::PumpPending();
        m_parent.RedrawWindow(nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        CRect waiting;
        ASSERT_FALSE(m_list.GetUpdateRect(&waiting));
    }

    static constexpr int PlainRow = 3;

    CRect RowRect(int row)
    {
        CRect rect;
        EXPECT_TRUE(m_list.GetItemRect(row, &rect, LVIR_BOUNDS));
        return rect;
    }
    CRect CellRect(int row, int column)
    {
        static constexpr int Edges[] = {0, 100, 180, 240};
        const CRect bounds = RowRect(row);
        return {Edges[column], bounds.top, Edges[column + 1], bounds.bottom};
    }

    bool IsSomethingLeftToPaint()
    {
        CRect waiting;
        return m_list.GetUpdateRect(&waiting) != FALSE;
    }

    // The action paints exactly that area before it returns, in one or more turns, erased.
    template <class Action>
    void ExpectPaints(const CRect& area, Action action)
    {
        const PaintWatch watch(m_list.m_hWnd);
        action();
        EXPECT_FALSE(watch.Paintings().empty());
        for (const Painting& painting : watch.Paintings()) {
            EXPECT_TRUE(painting.box == area) << Shown(painting.box) << " instead of " << Shown(area);
            EXPECT_TRUE(painting.isBoxWhole);
            EXPECT_TRUE(painting.isErased);
        }
        EXPECT_FALSE(IsSomethingLeftToPaint());
    }

    // The same where the list view has a part of its own in it: the cell at least, and no other row.
    template <class Action>
    void ExpectPaintsCellInRow(int row, int column, Action action)
    {
        const PaintWatch watch(m_list.m_hWnd);
        action();
        bool isCellPainted = false;
        const CRect cell = CellRect(row, column);
        for (const Painting& painting : watch.Paintings()) {
            EXPECT_GE(painting.box.top, cell.top);
            EXPECT_LE(painting.box.bottom, cell.bottom);
            CRect common;
            common.IntersectRect(&painting.box, &cell);
            isCellPainted = isCellPainted || (common == cell && painting.isBoxWhole && painting.isErased);
        }
        EXPECT_TRUE(isCellPainted);
        EXPECT_FALSE(IsSomethingLeftToPaint());
    }

    template <class Action>
    void ExpectPaintsNothing(Action action)
    {
        const PaintWatch watch(m_list.m_hWnd);
        action();
        EXPECT_TRUE(watch.Paintings().empty());
        EXPECT_FALSE(IsSomethingLeftToPaint());
    }

    static std::string Shown(const CRect& rect)
    {
        CStringA text;
        text.Format("(%ld,%ld)-(%ld,%ld)", rect.left, rect.top, rect.right, rect.bottom);
        return text.GetString();
    }

    CStringArray m_choices;
};

using CellRedraw = RedrawTest;
using NoRedraw = RedrawTest;

} // namespace

TEST_F(CellRedraw, UpdateSubItemPaintsTheCell)
{
    for (const int row : {0, 2, PlainRow}) {
        for (const int column : {0, 1, 2})
            ExpectPaints(CellRect(row, column), [&] { m_list.UpdateSubItem(row, column); });
    }
}

TEST_F(CellRedraw, UpdateSubItemPaintsTheOnlyColumnToTheEndOfTheRow)
{
    m_list.DeleteColumn(2);
    m_list.DeleteColumn(1);
    PaintAll();
    ExpectPaints(RowRect(1), [&] { m_list.UpdateSubItem(1, 0); });
}

TEST_F(CellRedraw, SetItemTextPaintsTheCell)
{
    for (const int row : {1, PlainRow}) {
        for (const int column : {0, 1, 2})
            ExpectPaintsCellInRow(row, column, [&] { m_list.SetItemText(row, column, L"new"); });
    }
}

TEST_F(CellRedraw, SetItemTextPaintsTheCellForTheTextThatIsThereToo)
{
    m_list.SetItemText(1, 1, L"same");
    ExpectPaintsCellInRow(1, 1, [&] { m_list.SetItemText(1, 1, L"same"); });
}

TEST_F(CellRedraw, SetItemTextWithColorsPaintsTheCell)
{
    for (const int row : {1, PlainRow})
        ExpectPaintsCellInRow(row, 2, [&] { m_list.SetItemText(row, 2, L"new", RGB(255, 0, 0), 0); });
}

TEST_F(CellRedraw, SetItemTextWithColorsAlonePaintsTheCell)
{
    for (const int row : {1, PlainRow}) {
        for (const int column : {0, 1, 2})
            ExpectPaints(CellRect(row, column),
                         [&] { m_list.SetItemText(row, column, nullptr, RGB(255, 0, 0), 0); });
    }
}

TEST_F(CellRedraw, SetItemPaintsTheCell)
{
    LVITEM item = {};
    item.mask = LVIF_TEXT;
    item.iItem = 1;
    item.iSubItem = 2;
    wchar_t text[] = L"new";
    item.pszText = text;
    ExpectPaintsCellInRow(1, 2, [&] { m_list.SetItem(&item); });
}

TEST_F(CellRedraw, SetBoldPaintsTheCell)
{
    for (const int column : {0, 1, 2})
        ExpectPaints(CellRect(1, column), [&] { m_list.SetBold(1, column, TRUE); });
}

TEST_F(CellRedraw, SetEnabledPaintsTheRow)
{
    ExpectPaints(RowRect(1), [&] { m_list.SetEnabled(1, FALSE); });
    ExpectPaints(RowRect(2), [&] { m_list.SetEnabled(2, TRUE); });
}

TEST_F(CellRedraw, SetCheckboxPaintsTheCell)
{
    for (const int column : {0, 1, 2}) {
        for (const int state : {1, 0, -1})
            ExpectPaints(CellRect(1, column), [&] { m_list.SetCheckbox(1, column, state); });
    }
}

TEST_F(CellRedraw, SetCheckboxPaintsNoOtherCellWhenTheHeaderChanges)
{
    m_list.SetHeaderCheckedState(1, 2);
    ExpectPaints(CellRect(1, 1), [&] { m_list.SetCheckbox(1, 1, 0); });
    EXPECT_EQ(m_list.GetHeaderCheckedState(1), 1);
}

TEST_F(CellRedraw, SetItemImagePaintsTheCell)
{
    for (const int row : {1, PlainRow}) {
        for (const int column : {0, 1, 2})
            ExpectPaints(CellRect(row, column), [&] { m_list.SetItemImage(row, column, 3); });
    }
}

TEST_F(CellRedraw, SetComboBoxPaintsTheCell)
{
    for (const int column : {0, 1, 2})
        ExpectPaintsCellInRow(1, column, [&] { m_list.SetComboBox(1, column, TRUE, &m_choices, 5, 0); });
}

TEST_F(CellRedraw, SetComboBoxWithoutChoicesPaintsTheCell)
{
    m_choices.RemoveAll();
    ExpectPaints(CellRect(1, 1), [&] { m_list.SetComboBox(1, 1, TRUE, &m_choices, 5, 0); });
}

TEST_F(CellRedraw, SetComboBoxSwitchedOffPaintsTheCell)
{
    ExpectPaints(CellRect(1, 1), [&] { m_list.SetComboBox(1, 1, FALSE, &m_choices, 5, 0); });
}

TEST_F(CellRedraw, ProgressFunctionsPaintTheCell)
{
    for (const int column : {0, 1, 2}) {
        const CRect cell = CellRect(1, column);
        ExpectPaints(cell, [&] { m_list.SetProgress(1, column, TRUE, L"%d"); });
        ExpectPaints(cell, [&] { m_list.UpdateProgress(1, column, 40); });
        ExpectPaints(cell, [&] { m_list.UpdateProgress(1, column, 40); });
        ExpectPaints(cell, [&] { m_list.DeleteProgress(1, column); });
    }
}

TEST_F(NoRedraw, OfDataTipsAndListProperties)
{
    ExpectPaintsNothing([&] { m_list.SetItemData(1, 5); });
    ExpectPaintsNothing([&] { m_list.SetItemToolTipText(1, 1, L"tip"); });
    ExpectPaintsNothing([&] { m_list.DeleteAllToolTips(); });
    ExpectPaintsNothing([&] { m_list.SetExtendedStyleX(5); });
    ExpectPaintsNothing([&] { m_list.SetHeaderCheckedState(1, 2); });
}

TEST_F(NoRedraw, OfTheMessageOfAnEmptyList)
{
    m_list.DeleteAllItems();
    PaintAll();
    ExpectPaintsNothing([&] { m_list.SetDefaultTextMessage(L"nothing here"); });
}

TEST_F(NoRedraw, ByQuestions)
{
    ExpectPaintsNothing([&] {
        m_list.GetColumns();
        m_list.GetItemData(1);
        m_list.GetBold(1, 1);
        m_list.GetEnabled(1);
        m_list.GetCheckbox(1, 1);
        m_list.CountCheckedItems(1);
        m_list.GetHeaderCheckedState(1);
        m_list.GetComboText(1, 1);
        m_list.GetItemToolTipText(1, 1);
        m_list.GetCurSel();
        m_list.GetExtendedStyleX();
        CRect rect;
        m_list.GetSubItemRect(1, 1, LVIR_BOUNDS, rect);
    });
}

TEST_F(NoRedraw, OfRowsWithoutRecordsBySettersThatNeedThem)
{
    ExpectPaintsNothing([&] {
        m_list.SetItemData(PlainRow, 5);
        m_list.SetBold(PlainRow, 1, TRUE);
        m_list.SetEnabled(PlainRow, FALSE);
        m_list.SetCheckbox(PlainRow, 1, 1);
        m_list.SetComboBox(PlainRow, 1, TRUE, &m_choices, 5, 0);
        m_list.SetProgress(PlainRow, 1, TRUE, L"%d");
        m_list.UpdateProgress(PlainRow, 1, 40);
        m_list.DeleteProgress(PlainRow, 1);
        m_list.SetItemToolTipText(PlainRow, 1, L"tip");
    });
}

TEST_F(NoRedraw, OfAnythingForCellsOutOfRange)
{
    for (const auto& [row, column] : {std::pair(-1, 0), std::pair(4, 0), std::pair(1, -1), std::pair(1, 3)}) {
        ExpectPaintsNothing([&, row = row, column = column] {
            m_list.UpdateSubItem(row, column);
            m_list.SetItemText(row, column, L"new");
            m_list.SetItemText(row, column, L"new", 0, 0);
            m_list.SetBold(row, column, TRUE);
            m_list.SetCheckbox(row, column, 1);
            m_list.SetItemImage(row, column, 1);
            m_list.SetComboBox(row, column, TRUE, &m_choices, 5, 0);
            m_list.SetProgress(row, column, TRUE, L"%d");
            m_list.UpdateProgress(row, column, 40);
            m_list.DeleteProgress(row, column);
        });
    }
    ExpectPaintsNothing([&] {
        m_list.SetEnabled(-1, FALSE);
        m_list.SetEnabled(4, FALSE);
        m_list.SetComboBox(1, 1, TRUE, nullptr, 5, 0);
    });
}
