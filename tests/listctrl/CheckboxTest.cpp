// Check boxes: states, counts, headers, and the rows that are deleted by them.
#include "CellState.h"
#include "ListTest.h"

#include <climits>

namespace
{

class CheckboxTest : public ListTest
{
protected:
    int AddPlainRow() { return m_list.CListCtrl::InsertItem(m_list.GetItemCount(), L"plain"); }

    // A row for each state, which its cell in that column gets.
    void AddRowsWithStates(std::initializer_list<int> states, int column)
    {
        for (const int state : states) {
            AddRows(1);
            ASSERT_EQ(m_list.SetCheckbox(m_list.GetItemCount() - 1, column, state), TRUE);
        }
    }

    // By the header's own messages.
    void SetHeaderImage(int column, int image)
    {
        HDITEM item = {};
        item.mask = HDI_IMAGE;
        item.iImage = image;
        ASSERT_TRUE(m_list.GetHeaderCtrl()->SendMessage(HDM_SETITEM, static_cast<WPARAM>(column),
                                                        reinterpret_cast<LPARAM>(&item)));
    }
    int HeaderImage(int column)
    {
        HDITEM item = {};
        item.mask = HDI_IMAGE;
        EXPECT_TRUE(m_list.GetHeaderCtrl()->SendMessage(HDM_GETITEM, static_cast<WPARAM>(column),
                                                        reinterpret_cast<LPARAM>(&item)));
        return item.iImage;
    }

    std::vector<int> HeaderImages() { return {HeaderImage(0), HeaderImage(1), HeaderImage(2)}; }

    std::vector<std::wstring> FirstTexts()
    {
        std::vector<std::wstring> texts;
        for (int row = 0; row < m_list.GetItemCount(); ++row)
            texts.push_back(m_list.GetItemText(row, 0).GetString());
        return texts;
    }
};

using SetCheckbox = CheckboxTest;
using CountCheckedItems = CheckboxTest;
using HeaderCheckedState = CheckboxTest;
using HeaderOfCheckboxes = CheckboxTest;
using DeleteCheckedItems = CheckboxTest;

} // namespace

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(SetCheckbox, KeepsTheStateAsGivenForEachCell)
{
    AddRows(2);
    EXPECT_EQ(m_list.GetCheckbox(1, 2), -1);
    for (const int state : {0, 1, -1, 2, -7, INT_MAX, INT_MIN}) {
        EXPECT_EQ(m_list.SetCheckbox(1, 2, state), TRUE);
        EXPECT_EQ(m_list.GetCheckbox(1, 2), state);
        CellState expected;
        expected.nCheckedState = state;
        EXPECT_EQ(StateOf(*m_list.Record(1, 2)), expected);
    }
    EXPECT_EQ(StateOf(*m_list.Record(1, 1)), CellState());
    EXPECT_EQ(StateOf(*m_list.Record(0, 2)), CellState());
}

TEST_F(SetCheckbox, IsRefusedByARowWithoutRecords)
{
    AddPlainRow();
    EXPECT_EQ(m_list.SetCheckbox(0, 0, 1), FALSE);
    EXPECT_EQ(m_list.GetCheckbox(0, 0), -1);
    EXPECT_EQ(m_list.CountCheckedItems(0), 0);
}

