// The rectangles of cells.
#include "ListTest.h"

#include <array>

namespace
{
using SubItemRect = ListTest;
} // namespace

TEST_F(SubItemRect, IsTheCellBetweenItsColumnsEdges)
{
    AddRows(2);
    CRect row;
    ASSERT_TRUE(m_list.GetItemRect(1, &row, LVIR_BOUNDS));
    const std::array edges = {0, 100, 180, 240};
    for (size_t column = 0; column < 3; ++column) {
        CRect rect(1, 1, 1, 1);
        EXPECT_EQ(m_list.GetSubItemRect(1, static_cast<int>(column), LVIR_BOUNDS, rect), TRUE);
        EXPECT_TRUE(rect == CRect(edges[column], row.top, edges[column + 1], row.bottom)) << column;
    }
}

TEST_F(SubItemRect, EndsColumn0WhereColumn1BeginsInEveryArea)
{
    AddRows(1);
    for (const int area : {LVIR_BOUNDS, LVIR_LABEL, LVIR_ICON}) {
        CRect base;
        ASSERT_TRUE(m_list.CListCtrl::GetSubItemRect(0, 0, area, base));
        CRect rect;
        EXPECT_EQ(m_list.GetSubItemRect(0, 0, area, rect), TRUE);
        EXPECT_TRUE(rect == CRect(base.left, base.top, 100, base.bottom)) << area;
    }
}

TEST_F(SubItemRect, EndsColumn0WhereColumn1BeginsWithTwoColumnsAlready)
{
    m_list.DeleteColumn(2);
    AddRows(1);
    CRect row;
    ASSERT_TRUE(m_list.GetItemRect(0, &row, LVIR_BOUNDS));
    CRect rect;
    EXPECT_EQ(m_list.GetSubItemRect(0, 0, LVIR_BOUNDS, rect), TRUE);
    EXPECT_TRUE(rect == CRect(0, row.top, 100, row.bottom));
}

TEST_F(SubItemRect, OfTheOnlyColumnIsTheListViewsOwn)
{
    m_list.DeleteColumn(2);
    m_list.DeleteColumn(1);
    AddRows(1);
    for (const int area : {LVIR_BOUNDS, LVIR_LABEL, LVIR_ICON}) {
        CRect base;
        ASSERT_TRUE(m_list.CListCtrl::GetSubItemRect(0, 0, area, base));
        CRect rect;
        EXPECT_EQ(m_list.GetSubItemRect(0, 0, area, rect), TRUE);
        EXPECT_TRUE(rect == base) << area;
    }
}

TEST_F(SubItemRect, FollowsTheOrderOfTheColumns)
{
    AddRows(1);
    int order[] = {0, 2, 1};
    ASSERT_TRUE(m_list.SetColumnOrderArray(3, order));
    CRect row;
    ASSERT_TRUE(m_list.GetItemRect(0, &row, LVIR_BOUNDS));
    CRect rect;
    EXPECT_EQ(m_list.GetSubItemRect(0, 1, LVIR_BOUNDS, rect), TRUE);
    EXPECT_TRUE(rect == CRect(160, row.top, 240, row.bottom));
    // Column 0 is taken to reach as far as column 1, wherever that stands.
    EXPECT_EQ(m_list.GetSubItemRect(0, 0, LVIR_BOUNDS, rect), TRUE);
    EXPECT_TRUE(rect == CRect(0, row.top, 160, row.bottom));
}

TEST_F(SubItemRect, IsOfRowsWithoutRecordsAsWell)
{
    m_list.CListCtrl::InsertItem(0, L"plain");
    CRect rect;
    EXPECT_EQ(m_list.GetSubItemRect(0, 0, LVIR_BOUNDS, rect), TRUE);
    EXPECT_EQ(rect.right, 100);
}
