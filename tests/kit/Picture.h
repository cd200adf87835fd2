// A picture in memory with access to its pixels.
#pragma once

#include "kit/Platform.h"

#include <filesystem>
#include <memory>

namespace testkit
{

// A 32-bit device-independent bitmap, selected into a memory device context of its own, so that GDI can
// draw on it. Movable, not copyable. Coordinates in pixels from the upper left corner.
class Picture
{
public:
    // A picture of one colour.
    Picture(int width, int height, COLORREF fill = RGB(255, 255, 255));
    Picture(Picture&& other) noexcept;
    Picture& operator=(Picture&& other) noexcept;
    ~Picture();

    // What stands on a window's client area. The window must be visible; it is painted first
    // (UpdateWindow, BitBlt from its device context).
    static Picture OfClient(HWND window);
    // The part of a device context from `box`.
    static Picture OfDc(HDC dc, RECT box);
    // What a control draws on request (WM_PRINT with PRF_CLIENT and PRF_ERASEBKGND): the window need not
    // be visible. A common control only; another window answers with what its procedure makes of it.
    static Picture OfControl(HWND window);

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    HDC Dc() const { return m_dc; }

    // The colour of a pixel; CLR_INVALID outside.
    COLORREF Pixel(int x, int y) const;
    // How many pixels of `box` have that colour; the parts of `box` outside count nothing.
    int Count(COLORREF color, RECT box) const;
    int Count(COLORREF color) const;
    // The smallest box around all pixels of that colour; empty if there are none.
    RECT BoxOf(COLORREF color) const;

    // Same size and same pixels.
    bool operator==(const Picture& other) const;

    // Writes a .bmp file, to be looked at. False if the file cannot be written.
    bool Save(const std::filesystem::path& file) const;

private:
    void Release();

    int m_width = 0, m_height = 0;
    HDC m_dc = nullptr;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_before = nullptr;
    DWORD* m_pixels = nullptr; // 0x??RRGGBB, top row first; belongs to m_bitmap
};

} // namespace testkit
