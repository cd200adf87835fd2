// Loads one file with CXMLFile and tells what that took: hostile_load FILE [text]
// Prints "loaded" or "refused" and the most memory that the process had, in bytes; with "text" the document
// is also asked for as text.
#include <VelmUtil22.h>

#include <cstdio>
#include <cstring>

#include <psapi.h>

extern "C" int wmain(int count, wchar_t** arguments)
{
    if (count < 2 || !AfxWinInit(GetModuleHandleW(nullptr), nullptr, GetCommandLineW(), 0) ||
        FAILED(CoInitialize(nullptr)))
        return 2;
    {
        CXMLFile file(arguments[1]);
        const bool isLoaded = file.LoadFile();
        if (count > 2 && file.GetXMLFileInString().IsEmpty())
            return 3;
        PROCESS_MEMORY_COUNTERS memory{};
        K32GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
        std::printf("%s %llu\n", isLoaded ? "loaded" : "refused",
                    static_cast<unsigned long long>(memory.PeakWorkingSetSize));
    }
    CoUninitialize();
    return 0;
}
