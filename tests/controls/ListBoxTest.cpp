#include "TipTest.h"

#include <memory>

using testing::ElementsAre;

namespace
{

constexpr UINT None = 0xFFFFFFFF;

class OpenListBox : public CXListBox
{
public:
    using CXListBox::GetThisMessageMap;
    static const AFX_MSGMAP* BaseMap() { return CWnd::GetThisMessageMap(); }
};

template <class Control>
concept OpensPreSubclassWindow = requires(Control& control)
{
    control.PreSubclassWindow();
};

static_assert(std::is_base_of_v<CListBox, CXListBox>);
static_assert(std::has_virtual_destructor_v<CXListBox>);
static_assert(sizeof(CXListBox) == sizeof(CListBox));
static_assert(!OpensPreSubclassWindow<CXListBox>);

// A plain list box of the platform that the object subclasses, 120 pixels wide.
class ListBoxTest : public TipTest
{
protected:
    void SetUp() override
    {
        TipTest::SetUp();
        m_list = std::make_unique<CXListBox>();
    }
    void TearDown() override
    {
        TipTest::TearDown();
        m_list.reset();
    }

    void Open(const std::vector<CString>& items, DWORD style = 0)
    {
        const HWND window =
            CreateWindowExW(0, L"ListBox", L"", WS_CHILD | WS_VISIBLE | LBS_NOINTEGRALHEIGHT | style, 20, 20,
                            120, 100, m_parent, reinterpret_cast<HMENU>(5), nullptr, nullptr);
        for (const CString& item : items)
            SendMessageW(window, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.GetString()));
        ASSERT_TRUE(m_list->SubclassWindow(window));
        m_parent.UpdateWindow();
    }
    void OpenMany(int count)
    {
        std::vector<CString> items(count);
        for (int item = 0; item < count; ++item)
            items[item].Format(L"item %d", item);
        Open(items);
    }

    CRect RectOf(int item)
    {
        CRect rect;
        EXPECT_NE(SendMessageW(*m_list, LB_GETITEMRECT, item, reinterpret_cast<LPARAM>(&rect)), LB_ERR);
        return rect;
    }

    // What the exact look-up gives; the flag must agree with it whatever it was before.
    UINT Find(CPoint point)
    {
        BOOL isOutside = FALSE, wasOutside = TRUE;
        const UINT item = m_list->ItemFromPoint2(point, isOutside);
        EXPECT_EQ(m_list->ItemFromPoint2(point, wasOutside), item);
        EXPECT_EQ(isOutside, item == None);
        EXPECT_EQ(wasOutside, isOutside);
        return item;
    }

    // The tool for a point must be that item, with all that belongs to it and nothing else changed.
    void ExpectTool(CPoint point, int item)
    {
        TOOLINFO expected = PatternedTool();
        expected.rect = RectOf(item);
        expected.hwnd = *m_list;
        expected.uId = static_cast<UINT_PTR>(item);
        expected.lpszText = LPSTR_TEXTCALLBACK;
        TOOLINFO tool = PatternedTool();
        EXPECT_EQ(m_list->OnToolHitTest(point, &tool), item);
        EXPECT_TRUE(IsSameTool(tool, expected));
    }

    // The text that the list box gives for an item, with all that belongs to the answer.
    template <class Request>
    typename Request::String Tip(UINT_PTR item)
    {
        Request request(item);
        LRESULT result = 77;
        EXPECT_EQ(m_list->OnToolTipText(9, request.Head(), &result), TRUE);
        EXPECT_EQ(result, 0);
        EXPECT_TRUE(request.IsElseUntouched());
        return request.Text();
    }

    std::unique_ptr<CXListBox> m_list;
};

class ListBoxItemFromPoint : public ListBoxTest
{
};
class ListBoxHitTest : public ListBoxTest
{
};
class ListBoxTipText : public ListBoxTest
{
};
class ListBoxHover : public ListBoxTest
{
};

} // namespace

TEST(ListBoxObject, MessageMapHasTheTwoNotificationsOnTheBaseOfAllWindows)
{
    const AFX_MSGMAP* const map = OpenListBox::GetThisMessageMap();
    EXPECT_THAT(EntriesOf(map), ElementsAre(TipEntry(TTN_NEEDTEXTW), TipEntry(TTN_NEEDTEXTA)));
    EXPECT_EQ(map->pfnGetBaseMap(), OpenListBox::BaseMap());
}

TEST_F(ListBoxItemFromPoint, ContainingRectangleDecides)
{
    OpenMany(4);
    for (int item = 0; item < 4; ++item) {
        const CRect rect = RectOf(item);
        EXPECT_EQ(Find(rect.TopLeft()), static_cast<UINT>(item));
        EXPECT_EQ(Find(rect.CenterPoint()), static_cast<UINT>(item));
        EXPECT_EQ(Find({rect.right - 1, rect.bottom - 1}), static_cast<UINT>(item));
        EXPECT_EQ(Find({rect.right, rect.top}), None);
        EXPECT_EQ(Find({rect.left - 1, rect.top}), None);
    }
}

