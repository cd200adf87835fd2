#include "CellPainter.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace
{

constexpr COLORREF Black = RGB(0, 0, 0);
constexpr COLORREF White = RGB(255, 255, 255);
constexpr COLORREF Transparent = RGB(255, 0, 255); // as the pattern never is
constexpr UINT OneLine = DT_VCENTER | DT_SINGLELINE;

// A GDI object that goes with its scope.
class Owned
{
public:
    explicit Owned(HGDIOBJ object) : m_object(object) {}
    ~Owned() { DeleteObject(m_object); }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;

    template <class Handle>
    Handle As() const
    {
        return static_cast<Handle>(m_object);
    }

private:
    HGDIOBJ m_object;
};

std::string Describe(COLORREF color)
{
    return "RGB(" + std::to_string(GetRValue(color)) + ", " + std::to_string(GetGValue(color)) + ", " +
           std::to_string(GetBValue(color)) + ")";
}

void SaveForTheEye(const testkit::Picture& drawn, const testkit::Picture& expected)
{
    const char* const folder = std::getenv("VELM_PICTURES");
    if (folder == nullptr)
        return;
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(test.test_suite_name()) + "." + test.name() + "-";
    std::replace(name.begin(), name.end(), '/', '_');
    const std::filesystem::path path(folder);
    int number = 1;
    while (std::filesystem::exists(path / (name + std::to_string(number) + "-drawn.bmp")))
        ++number;
    name += std::to_string(number);
    drawn.Save(path / (name + "-drawn.bmp"));
    expected.Save(path / (name + "-expected.bmp"));
}

} // namespace

COLORREF PatternImage::At(int x, int y) const
{
    if ((x + 2 * y + seed) % 5 == 0)
        return CLR_NONE;
    return RGB(x * 37 % 256, y * 53 % 256, (x + y + seed * 70) * 11 % 200);
}

HIMAGELIST MakeImageList(const std::vector<PatternImage>& images)
{
    const PatternImage& first = images.front();
    const HIMAGELIST list = ImageList_Create(first.width, first.height, ILC_COLOR24 | ILC_MASK,
                                             static_cast<int>(images.size()), 1);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = first.width;
    info.bmiHeader.biHeight = -first.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    for (const PatternImage& image : images) {
        void* bits = nullptr;
        const Owned bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        for (int y = 0; y < image.height; ++y) {
            for (int x = 0; x < image.width; ++x) {
                const COLORREF color = image.At(x, y) != CLR_NONE ? image.At(x, y) : Transparent;
                static_cast<DWORD*>(bits)[y * image.width + x] =
                    RGB(GetBValue(color), GetGValue(color), GetRValue(color));
            }
        }
        ImageList_AddMasked(list, bitmap.As<HBITMAP>(), Transparent);
    }
    return list;
}

CellPainter::CellPainter(int width, int height, HFONT font, COLORREF backdrop)
    : m_picture(width, height, backdrop), m_dc(m_picture.Dc()), m_oldFont(SelectObject(m_dc, font))
{
}

CellPainter::~CellPainter()
{
    SelectObject(m_dc, m_oldFont);
}

void CellPainter::Fill(const CRect& rect, COLORREF color)
{
    if (rect.IsRectEmpty())
        return;
    const Owned brush(CreateSolidBrush(color));
    FillRect(m_dc, &rect, brush.As<HBRUSH>());
}

void CellPainter::Line(int fromX, int fromY, int toX, int toY, COLORREF color)
{
    const Owned pen(CreatePen(PS_SOLID, 1, color));
    const HGDIOBJ oldPen = SelectObject(m_dc, pen.As<HPEN>());
    MoveToEx(m_dc, fromX, fromY, nullptr);
    LineTo(m_dc, toX, toY);
    SelectObject(m_dc, oldPen);
}

void CellPainter::Text(CRect place, std::wstring_view text, UINT format, COLORREF color)
{
    if (text.empty() || place.IsRectEmpty())
        return;
    SetBkMode(m_dc, TRANSPARENT);
    SetTextColor(m_dc, color);
    DrawTextW(m_dc, text.data(), static_cast<int>(text.size()), &place, format);
}

