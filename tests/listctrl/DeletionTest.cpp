// How rows and their records go: one by one, all at once, with the window, with the object. That the records
// are freed is judged by the leak gate.
#include "CellState.h"
#include "ListTest.h"

#include <functional>
#include <memory>

namespace
{

// Looks at the rows at the moment when the list view itself is about to handle a message.
class WatchedList : public OpenList
{
public:
    // The parameters of all rows when `watched` last came; empty if it did not.
    UINT watched = 0;
    int count = 0;
    std::vector<LPARAM> parameters;

    std::vector<LPARAM> Parameters()
    {
        std::vector<LPARAM> all;
        const auto rows = static_cast<int>(OpenList::DefWindowProc(LVM_GETITEMCOUNT, 0, 0));
        for (int row = 0; row < rows; ++row) {
            LVITEM item = {};
            item.mask = LVIF_PARAM;
            item.iItem = row;
            OpenList::DefWindowProc(LVM_GETITEM, 0, reinterpret_cast<LPARAM>(&item));
            all.push_back(item.lParam);
        }
        return all;
    }

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == watched) {
            ++count;
            parameters = Parameters();
        }
        return OpenList::DefWindowProc(message, wParam, lParam);
    }
};

class DeletionTest : public ListTest
{
protected:
    void SetUp() override
    {
        ListTest::SetUp();
        MakeWatchedList();
    }

    void MakeWatchedList() { Create(m_watched); }

    void Create(CXListCtrl& list)
    {
        ASSERT_TRUE(list.Create(Style, CRect(0, 0, 200, 100), &m_parent, 2));
        for (const wchar_t* column : {L"First", L"Second"})
            list.InsertColumn(list.GetColumns(), column, LVCFMT_LEFT, 60);
    }

    // Rows whose records hold memory of their own, with their numbers as data.
    static void Fill(CXListCtrl& list, int rows)
    {
        const CString longText(L'x', 100);
        for (int row = 0; row < rows; ++row) {
            ASSERT_EQ(list.InsertItem(row, L"row"), row);
            ASSERT_TRUE(list.SetItemData(row, static_cast<DWORD>(row)));
            for (const int column : {0, 1}) {
                ASSERT_TRUE(list.SetItemToolTipText(row, column, longText));
                ASSERT_TRUE(list.SetProgress(row, column, TRUE, longText));
            }
        }
    }

    static std::vector<DWORD> Data(CXListCtrl& list)
    {
        std::vector<DWORD> data;
        for (int row = 0; row < list.GetItemCount(); ++row)
            data.push_back(list.GetItemData(row));
        return data;
    }

    WatchedList m_watched;
};

using DeleteItem = DeletionTest;
using DeleteAllItems = DeletionTest;
using ListDestruction = DeletionTest;

} // namespace

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Ne;
using testing::SizeIs;

TEST_F(DeleteItem, DeletesOneRowAndKeepsTheOthersRecords)
{
    Fill(m_watched, 4);
    EXPECT_EQ(m_watched.DeleteItem(1), TRUE);
    EXPECT_THAT(Data(m_watched), ElementsAre(0, 2, 3));
    EXPECT_EQ(m_watched.DeleteItem(2), TRUE);
    EXPECT_EQ(m_watched.DeleteItem(0), TRUE);
    EXPECT_THAT(Data(m_watched), ElementsAre(2));
    EXPECT_EQ(m_watched.DeleteItem(0), TRUE);
    EXPECT_EQ(m_watched.GetItemCount(), 0);
}

TEST_F(DeleteItem, ZeroesTheParameterBeforeTheListViewDeletesTheRow)
{
    Fill(m_watched, 3);
    ASSERT_THAT(m_watched.Parameters(), Each(Ne(0)));
    m_watched.watched = LVM_DELETEITEM;
    m_watched.DeleteItem(1);
    EXPECT_EQ(m_watched.count, 1);
    EXPECT_THAT(m_watched.parameters, ElementsAre(Ne(0), 0, Ne(0)));
}

TEST_F(DeleteItem, DeletesARowWithoutRecords)
{
    Fill(m_watched, 1);
    m_watched.CListCtrl::InsertItem(0, L"plain");
    EXPECT_EQ(m_watched.DeleteItem(0), TRUE);
    EXPECT_THAT(Data(m_watched), ElementsAre(0));
    EXPECT_TRUE(m_watched.SetBold(0, 1, TRUE));
}

TEST_F(DeleteItem, RefusesRowsOutOfRange)
{
    EXPECT_EQ(m_watched.DeleteItem(0), FALSE);
    Fill(m_watched, 2);
    m_watched.watched = LVM_DELETEITEM;
    EXPECT_EQ(m_watched.DeleteItem(-1), FALSE);
    EXPECT_EQ(m_watched.DeleteItem(2), FALSE);
    EXPECT_EQ(m_watched.count, 0);
    EXPECT_THAT(Data(m_watched), ElementsAre(0, 1));
}

TEST_F(DeleteAllItems, EmptiesTheList)
{
    Fill(m_watched, 3);
    m_watched.CListCtrl::InsertItem(1, L"plain");
    EXPECT_EQ(m_watched.DeleteAllItems(), TRUE);
    EXPECT_EQ(m_watched.GetItemCount(), 0);
    EXPECT_EQ(m_watched.GetColumns(), 2);
}

TEST_F(DeleteAllItems, ZeroesEveryParameterBeforeTheListViewDeletesTheRows)
{
    Fill(m_watched, 3);
    m_watched.watched = LVM_DELETEALLITEMS;
    m_watched.DeleteAllItems();
    EXPECT_EQ(m_watched.count, 1);
    EXPECT_THAT(m_watched.parameters, ElementsAre(0, 0, 0));
}

