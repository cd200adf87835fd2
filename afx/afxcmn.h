// The common controls and image lists.
#pragma once

#include "afxwin.h"

#include "win/imagelist.h"
#include "win/tooltipctrl.h"
#include "win/barctrls.h"
#include "win/headerctrl.h"
#include "win/listctrl.h"
#include "win/toolbarctrl.h"
#include "win/treectrl.h"
