// Parents that destroy the list's window or delete its object in the middle of a call: the call ends well and
// touches neither. Blocks that are gone lie on pages that are gone.
#include "SurvivalGround.h"

namespace
{

using SurvivedText = SurvivalTest;
using SurvivedRow = SurvivalTest;
using SurvivedPaint = SurvivalTest;
using SurvivedFocus = SurvivalTest;
using SurvivedMessage = SurvivalTest;

constexpr auto NameOf = [](const testing::TestParamInfo<Loss>& loss) {
    return std::string(loss.param == Loss::Window ? "WindowDestroyed" : "ObjectDeleted");
};
const auto Losses = testing::Values(Loss::Window, Loss::Object);

INSTANTIATE_TEST_SUITE_P(By, SurvivedText, Losses, NameOf);
INSTANTIATE_TEST_SUITE_P(By, SurvivedRow, Losses, NameOf);
INSTANTIATE_TEST_SUITE_P(By, SurvivedPaint, Losses, NameOf);
INSTANTIATE_TEST_SUITE_P(By, SurvivedFocus, Losses, NameOf);
INSTANTIATE_TEST_SUITE_P(By, SurvivedMessage, Losses, NameOf);

wchar_t g_text[] = L"given";

LVITEM TextItem(int row)
{
    LVITEM item = {};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.pszText = g_text;
    return item;
}

const auto IsActivation = [](UINT message, WPARAM wParam, LPARAM) {
    return message == WM_ACTIVATE && LOWORD(wParam) == WA_INACTIVE;
};
const auto IsFocus = [](UINT message, WPARAM, LPARAM) { return message == WM_SETFOCUS; };
const auto IsLostFocus = [](UINT message, WPARAM, LPARAM) { return message == WM_KILLFOCUS; };

} // namespace

TEST_P(SurvivedText, OfSetItemText)
{
    TakeAfter(LVM_SETITEMTEXT);
    List().SetItemText(1, 0, L"text");
    ExpectSurvived();
}

TEST_P(SurvivedText, OfSetItemTextWithColors)
{
    TakeAfter(LVM_SETITEMTEXT);
    List().SetItemText(1, 0, L"text", RGB(1, 2, 3), RGB(4, 5, 6));
    ExpectSurvived();
}

TEST_P(SurvivedText, OfSetItem)
{
    const LVITEM item = TextItem(1);
    TakeAfter(LVM_SETITEM);
    EXPECT_FALSE(List().SetItem(&item));
    ExpectSurvived();
}

TEST_P(SurvivedText, OfSetComboBox)
{
    TakeAfter(LVM_SETITEMTEXT);
    List().SetComboBox(1, 0, TRUE, &m_choices, 5, 1);
    ExpectSurvived();
}

TEST_P(SurvivedText, OfEscapeInTheDropDown)
{
    OpenDropDown(1, 0);
    TakeAfter(LVM_SETITEMTEXT);
    Send(WM_XCOMBOLIST_VK_ESCAPE);
    ExpectSurvived();
}

TEST_P(SurvivedText, OfAPressBesideTheRowsThatClosesTheDropDown)
{
    OpenDropDown(1, 0);
    TakeAfter(LVM_SETITEMTEXT);
    PressAt(CPoint(20, 200));
    ExpectSurvived();
}

TEST_P(SurvivedText, OfAPressOnAPlainCellThatClosesTheDropDown)
{
    OpenDropDown(1, 0);
    TakeAfter(LVM_SETITEMTEXT);
    PressAt(MiddleOf(2, 1));
    ExpectSurvived();
}

TEST_P(SurvivedText, OfTheCommittedChoice)
{
    OpenDropDown(1, 0);
    TakeAfter(LVM_SETITEMTEXT);
    Send(WM_TIMER, 3);
    ExpectSurvived();
    EXPECT_THAT(m_parent.messages, testing::IsEmpty());
}

TEST_P(SurvivedText, OfTheCopiedChoice)
{
    OpenDropDown(1, 0);
    TakeAfter(LVM_SETITEMTEXT);
    Send(WM_TIMER, 4);
    ExpectSurvived();
}

