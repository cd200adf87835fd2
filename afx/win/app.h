// CWinThread and CWinApp: message pumps, threads, the application object and what goes with it.
#pragma once

#include "win/wnd.h"

typedef UINT(AFX_CDECL* AFX_THREADPROC)(LPVOID);

// A thread of the program; one with a window has a message pump.
class AFX_CORE_API CWinThread : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinThread)

public:
    CWinThread();
    // A worker thread, which runs pfnThreadProc(pParam).
    CWinThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam);
    virtual ~CWinThread();

    // Starts the thread; once for each object. FALSE when it cannot be started.
    BOOL CreateThread(DWORD dwCreateFlags = 0, UINT nStackSize = 0,
                      LPSECURITY_ATTRIBUTES lpSecurityAttrs = nullptr);

    // Attributes
public:
    CWnd* m_pMainWnd;   // main window; its end ends the pump
    CWnd* m_pActiveWnd; // active main window of a container when it is another
    BOOL m_bAutoDelete; // the object goes with the thread; TRUE at first
    HANDLE m_hThread;   // closed with the object
    DWORD m_nThreadID;

    operator HANDLE() const { return m_hThread; }
    int GetThreadPriority() { return ::GetThreadPriority(m_hThread); }
    BOOL SetThreadPriority(int nPriority) { return ::SetThreadPriority(m_hThread, nPriority); }

    // Operations
public:
    DWORD SuspendThread() { return ::SuspendThread(m_hThread); }
    DWORD ResumeThread() { return ::ResumeThread(m_hThread); }
    BOOL PostThreadMessage(UINT message, WPARAM wParam, LPARAM lParam)
    {
        return ::PostThreadMessage(m_nThreadID, message, wParam, lParam);
    }

    // Overridables
public:
    // TRUE: go on with Run. The default of a thread with a pump returns FALSE.
    virtual BOOL InitInstance();
    // Pumps messages until WM_QUIT; returns ExitInstance's value.
    virtual int Run();
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    // Takes, translates and dispatches one message; FALSE after WM_QUIT.
    virtual BOOL PumpMessage();
    // The queue is empty, for the lCount-th time since the last message. TRUE asks to be called
    // again. The default brings states of menus and controls up to date (0) and deletes the
    // temporary objects (1).
    virtual BOOL OnIdle(LONG lCount);
    // Whether idle work is due after the message; not so for mouse moves on the spot, WM_PAINT and the
    // caret's timer.
    virtual BOOL IsIdleMessage(MSG* pMsg);
    // The exit code; the default returns that of WM_QUIT.
    virtual int ExitInstance();
    // An exception left a message's handler. Returns the message's result: -1 for WM_CREATE; WM_PAINT's
    // window is validated; 0 for others. The exception is the caller's.
    virtual LRESULT ProcessWndProcException(CException* e, const MSG* pMsg);
    // A message of a dialog, message box, menu or scroll bar that runs a loop of its own; TRUE ends
    // its way.
    virtual BOOL ProcessMessageFilter(int code, LPMSG lpMsg);
    // The main window, of the container if there is one; else the thread's active window.
    virtual CWnd* GetMainWnd();

    // Implementation
public:
    void CommonConstruct();
    virtual void Delete();
    // Hands a thread message to the map; TRUE when there was a handler.
    BOOL DispatchThreadMessageEx(MSG* pMsg);

    LPVOID m_pThreadParams;
    AFX_THREADPROC m_pfnThreadProc; // null for a thread with a pump

    DECLARE_MESSAGE_MAP()
};

// The application: one object of a derived class (or this one), made before WinMain runs.
class AFX_CORE_API CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)

public:
    // lpszAppName: the name in captions of message boxes; null means the AFX_IDS_APP_TITLE string, else
    // the program's file name.
    explicit CWinApp(LPCTSTR lpszAppName = nullptr);
    virtual ~CWinApp();

    // Attributes; set by AfxWinInit
public:
    HINSTANCE m_hInstance;
    LPTSTR m_lpCmdLine;
    int m_nCmdShow;
    LPCTSTR m_pszAppName; // copies made with _tcsdup; freed with the object
    LPCTSTR m_pszExeName; // the program's file name without extension

    // Resources, from the resource chain; null when not found
public:
    HCURSOR LoadCursor(LPCTSTR lpszResourceName) const;
    HCURSOR LoadCursor(UINT nIDResource) const { return LoadCursor(MAKEINTRESOURCE(nIDResource)); }
    HCURSOR LoadStandardCursor(LPCTSTR lpszCursorName) const { return ::LoadCursor(nullptr, lpszCursorName); }
    HCURSOR LoadOEMCursor(UINT nIDCursor) const { return ::LoadCursor(nullptr, MAKEINTRESOURCE(nIDCursor)); }
    HICON LoadIcon(LPCTSTR lpszResourceName) const;
    HICON LoadIcon(UINT nIDResource) const { return LoadIcon(MAKEINTRESOURCE(nIDResource)); }
    HICON LoadStandardIcon(LPCTSTR lpszIconName) const { return ::LoadIcon(nullptr, lpszIconName); }
    HICON LoadOEMIcon(UINT nIDIcon) const { return ::LoadIcon(nullptr, MAKEINTRESOURCE(nIDIcon)); }

    // Operations
public:
    // Disables or enables a container's window (m_pActiveWnd) for the sake of something modal.
    void EnableModeless(BOOL bEnable);

    // Overridables
