// CWnd: a window.
//
// A CWnd stands for the window that it created, attached or subclassed, and is found again for that
// window's handle (the permanent map of the thread). For other windows FromHandle makes temporary
// objects, which own nothing and go when the thread is next idle: keep none of them. The destructor
// destroys a window that is still attached.
// Members without a comment call the function of the like name, or send the message of the like
// name, and return its result. They need a window: m_hWnd must not be null.
#pragma once

#include "win/cmdtarget.h"
#include "win/dc.h"
#include "win/menu.h"

class CDataExchange;
class CFrameWnd;
class CToolTipCtrl;
class CWnd;
struct CCreateContext;

// The handle of a window object that may be null.
inline HWND AfxSafe(const CWnd* pWnd);

// How RunModalLoop behaves.
#define MLF_NOIDLEMSG 0x0001  // no WM_ENTERIDLE to the parent
#define MLF_NOKICKIDLE 0x0002 // no WM_KICKIDLE to the window
#define MLF_SHOWONIDLE 0x0004 // show the window when the queue first runs empty

// Messages of the framework itself.
#define WM_QUERYAFXWNDPROC 0x0360 // 1 from windows whose messages the framework routes
#define WM_IDLEUPDATECMDUI 0x0363 // time to bring controls up to date; wParam: disable those without handler
#define WM_INITIALUPDATE 0x0364
#define WM_KICKIDLE 0x036A // a modal loop is idle: wParam MSGF_DIALOGBOX, lParam count from 0

class AFX_CORE_API CWnd : public CCmdTarget
{
    DECLARE_DYNCREATE(CWnd)

public:
    HWND m_hWnd; // null when there is no window

    CWnd();
    virtual ~CWnd();

    // Places in the Z order, for SetWindowPos.
    static const CWnd wndTop;
    static const CWnd wndBottom;
    static const CWnd wndTopMost;
    static const CWnd wndNoTopMost;

    // Attributes
public:
    operator HWND() const { return m_hWnd; }
    BOOL operator==(const CWnd& wnd) const { return m_hWnd == wnd.m_hWnd; }
    // The handle, or null for a null pointer.
    HWND GetSafeHwnd() const;
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLong(m_hWnd, GWL_STYLE)); }
    DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLong(m_hWnd, GWL_EXSTYLE)); }
    // Change style bits; with nFlags not 0, SetWindowPos is called with them too (without size, move,
    // Z order or activation). FALSE when nothing would change.
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    // The window that gets what the control tells: the one set, else the parent.
    CWnd* GetOwner() const;
    void SetOwner(CWnd* pOwnerWnd) { m_hWndOwner = AfxSafe(pOwnerWnd); }

    // Life
public:
    // The object for hWnd, a temporary one if there is none; null for a null handle.
    static CWnd* PASCAL FromHandle(HWND hWnd);
    // The object that stands for hWnd, or null; never a temporary one.
    static CWnd* PASCAL FromHandlePermanent(HWND hWnd);
    // Deletes the thread's temporary objects now.
    static void PASCAL DeleteTempMap();
    // Lets the object stand for a window without taking its messages. FALSE for null.
    BOOL Attach(HWND hWndNew);
    // Ends that; the caller has the window again.
    HWND Detach();
    // Takes the window's messages from here on; FALSE when it cannot. The earlier procedure is
    // where DefWindowProc and Default lead.
    BOOL SubclassWindow(HWND hWnd);
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    // Puts the earlier procedure back and detaches.
    HWND UnsubclassWindow();
    // Called once the object is attached and before its procedure is installed: by both
    // SubclassWindow and creation.
    virtual void PreSubclassWindow();

    // Creates a child window.
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                        CWnd* pParentWnd, UINT nID, CCreateContext* pContext = nullptr);
    // Create any window. FALSE when PreCreateWindow refuses, or the window cannot be made (WM_NCCREATE
    // or WM_CREATE failed, unknown class); PostNcDestroy has then been called.
    virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                          int x, int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu,
                          LPVOID lpParam = nullptr);
    virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                          const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
    // Called before creation to change what is created; the default names a class when cs has none.
    // FALSE stops the creation.
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
    // FALSE when there was no window.
    virtual BOOL DestroyWindow();

    // Tree