TEST_P(SurvivedText, OfADrawnCellWithoutText)
{
    MakeDropDown(1, 0);
    // Not by the class, which would draw at once.
    List().CListCtrl::SetItemText(1, 0, L"");
    TakeAfter(LVM_SETITEMTEXT);
    DrawDropDown(1, 0, true);
    ExpectSurvived();
}

TEST_P(SurvivedText, OfAnEmptyCellWhoseDropDownOpens)
{
    m_choices[0] = L"";
    MakeDropDown(1, 0);
    TakeAfter(LVM_SETITEMTEXT);
    DrawDropDown(1, 0, true);
    ExpectSurvived();
}

TEST_P(SurvivedRow, OfInsertItem)
{
    TakeAfter(LVM_INSERTITEM);
    EXPECT_EQ(List().InsertItem(1, L"text"), -1);
    ExpectSurvived();
}

TEST_P(SurvivedRow, OfInsertItemFromADescription)
{
    LVITEM item = TextItem(1);
    item.mask |= LVIF_PARAM;
    item.lParam = 0x1234;
    TakeAfter(LVM_INSERTITEM);
    EXPECT_EQ(List().InsertItem(&item), -1);
    ExpectSurvived();
}

TEST_P(SurvivedRow, OfAnInsertionThatTheParentHearsOf)
{
    TakeWhen(Notification(static_cast<UINT>(LVN_INSERTITEM)));
    EXPECT_EQ(List().InsertItem(1, L"text"), -1);
    ExpectSurvived();
}

TEST_P(SurvivedRow, OfDeleteItem)
{
    TakeWhen(Notification(static_cast<UINT>(LVN_DELETEITEM)));
    List().DeleteItem(1);
    ExpectSurvived();
}

TEST_P(SurvivedRow, OfDeleteAllItems)
{
    TakeAfter(LVM_DELETEALLITEMS);
    List().DeleteAllItems();
    ExpectSurvived();
}

TEST_P(SurvivedRow, OfDeleteCheckedItems)
{
    for (const int row : {0, 1, 2})
        List().SetCheckbox(row, 0, 1);
    TakeWhen(Notification(static_cast<UINT>(LVN_DELETEITEM)));
    List().DeleteCheckedItems();
    ExpectSurvived();
}

TEST_P(SurvivedPaint, OfAListWithoutRows)
{
    List().DeleteAllItems();
    List().RedrawWindow(nullptr, nullptr, RDW_INVALIDATE);
    TakeAfter(WM_PAINT);
    List().UpdateWindow();
    ExpectSurvived();
}

TEST_P(SurvivedPaint, OfAPressOnACheckBox)
{
    List().SetCheckbox(1, 1, 0);
    List().SetHeaderCheckedState(1, 1);
    const CPoint point = MiddleOf(1, 1);
    TakeAfter(WM_PAINT);
    PressAt(point);
    ExpectSurvived();
    EXPECT_THAT(m_parent.messages, testing::IsEmpty());
}

TEST_P(SurvivedPaint, OfSetCheckboxBeforeTheHeaderIs)
{
    List().SetHeaderCheckedState(1, 1);
    TakeAfter(WM_PAINT);
    EXPECT_TRUE(List().SetCheckbox(1, 1, 1));
    ExpectSurvived();
}

TEST_P(SurvivedPaint, OfAPressOnADropButton)
{
    MakeDropDown(1, 1);
    const CPoint point = ButtonOf(1, 1);
    TakeAfter(WM_PAINT);
    PressAt(point);
    ExpectSurvived();
}

TEST_P(SurvivedPaint, OfTheReleaseOfADropButton)
{
    OpenDropDown(1, 1);
    List().Record(1, 1)->bComboButtonDown = TRUE;
    List().m_bComboButtonHeld = TRUE;
    TakeAfter(WM_PAINT);
    List().UnpressComboButton();
    ExpectSurvived();
}

