// A parent that refuses changes of rows, by the answer that LVN_ITEMCHANGING takes, and what it hears of a
// row's records. That these are freed all the same is judged by the leak gate.
#include "CellState.h"
#include "ListTest.h"

namespace
{

constexpr UINT Everything = ~0U;

class RefusingParent : public CWnd
{
public:
    static constexpr UINT ListId = 1;

    // LVIF_ bits: changes with any of them are refused.
    UINT refused = 0;
    // What the notifications about changes were about, in order.
    std::vector<UINT> changing;
    std::vector<UINT> changed;

protected:
    afx_msg void OnChanging(NMHDR* notification, LRESULT* result)
    {
        changing.push_back(reinterpret_cast<NMLISTVIEW*>(notification)->uChanged);
        *result = (changing.back() & refused) != 0;
    }
    afx_msg void OnChanged(NMHDR* notification, LRESULT* result)
    {
        changed.push_back(reinterpret_cast<NMLISTVIEW*>(notification)->uChanged);
        *result = 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(RefusingParent, CWnd)
ON_NOTIFY(LVN_ITEMCHANGING, RefusingParent::ListId, &RefusingParent::OnChanging)
ON_NOTIFY(LVN_ITEMCHANGED, RefusingParent::ListId, &RefusingParent::OnChanged)
END_MESSAGE_MAP()

// A list of two columns without rows.
class VetoTest : public testing::Test
{
protected:
    static constexpr COLORREF Red = RGB(255, 0, 0);
    static constexpr COLORREF Green = RGB(0, 160, 0);

    void SetUp() override
    {
        m_parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE,
                          CRect(20, 20, 420, 320), nullptr, 0);
        ASSERT_TRUE(m_list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(10, 10, 310, 260), &m_parent,
                                  RefusingParent::ListId));
        m_list.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
        m_list.InsertColumn(1, L"Second", LVCFMT_LEFT, 80);
    }

    void TearDown() override { m_parent.DestroyWindow(); }

    // Rows in each of the three ways, the first and the last one checked.
    void InsertRows()
    {
        ASSERT_EQ(m_list.InsertItem(0, L"plain"), 0);
        ASSERT_EQ(m_list.InsertItem(1, L"colored", Red, Green), 1);
        const LVITEM item = Described(2);
        ASSERT_EQ(m_list.InsertItem(&item), 2);
        for (const int row : {0, 1, 2}) {
            ASSERT_NE(m_list.Record(row, 0), nullptr);
            ASSERT_TRUE(m_list.SetItemToolTipText(row, 1, CString(L'x', 100)));
            ASSERT_TRUE(m_list.SetCheckbox(row, 0, row != 1));
        }
    }

    // A description with a parameter of the caller's, which is no address.
    LVITEM Described(int row)
    {
        LVITEM item = {};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row;
        item.pszText = m_text.data();
        item.lParam = 0x1234;
        item.iImage = 5;
        return item;
    }

    std::wstring m_text = L"described";
    RefusingParent m_parent;
    OpenList m_list;
};

using RefusedChange = VetoTest;
using RecordsInSecret = VetoTest;

} // namespace

using testing::Contains;
using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;
using testing::Truly;

TEST_F(RefusedChange, LeavesInsertedRowsTheirRecords)
{
    m_parent.refused = Everything;
    InsertRows();
    EXPECT_EQ(m_list.Record(1, 0)->crText, Red);
    EXPECT_EQ(m_list.Record(1, 0)->crBackground, Green);
    EXPECT_EQ(m_list.Record(2, 0)->nImage, 5);
    EXPECT_EQ(m_list.GetItemData(2), 0u);
    EXPECT_NE(m_list.CListCtrl::GetItemData(2), 0x1234u);
}

TEST_F(RefusedChange, DoesNotKeepRowsFromBeingDeleted)
{
    m_parent.refused = Everything;
    InsertRows();
    EXPECT_EQ(m_list.DeleteItem(1), TRUE);
    EXPECT_EQ(m_list.GetItemCount(), 2);
    EXPECT_EQ(m_list.CountCheckedItems(0), 2);
    EXPECT_EQ(m_list.DeleteAllItems(), TRUE);
    EXPECT_EQ(m_list.GetItemCount(), 0);
    EXPECT_EQ(m_list.CountCheckedItems(0), 0);
}

TEST_F(RefusedChange, DoesNotKeepCheckedRowsFromBeingDeleted)
{
    m_parent.refused = Everything;
    InsertRows();
    m_list.DeleteCheckedItems();
    ASSERT_EQ(m_list.GetItemCount(), 1);
    EXPECT_EQ(m_list.GetItemText(0, 0), L"colored");
    EXPECT_EQ(m_list.CountCheckedItems(0), 0);
}