public:
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    int SetDlgCtrlID(int nID) { return static_cast<int>(::SetWindowLongPtr(m_hWnd, GWLP_ID, nID)); }
    CWnd* GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }
    void GetDlgItem(int nID, HWND* phWnd) const { *phWnd = ::GetDlgItem(m_hWnd, nID); }
    // The window with that number among all descendants.
    CWnd* GetDescendantWindow(int nID, BOOL bOnlyPerm = FALSE) const;
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, BOOL bDeep = TRUE,
                                  BOOL bOnlyPerm = FALSE);
    CFrameWnd* GetParentFrame() const;
    CFrameWnd* GetTopLevelFrame() const;
    CWnd* GetTopLevelOwner() const;
    CWnd* GetParentOwner() const;
    CWnd* GetTopLevelParent() const;
    // The window that a modal window should belong to: the first window above pParent that is no
    // child; without pParent the main window's last active pop-up. With pWndTop the enabled top-level
    // window above it is disabled and named there, or null.
    static CWnd* GetSafeOwner(CWnd* pParent = nullptr, HWND* pWndTop = nullptr);
    static HWND PASCAL GetSafeOwner_(HWND hWnd, HWND* pWndTop);
    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    CWnd* GetAncestor(UINT gaFlags) const { return FromHandle(::GetAncestor(m_hWnd, gaFlags)); }
    CWnd* SetParent(CWnd* pWndNewParent) { return FromHandle(::SetParent(m_hWnd, AfxSafe(pWndNewParent))); }
    CWnd* GetTopWindow() const { return FromHandle(::GetTopWindow(m_hWnd)); }
    CWnd* GetWindow(UINT nCmd) const { return FromHandle(::GetWindow(m_hWnd, nCmd)); }
    CWnd* GetNextWindow(UINT nFlag = GW_HWNDNEXT) const { return FromHandle(::GetWindow(m_hWnd, nFlag)); }
    CWnd* GetLastActivePopup() const { return FromHandle(::GetLastActivePopup(m_hWnd)); }
    BOOL IsChild(const CWnd* pWnd) const { return ::IsChild(m_hWnd, AfxSafe(pWnd)); }
    CWnd* ChildWindowFromPoint(POINT point) const
    {
        return FromHandle(::ChildWindowFromPoint(m_hWnd, point));
    }
    CWnd* ChildWindowFromPoint(POINT point, UINT nFlags) const
    {
        return FromHandle(::ChildWindowFromPointEx(m_hWnd, point, nFlags));
    }
    static CWnd* PASCAL WindowFromPoint(POINT point) { return FromHandle(::WindowFromPoint(point)); }
    static CWnd* PASCAL FindWindow(LPCTSTR lpszClassName, LPCTSTR lpszWindowName)
    {
        return FromHandle(::FindWindow(lpszClassName, lpszWindowName));
    }
    static CWnd* FindWindowEx(HWND hwndParent, HWND hwndChildAfter, LPCTSTR lpszClass, LPCTSTR lpszWindow)
    {
        return FromHandle(::FindWindowEx(hwndParent, hwndChildAfter, lpszClass, lpszWindow));
    }
    static CWnd* PASCAL GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }

    // Messages
public:
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return ::SendMessage(m_hWnd, message, wParam, lParam);
    }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return ::PostMessage(m_hWnd, message, wParam, lParam);
    }
    BOOL SendNotifyMessage(UINT message, WPARAM wParam, LPARAM lParam)
    {
        return ::SendNotifyMessage(m_hWnd, message, wParam, lParam);
    }
    LRESULT SendDlgItemMessage(int nID, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return ::SendDlgItemMessage(m_hWnd, nID, message, wParam, lParam);
    }
    // The message that the thread handles now.
    static const MSG* PASCAL GetCurrentMessage();

    // Text and font
public:
    void SetWindowText(LPCTSTR lpszString) { ::SetWindowText(m_hWnd, lpszString); }
    int GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const
    {
        return ::GetWindowText(m_hWnd, lpszStringBuf, nMaxCount);
    }
    void GetWindowText(CString& rString) const;
    int GetWindowTextLength() const { return ::GetWindowTextLength(m_hWnd); }
    // The font stays the caller's.
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE)
    {
        ::SendMessage(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(AfxSafe(pFont)), MAKELPARAM(bRedraw, 0));
    }
    CFont* GetFont() const
    {
        return CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessage(m_hWnd, WM_GETFONT, 0, 0)));
    }
    HICON SetIcon(HICON hIcon, BOOL bBigIcon)
    {
        return reinterpret_cast<HICON>(
            ::SendMessage(m_hWnd, WM_SETICON, bBigIcon, reinterpret_cast<LPARAM>(hIcon)));
    }
    HICON GetIcon(BOOL bBigIcon) const
    {
        return reinterpret_cast<HICON>(::SendMessage(m_hWnd, WM_GETICON, bBigIcon, 0));
    }

    // Menu
