#include "Pictures.h"

#include <functional>

namespace
{

constexpr int PictureSize = 14;
constexpr COLORREF Key = RGB(255, 0, 255);

// Adds a picture that `draw` makes; what it leaves alone is transparent.
void AddPicture(CImageList& pictures, const std::function<void(CDC&)>& draw)
{
    CClientDC screen(nullptr);
    CDC dc;
    dc.CreateCompatibleDC(&screen);
    CBitmap bitmap;
    bitmap.CreateCompatibleBitmap(&screen, PictureSize, PictureSize);
    CBitmap* const oldBitmap = dc.SelectObject(&bitmap);
    dc.FillSolidRect(0, 0, PictureSize, PictureSize, Key);
    draw(dc);
    dc.SelectObject(oldBitmap);
    pictures.Add(&bitmap, Key);
}

void DrawFilled(CDC& dc, COLORREF color, const std::function<void()>& shape)
{
    CBrush brush(color);
    CPen pen(PS_SOLID, 1, RGB(64, 64, 64));
    CBrush* const oldBrush = dc.SelectObject(&brush);
    CPen* const oldPen = dc.SelectObject(&pen);
    shape();
    dc.SelectObject(oldPen);
    dc.SelectObject(oldBrush);
}

void DrawBox(CDC& dc, bool isChecked)
{
    CRect box(0, 0, PictureSize, PictureSize);
    box.DeflateRect(1, 1);
    dc.DrawFrameControl(&box, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_FLAT | (isChecked ? DFCS_CHECKED : 0));
}

} // namespace

void MakeTaskPictures(CImageList& pictures)
{
    pictures.Create(PictureSize, PictureSize, ILC_COLOR32 | ILC_MASK, 4, 0);
    AddPicture(pictures, [](CDC& dc) {
        const POINT triangle[] = {{1, 12}, {12, 12}, {12, 2}};
        DrawFilled(dc, RGB(244, 190, 66), [&] { dc.Polygon(triangle, 3); });
    });
    AddPicture(pictures,
               [](CDC& dc) { DrawFilled(dc, RGB(86, 156, 214), [&] { dc.Rectangle(1, 3, 13, 12); }); });
    AddPicture(pictures,
               [](CDC& dc) { DrawFilled(dc, RGB(106, 176, 76), [&] { dc.Ellipse(1, 1, 13, 13); }); });
    AddPicture(pictures, [](CDC& dc) {
        const POINT sheet[] = {{2, 1}, {9, 1}, {12, 4}, {12, 13}, {2, 13}};
        DrawFilled(dc, RGB(250, 250, 250), [&] { dc.Polygon(sheet, 5); });
    });
}

void MakeHeaderPictures(CImageList& pictures)
{
    pictures.Create(PictureSize, PictureSize, ILC_COLOR32 | ILC_MASK, 3, 0);
    AddPicture(pictures, [](CDC&) {});
    AddPicture(pictures, [](CDC& dc) { DrawBox(dc, false); });
    AddPicture(pictures, [](CDC& dc) { DrawBox(dc, true); });
}
