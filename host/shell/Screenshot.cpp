#include "shell/Screenshot.h"

#include <comdef.h>
#include <wincodec.h>

#include <cstring>
#include <cwctype>
#include <vector>

#include "shell/AddinLoader.h"
#include "shell/Handles.h"

namespace velmhost
{

namespace
{

// Rows from top to bottom, four bytes for each pixel: blue, green, red, unused.
struct Picture
{
    int width = 0;
    int height = 0;
    std::vector<BYTE> pixels;

    UINT Stride() const { return static_cast<UINT>(width) * 4; }
};

BITMAPINFOHEADER HeaderOf(const Picture& picture, bool bottomUp)
{
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = picture.width;
    header.biHeight = bottomUp ? picture.height : -picture.height;
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biCompression = BI_RGB;
    return header;
}

// Draws the windows of this process, from the lowest to the highest, as they stand on a screen that cannot be
// read as a whole: one that nobody sees.
void DrawWindows(HDC dc, const RECT& area)
{
    std::vector<HWND> windows;
    for (HWND window = ::GetTopWindow(nullptr); window; window = ::GetWindow(window, GW_HWNDNEXT)) {
        DWORD process = 0;
        ::GetWindowThreadProcessId(window, &process);
        if (process == ::GetCurrentProcessId() && ::IsWindowVisible(window))
            windows.push_back(window);
    }
    for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
        RECT rect{};
        ::GetWindowRect(*window, &rect);
        const HDC from = ::GetWindowDC(*window);
        ::BitBlt(dc, rect.left - area.left, rect.top - area.top, rect.right - rect.left,
                 rect.bottom - rect.top, from, 0, 0, SRCCOPY);
        ::ReleaseDC(*window, from);
    }
}

bool TakePicture(const RECT& area, Picture& picture)
{
    picture.width = area.right - area.left;
    picture.height = area.bottom - area.top;
    BITMAPINFO info{};
    info.bmiHeader = HeaderOf(picture, false);
    void* bits = nullptr;
    WindowDc screen(nullptr);
    UniqueMemoryDc memory(::CreateCompatibleDC(screen));
    UniqueBitmap bitmap(::CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!memory || !bitmap)
        return false;
    Selection selected(memory.get(), bitmap.get());
    if (!::BitBlt(memory.get(), 0, 0, picture.width, picture.height, screen, area.left, area.top, SRCCOPY))
        DrawWindows(memory.get(), area);
    ::GdiFlush();
    const BYTE* first = static_cast<const BYTE*>(bits);
    picture.pixels.assign(first, first + static_cast<std::size_t>(picture.Stride()) *
                                             static_cast<UINT>(picture.height));
    return true;
}

bool WriteBmp(const Picture& picture, const std::wstring& fileName, std::wstring& reason)
{
    BITMAPINFOHEADER info = HeaderOf(picture, true);
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof info;
    file.bfSize = file.bfOffBits + static_cast<DWORD>(picture.pixels.size());

    std::vector<BYTE> bytes(file.bfSize);
    std::memcpy(bytes.data(), &file, sizeof file);
    std::memcpy(bytes.data() + sizeof file, &info, sizeof info);
    BYTE* row = bytes.data() + file.bfOffBits;
    for (int y = picture.height - 1; y >= 0; --y, row += picture.Stride())
        std::memcpy(row, picture.pixels.data() + static_cast<std::size_t>(y) * picture.Stride(),
                    picture.Stride());

    const HANDLE handle = ::CreateFileW(fileName.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        reason = SystemErrorText(::GetLastError());
        return false;
    }
    UniqueFile owner(handle);
    DWORD written = 0;
    if (!::WriteFile(handle, bytes.data(), file.bfSize, &written, nullptr) || written != file.bfSize) {
        reason = SystemErrorText(::GetLastError());
        return false;
    }
    return true;
}

_COM_SMARTPTR_TYPEDEF(IWICImagingFactory, __uuidof(IWICImagingFactory));
_COM_SMARTPTR_TYPEDEF(IWICStream, __uuidof(IWICStream));
_COM_SMARTPTR_TYPEDEF(IWICBitmapEncoder, __uuidof(IWICBitmapEncoder));
_COM_SMARTPTR_TYPEDEF(IWICBitmapFrameEncode, __uuidof(IWICBitmapFrameEncode));

HRESULT EncodePng(const Picture& picture, const std::wstring& fileName)
{
    // Without the fourth byte, which the screen leaves undefined and PNG would take for opacity.
    const UINT stride = static_cast<UINT>(picture.width) * 3;
    std::vector<BYTE> packed(static_cast<std::size_t>(stride) * static_cast<UINT>(picture.height));
    for (std::size_t from = 0, to = 0; to < packed.size(); from += 4, to += 3)
        std::memcpy(packed.data() + to, picture.pixels.data() + from, 3);

    IWICImagingFactoryPtr factory;
    IWICStreamPtr stream;
    IWICBitmapEncoderPtr encoder;
    IWICBitmapFrameEncodePtr frame;
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    HRESULT result = factory.CreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER);
    if (SUCCEEDED(result))
        result = factory->CreateStream(&stream);
    if (SUCCEEDED(result))
        result = stream->InitializeFromFilename(fileName.c_str(), GENERIC_WRITE);
    if (SUCCEEDED(result))
        result = factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder);
    if (SUCCEEDED(result))
        result = encoder->Initialize(stream, WICBitmapEncoderNoCache);
    if (SUCCEEDED(result))
        result = encoder->CreateNewFrame(&frame, nullptr);
    if (SUCCEEDED(result))
        result = frame->Initialize(nullptr);
    if (SUCCEEDED(result))
        result = frame->SetSize(static_cast<UINT>(picture.width), static_cast<UINT>(picture.height));
    if (SUCCEEDED(result))
        result = frame->SetPixelFormat(&format);
    if (SUCCEEDED(result) && format != GUID_WICPixelFormat24bppBGR)
        result = E_UNEXPECTED;
    if (SUCCEEDED(result))
        result = frame->WritePixels(static_cast<UINT>(picture.height), stride,
                                    static_cast<UINT>(packed.size()), packed.data());
    if (SUCCEEDED(result))
        result = frame->Commit();
    if (SUCCEEDED(result))
        result = encoder->Commit();
    return result;
}

