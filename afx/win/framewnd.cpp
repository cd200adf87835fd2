#include "afxwin.h"
#include "win/state.h"

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

const CRect CFrameWnd::rectDefault(CW_USEDEFAULT, CW_USEDEFAULT, 0, 0);

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
ON_WM_CREATE()
ON_WM_CLOSE()
ON_WM_SIZE()
ON_WM_INITMENUPOPUP()
END_MESSAGE_MAP()

CFrameWnd::CFrameWnd()
    : m_bAutoMenuEnable(TRUE), m_hAccelTable(nullptr), m_cModalStack(0), m_bModalDisabled(FALSE)
{
}
CFrameWnd::~CFrameWnd() {}

BOOL CFrameWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass == nullptr)
        cs.lpszClass = AfxGetStandardClass(AfxClassFrame);
    return TRUE;
}

BOOL CFrameWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                       CWnd* pParentWnd, LPCTSTR lpszMenuName, DWORD dwExStyle, CCreateContext* pContext)
{
    CMenu menu;
    if (lpszMenuName != nullptr && !menu.LoadMenu(lpszMenuName)) {
        PostNcDestroy();
        return FALSE;
    }
    m_strTitle = lpszWindowName;
    // CW_USEDEFAULT stands for the size as well, though the rectangle's edges cannot say it.
    const bool bDefault = rect.left == CW_USEDEFAULT;
    const int nWidth = bDefault ? CW_USEDEFAULT : rect.right - rect.left;
    const int nHeight = bDefault ? CW_USEDEFAULT : rect.bottom - rect.top;
    if (!CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top, nWidth, nHeight,
                  AfxSafe(pParentWnd), menu.m_hMenu, pContext))
        return FALSE;
    // The window destroys its menu.
    menu.Detach();
    return TRUE;
}

BOOL CFrameWnd::LoadFrame(UINT nIDResource, DWORD dwDefaultStyle, CWnd* pParentWnd, CCreateContext* pContext)
{
    CString text;
    CString title;
    if (text.LoadString(nIDResource))
        AfxExtractSubString(title, text, 0);
    const LPCTSTR lpszName = MAKEINTRESOURCE(nIDResource);
    const bool bMenu = ::FindResource(AfxFindResourceHandle(lpszName, RT_MENU), lpszName, RT_MENU) != nullptr;
    if (!Create(nullptr, title, dwDefaultStyle, rectDefault, pParentWnd, bMenu ? lpszName : nullptr, 0,
                pContext))
        return FALSE;
    if (const HICON hIcon = ::LoadIcon(AfxFindResourceHandle(lpszName, RT_GROUP_ICON), lpszName))
        SetIcon(hIcon, TRUE);
    LoadAccelTable(lpszName);
    return TRUE;
}

BOOL CFrameWnd::LoadAccelTable(LPCTSTR lpszResourceName)
{
    m_hAccelTable =
        ::LoadAccelerators(AfxFindResourceHandle(lpszResourceName, RT_ACCELERATOR), lpszResourceName);
    return m_hAccelTable != nullptr;
}

void CFrameWnd::ActivateFrame(int nCmdShow)
{
    if (nCmdShow == -1)
        nCmdShow = !IsWindowVisible() ? SW_SHOWNORMAL : IsIconic() ? SW_RESTORE : -1;
    if (nCmdShow != -1)
        ShowWindow(nCmdShow);
    BringWindowToTop();
}

void CFrameWnd::BeginModalState()
{
    if (m_cModalStack++ == 0) {
        m_bModalDisabled = IsWindowEnabled();
        if (m_bModalDisabled)
            EnableWindow(FALSE);
    }
}

void CFrameWnd::EndModalState()
{
    if (m_cModalStack == 0 || --m_cModalStack != 0)
        return;
    if (m_bModalDisabled)
        EnableWindow(TRUE);
    m_bModalDisabled = FALSE;
}

void CFrameWnd::RecalcLayout(BOOL) {}
BOOL CFrameWnd::OnCreateClient(LPCREATESTRUCT, CCreateContext*)
{
    return TRUE;
}

void CFrameWnd::GetMessageString(UINT nID, CString& rMessage) const
{
    CString text;
    rMessage.Empty();
    if (text.LoadString(nID))
        AfxExtractSubString(rMessage, text, 0);
}

BOOL CFrameWnd::PreTranslateMessage(MSG* pMsg)
{
    if (CWnd::PreTranslateMessage(pMsg))
        return TRUE;
    const bool bKey = WM_KEYFIRST <= pMsg->message && pMsg->message <= WM_KEYLAST;
    return bKey && m_hAccelTable != nullptr && ::TranslateAccelerator(m_hWnd, m_hAccelTable, pMsg) != 0;
}

BOOL CFrameWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    CWinApp* const pApp = AfxGetApp();
    return pApp != nullptr && pApp->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

void CFrameWnd::PostNcDestroy()
{
    delete this;
}

int CFrameWnd::OnCreate(LPCREATESTRUCT lpCreateStruct)
{
    if (CWnd::OnCreate(lpCreateStruct) == -1)
        return -1;
    if (!OnCreateClient(lpCreateStruct, static_cast<CCreateContext*>(lpCreateStruct->lpCreateParams)))
        return -1;
    RecalcLayout();
    return 0;
}

void CFrameWnd::OnClose()
{
    DestroyWindow();
}

void CFrameWnd::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    if (nType != SIZE_MINIMIZED)
        RecalcLayout();
}

void CFrameWnd::OnInitMenuPopup(CMenu* pMenu, UINT, BOOL bSysMenu)
{
    if (bSysMenu || pMenu == nullptr)
        return;
    CCmdUI state;
    state.m_pMenu = pMenu;
    state.m_nIndexMax = pMenu->GetMenuItemCount();
    for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
        state.m_nID = pMenu->GetMenuItemID(static_cast<int>(state.m_nIndex));
        if (state.m_nID == 0)
            continue;
        if (state.m_nID == static_cast<UINT>(-1)) {
            // A pop-up takes its state from its first item, which must be a command for that.
            state.m_pSubMenu = pMenu->GetSubMenu(static_cast<int>(state.m_nIndex));
            if (state.m_pSubMenu == nullptr)
                continue;
            state.m_nID = state.m_pSubMenu->GetMenuItemID(0);
            if (state.m_nID == 0 || state.m_nID == static_cast<UINT>(-1))
                continue;
            state.DoUpdate(this, FALSE);
        } else {
            // System commands have no handler here and are not ours to disable.
            state.m_pSubMenu = nullptr;
            state.DoUpdate(this, m_bAutoMenuEnable && state.m_nID < 0xF000);
        }
        // A handler may have added or removed items behind its own.
        state.m_nIndexMax = pMenu->GetMenuItemCount();
    }
}
