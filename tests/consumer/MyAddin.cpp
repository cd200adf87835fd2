#include "VelmUtil22.h"
#include <afxdllx.h>

#include "resource.h"

static_assert(VELMUTIL_VERSION >= 220000);

static AFX_EXTENSION_MODULE module = {};

extern "C" int APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH && AfxInitExtensionModule(module, instance))
        new CDynLinkLibrary(module);
    if (reason == DLL_PROCESS_DETACH)
        AfxTermExtensionModule(module);
    return 1;
}

extern "C" __declspec(dllexport) int AddInStart()
{
    wchar_t name[] = L"MyAddin.arx";
    Append_MenuToolBar(IDR_MENUS, L"XML", name);
    return 0;
}
