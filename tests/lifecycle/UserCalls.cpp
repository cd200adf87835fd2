#include "UserCalls.h"

#include "PlatformFunction.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "kit/BlockTable.h"
#include "kit/ImportTable.h"

namespace lifecycle
{
namespace
{

using Timer = std::pair<HWND, UINT_PTR>;

// Their own memory is not to be counted.
template <class T>
using List = std::vector<T, testkit::BlockTableAllocator<T>>;

List<Timer>& Timers()
{
    static List<Timer> timers;
    return timers;
}

List<HHOOK>& Hooks()
{
    static List<HHOOK> hooks;
    return hooks;
}

UINT_PTR WINAPI NoteTimer(HWND window, UINT_PTR id, UINT period, TIMERPROC function)
{
    static const auto original = PlatformFunction<decltype(::SetTimer)>("user32.dll", "SetTimer");
    const UINT_PTR result = original(window, id, period, function);
    // Without a window the number is the system's.
    const Timer timer(window, window ? id : result);
    if (result && std::find(Timers().begin(), Timers().end(), timer) == Timers().end())
        Timers().push_back(timer);
    return result;
}

BOOL WINAPI ForgetTimer(HWND window, UINT_PTR id)
{
    static const auto original = PlatformFunction<decltype(::KillTimer)>("user32.dll", "KillTimer");
    std::erase(Timers(), Timer(window, id));
    return original(window, id);
}

HHOOK WINAPI NoteHook(int kind, HOOKPROC function, HINSTANCE module, DWORD thread)
{
    static const auto original =
        PlatformFunction<decltype(::SetWindowsHookExW)>("user32.dll", "SetWindowsHookExW");
    const HHOOK hook = original(kind, function, module, thread);
    if (hook)
        Hooks().push_back(hook);
    return hook;
}

BOOL WINAPI ForgetHook(HHOOK hook)
{
    static const auto original =
        PlatformFunction<decltype(::UnhookWindowsHookEx)>("user32.dll", "UnhookWindowsHookEx");
    std::erase(Hooks(), hook);
    return original(hook);
}

void Replace(HMODULE module)
{
    static const testkit::ImportReplacement replacements[] = {
        {"user32.dll", "SetTimer", reinterpret_cast<void*>(&NoteTimer)},
        {"user32.dll", "KillTimer", reinterpret_cast<void*>(&ForgetTimer)},
        {"user32.dll", "SetWindowsHookExW", reinterpret_cast<void*>(&NoteHook)},
        {"user32.dll", "UnhookWindowsHookEx", reinterpret_cast<void*>(&ForgetHook)},
    };
    testkit::ReplaceImports(module, replacements);
}

} // namespace

void StartCountingUserCalls()
{
    testkit::ForEachLoadedModuleUnderTest(&Replace);
}

long long CountTimers()
{
    std::erase_if(Timers(), [](const Timer& timer) { return timer.first && !::IsWindow(timer.first); });
    return static_cast<long long>(Timers().size());
}

long long CountHooks()
{
    return static_cast<long long>(Hooks().size());
}

} // namespace lifecycle
