// Timers and hooks that the modules under test have set and not ended.
#pragma once

namespace lifecycle
{

// Puts counting functions in the place of SetTimer, KillTimer, SetWindowsHookEx and UnhookWindowsHookEx in
// all modules under test that are loaded, for good. What was set before is not counted.
void StartCountingUserCalls();

// A timer ends with its window, too.
long long CountTimers();
long long CountHooks();

} // namespace lifecycle
