#include "kit/Script.h"

#include "kit/Pump.h"

#include <gtest/gtest.h>

namespace testkit
{

thread_local Script* Script::s_running = nullptr;

Script::~Script()
{
    Stop();
}

void Script::Start(unsigned milliseconds)
{
    if (s_running) {
        ADD_FAILURE() << "Another script runs on this thread";
        m_gaveUp = true;
        return;
    }
    s_running = this;
    m_end = GetTickCount64() + milliseconds;
    m_timer = SetTimer(nullptr, 0, 10, OnTimer);
}

bool Script::Finish()
{
    if (!m_timer && !m_gaveUp && !IsDone()) {
        Start();
    }
    while (!m_gaveUp && !IsDone()) {
        PumpUntil([this] { return m_gaveUp || IsDone(); }, 1000);
    }
    Stop();
    PumpPending();
    return IsDone();
}

void CALLBACK Script::OnTimer(HWND, UINT, UINT_PTR, DWORD)
{
    if (s_running) {
        s_running->Tick();
    }
}

void Script::Tick()
{
    if (m_inStep) {
        return; // a step that handles messages itself
    }
    m_inStep = true;
    try {
        if (m_steps[m_next]()) {
            ++m_next;
        }
    } catch (...) {
        ADD_FAILURE() << "A step of a script threw an exception";
        m_gaveUp = true;
    }
    m_inStep = false;
    if (!IsDone() && GetTickCount64() >= m_end) {
        m_gaveUp = true;
        EndMenu();
        ReleaseCapture();
    }
    if (IsDone() || m_gaveUp) {
        Stop();
    }
}

void Script::Stop()
{
    if (m_timer) {
        KillTimer(nullptr, m_timer);
        m_timer = 0;
    }
    if (s_running == this) {
        s_running = nullptr;
    }
}

} // namespace testkit
