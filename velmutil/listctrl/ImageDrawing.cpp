#include "listctrl/ImageDrawing.h"

std::optional<CSize> ImageSize(HIMAGELIST images, int index)
{
    IMAGEINFO info = {};
    if (images == nullptr || !ImageList_GetImageInfo(images, index, &info))
        return std::nullopt;
    return CRect(info.rcImage).Size();
}

void DrawImageOver(CDC* pDC, CImageList* images, int index, CPoint position, CSize size, COLORREF background)
{
    const COLORREF oldBackground = images->SetBkColor(background);
    images->DrawIndirect(pDC, index, position, size, CPoint(0, 0), ILD_NORMAL, SRCCOPY, CLR_DEFAULT,
                         CLR_DEFAULT, ILS_NORMAL);
    images->SetBkColor(oldBackground);
}
