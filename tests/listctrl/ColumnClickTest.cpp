// Clicks on the header: the check box of a column.
#include "InputTest.h"

namespace
{

class ColumnClick : public InputTest
{
protected:
    void AddRowsWithStates(std::initializer_list<int> states)
    {
        for (const int state : states) {
            AddRows(1);
            ASSERT_TRUE(m_list.SetCheckbox(m_list.GetItemCount() - 1, 2, state));
        }
    }
    std::vector<int> States()
    {
        std::vector<int> states;
        for (int row = 0; row < m_list.GetItemCount(); ++row)
            states.push_back(m_list.GetCheckbox(row, 2));
        return states;
    }
    LRESULT NotifyClick(CWnd& parent, int column)
    {
        NMLISTVIEW click = {};
        click.hdr = {m_list.m_hWnd, HandlingParent::ListId, static_cast<UINT>(LVN_COLUMNCLICK)};
        click.iItem = -1;
        click.iSubItem = column;
        return parent.SendMessage(WM_NOTIFY, HandlingParent::ListId, reinterpret_cast<LPARAM>(&click));
    }
    void ClickColumn(int column) { NotifyClick(m_parent, column); }
    // The black pixels of that part of a cell that is seen.
    int BlackPixelsInSight(int row, int column)
    {
        CRect seen;
        m_list.GetClientRect(&seen);
        seen.IntersectRect(&seen, Cell(row, column));
        const CClientDC dc(&m_list);
        return testkit::Picture::OfDc(dc.m_hDC, seen).Count(RGB(0, 0, 0));
    }
};

// Notes the header at each painting of the list.
class HeaderNotingList : public OpenList
{
public:
    bool isNoting = false;
    std::vector<std::pair<int, BOOL>> headerAtPaint; // its state, and whether it waits to be painted

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_PAINT && isNoting)
            headerAtPaint.emplace_back(GetHeaderCheckedState(0), m_HeaderCtrl.GetUpdateRect(nullptr));
        return OpenList::WindowProc(message, wParam, lParam);
    }
};

} // namespace

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST_F(ColumnClick, OnAHeaderWithoutCheckBoxChangesNothing)
{
    AddRowsWithStates({0, 1, -1, 2});
    m_list.SetHeaderCheckedState(1, 1);
    ClickColumn(2);
    EXPECT_THAT(States(), ElementsAre(0, 1, -1, 2));
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 0);
    EXPECT_EQ(m_list.GetHeaderCheckedState(1), 1);
}

TEST_F(ColumnClick, ChecksEveryCheckBoxAndASecondOneClearsThem)
{
    AddRowsWithStates({0, 1, -1, 0});
    m_list.SetHeaderCheckedState(2, 1);
    ClickColumn(2);
    EXPECT_THAT(States(), ElementsAre(1, 1, -1, 1));
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 2);
    ClickColumn(2);
    EXPECT_THAT(States(), ElementsAre(0, 0, -1, 0));
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 1);
}

TEST_F(ColumnClick, SetsEveryStateButMinusOne)
{
    AddRowsWithStates({2, -7, -1, 99});
    m_list.SetHeaderCheckedState(2, 1);
    ClickColumn(2);
    EXPECT_THAT(States(), ElementsAre(1, 1, -1, 1));
}

TEST_F(ColumnClick, OnAHeaderOfAnyOtherStateClears)
{
    AddRowsWithStates({1, 0, -1});
    for (const int state : {2, 5, -4}) {
        m_list.SetCheckbox(0, 2, 1);
        m_list.SetHeaderCheckedState(2, state);
        ClickColumn(2);
        EXPECT_THAT(States(), ElementsAre(0, 0, -1)) << state;
        EXPECT_EQ(m_list.GetHeaderCheckedState(2), 1) << state;
    }
}

