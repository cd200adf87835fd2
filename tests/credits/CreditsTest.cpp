#include "CreditsTest.h"

#include <algorithm>
#include <sstream>

namespace
{

class Differences
{
public:
    template <class A, class B>
    void Compare(const char* name, const A& drawn, const B& expected, long long index = -1)
    {
        if (m_isFound || drawn == expected)
            return;
        m_isFound = true;
        m_text << name;
        if (index >= 0)
            m_text << " of " << index;
        m_text << " is " << static_cast<long long>(drawn) << ", expected "
               << static_cast<long long>(expected);
    }
    bool Any() const { return m_isFound; }
    std::string Text() const { return m_text.str(); }

private:
    bool m_isFound = false;
    std::ostringstream m_text;
};

void CompareRain(Differences& result, OpenCredits& credits, const CreditsModel& model)
{
    result.Compare("the number of falling drops", credits.m_nActiveColumns, model.falling);
    for (int i = 0; i < model.columns; ++i) {
        const MatrixColumn& column = credits.m_pColumns[i];
        const CreditsModel::Drop& drop = model.drops[static_cast<size_t>(i)];
        result.Compare("bActive", column.bActive != FALSE, drop.falls, i);
        // What a drop leaves behind when it stops stays as well; before the first there is nothing.
        if (drop.end == 0)
            continue;
        result.Compare("nRow", column.nRow, drop.row, i);
        result.Compare("nEndRow", column.nEndRow, drop.end, i);
        result.Compare("ch", column.ch, drop.letter, i);
    }
}

void CompareSpins(Differences& result, OpenCredits& credits, const CreditsModel& model)
{
    result.Compare("the number of spins", credits.m_nActiveSpins, model.spinning);
    for (size_t i = 0; i < model.spins.size(); ++i) {
        const MatrixSpin& spin = credits.m_pSpins[i];
        const CreditsModel::Spin& expected = model.spins[i];
        const auto index = static_cast<long long>(i);
        result.Compare("bActive", spin.bActive != FALSE, expected.lives, index);
        result.Compare("pt.x", spin.pt.x, expected.cell.x, index);
        result.Compare("pt.y", spin.pt.y, expected.cell.y, index);
        if (!expected.lives)
            continue;
        result.Compare("nLife", spin.nLife, expected.ticks, index);
        result.Compare("ch", spin.ch, expected.letter, index);
    }
}

void CompareText(Differences& result, OpenCredits& credits, const CreditsModel& model)
{
    result.Compare("m_nFirstLine", credits.m_nFirstLine, model.first);
    result.Compare("m_nLastLine", credits.m_nLastLine, model.last);
    result.Compare("m_nCurLine", credits.m_nCurLine, model.current);
    if (model.current >= 0)
        result.Compare("m_nPagePause", credits.m_nPagePause, model.pause);
    result.Compare("m_nCursorCol", credits.m_nCursorCol, model.cursorColumn);
    result.Compare("m_nCursorRow", credits.m_nCursorRow, model.cursorRow);
    result.Compare("m_chCursor", credits.m_chCursor, model.cursorSign);
    result.Compare("the number of positions", static_cast<size_t>(credits.m_arrLinePos.GetSize()),
                   model.places.size());
    result.Compare("the text's length", static_cast<size_t>(credits.m_strCurText.GetLength()),
                   model.shown.size());
    result.Compare("the number of counters", static_cast<size_t>(credits.m_arrPhase.GetSize()),
                   model.shown.size());
    if (result.Any())
        return;
    for (size_t i = 0; i < model.places.size(); ++i) {
        const CPoint& place = credits.m_arrLinePos[static_cast<INT_PTR>(i)];
        result.Compare("a line's column", place.x, model.places[i].x, static_cast<long long>(i));
        result.Compare("a line's row", place.y, model.places[i].y, static_cast<long long>(i));
    }
    for (size_t i = 0; i < model.shown.size(); ++i) {
        const auto index = static_cast<int>(i);
        result.Compare("a character", credits.m_strCurText[index], model.shown[i].letter, index);
        result.Compare("a counter", credits.m_arrPhase[index], model.shown[i].changes, index);
    }
}

} // namespace

