// The model's menu bar as a menu of the platform.
#pragma once

#include <afxwin.h>

#include <unordered_map>

#include "model/HostModel.h"

namespace velmhost
{

// Builds platform menus from the model and leads from them back to it.
//
// Each entry's item data is the ElementId of the model's menu (on the bar) or item. Each item, sub-menus
// included, has a command id from kFirstCommand to kLastCommand; it keeps its id through rebuilds, and
// ids of items that are gone are not given away again before all others were used, so that a command
// under way is never taken for another item's. Items beyond the range are shown, but disabled.
class CMenuMirror
{
    // Construction
public:
    static constexpr UINT kFirstCommand = 0x1000;
    static constexpr UINT kLastCommand = 0xEFFF;

    // `model` must live longer than this.
    explicit CMenuMirror(const HostModel& model) : m_model(model) {}

    // Attributes
public:
    // The item with a command id; null when the id is none of ours or its item is gone.
    const MenuItem* FindItem(UINT command) const;
    // The item at a position of a menu built here; null for entries of the bar and for items that are
    // gone.
    const MenuItem* FindItem(HMENU menu, int position) const;
    // The ElementId of the entry at a position of a menu built here; 0 when there is none.
    static ElementId EntryAt(HMENU menu, int position);

    // Operations
public:
    // Builds a new bar of the present model. The caller owns it; once set as a window's menu, the window
    // does. Rests on CreateMenu and InsertMenuItem.
    HMENU BuildBar();
    // Builds a pop-up menu of one menu of the model, with the ids that its items have. The caller owns it.
    HMENU BuildPopup(const Menu& menu);

    // Implementation
private:
    UINT CommandFor(ElementId item);
    void Fill(HMENU popup, const Menu& menu);
    void AppendItem(HMENU popup, const MenuItem& item);

    const HostModel& m_model;
    std::unordered_map<UINT, ElementId> m_itemOf;
    std::unordered_map<ElementId, UINT> m_commandOf;
    UINT m_lastCommand = kFirstCommand - 1;
};

// What a menu shows for a label or name: mnemonic marks stay, embedded expressions go.
std::wstring MenuLabel(const std::wstring& label);

} // namespace velmhost
