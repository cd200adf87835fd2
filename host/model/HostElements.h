// What the host's menus and toolbars consist of: plain records, owned by HostModel.
//
// All text is kept as it was given, control characters included. Records are read by everybody and
// changed by HostModel alone. A pointer to one is good until the element is removed; an ElementId
// may be kept for as long as one likes, and simply no longer finds anything afterwards.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace velmhost
{

// Names one element of one model. Never 0 for an element, and never used a second time.
using ElementId = unsigned;

// The numbers of these enumerations are those that automation clients see.
enum class MenuGroupType
{
    Base = 0,
    Partial = 1
};
enum class MenuItemType
{
    Item = 0,
    Separator = 1,
    SubMenu = 2
};
enum class ToolbarItemType
{
    Button = 0,
    Separator = 1,
    Control = 2,
    Flyout = 3
};
enum class DockStatus
{
    Top = 0,
    Bottom = 1,
    Left = 2,
    Right = 3,
    Floating = 4
};

struct Menu;
struct MenuGroup;
struct Toolbar;

// One entry of a menu.
struct MenuItem
{
    ElementId id = 0;
    Menu* parent = nullptr; // the menu that the entry stands in; never null
    MenuItemType type = MenuItemType::Item;
    std::wstring label; // with `&`; empty for a separator
    std::wstring macro; // what the command line is fed; empty unless type is Item
    std::wstring help;  // text of the status bar
    std::wstring tag;   // unique among the items of the whole menu
    bool enabled = true;
    bool checked = false;
    long endSubMenuLevel = 0;      // kept for clients, not used
    std::unique_ptr<Menu> subMenu; // not null exactly when type is SubMenu
};

// One pop-up menu: a pull-down menu, the shortcut menu of its group, or a sub-menu.
struct Menu
{
    ElementId id = 0;
    MenuGroup* group = nullptr; // never null
    MenuItem* owner = nullptr;  // the entry that opens a sub-menu; null for the others
    std::wstring name;          // with `&`; for a sub-menu always the label of its owner
    std::wstring tag;
    bool shortcut = false; // true for the group's shortcut menu
    std::vector<std::unique_ptr<MenuItem>> items;
};

// One button or separator of a toolbar.
struct ToolbarItem
{
    ElementId id = 0;
    Toolbar* parent = nullptr; // never null
    ToolbarItemType type = ToolbarItemType::Button;
    std::wstring name;  // also the tooltip
    std::wstring macro; // not run for a fly-out
    std::wstring help;  // text of the status bar
    std::wstring tag;   // unique among the items of its toolbar
    std::wstring commandDisplayName;
    std::wstring smallBitmap; // names of image files, which need not exist
    std::wstring largeBitmap;
    Toolbar* flyout = nullptr; // the attached toolbar of a fly-out; null when none is attached
};

// Place on the screen, in pixels.
struct ToolbarFrame
{
    long left = 0;
    long top = 0;
    long width = 0;
    long height = 0;
};

// One toolbar.
struct Toolbar
{
    ElementId id = 0;
    MenuGroup* group = nullptr; // never null
    std::wstring name;          // title of the floating frame
    std::wstring help;
    std::wstring tag;
    bool visible = true;
    DockStatus dock = DockStatus::Floating;
    ToolbarFrame frame;
    long floatingRows = 1; // wished number of rows when floating, >= 1
    std::vector<std::unique_ptr<ToolbarItem>> items;
};

// Menus and toolbars that are loaded together.
struct MenuGroup
{
    ElementId id = 0;
    std::wstring name;
    MenuGroupType type = MenuGroupType::Partial;
    std::wstring fileName; // full name of the file it came from; empty for the built-in group
    std::vector<std::unique_ptr<Menu>> menus;
    std::vector<std::unique_ptr<Toolbar>> toolbars;
};

} // namespace velmhost
