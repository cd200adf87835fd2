#include "Picture.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "Bitmaps.h"
#include "Canvas.h"
#include "Failure.h"
#include "Panels.h"
#include "ToolHost.h"
#include "shell/MenuMirror.h"

namespace velmmenu
{

namespace
{

using Gdiplus::Color;
using Gdiplus::PointF;

const Color Background(255, 243, 245, 249);
const Color Paper(255, 255, 255, 255);
const Color Border(255, 196, 202, 214);
const Color Ink(255, 31, 36, 48);
const Color Pale(255, 118, 126, 142);
const Color Accent(255, 62, 116, 214);
const Color Opened(255, 230, 239, 254);
const Color Bar(255, 229, 233, 241);
const Color Missing(255, 205, 80, 80);

constexpr int Margin = 24;
constexpr int SectionGap = 34;
constexpr int BarHeight = 30;
constexpr int CaptionHeight = 28;
constexpr int BlockGap = 40;    // between fly-outs
constexpr int WidestText = 380; // of a row
constexpr int LeastRowWidth = 900;
constexpr int SmallSide = 16;
constexpr int LargeSide = 24;
constexpr int LargestSide = 16000;
constexpr long long LargestArea = 40000000;

// A button of the toolbar itself.
struct PlacedButton
{
    PlacedBitmap bitmap;
    bool isFlyout;
};

// A fly-out of the toolbar: the tip of its button over the panels.
struct Block
{
    std::wstring title;
    int left = 0;
    int top = 0;
    Panel panel;
};

TextStyle StyleOf(const PanelRow& row)
{
    return row.isHint ? TextStyle::Hint : row.hasMnemonic ? TextStyle::Mnemonic : TextStyle::Plain;
}

class PictureMaker
{
public:
    PictureMaker(const velmhost::Menu* menu, const velmhost::Toolbar* toolbar)
        : m_menu(menu), m_toolBar(toolbar)
    {
    }

    void Make(const std::wstring& bitmaps, const std::wstring& fileName)
    {
        PlaceMenu();
        PlaceToolBar();
        const int width = m_right + Margin, height = m_bottom + Margin;
        if (std::max(width, height) > LargestSide || static_cast<long long>(width) * height > LargestArea)
            throw Failure{L"the picture would have " + std::to_wstring(width) + L" by " +
                          std::to_wstring(height) + L" pixels, which is too much"};
        std::vector<PlacedBitmap> found, missing;
        for (PlacedBitmap& bitmap : AllBitmaps()) {
            bitmap.fileName = bitmaps + L"\\" + bitmap.fileName;
            (!bitmaps.empty() && IsBitmap(bitmap.fileName) ? found : missing).push_back(bitmap);
        }
        m_canvas.Paint(width, height, Background, [&](Canvas::Painter& painter) { Draw(painter, missing); });
        m_canvas.DrawBitmaps(found);
        m_canvas.Save(fileName);
    }

private:
    int MeasureText(const PanelRow& row) const
    {
        return std::min(WidestText, m_canvas.TextWidth(row.text, StyleOf(row)));
    }

    void Take(int right, int bottom)
    {
        m_right = std::max(m_right, right);
        m_bottom = std::max(m_bottom, bottom);
    }

    void PlaceMenu()
    {
        if (m_menu == nullptr)
            return;
        m_menuPanel = MakePanel(*m_menu);
        const Extent extent = PlacePanels(*m_menuPanel, Margin, Margin + BarHeight,
                                          [this](const PanelRow& row) { return MeasureText(row); });
        m_menuTitleWidth =
            std::min(WidestText, m_canvas.TextWidth(velmhost::MenuLabel(m_menu->name), TextStyle::Mnemonic));
        Take(Margin + std::max(extent.width, m_menuTitleWidth + 2 * MenuTextLeft),
             Margin + BarHeight + extent.height);
    }

    void PlaceToolBar()
    {
        if (m_toolBar == nullptr)
            return;
        m_toolBarTop = m_menu != nullptr ? m_bottom + SectionGap : Margin;
        const int limit = std::max(m_right, Margin + LeastRowWidth);
        m_toolBarTitleWidth = std::min(WidestText, m_canvas.TextWidth(m_toolBar->name, TextStyle::Title));
        m_toolBarRight = Margin + m_toolBarTitleWidth + 2 * MenuTextLeft;
        int y = m_toolBarTop + CaptionHeight + 6;
        y = PlaceButtons(SmallSide, y, limit);
        y = PlaceButtons(LargeSide, y, limit);
        if (m_toolBar->items.empty())
            y += CaptionHeight;
        m_toolBarBottom = y;
        Take(m_toolBarRight, m_toolBarBottom);
        PlaceFlyouts(limit);
    }

