// Runs one of the failing tests.
#pragma once

#include "ChildEnvironment.h"
#include "kit/ChildProgram.h"
#include "kit/Files.h"

#include <string>

// `test`: the name after the suite Failing, or with another suite's name in front. A program that ended
// before its test began says nothing about what is to be shown, and is started once more: on a machine short
// of memory or processes Wine lets a start fail, and then gives 0 as the exit code.
//
// Wine's checks of its heaps, which the checked build's tests run with, make the reading of symbols ten times
// as slow; they are off in the program, but for those who ask for them by `wineDebug`.
inline testkit::ProgramResult RunFailing(const std::wstring& test,
                                         const std::wstring& watchdogSeconds = L"30",
                                         const wchar_t* wineDebug = L"-all")
{
    const ChildEnvironment checks(L"WINEDEBUG", wineDebug);
    const std::wstring name = test.find(L'.') == std::wstring::npos ? L"Failing." + test : test;
    const auto run = [&] {
        return testkit::RunProgram(testkit::ProgramFolder() / L"kit_failing.exe",
                                   {L"--gtest_filter=" + name, L"--velm-watchdog=" + watchdogSeconds});
    };
    testkit::ProgramResult result = run();
    if (result.exitCode == 0 && result.output.find("[ RUN      ]") == std::string::npos) {
        result = run();
    }
    return result;
}