TEST_F(ListBoxItemFromPoint, BelowTheLastItemIsOutsideUnlikeInTheNearestLookup)
{
    OpenMany(3);
    const CPoint below(10, RectOf(2).bottom);
    EXPECT_EQ(Find(below), None);
    EXPECT_EQ(Find({below.x, below.y + 5}), None);
    EXPECT_EQ(Find({10, RectOf(0).top - 1}), None);
    BOOL isOutside = TRUE;
    EXPECT_EQ(m_list->ItemFromPoint(below, isOutside), 2u);
}

TEST_F(ListBoxItemFromPoint, EmptyListHasNoItemAnywhere)
{
    Open({});
    EXPECT_EQ(Find({0, 0}), None);
    EXPECT_EQ(Find({10, 5}), None);
    EXPECT_EQ(Find({10, 50}), None);
}

TEST_F(ListBoxItemFromPoint, ScrolledListBeginsAtItsTop)
{
    OpenMany(30);
    m_list->SetTopIndex(7);
    ASSERT_EQ(m_list->GetTopIndex(), 7);
    EXPECT_EQ(Find({10, 0}), 7u);
    EXPECT_EQ(Find(RectOf(9).CenterPoint()), 9u);
}

TEST_F(ListBoxItemFromPoint, ItemsAboveTheTopAreNotLookedAt)
{
    OpenMany(30);
    m_list->SetTopIndex(7);
    const CPoint above = RectOf(6).CenterPoint();
    ASSERT_LT(above.y, 0);
    EXPECT_EQ(Find(above), None);
}

TEST_F(ListBoxItemFromPoint, ItemsBelowTheBoxAreFoundByTheirRectangles)
{
    OpenMany(30);
    CRect client;
    m_list->GetClientRect(&client);
    const CPoint below = RectOf(29).CenterPoint();
    ASSERT_GT(below.y, client.bottom);
    EXPECT_EQ(Find(below), 29u);
}

TEST_F(ListBoxItemFromPoint, WorksWithoutWindow)
{
    EXPECT_EQ(Find({1, 1}), None);
}

TEST_F(ListBoxHitTest, ItemUnderThePointIsTheTool)
{
    OpenMany(4);
    for (int item = 0; item < 4; ++item)
        ExpectTool(RectOf(item).CenterPoint(), item);
}

TEST_F(ListBoxHitTest, BelowTheLastItemTheNearestIsTheTool)
{
    OpenMany(3);
    ExpectTool({10, RectOf(2).bottom + 10}, 2);
    ExpectTool({10, RectOf(2).bottom}, 2);
}

TEST_F(ListBoxHitTest, ScrolledListAnswersWithTheItemThatIsSeen)
{
    OpenMany(30);
    m_list->SetTopIndex(7);
    ExpectTool({10, RectOf(7).Height() / 2}, 7);
    ExpectTool(RectOf(9).CenterPoint(), 9);
}

TEST_F(ListBoxHitTest, EmptyListHasNoTool)
{
    Open({});
    TOOLINFO tool = PatternedTool();
    EXPECT_EQ(m_list->OnToolHitTest({10, 5}, &tool), -1);
    EXPECT_TRUE(IsSameTool(tool, PatternedTool()));
}

TEST_F(ListBoxHitTest, NullDescriptionStillGivesTheItem)
{
    OpenMany(3);
    EXPECT_EQ(m_list->OnToolHitTest(RectOf(1).CenterPoint(), nullptr), 1);
}

TEST_F(ListBoxTipText, IsTheTextOfTheItem)
{
    Open({L"first", L"", L"caf\u00E9 100%s"});
    EXPECT_EQ(Tip<WideRequest>(0), L"first");
    EXPECT_EQ(Tip<WideRequest>(1), L"");
    EXPECT_EQ(Tip<WideRequest>(2), L"caf\u00E9 100%s");
    EXPECT_EQ(Tip<NarrowRequest>(0), "first");
    EXPECT_EQ(Tip<NarrowRequest>(1), "");
}

TEST_F(ListBoxTipText, LongTextIsCutAfter79Characters)
{
    std::vector<CString> items;
    for (const int length : {78, 79, 80, 81, 4000})
        items.push_back(CString(L'x', length - 1) + L"y");
    Open(items);
    EXPECT_EQ(Tip<WideRequest>(0), std::wstring(77, L'x') + L"y");
    EXPECT_EQ(Tip<WideRequest>(1), std::wstring(78, L'x') + L"y");
    EXPECT_EQ(Tip<NarrowRequest>(0), testkit::Utf8(std::wstring(77, L'x') + L"y"));
    EXPECT_EQ(Tip<NarrowRequest>(1), testkit::Utf8(std::wstring(78, L'x') + L"y"));
    for (UINT_PTR item = 2; item < items.size(); ++item) {
        EXPECT_EQ(Tip<WideRequest>(item), std::wstring(79, L'x'));
        EXPECT_EQ(Tip<NarrowRequest>(item), std::string(79, 'x'));
    }
}

