// Calls with rows and columns that are not there, nulls, records that are missing, and no window.
#include "CellState.h"
#include "DropDownWarmUp.h"
#include "ListTest.h"

#include <climits>
#include <utility>

namespace
{

class BadCallTest : public ListTest
{
protected:
    void SetUp() override
    {
        ListTest::SetUp();
        m_choices.Add(L"zero");
        m_choices.Add(L"one");
        m_choices.Add(L"two");
    }

    // What every function that takes a cell does where there is no such cell.
    void ExpectRefused(CXListCtrl& list, int row, int column)
    {
        SCOPED_TRACE(testing::Message() << "row " << row << ", column " << column);
        EXPECT_EQ(list.SetItemText(row, column, L"x"), FALSE);
        EXPECT_EQ(list.SetItemText(row, column, L"x", 1, 2), FALSE);
        EXPECT_EQ(list.SetItemText(row, column, nullptr, 1, 2), FALSE);
        EXPECT_EQ(list.SetItemImage(row, column, 1), FALSE);
        EXPECT_EQ(list.GetComboText(row, column), L"");
        CRect rect;
        EXPECT_EQ(list.GetSubItemRect(row, column, LVIR_BOUNDS, rect), FALSE);
        list.UpdateSubItem(row, column);
        ExpectNoRecord(list, row, column);
    }

    // What the functions that need a cell's record do where there is none.
    void ExpectNoRecord(CXListCtrl& list, int row, int column)
    {
        SCOPED_TRACE(testing::Message() << "row " << row << ", column " << column);
        EXPECT_EQ(list.SetBold(row, column, TRUE), FALSE);
        EXPECT_EQ(list.GetBold(row, column), FALSE);
        EXPECT_EQ(list.SetCheckbox(row, column, 1), FALSE);
        EXPECT_EQ(list.GetCheckbox(row, column), -1);
        EXPECT_EQ(list.SetComboBox(row, column, TRUE, &m_choices, 5, 1), FALSE);
        EXPECT_EQ(list.SetComboBox(row, column, FALSE, &m_choices, 5, 1), FALSE);
        EXPECT_EQ(list.SetComboBox(row, column, TRUE, nullptr, 5, 1), FALSE);
        EXPECT_EQ(list.SetProgress(row, column, TRUE, L"x"), FALSE);
        list.UpdateProgress(row, column, 50);
        list.DeleteProgress(row, column);
        EXPECT_EQ(list.SetItemToolTipText(row, column, L"x"), FALSE);
        EXPECT_EQ(list.GetItemToolTipText(row, column), L"");
    }

    // What the functions that take a row do where it has no first record, or is not there.
    void ExpectNoFirstRecord(CXListCtrl& list, int row)
    {
        SCOPED_TRACE(testing::Message() << "row " << row);
        EXPECT_EQ(list.SetItemData(row, 5), FALSE);
        EXPECT_EQ(list.GetItemData(row), 0u);
        EXPECT_EQ(list.SetEnabled(row, TRUE), FALSE);
        EXPECT_EQ(list.SetEnabled(row, FALSE), FALSE);
        EXPECT_EQ(list.GetEnabled(row), FALSE);
    }

    // Texts and records of all cells of rows with records.
    std::vector<std::pair<std::wstring, CellState>> Everything()
    {
        std::vector<std::pair<std::wstring, CellState>> cells;
        for (int row = 0; row < m_list.GetItemCount(); ++row) {
            for (int column = 0; column < 3; ++column)
                cells.emplace_back(m_list.GetItemText(row, column).GetString(),
                                   StateOf(*m_list.Record(row, column)));
        }
        return cells;
    }

    int AddPlainRow(LPCTSTR text) { return m_list.CListCtrl::InsertItem(m_list.GetItemCount(), text); }

    void DeleteColumns()
    {
        while (m_list.GetColumns() > 0)
            ASSERT_TRUE(m_list.DeleteColumn(m_list.GetColumns() - 1));
    }

    // Draws all rows, selected and not.
    void DrawAll()
    {
        testkit::Picture::OfControl(m_list.m_hWnd);
        for (int row = 0; row < m_list.GetItemCount(); ++row)
            m_list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
        m_list.RedrawWindow();
        testkit::Picture::OfControl(m_list.m_hWnd);
    }

