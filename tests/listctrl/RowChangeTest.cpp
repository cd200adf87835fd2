// Rows that come and go past the class, and parents that change the rows while one is inserted. That no
// records are left behind is judged by the leak gate.
#include "InputTest.h"

namespace
{

class RowChange : public InputTest
{
protected:
    void SetUp() override
    {
        InputTest::SetUp();
        AddRows(3);
        // What a record that is forgotten would leave behind.
        for (const int row : {0, 1, 2}) {
            m_list.SetItemData(row, static_cast<DWORD>(10 + row));
            m_list.SetItemToolTipText(row, 0, L"tip");
            m_list.SetCheckbox(row, 1, row == 1 ? 0 : 1);
        }
    }
    void TearDown() override
    {
        m_probe.reset();
        InputTest::TearDown();
    }

    // What is to happen when the parent hears of the first new row.
    void WhenInserted(std::function<void(int row)> function)
    {
        m_probe = std::make_unique<MessageProbe>(
            m_parent.m_hWnd, [this, function](UINT message, WPARAM, LPARAM lParam) {
                const auto change = reinterpret_cast<const NMLISTVIEW*>(lParam);
                if (message != WM_NOTIFY || change->hdr.code != static_cast<UINT>(LVN_INSERTITEM) ||
                    m_calls++ != 0)
                    return;
                function(change->iItem);
            });
    }
    // Inserts a row with a parameter that is no address of anything.
    int InsertForeign(int row)
    {
        LVITEM item = {};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row;
        item.pszText = m_text;
        item.lParam = 0x1234;
        return m_list.InsertItem(&item);
    }
    std::vector<DWORD> Data()
    {
        std::vector<DWORD> data;
        for (int row = 0; row < m_list.GetItemCount(); ++row)
            data.push_back(m_list.GetItemData(row));
        return data;
    }
    // Whether all rows have records of their own.
    bool HaveAllRecords()
    {
        bool haveAll = true;
        for (int row = 0; row < m_list.GetItemCount(); ++row)
            haveAll = m_list.CListCtrl::GetItemData(row) != 0x1234 && m_list.SetBold(row, 2, TRUE) && haveAll;
        return haveAll;
    }

    int m_calls = 0;

private:
    wchar_t m_text[8] = L"given";
    std::unique_ptr<MessageProbe> m_probe;
};

using RowDeletedPastTheClass = RowChange;
using RowInsertion = RowChange;

} // namespace

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(RowDeletedPastTheClass, ByTheBaseIsNotCountedAsCheckedAnyMore)
{
    ASSERT_EQ(m_list.CountCheckedItems(1), 2);
    EXPECT_TRUE(m_list.CListCtrl::DeleteItem(0));
    EXPECT_EQ(m_list.CountCheckedItems(1), 1);
    EXPECT_THAT(Data(), ElementsAre(11, 12));
    EXPECT_TRUE(HaveAllRecords());
}

TEST_F(RowDeletedPastTheClass, ByAMessageIsNotCountedAsCheckedAnyMore)
{
    EXPECT_TRUE(m_list.SendMessage(LVM_DELETEITEM, 2));
    EXPECT_EQ(m_list.CountCheckedItems(1), 1);
    EXPECT_THAT(Data(), ElementsAre(10, 11));
    EXPECT_TRUE(m_list.SendMessage(LVM_DELETEITEM, 1));
    EXPECT_EQ(m_list.CountCheckedItems(1), 1) << "it was not checked";
}

TEST_F(RowDeletedPastTheClass, WithAllOthersLeavesNothingToCount)
{
    EXPECT_TRUE(m_list.SendMessage(LVM_DELETEALLITEMS));
    EXPECT_EQ(m_list.CountCheckedItems(1), 0);
    AddRows(1);
    m_list.SetCheckbox(0, 1, 1);
    EXPECT_EQ(m_list.CountCheckedItems(1), 1);
    EXPECT_TRUE(m_list.CListCtrl::DeleteAllItems());
    EXPECT_EQ(m_list.CountCheckedItems(1), 0);
}

TEST_F(RowInsertion, LetsTheParentAskForTheNewRow)
{
    WhenInserted([this](int row) {
        EXPECT_EQ(row, 1);
        EXPECT_EQ(m_list.GetCheckbox(row, 1), -1);
        EXPECT_FALSE(m_list.GetBold(row, 1));
        EXPECT_EQ(m_list.GetItemData(row), 0u);
        EXPECT_EQ(m_list.GetItemToolTipText(row, 0), L"");
        EXPECT_EQ(m_list.GetCheckbox(row + 1, 1), 0) << "the row behind it";
    });
    EXPECT_EQ(InsertForeign(1), 1);
    EXPECT_EQ(m_calls, 1);
    EXPECT_THAT(Data(), ElementsAre(10, 0, 11, 12));
    EXPECT_TRUE(HaveAllRecords());
}

