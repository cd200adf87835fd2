#include "CreditsPainter.h"

#include <string>

namespace
{

constexpr COLORREF Black = 0x000000;
constexpr COLORREF PureGreen = 0x00FF00;
constexpr COLORREF LightGreen = 0x80FF80;

std::string Describe(COLORREF color)
{
    return "RGB(" + std::to_string(GetRValue(color)) + ", " + std::to_string(GetGValue(color)) + ", " +
           std::to_string(GetBValue(color)) + ")";
}

void Fill(testkit::Picture& picture, const CRect& rect, COLORREF color)
{
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(picture.Dc(), &rect, brush);
    DeleteObject(brush);
}

} // namespace

CreditsPainter::CreditsPainter(CSize size, const CellFont& font)
    : m_font(font), m_rain(size.cx, size.cy, Black), m_frame(size.cx, size.cy, Black)
{
}

void CreditsPainter::Tick(const CreditsModel& model, UINT_PTR id)
{
    for (const RainStroke& stroke : model.strokes) {
        const std::wstring_view letter(&stroke.letter, 1);
        const COLORREF color = RGB(0, stroke.green, 0);
        if (stroke.isHead) {
            String(m_rain, CPoint(stroke.column, stroke.row), letter, color);
        } else {
            const int indent = (m_font.CellWidth() - m_font.WidthOf(letter)) / 2;
            Output(m_rain, stroke.column * m_font.CellWidth() + indent, stroke.row * m_font.CellHeight(),
                   letter, color);
        }
    }
    if (id >= 1 && id <= 4)
        Compose(model);
}

void CreditsPainter::Compose(const CreditsModel& model)
{
    BitBlt(m_frame.Dc(), 0, 0, model.client.cx, model.client.cy, m_rain.Dc(), 0, 0, SRCCOPY);
    for (const CreditsModel::Spin& spin : model.spins) {
        if (spin.lives)
            String(m_frame, spin.cell, std::wstring_view(&spin.letter, 1), PureGreen);
    }
    for (long long line = model.first; line <= model.current; ++line) {
        const std::wstring text = line < model.current ? model.LineText(line) : model.Text();
        String(m_frame, model.places[static_cast<size_t>(line - model.first)], text, LightGreen);
    }
    if (!model.options.hasCursor)
        return;
    const CPoint cursor(model.cursorColumn, model.cursorRow);
    if (model.cursorSign == 1)
        Block(m_frame, cursor, LightGreen);
    else
        String(m_frame, cursor, std::wstring_view(&model.cursorSign, 1), LightGreen);
}

void CreditsPainter::String(testkit::Picture& picture, CPoint cell, std::wstring_view text, COLORREF color)
{
    if (text.empty())
        return;
    const int width = m_font.WidthOf(text);
    const int left = cell.x * m_font.CellWidth(), top = cell.y * m_font.CellHeight();
    const bool isSingle = text.size() == 1;
    Fill(picture, CRect(CPoint(left, top), CSize(isSingle ? m_font.CellWidth() : width, m_font.CellHeight())),
         Black);
    Output(picture, isSingle ? left + (m_font.CellWidth() - width) / 2 : left, top, text, color);
}

void CreditsPainter::Block(testkit::Picture& picture, CPoint cell, COLORREF color)
{
    const CPoint corner(cell.x * m_font.CellWidth(), cell.y * m_font.CellHeight());
    Fill(picture, CRect(corner, CSize(m_font.CellWidth(), m_font.CellHeight())), color);
}

void CreditsPainter::Output(testkit::Picture& picture, int x, int y, std::wstring_view text, COLORREF color)
{
    const HDC dc = picture.Dc();
    const HGDIOBJ before = SelectObject(dc, m_font.Handle());
    SetBkMode(dc, OPAQUE);
    SetBkColor(dc, Black);
    SetTextColor(dc, color);
    ExtTextOutW(dc, x, y, 0, nullptr, text.data(), static_cast<UINT>(text.size()), nullptr);
    SelectObject(dc, before);
}

testing::AssertionResult SamePixels(const testkit::Picture& drawn, const testkit::Picture& expected)
{
    if (drawn.Width() != expected.Width() || drawn.Height() != expected.Height())
        return testing::AssertionFailure() << "The sizes differ.";
    if (drawn == expected)
        return testing::AssertionSuccess();
    int differing = 0;
    CPoint first;
    for (int y = 0; y < drawn.Height(); ++y) {
        for (int x = 0; x < drawn.Width(); ++x) {
            if (drawn.Pixel(x, y) != expected.Pixel(x, y) && differing++ == 0)
                first = CPoint(x, y);
        }
    }
    return testing::AssertionFailure() << differing << " pixels differ, the first at (" << first.x << ", "
                                       << first.y << "): drawn " << Describe(drawn.Pixel(first.x, first.y))
                                       << ", expected " << Describe(expected.Pixel(first.x, first.y));
}
