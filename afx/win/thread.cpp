// CWinThread: the pump, and threads.
#include "afxwin.h"
#include "win/state.h"

#include <process.h>

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)

BEGIN_MESSAGE_MAP(CWinThread, CCmdTarget)
END_MESSAGE_MAP()

CWinThread::CWinThread()
{
    CommonConstruct();
}

CWinThread::CWinThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam)
{
    CommonConstruct();
    m_pfnThreadProc = pfnThreadProc;
    m_pThreadParams = pParam;
}

void CWinThread::CommonConstruct()
{
    m_pMainWnd = nullptr;
    m_pActiveWnd = nullptr;
    m_bAutoDelete = TRUE;
    m_hThread = nullptr;
    m_nThreadID = 0;
    m_pThreadParams = nullptr;
    m_pfnThreadProc = nullptr;
}

CWinThread::~CWinThread()
{
    if (m_hThread != nullptr)
        ::CloseHandle(m_hThread);
    AFX_THREAD_STATE* const pState = AfxGetThreadState();
    if (pState->m_pCurrentWinThread == this)
        pState->m_pCurrentWinThread = nullptr;
}

void CWinThread::Delete()
{
    if (m_bAutoDelete)
        delete this;
}

CWinThread* AFXAPI AfxGetThread()
{
    return AfxGetThreadState()->m_pCurrentWinThread;
}

// Starting

namespace
{
// Lives on the stack of the thread that starts another, until the other has been set up.
struct Startup
{
    CWinThread* pThread;
    HANDLE hReady; // the new thread is set up, or could not be
    HANDLE hGoOn;  // the object is complete; the new thread may run
    bool bFailed;
    HWND hMainWnd;
};

unsigned __stdcall ThreadEntry(void* pParameter)
{
    Startup& startup = *static_cast<Startup*>(pParameter);
    CWinThread* const pThread = startup.pThread;
    const HANDLE hGoOn = startup.hGoOn;

    // A thread's message boxes belong to the program's main window until the thread has one of its own.
    CWnd mainWnd;
    try {
        AfxGetThreadState()->m_pCurrentWinThread = pThread;
        AfxInitThread();
        if (pThread->m_pMainWnd == nullptr && startup.hMainWnd != nullptr) {
            mainWnd.Attach(startup.hMainWnd);
            pThread->m_pMainWnd = &mainWnd;
        }
    } catch (CException* e) {
        e->Delete();
        startup.bFailed = true;
        ::SetEvent(startup.hReady);
        AfxTermWindowState();
        return static_cast<unsigned>(-1);
    }
    ::SetEvent(startup.hReady);
    ::WaitForSingleObject(hGoOn, INFINITE);
    ::CloseHandle(hGoOn);

    unsigned nResult;
    if (pThread->m_pfnThreadProc != nullptr)
        nResult = pThread->m_pfnThreadProc(pThread->m_pThreadParams);
    else
        nResult = static_cast<unsigned>(pThread->InitInstance() ? pThread->Run() : pThread->ExitInstance());

    mainWnd.Detach();
    if (pThread->m_pMainWnd == &mainWnd)
        pThread->m_pMainWnd = nullptr;
    AfxEndThread(nResult, TRUE);
    return nResult;
}
} // namespace

BOOL CWinThread::CreateThread(DWORD dwCreateFlags, UINT nStackSize, LPSECURITY_ATTRIBUTES lpSecurityAttrs)
{
    if (m_hThread != nullptr)
        return FALSE;
    CWinApp* const pApp = AfxGetApp();
    Startup startup{this, ::CreateEvent(nullptr, TRUE, FALSE, nullptr),
                    ::CreateEvent(nullptr, TRUE, FALSE, nullptr), false,
                    pApp == nullptr ? nullptr : AfxSafe(pApp->m_pMainWnd)};
    if (startup.hReady == nullptr || startup.hGoOn == nullptr) {
        if (startup.hReady != nullptr)
            ::CloseHandle(startup.hReady);
        if (startup.hGoOn != nullptr)
            ::CloseHandle(startup.hGoOn);
        return FALSE;
    }

    // The thread is made suspended in any case, so that the object knows its handle before it runs.
    unsigned nThreadID = 0;
    m_hThread = reinterpret_cast<HANDLE>(_beginthreadex(lpSecurityAttrs, nStackSize, &ThreadEntry, &startup,
                                                        dwCreateFlags | CREATE_SUSPENDED, &nThreadID));
    if (m_hThread == nullptr) {
        ::CloseHandle(startup.hReady);
        ::CloseHandle(startup.hGoOn);
        return FALSE;
    }
    m_nThreadID = nThreadID;
    const HANDLE hThread = m_hThread;
    ::ResumeThread(hThread);
    ::WaitForSingleObject(startup.hReady, INFINITE);
    ::CloseHandle(startup.hReady);

    if (startup.bFailed) {
        ::WaitForSingleObject(hThread, INFINITE);
        ::CloseHandle(std::exchange(m_hThread, nullptr));
        ::CloseHandle(startup.hGoOn);
        return FALSE;
    }
    // It has got as far as it may; the caller wants it to stop there.
    if ((dwCreateFlags & CREATE_SUSPENDED) != 0)
        ::SuspendThread(hThread);
    // From here on the thread may end, and the object with it.
    ::SetEvent(startup.hGoOn);
    return TRUE;
}

