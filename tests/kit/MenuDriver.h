// Works native menus with the real mouse: bar items, drop-down menus, cascades, context menus.
#pragma once

#include "kit/InputQueue.h"
#include "kit/Script.h"

#include <string>
#include <vector>

namespace testkit
{

// Items are named by their text, without the mark of the access key (&) and without what follows a tab.
// Menu loops are modal: the driver works inside them by a timer, finds the open menu's window, asks where
// the item is and clicks there.
class MenuDriver
{
public:
    // `owner`: the window whose menu bar is used, or that shows the context menu. It must be visible and
    // able to become active.
    explicit MenuDriver(HWND owner);

    // Clicks the item `path[0]` of the menu bar, then `path[1]` in the menu that opens, and so on through
    // the cascades. Returns when the menu is closed and the command was handled. False if an item is not
    // there, is hidden or disabled, or its menu does not open; the menu is then closed.
    bool Choose(const std::vector<std::wstring>& path);

    // For a menu that other code opens with TrackPopupMenu: call this first, then that code, then Finish.
    // All of `path` is looked for in the menu that opens and its cascades.
    void ChooseInNextMenu(const std::vector<std::wstring>& path);
    // As ChooseInNextMenu, but looks at the open menu instead of clicking: notes the texts of its items
    // ("" for a separator) and closes it.
    void ReadNextMenu();
    bool Finish();

    // What ReadNextMenu noted.
    const std::vector<std::wstring>& Items() const { return m_items; }

    // In words, what went wrong; empty if nothing did.
    const std::wstring& Problem() const { return m_problem; }

private:
    void AddBarClick(const std::wstring& item);
    void AddPopupClick(const std::wstring& item);
    void AddClick(std::function<bool(POINT&)> find);
    bool GiveUp(const std::wstring& problem);

    HWND m_owner;
    InputQueue m_queue;
    Script m_script;
    HMENU m_open = nullptr; // the menu in which the next item stands, null: whichever opens
    std::vector<std::wstring> m_items;
    std::wstring m_problem;
};

// The open menu windows of this thread, the last opened first.
std::vector<HWND> OpenMenuWindows();
// The menu that such a window shows.
HMENU MenuOf(HWND menuWindow);
// The text of an item by position, without access mark and tab text; "" for a separator.
std::wstring ItemText(HMENU menu, int position);

} // namespace testkit
