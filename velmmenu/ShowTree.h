// What the host is given, as text.
#pragma once

#include <string>

#include "model/HostElements.h"

namespace velmmenu
{

// The menu and the toolbar (each may be null) with all that is in them, one entry per line, two spaces of
// indentation per level. Control characters are shown with a caret. Example:
//
//   menu "&Tools"
//     item "&Line" macro "^C^CLINE " help "Draws a line"
//     separator
//     cascade "&More"
//       item "Heading"
//   toolbar "Tools"
//     button tip "Line" macro "^C^CLINE " bitmaps line16.bmp line24.bmp
//     fly-out tip "Circle" macro "CIRCLE " bitmaps circle16.bmp circle24.bmp
//       button tip "Circle" macro "CIRCLE " bitmaps circle16.bmp circle24.bmp
std::wstring ShowTree(const velmhost::Menu* menu, const velmhost::Toolbar* toolbar);

} // namespace velmmenu