    CStringArray m_choices;
};

class ShrunkChoices : public BadCallTest
{
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(WarmUpDropDownClass()); }
};

using OutOfRange = BadCallTest;
using NullArgument = BadCallTest;
using AddedColumn = BadCallTest;
using DeletedColumn = BadCallTest;
using ListWithoutColumns = BadCallTest;
using RowWithoutRecords = BadCallTest;
using ListWithoutWindow = BadCallTest;

} // namespace

TEST_F(OutOfRange, CellIsRefusedByEveryFunctionAndChangesNothing)
{
    AddRows(2);
    const auto before = Everything();
    for (const int row : {-1, 2, INT_MIN, INT_MAX}) {
        for (const int column : {0, 2, -1, 3, INT_MIN, INT_MAX})
            ExpectRefused(m_list, row, column);
    }
    for (const int row : {0, 1}) {
        for (const int column : {-1, 3, INT_MIN, INT_MAX})
            ExpectRefused(m_list, row, column);
    }
    EXPECT_EQ(Everything(), before);
}

TEST_F(OutOfRange, RowIsRefusedByEveryFunctionAndChangesNothing)
{
    AddRows(2);
    const auto before = Everything();
    for (const int row : {-1, 2, INT_MIN, INT_MAX}) {
        ExpectNoFirstRecord(m_list, row);
        EXPECT_EQ(m_list.DeleteItem(row), FALSE) << row;
    }
    EXPECT_EQ(Everything(), before);
}

TEST_F(OutOfRange, EveryCellIsInAnEmptyList)
{
    ExpectRefused(m_list, 0, 0);
    ExpectNoFirstRecord(m_list, 0);
    EXPECT_EQ(m_list.DeleteItem(0), FALSE);
    EXPECT_EQ(m_list.GetCurSel(), -1);
    EXPECT_EQ(m_list.SetCurSel(0), FALSE);
}

TEST_F(OutOfRange, RowsAndColumnsAreCountedAnewWithEachCall)
{
    AddRows(1);
    EXPECT_EQ(m_list.SetBold(1, 0, TRUE), FALSE);
    AddRows(1);
    EXPECT_EQ(m_list.SetBold(1, 0, TRUE), TRUE);
    m_list.DeleteItem(0);
    EXPECT_EQ(m_list.SetBold(1, 0, TRUE), FALSE);
    EXPECT_EQ(m_list.GetBold(0, 0), TRUE);
    EXPECT_EQ(m_list.SetItemText(0, 3, L"x"), FALSE);
    m_list.InsertColumn(3, L"Fourth", LVCFMT_LEFT, 50);
    EXPECT_EQ(m_list.SetItemText(0, 3, L"x"), TRUE);
}

TEST_F(NullArgument, IsAnEmptyTextForEveryTextFunction)
{
    AddRows(1);
    EXPECT_EQ(m_list.SetItemText(0, 0, nullptr), TRUE);
    EXPECT_EQ(m_list.SetItemToolTipText(0, 0, nullptr), TRUE);
    EXPECT_EQ(m_list.SetProgress(0, 1, TRUE, nullptr), TRUE);
    m_list.UpdateProgress(0, 1, 50);
    DrawAll();
    EXPECT_EQ(m_list.GetItemText(0, 0), L"");
    EXPECT_EQ(m_list.GetItemToolTipText(0, 0), L"");
    EXPECT_EQ(m_list.Record(0, 1)->strProgressText, L"");
}

TEST_F(NullArgument, DescriptionOfAnItemIsRefused)
{
    AddRows(1);
    EXPECT_EQ(m_list.InsertItem(static_cast<const LVITEM*>(nullptr)), -1);
    EXPECT_EQ(m_list.SetItem(nullptr), -1);
    EXPECT_EQ(m_list.GetItemCount(), 1);
}

TEST_F(ShrunkChoices, AreDrawnWithoutAText)
{
    AddRows(1);
    for (const INT_PTR left : {2, 0}) {
        m_choices.SetSize(3);
        ASSERT_TRUE(m_list.SetComboBox(0, 1, TRUE, &m_choices, 5, 2));
        m_list.SetItemText(0, 1, L"");
        m_choices.SetSize(left);
        DrawAll();
        EXPECT_EQ(m_list.GetItemText(0, 1), L"") << left;
        EXPECT_EQ(m_list.GetComboText(0, 1), L"") << left;
        EXPECT_EQ(m_list.Record(0, 1)->nComboInitialSel, 2) << left;
    }
}

