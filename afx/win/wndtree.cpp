// Parents, owners, descendants, and where windows are.
#include "afxwin.h"
#include "win/state.h"

HWND AfxGetParentOwner(HWND hWnd)
{
    return (::GetWindowLong(hWnd, GWL_STYLE) & WS_CHILD) != 0 ? ::GetParent(hWnd)
                                                              : ::GetWindow(hWnd, GW_OWNER);
}

BOOL AfxIsDescendant(HWND hWndParent, HWND hWndChild)
{
    for (; hWndChild != nullptr; hWndChild = AfxGetParentOwner(hWndChild)) {
        if (hWndChild == hWndParent)
            return TRUE;
    }
    return FALSE;
}

CWnd* CWnd::GetOwner() const
{
    return m_hWndOwner != nullptr ? FromHandle(m_hWndOwner) : GetParent();
}

CWnd* CWnd::GetParentOwner() const
{
    HWND hWnd = ::GetParent(m_hWnd);
    while (hWnd != nullptr && (::GetWindowLong(hWnd, GWL_STYLE) & WS_CHILD) != 0)
        hWnd = ::GetParent(hWnd);
    return FromHandle(hWnd);
}

CWnd* CWnd::GetTopLevelParent() const
{
    HWND hWnd = m_hWnd;
    while (const HWND hParent = AfxGetParentOwner(hWnd))
        hWnd = hParent;
    return FromHandle(hWnd);
}

CWnd* CWnd::GetTopLevelOwner() const
{
    HWND hWnd = ::GetAncestor(m_hWnd, GA_ROOT);
    while (const HWND hOwner = ::GetWindow(hWnd, GW_OWNER))
        hWnd = hOwner;
    return FromHandle(hWnd);
}

CFrameWnd* CWnd::GetParentFrame() const
{
    for (HWND hWnd = ::GetParent(m_hWnd); hWnd != nullptr; hWnd = ::GetParent(hWnd)) {
        CWnd* const pWnd = FromHandlePermanent(hWnd);
        if (pWnd != nullptr && pWnd->IsKindOf(RUNTIME_CLASS(CFrameWnd)))
            return static_cast<CFrameWnd*>(pWnd);
    }
    return nullptr;
}

CFrameWnd* CWnd::GetTopLevelFrame() const
{
    CFrameWnd* pFrame = IsKindOf(RUNTIME_CLASS(CFrameWnd))
                            ? const_cast<CFrameWnd*>(static_cast<const CFrameWnd*>(this))
                            : GetParentFrame();
    while (pFrame != nullptr) {
        CFrameWnd* const pAbove = pFrame->GetParentFrame();
        if (pAbove == nullptr)
            break;
        pFrame = pAbove;
    }
    return pFrame;
}

HWND PASCAL CWnd::GetSafeOwner_(HWND hParent, HWND* pWndTop)
{
    HWND hWnd = hParent;
    if (hWnd == nullptr)
        hWnd = AfxSafe(AfxGetMainWnd());
    while (hWnd != nullptr && (::GetWindowLong(hWnd, GWL_STYLE) & WS_CHILD) != 0)
        hWnd = ::GetParent(hWnd);

    HWND hTop = hWnd;
    for (HWND hAbove = hWnd; hAbove != nullptr; hAbove = AfxGetParentOwner(hAbove))
        hTop = hAbove;

    // A pop-up may already stand over the main window; what is modal stands over that.
    if (hParent == nullptr && hWnd != nullptr)
        hWnd = ::GetLastActivePopup(hWnd);

    if (pWndTop != nullptr) {
        const bool bDisable = hTop != nullptr && hTop != hWnd && ::IsWindowEnabled(hTop);
        *pWndTop = bDisable ? hTop : nullptr;
        if (bDisable)
            ::EnableWindow(hTop, FALSE);
    }
    return hWnd;
}

CWnd* CWnd::GetSafeOwner(CWnd* pParent, HWND* pWndTop)
{
    return FromHandle(GetSafeOwner_(AfxSafe(pParent), pWndTop));
}

