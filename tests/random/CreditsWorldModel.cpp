#include "CreditsWorldModel.h"

#include <algorithm>
#include <cwchar>

namespace randomplay
{
namespace
{

constexpr UINT_PTR PageTimer = 0, TextTimer = 1, CursorTimer = 2, RainTimer = 3, SpinTimer = 4;

bool IsLetter(wchar_t c)
{
    return L'a' <= c && c <= L'z';
}

bool IsSame(const MatrixColumn& a, const MatrixColumn& b)
{
    // What does not fall yet has no values.
    return a.bActive == b.bActive &&
           (!a.bActive || (a.nRow == b.nRow && a.nEndRow == b.nEndRow && a.ch == b.ch));
}

bool IsSame(const MatrixSpin& a, const MatrixSpin& b)
{
    return a.bActive == b.bActive && (!a.bActive || (a.nLife == b.nLife && a.pt == b.pt));
}

template <class Record>
bool AreSame(const std::vector<Record>& a, const std::vector<Record>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Record& x, const Record& y) { return IsSame(x, y); });
}

template <class Record>
int CountActive(const std::vector<Record>& records)
{
    return static_cast<int>(
        std::count_if(records.begin(), records.end(), [](const Record& one) { return one.bActive != 0; }));
}

} // namespace

CreditsState::CreditsState(OpenCredits& credits)
    : columns(credits.m_nColumns), spinCount(credits.m_nSpinCount), rows(credits.m_nRows),
      first(credits.m_nFirstLine), last(credits.m_nLastLine), current(credits.m_nCurLine),
      pause(credits.m_nPagePause), text(credits.m_strCurText.GetString()), cursorColumn(credits.m_nCursorCol),
      cursorRow(credits.m_nCursorRow), cursorSign(credits.m_chCursor),
      activeColumns(credits.m_nActiveColumns), activeSpins(credits.m_nActiveSpins)
{
    for (INT_PTR i = 0; i < credits.m_arrLinePos.GetSize(); ++i)
        places.push_back(credits.m_arrLinePos[i]);
    for (INT_PTR i = 0; i < credits.m_arrPhase.GetSize(); ++i)
        phases.push_back(credits.m_arrPhase[i]);
    if (credits.m_pColumns != nullptr)
        drops.assign(credits.m_pColumns, credits.m_pColumns + columns);
    if (credits.m_pSpins != nullptr)
        spins.assign(credits.m_pSpins, credits.m_pSpins + spinCount);
}

bool CreditsState::HasSameText(const CreditsState& other) const
{
    return first == other.first && last == other.last && current == other.current && pause == other.pause &&
           places == other.places && text == other.text && phases == other.phases &&
           cursorSign == other.cursorSign;
}

void CreditsRules::AddLine(const std::wstring& line)
{
    lines.push_back(line);
    m_page.last = static_cast<long long>(lines.size());
}

void CreditsRules::Begin(CSize client)
{
    m_client = client;
    m_hasBegun = true;
    m_page = {};
    m_page.last = static_cast<long long>(lines.size());
    timers = {{PageTimer, 5000}, {RainTimer, 80}};
}

void CreditsRules::TakeOver(const CreditsState& state, const TimerPeriods& running)
{
    m_page = {state.first, state.last, state.current, state.pause, state.places.size(), state.cursorColumn};
    timers = running;
}

CreditsRules::Page CreditsRules::NextPage() const
{
    const auto count = static_cast<long long>(lines.size());
    Page page;
    page.first = m_page.last + 2 < count ? m_page.last + 2 : 0;
    page.current = page.first;
    const auto isEnd = [](const std::wstring& line) { return !line.empty() && line[0] == 1; };
    const auto end = std::find_if(lines.begin() + page.first, lines.end(), isEnd);
    page.last = end - lines.begin() - 1;
    page.pause = end == lines.end() ? 5 : static_cast<int>(std::wcstol(end->c_str() + 1, nullptr, 10));
    page.placed = static_cast<size_t>(page.last - page.first + 1);
    page.cursorColumn = hasCursor ? 0 : m_page.cursorColumn;
    return page;
}

size_t CreditsRules::ReachOf(const CreditsState& before) const
{
    const auto length = static_cast<int>(lines[before.current].size());
    if (!hasCursor)
        return static_cast<size_t>(length);
    const int column = before.cursorColumn - before.places[before.current - before.first].x;
    return static_cast<size_t>(std::clamp(column, 0, length));
}

