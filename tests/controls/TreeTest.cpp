#include "TreeTest.h"

using testing::ElementsAre;

namespace
{

class OpenTree : public CXTreeCtrl
{
public:
    using CXTreeCtrl::GetThisMessageMap;
    static const AFX_MSGMAP* BaseMap() { return CTreeCtrl::GetThisMessageMap(); }
};

template <class Control>
concept OpensPreSubclassWindow = requires(Control& control)
{
    control.PreSubclassWindow();
};
template <class Control>
concept OpensOnDestroy = requires(Control& control)
{
    control.OnDestroy();
};

static_assert(std::is_base_of_v<CTreeCtrl, CXTreeCtrl>);
static_assert(std::has_virtual_destructor_v<CXTreeCtrl>);
static_assert(sizeof(CXTreeCtrl) == sizeof(CTreeCtrl));
static_assert(OpensPreSubclassWindow<CXTreeCtrl>);
static_assert(!OpensOnDestroy<CXTreeCtrl>);

class TreeTips : public TreeGround
{
protected:
    CRect LabelOf(HTREEITEM item)
    {
        CRect rect;
        EXPECT_TRUE(m_tree->GetItemRect(item, &rect, TRUE));
        return rect;
    }

    UINT FlagsAt(CPoint point)
    {
        TVHITTESTINFO hit{};
        hit.pt = point;
        m_tree->HitTest(&hit);
        return hit.flags;
    }

    // There must be no tool at the point, at which the control says `flags`.
    void ExpectNoTool(CPoint point, UINT flags)
    {
        EXPECT_EQ(FlagsAt(point), flags);
        TOOLINFO tool = PatternedTool();
        EXPECT_EQ(m_tree->OnToolHitTest(point, &tool), -1);
        EXPECT_TRUE(IsSameTool(tool, PatternedTool()));
        EXPECT_EQ(m_tree->OnToolHitTest(point, nullptr), -1);
    }

    // The text that the tree gives for an item, with all that belongs to the answer.
    template <class Request>
    typename Request::String Tip(HTREEITEM item, UINT flags = 0)
    {
        Request request(reinterpret_cast<UINT_PTR>(item), nullptr, flags);
        LRESULT result = 77;
        EXPECT_EQ(m_tree->OnToolTipText(9, request.Head(), &result), TRUE);
        EXPECT_EQ(result, 0);
        EXPECT_TRUE(request.IsElseUntouched());
        return request.Text();
    }

    HTREEITEM AddTipped(const CString& text, const CString& tip)
    {
        const HTREEITEM item = Add(text);
        Own(item, new Note(m_deleted, "tipped", tip));
        return item;
    }

    template <class Request>
    void ExpectRefusedForTheWindow()
    {
        Request request(reinterpret_cast<UINT_PTR>(m_tree->m_hWnd), nullptr, TTF_IDISHWND);
        LRESULT result = 77;
        EXPECT_EQ(m_tree->OnToolTipText(9, request.Head(), &result), FALSE);
        EXPECT_EQ(result, 77);
        EXPECT_TRUE(request.IsUntouched());
    }
};

class TreeHitTest : public TreeTips
{
};
class TreeTipText : public TreeTips
{
};
class TreeHover : public TreeTips
{
};
class TreeMouse : public TreeTips
{
};

} // namespace

TEST(TreeObject, MessageMapIsInOrderOnTheTreesOwn)
{
    const AFX_MSGMAP* const map = OpenTree::GetThisMessageMap();
    const std::vector<MapEntry> entries = EntriesOf(map);
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_EQ(entries[0].message, static_cast<UINT>(WM_LBUTTONDOWN));
    EXPECT_EQ(entries[1].message, static_cast<UINT>(WM_DESTROY));
    EXPECT_EQ(entries[2], TipEntry(TTN_NEEDTEXTW));
    EXPECT_EQ(entries[3], TipEntry(TTN_NEEDTEXTA));
    EXPECT_EQ(map->pfnGetBaseMap(), OpenTree::BaseMap());
}

