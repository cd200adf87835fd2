#include "controls/XTreeCtrl.h"

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

// The objects on some items, noted before the first is deleted: destructors may change the tree.
class OwnedData
{
public:
    explicit OwnedData(CTreeCtrl& tree) : m_tree(tree) {}

    void AddOf(HTREEITEM item)
    {
        const DWORD_PTR value = m_tree.GetItemData(item);
        if (value != 0)
            m_entries.push_back({item, value});
    }

    // Without recursion: a tree may be deeper than the stack.
    void AddOfBranch(HTREEITEM item)
    {
        HTREEITEM current = FirstChild(item);
        while (current != nullptr) {
            AddOf(current);
            HTREEITEM next = FirstChild(current);
            while (next == nullptr && current != nullptr && current != item) {
                next = m_tree.GetNextItem(current, TVGN_NEXT);
                if (next == nullptr)
                    current = m_tree.GetNextItem(current, TVGN_PARENT);
            }
            current = next;
        }
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

    HTREEITEM FirstChild(HTREEITEM item) const
    {
        return m_tree.ItemHasChildren(item) ? m_tree.GetNextItem(item, TVGN_CHILD) : nullptr;
    }

    CTreeCtrl& m_tree;
    std::vector<Entry> m_entries;
};

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
    CleanItemData();
    CTreeCtrl::OnDestroy();
}

void CXTreeCtrl::CleanItemData()
{
    OwnedData data(*this);
    for (HTREEITEM item = GetNextItem(nullptr, TVGN_FIRSTVISIBLE); item != nullptr;
         item = GetNextItem(item, TVGN_NEXT))
    {
        data.AddOf(item);
        data.AddOfBranch(item);
    }
    data.Delete();
}

void CXTreeCtrl::DeleteBranchData(HTREEITEM item)
{
    OwnedData data(*this);
    data.AddOfBranch(item);
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
        GetItemRect(item, &pTI->rect, TRUE);
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
