#include "BoxTest.h"
#include "frame/BoundedList.h"

#include <gmock/gmock.h>
#include <memory>
#include <stdexcept>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class FillComboBoxTest : public BoxTest
{
};
class FillListBoxTest : public BoxTest
{
};
class FillListBox1Test : public BoxTest
{
};
class FillStringArrayTest : public BoxTest
{
};

// A list box that gets one more line while its first line is read.
class CGrowingListBox : public CWatchedBox<CListBox>
{
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const LRESULT result = CWatchedBox<CListBox>::WindowProc(message, wParam, lParam);
        if (message == LB_GETTEXT && wParam == 0 && GetCount() == 2)
            AddString(L"late");
        return result;
    }
};

// A list box that changes a text of the array when the first line is added.
class CMeddlingListBox : public CListBox
{
public:
    explicit CMeddlingListBox(CStringArray& items) : m_items(items) {}

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == LB_ADDSTRING && GetCount() == 0)
            m_items.ElementAt(0).SetAt(2, L'X');
        return CListBox::WindowProc(message, wParam, lParam);
    }

private:
    CStringArray& m_items;
};

// An allocator of which a list believes that it has room for two elements.
template <class T>
struct TinyAllocator : std::allocator<T>
{
    using value_type = T;
    TinyAllocator() = default;
    template <class U>
    TinyAllocator(const TinyAllocator<U>&)
    {
    }
    template <class U>
    struct rebind
    {
        using other = TinyAllocator<U>;
    };
    std::size_t max_size() const { return 2; }
};

} // namespace

TEST_F(FillComboBoxTest, AppendsInArrayOrderAndSelectsTheFirst)
{
    CComboBox box;
    CreateComboBox(box);
    CStringArray items;
    items.Add(L"pear");
    items.Add(L"");
    items.Add(L"\u00C4pfel \u6F22");
    FillComboBox(items, box);
    EXPECT_THAT(LinesOf(box), ElementsAre(L"pear", L"", L"\u00C4pfel \u6F22"));
    EXPECT_EQ(box.GetCurSel(), 0);
}

TEST_F(FillComboBoxTest, KeepsTheEntriesThatAreThere)
{
    CComboBox box;
    CreateComboBox(box);
    box.AddString(L"old 1");
    box.AddString(L"old 2");
    box.SetCurSel(1);
    CStringArray items;
    items.Add(L"new");
    FillComboBox(items, box);
    EXPECT_THAT(LinesOf(box), ElementsAre(L"old 1", L"old 2", L"new"));
    EXPECT_EQ(box.GetCurSel(), 0);
}

TEST_F(FillComboBoxTest, AsksForTheFirstEntryEvenWhenThereIsNone)
{
    CWatchedBox<CComboBox> box;
    CreateComboBox(box);
    box.m_messages.clear();
    CStringArray none;
    FillComboBox(none, box);
    EXPECT_THAT(box.m_messages, ElementsAre(UINT(CB_SETCURSEL)));
    EXPECT_EQ(box.GetCurSel(), CB_ERR);
}

TEST_F(FillComboBoxTest, TakesLongTextsWhole)
{
    CComboBox box;
    CreateComboBox(box);
    const std::wstring text(5000, L'x');
    CStringArray items;
    items.Add(text.c_str());
    FillComboBox(items, box);
    EXPECT_THAT(LinesOf(box), ElementsAre(text));
}

TEST_F(FillComboBoxTest, UsesTheMessageThatSorts)
{
    CComboBox box;
    CreateComboBox(box, CBS_DROPDOWNLIST | CBS_SORT);
    CStringArray items;
    items.Add(L"b");
    items.Add(L"a");
    FillComboBox(items, box);
    EXPECT_THAT(LinesOf(box), ElementsAre(L"a", L"b"));
}

TEST_F(FillComboBoxTest, LeavesTheArrayAsItWas)
{
    CComboBox box;
    CreateComboBox(box);
    CStringArray items;
    items.Add(L"a");
    FillComboBox(items, box);
    FillComboBox(items, box);
    EXPECT_THAT(TextsOf(items), ElementsAre(L"a"));
    EXPECT_THAT(LinesOf(box), ElementsAre(L"a", L"a"));
}

TEST_F(FillListBoxTest, AppendsInArrayOrderAndSelectsTheFirst)
{
    CListBox box;
    CreateListBox(box);
    box.AddString(L"old");
    CStringArray items;
    items.Add(L"z,z");
    items.Add(L"a");
    FillListBox(items, box);
    EXPECT_THAT(LinesOf(box), ElementsAre(L"old", L"z,z", L"a"));
    EXPECT_EQ(box.GetCurSel(), 0);
}

TEST_F(FillListBoxTest, TakesLongTextsWhole)
{
    CListBox box;
    CreateListBox(box);
    const std::wstring text(5000, L'x');
    CStringArray items;
    items.Add(text.c_str());
    FillListBox(items, box);
    EXPECT_THAT(LinesOf(box), ElementsAre(text));
}

