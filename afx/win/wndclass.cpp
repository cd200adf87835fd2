// Window classes.
#include "afxwin.h"
#include "win/state.h"

BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass)
{
    WNDCLASS existing;
    if (::GetClassInfo(lpWndClass->hInstance, lpWndClass->lpszClassName, &existing))
        return TRUE;
    // Another thread may have come first.
    return ::RegisterClass(lpWndClass) != 0 || ::GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground, HICON hIcon)
{
    TCHAR(&szName)[128] = AfxGetWindowState().szClassName;
    WNDCLASS traits{};
    traits.style = nClassStyle;
    traits.lpfnWndProc = &::DefWindowProc;
    traits.hInstance = AfxGetInstanceHandle();
    traits.hCursor = hCursor;
    traits.hbrBackground = hbrBackground;
    traits.hIcon = hIcon;
    // Windows with the same traits share a class, so the traits make its name.
    _sntprintf(szName, _countof(szName) - 1, _T("Afx:%p:%x:%p:%p:%p"), static_cast<void*>(traits.hInstance),
               nClassStyle, static_cast<void*>(hCursor), static_cast<void*>(hbrBackground),
               static_cast<void*>(hIcon));
    traits.lpszClassName = szName;
    if (!AfxRegisterClass(&traits))
        AfxThrowResourceException();
    return szName;
}

LPCTSTR AfxGetStandardClass(AfxStandardClass which)
{
    WNDCLASS traits{};
    traits.lpfnWndProc = &::DefWindowProc;
    traits.hInstance = AfxGetInstanceHandle();
    traits.hCursor = ::LoadCursor(nullptr, IDC_ARROW);
    switch (which) {
    case AfxClassWnd:
        traits.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
        traits.lpszClassName = _T("AfxWnd22u");
        break;
    case AfxClassFrame:
        traits.style = CS_DBLCLKS;
        traits.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
        traits.hIcon = ::LoadIcon(nullptr, IDI_APPLICATION);
        traits.lpszClassName = _T("AfxFrameOrView22u");
        break;
    }
    if (!AfxRegisterClass(&traits))
        AfxThrowResourceException();
    return traits.lpszClassName;
}
