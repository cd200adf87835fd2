// How CWnd objects and windows find each other: maps, creation, subclassing, destruction.
#include "afxwin.h"
#include "win/state.h"

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

CWnd::CWnd() : m_hWnd(nullptr), m_hWndOwner(nullptr), m_nFlags(0), m_pfnSuper(nullptr), m_nModalResult(0) {}

CWnd::CWnd(HWND hWndPlace) : CWnd()
{
    m_hWnd = hWndPlace;
}

CWnd::~CWnd()
{
    const bool bPlace = this == &wndTop || this == &wndBottom || this == &wndTopMost || this == &wndNoTopMost;
    if (m_hWnd != nullptr && !bPlace)
        DestroyWindow();
}

CWnd* PASCAL CWnd::FromHandle(HWND hWnd)
{
    return AfxGetWindowState().windows.FromHandle(hWnd, [](HWND) { return new CWnd; });
}

CWnd* PASCAL CWnd::FromHandlePermanent(HWND hWnd)
{
    return AfxGetWindowState().windows.Permanent(hWnd);
}

void PASCAL CWnd::DeleteTempMap()
{
    AfxGetWindowState().windows.DeleteTemporary();
}

BOOL CWnd::Attach(HWND hWndNew)
{
    if (hWndNew == nullptr || m_hWnd != nullptr)
        return FALSE;
    AfxGetWindowState().windows.SetPermanent(hWndNew, this);
    m_hWnd = hWndNew;
    return TRUE;
}

HWND CWnd::Detach()
{
    const HWND hWnd = std::exchange(m_hWnd, nullptr);
    if (hWnd != nullptr)
        AfxGetWindowState().windows.RemovePermanent(hWnd, this);
    return hWnd;
}

void CWnd::PreSubclassWindow() {}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    // Two objects for one window would take its messages from each other.
    if (!::IsWindow(hWnd) || FromHandlePermanent(hWnd) != nullptr || !Attach(hWnd))
        return FALSE;
    PreSubclassWindow();
    const auto pfnOld = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtr(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    if (pfnOld == nullptr) {
        // A window of another process.
        Detach();
        return FALSE;
    }
    WNDPROC* const ppfnSuper = GetSuperWndProcAddr();
    if (*ppfnSuper == nullptr && pfnOld != &AfxWndProc)
        *ppfnSuper = pfnOld;
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent)
{
    const HWND hControl = ::GetDlgItem(AfxSafe(pParent), static_cast<int>(nID));
    return hControl != nullptr && SubclassWindow(hControl);
}

HWND CWnd::UnsubclassWindow()
{
    WNDPROC* const ppfnSuper = GetSuperWndProcAddr();
    if (m_hWnd != nullptr && *ppfnSuper != nullptr) {
        ::SetWindowLongPtr(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(*ppfnSuper));
        *ppfnSuper = nullptr;
    }
    return Detach();
}

