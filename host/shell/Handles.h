// Owners of platform handles that the shell uses. Each releases what it holds exactly once.
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include <memory>
#include <type_traits>

namespace velmhost
{

struct GdiObjectDeleter
{
    void operator()(HGDIOBJ object) const { ::DeleteObject(object); }
};
struct MemoryDcDeleter
{
    void operator()(HDC dc) const { ::DeleteDC(dc); }
};
struct ImageListDeleter
{
    void operator()(HIMAGELIST list) const { ::ImageList_Destroy(list); }
};
struct FileDeleter
{
    void operator()(HANDLE file) const { ::CloseHandle(file); }
};

template <class Handle>
using UniqueGdiObject = std::unique_ptr<std::remove_pointer_t<Handle>, GdiObjectDeleter>;
using UniqueBitmap = UniqueGdiObject<HBITMAP>;
using UniqueBrush = UniqueGdiObject<HBRUSH>;
using UniqueFont = UniqueGdiObject<HFONT>;
using UniquePen = UniqueGdiObject<HPEN>;
using UniqueMemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, MemoryDcDeleter>;
using UniqueImageList = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, ImageListDeleter>;
using UniqueFile = std::unique_ptr<void, FileDeleter>;

// A window's DC, or the screen's for a null window.
class WindowDc
{
public:
    explicit WindowDc(HWND window) : m_window(window), m_dc(::GetDC(window)) {}
    ~WindowDc() { ::ReleaseDC(m_window, m_dc); }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    operator HDC() const { return m_dc; }

private:
    HWND m_window;
    HDC m_dc;
};

// Keeps an object selected while it lives.
class Selection
{
public:
    Selection(HDC dc, HGDIOBJ object) : m_dc(dc), m_previous(::SelectObject(dc, object)) {}
    ~Selection() { ::SelectObject(m_dc, m_previous); }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

private:
    HDC m_dc;
    HGDIOBJ m_previous;
};

} // namespace velmhost
