// CToolBarCtrl: the toolbar control.
//
// Create makes a child control of the platform's class with the given style bits; FALSE on failure.
// Image lists that are set stay the caller's; those returned are the owners' objects or temporary.
// Members without a comment send the control's message of the like name and return its result.
#pragma once

#include "win/imagelist.h"
#include "win/tooltipctrl.h"

// A toolbar. Buttons are named by command id, or by index from 0 where it says nIndex.
class AFX_CORE_API CToolBarCtrl : public CWnd
{
    DECLARE_DYNAMIC(CToolBarCtrl)

public:
    CToolBarCtrl();
    virtual ~CToolBarCtrl();

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    virtual BOOL CreateEx(DWORD dwExStyle, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Buttons
    BOOL AddButtons(int nNumButtons, LPTBBUTTON lpButtons)
    {
        return (BOOL)AfxSend(m_hWnd, TB_ADDBUTTONS, nNumButtons, lpButtons);
    }
    BOOL InsertButton(int nIndex, LPTBBUTTON lpButton)
    {
        return (BOOL)AfxSend(m_hWnd, TB_INSERTBUTTON, nIndex, lpButton);
    }
    BOOL DeleteButton(int nIndex) { return (BOOL)AfxSend(m_hWnd, TB_DELETEBUTTON, nIndex, 0); }
    BOOL GetButton(int nIndex, LPTBBUTTON lpButton) const
    {
        return (BOOL)AfxSend(m_hWnd, TB_GETBUTTON, nIndex, lpButton);
    }
    int GetButtonCount() const { return (int)AfxSend(m_hWnd, TB_BUTTONCOUNT, 0, 0); }
    UINT CommandToIndex(UINT nID) const { return (UINT)AfxSend(m_hWnd, TB_COMMANDTOINDEX, nID, 0); }
    int GetButtonInfo(int nID, TBBUTTONINFO* ptbbi) const
    {
        return (int)AfxSend(m_hWnd, TB_GETBUTTONINFO, nID, ptbbi);
    }
    BOOL SetButtonInfo(int nID, TBBUTTONINFO* ptbbi)
    {
        return (BOOL)AfxSend(m_hWnd, TB_SETBUTTONINFO, nID, ptbbi);
    }
    BOOL SetCmdID(int nIndex, UINT nID) { return (BOOL)AfxSend(m_hWnd, TB_SETCMDID, nIndex, nID); }
    BOOL MoveButton(UINT nOldPos, UINT nNewPos)
    {
        return (BOOL)AfxSend(m_hWnd, TB_MOVEBUTTON, nOldPos, nNewPos);
    }
    void SetButtonStructSize(int nSize) { AfxSend(m_hWnd, TB_BUTTONSTRUCTSIZE, nSize, 0); }

    // State
    BOOL IsButtonEnabled(int nID) const { return (BOOL)AfxSend(m_hWnd, TB_ISBUTTONENABLED, nID, 0); }
    BOOL IsButtonChecked(int nID) const { return (BOOL)AfxSend(m_hWnd, TB_ISBUTTONCHECKED, nID, 0); }
    BOOL IsButtonPressed(int nID) const { return (BOOL)AfxSend(m_hWnd, TB_ISBUTTONPRESSED, nID, 0); }
    BOOL IsButtonHidden(int nID) const { return (BOOL)AfxSend(m_hWnd, TB_ISBUTTONHIDDEN, nID, 0); }
    BOOL IsButtonIndeterminate(int nID) const
    {
        return (BOOL)AfxSend(m_hWnd, TB_ISBUTTONINDETERMINATE, nID, 0);
    }
    BOOL IsButtonHighlighted(int nID) const { return (BOOL)AfxSend(m_hWnd, TB_ISBUTTONHIGHLIGHTED, nID, 0); }
    BOOL EnableButton(int nID, BOOL bEnable = TRUE)
    {
        return (BOOL)AfxSend(m_hWnd, TB_ENABLEBUTTON, nID, MAKELPARAM(bEnable, 0));
    }
    BOOL CheckButton(int nID, BOOL bCheck = TRUE)
    {
        return (BOOL)AfxSend(m_hWnd, TB_CHECKBUTTON, nID, MAKELPARAM(bCheck, 0));
    }
    BOOL PressButton(int nID, BOOL bPress = TRUE)
    {
        return (BOOL)AfxSend(m_hWnd, TB_PRESSBUTTON, nID, MAKELPARAM(bPress, 0));
    }
    BOOL HideButton(int nID, BOOL bHide = TRUE)
    {
        return (BOOL)AfxSend(m_hWnd, TB_HIDEBUTTON, nID, MAKELPARAM(bHide, 0));
    }
    BOOL Indeterminate(int nID, BOOL bIndeterminate = TRUE)
    {
        return (BOOL)AfxSend(m_hWnd, TB_INDETERMINATE, nID, MAKELPARAM(bIndeterminate, 0));
    }
    BOOL MarkButton(int nID, BOOL fHighlight = TRUE)
    {
        return (BOOL)AfxSend(m_hWnd, TB_MARKBUTTON, nID, MAKELPARAM(fHighlight, 0));
    }
    int GetState(int nID) const { return (int)AfxSend(m_hWnd, TB_GETSTATE, nID, 0); }
    BOOL SetState(int nID, UINT nState)
    {
        return (BOOL)AfxSend(m_hWnd, TB_SETSTATE, nID, MAKELPARAM(nState, 0));
    }

    // Images and texts. Bitmaps that are added stay the caller's and must outlive the control.
    int AddBitmap(int nNumButtons, UINT nBitmapID);
    int AddBitmap(int nNumButtons, CBitmap* pBitmap);
    int GetBitmap(int nID) const { return (int)AfxSend(m_hWnd, TB_GETBITMAP, nID, 0); }
    BOOL ChangeBitmap(int idButton, int iBitmap)
    {
        return (BOOL)AfxSend(m_hWnd, TB_CHANGEBITMAP, idButton, iBitmap);
    }
    UINT GetBitmapFlags() const { return (UINT)AfxSend(m_hWnd, TB_GETBITMAPFLAGS, 0, 0); }
    CImageList* GetImageList() const
    {
        return CImageList::FromHandle((HIMAGELIST)AfxSend(m_hWnd, TB_GETIMAGELIST, 0, 0));
    }
    CImageList* SetImageList(CImageList* pImageList)
    {
        return CImageList::FromHandle((HIMAGELIST)AfxSend(m_hWnd, TB_SETIMAGELIST, 0, AfxSafe(pImageList)));
    }
    CImageList* GetHotImageList() const
    {
        return CImageList::FromHandle((HIMAGELIST)AfxSend(m_hWnd, TB_GETHOTIMAGELIST, 0, 0));
    }
    CImageList* SetHotImageList(CImageList* pImageList)
    {
        return CImageList::FromHandle(
            (HIMAGELIST)AfxSend(m_hWnd, TB_SETHOTIMAGELIST, 0, AfxSafe(pImageList)));
    }
    CImageList* GetDisabledImageList() const
    {
        return CImageList::FromHandle((HIMAGELIST)AfxSend(m_hWnd, TB_GETDISABLEDIMAGELIST, 0, 0));
    }
    CImageList* SetDisabledImageList(CImageList* pImageList)
    {
        return CImageList::FromHandle(
            (HIMAGELIST)AfxSend(m_hWnd, TB_SETDISABLEDIMAGELIST, 0, AfxSafe(pImageList)));
    }
    // One string resource, or texts of which each ends with a zero and the last with two.
    int AddString(UINT nStringID);
    int AddStrings(LPCTSTR lpszStrings) { return (int)AfxSend(m_hWnd, TB_ADDSTRING, 0, lpszStrings); }
    int GetString(int nString, LPTSTR lpstrString, int cchMaxLen) const
    {
        return (int)AfxSend(m_hWnd, TB_GETSTRING, MAKEWPARAM(cchMaxLen, nString), lpstrString);
    }
    int GetString(int nString, CString& str) const;
    CString GetButtonText(int idButton) const;

    // Sizes and places
    BOOL SetButtonSize(CSize size)
    {
        return (BOOL)AfxSend(m_hWnd, TB_SETBUTTONSIZE, 0, MAKELPARAM(size.cx, size.cy));
    }
    DWORD GetButtonSize() const { return (DWORD)AfxSend(m_hWnd, TB_GETBUTTONSIZE, 0, 0); }
    BOOL SetBitmapSize(CSize size)
    {
        return (BOOL)AfxSend(m_hWnd, TB_SETBITMAPSIZE, 0, MAKELPARAM(size.cx, size.cy));
    }
    BOOL SetButtonWidth(int cxMin, int cxMax)
    {
        return (BOOL)AfxSend(m_hWnd, TB_SETBUTTONWIDTH, 0, MAKELPARAM(cxMin, cxMax));
    }
    BOOL SetIndent(int iIndent) { return (BOOL)AfxSend(m_hWnd, TB_SETINDENT, iIndent, 0); }
    DWORD SetPadding(int nHorzPadding, int nVertPadding)
    {
        return (DWORD)AfxSend(m_hWnd, TB_SETPADDING, 0, MAKELPARAM(nHorzPadding, nVertPadding));
    }
    BOOL GetItemRect(int nIndex, LPRECT lpRect) const
    {
        return (BOOL)AfxSend(m_hWnd, TB_GETITEMRECT, nIndex, lpRect);
    }
    BOOL GetRect(int nID, LPRECT lpRect) const { return (BOOL)AfxSend(m_hWnd, TB_GETRECT, nID, lpRect); }
    BOOL GetMaxSize(LPSIZE pSize) const { return (BOOL)AfxSend(m_hWnd, TB_GETMAXSIZE, 0, pSize); }
    int GetRows() const { return (int)AfxSend(m_hWnd, TB_GETROWS, 0, 0); }
    void SetRows(int nRows, BOOL bLarger, LPRECT lpRect)
    {
        AfxSend(m_hWnd, TB_SETROWS, MAKEWPARAM(nRows, bLarger), lpRect);
    }
    BOOL SetMaxTextRows(int iMaxRows) { return (BOOL)AfxSend(m_hWnd, TB_SETMAXTEXTROWS, iMaxRows, 0); }
    int GetMaxTextRows() const { return (int)AfxSend(m_hWnd, TB_GETTEXTROWS, 0, 0); }
    int HitTest(LPPOINT ppt) const { return (int)AfxSend(m_hWnd, TB_HITTEST, 0, ppt); }
    void AutoSize() { AfxSend(m_hWnd, TB_AUTOSIZE, 0, 0); }

    // Styles and behaviour
    DWORD GetStyle() const { return (DWORD)AfxSend(m_hWnd, TB_GETSTYLE, 0, 0); }
    void SetStyle(DWORD dwStyle) { AfxSend(m_hWnd, TB_SETSTYLE, 0, dwStyle); }
    DWORD GetExtendedStyle() const { return (DWORD)AfxSend(m_hWnd, TB_GETEXTENDEDSTYLE, 0, 0); }
    DWORD SetExtendedStyle(DWORD dwExStyle)
    {
        return (DWORD)AfxSend(m_hWnd, TB_SETEXTENDEDSTYLE, 0, dwExStyle);
    }
    DWORD SetDrawTextFlags(DWORD dwMask, DWORD dwDTFlags)
    {
        return (DWORD)AfxSend(m_hWnd, TB_SETDRAWTEXTFLAGS, dwMask, dwDTFlags);
    }
    int GetHotItem() const { return (int)AfxSend(m_hWnd, TB_GETHOTITEM, 0, 0); }
    int SetHotItem(int nHot) { return (int)AfxSend(m_hWnd, TB_SETHOTITEM, nHot, 0); }
    BOOL GetAnchorHighlight() const { return (BOOL)AfxSend(m_hWnd, TB_GETANCHORHIGHLIGHT, 0, 0); }
    BOOL SetAnchorHighlight(BOOL fAnchor = TRUE)
    {
        return (BOOL)AfxSend(m_hWnd, TB_SETANCHORHIGHLIGHT, fAnchor, 0);
    }
    COLORREF GetInsertMarkColor() const { return (COLORREF)AfxSend(m_hWnd, TB_GETINSERTMARKCOLOR, 0, 0); }
    COLORREF SetInsertMarkColor(COLORREF clrNew)
    {
        return (COLORREF)AfxSend(m_hWnd, TB_SETINSERTMARKCOLOR, 0, clrNew);
    }
    void GetInsertMark(TBINSERTMARK* ptbim) const { AfxSend(m_hWnd, TB_GETINSERTMARK, 0, ptbim); }
    void SetInsertMark(TBINSERTMARK* ptbim) { AfxSend(m_hWnd, TB_SETINSERTMARK, 0, ptbim); }
    BOOL MapAccelerator(TCHAR chAccel, UINT* pIDBtn)
    {
        return (BOOL)AfxSend(m_hWnd, TB_MAPACCELERATOR, chAccel, pIDBtn);
    }
    CToolTipCtrl* GetToolTips() const
    {
        return (CToolTipCtrl*)CWnd::FromHandle((HWND)AfxSend(m_hWnd, TB_GETTOOLTIPS, 0, 0));
    }
    void SetToolTips(CToolTipCtrl* pTip) { AfxSend(m_hWnd, TB_SETTOOLTIPS, AfxSafe(pTip), 0); }
    void SetOwner(CWnd* pWnd) { AfxSend(m_hWnd, TB_SETPARENT, AfxSafe(pWnd), 0); }
    void Customize() { AfxSend(m_hWnd, TB_CUSTOMIZE, 0, 0); }
};
