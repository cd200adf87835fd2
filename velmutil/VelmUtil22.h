// The one header an add-in includes for VelmUtil22.dll.
//
// Everything that the library exports works on the thread that calls it, which is meant to be the
// host's user-interface thread. Nothing is kept between calls but the objects the caller makes.
#pragma once

#include "Version.h"

#include "controls/DlgProgressBar.h"
#include "controls/XComboList.h"
#include "controls/XListBox.h"
#include "controls/XTreeCtrl.h"

#include "credits/MatrixCredits.h"

#include "frame/Conversions.h"
#include "frame/DebugPrint.h"
#include "frame/EntityFilter.h"
#include "frame/ListHelpers.h"
#include "frame/ModulePath.h"
#include "frame/PtrLists.h"
#include "frame/TextSplitting.h"

#include "hostmenu/HostWrappers.h"
#include "hostmenu/MenuNode.h"
#include "hostmenu/MenuToolBar.h"
#include "hostmenu/ToolBarNode.h"

#include "listctrl/XListCtrl.h"

#include "xml/XMLFile.h"
