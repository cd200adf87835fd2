#include "CreditsClock.h"

namespace
{

constexpr int Resolution = 10;
// The window's timers by number: page, text, cursor, rain, flickering letters.
constexpr int Periods[] = {0, 10, 40, 80, 10};

} // namespace

CCreditsClock::CCreditsClock(CMatrixCredits& credits, int startDelay, int pagePause)
    : m_credits(credits), m_pageDelay(startDelay), m_pagePause(pagePause)
{
    for (UINT_PTR timer = 0; timer < TimerCount; ++timer)
        TakeOver(timer);
}

// Whether the window has started the timer and not ended it. It never runs out then: only this clock ticks.
bool CCreditsClock::TakeOver(UINT_PTR timer)
{
    const bool isRunning = m_credits.KillTimer(timer) != FALSE;
    if (isRunning)
        m_credits.SetTimer(timer, USER_TIMER_MAXIMUM, nullptr);
    if (!isRunning)
        m_due[timer].reset();
    else if (!m_due[timer])
        m_due[timer] = m_now + PeriodOf(timer);
    return isRunning;
}

int CCreditsClock::PeriodOf(UINT_PTR timer) const
{
    return timer == PageTimer ? m_pageDelay : Periods[timer];
}

void CCreditsClock::TickOf(UINT_PTR timer)
{
    m_due[timer] = m_now + PeriodOf(timer);
    m_credits.SendMessage(WM_TIMER, timer);
    if (timer == PageTimer)
        m_pageDelay = m_pagePause;
    TakeOver(timer);
}

void CCreditsClock::Advance(int milliseconds)
{
    for (const int end = m_now + milliseconds; m_now < end;) {
        m_now += Resolution;
        for (UINT_PTR timer = 0; timer < TimerCount; ++timer) {
            if (TakeOver(timer) && *m_due[timer] <= m_now)
                TickOf(timer);
        }
    }
}
