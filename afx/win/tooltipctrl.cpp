#include "afxcmn.h"

IMPLEMENT_DYNAMIC(CToolTipCtrl, CWnd)

CToolTipCtrl::CToolTipCtrl() {}
CToolTipCtrl::~CToolTipCtrl()
{
    DestroyWindow();
}

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD dwStyle)
{
    return CreateEx(pParentWnd, dwStyle);
}

BOOL CToolTipCtrl::CreateEx(CWnd* pParentWnd, DWORD dwStyle, DWORD dwStyleEx)
{
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_BAR_CLASSES};
    ::InitCommonControlsEx(&classes);
    return CWnd::CreateEx(dwStyleEx, TOOLTIPS_CLASS, nullptr, WS_POPUP | dwStyle, CW_USEDEFAULT,
                          CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, AfxSafe(pParentWnd), nullptr);
}

void CToolTipCtrl::FillInToolInfo(TOOLINFO& ti, CWnd* pWnd, UINT_PTR nIDTool) const
{
    ti = {};
    ti.cbSize = TTTOOLINFO_V1_SIZE; // what every version of the control takes
    if (nIDTool == 0) {
        // The whole window: the control that notifies is its parent's.
        ti.hwnd = ::GetParent(pWnd->m_hWnd);
        ti.uFlags = TTF_IDISHWND;
        ti.uId = reinterpret_cast<UINT_PTR>(pWnd->m_hWnd);
    } else {
        ti.hwnd = pWnd->m_hWnd;
        ti.uId = nIDTool;
    }
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, LPCTSTR lpszText, LPCRECT lpRectTool, UINT_PTR nIDTool)
{
    TOOLINFO ti;
    FillInToolInfo(ti, pWnd, nIDTool);
    if (lpRectTool != nullptr)
        ti.rect = *lpRectTool;
    ti.lpszText = const_cast<LPTSTR>(lpszText);
    return static_cast<BOOL>(AfxSend(m_hWnd, TTM_ADDTOOL, 0, &ti));
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, UINT nIDText, LPCRECT lpRectTool, UINT_PTR nIDTool)
{
    CString text;
    return text.LoadString(nIDText) && AddTool(pWnd, text, lpRectTool, nIDTool);
}

void CToolTipCtrl::DelTool(CWnd* pWnd, UINT_PTR nIDTool)
{
    TOOLINFO ti;
    FillInToolInfo(ti, pWnd, nIDTool);
    AfxSend(m_hWnd, TTM_DELTOOL, 0, &ti);
}

BOOL CToolTipCtrl::GetToolInfo(CToolInfo& ToolInfo, CWnd* pWnd, UINT_PTR nIDTool) const
{
    FillInToolInfo(ToolInfo, pWnd, nIDTool);
    ToolInfo.szText[0] = 0;
    ToolInfo.lpszText = ToolInfo.szText;
    return static_cast<BOOL>(AfxSend(m_hWnd, TTM_GETTOOLINFO, 0, static_cast<TOOLINFO*>(&ToolInfo)));
}

void CToolTipCtrl::SetToolRect(CWnd* pWnd, UINT_PTR nIDTool, LPCRECT lpRect)
{
    TOOLINFO ti;
    FillInToolInfo(ti, pWnd, nIDTool);
    ti.rect = *lpRect;
    AfxSend(m_hWnd, TTM_NEWTOOLRECT, 0, &ti);
}

void CToolTipCtrl::GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool) const
{
    // The message does not say how long the text is.
    TOOLINFO ti;
    FillInToolInfo(ti, pWnd, nIDTool);
    constexpr int nRoom = 1024;
    ti.lpszText = str.GetBuffer(nRoom);
    ti.lpszText[0] = 0;
    AfxSend(m_hWnd, TTM_GETTEXT, nRoom, &ti);
    str.ReleaseBuffer();
}

void CToolTipCtrl::UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool)
{
    TOOLINFO ti;
    FillInToolInfo(ti, pWnd, nIDTool);
    ti.lpszText = const_cast<LPTSTR>(lpszText);
    AfxSend(m_hWnd, TTM_UPDATETIPTEXT, 0, &ti);
}

void CToolTipCtrl::UpdateTipText(UINT nIDText, CWnd* pWnd, UINT_PTR nIDTool)
{
    CString text;
    if (text.LoadString(nIDText))
        UpdateTipText(text, pWnd, nIDTool);
}

BOOL CToolTipCtrl::HitTest(CWnd* pWnd, CPoint pt, LPTOOLINFO lpToolInfo) const
{
    TTHITTESTINFO hit{};
    hit.hwnd = AfxSafe(pWnd);
    hit.pt = pt;
    hit.ti.cbSize = TTTOOLINFO_V1_SIZE;
    if (!AfxSend(m_hWnd, TTM_HITTEST, 0, &hit))
        return FALSE;
    std::memcpy(lpToolInfo, &hit.ti, TTTOOLINFO_V1_SIZE);
    return TRUE;
}
