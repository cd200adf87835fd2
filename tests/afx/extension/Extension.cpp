// An extension DLL of the tests, built twice: EXTENSION_NUMBER is 1 or 2.
#include <afxcoll.h>
#include <afxdllx.h>

static AFX_EXTENSION_MODULE extensionModule;

#if EXTENSION_NUMBER == 1

class CExtensionShape : public CObject
{
    DECLARE_DYNAMIC(CExtensionShape)
};
IMPLEMENT_DYNAMIC(CExtensionShape, CObject)

class CExtensionCircle : public CExtensionShape
{
    DECLARE_DYNCREATE(CExtensionCircle)
};
IMPLEMENT_DYNCREATE(CExtensionCircle, CExtensionShape)

class CExtensionList : public CObList
{
    DECLARE_DYNCREATE(CExtensionList)
};
IMPLEMENT_DYNCREATE(CExtensionList, CObList)

#endif

extern "C" __declspec(dllexport) BOOL IsExtensionInitialized()
{
    return extensionModule.bInitialized;
}

// Ends the module as on process detach; returns whether the record says so.
extern "C" __declspec(dllexport) BOOL EndExtension()
{
    AfxTermExtensionModule(extensionModule);
    return !extensionModule.bInitialized;
}

// Allocated here, thrown here, handled by the caller.
extern "C" __declspec(dllexport) void ThrowFromExtension()
{
    AfxThrowFileException(CFileException::diskFull, -1, L"x.txt");
}

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        if (!AfxInitExtensionModule(extensionModule, instance))
            return FALSE;
        new CDynLinkLibrary(extensionModule, FALSE);
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(extensionModule);
    }
    return TRUE;
}
