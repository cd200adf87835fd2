#include "Canvas.h"

#include <cmath>
#include <cstdint>

#include "Failure.h"
#include "shell/ButtonImages.h"

namespace velmmenu
{

using namespace Gdiplus;

namespace
{

// Everything but bitmaps is drawn this many times as large in both directions and brought down again: the
// mean of many pixels makes lines and letters smooth where the platform does not.
constexpr int Smoothing = 4;
constexpr int StripHeight = 128;
constexpr REAL FontHeight = 13;
constexpr int CornerRadius = 5;
constexpr wchar_t Dots[] = L"\x2026";

// The encoder of PNG, under the name that the platform has for it.
constexpr CLSID PngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

const wchar_t* FontFace()
{
    for (const wchar_t* face : {L"Segoe UI", L"Liberation Sans", L"Tahoma"}) {
        if (FontFamily(face).IsAvailable())
            return face;
    }
    return L"Arial";
}

std::unique_ptr<Bitmap> MakeBitmap(int width, int height)
{
    auto bitmap = std::make_unique<Bitmap>(width, height, PixelFormat32bppRGB);
    if (bitmap->GetLastStatus() != Ok)
        throw Failure{L"there is no memory for a picture of " + std::to_wstring(width) + L" by " +
                      std::to_wstring(height) + L" pixels"};
    return bitmap;
}

class TextFormat : public StringFormat
{
public:
    explicit TextFormat(TextStyle style) : StringFormat(StringFormat::GenericTypographic())
    {
        SetFormatFlags(GetFormatFlags() | StringFormatFlagsMeasureTrailingSpaces | StringFormatFlagsNoWrap);
        SetHotkeyPrefix(style == TextStyle::Mnemonic ? HotkeyPrefixShow : HotkeyPrefixNone);
    }
};

void SetUp(Graphics& graphics, int top)
{
    graphics.SetSmoothingMode(SmoothingModeAntiAlias);
    graphics.SetTextRenderingHint(TextRenderingHintAntiAlias);
    graphics.SetPixelOffsetMode(PixelOffsetModeHalf);
    graphics.ScaleTransform(Smoothing, Smoothing);
    graphics.TranslateTransform(0, static_cast<REAL>(-top));
}

// Gives access to a bitmap's pixels while it lives.
class LockedPixels
{
public:
    LockedPixels(Bitmap& bitmap, UINT mode) : m_bitmap(bitmap)
    {
        const Rect whole(0, 0, static_cast<INT>(bitmap.GetWidth()), static_cast<INT>(bitmap.GetHeight()));
        if (bitmap.LockBits(&whole, mode, PixelFormat32bppRGB, &m_data) != Ok)
            throw Failure{L"the picture's memory cannot be reached"};
    }
    ~LockedPixels() { m_bitmap.UnlockBits(&m_data); }
    LockedPixels(const LockedPixels&) = delete;
    LockedPixels& operator=(const LockedPixels&) = delete;

