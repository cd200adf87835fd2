// An add-in that only carries a resource.
#include <windows.h>

extern "C" __declspec(dllexport) int AddinAnswer()
{
    return 42;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID)
{
    return TRUE;
}
