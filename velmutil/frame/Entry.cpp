#include <afxwin.h>
#include <afxdllx.h>

namespace
{

AFX_EXTENSION_MODULE velmUtilModule = {};

// The chain of extension libraries owns the object from here on. A failed allocation does not fail
// the load: the library then works, only its resources are not found through the chain.
void JoinLibraryChain()
{
    try {
        new CDynLinkLibrary(velmUtilModule, FALSE);
    } catch (CMemoryException* e) {
        e->Delete();
    }
}

} // namespace

// Called by the module loader. Makes the library known to MFC as an extension module, so that its
// resources and run-time classes are found through the program's chain of libraries.
extern "C" int APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    switch (reason) {
    case DLL_PROCESS_ATTACH:
        if (!AfxInitExtensionModule(velmUtilModule, instance))
            return 0;
        JoinLibraryChain();
        break;
    case DLL_PROCESS_DETACH:
        AfxTermExtensionModule(velmUtilModule, FALSE);
        break;
    }
    return 1;
}