public:
    CMenu* GetMenu() const { return CMenu::FromHandle(::GetMenu(m_hWnd)); }
    BOOL SetMenu(CMenu* pMenu) { return ::SetMenu(m_hWnd, pMenu == nullptr ? nullptr : pMenu->m_hMenu); }
    void DrawMenuBar() { ::DrawMenuBar(m_hWnd); }
    CMenu* GetSystemMenu(BOOL bRevert) const { return CMenu::FromHandle(::GetSystemMenu(m_hWnd, bRevert)); }
    BOOL HiliteMenuItem(CMenu* pMenu, UINT nIDHiliteItem, UINT nHilite)
    {
        return ::HiliteMenuItem(m_hWnd, pMenu->m_hMenu, nIDHiliteItem, nHilite);
    }

    // Size and position
public:
    BOOL IsIconic() const { return ::IsIconic(m_hWnd); }
    BOOL IsZoomed() const { return ::IsZoomed(m_hWnd); }
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE)
    {
        ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
    }
    void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE)
    {
        MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top,
                   bRepaint);
    }
    BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags)
    {
        return ::SetWindowPos(m_hWnd, AfxSafe(pWndInsertAfter), x, y, cx, cy, nFlags);
    }
    void BringWindowToTop() { ::BringWindowToTop(m_hWnd); }
    void CloseWindow() { ::CloseWindow(m_hWnd); }
    void GetWindowRect(LPRECT lpRect) const { ::GetWindowRect(m_hWnd, lpRect); }
    void GetClientRect(LPRECT lpRect) const { ::GetClientRect(m_hWnd, lpRect); }
    BOOL GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const;
    BOOL SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl);
    BOOL GetWindowInfo(PWINDOWINFO pwi) const { return ::GetWindowInfo(m_hWnd, pwi); }
    int SetWindowRgn(HRGN hRgn, BOOL bRedraw) { return ::SetWindowRgn(m_hWnd, hRgn, bRedraw); }
    int GetWindowRgn(HRGN hRgn) const { return ::GetWindowRgn(m_hWnd, hRgn); }
    // Middle of the owner (of pAlternateOwner, or the screen's work area), kept on the work area.
    void CenterWindow(CWnd* pAlternateOwner = nullptr);
    enum AdjustType
    {
        adjustBorder = 0,
        adjustOutside = 1
    };
    // Client rectangle to window rectangle.
    virtual void CalcWindowRect(LPRECT lpClientRect, UINT nAdjustType = adjustBorder);

    // Coordinates
public:
    void ClientToScreen(LPPOINT lpPoint) const { ::ClientToScreen(m_hWnd, lpPoint); }
    void ClientToScreen(LPRECT lpRect) const;
    void ScreenToClient(LPPOINT lpPoint) const { ::ScreenToClient(m_hWnd, lpPoint); }
    void ScreenToClient(LPRECT lpRect) const;
    void MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const
    {
        ::MapWindowPoints(m_hWnd, AfxSafe(pwndTo), lpPoint, nCount);
    }
    void MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const
    {
        ::MapWindowPoints(m_hWnd, AfxSafe(pwndTo), reinterpret_cast<LPPOINT>(lpRect), 2);
    }

    // Painting
