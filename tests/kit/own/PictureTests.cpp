#include "kit/Picture.h"

#include "kit/Files.h"
#include "kit/Pump.h"

#include <gtest/gtest.h>

namespace
{

constexpr COLORREF Red = RGB(255, 0, 0), Green = RGB(0, 255, 0), White = RGB(255, 255, 255);

void Fill(HDC dc, RECT box, COLORREF color)
{
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &box, brush);
    DeleteObject(brush);
}

TEST(Picture, StartsInOneColour)
{
    const testkit::Picture picture(7, 5, Red);
    EXPECT_EQ(picture.Width(), 7);
    EXPECT_EQ(picture.Height(), 5);
    EXPECT_EQ(picture.Count(Red), 35);
}

TEST(Picture, ShowsWhatIsDrawnOnIt)
{
    const testkit::Picture picture(10, 10);
    Fill(picture.Dc(), {2, 3, 5, 9}, Green);
    EXPECT_EQ(picture.Pixel(2, 3), Green);
    EXPECT_EQ(picture.Pixel(4, 8), Green);
    EXPECT_EQ(picture.Pixel(5, 8), White);
    EXPECT_EQ(picture.Pixel(1, 3), White);
    EXPECT_EQ(picture.Count(Green), 3 * 6);
    EXPECT_EQ(picture.Count(Green, {0, 0, 3, 4}), 1);
    const RECT box = picture.BoxOf(Green), expected{2, 3, 5, 9};
    EXPECT_TRUE(EqualRect(&box, &expected));
}

TEST(Picture, HasNoPixelsOutside)
{
    const testkit::Picture picture(4, 4, Red);
    EXPECT_EQ(picture.Pixel(-1, 0), CLR_INVALID);
    EXPECT_EQ(picture.Pixel(0, 4), CLR_INVALID);
    EXPECT_EQ(picture.Count(Red, {2, 2, 100, 100}), 4);
    const RECT nothing = picture.BoxOf(Green);
    EXPECT_TRUE(IsRectEmpty(&nothing));
}

TEST(Picture, IsEqualWithEqualPixels)
{
    const testkit::Picture a(4, 4, Red), b(4, 4, Red), narrower(3, 4, Red);
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a == narrower);
    SetPixel(b.Dc(), 3, 3, Green);
    EXPECT_FALSE(a == b);
}

TEST(Picture, TakesAPartOfADeviceContext)
{
    const testkit::Picture source(10, 10);
    Fill(source.Dc(), {5, 5, 10, 10}, Red);
    const testkit::Picture part = testkit::Picture::OfDc(source.Dc(), {4, 4, 7, 8});
    EXPECT_EQ(part.Width(), 3);
    EXPECT_EQ(part.Height(), 4);
    EXPECT_EQ(part.Pixel(0, 0), White);
    EXPECT_EQ(part.Pixel(1, 1), Red);
}

LRESULT CALLBACK PaintGreen(HWND window, UINT message, WPARAM first, LPARAM second)
{
    if (message == WM_PAINT) {
        PAINTSTRUCT paint;
        const HDC dc = BeginPaint(window, &paint);
        RECT box{};
        GetClientRect(window, &box);
        Fill(dc, box, Red);
        Fill(dc, {10, 20, 30, 25}, Green);
        EndPaint(window, &paint);
        return 0;
    }
    return DefWindowProcW(window, message, first, second);
}

TEST(Picture, TakesAWindowsClientArea)
{
    WNDCLASSW type{};
    type.lpfnWndProc = PaintGreen;
    type.hInstance = GetModuleHandleW(nullptr);
    type.lpszClassName = L"testkit.picture";
    RegisterClassW(&type);
    const HWND window = CreateWindowExW(0, type.lpszClassName, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50,
                                        200, 150, nullptr, nullptr, type.hInstance, nullptr);
    RECT client{};
    GetClientRect(window, &client);
    const testkit::Picture picture = testkit::Picture::OfClient(window);
    EXPECT_EQ(picture.Width(), client.right);
    EXPECT_EQ(picture.Height(), client.bottom);
    EXPECT_EQ(picture.Count(Green), 20 * 5);
    EXPECT_EQ(picture.Count(Red), client.right * client.bottom - 20 * 5);
    DestroyWindow(window);
    UnregisterClassW(type.lpszClassName, type.hInstance);
}

TEST(Picture, TakesAHiddenControl)
{
    const HWND list =
        CreateWindowExW(0, L"SysListView32", L"", WS_POPUP, 0, 0, 60, 40, nullptr, nullptr, nullptr, nullptr);
    constexpr UINT setBackground = 0x1000 + 1; // LVM_SETBKCOLOR
    SendMessageW(list, setBackground, 0, Green);
    const testkit::Picture picture = testkit::Picture::OfControl(list);
    EXPECT_EQ(picture.Count(Green), 60 * 40);
    DestroyWindow(list);
}

TEST(Picture, SavesABitmapFileThatThePlatformReads)
{
    const testkit::TempFolder folder;
    const testkit::Picture picture(9, 6, Red);
    SetPixel(picture.Dc(), 8, 5, Green);
    ASSERT_TRUE(picture.Save(folder / L"look.bmp"));

    const auto bitmap = static_cast<HBITMAP>(
        LoadImageW(nullptr, (folder / L"look.bmp").c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE));
    ASSERT_NE(bitmap, nullptr);
    const testkit::Picture canvas(9, 6);
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    BitBlt(canvas.Dc(), 0, 0, 9, 6, dc, 0, 0, SRCCOPY);
    SelectObject(dc, before);
    DeleteDC(dc);
    DeleteObject(bitmap);
    EXPECT_TRUE(canvas == picture);
}

} // namespace
