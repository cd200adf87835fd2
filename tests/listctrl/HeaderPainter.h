// A second painter of headers, in plain GDI: what a header has to look like, put down apart from the control.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "CellPainter.h"

// An item in the place where it is seen.
struct PaintedItem
{
    int left = 0;
    int right = 0;
    std::wstring caption;                 // empty where the format has no text
    std::optional<PatternImage> image{};  // at the left
    std::optional<PatternImage> bitmap{}; // at the right
    bool isOwnerDrawn = false;
};

struct HeaderLook
{
    COLORREF light;
    COLORREF dark;
    COLORREF face;
    int spacing = 6;
};

// Where a bitmap by a pattern has its transparent pixels, which a bitmap cannot have.
inline constexpr COLORREF BitmapFiller = RGB(1, 200, 99);

// Paints a header of that client size. The items stand in the order in which they are seen; `font` is the
// header's.
testkit::Picture PaintHeader(CSize client, const std::vector<PaintedItem>& items, const HeaderLook& look,
                             HFONT font);

// A pattern at (x, y), as far as `shownWidth`; its transparent pixels in `filler`, CLR_NONE: left alone.
void PaintPattern(HDC dc, int x, int y, int shownWidth, const PatternImage& pattern, COLORREF filler);

// The caller's.
HBITMAP MakeBitmap(const PatternImage& pattern);

// Where two pictures differ first; empty if they do not.
std::string FirstDifference(const testkit::Picture& actual, const testkit::Picture& expected);