CWinThread* AFXAPI AfxBeginThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam, int nPriority, UINT nStackSize,
                                  DWORD dwCreateFlags, LPSECURITY_ATTRIBUTES lpSecurityAttrs)
{
    CWinThread* const pThread = new CWinThread(pfnThreadProc, pParam);
    if (!pThread->CreateThread(dwCreateFlags | CREATE_SUSPENDED, nStackSize, lpSecurityAttrs)) {
        pThread->Delete();
        return nullptr;
    }
    pThread->SetThreadPriority(nPriority);
    if ((dwCreateFlags & CREATE_SUSPENDED) == 0)
        pThread->ResumeThread();
    return pThread;
}

CWinThread* AFXAPI AfxBeginThread(CRuntimeClass* pThreadClass, int nPriority, UINT nStackSize,
                                  DWORD dwCreateFlags, LPSECURITY_ATTRIBUTES lpSecurityAttrs)
{
    CWinThread* const pThread = static_cast<CWinThread*>(pThreadClass->CreateObject());
    if (pThread == nullptr)
        AfxThrowMemoryException();
    pThread->m_pThreadParams = nullptr;
    if (!pThread->CreateThread(dwCreateFlags | CREATE_SUSPENDED, nStackSize, lpSecurityAttrs)) {
        pThread->Delete();
        return nullptr;
    }
    pThread->SetThreadPriority(nPriority);
    if ((dwCreateFlags & CREATE_SUSPENDED) == 0)
        pThread->ResumeThread();
    return pThread;
}

void AFXAPI AfxEndThread(UINT nExitCode, BOOL bDelete)
{
    CWinThread* const pThread = AfxGetThread();
    if (pThread != nullptr) {
        if (bDelete)
            pThread->Delete();
        AfxGetThreadState()->m_pCurrentWinThread = nullptr;
    }
    AfxTermWindowState();
    _endthreadex(nExitCode);
}

// The pump

BOOL CWinThread::InitInstance()
{
    return FALSE;
}

int CWinThread::Run()
{
    bool bIdle = true;
    LONG lIdleCount = 0;
    MSG next;
    for (;;) {
        while (bIdle && !::PeekMessage(&next, nullptr, 0, 0, PM_NOREMOVE))
            bIdle = OnIdle(lIdleCount++);
        do {
            if (!PumpMessage())
                return ExitInstance();
            if (IsIdleMessage(&AfxGetThreadState()->m_msgCur)) {
                bIdle = true;
                lIdleCount = 0;
            }
        } while (::PeekMessage(&next, nullptr, 0, 0, PM_NOREMOVE));
    }
}

int CWinThread::ExitInstance()
{
    return static_cast<int>(AfxGetThreadState()->m_msgCur.wParam);
}

namespace
{
BOOL PumpOne(BOOL (*pfnPreTranslate)(MSG* pMsg))
{
    MSG& message = AfxGetThreadState()->m_msgCur;
    if (::GetMessage(&message, nullptr, 0, 0) <= 0)
        return FALSE;
    // The state keeps the message for others to look at while nested pumps may take further ones.
    MSG own = message;
    if (own.message != WM_KICKIDLE && !pfnPreTranslate(&own)) {
        ::TranslateMessage(&own);
        ::DispatchMessage(&own);
    }
    return TRUE;
}

// What any thread does with a message before it is translated.
BOOL PreTranslate(CWinThread* pThread, MSG* pMsg)
{
    if (pMsg->hwnd == nullptr && pThread != nullptr && pThread->DispatchThreadMessageEx(pMsg))
        return TRUE;
    CWnd* const pMainWnd = AfxGetMainWnd();
    const HWND hMainWnd = AfxSafe(pMainWnd);
    if (CWnd::WalkPreTranslateTree(hMainWnd, pMsg))
        return TRUE;
    // Accelerators of the main window work in windows beside it as well. What was called may have destroyed
    // it.
    if (pMainWnd == nullptr || pMsg->hwnd == nullptr || CWnd::FromHandlePermanent(hMainWnd) != pMainWnd)
        return FALSE;
    CWnd* const pWnd = CWnd::FromHandle(pMsg->hwnd);
    return pWnd->GetTopLevelParent() != pMainWnd && pMainWnd->PreTranslateMessage(pMsg);
}
} // namespace

BOOL CWinThread::PumpMessage()
{
    return PumpOne(&AfxPreTranslateMessage);
}

BOOL AFXAPI AfxPumpMessage()
{
    CWinThread* const pThread = AfxGetThread();
    return pThread == nullptr ? PumpOne(&AfxPreTranslateMessage) : pThread->PumpMessage();
}