    // One row of buttons, or more where they do not fit into one; returns what is below them.
    int PlaceButtons(int side, int top, int limit)
    {
        const int cell = side + 10;
        int x = Margin + 6, y = top;
        for (const auto& item : m_toolBar->items) {
            if (x + cell + 6 > limit) {
                x = Margin + 6;
                y += cell + 2;
            }
            const bool isSmall = side == SmallSide;
            const std::wstring name = CToolHost::BitmapName(isSmall ? item->smallBitmap : item->largeBitmap);
            m_buttons.push_back({{name, x + 5, y + 5, side}, item->flyout != nullptr});
            x += cell;
            m_toolBarRight = std::max(m_toolBarRight, x + 6);
        }
        return m_toolBar->items.empty() ? top : y + cell + 6;
    }

    void PlaceFlyouts(int limit)
    {
        int x = Margin, y = m_toolBarBottom + SectionGap / 2, rowBottom = y;
        for (const auto& item : m_toolBar->items) {
            if (item->flyout == nullptr)
                continue;
            Block block;
            block.title = item->name;
            block.panel = MakePanel(*item->flyout);
            const MeasureRow measure = [this](const PanelRow& row) { return MeasureText(row); };
            Extent extent = PlacePanels(block.panel, x, y + CaptionHeight, measure);
            if (x > Margin && x + extent.width > limit) {
                x = Margin;
                y = rowBottom + SectionGap / 2;
                extent = PlacePanels(block.panel, x, y + CaptionHeight, measure);
            }
            block.left = x;
            block.top = y;
            rowBottom = std::max(rowBottom, y + CaptionHeight + extent.height);
            Take(x + extent.width, rowBottom);
            x += extent.width + BlockGap;
            m_blocks.push_back(std::move(block));
        }
    }

    void Draw(Canvas::Painter& painter, const std::vector<PlacedBitmap>& missing) const
    {
        if (m_menuPanel) {
            const std::wstring title = velmhost::MenuLabel(m_menu->name);
            const int tab = m_menuTitleWidth + 2 * MenuTextLeft;
            painter.Fill(Margin, Margin, m_right - Margin, BarHeight - 4, Bar);
            painter.Fill(Margin, Margin, tab, BarHeight - 4, Opened);
            painter.Text(title, TextStyle::Mnemonic, Margin + MenuTextLeft, Margin, m_menuTitleWidth,
                         BarHeight - 4, Ink);
            DrawPanels(painter, *m_menuPanel);
        }
        if (m_toolBar != nullptr)
            DrawToolBar(painter);
        for (const Block& block : m_blocks) {
            painter.Text(block.title, TextStyle::Title, block.left + 2, block.top, WidestText,
                         CaptionHeight - 4, Ink);
            DrawPanels(painter, block.panel);
        }
        for (const PlacedBitmap& bitmap : missing)
            DrawMissing(painter, bitmap);
    }

    void DrawToolBar(Canvas::Painter& painter) const
    {
        const int width = m_toolBarRight - Margin;
        painter.Box(Margin, m_toolBarTop, width, m_toolBarBottom - m_toolBarTop, Paper, Border, true);
        painter.Fill(Margin + 1, m_toolBarTop + 3, width - 2, CaptionHeight - 3, Bar);
        painter.Text(m_toolBar->name, TextStyle::Title, Margin + MenuTextLeft, m_toolBarTop,
                     m_toolBarTitleWidth, CaptionHeight, Ink);
        if (m_toolBar->items.empty())
            painter.Text(L"(empty)", TextStyle::Hint, Margin + MenuTextLeft, m_toolBarTop + CaptionHeight + 4,
                         WidestText, CaptionHeight, Pale);
        for (const PlacedButton& button : m_buttons) {
            if (!button.isFlyout)
                continue;
            const auto right = static_cast<float>(button.bitmap.left + button.bitmap.side + 4);
            const auto bottom = static_cast<float>(button.bitmap.top + button.bitmap.side + 4);
            painter.Triangle(PointF(right, bottom - 5), PointF(right, bottom), PointF(right - 5, bottom),
                             Ink);
        }
    }