TEST_F(ListBoxTipText, NarrowTextIsInTheCodePageOfTheThread)
{
    // U+0416, and U+3042, are one byte of code page 1251 and two of 932.
    Open({L"\u0416", L"\u3042"});
    {
        const ThreadLocale russian(MAKELCID(MAKELANGID(LANG_RUSSIAN, SUBLANG_DEFAULT), SORT_DEFAULT));
        EXPECT_EQ(Tip<NarrowRequest>(0), "\xC6");
        EXPECT_EQ(Tip<WideRequest>(0), L"\u0416");
    }
    const ThreadLocale japanese(MAKELCID(MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT), SORT_DEFAULT));
    EXPECT_EQ(Tip<NarrowRequest>(1), "\x82\xA0");
}

TEST_F(ListBoxTipText, CutLeavesNoHalfOfACharacterBehind)
{
    Open({CString(L'\u3042', 60)});
    const ThreadLocale japanese(MAKELCID(MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT), SORT_DEFAULT));
    std::string expected;
    for (int character = 0; character < 39; ++character)
        expected += "\x82\xA0";
    EXPECT_EQ(Tip<NarrowRequest>(0), expected);
}

TEST_F(ListBoxTipText, AnyOtherCodeIsAnsweredInWideCharacters)
{
    Open({L"first"});
    TipRequest<TOOLTIPTEXTW, TTN_SHOW> request(0);
    LRESULT result = 77;
    EXPECT_EQ(m_list->OnToolTipText(0, request.Head(), &result), TRUE);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(request.Text(), L"first");
}

TEST_F(ListBoxTipText, NumberWithoutItemGivesNoText)
{
    Open({L"first"});
    for (const UINT_PTR item : {UINT_PTR(1), UINT_PTR(0xFFFF), UINT_PTR(0x100000000), ~UINT_PTR(0)}) {
        EXPECT_EQ(Tip<WideRequest>(item), L"");
        EXPECT_EQ(Tip<NarrowRequest>(item), "");
    }
}

TEST_F(ListBoxTipText, NotificationsOfBothSetsArriveFromAnyControlNumber)
{
    Open({L"first", L"second"});
    for (const int number : {0, 1, 0x8000, 0xFFFF}) {
        SetWindowLongPtrW(*m_list, GWLP_ID, number);
        WideRequest wide(1, *m_list);
        NarrowRequest narrow(1, *m_list);
        EXPECT_EQ(m_list->SendMessage(WM_NOTIFY, number, reinterpret_cast<LPARAM>(wide.Head())), 0);
        EXPECT_EQ(m_list->SendMessage(WM_NOTIFY, number, reinterpret_cast<LPARAM>(narrow.Head())), 0);
        EXPECT_EQ(wide.Text(), L"second");
        EXPECT_EQ(narrow.Text(), "second");
    }
}

TEST_F(ListBoxHover, ItemWiderThanTheBoxIsShownInFull)
{
    const CString wide(L"A text of the width of at least three boxes, none of which shows its end");
    Open({L"short", wide});
    CRect client;
    m_list->GetClientRect(&client);
    {
        CClientDC dc(m_list.get());
        ASSERT_GT(dc.GetTextExtent(wide).cx, client.Width());
    }
    EXPECT_TRUE(ShowsTip(*m_list, RectOf(1).CenterPoint(), wide));
}

TEST_F(ListBoxHover, LongTextIsCutAfter79Characters)
{
    Open({CString(L'i', 200)});
    EXPECT_TRUE(ShowsTip(*m_list, RectOf(0).CenterPoint(), CString(L'i', 79)));
}

TEST_F(ListBoxHover, NextItemHasItsOwnTip)
{
    Open({L"first", L"second"});
    ASSERT_TRUE(ShowsTip(*m_list, RectOf(0).CenterPoint(), L"first"));
    EXPECT_TRUE(ShowsTip(*m_list, RectOf(1).CenterPoint(), L"second"));
}

TEST_F(ListBoxHover, ScrolledListShowsTheItemUnderTheMouse)
{
    OpenMany(30);
    m_list->SetTopIndex(7);
    EXPECT_TRUE(ShowsTip(*m_list, RectOf(9).CenterPoint(), L"item 9"));
}

TEST_F(ListBoxHover, CreatedListHasTipsToo)
{
    ASSERT_TRUE(m_list->Create(WS_CHILD | WS_VISIBLE, CRect(20, 20, 140, 120), &m_parent, 5));
    m_list->AddString(L"first");
    EXPECT_TRUE(ShowsTip(*m_list, RectOf(0).CenterPoint(), L"first"));
}