TEST_F(SetCheckbox, TellsTheParentNothing)
{
    AddRows(1);
    SetHeaderImage(0, 1);
    for (const int state : {0, 1, 0, 2, -1})
        m_list.SetCheckbox(0, 0, state);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(CountCheckedItems, CountsTheStatesThatAreExactly1)
{
    AddRowsWithStates({1, 0, -1, 2, 1, -7, 1}, 1);
    EXPECT_EQ(m_list.CountCheckedItems(1), 3);
}

TEST_F(CountCheckedItems, CountsEachColumnByItself)
{
    AddRows(3);
    m_list.SetCheckbox(0, 0, 1);
    m_list.SetCheckbox(0, 2, 1);
    m_list.SetCheckbox(2, 2, 1);
    EXPECT_EQ(m_list.CountCheckedItems(0), 1);
    EXPECT_EQ(m_list.CountCheckedItems(1), 0);
    EXPECT_EQ(m_list.CountCheckedItems(2), 2);
}

TEST_F(CountCheckedItems, FollowsEveryChangeOfACell)
{
    AddRows(2);
    m_list.SetCheckbox(0, 1, 1);
    m_list.SetCheckbox(0, 1, 1);
    EXPECT_EQ(m_list.CountCheckedItems(1), 1);
    m_list.SetCheckbox(1, 1, 1);
    EXPECT_EQ(m_list.CountCheckedItems(1), 2);
    m_list.SetCheckbox(0, 1, 2);
    EXPECT_EQ(m_list.CountCheckedItems(1), 1);
    m_list.SetCheckbox(0, 1, 0);
    EXPECT_EQ(m_list.CountCheckedItems(1), 1);
    m_list.SetCheckbox(1, 1, -1);
    EXPECT_EQ(m_list.CountCheckedItems(1), 0);
}

TEST_F(CountCheckedItems, FollowsInsertionAndDeletionOfRows)
{
    AddRowsWithStates({1, 1, 0}, 0);
    m_list.InsertItem(0, L"in front");
    EXPECT_EQ(m_list.CountCheckedItems(0), 2);
    m_list.DeleteItem(1);
    EXPECT_EQ(m_list.CountCheckedItems(0), 1);
    m_list.DeleteItem(2);
    EXPECT_EQ(m_list.CountCheckedItems(0), 1);
    m_list.DeleteAllItems();
    EXPECT_EQ(m_list.CountCheckedItems(0), 0);
    AddRowsWithStates({1}, 0);
    EXPECT_EQ(m_list.CountCheckedItems(0), 1);
}

TEST_F(CountCheckedItems, FollowsDeletionPastTheClass)
{
    AddRowsWithStates({1, 1, 0, 1}, 1);
    EXPECT_TRUE(m_list.SendMessage(LVM_DELETEITEM, 1));
    EXPECT_EQ(m_list.CountCheckedItems(1), 2);
    EXPECT_TRUE(m_list.SendMessage(LVM_DELETEITEM, 1));
    EXPECT_EQ(m_list.CountCheckedItems(1), 2);
    EXPECT_TRUE(m_list.SendMessage(LVM_DELETEALLITEMS));
    EXPECT_EQ(m_list.CountCheckedItems(1), 0);
}

TEST_F(CountCheckedItems, FollowsClicks)
{
    AddRowsWithStates({0, 1}, 1);
    Click(Cell(0, 1).CenterPoint());
    EXPECT_EQ(m_list.CountCheckedItems(1), 2);
    Click(Cell(1, 1).CenterPoint());
    Click(Cell(0, 1).CenterPoint());
    EXPECT_EQ(m_list.CountCheckedItems(1), 0);
}

TEST_F(CountCheckedItems, PassesOverRowsWithoutRecords)
{
    AddPlainRow();
    AddRowsWithStates({1}, 1);
    AddPlainRow();
    EXPECT_EQ(m_list.CountCheckedItems(1), 1);
}

TEST_F(CountCheckedItems, IsZeroForAnEmptyListAndForColumnsOutOfRange)
{
    for (const int column : {0, 2})
        EXPECT_EQ(m_list.CountCheckedItems(column), 0) << column;
    AddRowsWithStates({1}, 0);
    for (const int column : {-1, 3, INT_MIN, INT_MAX})
        EXPECT_EQ(m_list.CountCheckedItems(column), 0) << column;
}

TEST_F(HeaderCheckedState, IsTheImageIndexOfTheHeadersItem)
{
    for (const int state : {1, 2, 0, 9}) {
        EXPECT_EQ(m_list.SetHeaderCheckedState(1, state), TRUE);
        EXPECT_THAT(HeaderImages(), ElementsAre(0, state, 0));
        EXPECT_EQ(m_list.GetHeaderCheckedState(1), state);
    }
}

TEST_F(HeaderCheckedState, IsReadFromTheHeadersItem)
{
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 0);
    SetHeaderImage(2, 2);
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 2);
    EXPECT_EQ(m_list.GetHeaderCheckedState(1), 0);
}

