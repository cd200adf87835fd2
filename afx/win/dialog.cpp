#include "afxwin.h"
#include "win/state.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
ON_MESSAGE(WM_INITDIALOG, &CDialog::HandleInitDialog)
ON_MESSAGE(WM_SETFONT, &CDialog::HandleSetFont)
END_MESSAGE_MAP()

CDialog::CDialog()
    : m_nIDHelp(0), m_lpszTemplateName(nullptr), m_hDialogTemplate(nullptr), m_lpDialogTemplate(nullptr),
      m_lpDialogInit(nullptr), m_pParentWnd(nullptr)
{
}

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd) : CDialog()
{
    m_lpszTemplateName = lpszTemplateName;
    if (IS_INTRESOURCE(lpszTemplateName))
        m_nIDHelp = LOWORD(reinterpret_cast<ULONG_PTR>(lpszTemplateName));
    m_pParentWnd = pParentWnd;
}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd) : CDialog(MAKEINTRESOURCE(nIDTemplate), pParentWnd) {}

CDialog::~CDialog()
{
    DestroyWindow();
}

namespace
{
// The start of both forms of template, as far as it is needed here.
struct TemplateTraits
{
    explicit TemplateTraits(LPCDLGTEMPLATE pTemplate)
    {
        const WORD* pWords = reinterpret_cast<const WORD*>(pTemplate);
        const bool bExtended = pWords[0] == 1 && pWords[1] == 0xFFFF;
        // Extended: version, signature, help number, extended style, style, item count, x, y, cx, cy.
        // Plain: style, extended style, item count, x, y, cx, cy. The menu and the class follow.
        std::memcpy(&dwStyle, pWords + (bExtended ? 6 : 0), sizeof dwStyle);
        const WORD* p = pWords + (bExtended ? 9 : 5);
        x = static_cast<short>(p[0]);
        y = static_cast<short>(p[1]);
        p = SkipNameOrNumber(p + 4);
        if (*p == 0)
            lpszClass = _T("#32770");
        else if (*p == 0xFFFF)
            lpszClass = MAKEINTATOM(p[1]);
        else
            lpszClass = reinterpret_cast<LPCTSTR>(p);
    }

    static const WORD* SkipNameOrNumber(const WORD* p)
    {
        if (*p == 0xFFFF)
            return p + 2;
        while (*p != 0)
            ++p;
        return p + 1;
    }

    DWORD dwStyle;
    int x;
    int y;
    LPCTSTR lpszClass;
};

INT_PTR CALLBACK DialogProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_INITDIALOG)
        return 0;
    CDialog* pDialog = DYNAMIC_DOWNCAST(CDialog, CWnd::FromHandlePermanent(hWnd));
    if (pDialog == nullptr)
        return TRUE;
    // The system's own dialog procedure stands between here and our window procedure; exceptions must not
    // pass through it.
    const MSG call{hWnd, message, wParam, lParam, 0, {}};
    return AfxGuardMessage(
        call,
        [](void* pContext) { return static_cast<LRESULT>(static_cast<CDialog*>(pContext)->OnInitDialog()); },
        pDialog);
}

LPCDLGTEMPLATE LoadTemplate(LPCTSTR lpszTemplateName, HINSTANCE& hInstance)
{
    hInstance = AfxFindResourceHandle(lpszTemplateName, RT_DIALOG);
    const HRSRC hResource = ::FindResource(hInstance, lpszTemplateName, RT_DIALOG);
    const HGLOBAL hTemplate = hResource == nullptr ? nullptr : ::LoadResource(hInstance, hResource);
    return hTemplate == nullptr ? nullptr : static_cast<LPCDLGTEMPLATE>(::LockResource(hTemplate));
}
} // namespace

BOOL CDialog::CreateDlgIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst)
{
    if (hInst == nullptr)
        hInst = AfxGetInstanceHandle();
    const TemplateTraits traits(lpDialogTemplate);
    m_nFlags &= ~static_cast<UINT>(AFX_WF_AUTOCENTER);
    if (traits.x == 0 && traits.y == 0 &&
        (traits.dwStyle & (DS_CENTER | DS_CENTERMOUSE | DS_ABSALIGN | WS_CHILD)) == 0)
        m_nFlags |= AFX_WF_AUTOCENTER;

    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES};
    ::InitCommonControlsEx(&classes);

    AfxHookWindowCreateOfClass(this, traits.lpszClass);
    const HWND hWnd =
        ::CreateDialogIndirectParam(hInst, lpDialogTemplate, AfxSafe(pParentWnd), &DialogProc, 0);
    if (!AfxUnhookWindowCreate())
        PostNcDestroy();
    return hWnd != nullptr;
}

BOOL CDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
{
    m_lpszTemplateName = lpszTemplateName;
    HINSTANCE hInstance;
    const LPCDLGTEMPLATE pTemplate = LoadTemplate(lpszTemplateName, hInstance);
    return pTemplate != nullptr &&
           CreateDlgIndirect(pTemplate, pParentWnd == nullptr ? AfxGetMainWnd() : pParentWnd, hInstance);
}

BOOL CDialog::Create(UINT nIDTemplate, CWnd* pParentWnd)
{
    return Create(MAKEINTRESOURCE(nIDTemplate), pParentWnd);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void* lpDialogInit)
{
    m_lpDialogInit = lpDialogInit;
    return CreateDlgIndirect(lpDialogTemplate, pParentWnd == nullptr ? AfxGetMainWnd() : pParentWnd, nullptr);
}

BOOL CDialog::CreateIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd)
{
    return CreateIndirect(static_cast<LPCDLGTEMPLATE>(::LockResource(hDialogTemplate)), pParentWnd);
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void* lpDialogInit)
{
    m_lpDialogTemplate = lpDialogTemplate;
    m_lpDialogInit = lpDialogInit;
    m_pParentWnd = pParentWnd;
    return TRUE;
}