std::string Difference(OpenCredits& credits, const CreditsModel& model)
{
    Differences result;
    result.Compare("m_nColumns", credits.m_nColumns, model.columns);
    result.Compare("m_nRows", credits.m_nRows, model.rows);
    result.Compare("m_nSpinCount", static_cast<size_t>(credits.m_nSpinCount), model.spins.size());
    if (!result.Any()) {
        CompareRain(result, credits, model);
        CompareSpins(result, credits, model);
        CompareText(result, credits, model);
    }
    return result.Text();
}

void CreditsTest::SetUp()
{
    m_parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE, CRect(10, 10, 730, 510),
                      nullptr, 0);
    ASSERT_NE(m_parent.m_hWnd, nullptr);
}

void CreditsTest::TearDown()
{
    if (m_parent.GetSafeHwnd() != nullptr)
        m_parent.DestroyWindow();
}

void CreditsTest::Prepare(OpenCredits& credits, const CreditsOptions& options)
{
    for (const std::wstring& line : options.lines)
        credits.AddTextLine(line.c_str());
    credits.SetCursor(options.hasCursor, options.isBlock);
    credits.AllowEuropeanChars(options.isEuropean);
    credits.SetMaxPhaseCount(options.changes);
    credits.m_nStartDelay = options.startDelay;
    credits.m_nDefaultPause = options.usualPause;
}

BOOL CreditsTest::Create(OpenCredits& credits, CSize client, DWORD style)
{
    const CSize edges(2 * GetSystemMetrics(SM_CXEDGE), 2 * GetSystemMetrics(SM_CYEDGE));
    const CRect rect(CPoint(4, 4), client + edges);
    // By way of the base class, as a caller may have it.
    CMatrixCredits& base = credits;
    return base.Create(style, rect, &m_parent, 7);
}

void CreditsTest::Make(const CreditsOptions& options, int columns, int rows)
{
    Prepare(m_credits, options);
    ASSERT_TRUE(Create(m_credits, Cells(columns, rows)));
}

bool CreditsTest::HasFinishedPage() const
{
    const auto isEnd = [](const TimerCall& call) { return !call.isStart && call.id == 1; };
    return std::any_of(m_timers.Calls().begin(), m_timers.Calls().end(), isEnd);
}

bool CreditsTest::FinishPage()
{
    m_timers.Clear();
    for (int tick = 0; tick < 20000; ++tick) {
        Tick(1);
        if (HasFinishedPage())
            return true;
        if (m_credits.m_bCursor)
            Tick(2);
    }
    return false;
}

testing::AssertionResult SameTicks::operator()(UINT_PTR id)
{
    ++m_count;
    m_timers.Clear();
    std::srand(m_seed);
    m_credits.SendMessage(WM_TIMER, id);
    const int first = std::rand(), second = std::rand();
    std::srand(m_seed);
    m_model.Tick(id);
    const bool isInStep = std::rand() == first && std::rand() == second;
    m_seed = static_cast<unsigned>(first) << 15 | static_cast<unsigned>(second);

    const std::string difference = Difference(m_credits, m_model);
    if (!difference.empty())
        return testing::AssertionFailure() << "tick " << m_count << ", timer " << id << ": " << difference;
    if (!isInStep) {
        return testing::AssertionFailure()
               << "tick " << m_count << ", timer " << id << ": not as many random numbers";
    }
    if (m_timers.Calls() != m_model.timers)
        return testing::AssertionFailure() << "tick " << m_count << ", timer " << id << ": other timers";
    for (const TimerCall& call : m_timers.Calls()) {
        if (call.window != m_credits.m_hWnd) {
            return testing::AssertionFailure()
                   << "tick " << m_count << ", timer " << id << ": a timer of another window";
        }
    }
    return testing::AssertionSuccess();
}