TEST_F(ColumnClick, LeavesTheOtherColumnsAlone)
{
    AddRowsWithStates({0, 0});
    m_list.SetCheckbox(0, 1, 0);
    for (const int column : {0, 1, 2})
        m_list.SetHeaderCheckedState(column, 1);
    ClickColumn(2);
    EXPECT_EQ(m_list.GetCheckbox(0, 1), 0);
    EXPECT_EQ(m_list.GetCheckbox(0, 0), -1);
    EXPECT_EQ(m_list.GetHeaderCheckedState(0), 1);
    EXPECT_EQ(m_list.GetHeaderCheckedState(1), 1);
}

TEST_F(ColumnClick, SetsDisabledRowsAndPassesOverRowsWithoutRecords)
{
    AddRowsWithStates({0, 0});
    AddPlainRow();
    m_list.SetEnabled(0, FALSE);
    m_list.SetHeaderCheckedState(2, 1);
    ClickColumn(2);
    EXPECT_THAT(States(), ElementsAre(1, 1, -1));
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 2);
}

TEST_F(ColumnClick, PassesOverRowsThatHaveNoRecordForTheColumn)
{
    AddRowsWithStates({0});
    m_list.InsertColumn(3, L"Fourth", LVCFMT_LEFT, 40);
    AddRows(1);
    m_list.SetCheckbox(1, 3, 0);
    m_list.SetHeaderCheckedState(3, 1);
    ClickColumn(3);
    EXPECT_EQ(m_list.GetCheckbox(0, 3), -1);
    EXPECT_EQ(m_list.GetCheckbox(1, 3), 1);
    EXPECT_EQ(m_list.GetHeaderCheckedState(3), 2);
}

TEST_F(ColumnClick, OnAColumnOutOfRangeChangesNothing)
{
    AddRowsWithStates({0, 1});
    m_list.SetHeaderCheckedState(2, 1);
    for (const int column : {-1, 3, INT_MIN, INT_MAX})
        ClickColumn(column);
    EXPECT_THAT(States(), ElementsAre(0, 1));
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 1);
}

TEST_F(ColumnClick, TogglesTheHeaderOfAnEmptyList)
{
    m_list.SetHeaderCheckedState(2, 1);
    ClickColumn(2);
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 2);
    ClickColumn(2);
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 1);
}

TEST_F(ColumnClick, TellsTheParentOfNoCell)
{
    AddRowsWithStates({0, 0, 0});
    m_list.SetHeaderCheckedState(2, 1);
    ClickColumn(2);
    ClickColumn(2);
    EXPECT_THAT(m_parent.messages, IsEmpty());
}

TEST_F(ColumnClick, IsCounted)
{
    AddRowsWithStates({0, 1, -1});
    m_list.SetHeaderCheckedState(2, 1);
    ClickColumn(2);
    EXPECT_EQ(m_list.CountCheckedItems(2), 2);
    ClickColumn(2);
    EXPECT_EQ(m_list.CountCheckedItems(2), 0);
    m_list.SetCheckbox(0, 2, 1);
    EXPECT_EQ(m_list.CountCheckedItems(2), 1);
}

TEST_F(ColumnClick, DrawsHeaderAndCellsAtOnce)
{
    AddRowsWithStates({0, 0, -1});
    m_list.SetHeaderCheckedState(2, 1);
    m_list.UpdateWindow();
    m_list.m_HeaderCtrl.UpdateWindow();
    ASSERT_EQ(BlackPixels(0, 2), 0);
    ClickColumn(2);
    EXPECT_GT(BlackPixels(0, 2), 0);
    EXPECT_GT(BlackPixels(1, 2), 0);
    EXPECT_EQ(BlackPixels(2, 2), 0);
    EXPECT_FALSE(m_list.GetUpdateRect(nullptr));
    EXPECT_FALSE(m_list.m_HeaderCtrl.GetUpdateRect(nullptr));
}

