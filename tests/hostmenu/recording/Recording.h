// A companion for tests: it makes nothing in any host, but keeps a log of what it was asked for and
// counts the references to the objects it hands out. Built as CorvanUtil22.dll, so the loader takes it in
// place of the real one for programs that lie beside it.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "hostmenu/CompanionOperations.h"

namespace recording
{

// Forgets the log, the objects and everything that was ordered.
CORVAN_API void Reset();

// The log, a line for each call of an operation in order, and for each Note. Texts stand in quotation
// marks, null pointers and empty wrappers are "null". Objects are called by kind and running number, as
// the line that made them says:
//   menu1 = Create_ACADMenu(app, "Tools")
//   submenu2 = Append_SubMenu(menu1, "Draw")
//   Append_MenuItem(submenu2, "Line", "LINE ", null, true, false)
//   toolbar3 = Create_ACADToolBar(app, "Tools")
//   Append_ToolBarItem(toolbar3, "LINE ", null, "small.bmp", "large.bmp", false, null)
//   SetVisible(toolbar3, 1)
CORVAN_API std::vector<std::wstring> Log();

// Adds a line of the test's own to the log.
CORVAN_API void Note(const std::wstring& line);

// Gives an object that comes from elsewhere, the application, its name in the log; null takes it away.
CORVAN_API void NameApplication(IDispatch* application);

// The number of references to each object handed out, by its name. 0 is balanced; an object that was
// released too often has less.
CORVAN_API std::map<std::wstring, long> References();

// Runs `action` in the n-th call of an operation, counted from 1, after the call was put in the log and
// before it makes anything. What the action throws leaves the operation.
CORVAN_API void InCall(int n, std::function<void()> action);

// Lets the n-th call of an operation, which must be one that makes an object, return null.
CORVAN_API void ReturnNullInCall(int n);

// The number of calls of operations so far.
CORVAN_API int CallCount();

} // namespace recording
