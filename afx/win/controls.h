// The controls of USER: CStatic, CButton, CEdit, CListBox, CComboBox, CScrollBar.
//
// Create makes a child control of the platform's class with the given style bits; FALSE on failure.
// Members without a comment send the control's message of the like name and return its result
// (LB_ERR, CB_ERR, -1 or FALSE on failure, as documented for the message).
#pragma once

#include "win/wnd.h"

// A label, frame, icon or picture. Images stay the caller's; the setters return the earlier one.
class AFX_CORE_API CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)

public:
    CStatic();
    virtual ~CStatic();

    virtual BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                        UINT nID = 0xffff);
    HICON SetIcon(HICON hIcon) { return (HICON)AfxSend(m_hWnd, STM_SETICON, hIcon, 0); }
    HICON GetIcon() const { return (HICON)AfxSend(m_hWnd, STM_GETICON, 0, 0); }
    HBITMAP SetBitmap(HBITMAP hBitmap)
    {
        return (HBITMAP)AfxSend(m_hWnd, STM_SETIMAGE, IMAGE_BITMAP, hBitmap);
    }
    HBITMAP GetBitmap() const { return (HBITMAP)AfxSend(m_hWnd, STM_GETIMAGE, IMAGE_BITMAP, 0); }
    HCURSOR SetCursor(HCURSOR hCursor)
    {
        return (HCURSOR)AfxSend(m_hWnd, STM_SETIMAGE, IMAGE_CURSOR, hCursor);
    }
    HCURSOR GetCursor() { return (HCURSOR)AfxSend(m_hWnd, STM_GETIMAGE, IMAGE_CURSOR, 0); }
    HENHMETAFILE SetEnhMetaFile(HENHMETAFILE hMetaFile)
    {
        return (HENHMETAFILE)AfxSend(m_hWnd, STM_SETIMAGE, IMAGE_ENHMETAFILE, hMetaFile);
    }
    HENHMETAFILE GetEnhMetaFile() const
    {
        return (HENHMETAFILE)AfxSend(m_hWnd, STM_GETIMAGE, IMAGE_ENHMETAFILE, 0);
    }

    // Draws a static of style SS_OWNERDRAW; the default does nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
};

// A push button, check box, radio button or group box.
class AFX_CORE_API CButton : public CWnd
{
    DECLARE_DYNAMIC(CButton)

public:
    CButton();
    virtual ~CButton();

    virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    UINT GetState() const { return (UINT)AfxSend(m_hWnd, BM_GETSTATE, 0, 0); }
    void SetState(BOOL bHighlight) { AfxSend(m_hWnd, BM_SETSTATE, bHighlight, 0); }
    int GetCheck() const { return (int)AfxSend(m_hWnd, BM_GETCHECK, 0, 0); }
    void SetCheck(int nCheck) { AfxSend(m_hWnd, BM_SETCHECK, nCheck, 0); }
    UINT GetButtonStyle() const { return GetStyle() & 0xFFFF; }
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE) { AfxSend(m_hWnd, BM_SETSTYLE, nStyle, bRedraw); }
    HICON SetIcon(HICON hIcon) { return (HICON)AfxSend(m_hWnd, BM_SETIMAGE, IMAGE_ICON, hIcon); }
    HICON GetIcon() const { return (HICON)AfxSend(m_hWnd, BM_GETIMAGE, IMAGE_ICON, 0); }
    HBITMAP SetBitmap(HBITMAP hBitmap)
    {
        return (HBITMAP)AfxSend(m_hWnd, BM_SETIMAGE, IMAGE_BITMAP, hBitmap);
    }
    HBITMAP GetBitmap() const { return (HBITMAP)AfxSend(m_hWnd, BM_GETIMAGE, IMAGE_BITMAP, 0); }
    HCURSOR SetCursor(HCURSOR hCursor)
    {
        return (HCURSOR)AfxSend(m_hWnd, BM_SETIMAGE, IMAGE_CURSOR, hCursor);
    }
    HCURSOR GetCursor() { return (HCURSOR)AfxSend(m_hWnd, BM_GETIMAGE, IMAGE_CURSOR, 0); }
    BOOL GetIdealSize(SIZE* psize) { return (BOOL)AfxSend(m_hWnd, BCM_GETIDEALSIZE, 0, psize); }
    BOOL GetTextMargin(RECT* pmargin) { return (BOOL)AfxSend(m_hWnd, BCM_GETTEXTMARGIN, 0, pmargin); }
    BOOL SetTextMargin(RECT* pmargin) { return (BOOL)AfxSend(m_hWnd, BCM_SETTEXTMARGIN, 0, pmargin); }

    // Draws a button of style BS_OWNERDRAW; the default does nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
};