// Whether a tick of the text finds the line complete.
bool CreditsRules::IsComplete(const CreditsState& before) const
{
    const std::wstring& line = lines[before.current];
    if (hasCursor && !line.empty() && before.cursorColumn < before.columns)
        return false;
    if (ReachOf(before) < line.size() || before.text.size() < line.size())
        return false;
    for (size_t i = 0; i < line.size(); ++i) {
        if (before.phases[i] < changes && before.text[i] != line[i])
            return false;
    }
    return true;
}

bool CreditsRules::Raises(UINT_PTR id, const CreditsState& before) const
{
    const auto isPlaced = [&](long long line) {
        return before.first <= line && line - before.first < static_cast<long long>(before.places.size());
    };
    switch (id) {
    case PageTimer:
        return hasCursor && (lines.empty() || NextPage().placed == 0);
    case TextTimer:
        if (!isPlaced(before.current) || before.current >= static_cast<long long>(lines.size()))
            return true;
        return IsComplete(before) && before.current != before.last && !isPlaced(before.current + 1);
    case CursorTimer:
    case RainTimer:
    case SpinTimer:
        return before.current >= 0 && !isPlaced(before.current);
    default:
        return false;
    }
}

std::string CreditsRules::CheckTick(UINT_PTR id, const CreditsState& before, const CreditsState& after,
                                    const ColumnOf& columnOf)
{
    if (id == PageTimer && !lines.empty())
        return CheckPageTick(before, after, columnOf);
    std::string failure;
    if (id == TextTimer)
        failure = CheckTextTick(before, after);
    else if (!before.HasSameText(after))
        failure = "text: changed by another timer";
    if (failure.empty() && (id == TextTimer || id == SpinTimer))
        failure = CheckSpins(before, after);
    else if (failure.empty() && !AreSame(before.spins, after.spins))
        failure = "spins: changed by another timer";
    if (failure.empty() && id == RainTimer)
        failure = CheckRain(before, after);
    else if (failure.empty() && !AreSame(before.drops, after.drops))
        failure = "rain: changed by another timer";
    if (id == CursorTimer && ++m_page.cursorColumn >= before.columns)
        timers.erase(CursorTimer);
    return failure;
}

std::string CreditsRules::CheckPageTick(const CreditsState& before, const CreditsState& after,
                                        const ColumnOf& columnOf)
{
    m_page = NextPage();
    if (!after.text.empty() || !after.phases.empty())
        return "page: it begins with a text";
    if (after.places.size() != m_page.placed)
        return "page: places for " + std::to_string(after.places.size());
    const auto top = static_cast<int>((after.rows - static_cast<long long>(m_page.placed) - 1) / 2);
    for (size_t i = 0; i < m_page.placed; ++i) {
        const CPoint place(columnOf(lines[m_page.first + i]), top + static_cast<int>(i));
        if (after.places[i] != place)
            return "page: a line in another place";
    }
    timers.erase(PageTimer);
    timers.erase(SpinTimer);
    timers[TextTimer] = 10;
    if (hasCursor) {
        timers[CursorTimer] = 40;
        if (after.cursorRow != after.places[0].y)
            return "page: the cursor is in another row";
    }
    return AreSame(before.drops, after.drops) && AreSame(before.spins, after.spins)
               ? std::string()
               : "page: it changes the rain";
}

std::string CreditsRules::CheckTextTick(const CreditsState& before, const CreditsState& after)
{
    const bool isSignFree = hasCursor && before.cursorSign != 1;
    if (isSignFree ? after.cursorSign < 32 || after.cursorSign > lastLetter
                   : after.cursorSign != before.cursorSign)
        return "cursor: of another sign";
    const bool isComplete = IsComplete(before);
    if (isComplete && before.current != before.last) {
        ++m_page.current;
        if (!after.text.empty() || !after.phases.empty())
            return "line: it begins with a text";
        if (hasCursor) {
            m_page.cursorColumn = 0;
            timers[CursorTimer] = 40;
            if (after.cursorRow != after.places[after.current - after.first].y)
                return "line: the cursor is in another row";
        }
        return {};
    }
    if (isComplete) {
        timers.erase(TextTimer);
        timers[PageTimer] = static_cast<UINT>(m_page.pause) * 1000;
        timers[SpinTimer] = 10;
    }
    return CheckText(before, after);
}

