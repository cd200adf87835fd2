// Cells with a progress bar: what their functions keep.
#include "CellState.h"
#include "ListTest.h"

#include <climits>

namespace
{

class ProgressCellTest : public ListTest
{
protected:
    void SetUp() override
    {
        ListTest::SetUp();
        AddRows(2);
    }

    static CellState Progress(int percent, const wchar_t* text, BOOL isTextShown = TRUE)
    {
        CellState state;
        state.bShowProgress = TRUE;
        state.nProgressPercent = percent;
        state.strProgressText = text;
        state.bShowProgressText = isTextShown;
        return state;
    }
    CellState State(int row, int column) { return StateOf(*m_list.Record(row, column)); }

    // Every other cell is as it was.
    void ExpectOthersUntouched()
    {
        for (const int row : {0, 1}) {
            for (const int column : {0, 1, 2}) {
                if (row != 0 || column != 1) {
                    EXPECT_EQ(State(row, column), CellState()) << row << ", " << column;
                }
            }
        }
    }
};

using SetProgress = ProgressCellTest;
using UpdateProgress = ProgressCellTest;
using DeleteProgress = ProgressCellTest;

} // namespace

TEST_F(SetProgress, StartsABarAtZero)
{
    EXPECT_EQ(m_list.SetProgress(0, 1, TRUE, L"%d done"), TRUE);
    EXPECT_EQ(State(0, 1), Progress(0, L"%d done"));
    ExpectOthersUntouched();
}

TEST_F(SetProgress, KeepsWhetherTheTextIsShownAsGiven)
{
    for (const BOOL isShown : {FALSE, 5, TRUE}) {
        EXPECT_EQ(m_list.SetProgress(0, 1, isShown, L"text"), TRUE);
        EXPECT_EQ(State(0, 1), Progress(0, L"text", isShown));
    }
}

TEST_F(SetProgress, StartsAgainFromZero)
{
    m_list.SetProgress(0, 1, FALSE, L"old");
    m_list.UpdateProgress(0, 1, 60);
    EXPECT_EQ(m_list.SetProgress(0, 1, TRUE, L""), TRUE);
    EXPECT_EQ(State(0, 1), Progress(0, L""));
}

TEST_F(SetProgress, TakesANullTextForAnEmptyOne)
{
    m_list.SetProgress(0, 1, TRUE, L"old");
    EXPECT_EQ(m_list.SetProgress(0, 1, TRUE, nullptr), TRUE);
    EXPECT_EQ(State(0, 1), Progress(0, L""));
}

TEST_F(SetProgress, LeavesTheCellsText)
{
    m_list.SetItemText(0, 1, L"text");
    m_list.SetProgress(0, 1, TRUE, L"on the bar");
    EXPECT_EQ(m_list.GetItemText(0, 1), L"text");
}

TEST_F(SetProgress, IsRefusedByARowWithoutRecords)
{
    m_list.CListCtrl::InsertItem(2, L"plain");
    EXPECT_EQ(m_list.SetProgress(2, 1, TRUE, L"text"), FALSE);
}

TEST_F(UpdateProgress, KeepsThePercentageWithoutLimits)
{
    m_list.SetProgress(0, 1, TRUE, L"text");
    for (const int percent : {50, 100, 0, 150, -5, INT_MAX, INT_MIN}) {
        m_list.UpdateProgress(0, 1, percent);
        EXPECT_EQ(State(0, 1), Progress(percent, L"text"));
    }
    ExpectOthersUntouched();
}

TEST_F(UpdateProgress, MakesNoBarOfAPlainCell)
{
    m_list.UpdateProgress(0, 1, 40);
    CellState expected;
    expected.nProgressPercent = 40;
    EXPECT_EQ(State(0, 1), expected);
    ExpectOthersUntouched();
}

TEST_F(UpdateProgress, DoesNothingInARowWithoutRecords)
{
    m_list.CListCtrl::InsertItem(2, L"plain");
    m_list.UpdateProgress(2, 1, 40);
    EXPECT_EQ(m_list.CListCtrl::GetItemData(2), 0u);
    ExpectOthersUntouched();
}

TEST_F(DeleteProgress, TakesAwayBarAndPercentageAlone)
{
    m_list.SetProgress(0, 1, FALSE, L"text");
    m_list.UpdateProgress(0, 1, 40);
    m_list.DeleteProgress(0, 1);
    CellState expected = Progress(0, L"text", FALSE);
    expected.bShowProgress = FALSE;
    EXPECT_EQ(State(0, 1), expected);
    ExpectOthersUntouched();
}

TEST_F(DeleteProgress, LeavesThePlainCellsOthers)
{
    m_list.SetBold(0, 1, TRUE);
    m_list.DeleteProgress(0, 1);
    CellState expected;
    expected.bBold = TRUE;
    EXPECT_EQ(State(0, 1), expected);
}

TEST_F(DeleteProgress, DoesNothingInARowWithoutRecords)
{
    m_list.CListCtrl::InsertItem(2, L"plain");
    m_list.DeleteProgress(2, 1);
    EXPECT_EQ(m_list.CListCtrl::GetItemData(2), 0u);
    ExpectOthersUntouched();
}
