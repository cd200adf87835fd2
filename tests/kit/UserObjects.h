// GDI objects and windows of this process, counted and described.
#pragma once

#include "kit/Platform.h"

#include <array>
#include <string>
#include <vector>

namespace testkit
{

// How many GDI objects the process holds. GetGuiResources where it counts, else the platform's table of
// handles; which of the two is found out once, by making an object.
int CountGdiObjects();

// The number of GDI objects of each kind, by the platform's own number for it; all zero where
// GetGuiResources counts.
using GdiTypes = std::array<int, 128>;
GdiTypes CountGdiTypes();

// "bitmap +1, brush +2", or an empty text when no difference is known.
std::string DescribeGdiGrowth(const GdiTypes& before, const GdiTypes& after);

// Every window of the process, of all threads: top-level, message-only and child windows. Windows that
// the system makes once for itself (input method, COM) are left out.
std::vector<HWND> ProcessWindows();

// "window 0x10032 of class \"Button\", text \"OK\"".
std::string DescribeWindow(HWND window);

} // namespace testkit