TEST_F(TreeHitTest, LabelUnderThePointIsTheTool)
{
    const HTREEITEM first = Add(L"first");
    const HTREEITEM child = Add(L"child", first);
    m_tree->Expand(first, TVE_EXPAND);
    for (const HTREEITEM item : {first, child, Add(L"second")}) {
        const CRect label = LabelOf(item);
        TOOLINFO expected = PatternedTool();
        expected.hwnd = *m_tree;
        expected.uId = reinterpret_cast<UINT_PTR>(item);
        expected.rect = label;
        expected.lpszText = LPSTR_TEXTCALLBACK;
        TOOLINFO tool = PatternedTool();
        EXPECT_EQ(m_tree->OnToolHitTest(label.CenterPoint(), &tool), reinterpret_cast<INT_PTR>(item));
        EXPECT_TRUE(IsSameTool(tool, expected));
        EXPECT_EQ(m_tree->OnToolHitTest(label.CenterPoint(), nullptr), reinterpret_cast<INT_PTR>(item));
    }
}

TEST_F(TreeHitTest, OffTheLabelsIsNoTool)
{
    const HTREEITEM root = Add(L"root");
    Add(L"child", root);
    const CRect label = LabelOf(root);
    const int middle = label.CenterPoint().y;
    ExpectNoTool({label.right + 20, middle}, TVHT_ONITEMRIGHT);
    ExpectNoTool({label.left - 12, middle}, TVHT_ONITEMBUTTON);
    ExpectNoTool({label.CenterPoint().x, label.bottom + 30}, TVHT_NOWHERE);
    ExpectNoTool({label.CenterPoint().x, -5}, TVHT_ABOVE);
}

TEST_F(TreeHitTest, IconBesideALabelIsNoTool)
{
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 1, 1));
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(16, 16, 1, 32, nullptr));
    images.Add(&bitmap, CLR_NONE);
    m_tree->SetImageList(&images, TVSIL_NORMAL);
    const CRect label = LabelOf(Add(L"root"));
    ExpectNoTool({label.left - 10, label.CenterPoint().y}, TVHT_ONITEMICON);
    m_tree->SetImageList(nullptr, TVSIL_NORMAL);
}

TEST_F(TreeHitTest, EmptyTreeHasNoTool)
{
    ExpectNoTool({20, 8}, TVHT_NOWHERE);
}

TEST_F(TreeTipText, OfAnItemWithoutDataIsItsText)
{
    const HTREEITEM item = Add(L"caf\u00E9 100%s %d");
    EXPECT_EQ(Tip<WideRequest>(item), L"caf\u00E9 100%s %d");
    EXPECT_EQ(Tip<WideRequest>(Add(L"")), L"");
    EXPECT_EQ(Tip<NarrowRequest>(Add(L"plain")), "plain");
}

TEST_F(TreeTipText, OfAnItemWithDataIsABlankAndTheTextOfTheData)
{
    const HTREEITEM item = AddTipped(L"label", L"data 100%s");
    EXPECT_EQ(Tip<WideRequest>(item), L" data 100%s");
    EXPECT_EQ(Tip<NarrowRequest>(item), " data 100%s");
    const HTREEITEM silent = AddTipped(L"label", L"");
    EXPECT_EQ(Tip<WideRequest>(silent), L" ");
    EXPECT_EQ(Tip<NarrowRequest>(silent), " ");
}

TEST_F(TreeTipText, LongTextIsCutAfter79Characters)
{
    for (const int length : {79, 80, 300}) {
        const HTREEITEM item = Add(CString(L'x', length));
        EXPECT_EQ(Tip<WideRequest>(item), std::wstring(79, L'x'));
        EXPECT_EQ(Tip<NarrowRequest>(item), std::string(79, 'x'));
        const HTREEITEM tipped = AddTipped(L"label", CString(L'x', length - 1));
        EXPECT_EQ(Tip<WideRequest>(tipped), L" " + std::wstring(78, L'x'));
        EXPECT_EQ(Tip<NarrowRequest>(tipped), testkit::Utf8(L" " + std::wstring(78, L'x')));
    }
    EXPECT_EQ(Tip<WideRequest>(Add(CString(L'x', 77) + L"y")), std::wstring(77, L'x') + L"y");
    EXPECT_EQ(Tip<NarrowRequest>(Add(CString(L'x', 77) + L"y")),
              testkit::Utf8(std::wstring(77, L'x') + L"y"));
}

