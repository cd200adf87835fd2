// Drives a credits window by a clock of its own instead of the real one, so that the same random numbers
// give the same pictures, however fast the computer is.
#pragma once

#include <optional>

#include "VelmUtil22.h"

class CCreditsClock
{
public:
    // From here on none of the window's timers runs of itself. Times are in milliseconds.
    CCreditsClock(CMatrixCredits& credits, int startDelay, int pagePause);

    void Advance(int milliseconds);

private:
    static constexpr int TimerCount = 5;
    static constexpr UINT_PTR PageTimer = 0;

    bool TakeOver(UINT_PTR timer);
    int PeriodOf(UINT_PTR timer) const;
    void TickOf(UINT_PTR timer);

    CMatrixCredits& m_credits;
    int m_now = 0;
    int m_pageDelay;
    int m_pagePause;
    std::optional<int> m_due[TimerCount];
};
