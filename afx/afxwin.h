// Windows, GDI, menus, controls, dialogs, threads and the application.
#pragma once

#include "afx.h"
#include "atltypes.h"
#include "afxres.h"

#include <commctrl.h>
#include <shellapi.h>

// Macros of the platform that bear names of members.
#undef GetNextWindow
#undef SubclassWindow
#undef SubclassDialog
#undef GetNextSibling
#undef GetPrevSibling
#undef GetFirstChild
#undef CopyRgn
#undef SetWindowFont
#undef GetWindowID
#undef SelectFont

#include "afxmsg_.h"
#include "win/cmdtarget.h"
#include "win/gdiobject.h"
#include "win/dc.h"
#include "win/menu.h"
#include "win/wnd.h"
#include "win/controls.h"
#include "win/dialog.h"
#include "win/framewnd.h"
#include "win/app.h"
#include "afxdd_.h"
