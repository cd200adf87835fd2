// The setters and getters of CXListCtrl's cells.
#include "listctrl/XListCtrl.h"

#include "frame/Completing.h"
#include "listctrl/ListWatch.h"
#include "listctrl/RowRecords.h"

namespace
{

constexpr COLORREF WindowsOwn = 0xFFFFFFFF;
constexpr int NoHeaderCheckbox = 0;
constexpr int HeaderUnchecked = 1;
constexpr int HeaderChecked = 2;

const wchar_t* TextOrEmpty(LPCTSTR text)
{
    return text != nullptr ? text : L"";
}

} // namespace

// Cells

BOOL CXListCtrl::SetTextOf(int row, int column, LPCTSTR text)
{
    return CListCtrl::SetItemText(row, column, TextOrEmpty(text));
}

BOOL CXListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText)
{
    if (!HasCell(nItem, nSubItem))
        return FALSE;
    const Watch watch(*this);
    const BOOL isSet = SetTextOf(nItem, nSubItem, lpszText);
    if (!watch.IsGone())
        RedrawCell(nItem, nSubItem);
    return isSet;
}

BOOL CXListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText, COLORREF crText,
                             COLORREF crBackground)
{
    XLISTCTRLDATA* records = nullptr;
    if (!FindCell(nItem, nSubItem, records))
        return FALSE;
    const Watch watch(*this);
    const BOOL isSet = lpszText != nullptr ? SetTextOf(nItem, nSubItem, lpszText) : TRUE;
    if (watch.IsGone())
        return isSet;
    if (watch.AreRecordsFreed())
        records = RecordsOf(nItem);
    if (XLISTCTRLDATA* const record = RowRecord(records, nSubItem)) {
        record->crText = crText != WindowsOwn ? crText : m_crWindowText;
        record->crBackground = crBackground != WindowsOwn ? crBackground : m_crWindow;
    }
    RedrawCell(nItem, nSubItem);
    return isSet;
}

BOOL CXListCtrl::SetItemData(int nItem, DWORD dwData)
{
    XLISTCTRLDATA* const first = RowRecord(RecordsOf(nItem), 0);
    if (first == nullptr)
        return FALSE;
    first->dwItemData = dwData;
    return TRUE;
}

DWORD CXListCtrl::GetItemData(int nItem)
{
    const XLISTCTRLDATA* const first = RowRecord(RecordsOf(nItem), 0);
    return first != nullptr ? first->dwItemData : 0;
}

BOOL CXListCtrl::SetBold(int nItem, int nSubItem, BOOL bBold)
{
    XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    if (record == nullptr)
        return FALSE;
    record->bBold = bBold;
    RedrawCell(nItem, nSubItem);
    return TRUE;
}

BOOL CXListCtrl::GetBold(int nItem, int nSubItem)
{
    const XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    return record != nullptr ? record->bBold : FALSE;
}

BOOL CXListCtrl::SetEnabled(int nItem, BOOL bEnable)
{
    XLISTCTRLDATA* const first = RowRecord(RecordsOf(nItem), 0);
    if (first == nullptr)
        return FALSE;
    first->bEnabled = bEnable;
    if (!IsDrawn())
        return TRUE;
    CRect bounds;
    GetItemRect(nItem, &bounds, LVIR_BOUNDS);
    InvalidateRect(&bounds, TRUE);
    UpdateWindow();
    return TRUE;
}

BOOL CXListCtrl::GetEnabled(int nItem)
{
    const XLISTCTRLDATA* const first = RowRecord(RecordsOf(nItem), 0);
    return first != nullptr ? first->bEnabled : FALSE;
}

BOOL CXListCtrl::SetItemImage(int nItem, int nSubItem, int nImage)
{
    XLISTCTRLDATA* records = nullptr;
    if (!FindCell(nItem, nSubItem, records))
        return FALSE;
    if (XLISTCTRLDATA* const record = RowRecord(records, nSubItem))
        record->nImage = nImage;
    RedrawCell(nItem, nSubItem);
    return TRUE;
}

BOOL CXListCtrl::SetItemToolTipText(int nItem, int nSubItem, LPCTSTR lpszToolTipText)
{
    XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    if (record == nullptr)
        return FALSE;
    return Completes([&] { record->strToolTip = TextOrEmpty(lpszToolTipText); });
}

CString CXListCtrl::GetItemToolTipText(int nItem, int nSubItem)
{
    const XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    return record != nullptr ? record->strToolTip : CString();
}

void CXListCtrl::DeleteAllToolTips()
{
    const int count = RowCount();
    for (int row = 0; row < count; ++row) {
        XLISTCTRLDATA* const records = RecordsOf(row);
        for (int column = 0; column < RowRecordCount(records); ++column)
            records[column].strToolTip.Empty();
    }
}