TEST_F(TreeTipText, NarrowTextIsInTheCodePageOfTheThread)
{
    const HTREEITEM item = AddTipped(L"label", L"\u0416");
    const ThreadLocale russian(MAKELCID(MAKELANGID(LANG_RUSSIAN, SUBLANG_DEFAULT), SORT_DEFAULT));
    EXPECT_EQ(Tip<NarrowRequest>(item), " \xC6");
}

TEST_F(TreeTipText, ToolThatIsTheTreesWindowIsNotAnswered)
{
    Add(L"root");
    ExpectRefusedForTheWindow<WideRequest>();
    ExpectRefusedForTheWindow<NarrowRequest>();
}

// A tree with the tips that the platform's control has of itself: their requests come with its window.
TEST_F(TreeTipText, RequestOfThePlatformsOwnTipIsLeftToThePlatform)
{
    CXTreeCtrl tree;
    ASSERT_TRUE(tree.Create(WS_CHILD | WS_VISIBLE | (Style & ~TVS_NOTOOLTIPS),
                            CRect(CPoint(20, 130), CSize(150, 60)), &m_parent, 6));
    tree.InsertItem(L"root");
    const HWND tip = reinterpret_cast<HWND>(tree.SendMessage(TVM_GETTOOLTIPS));
    ASSERT_NE(tip, nullptr);
    const auto number = reinterpret_cast<UINT_PTR>(tree.m_hWnd);
    WideRequest wide(number, tip, TTF_IDISHWND);
    NarrowRequest narrow(number, tip, TTF_IDISHWND);
    const WideRequest::String before = wide.Buffer();
    const NarrowRequest::String narrowBefore = narrow.Buffer();
    tree.SendMessage(WM_NOTIFY, number, reinterpret_cast<LPARAM>(wide.Head()));
    tree.SendMessage(WM_NOTIFY, number, reinterpret_cast<LPARAM>(narrow.Head()));
    EXPECT_EQ(wide.Buffer(), before);
    EXPECT_EQ(narrow.Buffer(), narrowBefore);
    tree.DestroyWindow();
}

TEST_F(TreeTipText, RequestOfAnotherCodeIsAnsweredWithoutText)
{
    const HTREEITEM item = AddTipped(L"label", L"data");
    TipRequest<TOOLTIPTEXTW, TTN_SHOW> request(reinterpret_cast<UINT_PTR>(item));
    LRESULT result = 77;
    EXPECT_EQ(m_tree->OnToolTipText(0, request.Head(), &result), TRUE);
    EXPECT_EQ(result, 0);
    EXPECT_TRUE(request.IsUntouched());
}

TEST_F(TreeTipText, FlagOfAWindowAloneDoesNotMatter)
{
    const HTREEITEM item = Add(L"root");
    EXPECT_EQ(Tip<WideRequest>(item, TTF_IDISHWND), L"root");
    EXPECT_EQ(Tip<NarrowRequest>(item, TTF_IDISHWND), "root");
}

TEST_F(TreeTipText, NumberOfTheWindowAloneDoesNotMatter)
{
    Add(L"root");
    const auto number = reinterpret_cast<HTREEITEM>(m_tree->m_hWnd);
    EXPECT_EQ(Tip<WideRequest>(number), L"");
    EXPECT_EQ(Tip<NarrowRequest>(number), "");
}

TEST_F(TreeTipText, OfNoItemIsEmpty)
{
    Add(L"root");
    EXPECT_EQ(Tip<WideRequest>(nullptr), L"");
    EXPECT_EQ(Tip<NarrowRequest>(nullptr), "");
}

