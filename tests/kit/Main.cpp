// The main function of every test program.

#include "kit/Endings.h"
#include "kit/HeapTracker.h"
#include "kit/LeakGate.h"
#include "kit/Program.h"
#include "kit/WarmUp.h"
#include "kit/Watchdog.h"

#include <gmock/gmock.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace
{

constexpr std::string_view WatchdogOption = "--velm-watchdog=";

bool ReadOptions(int argc, char** argv, unsigned& watchdogSeconds)
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (!argument.starts_with(WatchdogOption)) {
            continue;
        }
        const char* const end = argument.data() + argument.size();
        const auto result = std::from_chars(argument.data() + WatchdogOption.size(), end, watchdogSeconds);
        if (result.ec != std::errc() || result.ptr != end) {
            std::fprintf(stderr, "%s: a whole number of seconds is missing, as in --velm-watchdog=60\n",
                         argv[i]);
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    testkit::InstallCrashReporters();
    testing::InitGoogleMock(&argc, argv);
    unsigned watchdogSeconds = testkit::DefaultWatchdogSeconds;
    if (!ReadOptions(argc, argv, watchdogSeconds)) {
        return 2;
    }
    testkit::StartWatchdog(watchdogSeconds);
    if (!testkit::StartProgram()) {
        std::fprintf(stderr, "MFC did not start.\n");
        return 2;
    }
    if (!GTEST_FLAG_GET(list_tests)) {
        testkit::StartHeapTracking();
        testkit::RestartWatchdog(); // with the limit that goes with it
        testkit::WarmUp();
        testkit::InstallLeakGate();
    }
    return RUN_ALL_TESTS();
}
