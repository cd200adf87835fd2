// Dialogs: CDataExchange and CDialog.
#pragma once

#include "win/controls.h"

// One run of a window's DoDataExchange.
class AFX_CORE_API CDataExchange
{
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate);

    // Attributes
public:
    BOOL m_bSaveAndValidate; // TRUE: controls to members
    CWnd* m_pDlgWnd;         // the window whose controls are meant
    // The control that gets the focus when a value is refused.
    HWND m_hWndLastControl;
    BOOL m_bEditLastControl;

    // Operations
public:
    // Name the control that the exchange deals with next and return it. Throw
    // CNotSupportedException* when the window has no such control.
    HWND PrepareCtrl(int nIDC);
    HWND PrepareEditCtrl(int nIDC);

    // Refuses the value of the control prepared last: gives it the focus, selects an edit control's
    // text, and throws CUserException*, which UpdateData takes.
    [[noreturn]] void Fail();
};

// A dialog window made from a template, modal or not.
class AFX_CORE_API CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)

public:
    // Modeless: Create follows. Modal: DoModal follows.
    CDialog();
    explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    virtual ~CDialog();

    // Create the modeless dialog, from a template that is found along the resource chain. FALSE when
    // there is none, or when the window cannot be made.
    virtual BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    virtual BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    virtual BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr,
                                void* lpDialogInit = nullptr);
    virtual BOOL CreateIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd = nullptr);

    // Name the template for DoModal in place of the constructor.
    BOOL InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd = nullptr,
                           void* lpDialogInit = nullptr);
    BOOL InitModalIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd = nullptr);

    // Operations
public:
    // Shows the dialog and returns EndDialog's value when it is closed; -1 when it cannot be made. The
    // owner's top-level window is disabled meanwhile.
    virtual INT_PTR DoModal();
    // Ends DoModal, or the modal loop, with that result. The window goes when DoModal returns.
    void EndDialog(int nResult);

    void MapDialogRect(LPRECT lpRect) const { ::MapDialogRect(m_hWnd, lpRect); }
    void SetHelpID(UINT nIDR) { m_nIDHelp = nIDR; }
    void NextDlgCtrl() const { ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 0, 0); }
    void PrevDlgCtrl() const { ::SendMessage(m_hWnd, WM_NEXTDLGCTL, 1, 0); }
    void GotoDlgCtrl(CWnd* pWndCtrl)
    {
        ::SendMessage(m_hWnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(AfxSafe(pWndCtrl)), 1);
    }
    void SetDefID(UINT nID) { ::SendMessage(m_hWnd, DM_SETDEFID, nID, 0); }
    DWORD GetDefID() const { return static_cast<DWORD>(::SendMessage(m_hWnd, DM_GETDEFID, 0, 0)); }

    // Overridables
public:
    // The window and its controls exist and are about to be shown. The default fills the controls
    // (UpdateData(FALSE)) and returns TRUE: the focus goes to the first control. FALSE: it has been set.
    virtual BOOL OnInitDialog();
    virtual void OnSetFont(CFont* pFont);
    virtual BOOL PreTranslateMessage(MSG* pMsg);

protected:
    // Enter or the button IDOK: takes the controls' values over and, when they are good, ends the
    // dialog with IDOK.
    virtual void OnOK();
    // Escape, the close box or IDCANCEL: ends the dialog with IDCANCEL.
    virtual void OnCancel();

    // Implementation
public:
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

    // What DoModal runs, until the dialog goes.
    UINT m_nIDHelp;
    LPCTSTR m_lpszTemplateName; // name or number of the template; null for a template in memory
    HGLOBAL m_hDialogTemplate;  // template in a memory handle, the caller's
    LPCDLGTEMPLATE m_lpDialogTemplate;
    void* m_lpDialogInit; // initial list entries, the caller's
    CWnd* m_pParentWnd;

protected:
    // Make the dialog's window from a template in memory; the font is the template's.
    BOOL CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst);
    virtual void PreInitDialog();

    afx_msg LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT HandleSetFont(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()
};
