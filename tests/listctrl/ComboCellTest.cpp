// Cells with a drop-down: what SetComboBox keeps and which choice becomes the text.
#include "CellState.h"
#include "ListTest.h"

#include <climits>

namespace
{

class ComboCellTest : public ListTest
{
protected:
    void SetUp() override
    {
        ListTest::SetUp();
        for (const wchar_t* choice : {L"zero", L"one", L"two"})
            m_choices.Add(choice);
        AddRows(2);
    }
    // The list goes before the choices that its cells point to.
    void TearDown() override
    {
        ListTest::TearDown();
        m_choices.RemoveAll();
    }

    CellState Combo(int height, int initial)
    {
        CellState state;
        state.bCombo = TRUE;
        state.pComboStrings = &m_choices;
        state.nComboListHeight = height;
        state.nComboInitialSel = initial;
        return state;
    }
    CellState State(int row, int column) { return StateOf(*m_list.Record(row, column)); }
    CString Text(int row, int column) { return m_list.GetItemText(row, column); }

    CStringArray m_choices;
};

using SetComboBox = ComboCellTest;
using GetComboText = ComboCellTest;

} // namespace

TEST_F(SetComboBox, KeepsChoicesHeightAndSelectionOfOneCell)
{
    EXPECT_EQ(m_list.SetComboBox(0, 1, TRUE, &m_choices, 6, 2), TRUE);
    EXPECT_EQ(State(0, 1), Combo(6, 2));
    EXPECT_EQ(State(0, 0), CellState());
    EXPECT_EQ(State(0, 2), CellState());
    EXPECT_EQ(State(1, 1), CellState());
}

TEST_F(SetComboBox, MakesTheSelectedChoiceTheText)
{
    for (int selection = 0; selection < 3; ++selection) {
        EXPECT_EQ(m_list.SetComboBox(0, 1, TRUE, &m_choices, 10, selection), TRUE);
        EXPECT_EQ(Text(0, 1), m_choices[selection]);
        EXPECT_EQ(State(0, 1), Combo(10, selection));
    }
    EXPECT_EQ(Text(0, 0), L"row 0");
}

TEST_F(SetComboBox, TakesTheFirstChoiceForASelectionOutOfRange)
{
    for (const int selection : {99, 3, -1, INT_MIN, INT_MAX}) {
        m_list.SetItemText(0, 1, L"before");
        EXPECT_EQ(m_list.SetComboBox(0, 1, TRUE, &m_choices, 10, selection), TRUE);
        EXPECT_EQ(Text(0, 1), L"zero") << selection;
        EXPECT_EQ(State(0, 1), Combo(10, 0)) << selection;
    }
}

TEST_F(SetComboBox, LeavesTheTextWhereThereAreNoChoices)
{
    m_choices.RemoveAll();
    m_list.SetItemText(0, 1, L"before");
    for (const int selection : {0, 2, -1}) {
        EXPECT_EQ(m_list.SetComboBox(0, 1, TRUE, &m_choices, 10, selection), TRUE);
        EXPECT_EQ(State(0, 1), Combo(10, 0)) << selection;
    }
    EXPECT_EQ(Text(0, 1), L"before");
}

TEST_F(SetComboBox, MakesAnEmptyChoiceTheText)
{
    m_choices[1].Empty();
    m_list.SetItemText(0, 1, L"before");
    EXPECT_EQ(m_list.SetComboBox(0, 1, TRUE, &m_choices, 10, 1), TRUE);
    EXPECT_EQ(Text(0, 1), L"");
}

TEST_F(SetComboBox, KeepsHeightAndSwitchAsTheyAreGiven)
{
    for (const int height : {0, -3, INT_MAX}) {
        EXPECT_EQ(m_list.SetComboBox(0, 1, 5, &m_choices, height, 0), TRUE);
        CellState expected = Combo(height, 0);
        expected.bCombo = 5;
        EXPECT_EQ(State(0, 1), expected);
    }
}