// An edit control of one or more lines. Characters, lines and positions count from 0.
class AFX_CORE_API CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)

public:
    CEdit();
    virtual ~CEdit();

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    BOOL CanUndo() const { return (BOOL)AfxSend(m_hWnd, EM_CANUNDO, 0, 0); }
    int GetLineCount() const { return (int)AfxSend(m_hWnd, EM_GETLINECOUNT, 0, 0); }
    BOOL GetModify() const { return (BOOL)AfxSend(m_hWnd, EM_GETMODIFY, 0, 0); }
    void SetModify(BOOL bModified = TRUE) { AfxSend(m_hWnd, EM_SETMODIFY, bModified, 0); }
    void GetRect(LPRECT lpRect) const { AfxSend(m_hWnd, EM_GETRECT, 0, lpRect); }
    void SetRect(LPCRECT lpRect) { AfxSend(m_hWnd, EM_SETRECT, 0, lpRect); }
    void SetRectNP(LPCRECT lpRect) { AfxSend(m_hWnd, EM_SETRECTNP, 0, lpRect); }
    DWORD GetSel() const { return (DWORD)AfxSend(m_hWnd, EM_GETSEL, 0, 0); }
    void GetSel(int& nStartChar, int& nEndChar) const { AfxSend(m_hWnd, EM_GETSEL, &nStartChar, &nEndChar); }
    void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE)
    {
        SetSel(static_cast<short>(LOWORD(dwSelection)), static_cast<short>(HIWORD(dwSelection)), bNoScroll);
    }
    // Selects, and scrolls the caret into view unless bNoScroll.
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
    HLOCAL GetHandle() const { return (HLOCAL)AfxSend(m_hWnd, EM_GETHANDLE, 0, 0); }
    void SetHandle(HLOCAL hBuffer) { AfxSend(m_hWnd, EM_SETHANDLE, hBuffer, 0); }
    void SetMargins(UINT nLeft, UINT nRight)
    {
        AfxSend(m_hWnd, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELONG(nLeft, nRight));
    }
    DWORD GetMargins() const { return (DWORD)AfxSend(m_hWnd, EM_GETMARGINS, 0, 0); }
    void SetLimitText(UINT nMax) { AfxSend(m_hWnd, EM_SETLIMITTEXT, nMax, 0); }
    UINT GetLimitText() const { return (UINT)AfxSend(m_hWnd, EM_GETLIMITTEXT, 0, 0); }
    void LimitText(int nChars = 0) { AfxSend(m_hWnd, EM_LIMITTEXT, nChars, 0); }
    CPoint PosFromChar(UINT nChar) const
    {
        return CPoint(static_cast<LPARAM>(AfxSend(m_hWnd, EM_POSFROMCHAR, nChar, 0)));
    }
    int CharFromPos(CPoint pt) const
    {
        return (int)AfxSend(m_hWnd, EM_CHARFROMPOS, 0, MAKELPARAM(pt.x, pt.y));
    }
    // Copy one line without a final zero and return its length; the first form trusts the buffer.
    int GetLine(int nIndex, LPTSTR lpszBuffer) const
    {
        return (int)AfxSend(m_hWnd, EM_GETLINE, nIndex, lpszBuffer);
    }
    int GetLine(int nIndex, LPTSTR lpszBuffer, int nMaxLength) const;
    void EmptyUndoBuffer() { AfxSend(m_hWnd, EM_EMPTYUNDOBUFFER, 0, 0); }
    BOOL FmtLines(BOOL bAddEOL) { return (BOOL)AfxSend(m_hWnd, EM_FMTLINES, bAddEOL, 0); }
    int LineFromChar(int nIndex = -1) const { return (int)AfxSend(m_hWnd, EM_LINEFROMCHAR, nIndex, 0); }
    int LineIndex(int nLine = -1) const { return (int)AfxSend(m_hWnd, EM_LINEINDEX, nLine, 0); }
    int LineLength(int nLine = -1) const { return (int)AfxSend(m_hWnd, EM_LINELENGTH, nLine, 0); }
    void LineScroll(int nLines, int nChars = 0) { AfxSend(m_hWnd, EM_LINESCROLL, nChars, nLines); }
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE)
    {
        AfxSend(m_hWnd, EM_REPLACESEL, bCanUndo, lpszNewText);
    }
    void SetPasswordChar(TCHAR ch) { AfxSend(m_hWnd, EM_SETPASSWORDCHAR, ch, 0); }
    TCHAR GetPasswordChar() const { return (TCHAR)AfxSend(m_hWnd, EM_GETPASSWORDCHAR, 0, 0); }
    int GetFirstVisibleLine() const { return (int)AfxSend(m_hWnd, EM_GETFIRSTVISIBLELINE, 0, 0); }
    BOOL SetReadOnly(BOOL bReadOnly = TRUE) { return (BOOL)AfxSend(m_hWnd, EM_SETREADONLY, bReadOnly, 0); }
    BOOL SetTabStops(int nTabStops, LPINT rgTabStops)
    {
        return (BOOL)AfxSend(m_hWnd, EM_SETTABSTOPS, nTabStops, rgTabStops);
    }
    BOOL SetTabStops(const int& cxEachStop) { return (BOOL)AfxSend(m_hWnd, EM_SETTABSTOPS, 1, &cxEachStop); }
    void SetTabStops() { AfxSend(m_hWnd, EM_SETTABSTOPS, 0, 0); }
    BOOL SetCueBanner(LPCWSTR lpszText, BOOL fDrawWhenFocused = FALSE)
    {
        return (BOOL)AfxSend(m_hWnd, EM_SETCUEBANNER, fDrawWhenFocused, lpszText);
    }
    BOOL Undo() { return (BOOL)AfxSend(m_hWnd, EM_UNDO, 0, 0); }
    void Clear() { AfxSend(m_hWnd, WM_CLEAR, 0, 0); }
    void Copy() { AfxSend(m_hWnd, WM_COPY, 0, 0); }
    void Cut() { AfxSend(m_hWnd, WM_CUT, 0, 0); }
    void Paste() { AfxSend(m_hWnd, WM_PASTE, 0, 0); }
};

