// The records of one row of a CXListCtrl: an array whose address is the row's parameter.
#pragma once

#include <afxwin.h>

#include "listctrl/XListCtrlData.h"

// Makes an array of `count` default records, 0 included; null if there is no memory.
XLISTCTRLDATA* NewRowRecords(int count);
// Frees it; null is left alone.
void DeleteRowRecords(XLISTCTRLDATA* records);
// How many records the array has; 0 for null. Columns added later have none in it.
int RowRecordCount(const XLISTCTRLDATA* records);
// The record of a column; null where the array is null or has none.
XLISTCTRLDATA* RowRecord(XLISTCTRLDATA* records, int column);
