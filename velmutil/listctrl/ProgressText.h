// The text on a progress bar.
#pragma once

#include <afxwin.h>

// `format` with its first integer conversion ("%d", "%5d", "%03i", ...) replaced by the percentage and each
// "%%" by "%"; all else in it, other conversions included, stays as it stands. An empty format gives the
// percentage with "%".
CString ProgressText(const CString& format, int percent);
