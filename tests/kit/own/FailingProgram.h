// Runs one of the failing tests.
#pragma once

#include "kit/ChildProgram.h"
#include "kit/Files.h"

#include <string>

// `test`: the name after the suite Failing, or with another suite's name in front.
inline testkit::ProgramResult RunFailing(const std::wstring& test,
                                         const std::wstring& watchdogSeconds = L"30")
{
    const std::wstring name = test.find(L'.') == std::wstring::npos ? L"Failing." + test : test;
    return testkit::RunProgram(testkit::ProgramFolder() / L"kit_failing.exe",
                               {L"--gtest_filter=" + name, L"--velm-watchdog=" + watchdogSeconds});
}
