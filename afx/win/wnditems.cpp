// Text, styles, scroll bars and dialog items of CWnd.
#include "afxwin.h"
#include "win/state.h"

void CWnd::GetWindowText(CString& rString) const
{
    const int nLength = GetWindowTextLength();
    ::GetWindowText(m_hWnd, rString.GetBufferSetLength(nLength), nLength + 1);
    rString.ReleaseBuffer();
}

int CWnd::GetDlgItemText(int nID, CString& rString) const
{
    rString.Empty();
    const HWND hItem = ::GetDlgItem(m_hWnd, nID);
    if (hItem != nullptr) {
        const int nLength = ::GetWindowTextLength(hItem);
        ::GetWindowText(hItem, rString.GetBufferSetLength(nLength), nLength + 1);
        rString.ReleaseBuffer();
    }
    return rString.GetLength();
}

namespace
{
BOOL ModifyStyleBits(HWND hWnd, int nIndex, DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    const DWORD dwOld = static_cast<DWORD>(::GetWindowLong(hWnd, nIndex));
    const DWORD dwNew = (dwOld & ~dwRemove) | dwAdd;
    if (dwOld == dwNew)
        return FALSE;
    ::SetWindowLong(hWnd, nIndex, static_cast<LONG>(dwNew));
    if (nFlags != 0)
        ::SetWindowPos(hWnd, nullptr, 0, 0, 0, 0,
                       SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | nFlags);
    return TRUE;
}
} // namespace

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return ModifyStyleBits(m_hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return ModifyStyleBits(m_hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType)
{
    return ::MessageBox(m_hWnd, lpszText, lpszCaption == nullptr ? AfxGetAppName() : lpszCaption, nType);
}

void CWnd::DragAcceptFiles(BOOL bAccept)
{
    ModifyStyleEx(bAccept ? 0 : WS_EX_ACCEPTFILES, bAccept ? WS_EX_ACCEPTFILES : 0);
}

CPoint PASCAL CWnd::GetCaretPos()
{
    CPoint point;
    ::GetCaretPos(&point);
    return point;
}

int CWnd::GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) const
{
    for (int nID = nIDFirstButton; nID <= nIDLastButton; ++nID) {
        if (IsDlgButtonChecked(nID) != 0)
            return nID;
    }
    return 0;
}

CScrollBar* CWnd::GetScrollBarCtrl(int) const
{
    return nullptr;
}

HWND CWnd::ScrollWindowOf(int nBar) const
{
    CScrollBar* const pControl = GetScrollBarCtrl(nBar);
    return pControl == nullptr ? m_hWnd : pControl->m_hWnd;
}

int CWnd::ScrollKindOf(int nBar) const
{
    return GetScrollBarCtrl(nBar) == nullptr ? nBar : SB_CTL;
}

BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask)
{
    lpScrollInfo->cbSize = sizeof *lpScrollInfo;
    lpScrollInfo->fMask = nMask;
    return ::GetScrollInfo(ScrollWindowOf(nBar), ScrollKindOf(nBar), lpScrollInfo);
}

BOOL CWnd::SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw)
{
    lpScrollInfo->cbSize = sizeof *lpScrollInfo;
    ::SetScrollInfo(ScrollWindowOf(nBar), ScrollKindOf(nBar), lpScrollInfo, bRedraw);
    return TRUE;
}

int CWnd::GetScrollLimit(int nBar)
{
    SCROLLINFO info{};
    if (!GetScrollInfo(nBar, &info, SIF_RANGE | SIF_PAGE))
        return 0;
    return info.nPage == 0 ? info.nMax : info.nMax - static_cast<int>(info.nPage) + 1;
}

void CWnd::EnableScrollBarCtrl(int nBar, BOOL bEnable)
{
    if (nBar == SB_BOTH) {
        EnableScrollBarCtrl(SB_HORZ, bEnable);
        EnableScrollBarCtrl(SB_VERT, bEnable);
        return;
    }
    if (CScrollBar* const pControl = GetScrollBarCtrl(nBar))
        pControl->EnableWindow(bEnable);
    else if (bEnable || (GetStyle() & (nBar == SB_HORZ ? WS_HSCROLL : WS_VSCROLL)) != 0)
        ShowScrollBar(static_cast<UINT>(nBar), bEnable);
}

namespace
{
const LPCTSTR dialogInitType = MAKEINTRESOURCE(240);

// In the resource list and combo boxes are named by messages of former systems.
UINT CurrentMessageNumber(UINT nMessage)
{
    switch (nMessage) {
    case 0x0401:
        return LB_ADDSTRING;
    case 0x0403:
        return CB_ADDSTRING;
    default:
        return nMessage;
    }
}
} // namespace

BOOL CWnd::ExecuteDlgInit(LPCTSTR lpszResourceName)
{
    if (lpszResourceName == nullptr)
        return TRUE;
    const HINSTANCE hInstance = AfxFindResourceHandle(lpszResourceName, dialogInitType);
    const HRSRC hResource = ::FindResource(hInstance, lpszResourceName, dialogInitType);
    if (hResource == nullptr)
        return TRUE;
    const HGLOBAL hLoaded = ::LoadResource(hInstance, hResource);
    return hLoaded != nullptr && ExecuteDlgInit(::LockResource(hLoaded));
}

BOOL CWnd::ExecuteDlgInit(LPVOID lpResource)
{
    if (lpResource == nullptr)
        return TRUE;
    // Records of control, message, length of the text, text; a control number of 0 ends them.
    const BYTE* pRecord = static_cast<const BYTE*>(lpResource);
    for (;;) {
        WORD nControl, nMessage;
        DWORD dwLength;
        std::memcpy(&nControl, pRecord, sizeof nControl);
        if (nControl == 0)
            break;
        std::memcpy(&nMessage, pRecord + 2, sizeof nMessage);
        std::memcpy(&dwLength, pRecord + 4, sizeof dwLength);
        pRecord += 8;
        const UINT nCurrent = CurrentMessageNumber(nMessage);
        if (nCurrent != LB_ADDSTRING && nCurrent != CB_ADDSTRING)
            return FALSE;
        if (::SendDlgItemMessageA(m_hWnd, nControl, nCurrent, 0, reinterpret_cast<LPARAM>(pRecord)) < 0)
            return FALSE;
        pRecord += dwLength;
    }
    SendMessageToDescendants(WM_INITIALUPDATE, 0, 0, FALSE, FALSE);
    return TRUE;
}
