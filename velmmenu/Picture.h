// A picture of what the host is given.
#pragma once

#include <string>

#include "model/HostElements.h"

namespace velmmenu
{

// Draws the menu with all cascades open, and the toolbar with small and with large bitmaps and its fly-outs
// (each may be null), into a PNG file. `bitmaps` is the folder of the bitmaps, empty when there is none.
// Throws Failure when the picture would be larger than 16,000 pixels in a direction or 40 million in all,
// and when the file cannot be written. Rests on GDI+.
void SavePicture(const velmhost::Menu* menu, const velmhost::Toolbar* toolbar, const std::wstring& bitmaps,
                 const std::wstring& fileName);

} // namespace velmmenu
