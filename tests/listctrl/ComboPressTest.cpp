// The press of the left button in a combo cell.
#include "InputTest.h"

namespace
{

using ComboPress = InputTest;
using ComboPressFarDown = InputTest;
using ComboPressWithOpenList = InputTest;

} // namespace

using testing::IsEmpty;

TEST_F(ComboPress, BesideTheButtonZoneIsOnlyPassedOn)
{
    AddRows(2);
    MakeCombo(1, 1);
    m_list.m_nComboItem = 0;
    m_list.m_nComboSubItem = 2;
    EXPECT_TRUE(PressIsPassedOn(BesideButton(1, 1)));
    EXPECT_TRUE(IsSelected(1));
    EXPECT_EQ(m_list.Record(1, 1)->bComboButtonDown, FALSE);
    EXPECT_EQ(m_list.m_bComboButtonHeld, FALSE);
    EXPECT_EQ(m_list.m_nComboItem, 0);
    EXPECT_EQ(m_list.m_nComboSubItem, 2);
    EXPECT_FALSE(StopTimer(1));
    m_list.UpdateWindow();
    EXPECT_EQ(m_list.m_pCombo, nullptr);
}

// As wide as the cell is high, at its right end.
TEST_F(ComboPress, ButtonZoneIsASquareAtTheRightEnd)
{
    AddRows(2);
    MakeCombo(1, 1);
    const CRect cell = Cell(1, 1);
    for (const CPoint& point :
         {CPoint(cell.right - cell.Height(), cell.top), CPoint(cell.right - 1, cell.top),
          CPoint(cell.right - cell.Height(), cell.bottom - 1), CPoint(cell.right - 1, cell.bottom - 1)})
    {
        m_list.m_bComboButtonHeld = FALSE;
        Press(point);
        EXPECT_EQ(m_list.m_bComboButtonHeld, TRUE) << point.x << ", " << point.y;
        EXPECT_TRUE(StopTimer(1)) << point.x << ", " << point.y;
    }
}

TEST_F(ComboPress, OnTheButtonPressesItAndStartsItsTimer)
{
    AddRows(3);
    MakeCombo(2, 1);
    EXPECT_TRUE(PressIsPassedOn(Button(2, 1)));
    EXPECT_TRUE(IsSelected(2));
    EXPECT_EQ(m_list.Record(2, 1)->bComboButtonDown, TRUE);
    EXPECT_EQ(m_list.m_bComboButtonHeld, TRUE);
    EXPECT_EQ(m_list.m_nComboItem, 2);
    EXPECT_EQ(m_list.m_nComboSubItem, 1);
    EXPECT_TRUE(StopTimer(1));
    for (const UINT_PTR timer : {2, 3, 4})
        EXPECT_FALSE(StopTimer(timer)) << timer;
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(ComboPress, OnTheButtonOpensTheListWhenTheSelectedRowIsDrawn)
{
    AddRows(2);
    MakeCombo(1, 1);
    m_list.SetCurSel(0);
    Press(Button(1, 1));
    m_list.UpdateWindow();
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_TRUE(::IsWindowVisible(m_list.m_pCombo->m_hWnd));
}

TEST_F(ComboPress, OnTheButtonOfTheSelectedRowDrawsItAtOnce)
{
    AddRows(2);
    MakeCombo(1, 1);
    m_list.SetCurSel(1);
    m_list.UpdateWindow();
    ASSERT_EQ(m_list.m_pCombo, nullptr);
    Press(Button(1, 1));
    EXPECT_NE(m_list.m_pCombo, nullptr);
}

TEST_F(ComboPress, WorksInEveryColumn)
{
    AddRows(2);
    for (const int column : {0, 1, 2}) {
        MakeCombo(1, column);
        m_list.UnpressComboButton();
        Press(Button(1, column));
        EXPECT_EQ(m_list.m_bComboButtonHeld, TRUE) << column;
        EXPECT_EQ(m_list.m_nComboSubItem, column);
    }
}

// The vertical coordinate is held against the right edge: so the button answers down to that number of
// pixels.
TEST_F(ComboPressFarDown, AnswersWhereTheOrdinateIsTheRightEdge)
{
    AddRows(3);
    const int right = Cell(1, 0).top + 2;
    m_list.SetColumnWidth(0, right);
    ASSERT_EQ(Cell(1, 0).right, right);
    MakeCombo(1, 0);
    Press(CPoint(right - 1, right));
    EXPECT_EQ(m_list.m_bComboButtonHeld, TRUE);
    EXPECT_TRUE(StopTimer(1));
}

TEST_F(ComboPressFarDown, DoesNotAnswerOnePixelFurther)
{
    AddRows(3);
    const int right = Cell(1, 0).top + 2;
    m_list.SetColumnWidth(0, right);
    ASSERT_EQ(Cell(1, 0).right, right);
    MakeCombo(1, 0);
    EXPECT_TRUE(PressIsPassedOn(CPoint(right - 1, right + 1)));
    EXPECT_TRUE(IsSelected(1));
    EXPECT_EQ(m_list.m_bComboButtonHeld, FALSE);
    EXPECT_EQ(m_list.Record(1, 0)->bComboButtonDown, FALSE);
    EXPECT_FALSE(StopTimer(1));
}

TEST_F(ComboPressWithOpenList, DestroysItAtOnceAndKeepsTheText)
{
    AddRows(3);
    MakeCombo(1, 2);
    for (const CPoint& point : {BesideButton(1, 2), Button(1, 2)}) {
        OpenCombo(0, 1);
        m_list.SetItemText(0, 1, L"changed");
        m_list.UnpressComboButton();
        const HWND window = m_list.m_pCombo->m_hWnd;
        Press(point);
        EXPECT_FALSE(::IsWindow(window));
        EXPECT_EQ(Text(0, 1), L"changed");
        EXPECT_FALSE(StopTimer(2));
        EXPECT_FALSE(StopTimer(3));
    }
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(ComboPressWithOpenList, BesideTheButtonLeavesNoList)
{
    AddRows(2);
    MakeCombo(1, 2);
    OpenCombo(0, 1);
    m_list.UnpressComboButton();
    Press(BesideButton(1, 2));
    m_list.UpdateWindow();
    EXPECT_EQ(m_list.m_pCombo, nullptr);
}

TEST_F(ComboPressWithOpenList, OnTheButtonOfAnotherCellOpensThatOne)
{
    AddRows(2);
    m_choices.Add(L"three");
    MakeCombo(1, 2, 5, 3);
    OpenCombo(0, 1);
    m_list.UnpressComboButton();
    Press(Button(1, 2));
    m_list.UpdateWindow();
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_EQ(m_list.m_nComboItem, 1);
    EXPECT_EQ(m_list.m_nComboSubItem, 2);
    EXPECT_EQ(m_list.m_pCombo->GetCurSel(), 3);
}

TEST_F(ComboPressWithOpenList, OnItsOwnButtonOpensANewOne)
{
    AddRows(1);
    OpenCombo(0, 1);
    m_list.SetItemText(0, 1, L"two");
    m_list.UnpressComboButton();
    const HWND first = m_list.m_pCombo->m_hWnd;
    Press(Button(0, 1));
    m_list.UpdateWindow();
    ASSERT_NE(m_list.m_pCombo, nullptr);
    EXPECT_FALSE(::IsWindow(first));
    EXPECT_EQ(m_list.m_pCombo->GetCurSel(), 2) << "by the text of now";
}