public:
    // The DCs are temporary objects: give each back with EndPaint or ReleaseDC.
    CDC* BeginPaint(LPPAINTSTRUCT lpPaint) { return CDC::FromHandle(::BeginPaint(m_hWnd, lpPaint)); }
    void EndPaint(LPPAINTSTRUCT lpPaint) { ::EndPaint(m_hWnd, lpPaint); }
    CDC* GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }
    CDC* GetDCEx(CRgn* prgnClip, DWORD flags)
    {
        return CDC::FromHandle(::GetDCEx(m_hWnd, AfxSafe(prgnClip), flags));
    }
    CDC* GetWindowDC() { return CDC::FromHandle(::GetWindowDC(m_hWnd)); }
    int ReleaseDC(CDC* pDC) { return ::ReleaseDC(m_hWnd, pDC->m_hDC); }
    void Print(CDC* pDC, DWORD dwFlags) const
    {
        ::SendMessage(m_hWnd, WM_PRINT, reinterpret_cast<WPARAM>(pDC->m_hDC), dwFlags);
    }
    void PrintClient(CDC* pDC, DWORD dwFlags) const
    {
        ::SendMessage(m_hWnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(pDC->m_hDC), dwFlags);
    }
    BOOL PrintWindow(CDC* pDC, UINT nFlags) const { return ::PrintWindow(m_hWnd, pDC->m_hDC, nFlags); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    void SetRedraw(BOOL bRedraw = TRUE) { ::SendMessage(m_hWnd, WM_SETREDRAW, bRedraw, 0); }
    BOOL GetUpdateRect(LPRECT lpRect, BOOL bErase = FALSE) { return ::GetUpdateRect(m_hWnd, lpRect, bErase); }
    int GetUpdateRgn(CRgn* pRgn, BOOL bErase = FALSE)
    {
        return ::GetUpdateRgn(m_hWnd, AfxSafe(pRgn), bErase);
    }
    void Invalidate(BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, bErase); }
    void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, lpRect, bErase); }
    void InvalidateRgn(CRgn* pRgn, BOOL bErase = TRUE) { ::InvalidateRgn(m_hWnd, AfxSafe(pRgn), bErase); }
    void ValidateRect(LPCRECT lpRect) { ::ValidateRect(m_hWnd, lpRect); }
    void ValidateRgn(CRgn* pRgn) { ::ValidateRgn(m_hWnd, AfxSafe(pRgn)); }
    BOOL ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    void ShowOwnedPopups(BOOL bShow = TRUE) { ::ShowOwnedPopups(m_hWnd, bShow); }
    BOOL LockWindowUpdate() { return ::LockWindowUpdate(m_hWnd); }
    void UnlockWindowUpdate() { ::LockWindowUpdate(nullptr); }
    BOOL RedrawWindow(LPCRECT lpRectUpdate = nullptr, CRgn* prgnUpdate = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE)
    {
        return ::RedrawWindow(m_hWnd, lpRectUpdate, AfxSafe(prgnUpdate), flags);
    }
    BOOL SetLayeredWindowAttributes(COLORREF crKey, BYTE bAlpha, DWORD dwFlags)
    {
        return ::SetLayeredWindowAttributes(m_hWnd, crKey, bAlpha, dwFlags);
    }
    BOOL AnimateWindow(DWORD dwTime, DWORD dwFlags) { return ::AnimateWindow(m_hWnd, dwTime, dwFlags); }

    // Timers
public:
    UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, void(CALLBACK* lpfnTimer)(HWND, UINT, UINT_PTR, DWORD))
    {
        return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
    }
    BOOL KillTimer(UINT_PTR nIDEvent) { return ::KillTimer(m_hWnd, nIDEvent); }

    // State
public:
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    BOOL EnableWindow(BOOL bEnable = TRUE) { return ::EnableWindow(m_hWnd, bEnable); }
    static CWnd* PASCAL GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
    CWnd* SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
    static CWnd* PASCAL GetForegroundWindow() { return FromHandle(::GetForegroundWindow()); }
    BOOL SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
    static CWnd* PASCAL GetCapture() { return FromHandle(::GetCapture()); }
    CWnd* SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
    static CWnd* PASCAL GetFocus() { return FromHandle(::GetFocus()); }
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    BOOL FlashWindow(BOOL bInvert) { return ::FlashWindow(m_hWnd, bInvert); }
    int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = nullptr, UINT nType = MB_OK);
    BOOL OpenClipboard() { return ::OpenClipboard(m_hWnd); }
    void DragAcceptFiles(BOOL bAccept = TRUE);
    BOOL DragDetect(POINT pt) const { return ::DragDetect(m_hWnd, pt); }

    // Caret
