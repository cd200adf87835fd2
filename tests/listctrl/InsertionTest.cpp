// The insertion of rows, in all its forms, and the records that rows begin with.
#include "CellTest.h"

#include "kit/ReplacedImports.h"

#include <climits>
#include <cstring>
#include <new>

namespace
{

class InsertionTest : public CellTest
{
};

wchar_t g_text[] = L"given";

LVITEM TextItem(int row, int column)
{
    LVITEM item = {};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = column;
    item.pszText = g_text;
    return item;
}

#ifdef __MINGW32__
void* __cdecl NoMemory(size_t, const void*)
{
    return nullptr;
}

[[noreturn]] void* ThrowBadAlloc(size_t)
{
    throw std::bad_alloc();
}

// As the framework's own allocation does.
[[noreturn]] void* ThrowMemoryException(size_t)
{
    AfxThrowMemoryException();
}
#endif

using InsertItemText = InsertionTest;
using InsertItemColors = InsertionTest;
using InsertItemStructure = InsertionTest;

} // namespace

TEST_F(InsertItemText, PutsTheRowWhereItIsAskedAndReturnsItsIndex)
{
    EXPECT_EQ(m_list.InsertItem(0, L"a"), 0);
    EXPECT_EQ(m_list.InsertItem(1, L"c"), 1);
    EXPECT_EQ(m_list.InsertItem(1, L"b"), 1);
    EXPECT_EQ(m_list.InsertItem(0, L"first"), 0);
    EXPECT_THAT(FirstTexts(), testing::ElementsAre(L"first", L"a", L"b", L"c"));
}

TEST_F(InsertItemText, AppendsForAnIndexBeyondTheEnd)
{
    AddRows(1);
    EXPECT_EQ(m_list.InsertItem(50, L"far"), 1);
    EXPECT_EQ(m_list.InsertItem(INT_MAX, L"farther"), 2);
    EXPECT_THAT(FirstTexts(), testing::ElementsAre(L"row 0", L"far", L"farther"));
}

