#include "TimerWatch.h"

#include <algorithm>

#include "CallWatch.h"
#include "kit/ImportTable.h"

TimerWatch* TimerWatch::s_current = nullptr;

TimerWatch::TimerWatch()
{
    static const bool isInstalled = [] {
        testkit::ForEachLoadedModuleUnderTest([](HMODULE module) {
            const testkit::ImportReplacement replacements[] = {
                {"user32.dll", "SetTimer", reinterpret_cast<void*>(&TimerWatch::Set)},
                {"user32.dll", "KillTimer", reinterpret_cast<void*>(&TimerWatch::Kill)}};
            testkit::ReplaceImports(module, replacements);
        });
        return true;
    }();
    static_cast<void>(isInstalled);
    m_calls.reserve(64);
    s_current = this;
}

TimerWatch::~TimerWatch()
{
    s_current = nullptr;
}

UINT_PTR WINAPI TimerWatch::Set(HWND window, UINT_PTR id, UINT period, TIMERPROC function)
{
    // Not by its imported name, which leads here.
    static const auto original = reinterpret_cast<decltype(&::SetTimer)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetTimer")));
    if (s_current == nullptr || function != nullptr)
        return original(window, id, period, function);
    s_current->m_calls.push_back({true, id, period, window});
    CallWatch::Add({Call::StartTimer, window, nullptr, static_cast<int>(id)});
    return id != 0 ? id : 1;
}

BOOL WINAPI TimerWatch::Kill(HWND window, UINT_PTR id)
{
    static const auto original = reinterpret_cast<decltype(&::KillTimer)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "KillTimer")));
    if (s_current == nullptr)
        return original(window, id);
    s_current->m_calls.push_back({false, id, 0, window});
    return TRUE;
}

void TickClock::Note(const std::vector<TimerCall>& calls)
{
    for (const TimerCall& call : calls) {
        if (!call.isStart) {
            m_running.erase(call.id);
            continue;
        }
        const unsigned long long period =
            std::clamp<UINT>(call.period, USER_TIMER_MINIMUM, USER_TIMER_MAXIMUM);
        m_running[call.id] = {period, m_now + period};
    }
}

UINT_PTR TickClock::Next()
{
    const auto turn = std::min_element(m_running.begin(), m_running.end(), [](const auto& a, const auto& b) {
        return a.second.next < b.second.next;
    });
    m_now = turn->second.next;
    turn->second.next += turn->second.period;
    return turn->first;
}