public:
    void CreateCaret(CBitmap* pBitmap)
    {
        ::CreateCaret(m_hWnd, static_cast<HBITMAP>(AfxSafe(pBitmap)), 0, 0);
    }
    void CreateSolidCaret(int nWidth, int nHeight) { ::CreateCaret(m_hWnd, nullptr, nWidth, nHeight); }
    void CreateGrayCaret(int nWidth, int nHeight)
    {
        ::CreateCaret(m_hWnd, reinterpret_cast<HBITMAP>(1), nWidth, nHeight);
    }
    static CPoint PASCAL GetCaretPos();
    static void PASCAL SetCaretPos(POINT point) { ::SetCaretPos(point.x, point.y); }
    void HideCaret() { ::HideCaret(m_hWnd); }
    void ShowCaret() { ::ShowCaret(m_hWnd); }

    // Dialog items
public:
    void CheckDlgButton(int nIDButton, UINT nCheck) { ::CheckDlgButton(m_hWnd, nIDButton, nCheck); }
    void CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton)
    {
        ::CheckRadioButton(m_hWnd, nIDFirstButton, nIDLastButton, nIDCheckButton);
    }
    // The first button of the range that is checked, 0 for none.
    int GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) const;
    UINT IsDlgButtonChecked(int nIDButton) const { return ::IsDlgButtonChecked(m_hWnd, nIDButton); }
    UINT GetDlgItemInt(int nID, BOOL* lpTrans = nullptr, BOOL bSigned = TRUE) const
    {
        return ::GetDlgItemInt(m_hWnd, nID, lpTrans, bSigned);
    }
    void SetDlgItemInt(int nID, UINT nValue, BOOL bSigned = TRUE)
    {
        ::SetDlgItemInt(m_hWnd, nID, nValue, bSigned);
    }
    int GetDlgItemText(int nID, LPTSTR lpStr, int nMaxCount) const
    {
        return static_cast<int>(::GetDlgItemText(m_hWnd, nID, lpStr, nMaxCount));
    }
    int GetDlgItemText(int nID, CString& rString) const;
    void SetDlgItemText(int nID, LPCTSTR lpszString) { ::SetDlgItemText(m_hWnd, nID, lpszString); }
    CWnd* GetNextDlgGroupItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const
    {
        return FromHandle(::GetNextDlgGroupItem(m_hWnd, AfxSafe(pWndCtl), bPrevious));
    }
    CWnd* GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const
    {
        return FromHandle(::GetNextDlgTabItem(m_hWnd, AfxSafe(pWndCtl), bPrevious));
    }
    BOOL IsDialogMessage(LPMSG lpMsg) { return ::IsDialogMessage(m_hWnd, lpMsg); }
    // Sends a dialog resource's initial list entries to its controls; TRUE when there are none.
    BOOL ExecuteDlgInit(LPCTSTR lpszResourceName);
    BOOL ExecuteDlgInit(LPVOID lpResource);

    // Scrolling
public:
    int GetScrollPos(int nBar) const { return ::GetScrollPos(ScrollWindowOf(nBar), ScrollKindOf(nBar)); }
    void GetScrollRange(int nBar, LPINT lpMinPos, LPINT lpMaxPos) const
    {
        ::GetScrollRange(ScrollWindowOf(nBar), ScrollKindOf(nBar), lpMinPos, lpMaxPos);
    }
    int SetScrollPos(int nBar, int nPos, BOOL bRedraw = TRUE)
    {
        return ::SetScrollPos(ScrollWindowOf(nBar), ScrollKindOf(nBar), nPos, bRedraw);
    }
    void SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw = TRUE)
    {
        ::SetScrollRange(ScrollWindowOf(nBar), ScrollKindOf(nBar), nMinPos, nMaxPos, bRedraw);
    }
    BOOL GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask = SIF_ALL);
    BOOL SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw = TRUE);
    int GetScrollLimit(int nBar);
    BOOL EnableScrollBar(int nSBFlags, UINT nArrowFlags = ESB_ENABLE_BOTH)
    {
        return ::EnableScrollBar(m_hWnd, nSBFlags, nArrowFlags);
    }
    void EnableScrollBarCtrl(int nBar, BOOL bEnable = TRUE);
    void ShowScrollBar(UINT nBar, BOOL bShow = TRUE) { ::ShowScrollBar(m_hWnd, nBar, bShow); }
    BOOL GetScrollBarInfo(LONG idObject, PSCROLLBARINFO psbi) const
    {
        return ::GetScrollBarInfo(m_hWnd, idObject, psbi);
    }
    void ScrollWindow(int xAmount, int yAmount, LPCRECT lpRect = nullptr, LPCRECT lpClipRect = nullptr)
    {
        ::ScrollWindow(m_hWnd, xAmount, yAmount, lpRect, lpClipRect);
    }
    int ScrollWindowEx(int dx, int dy, LPCRECT lpRectScroll, LPCRECT lpRectClip, CRgn* prgnUpdate,
                       LPRECT lpRectUpdate, UINT flags)
    {
        return ::ScrollWindowEx(m_hWnd, dx, dy, lpRectScroll, lpRectClip, AfxSafe(prgnUpdate), lpRectUpdate,
                                flags);
    }
    // The sibling control that serves as the window's scroll bar; null: the window's own bar.
    virtual CScrollBar* GetScrollBarCtrl(int nBar) const;

    // Dialog data
