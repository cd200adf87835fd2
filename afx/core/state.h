// What the DLL keeps for the process and for each thread. Internal to VelmAfx22.dll.
#pragma once

#include "../afx.h"

class CWinApp;
class CWinThread;

// For the process; lives as long as the DLL.
struct AFX_MODULE_STATE
{
    CWinApp* m_pCurrentWinApp;
    HINSTANCE m_hCurrentInstanceHandle; // NULL: the running program
    HINSTANCE m_hCurrentResourceHandle; // NULL: the instance
    LPCTSTR m_lpszCurrentAppName;

    // Guards the two members below. Never held while the system is called.
    SRWLOCK m_lock;
    CRuntimeClass* m_pFirstClass;     // classes of the program and of DLLs that are still loading
    CDynLinkLibrary* m_pFirstLibrary; // the chain, newest first
};
AFX_MODULE_STATE* AFXAPI AfxGetModuleState();

// For a thread; made when the thread first asks and freed when it ends, or with the DLL.
struct AFX_THREAD_STATE
{
    CWinThread* m_pCurrentWinThread;

    // The message that the pump took last, and the mouse message that counted last as activity.
    MSG m_msgCur;
    POINT m_ptCursorLast;
    UINT m_nMsgLast;

    BOOL m_bNeedTerm; // AfxOleInit started OLE

    // What the window half keeps for the thread; it is told to free that before the state goes.
    void* m_pWindowData;
    void (*m_pfnCleanUp)(AFX_THREAD_STATE* pState);
};
AFX_THREAD_STATE* AFXAPI AfxGetThreadState();

// Called as the DLL is attached and detached; a thread's end frees its state.
void AfxProcessAttach(HINSTANCE hInstance);
void AfxProcessDetach(bool bProcessEnds);
void AfxThreadDetach();

// Holds an SRWLOCK for its own life: shared or alone.
class AfxLock
{
public:
    enum Kind
    {
        Shared,
        Exclusive
    };
    AfxLock(SRWLOCK& lock, Kind kind) : m_lock(lock), m_kind(kind)
    {
        if (kind == Shared)
            ::AcquireSRWLockShared(&m_lock);
        else
            ::AcquireSRWLockExclusive(&m_lock);
    }
    ~AfxLock()
    {
        if (m_kind == Shared)
            ::ReleaseSRWLockShared(&m_lock);
        else
            ::ReleaseSRWLockExclusive(&m_lock);
    }
    AfxLock(const AfxLock&) = delete;
    AfxLock& operator=(const AfxLock&) = delete;

private:
    SRWLOCK& m_lock;
    const Kind m_kind;
};
