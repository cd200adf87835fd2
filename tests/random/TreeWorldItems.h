// The tree of the random use with what must hang in it: its window, its items, their data, and who deletes
// them.
#pragma once

#include <VelmUtil22.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "RandomPlay.h"
#include "TreeWorldData.h"
#include "WorldStage.h"

namespace randomplay
{

inline constexpr size_t MostTreeNodes = 30;

struct TreeNode
{
    HTREEITEM item = nullptr; // null: the invisible root
    std::wstring text;
    TreeDatum* datum = nullptr;
    TreeNode* parent = nullptr;
    std::vector<std::unique_ptr<TreeNode>> children;
};

inline void Collect(const TreeNode& node, std::vector<TreeNode*>& nodes)
{
    for (const std::unique_ptr<TreeNode>& child : node.children) {
        nodes.push_back(child.get());
        Collect(*child, nodes);
    }
}

// A call that deletes data, under way: what it must delete, in this order.
struct TreeDeletion
{
    struct Entry
    {
        HTREEITEM item;
        TreeDatum* datum;
    };
    std::vector<Entry> entries;
    size_t next = 0;
};
class TreeItems : public World, protected TreeDatumWatch
{
protected:
    using TreeUnderTest = WithTipMischief<CXTreeCtrl>;
    using Numbers = std::array<uint32_t, 4>;

    TreeItems() : m_data(*this), m_tree(new TreeUnderTest) {}
    ~TreeItems() override { EndObjectToo(); }

    // The window

    void MakeWindow(uint32_t style, uint32_t size, uint32_t how, uint32_t place)
    {
        if (m_stage.IsThere())
            return;
        constexpr DWORD kinds[] = {TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT, 0, TVS_FULLROWSELECT,
                                   TVS_HASBUTTONS | TVS_SHOWSELALWAYS | WS_BORDER};
        const bool isVisible = how % 4 != 3;
        const DWORD all =
            WS_CHILD | TVS_NOTOOLTIPS | kinds[style % std::size(kinds)] | (isVisible ? WS_VISIBLE : 0);
        m_stage.Choose(place, size % 1000, size / 1000);
        const CRect& rect = m_stage.Rect();
        if (how % 2 == 0) {
            Expect(m_tree->Create(all, rect, &m_stage.Parent(), 7), "create", "it failed");
        } else {
            const HWND window =
                CreateWindowExW(0, WC_TREEVIEWW, L"", all, rect.left, rect.top, rect.Width(), rect.Height(),
                                m_stage.Parent(), reinterpret_cast<HMENU>(7), nullptr, nullptr);
            Expect(m_tree->SubclassWindow(window), "subclass", "it failed");
        }
        m_stage.Began(m_tree->m_hWnd, isVisible);
        m_takesWideTips =
            Ask(WM_NOTIFYFORMAT, reinterpret_cast<WPARAM>(m_tree->m_hWnd), NF_QUERY) == NFR_UNICODE;
    }

    // Ends the window by a call, with all that this deletes.
    template <class Call>
    void EndTree(Call call)
    {
        if (!m_stage.IsThere()) {
            call();
            return;
        }
        m_isEnding = true;
        ExpectDeletion(Cleaned(), call);
        m_isEnding = false;
        m_stage.Ended();
        // What the end does not reach is left to whoever made it.
        std::vector<TreeDatum*> left;
        for (TreeNode* const node : Nodes()) {
            if (node->datum != nullptr)
                left.push_back(node->datum);
            m_former.push_back(node->item);
        }
        m_root.children.clear();
        Discard(left);
    }
    void EndObjectToo()
    {
        EndTree([this] { delete m_tree; });
        m_tree = nullptr;
    }

    // Items

    std::vector<TreeNode*> Nodes() const
    {
        std::vector<TreeNode*> nodes;
        Collect(m_root, nodes);
        return nodes;
    }
    TreeNode* Pick(uint32_t number) const
    {
        const std::vector<TreeNode*> nodes = Nodes();
        return nodes.empty() ? nullptr : nodes[number % nodes.size()];
    }
    TreeNode* NodeOf(HTREEITEM item) const
    {
        for (TreeNode* const node : Nodes()) {
            if (node->item == item)
                return node;
        }
        return nullptr;
    }

    void InsertItem(const Numbers& n)
    {
        const std::vector<TreeNode*> nodes = Nodes();
        if (nodes.size() == MostTreeNodes)
            return;
        const size_t which = n[0] % (nodes.size() + 1);
        TreeNode& parent = which == 0 ? m_root : *nodes[which - 1];
        auto& siblings = parent.children;
        size_t at = siblings.size();
        HTREEITEM after = TVI_LAST;
        if (n[1] % 4 == 1) {
            at = 0;
            after = TVI_FIRST;
        } else if (n[1] % 4 == 2 && !siblings.empty()) {
            at = 1 + n[1] / 4 % siblings.size();
            after = siblings[at - 1]->item;
        }
        auto made = std::make_unique<TreeNode>();
        TreeNode& node = *made;
        node.text = SomeText(n[2]);
        node.parent = &parent;
        node.item =
            m_tree->InsertItem(node.text.c_str(), parent.item == nullptr ? TVI_ROOT : parent.item, after);
        Expect(node.item != nullptr, "insert", "it failed");
        siblings.insert(siblings.begin() + static_cast<ptrdiff_t>(at), std::move(made));
        if (n[3] % 2 == 1)
            Give(node, n[3] / 2, n[3] / 64);
    }