TEST_F(HeaderCheckedState, LeavesTheRestOfTheHeadersItem)
{
    wchar_t before[20] = L"";
    wchar_t after[20] = L"";
    HDITEM item = {};
    item.mask = HDI_TEXT | HDI_FORMAT | HDI_WIDTH;
    item.pszText = before;
    item.cchTextMax = 20;
    ASSERT_TRUE(m_list.m_HeaderCtrl.GetItem(1, &item));
    ASSERT_STREQ(before, L"Second");
    const int format = item.fmt;
    m_list.SetHeaderCheckedState(1, 2);
    item.pszText = after;
    ASSERT_TRUE(m_list.m_HeaderCtrl.GetItem(1, &item));
    EXPECT_STREQ(after, L"Second");
    EXPECT_EQ(item.fmt, format);
    EXPECT_EQ(item.cxy, 80);
}

TEST_F(HeaderCheckedState, IsRefusedForColumnsOutOfRange)
{
    for (const int column : {-1, 3, INT_MIN, INT_MAX}) {
        EXPECT_EQ(m_list.SetHeaderCheckedState(column, 2), FALSE) << column;
        EXPECT_EQ(m_list.GetHeaderCheckedState(column), -1) << column;
    }
    EXPECT_THAT(HeaderImages(), ElementsAre(0, 0, 0));
}