TEST_P(SurvivedPaint, OfAColumnClick)
{
    for (const int row : {0, 1, 2})
        List().SetCheckbox(row, 1, 0);
    List().SetHeaderCheckedState(1, 1);
    List().UpdateWindow();
    TakeAfter(WM_PAINT);
    ClickColumn(1);
    ExpectSurvived();
}

TEST_P(SurvivedFocus, OfAnOpeningDropDownThatDeactivatesTheParent)
{
    MakeDropDown(1, 1);
    TakeWhen(IsActivation);
    DrawDropDown(1, 1, true);
    ExpectSurvived();
}

TEST_P(SurvivedFocus, OfAnOpeningDropDownThatTakesItFromTheList)
{
    MakeDropDown(1, 1);
    List().SetFocus();
    TakeWhen(Notification(static_cast<UINT>(NM_KILLFOCUS)));
    DrawDropDown(1, 1, true);
    ExpectSurvived();
}

TEST_P(SurvivedFocus, OfAnOpeningDropDownThatTakesItFromTheParent)
{
    MakeDropDown(1, 1);
    TakeWhen(IsLostFocus);
    DrawDropDown(1, 1, true);
    ExpectSurvived();
}

TEST_P(SurvivedFocus, OfTheDropDownThatTakesItBack)
{
    OpenDropDown(1, 1);
    m_parent.SetFocus();
    TakeWhen(IsLostFocus);
    Send(WM_TIMER, 1);
    ExpectSurvived();
}

TEST_P(SurvivedFocus, OfTheDropDownThatCloses)
{
    OpenDropDown(1, 1);
    const HWND combo = List().m_pCombo->m_hWnd;
    TakeWhen(IsFocus);
    Send(WM_TIMER, 2);
    ExpectSurvived();
    EXPECT_FALSE(::IsWindow(combo));
}

TEST_P(SurvivedFocus, OfTheDropDownThatClosesAfterAChoice)
{
    OpenDropDown(1, 1);
    const HWND combo = List().m_pCombo->m_hWnd;
    TakeWhen(IsFocus);
    Send(WM_TIMER, 3);
    ExpectSurvived();
    EXPECT_FALSE(::IsWindow(combo));
}

TEST_P(SurvivedFocus, OfTheDropDownThatAPressOnAnotherButtonCloses)
{
    OpenDropDown(1, 1);
    List().SetComboBox(2, 1, TRUE, &m_choices, 5, 0);
    const CPoint point = ButtonOf(2, 1);
    TakeWhen(IsFocus);
    PressAt(point);
    ExpectSurvived();
}

TEST_P(SurvivedMessage, OfAToggledCheckBox)
{
    List().SetCheckbox(1, 1, 0);
    List().SetHeaderCheckedState(1, 1);
    TakeWhen([](UINT message, WPARAM, LPARAM) { return message == WM_XLISTCTRL_CHECKBOX_CLICKED; });
    PressAt(MiddleOf(1, 1));
    ExpectSurvived();
}

TEST_P(SurvivedMessage, OfACommittedChoice)
{
    OpenDropDown(1, 1);
    TakeWhen([](UINT message, WPARAM, LPARAM) { return message == WM_XLISTCTRL_COMBO_SELECTION; });
    Send(WM_TIMER, 3);
    ExpectSurvived();
}

TEST_P(SurvivedRow, OfDeleteItemWhileItsRecordsAreFreed)
{
    TakeAfter(LVM_SETITEM);
    List().DeleteItem(1);
    ExpectSurvived();
}

TEST_P(SurvivedRow, OfDeleteAllItemsWhileRecordsAreFreed)
{
    TakeAfter(LVM_SETITEM);
    List().DeleteAllItems();
    ExpectSurvived();
}

TEST_P(SurvivedRow, OfDeleteCheckedItemsWhileRecordsAreFreed)
{
    for (const int row : {0, 1, 2})
        List().SetCheckbox(row, 0, 1);
    TakeAfter(LVM_SETITEM);
    List().DeleteCheckedItems();
    ExpectSurvived();
}
