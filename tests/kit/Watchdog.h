// The watchdog of a test program: a thread that ends the program when a test takes too long, after
// printing what every thread of it was doing.
#pragma once

#include <string>

namespace testkit
{

// Seconds that each test may take, unless the command line says --velm-watchdog=SECONDS. These and all others
// count fourfold with a guard heap (see HeapChecks.h), which makes allocations slow.
constexpr unsigned DefaultWatchdogSeconds = 60;

// Starts the watchdog's thread. From then on the time runs, for a test and as well for what is between
// tests and after them. `seconds` 0: no watchdog. Called once by the kit's main.
void StartWatchdog(unsigned seconds);

// Starts the time anew: called at the beginning and the end of each test.
void RestartWatchdog();

// Gives the running test `seconds` from now, instead of what is left of the usual limit.
void AllowTime(unsigned seconds);

} // namespace testkit
