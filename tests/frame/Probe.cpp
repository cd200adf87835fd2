// A DLL that tests load under several names and from several folders.
#include <windows.h>

extern "C" __declspec(dllexport) int ProbeAnswer()
{
    return 42;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID)
{
    return TRUE;
}