// A list box. Items count from 0; LB_ERR (-1) is the answer to a wrong index.
class AFX_CORE_API CListBox : public CWnd
{
    DECLARE_DYNAMIC(CListBox)

public:
    CListBox();
    virtual ~CListBox();

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetCount() const { return (int)AfxSend(m_hWnd, LB_GETCOUNT, 0, 0); }
    int GetHorizontalExtent() const { return (int)AfxSend(m_hWnd, LB_GETHORIZONTALEXTENT, 0, 0); }
    void SetHorizontalExtent(int cxExtent) { AfxSend(m_hWnd, LB_SETHORIZONTALEXTENT, cxExtent, 0); }
    int GetTopIndex() const { return (int)AfxSend(m_hWnd, LB_GETTOPINDEX, 0, 0); }
    int SetTopIndex(int nIndex) { return (int)AfxSend(m_hWnd, LB_SETTOPINDEX, nIndex, 0); }
    LCID GetLocale() const { return (LCID)AfxSend(m_hWnd, LB_GETLOCALE, 0, 0); }
    LCID SetLocale(LCID nNewLocale) { return (LCID)AfxSend(m_hWnd, LB_SETLOCALE, nNewLocale, 0); }
    int InitStorage(int nItems, UINT nBytes) { return (int)AfxSend(m_hWnd, LB_INITSTORAGE, nItems, nBytes); }
    DWORD GetListBoxInfo() const { return ::GetListBoxInfo(m_hWnd); }
    // The item nearest to a client position; bOutside: the point lies outside the client area.
    UINT ItemFromPoint(CPoint pt, BOOL& bOutside) const;
    int GetCurSel() const { return (int)AfxSend(m_hWnd, LB_GETCURSEL, 0, 0); }
    int SetCurSel(int nSelect) { return (int)AfxSend(m_hWnd, LB_SETCURSEL, nSelect, 0); }
    int GetSel(int nIndex) const { return (int)AfxSend(m_hWnd, LB_GETSEL, nIndex, 0); }
    int GetSelCount() const { return (int)AfxSend(m_hWnd, LB_GETSELCOUNT, 0, 0); }
    int GetSelItems(int nMaxItems, LPINT rgIndex) const
    {
        return (int)AfxSend(m_hWnd, LB_GETSELITEMS, nMaxItems, rgIndex);
    }
    int SetSel(int nIndex, BOOL bSelect = TRUE) { return (int)AfxSend(m_hWnd, LB_SETSEL, bSelect, nIndex); }
    int SelItemRange(BOOL bSelect, int nFirstItem, int nLastItem)
    {
        return (int)AfxSend(m_hWnd, LB_SELITEMRANGE, bSelect, MAKELPARAM(nFirstItem, nLastItem));
    }
    void SetAnchorIndex(int nIndex) { AfxSend(m_hWnd, LB_SETANCHORINDEX, nIndex, 0); }
    int GetAnchorIndex() const { return (int)AfxSend(m_hWnd, LB_GETANCHORINDEX, 0, 0); }
    int SetCaretIndex(int nIndex, BOOL bScroll = TRUE)
    {
        return (int)AfxSend(m_hWnd, LB_SETCARETINDEX, nIndex, MAKELONG(bScroll, 0));
    }
    int GetCaretIndex() const { return (int)AfxSend(m_hWnd, LB_GETCARETINDEX, 0, 0); }
    DWORD_PTR GetItemData(int nIndex) const { return (DWORD_PTR)AfxSend(m_hWnd, LB_GETITEMDATA, nIndex, 0); }
    int SetItemData(int nIndex, DWORD_PTR dwItemData)
    {
        return (int)AfxSend(m_hWnd, LB_SETITEMDATA, nIndex, dwItemData);
    }
    void* GetItemDataPtr(int nIndex) const { return (void*)AfxSend(m_hWnd, LB_GETITEMDATA, nIndex, 0); }
    int SetItemDataPtr(int nIndex, void* pData)
    {
        return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData));
    }
    int GetItemRect(int nIndex, LPRECT lpRect) const
    {
        return (int)AfxSend(m_hWnd, LB_GETITEMRECT, nIndex, lpRect);
    }
    // The first form trusts the buffer; the second throws CInvalidArgException for a wrong index.
    int GetText(int nIndex, LPTSTR lpszBuffer) const
    {
        return (int)AfxSend(m_hWnd, LB_GETTEXT, nIndex, lpszBuffer);
    }
    void GetText(int nIndex, CString& rString) const;
    int GetTextLen(int nIndex) const { return (int)AfxSend(m_hWnd, LB_GETTEXTLEN, nIndex, 0); }
    void SetColumnWidth(int cxWidth) { AfxSend(m_hWnd, LB_SETCOLUMNWIDTH, cxWidth, 0); }
    BOOL SetTabStops(int nTabStops, LPINT rgTabStops)
    {
        return (BOOL)AfxSend(m_hWnd, LB_SETTABSTOPS, nTabStops, rgTabStops);
    }
    BOOL SetTabStops(const int& cxEachStop) { return (BOOL)AfxSend(m_hWnd, LB_SETTABSTOPS, 1, &cxEachStop); }
    void SetTabStops() { AfxSend(m_hWnd, LB_SETTABSTOPS, 0, 0); }
    int SetItemHeight(int nIndex, UINT cyItemHeight)
    {
        return (int)AfxSend(m_hWnd, LB_SETITEMHEIGHT, nIndex, MAKELONG(cyItemHeight, 0));
    }
    int GetItemHeight(int nIndex) const { return (int)AfxSend(m_hWnd, LB_GETITEMHEIGHT, nIndex, 0); }
    int AddString(LPCTSTR lpszItem) { return (int)AfxSend(m_hWnd, LB_ADDSTRING, 0, lpszItem); }
    int DeleteString(UINT nIndex) { return (int)AfxSend(m_hWnd, LB_DELETESTRING, nIndex, 0); }
    int InsertString(int nIndex, LPCTSTR lpszItem)
    {
        return (int)AfxSend(m_hWnd, LB_INSERTSTRING, nIndex, lpszItem);
    }
    void ResetContent() { AfxSend(m_hWnd, LB_RESETCONTENT, 0, 0); }
    int Dir(UINT attr, LPCTSTR lpszWildCard) { return (int)AfxSend(m_hWnd, LB_DIR, attr, lpszWildCard); }
    int FindString(int nStartAfter, LPCTSTR lpszItem) const
    {
        return (int)AfxSend(m_hWnd, LB_FINDSTRING, nStartAfter, lpszItem);
    }
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const
    {
        return (int)AfxSend(m_hWnd, LB_FINDSTRINGEXACT, nIndexStart, lpszFind);
    }
    int SelectString(int nStartAfter, LPCTSTR lpszItem)
    {
        return (int)AfxSend(m_hWnd, LB_SELECTSTRING, nStartAfter, lpszItem);
    }

    // Owner-drawn list boxes and key presses; the defaults do nothing, compare as equal, and let keys
    // pass (-1).
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);
    virtual int VKeyToItem(UINT nKey, UINT nIndex);
    virtual int CharToItem(UINT nKey, UINT nIndex);