TEST_F(TreeTipText, ItemOfTheRequestCountsNotTheOneUnderTheMouse)
{
    const HTREEITEM first = Add(L"first");
    const HTREEITEM second = Add(L"second");
    testkit::Mouse::MoveTo(testkit::ScreenPoint(*m_tree, LabelOf(first).CenterPoint()));
    EXPECT_EQ(Tip<WideRequest>(second), L"second");
}

TEST_F(TreeTipText, NotificationsOfBothSetsArriveFromAnyControlNumber)
{
    const HTREEITEM item = Add(L"root");
    for (const int number : {0, 1, 0x8000, 0xFFFF}) {
        SetWindowLongPtrW(*m_tree, GWLP_ID, number);
        WideRequest wide(reinterpret_cast<UINT_PTR>(item), *m_tree);
        NarrowRequest narrow(reinterpret_cast<UINT_PTR>(item), *m_tree);
        EXPECT_EQ(m_tree->SendMessage(WM_NOTIFY, number, reinterpret_cast<LPARAM>(wide.Head())), 0);
        EXPECT_EQ(m_tree->SendMessage(WM_NOTIFY, number, reinterpret_cast<LPARAM>(narrow.Head())), 0);
        EXPECT_EQ(wide.Text(), L"root");
        EXPECT_EQ(narrow.Text(), "root");
    }
}

TEST_F(TreeHover, ItemWithoutDataShowsItsText)
{
    const HTREEITEM item = Add(L"a label that is a good deal wider than the tree");
    EXPECT_TRUE(ShowsTip(*m_tree, {80, LabelOf(item).CenterPoint().y},
                         L"a label that is a good deal wider than the tree"));
}

TEST_F(TreeHover, ItemWithDataShowsTheTextOfTheData)
{
    const HTREEITEM plain = Add(L"plain");
    const HTREEITEM tipped = AddTipped(L"tipped", L"of the data");
    ASSERT_TRUE(ShowsTip(*m_tree, LabelOf(plain).CenterPoint(), L"plain"));
    EXPECT_TRUE(ShowsTip(*m_tree, LabelOf(tipped).CenterPoint(), L" of the data"));
}

TEST_F(TreeHover, LeavingTheLabelHidesTheTip)
{
    const HTREEITEM item = Add(L"root");
    ASSERT_TRUE(ShowsTip(*m_tree, LabelOf(item).CenterPoint(), L"root"));
    testkit::Mouse::MoveTo(testkit::ScreenPoint(*m_tree, {LabelOf(item).right + 20, 80}));
    EXPECT_TRUE(testkit::PumpUntil([] { return VisibleTip() == nullptr; }, 5000));
}

TEST_F(TreeHover, SubclassedTreeHasTipsToo)
{
    const HWND window = CreateWindowExW(0, WC_TREEVIEWW, L"", WS_CHILD | WS_VISIBLE | Style, 20, 20, 150, 100,
                                        m_parent, nullptr, nullptr, nullptr);
    m_tree = std::make_unique<CXTreeCtrl>();
    ASSERT_TRUE(m_tree->SubclassWindow(window));
    EXPECT_TRUE(ShowsTip(window, LabelOf(Add(L"root")).CenterPoint(), L"root"));
}

TEST_F(TreeMouse, ClickOnALabelSelectsTheItem)
{
    Add(L"first");
    const HTREEITEM second = Add(L"second");
    ASSERT_TRUE(testkit::Mouse::Click(testkit::ScreenPoint(*m_tree, LabelOf(second).CenterPoint())));
    EXPECT_EQ(m_tree->GetSelectedItem(), second);
}

TEST_F(TreeMouse, ClickOnAButtonExpandsTheItem)
{
    const HTREEITEM root = Add(L"root");
    Add(L"child", root);
    const CRect label = LabelOf(root);
    const CPoint button(label.left - 12, label.CenterPoint().y);
    ASSERT_EQ(FlagsAt(button), static_cast<UINT>(TVHT_ONITEMBUTTON));
    ASSERT_TRUE(testkit::Mouse::Click(testkit::ScreenPoint(*m_tree, button)));
    EXPECT_NE(m_tree->GetItemState(root, TVIS_EXPANDED) & TVIS_EXPANDED, 0u);
}