public:
    virtual BOOL InitApplication();
    virtual BOOL InitInstance();
    virtual int ExitInstance();
    virtual int Run();
    virtual BOOL OnIdle(LONG lCount);
    // As the base class, but tells the user first, of other messages than WM_CREATE and WM_PAINT: a
    // CMemoryException in a box over all windows, a CUserException not at all, others with the stop sign.
    // Exceptions that are no CException come as one with their text. WM_COMMAND counts as dealt with.
    virtual LRESULT ProcessWndProcException(CException* e, const MSG* pMsg);
    // What AfxMessageBox shows: a box of the main window's last active pop-up, with the application's
    // name as caption. MB_OK, MB_OKCANCEL, MB_YESNO and MB_YESNOCANCEL without an icon get the
    // exclamation mark. nIDPrompt is the help context. Returns the button, 0 on failure.
    virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);
    // nCode 1 shows the hourglass, -1 counts back, 0 shows it again if it still counts.
    virtual void DoWaitCursor(int nCode);

    // Implementation
public:
    void SetCurrentHandles();

protected:
    int m_nWaitCursorCount;
    HCURSOR m_hcurWaitCursorRestore;

    afx_msg void OnAppExit();

    DECLARE_MESSAGE_MAP()
};

// Start and end of a program. AfxWinInit makes the application object known its instance, command
// line and show state and prepares the thread; console programs call it themselves. AfxWinMain does
// all from there to the exit code. AfxWinTerm gives back what the framework holds for the thread.
AFX_CORE_API BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                                    int nCmdShow);
AFX_CORE_API int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine,
                                   int nCmdShow);
AFX_CORE_API void AFXAPI AfxWinTerm();

// The one application object, null before it is made; the thread's object, null for threads that the
// framework did not start; the thread's main window.
AFX_CORE_API CWinApp* AFXAPI AfxGetApp();
AFX_CORE_API CWinThread* AFXAPI AfxGetThread();
AFX_CORE_API CWnd* AFXAPI AfxGetMainWnd();

// Start a worker thread or a thread with a pump. Return the object, which deletes itself when the
// thread ends, or null when the thread cannot be started. A suspended thread starts with ResumeThread.
AFX_CORE_API CWinThread* AFXAPI AfxBeginThread(AFX_THREADPROC pfnThreadProc, LPVOID pParam,
                                               int nPriority = THREAD_PRIORITY_NORMAL, UINT nStackSize = 0,
                                               DWORD dwCreateFlags = 0,
                                               LPSECURITY_ATTRIBUTES lpSecurityAttrs = nullptr);
AFX_CORE_API CWinThread* AFXAPI AfxBeginThread(CRuntimeClass* pThreadClass,
                                               int nPriority = THREAD_PRIORITY_NORMAL, UINT nStackSize = 0,
                                               DWORD dwCreateFlags = 0,
                                               LPSECURITY_ATTRIBUTES lpSecurityAttrs = nullptr);
// Ends the calling thread; with bDelete its object goes too.
AFX_CORE_API void AFXAPI AfxEndThread(UINT nExitCode, BOOL bDelete = TRUE);

// Show a message box through CWinApp::DoMessageBox and return the button, 0 on failure. The second form
// takes a string resource, whose number is the help context unless nIDHelp is given.
AFX_CORE_API int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
AFX_CORE_API int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK,
                                      UINT nIDHelp = static_cast<UINT>(-1));

// Replace %1 (and %2) in a text, of a string resource or given, by the texts.
AFX_CORE_API void AFXAPI AfxFormatString1(CString& rString, UINT nIDS, LPCTSTR lpsz1);
AFX_CORE_API void AFXAPI AfxFormatString2(CString& rString, UINT nIDS, LPCTSTR lpsz1, LPCTSTR lpsz2);
// The iSubString-th piece (from 0) between separators; FALSE and an empty text past the last.
AFX_CORE_API BOOL AFXAPI AfxExtractSubString(CString& rString, LPCTSTR lpszFullString, int iSubString,
                                             TCHAR chSep = '\n');

// The name of a window class with these traits, registered when first asked for; the text lives until
// the thread asks for the next. Throws CResourceException* when it cannot be registered.
AFX_CORE_API LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr,
                                                HBRUSH hbrBackground = nullptr, HICON hIcon = nullptr);
// Registers a class; TRUE also when it exists.
AFX_CORE_API BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass);

// The procedure of all windows that a CWnd takes the messages of.
AFX_CORE_API LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
AFX_CORE_API WNDPROC AFXAPI AfxGetAfxWndProc();

// Between these two the next window that the thread creates becomes pWnd's. FALSE when none was
// created.
AFX_CORE_API void AFXAPI AfxHookWindowCreate(CWnd* pWnd);
AFX_CORE_API BOOL AFXAPI AfxUnhookWindowCreate();

// Takes and dispatches one message with the thread's PumpMessage; FALSE after WM_QUIT.
AFX_CORE_API BOOL AFXAPI AfxPumpMessage();
AFX_CORE_API BOOL AFXAPI AfxPreTranslateMessage(MSG* pMsg);
AFX_CORE_API BOOL AFXAPI AfxIsIdleMessage(MSG* pMsg);
// Posts WM_QUIT and, for the last, closes the main window first.
AFX_CORE_API void AFXAPI AfxPostQuitMessage(int nExitCode);
