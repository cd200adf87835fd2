// The number of columns, which the header keeps: it is the one of the moment, whoever changed it.
#include "ListTest.h"

namespace
{

class ColumnCount : public ListTest
{
protected:
    HWND Header() { return reinterpret_cast<HWND>(m_list.SendMessage(LVM_GETHEADER)); }

    template <class Column>
    int InsertColumn(UINT message)
    {
        Column column = {};
        column.mask = LVCF_WIDTH;
        column.cx = 20;
        return static_cast<int>(m_list.SendMessage(message, 1, reinterpret_cast<LPARAM>(&column)));
    }

    template <class Item>
    int InsertHeaderItem(UINT message)
    {
        Item item = {};
        item.mask = HDI_WIDTH;
        item.cxy = 20;
        return static_cast<int>(::SendMessageW(Header(), message, 1, reinterpret_cast<LPARAM>(&item)));
    }
};

} // namespace

TEST_F(ColumnCount, FollowsColumnsOfTheListViewInBothForms)
{
    ASSERT_EQ(m_list.GetColumns(), 3);
    ASSERT_EQ(InsertColumn<LVCOLUMNA>(LVM_INSERTCOLUMNA), 1);
    EXPECT_EQ(m_list.GetColumns(), 4);
    ASSERT_EQ(InsertColumn<LVCOLUMNW>(LVM_INSERTCOLUMNW), 1);
    EXPECT_EQ(m_list.GetColumns(), 5);
    for (const int left : {4, 3, 2, 1, 0}) {
        ASSERT_TRUE(m_list.SendMessage(LVM_DELETECOLUMN, 0));
        EXPECT_EQ(m_list.GetColumns(), left);
    }
}

TEST_F(ColumnCount, FollowsItemsOfTheHeaderInBothForms)
{
    ASSERT_EQ(m_list.GetColumns(), 3);
    ASSERT_EQ(InsertHeaderItem<HDITEMA>(HDM_INSERTITEMA), 1);
    EXPECT_EQ(m_list.GetColumns(), 4);
    ASSERT_EQ(InsertHeaderItem<HDITEMW>(HDM_INSERTITEMW), 1);
    EXPECT_EQ(m_list.GetColumns(), 5);
    ASSERT_TRUE(::SendMessageW(Header(), HDM_DELETEITEM, 4, 0));
    EXPECT_EQ(m_list.GetColumns(), 4);
}

TEST_F(ColumnCount, StaysWhereTheHeaderRefuses)
{
    ASSERT_EQ(m_list.GetColumns(), 3);
    ASSERT_FALSE(::SendMessageW(Header(), HDM_DELETEITEM, 9, 0));
    EXPECT_EQ(m_list.GetColumns(), 3);
    ASSERT_EQ(::SendMessageW(Header(), HDM_INSERTITEMW, 0, 0), -1);
    EXPECT_EQ(m_list.GetColumns(), 3);
}

TEST_F(ColumnCount, IsThatOfAnotherWindowUnderTheSameObject)
{
    ASSERT_EQ(m_list.GetColumns(), 3);
    m_list.DestroyWindow();
    EXPECT_EQ(m_list.GetColumns(), 0);
    ASSERT_TRUE(m_list.Create(Style, CRect(10, 10, 310, 260), &m_parent, 1));
    EXPECT_EQ(m_list.GetColumns(), 0);
    m_list.InsertColumn(0, L"Only", LVCFMT_LEFT, 100);
    EXPECT_EQ(m_list.GetColumns(), 1);
}

// The same handle, as the platform may give it to the header of another list.
TEST_F(ColumnCount, IsTakenAnewWithAHeaderOfAFormerHandle)
{
    ASSERT_EQ(m_list.GetColumns(), 3);
    m_list.m_HeaderCtrl.UnsubclassWindow();
    ASSERT_EQ(InsertColumn<LVCOLUMNW>(LVM_INSERTCOLUMNW), 1);
    m_list.m_bHeaderSubclassed = FALSE;
    m_list.SubclassHeaderControl();
    ASSERT_EQ(m_list.m_HeaderCtrl.m_hWnd, Header());
    EXPECT_EQ(m_list.GetColumns(), 4);
}

TEST_F(ColumnCount, IsThatOfAHeaderNotTakenOver)
{
    m_list.m_HeaderCtrl.UnsubclassWindow();
    EXPECT_EQ(m_list.GetColumns(), 3);
    ASSERT_EQ(InsertColumn<LVCOLUMNW>(LVM_INSERTCOLUMNW), 1);
    EXPECT_EQ(m_list.GetColumns(), 4);
}