public:
    // Moves data between members and controls through DoDataExchange. FALSE when a value was refused;
    // the user has then been told and the control has the focus.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);

    // Modal state
public:
    // Pumps messages until EndModalLoop or ContinueModal says FALSE; returns EndModalLoop's value, or
    // -1 when the program is quitting.
    int RunModalLoop(DWORD dwFlags = 0);
    virtual BOOL ContinueModal();
    virtual void EndModalLoop(int nResult);
    // Disable and enable the window while something modal runs.
    virtual void BeginModalState();
    virtual void EndModalState();

    // Tooltips
public:
    // Turns tooltips for the window on or off. While on, the pump asks OnToolHitTest what is under the
    // mouse, and the text comes from there or from TTN_NEEDTEXT sent to the window. Returns whether
    // they are on now.
    BOOL EnableToolTips(BOOL bEnable = TRUE);
    static void PASCAL CancelToolTips(BOOL bKeys = FALSE);
    // Looks at one message for the sake of the tooltips.
    void FilterToolTipMessage(MSG* pMsg);
    // Names the tool at a client position: fills pTI (when not null) and returns the tool's number, or
    // -1 for none. A text other than LPSTR_TEXTCALLBACK must come from malloc and is freed by the
    // framework. The default names the child control under the point.
    virtual INT_PTR OnToolHitTest(CPoint point, TOOLINFO* pTI) const;

    // Overridables
public:
    // A message on its way to a window, before it is translated and dispatched; TRUE ends its way.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    // Offers pMsg to the windows from its own up to hWndStop. TRUE when one of them took it.
    static BOOL PASCAL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);
    // Brings the state of the child controls up to date (CCmdUI).
    void UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);

    // Where Default and DefWindowProc lead when the window was subclassed.
    virtual WNDPROC* GetSuperWndProcAddr();

    // Gives a control's message back to the control; TRUE when it dealt with it.
    static BOOL PASCAL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);
    BOOL SendChildNotifyLastMsg(LRESULT* pResult = nullptr);
    BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

protected:
    virtual void DoDataExchange(CDataExchange* pDX);
    // Called last, after WM_NCDESTROY; objects made with new may delete themselves here.
    virtual void PostNcDestroy();
    // A command: lParam the control or null. TRUE when it was dealt with.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // A message that the control itself caused, given back by its parent; TRUE ends its way.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

    // The way of a message: WindowProc asks OnWndMsg, which searches the message maps, and then
    // DefWindowProc, which goes to the subclassed procedure or the system's.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // What the message that is being handled would do without the handler.
    LRESULT Default();

    // Handlers for derived classes to call; each does what the message would do without a handler, with
    // what the message brought, not with the arguments. Those of owner-drawn and colour messages give
    // the control the first chance.
