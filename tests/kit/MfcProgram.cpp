#include "kit/Program.h"

namespace testkit
{

bool StartProgram()
{
    if (!AfxGetApp()) {
        static CWinApp app;
    }
    return AfxWinInit(::GetModuleHandle(nullptr), nullptr, ::GetCommandLine(), 0) != FALSE;
}

void HandleMessage(MSG& message)
{
    CWinThread* thread = AfxGetThread();
    if (!thread || !thread->PreTranslateMessage(&message)) {
        TranslateMessage(&message);
        DispatchMessage(&message);
    }
}

void DropTemporaries()
{
    // With a count of 1 the framework's own idle handler deletes temporary objects.
    if (CWinApp* app = AfxGetApp()) {
        app->CWinApp::OnIdle(1);
    }
}

void WarmUpProgram()
{
    CWnd window;
    if (window.CreateEx(0, _T("Static"), _T("warm-up"), WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0)) {
        CClientDC dc(&window);
        CFont* font = CFont::FromHandle(static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT)));
        dc.SelectObject(dc.SelectObject(font));
        CWnd::FromHandle(::GetDesktopWindow());
        window.SendMessage(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(_T("")));
    }
    window.DestroyWindow();
    DropTemporaries();
}

} // namespace testkit