TEST_F(ShrunkChoices, OpenAListOfThoseThatAreLeft)
{
    AddRows(1);
    ASSERT_TRUE(m_list.SetComboBox(0, 1, TRUE, &m_choices, 5, 2));
    m_choices.SetSize(1);
    m_list.SetCurSel(0);
    m_list.Record(0, 1)->bComboButtonDown = TRUE;
    m_list.UpdateSubItem(0, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_list.m_pCombo->GetCount(), 1);
    EXPECT_EQ(m_list.m_pCombo->GetCurSel(), 0);
    EXPECT_EQ(m_list.GetComboText(0, 1), L"two");
}

TEST_F(ShrunkChoices, OpenAnEmptyListWhenNoneAreLeft)
{
    AddRows(1);
    ASSERT_TRUE(m_list.SetComboBox(0, 1, TRUE, &m_choices, 5, 2));
    m_list.SetItemText(0, 1, L"");
    m_choices.RemoveAll();
    m_list.SetCurSel(0);
    m_list.Record(0, 1)->bComboButtonDown = TRUE;
    m_list.UpdateSubItem(0, 1);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_list.m_pCombo->GetCount(), 0);
    EXPECT_EQ(m_list.m_strComboOpenText, L"");
    EXPECT_EQ(m_list.GetComboText(0, 1), L"");
}

TEST_F(AddedColumn, HasNoRecordInRowsThatWereThere)
{
    AddRows(2);
    const auto before = Everything();
    m_list.InsertColumn(3, L"Fourth", LVCFMT_LEFT, 50);
    ExpectNoRecord(m_list, 0, 3);
    ExpectNoRecord(m_list, 1, 3);
    EXPECT_EQ(m_list.CountCheckedItems(3), 0);
    DrawAll();
    m_list.DeleteAllToolTips();
    EXPECT_EQ(Everything(), before);
}

TEST_F(AddedColumn, TakesTextAndImageLikeARowWithoutRecords)
{
    AddRows(1);
    const auto before = Everything();
    m_list.InsertColumn(3, L"Fourth", LVCFMT_LEFT, 50);
    EXPECT_EQ(m_list.SetItemText(0, 3, L"text"), TRUE);
    EXPECT_EQ(m_list.SetItemText(0, 3, nullptr, 1, 2), TRUE);
    EXPECT_EQ(m_list.SetItemImage(0, 3, 1), TRUE);
    EXPECT_EQ(m_list.GetComboText(0, 3), L"text");
    DrawAll();
    EXPECT_EQ(Everything(), before);
}

TEST_F(AddedColumn, IsRefusedBySetItemOnceTheListViewHasSetTheText)
{
    AddRows(1);
    m_list.InsertColumn(3, L"Fourth", LVCFMT_LEFT, 50);
    wchar_t text[] = L"text";
    LVITEM item = {};
    item.mask = LVIF_TEXT;
    item.iSubItem = 3;
    item.pszText = text;
    item.iImage = 4;
    EXPECT_EQ(m_list.SetItem(&item), FALSE);
    EXPECT_EQ(m_list.GetComboText(0, 3), L"text");
}

TEST_F(AddedColumn, HasRecordsInRowsInsertedLater)
{
    AddRows(1);
    m_list.InsertColumn(3, L"Fourth", LVCFMT_LEFT, 50);
    m_list.SetHeaderCheckedState(3, 1);
    AddRows(1);
    EXPECT_EQ(m_list.SetCheckbox(1, 3, 1), TRUE);
    EXPECT_EQ(m_list.GetCheckbox(1, 3), 1);
    EXPECT_EQ(m_list.CountCheckedItems(3), 1);
    EXPECT_EQ(m_list.GetHeaderCheckedState(3), 1);
    m_list.DeleteItem(0);
    m_list.SetCheckbox(0, 3, 1);
    EXPECT_EQ(m_list.GetHeaderCheckedState(3), 2);
}