TEST_F(DeleteAllItems, SucceedsInAnEmptyList)
{
    EXPECT_EQ(m_watched.DeleteAllItems(), TRUE);
    EXPECT_EQ(m_watched.GetItemCount(), 0);
}

TEST_F(DeleteAllItems, LeavesAListThatTakesNewRows)
{
    Fill(m_watched, 3);
    m_watched.DeleteAllItems();
    Fill(m_watched, 2);
    EXPECT_THAT(Data(m_watched), ElementsAre(0, 1));
    EXPECT_EQ(StateOf(*m_watched.Record(1, 1)).nProgressPercent, 0);
}

TEST_F(DeletionTest, DeleteCheckedItemsZeroesTheParameterOfEachRow)
{
    Fill(m_watched, 3);
    m_watched.SetCheckbox(1, 0, 0);
    m_watched.watched = LVM_DELETEITEM;
    m_watched.DeleteCheckedItems();
    EXPECT_EQ(m_watched.count, 2);
    EXPECT_THAT(m_watched.parameters, ElementsAre(Ne(0), 0));
    EXPECT_THAT(Data(m_watched), ElementsAre(1));
}

TEST_F(ListDestruction, WindowThatGoesFreesAndZeroesAllRows)
{
    Fill(m_watched, 3);
    m_watched.watched = WM_DESTROY;
    m_watched.DestroyWindow();
    EXPECT_EQ(m_watched.GetSafeHwnd(), nullptr);
    EXPECT_EQ(m_watched.count, 1);
    EXPECT_THAT(m_watched.parameters, ElementsAre(0, 0, 0));
}

TEST_F(ListDestruction, ParentThatGoesFreesAndZeroesAllRows)
{
    Fill(m_watched, 3);
    m_watched.watched = WM_DESTROY;
    m_parent.DestroyWindow();
    EXPECT_EQ(m_watched.GetSafeHwnd(), nullptr);
    EXPECT_THAT(m_watched.parameters, ElementsAre(0, 0, 0));
}

TEST_F(ListDestruction, ObjectThatGoesFirstTakesItsWindowAlong)
{
    HWND window = nullptr;
    HWND header = nullptr;
    {
        OpenList list;
        Create(list);
        Fill(list, 3);
        window = list.m_hWnd;
        header = list.m_HeaderCtrl.m_hWnd;
        ASSERT_TRUE(::IsWindow(header));
    }
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_FALSE(::IsWindow(header));
}

TEST_F(ListDestruction, ObjectIsDeletedThroughItsBase)
{
    const auto list = new CXListCtrl;
    Create(*list);
    Fill(*list, 2);
    const HWND window = list->m_hWnd;
    const std::unique_ptr<CWnd> base(list);
    EXPECT_TRUE(::IsWindow(window));
    base->DestroyWindow();
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(ListDestruction, SubclassedWindowFreesItsRowsToo)
{
    const HWND window = ::CreateWindowExW(0, WC_LISTVIEWW, L"", Style, 0, 0, 200, 100, m_parent.m_hWnd,
                                          nullptr, AfxGetInstanceHandle(), nullptr);
    WatchedList list;
    ASSERT_TRUE(list.SubclassWindow(window));
    for (const wchar_t* column : {L"First", L"Second"})
        list.InsertColumn(list.GetColumns(), column, LVCFMT_LEFT, 60);
    Fill(list, 3);
    list.watched = WM_DESTROY;
    ::DestroyWindow(window);
    EXPECT_THAT(list.parameters, ElementsAre(0, 0, 0));
}

TEST_F(ListDestruction, ColumnsThatWereAddedOrDeletedLeaveNothingBehind)
{
    Fill(m_watched, 2);
    m_watched.InsertColumn(2, L"Third", LVCFMT_LEFT, 60);
    m_watched.InsertItem(2, L"longer");
    m_watched.SetItemToolTipText(2, 2, CString(L'y', 100));
    m_watched.DeleteColumn(1);
    m_watched.DeleteColumn(1);
    EXPECT_EQ(m_watched.DeleteItem(0), TRUE);
    m_watched.watched = WM_DESTROY;
    m_watched.DestroyWindow();
    EXPECT_THAT(m_watched.parameters, ElementsAre(0, 0));
}

TEST_F(ListDestruction, ObjectServesAnotherWindowAfterwards)
{
    Fill(m_watched, 3);
    m_watched.SetCheckbox(0, 0, 1);
    m_watched.DestroyWindow();
    EXPECT_EQ(m_watched.m_bHeaderSubclassed, FALSE);
    MakeWatchedList();
    const HWND header = reinterpret_cast<HWND>(m_watched.SendMessage(LVM_GETHEADER));
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(m_watched.m_HeaderCtrl.m_hWnd, header);
    EXPECT_TRUE(m_watched.SetHeaderCheckedState(0, 2));
    HDITEM item = {};
    item.mask = HDI_IMAGE;
    EXPECT_TRUE(::SendMessage(header, HDM_GETITEM, 0, reinterpret_cast<LPARAM>(&item)));
    EXPECT_EQ(item.iImage, 2);
    EXPECT_EQ(m_watched.CountCheckedItems(0), 0);
    Fill(m_watched, 2);
    EXPECT_THAT(Data(m_watched), ElementsAre(0, 1));
    EXPECT_EQ(m_watched.CountCheckedItems(0), 0);
    m_watched.watched = WM_DESTROY;
    m_watched.DestroyWindow();
    EXPECT_THAT(m_watched.parameters, ElementsAre(0, 0));
}