namespace
{
HWND FindDescendant(HWND hWnd, int nID, BOOL bOnlyPerm)
{
    const HWND hItem = ::GetDlgItem(hWnd, nID);
    if (hItem != nullptr) {
        // A window below the one with the number comes first, as it may be what is meant.
        if (::GetTopWindow(hItem) != nullptr) {
            if (const HWND hBelow = FindDescendant(hItem, nID, bOnlyPerm))
                return hBelow;
        }
        if (!bOnlyPerm || CWnd::FromHandlePermanent(hItem) != nullptr)
            return hItem;
    }
    for (HWND hChild = ::GetTopWindow(hWnd); hChild != nullptr; hChild = ::GetWindow(hChild, GW_HWNDNEXT)) {
        if (const HWND hBelow = FindDescendant(hChild, nID, bOnlyPerm))
            return hBelow;
    }
    return nullptr;
}

void SendToDescendants(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm)
{
    for (HWND hChild = ::GetTopWindow(hWnd); hChild != nullptr; hChild = ::GetWindow(hChild, GW_HWNDNEXT)) {
        if (!bOnlyPerm)
            ::SendMessage(hChild, message, wParam, lParam);
        else if (CWnd* const pWnd = CWnd::FromHandlePermanent(hChild))
            AfxCallWindow(pWnd, hChild, message, wParam, lParam);
        if (bDeep && ::GetTopWindow(hChild) != nullptr)
            SendToDescendants(hChild, message, wParam, lParam, bDeep, bOnlyPerm);
    }
}
} // namespace

CWnd* CWnd::GetDescendantWindow(int nID, BOOL bOnlyPerm) const
{
    return FromHandle(FindDescendant(m_hWnd, nID, bOnlyPerm));
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm)
{
    SendToDescendants(m_hWnd, message, wParam, lParam, bDeep, bOnlyPerm);
}

void CWnd::ClientToScreen(LPRECT lpRect) const
{
    // MapWindowPoints keeps left and right in order in mirrored windows.
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<LPPOINT>(lpRect), 2);
}

void CWnd::ScreenToClient(LPRECT lpRect) const
{
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(lpRect), 2);
}

BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const
{
    lpwndpl->length = sizeof *lpwndpl;
    return ::GetWindowPlacement(m_hWnd, lpwndpl);
}

BOOL CWnd::SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl)
{
    WINDOWPLACEMENT placement = *lpwndpl;
    placement.length = sizeof placement;
    return ::SetWindowPlacement(m_hWnd, &placement);
}

void CWnd::CalcWindowRect(LPRECT lpClientRect, UINT nAdjustType)
{
    DWORD dwExStyle = GetExStyle();
    if (nAdjustType == adjustBorder)
        dwExStyle &= ~static_cast<DWORD>(WS_EX_CLIENTEDGE);
    ::AdjustWindowRectEx(lpClientRect, GetStyle(), FALSE, dwExStyle);
}

void CWnd::CenterWindow(CWnd* pAlternateOwner)
{
    const bool bChild = (GetStyle() & WS_CHILD) != 0;
    HWND hCentre = AfxSafe(pAlternateOwner);
    if (hCentre == nullptr)
        hCentre = bChild ? ::GetParent(m_hWnd) : ::GetWindow(m_hWnd, GW_OWNER);
    if (!bChild && hCentre != nullptr && (!::IsWindowVisible(hCentre) || ::IsIconic(hCentre)))
        hCentre = nullptr;

    CRect area;   // the window stays inside it
    CRect centre; // and is put in the middle of this
    if (bChild) {
        const HWND hParent = ::GetParent(m_hWnd);
        ::GetClientRect(hParent, area);
        ::GetClientRect(hCentre, centre);
        ::MapWindowPoints(hCentre, hParent, &centre.TopLeft(), 2);
    } else {
        MONITORINFO monitor{};
        monitor.cbSize = sizeof monitor;
        ::GetMonitorInfo(::MonitorFromWindow(hCentre != nullptr ? hCentre : m_hWnd, MONITOR_DEFAULTTONEAREST),
                         &monitor);
        area = monitor.rcWork;
        if (hCentre != nullptr)
            ::GetWindowRect(hCentre, centre);
        else
            centre = area;
    }

    CRect window;
    GetWindowRect(window);
    CPoint place(centre.CenterPoint().x - window.Width() / 2, centre.CenterPoint().y - window.Height() / 2);
    // Right and bottom first: of a window that is too large the upper left part stays in sight.
    if (place.x + window.Width() > area.right)
        place.x = area.right - window.Width();
    if (place.x < area.left)
        place.x = area.left;
    if (place.y + window.Height() > area.bottom)
        place.y = area.bottom - window.Height();
    if (place.y < area.top)
        place.y = area.top;
    SetWindowPos(nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}