void CellPainter::TextCell(const CRect& cell, std::wstring_view text, CellColors colors, UINT alignment,
                           bool isBold)
{
    Fill(cell, colors.background);
    if (!isBold) {
        Text(cell, text, alignment | OneLine, colors.text);
        return;
    }
    LOGFONTW logFont{};
    GetObjectW(GetCurrentObject(m_dc, OBJ_FONT), sizeof logFont, &logFont);
    logFont.lfWeight = 700;
    const Owned bold(CreateFontIndirectW(&logFont));
    const HGDIOBJ plain = SelectObject(m_dc, bold.As<HFONT>());
    Text(cell, text, alignment | OneLine, colors.text);
    SelectObject(m_dc, plain);
}

int CellPainter::Image(const CRect& cell, const PatternImage* image, COLORREF background, int spacing)
{
    Fill(cell, background);
    const int left = cell.left + spacing;
    const int room = cell.right - left;
    if (image == nullptr || room < 1)
        return 0;
    const int top = (cell.top + cell.bottom) / 2 - image->height / 2;
    for (int y = 0; y < std::min(cell.Height(), image->height); ++y) {
        for (int x = 0; x < std::min(room, image->width); ++x) {
            const COLORREF color = image->At(x, y);
            SetPixelV(m_dc, left + x, top + y, color != CLR_NONE ? color : background);
        }
    }
    return spacing + image->width;
}

void CellPainter::ImageCell(CRect cell, const PatternImage* image, std::wstring_view text, CellColors colors,
                            int spacing)
{
    cell.left += Image(cell, image, colors.background, spacing);
    TextCell(cell, text, colors);
}

void CellPainter::CheckboxCell(const CRect& cell, std::wstring_view text, CellColors colors, COLORREF mark)
{
    Fill(cell, colors.background);
    const int side = cell.bottom - 1 - cell.top;
    const int left = text.empty() ? cell.left - 1 + (cell.Width() / 2 - side / 2) : cell.left + 9;
    CRect box(left, cell.top, left + side, cell.bottom - 1);
    Fill(box, own::Window);
    ++box.left;
    CRect edge(box);
    DrawEdge(m_dc, &edge, EDGE_SUNKEN, BF_RECT);
    if (mark != CLR_NONE)
        CheckMark(box.left + 9, box.top + 3, mark);
    Text(CRect(box.right + 4, cell.top, cell.right, cell.bottom), text, DT_LEFT | OneLine, colors.text);
}

void CellPainter::CheckMark(int x, int y, COLORREF color)
{
    // Seven strokes from right to left, three pixels high: the tops fall to the fourth and rise again.
    static constexpr int tops[] = {0, 1, 2, 3, 2, 1, 0};
    for (int top : tops) {
        Line(x, y + top, x, y + top + 3, color);
        --x;
    }
}

CRect CellPainter::ComboCell(const CRect& cell, std::wstring_view text, COLORREF textColor, bool isDown)
{
    const int left = cell.left + 1, top = cell.top, right = cell.right - 2, bottom = cell.bottom + 1;
    Line(left, bottom - 2, right, bottom - 2, own::BtnShadow);
    Line(left, top, right, top, own::BtnShadow);
    Line(left, top, left, bottom - 2, own::BtnShadow);
    Line(right, top, right, bottom - 1, own::BtnShadow);
    Fill(CRect(left + 2, top + 2, right - 2, bottom - 2), White);

    const int height = bottom - top;
    const CRect button(right + 1 - height + 2, top + 2, right + 1 - 2, bottom - 2);
    Text(CRect(left + 2, top - 1, button.left - 1, bottom), text, DT_LEFT | OneLine, textColor);

    CRect face(button);
    if (isDown) {
        const Owned brush(CreateSolidBrush(own::Shadow3d));
        FrameRect(m_dc, &button, brush.As<HBRUSH>());
        face.DeflateRect(1, 1);
        Fill(face, own::BtnFace);
        Arrow(face.left + 3, face.top + 4);
    } else {
        CRect edge(button);
        DrawEdge(m_dc, &edge, EDGE_RAISED, BF_RECT);
        face.DeflateRect(2, 2);
        Fill(face, own::BtnFace);
        Arrow(face.left + 1, face.top + 2);
    }
    return button;
}