    // Removes an item by the platform's call, which leaves its data and that of the items below to us.
    void RemoveNode(TreeNode& node)
    {
        const HTREEITEM item = node.item;
        std::vector<TreeNode*> nodes{&node};
        Collect(node, nodes);
        std::vector<TreeDatum*> left;
        for (TreeNode* const one : nodes) {
            if (one->datum != nullptr)
                left.push_back(one->datum);
            m_former.push_back(one->item);
        }
        std::erase_if(node.parent->children, [&](const auto& child) { return child.get() == &node; });
        Expect(m_tree->DeleteItem(item), "remove", "it failed");
        Discard(left);
    }
    void RemoveAllItems()
    {
        while (!m_root.children.empty())
            RemoveNode(*m_root.children.back());
        Expect(m_tree->DeleteAllItems(), "remove", "of all items failed");
    }

    // Data

    void Give(TreeNode& node, uint32_t tip, uint32_t reach)
    {
        Take(node);
        node.datum = m_data.Make(SomeText(tip), reach);
        node.datum->item = node.item;
        m_tree->SetItemData(node.item, ValueOf(node.datum));
    }
    void Take(TreeNode& node)
    {
        m_tree->SetItemData(node.item, 0);
        if (node.datum != nullptr)
            Discard({std::exchange(node.datum, nullptr)});
    }
    void Discard(const std::vector<TreeDatum*>& data)
    {
        for (TreeDatum* const datum : data) {
            const bool wasDiscarding = std::exchange(m_isDiscarding, true);
            delete datum;
            m_isDiscarding = wasDiscarding;
        }
    }
    static DWORD_PTR ValueOf(TreeDatum* datum)
    {
        return reinterpret_cast<DWORD_PTR>(static_cast<ItemDataABSTRACT*>(datum));
    }

    // An item's descendants, without those below items that say they have no children.
    void AddBranch(const TreeNode& node, std::vector<TreeNode*>& nodes) const
    {
        if (node.children.empty() || !SaysChildren(node))
            return;
        for (const std::unique_ptr<TreeNode>& child : node.children) {
            nodes.push_back(child.get());
            AddBranch(*child, nodes);
        }
    }
    // The first visible item, the siblings behind it and their branches.
    std::vector<TreeNode*> Cleaned() const
    {
        std::vector<TreeNode*> nodes;
        const TreeNode* const first = m_stage.IsThere() ? NodeOf(Next(TVGN_FIRSTVISIBLE, nullptr)) : nullptr;
        if (first == nullptr)
            return nodes;
        bool isBehind = false;
        for (const std::unique_ptr<TreeNode>& sibling : first->parent->children) {
            isBehind = isBehind || sibling.get() == first;
            if (isBehind) {
                nodes.push_back(sibling.get());
                AddBranch(*sibling, nodes);
            }
        }
        return nodes;
    }

    // Does what must delete the data of these items, in their order and nothing else.
    template <class Call>
    void ExpectDeletion(const std::vector<TreeNode*>& nodes, Call call)
    {
        TreeDeletion deletion;
        for (TreeNode* const node : nodes) {
            if (node->datum != nullptr)
                deletion.entries.push_back({node->item, std::exchange(node->datum, nullptr)});
        }
        const size_t count = Nodes().size();
        m_deletions.push_back(&deletion);
        call();
        m_deletions.pop_back();
        Expect(deletion.next == deletion.entries.size(), "deletion",
               std::to_string(deletion.next) + " of " + std::to_string(deletion.entries.size()));
        if (!m_stage.IsThere() || !IsWindow(m_stage.Window()))
            return;
        // Where no item went, the values are back, and whoever keeps the items resets them.
        const bool areValuesBack = Nodes().size() == count;
        for (const TreeDeletion::Entry& entry : deletion.entries) {
            if (NodeOf(entry.item) == nullptr)
                continue;
            const DWORD_PTR value = areValuesBack ? ValueOf(entry.datum) : 0;
            Expect(m_tree->GetItemData(entry.item) == value, "value",
                   areValuesBack ? "not put back" : "of an object that is gone");
            m_tree->SetItemData(entry.item, 0);
        }
    }
    void CleanItemData()
    {
        ExpectDeletion(Cleaned(), [this] { m_tree->CleanItemData(); });
    }
    void DeleteBranchData(const TreeNode& node)
    {
        std::vector<TreeNode*> branch;
        AddBranch(node, branch);
        ExpectDeletion(branch, [this, item = node.item] { m_tree->DeleteBranchData(item); });
    }

