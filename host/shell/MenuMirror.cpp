#include "shell/MenuMirror.h"

#include "model/MenuText.h"

namespace velmhost
{

std::wstring MenuLabel(const std::wstring& label)
{
    return label.find(L"$(") == std::wstring::npos ? label : CaptionOf(label);
}

const MenuItem* CMenuMirror::FindItem(UINT command) const
{
    const auto found = m_itemOf.find(command);
    return found == m_itemOf.end() ? nullptr : m_model.FindMenuItem(found->second);
}

const MenuItem* CMenuMirror::FindItem(HMENU menu, int position) const
{
    return m_model.FindMenuItem(EntryAt(menu, position));
}

ElementId CMenuMirror::EntryAt(HMENU menu, int position)
{
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_DATA;
    if (!::GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info))
        return 0;
    return static_cast<ElementId>(info.dwItemData);
}

HMENU CMenuMirror::BuildBar()
{
    // Ids of items that are gone become free here, and only here: their commands cannot be under way
    // any more when the command after them is looked up in a bar built later.
    std::erase_if(m_itemOf, [this](const auto& entry) { return !m_model.FindMenuItem(entry.second); });
    std::erase_if(m_commandOf, [this](const auto& entry) { return !m_model.FindMenuItem(entry.first); });

    HMENU bar = ::CreateMenu();
    for (const Menu* menu : m_model.MenuBar()) {
        std::wstring name = MenuLabel(menu->name);
        MENUITEMINFOW info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_STRING | MIIM_SUBMENU | MIIM_DATA;
        info.dwTypeData = name.data();
        info.dwItemData = menu->id;
        info.hSubMenu = ::CreatePopupMenu();
        ::InsertMenuItemW(bar, static_cast<UINT>(::GetMenuItemCount(bar)), TRUE, &info);
        Fill(info.hSubMenu, *menu);
    }
    return bar;
}

HMENU CMenuMirror::BuildPopup(const Menu& menu)
{
    const HMENU popup = ::CreatePopupMenu();
    Fill(popup, menu);
    return popup;
}

// A sub-menu is filled when it is in its place already: the platform refuses to put a menu of more than some
// thirty levels into another one, but lets one grow there.
void CMenuMirror::Fill(HMENU popup, const Menu& menu)
{
    for (const auto& item : menu.items)
        AppendItem(popup, *item);
}

void CMenuMirror::AppendItem(HMENU popup, const MenuItem& item)
{
    std::wstring label = MenuLabel(item.label);
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_DATA;
    info.dwItemData = item.id;
    if (item.type == MenuItemType::Separator) {
        info.fType = MFT_SEPARATOR;
    } else {
        info.fMask |= MIIM_STRING | MIIM_STATE | MIIM_ID;
        info.dwTypeData = label.data();
        info.wID = CommandFor(item.id);
        info.fState = (item.enabled && info.wID ? MFS_ENABLED : MFS_DISABLED) |
                      (item.checked ? MFS_CHECKED : MFS_UNCHECKED);
        if (item.subMenu) {
            info.fMask |= MIIM_SUBMENU;
            info.hSubMenu = ::CreatePopupMenu();
        }
    }
    ::InsertMenuItemW(popup, static_cast<UINT>(::GetMenuItemCount(popup)), TRUE, &info);
    if (item.subMenu)
        Fill(info.hSubMenu, *item.subMenu);
}

UINT CMenuMirror::CommandFor(ElementId item)
{
    const auto known = m_commandOf.find(item);
    if (known != m_commandOf.end())
        return known->second;
    for (UINT tries = kFirstCommand; tries <= kLastCommand; ++tries) {
        m_lastCommand = m_lastCommand == kLastCommand ? kFirstCommand : m_lastCommand + 1;
        if (m_itemOf.emplace(m_lastCommand, item).second) {
            m_commandOf.emplace(item, m_lastCommand);
            return m_lastCommand;
        }
    }
    return 0;
}

} // namespace velmhost