void CellPainter::Arrow(int x, int y)
{
    Line(x, y, x + 5, y, Black);
    Line(x + 1, y + 1, x + 4, y + 1, Black);
    Line(x + 2, y + 2, x + 3, y + 2, Black);
}

void CellPainter::ProgressCell(const CRect& cell, int percent, std::wstring_view label, CellColors colors)
{
    const int left = cell.left + 1, top = cell.top, right = cell.right - 2, bottom = cell.bottom - 1;
    Line(left, bottom, right + 1, bottom, own::BtnShadow);
    Line(left, top, right, top, own::BtnShadow);
    Line(left, top, left, bottom, own::BtnShadow);
    Line(right, top, right, bottom, own::BtnShadow);
    Fill(CRect(left + 1, top + 1, right, bottom), RGB(224, 224, 224));
    Line(left + 1, top + 1, right, top + 1, Black);
    Line(left + 1, top + 1, left + 1, bottom, Black);
    if (percent <= 0)
        return;

    // Only the low 32 bits of the product count.
    const auto product = static_cast<int>(static_cast<long long>(right - (left + 2)) * percent & 0xFFFFFFFF);
    const int barEnd = left + 2 + product / 100;
    const CRect bar(left + 2, top + 2, barEnd, bottom);
    Fill(bar, own::HighLight);
    const CRect place(left + 1, top + 2, right - 1, bottom - 1);
    ClippedText(bar, place, label, colors.background);
    ClippedText(CRect(barEnd + 1, top + 2, right, bottom), place, label, colors.text);
}

void CellPainter::ClippedText(const CRect& clip, const CRect& place, std::wstring_view text, COLORREF color)
{
    if (clip.IsRectEmpty())
        return;
    const Owned region(CreateRectRgnIndirect(&clip));
    SelectClipRgn(m_dc, region.As<HRGN>());
    Text(place, text, DT_CENTER | OneLine, color);
    SelectClipRgn(m_dc, nullptr);
}

void CellPainter::Message(const CRect& area, std::wstring_view text)
{
    Fill(area, own::Window);
    const HGDIOBJ font = SelectObject(m_dc, GetStockObject(ANSI_VAR_FONT));
    Text(area, text, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX | DT_NOCLIP, own::WindowText);
    SelectObject(m_dc, font);
}

testing::AssertionResult SamePixels(const testkit::Picture& drawn, const testkit::Picture& expected,
                                    const CRect& part)
{
    SaveForTheEye(drawn, expected);
    if (part.IsRectEmpty())
        return testing::AssertionFailure() << "There is nothing to compare.";
    int differing = 0;
    CPoint first;
    for (int y = part.top; y < part.bottom; ++y) {
        for (int x = part.left; x < part.right; ++x) {
            const COLORREF a = drawn.Pixel(x, y), b = expected.Pixel(x, y);
            if (a == CLR_INVALID || b == CLR_INVALID)
                return testing::AssertionFailure() << "The part reaches beyond a picture.";
            if (a != b && differing++ == 0)
                first = CPoint(x, y);
        }
    }
    if (differing == 0)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << differing << " pixels differ, the first at (" << first.x << ", "
                                       << first.y << "): drawn " << Describe(drawn.Pixel(first.x, first.y))
                                       << ", expected " << Describe(expected.Pixel(first.x, first.y));
}

testing::AssertionResult SamePixels(const testkit::Picture& drawn, const testkit::Picture& expected)
{
    if (drawn.Width() != expected.Width() || drawn.Height() != expected.Height())
        return testing::AssertionFailure() << "The sizes differ.";
    return SamePixels(drawn, expected, CRect(0, 0, drawn.Width(), drawn.Height()));
}
