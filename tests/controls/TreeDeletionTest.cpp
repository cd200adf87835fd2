// Data whose destructors reach into the tree that deletes them.
#include "TreeTest.h"

#include <functional>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

// Data that does something of its own when it is deleted.
class Reaching : public Note
{
public:
    Reaching(std::vector<std::string>& deleted, std::string name, std::function<void()> reach)
        : Note(deleted, std::move(name)), m_reach(std::move(reach))
    {
    }
    ~Reaching() override { m_reach(); }

private:
    std::function<void()> m_reach;
};

class TreeDeletion : public TreeGround
{
protected:
    // A root with two children, the first of which has one of its own, and a second root.
    void SetUp() override
    {
        TreeGround::SetUp();
        m_root = AddOwner("root");
        m_first = AddOwner("first", m_root);
        m_leaf = AddOwner("leaf", m_first);
        m_second = AddOwner("second", m_root);
        m_last = AddOwner("last");
    }

    // Gives an item another object, which calls `reach` at its end.
    void LetReach(HTREEITEM item, const std::string& name, std::function<void()> reach)
    {
        Disown(item);
        m_deleted.clear();
        Own(item, new Reaching(m_deleted, name, std::move(reach)));
    }
    // Every object is deleted once; what an object does at its end comes before its note.
    void ExpectAllDeletedInOrder()
    {
        EXPECT_THAT(m_deleted, ElementsAre("root", "first", "leaf", "second", "last"));
        EXPECT_EQ(testkit::LiveObjects(), 0);
    }

    HTREEITEM m_root, m_first, m_leaf, m_second, m_last;
};

} // namespace

TEST_F(TreeDeletion, OfAnObjectMayTakeItsOwnItemAwayWithItsBranch)
{
    LetReach(m_first, "first", [this] { m_tree->DeleteItem(m_first); });
    m_tree->CleanItemData();
    ExpectAllDeletedInOrder();
    EXPECT_EQ(m_tree->GetCount(), 3u);
    EXPECT_EQ(m_tree->GetChildItem(m_root), m_second);
    // Items went, so that no data value has been put back.
    EXPECT_EQ(m_tree->GetItemData(m_root), 0u);
    EXPECT_EQ(m_tree->GetItemData(m_second), 0u);
    EXPECT_EQ(m_tree->GetItemData(m_last), 0u);
}

TEST_F(TreeDeletion, OfObjectsMayTakeAllItemsAway)
{
    const std::pair<HTREEITEM, const char*> items[] = {
        {m_root, "root"}, {m_first, "first"}, {m_leaf, "leaf"}, {m_second, "second"}, {m_last, "last"}};
    int done = 0;
    for (const auto& [item, name] : items)
        LetReach(item, name, [this, &done] { done++ == 0 ? m_tree->DeleteAllItems() : FALSE; });
    m_tree->CleanItemData();
    ExpectAllDeletedInOrder();
    EXPECT_EQ(done, 5);
    EXPECT_EQ(m_tree->GetCount(), 0u);
}

TEST_F(TreeDeletion, OfABranchMayTakeTheItemsOfTheBranchAway)
{
    LetReach(m_leaf, "leaf", [this] { m_tree->DeleteItem(m_leaf); });
    LetReach(m_second, "second", [this] { m_tree->DeleteItem(m_second); });
    m_tree->DeleteBranchData(m_root);
    EXPECT_THAT(m_deleted, ElementsAre("first", "leaf", "second"));
    EXPECT_EQ(m_tree->GetCount(), 3u);
    EXPECT_EQ(m_tree->GetItemData(m_first), 0u);
    EXPECT_NE(m_tree->GetItemData(m_root), 0u);
}

TEST_F(TreeDeletion, AtTheWindowsEndMayTakeItemsAwayToo)
{
    LetReach(m_root, "root", [this] { m_tree->DeleteItem(m_root); });
    m_tree->DestroyWindow();
    ExpectAllDeletedInOrder();
}

TEST_F(TreeDeletion, MayAskForTheSameDeletionAgain)
{
    LetReach(m_root, "root", [this] {
        m_tree->CleanItemData();
        EXPECT_THAT(m_deleted, IsEmpty());
    });
    const DWORD_PTR value = m_tree->GetItemData(m_second);
    m_tree->CleanItemData();
    ExpectAllDeletedInOrder();
    EXPECT_EQ(m_tree->GetItemData(m_second), value);
    Forget({m_root, m_first, m_leaf, m_second, m_last});
}

TEST_F(TreeDeletion, MayAskForThatOfItsOwnBranch)
{
    LetReach(m_first, "first", [this] { m_tree->DeleteBranchData(m_first); });
    m_tree->DestroyWindow();
    ExpectAllDeletedInOrder();
}

TEST_F(TreeDeletion, OfABranchMayAskForAllTheRest)
{
    LetReach(m_leaf, "leaf", [this] { m_tree->CleanItemData(); });
    m_tree->DeleteBranchData(m_first);
    // The others go first, within the end of this one.
    EXPECT_THAT(m_deleted, ElementsAre("root", "first", "second", "last", "leaf"));
    EXPECT_EQ(testkit::LiveObjects(), 0);
    Forget({m_root, m_first, m_leaf, m_second, m_last});
}

TEST_F(TreeDeletion, LeavesTheItemsWithoutDataWhileItLasts)
{
    LetReach(m_root, "root", [this] {
        for (const HTREEITEM item : {m_root, m_first, m_leaf, m_second, m_last})
            EXPECT_EQ(m_tree->GetItemData(item), 0u);
        WideRequest request(reinterpret_cast<UINT_PTR>(m_last));
        LRESULT result = 77;
        EXPECT_TRUE(m_tree->OnToolTipText(0, request.Head(), &result));
        EXPECT_EQ(request.Text(), L"last");
    });
    m_tree->DestroyWindow();
    ExpectAllDeletedInOrder();
}

TEST_F(TreeDeletion, MayEndTheWindow)
{
    LetReach(m_first, "first", [this] { m_tree->DestroyWindow(); });
    m_tree->CleanItemData();
    ExpectAllDeletedInOrder();
    EXPECT_EQ(m_tree->m_hWnd, nullptr);
}
