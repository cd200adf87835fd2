#include "CallWatch.h"

#include "kit/ImportTable.h"

CallWatch* CallWatch::s_current = nullptr;

namespace
{

// Not by its imported name, which leads to the replacement.
template <class Function>
Function* Original(const char* library, const char* name, Function*)
{
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(library), name)));
}

#define ORIGINAL(library, function) Original(library ".dll", #function, &::function)

} // namespace

struct CallWatch::Replacements
{
    static HGDIOBJ WINAPI Select(HDC dc, HGDIOBJ object)
    {
        static const auto original = ORIGINAL("gdi32", SelectObject);
        if (s_current != nullptr)
            s_current->Note({Call::SelectObject, dc, object});
        return original(dc, object);
    }
    static HDC WINAPI CreateDc(HDC dc)
    {
        static const auto original = ORIGINAL("gdi32", CreateCompatibleDC);
        const HDC created = original(dc);
        if (s_current != nullptr)
            s_current->Note({Call::CreateDc, dc, created});
        return created;
    }
    static HBITMAP WINAPI CreateBitmap(HDC dc, int width, int height)
    {
        static const auto original = ORIGINAL("gdi32", CreateCompatibleBitmap);
        if (s_current == nullptr)
            return original(dc, width, height);
        const HBITMAP bitmap = s_current->m_doBitmapsFail ? nullptr : original(dc, width, height);
        if (bitmap != nullptr && s_current->m_color != CLR_INVALID)
            Paint(bitmap, width, height, s_current->m_color);
        s_current->Note({Call::CreateBitmap, dc, bitmap});
        return bitmap;
    }
    static void Paint(HBITMAP bitmap, int width, int height, COLORREF color)
    {
        static const auto createDc = ORIGINAL("gdi32", CreateCompatibleDC);
        static const auto select = ORIGINAL("gdi32", SelectObject);
        const HDC dc = createDc(nullptr);
        const HGDIOBJ before = select(dc, bitmap);
        const HBRUSH brush = CreateSolidBrush(color);
        const RECT all{0, 0, width, height};
        FillRect(dc, &all, brush);
        DeleteObject(brush);
        select(dc, before);
        DeleteDC(dc);
    }
    static BOOL WINAPI ReadMetrics(HDC dc, TEXTMETRICW* metrics)
    {
        static const auto original = ORIGINAL("gdi32", GetTextMetricsW);
        if (s_current != nullptr)
            s_current->Note({Call::ReadMetrics, dc});
        return original(dc, metrics);
    }
    static BOOL WINAPI Write(HDC dc, int x, int y, const wchar_t* text, int count)
    {
        static const auto original = ORIGINAL("gdi32", TextOutW);
        if (s_current != nullptr)
            s_current->Note({Call::Text, dc, nullptr, 0, std::wstring(text, static_cast<size_t>(count))});
        return original(dc, x, y, text, count);
    }
    static BOOL WINAPI WriteMore(HDC dc, int x, int y, UINT options, const RECT* rect, const wchar_t* text,
                                 UINT count, const int* widths)
    {
        static const auto original = ORIGINAL("gdi32", ExtTextOutW);
        if (s_current != nullptr) {
            s_current->Note(count == 0 ? PlatformCall{Call::Fill, dc}
                                       : PlatformCall{Call::Text, dc, nullptr, 0, std::wstring(text, count)});
        }
        return original(dc, x, y, options, rect, text, count, widths);
    }
    static BOOL WINAPI Copy(HDC to, int x, int y, int width, int height, HDC from, int left, int top,
                            DWORD operation)
    {
        static const auto original = ORIGINAL("gdi32", BitBlt);
        if (s_current != nullptr)
            s_current->Note({Call::Copy, to, from});
        return original(to, x, y, width, height, from, left, top, operation);
    }
    static int WINAPI Release(HWND window, HDC dc)
    {
        static const auto original = ORIGINAL("user32", ReleaseDC);
        if (s_current != nullptr)
            s_current->Note({Call::Release, window, dc});
        return original(window, dc);
    }
    static BOOL WINAPI Invalidate(HWND window, const RECT* rect, BOOL doErase)
    {
        static const auto original = ORIGINAL("user32", InvalidateRect);
        if (s_current != nullptr)
            s_current->Note({Call::Invalidate, window, rect, doErase});
        return original(window, rect, doErase);
    }
    static BOOL WINAPI LookUp(HINSTANCE module, const wchar_t* name, WNDCLASSW* found)
    {
        static const auto original = ORIGINAL("user32", GetClassInfoW);
        if (s_current != nullptr)
            s_current->Note({Call::LookUpOfAClass});
        return original(module, name, found);
    }
    static ATOM WINAPI Register(const WNDCLASSW* description)
    {
        static const auto original = ORIGINAL("user32", RegisterClassW);
        if (s_current != nullptr)
            s_current->Note({Call::LookUpOfAClass});
        return original(description);
    }
};

CallWatch::CallWatch()
{
    static const bool isInstalled = [] {
        testkit::ForEachLoadedModuleUnderTest([](HMODULE module) {
            using R = Replacements;
            const testkit::ImportReplacement replacements[] = {
                {"gdi32.dll", "SelectObject", reinterpret_cast<void*>(&R::Select)},
                {"gdi32.dll", "CreateCompatibleDC", reinterpret_cast<void*>(&R::CreateDc)},
                {"gdi32.dll", "CreateCompatibleBitmap", reinterpret_cast<void*>(&R::CreateBitmap)},
                {"gdi32.dll", "GetTextMetricsW", reinterpret_cast<void*>(&R::ReadMetrics)},
                {"gdi32.dll", "TextOutW", reinterpret_cast<void*>(&R::Write)},
                {"gdi32.dll", "ExtTextOutW", reinterpret_cast<void*>(&R::WriteMore)},
                {"gdi32.dll", "BitBlt", reinterpret_cast<void*>(&R::Copy)},
                {"user32.dll", "ReleaseDC", reinterpret_cast<void*>(&R::Release)},
                {"user32.dll", "InvalidateRect", reinterpret_cast<void*>(&R::Invalidate)},
                {"user32.dll", "GetClassInfoW", reinterpret_cast<void*>(&R::LookUp)},
                {"user32.dll", "RegisterClassW", reinterpret_cast<void*>(&R::Register)}};
            testkit::ReplaceImports(module, replacements);
        });
        return true;
    }();
    static_cast<void>(isInstalled);
    m_calls.reserve(256);
    s_current = this;
}

CallWatch::~CallWatch()
{
    s_current = nullptr;
}

void CallWatch::Add(PlatformCall call)
{
    if (s_current != nullptr)
        s_current->Note(std::move(call));
}

std::vector<PlatformCall> CallWatch::Calls(Call call) const
{
    std::vector<PlatformCall> found;
    for (const PlatformCall& one : m_calls) {
        if (one.call == call)
            found.push_back(one);
    }
    return found;
}
