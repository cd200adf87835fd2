// A cell's record as a plain value: made without arguments it has what every record has at first.
#pragma once

#include <VelmUtil22.h>

#include <ostream>
#include <string>

#include "kit/Text.h"

struct CellState
{
    BOOL bEnabled = TRUE;
    BOOL bBold = FALSE;
    int nImage = -1;
    std::wstring strToolTip;
    BOOL bCombo = FALSE;
    BOOL bComboButtonDown = FALSE;
    CStringArray* pComboStrings = nullptr;
    int nComboListHeight = 10;
    int nComboInitialSel = 0;
    COLORREF crText = ::GetSysColor(COLOR_WINDOWTEXT);
    COLORREF crBackground = ::GetSysColor(COLOR_WINDOW);
    BOOL bShowProgress = FALSE;
    int nProgressPercent = 0;
    std::wstring strProgressText;
    BOOL bShowProgressText = TRUE;
    int nCheckedState = -1;
    DWORD dwItemData = 0;

    bool operator==(const CellState&) const = default;
};

inline CellState StateOf(const XLISTCTRLDATA& record)
{
    CellState state;
    state.bEnabled = record.bEnabled;
    state.bBold = record.bBold;
    state.nImage = record.nImage;
    state.strToolTip = record.strToolTip.GetString();
    state.bCombo = record.bCombo;
    state.bComboButtonDown = record.bComboButtonDown;
    state.pComboStrings = record.pComboStrings;
    state.nComboListHeight = record.nComboListHeight;
    state.nComboInitialSel = record.nComboInitialSel;
    state.crText = record.crText;
    state.crBackground = record.crBackground;
    state.bShowProgress = record.bShowProgress;
    state.nProgressPercent = record.nProgressPercent;
    state.strProgressText = record.strProgressText.GetString();
    state.bShowProgressText = record.bShowProgressText;
    state.nCheckedState = record.nCheckedState;
    state.dwItemData = record.dwItemData;
    return state;
}

inline void PrintTo(const CellState& state, std::ostream* out)
{
    *out << "enabled " << state.bEnabled << ", bold " << state.bBold << ", image " << state.nImage << ", tip "
         << testkit::Quoted(state.strToolTip) << ", combo " << state.bCombo << ", down "
         << state.bComboButtonDown << ", choices " << state.pComboStrings << ", height "
         << state.nComboListHeight << ", initial " << state.nComboInitialSel << std::hex << ", text colour "
         << state.crText << ", background " << state.crBackground << std::dec << ", progress "
         << state.bShowProgress << ", percent " << state.nProgressPercent << ", progress text "
         << testkit::Quoted(state.strProgressText) << ", shown " << state.bShowProgressText << ", checked "
         << state.nCheckedState << ", data " << state.dwItemData;
}
