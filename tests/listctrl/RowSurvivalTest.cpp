// Parents that delete rows in the middle of a call: the call does not touch the rows' records any more. Those
// lie on pages that are gone by then.
#include "SurvivalGround.h"

namespace
{

enum class Deletion
{
    Row,
    AllRows,
};

// Three rows, of which the last, selected one has a drop-down in its first cell. That one goes, or all do.
class SurvivedDeletion : private GuardedMemory, public InputTest, public testing::WithParamInterface<Deletion>
{
protected:
    static constexpr int Last = 2;
    using Condition = std::function<bool(UINT message, WPARAM wParam, LPARAM lParam)>;

    void SetUp() override
    {
        InputTest::SetUp();
        ASSERT_TRUE(IsGuarded());
        AddRows(Last + 1);
        MakeCombo(Last, 0);
        m_list.SetCurSel(Last);
        m_list.UpdateWindow();
    }
    void TearDown() override
    {
        m_probe.reset();
        InputTest::TearDown();
    }

    void DeleteWhen(Condition condition)
    {
        m_probe = std::make_unique<MessageProbe>(
            m_parent.m_hWnd, [this, condition](UINT message, WPARAM wParam, LPARAM lParam) {
                if (m_deletions != 0 || !condition(message, wParam, lParam))
                    return;
                ++m_deletions;
                if (GetParam() == Deletion::Row)
                    EXPECT_TRUE(m_list.DeleteItem(Last));
                else
                    EXPECT_TRUE(m_list.DeleteAllItems());
                if (m_isReplacing)
                    AddRows(Last + 1 - m_list.GetItemCount());
            });
    }
    static bool IsTextChange(UINT message, WPARAM, LPARAM lParam)
    {
        const auto change = reinterpret_cast<const NMLISTVIEW*>(lParam);
        return message == WM_NOTIFY && change->hdr.code == static_cast<UINT>(LVN_ITEMCHANGED) &&
               (change->uChanged & LVIF_TEXT) != 0;
    }
    static bool IsDeactivation(UINT message, WPARAM wParam, LPARAM)
    {
        return message == WM_ACTIVATE && LOWORD(wParam) == WA_INACTIVE;
    }
    static bool IsActivation(UINT message, WPARAM wParam, LPARAM)
    {
        return message == WM_ACTIVATE && LOWORD(wParam) != WA_INACTIVE;
    }
    static bool IsFocusLost(UINT message, WPARAM, LPARAM lParam)
    {
        return message == WM_NOTIFY &&
               reinterpret_cast<const NMHDR*>(lParam)->code == static_cast<UINT>(NM_KILLFOCUS);
    }

    void ExpectDeleted()
    {
        EXPECT_EQ(m_deletions, 1);
        const int left = GetParam() == Deletion::Row ? Last : 0;
        EXPECT_EQ(m_list.GetItemCount(), m_isReplacing ? Last + 1 : left);
    }
    // Others shall take the place of the deleted rows.
    void Replace() { m_isReplacing = true; }
    // Takes the text away without a drawing by the class.
    void EmptyText() { m_list.CListCtrl::SetItemText(Last, 0, L""); }
    void SetDown() { m_list.Record(Last, 0)->bComboButtonDown = TRUE; }

private:
    std::unique_ptr<MessageProbe> m_probe;
    int m_deletions = 0;
    bool m_isReplacing = false;
};

using DeletionInADrawing = SurvivedDeletion;
using DeletionInAnOpening = SurvivedDeletion;
using DeletionInACall = SurvivedDeletion;

constexpr auto NameOf = [](const testing::TestParamInfo<Deletion>& deletion) {
    return std::string(deletion.param == Deletion::Row ? "Row" : "AllRows");
};
const auto Deletions = testing::Values(Deletion::Row, Deletion::AllRows);

INSTANTIATE_TEST_SUITE_P(Of, DeletionInADrawing, Deletions, NameOf);
INSTANTIATE_TEST_SUITE_P(Of, DeletionInAnOpening, Deletions, NameOf);
INSTANTIATE_TEST_SUITE_P(Of, DeletionInACall, Deletions, NameOf);

} // namespace

using testing::IsEmpty;

TEST_P(DeletionInADrawing, ThatGivesTheCellItsText)
{
    EmptyText();
    DeleteWhen(&IsTextChange);
    m_list.UpdateWindow();
    ExpectDeleted();
    EXPECT_EQ(m_list.m_pCombo, nullptr);
}

TEST_P(DeletionInADrawing, ThatGivesTheCellItsTextAndWouldOpenTheList)
{
    EmptyText();
    SetDown();
    DeleteWhen(&IsTextChange);
    m_list.UpdateWindow();
    ExpectDeleted();
    EXPECT_EQ(m_list.m_pCombo, nullptr);
}

