// The companion library's entry point.
#include <afxwin.h>
#include <afxdllx.h>

static AFX_EXTENSION_MODULE CorvanUtilDLL;

extern "C" int APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(CorvanUtilDLL, instance))
            return 0;
        // The chain of extension libraries owns the object.
        new CDynLinkLibrary(CorvanUtilDLL);
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(CorvanUtilDLL);
    }
    return 1;
}
