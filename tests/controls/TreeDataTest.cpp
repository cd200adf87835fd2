#include "TreeTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

static_assert(std::is_abstract_v<ItemDataABSTRACT>);
static_assert(std::has_virtual_destructor_v<ItemDataABSTRACT>);
static_assert(sizeof(ItemDataABSTRACT) == sizeof(void*));
static_assert(std::is_copy_assignable_v<ItemDataABSTRACT>);
static_assert(std::is_same_v<decltype(std::declval<ItemDataABSTRACT&>().GetTipText()), CString>);

class Text : public ItemDataABSTRACT
{
public:
    CString GetTipText() const override { return L"text"; }
};

class Heir : public Text
{
public:
    explicit Heir(int& ends) : m_ends(ends) {}
    ~Heir() override { ++m_ends; }

private:
    int& m_ends;
};

class TreeItemData : public TreeGround
{
};
class TreeBranchData : public TreeGround
{
};
class TreeCleaning : public TreeGround
{
protected:
    // 20 roots with data and a child with data each, scrolled so that root `first` is the first one seen.
    void AddRoots(int first)
    {
        for (int root = 0; root < 20; ++root) {
            m_items.push_back(AddOwner("root " + std::to_string(root)));
            m_items.push_back(AddOwner("child " + std::to_string(root), m_items.back()));
        }
        m_tree->SelectSetFirstVisible(m_items[2 * first]);
        ASSERT_EQ(m_tree->GetFirstVisibleItem(), m_items[2 * first]);
    }
    // Names of what belongs to the roots from `first` on, in the order in which they stand.
    static std::vector<std::string> NamesFrom(int first)
    {
        std::vector<std::string> names;
        for (int root = first; root < 20; ++root) {
            names.push_back("root " + std::to_string(root));
            names.push_back("child " + std::to_string(root));
        }
        return names;
    }

    std::vector<HTREEITEM> m_items;
};

} // namespace

TEST(ItemData, TipTextComesBeforeTheDestructorAmongTheVirtualMembers)
{
    int ends = 0;
    const Text text;
    const Heir heir(ends);
    const auto slots = [](const ItemDataABSTRACT& object) {
        return *reinterpret_cast<void* const* const*>(&object);
    };
    // The heir takes over the first and has a destructor of its own.
    EXPECT_EQ(slots(heir)[0], slots(text)[0]);
    EXPECT_NE(slots(heir)[1], slots(text)[1]);
}

TEST(ItemData, CanBeCopiedThroughItsBase)
{
    Text text;
    const Text copy(text);
    static_cast<ItemDataABSTRACT&>(text) = copy;
    EXPECT_EQ(text.GetTipText(), copy.GetTipText());
}

TEST_F(TreeItemData, GoesWithTheWindow)
{
    const HTREEITEM root = AddOwner("root");
    const HTREEITEM child = AddOwner("child", root);
    AddOwner("grandchild", child);
    AddOwner("second child", root);
    AddOwner("second root");
    EXPECT_THAT(m_deleted, IsEmpty());
    m_tree->DestroyWindow();
    EXPECT_THAT(m_deleted, ElementsAre("root", "child", "grandchild", "second child", "second root"));
    EXPECT_EQ(testkit::LiveObjects(), 0);
}

TEST_F(TreeItemData, GoesWithTheObject)
{
    AddOwner("child", AddOwner("root"));
    m_tree.reset();
    EXPECT_THAT(m_deleted, ElementsAre("root", "child"));
}

TEST_F(TreeItemData, GoesWithTheParentWindow)
{
    AddOwner("child", AddOwner("root"));
    m_parent.DestroyWindow();
    EXPECT_THAT(m_deleted, ElementsAre("root", "child"));
}

TEST_F(TreeItemData, GoesWithATreeThatWasSubclassed)
{
    const HWND window = CreateWindowExW(0, WC_TREEVIEWW, L"", WS_CHILD | WS_VISIBLE | Style, 0, 0, 100, 100,
                                        m_parent, nullptr, nullptr, nullptr);
    m_tree = std::make_unique<CXTreeCtrl>();
    ASSERT_TRUE(m_tree->SubclassWindow(window));
    AddOwner("child", AddOwner("root"));
    ::DestroyWindow(window);
    EXPECT_THAT(m_deleted, ElementsAre("root", "child"));
}

TEST_F(TreeItemData, IsDeletedThroughItsVirtualDestructor)
{
    int ends = 0;
    m_tree->SetItemData(Add(L"root"),
                        reinterpret_cast<DWORD_PTR>(static_cast<ItemDataABSTRACT*>(new Heir(ends))));
    m_tree->DestroyWindow();
    EXPECT_EQ(ends, 1);
}

