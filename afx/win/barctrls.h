// CProgressCtrl and CStatusBarCtrl.
//
// Create makes a child control of the platform's class with the given style bits; FALSE on failure.
// Image lists that are set stay the caller's; those returned are the owners' objects or temporary.
// Members without a comment send the control's message of the like name and return its result.
#pragma once

#include "win/wnd.h"

// A progress bar.
class AFX_CORE_API CProgressCtrl : public CWnd
{
    DECLARE_DYNAMIC(CProgressCtrl)

public:
    CProgressCtrl();
    virtual ~CProgressCtrl();

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    void SetRange(short nLower, short nUpper)
    {
        AfxSend(m_hWnd, PBM_SETRANGE, 0, MAKELPARAM(nLower, nUpper));
    }
    void SetRange32(int nLower, int nUpper) { AfxSend(m_hWnd, PBM_SETRANGE32, nLower, nUpper); }
    void GetRange(int& nLower, int& nUpper) const;
    int GetPos() const { return (int)AfxSend(m_hWnd, PBM_GETPOS, 0, 0); }
    int SetPos(int nPos) { return (int)AfxSend(m_hWnd, PBM_SETPOS, nPos, 0); }
    int OffsetPos(int nPos) { return (int)AfxSend(m_hWnd, PBM_DELTAPOS, nPos, 0); }
    int GetStep() const { return (int)AfxSend(m_hWnd, PBM_GETSTEP, 0, 0); }
    int SetStep(int nStep) { return (int)AfxSend(m_hWnd, PBM_SETSTEP, nStep, 0); }
    int StepIt() { return (int)AfxSend(m_hWnd, PBM_STEPIT, 0, 0); }
    int GetState() const { return (int)AfxSend(m_hWnd, PBM_GETSTATE, 0, 0); }
    int SetState(int iState) { return (int)AfxSend(m_hWnd, PBM_SETSTATE, iState, 0); }
    COLORREF GetBarColor() const { return (COLORREF)AfxSend(m_hWnd, PBM_GETBARCOLOR, 0, 0); }
    COLORREF SetBarColor(COLORREF clrBar) { return (COLORREF)AfxSend(m_hWnd, PBM_SETBARCOLOR, 0, clrBar); }
    COLORREF GetBkColor() const { return (COLORREF)AfxSend(m_hWnd, PBM_GETBKCOLOR, 0, 0); }
    COLORREF SetBkColor(COLORREF clrNew) { return (COLORREF)AfxSend(m_hWnd, PBM_SETBKCOLOR, 0, clrNew); }
    BOOL SetMarquee(BOOL fMarqueeMode, int nInterval)
    {
        return (BOOL)AfxSend(m_hWnd, PBM_SETMARQUEE, fMarqueeMode, nInterval);
    }
};

// A status bar. Parts count from 0.
class AFX_CORE_API CStatusBarCtrl : public CWnd
{
    DECLARE_DYNAMIC(CStatusBarCtrl)

public:
    CStatusBarCtrl();
    virtual ~CStatusBarCtrl();

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    BOOL SetText(LPCTSTR lpszText, int nPane, int nType)
    {
        return (BOOL)AfxSend(m_hWnd, SB_SETTEXT, nPane | nType, lpszText);
    }
    CString GetText(int nPane, int* pType = nullptr) const;
    int GetTextLength(int nPane, int* pType = nullptr) const;
    BOOL SetParts(int nParts, int* pWidths) { return (BOOL)AfxSend(m_hWnd, SB_SETPARTS, nParts, pWidths); }
    int GetParts(int nParts, int* pParts) const { return (int)AfxSend(m_hWnd, SB_GETPARTS, nParts, pParts); }
    BOOL GetRect(int nPane, LPRECT lpRect) const { return (BOOL)AfxSend(m_hWnd, SB_GETRECT, nPane, lpRect); }
    BOOL GetBorders(int* pBorders) const { return (BOOL)AfxSend(m_hWnd, SB_GETBORDERS, 0, pBorders); }
    void SetMinHeight(int nMin) { AfxSend(m_hWnd, SB_SETMINHEIGHT, nMin, 0); }
    BOOL SetSimple(BOOL bSimple = TRUE) { return (BOOL)AfxSend(m_hWnd, SB_SIMPLE, bSimple, 0); }
    BOOL IsSimple() const { return (BOOL)AfxSend(m_hWnd, SB_ISSIMPLE, 0, 0); }
    BOOL SetIcon(int nPane, HICON hIcon) { return (BOOL)AfxSend(m_hWnd, SB_SETICON, nPane, hIcon); }
    HICON GetIcon(int iPart) const { return (HICON)AfxSend(m_hWnd, SB_GETICON, iPart, 0); }
    COLORREF SetBkColor(COLORREF cr) { return (COLORREF)AfxSend(m_hWnd, SB_SETBKCOLOR, 0, cr); }

    // Draws a part of type SBT_OWNERDRAW; the default does nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
};