protected:
    afx_msg void OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized);
    afx_msg void OnActivateApp(BOOL bActive, DWORD dwThreadID);
    afx_msg void OnAppCommand(CWnd* pWnd, UINT nCmd, UINT nDevice, UINT nKey);
    afx_msg void OnCancelMode();
    afx_msg void OnCaptureChanged(CWnd* pWnd);
    afx_msg void OnChangeUIState(UINT nAction, UINT nUIElement);
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg int OnCharToItem(UINT nChar, CListBox* pListBox, UINT nIndex);
    afx_msg void OnChildActivate();
    afx_msg void OnClipboardUpdate();
    afx_msg void OnClose();
    afx_msg void OnCompacting(UINT nCpuTime);
    afx_msg int OnCompareItem(int nIDCtl, LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    afx_msg void OnContextMenu(CWnd* pWnd, CPoint pos);
    afx_msg BOOL OnCopyData(CWnd* pWnd, COPYDATASTRUCT* pCopyDataStruct);
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    afx_msg void OnDeadChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnDeleteItem(int nIDCtl, LPDELETEITEMSTRUCT lpDeleteItemStruct);
    afx_msg void OnDestroy();
    afx_msg void OnDestroyClipboard();
    afx_msg BOOL OnDeviceChange(UINT nEventType, DWORD_PTR dwData);
    afx_msg void OnDevModeChange(LPTSTR lpDeviceName);
    afx_msg void OnDrawClipboard();
    afx_msg void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct);
    afx_msg void OnDropFiles(HDROP hDropInfo);
    afx_msg void OnEnable(BOOL bEnable);
    afx_msg void OnEndSession(BOOL bEnding);
    afx_msg void OnEnterIdle(UINT nWhy, CWnd* pWho);
    afx_msg void OnEnterMenuLoop(BOOL bIsTrackPopupMenu);
    afx_msg void OnEnterSizeMove();
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnExitMenuLoop(BOOL bIsTrackPopupMenu);
    afx_msg void OnExitSizeMove();
    afx_msg void OnFontChange();
    afx_msg UINT OnGetDlgCode();
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* lpMMI);
    afx_msg BOOL OnHelpInfo(HELPINFO* lpHelpInfo);
    afx_msg void OnHotKey(UINT nHotKeyId, UINT nKey1, UINT nKey2);
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnIconEraseBkgnd(CDC* pDC);
    afx_msg void OnInitMenu(CMenu* pMenu);
    afx_msg void OnInitMenuPopup(CMenu* pPopupMenu, UINT nIndex, BOOL bSysMenu);
    afx_msg void OnInputLangChange(UINT nCharSet, UINT nLocaleId);
    afx_msg void OnInputLangChangeRequest(UINT nFlags, UINT nLocaleId);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnKillFocus(CWnd* pNewWnd);
    afx_msg void OnLButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnMButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnMButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    afx_msg LRESULT OnMenuChar(UINT nChar, UINT nFlags, CMenu* pMenu);
    afx_msg UINT OnMenuDrag(UINT nPos, CMenu* pMenu);
    afx_msg void OnMenuRButtonUp(UINT nPos, CMenu* pMenu);
    afx_msg void OnMenuSelect(UINT nItemID, UINT nFlags, HMENU hSysMenu);
    afx_msg int OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT message);
    afx_msg void OnMouseHover(UINT nFlags, CPoint point);
    afx_msg void OnMouseHWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnMouseLeave();
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnMove(int x, int y);
    afx_msg void OnMoving(UINT nSide, LPRECT lpRect);
    afx_msg BOOL OnNcActivate(BOOL bActive);
    afx_msg void OnNcCalcSize(BOOL bCalcValidRects, NCCALCSIZE_PARAMS* lpncsp);
    afx_msg BOOL OnNcCreate(LPCREATESTRUCT lpCreateStruct);
    afx_msg void OnNcDestroy();
    afx_msg LRESULT OnNcHitTest(CPoint point);
    afx_msg void OnNcLButtonDblClk(UINT nHitTest, CPoint point);
    afx_msg void OnNcLButtonDown(UINT nHitTest, CPoint point);
    afx_msg void OnNcLButtonUp(UINT nHitTest, CPoint point);
    afx_msg void OnNcMButtonDblClk(UINT nHitTest, CPoint point);
    afx_msg void OnNcMButtonDown(UINT nHitTest, CPoint point);
    afx_msg void OnNcMButtonUp(UINT nHitTest, CPoint point);
    afx_msg void OnNcMouseHover(UINT nHitTest, CPoint point);
    afx_msg void OnNcMouseLeave();
    afx_msg void OnNcMouseMove(UINT nHitTest, CPoint point);
    afx_msg void OnNcPaint();
    afx_msg void OnNcRButtonDblClk(UINT nHitTest, CPoint point);
    afx_msg void OnNcRButtonDown(UINT nHitTest, CPoint point);
    afx_msg void OnNcRButtonUp(UINT nHitTest, CPoint point);
    afx_msg void OnNcXButtonDblClk(short nHitTest, UINT nButton, CPoint point);
    afx_msg void OnNcXButtonDown(short nHitTest, UINT nButton, CPoint point);
    afx_msg void OnNcXButtonUp(short nHitTest, UINT nButton, CPoint point);
    afx_msg void OnNextMenu(UINT nKey, LPMDINEXTMENU lpMdiNextMenu);
    afx_msg UINT OnNotifyFormat(CWnd* pWnd, UINT nCommand);
    afx_msg void OnPaint();
    afx_msg void OnPaletteChanged(CWnd* pFocusWnd);
    afx_msg void OnPaletteIsChanging(CWnd* pRealizeWnd);
    afx_msg void OnParentNotify(UINT message, LPARAM lParam);
    afx_msg UINT OnPowerBroadcast(UINT nPowerEvent, UINT nEventData);
    afx_msg HCURSOR OnQueryDragIcon();
    afx_msg BOOL OnQueryEndSession();
    afx_msg BOOL OnQueryNewPalette();
    afx_msg BOOL OnQueryOpen();
    afx_msg UINT OnQueryUIState();
    afx_msg void OnRButtonDblClk(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRenderAllFormats();
    afx_msg void OnRenderFormat(UINT nFormat);
    afx_msg BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
    afx_msg void OnSetFocus(CWnd* pOldWnd);
    afx_msg void OnSettingChange(UINT uFlags, LPCTSTR lpszSection);
    afx_msg void OnShowWindow(BOOL bShow, UINT nStatus);
    afx_msg void OnSize(UINT nType, int cx, int cy);
    afx_msg void OnSizing(UINT nSide, LPRECT lpRect);
    afx_msg void OnSpoolerStatus(UINT nStatus, UINT nJobs);
    afx_msg void OnStyleChanged(int nStyleType, LPSTYLESTRUCT lpStyleStruct);
    afx_msg void OnStyleChanging(int nStyleType, LPSTYLESTRUCT lpStyleStruct);
    afx_msg void OnSysChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysColorChange();
    afx_msg void OnSysCommand(UINT nID, LPARAM lParam);
    afx_msg void OnSysDeadChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnSysKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnTimeChange();
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnUniChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnUnInitMenuPopup(CMenu* pPopupMenu, UINT nFlags);
    afx_msg void OnUpdateUIState(UINT nAction, UINT nUIElement);
    afx_msg void OnUserChanged();
    afx_msg int OnVKeyToItem(UINT nKey, CListBox* pListBox, UINT nIndex);
    afx_msg void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnWindowPosChanged(WINDOWPOS* lpwndpos);
    afx_msg void OnWindowPosChanging(WINDOWPOS* lpwndpos);
    afx_msg void OnWinIniChange(LPCTSTR lpszSection);
    afx_msg void OnXButtonDblClk(UINT nFlags, UINT nButton, CPoint point);
    afx_msg void OnXButtonDown(UINT nFlags, UINT nButton, CPoint point);
    afx_msg void OnXButtonUp(UINT nFlags, UINT nButton, CPoint point);

    // Implementation
public:
    // Window that SetOwner named.
    HWND m_hWndOwner;
    // Bits of the framework's own; see state.h.
    UINT m_nFlags;
    // The procedure before subclassing; null for windows of our own classes.
    WNDPROC m_pfnSuper;
    int m_nModalResult;

    // Takes a message at the window procedure; for the framework.
    LRESULT CallWindowProcedure(UINT message, WPARAM wParam, LPARAM lParam)
    {
        return WindowProc(message, wParam, lParam);
    }

protected:
    // The scroll bar control that serves nBar, or the window itself, and the SB_ constant for it.
    HWND ScrollWindowOf(int nBar) const;
    int ScrollKindOf(int nBar) const;

    LRESULT OnQueryAfxWndProc(WPARAM wParam, LPARAM lParam);

private:
    explicit CWnd(HWND hWndPlace);

    DECLARE_MESSAGE_MAP()
};

// SendMessage with parameters and result of any integral or pointer type.
template <class W, class L>
LRESULT AfxSend(HWND hWnd, UINT message, W wParam, L lParam)
{
    return ::SendMessage(hWnd, message, (WPARAM)wParam, (LPARAM)lParam);
}

inline HWND AfxSafe(const CWnd* pWnd)
{
    return pWnd == nullptr ? nullptr : pWnd->m_hWnd;
}
