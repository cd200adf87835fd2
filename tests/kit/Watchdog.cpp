#include "kit/Watchdog.h"

#include "kit/CurrentTest.h"
#include "kit/Endings.h"
#include "kit/HeapChecks.h"
#include "kit/Stack.h"

#include <tlhelp32.h>

#include <atomic>
#include <cstdio>

namespace testkit
{
namespace
{

unsigned g_seconds = 0;
DWORD g_mainThread = 0;
std::atomic<ULONGLONG> g_deadline{0};

// A guard heap makes all that allocates slow.
DWORD Milliseconds(unsigned seconds)
{
    return seconds * (ActiveGuardHeap() ? 4000 : 1000);
}

// The report itself may hang, when a suspended or hung thread holds a lock that it needs. Then the
// process ends without the rest of it.
DWORD WINAPI EndAnyway(void*)
{
    Sleep(ActiveGuardHeap() ? 240000 : 20000); // checked heaps make the reading of symbols slow too
    WriteLastWords("\nThe report itself did not come to its end.\n");
    EndProcess(ExitHang);
}

void PrintThread(DWORD id)
{
    const HANDLE thread =
        OpenThread(THREAD_SUSPEND_RESUME | THREAD_GET_CONTEXT | THREAD_QUERY_INFORMATION, FALSE, id);
    if (!thread) {
        return;
    }
    void* frames[80];
    size_t count = 0;
    if (SuspendThread(thread) != static_cast<DWORD>(-1)) {
        CONTEXT context{};
        context.ContextFlags = CONTEXT_FULL;
        if (GetThreadContext(thread, &context)) {
            count = WalkStack(context, frames);
        }
        ResumeThread(thread); // before the text is made: that needs locks
    }
    CloseHandle(thread);
    char title[60];
    std::snprintf(title, sizeof title, "Thread 0x%lx%s:\n", static_cast<unsigned long>(id),
                  id == g_mainThread ? " (main)" : "");
    WriteLastWords(title + DescribeStack({frames, count}, false));
}

[[noreturn]] void ReportHang()
{
    char text[400];
    std::snprintf(text, sizeof text, "\nHANG in test %s: the watchdog's limit of %u s is over.\n",
                  CurrentTest(), g_seconds);
    WriteLastWords(text);
    DWORD guard = 0;
    CloseHandle(CreateThread(nullptr, 0, EndAnyway, nullptr, 0, &guard));

    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    PrintThread(g_mainThread); // first: it is the one that matters most
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry)) {
        const DWORD id = entry.th32ThreadID;
        if (entry.th32OwnerProcessID == GetCurrentProcessId() && id != GetCurrentThreadId() && id != guard &&
            id != g_mainThread)
        {
            PrintThread(id);
        }
    }
    EndProcess(ExitHang);
}

DWORD WINAPI Watch(void*)
{
    for (;;) {
        const ULONGLONG now = GetTickCount64(), deadline = g_deadline;
        if (now >= deadline) {
            if (!IsDebuggerPresent()) {
                ReportHang();
            }
            RestartWatchdog();
            continue;
        }
        // In steps, because a deadline may also be moved to an earlier time.
        Sleep(deadline - now < 100 ? static_cast<DWORD>(deadline - now) : 100);
    }
}

} // namespace

void StartWatchdog(unsigned seconds)
{
    if (seconds == 0) {
        return;
    }
    g_seconds = seconds;
    g_mainThread = GetCurrentThreadId();
    RestartWatchdog();
    // A plain thread: it lives as long as the process, and ends with it.
    CloseHandle(CreateThread(nullptr, 0, Watch, nullptr, 0, nullptr));
}

void RestartWatchdog()
{
    AllowTime(g_seconds);
}

void AllowTime(unsigned seconds)
{
    g_deadline = GetTickCount64() + Milliseconds(seconds);
}

} // namespace testkit
