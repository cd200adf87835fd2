#include "win/state.h"

namespace
{
void CleanUp(AFX_THREAD_STATE* pState)
{
    const std::unique_ptr<AfxWindowState> pWindowState(static_cast<AfxWindowState*>(pState->m_pWindowData));
    if (pWindowState == nullptr)
        return;

    // The state is still the thread's while the temporary objects go: their destructors ask for it.
    pWindowState->windows.DeleteTemporary();
    pWindowState->menus.DeleteTemporary();
    pWindowState->dcs.DeleteTemporary();
    pWindowState->gdiObjects.DeleteTemporary();
    pWindowState->imageLists.DeleteTemporary();
    pWindowState->halftoneBrush.DeleteObject();
    pState->m_pWindowData = nullptr;
    pState->m_pfnCleanUp = nullptr;
}
} // namespace

AfxWindowState& AfxGetWindowState()
{
    AFX_THREAD_STATE* const pState = AfxGetThreadState();
    if (pState->m_pWindowData == nullptr) {
        pState->m_pWindowData = new AfxWindowState;
        pState->m_pfnCleanUp = &CleanUp;
    }
    return *static_cast<AfxWindowState*>(pState->m_pWindowData);
}

void AfxTermWindowState()
{
    AFX_THREAD_STATE* const pState = AfxGetThreadState();
    if (pState->m_pWindowData == nullptr)
        return;
    // When a thread just ends, the system takes its hooks and windows away.
    AfxWindowState& state = AfxGetWindowState();
    if (state.hCreationHook != nullptr)
        ::UnhookWindowsHookEx(state.hCreationHook);
    if (state.hMessageHook != nullptr)
        ::UnhookWindowsHookEx(state.hMessageHook);
    if (::IsWindow(state.hToolTip))
        ::DestroyWindow(state.hToolTip);
    CleanUp(pState);
}