TEST_F(TreeItemData, NullIsSkipped)
{
    const HTREEITEM root = Add(L"root");
    const HTREEITEM child = AddOwner("child", root);
    AddOwner("grandchild", Add(L"second child", root));
    Add(L"leaf", child);
    AddOwner("second root");
    m_tree->DestroyWindow();
    EXPECT_THAT(m_deleted, ElementsAre("child", "grandchild", "second root"));
}

TEST_F(TreeItemData, IsNotDeletedWithAnItemAlone)
{
    const HTREEITEM root = AddOwner("root");
    const auto data = reinterpret_cast<ItemDataABSTRACT*>(m_tree->GetItemData(root));
    m_tree->DeleteItem(root);
    EXPECT_THAT(m_deleted, IsEmpty());
    delete data;
}

TEST_F(TreeBranchData, OfAllDescendantsGoesInOrderButNotTheItemsOwn)
{
    const HTREEITEM before = AddOwner("before");
    AddOwner("child of before", before);
    const HTREEITEM branch = AddOwner("branch");
    const HTREEITEM first = AddOwner("first", branch);
    const HTREEITEM inner = AddOwner("inner", first);
    const HTREEITEM innermost = AddOwner("innermost", inner);
    const HTREEITEM last = AddOwner("last", first);
    const HTREEITEM second = AddOwner("second", branch);
    const HTREEITEM leaf = AddOwner("leaf", second);
    AddOwner("child of behind", AddOwner("behind"));

    m_tree->DeleteBranchData(branch);

    EXPECT_THAT(m_deleted, ElementsAre("first", "inner", "innermost", "last", "second", "leaf"));
    Forget({first, inner, innermost, last, second, leaf});
    m_deleted.clear();
    m_tree->DestroyWindow();
    EXPECT_THAT(m_deleted, ElementsAre("before", "child of before", "branch", "behind", "child of behind"));
}

TEST_F(TreeBranchData, OfAnInnerItemEndsWithItsOwnDescendants)
{
    const HTREEITEM root = AddOwner("root");
    const HTREEITEM inner = AddOwner("inner", root);
    const HTREEITEM leaf = AddOwner("leaf", inner);
    AddOwner("sibling", root);
    m_tree->DeleteBranchData(inner);
    EXPECT_THAT(m_deleted, ElementsAre("leaf"));
    Forget({leaf});
}

TEST_F(TreeBranchData, OfItemsWithoutDataLiesDeeper)
{
    const HTREEITEM root = Add(L"root");
    const HTREEITEM leaf = AddOwner("leaf", Add(L"inner", root));
    const HTREEITEM second = AddOwner("second", root);
    m_tree->DeleteBranchData(root);
    EXPECT_THAT(m_deleted, ElementsAre("leaf", "second"));
    Forget({leaf, second});
}

TEST_F(TreeBranchData, ValuesStayInTheItems)
{
    const HTREEITEM root = AddOwner("root");
    const HTREEITEM child = AddOwner("child", root);
    const DWORD_PTR rootData = m_tree->GetItemData(root);
    const DWORD_PTR childData = m_tree->GetItemData(child);
    m_tree->DeleteBranchData(root);
    EXPECT_EQ(m_tree->GetItemData(root), rootData);
    EXPECT_EQ(m_tree->GetItemData(child), childData);
    EXPECT_NE(childData, 0u);
    Forget({child});
}

TEST_F(TreeBranchData, OfNoItemOrALeafIsNone)
{
    const HTREEITEM leaf = AddOwner("leaf");
    AddOwner("next");
    m_tree->DeleteBranchData(leaf);
    m_tree->DeleteBranchData(nullptr);
    EXPECT_THAT(m_deleted, IsEmpty());
}

TEST_F(TreeBranchData, OfItemsThatSayTheyHaveNoChildrenIsLeftAlone)
{
    const auto say = [this](HTREEITEM item, int children) {
        TVITEM description{};
        description.mask = TVIF_HANDLE | TVIF_CHILDREN;
        description.hItem = item;
        description.cChildren = children;
        m_tree->SetItem(&description);
    };
    const HTREEITEM root = AddOwner("root");
    const HTREEITEM inner = AddOwner("inner", root);
    AddOwner("leaf", inner);
    say(inner, 0);
    say(AddOwner("without children", root), 1);
    m_tree->DeleteBranchData(root);
    EXPECT_THAT(m_deleted, ElementsAre("inner", "without children"));

    m_deleted.clear();
    Forget({inner, m_tree->GetNextSiblingItem(inner)});
    say(root, 0);
    m_tree->DeleteBranchData(root);
    EXPECT_THAT(m_deleted, IsEmpty());
    say(root, 1);
    say(inner, 1);
}