TEST_F(InsertItemText, InsertsNothingForANegativeIndex)
{
    for (const int row : {-1, -5, INT_MIN})
        EXPECT_EQ(m_list.InsertItem(row, L"never"), -1) << row;
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(InsertItemText, GivesTheFirstCellTheListsColorsAndTheOthersTheDefaults)
{
    GiveTheListItsOwnColors();
    m_list.InsertItem(0, L"a");
    EXPECT_EQ(Cell(0, 0), Colored(ListText, ListWindow));
    EXPECT_EQ(Cell(0, 1), CellState());
    EXPECT_EQ(Cell(0, 2), CellState());
}

TEST_F(InsertItemText, TakesANullTextForAnEmptyOne)
{
    EXPECT_EQ(m_list.InsertItem(0, static_cast<LPCTSTR>(nullptr)), 0);
    EXPECT_EQ(Text(0, 0), L"");
    EXPECT_EQ(Cell(0, 0), CellState());
}

TEST_F(InsertItemText, ReturnsTheIndexThatASortedListGives)
{
    m_list.ModifyStyle(0, LVS_SORTASCENDING);
    EXPECT_EQ(m_list.InsertItem(0, L"m", Red, Green), 0);
    EXPECT_EQ(m_list.InsertItem(0, L"z"), 1);
    EXPECT_EQ(m_list.InsertItem(7, L"a", Green, Red), 0);
    EXPECT_THAT(FirstTexts(), testing::ElementsAre(L"a", L"m", L"z"));
    EXPECT_EQ(Cell(0, 0), Colored(Green, Red));
    EXPECT_EQ(Cell(1, 0), Colored(Red, Green));
    EXPECT_EQ(Cell(2, 0), CellState());
}

TEST_F(InsertItemText, MovesTheRecordsOfTheRowsBehindIt)
{
    AddRows(2);
    m_list.SetItemData(0, 10);
    m_list.SetItemData(1, 11);
    m_list.InsertItem(1, L"between");
    EXPECT_EQ(m_list.GetItemData(0), 10u);
    EXPECT_EQ(m_list.GetItemData(1), 0u);
    EXPECT_EQ(m_list.GetItemData(2), 11u);
}

#ifdef __MINGW32__
TEST_F(InsertItemText, LeavesARowWithoutRecordsWhereThereIsNoMemory)
{
    AddRows(1);
    LVITEM item = TextItem(1, 0);
    item.mask |= LVIF_PARAM;
    item.lParam = 0x1234;
    {
        const CReplacedImport allocation("libstdc++-6.dll", "_ZnwyRKSt9nothrow_t",
                                         reinterpret_cast<void*>(NoMemory));
        ASSERT_TRUE(allocation.IsReplaced());
        EXPECT_EQ(m_list.InsertItem(1, L"poor"), -1);
        EXPECT_EQ(m_list.InsertItem(2, L"colored", Red, Green), -1);
        EXPECT_EQ(m_list.InsertItem(&item), -1);
    }
    EXPECT_THAT(FirstTexts(), testing::ElementsAre(L"row 0", L"given", L"poor", L"colored"));
    for (const int row : {1, 2, 3}) {
        EXPECT_EQ(m_list.CListCtrl::GetItemData(row), 0u) << row;
        EXPECT_FALSE(m_list.SetBold(row, 0, TRUE)) << row;
    }
}

// The first rows of a list make it count the checked rows of each column, which takes memory too.
TEST_F(InsertItemText, LeavesARowWithoutRecordsWhereTheAllocationThrows)
{
    LVITEM item = TextItem(2, 0);
    item.mask |= LVIF_PARAM;
    item.lParam = 0x1234;
    int rows = 0;
    for (void* (*const allocate)(size_t) : {ThrowBadAlloc, ThrowMemoryException}) {
        const CReplacedImport allocation("libstdc++-6.dll", "_Znwy", reinterpret_cast<void*>(allocate));
        ASSERT_TRUE(allocation.IsReplaced());
        EXPECT_EQ(m_list.InsertItem(rows++, L"poor"), -1);
        EXPECT_EQ(m_list.InsertItem(rows++, L"colored", Red, Green), -1);
        item.iItem = rows++;
        EXPECT_EQ(m_list.InsertItem(&item), -1);
    }
    EXPECT_THAT(FirstTexts(),
                testing::ElementsAre(L"poor", L"colored", L"given", L"poor", L"colored", L"given"));
    for (int row = 0; row < rows; ++row) {
        EXPECT_EQ(m_list.CListCtrl::GetItemData(row), 0u) << row;
        EXPECT_FALSE(m_list.SetBold(row, 0, TRUE)) << row;
    }
    EXPECT_EQ(m_list.CountCheckedItems(1), 0);
    EXPECT_EQ(m_list.InsertItem(rows, L"rich"), rows);
    EXPECT_TRUE(m_list.SetCheckbox(rows, 1, 1));
    EXPECT_EQ(m_list.CountCheckedItems(1), 1);
}
#endif

TEST_F(InsertItemColors, GivesTheFirstCellItsColorsAndTheOthersTheDefaults)
{
    GiveTheListItsOwnColors();
    EXPECT_EQ(m_list.InsertItem(0, L"a", Red, Green), 0);
    EXPECT_THAT(FirstTexts(), testing::ElementsAre(L"a"));
    EXPECT_EQ(Cell(0, 0), Colored(Red, Green));
    EXPECT_EQ(Cell(0, 1), CellState());
    EXPECT_EQ(Cell(0, 2), CellState());
}

TEST_F(InsertItemColors, KeepsColorsAsTheyAreGiven)
{
    GiveTheListItsOwnColors();
    m_list.InsertItem(0, L"a", WindowsOwn, WindowsOwn);
    EXPECT_EQ(Cell(0, 0), Colored(WindowsOwn, WindowsOwn));
}

TEST_F(InsertItemColors, InsertsNothingForANegativeIndex)
{
    for (const int row : {-1, -5, INT_MIN})
        EXPECT_EQ(m_list.InsertItem(row, L"never", Red, Green), -1) << row;
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(InsertItemColors, TakesANullTextForAnEmptyOne)
{
    EXPECT_EQ(m_list.InsertItem(0, nullptr, Red, Green), 0);
    EXPECT_EQ(Text(0, 0), L"");
    EXPECT_EQ(Cell(0, 0), Colored(Red, Green));
}

TEST_F(InsertItemStructure, InsertsWhatTheMaskSaysAndReturnsTheIndex)
{
    AddRows(2);
    LVITEM item = TextItem(1, 0);
    item.mask |= LVIF_STATE;
    item.state = item.stateMask = LVIS_SELECTED;
    const LVITEM before = item;
    EXPECT_EQ(m_list.InsertItem(&item), 1);
    EXPECT_EQ(std::memcmp(&item, &before, sizeof item), 0);
    EXPECT_THAT(FirstTexts(), testing::ElementsAre(L"row 0", L"given", L"row 1"));
    EXPECT_EQ(m_list.GetItemState(1, LVIS_SELECTED), static_cast<UINT>(LVIS_SELECTED));
    EXPECT_EQ(m_list.GetItemState(0, LVIS_SELECTED), 0u);
}

TEST_F(InsertItemStructure, TakesTheImageWhateverTheMaskSays)
{
    GiveTheListItsOwnColors();
    LVITEM item = TextItem(0, 0);
    item.iImage = 7;
    m_list.InsertItem(&item);
    item.mask |= LVIF_IMAGE;
    item.iItem = 1;
    item.iImage = 8;
    m_list.InsertItem(&item);
    EXPECT_EQ(Cell(0, 0), Colored(ListText, ListWindow, 7));
    EXPECT_EQ(Cell(1, 0), Colored(ListText, ListWindow, 8));
    EXPECT_EQ(Cell(0, 1), CellState());
    EXPECT_EQ(Cell(0, 2), CellState());
}

TEST_F(InsertItemStructure, OverwritesTheParameter)
{
    LVITEM item = TextItem(0, 0);
    item.mask |= LVIF_PARAM;
    item.lParam = 0x1234;
    EXPECT_EQ(m_list.InsertItem(&item), 0);
    EXPECT_EQ(m_list.GetItemData(0), 0u);
    EXPECT_NE(m_list.CListCtrl::GetItemData(0), 0x1234u);
    EXPECT_TRUE(m_list.SetBold(0, 2, TRUE));
}

TEST_F(InsertItemStructure, InsertsNothingForANegativeIndex)
{
    for (const int row : {-1, -5, INT_MIN}) {
        const LVITEM item = TextItem(row, 0);
        EXPECT_EQ(m_list.InsertItem(&item), -1) << row;
    }
    EXPECT_EQ(m_list.GetItemCount(), 0);
}

TEST_F(InsertItemStructure, ReturnsTheRefusalOfTheListView)
{
    const LVITEM item = TextItem(0, 1);
    EXPECT_EQ(m_list.InsertItem(&item), -1);
    EXPECT_EQ(m_list.GetItemCount(), 0);
}
