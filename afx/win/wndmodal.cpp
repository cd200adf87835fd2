// Modal loops, the pump's calls on windows, and data exchange.
#include "afxwin.h"
#include "win/state.h"

int CWnd::RunModalLoop(DWORD dwFlags)
{
    const HWND hParent = ::GetParent(m_hWnd);
    bool bShow = (dwFlags & MLF_SHOWONIDLE) != 0 && (GetStyle() & WS_VISIBLE) == 0;
    bool bIdle = true;
    LONG lIdleCount = 0;

    // EndModalLoop needs the flags; they go whichever way the loop ends.
    m_nFlags |= AFX_WF_MODALLOOP | AFX_WF_CONTINUEMODAL;
    const auto ended = [this](int nResult) {
        m_nFlags &= ~static_cast<UINT>(AFX_WF_MODALLOOP | AFX_WF_CONTINUEMODAL);
        return nResult;
    };
    const auto showOnce = [this, &bShow] {
        if (!std::exchange(bShow, false))
            return;
        ShowWindow(SW_SHOWNORMAL);
        UpdateWindow();
    };

    MSG next;
    for (;;) {
        while (bIdle && !::PeekMessage(&next, nullptr, 0, 0, PM_NOREMOVE)) {
            // The queue has run empty: what the window shows first is complete.
            showOnce();
            if ((dwFlags & MLF_NOIDLEMSG) == 0 && hParent != nullptr && lIdleCount == 0)
                ::SendMessage(hParent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
            if ((dwFlags & MLF_NOKICKIDLE) != 0 ||
                SendMessage(WM_KICKIDLE, MSGF_DIALOGBOX, lIdleCount++) == 0)
                bIdle = false;
        }
        do {
            if (!ContinueModal())
                return ended(m_nModalResult);
            if (!AfxPumpMessage()) {
                // The outer pump has to see the end as well.
                ::PostQuitMessage(static_cast<int>(AfxGetThreadState()->m_msgCur.wParam));
                return ended(-1);
            }
            // A key means that somebody waits: show the window although the queue is not empty.
            const UINT nTaken = AfxGetThreadState()->m_msgCur.message;
            if (nTaken == WM_SYSKEYDOWN || nTaken == WM_KEYDOWN)
                showOnce();
            if (!ContinueModal())
                return ended(m_nModalResult);
            if (AfxIsIdleMessage(&AfxGetThreadState()->m_msgCur)) {
                bIdle = true;
                lIdleCount = 0;
            }
        } while (::PeekMessage(&next, nullptr, 0, 0, PM_NOREMOVE));
    }
}

BOOL CWnd::ContinueModal()
{
    return (m_nFlags & AFX_WF_CONTINUEMODAL) != 0;
}

void CWnd::EndModalLoop(int nResult)
{
    m_nModalResult = nResult;
    if ((m_nFlags & AFX_WF_CONTINUEMODAL) != 0) {
        m_nFlags &= ~static_cast<UINT>(AFX_WF_CONTINUEMODAL);
        // The loop may be waiting for a message.
        PostMessage(WM_NULL);
    }
}

void CWnd::BeginModalState()
{
    ::EnableWindow(m_hWnd, FALSE);
}
void CWnd::EndModalState()
{
    ::EnableWindow(m_hWnd, TRUE);
}

BOOL CWnd::PreTranslateMessage(MSG* pMsg)
{
    FilterToolTipMessage(pMsg);
    return FALSE;
}

BOOL PASCAL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg)
{
    for (HWND hWnd = pMsg->hwnd; hWnd != nullptr; hWnd = ::GetParent(hWnd)) {
        CWnd* const pWnd = FromHandlePermanent(hWnd);
        if (pWnd != nullptr && pWnd->PreTranslateMessage(pMsg))
            return TRUE;
        if (hWnd == hWndStop)
            break;
    }
    return FALSE;
}

void CWnd::DoDataExchange(CDataExchange*) {}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    // What controls tell while values go in and out is not the user's doing.
    struct Lock
    {
        AfxWindowState& state;
        const HWND hBefore;
        ~Lock() { state.hExchangeWindow = hBefore; }
    } lock{AfxGetWindowState(), AfxGetWindowState().hExchangeWindow};
    lock.state.hExchangeWindow = m_hWnd;

    CDataExchange exchange(this, bSaveAndValidate);
    try {
        DoDataExchange(&exchange);
        return TRUE;
    } catch (CUserException* e) {
        // The user has been told.
        e->Delete();
    } catch (CException* e) {
        e->ReportError(MB_ICONEXCLAMATION);
        e->Delete();
    }
    return FALSE;
}