TEST_F(RefusedChange, DoesNotKeepRowsFromBeingDeletedPastTheClass)
{
    m_parent.refused = Everything;
    InsertRows();
    EXPECT_TRUE(m_list.SendMessage(LVM_DELETEITEM, 0));
    EXPECT_EQ(m_list.CountCheckedItems(0), 1);
    EXPECT_TRUE(m_list.SendMessage(LVM_DELETEALLITEMS));
    EXPECT_EQ(m_list.CountCheckedItems(0), 0);
}

TEST_F(RefusedChange, DoesNotKeepTheWindowFromFreeingItsRows)
{
    m_parent.refused = Everything;
    InsertRows();
    m_list.DestroyWindow();
    EXPECT_EQ(m_list.CountCheckedItems(0), 0);
}

TEST_F(RefusedChange, OfATextIsTheResultOfSettingIt)
{
    InsertRows();
    m_parent.refused = LVIF_TEXT;
    EXPECT_EQ(m_list.SetItemText(0, 0, L"new"), FALSE);
    EXPECT_EQ(m_list.GetItemText(0, 0), L"plain");
    EXPECT_EQ(m_list.SetItemText(0, 0, L"new", Red, Green), FALSE);
    EXPECT_EQ(m_list.GetItemText(0, 0), L"plain");
    EXPECT_EQ(m_list.Record(0, 0)->crText, Red);
    EXPECT_EQ(m_list.Record(0, 0)->crBackground, Green);
    EXPECT_EQ(m_list.SetItemText(0, 0, nullptr, Green, Red), TRUE);
    EXPECT_EQ(m_list.Record(0, 0)->crText, Green);
}

TEST_F(RefusedChange, OfADescriptionLeavesTheImageToo)
{
    InsertRows();
    m_parent.refused = Everything;
    const LVITEM item = Described(0);
    EXPECT_EQ(m_list.SetItem(&item), FALSE);
    EXPECT_EQ(m_list.GetItemText(0, 0), L"plain");
    EXPECT_EQ(m_list.Record(0, 0)->nImage, -1);
}

// Drawing sets the text of a drop-down that has none, and a text that is set is drawn at once.
TEST_F(RefusedChange, OfAChoiceDoesNotKeepThePaintingGoing)
{
    CStringArray choices;
    choices.Add(L"choice");
    m_list.InsertItem(0, L"");
    m_list.SetCurSel(0);
    m_parent.refused = LVIF_TEXT;
    m_list.SetComboBox(0, 0, TRUE, &choices, 5, 0);
    m_list.UpdateWindow();
    m_parent.changing.clear();
    m_list.UpdateSubItem(0, 0);
    EXPECT_THAT(m_parent.changing, SizeIs(1));
    EXPECT_THAT(m_parent.changing, Each(LVIF_TEXT));
    EXPECT_FALSE(m_list.GetUpdateRect(nullptr));
    EXPECT_EQ(m_list.GetItemText(0, 0), L"");

    m_parent.refused = 0;
    m_list.UpdateSubItem(0, 0);
    EXPECT_EQ(m_list.GetItemText(0, 0), L"choice");
}

TEST_F(RecordsInSecret, AreAttachedAndFreed)
{
    const auto isOfParameter = Truly([](UINT what) { return (what & LVIF_PARAM) != 0; });
    InsertRows();
    m_list.DeleteItem(0);
    EXPECT_TRUE(m_list.SendMessage(LVM_DELETEITEM, 0));
    m_list.DeleteAllItems();
    InsertRows();
    m_list.DestroyWindow();
    EXPECT_THAT(m_parent.changing, Not(Contains(isOfParameter)));
    EXPECT_THAT(m_parent.changed, Not(Contains(isOfParameter)));
}

TEST_F(RecordsInSecret, HideNoOtherChange)
{
    InsertRows();
    m_parent.changing.clear();
    m_parent.changed.clear();
    m_list.SetItemText(0, 0, L"new");
    EXPECT_THAT(m_parent.changing, testing::ElementsAre(LVIF_TEXT));
    EXPECT_THAT(m_parent.changed, testing::ElementsAre(LVIF_TEXT));

    // A parameter that somebody else sets; taken back before the list takes it for records.
    const int row = m_list.CListCtrl::InsertItem(3, L"without records");
    m_parent.changing.clear();
    m_parent.changed.clear();
    m_list.CListCtrl::SetItemData(row, 0x1234);
    m_list.CListCtrl::SetItemData(row, 0);
    EXPECT_THAT(m_parent.changing, testing::ElementsAre(LVIF_PARAM, LVIF_PARAM));
    EXPECT_THAT(m_parent.changed, testing::ElementsAre(LVIF_PARAM, LVIF_PARAM));
}
