#include "controls/XTreeCtrl.h"

#include <new>
#include <vector>

#include "frame/TipText.h"

namespace
{

// Whether the tool that asks for its text was registered as a window.
bool IsWindowTool(const NMHDR* notification)
{
    const UINT flags = notification->code == TTN_NEEDTEXTA
                           ? reinterpret_cast<const TOOLTIPTEXTA*>(notification)->uFlags
                           : reinterpret_cast<const TOOLTIPTEXTW*>(notification)->uFlags;
    return (flags & TTF_IDISHWND) != 0;
}

HTREEITEM FirstChild(const CTreeCtrl& tree, HTREEITEM item)
{
    return tree.ItemHasChildren(item) ? tree.GetNextItem(item, TVGN_CHILD) : nullptr;
}

// Visits the descendants of an item in the order in which they stand, until visit(item) gives true. Without
// recursion: a tree may be deeper than the stack.
template <class Visit>
bool VisitBranch(const CTreeCtrl& tree, HTREEITEM item, Visit visit)
{
    HTREEITEM current = FirstChild(tree, item);
    while (current != nullptr) {
        if (visit(current))
            return true;
        HTREEITEM next = FirstChild(tree, current);
        while (next == nullptr && current != nullptr && current != item) {
            next = tree.GetNextItem(current, TVGN_NEXT);
            if (next == nullptr)
                current = tree.GetNextItem(current, TVGN_PARENT);
        }
        current = next;
    }
    return false;
}

// The same for the first visible item, the siblings behind it, and all their descendants.
template <class Visit>
bool VisitFromFirstVisible(const CTreeCtrl& tree, Visit visit)
{
    for (HTREEITEM item = tree.GetNextItem(nullptr, TVGN_FIRSTVISIBLE); item != nullptr;
         item = tree.GetNextItem(item, TVGN_NEXT))
    {
        if (visit(item) || VisitBranch(tree, item, visit))
            return true;
    }
    return false;
}

// The objects on some items, noted before the first is deleted: destructors may change the tree.
class OwnedData
{
public:
    explicit OwnedData(CTreeCtrl& tree) : m_tree(tree) {}

    bool Add(HTREEITEM item)
    {
        const DWORD_PTR value = m_tree.GetItemData(item);
        if (value != 0)
            m_entries.push_back({item, value});
        return false;
    }

    void Delete()
    {
        const UINT count = m_tree.GetCount();
        for (const Entry& entry : m_entries)
            m_tree.SetItemData(entry.item, 0);
        for (const Entry& entry : m_entries)
            delete reinterpret_cast<ItemDataABSTRACT*>(entry.value);
        // Where items went, nothing tells which.
        if (m_tree.GetCount() != count)
            return;
        for (const Entry& entry : m_entries)
            m_tree.SetItemData(entry.item, entry.value);
    }

private:
    struct Entry
    {
        HTREEITEM item;
        DWORD_PTR value;
    };

    CTreeCtrl& m_tree;
    std::vector<Entry> m_entries;
};

// The same objects as CleanItemData does, without memory: after each it looks anew for the next, since its
// destructor may have changed the tree.
void DeleteOneByOne(CTreeCtrl& tree)
{
    HTREEITEM owner = nullptr;
    while (VisitFromFirstVisible(tree, [&](HTREEITEM item) {
        owner = item;
        return tree.GetItemData(item) != 0;
    }))
    {
        const DWORD_PTR value = tree.GetItemData(owner);
        tree.SetItemData(owner, 0);
        delete reinterpret_cast<ItemDataABSTRACT*>(value);
    }
}

} // namespace

ItemDataABSTRACT::ItemDataABSTRACT() = default;
ItemDataABSTRACT::ItemDataABSTRACT(const ItemDataABSTRACT& other) = default;
ItemDataABSTRACT& ItemDataABSTRACT::operator=(const ItemDataABSTRACT& other) = default;
ItemDataABSTRACT::~ItemDataABSTRACT() = default;

BEGIN_MESSAGE_MAP(CXTreeCtrl, CTreeCtrl)
ON_WM_LBUTTONDOWN()
ON_WM_DESTROY()
ON_NOTIFY_EX_RANGE(TTN_NEEDTEXTW, 0, 0xFFFF, &CXTreeCtrl::OnToolTipText)
ON_NOTIFY_EX_RANGE(TTN_NEEDTEXTA, 0, 0xFFFF, &CXTreeCtrl::OnToolTipText)
END_MESSAGE_MAP()

CXTreeCtrl::CXTreeCtrl() = default;

CXTreeCtrl::~CXTreeCtrl()
{
    // While the handlers of this class are still there to delete the data.
    DestroyWindow();
}

void CXTreeCtrl::PreSubclassWindow()
{
    CTreeCtrl::PreSubclassWindow();
    EnableToolTips(TRUE);
}

void CXTreeCtrl::OnLButtonDown(UINT, CPoint)
{
    Default();
}

void CXTreeCtrl::OnDestroy()
{
    // It is the last chance.
    try {
        CleanItemData();
    } catch (const std::bad_alloc&) {
        DeleteOneByOne(*this);
    }
    CTreeCtrl::OnDestroy();
}

void CXTreeCtrl::CleanItemData()
{
    OwnedData data(*this);
    VisitFromFirstVisible(*this, [&](HTREEITEM item) { return data.Add(item); });
    data.Delete();
}

void CXTreeCtrl::DeleteBranchData(HTREEITEM item)
{
    OwnedData data(*this);
    VisitBranch(*this, item, [&](HTREEITEM descendant) { return data.Add(descendant); });
    data.Delete();
}

INT_PTR CXTreeCtrl::OnToolHitTest(CPoint point, TOOLINFO* pTI) const
{
    UINT flags = 0;
    const HTREEITEM item = HitTest(point, &flags);
    if (item == nullptr || (flags & TVHT_ONITEMLABEL) == 0)
        return -1;
    if (pTI != nullptr) {
        pTI->hwnd = m_hWnd;
        pTI->uId = reinterpret_cast<UINT_PTR>(item);
        // The control may find an item by a point and yet have no rectangle of it.
        if (!GetItemRect(item, &pTI->rect, TRUE))
            SetRectEmpty(&pTI->rect);
        pTI->lpszText = LPSTR_TEXTCALLBACK;
    }
    return reinterpret_cast<INT_PTR>(item);
}

BOOL CXTreeCtrl::OnToolTipText(UINT, NMHDR* pNMHDR, LRESULT* pResult)
{
    if (pNMHDR->idFrom == reinterpret_cast<UINT_PTR>(m_hWnd) && IsWindowTool(pNMHDR))
        return FALSE;
    if (pNMHDR->code == TTN_NEEDTEXTW || pNMHDR->code == TTN_NEEDTEXTA) {
        const auto item = reinterpret_cast<HTREEITEM>(pNMHDR->idFrom);
        TVITEM info = {};
        info.mask = TVIF_HANDLE | TVIF_PARAM;
        info.hItem = item;
        const auto data = GetItem(&info) ? reinterpret_cast<const ItemDataABSTRACT*>(info.lParam) : nullptr;
        PutTipText(pNMHDR, data != nullptr ? L" " + data->GetTipText() : GetItemText(item));
    }
    *pResult = 0;
    return TRUE;
}