TEST_F(SetComboBox, SwitchedOffLeavesAllElse)
{
    CStringArray others;
    others.Add(L"other");
    ASSERT_TRUE(m_list.SetComboBox(0, 1, TRUE, &m_choices, 6, 2));
    EXPECT_EQ(m_list.SetComboBox(0, 1, FALSE, &others, 3, 0), TRUE);
    CellState expected = Combo(6, 2);
    expected.bCombo = FALSE;
    EXPECT_EQ(State(0, 1), expected);
    EXPECT_EQ(Text(0, 1), L"two");
}

TEST_F(SetComboBox, SwitchedOffInAPlainCellKeepsItsDefaults)
{
    m_list.SetItemText(0, 1, L"before");
    EXPECT_EQ(m_list.SetComboBox(0, 1, FALSE, &m_choices, 3, 1), TRUE);
    EXPECT_EQ(State(0, 1), CellState());
    EXPECT_EQ(Text(0, 1), L"before");
}

TEST_F(SetComboBox, IsRefusedWithoutAnArray)
{
    ASSERT_TRUE(m_list.SetComboBox(0, 1, TRUE, &m_choices, 6, 2));
    EXPECT_EQ(m_list.SetComboBox(0, 1, TRUE, nullptr, 3, 0), FALSE);
    EXPECT_EQ(m_list.SetComboBox(0, 1, FALSE, nullptr, 3, 0), FALSE);
    EXPECT_EQ(State(0, 1), Combo(6, 2));
    EXPECT_EQ(Text(0, 1), L"two");
}

TEST_F(SetComboBox, IsRefusedByARowWithoutRecords)
{
    m_list.CListCtrl::InsertItem(2, L"plain");
    EXPECT_EQ(m_list.SetComboBox(2, 0, TRUE, &m_choices, 3, 1), FALSE);
    EXPECT_EQ(m_list.SetComboBox(2, 0, FALSE, &m_choices, 3, 1), FALSE);
    EXPECT_EQ(Text(2, 0), L"plain");
}

TEST_F(SetComboBox, LeavesTheArrayAlone)
{
    ASSERT_TRUE(m_list.SetComboBox(0, 1, TRUE, &m_choices, 6, 2));
    m_list.DeleteItem(0);
    ASSERT_EQ(m_choices.GetSize(), 3);
    EXPECT_EQ(m_choices[2], L"two");
}

TEST_F(SetComboBox, KeepsTheTextWhenTheArrayChangesLater)
{
    ASSERT_TRUE(m_list.SetComboBox(0, 1, TRUE, &m_choices, 6, 2));
    m_choices[2] = L"changed";
    m_list.UpdateSubItem(0, 1);
    EXPECT_EQ(Text(0, 1), L"two");
}

TEST_F(SetComboBox, LetsCellsShareAnArray)
{
    ASSERT_TRUE(m_list.SetComboBox(0, 1, TRUE, &m_choices, 6, 1));
    ASSERT_TRUE(m_list.SetComboBox(1, 2, TRUE, &m_choices, 7, 2));
    EXPECT_EQ(State(0, 1), Combo(6, 1));
    EXPECT_EQ(State(1, 2), Combo(7, 2));
}

TEST_F(GetComboText, IsTheCellsTextWhateverTheCellIs)
{
    ASSERT_TRUE(m_list.SetComboBox(0, 1, TRUE, &m_choices, 10, 1));
    EXPECT_EQ(m_list.GetComboText(0, 1), L"one");
    m_list.SetItemText(0, 1, L"no choice at all");
    EXPECT_EQ(m_list.GetComboText(0, 1), L"no choice at all");
    EXPECT_EQ(m_list.GetComboText(0, 0), L"row 0");
    EXPECT_EQ(m_list.GetComboText(0, 2), L"");
}

TEST_F(GetComboText, IsThereForARowWithoutRecords)
{
    m_list.CListCtrl::InsertItem(2, L"plain");
    EXPECT_EQ(m_list.GetComboText(2, 0), L"plain");
}

TEST_F(GetComboText, IsWholeHoweverLong)
{
    const CString text(L'x', 5000);
    m_list.SetItemText(0, 1, text);
    EXPECT_EQ(m_list.GetComboText(0, 1), text);
}
