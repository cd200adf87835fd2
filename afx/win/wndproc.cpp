// The way of a message: from the window procedure through the message maps to the default.
#include "afxwin.h"
#include "win/state.h"

#include <comdef.h>
#include <exception>

namespace
{
// Stands for an exception that is no CException, so that all are reported by one way.
class CForeignException : public CException
{
public:
    explicit CForeignException(const CString& text) : CException(FALSE), m_text(text) {}

    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr) const
    {
        if (pnHelpContext != nullptr)
            *pnHelpContext = 0;
        if (lpszError == nullptr || nMaxError == 0)
            return FALSE;
        ::lstrcpyn(lpszError, m_text, static_cast<int>(nMaxError));
        return !m_text.IsEmpty();
    }

private:
    CString m_text;
};

LRESULT Report(CException* e, const MSG& message)
{
    CWinThread* const pThread = AfxGetThread();
    return pThread == nullptr ? AfxDefaultWndProcException(e, &message)
                              : pThread->ProcessWndProcException(e, &message);
}

LRESULT ReportForeign(const CString& text, const MSG& message)
{
    CForeignException exception(text);
    return Report(&exception, message);
}

// Called in a catch block: deals with the exception that is being handled.
LRESULT DealWithCurrentException(const MSG& message)
{
    try {
        throw;
    } catch (CException* e) {
        struct Deleter
        {
            CException* e;
            ~Deleter() { e->Delete(); }
        } deleter{e};
        return Report(e, message);
    } catch (const _com_error& e) {
        return ReportForeign(CString(e.ErrorMessage()), message);
    } catch (const std::exception& e) {
        return ReportForeign(CString(e.what()), message);
    } catch (...) {
        return ReportForeign(_T("An exception of unknown kind left a message's handler."), message);
    }
}

const AFX_MSGMAP_ENTRY* FindWindowMessage(const AFX_MSGMAP_ENTRY* pEntry, UINT nMessage)
{
    for (; pEntry->nMessage != 0; ++pEntry) {
        const bool bFound = pEntry->pRegistered != nullptr
                                ? nMessage >= 0xC000 && *pEntry->pRegistered == nMessage
                                : pEntry->nMessage == nMessage && pEntry->nCode == 0;
        if (bFound)
            return pEntry;
    }
    return nullptr;
}

bool IsColourMessage(UINT nMessage)
{
    return WM_CTLCOLORMSGBOX <= nMessage && nMessage <= WM_CTLCOLORSTATIC;
}
} // namespace

LRESULT AfxDefaultWndProcException(CException*, const MSG* pMsg)
{
    if (pMsg->message == WM_CREATE)
        return -1;
    if (pMsg->message == WM_PAINT)
        ::ValidateRect(pMsg->hwnd, nullptr);
    return 0;
}

LRESULT AfxGuardMessage(const MSG& message, LRESULT (*body)(void* pContext), void* pContext)
{
    try {
        return body(pContext);
    } catch (...) {
        try {
            return DealWithCurrentException(message);
        } catch (...) {
            // The report failed as well; nothing may get past here.
            CForeignException exception{CString()};
            return AfxDefaultWndProcException(&exception, &message);
        }
    }
}

LRESULT AfxCallWindow(CWnd* pWnd, HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    AfxWindowState& state = AfxGetWindowState();
    MSG message{hWnd, nMessage, wParam, lParam, static_cast<DWORD>(::GetMessageTime()), {}};
    const DWORD position = ::GetMessagePos();
    message.pt = {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};

    struct Current
    {
        AfxWindowState& state;
        const MSG before;
        ~Current() { state.message = before; }
    } current{state, state.message};
    state.message = message;

    struct Call
    {
        CWnd* pWnd;
        const MSG& message;
    } call{pWnd, message};
    return AfxGuardMessage(
        message,
        [](void* pContext) {
            const Call& call = *static_cast<Call*>(pContext);
            return call.pWnd->CallWindowProcedure(call.message.message, call.message.wParam,
                                                  call.message.lParam);
        },
        &call);
}

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam)
{
    if (nMsg == WM_QUERYAFXWNDPROC)
        return 1;
    CWnd* const pWnd = CWnd::FromHandlePermanent(hWnd);
    if (pWnd == nullptr)
        return ::DefWindowProc(hWnd, nMsg, wParam, lParam);
    return AfxCallWindow(pWnd, hWnd, nMsg, wParam, lParam);
}

WNDPROC AFXAPI AfxGetAfxWndProc()
{
    return &AfxWndProc;
}

