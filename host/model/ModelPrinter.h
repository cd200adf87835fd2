// The model as text for people to read.
#pragma once

#include <string>

namespace velmhost
{

class HostModel;

// Returns the whole tree, one element per line with two spaces of indentation per level and a line feed
// at each end. Text stands in double quotes; see VisibleText for what is done to it. A line leaves out
// what has its usual value. Example:
//
//   menu bar: "&Tools"
//   large buttons: no
//   group "BASE" base
//     menu "&Tools" on bar
//       item "&Line" macro "^C^C_line " help "Draws a line"
//       separator
//       submenu "&More"
//         item "A" macro "a " disabled checked
//     menu "POP0" shortcut
//     toolbar "Draw" visible floating
//       button "Line" macro "_line " help "Draws a line" bitmaps "l16.bmp" "l24.bmp"
//       separator
//       flyout "More" macro "x" opens "SubToolbar"
//     toolbar "SubToolbar" hidden top
std::wstring PrintModel(const HostModel& model);

// Returns `text` with each control character below space as `^` and a letter (3 as ^C, 27 as ^[), and
// with `^`, `"` and character 127 as ^^, ^" and ^?.
std::wstring VisibleText(const std::wstring& text);

} // namespace velmhost
