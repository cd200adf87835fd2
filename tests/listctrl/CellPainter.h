// A second painter of list cells, in plain GDI: what each kind of cell has to look like, put down apart from
// the control. Colours, rectangles and texts all come from the caller.
#pragma once

#include <string_view>
#include <vector>

#include <afxcmn.h>

#include <gtest/gtest.h>

#include "kit/Picture.h"

// What a cell or a text is drawn with.
struct CellColors
{
    COLORREF text;
    COLORREF background;
};

// The colours that a control under test has in place of the system's: no two are alike, so that a mix-up
// shows. Those that no cell is drawn with are there for the same reason.
namespace own
{
inline constexpr COLORREF Window = RGB(250, 240, 200);
inline constexpr COLORREF WindowText = RGB(90, 0, 90);
inline constexpr COLORREF BtnFace = RGB(210, 200, 230);
inline constexpr COLORREF BtnShadow = RGB(200, 60, 20);
inline constexpr COLORREF Shadow3d = RGB(20, 120, 60);
inline constexpr COLORREF GrayText = RGB(150, 150, 100);
inline constexpr COLORREF HighLight = RGB(0, 80, 160);
inline constexpr COLORREF HighLightText = RGB(255, 255, 0);
inline constexpr COLORREF Unused3dFace = RGB(255, 1, 2);
inline constexpr COLORREF Unused3dHighLight = RGB(255, 3, 4);
inline constexpr COLORREF UnusedBtnText = RGB(255, 5, 6);
// What a picture shows where nothing was drawn.
inline constexpr COLORREF Backdrop = RGB(17, 34, 51);
} // namespace own

// An image by formula. Some of its pixels are transparent.
struct PatternImage
{
    int width;
    int height;
    int seed = 0;

    // CLR_NONE where it is transparent.
    COLORREF At(int x, int y) const;
};

// An image list of these images, which have one size; the caller's, or the list view's that it is given to.
HIMAGELIST MakeImageList(const std::vector<PatternImage>& images);

class CellPainter
{
public:
    // `font` must outlive the painter.
    CellPainter(int width, int height, HFONT font, COLORREF backdrop = own::Backdrop);
    ~CellPainter();
    CellPainter(const CellPainter&) = delete;
    CellPainter& operator=(const CellPainter&) = delete;

    const testkit::Picture& Result() const { return m_picture; }

    // An empty rectangle, also one whose sides have changed places, stays as it is; so it does with texts.
    void Fill(const CRect& rect, COLORREF color);

    // The whole cell in the background, and the text on it. `alignment` is DT_LEFT, DT_CENTER or DT_RIGHT.
    void TextCell(const CRect& cell, std::wstring_view text, CellColors colors, UINT alignment = DT_LEFT,
                  bool isBold = false);

    // The background and the image on it, as far as it has room; null for none. The result is the width
    // that gap and image use.
    int Image(const CRect& cell, const PatternImage* image, COLORREF background, int spacing);
    void ImageCell(CRect cell, const PatternImage* image, std::wstring_view text, CellColors colors,
                   int spacing = 6);

    // `mark` is the colour of the check mark, CLR_NONE for an empty box.
    void CheckboxCell(const CRect& cell, std::wstring_view text, CellColors colors, COLORREF mark);

    // Returns the button's rectangle.
    CRect ComboCell(const CRect& cell, std::wstring_view text, COLORREF textColor, bool isDown);

    // Without a label where it is empty.
    void ProgressCell(const CRect& cell, int percent, std::wstring_view label, CellColors colors);

    // What an empty list shows in `area`.
    void Message(const CRect& area, std::wstring_view text);

private:
    void Line(int fromX, int fromY, int toX, int toY, COLORREF color);
    void Text(CRect place, std::wstring_view text, UINT format, COLORREF color);
    void ClippedText(const CRect& clip, const CRect& place, std::wstring_view text, COLORREF color);
    void CheckMark(int x, int y, COLORREF color);
    void Arrow(int x, int y);

    testkit::Picture m_picture;
    HDC m_dc;
    HGDIOBJ m_oldFont;
};

// Whether two pictures are alike; if not, names the first pixel that differs, row by row, with both colours.
// With the environment variable VELM_PICTURES, the name of a folder, both are saved there to be looked at.
testing::AssertionResult SamePixels(const testkit::Picture& drawn, const testkit::Picture& expected);
// The same of a part of both.
testing::AssertionResult SamePixels(const testkit::Picture& drawn, const testkit::Picture& expected,
                                    const CRect& part);
