// GDI+, whose headers want names that are not everywhere.
#pragma once

#include <afxwin.h>
#include <objidl.h>

#include <algorithm>

namespace Gdiplus
{
using std::max;
using std::min;
} // namespace Gdiplus

#include <gdiplus.h>
