#include "state.h"

#include <atomic>

namespace
{

constinit AFX_MODULE_STATE processState = {NULL, NULL, NULL, NULL, SRWLOCK_INIT, NULL, NULL};

std::atomic<DWORD> threadSlot = TLS_OUT_OF_INDEXES;

// Static constructors of other modules may come before this DLL's own, so the slot is taken on demand.
DWORD ThreadSlot()
{
    DWORD slot = threadSlot.load(std::memory_order_acquire);
    if (slot != TLS_OUT_OF_INDEXES)
        return slot;
    const DWORD fresh = ::TlsAlloc();
    if (fresh == TLS_OUT_OF_INDEXES)
        AfxThrowMemoryException();
    if (threadSlot.compare_exchange_strong(slot, fresh))
        return fresh;
    ::TlsFree(fresh);
    return slot;
}

} // namespace

AFX_MODULE_STATE* AFXAPI AfxGetModuleState()
{
    return &processState;
}

AFX_THREAD_STATE* AFXAPI AfxGetThreadState()
{
    const DWORD slot = ThreadSlot();
    // TlsGetValue resets the last error, which a caller may be about to ask for.
    const DWORD lastError = ::GetLastError();
    AFX_THREAD_STATE* pState = static_cast<AFX_THREAD_STATE*>(::TlsGetValue(slot));
    ::SetLastError(lastError);
    if (pState == NULL) {
        pState = static_cast<AFX_THREAD_STATE*>(std::calloc(1, sizeof(AFX_THREAD_STATE)));
        if (pState == NULL)
            AfxThrowMemoryException();
        ::TlsSetValue(slot, pState);
    }
    return pState;
}

void AfxThreadDetach()
{
    const DWORD slot = threadSlot.load(std::memory_order_acquire);
    if (slot == TLS_OUT_OF_INDEXES)
        return;
    AFX_THREAD_STATE* pState = static_cast<AFX_THREAD_STATE*>(::TlsGetValue(slot));
    if (pState == NULL)
        return;
    if (pState->m_pfnCleanUp != NULL)
        pState->m_pfnCleanUp(pState);
    ::TlsSetValue(slot, NULL);
    std::free(pState);
}

// This DLL is itself the last of the chain: its resources and run-time classes are found there.
static AFX_EXTENSION_MODULE coreModule;

void AfxProcessAttach(HINSTANCE hInstance)
{
    if (AfxInitExtensionModule(coreModule, hInstance))
        new CDynLinkLibrary(coreModule, TRUE);
}

void AfxProcessDetach(bool bProcessEnds)
{
    // When the process ends its other threads are gone already, maybe holding locks.
    if (bProcessEnds)
        return;
    AfxThreadDetach();
    AfxTermExtensionModule(coreModule);
    const DWORD slot = threadSlot.exchange(TLS_OUT_OF_INDEXES);
    if (slot != TLS_OUT_OF_INDEXES)
        ::TlsFree(slot);
}