// Check boxes

void CXListCtrl::AdjustCheckedCount(int column, int state, int change)
{
    if (state == 1 && static_cast<size_t>(column) < m_checkedCounts.size())
        m_checkedCounts[static_cast<size_t>(column)] += change;
}

void CXListCtrl::SetCheckedState(XLISTCTRLDATA& record, int column, int state)
{
    AdjustCheckedCount(column, record.nCheckedState, -1);
    record.nCheckedState = state;
    AdjustCheckedCount(column, state, 1);
}

void CXListCtrl::UpdateHeaderCheckbox(int column)
{
    const int old = GetHeaderCheckedState(column);
    if (old == NoHeaderCheckbox)
        return;
    const int state = CountCheckedItems(column) == RowCount() ? HeaderChecked : HeaderUnchecked;
    // The header would draw itself anew for nothing.
    if (state != old)
        SetHeaderCheckedState(column, state);
}

BOOL CXListCtrl::SetCheckbox(int nItem, int nSubItem, int nCheckedState)
{
    XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    if (record == nullptr)
        return FALSE;
    SetCheckedState(*record, nSubItem, nCheckedState);
    const Watch watch(*this);
    RedrawCell(nItem, nSubItem);
    if (!watch.IsGone())
        UpdateHeaderCheckbox(nSubItem);
    return TRUE;
}

int CXListCtrl::GetCheckbox(int nItem, int nSubItem)
{
    const XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    return record != nullptr ? record->nCheckedState : -1;
}

int CXListCtrl::CountCheckedItems(int nSubItem)
{
    const bool isCounted =
        0 <= nSubItem && nSubItem < GetColumns() && static_cast<size_t>(nSubItem) < m_checkedCounts.size();
    return isCounted ? m_checkedCounts[static_cast<size_t>(nSubItem)] : 0;
}

BOOL CXListCtrl::SetHeaderCheckedState(int nSubItem, int nCheckedState)
{
    if (nSubItem < 0 || nSubItem >= GetColumns())
        return FALSE;
    HDITEM item = {};
    item.mask = HDI_IMAGE;
    item.iImage = nCheckedState;
    m_HeaderCtrl.SetItem(nSubItem, &item);
    return TRUE;
}

int CXListCtrl::GetHeaderCheckedState(int nSubItem)
{
    if (nSubItem < 0 || nSubItem >= GetColumns())
        return -1;
    HDITEM item = {};
    item.mask = HDI_IMAGE;
    m_HeaderCtrl.GetItem(nSubItem, &item);
    return item.iImage;
}

// Drop-downs

BOOL CXListCtrl::SetComboBox(int nItem, int nSubItem, BOOL bEnableCombo, CStringArray* psa,
                             int nComboListHeight, int nInitialComboSel)
{
    if (psa == nullptr)
        return FALSE;
    XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    if (record == nullptr)
        return FALSE;
    const int selection = 0 <= nInitialComboSel && nInitialComboSel < psa->GetSize() ? nInitialComboSel : 0;
    const Watch watch(*this);
    record->bCombo = bEnableCombo;
    if (bEnableCombo) {
        record->pComboStrings = psa;
        record->nComboListHeight = nComboListHeight;
        record->nComboInitialSel = selection;
        if (selection < psa->GetSize()) {
            // A copy: who hears of the text may change the choices.
            const CString choice = psa->GetAt(selection);
            SetItemText(nItem, nSubItem, choice);
        }
    }
    if (!watch.IsGone())
        RedrawCell(nItem, nSubItem);
    return TRUE;
}

CString CXListCtrl::GetComboText(int nItem, int nSubItem)
{
    CString text;
    if (HasCell(nItem, nSubItem))
        Completes([&] { text = TextOf(nItem, nSubItem); });
    return text;
}

// Progress bars

BOOL CXListCtrl::SetProgress(int nItem, int nSubItem, BOOL bShowProgressText, LPCTSTR lpszProgressText)
{
    XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    if (record == nullptr)
        return FALSE;
    if (!Completes([&] { record->strProgressText = TextOrEmpty(lpszProgressText); }))
        return FALSE;
    record->bShowProgress = TRUE;
    record->nProgressPercent = 0;
    record->bShowProgressText = bShowProgressText;
    RedrawCell(nItem, nSubItem);
    return TRUE;
}

void CXListCtrl::UpdateProgress(int nItem, int nSubItem, int nPercent)
{
    XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    if (record == nullptr)
        return;
    record->nProgressPercent = nPercent;
    RedrawCell(nItem, nSubItem);
}

void CXListCtrl::DeleteProgress(int nItem, int nSubItem)
{
    XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    if (record == nullptr)
        return;
    record->bShowProgress = FALSE;
    record->nProgressPercent = 0;
    RedrawCell(nItem, nSubItem);
}