    std::uint32_t* Row(int y) const
    {
        return reinterpret_cast<std::uint32_t*>(static_cast<BYTE*>(m_data.Scan0) +
                                                static_cast<std::ptrdiff_t>(y) * m_data.Stride);
    }

private:
    Bitmap& m_bitmap;
    BitmapData m_data{};
};

std::uint32_t MeanOfSquare(const LockedPixels& large, int x, int y)
{
    std::uint32_t sums[3] = {};
    for (int row = 0; row < Smoothing; ++row) {
        const std::uint32_t* const pixels = large.Row(y * Smoothing + row) + x * Smoothing;
        for (int column = 0; column < Smoothing; ++column) {
            for (int channel = 0; channel < 3; ++channel)
                sums[channel] += pixels[column] >> (8 * channel) & 0xFF;
        }
    }
    std::uint32_t mean = 0;
    constexpr std::uint32_t count = Smoothing * Smoothing;
    for (int channel = 0; channel < 3; ++channel)
        mean |= (sums[channel] + count / 2) / count << (8 * channel);
    return mean;
}

void AddRoundedBox(GraphicsPath& path, REAL left, REAL top, REAL width, REAL height)
{
    constexpr REAL d = 2 * CornerRadius;
    path.AddArc(left, top, d, d, 180, 90);
    path.AddArc(left + width - d, top, d, d, 270, 90);
    path.AddArc(left + width - d, top + height - d, d, d, 0, 90);
    path.AddArc(left, top + height - d, d, d, 90, 90);
    path.CloseFigure();
}

} // namespace

GdiplusSession::GdiplusSession()
{
    const GdiplusStartupInput input;
    if (GdiplusStartup(&m_token, &input, nullptr) != Ok)
        throw Failure{L"the platform's drawing library does not start"};
}

GdiplusSession::~GdiplusSession()
{
    GdiplusShutdown(m_token);
}

Canvas::Canvas()
    : m_plain(std::make_unique<Font>(FontFace(), FontHeight, FontStyleRegular, UnitPixel)),
      m_hint(std::make_unique<Font>(FontFace(), FontHeight, FontStyleItalic, UnitPixel)),
      m_title(std::make_unique<Font>(FontFace(), FontHeight, FontStyleBold, UnitPixel)),
      m_measured(MakeBitmap(16, 16))
{
}

Font& Canvas::FontOf(TextStyle style) const
{
    return style == TextStyle::Title ? *m_title : style == TextStyle::Hint ? *m_hint : *m_plain;
}

int Canvas::TextWidth(const std::wstring& text, TextStyle style) const
{
    Graphics graphics(m_measured.get());
    SetUp(graphics, 0);
    const TextFormat format(style);
    RectF box;
    graphics.MeasureString(text.c_str(), static_cast<INT>(text.size()), &FontOf(style), PointF(0, 0), &format,
                           &box);
    return static_cast<int>(std::ceil(box.Width));
}

void Canvas::Paint(int width, int height, Color background, const std::function<void(Painter&)>& paint)
{
    m_picture = MakeBitmap(width, height);
    const auto strip = MakeBitmap(width * Smoothing, StripHeight * Smoothing);
    for (int top = 0; top < height; top += StripHeight) {
        {
            Graphics graphics(strip.get());
            graphics.Clear(background);
            SetUp(graphics, top);
            Painter painter(graphics, *this);
            paint(painter);
        }
        const LockedPixels large(*strip, ImageLockModeRead);
        const LockedPixels small(*m_picture, ImageLockModeWrite);
        for (int y = 0; y < StripHeight && top + y < height; ++y) {
            std::uint32_t* const row = small.Row(top + y);
            for (int x = 0; x < width; ++x)
                row[x] = MeanOfSquare(large, x, y);
        }
    }
}

void Canvas::DrawBitmaps(const std::vector<PlacedBitmap>& bitmaps)
{
    Graphics graphics(m_picture.get());
    const HDC dc = graphics.GetHDC();
    for (const PlacedBitmap& bitmap : bitmaps) {
        velmhost::CButtonImages images(bitmap.side);
        const int index = images.Add(bitmap.fileName);
        if (index >= 0)
            ::ImageList_Draw(images.List(), index, dc, bitmap.left, bitmap.top, ILD_TRANSPARENT);
    }
    graphics.ReleaseHDC(dc);
}

void Canvas::Save(const std::wstring& fileName) const
{
    if (m_picture->Save(fileName.c_str(), &PngEncoder, nullptr) != Ok)
        throw Failure{fileName + L": cannot be written"};
}

void Canvas::Painter::Fill(int left, int top, int width, int height, Color color)
{
    const SolidBrush brush(color);
    m_graphics.FillRectangle(&brush, left, top, width, height);
}

void Canvas::Painter::Box(int left, int top, int width, int height, Color fill, Color border, bool hasShadow)
{
    const auto x = static_cast<REAL>(left), y = static_cast<REAL>(top);
    const auto w = static_cast<REAL>(width), h = static_cast<REAL>(height);
    constexpr int shadowDepth = 6;
    for (int i = shadowDepth; hasShadow && i > 0; --i) {
        GraphicsPath path;
        const auto grown = static_cast<REAL>(i);
        AddRoundedBox(path, x - grown, y - grown + 2, w + 2 * grown, h + 2 * grown);
        const SolidBrush brush(Color(5, 20, 30, 60));
        m_graphics.FillPath(&brush, &path);
    }
    GraphicsPath path;
    AddRoundedBox(path, x + 0.5f, y + 0.5f, w - 1, h - 1);
    const SolidBrush brush(fill);
    const Pen pen(border, 1);
    m_graphics.FillPath(&brush, &path);
    m_graphics.DrawPath(&pen, &path);
}

void Canvas::Painter::Link(int fromX, int fromY, int lane, int toX, int toY, Color color)
{
    const auto x1 = static_cast<REAL>(fromX), y1 = static_cast<REAL>(fromY);
    const auto x2 = static_cast<REAL>(toX), y2 = static_cast<REAL>(toY);
    const auto x = static_cast<REAL>(lane);
    constexpr REAL r = CornerRadius, d = 2 * r;
    GraphicsPath path;
    if (y2 - y1 < d) {
        path.AddLine(x1, y1, x, y1);
        path.AddLine(x, y2, x2, y2);
    } else {
        path.AddLine(x1, y1, x - r, y1);
        path.AddArc(x - d, y1, d, d, 270, 90);
        path.AddLine(x, y1 + r, x, y2 - r);
        path.AddArc(x, y2 - d, d, d, 180, -90);
        path.AddLine(x + r, y2, x2, y2);
    }
    const Pen pen(color, 1.5f);
    m_graphics.DrawPath(&pen, &path);
}

void Canvas::Painter::Line(int fromX, int fromY, int toX, int toY, Color color)
{
    const Pen pen(color, 1);
    m_graphics.DrawLine(&pen, fromX, fromY, toX, toY);
}

void Canvas::Painter::Triangle(PointF a, PointF b, PointF c, Color color)
{
    const PointF points[] = {a, b, c};
    const SolidBrush brush(color);
    m_graphics.FillPolygon(&brush, points, 3);
}

void Canvas::Painter::Text(const std::wstring& text, TextStyle style, int left, int top, int width,
                           int height, Color color)
{
    std::wstring shown = text;
    if (m_canvas.TextWidth(shown, style) > width) {
        while (!shown.empty() && m_canvas.TextWidth(shown + Dots, style) > width)
            shown.pop_back();
        shown += Dots;
    }
    const SolidBrush brush(color);
    TextFormat format(style);
    format.SetLineAlignment(StringAlignmentCenter);
    // A little wider than it was measured, so that rounding cuts nothing off.
    const RectF box(static_cast<REAL>(left), static_cast<REAL>(top), static_cast<REAL>(width + 8),
                    static_cast<REAL>(height));
    m_graphics.DrawString(shown.c_str(), static_cast<INT>(shown.size()), &m_canvas.FontOf(style), box,
                          &format, &brush);
}

} // namespace velmmenu
