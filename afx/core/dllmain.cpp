#include "state.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved)
{
    switch (reason) {
    case DLL_PROCESS_ATTACH:
        AfxProcessAttach(instance);
        break;
    case DLL_PROCESS_DETACH:
        AfxProcessDetach(reserved != NULL);
        break;
    case DLL_THREAD_DETACH:
        AfxThreadDetach();
        break;
    default:
        break;
    }
    return TRUE;
}
