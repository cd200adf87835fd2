// Values of the host's enumerations that the operations compare with.
#pragma once

// MenuGroup.Type
enum class HostMenuGroupType : long
{
    base = 0,
    partial = 1
};

// PopupMenuItem.Type
enum class HostMenuItemType : long
{
    item = 0,
    separator = 1,
    subMenu = 2
};

// ToolbarItem.Type
enum class HostToolbarItemType : long
{
    button = 0,
    separator = 1,
    control = 2,
    flyout = 3
};
