// Tooltips that come from OnToolHitTest: one tooltip control for each thread, with one tool, which is
// what is under the mouse.
#include "afxwin.h"
#include "win/state.h"

namespace
{
struct FreeText
{
    void operator()(LPTSTR text) const { std::free(text); }
};

bool IsMouseMove(UINT message)
{
    return message == WM_MOUSEMOVE || message == WM_NCMOUSEMOVE;
}

bool IsMouseButton(UINT message)
{
    return (WM_LBUTTONDOWN <= message && message <= WM_MBUTTONDBLCLK) ||
           (WM_NCLBUTTONDOWN <= message && message <= WM_NCMBUTTONDBLCLK);
}

bool IsSame(const MSG& a, const MSG& b)
{
    return a.hwnd == b.hwnd && a.message == b.message && a.wParam == b.wParam && a.lParam == b.lParam &&
           a.time == b.time;
}

void Relay(HWND hToolTip, const MSG* pMsg)
{
    MSG message = *pMsg;
    AfxSend(hToolTip, TTM_RELAYEVENT, 0, &message);
}

void RemoveTool(AfxWindowState& state)
{
    if (::IsWindow(state.hToolTip) && state.hLastHit != nullptr)
        AfxSend(state.hToolTip, TTM_DELTOOL, 0, &state.lastTool);
    state.hLastHit = nullptr;
    state.nLastHit = -1;
    state.lastTool = {};
}

// The control belongs to the top-level window that its tool lies in, so that it stands over that and
// goes with it.
HWND ToolTipFor(AfxWindowState& state, HWND hOwner)
{
    if (::IsWindow(state.hToolTip) && ::GetWindow(state.hToolTip, GW_OWNER) == hOwner)
        return state.hToolTip;
    RemoveTool(state);
    if (::IsWindow(state.hToolTip))
        ::DestroyWindow(state.hToolTip);
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES};
    ::InitCommonControlsEx(&classes);
    state.hToolTip =
        ::CreateWindowEx(WS_EX_TOPMOST, TOOLTIPS_CLASS, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0,
                         0, 0, 0, hOwner, nullptr, AfxGetInstanceHandle(), nullptr);
    if (state.hToolTip != nullptr)
        AfxSend(state.hToolTip, TTM_ACTIVATE, FALSE, 0);
    return state.hToolTip;
}
} // namespace

BOOL CWnd::EnableToolTips(BOOL bEnable)
{
    if (bEnable)
        m_nFlags |= AFX_WF_TOOLTIPS;
    else {
        m_nFlags &= ~static_cast<UINT>(AFX_WF_TOOLTIPS);
        if (m_hWnd != nullptr && AfxGetWindowState().hLastHit == m_hWnd)
            CancelToolTips();
    }
    return bEnable != FALSE;
}

void PASCAL CWnd::CancelToolTips(BOOL)
{
    AfxWindowState& state = AfxGetWindowState();
    if (::IsWindow(state.hToolTip))
        AfxSend(state.hToolTip, TTM_ACTIVATE, FALSE, 0);
    RemoveTool(state);
    if (!::IsWindow(state.hToolTip))
        state.hToolTip = nullptr;
}

INT_PTR CWnd::OnToolHitTest(CPoint point, TOOLINFO* pTI) const
{
    const HWND hChild = ::ChildWindowFromPointEx(m_hWnd, point, CWP_SKIPINVISIBLE);
    if (hChild == nullptr || hChild == m_hWnd)
        return -1;
    const INT_PTR nHit = static_cast<INT_PTR>(::GetDlgCtrlID(hChild));
    if (nHit == -1)
        return -1;
    if (pTI != nullptr) {
        pTI->hwnd = m_hWnd;
        pTI->uId = reinterpret_cast<UINT_PTR>(hChild);
        pTI->uFlags |= TTF_IDISHWND;
        pTI->lpszText = LPSTR_TEXTCALLBACK;
    }
    return nHit;
}

void CWnd::FilterToolTipMessage(MSG* pMsg)
{
    if ((m_nFlags & AFX_WF_TOOLTIPS) == 0)
        return;
    AfxWindowState& state = AfxGetWindowState();
    if (pMsg->message == WM_KEYDOWN || pMsg->message == WM_SYSKEYDOWN) {
        CancelToolTips(TRUE);
        return;
    }
    if (IsMouseButton(pMsg->message)) {
        if (::IsWindow(state.hToolTip))
            Relay(state.hToolTip, pMsg);
        return;
    }
    if (!IsMouseMove(pMsg->message))
        return;

    // A window further down has a tool at the place already.
    if (IsSame(state.toolMessage, *pMsg))
        return;

    CPoint point(pMsg->pt);
    ScreenToClient(&point);
    TOOLINFO tool{};
    tool.cbSize = TTTOOLINFO_V1_SIZE; // what every version of the control takes
    const INT_PTR nHit = OnToolHitTest(point, &tool);
    const std::unique_ptr<TCHAR, FreeText> text(
        nHit == -1 || tool.lpszText == LPSTR_TEXTCALLBACK ? nullptr : tool.lpszText);
    if (nHit == -1) {
        if (state.hLastHit == m_hWnd) {
            if (::IsWindow(state.hToolTip))
                Relay(state.hToolTip, pMsg);
            CancelToolTips();
        }
        return;
    }
    state.toolMessage = *pMsg;

    const HWND hToolTip = ToolTipFor(state, GetTopLevelParent()->m_hWnd);
    if (hToolTip == nullptr)
        return;
    if (state.hLastHit != m_hWnd || state.nLastHit != nHit) {
        AfxSend(hToolTip, TTM_ACTIVATE, FALSE, 0);
        RemoveTool(state);
        AfxSend(hToolTip, TTM_ADDTOOL, 0, &tool);
        // The text is the control's copy from here on.
        state.hLastHit = m_hWnd;
        state.nLastHit = nHit;
        state.lastTool = tool;
        state.lastTool.lpszText = nullptr;
        AfxSend(hToolTip, TTM_ACTIVATE, TRUE, 0);
        ::SetWindowPos(hToolTip, HWND_TOP, 0, 0, 0, 0,
                       SWP_NOACTIVATE | SWP_NOSIZE | SWP_NOMOVE | SWP_NOOWNERZORDER);
    }
    // The control looks for its tool by the window of the message, which may be a child of the tool's.
    MSG relayed = *pMsg;
    if ((tool.uFlags & TTF_IDISHWND) == 0 && relayed.hwnd != tool.hwnd) {
        CPoint client(pMsg->pt);
        ::ScreenToClient(tool.hwnd, &client);
        relayed.hwnd = tool.hwnd;
        relayed.lParam = MAKELPARAM(client.x, client.y);
    }
    Relay(hToolTip, &relayed);
}
