// The handlers of CWnd that pass the message on to the control that it is about, and CWnd's message map.
#include "afxwin.h"
#include "win/state.h"

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
ON_WM_CTLCOLOR()
ON_WM_DRAWITEM()
ON_WM_MEASUREITEM()
ON_WM_COMPAREITEM()
ON_WM_DELETEITEM()
ON_WM_CHARTOITEM()
ON_WM_VKEYTOITEM()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_PARENTNOTIFY()
ON_WM_SYSCOLORCHANGE()
ON_WM_SETTINGCHANGE()
ON_MESSAGE(WM_QUERYAFXWNDPROC, &CWnd::OnQueryAfxWndProc)
END_MESSAGE_MAP()

LRESULT CWnd::OnQueryAfxWndProc(WPARAM, LPARAM)
{
    return 1;
}

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT)
{
    LRESULT lResult = 0;
    if (pWnd != nullptr && ReflectLastMsg(pWnd->m_hWnd, &lResult))
        return reinterpret_cast<HBRUSH>(lResult);
    return reinterpret_cast<HBRUSH>(Default());
}

namespace
{
// The menu with an owner-drawn item of that number, among the menus that a CMenu stands for.
CMenu* FindMenuOf(HMENU hMenu, UINT nItemID)
{
    const int nCount = ::GetMenuItemCount(hMenu);
    for (int i = 0; i < nCount; ++i) {
        if (const HMENU hPopup = ::GetSubMenu(hMenu, i)) {
            if (CMenu* const pFound = FindMenuOf(hPopup, nItemID))
                return pFound;
        } else if (::GetMenuItemID(hMenu, i) == nItemID)
            return CMenu::FromHandlePermanent(hMenu);
    }
    return nullptr;
}
} // namespace

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    if (lpDrawItemStruct->CtlType == ODT_MENU) {
        if (CMenu* const pMenu =
                CMenu::FromHandlePermanent(reinterpret_cast<HMENU>(lpDrawItemStruct->hwndItem))) {
            pMenu->DrawItem(lpDrawItemStruct);
            return;
        }
    } else if (ReflectLastMsg(lpDrawItemStruct->hwndItem))
        return;
    Default();
}

void CWnd::OnMeasureItem(int, LPMEASUREITEMSTRUCT lpMeasureItemStruct)
{
    if (lpMeasureItemStruct->CtlType == ODT_MENU) {
        const HMENU hMenu = (GetStyle() & WS_CHILD) != 0 ? nullptr : ::GetMenu(m_hWnd);
        if (CMenu* const pMenu = hMenu == nullptr ? nullptr : FindMenuOf(hMenu, lpMeasureItemStruct->itemID))
        {
            pMenu->MeasureItem(lpMeasureItemStruct);
            return;
        }
    } else {
        // Only the number says which control is meant.
        CWnd* const pChild = GetDescendantWindow(static_cast<int>(lpMeasureItemStruct->CtlID), TRUE);
        if (pChild != nullptr && pChild->SendChildNotifyLastMsg())
            return;
    }
    Default();
}

int CWnd::OnCompareItem(int, LPCOMPAREITEMSTRUCT lpCompareItemStruct)
{
    LRESULT lResult = 0;
    if (ReflectLastMsg(lpCompareItemStruct->hwndItem, &lResult))
        return static_cast<int>(lResult);
    return static_cast<int>(Default());
}

void CWnd::OnDeleteItem(int, LPDELETEITEMSTRUCT lpDeleteItemStruct)
{
    if (!ReflectLastMsg(lpDeleteItemStruct->hwndItem))
        Default();
}

int CWnd::OnCharToItem(UINT, CListBox* pListBox, UINT)
{
    LRESULT lResult = 0;
    if (pListBox != nullptr && ReflectLastMsg(pListBox->m_hWnd, &lResult))
        return static_cast<int>(lResult);
    return static_cast<int>(Default());
}

int CWnd::OnVKeyToItem(UINT, CListBox* pListBox, UINT)
{
    LRESULT lResult = 0;
    if (pListBox != nullptr && ReflectLastMsg(pListBox->m_hWnd, &lResult))
        return static_cast<int>(lResult);
    return static_cast<int>(Default());
}

void CWnd::OnHScroll(UINT, UINT, CScrollBar* pScrollBar)
{
    if (pScrollBar == nullptr || !ReflectLastMsg(pScrollBar->m_hWnd))
        Default();
}

void CWnd::OnVScroll(UINT, UINT, CScrollBar* pScrollBar)
{
    if (pScrollBar == nullptr || !ReflectLastMsg(pScrollBar->m_hWnd))
        Default();
}

void CWnd::OnParentNotify(UINT message, LPARAM lParam)
{
    const bool bChild = LOWORD(message) == WM_CREATE || LOWORD(message) == WM_DESTROY;
    if (!bChild || !ReflectLastMsg(reinterpret_cast<HWND>(lParam)))
        Default();
}

// The system tells top-level windows alone what controls want to know too.
void CWnd::OnSysColorChange()
{
    if ((GetStyle() & WS_CHILD) == 0)
        SendMessageToDescendants(WM_SYSCOLORCHANGE, 0, 0, TRUE, TRUE);
    Default();
}

void CWnd::OnSettingChange(UINT uFlags, LPCTSTR lpszSection)
{
    if ((GetStyle() & WS_CHILD) == 0)
        SendMessageToDescendants(WM_SETTINGCHANGE, uFlags, reinterpret_cast<LPARAM>(lpszSection), TRUE, TRUE);
    Default();
}
