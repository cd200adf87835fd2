#include "CreditsModel.h"

#include <algorithm>
#include <cstdlib>
#include <cwchar>

namespace
{

// A number is drawn in any case: where there is no choice, as in windows of few rows, it is the first.
int Any(int count)
{
    const int number = std::rand();
    return count < 1 ? 0 : number % count;
}

wchar_t AnyLetter()
{
    return static_cast<wchar_t>('a' + Any(26));
}

// One try more than there are entries; none is found when all tries meet a busy one.
template <class Entries, class IsFree>
auto ChooseFree(Entries& entries, IsFree isFree) -> decltype(entries.data())
{
    const auto count = static_cast<int>(entries.size());
    int tries = 0;
    do {
        ++tries;
        auto& entry = entries[static_cast<size_t>(Any(count))];
        if (isFree(entry))
            return &entry;
    } while (tries <= count);
    return nullptr;
}

} // namespace

CreditsModel::CreditsModel(const CreditsOptions& given, CSize size, const CellFont& cellFont)
    : options(given), font(cellFont), client(size), columns(size.cx / font.CellWidth() + 1),
      rows(size.cy / font.CellHeight() + 1), drops(static_cast<size_t>(columns)),
      spins(static_cast<size_t>(columns / 5)), last(static_cast<long long>(given.lines.size())),
      cursorSign(given.isBlock ? L'\1' : L'a')
{
    Start(0, static_cast<unsigned>(options.startDelay * 1000));
    Start(3, 80);
}

void CreditsModel::Tick(UINT_PTR id)
{
    timers.clear();
    strokes.clear();
    if (id == 0) {
        NextPage();
        StartCursor();
    }
    if (id == 1 || id == 4)
        SpinTick();
    if (id == 1)
        DecodeTick();
    if (id == 2)
        CursorTick();
    if (id == 3)
        RainTick();
}

std::wstring CreditsModel::Text() const
{
    std::wstring text;
    for (const Shown& one : shown)
        text += one.letter;
    return text;
}

void CreditsModel::RainTick()
{
    if (falling < columns) {
        if (Drop* const drop = ChooseFree(drops, [](const Drop& one) { return !one.falls; })) {
            drop->falls = true;
            StartDrop(*drop);
            Head(static_cast<int>(drop - drops.data()));
            ++drop->row;
            ++falling;
        }
    }
    for (int column = 0; column < columns; ++column) {
        Drop& drop = drops[static_cast<size_t>(column)];
        if (!drop.falls)
            continue;
        const bool goesOn = drop.row < drop.end;
        Fade(column);
        if (goesOn) {
            Head(column);
            ++drop.row;
        } else {
            drop.falls = false;
            --falling;
        }
    }
}

void CreditsModel::StartDrop(Drop& drop)
{
    const auto height = static_cast<int>(rows);
    const bool startsLower = Any(2) == 0;
    drop.row = startsLower ? Any(height - 2) : 0;
    const bool endsEarly = Any(2) == 0;
    drop.end = rows;
    if (endsEarly)
        drop.end = std::min<long long>(rows, drop.row + 3 + Any(height - drop.row - 2));
    const bool erases = Any(5) == 0;
    drop.letter = erases ? L' ' : AnyLetter();
}

void CreditsModel::Head(int column)
{
    Drop& drop = drops[static_cast<size_t>(column)];
    if (drop.letter != L' ')
        drop.letter = AnyLetter();
    strokes.push_back({true, column, drop.row, drop.letter, 255});
}

void CreditsModel::Fade(int column)
{
    const Drop& drop = drops[static_cast<size_t>(column)];
    strokes.push_back({false, column, drop.row - 1, drop.letter, 75 + Any(76)});
}

void CreditsModel::SpinTick()
{
    if (spinning < static_cast<int>(spins.size()) && Any(101) == 0) {
        if (Spin* const spin = ChooseFree(spins, [](const Spin& one) { return !one.lives; })) {
            spin->lives = true;
            spin->ticks = 300 + Any(501);
            spin->cell.x = Any(columns + 1);
            spin->cell.y = Any(static_cast<int>(rows) + 1);
            ++spinning;
        }
    }
    for (Spin& spin : spins) {
        if (!spin.lives)
            continue;
        if (spin.ticks > 0) {
            spin.letter = AnyLetter();
            --spin.ticks;
        } else {
            spin.lives = false;
            --spinning;
        }
    }
}

void CreditsModel::NextPage()
{
    const auto count = static_cast<long long>(options.lines.size());
    if (count == 0)
        return;
    const long long following = last + 2;
    first = current = following < count ? following : 0;
    const auto begin = options.lines.begin();
    const auto mark = std::find_if(begin + first, options.lines.end(), [](const std::wstring& line) {
        return !line.empty() && line.front() == PageMark;
    });
    last = mark - begin - 1;
    pause = mark == options.lines.end() ? options.usualPause
                                        : static_cast<int>(std::wcstol(mark->c_str() + 1, nullptr, 10));

    const long long lineCount = last - first + 1;
    const auto top = static_cast<int>((rows - lineCount - 1) / 2);
    places.clear();
    for (int line = 0; line < lineCount; ++line) {
        const int room = client.cx - font.WidthOf(LineText(first + line));
        places.emplace_back(room / 2 / font.CellWidth(), top + line);
    }
    shown.clear();
    End(0);
    End(4);
    Start(1, 10);
}

void CreditsModel::StartCursor()
{
    // Without a page there is no place for a cursor; only layouts with lines have one.
    if (!options.hasCursor)
        return;
    cursorColumn = 0;
    cursorRow = places.at(static_cast<size_t>(current - first)).y;
    Start(2, 40);
}

void CreditsModel::CursorTick()
{
    if (++cursorColumn >= columns)
        End(2);
}

wchar_t CreditsModel::AnyTextLetter() const
{
    return static_cast<wchar_t>(32 + Any(options.isEuropean ? 224 : 96));
}

void CreditsModel::DecodeTick()
{
    if (options.hasCursor && cursorSign != 1)
        cursorSign = AnyTextLetter();
    const std::wstring goal = LineText(current);
    const auto length = static_cast<int>(goal.size());
    const int reach =
        options.hasCursor
            ? std::clamp(cursorColumn - static_cast<int>(places[static_cast<size_t>(current - first)].x), 0,
                         length)
            : length;
    bool isSettled = reach == length;
    for (size_t i = 0; i < static_cast<size_t>(reach); ++i) {
        if (i == shown.size()) {
            shown.push_back({AnyTextLetter(), 0});
            isSettled = false;
        } else if (Shown& one = shown[i]; one.changes >= options.changes) {
            one.letter = goal[i];
        } else if (one.letter != goal[i]) {
            one.letter = AnyTextLetter();
            ++one.changes;
            isSettled = false;
        }
    }
    const bool waitsForCursor = options.hasCursor && length > 0 && cursorColumn < columns;
    if (waitsForCursor || !isSettled)
        return;
    if (current != last) {
        ++current;
        shown.clear();
        StartCursor();
        return;
    }
    End(1);
    Start(0, static_cast<unsigned>(pause) * 1000);
    Start(4, 10);
}