TEST_F(HeaderCheckedState, ChangesNoCell)
{
    AddRowsWithStates({0, 1}, 1);
    m_list.SetHeaderCheckedState(1, 2);
    EXPECT_EQ(m_list.GetCheckbox(0, 1), 0);
    EXPECT_EQ(m_list.GetCheckbox(1, 1), 1);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(HeaderOfCheckboxes, WithoutCheckBoxIsLeftAlone)
{
    AddRows(1);
    m_list.SetCheckbox(0, 1, 1);
    EXPECT_THAT(HeaderImages(), ElementsAre(0, 0, 0));
}

TEST_F(HeaderOfCheckboxes, IsCheckedWhenEveryRowIs)
{
    AddRowsWithStates({0, 1, 0}, 1);
    SetHeaderImage(1, 1);
    m_list.SetCheckbox(0, 1, 1);
    EXPECT_THAT(HeaderImages(), ElementsAre(0, 1, 0));
    m_list.SetCheckbox(2, 1, 1);
    EXPECT_THAT(HeaderImages(), ElementsAre(0, 2, 0));
}

TEST_F(HeaderOfCheckboxes, IsUncheckedWhenOneRowIsNot)
{
    AddRowsWithStates({1, 1}, 1);
    for (const int state : {0, -1, 2}) {
        SetHeaderImage(1, 2);
        m_list.SetCheckbox(1, 1, state);
        EXPECT_THAT(HeaderImages(), ElementsAre(0, 1, 0)) << state;
    }
}

TEST_F(HeaderOfCheckboxes, IsCheckedOrUncheckedWhateverOtherStateItHad)
{
    AddRowsWithStates({0, 1}, 1);
    SetHeaderImage(1, 5);
    m_list.SetCheckbox(0, 1, 0);
    EXPECT_EQ(HeaderImage(1), 1);
    SetHeaderImage(1, 5);
    m_list.SetCheckbox(0, 1, 1);
    EXPECT_EQ(HeaderImage(1), 2);
}

TEST_F(HeaderOfCheckboxes, CountsRowsWithoutCheckBoxAndWithoutRecordsAsUnchecked)
{
    AddRowsWithStates({0, -1}, 1);
    SetHeaderImage(1, 1);
    m_list.SetCheckbox(0, 1, 1);
    EXPECT_EQ(HeaderImage(1), 1);
    m_list.SetCheckbox(1, 1, 1);
    EXPECT_EQ(HeaderImage(1), 2);
    AddPlainRow();
    m_list.SetCheckbox(1, 1, 1);
    EXPECT_EQ(HeaderImage(1), 1);
}

TEST_F(HeaderOfCheckboxes, IsNotSetByInsertionOrDeletionOfRows)
{
    AddRowsWithStates({1, 0}, 1);
    SetHeaderImage(1, 1);
    m_list.DeleteItem(1);
    EXPECT_EQ(HeaderImage(1), 1);
    SetHeaderImage(1, 2);
    AddRows(1);
    EXPECT_EQ(HeaderImage(1), 2);
}

TEST_F(HeaderOfCheckboxes, IsNotSetByACallThatFails)
{
    AddRowsWithStates({1}, 1);
    SetHeaderImage(1, 5);
    EXPECT_EQ(m_list.SetCheckbox(1, 1, 1), FALSE);
    AddPlainRow();
    EXPECT_EQ(m_list.SetCheckbox(1, 1, 1), FALSE);
    EXPECT_EQ(HeaderImage(1), 5);
}

TEST_F(DeleteCheckedItems, DeletesTheRowsWhoseFirstStateIsNot0)
{
    AddRowsWithStates({-1, 0, 1}, 0);
    m_list.DeleteCheckedItems();
    EXPECT_THAT(FirstTexts(), ElementsAre(L"row 0"));
    EXPECT_EQ(m_list.GetCheckbox(0, 0), 0);
}

TEST_F(DeleteCheckedItems, DeletesEveryOtherStateToo)
{
    AddRowsWithStates({2, 0, -7, INT_MAX, 0, INT_MIN}, 0);
    m_list.SetItemData(1, 101);
    m_list.SetItemData(4, 104);
    m_list.DeleteCheckedItems();
    ASSERT_EQ(m_list.GetItemCount(), 2);
    EXPECT_EQ(m_list.GetItemData(0), 101u);
    EXPECT_EQ(m_list.GetItemData(1), 104u);
}

TEST_F(DeleteCheckedItems, LooksAtTheFirstColumnAlone)
{
    AddRowsWithStates({0, 0}, 0);
    m_list.SetCheckbox(0, 1, 1);
    m_list.SetCheckbox(1, 2, 1);
    m_list.DeleteCheckedItems();
    EXPECT_EQ(m_list.GetItemCount(), 2);
}

TEST_F(DeleteCheckedItems, DeletesNeighboursAndTheLastRow)
{
    for (DWORD row = 0; row < 40; ++row) {
        AddRowsWithStates({row % 4 == 1 ? 0 : 1}, 0);
        m_list.SetItemData(static_cast<int>(row), row);
    }
    m_list.DeleteCheckedItems();
    ASSERT_EQ(m_list.GetItemCount(), 10);
    for (DWORD row = 0; row < 10; ++row)
        EXPECT_EQ(m_list.GetItemData(static_cast<int>(row)), 4 * row + 1);
    EXPECT_EQ(m_list.CountCheckedItems(0), 0);
}

TEST_F(DeleteCheckedItems, LeavesRowsWithoutRecords)
{
    AddPlainRow();
    AddRowsWithStates({1, 1}, 0);
    AddPlainRow();
    m_list.DeleteCheckedItems();
    EXPECT_THAT(FirstTexts(), ElementsAre(L"plain", L"plain"));
}

TEST_F(DeleteCheckedItems, LeavesTheHeader)
{
    AddRowsWithStates({1, 0}, 0);
    SetHeaderImage(0, 2);
    m_list.DeleteCheckedItems();
    EXPECT_EQ(HeaderImage(0), 2);
}

TEST_F(DeleteCheckedItems, DoesNothingInAnEmptyList)
{
    m_list.DeleteCheckedItems();
    EXPECT_EQ(m_list.GetItemCount(), 0);
}
