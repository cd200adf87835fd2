// What a credits window must do on each tick, told without its random numbers: which timers run, which page
// shows, and what may have become of each character, drop and letter.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "CreditsWorldWindow.h"

namespace randomplay
{

struct CreditsState
{
    explicit CreditsState(OpenCredits& credits);
    // All but the rain, the flickering letters and where the cursor is.
    bool HasSameText(const CreditsState& other) const;

    int columns, spinCount;
    long long rows;
    long long first, last, current;
    int pause;
    std::vector<CPoint> places;
    std::wstring text;
    std::vector<int> phases;
    int cursorColumn, cursorRow;
    wchar_t cursorSign;
    int activeColumns, activeSpins;
    std::vector<MatrixColumn> drops;
    std::vector<MatrixSpin> spins;
};

class CreditsRules
{
public:
    std::vector<std::wstring> lines;
    bool hasCursor = true, isBlock = true;
    int changes = 20;
    wchar_t lastLetter = 255;
    TimerPeriods timers;

    void AddLine(const std::wstring& line);
    // The window has been made, with a client area of that size.
    void Begin(CSize client);
    bool HasBegun() const { return m_hasBegun; }
    bool HasArea() const { return m_client.cx > 0 && m_client.cy > 0; }
    // Takes a state for right in which a page is what it is.
    void TakeOver(const CreditsState& state, const TimerPeriods& running);

    // Whether a tick raises the exception for invalid arguments.
    bool Raises(UINT_PTR id, const CreditsState& before) const;
    // The first column of a line in the window of now.
    using ColumnOf = std::function<int(const std::wstring& line)>;
    // For a tick that raised nothing.
    std::string CheckTick(UINT_PTR id, const CreditsState& before, const CreditsState& after,
                          const ColumnOf& columnOf);
    std::string CheckUntouched(const CreditsState& before, const CreditsState& after) const;
    std::string CheckGrid(const OpenCredits& credits);
    std::string Check(const CreditsState& state) const;

private:
    struct Page
    {
        long long first = 0, last = 0, current = -1;
        int pause = 0;
        size_t placed = 0; // lines that have a place
        int cursorColumn = 0;
    };

    Page NextPage() const;
    size_t ReachOf(const CreditsState& before) const;
    bool IsComplete(const CreditsState& before) const;
    std::string CheckPageTick(const CreditsState& before, const CreditsState& after,
                              const ColumnOf& columnOf);
    std::string CheckTextTick(const CreditsState& before, const CreditsState& after);
    std::string CheckText(const CreditsState& before, const CreditsState& after) const;
    std::string CheckRain(const CreditsState& before, const CreditsState& after) const;
    std::string CheckSpins(const CreditsState& before, const CreditsState& after) const;

    CSize m_client;
    int m_columns = 0;
    bool m_hasBegun = false;
    Page m_page;
};

} // namespace randomplay