TEST_F(AddedColumn, InFrontLeavesTheRecordsWhereTheyWere)
{
    AddRows(1);
    m_list.SetBold(0, 0, TRUE);
    m_list.SetItemData(0, 9);
    m_list.InsertColumn(0, L"Front", LVCFMT_LEFT, 50);
    EXPECT_EQ(m_list.GetBold(0, 0), TRUE);
    EXPECT_EQ(m_list.GetBold(0, 1), FALSE);
    EXPECT_EQ(m_list.GetItemData(0), 9u);
    ExpectNoRecord(m_list, 0, 3);
    DrawAll();
}

TEST_F(DeletedColumn, IsOutOfRange)
{
    AddRows(2);
    m_list.SetCheckbox(0, 2, 1);
    m_list.DeleteColumn(2);
    ExpectRefused(m_list, 0, 2);
    EXPECT_EQ(m_list.CountCheckedItems(2), 0);
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), -1);
    EXPECT_EQ(m_list.SetHeaderCheckedState(2, 1), FALSE);
    DrawAll();
    m_list.DeleteAllToolTips();
    EXPECT_EQ(m_list.DeleteItem(0), TRUE);
}

TEST_F(DeletedColumn, LeavesTheRecordsToTheOneThatTakesItsPlace)
{
    AddRows(2);
    m_list.SetCheckbox(0, 2, 1);
    m_list.SetItemToolTipText(0, 2, L"tip");
    m_list.DeleteColumn(2);
    m_list.InsertColumn(2, L"Again", LVCFMT_LEFT, 50);
    EXPECT_EQ(m_list.GetCheckbox(0, 2), 1);
    EXPECT_EQ(m_list.CountCheckedItems(2), 1);
    EXPECT_EQ(m_list.GetItemToolTipText(0, 2), L"tip");
}

TEST_F(DeletedColumn, TipsOfItGoWithAllTheOthers)
{
    AddRows(1);
    m_list.SetItemToolTipText(0, 2, L"tip");
    m_list.DeleteColumn(2);
    m_list.DeleteAllToolTips();
    m_list.InsertColumn(2, L"Again", LVCFMT_LEFT, 50);
    EXPECT_EQ(m_list.GetItemToolTipText(0, 2), L"");
}

TEST_F(DeletedColumn, LeavesRowFunctionsAsTheyWereEvenIfItWasTheLast)
{
    AddRows(2);
    m_list.SetItemData(0, 9);
    DeleteColumns();
    EXPECT_EQ(m_list.GetColumns(), 0);
    ExpectRefused(m_list, 0, 0);
    EXPECT_EQ(m_list.GetItemData(0), 9u);
    EXPECT_EQ(m_list.SetItemData(1, 8), TRUE);
    EXPECT_EQ(m_list.SetEnabled(1, FALSE), TRUE);
    EXPECT_EQ(m_list.GetEnabled(1), FALSE);
    DrawAll();
    EXPECT_EQ(m_list.DeleteItem(0), TRUE);
    EXPECT_EQ(m_list.GetItemData(0), 8u);
}

TEST_F(ListWithoutColumns, TakesRowsThatHaveNoRecord)
{
    DeleteColumns();
    EXPECT_EQ(m_list.InsertItem(0, L"a"), 0);
    EXPECT_EQ(m_list.InsertItem(1, L"b", 1, 2), 1);
    LVITEM item = {};
    item.iItem = 2;
    item.iImage = 3;
    EXPECT_EQ(m_list.InsertItem(&item), 2);
    for (const int row : {0, 1, 2}) {
        ExpectRefused(m_list, row, 0);
        ExpectNoFirstRecord(m_list, row);
    }
    m_list.DeleteAllToolTips();
    m_list.DeleteCheckedItems();
    EXPECT_EQ(m_list.GetItemCount(), 3);
    EXPECT_EQ(m_list.DeleteItem(1), TRUE);
    EXPECT_EQ(m_list.DeleteAllItems(), TRUE);
}