    void OnDeleted(TreeDatum& datum) override
    {
        if (m_isDiscarding)
            return;
        if (m_deletions.empty()) {
            Fail("deletion", "nobody asked for it");
            return;
        }
        TreeDeletion& deletion = *m_deletions.back();
        if (deletion.next == deletion.entries.size() || deletion.entries[deletion.next].datum != &datum) {
            Fail("deletion", "of another object than the next");
            return;
        }
        ++deletion.next;
        for (const TreeDeletion::Entry& entry : deletion.entries) {
            if (NodeOf(entry.item) != nullptr)
                Expect(m_tree->GetItemData(entry.item) == 0, "value", "there while objects are deleted");
        }
        ReachInto(datum);
    }
    void OnDeadUse() override { Fail("data", "used after its end"); }

    // What an object's destructor does to the tree.
    void ReachInto(const TreeDatum& datum)
    {
        TreeNode* const own = NodeOf(datum.item);
        const uint32_t detail = datum.Reach() / 16;
        // A window that ends is neither ended again nor moved.
        switch (datum.Reach() % 16) {
        case 8:
        case 9:
            if (own != nullptr)
                RemoveNode(*own);
            break;
        case 10:
            if (TreeNode* const other = Pick(detail))
                RemoveNode(*other);
            break;
        case 11:
            CleanItemData();
            break;
        case 12:
            if (own != nullptr)
                DeleteBranchData(*own);
            break;
        case 13:
            if (TreeNode* const other = Pick(detail))
                DeleteBranchData(*other);
            break;
        case 14:
            if (!m_isEnding)
                EndTree([this] { m_tree->DestroyWindow(); });
            break;
        case 15:
            if (!m_isEnding)
                m_stage.Do(static_cast<Mischief>(1 + detail % 4), detail / 4);
            break;
        }
    }

    // Rules

    std::string Check() const
    {
        if (std::string failure = m_stage.Check(); !failure.empty())
            return failure;
        if (m_tree->m_hWnd != m_stage.Window())
            return "window: the object has another";
        const std::vector<TreeNode*> nodes = Nodes();
        const auto count =
            std::count_if(nodes.begin(), nodes.end(), [](TreeNode* n) { return n->datum != nullptr; });
        if (count != m_data.LiveCount())
            return "data: " + std::to_string(m_data.LiveCount()) + " live";
        if (!m_stage.IsThere())
            return {};
        if (Ask(TVM_GETCOUNT, 0, 0) != static_cast<LRESULT>(nodes.size()))
            return "count: of items";
        return CheckLevel(m_root);
    }
    std::string CheckLevel(const TreeNode& node) const
    {
        HTREEITEM item = node.item == nullptr ? Next(TVGN_ROOT, nullptr) : Next(TVGN_CHILD, node.item);
        for (const std::unique_ptr<TreeNode>& child : node.children) {
            if (item != child->item)
                return "order: of items";
            wchar_t text[500];
            TVITEM info{};
            info.mask = TVIF_HANDLE | TVIF_TEXT | TVIF_PARAM;
            info.hItem = item;
            info.pszText = text;
            info.cchTextMax = static_cast<int>(std::size(text));
            if (!Ask(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&info)) || info.pszText != child->text)
                return "text: of an item";
            if (static_cast<DWORD_PTR>(info.lParam) != (child->datum ? ValueOf(child->datum) : 0))
                return "value: of an item";
            if (std::string failure = CheckLevel(*child); !failure.empty())
                return failure;
            item = Next(TVGN_NEXT, item);
        }
        return item == nullptr ? std::string() : "order: one more item";
    }
    bool SaysChildren(const TreeNode& node) const
    {
        TVITEM info{};
        info.mask = TVIF_HANDLE | TVIF_CHILDREN;
        info.hItem = node.item;
        return Ask(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&info)) != 0 && info.cChildren != 0;
    }

    LRESULT Ask(UINT message, WPARAM wParam, LPARAM lParam) const
    {
        return ::SendMessageW(m_stage.Window(), message, wParam, lParam);
    }
    HTREEITEM Next(WPARAM code, HTREEITEM item) const
    {
        return reinterpret_cast<HTREEITEM>(Ask(TVM_GETNEXTITEM, code, reinterpret_cast<LPARAM>(item)));
    }

    void Fail(const char* kind, const std::string& details)
    {
        if (m_failure.empty())
            m_failure = std::string(kind) + ": " + details;
    }
    void Expect(bool holds, const char* kind, const std::string& details)
    {
        if (!holds)
            Fail(kind, details);
    }

    WorldStage m_stage;
    TreeDataStore m_data;
    TreeUnderTest* m_tree; // ours; data reach for it also while it ends
    TreeNode m_root;
    std::vector<HTREEITEM> m_former; // of items that are gone
    std::vector<TreeDeletion*> m_deletions;
    bool m_isDiscarding = false;
    bool m_isEnding = false;
    bool m_takesWideTips = false;
    std::string m_failure;
};

} // namespace randomplay