std::wstring LowerExtension(const std::wstring& fileName)
{
    const std::size_t dot = fileName.find_last_of(L"./\\");
    std::wstring extension;
    if (dot != std::wstring::npos && fileName[dot] == L'.')
        extension = fileName.substr(dot);
    for (wchar_t& ch : extension)
        ch = static_cast<wchar_t>(std::towlower(ch));
    return extension;
}

} // namespace

bool SaveScreenArea(const RECT& area, const std::wstring& fileName, std::wstring& reason)
{
    const std::wstring extension = LowerExtension(fileName);
    if (extension != L".png" && extension != L".bmp") {
        reason = L"A picture's file must end in .png or .bmp.";
        return false;
    }
    const RECT screen{::GetSystemMetrics(SM_XVIRTUALSCREEN), ::GetSystemMetrics(SM_YVIRTUALSCREEN),
                      ::GetSystemMetrics(SM_XVIRTUALSCREEN) + ::GetSystemMetrics(SM_CXVIRTUALSCREEN),
                      ::GetSystemMetrics(SM_YVIRTUALSCREEN) + ::GetSystemMetrics(SM_CYVIRTUALSCREEN)};
    RECT visible{};
    if (!::IntersectRect(&visible, &area, &screen)) {
        reason = L"Nothing of the window is on the screen.";
        return false;
    }
    Picture picture;
    if (!TakePicture(visible, picture)) {
        reason = L"The screen cannot be read.";
        return false;
    }
    if (extension == L".bmp")
        return WriteBmp(picture, fileName, reason);
    const HRESULT result = EncodePng(picture, fileName);
    if (FAILED(result))
        reason = SystemErrorText(static_cast<DWORD>(result));
    return SUCCEEDED(result);
}

} // namespace velmhost
