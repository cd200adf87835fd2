// CToolTipCtrl: the tooltip control.
//
// A tool is a window, or a part of one with a number and a rectangle in client coordinates. Members
// without a comment send the control's message of the like name and return its result.
#pragma once

#include "win/wnd.h"

// What GetToolInfo fills: the tool and room for its text.
class CToolInfo : public tagTOOLINFOW
{
public:
    TCHAR szText[256];
};

// A tooltip window, which serves any number of tools.
class AFX_CORE_API CToolTipCtrl : public CWnd
{
    DECLARE_DYNAMIC(CToolTipCtrl)

public:
    CToolTipCtrl();
    virtual ~CToolTipCtrl();

    // Create the hidden window; FALSE on failure.
    virtual BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);
    virtual BOOL CreateEx(CWnd* pParentWnd, DWORD dwStyle = 0, DWORD dwStyleEx = 0);

    // Tools. Without a rectangle the whole window pWnd is the tool. LPSTR_TEXTCALLBACK: the text is asked
    // of pWnd's parent or pWnd with TTN_NEEDTEXT.
    BOOL AddTool(CWnd* pWnd, UINT nIDText, LPCRECT lpRectTool = nullptr, UINT_PTR nIDTool = 0);
    BOOL AddTool(CWnd* pWnd, LPCTSTR lpszText = LPSTR_TEXTCALLBACK, LPCRECT lpRectTool = nullptr,
                 UINT_PTR nIDTool = 0);
    void DelTool(CWnd* pWnd, UINT_PTR nIDTool = 0);
    BOOL GetToolInfo(CToolInfo& ToolInfo, CWnd* pWnd, UINT_PTR nIDTool = 0) const;
    void SetToolInfo(LPTOOLINFO lpToolInfo) { AfxSend(m_hWnd, TTM_SETTOOLINFO, 0, lpToolInfo); }
    void SetToolRect(CWnd* pWnd, UINT_PTR nIDTool, LPCRECT lpRect);
    void GetText(CString& str, CWnd* pWnd, UINT_PTR nIDTool = 0) const;
    void UpdateTipText(LPCTSTR lpszText, CWnd* pWnd, UINT_PTR nIDTool = 0);
    void UpdateTipText(UINT nIDText, CWnd* pWnd, UINT_PTR nIDTool = 0);
    BOOL HitTest(CWnd* pWnd, CPoint pt, LPTOOLINFO lpToolInfo) const;
    int GetToolCount() const { return (int)AfxSend(m_hWnd, TTM_GETTOOLCOUNT, 0, 0); }
    BOOL GetCurrentTool(LPTOOLINFO lpToolInfo) const
    {
        return (BOOL)AfxSend(m_hWnd, TTM_GETCURRENTTOOL, 0, lpToolInfo);
    }

    // Behaviour
    void Activate(BOOL bActivate) { AfxSend(m_hWnd, TTM_ACTIVATE, bActivate, 0); }
    void RelayEvent(LPMSG lpMsg) { AfxSend(m_hWnd, TTM_RELAYEVENT, 0, lpMsg); }
    // Milliseconds; one value for all times, or one of TTDT_AUTOPOP, TTDT_INITIAL, TTDT_RESHOW.
    void SetDelayTime(UINT nDelay) { AfxSend(m_hWnd, TTM_SETDELAYTIME, 0, nDelay); }
    void SetDelayTime(DWORD dwDuration, int iTime)
    {
        AfxSend(m_hWnd, TTM_SETDELAYTIME, dwDuration, MAKELPARAM(iTime, 0));
    }
    int GetDelayTime(DWORD dwDuration) const { return (int)AfxSend(m_hWnd, TTM_GETDELAYTIME, dwDuration, 0); }
    void Pop() { AfxSend(m_hWnd, TTM_POP, 0, 0); }
    void Popup() { AfxSend(m_hWnd, TTM_POPUP, 0, 0); }
    void Update() { AfxSend(m_hWnd, TTM_UPDATE, 0, 0); }

    // Appearance
    COLORREF GetTipBkColor() const { return (COLORREF)AfxSend(m_hWnd, TTM_GETTIPBKCOLOR, 0, 0); }
    void SetTipBkColor(COLORREF clr) { AfxSend(m_hWnd, TTM_SETTIPBKCOLOR, clr, 0); }
    COLORREF GetTipTextColor() const { return (COLORREF)AfxSend(m_hWnd, TTM_GETTIPTEXTCOLOR, 0, 0); }
    void SetTipTextColor(COLORREF clr) { AfxSend(m_hWnd, TTM_SETTIPTEXTCOLOR, clr, 0); }
    int GetMaxTipWidth() const { return (int)AfxSend(m_hWnd, TTM_GETMAXTIPWIDTH, 0, 0); }
    int SetMaxTipWidth(int iWidth) { return (int)AfxSend(m_hWnd, TTM_SETMAXTIPWIDTH, 0, iWidth); }
    void GetMargin(LPRECT lprc) const { AfxSend(m_hWnd, TTM_GETMARGIN, 0, lprc); }
    void SetMargin(LPRECT lprc) { AfxSend(m_hWnd, TTM_SETMARGIN, 0, lprc); }
    BOOL SetTitle(UINT uIcon, LPCTSTR lpstrTitle)
    {
        return (BOOL)AfxSend(m_hWnd, TTM_SETTITLE, uIcon, lpstrTitle);
    }
    BOOL AdjustRect(LPRECT lprc, BOOL bLarger = TRUE)
    {
        return (BOOL)AfxSend(m_hWnd, TTM_ADJUSTRECT, bLarger, lprc);
    }
    CSize GetBubbleSize(LPTOOLINFO lpToolInfo) const
    {
        return CSize((DWORD)AfxSend(m_hWnd, TTM_GETBUBBLESIZE, 0, lpToolInfo));
    }

    // Implementation
public:
    // Names a tool in ti as the members above do: pWnd alone, or its part nIDTool.
    void FillInToolInfo(TOOLINFO& ti, CWnd* pWnd, UINT_PTR nIDTool) const;
};