TEST_F(TreeBranchData, OfADeepTreeGoesWithoutOverflowingTheStack)
{
    constexpr int levels = 20000;
    m_tree->SetRedraw(FALSE);
    const HTREEITEM root = AddOwner("root");
    std::vector<HTREEITEM> items{root};
    for (int level = 1; level < levels; ++level)
        items.push_back(AddOwner("leaf", items.back()));
    ASSERT_EQ(testkit::LiveObjects(), levels);

    m_tree->DeleteBranchData(root);
    EXPECT_EQ(testkit::LiveObjects(), 1);
    EXPECT_EQ(m_deleted.size(), levels - 1u);

    // From the leaf upwards: the platform's control deletes branches by recursion.
    for (; items.size() > 1; items.pop_back())
        m_tree->DeleteItem(items.back());
}

TEST_F(TreeCleaning, CoversAllOfATreeThatStandsAtItsTop)
{
    AddRoots(0);
    m_tree->CleanItemData();
    EXPECT_THAT(m_deleted, testing::ElementsAreArray(NamesFrom(0)));
    m_tree->DeleteAllItems();
}

TEST_F(TreeCleaning, LeavesRootsAboveTheFirstVisibleOne)
{
    AddRoots(5);
    m_tree->CleanItemData();
    EXPECT_THAT(m_deleted, testing::ElementsAreArray(NamesFrom(5)));
    EXPECT_EQ(testkit::LiveObjects(), 10);
    for (int item = 0; item < 10; ++item)
        Disown(m_items[item]);
    m_tree->DeleteAllItems();
}

TEST_F(TreeCleaning, AtTheEndOfTheWindowLeavesRootsAboveTheFirstVisibleOneToo)
{
    AddRoots(5);
    std::vector<ItemDataABSTRACT*> above;
    for (int item = 0; item < 10; ++item)
        above.push_back(reinterpret_cast<ItemDataABSTRACT*>(m_tree->GetItemData(m_items[item])));
    m_tree->DestroyWindow();
    EXPECT_THAT(m_deleted, testing::ElementsAreArray(NamesFrom(5)));
    EXPECT_EQ(testkit::LiveObjects(), 10);
    for (ItemDataABSTRACT* const data : above)
        delete data;
}

TEST_F(TreeCleaning, FromAVisibleChildStaysAmongItsSiblings)
{
    const HTREEITEM root = AddOwner("root");
    std::vector<HTREEITEM> children;
    for (int child = 0; child < 20; ++child)
        children.push_back(AddOwner("child " + std::to_string(child), root));
    const HTREEITEM leaf = AddOwner("leaf", children[18]);
    const HTREEITEM next = AddOwner("next root");
    m_tree->Expand(root, TVE_EXPAND);
    // The last of the roots and the children below are enough to scroll.
    for (int more = 0; more < 20; ++more)
        Add(L"more");
    m_tree->SelectSetFirstVisible(children[17]);
    ASSERT_EQ(m_tree->GetFirstVisibleItem(), children[17]);

    m_tree->CleanItemData();

    EXPECT_THAT(m_deleted, ElementsAre("child 17", "child 18", "leaf", "child 19"));
    for (int child = 0; child < 17; ++child)
        Disown(children[child]);
    Disown(root);
    Disown(next);
    Forget({leaf});
    m_tree->DeleteAllItems();
}

TEST_F(TreeCleaning, KeepsTheValuesInTheItems)
{
    const HTREEITEM root = AddOwner("root");
    const DWORD_PTR data = m_tree->GetItemData(root);
    m_tree->CleanItemData();
    EXPECT_EQ(m_deleted.size(), 1u);
    EXPECT_EQ(m_tree->GetItemData(root), data);
    EXPECT_NE(data, 0u);
    Forget({root});
}

TEST_F(TreeCleaning, LetsItemsThatWereResetBeUsedAgain)
{
    const HTREEITEM root = AddOwner("root");
    m_tree->CleanItemData();
    Forget({root});
    Own(root, new Note(m_deleted, "anew"));
    m_tree->DestroyWindow();
    EXPECT_THAT(m_deleted, ElementsAre("root", "anew"));
}

TEST_F(TreeCleaning, OfAnEmptyTreeOrNoWindowDoesNothing)
{
    m_tree->CleanItemData();
    m_tree->DestroyWindow();
    m_tree->CleanItemData();
    m_tree->DeleteBranchData(nullptr);
    EXPECT_EQ(testkit::LiveObjects(), 0);
}
