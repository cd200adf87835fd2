// XLISTCTRLDATA: what a CXListCtrl knows of one cell besides its text.
#pragma once

#include <afxwin.h>
#include <afxcoll.h>

#include "frame/Portability.h"

// Moving copies: both records have all fields afterwards.
struct VELM_API XLISTCTRLDATA
{
    // The defaults noted below; the two colours are read from the system.
    XLISTCTRLDATA();
    XLISTCTRLDATA(const XLISTCTRLDATA& other);
    XLISTCTRLDATA(XLISTCTRLDATA&& other);
    XLISTCTRLDATA& operator=(const XLISTCTRLDATA& other);
    XLISTCTRLDATA& operator=(XLISTCTRLDATA&& other);
    ~XLISTCTRLDATA();

    BOOL bEnabled;               // TRUE; of column 0 alone: the whole row is enabled
    BOOL bBold;                  // FALSE; the text is bold
    int nImage;                  // -1, none; index into the list's small image list
    CString strToolTip;          // empty
    BOOL bCombo;                 // FALSE; the cell has a drop-down list
    BOOL bComboButtonDown;       // FALSE; its button is drawn pressed
    CStringArray* pComboStrings; // null; the choices, the caller's: they must outlive the cell
    int nComboListHeight;        // 10; the height of the drop-down list in rows
    int nComboInitialSel;        // 0; the choice for a cell without text
    COLORREF crText;             // COLOR_WINDOWTEXT
    COLORREF crBackground;       // COLOR_WINDOW
    BOOL bShowProgress;          // FALSE; a progress bar stands instead of the text
    int nProgressPercent;        // 0
    CString strProgressText;     // empty: the percentage; the text on the bar
    BOOL bShowProgressText;      // TRUE; there is text on the bar
    int nCheckedState;           // -1, no check box; 0 unchecked, 1 checked
    DWORD dwItemData;            // 0; of column 0 alone: the caller's data of the row
};