BOOL CDialog::InitModalIndirect(HGLOBAL hDialogTemplate, CWnd* pParentWnd)
{
    m_hDialogTemplate = hDialogTemplate;
    m_pParentWnd = pParentWnd;
    return TRUE;
}

INT_PTR CDialog::DoModal()
{
    HINSTANCE hInstance = nullptr;
    LPCDLGTEMPLATE pTemplate = m_lpDialogTemplate;
    if (m_lpszTemplateName != nullptr)
        pTemplate = LoadTemplate(m_lpszTemplateName, hInstance);
    else if (m_hDialogTemplate != nullptr)
        pTemplate = static_cast<LPCDLGTEMPLATE>(::LockResource(m_hDialogTemplate));
    if (pTemplate == nullptr || m_hWnd != nullptr)
        return -1;

    CWinApp* const pApp = AfxGetApp();
    if (pApp != nullptr)
        pApp->EnableModeless(FALSE);
    HWND hTop = nullptr;
    const HWND hOwner = GetSafeOwner_(AfxSafe(m_pParentWnd), &hTop);
    const bool bEnableOwner =
        hOwner != nullptr && hOwner != ::GetDesktopWindow() && ::IsWindowEnabled(hOwner);
    if (bEnableOwner)
        ::EnableWindow(hOwner, FALSE);

    const auto close = [&] {
        // An exception leaves the loop without its own tidying up.
        m_nFlags &= ~static_cast<UINT>(AFX_WF_MODALLOOP | AFX_WF_CONTINUEMODAL);
        // Hidden first, so that the owner can become active before the dialog goes.
        if (m_hWnd != nullptr)
            SetWindowPos(nullptr, 0, 0, 0, 0,
                         SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
        if (bEnableOwner)
            ::EnableWindow(hOwner, TRUE);
        if (hTop != nullptr)
            ::EnableWindow(hTop, TRUE);
        if (hOwner != nullptr && m_hWnd != nullptr && ::GetActiveWindow() == m_hWnd)
            ::SetActiveWindow(hOwner);
        DestroyWindow();
        if (pApp != nullptr)
            pApp->EnableModeless(TRUE);
    };

    m_nModalResult = -1;
    m_nFlags |= AFX_WF_CONTINUEMODAL;
    try {
        // OnInitDialog may have ended the dialog.
        if (CreateDlgIndirect(pTemplate, FromHandle(hOwner), hInstance) &&
            (m_nFlags & AFX_WF_CONTINUEMODAL) != 0)
            RunModalLoop((GetStyle() & DS_NOIDLEMSG) != 0 ? MLF_SHOWONIDLE | MLF_NOIDLEMSG : MLF_SHOWONIDLE);
    } catch (CException* e) {
        // PreTranslateMessage and OnIdle run outside the window procedures.
        e->Delete();
        m_nModalResult = -1;
    } catch (...) {
        close();
        throw;
    }
    close();
    return m_nModalResult;
}

void CDialog::EndDialog(int nResult)
{
    if ((m_nFlags & (AFX_WF_MODALLOOP | AFX_WF_CONTINUEMODAL)) != 0)
        EndModalLoop(nResult);
    ::EndDialog(m_hWnd, nResult);
}

BOOL CDialog::OnInitDialog()
{
    const BOOL bFilled =
        m_lpDialogInit != nullptr ? ExecuteDlgInit(m_lpDialogInit) : ExecuteDlgInit(m_lpszTemplateName);
    if (!bFilled || !UpdateData(FALSE)) {
        EndDialog(-1);
        return FALSE;
    }
    return TRUE;
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}
void CDialog::OnSetFont(CFont*) {}
void CDialog::PreInitDialog() {}

LRESULT CDialog::HandleInitDialog(WPARAM, LPARAM)
{
    PreInitDialog();
    CRect before;
    GetWindowRect(before);
    const bool bVisible = IsWindowVisible();
    const LRESULT lResult = Default();

    // A template that leaves the place open means the middle, unless OnInitDialog chose a place.
    if ((m_nFlags & AFX_WF_AUTOCENTER) != 0 && !bVisible && m_hWnd != nullptr) {
        CRect after;
        GetWindowRect(after);
        if (after.TopLeft() == before.TopLeft() && !IsWindowVisible())
            CenterWindow();
    }
    return lResult;
}

LRESULT CDialog::HandleSetFont(WPARAM wParam, LPARAM)
{
    OnSetFont(CFont::FromHandle(reinterpret_cast<HFONT>(wParam)));
    return Default();
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    if (CWnd::PreTranslateMessage(pMsg))
        return TRUE;
    const bool bKey = WM_KEYFIRST <= pMsg->message && pMsg->message <= WM_KEYLAST;
    const bool bMouse = WM_MOUSEFIRST <= pMsg->message && pMsg->message <= WM_MOUSELAST;
    // IsDialogMessage dispatches what it takes; other messages have a way of their own.
    return (bKey || bMouse) && IsDialogMessage(pMsg);
}

BOOL CDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    // Numbers from 0x8000 to 0xEFFF are commands, for the program as well; others are controls of this
    // dialog alone.
    const bool bCommand =
        (nCode == CN_COMMAND || nCode == CN_UPDATE_COMMAND_UI) && nID >= 0x8000 && nID < 0xF000;
    if (!bCommand)
        return FALSE;
    CWnd* const pOwner = GetParent();
    if (pOwner != nullptr && pOwner != this && pOwner->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    CWinThread* const pThread = AfxGetThread();
    return pThread != nullptr && pThread->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}
