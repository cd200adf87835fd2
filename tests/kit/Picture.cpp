#include "kit/Picture.h"

#include <algorithm>
#include <fstream>
#include <utility>

namespace testkit
{
namespace
{

constexpr DWORD ColorBits = 0x00FFFFFF;

DWORD ToPixel(COLORREF color)
{
    return static_cast<DWORD>(GetRValue(color)) << 16 | static_cast<DWORD>(GetGValue(color)) << 8 |
           GetBValue(color);
}

BITMAPINFO InfoOf(int width, int height)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height; // top row first; with a negative height bottom row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

} // namespace

Picture::Picture(int width, int height, COLORREF fill)
    : m_width(std::max(width, 1)), m_height(std::max(height, 1))
{
    const BITMAPINFO info = InfoOf(m_width, m_height);
    void* pixels = nullptr;
    m_dc = CreateCompatibleDC(nullptr);
    m_bitmap = CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    m_pixels = static_cast<DWORD*>(pixels);
    m_before = SelectObject(m_dc, m_bitmap);
    std::fill_n(m_pixels, static_cast<size_t>(m_width) * static_cast<size_t>(m_height), ToPixel(fill));
}

Picture::Picture(Picture&& other) noexcept
{
    *this = std::move(other);
}

Picture& Picture::operator=(Picture&& other) noexcept
{
    if (this != &other) {
        Release();
        m_width = std::exchange(other.m_width, 0);
        m_height = std::exchange(other.m_height, 0);
        m_dc = std::exchange(other.m_dc, nullptr);
        m_bitmap = std::exchange(other.m_bitmap, nullptr);
        m_before = std::exchange(other.m_before, nullptr);
        m_pixels = std::exchange(other.m_pixels, nullptr);
    }
    return *this;
}

Picture::~Picture()
{
    Release();
}

void Picture::Release()
{
    if (m_dc) {
        SelectObject(m_dc, m_before);
        DeleteObject(m_bitmap);
        DeleteDC(m_dc);
    }
}

Picture Picture::OfClient(HWND window)
{
    UpdateWindow(window);
    RECT box{};
    GetClientRect(window, &box);
    const HDC dc = GetDC(window);
    Picture picture = OfDc(dc, box);
    ReleaseDC(window, dc);
    return picture;
}

Picture Picture::OfDc(HDC dc, RECT box)
{
    Picture picture(box.right - box.left, box.bottom - box.top);
    BitBlt(picture.m_dc, 0, 0, picture.m_width, picture.m_height, dc, box.left, box.top, SRCCOPY);
    GdiFlush(); // before the pixels are read without GDI
    return picture;
}

Picture Picture::OfControl(HWND window)
{
    RECT box{};
    GetClientRect(window, &box);
    Picture picture(box.right, box.bottom);
    SendMessageW(window, WM_PRINT, reinterpret_cast<WPARAM>(picture.m_dc), PRF_CLIENT | PRF_ERASEBKGND);
    GdiFlush();
    return picture;
}

COLORREF Picture::Pixel(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_width || y >= m_height) {
        return CLR_INVALID;
    }
    GdiFlush();
    const DWORD pixel = m_pixels[y * m_width + x];
    return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

int Picture::Count(COLORREF color, RECT box) const
{
    GdiFlush();
    const RECT whole{0, 0, m_width, m_height};
    RECT part{};
    IntersectRect(&part, &box, &whole);
    const DWORD wanted = ToPixel(color);
    int count = 0;
    for (int y = part.top; y < part.bottom; ++y) {
        const DWORD* row = m_pixels + y * m_width;
        count += static_cast<int>(std::count_if(row + part.left, row + part.right,
                                                [&](DWORD pixel) { return (pixel & ColorBits) == wanted; }));
    }
    return count;
}

int Picture::Count(COLORREF color) const
{
    return Count(color, {0, 0, m_width, m_height});
}

RECT Picture::BoxOf(COLORREF color) const
{
    GdiFlush();
    const DWORD wanted = ToPixel(color);
    RECT box{m_width, m_height, 0, 0};
    for (int y = 0; y < m_height; ++y) {
        for (int x = 0; x < m_width; ++x) {
            if ((m_pixels[y * m_width + x] & ColorBits) == wanted) {
                box.left = std::min<LONG>(box.left, x);
                box.top = std::min<LONG>(box.top, y);
                box.right = std::max<LONG>(box.right, x + 1);
                box.bottom = std::max<LONG>(box.bottom, y + 1);
            }
        }
    }
    return box.right == 0 ? RECT{} : box;
}

bool Picture::operator==(const Picture& other) const
{
    GdiFlush();
    return m_width == other.m_width && m_height == other.m_height &&
           std::equal(m_pixels, m_pixels + m_width * m_height, other.m_pixels,
                      [](DWORD a, DWORD b) { return ((a ^ b) & ColorBits) == 0; });
}

bool Picture::Save(const std::filesystem::path& file) const
{
    GdiFlush();
    // Files begin with the bottom row: not every reader takes them the other way round.
    const BITMAPINFO info = InfoOf(m_width, -m_height);
    const auto bytes = static_cast<DWORD>(m_width * m_height) * sizeof(DWORD);
    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42; // "BM"
    header.bfOffBits = sizeof header + sizeof info.bmiHeader;
    header.bfSize = static_cast<DWORD>(header.bfOffBits + bytes);
    std::ofstream stream(file, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(&header), sizeof header);
    stream.write(reinterpret_cast<const char*>(&info.bmiHeader), sizeof info.bmiHeader);
    for (int y = m_height - 1; y >= 0; --y) {
        stream.write(reinterpret_cast<const char*>(m_pixels + y * m_width),
                     static_cast<std::streamsize>(static_cast<size_t>(m_width) * sizeof(DWORD)));
    }
    return static_cast<bool>(stream);
}

} // namespace testkit
