// A window that shows the library's controls at work; Options.cpp tells what the command line may say.
#include <afxwin.h>

#include <shellapi.h>

#include <string>
#include <vector>

#include "GalleryFrame.h"
#include "Options.h"

#include "shell/Console.h"

namespace
{

std::vector<std::wstring> Arguments()
{
    int count = 0;
    wchar_t** const arguments = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    const std::vector<std::wstring> result(arguments + 1, arguments + count);
    ::LocalFree(arguments);
    return result;
}

class CGalleryApp : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        m_isComReady = CWinApp::InitInstance() && SUCCEEDED(::CoInitialize(nullptr));
        if (!m_isComReady)
            return FALSE;
        const INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_TAB_CLASSES};
        ::InitCommonControlsEx(&controls);
        GalleryOptions options;
        if (!ReadOptions(Arguments(), options)) {
            velmhost::PrintError(GalleryUsage);
            m_hasFailed = true;
            return FALSE;
        }
        const auto frame = new CGalleryFrame(options);
        m_pMainWnd = frame;
        const auto background = reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_BTNFACE + 1));
        const LPCTSTR windowClass = AfxRegisterWndClass(0, ::LoadCursor(nullptr, IDC_ARROW), background,
                                                        ::LoadIcon(nullptr, IDI_APPLICATION));
        const CRect place(CPoint(40, 40), CSize(960, 600));
        if (!frame->Create(windowClass, L"VelmUtil22 gallery", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, place))
        {
            m_pMainWnd = nullptr;
            m_hasFailed = true;
            return FALSE;
        }
        frame->ShowWindow(SW_SHOW);
        frame->UpdateWindow();
        return TRUE;
    }

    int ExitInstance() override
    {
        if (m_isComReady)
            ::CoUninitialize();
        const int code = CWinApp::ExitInstance();
        return m_hasFailed || CGalleryFrame::ExitCode() != 0 ? 1 : code;
    }

private:
    bool m_isComReady = false;
    bool m_hasFailed = false;
};

CGalleryApp theApp;

} // namespace
