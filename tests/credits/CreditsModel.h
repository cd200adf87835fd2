// A second telling of the animation, without any drawing: what the window has to do on each tick. It draws
// its random numbers from rand() in the same order, so that both agree when they begin with the same seed.
#pragma once

#include "CellFont.h"

#include <string>
#include <vector>

inline constexpr wchar_t PageMark = 1;

// A line that ends a page; `pause` is the text of the seconds.
inline std::wstring PageEnd(const std::wstring& pause)
{
    return PageMark + pause;
}

struct CreditsOptions
{
    std::vector<std::wstring> lines = {};
    bool hasCursor = true;
    bool isBlock = true;
    bool isEuropean = true;
    int changes = 20;
    int startDelay = 5;
    int usualPause = 5;
};

// A call of SetTimer or KillTimer.
struct TimerCall
{
    bool isStart;
    UINT_PTR id;
    UINT period; // 0 for an end
    // The model has none, so it does not count in a comparison.
    HWND window = nullptr;

    bool operator==(const TimerCall& other) const
    {
        return isStart == other.isStart && id == other.id && period == other.period;
    }
};

// A character that the rain draws. A head covers its cell, what fades only its own ground.
struct RainStroke
{
    bool isHead;
    int column;
    int row;
    wchar_t letter;
    int green;
};

class CreditsModel
{
public:
    struct Drop
    {
        bool falls = false;
        int row = 0;
        long long end = 0;
        wchar_t letter = 0;
    };
    struct Spin
    {
        bool lives = false;
        int ticks = 0;
        CPoint cell;
        wchar_t letter = 0;
    };
    struct Shown
    {
        wchar_t letter;
        int changes;
    };

    // The lines have been added, and the window is there.
    CreditsModel(const CreditsOptions& options, CSize client, const CellFont& font);

    void Tick(UINT_PTR id);

    std::wstring Text() const;
    std::wstring LineText(long long line) const { return options.lines[static_cast<size_t>(line)]; }
    bool TextMayTick() const { return current >= 0; }

    const CreditsOptions options;
    const CellFont& font;
    CSize client; // as it is now; the grid keeps its first size
    int columns;
    long long rows;

    std::vector<Drop> drops;
    int falling = 0;
    std::vector<Spin> spins;
    int spinning = 0;

    long long first = 0, last, current = -1;
    int pause = 0;
    std::vector<CPoint> places;
    std::vector<Shown> shown;
    int cursorColumn = 0, cursorRow = 0;
    wchar_t cursorSign;

    // Of the last tick.
    std::vector<TimerCall> timers;
    std::vector<RainStroke> strokes;

private:
    void RainTick();
    void StartDrop(Drop& drop);
    void Head(int column);
    void Fade(int column);
    void SpinTick();
    void NextPage();
    void StartCursor();
    void CursorTick();
    void DecodeTick();
    wchar_t AnyTextLetter() const;
    void Start(UINT_PTR id, unsigned period) { timers.push_back({true, id, period}); }
    void End(UINT_PTR id) { timers.push_back({false, id, 0}); }
};