protected:
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
};

// A combo box. Items count from 0; CB_ERR (-1) is the answer to a wrong index.
class AFX_CORE_API CComboBox : public CWnd
{
    DECLARE_DYNAMIC(CComboBox)

public:
    CComboBox();
    virtual ~CComboBox();

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetCount() const { return (int)AfxSend(m_hWnd, CB_GETCOUNT, 0, 0); }
    int GetCurSel() const { return (int)AfxSend(m_hWnd, CB_GETCURSEL, 0, 0); }
    int SetCurSel(int nSelect) { return (int)AfxSend(m_hWnd, CB_SETCURSEL, nSelect, 0); }
    LCID GetLocale() const { return (LCID)AfxSend(m_hWnd, CB_GETLOCALE, 0, 0); }
    LCID SetLocale(LCID nNewLocale) { return (LCID)AfxSend(m_hWnd, CB_SETLOCALE, nNewLocale, 0); }
    int GetTopIndex() const { return (int)AfxSend(m_hWnd, CB_GETTOPINDEX, 0, 0); }
    int SetTopIndex(int nIndex) { return (int)AfxSend(m_hWnd, CB_SETTOPINDEX, nIndex, 0); }
    int InitStorage(int nItems, UINT nBytes) { return (int)AfxSend(m_hWnd, CB_INITSTORAGE, nItems, nBytes); }
    void SetHorizontalExtent(UINT nExtent) { AfxSend(m_hWnd, CB_SETHORIZONTALEXTENT, nExtent, 0); }
    UINT GetHorizontalExtent() const { return (UINT)AfxSend(m_hWnd, CB_GETHORIZONTALEXTENT, 0, 0); }
    int SetDroppedWidth(UINT nWidth) { return (int)AfxSend(m_hWnd, CB_SETDROPPEDWIDTH, nWidth, 0); }
    int GetDroppedWidth() const { return (int)AfxSend(m_hWnd, CB_GETDROPPEDWIDTH, 0, 0); }
    BOOL GetComboBoxInfo(PCOMBOBOXINFO pcbi) const { return ::GetComboBoxInfo(m_hWnd, pcbi); }
    DWORD GetEditSel() const { return (DWORD)AfxSend(m_hWnd, CB_GETEDITSEL, 0, 0); }
    BOOL SetEditSel(int nStartChar, int nEndChar)
    {
        return (BOOL)AfxSend(m_hWnd, CB_SETEDITSEL, 0, MAKELONG(nStartChar, nEndChar));
    }
    BOOL LimitText(int nMaxChars) { return (BOOL)AfxSend(m_hWnd, CB_LIMITTEXT, nMaxChars, 0); }
    DWORD_PTR GetItemData(int nIndex) const { return (DWORD_PTR)AfxSend(m_hWnd, CB_GETITEMDATA, nIndex, 0); }
    int SetItemData(int nIndex, DWORD_PTR dwItemData)
    {
        return (int)AfxSend(m_hWnd, CB_SETITEMDATA, nIndex, dwItemData);
    }
    void* GetItemDataPtr(int nIndex) const { return (void*)AfxSend(m_hWnd, CB_GETITEMDATA, nIndex, 0); }
    int SetItemDataPtr(int nIndex, void* pData)
    {
        return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData));
    }
    // The first form trusts the buffer; the second throws CInvalidArgException for a wrong index.
    int GetLBText(int nIndex, LPTSTR lpszText) const
    {
        return (int)AfxSend(m_hWnd, CB_GETLBTEXT, nIndex, lpszText);
    }
    void GetLBText(int nIndex, CString& rString) const;
    int GetLBTextLen(int nIndex) const { return (int)AfxSend(m_hWnd, CB_GETLBTEXTLEN, nIndex, 0); }
    int SetItemHeight(int nIndex, UINT cyItemHeight)
    {
        return (int)AfxSend(m_hWnd, CB_SETITEMHEIGHT, nIndex, MAKELONG(cyItemHeight, 0));
    }
    int GetItemHeight(int nIndex) const { return (int)AfxSend(m_hWnd, CB_GETITEMHEIGHT, nIndex, 0); }
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const
    {
        return (int)AfxSend(m_hWnd, CB_FINDSTRINGEXACT, nIndexStart, lpszFind);
    }
    int SetExtendedUI(BOOL bExtended = TRUE) { return (int)AfxSend(m_hWnd, CB_SETEXTENDEDUI, bExtended, 0); }
    BOOL GetExtendedUI() const { return (BOOL)AfxSend(m_hWnd, CB_GETEXTENDEDUI, 0, 0); }
    void GetDroppedControlRect(LPRECT lprect) const { AfxSend(m_hWnd, CB_GETDROPPEDCONTROLRECT, 0, lprect); }
    BOOL GetDroppedState() const { return (BOOL)AfxSend(m_hWnd, CB_GETDROPPEDSTATE, 0, 0); }
    void ShowDropDown(BOOL bShowIt = TRUE) { AfxSend(m_hWnd, CB_SHOWDROPDOWN, bShowIt, 0); }
    int AddString(LPCTSTR lpszString) { return (int)AfxSend(m_hWnd, CB_ADDSTRING, 0, lpszString); }
    int DeleteString(UINT nIndex) { return (int)AfxSend(m_hWnd, CB_DELETESTRING, nIndex, 0); }
    int InsertString(int nIndex, LPCTSTR lpszString)
    {
        return (int)AfxSend(m_hWnd, CB_INSERTSTRING, nIndex, lpszString);
    }
    void ResetContent() { AfxSend(m_hWnd, CB_RESETCONTENT, 0, 0); }
    int Dir(UINT attr, LPCTSTR lpszWildCard) { return (int)AfxSend(m_hWnd, CB_DIR, attr, lpszWildCard); }
    int FindString(int nStartAfter, LPCTSTR lpszString) const
    {
        return (int)AfxSend(m_hWnd, CB_FINDSTRING, nStartAfter, lpszString);
    }
    int SelectString(int nStartAfter, LPCTSTR lpszString)
    {
        return (int)AfxSend(m_hWnd, CB_SELECTSTRING, nStartAfter, lpszString);
    }
    void Clear() { AfxSend(m_hWnd, WM_CLEAR, 0, 0); }
    void Copy() { AfxSend(m_hWnd, WM_COPY, 0, 0); }
    void Cut() { AfxSend(m_hWnd, WM_CUT, 0, 0); }
    void Paste() { AfxSend(m_hWnd, WM_PASTE, 0, 0); }

    // Owner-drawn combo boxes; the defaults do nothing and compare as equal.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);