TEST_F(ListWithoutColumns, GivesItsRowsNoRecordWhenColumnsCome)
{
    DeleteColumns();
    m_list.InsertItem(0, L"a");
    m_list.InsertColumn(0, L"Column", LVCFMT_LEFT, 50);
    ExpectNoRecord(m_list, 0, 0);
    ExpectNoFirstRecord(m_list, 0);
    EXPECT_EQ(m_list.SetItemText(0, 0, L"text", 1, 2), TRUE);
    EXPECT_EQ(m_list.SetItemImage(0, 0, 1), TRUE);
    DrawAll();
    EXPECT_EQ(m_list.GetComboText(0, 0), L"text");
}

TEST_F(ListWithoutColumns, HasNothingToCountOrCheck)
{
    DeleteColumns();
    m_list.InsertItem(0, L"a");
    EXPECT_EQ(m_list.CountCheckedItems(0), 0);
    EXPECT_EQ(m_list.GetHeaderCheckedState(0), -1);
    EXPECT_EQ(m_list.SetHeaderCheckedState(0, 1), FALSE);
    DrawAll();
    EXPECT_EQ(m_list.SetCurSel(0), TRUE);
    EXPECT_EQ(m_list.GetCurSel(), 0);
}

TEST_F(RowWithoutRecords, IsRefusedByEveryFunctionThatNeedsThem)
{
    AddPlainRow(L"plain");
    for (const int column : {0, 1, 2})
        ExpectNoRecord(m_list, 0, column);
    ExpectNoFirstRecord(m_list, 0);
    m_list.DeleteAllToolTips();
    m_list.DeleteCheckedItems();
    DrawAll();
    EXPECT_EQ(m_list.GetItemCount(), 1);
    EXPECT_EQ(m_list.GetComboText(0, 0), L"plain");
    EXPECT_EQ(m_list.CListCtrl::GetItemData(0), 0u);
}

TEST_F(RowWithoutRecords, CellsOutOfRangeAreRefusedAllTheSame)
{
    AddPlainRow(L"plain");
    ExpectRefused(m_list, 0, -1);
    ExpectRefused(m_list, 0, 3);
    ExpectRefused(m_list, 1, 0);
}

TEST_F(ListWithoutWindow, RefusesEveryFunction)
{
    OpenList list;
    EXPECT_EQ(list.GetColumns(), 0);
    ExpectRefused(list, 0, 0);
    ExpectNoFirstRecord(list, 0);
    EXPECT_EQ(list.InsertItem(0, L"a"), -1);
    EXPECT_EQ(list.InsertItem(0, L"a", 1, 2), -1);
    const LVITEM item = {};
    EXPECT_EQ(list.InsertItem(&item), -1);
    EXPECT_EQ(list.SetItem(&item), FALSE);
    EXPECT_EQ(list.CountCheckedItems(0), 0);
    EXPECT_EQ(list.SetHeaderCheckedState(0, 1), FALSE);
    EXPECT_EQ(list.GetHeaderCheckedState(0), -1);
    list.DeleteAllToolTips();
    list.DeleteCheckedItems();
    EXPECT_EQ(list.DeleteItem(0), FALSE);
    EXPECT_EQ(list.DeleteAllItems(), FALSE);
    EXPECT_EQ(list.GetCurSel(), -1);
    EXPECT_EQ(list.SetCurSel(0), FALSE);
}

TEST_F(ListWithoutWindow, KeepsWhatNeedsNone)
{
    OpenList list;
    EXPECT_EQ(list.SetExtendedStyleX(3), 0u);
    EXPECT_EQ(list.GetExtendedStyleX(), 3u);
    list.SetDefaultTextMessage(L"nothing here");
    EXPECT_EQ(list.m_strNoItemsMessage, L"nothing here");
}

TEST_F(ListWithoutWindow, RefusesEveryFunctionOnceTheWindowIsGone)
{
    AddRows(2);
    m_list.SetCheckbox(0, 0, 1);
    m_list.DestroyWindow();
    EXPECT_EQ(m_list.GetColumns(), 0);
    ExpectRefused(m_list, 0, 0);
    ExpectNoFirstRecord(m_list, 0);
    EXPECT_EQ(m_list.InsertItem(0, L"a"), -1);
    EXPECT_EQ(m_list.CountCheckedItems(0), 0);
    EXPECT_EQ(m_list.DeleteItem(0), FALSE);
    m_list.DeleteCheckedItems();
    EXPECT_EQ(m_list.GetCurSel(), -1);
}