TEST_P(DeletionInAnOpening, ThatDeactivatesTheParent)
{
    m_parent.SetFocus();
    SetDown();
    DeleteWhen(&IsDeactivation);
    m_list.UpdateSubItem(Last, 0);
    ExpectDeleted();
    EXPECT_EQ(m_list.m_pCombo, nullptr);
}

TEST_P(DeletionInAnOpening, ThatTakesTheFocusFromTheList)
{
    m_list.SetFocus();
    m_list.UpdateWindow();
    SetDown();
    DeleteWhen(&IsFocusLost);
    m_list.UpdateSubItem(Last, 0);
    ExpectDeleted();
    EXPECT_EQ(m_list.m_pCombo, nullptr);
}

// The choice for an empty cell is empty itself, so that the first entry becomes the text.
TEST_P(DeletionInAnOpening, ThatGivesTheCellItsText)
{
    m_choices[0] = L"";
    EmptyText();
    SetDown();
    DeleteWhen(&IsTextChange);
    m_list.UpdateSubItem(Last, 0);
    ExpectDeleted();
    ASSERT_NE(m_list.m_pCombo, nullptr) << "it does without its row";
    EXPECT_THAT(Entries(), testing::ElementsAre(L"one", L"two"));
    Tick(3);
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_P(DeletionInACall, OfSetItemText)
{
    DeleteWhen(&IsTextChange);
    m_list.SetItemText(Last, 0, L"text");
    ExpectDeleted();
}

TEST_P(DeletionInACall, OfSetItemTextWithColors)
{
    DeleteWhen(&IsTextChange);
    m_list.SetItemText(Last, 0, L"text", RGB(1, 2, 3), RGB(4, 5, 6));
    ExpectDeleted();
}

TEST_P(DeletionInACall, OfSetItem)
{
    wchar_t text[] = L"text";
    LVITEM item = {};
    item.mask = LVIF_TEXT;
    item.iItem = Last;
    item.pszText = text;
    item.iImage = 3;
    DeleteWhen(&IsTextChange);
    EXPECT_FALSE(m_list.SetItem(&item));
    ExpectDeleted();
}

TEST_P(DeletionInACall, OfSetComboBox)
{
    DeleteWhen(&IsTextChange);
    EXPECT_TRUE(m_list.SetComboBox(Last, 0, TRUE, &m_choices, 5, 1));
    ExpectDeleted();
}

TEST_P(DeletionInACall, OfAPressOnADropButtonThatClosesAnotherList)
{
    OpenCombo(0, 1);
    m_list.UnpressComboButton();
    // The press has given the focus to the list.
    m_list.m_pCombo->SetActive(11);
    ASSERT_TRUE(StopTimer(1));
    const CPoint button = Button(Last, 0);
    DeleteWhen(&IsActivation);
    Press(button);
    ExpectDeleted();
    EXPECT_EQ(m_list.m_pCombo, nullptr);
    EXPECT_FALSE(StopTimer(1)) << "no button is pressed";
}

TEST_P(DeletionInACall, OfAPressOnADropButtonPressesThatOfTheRowInItsPlace)
{
    OpenCombo(0, 1);
    m_list.UnpressComboButton();
    m_list.m_pCombo->SetActive(11);
    ASSERT_TRUE(StopTimer(1));
    const CPoint button = Button(Last, 0);
    Replace();
    DeleteWhen(&IsActivation);
    Press(button);
    ExpectDeleted();
    EXPECT_EQ(m_list.Record(Last, 0)->bComboButtonDown, TRUE);
    EXPECT_TRUE(StopTimer(1));
}

TEST_P(DeletionInACall, OfACommittedChoice)
{
    PressButton(Last, 0);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    m_list.m_pCombo->SetCurSel(2);
    DeleteWhen(&IsTextChange);
    Tick(3);
    ExpectDeleted();
    EXPECT_EQ(m_list.m_pCombo, nullptr);
}

TEST_P(DeletionInACall, OfEscapeInTheDropDown)
{
    PressButton(Last, 0);
    ASSERT_NE(m_list.m_pCombo, nullptr);
    m_list.SetItemText(Last, 0, L"changed");
    DeleteWhen(&IsTextChange);
    m_list.SendMessage(WM_XCOMBOLIST_VK_ESCAPE);
    ExpectDeleted();
    EXPECT_TRUE(StopTimer(2));
}

TEST_P(DeletionInACall, OfAToggledCheckBox)
{
    m_list.SetCheckbox(Last, 1, 0);
    m_list.SetHeaderCheckedState(1, 1);
    DeleteWhen([](UINT message, WPARAM, LPARAM) { return message == WM_XLISTCTRL_CHECKBOX_CLICKED; });
    Press(Middle(Last, 1));
    ExpectDeleted();
}
