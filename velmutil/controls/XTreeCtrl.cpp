#include "controls/XTreeCtrl.h"

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

void CXTreeCtrl::DeleteDataOf(HTREEITEM item)
{
    delete reinterpret_cast<ItemDataABSTRACT*>(GetItemData(item));
}

void CXTreeCtrl::CleanItemData()
{
    for (HTREEITEM item = GetNextItem(nullptr, TVGN_FIRSTVISIBLE); item != nullptr;
         item = GetNextItem(item, TVGN_NEXT))
    {
        DeleteDataOf(item);
        DeleteBranchData(item);
    }
}

// Without recursion: a tree may be deeper than the stack.
void CXTreeCtrl::DeleteBranchData(HTREEITEM item)
{
    HTREEITEM current = ItemHasChildren(item) ? GetNextItem(item, TVGN_CHILD) : nullptr;
    while (current != nullptr) {
        DeleteDataOf(current);
        HTREEITEM next = ItemHasChildren(current) ? GetNextItem(current, TVGN_CHILD) : nullptr;
        while (next == nullptr && current != nullptr && current != item) {
            next = GetNextItem(current, TVGN_NEXT);
            if (next == nullptr)
                current = GetNextItem(current, TVGN_PARENT);
        }
        current = next;
    }
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
    const auto item = reinterpret_cast<HTREEITEM>(pNMHDR->idFrom);
    const auto data = reinterpret_cast<const ItemDataABSTRACT*>(GetItemData(item));
    PutTipText(pNMHDR, data != nullptr ? L" " + data->GetTipText() : GetItemText(item));
    *pResult = 0;
    return TRUE;
}
