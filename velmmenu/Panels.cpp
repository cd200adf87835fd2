#include "Panels.h"

#include <algorithm>

#include "ToolHost.h"
#include "shell/MenuMirror.h"

namespace velmmenu
{

namespace
{

constexpr int MenuRowHeight = 24;
constexpr int BitmapRowHeight = 32;
constexpr int SeparatorHeight = 9;
constexpr int LeastColumnGap = 52;
constexpr int PanelGap = 18; // between two of one column
constexpr int LeastWidth = 90;

void SayIfEmpty(Panel& panel)
{
    if (!panel.rows.empty())
        return;
    PanelRow hint;
    hint.isHint = true;
    hint.text = L"(empty)";
    panel.rows.push_back(std::move(hint));
}

int RowHeight(const Panel& panel, const PanelRow& row)
{
    return row.isSeparator ? SeparatorHeight : panel.hasBitmaps ? BitmapRowHeight : MenuRowHeight;
}

void Measure(Panel& panel, const MeasureRow& measure)
{
    panel.width = LeastWidth;
    panel.height = 2 * PanelPadding;
    for (PanelRow& row : panel.rows) {
        row.height = RowHeight(panel, row);
        panel.height += row.height;
        const int left = panel.hasBitmaps ? BitmapTextLeft : MenuTextLeft;
        panel.width = std::max(panel.width, left + measure(row) + ArrowRoom);
    }
}

void Place(Panel& panel, int left, int top)
{
    panel.left = left;
    panel.top = top;
    int y = top + PanelPadding;
    for (PanelRow& row : panel.rows) {
        row.top = y;
        y += row.height;
    }
}

// The lines from a column to the next one do not cross when those of upper rows run down further right.
// Returns the room that they need.
int PlaceLanes(const std::vector<PanelRow*>& rows, int left)
{
    constexpr int edge = 16, widestStep = 6, widestGap = 130;
    const int steps = std::max(0, static_cast<int>(rows.size()) - 1);
    const int gap = std::clamp(2 * edge + widestStep * steps, LeastColumnGap, widestGap);
    const int step = steps > 0 ? std::min(widestStep, (gap - 2 * edge) / steps) : 0;
    int lane = left + (gap + step * steps) / 2;
    for (PanelRow* const row : rows) {
        row->lane = lane;
        lane -= step;
    }
    return gap;
}

} // namespace

Panel MakePanel(const velmhost::Menu& menu)
{
    Panel panel;
    for (const auto& item : menu.items) {
        PanelRow row;
        row.isSeparator = item->type == velmhost::MenuItemType::Separator;
        row.hasMnemonic = true;
        row.text = velmhost::MenuLabel(item->label);
        if (item->subMenu)
            row.opens = std::make_unique<Panel>(MakePanel(*item->subMenu));
        panel.rows.push_back(std::move(row));
    }
    SayIfEmpty(panel);
    return panel;
}

Panel MakePanel(const velmhost::Toolbar& toolbar)
{
    Panel panel;
    panel.hasBitmaps = true;
    for (const auto& item : toolbar.items) {
        PanelRow row;
        row.isSeparator = item->type == velmhost::ToolbarItemType::Separator;
        row.text = item->name;
        row.smallBitmap = CToolHost::BitmapName(item->smallBitmap);
        row.largeBitmap = CToolHost::BitmapName(item->largeBitmap);
        if (item->flyout != nullptr)
            row.opens = std::make_unique<Panel>(MakePanel(*item->flyout));
        panel.rows.push_back(std::move(row));
    }
    SayIfEmpty(panel);
    return panel;
}

Extent PlacePanels(Panel& panel, int left, int top, const MeasureRow& measure)
{
    // A panel and where the row that opens it begins.
    struct Waiting
    {
        Panel* panel;
        int wishedTop;
    };
    std::vector<Waiting> column{{&panel, top}};
    Extent extent;
    int x = left;
    while (!column.empty()) {
        int width = 0;
        for (const Waiting& waiting : column) {
            Measure(*waiting.panel, measure);
            width = std::max(width, waiting.panel->width);
        }
        std::vector<Waiting> next;
        std::vector<PanelRow*> openers;
        int y = top;
        for (const Waiting& waiting : column) {
            waiting.panel->width = width;
            Place(*waiting.panel, x, std::max(y, waiting.wishedTop));
            y = waiting.panel->top + waiting.panel->height + PanelGap;
            for (PanelRow& row : waiting.panel->rows) {
                if (!row.opens)
                    continue;
                next.push_back({row.opens.get(), row.top - PanelPadding});
                openers.push_back(&row);
            }
        }
        extent.width = x + width - left;
        extent.height = std::max(extent.height, y - PanelGap - top);
        x += width + PlaceLanes(openers, x + width);
        column = std::move(next);
    }
    return extent;
}

void ForEachPanel(const Panel& panel, const std::function<void(const Panel&)>& visit)
{
    visit(panel);
    for (const PanelRow& row : panel.rows) {
        if (row.opens)
            ForEachPanel(*row.opens, visit);
    }
}

} // namespace velmmenu
