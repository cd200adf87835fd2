// A menu or toolbar as panels, each with its rows, and their places on a picture.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "model/HostElements.h"

namespace velmmenu
{

struct Panel;

struct PanelRow
{
    bool isSeparator = false;
    bool isHint = false;      // says that there is nothing
    bool hasMnemonic = false; // `&` in the text marks the letter that is underlined
    std::wstring text;
    std::wstring smallBitmap; // names within the folder of bitmaps; empty without
    std::wstring largeBitmap;
    std::unique_ptr<Panel> opens; // null when the row opens nothing
    int top = 0;                  // in pixels of the picture, as the places below
    int height = 0;
    int lane = 0; // of a row that opens something: where the line to it runs down
};

struct Panel
{
    std::vector<PanelRow> rows;
    bool hasBitmaps = false;
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

struct Extent
{
    int width = 0;
    int height = 0;
};

// Sizes in pixels that the drawing shares.
inline constexpr int PanelPadding = 4;
inline constexpr int MenuTextLeft = 14;
inline constexpr int SmallBitmapLeft = 10;
inline constexpr int LargeBitmapLeft = 34;
inline constexpr int BitmapTextLeft = 68;
inline constexpr int ArrowRoom = 34; // right of the text

// The panels of a menu and its cascades, and of a fly-out's toolbar and the fly-outs in it.
Panel MakePanel(const velmhost::Menu& menu);
Panel MakePanel(const velmhost::Toolbar& toolbar);

// Width of a row's text in pixels.
using MeasureRow = std::function<int(const PanelRow&)>;

// Gives the panel and all that it opens their places, from the left upper corner: what a panel opens stands
// in the next column, beside its row or further down. Returns the room that is taken.
Extent PlacePanels(Panel& panel, int left, int top, const MeasureRow& measure);

// Calls visit for the panel and all that it opens.
void ForEachPanel(const Panel& panel, const std::function<void(const Panel&)>& visit);

} // namespace velmmenu
