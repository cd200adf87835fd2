#include "kit/WarmUp.h"

#include "kit/Program.h"
#include "kit/Pump.h"

#include <commctrl.h>
#include <uxtheme.h>
#include <gtest/gtest.h>
#include <gtest/gtest-spi.h>

#include <cwchar>
#include <sstream>
#include <stdexcept>

namespace testkit
{
namespace
{

BOOL CALLBACK PaintChild(HWND window, LPARAM)
{
    UpdateWindow(window);
    return TRUE;
}

void AddText(HWND list)
{
    wchar_t text[] = L"text";
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = 40;
    column.pszText = text;
    SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.pszText = text;
    SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

// The bitmaps of a theme are loaded when a part is first drawn: one for all its states, but for the list
// view's, which has some for each.
void WarmUpThemes(HDC dc)
{
    static constexpr const wchar_t* classes[] = {
        L"Button",   L"ComboBox", L"Edit",      L"Header",   L"ListView", L"Menu",
        L"Progress", L"Rebar",    L"ScrollBar", L"Spin",     L"Status",   L"Tab",
        L"Toolbar",  L"Tooltip",  L"TreeView",  L"Trackbar", L"Window"};
    constexpr int mostParts = 20;
    const RECT box{0, 0, 4, 4};
    for (const wchar_t* name : classes) {
        const HTHEME theme = OpenThemeData(nullptr, name);
        if (!theme) {
            continue;
        }
        const int states = std::wcscmp(name, L"ListView") == 0 ? 16 : 1;
        for (int part = 1; part <= mostParts; ++part) {
            if (!IsThemePartDefined(theme, part, 0)) {
                continue;
            }
            for (int state = 1; state <= states; ++state) {
                DrawThemeBackground(theme, dc, part, state, &box, nullptr);
            }
        }
        CloseThemeData(theme);
    }
}

void WarmUpControls()
{
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC = ICC_WIN95_CLASSES | ICC_COOL_CLASSES | ICC_USEREX_CLASSES | ICC_STANDARD_CLASSES;
    InitCommonControlsEx(&classes);

    const HMENU menu = CreateMenu();
    AppendMenuW(menu, MF_STRING, 1, L"text");
    const HWND window = CreateWindowExW(0, L"#32770", L"warm-up", WS_OVERLAPPEDWINDOW, 0, 0, 300, 300,
                                        nullptr, menu, nullptr, nullptr);
    if (!window) {
        DestroyMenu(menu);
        return; // no desktop: the tests that need one will say so
    }
    static constexpr const wchar_t* controls[] = {
        L"Button",          L"Edit",
        L"Static",          L"ListBox",
        L"ComboBox",        L"ScrollBar",
        L"SysTreeView32",   L"msctls_progress32",
        L"ToolbarWindow32", L"msctls_statusbar32",
        L"ReBarWindow32",   L"SysHeader32",
    };
    for (const wchar_t* control : controls) {
        CreateWindowExW(0, control, L"text", WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL | WS_HSCROLL, 0,
                        0, 50, 50, window, nullptr, nullptr, nullptr);
    }
    for (const DWORD style : {BS_CHECKBOX, BS_RADIOBUTTON, BS_GROUPBOX}) {
        CreateWindowExW(0, L"Button", L"text", WS_CHILD | WS_VISIBLE | style, 60, 0, 50, 50, window, nullptr,
                        nullptr, nullptr);
    }
    AddText(CreateWindowExW(WS_EX_CLIENTEDGE, L"SysListView32", L"", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0,
                            60, 100, 100, window, nullptr, nullptr, nullptr));
    // The window owns it, but is not its parent: it goes with the window all the same.
    CreateWindowExW(0, L"tooltips_class32", nullptr, WS_POPUP, 0, 0, 10, 10, window, nullptr, nullptr,
                    nullptr);

    ShowWindow(window, SW_SHOWNOACTIVATE);
    UpdateWindow(window);
    EnumChildWindows(window, PaintChild, 0);
    PumpPending();

    const HDC dc = GetDC(window);
    const HDC memory = CreateCompatibleDC(dc);
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, 20, 20);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    for (const int stock : {DEFAULT_GUI_FONT, SYSTEM_FONT, ANSI_VAR_FONT, ANSI_FIXED_FONT, OEM_FIXED_FONT}) {
        const HGDIOBJ font = SelectObject(memory, GetStockObject(stock));
        TextOutW(memory, 0, 0, L"text", 4);
        SelectObject(memory, font);
    }
    for (int color = 0; color <= COLOR_MENUBAR; ++color) {
        GetSysColorBrush(color);
    }
    RECT box{0, 0, 20, 20};
    DrawEdge(memory, &box, EDGE_SUNKEN, BF_RECT);
    DrawFocusRect(memory, &box);
    for (const UINT type : {DFC_BUTTON, DFC_SCROLL, DFC_CAPTION, DFC_MENU}) {
        DrawFrameControl(memory, &box, type, 0);
    }
    WarmUpThemes(memory);
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, dc);
    for (LPCWSTR cursor : {IDC_ARROW, IDC_IBEAM, IDC_WAIT, IDC_HAND, IDC_SIZEWE}) {
        LoadCursorW(nullptr, cursor);
    }
    for (LPCWSTR icon : {IDI_APPLICATION, IDI_ERROR, IDI_WARNING, IDI_INFORMATION, IDI_QUESTION}) {
        LoadIconW(nullptr, icon);
    }
    DestroyWindow(window);
    PumpPending();
}

void WarmUpLanguage()
{
    {
        // GoogleTest's thread-local objects.
        SCOPED_TRACE("warm-up");
        testing::TestPartResultArray results;
        testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
        ADD_FAILURE();
    }
    try {
        std::ostringstream stream;
        stream << 1 << 1.5 << "text";
        std::wostringstream wide;
        wide << 1 << 1.5 << L"text";
        throw std::runtime_error(stream.str());
    } catch (const std::exception&) {
    }
}

} // namespace

void WarmUp()
{
    WarmUpLanguage();
    WarmUpControls();
    WarmUpProgram();
}

} // namespace testkit