protected:
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
};

// A scroll bar control.
class AFX_CORE_API CScrollBar : public CWnd
{
    DECLARE_DYNAMIC(CScrollBar)

public:
    CScrollBar();
    virtual ~CScrollBar();

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetScrollPos() const { return ::GetScrollPos(m_hWnd, SB_CTL); }
    int SetScrollPos(int nPos, BOOL bRedraw = TRUE) { return ::SetScrollPos(m_hWnd, SB_CTL, nPos, bRedraw); }
    void GetScrollRange(LPINT lpMinPos, LPINT lpMaxPos) const
    {
        ::GetScrollRange(m_hWnd, SB_CTL, lpMinPos, lpMaxPos);
    }
    void SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw = TRUE)
    {
        ::SetScrollRange(m_hWnd, SB_CTL, nMinPos, nMaxPos, bRedraw);
    }
    void ShowScrollBar(BOOL bShow = TRUE) { ::ShowScrollBar(m_hWnd, SB_CTL, bShow); }
    BOOL EnableScrollBar(UINT nArrowFlags = ESB_ENABLE_BOTH)
    {
        return ::EnableScrollBar(m_hWnd, SB_CTL, nArrowFlags);
    }
    BOOL GetScrollInfo(LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL)
    {
        return CWnd::GetScrollInfo(SB_CTL, lpScrollInfo, nMask);
    }
    BOOL SetScrollInfo(LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE)
    {
        return CWnd::SetScrollInfo(SB_CTL, lpScrollInfo, bRedraw);
    }
    // The largest position that can be reached: maximum less page.
    int GetScrollLimit() { return CWnd::GetScrollLimit(SB_CTL); }
    BOOL GetScrollBarInfo(PSCROLLBARINFO pScrollInfo) const
    {
        return (BOOL)AfxSend(m_hWnd, SBM_GETSCROLLBARINFO, 0, pScrollInfo);
    }
};