TEST_F(ColumnClick, DrawsTheHeaderBeforeTheCells)
{
    HeaderNotingList list;
    ASSERT_TRUE(list.Create(Style, CRect(0, 0, 200, 150), &m_parent, 2));
    list.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
    for (const int row : {0, 1}) {
        list.InsertItem(row, L"");
        list.SetCheckbox(row, 0, 0);
    }
    list.SetHeaderCheckedState(0, 1);
    list.UpdateWindow();
    list.m_HeaderCtrl.UpdateWindow();
    list.isNoting = true;
    NMLISTVIEW click = {};
    click.hdr = {list.m_hWnd, 2, static_cast<UINT>(LVN_COLUMNCLICK)};
    m_parent.SendMessage(WM_NOTIFY, 2, reinterpret_cast<LPARAM>(&click));
    EXPECT_FALSE(list.headerAtPaint.empty());
    EXPECT_THAT(list.headerAtPaint, Each(Pair(2, FALSE)));
    list.DestroyWindow();
}

TEST_F(ColumnClick, SetsRowsOutOfSightToo)
{
    for (int row = 0; row < 60; ++row)
        AddRowsWithStates({0});
    m_list.SetHeaderCheckedState(2, 1);
    m_list.UpdateWindow();
    ClickColumn(2);
    EXPECT_THAT(States(), Each(1));
    m_list.EnsureVisible(59, FALSE);
    m_list.UpdateWindow();
    EXPECT_GT(BlackPixels(59, 2), 0);
}

TEST_F(ColumnClick, DrawsEveryRowInSightOfAScrolledListAtOnceAndThePartOfTheLast)
{
    for (int row = 0; row < 60; ++row)
        AddRowsWithStates({0});
    m_list.SetHeaderCheckedState(2, 1);
    const CRect first = Cell(0, 2);
    CRect window;
    CRect client;
    m_list.GetWindowRect(&window);
    m_list.GetClientRect(&client);
    // Five rows and all but three lines of a sixth.
    const int change = first.top + 6 * first.Height() - 3 - client.Height();
    m_list.SetWindowPos(nullptr, 0, 0, window.Width(), window.Height() + change, SWP_NOMOVE | SWP_NOZORDER);
    m_list.SendMessage(LVM_SCROLL, 0, 10 * first.Height());
    m_list.UpdateWindow();
    m_list.GetClientRect(&client);
    ASSERT_EQ(m_list.GetTopIndex(), 10);
    ASSERT_EQ(Cell(15, 2).bottom, client.bottom + 3);
    ASSERT_EQ(BlackPixelsInSight(10, 2), 0);
    ASSERT_EQ(BlackPixelsInSight(15, 2), 0);
    ClickColumn(2);
    for (int row = 10; row <= 15; ++row)
        EXPECT_GT(BlackPixelsInSight(row, 2), 0) << row;
    EXPECT_FALSE(m_list.GetUpdateRect(nullptr));
}

TEST_F(ColumnClick, IsPassedOnToTheParent)
{
    HandlingParent parent;
    ASSERT_TRUE(
        parent.CreateEx(0, AfxRegisterWndClass(0), L"Other", WS_POPUP, CRect(0, 0, 50, 50), nullptr, 0));
    AddRowsWithStates({0});
    EXPECT_EQ(NotifyClick(parent, 2), 0);
    m_list.SetHeaderCheckedState(2, 1);
    EXPECT_EQ(NotifyClick(parent, 2), 0);
    EXPECT_THAT(States(), ElementsAre(1));
    constexpr UINT code = static_cast<UINT>(LVN_COLUMNCLICK);
    EXPECT_THAT(parent.heard, ElementsAre(code, code));
    parent.DestroyWindow();
}

TEST_F(ColumnClick, ComesOfAClickOnTheHeader)
{
    AddRowsWithStates({0, 0});
    m_list.SetHeaderCheckedState(2, 1);
    CRect item;
    ASSERT_TRUE(m_list.m_HeaderCtrl.GetItemRect(2, &item));
    const LPARAM point = MAKELPARAM(item.CenterPoint().x, item.CenterPoint().y);
    m_list.m_HeaderCtrl.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, point);
    m_list.m_HeaderCtrl.SendMessage(WM_LBUTTONUP, 0, point);
    EXPECT_THAT(States(), ElementsAre(1, 1));
    EXPECT_EQ(m_list.GetHeaderCheckedState(2), 2);
}