std::string CreditsRules::CheckText(const CreditsState& before, const CreditsState& after) const
{
    const std::wstring& line = lines[before.current];
    const size_t reach = ReachOf(before);
    if (after.text.size() != std::max(before.text.size(), reach) || after.phases.size() != after.text.size())
        return "text: of another length";
    for (size_t i = 0; i < after.text.size(); ++i) {
        const wchar_t letter = after.text[i];
        const bool isRandom = 32 <= letter && letter <= lastLetter;
        bool isRight = false;
        if (i >= before.text.size())
            isRight = isRandom && after.phases[i] == 0;
        else if (i >= reach)
            isRight = letter == before.text[i] && after.phases[i] == before.phases[i];
        else if (before.phases[i] >= changes || before.text[i] == line[i])
            isRight = letter == line[i] && after.phases[i] == before.phases[i];
        else
            isRight = isRandom && after.phases[i] == before.phases[i] + 1;
        if (!isRight)
            return "text: a character that it cannot have";
    }
    return {};
}

std::string CreditsRules::CheckRain(const CreditsState& before, const CreditsState& after) const
{
    int begun = 0;
    for (size_t i = 0; i < before.drops.size(); ++i) {
        const MatrixColumn &was = before.drops[i], &is = after.drops[i];
        if (!was.bActive) {
            begun += is.bActive ? 1 : 0;
            if (is.bActive && (is.nRow < 1 || is.nRow > is.nEndRow || is.nEndRow > after.rows ||
                               (is.ch != L' ' && !IsLetter(is.ch))))
                return "rain: a drop that cannot begin so";
        } else if (was.nRow < was.nEndRow) {
            if (!is.bActive || is.nRow != was.nRow + 1 || is.nEndRow != was.nEndRow ||
                (was.ch == L' ' ? is.ch != L' ' : !IsLetter(is.ch)))
                return "rain: a drop that does not fall on";
        } else if (is.bActive) {
            return "rain: a drop that falls too far";
        }
    }
    return begun > 1 ? "rain: two drops begin" : std::string();
}

std::string CreditsRules::CheckSpins(const CreditsState& before, const CreditsState& after) const
{
    int begun = 0;
    for (size_t i = 0; i < before.spins.size(); ++i) {
        const MatrixSpin &was = before.spins[i], &is = after.spins[i];
        if (is.bActive && !IsLetter(is.ch))
            return "spins: no letter";
        if (!was.bActive) {
            begun += is.bActive ? 1 : 0;
            if (is.bActive && (is.nLife < 299 || is.nLife > 799 || is.pt.x < 0 || is.pt.x > after.columns ||
                               is.pt.y < 0 || is.pt.y > after.rows))
                return "spins: one that cannot begin so";
        } else if (was.nLife > 0 ? !is.bActive || is.nLife != was.nLife - 1 || is.pt != was.pt : is.bActive) {
            return "spins: one that does not go on";
        }
    }
    return begun > 1 ? "spins: two begin" : std::string();
}

std::string CreditsRules::CheckUntouched(const CreditsState& before, const CreditsState& after) const
{
    const bool isSame = before.HasSameText(after) && before.cursorColumn == after.cursorColumn &&
                        AreSame(before.drops, after.drops) && AreSame(before.spins, after.spins);
    return isSame ? std::string() : "state: changed without a tick";
}

std::string CreditsRules::CheckGrid(const OpenCredits& credits)
{
    if (credits.m_nCellWidth < 3 || credits.m_nCellHeight < 1)
        return "grid: no size of a cell";
    m_columns = m_client.cx / credits.m_nCellWidth + 1;
    const bool isRight = credits.m_nColumns == m_columns &&
                         credits.m_nRows == m_client.cy / credits.m_nCellHeight + 1 &&
                         credits.m_nSpinCount == m_columns / 5;
    return isRight ? std::string() : "grid: of another size";
}

std::string CreditsRules::Check(const CreditsState& state) const
{
    if (CountActive(state.drops) != state.activeColumns)
        return "rain: " + std::to_string(state.activeColumns) + " drops are counted";
    if (CountActive(state.spins) != state.activeSpins)
        return "spins: " + std::to_string(state.activeSpins) + " are counted";
    if (state.phases.size() != state.text.size())
        return "text: phases of another number";
    if (state.first != m_page.first || state.last != m_page.last || state.current != m_page.current ||
        (state.current >= 0 && state.pause != m_page.pause) || state.places.size() != m_page.placed)
        return "page: " + std::to_string(state.first) + " to " + std::to_string(state.last) + ", at " +
               std::to_string(state.current);
    if (state.cursorColumn != m_page.cursorColumn)
        return "cursor: in column " + std::to_string(state.cursorColumn);
    if (m_hasBegun && static_cast<int>(state.drops.size()) != m_columns)
        return "grid: of another size now";
    return {};
}

} // namespace randomplay
