// What the tests of the credits window share.
#pragma once

#include <VelmUtil22.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "CreditsModel.h"
#include "CreditsPainter.h"
#include "TimerWatch.h"

// A credits window with its protected members open to the tests.
class OpenCredits : public CMatrixCredits
{
public:
    using CMatrixCredits::GetMessageMap;
    using CMatrixCredits::OnTimer;

    using CMatrixCredits::m_arrLinePos;
    using CMatrixCredits::m_arrLines;
    using CMatrixCredits::m_arrPhase;
    using CMatrixCredits::m_bCursor;
    using CMatrixCredits::m_bmpBackground;
    using CMatrixCredits::m_bmpComposite;
    using CMatrixCredits::m_chCursor;
    using CMatrixCredits::m_chMaxChar;
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
    using CMatrixCredits::m_nDefaultPause;
    using CMatrixCredits::m_nFirstLine;
    using CMatrixCredits::m_nLastLine;
    using CMatrixCredits::m_nMaxPhaseCount;
    using CMatrixCredits::m_nPagePause;
    using CMatrixCredits::m_nRows;
    using CMatrixCredits::m_nSpinCount;
    using CMatrixCredits::m_nStartDelay;
    using CMatrixCredits::m_pColumns;
    using CMatrixCredits::m_pOldBmpBackground;
    using CMatrixCredits::m_pOldBmpComposite;
    using CMatrixCredits::m_pOldFontBackground;
    using CMatrixCredits::m_pOldFontComposite;
    using CMatrixCredits::m_pSpins;
    using CMatrixCredits::m_strCurText;

    static const AFX_MSGMAP* BaseMap() { return CWnd::GetThisMessageMap(); }

    int erasings = 0;
    // Called by the default of a timer's message.
    std::function<void(UINT_PTR id)> onDefault;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_TIMER && onDefault)
            onDefault(wParam);
        return CMatrixCredits::DefWindowProc(message, wParam, lParam);
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_ERASEBKGND)
            ++erasings;
        return CMatrixCredits::WindowProc(message, wParam, lParam);
    }
};

// The first difference between a window's state and the model's; empty if there is none.
std::string Difference(OpenCredits& credits, const CreditsModel& model);

// A visible parent; timers are noted and do not run.
class CreditsTest : public testing::Test
{
protected:
    void SetUp() override;
    // The windows go before the objects, as in a program.
    void TearDown() override;

    // Adds the lines and sets the options.
    static void Prepare(OpenCredits& credits, const CreditsOptions& options);
    // Creates the window so that its client area has that size.
    BOOL Create(OpenCredits& credits, CSize client, DWORD style = WS_CHILD | WS_VISIBLE);
    // Both of it with the test's own window, in a client area of so many cells.
    void Make(const CreditsOptions& options, int columns = 20, int rows = 10);

    static void Tick(OpenCredits& credits, UINT_PTR id) { credits.SendMessage(WM_TIMER, id); }
    void Tick(UINT_PTR id, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            Tick(m_credits, id);
    }
    // Ticks of text and cursor until the page is complete; false if that never happens.
    bool FinishPage();
    // Timer 1 has been ended.
    bool HasFinishedPage() const;

    CSize Cells(int columns, int rows) const
    {
        return CSize((columns - 1) * m_font.CellWidth(), (rows - 1) * m_font.CellHeight());
    }
    std::wstring Text() { return m_credits.m_strCurText.GetString(); }

    CellFont m_font;
    TimerWatch m_timers;
    CWnd m_parent;
    OpenCredits m_credits;
};

// Lets a window and a model do the same tick with the same random numbers.
class SameTicks
{
public:
    SameTicks(OpenCredits& credits, CreditsModel& model, TimerWatch& timers, unsigned seed)
        : m_credits(credits), m_model(model), m_timers(timers), m_seed(seed)
    {
    }

    // Fails when they differ afterwards, in state, timers or the number of random numbers.
    testing::AssertionResult operator()(UINT_PTR id);

private:
    OpenCredits& m_credits;
    CreditsModel& m_model;
    TimerWatch& m_timers;
    unsigned m_seed;
    int m_count = 0;
};

// Whether a step raises MFC's exception for invalid arguments.
template <class Step>
bool RaisesInvalidArgument(Step step)
{
    try {
        step();
    } catch (CInvalidArgException* exception) {
        exception->Delete();
        return true;
    }
    return false;
}
