#include "kit/Endings.h"

#include "kit/CurrentTest.h"
#include "kit/HeapChecks.h"
#include "kit/Stack.h"

#include <csignal>
#include <cstdio>
#include <exception>
#include <string>

namespace testkit
{
namespace
{

const char* NameOf(DWORD code)
{
    switch (code) {
    case EXCEPTION_ACCESS_VIOLATION:
        return "access violation";
    case EXCEPTION_ILLEGAL_INSTRUCTION:
        return "illegal instruction (also what a check of undefined behaviour ends in)";
    case EXCEPTION_PRIV_INSTRUCTION:
        return "privileged instruction";
    case EXCEPTION_INT_DIVIDE_BY_ZERO:
        return "integer division by zero";
    case EXCEPTION_INT_OVERFLOW:
        return "integer overflow";
    case EXCEPTION_STACK_OVERFLOW:
        return "stack overflow";
    case EXCEPTION_BREAKPOINT:
        return "breakpoint";
    case EXCEPTION_GUARD_PAGE:
        return "guard page";
    case EXCEPTION_IN_PAGE_ERROR:
        return "page could not be read";
    case EXCEPTION_DATATYPE_MISALIGNMENT:
        return "misaligned access";
    default:
        return "exception";
    }
}

// With the address that it is about.
bool IsAccessViolation(const EXCEPTION_RECORD& record)
{
    return record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION && record.NumberParameters >= 2;
}

LONG WINAPI ReportCrash(EXCEPTION_POINTERS* exception)
{
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    char text[400];
    std::snprintf(text, sizeof text, "\nCRASH in test %s: %s 0x%08lx at %p", CurrentTest(),
                  NameOf(record.ExceptionCode), static_cast<unsigned long>(record.ExceptionCode),
                  record.ExceptionAddress);
    WriteLastWords(text);
    if (IsAccessViolation(record)) {
        const ULONG_PTR kind = record.ExceptionInformation[0];
        std::snprintf(text, sizeof text, ", %s of 0x%llx",
                      kind == 0   ? "read"
                      : kind == 1 ? "write"
                                  : "execution",
                      static_cast<unsigned long long>(record.ExceptionInformation[1]));
        WriteLastWords(text);
    }
    WriteLastWords("\n");
    void* frames[80];
    const size_t count = WalkStack(*exception->ContextRecord, frames);
    WriteLastWords(DescribeStack({frames, count}, false));
    if (IsAccessViolation(record)) {
        WriteLastWords(DescribeGuardedAddress(record.ExceptionInformation[1]));
    }
    EndProcess(ExitCrash);
}

// Asked before all handlers.
LONG WINAPI ReportGuardedAccess(EXCEPTION_POINTERS* exception)
{
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    GuardHeap* const heap = ActiveGuardHeap();
    if (heap && IsAccessViolation(record) && heap->Contains(record.ExceptionInformation[1])) {
        return ReportCrash(exception);
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

[[noreturn]] void ReportTerminate()
{
    std::string what = "no exception";
    if (std::current_exception()) {
        try {
            throw;
        } catch (const std::exception& exception) {
            what = exception.what();
        } catch (...) {
            what = "an exception of another type than std::exception";
        }
    }
    WriteLastWords("\nTERMINATE in test " + std::string(CurrentTest()) + ": " + what + "\n");
    WriteLastWords(DescribeStack(CaptureStack()));
    EndProcess(ExitTerminate);
}

// abort: also where the library's assertions end.
void ReportAbort(int)
{
    WriteLastWords("\nABORT in test " + std::string(CurrentTest()) + "\n");
    WriteLastWords(DescribeStack(CaptureStack()));
    EndProcess(ExitTerminate);
}

} // namespace

void WriteLastWords(std::string_view text)
{
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written,
              nullptr);
}

void EndProcess(unsigned exitCode)
{
    for (;;) { // the call does not return for the own process, but does not say so
        TerminateProcess(GetCurrentProcess(), exitCode);
    }
}

void InstallCrashReporters()
{
    SetUnhandledExceptionFilter(ReportCrash);
    AddVectoredExceptionHandler(1, ReportGuardedAccess);
    std::set_terminate(ReportTerminate);
    std::signal(SIGABRT, ReportAbort);
}

} // namespace testkit
