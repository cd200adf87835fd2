#include "kit/MenuDriver.h"

#include "kit/Pump.h"

#include <algorithm>
#include <iterator>

#ifndef MN_GETHMENU
#define MN_GETHMENU 0x01E1
#endif

namespace testkit
{
namespace
{

BOOL CALLBACK CollectMenu(HWND window, LPARAM list)
{
    wchar_t name[20] = L"";
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (std::wstring_view(name) == L"#32768" && IsWindowVisible(window)) {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    }
    return TRUE;
}

bool IsInMenuLoop()
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetCurrentThreadId(), &info) &&
           (info.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE));
}

int PositionOf(HMENU menu, const std::wstring& text)
{
    const int count = GetMenuItemCount(menu);
    for (int position = 0; position < count; ++position) {
        if (ItemText(menu, position) == text) {
            return position;
        }
    }
    return -1;
}

bool IsEnabled(HMENU menu, int position)
{
    const UINT state = GetMenuState(menu, static_cast<UINT>(position), MF_BYPOSITION);
    return (state & (MF_DISABLED | MF_GRAYED)) == 0;
}

POINT Middle(const RECT& box)
{
    return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
}

} // namespace

std::vector<HWND> OpenMenuWindows()
{
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), CollectMenu, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

HMENU MenuOf(HWND menuWindow)
{
    return reinterpret_cast<HMENU>(SendMessageW(menuWindow, MN_GETHMENU, 0, 0));
}

std::wstring ItemText(HMENU menu, int position)
{
    wchar_t buffer[300] = L"";
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_FTYPE | MIIM_STRING;
    item.dwTypeData = buffer;
    item.cch = static_cast<UINT>(std::size(buffer));
    if (!GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &item) || (item.fType & MFT_SEPARATOR)) {
        return {};
    }
    std::wstring text;
    for (const wchar_t* c = buffer; *c && *c != L'\t'; ++c) {
        if (*c == L'&' && *++c == 0) {
            break;
        }
        text += *c;
    }
    return text;
}

MenuDriver::MenuDriver(HWND owner) : m_owner(owner) {}

bool MenuDriver::Choose(const std::vector<std::wstring>& path)
{
    SetForegroundWindow(m_owner);
    for (size_t i = 0; i < path.size(); ++i) {
        if (i == 0) {
            AddBarClick(path[i]);
        } else {
            AddPopupClick(path[i]);
        }
    }
    return Finish();
}

void MenuDriver::ChooseInNextMenu(const std::vector<std::wstring>& path)
{
    m_open = nullptr;
    for (const std::wstring& item : path) {
        AddPopupClick(item);
    }
    m_script.Start();
}

void MenuDriver::ReadNextMenu()
{
    m_script.Add([this] {
        const std::vector<HWND> windows = OpenMenuWindows();
        if (windows.empty()) {
            return false;
        }
        const HMENU menu = MenuOf(windows.front());
        m_items.clear();
        for (int position = 0; position < GetMenuItemCount(menu); ++position) {
            m_items.push_back(ItemText(menu, position));
        }
        EndMenu();
        return true;
    });
    m_script.Start();
}

bool MenuDriver::Finish()
{
    const bool done = m_script.Finish();
    PumpUntil([] { return !IsInMenuLoop(); }, 2000);
    if (!done && m_problem.empty()) {
        m_problem = L"no menu opened, or an item was not in it";
    }
    PumpPending();
    return done && m_problem.empty();
}

bool MenuDriver::GiveUp(const std::wstring& problem)
{
    if (m_problem.empty()) {
        m_problem = problem;
    }
    EndMenu();
    return true;
}

void MenuDriver::AddClick(std::function<bool(POINT&)> find)
{
    m_script.Add([this, find = std::move(find)] {
        if (!m_problem.empty()) {
            return true;
        }
        POINT point{};
        if (!find(point)) {
            return !m_problem.empty();
        }
        INPUT down{}, up{};
        down.type = up.type = INPUT_MOUSE;
        down.mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
        up.mi.dwFlags = MOUSEEVENTF_LEFTUP;
        return m_queue.Send({MoveEvent(point), down, up});
    });
    m_script.Add([this] { return !m_problem.empty() || m_queue.IsSettled(); });
}

void MenuDriver::AddBarClick(const std::wstring& item)
{
    AddClick([this, item](POINT& point) {
        const HMENU bar = GetMenu(m_owner);
        const int position = bar ? PositionOf(bar, item) : -1;
        RECT box{};
        if (position < 0 || !GetMenuItemRect(m_owner, bar, static_cast<UINT>(position), &box)) {
            GiveUp(L"the menu bar has no item " + item);
            return false;
        }
        if (!IsEnabled(bar, position)) {
            GiveUp(L"disabled on the menu bar: " + item);
            return false;
        }
        m_open = GetSubMenu(bar, position);
        point = Middle(box);
        return true;
    });
}

void MenuDriver::AddPopupClick(const std::wstring& item)
{
    AddClick([this, item](POINT& point) {
        for (const HWND window : OpenMenuWindows()) {
            const HMENU menu = MenuOf(window);
            if (m_open && menu != m_open) {
                continue;
            }
            const int position = PositionOf(menu, item);
            if (position < 0) {
                GiveUp(L"the open menu has no item " + item);
                return false;
            }
            if (!IsEnabled(menu, position)) {
                GiveUp(L"disabled in the open menu: " + item);
                return false;
            }
            RECT box{};
            if (!GetMenuItemRect(nullptr, menu, static_cast<UINT>(position), &box)) {
                GetMenuItemRect(m_owner, menu, static_cast<UINT>(position), &box);
            }
            m_open = GetSubMenu(menu, position);
            point = Middle(box);
            return true;
        }
        return false; // not open yet
    });
}

} // namespace testkit
