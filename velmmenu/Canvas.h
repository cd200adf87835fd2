// A picture that is drawn smoothly and saved as PNG.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Gdip.h"

namespace velmmenu
{

// Starts GDI+ for as long as it lives.
class GdiplusSession
{
public:
    GdiplusSession();
    ~GdiplusSession();
    GdiplusSession(const GdiplusSession&) = delete;
    GdiplusSession& operator=(const GdiplusSession&) = delete;

private:
    ULONG_PTR m_token = 0;
};

enum class TextStyle
{
    Plain,
    Mnemonic, // plain, with `&` before the letter to underline
    Hint,     // slanted and grey
    Title     // bold
};

// A bitmap file and where it goes.
struct PlacedBitmap
{
    std::wstring fileName;
    int left;
    int top;
    int side;
};

class Canvas
{
public:
    // The drawing functions below are called from a painter; coordinates are pixels of the picture.
    class Painter
    {
    public:
        Painter(Gdiplus::Graphics& graphics, const Canvas& canvas) : m_graphics(graphics), m_canvas(canvas) {}

        void Fill(int left, int top, int width, int height, Gdiplus::Color color);
        // A rectangle with rounded corners, a border of one pixel, and a soft shadow if wanted.
        void Box(int left, int top, int width, int height, Gdiplus::Color fill, Gdiplus::Color border,
                 bool hasShadow);
        // A line to the right that runs down at `lane`, with rounded corners.
        void Link(int fromX, int fromY, int lane, int toX, int toY, Gdiplus::Color color);
        void Line(int fromX, int fromY, int toX, int toY, Gdiplus::Color color);
        void Triangle(Gdiplus::PointF a, Gdiplus::PointF b, Gdiplus::PointF c, Gdiplus::Color color);
        // One line of text, in the middle of the height; cut with dots where it is wider than `width`.
        void Text(const std::wstring& text, TextStyle style, int left, int top, int width, int height,
                  Gdiplus::Color color);

    private:
        Gdiplus::Graphics& m_graphics;
        const Canvas& m_canvas;
    };

    Canvas();

    // Width of a text in whole pixels.
    int TextWidth(const std::wstring& text, TextStyle style) const;

    // Makes the picture of that size, painted by `paint`, which is called for one strip after the other.
    void Paint(int width, int height, Gdiplus::Color background, const std::function<void(Painter&)>& paint);

    // Draws bitmap files as the host draws those of its buttons: with one colour left out, and brought to
    // `side` where they have another size. A file that cannot be read draws nothing.
    void DrawBitmaps(const std::vector<PlacedBitmap>& bitmaps);

    // Throws Failure when the file cannot be written.
    void Save(const std::wstring& fileName) const;

private:
    Gdiplus::Font& FontOf(TextStyle style) const;

    std::unique_ptr<Gdiplus::Font> m_plain;
    std::unique_ptr<Gdiplus::Font> m_hint;
    std::unique_ptr<Gdiplus::Font> m_title;
    std::unique_ptr<Gdiplus::Bitmap> m_measured; // what texts are measured for
    std::unique_ptr<Gdiplus::Bitmap> m_picture;
};

} // namespace velmmenu