TEST_F(RowInsertion, WithATextOfARowThatTheParentDeletesLeavesTheOthers)
{
    for (const int place : {3, 0, 1}) {
        m_calls = 0;
        WhenInserted([this](int row) { EXPECT_TRUE(m_list.DeleteItem(row)); });
        m_list.InsertItem(place, L"given");
        EXPECT_EQ(m_calls, 1);
        EXPECT_THAT(Data(), ElementsAre(10, 11, 12)) << place;
        EXPECT_EQ(m_list.CountCheckedItems(1), 2);
    }
}

TEST_F(RowInsertion, WhileTheParentDeletesAllRowsLeavesNone)
{
    WhenInserted([this](int) { EXPECT_TRUE(m_list.DeleteAllItems()); });
    InsertForeign(1);
    EXPECT_THAT(Data(), IsEmpty());
    EXPECT_EQ(m_list.CountCheckedItems(1), 0);
}

TEST_F(RowInsertion, OfARowThatTheParentDeletesLeavesTheOthers)
{
    for (const int place : {3, 0, 1}) {
        m_calls = 0;
        WhenInserted([this](int row) { EXPECT_TRUE(m_list.DeleteItem(row)); });
        InsertForeign(place);
        EXPECT_EQ(m_calls, 1);
        EXPECT_THAT(Data(), ElementsAre(10, 11, 12)) << place;
        EXPECT_EQ(m_list.CountCheckedItems(1), 2);
    }
}

TEST_F(RowInsertion, WhileTheParentInsertsAnotherInFrontGivesBothTheirRecords)
{
    WhenInserted([this](int) { EXPECT_EQ(m_list.InsertItem(0, L"in front"), 0); });
    InsertForeign(1);
    EXPECT_EQ(m_calls, 2);
    EXPECT_THAT(Data(), ElementsAre(0, 10, 0, 11, 12));
    EXPECT_EQ(Text(0, 0), L"in front");
    EXPECT_EQ(Text(2, 0), L"given");
    EXPECT_TRUE(HaveAllRecords());
    EXPECT_EQ(m_list.CountCheckedItems(1), 2);
}

TEST_F(RowInsertion, WhileTheParentDeletesOneInFrontGivesItsOwn)
{
    WhenInserted([this](int) { EXPECT_TRUE(m_list.DeleteItem(0)); });
    InsertForeign(2);
    EXPECT_THAT(Data(), ElementsAre(11, 0, 12));
    EXPECT_EQ(Text(1, 0), L"given");
    EXPECT_TRUE(HaveAllRecords());
    EXPECT_EQ(m_list.CountCheckedItems(1), 1);
}

// The parent's answer keeps the single notifications from being sent.
TEST_F(RowDeletedPastTheClass, WithAllOthersUnheardByTheParentIsForgotten)
{
    m_parent.answered = LVN_DELETEALLITEMS;
    EXPECT_NE(m_list.SendMessage(LVM_DELETEALLITEMS), 0);
    m_parent.answered = 0;
    EXPECT_EQ(m_list.GetItemCount(), 0);
    EXPECT_EQ(m_list.CountCheckedItems(1), 0);
}

// A handler that inserts by description as well, while the outer row is not yet told of to the end.
TEST_F(RowInsertion, WithinAnotherGivesBothTheirRecords)
{
    WhenInserted([this](int row) {
        EXPECT_EQ(InsertForeign(0), 0);
        EXPECT_TRUE(m_list.SetBold(row + 1, 1, TRUE)) << "the outer row, now one further";
    });
    InsertForeign(1);
    EXPECT_EQ(m_calls, 2);
    EXPECT_THAT(Data(), ElementsAre(0, 10, 0, 11, 12));
    EXPECT_TRUE(HaveAllRecords());
}

TEST_F(RowChange, ByAChoiceWhoseArrayIsEmptiedMeanwhileTakesItsText)
{
    m_choices.RemoveAll();
    m_choices.Add(CString(L'c', 300));
    std::vector<CString> others;
    MessageProbe probe(m_parent.m_hWnd, [&](UINT message, WPARAM, LPARAM lParam) {
        if (message != WM_NOTIFY || m_choices.IsEmpty() ||
            reinterpret_cast<const NMHDR*>(lParam)->code != static_cast<UINT>(LVN_ITEMCHANGING))
            return;
        ++m_calls;
        m_choices.RemoveAll();
        // What comes to lie where the choice was.
        for (int i = 0; i < 8; ++i)
            others.emplace_back(L'x', 300);
    });
    EXPECT_TRUE(m_list.SetComboBox(1, 0, TRUE, &m_choices, 5, 0));
    EXPECT_EQ(m_calls, 1);
    EXPECT_EQ(Text(1, 0), CString(L'c', 300));
}
