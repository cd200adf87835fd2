#include "HeaderPainter.h"

#include <algorithm>
#include <sstream>

namespace
{

constexpr COLORREF CaptionBlue = RGB(0, 0, 255);

void FillBox(HDC dc, int left, int top, int right, int bottom, COLORREF color)
{
    const RECT box{left, top, right, bottom};
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &box, brush);
    DeleteObject(brush);
}

// What lies between the gaps of an item.
void PaintContent(HDC dc, const PaintedItem& item, int height, int spacing)
{
    int left = item.left + spacing;
    int right = item.right - spacing;
    const int middle = height / 2;
    if (item.image && right - left >= 1) {
        PaintPattern(dc, left, middle - item.image->height / 2, std::min(item.image->width, right - left),
                     *item.image, CLR_NONE);
        left += item.image->width + spacing;
    }
    if (item.bitmap && right - left >= 1 && item.bitmap->width <= right - left) {
        PaintPattern(dc, right - item.bitmap->width, middle - item.bitmap->height / 2, item.bitmap->width,
                     *item.bitmap, BitmapFiller);
        right -= item.bitmap->width + spacing;
    }
    if (right - left >= 1) {
        RECT room{left, 0, right, height};
        SetBkMode(dc, TRANSPARENT);
        SetTextColor(dc, CaptionBlue);
        DrawTextW(dc, item.caption.c_str(), static_cast<int>(item.caption.size()), &room,
                  DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
    }
}

} // namespace

testkit::Picture PaintHeader(CSize client, const std::vector<PaintedItem>& items, const HeaderLook& look,
                             HFONT font)
{
    testkit::Picture picture(client.cx, client.cy, look.face);
    const HDC dc = picture.Dc();
    const HGDIOBJ oldFont = SelectObject(dc, font);
    int width = 0;
    for (const PaintedItem& item : items) {
        if (!item.isOwnerDrawn)
            PaintContent(dc, item, client.cy, look.spacing);
        if (&item != &items.back()) {
            FillBox(dc, item.right - 1, 2, item.right, client.cy - 2, look.dark);
            FillBox(dc, item.right, 2, item.right + 1, client.cy - 2, look.light);
        }
        width += item.right - item.left;
    }
    width = std::min<int>(width, client.cx);
    if (width > 0) {
        FillBox(dc, 0, 0, width - 1, 1, look.light);
        FillBox(dc, 0, 0, 1, client.cy - 1, look.light);
        FillBox(dc, width - 1, 0, width, client.cy, look.dark);
        FillBox(dc, 0, client.cy - 1, width, client.cy, look.dark);
    }
    SelectObject(dc, oldFont);
    return picture;
}

void PaintPattern(HDC dc, int x, int y, int shownWidth, const PatternImage& pattern, COLORREF filler)
{
    for (int row = 0; row < pattern.height; ++row) {
        for (int column = 0; column < shownWidth; ++column) {
            const COLORREF color = pattern.At(column, row);
            if (color != CLR_NONE)
                SetPixelV(dc, x + column, y + row, color);
            else if (filler != CLR_NONE)
                SetPixelV(dc, x + column, y + row, filler);
        }
    }
}

HBITMAP MakeBitmap(const PatternImage& pattern)
{
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, pattern.width, pattern.height);
    const HGDIOBJ old = SelectObject(dc, bitmap);
    PaintPattern(dc, 0, 0, pattern.width, pattern, BitmapFiller);
    SelectObject(dc, old);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

std::string FirstDifference(const testkit::Picture& actual, const testkit::Picture& expected)
{
    std::ostringstream text;
    if (actual.Width() != expected.Width() || actual.Height() != expected.Height()) {
        text << actual.Width() << " by " << actual.Height() << " instead of " << expected.Width() << " by "
             << expected.Height();
        return text.str();
    }
    for (int y = 0; y < expected.Height(); ++y) {
        for (int x = 0; x < expected.Width(); ++x) {
            if (actual.Pixel(x, y) != expected.Pixel(x, y)) {
                text << "pixel " << x << ", " << y << ": " << std::hex << actual.Pixel(x, y) << " instead of "
                     << expected.Pixel(x, y);
                return text.str();
            }
        }
    }
    return text.str();
}