TEST_F(FillListBoxTest, AsksForTheFirstLineEvenWhenThereIsNone)
{
    CWatchedBox<CListBox> box;
    CreateListBox(box);
    box.m_messages.clear();
    CStringArray none;
    FillListBox(none, box);
    EXPECT_THAT(box.m_messages, ElementsAre(UINT(LB_SETCURSEL)));
    EXPECT_EQ(box.GetCurSel(), LB_ERR);
}

TEST_F(FillListBoxTest, UsesTheMessageThatSorts)
{
    CListBox box;
    CreateListBox(box, LBS_SORT);
    CStringArray items;
    items.Add(L"b");
    items.Add(L"a");
    FillListBox(items, box);
    EXPECT_THAT(LinesOf(box), ElementsAre(L"a", L"b"));
}

TEST_F(FillListBox1Test, AddsThePiecesBetweenCommas)
{
    CListBox box;
    CreateListBox(box);
    box.AddString(L"old");
    CStringArray items;
    items.Add(L"a,,b");
    items.Add(L"");
    items.Add(L",");
    items.Add(L"c; d,e ");
    FillListBox1(items, box);
    EXPECT_THAT(LinesOf(box), ElementsAre(L"old", L"a", L"b", L"c; d", L"e "));
    EXPECT_EQ(box.GetCurSel(), 0);
}

TEST_F(FillListBox1Test, LeavesTheArrayAsItWas)
{
    CListBox box;
    CreateListBox(box);
    CStringArray items;
    items.Add(L"a,b");
    FillListBox1(items, box);
    EXPECT_THAT(TextsOf(items), ElementsAre(L"a,b"));
}

TEST_F(FillListBox1Test, SplitsACopyOfEachText)
{
    CStringArray items;
    items.Add(L"a,b");
    CMeddlingListBox box(items);
    CreateListBox(box);
    FillListBox1(items, box);
    EXPECT_THAT(LinesOf(box), ElementsAre(L"a", L"b"));
    EXPECT_THAT(TextsOf(items), ElementsAre(L"a,X"));
}

TEST_F(FillListBox1Test, TakesLongTextsWhole)
{
    CListBox box;
    CreateListBox(box);
    const std::wstring first(5000, L'a');
    const std::wstring second(5000, L'b');
    CStringArray items;
    items.Add((first + L"," + second).c_str());
    FillListBox1(items, box);
    EXPECT_THAT(LinesOf(box), ElementsAre(first, second));
}

TEST_F(FillListBox1Test, AsksForTheFirstLineEvenWhenThereIsNone)
{
    CWatchedBox<CListBox> box;
    CreateListBox(box);
    box.m_messages.clear();
    CStringArray items;
    items.Add(L",,");
    FillListBox1(items, box);
    EXPECT_THAT(box.m_messages, ElementsAre(UINT(LB_SETCURSEL)));
}

TEST_F(FillStringArrayTest, AppendsEveryLineFromTheFirst)
{
    CListBox box;
    CreateListBox(box);
    box.AddString(L"one");
    box.AddString(L"");
    box.AddString(L"three \u00DF");
    CStringArray items;
    items.Add(L"old");
    FillStringArray(box, items);
    EXPECT_THAT(TextsOf(items), ElementsAre(L"old", L"one", L"", L"three \u00DF"));
}

TEST_F(FillStringArrayTest, AddsNothingForAnEmptyBox)
{
    CListBox box;
    CreateListBox(box);
    CStringArray items;
    FillStringArray(box, items);
    EXPECT_EQ(items.GetSize(), 0);
}

TEST_F(FillStringArrayTest, TakesLongLinesWhole)
{
    CListBox box;
    CreateListBox(box);
    const CString line(L'x', 5000);
    box.AddString(line);
    CStringArray items;
    FillStringArray(box, items);
    ASSERT_EQ(items.GetSize(), 1);
    EXPECT_EQ(items[0], line);
}

TEST_F(FillStringArrayTest, AsksForTheCountAfterEachLine)
{
    CGrowingListBox box;
    CreateListBox(box);
    box.AddString(L"one");
    box.AddString(L"two");
    CStringArray items;
    FillStringArray(box, items);
    EXPECT_THAT(TextsOf(items), ElementsAre(L"one", L"two", L"late"));
}

TEST(FillStringList, AppendsAtTheEnd)
{
    std::list<CString> list = {L"old"};
    CStringArray items;
    items.Add(L"b");
    items.Add(L"a");
    items.Add(L"");
    FillStringList(items, list);
    EXPECT_THAT(list, ElementsAre(L"old", L"b", L"a", L""));
}

TEST(FillStringList, AddsNothingOfAnEmptyArray)
{
    std::list<CString> list;
    CStringArray none;
    FillStringList(none, list);
    EXPECT_THAT(list, IsEmpty());
}

TEST(AppendWithinLimit, ThrowsWhenTheListHoldsAsManyAsItCan)
{
    std::list<CString, TinyAllocator<CString>> list;
    AppendWithinLimit(list, L"a");
    AppendWithinLimit(list, L"b");
    try {
        AppendWithinLimit(list, L"c");
        FAIL() << "no exception";
    } catch (const std::length_error& e) {
        EXPECT_STREQ(e.what(), "list too long");
    }
    EXPECT_THAT(list, ElementsAre(L"a", L"b"));
}
