#include "listctrl/XListCtrlData.h"

XLISTCTRLDATA::XLISTCTRLDATA()
    : bEnabled(TRUE), bBold(FALSE), nImage(-1), bCombo(FALSE), bComboButtonDown(FALSE),
      pComboStrings(nullptr), nComboListHeight(10), nComboInitialSel(0),
      crText(::GetSysColor(COLOR_WINDOWTEXT)), crBackground(::GetSysColor(COLOR_WINDOW)),
      bShowProgress(FALSE), nProgressPercent(0), bShowProgressText(TRUE), nCheckedState(-1), dwItemData(0)
{
}

XLISTCTRLDATA::XLISTCTRLDATA(const XLISTCTRLDATA& other) = default;

XLISTCTRLDATA::XLISTCTRLDATA(XLISTCTRLDATA&& other) : XLISTCTRLDATA(static_cast<const XLISTCTRLDATA&>(other))
{
}

XLISTCTRLDATA& XLISTCTRLDATA::operator=(const XLISTCTRLDATA& other) = default;

XLISTCTRLDATA& XLISTCTRLDATA::operator=(XLISTCTRLDATA&& other)
{
    return *this = static_cast<const XLISTCTRLDATA&>(other);
}

XLISTCTRLDATA::~XLISTCTRLDATA() = default;
