// Parents that act on what a click tells them, and lists without a parent.
#include "InputTest.h"

namespace
{

class PressReaction : public InputTest
{
protected:
    // Rows whose second cells are checked but for the last, which a click will check.
    void SetUp() override
    {
        InputTest::SetUp();
        AddRows(3);
        for (const int row : {0, 1, 2})
            m_list.SetCheckbox(row, 1, row == 2 ? 0 : 1);
        m_list.SetHeaderCheckedState(1, 1);
    }
};

// A list that is no child of any window.
class ParentlessList : public InputTest
{
protected:
    void MakePopup(CWnd* parent)
    {
        ASSERT_TRUE(m_popup.CWnd::CreateEx(0, WC_LISTVIEW, L"", WS_POPUP | WS_VISIBLE | LVS_REPORT,
                                           CRect(30, 30, 330, 230), parent, 0));
        m_popup.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
        ASSERT_EQ(m_popup.InsertItem(0, L"row"), 0);
        ASSERT_TRUE(m_popup.SetCheckbox(0, 0, 0));
    }
    void TearDown() override
    {
        m_popup.DestroyWindow();
        InputTest::TearDown();
    }
    void PressPopup()
    {
        CRect cell;
        m_popup.GetSubItemRect(0, 0, LVIR_BOUNDS, cell);
        m_popup.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(cell.left + 3, cell.top + 3));
    }

    OpenList m_popup;
};

const ParentMessage PopupClicked{WM_XLISTCTRL_CHECKBOX_CLICKED, 0, 0};

} // namespace

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(PressReaction, DeletedRowIsNotCountedForTheHeader)
{
    React([&] { m_list.DeleteItem(1); });
    Press(Middle(1, 1));
    EXPECT_EQ(m_list.GetItemCount(), 2);
    EXPECT_EQ(m_list.GetHeaderCheckedState(1), 1);
    React([&] { m_list.DeleteItem(1); });
    Press(Middle(1, 1));
    EXPECT_EQ(m_list.GetItemCount(), 1);
    EXPECT_EQ(m_list.GetHeaderCheckedState(1), 2);
    EXPECT_THAT(m_parent.messages, ElementsAre(ParentMessage{WM_XLISTCTRL_CHECKBOX_CLICKED, 1, 1},
                                               ParentMessage{WM_XLISTCTRL_CHECKBOX_CLICKED, 1, 1}));
}

TEST_F(PressReaction, DeletedRowsLeaveTheHeaderChecked)
{
    React([&] { m_list.DeleteAllItems(); });
    EXPECT_TRUE(PressIsPassedOn(Middle(1, 1)));
    EXPECT_EQ(m_list.GetItemCount(), 0);
    EXPECT_EQ(m_list.GetHeaderCheckedState(1), 2) << "none of no rows is unchecked";
}

TEST_F(PressReaction, CheckBoxTakenAwayStaysAway)
{
    React([&] { m_list.SetCheckbox(2, 1, -1); });
    Press(Middle(2, 1));
    EXPECT_EQ(m_list.GetCheckbox(2, 1), -1);
    EXPECT_EQ(m_list.GetHeaderCheckedState(1), 1);
}

TEST_F(PressReaction, InsertedRowIsCountedForTheHeader)
{
    React([&] { m_list.InsertItem(0, L"in front"); });
    Press(Middle(2, 1));
    EXPECT_EQ(m_list.GetCheckbox(3, 1), 1);
    EXPECT_EQ(m_list.GetHeaderCheckedState(1), 1);
}

TEST_F(PressReaction, DeletedColumnsEndTheClickWell)
{
    React([&] {
        while (m_list.GetColumns() > 0)
            m_list.DeleteColumn(0);
    });
    Press(Middle(2, 1));
    EXPECT_EQ(m_list.GetColumns(), 0);
    EXPECT_EQ(m_list.GetItemCount(), 3);
}

TEST_F(PressReaction, DestroyedListEndsTheClickWell)
{
    React([&] { m_list.DestroyWindow(); });
    Press(Middle(2, 1));
    EXPECT_EQ(m_list.GetSafeHwnd(), nullptr);
    EXPECT_EQ(m_parent.messages.size(), 1u);
}

TEST_F(PressReaction, DestroyedParentEndsTheClickWell)
{
    React([&] { m_parent.DestroyWindow(); });
    Press(Middle(2, 1));
    EXPECT_EQ(m_list.GetSafeHwnd(), nullptr);
    EXPECT_EQ(m_parent.GetSafeHwnd(), nullptr);
}

TEST_F(PressReaction, DeletedListObjectEndsTheClickWell)
{
    auto list = std::make_unique<OpenList>();
    ASSERT_TRUE(list->Create(Style, CRect(10, 10, 310, 260), &m_parent, 2));
    list->InsertColumn(0, L"First", LVCFMT_LEFT, 100);
    list->InsertItem(0, L"row");
    list->SetCheckbox(0, 0, 0);
    CRect cell;
    ASSERT_TRUE(list->GetSubItemRect(0, 0, LVIR_BOUNDS, cell));
    const HWND window = list->m_hWnd;
    React([&] { list.reset(); });
    ::SendMessage(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(cell.left + 3, cell.top + 3));
    EXPECT_EQ(list, nullptr);
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(PressReaction, ClickInsideAClickIsHandledToo)
{
    bool isInside = false;
    React([&] {
        if (!std::exchange(isInside, true))
            Press(Middle(0, 1));
    });
    Press(Middle(2, 1));
    EXPECT_EQ(m_list.GetCheckbox(2, 1), 1);
    EXPECT_EQ(m_list.GetCheckbox(0, 1), 0);
    EXPECT_EQ(m_list.GetHeaderCheckedState(1), 1);
}

TEST_F(ParentlessList, TellsItsOwner)
{
    MakePopup(nullptr);
    m_popup.SetOwner(&m_parent);
    PressPopup();
    EXPECT_EQ(m_popup.GetCheckbox(0, 0), 1);
    EXPECT_THAT(m_parent.messages, ElementsAre(PopupClicked));
}

TEST_F(ParentlessList, WithoutOwnerTogglesAllTheSame)
{
    MakePopup(nullptr);
    m_popup.SetHeaderCheckedState(0, 1);
    PressPopup();
    EXPECT_EQ(m_popup.GetCheckbox(0, 0), 1);
    EXPECT_EQ(m_popup.GetHeaderCheckedState(0), 2);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(ParentlessList, TellsNobodyWhenItsOwnerIsGone)
{
    MakePopup(nullptr);
    HandlingParent owner;
    ASSERT_TRUE(
        owner.CreateEx(0, AfxRegisterWndClass(0), L"Owner", WS_POPUP, CRect(0, 0, 50, 50), nullptr, 0));
    m_popup.SetOwner(&owner);
    owner.DestroyWindow();
    PressPopup();
    EXPECT_EQ(m_popup.GetCheckbox(0, 0), 1);
}

TEST_F(ParentlessList, OwnedByAWindowTellsThatWindowBeforeAnotherOwner)
{
    MakePopup(&m_parent);
    HandlingParent other;
    m_popup.SetOwner(&other);
    PressPopup();
    EXPECT_THAT(m_parent.messages, ElementsAre(PopupClicked));
}
