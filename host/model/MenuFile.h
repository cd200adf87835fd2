// Menu groups that come from files.
//
// A menu file is UTF-8 text, with or without byte order mark, of one entry per line:
//
//   group NAME                                  first entry, once
//   menu NAME                                   pull-down menu; goes on the bar with `bar`
//   bar                                         puts the menu begun last at the right end of the bar
//   item LABEL|MACRO|HELP                       entry of the menu or sub-menu begun last
//   submenu LABEL                               begins a sub-menu
//   end                                         ends the sub-menu begun last
//   separator                                   in the menu, sub-menu or toolbar begun last
//   toolbar NAME
//   button NAME|MACRO|HELP|SMALL|LARGE          entry of the toolbar begun last
//   flyout NAME|MACRO|HELP|SMALL|LARGE|TOOLBAR  opens TOOLBAR of the same group, defined anywhere in it
//   hidden                                      hides the toolbar begun last
//
// Blanks around a line, empty lines and lines that begin with `;` mean nothing. Fields on the right may
// be left out; `|` cannot be part of one. In macros `^` with one of `@`...`_` after it is a control
// character (^C is 3).
#pragma once

#include <string>

#include "model/HostElements.h"

namespace velmhost
{

class HostModel;

// Looks for a menu file: a name with a folder or drive is taken as it stands, from the current folder on
// when it is relative, and searched for nowhere else; another one is searched for in the program's folder,
// the current folder and the system's path. Returns its full name, or empty text. Rests on
// GetFullPathName and SearchPath.
std::wstring FindMenuFile(const std::wstring& fileName);

// Adds the group of a menu file. With `type` Base it takes the place of the base group. Throws HostError:
// FileMissing, FileInvalid (with the number of the line), Duplicate when the group is loaded already.
// Gone or FileInvalid when an observer of the model interferes. Nothing stays of a group that failed.
const MenuGroup& LoadMenuFile(HostModel& model, const std::wstring& fileName, MenuGroupType type);

} // namespace velmhost
