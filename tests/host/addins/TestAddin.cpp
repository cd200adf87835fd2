// Add-ins that behave well and badly, one for each setting of the macros:
//   ADDIN_NAME     the name under which start and stop are told to the program
//   ADDIN_START    what AddInStart does then
//   ADDIN_STOP     what AddInStop does then
//   ADDIN_COMMAND  what AddInCommand does with `word` then; where it is not set there is none
#include <windows.h>

#include <stdexcept>

namespace
{

// The program may export a function that wants to know.
void Tell(const char* event)
{
    using Record = void(const char* addin, const char* event);
    const auto record = reinterpret_cast<Record*>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(nullptr), "RecordAddinEvent")));
    if (record)
        record(ADDIN_NAME, event);
}

} // namespace

extern "C" __declspec(dllexport) int AddInStart()
{
    Tell("start");
    ADDIN_START;
}

extern "C" __declspec(dllexport) void AddInStop()
{
    Tell("stop");
    ADDIN_STOP;
}

#ifdef ADDIN_COMMAND
extern "C" __declspec(dllexport) int AddInCommand(const wchar_t* word)
{
    char event[40] = "command ";
    ::WideCharToMultiByte(CP_ACP, 0, word, -1, event + 8, 32, nullptr, nullptr);
    Tell(event);
    ADDIN_COMMAND;
}
#endif