const MSG* PASCAL CWnd::GetCurrentMessage()
{
    return &AfxGetWindowState().message;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT lResult = 0;
    return OnWndMsg(message, wParam, lParam, &lResult) ? lResult : DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const WNDPROC pfnSuper = *GetSuperWndProcAddr();
    return pfnSuper == nullptr ? ::DefWindowProc(m_hWnd, message, wParam, lParam)
                               : ::CallWindowProc(pfnSuper, m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default()
{
    const MSG& message = AfxGetWindowState().message;
    return DefWindowProc(message.message, message.wParam, message.lParam);
}

WNDPROC* CWnd::GetSuperWndProcAddr()
{
    return &m_pfnSuper;
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT lResult = 0;
    if (message == WM_COMMAND) {
        if (!OnCommand(wParam, lParam))
            return FALSE;
        lResult = 1;
    } else if (message == WM_NOTIFY) {
        if (reinterpret_cast<const NMHDR*>(lParam)->hwndFrom == nullptr ||
            !OnNotify(wParam, lParam, &lResult))
            return FALSE;
    } else {
        const bool bReflected = message >= WM_REFLECT_BASE && message < 0xC000;
        const UINT nPlain = bReflected ? message - WM_REFLECT_BASE : message;
        const UINT nColour = IsColourMessage(nPlain) ? message - nPlain + AFX_WM_CTLCOLOR : 0;
        bool bHandled = false;
        for (const AFX_MSGMAP* pMap = GetMessageMap(); pMap != nullptr && !bHandled;
             pMap = pMap->pfnGetBaseMap == nullptr ? nullptr : pMap->pfnGetBaseMap())
        {
            const AFX_MSGMAP_ENTRY* pEntry = FindWindowMessage(pMap->lpEntries, message);
            if (pEntry == nullptr && nColour != 0)
                pEntry = FindWindowMessage(pMap->lpEntries, nColour);
            if (pEntry == nullptr)
                continue;
            AFX_MSGCALL_ARGS args{this, pEntry->pfn, nPlain, wParam, lParam, 0, 0, nullptr};
            pEntry->pCall(args);
            if (!args.bHandled)
                return FALSE;
            lResult = args.lResult;
            bHandled = true;
        }
        if (!bHandled)
            return FALSE;
    }
    if (pResult != nullptr)
        *pResult = lResult;
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT nID = LOWORD(wParam);
    const HWND hControl = reinterpret_cast<HWND>(lParam);
    int nCode = HIWORD(wParam);

    if (hControl == nullptr) {
        // Menu or accelerator. The item may have gone grey since it was shown last.
        if (nID == 0)
            return FALSE;
        class CStateCheck : public CCmdUI
        {
        public:
            virtual void Enable(BOOL bOn)
            {
                m_bEnabled = bOn;
                m_bEnableChanged = TRUE;
            }
            virtual void SetCheck(int) {}
            virtual void SetRadio(BOOL) {}
            virtual void SetText(LPCTSTR) {}
            BOOL m_bEnabled = TRUE;
        } check;
        check.m_nID = nID;
        OnCmdMsg(nID, CN_UPDATE_COMMAND_UI, &check, nullptr);
        if (!check.m_bEnabled)
            return TRUE;
        nCode = CN_COMMAND;
    } else {
        if (AfxGetWindowState().hExchangeWindow == m_hWnd)
            return TRUE;
        if (ReflectLastMsg(hControl))
            return TRUE;
        if (nID == 0)
            return FALSE;
    }
    return OnCmdMsg(nID, nCode, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult)
{
    NMHDR* const pNMHDR = reinterpret_cast<NMHDR*>(lParam);
    if (AfxGetWindowState().hExchangeWindow == m_hWnd)
        return TRUE;
    if (ReflectLastMsg(pNMHDR->hwndFrom, pResult))
        return TRUE;
    AFX_NOTIFY notify{pResult, pNMHDR};
    const UINT nID = static_cast<UINT>(::GetDlgCtrlID(pNMHDR->hwndFrom));
    return OnCmdMsg(nID, static_cast<int>(MAKELONG(pNMHDR->code, WM_NOTIFY)), &notify, nullptr);
}

BOOL PASCAL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult)
{
    CWnd* const pChild = FromHandlePermanent(hWndChild);
    return pChild != nullptr && pChild->SendChildNotifyLastMsg(pResult);
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* pResult)
{
    const MSG message = AfxGetWindowState().message;
    return OnChildNotify(message.message, message.wParam, message.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    // Not virtual: a window that replaces OnWndMsg or OnCmdMsg for its own messages does not mean these.
    switch (message) {
    case WM_COMMAND:
        if (!CWnd::OnCmdMsg(0, static_cast<int>(MAKELONG(HIWORD(wParam), WM_REFLECT_BASE + WM_COMMAND)),
                            nullptr, nullptr))
            return FALSE;
        if (pResult != nullptr)
            *pResult = 1;
        return TRUE;
    case WM_NOTIFY: {
        NMHDR* const pNMHDR = reinterpret_cast<NMHDR*>(lParam);
        LRESULT lUnused = 0;
        AFX_NOTIFY notify{pResult == nullptr ? &lUnused : pResult, pNMHDR};
        return CWnd::OnCmdMsg(0, static_cast<int>(MAKELONG(pNMHDR->code, WM_REFLECT_BASE + WM_NOTIFY)),
                              &notify, nullptr);
    }
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_PARENTNOTIFY:
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_DELETEITEM:
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
    case WM_COMPAREITEM:
        return CWnd::OnWndMsg(WM_REFLECT_BASE + message, wParam, lParam, pResult);
    default:
        return IsColourMessage(message) && CWnd::OnWndMsg(WM_REFLECT_BASE + message, wParam, lParam, pResult);
    }
}
