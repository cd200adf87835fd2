// CCmdUI, and the update of a window's controls with it.
#include "afxwin.h"
#include "win/state.h"

CCmdUI::CCmdUI()
    : m_nID(0), m_nIndex(0), m_pMenu(nullptr), m_pSubMenu(nullptr), m_pOther(nullptr), m_nIndexMax(0),
      m_pParentMenu(nullptr), m_bEnableChanged(FALSE), m_bContinueRouting(FALSE)
{
}

void CCmdUI::Enable(BOOL bOn)
{
    m_bEnableChanged = TRUE;
    if (m_pMenu != nullptr) {
        // An item that opens a pop-up stays as it is: its pop-up's items have states of their own.
        if (m_pSubMenu == nullptr)
            m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (bOn ? MF_ENABLED : MF_DISABLED | MF_GRAYED));
        return;
    }
    if (m_pOther == nullptr)
        return;
    // A disabled control must not keep the focus.
    if (!bOn && ::GetFocus() == m_pOther->m_hWnd)
        ::SendMessage(::GetParent(m_pOther->m_hWnd), WM_NEXTDLGCTL, 0, FALSE);
    m_pOther->EnableWindow(bOn);
}

void CCmdUI::SetCheck(int nCheck)
{
    if (m_pMenu != nullptr) {
        if (m_pSubMenu == nullptr)
            m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (nCheck != 0 ? MF_CHECKED : MF_UNCHECKED));
        return;
    }
    if (m_pOther != nullptr && (m_pOther->SendMessage(WM_GETDLGCODE) & DLGC_BUTTON) != 0)
        m_pOther->SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck));
}

void CCmdUI::SetRadio(BOOL bOn)
{
    SetCheck(bOn ? 1 : 0);
    if (m_pMenu == nullptr || m_pSubMenu != nullptr)
        return;
    if (bOn) {
        m_pMenu->CheckMenuRadioItem(m_nIndex, m_nIndex, m_nIndex, MF_BYPOSITION);
        return;
    }
    MENUITEMINFO info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE;
    if (m_pMenu->GetMenuItemInfo(m_nIndex, &info, TRUE) && (info.fType & MFT_RADIOCHECK) != 0) {
        info.fType &= ~static_cast<UINT>(MFT_RADIOCHECK);
        m_pMenu->SetMenuItemInfo(m_nIndex, &info, TRUE);
    }
}

void CCmdUI::SetText(LPCTSTR lpszText)
{
    if (m_pMenu != nullptr) {
        if (m_pSubMenu != nullptr)
            return;
        MENUITEMINFO info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_STRING;
        info.dwTypeData = const_cast<LPTSTR>(lpszText);
        m_pMenu->SetMenuItemInfo(m_nIndex, &info, TRUE);
        return;
    }
    if (m_pOther == nullptr)
        return;
    // Setting the same text again would flicker.
    CString current;
    m_pOther->GetWindowText(current);
    if (current != lpszText)
        m_pOther->SetWindowText(lpszText);
}

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler)
{
    if (m_nID == 0 || LOWORD(m_nID) == 0xFFFF)
        return TRUE;
    m_bEnableChanged = FALSE;
    const BOOL bAnswered = pTarget->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
    if (bDisableIfNoHndler && !m_bEnableChanged) {
        AFX_CMDHANDLERINFO info{};
        Enable(pTarget->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
    }
    return bAnswered;
}

void CWnd::UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler)
{
    constexpr int nReflected = static_cast<int>((WM_COMMAND + WM_REFLECT_BASE) << 16 | 0xFFFF);
    for (HWND hChild = ::GetTopWindow(m_hWnd); hChild != nullptr; hChild = ::GetWindow(hChild, GW_HWNDNEXT)) {
        CCmdUI state;
        state.m_nID = static_cast<UINT>(LOWORD(::GetDlgCtrlID(hChild)));
        state.m_pOther = FromHandle(hChild);

        // The control itself may know best, then the window, then the target.
        if (CWnd* const pControl = FromHandlePermanent(hChild)) {
            if (pControl->OnCmdMsg(0, nReflected, &state, nullptr))
                continue;
        }
        if (CWnd::OnCmdMsg(state.m_nID, CN_UPDATE_COMMAND_UI, &state, nullptr))
            continue;

        // Check boxes and radio buttons are not commands: without a handler they stay enabled.
        BOOL bDisable = bDisableIfNoHndler;
        if (bDisable) {
            const UINT nCode = static_cast<UINT>(::SendMessage(hChild, WM_GETDLGCODE, 0, 0));
            bDisable = (nCode & (DLGC_UNDEFPUSHBUTTON | DLGC_DEFPUSHBUTTON)) != 0;
        }
        state.DoUpdate(pTarget, bDisable);
    }
}