BOOL CWinThread::PreTranslateMessage(MSG* pMsg)
{
    return PreTranslate(this, pMsg);
}

BOOL AFXAPI AfxPreTranslateMessage(MSG* pMsg)
{
    CWinThread* const pThread = AfxGetThread();
    return pThread == nullptr ? PreTranslate(nullptr, pMsg) : pThread->PreTranslateMessage(pMsg);
}

BOOL CWinThread::DispatchThreadMessageEx(MSG* pMsg)
{
    for (const AFX_MSGMAP* pMap = GetMessageMap(); pMap != nullptr;
         pMap = pMap->pfnGetBaseMap == nullptr ? nullptr : pMap->pfnGetBaseMap())
    {
        for (const AFX_MSGMAP_ENTRY* pEntry = pMap->lpEntries; pEntry->nMessage != 0; ++pEntry) {
            const bool bFound = pEntry->pRegistered != nullptr
                                    ? pMsg->message >= 0xC000 && *pEntry->pRegistered == pMsg->message
                                    : pEntry->nMessage == pMsg->message && pEntry->nCode == 0 &&
                                          pEntry->nLastID == 0; // commands have a way of their own
            if (!bFound)
                continue;
            AFX_MSGCALL_ARGS args{this, pEntry->pfn, pMsg->message, pMsg->wParam, pMsg->lParam,
                                  0,    0,           nullptr};
            pEntry->pCall(args);
            return TRUE;
        }
    }
    return FALSE;
}

BOOL CWinThread::IsIdleMessage(MSG* pMsg)
{
    // The system sends moves on the spot after each change of the windows under the mouse.
    if (pMsg->message == WM_MOUSEMOVE || pMsg->message == WM_NCMOUSEMOVE) {
        AFX_THREAD_STATE* const pState = AfxGetThreadState();
        if (pState->m_nMsgLast == pMsg->message && CPoint(pState->m_ptCursorLast) == pMsg->pt)
            return FALSE;
        pState->m_ptCursorLast = pMsg->pt;
        pState->m_nMsgLast = pMsg->message;
        return TRUE;
    }
    constexpr UINT nCaretTimer = 0x0118;
    return pMsg->message != WM_PAINT && pMsg->message != nCaretTimer;
}

BOOL AFXAPI AfxIsIdleMessage(MSG* pMsg)
{
    CWinThread* const pThread = AfxGetThread();
    return pThread == nullptr ? TRUE : pThread->IsIdleMessage(pMsg);
}

BOOL CWinThread::OnIdle(LONG lCount)
{
    if (lCount <= 0) {
        // Owned by others perhaps, but up to date.
        CWnd* const pMainWnd = m_pMainWnd;
        if (pMainWnd != nullptr && pMainWnd->m_hWnd != nullptr && pMainWnd->IsWindowVisible()) {
            AfxCallWindow(pMainWnd, pMainWnd->m_hWnd, WM_IDLEUPDATECMDUI, TRUE, 0);
            pMainWnd->SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE, 0, TRUE, TRUE);
        }
    } else if (lCount == 1) {
        CWnd::DeleteTempMap();
        CMenu::DeleteTempMap();
        CDC::DeleteTempMap();
        CGdiObject::DeleteTempMap();
        AfxGetWindowState().imageLists.DeleteTemporary();
    }
    return lCount < 1;
}

LRESULT CWinThread::ProcessWndProcException(CException* e, const MSG* pMsg)
{
    return AfxDefaultWndProcException(e, pMsg);
}
BOOL CWinThread::ProcessMessageFilter(int, LPMSG)
{
    return FALSE;
}

CWnd* CWinThread::GetMainWnd()
{
    if (m_pActiveWnd != nullptr)
        return m_pActiveWnd;
    return m_pMainWnd != nullptr ? m_pMainWnd : CWnd::GetActiveWindow();
}

namespace
{
LRESULT CALLBACK MessageFilterHook(int nCode, WPARAM wParam, LPARAM lParam)
{
    CWinThread* const pThread = AfxGetThread();
    if (nCode >= 0 && pThread != nullptr) {
        struct Call
        {
            CWinThread* pThread;
            int nCode;
            MSG* pMsg;
        } call{pThread, nCode, reinterpret_cast<MSG*>(lParam)};
        const auto filter = [](void* pContext) {
            const Call& call = *static_cast<Call*>(pContext);
            return static_cast<LRESULT>(call.pThread->ProcessMessageFilter(call.nCode, call.pMsg));
        };
        if (AfxGuardMessage(*call.pMsg, filter, &call) != 0)
            return 1;
    }
    return ::CallNextHookEx(AfxGetWindowState().hMessageHook, nCode, wParam, lParam);
}
} // namespace

void AfxInitThread()
{
    AfxWindowState& state = AfxGetWindowState();
    if (state.hMessageHook == nullptr)
        state.hMessageHook =
            ::SetWindowsHookEx(WH_MSGFILTER, &MessageFilterHook, nullptr, ::GetCurrentThreadId());
}