namespace
{
// The system makes windows of its own while ours is made (for input methods, for instance); a mark
// put on one of those would be lost.
bool IsAwaitedClass(HWND hWnd, LPCTSTR lpszAwaited)
{
    if ((::GetClassLongPtr(hWnd, GCL_STYLE) & CS_IME) != 0)
        return false;
    if (lpszAwaited != nullptr && IS_INTRESOURCE(lpszAwaited))
        return LOWORD(::GetClassLongPtr(hWnd, GCW_ATOM)) == LOWORD(reinterpret_cast<ULONG_PTR>(lpszAwaited));
    TCHAR szClass[260];
    if (::GetClassName(hWnd, szClass, _countof(szClass)) == 0)
        return false;
    if (lpszAwaited != nullptr)
        return ::lstrcmpi(szClass, lpszAwaited) == 0;
    return ::lstrcmpi(szClass, _T("IME")) != 0 && ::lstrcmpi(szClass, _T("OleMainThreadWndClass")) != 0;
}

struct CreationStep
{
    HWND hWnd;
    CWnd* pWnd;
    bool bTaken;
};

LRESULT TakeWindow(void* pContext)
{
    CreationStep& step = *static_cast<CreationStep*>(pContext);
    if (!step.pWnd->Attach(step.hWnd))
        return -1;
    step.pWnd->PreSubclassWindow();
    const auto pfnOld = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtr(step.hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    WNDPROC* const ppfnSuper = step.pWnd->GetSuperWndProcAddr();
    if (pfnOld != &AfxWndProc)
        *ppfnSuper = pfnOld;
    step.bTaken = true;
    return 0;
}

LRESULT CALLBACK CreationHook(int nCode, WPARAM wParam, LPARAM lParam)
{
    AfxWindowState& state = AfxGetWindowState();
    const HWND hWnd = reinterpret_cast<HWND>(wParam);
    if (nCode == HCBT_CREATEWND && state.pCreating != nullptr && IsAwaitedClass(hWnd, state.pszCreatingClass))
    {
        CreationStep step{hWnd, std::exchange(state.pCreating, nullptr), false};
        // An exception of PreSubclassWindow fails the creation as one of OnCreate does.
        const MSG message{hWnd, WM_CREATE, 0, 0, 0, {}};
        AfxGuardMessage(message, &TakeWindow, &step);
        if (!step.bTaken) {
            // An object that has a window already keeps that one. Any other waits again, so that who
            // creates calls PostNcDestroy: the object will not see this window's WM_NCDESTROY.
            if (step.pWnd->m_hWnd == hWnd) {
                step.pWnd->Detach();
                state.pCreating = step.pWnd;
            }
            return 1;
        }
    }
    return ::CallNextHookEx(state.hCreationHook, nCode, wParam, lParam);
}
} // namespace

void AfxHookWindowCreateOfClass(CWnd* pWnd, LPCTSTR lpszClassName)
{
    AfxWindowState& state = AfxGetWindowState();
    if (state.hCreationHook == nullptr) {
        state.hCreationHook = ::SetWindowsHookEx(WH_CBT, &CreationHook, nullptr, ::GetCurrentThreadId());
        if (state.hCreationHook == nullptr)
            AfxThrowMemoryException();
    }
    state.pCreating = pWnd;
    state.pszCreatingClass = lpszClassName;
}

void AFXAPI AfxHookWindowCreate(CWnd* pWnd)
{
    AfxHookWindowCreateOfClass(pWnd, nullptr);
}

BOOL AFXAPI AfxUnhookWindowCreate()
{
    AfxWindowState& state = AfxGetWindowState();
    if (state.hCreationHook != nullptr)
        ::UnhookWindowsHookEx(std::exchange(state.hCreationHook, nullptr));
    state.pszCreatingClass = nullptr;
    return std::exchange(state.pCreating, nullptr) == nullptr;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass == nullptr)
        cs.lpszClass = AfxGetStandardClass(AfxClassWnd);
    return TRUE;
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                    const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam)
{
    return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top,
                    rect.right - rect.left, rect.bottom - rect.top, AfxSafe(pParentWnd),
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), lpParam);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x,
                    int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam)
{
    CREATESTRUCT cs{};
    cs.dwExStyle = dwExStyle;
    cs.lpszClass = lpszClassName;
    cs.lpszName = lpszWindowName;
    cs.style = static_cast<LONG>(dwStyle);
    cs.x = x;
    cs.y = y;
    cs.cx = nWidth;
    cs.cy = nHeight;
    cs.hwndParent = hWndParent;
    cs.hMenu = nIDorHMenu;
    cs.hInstance = AfxGetInstanceHandle();
    cs.lpCreateParams = lpParam;
    if (!PreCreateWindow(cs)) {
        PostNcDestroy();
        return FALSE;
    }

    AfxHookWindowCreateOfClass(this, cs.lpszClass);
    const HWND hWnd =
        ::CreateWindowEx(cs.dwExStyle, cs.lpszClass, cs.lpszName, static_cast<DWORD>(cs.style), cs.x, cs.y,
                         cs.cx, cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
    // A window that came as far as the hook ends with WM_NCDESTROY, which calls PostNcDestroy itself; the
    // object may be gone by now.
    if (!AfxUnhookWindowCreate())
        PostNcDestroy();
    return hWnd != nullptr;
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, CCreateContext* pContext)
{
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID, pContext);
}

BOOL CWnd::DestroyWindow()
{
    if (m_hWnd == nullptr)
        return FALSE;
    const HWND hWnd = m_hWnd;
    const bool bPermanent = FromHandlePermanent(hWnd) == this;
    const BOOL bDestroyed = ::DestroyWindow(hWnd);
    // A window whose messages we do not take goes without our hearing of it. Otherwise the object may be
    // gone by now, so the map is asked and not the object.
    if (bDestroyed && bPermanent && FromHandlePermanent(hWnd) == this)
        Detach();
    return bDestroyed;
}

void CWnd::OnNcDestroy()
{
    CWinThread* const pThread = AfxGetThread();
    if (pThread != nullptr && pThread->m_pMainWnd == this) {
        pThread->m_pMainWnd = nullptr;
        AfxPostQuitMessage(0);
    }
    if (pThread != nullptr && pThread->m_pActiveWnd == this)
        pThread->m_pActiveWnd = nullptr;

    AfxWindowState& state = AfxGetWindowState();
    if (state.hLastHit == m_hWnd)
        CancelToolTips();

    // The subclassed procedure sees the message, then gets its window back, unless somebody subclassed
    // once more in between.
    const LONG_PTR pfnBefore = ::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC);
    Default();
    WNDPROC* const ppfnSuper = GetSuperWndProcAddr();
    if (::GetWindowLongPtr(m_hWnd, GWLP_WNDPROC) == pfnBefore && *ppfnSuper != nullptr)
        ::SetWindowLongPtr(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(*ppfnSuper));
    *ppfnSuper = nullptr;
    Detach();
    PostNcDestroy();
}

void CWnd::PostNcDestroy() {}
