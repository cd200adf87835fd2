// How a test program ends when it cannot end well, and where the last words go.
#pragma once

#include <string_view>

namespace testkit
{

// Exit codes apart from GoogleTest's 0 and 1.
constexpr unsigned ExitCrash = 70;      // an exception of the processor that nobody handled
constexpr unsigned ExitHang = 71;       // the watchdog's limit was exceeded
constexpr unsigned ExitTerminate = 72;  // std::terminate, std::abort
constexpr unsigned ExitHeapMisuse = 73; // see HeapChecks.h

// Writes to the standard output without the run-time library's buffers and locks.
void WriteLastWords(std::string_view text);

// Ends the process at once, running no more code of it (TerminateProcess).
[[noreturn]] void EndProcess(unsigned exitCode);

// Installs the reporters of crashes: an unhandled-exception filter, which is asked only when no handler
// of the program took the exception, and handlers of std::terminate and of SIGABRT. They print what
// happened, the running test and the thread's stack, and end the process. An access to what the guard heap
// closed ends it before any handler is asked: the platform has handlers that go on as if nothing were. A
// stack overflow is beyond them: the platform ends the process. Called once by the kit's main.
void InstallCrashReporters();

} // namespace testkit
