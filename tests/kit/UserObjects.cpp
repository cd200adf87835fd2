#include "kit/UserObjects.h"

#include "kit/Text.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace testkit
{
namespace
{

// The process's shared table of GDI handles, as a platform without a working GetGuiResources keeps it.
struct GdiEntry
{
    UINT64 object;
    DWORD owner;
    USHORT unique;
    BYTE type, flags;
    UINT64 user;
};
static_assert(sizeof(GdiEntry) == 24);

constexpr size_t GdiEntries = 0x4000;

const GdiEntry* GdiTable()
{
    constexpr size_t tableInProcessBlock = 0xF8;
    using CurrentBlock = const BYTE*(NTAPI*)();
    static const auto currentBlock = reinterpret_cast<CurrentBlock>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetCurrentPeb")));
    return *reinterpret_cast<GdiEntry* const*>(currentBlock() + tableInProcessBlock);
}

int CountByPlatform()
{
    return static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
}

bool PlatformCounts()
{
    static const bool counts = [] {
        const int before = CountByPlatform();
        const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
        const int with = CountByPlatform();
        DeleteObject(brush);
        return with == before + 1;
    }();
    return counts;
}

// The kind of object is part of the handle, and so of the number that tells its users apart.
size_t KindOf(const GdiEntry& entry)
{
    return entry.unique & 0x7F;
}

std::string NameOfGdiKind(size_t kind)
{
    switch (kind) {
    case 0x01:
        return "device context";
    case 0x04:
        return "region";
    case 0x05:
        return "bitmap";
    case 0x08:
        return "palette";
    case 0x09:
        return "bitmap";
    case 0x0a:
        return "font";
    case 0x10:
        return "brush";
    case 0x21:
        return "metafile device context";
    case 0x30:
        return "pen";
    case 0x41:
        return "memory device context";
    case 0x50:
        return "extended pen";
    default:
        return "object of kind " + std::to_string(kind);
    }
}

bool IsOfSystem(HWND window)
{
    static constexpr const wchar_t* classes[] = {L"IME", L"MSCTFIME UI", L"OleMainThreadWndClass",
                                                 L"OleDdeWndClass"};
    wchar_t name[60] = L"";
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return std::any_of(std::begin(classes), std::end(classes),
                       [&](const wchar_t* known) { return std::wcscmp(known, name) == 0; });
}

BOOL CALLBACK Collect(HWND window, LPARAM list)
{
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId() && !IsOfSystem(window)) {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    }
    return TRUE;
}

BOOL CALLBACK CollectWithChildren(HWND window, LPARAM list)
{
    Collect(window, list);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId()) {
        EnumChildWindows(window, Collect, list);
    }
    return TRUE;
}

} // namespace

int CountGdiObjects()
{
    if (PlatformCounts()) {
        return CountByPlatform();
    }
    const GdiEntry* table = GdiTable();
    return static_cast<int>(
        std::count_if(table, table + GdiEntries, [](const GdiEntry& entry) { return entry.type != 0; }));
}

GdiTypes CountGdiTypes()
{
    GdiTypes types{};
    if (!PlatformCounts()) {
        const GdiEntry* table = GdiTable();
        for (size_t i = 0; i < GdiEntries; ++i) {
            if (table[i].type != 0) {
                ++types[KindOf(table[i])];
            }
        }
    }
    return types;
}

std::string DescribeGdiGrowth(const GdiTypes& before, const GdiTypes& after)
{
    std::string text;
    for (size_t type = 0; type < before.size(); ++type) {
        if (const int growth = after[type] - before[type]) {
            text += text.empty() ? "" : ", ";
            text += NameOfGdiKind(type) + (growth > 0 ? " +" : " ") + std::to_string(growth);
        }
    }
    return text;
}

std::vector<HWND> ProcessWindows()
{
    std::vector<HWND> windows;
    EnumWindows(CollectWithChildren, reinterpret_cast<LPARAM>(&windows));
    HWND window = nullptr;
    while ((window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr) {
        CollectWithChildren(window, reinterpret_cast<LPARAM>(&windows));
    }
    std::sort(windows.begin(), windows.end());
    windows.erase(std::unique(windows.begin(), windows.end()), windows.end());
    return windows;
}

std::string DescribeWindow(HWND window)
{
    wchar_t name[100] = L"", text[200] = L"";
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    InternalGetWindowText(window, text, static_cast<int>(std::size(text)));
    char number[40];
    std::snprintf(number, sizeof number, "window 0x%llx of class ",
                  static_cast<unsigned long long>(reinterpret_cast<UINT_PTR>(window)));
    return number + Quoted(name) + ", text " + Quoted(text);
}

} // namespace testkit
