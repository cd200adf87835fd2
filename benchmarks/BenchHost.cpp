// The program of the benchmarks: for the library it is the host. It offers an application object, and a
// companion library that does nothing lies beside it.

#include <afxwin.h>
#include <afxdisp.h>

#include "Bench.h"

#include <cstdio>

class CBenchApp : public CWinApp
{
public:
    CBenchApp() { EnableAutomation(); }

    // A message of the library ends the row instead of waiting for somebody to close it.
    int DoMessageBox(LPCTSTR text, UINT, UINT) override
    {
        const CStringA narrow(text);
        bench::ReportProblem("a message box: " + std::string(narrow.GetString()));
        return IDOK;
    }
};

CBenchApp theApp;

extern "C" __declspec(dllexport) CWinApp* acedGetAcadWinApp()
{
    return &theApp;
}

int main(int argc, char** argv)
{
    if (!AfxWinInit(::GetModuleHandle(nullptr), nullptr, ::GetCommandLine(), 0)) {
        std::fprintf(stderr, "MFC did not start.\n");
        return 3;
    }
    CoInitialize(nullptr);
    const int status = bench::Main(argc, argv);
    CoUninitialize();
    return status;
}
