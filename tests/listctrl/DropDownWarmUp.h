// What the platform keeps for good once a drop-down list was open, taken before anything is counted.
#pragma once

#include <afxwin.h>

// The window class of the drop-down list has one device context, made with its first window and kept. Whether
// that was made; for the set-up of suites.
inline bool WarmUpDropDownClass()
{
    CWnd window;
    const LPCTSTR name = AfxRegisterWndClass(CS_SAVEBITS | CS_CLASSDC, ::LoadCursor(nullptr, IDC_ARROW));
    if (!window.CreateEx(0, name, L"", WS_POPUP | WS_VISIBLE | WS_BORDER, CRect(0, 0, 50, 50), nullptr, 0))
        return false;
    const CClientDC dc(&window);
    return window.DestroyWindow() != FALSE;
}
