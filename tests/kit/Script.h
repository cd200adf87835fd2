// A sequence of steps that goes on inside other code's message loops: menus, scroll bars, drags, dialogs.
#pragma once

#include "kit/Platform.h"

#include <functional>
#include <vector>

namespace testkit
{

// The steps are called by a window timer of the thread, every 10 ms, so they also run while a modal loop
// of the platform has the thread. Each step is called until it returns true; then the next one is taken.
// One script runs on a thread at a time.
class Script
{
public:
    using Step = std::function<bool()>;

    Script() = default;
    ~Script();
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    void Add(Step step) { m_steps.push_back(std::move(step)); }

    // Starts without waiting: for code that blocks in a modal loop, called right after.
    // After `milliseconds` the script gives up: it ends menus and mouse capture of the thread, so that a
    // modal loop of them returns.
    void Start(unsigned milliseconds = 10000);

    // Handles messages until the script is done; starts it if Start was not called. True if all steps
    // came to their end.
    bool Finish();

    bool IsDone() const { return m_next == m_steps.size(); }

private:
    static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time);
    void Tick();
    void Stop();

    static thread_local Script* s_running;

    std::vector<Step> m_steps;
    size_t m_next = 0;
    UINT_PTR m_timer = 0;
    ULONGLONG m_end = 0;
    bool m_inStep = false;
    bool m_gaveUp = false;
};

} // namespace testkit
