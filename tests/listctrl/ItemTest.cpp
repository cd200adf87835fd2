// What rows and cells hold: texts, colours, data, bold, enabled, images, tips, selection.
#include "CellTest.h"
#include "InputTest.h"

#include <climits>

namespace
{

class ItemTest : public CellTest
{
protected:
    // A row without records.
    int AddPlainRow(LPCTSTR text) { return m_list.CListCtrl::InsertItem(m_list.GetItemCount(), text); }

    // Selects by the platform's message, apart from the code under test.
    void Select(int row)
    {
        LVITEM item = {};
        item.state = item.stateMask = LVIS_SELECTED;
        m_list.SendMessage(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    }
};

LVITEM ItemOf(UINT mask, int row, int column)
{
    LVITEM item = {};
    item.mask = mask;
    item.iItem = row;
    item.iSubItem = column;
    return item;
}

wchar_t g_text[] = L"given";

LVITEM TextItem(int row, int column)
{
    LVITEM item = ItemOf(LVIF_TEXT, row, column);
    item.pszText = g_text;
    return item;
}

using SetItemCall = ItemTest;
using SetItemTextCall = ItemTest;
using SetItemTextColors = ItemTest;
using RowData = ItemTest;
using BoldCells = ItemTest;
using EnabledRows = ItemTest;
using CellImages = ItemTest;
using CellTips = ItemTest;
using CurrentSelection = ItemTest;
using ListProperties = ItemTest;

} // namespace

TEST_F(SetItemCall, SetsWhatTheMaskSaysOfACell)
{
    AddRows(2);
    const LVITEM item = TextItem(1, 2);
    EXPECT_EQ(m_list.SetItem(&item), TRUE);
    EXPECT_EQ(Text(1, 2), L"given");
    EXPECT_EQ(Text(1, 0), L"row 1");
    EXPECT_EQ(Text(0, 2), L"");
}

TEST_F(SetItemCall, TakesTheImageWhateverTheMaskSays)
{
    AddRows(1);
    LVITEM item = TextItem(0, 1);
    item.iImage = 3;
    EXPECT_EQ(m_list.SetItem(&item), TRUE);
    CellState expected;
    expected.nImage = 3;
    EXPECT_EQ(Cell(0, 1), expected);
    EXPECT_EQ(Cell(0, 0), CellState());
    item = ItemOf(LVIF_IMAGE, 0, 0);
    item.iImage = 5;
    EXPECT_EQ(m_list.SetItem(&item), TRUE);
    expected.nImage = 5;
    EXPECT_EQ(Cell(0, 0), expected);
}

TEST_F(SetItemCall, GivesMinusOneForANegativeRow)
{
    AddRows(1);
    for (const int row : {-1, INT_MIN}) {
        const LVITEM item = TextItem(row, 0);
        EXPECT_EQ(m_list.SetItem(&item), -1) << row;
    }
    EXPECT_THAT(FirstTexts(), testing::ElementsAre(L"row 0"));
}

TEST_F(SetItemCall, GivesFalseWhereTheListViewRefuses)
{
    AddRows(1);
    for (const auto& [row, column] : {std::pair(1, 0), std::pair(INT_MAX, 0), std::pair(0, -1)}) {
        LVITEM item = TextItem(row, column);
        item.iImage = 3;
        EXPECT_EQ(m_list.SetItem(&item), FALSE) << row << ", " << column;
    }
    for (const int column : {0, 1, 2})
        EXPECT_EQ(Cell(0, column), CellState()) << column;
}

TEST_F(SetItemCall, SetsTheTextOfARowWithoutRecordsButGivesFalse)
{
    AddPlainRow(L"plain");
    const LVITEM item = TextItem(0, 0);
    EXPECT_EQ(m_list.SetItem(&item), FALSE);
    EXPECT_EQ(Text(0, 0), L"given");
}

TEST_F(SetItemCall, LeavesTheParameterWithTheControl)
{
    AddRows(1);
    m_list.SetItemData(0, 77);
    LVITEM item = TextItem(0, 0);
    item.mask |= LVIF_PARAM;
    item.lParam = 0;
    EXPECT_EQ(m_list.SetItem(&item), TRUE);
    EXPECT_EQ(item.mask, static_cast<UINT>(LVIF_TEXT | LVIF_PARAM));
    EXPECT_EQ(Text(0, 0), L"given");
    EXPECT_EQ(m_list.GetItemData(0), 77u);
}

TEST_F(SetItemTextCall, SetsTheTextOfOneCellAndNothingElse)
{
    AddRows(2);
    for (const int column : {0, 1, 2})
        EXPECT_EQ(m_list.SetItemText(1, column, L"new"), TRUE);
    for (const int column : {0, 1, 2}) {
        EXPECT_EQ(Text(1, column), L"new");
        EXPECT_EQ(Cell(1, column), CellState());
    }
    EXPECT_EQ(Text(0, 0), L"row 0");
    EXPECT_EQ(Text(0, 1), L"");
}

TEST_F(SetItemTextCall, SetsTheTextOfARowWithoutRecords)
{
    AddPlainRow(L"plain");
    EXPECT_EQ(m_list.SetItemText(0, 1, L"new"), TRUE);
    EXPECT_EQ(Text(0, 1), L"new");
}

TEST_F(SetItemTextCall, TakesANullTextForAnEmptyOne)
{
    AddRows(1);
    EXPECT_EQ(m_list.SetItemText(0, 0, nullptr), TRUE);
    EXPECT_EQ(Text(0, 0), L"");
}

TEST_F(SetItemTextColors, SetsTextAndColorsOfOneCell)
{
    AddRows(1);
    EXPECT_EQ(m_list.SetItemText(0, 1, L"new", Red, Green), TRUE);
    EXPECT_EQ(Text(0, 1), L"new");
    EXPECT_EQ(Cell(0, 1), Colored(Red, Green));
    EXPECT_EQ(Cell(0, 0), CellState());
    EXPECT_EQ(Cell(0, 2), CellState());
}

TEST_F(SetItemTextColors, TakesTheListsColorsForMinusOne)
{
    AddRows(2);
    GiveTheListItsOwnColors();
    EXPECT_EQ(m_list.SetItemText(0, 1, L"new", WindowsOwn, Green), TRUE);
    EXPECT_EQ(m_list.SetItemText(1, 1, L"new", Red, WindowsOwn), TRUE);
    EXPECT_EQ(Cell(0, 1), Colored(ListText, Green));
    EXPECT_EQ(Cell(1, 1), Colored(Red, ListWindow));
}

TEST_F(SetItemTextColors, LeavesTheTextForANullOne)
{
    AddRows(1);
    m_list.SetItemText(0, 1, L"old");
    EXPECT_EQ(m_list.SetItemText(0, 1, nullptr, WindowsOwn, Red), TRUE);
    EXPECT_EQ(Text(0, 1), L"old");
    EXPECT_EQ(Cell(0, 1), Colored(m_list.m_crWindowText, Red));
}

TEST_F(SetItemTextColors, EmptiesTheTextForAnEmptyOne)
{
    AddRows(1);
    EXPECT_EQ(m_list.SetItemText(0, 0, L"", Red, Green), TRUE);
    EXPECT_EQ(Text(0, 0), L"");
}

TEST_F(SetItemTextColors, SetsTheTextOfARowWithoutRecords)
{
    AddPlainRow(L"plain");
    EXPECT_EQ(m_list.SetItemText(0, 1, L"new", Red, Green), TRUE);
    EXPECT_EQ(m_list.SetItemText(0, 0, nullptr, Red, Green), TRUE);
    EXPECT_EQ(Text(0, 1), L"new");
    EXPECT_EQ(Text(0, 0), L"plain");
    EXPECT_EQ(m_list.CListCtrl::GetItemData(0), 0u);
}

TEST_F(RowData, KeepsAll32BitsForEachRow)
{
    AddRows(2);
    EXPECT_EQ(m_list.SetItemData(0, 0xFFFFFFFF), TRUE);
    EXPECT_EQ(m_list.SetItemData(1, 0x80000001), TRUE);
    EXPECT_EQ(m_list.GetItemData(0), 0xFFFFFFFFu);
    EXPECT_EQ(m_list.GetItemData(1), 0x80000001u);
}

TEST_F(RowData, StandsInTheRecordOfTheFirstColumnAlone)
{
    AddRows(1);
    m_list.SetItemData(0, 5);
    m_list.Record(0, 1)->dwItemData = 6;
    EXPECT_EQ(m_list.GetItemData(0), 5u);
    CellState expected;
    expected.dwItemData = 5;
    EXPECT_EQ(Cell(0, 0), expected);
    EXPECT_EQ(Cell(0, 2), CellState());
}

TEST_F(RowData, IsZeroAtFirstAndForRowsWithoutRecords)
{
    AddRows(1);
    AddPlainRow(L"plain");
    EXPECT_EQ(m_list.GetItemData(0), 0u);
    EXPECT_EQ(m_list.SetItemData(1, 5), FALSE);
    EXPECT_EQ(m_list.GetItemData(1), 0u);
    EXPECT_EQ(m_list.CListCtrl::GetItemData(1), 0u);
}

TEST_F(BoldCells, KeepWhatIsSetForEachCell)
{
    AddRows(2);
    EXPECT_EQ(m_list.GetBold(1, 2), FALSE);
    EXPECT_EQ(m_list.SetBold(1, 2, TRUE), TRUE);
    EXPECT_EQ(m_list.GetBold(1, 2), TRUE);
    CellState expected;
    expected.bBold = TRUE;
    EXPECT_EQ(Cell(1, 2), expected);
    EXPECT_EQ(Cell(1, 1), CellState());
    EXPECT_EQ(Cell(0, 2), CellState());
    EXPECT_EQ(m_list.SetBold(1, 2, FALSE), TRUE);
    EXPECT_EQ(m_list.GetBold(1, 2), FALSE);
}

TEST_F(BoldCells, GiveBackTheValueAsItWasGiven)
{
    AddRows(1);
    EXPECT_EQ(m_list.SetBold(0, 0, 5), TRUE);
    EXPECT_EQ(m_list.GetBold(0, 0), 5);
}

TEST_F(EnabledRows, KeepWhatIsSetInTheFirstColumnsRecord)
{
    AddRows(2);
    EXPECT_EQ(m_list.GetEnabled(1), TRUE);
    EXPECT_EQ(m_list.SetEnabled(1, FALSE), TRUE);
    EXPECT_EQ(m_list.GetEnabled(1), FALSE);
    EXPECT_EQ(m_list.GetEnabled(0), TRUE);
    CellState expected;
    expected.bEnabled = FALSE;
    EXPECT_EQ(Cell(1, 0), expected);
    EXPECT_EQ(Cell(1, 1), CellState());
    EXPECT_EQ(m_list.SetEnabled(1, 5), TRUE);
    EXPECT_EQ(m_list.GetEnabled(1), 5);
}

TEST_F(CellImages, KeepWhatIsSetForEachCell)
{
    AddRows(1);
    for (const int image : {2, 0, -1, 100000, INT_MIN}) {
        EXPECT_EQ(m_list.SetItemImage(0, 1, image), TRUE);
        CellState expected;
        expected.nImage = image;
        EXPECT_EQ(Cell(0, 1), expected);
    }
    EXPECT_EQ(Cell(0, 0), CellState());
}

TEST_F(CellImages, AreSetWithSuccessInARowWithoutRecords)
{
    AddPlainRow(L"plain");
    EXPECT_EQ(m_list.SetItemImage(0, 0, 2), TRUE);
    EXPECT_EQ(m_list.SetItemImage(0, 2, 2), TRUE);
    EXPECT_EQ(m_list.CListCtrl::GetItemData(0), 0u);
}

TEST_F(CellTips, KeepWhatIsSetForEachCell)
{
    AddRows(2);
    const CString tip(L'x', 500);
    EXPECT_EQ(m_list.GetItemToolTipText(1, 2), L"");
    EXPECT_EQ(m_list.SetItemToolTipText(1, 2, tip), TRUE);
    EXPECT_EQ(m_list.GetItemToolTipText(1, 2), tip);
    CellState expected;
    expected.strToolTip = tip.GetString();
    EXPECT_EQ(Cell(1, 2), expected);
    EXPECT_EQ(Cell(1, 1), CellState());
    EXPECT_EQ(Cell(0, 2), CellState());
}

TEST_F(CellTips, AreEmptiedByANullText)
{
    AddRows(1);
    m_list.SetItemToolTipText(0, 0, L"tip");
    EXPECT_EQ(m_list.SetItemToolTipText(0, 0, nullptr), TRUE);
    EXPECT_EQ(m_list.GetItemToolTipText(0, 0), L"");
}

TEST_F(CellTips, AreAllEmptiedAtOnceInEveryRowAndColumn)
{
    AddRows(1);
    AddPlainRow(L"plain");
    AddRows(1);
    for (const int row : {0, 2}) {
        for (const int column : {0, 1, 2})
            ASSERT_TRUE(m_list.SetItemToolTipText(row, column, L"tip"));
    }
    m_list.SetBold(2, 2, TRUE);
    m_list.DeleteAllToolTips();
    for (const int row : {0, 2}) {
        for (const int column : {0, 1, 2})
            EXPECT_EQ(m_list.GetItemToolTipText(row, column), L"") << row << ", " << column;
    }
    EXPECT_EQ(m_list.GetBold(2, 2), TRUE);
}

TEST_F(CellTips, AreNoneInAnEmptyList)
{
    m_list.DeleteAllToolTips();
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(CurrentSelection, IsTheFirstSelectedRow)
{
    AddRows(4);
    EXPECT_EQ(m_list.GetCurSel(), -1);
    Select(2);
    EXPECT_EQ(m_list.GetCurSel(), 2);
    Select(1);
    EXPECT_EQ(m_list.GetCurSel(), 1);
    Select(3);
    EXPECT_EQ(m_list.GetCurSel(), 1);
}

TEST_F(CurrentSelection, IsSetWithTheFocusOfTheList)
{
    AddRows(3);
    EXPECT_EQ(m_list.SetCurSel(1), TRUE);
    const UINT both = LVIS_SELECTED | LVIS_FOCUSED;
    EXPECT_EQ(m_list.GetItemState(1, both), both);
    EXPECT_EQ(m_list.GetItemState(0, both), 0u);
    EXPECT_EQ(m_list.GetItemState(2, both), 0u);
    EXPECT_EQ(m_list.GetCurSel(), 1);
}

TEST_F(CurrentSelection, LeavesOtherRowsSelected)
{
    AddRows(3);
    Select(0);
    EXPECT_EQ(m_list.SetCurSel(2), TRUE);
    EXPECT_EQ(m_list.GetItemState(0, LVIS_SELECTED), static_cast<UINT>(LVIS_SELECTED));
    EXPECT_EQ(m_list.GetItemState(2, LVIS_SELECTED), static_cast<UINT>(LVIS_SELECTED));
    EXPECT_EQ(m_list.GetCurSel(), 0);
}

TEST_F(CurrentSelection, LeavesRowsOutOfRangeToTheListView)
{
    AddRows(3);
    constexpr UINT both = LVIS_SELECTED | LVIS_FOCUSED;
    for (const int row : {-1, -2, 3, INT_MAX}) {
        int asked = 0;
        const MessageProbe probe(m_list.m_hWnd, [&](UINT message, WPARAM wParam, LPARAM lParam) {
            if (message != LVM_SETITEMSTATE)
                return;
            const auto item = reinterpret_cast<const LVITEM*>(lParam);
            ++asked;
            EXPECT_EQ(static_cast<int>(wParam), row);
            EXPECT_EQ(item->state, both);
            EXPECT_EQ(item->stateMask, both);
        });
        const BOOL result = m_list.SetCurSel(row);
        EXPECT_EQ(asked, 1) << row;
        LVITEM item = {};
        item.state = item.stateMask = both;
        EXPECT_EQ(result, m_list.SendMessage(LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                                             reinterpret_cast<LPARAM>(&item)))
            << row;
    }
}

TEST_F(CurrentSelection, IsRefusedBeyondTheEnd)
{
    AddRows(1);
    EXPECT_EQ(m_list.SetCurSel(1), FALSE);
    EXPECT_EQ(m_list.GetCurSel(), -1);
}

TEST_F(ListProperties, ColumnsAreThoseOfTheHeader)
{
    EXPECT_EQ(m_list.GetColumns(), 3);
    m_list.DeleteColumn(1);
    EXPECT_EQ(m_list.GetColumns(), 2);
    HDITEM item = {};
    item.mask = HDI_WIDTH;
    item.cxy = 10;
    m_list.GetHeaderCtrl()->SendMessage(HDM_INSERTITEM, 2, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(m_list.GetColumns(), 3);
}

TEST_F(ListProperties, StyleWordGivesBackTheOneBefore)
{
    EXPECT_EQ(m_list.GetExtendedStyleX(), 0u);
    EXPECT_EQ(m_list.SetExtendedStyleX(0xFFFFFFFF), 0u);
    EXPECT_EQ(m_list.GetExtendedStyleX(), 0xFFFFFFFFu);
    EXPECT_EQ(m_list.SetExtendedStyleX(0x80000000), 0xFFFFFFFFu);
    EXPECT_EQ(m_list.m_dwExtendedStyleX, 0x80000000u);
    EXPECT_EQ(m_list.GetExtendedStyle(), 0u);
}

TEST_F(ListProperties, MessageOfAnEmptyListIsKept)
{
    m_list.SetDefaultTextMessage(L"nothing here");
    EXPECT_EQ(m_list.m_strNoItemsMessage, L"nothing here");
    m_list.SetDefaultTextMessage(L"");
    EXPECT_EQ(m_list.m_strNoItemsMessage, L"");
}
