// The credits window as its random use holds it: with its state open, its timers noted and its handles known.
#pragma once

#include <VelmUtil22.h>

#include <functional>
#include <map>
#include <string>

#include "kit/ReplacedImports.h"

namespace randomplay
{

// With what may happen around a tick.
class OpenCredits : public CMatrixCredits
{
public:
    using CMatrixCredits::OnTimer;

    using CMatrixCredits::m_arrLinePos;
    using CMatrixCredits::m_arrPhase;
    using CMatrixCredits::m_bmpBackground;
    using CMatrixCredits::m_bmpComposite;
    using CMatrixCredits::m_chCursor;
    using CMatrixCredits::m_dcBackground;
    using CMatrixCredits::m_dcComposite;
    using CMatrixCredits::m_font;
    using CMatrixCredits::m_nActiveColumns;
    using CMatrixCredits::m_nActiveSpins;
    using CMatrixCredits::m_nCellHeight;
    using CMatrixCredits::m_nCellWidth;
    using CMatrixCredits::m_nColumns;
    using CMatrixCredits::m_nCurLine;
    using CMatrixCredits::m_nCursorCol;
    using CMatrixCredits::m_nCursorRow;
    using CMatrixCredits::m_nFirstLine;
    using CMatrixCredits::m_nLastLine;
    using CMatrixCredits::m_nPagePause;
    using CMatrixCredits::m_nRows;
    using CMatrixCredits::m_nSpinCount;
    using CMatrixCredits::m_pColumns;
    using CMatrixCredits::m_pSpins;
    using CMatrixCredits::m_strCurText;

    std::function<void(bool isBefore)> aroundTimer;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

using TimerPeriods = std::map<UINT_PTR, UINT>;

// While an object lives, the timers that the library asks for are noted and do not run: ticks come from the
// steps alone. One at a time.
class CreditsTimers
{
public:
    CreditsTimers();
    ~CreditsTimers() { s_current = nullptr; }

    const TimerPeriods& Running() const { return m_running; }
    // The window that had them is gone.
    void Clear() { m_running.clear(); }
    // Of which window the last one was.
    HWND Window() const { return m_window; }

private:
    static UINT_PTR WINAPI Set(HWND window, UINT_PTR id, UINT period, TIMERPROC function);
    static BOOL WINAPI Kill(HWND window, UINT_PTR id);

    static CreditsTimers* s_current;
    CReplacedImport m_set, m_kill;
    TimerPeriods m_running;
    HWND m_window = nullptr;
};

// What the object holds of GDI.
struct CreditsHandles
{
    HGDIOBJ font = nullptr, composite = nullptr, background = nullptr;
    HGDIOBJ compositeDc = nullptr, backgroundDc = nullptr;

    CreditsHandles() = default;
    explicit CreditsHandles(OpenCredits& credits);
    // None of these lives any more, unless it is among the new ones.
    std::string CheckGivenBack(const CreditsHandles& now) const;
    // All there are and hang together, or there are none.
    std::string CheckThere(bool isExpected) const;
};

} // namespace randomplay
