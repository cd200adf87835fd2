#include "shell/ButtonImages.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace velmhost
{

namespace
{

// Blue, green, red and opacity of one pixel.
struct Pixel
{
    std::uint8_t blue, green, red, alpha;
};
static_assert(sizeof(Pixel) == 4);

// A picture, rows from top to bottom. Pixels with opacity 0 are all zero.
struct Raster
{
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;

    const Pixel& At(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<UINT>(width) + static_cast<UINT>(x)];
    }
};

BITMAPINFO TopDownInfo(int width, int height)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

std::optional<Raster> ReadBitmapFile(const std::wstring& fileName)
{
    if (fileName.empty())
        return std::nullopt;
    UniqueBitmap bitmap(static_cast<HBITMAP>(
        ::LoadImageW(nullptr, fileName.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION)));
    BITMAP facts{};
    if (!bitmap || !::GetObjectW(bitmap.get(), sizeof facts, &facts) || facts.bmWidth <= 0 ||
        facts.bmHeight <= 0)
        return std::nullopt;

    Raster raster;
    raster.width = facts.bmWidth;
    raster.height = facts.bmHeight;
    raster.pixels.resize(static_cast<std::size_t>(raster.width) * static_cast<UINT>(raster.height));
    BITMAPINFO info = TopDownInfo(raster.width, raster.height);
    WindowDc screen(nullptr);
    if (::GetDIBits(screen, bitmap.get(), 0, static_cast<UINT>(raster.height), raster.pixels.data(), &info,
                    DIB_RGB_COLORS) != raster.height)
        return std::nullopt;
    for (Pixel& pixel : raster.pixels) {
        if (RGB(pixel.red, pixel.green, pixel.blue) == kTransparentColour)
            pixel = Pixel{};
        else
            pixel.alpha = 255;
    }
    return raster;
}

// The part of source pixel `source` that lies below destination pixel `destination` along one axis, when
// `from` pixels become `to`; in units of one destination pixel's share, which is from/to source pixels.
double Overlap(int destination, int source, int from, int to)
{
    const double share = static_cast<double>(from) / to;
    const double begin = std::max(destination * share, static_cast<double>(source));
    const double end = std::min((destination + 1) * share, static_cast<double>(source + 1));
    return std::max(0.0, end - begin) / share;
}

// One pixel of the scaled picture: the mean of what lies below it, each pixel weighted by area and
// opacity, so that colours of transparent pixels do not bleed in.
Pixel MeanPixel(const Raster& raster, int x, int y, int side)
{
    const int firstX = x * raster.width / side;
    const int lastX = std::min(raster.width - 1, ((x + 1) * raster.width - 1) / side);
    const int firstY = y * raster.height / side;
    const int lastY = std::min(raster.height - 1, ((y + 1) * raster.height - 1) / side);
    double blue = 0, green = 0, red = 0, alpha = 0;
    for (int sourceY = firstY; sourceY <= lastY; ++sourceY) {
        for (int sourceX = firstX; sourceX <= lastX; ++sourceX) {
            const Pixel& pixel = raster.At(sourceX, sourceY);
            const double weight = Overlap(x, sourceX, raster.width, side) *
                                  Overlap(y, sourceY, raster.height, side) * pixel.alpha / 255.0;
            blue += weight * pixel.blue;
            green += weight * pixel.green;
            red += weight * pixel.red;
            alpha += weight;
        }
    }
    if (alpha <= 0)
        return Pixel{};
    const auto channel = [&](double sum) {
        return static_cast<std::uint8_t>(std::min(255.0, sum / alpha + 0.5));
    };
    return Pixel{channel(blue), channel(green), channel(red),
                 static_cast<std::uint8_t>(std::min(255.0, alpha * 255.0 + 0.5))};
}

Raster Scaled(const Raster& raster, int side)
{
    Raster scaled;
    scaled.width = side;
    scaled.height = side;
    scaled.pixels.reserve(static_cast<std::size_t>(side) * static_cast<UINT>(side));
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            scaled.pixels.push_back(MeanPixel(raster, x, y, side));
    }
    return scaled;
}

// A monochrome mask beside the opacity: it serves versions of the control that do not blend.
UniqueBitmap MaskOf(const Raster& raster)
{
    const std::size_t stride = (static_cast<std::size_t>(raster.width) + 15) / 16 * 2;
    std::vector<BYTE> bits(stride * static_cast<UINT>(raster.height));
    for (int y = 0; y < raster.height; ++y) {
        for (int x = 0; x < raster.width; ++x) {
            if (raster.At(x, y).alpha == 0)
                bits[static_cast<std::size_t>(y) * stride + static_cast<UINT>(x) / 8] |=
                    static_cast<BYTE>(0x80 >> (x % 8));
        }
    }
    return UniqueBitmap(::CreateBitmap(raster.width, raster.height, 1, 1, bits.data()));
}

UniqueBitmap ColoursOf(const Raster& raster)
{
    BITMAPINFO info = TopDownInfo(raster.width, raster.height);
    void* bits = nullptr;
    WindowDc screen(nullptr);
    UniqueBitmap bitmap(::CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (bitmap)
        std::copy(raster.pixels.begin(), raster.pixels.end(), static_cast<Pixel*>(bits));
    return bitmap;
}

} // namespace

CButtonImages::CButtonImages(int side)
    : m_side(side), m_list(::ImageList_Create(side, side, ILC_COLOR32 | ILC_MASK, 8, 8))
{
}

int CButtonImages::Add(const std::wstring& fileName)
{
    std::optional<Raster> raster = ReadBitmapFile(fileName);
    if (!raster || !m_list)
        return I_IMAGENONE;
    if (raster->width != m_side || raster->height != m_side)
        raster = Scaled(*raster, m_side);
    const bool blank = std::all_of(raster->pixels.begin(), raster->pixels.end(),
                                   [](const Pixel& pixel) { return pixel.alpha == 0; });
    UniqueBitmap colours = ColoursOf(*raster);
    UniqueBitmap mask = MaskOf(*raster);
    if (blank || !colours || !mask)
        return I_IMAGENONE;
    const int index = ::ImageList_Add(m_list.get(), colours.get(), mask.get());
    return index < 0 ? I_IMAGENONE : index;
}

} // namespace velmhost
