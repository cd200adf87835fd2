// CWinApp, and a program's start and end.
#include "afxwin.h"
#include "win/state.h"

IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

BEGIN_MESSAGE_MAP(CWinApp, CWinThread)
ON_COMMAND(ID_APP_EXIT, &CWinApp::OnAppExit)
END_MESSAGE_MAP()

CWinApp::CWinApp(LPCTSTR lpszAppName)
    : m_hInstance(nullptr), m_lpCmdLine(nullptr), m_nCmdShow(0),
      m_pszAppName(lpszAppName == nullptr ? nullptr : _tcsdup(lpszAppName)), m_pszExeName(nullptr),
      m_nWaitCursorCount(0), m_hcurWaitCursorRestore(nullptr)
{
    AFX_MODULE_STATE* const pModule = AfxGetModuleState();
    if (pModule->m_pCurrentWinApp == nullptr) {
        pModule->m_pCurrentWinApp = this;
        AfxGetThreadState()->m_pCurrentWinThread = this;
        m_nThreadID = ::GetCurrentThreadId();
        if (!::DuplicateHandle(::GetCurrentProcess(), ::GetCurrentThread(), ::GetCurrentProcess(), &m_hThread,
                               0, FALSE, DUPLICATE_SAME_ACCESS))
            m_hThread = nullptr;
    }
    // Not made with new.
    m_bAutoDelete = FALSE;
}

CWinApp::~CWinApp()
{
    AFX_MODULE_STATE* const pModule = AfxGetModuleState();
    if (pModule->m_pCurrentWinApp == this) {
        pModule->m_pCurrentWinApp = nullptr;
        pModule->m_lpszCurrentAppName = nullptr;
    }
    std::free(const_cast<LPTSTR>(m_pszAppName));
    std::free(const_cast<LPTSTR>(m_pszExeName));
}

void CWinApp::SetCurrentHandles()
{
    AFX_MODULE_STATE* const pModule = AfxGetModuleState();
    pModule->m_hCurrentInstanceHandle = m_hInstance;
    pModule->m_hCurrentResourceHandle = m_hInstance;

    if (m_pszExeName == nullptr) {
        TCHAR path[MAX_PATH]{};
        ::GetModuleFileName(m_hInstance, path, _countof(path) - 1);
        CString name(path);
        name = name.Mid(name.ReverseFind(_T('\\')) + 1);
        const int nDot = name.ReverseFind(_T('.'));
        m_pszExeName = _tcsdup(nDot < 0 ? name : name.Left(nDot));
    }
    if (m_pszAppName == nullptr) {
        constexpr UINT nTitle = 0xE000; // AFX_IDS_APP_TITLE
        CString title;
        m_pszAppName = _tcsdup(title.LoadString(nTitle) ? title.GetString() : m_pszExeName);
    }
    pModule->m_lpszCurrentAppName = m_pszAppName;
}

CWinApp* AFXAPI AfxGetApp()
{
    return AfxGetModuleState()->m_pCurrentWinApp;
}

CWnd* AFXAPI AfxGetMainWnd()
{
    CWinThread* const pThread = AfxGetThread();
    return pThread == nullptr ? nullptr : pThread->GetMainWnd();
}

BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE, LPTSTR lpCmdLine, int nCmdShow)
{
    ::SetErrorMode(::SetErrorMode(0) | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);

    AFX_MODULE_STATE* const pModule = AfxGetModuleState();
    pModule->m_hCurrentInstanceHandle = hInstance;
    pModule->m_hCurrentResourceHandle = hInstance;
    if (CWinApp* const pApp = AfxGetApp()) {
        pApp->m_hInstance = hInstance;
        pApp->m_lpCmdLine = lpCmdLine;
        pApp->m_nCmdShow = nCmdShow;
        pApp->SetCurrentHandles();
    }
    AfxInitThread();
    return TRUE;
}

int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow)
{
    int nResult = -1;
    CWinApp* const pApp = AfxGetApp();
    CWinThread* const pThread = AfxGetThread();
    if (pThread != nullptr && AfxWinInit(hInstance, hPrevInstance, lpCmdLine, nCmdShow) &&
        (pApp == nullptr || pApp->InitApplication()))
    {
        if (pThread->InitInstance())
            nResult = pThread->Run();
        else {
            if (pThread->m_pMainWnd != nullptr)
                pThread->m_pMainWnd->DestroyWindow();
            nResult = pThread->ExitInstance();
        }
    }
    AfxWinTerm();
    return nResult;
}

void AFXAPI AfxWinTerm()
{
    AfxTermWindowState();
}

void AFXAPI AfxPostQuitMessage(int nExitCode)
{
    ::PostQuitMessage(nExitCode);
}

BOOL CWinApp::InitApplication()
{
    return TRUE;
}
BOOL CWinApp::InitInstance()
{
    return TRUE;
}
int CWinApp::ExitInstance()
{
    return CWinThread::ExitInstance();
}

int CWinApp::Run()
{
    // Without a window nobody could end the program.
    if (m_pMainWnd == nullptr)
        AfxPostQuitMessage(0);
    return CWinThread::Run();
}

BOOL CWinApp::OnIdle(LONG lCount)
{
    return CWinThread::OnIdle(lCount);
}

LRESULT CWinApp::ProcessWndProcException(CException* e, const MSG* pMsg)
{
    // Whoever creates or paints gets to know by the result.
    if (pMsg->message == WM_CREATE || pMsg->message == WM_PAINT)
        return CWinThread::ProcessWndProcException(e, pMsg);
    // Of a CUserException the user knows already.
    if (e->IsKindOf(RUNTIME_CLASS(CMemoryException)))
        e->ReportError(MB_ICONEXCLAMATION | MB_SYSTEMMODAL);
    else if (!e->IsKindOf(RUNTIME_CLASS(CUserException)))
        e->ReportError(MB_ICONSTOP);
    // A command counts as dealt with, so that nobody else tries it as well.
    return pMsg->message == WM_COMMAND ? TRUE : 0;
}

void CWinApp::EnableModeless(BOOL bEnable)
{
    if (m_pActiveWnd == nullptr || m_pActiveWnd == m_pMainWnd)
        return;
    if (bEnable)
        m_pActiveWnd->EndModalState();
    else
        m_pActiveWnd->BeginModalState();
}

void CWinApp::DoWaitCursor(int nCode)
{
    m_nWaitCursorCount += nCode;
    if (m_nWaitCursorCount > 0) {
        const HCURSOR hBefore = ::SetCursor(::LoadCursor(nullptr, IDC_WAIT));
        if (nCode > 0 && m_nWaitCursorCount == 1)
            m_hcurWaitCursorRestore = hBefore;
        return;
    }
    m_nWaitCursorCount = 0;
    ::SetCursor(m_hcurWaitCursorRestore);
}

HCURSOR CWinApp::LoadCursor(LPCTSTR lpszResourceName) const
{
    return ::LoadCursor(AfxFindResourceHandle(lpszResourceName, RT_GROUP_CURSOR), lpszResourceName);
}

HICON CWinApp::LoadIcon(LPCTSTR lpszResourceName) const
{
    return ::LoadIcon(AfxFindResourceHandle(lpszResourceName, RT_GROUP_ICON), lpszResourceName);
}

void CWinApp::OnAppExit()
{
    if (m_pMainWnd != nullptr)
        m_pMainWnd->SendMessage(WM_CLOSE);
}
