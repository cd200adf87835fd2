// A window that shows the library's controls at work: gallery [--screenshot FILE]
#include <afxwin.h>

#include <shellapi.h>

#include <optional>
#include <string>
#include <vector>

#include "GalleryFrame.h"

namespace
{

std::vector<std::wstring> Arguments()
{
    int count = 0;
    wchar_t** const arguments = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    const std::vector<std::wstring> result(arguments, arguments + count);
    ::LocalFree(arguments);
    return result;
}

class CGalleryApp : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        if (!CWinApp::InitInstance() || FAILED(::CoInitialize(nullptr)))
            return FALSE;
        const std::vector<std::wstring> arguments = Arguments();
        std::wstring pictureFile;
        if (arguments.size() == 3 && arguments[1] == L"--screenshot") {
            pictureFile = arguments[2];
        } else if (arguments.size() != 1) {
            AfxMessageBox(L"Usage: gallery [--screenshot FILE]");
            return FALSE;
        }
        const auto frame = new CGalleryFrame(pictureFile);
        m_pMainWnd = frame;
        if (!frame->Create(nullptr, L"Gallery", WS_OVERLAPPEDWINDOW, CRect(40, 40, 1000, 480)))
            return FALSE;
        frame->ShowWindow(SW_SHOW);
        frame->UpdateWindow();
        return TRUE;
    }

    int ExitInstance() override
    {
        ::CoUninitialize();
        return CWinApp::ExitInstance();
    }
};

CGalleryApp theApp;

} // namespace
