// Notes which timers the code under test starts and ends.
#pragma once

#include "CreditsModel.h"

#include <map>
#include <vector>

// While an object of this class lives, SetTimer and KillTimer of the modules under test are noted and not
// carried out: the only ticks that come are those that a test sends. One at a time.
class TimerWatch
{
public:
    TimerWatch();
    ~TimerWatch();
    TimerWatch(const TimerWatch&) = delete;
    TimerWatch& operator=(const TimerWatch&) = delete;

    // Of all windows since the last Clear; those of no window too. Keeps its memory.
    const std::vector<TimerCall>& Calls() const { return m_calls; }
    void Clear() { m_calls.clear(); }
    // From now on timers run.
    void Stop() { s_current = nullptr; }

private:
    static UINT_PTR WINAPI Set(HWND window, UINT_PTR id, UINT period, TIMERPROC function);
    static BOOL WINAPI Kill(HWND window, UINT_PTR id);

    static TimerWatch* s_current;
    std::vector<TimerCall> m_calls;
};

// Tells which timer would tick next.
class TickClock
{
public:
    void Note(const std::vector<TimerCall>& calls);
    // The timer whose turn it is; of several the lowest. One must run.
    UINT_PTR Next();

private:
    struct Running
    {
        unsigned long long period;
        unsigned long long next;
    };
    unsigned long long m_now = 0; // in milliseconds
    std::map<UINT_PTR, Running> m_running;
};