    static void DrawPanels(Canvas::Painter& painter, const Panel& root)
    {
        ForEachPanel(root, [&](const Panel& panel) { DrawPanel(painter, panel); });
        ForEachPanel(root, [&](const Panel& panel) { DrawLinks(painter, panel); });
    }

    static void DrawLinks(Canvas::Painter& painter, const Panel& panel)
    {
        for (const PanelRow& row : panel.rows) {
            if (!row.opens || row.opens->rows.empty())
                continue;
            const PanelRow& first = row.opens->rows.front();
            painter.Link(panel.left + panel.width, row.top + row.height / 2, row.lane, row.opens->left,
                         first.top + first.height / 2, Accent);
        }
    }

    static void DrawPanel(Canvas::Painter& painter, const Panel& panel)
    {
        painter.Box(panel.left, panel.top, panel.width, panel.height, Paper, Border, true);
        const int textLeft = panel.hasBitmaps ? BitmapTextLeft : MenuTextLeft;
        for (const PanelRow& row : panel.rows) {
            const int right = panel.left + panel.width;
            if (row.isSeparator) {
                painter.Fill(panel.left + 8, row.top + row.height / 2, panel.width - 16, 1, Border);
                continue;
            }
            if (row.opens) {
                painter.Fill(panel.left + 2, row.top, panel.width - 4, row.height, Opened);
                const auto tip = static_cast<float>(right - 10), middle = row.top + row.height / 2.0f;
                painter.Triangle(PointF(tip - 5, middle - 4.5f), PointF(tip, middle),
                                 PointF(tip - 5, middle + 4.5f), Accent);
            }
            painter.Text(row.text, StyleOf(row), panel.left + textLeft, row.top,
                         panel.width - textLeft - ArrowRoom + 2, row.height, row.isHint ? Pale : Ink);
        }
    }

    static void DrawMissing(Canvas::Painter& painter, const PlacedBitmap& bitmap)
    {
        const int left = bitmap.left + 1, top = bitmap.top + 1;
        const int right = bitmap.left + bitmap.side - 1, bottom = bitmap.top + bitmap.side - 1;
        painter.Line(left, top, right, top, Missing);
        painter.Line(right, top, right, bottom, Missing);
        painter.Line(right, bottom, left, bottom, Missing);
        painter.Line(left, bottom, left, top, Missing);
        painter.Line(left, top, right, bottom, Missing);
        painter.Line(left, bottom, right, top, Missing);
    }

    std::vector<PlacedBitmap> AllBitmaps() const
    {
        std::vector<PlacedBitmap> all;
        for (const PlacedButton& button : m_buttons)
            all.push_back(button.bitmap);
        for (const Block& block : m_blocks) {
            ForEachPanel(block.panel, [&](const Panel& panel) {
                for (const PanelRow& row : panel.rows) {
                    if (row.isSeparator || row.isHint)
                        continue;
                    const int middle = row.top + row.height / 2;
                    all.push_back(
                        {row.smallBitmap, panel.left + SmallBitmapLeft, middle - SmallSide / 2, SmallSide});
                    all.push_back(
                        {row.largeBitmap, panel.left + LargeBitmapLeft, middle - LargeSide / 2, LargeSide});
                }
            });
        }
        return all;
    }

    const velmhost::Menu* m_menu;
    const velmhost::Toolbar* m_toolBar;
    Canvas m_canvas;
    std::optional<Panel> m_menuPanel;
    int m_menuTitleWidth = 0;
    std::vector<PlacedButton> m_buttons;
    std::vector<Block> m_blocks;
    int m_toolBarTitleWidth = 0;
    int m_toolBarTop = 0;
    int m_toolBarRight = 0;
    int m_toolBarBottom = 0;
    int m_right = 0; // of all that was placed
    int m_bottom = 0;
};

} // namespace

void SavePicture(const velmhost::Menu* menu, const velmhost::Toolbar* toolbar, const std::wstring& bitmaps,
                 const std::wstring& fileName)
{
    const GdiplusSession session;
    PictureMaker(menu, toolbar).Make(bitmaps, fileName);
}

} // namespace velmmenu
