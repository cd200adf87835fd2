// The press of the left button: which row and cell it is for, and what it does there.
#include "InputTest.h"

namespace
{

using PressBesideRows = InputTest;
using SwallowedPress = InputTest;
using PressWithoutCell = InputTest;
using PlainPress = InputTest;
using CheckboxPress = InputTest;

} // namespace

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(PressBesideRows, IsPassedOnInAnEmptyList)
{
    EXPECT_TRUE(PressIsPassedOn(CPoint(20, 100)));
}

TEST_F(PressBesideRows, IsPassedOnBelowTheLastRow)
{
    AddRows(2);
    m_list.SetCheckbox(1, 0, 0);
    m_list.SetCurSel(0);
    EXPECT_TRUE(PressIsPassedOn(BelowRows()));
    EXPECT_FALSE(IsSelected(0)) << "by the list view";
    EXPECT_EQ(m_list.GetCheckbox(1, 0), 0);
}

TEST_F(PressBesideRows, IsPassedOnRightOfTheLastColumn)
{
    AddRows(2);
    m_list.SetCheckbox(1, 2, 0);
    EXPECT_TRUE(PressIsPassedOn(BesideRow(1)));
    EXPECT_EQ(m_list.GetCheckbox(1, 2), 0);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(PressBesideRows, ClosesAnOpenListAsEscapeDoes)
{
    AddRows(2);
    for (const CPoint& point : {BelowRows(), BesideRow(0)}) {
        OpenCombo(0, 1);
        m_list.SetItemText(0, 1, L"changed");
        EXPECT_TRUE(PressIsPassedOn(point));
        EXPECT_EQ(Text(0, 1), L"zero");
        EXPECT_FALSE(StopTimer(1));
        EXPECT_NE(m_list.m_pCombo, nullptr) << "until the timer";
        Tick(2);
        EXPECT_EQ(m_list.m_pCombo, nullptr);
        m_list.UnpressComboButton();
    }
}

TEST_F(PressBesideRows, ClosesAnOpenListWhoseRowsAreGone)
{
    AddRows(1);
    OpenCombo(0, 1);
    m_list.DeleteAllItems();
    EXPECT_TRUE(PressIsPassedOn(CPoint(20, 100)));
    EXPECT_TRUE(StopTimer(2));
    EXPECT_NE(m_list.m_pCombo, nullptr);
}

TEST_F(PressBesideRows, StartsNoTimerWithoutAnOpenList)
{
    AddRows(1);
    m_list.SetItemText(0, 0, L"text");
    for (const CPoint& point : {BelowRows(), BesideRow(0)})
        Press(point);
    EXPECT_FALSE(StopTimer(2));
    EXPECT_EQ(Text(0, 0), L"text");
}

TEST_F(SwallowedPress, InADisabledRowChangesNothing)
{
    AddRows(2);
    m_list.SetCheckbox(1, 0, 0);
    MakeCombo(1, 1);
    m_list.SetEnabled(1, FALSE);
    m_list.SetCurSel(0);
    for (const CPoint& point : {Middle(1, 0), Button(1, 1), Middle(1, 2)})
        EXPECT_FALSE(PressIsPassedOn(point));
    EXPECT_TRUE(IsSelected(0));
    EXPECT_FALSE(IsSelected(1));
    EXPECT_EQ(m_list.GetCheckbox(1, 0), 0);
    EXPECT_EQ(m_list.m_bComboButtonHeld, FALSE);
    EXPECT_FALSE(StopTimer(1));
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(SwallowedPress, IsTakenAgainOnceTheRowIsEnabled)
{
    AddRows(1);
    m_list.SetCheckbox(0, 1, 0);
    m_list.SetEnabled(0, FALSE);
    Press(Middle(0, 1));
    m_list.SetEnabled(0, TRUE);
    EXPECT_TRUE(PressIsPassedOn(Middle(0, 1)));
    EXPECT_EQ(m_list.GetCheckbox(0, 1), 1);
    EXPECT_TRUE(IsSelected(0));
}

TEST_F(SwallowedPress, IsEnabledByTheFirstColumnAlone)
{
    AddRows(1);
    m_list.SetCheckbox(0, 1, 0);
    m_list.Record(0, 1)->bEnabled = FALSE;
    EXPECT_TRUE(PressIsPassedOn(Middle(0, 1)));
    EXPECT_EQ(m_list.GetCheckbox(0, 1), 1);
}

TEST_F(SwallowedPress, InARowWithoutRecordsChangesNothing)
{
    AddRows(1);
    AddPlainRow();
    m_list.SetCurSel(0);
    for (const int column : {0, 1, 2})
        EXPECT_FALSE(PressIsPassedOn(Middle(1, column)));
    EXPECT_TRUE(IsSelected(0));
    EXPECT_FALSE(IsSelected(1));
}

TEST_F(SwallowedPress, LeavesAnOpenListOpen)
{
    AddRows(2);
    AddPlainRow();
    m_list.SetEnabled(1, FALSE);
    OpenCombo(0, 1);
    m_list.SetItemText(0, 1, L"changed");
    for (const int row : {1, 2})
        Press(Middle(row, 2));
    EXPECT_FALSE(StopTimer(2));
    EXPECT_TRUE(StopTimer(1));
    EXPECT_NE(m_list.m_pCombo, nullptr);
    EXPECT_EQ(Text(0, 1), L"changed");
}

// The first column, moved behind the second, has no room of its own.
TEST_F(PressWithoutCell, IsPassedOnAndClosesAnOpenList)
{
    AddRows(2);
    m_list.SetCheckbox(1, 0, 0);
    OpenCombo(0, 2);
    m_list.SetItemText(0, 2, L"changed");
    MoveColumns({1, 0, 2});
    ASSERT_EQ(Cell(1, 0).Width(), 0);
    ASSERT_EQ(Cell(1, 1).right, 80);
    ASSERT_EQ(Cell(1, 2).left, 180);
    EXPECT_TRUE(PressIsPassedOn(CPoint(130, Middle(1, 1).y)));
    EXPECT_EQ(m_list.GetCheckbox(1, 0), 0);
    EXPECT_TRUE(IsSelected(1)) << "by the list view";
    EXPECT_TRUE(StopTimer(2));
    EXPECT_EQ(Text(0, 2), L"zero");
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(PlainPress, IsPassedOnAndSelectsTheRow)
{
    AddRows(3);
    m_list.SetCurSel(0);
    for (const int column : {0, 1, 2}) {
        EXPECT_TRUE(PressIsPassedOn(Middle(2 - column % 2, column)));
        EXPECT_TRUE(IsSelected(2 - column % 2)) << column;
    }
    EXPECT_FALSE(IsSelected(0));
    EXPECT_FALSE(StopTimer(1));
    EXPECT_FALSE(StopTimer(2));
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(PlainPress, ClosesAnOpenListAsEscapeDoes)
{
    AddRows(2);
    OpenCombo(0, 1);
    m_list.SetItemText(0, 1, L"changed");
    EXPECT_TRUE(PressIsPassedOn(Middle(1, 0)));
    EXPECT_EQ(Text(0, 1), L"zero");
    EXPECT_FALSE(StopTimer(1));
    EXPECT_NE(m_list.m_pCombo, nullptr);
    Tick(2);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(PlainPress, IsOneInAColumnThatTheRowHasNoRecordFor)
{
    AddRows(2);
    m_list.InsertColumn(3, L"Fourth", LVCFMT_LEFT, 40);
    OpenCombo(0, 1);
    EXPECT_TRUE(PressIsPassedOn(Middle(1, 3)));
    EXPECT_TRUE(IsSelected(1));
    EXPECT_TRUE(StopTimer(2));
}

TEST_F(PlainPress, IsOneInAProgressCellAndInAComboSwitchedOff)
{
    AddRows(1);
    m_list.SetProgress(0, 1, TRUE, L"");
    MakeCombo(0, 2);
    m_list.SetComboBox(0, 2, FALSE, &m_choices, 5, 0);
    EXPECT_TRUE(PressIsPassedOn(Middle(0, 1)));
    EXPECT_TRUE(PressIsPassedOn(Button(0, 2)));
    EXPECT_EQ(m_list.m_bComboButtonHeld, FALSE);
    EXPECT_FALSE(StopTimer(1));
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(CheckboxPress, TogglesWhereverInTheCellItLands)
{
    AddRows(3);
    m_list.SetItemText(1, 1, L"a text beside the box");
    m_list.SetCheckbox(1, 1, 0);
    const CRect cell = Cell(1, 1);
    int expected = 0;
    for (const CPoint& point : {cell.TopLeft(), CPoint(cell.right - 1, cell.bottom - 1), cell.CenterPoint(),
                                CPoint(cell.left, cell.bottom - 1), CPoint(cell.right - 1, cell.top)})
    {
        Press(point);
        expected = 1 - expected;
        EXPECT_EQ(m_list.GetCheckbox(1, 1), expected) << point.x << ", " << point.y;
    }
}

TEST_F(CheckboxPress, OfANeighbourDoesNotToggle)
{
    AddRows(3);
    m_list.SetCheckbox(1, 1, 0);
    const CRect cell = Cell(1, 1);
    for (const CPoint& point : {CPoint(cell.left - 1, cell.top), CPoint(cell.right, cell.top),
                                CPoint(cell.left, cell.top - 1), CPoint(cell.left, cell.bottom)})
        Press(point);
    EXPECT_EQ(m_list.GetCheckbox(1, 1), 0);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(CheckboxPress, ChecksWhatIsZeroAndClearsEveryHigherState)
{
    AddRows(1);
    for (const auto& [before, after] : std::vector<std::pair<int, int>>{{0, 1}, {1, 0}, {2, 0}, {99, 0}}) {
        m_list.SetCheckbox(0, 1, before);
        Press(Middle(0, 1));
        EXPECT_EQ(m_list.GetCheckbox(0, 1), after) << before;
    }
}

TEST_F(CheckboxPress, LeavesStatesBelowZeroAlone)
{
    AddRows(1);
    for (const int state : {-1, -7}) {
        m_list.SetCheckbox(0, 1, state);
        EXPECT_TRUE(PressIsPassedOn(Middle(0, 1)));
        EXPECT_EQ(m_list.GetCheckbox(0, 1), state);
    }
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(CheckboxPress, TellsTheParentRowAndColumnOnce)
{
    AddRows(3);
    const std::vector<std::pair<int, int>> cells{{0, 0}, {2, 1}, {1, 2}};
    for (const auto& [row, column] : cells)
        m_list.SetCheckbox(row, column, 1);
    std::vector<ParentMessage> expected;
    for (const auto& [row, column] : cells) {
        Press(Middle(row, column));
        expected.push_back({WM_XLISTCTRL_CHECKBOX_CLICKED, static_cast<WPARAM>(row), column});
        EXPECT_EQ(m_parent.messages, expected);
        EXPECT_EQ(m_list.GetCheckbox(row, column), 0);
    }
}

TEST_F(CheckboxPress, IsTakenByTheRowUnderItInAScrolledList)
{
    AddRows(200);
    for (int row = 0; row < 200; ++row)
        m_list.SetCheckbox(row, 1, 0);
    m_list.EnsureVisible(199, FALSE);
    ASSERT_GT(m_list.GetTopIndex(), 100);
    Press(Middle(198, 1));
    EXPECT_EQ(m_list.GetCheckbox(198, 1), 1);
    EXPECT_EQ(m_list.CountCheckedItems(1), 1);
    EXPECT_THAT(m_parent.messages, ElementsAre(ParentMessage{WM_XLISTCTRL_CHECKBOX_CLICKED, 198, 1}));
}

// The first column reaches to the second, wherever that stands, and is asked first.
TEST_F(CheckboxPress, IsTakenByTheFirstColumnThatHasThePointAfterColumnsMoved)
{
    AddRows(1);
    for (const int column : {0, 1, 2})
        m_list.SetCheckbox(0, column, 0);
    MoveColumns({0, 2, 1});
    ASSERT_EQ(Cell(0, 1).left, 160);
    Press(CPoint(130, Middle(0, 0).y));
    EXPECT_EQ(m_list.GetCheckbox(0, 0), 1);
    Press(CPoint(165, Middle(0, 0).y));
    EXPECT_EQ(m_list.GetCheckbox(0, 1), 1);
    EXPECT_EQ(m_list.GetCheckbox(0, 2), 0);
}

TEST_F(CheckboxPress, IsPassedOnAndSelectsTheRow)
{
    AddRows(2);
    m_list.SetCheckbox(1, 1, 0);
    EXPECT_TRUE(PressIsPassedOn(Middle(1, 1)));
    EXPECT_TRUE(IsSelected(1));
}

TEST_F(CheckboxPress, TellsTheParentAfterStateAndDrawingAndBeforeHeaderAndSelection)
{
    AddRows(2);
    m_list.SetCheckbox(0, 1, 1);
    m_list.SetCheckbox(1, 1, 0);
    m_list.SetHeaderCheckedState(1, 1);
    m_list.UpdateWindow();
    ASSERT_EQ(BlackPixels(1, 1), 0);
    int calls = 0;
    React([&] {
        ++calls;
        EXPECT_EQ(m_list.GetCheckbox(1, 1), 1);
        EXPECT_FALSE(m_list.GetUpdateRect(nullptr));
        EXPECT_GT(BlackPixels(1, 1), 0);
        EXPECT_EQ(m_list.GetHeaderCheckedState(1), 1);
        EXPECT_FALSE(IsSelected(1));
        EXPECT_EQ(::GetFocus(), m_parent.m_hWnd);
    });
    EXPECT_TRUE(PressIsPassedOn(Middle(1, 1)));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(m_list.GetHeaderCheckedState(1), 2);
    EXPECT_TRUE(IsSelected(1));
}

TEST_F(CheckboxPress, ChecksTheHeaderWhenAllRowsAreAndElseClearsIt)
{
    AddRows(2);
    m_list.SetCheckbox(0, 1, 1);
    m_list.SetCheckbox(1, 1, 0);
    for (const int before : {1, 2, 5}) {
        m_list.SetHeaderCheckedState(1, before);
        Press(Middle(1, 1));
        EXPECT_EQ(m_list.GetHeaderCheckedState(1), 2) << before;
        m_list.SetHeaderCheckedState(1, before);
        Press(Middle(1, 1));
        EXPECT_EQ(m_list.GetHeaderCheckedState(1), 1) << before;
    }
    EXPECT_EQ(m_list.GetHeaderCheckedState(0), 0);
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 0);
}

TEST_F(CheckboxPress, LeavesAHeaderWithoutCheckBoxAlone)
{
    AddRows(1);
    m_list.SetCheckbox(0, 1, 0);
    Press(Middle(0, 1));
    EXPECT_EQ(m_list.GetHeaderCheckedState(1), 0);
}

TEST_F(CheckboxPress, LeavesAnOpenListOpen)
{
    AddRows(2);
    m_list.SetCheckbox(1, 2, 0);
    OpenCombo(0, 1);
    m_list.SetItemText(0, 1, L"changed");
    Press(Middle(1, 2));
    EXPECT_EQ(m_list.GetCheckbox(1, 2), 1);
    EXPECT_NE(m_list.m_pCombo, nullptr);
    EXPECT_FALSE(StopTimer(2));
    EXPECT_TRUE(StopTimer(1));
    EXPECT_EQ(Text(0, 1), L"changed");
}

TEST_F(CheckboxPress, GoesBeforeTheDropButton)
{
    AddRows(1);
    MakeCombo(0, 1);
    m_list.SetCheckbox(0, 1, 0);
    Press(Button(0, 1));
    EXPECT_EQ(m_list.GetCheckbox(0, 1), 1);
    EXPECT_EQ(m_list.m_bComboButtonHeld, FALSE);
    EXPECT_FALSE(StopTimer(1));
}
