// What the header and the list do alike with images.
#pragma once

#include <optional>

#include <afxwin.h>
#include <afxcmn.h>

// The size of an image of a list; nothing if there is no such image.
std::optional<CSize> ImageSize(HIMAGELIST images, int index);

// Draws image `index` at `position`, cut to `size`, over `background`, which the image list's own background
// colour becomes for the moment.
void DrawImageOver(CDC* pDC, CImageList* images, int index, CPoint position, CSize size, COLORREF background);
