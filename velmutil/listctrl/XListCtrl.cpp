#include "listctrl/XListCtrl.h"

#include <new>

#include "listctrl/RowRecords.h"

UINT WM_XLISTCTRL_CHECKBOX_CLICKED = RegisterWindowMessageW(L"WM_XLISTCTRL_CHECKBOX_CLICKED");
UINT WM_XLISTCTRL_COMBO_SELECTION = RegisterWindowMessageW(L"WM_XLISTCTRL_COMBO_SELECTION");

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

BEGIN_MESSAGE_MAP(CXListCtrl, CListCtrl)
ON_NOTIFY_REFLECT_EX(NM_CLICK, &CXListCtrl::OnClick)
ON_NOTIFY_REFLECT_EX(LVN_COLUMNCLICK, &CXListCtrl::OnColumnClick)
ON_WM_CREATE()
ON_NOTIFY_REFLECT(NM_CUSTOMDRAW, &CXListCtrl::OnCustomDraw)
ON_WM_DESTROY()
ON_WM_LBUTTONDOWN()
ON_WM_PAINT()
ON_WM_SYSCOLORCHANGE()
ON_WM_TIMER()
ON_REGISTERED_MESSAGE(WM_XCOMBOLIST_VK_ESCAPE, &CXListCtrl::OnComboEscape)
ON_REGISTERED_MESSAGE(WM_XCOMBOLIST_VK_RETURN, &CXListCtrl::OnComboReturn)
ON_REGISTERED_MESSAGE(WM_XCOMBOLIST_KEYDOWN, &CXListCtrl::OnComboKeydown)
ON_REGISTERED_MESSAGE(WM_XCOMBOLIST_LBUTTONUP, &CXListCtrl::OnComboLButtonUp)
ON_NOTIFY_EX_RANGE(TTN_NEEDTEXTW, 0, 0xFFFF, &CXListCtrl::OnToolTipText)
ON_NOTIFY_EX_RANGE(TTN_NEEDTEXTA, 0, 0xFFFF, &CXListCtrl::OnToolTipText)
END_MESSAGE_MAP()

CXListCtrl::CXListCtrl()
    : m_bHeaderSubclassed(FALSE), m_dwExtendedStyleX(0), m_bComboButtonHeld(FALSE), m_nComboItem(0),
      m_nComboSubItem(0), m_rectComboButton(0, 0, 0, 0), m_rectComboList(0, 0, 0, 0), m_pCombo(nullptr),
      m_bComboFontCreated(FALSE), m_boldLogFont()
{
    ReadSystemColors();
}

CXListCtrl::~CXListCtrl()
{
    // While the handlers of this class are still there to free the records.
    DestroyWindow();
    delete m_pCombo;
}

void CXListCtrl::ReadSystemColors()
{
    m_cr3DFace = ::GetSysColor(COLOR_BTNFACE);
    m_cr3DHighLight = ::GetSysColor(COLOR_BTNHIGHLIGHT);
    m_cr3DShadow = ::GetSysColor(COLOR_BTNSHADOW);
    m_crBtnFace = ::GetSysColor(COLOR_BTNFACE);
    m_crBtnShadow = ::GetSysColor(COLOR_BTNSHADOW);
    m_crBtnText = ::GetSysColor(COLOR_BTNTEXT);
    m_crGrayText = ::GetSysColor(COLOR_GRAYTEXT);
    m_crHighLight = ::GetSysColor(COLOR_HIGHLIGHT);
    m_crHighLightText = ::GetSysColor(COLOR_HIGHLIGHTTEXT);
    m_crWindow = ::GetSysColor(COLOR_WINDOW);
    m_crWindowText = ::GetSysColor(COLOR_WINDOWTEXT);
}

void CXListCtrl::OnSysColorChange()
{
    CListCtrl::OnSysColorChange();
    ReadSystemColors();
}

// Window

void CXListCtrl::PreSubclassWindow()
{
    CListCtrl::PreSubclassWindow();
    SubclassHeaderControl();
}

int CXListCtrl::OnCreate(LPCREATESTRUCT)
{
    if (Default() == -1)
        return -1;
    SubclassHeaderControl();
    return 0;
}

void CXListCtrl::SubclassHeaderControl()
{
    const auto header = reinterpret_cast<HWND>(::SendMessage(m_hWnd, LVM_GETHEADER, 0, 0));
    if (!m_bHeaderSubclassed && header != nullptr && m_HeaderCtrl.SubclassWindow(header))
        m_bHeaderSubclassed = TRUE;
}

void CXListCtrl::OnDestroy()
{
    FreeAllRecords();
    CListCtrl::OnDestroy();
}

// A row that goes past this class takes its records with it.
BOOL CXListCtrl::OnDeleteItem(NMHDR* pNMHDR, LRESULT*)
{
    FreeRecords(reinterpret_cast<NMLISTVIEW*>(pNMHDR)->iItem);
    return FALSE;
}

// Records

XLISTCTRLDATA* CXListCtrl::RecordsOf(int row)
{
    LVITEM item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    return DefWindowProc(LVM_GETITEM, 0, reinterpret_cast<LPARAM>(&item)) != 0
               ? reinterpret_cast<XLISTCTRLDATA*>(item.lParam)
               : nullptr;
}

XLISTCTRLDATA* CXListCtrl::RecordOf(int row, int column)
{
    return HasCell(row, column) ? RowRecord(RecordsOf(row), column) : nullptr;
}

void CXListCtrl::SetRecords(int row, XLISTCTRLDATA* records)
{
    CListCtrl::SetItemData(row, reinterpret_cast<DWORD_PTR>(records));
}

int CXListCtrl::AttachRecords(int row, COLORREF text, COLORREF background, int image)
{
    const int columns = GetColumns();
    XLISTCTRLDATA* records = nullptr;
    try {
        if (m_checkedCounts.size() < static_cast<size_t>(columns))
            m_checkedCounts.resize(static_cast<size_t>(columns));
        records = NewRowRecords(columns);
    } catch (const std::bad_alloc&) {
    }
    // What the caller gave as parameter does not stay in any case.
    SetRecords(row, records);
    if (records == nullptr)
        return -1;
    if (XLISTCTRLDATA* const first = RowRecord(records, 0)) {
        first->crText = text;
        first->crBackground = background;
        first->nImage = image;
    }
    return row;
}

void CXListCtrl::FreeRecords(int row)
{
    XLISTCTRLDATA* const records = RecordsOf(row);
    if (records == nullptr)
        return;
    for (int column = 0; column < RowRecordCount(records); ++column)
        AdjustCheckedCount(column, records[column].nCheckedState, -1);
    SetRecords(row, nullptr);
    DeleteRowRecords(records);
}

void CXListCtrl::FreeAllRecords()
{
    const int count = RowCount();
    for (int row = 0; row < count; ++row)
        FreeRecords(row);
}

// Rows and columns

int CXListCtrl::GetColumns()
{
    const auto header = reinterpret_cast<HWND>(DefWindowProc(LVM_GETHEADER, 0, 0));
    return header != nullptr ? static_cast<int>(::SendMessage(header, HDM_GETITEMCOUNT, 0, 0)) : 0;
}

int CXListCtrl::InsertItem(int nItem, LPCTSTR lpszItem)
{
    return InsertItem(nItem, lpszItem, m_crWindowText, m_crWindow);
}

int CXListCtrl::InsertItem(int nItem, LPCTSTR lpszItem, COLORREF crText, COLORREF crBackground)
{
    if (nItem < 0 || m_hWnd == nullptr)
        return -1;
    const int row = CListCtrl::InsertItem(nItem, TextOrEmpty(lpszItem));
    return row < 0 ? row : AttachRecords(row, crText, crBackground, -1);
}

int CXListCtrl::InsertItem(const LVITEM* pItem)
{
    if (pItem == nullptr || pItem->iItem < 0 || m_hWnd == nullptr)
        return -1;
    const int row = CListCtrl::InsertItem(pItem);
    return row < 0 ? row : AttachRecords(row, m_crWindowText, m_crWindow, pItem->iImage);
}

BOOL CXListCtrl::SetItem(const LVITEM* pItem)
{
    if (pItem == nullptr || pItem->iItem < 0)
        return -1;
    LVITEM item = *pItem;
    item.mask &= ~static_cast<UINT>(LVIF_PARAM);
    if (!CListCtrl::SetItem(&item))
        return FALSE;
    XLISTCTRLDATA* const record = RowRecord(RecordsOf(pItem->iItem), pItem->iSubItem);
    if (record == nullptr)
        return FALSE;
    record->nImage = pItem->iImage;
    UpdateSubItem(pItem->iItem, pItem->iSubItem);
    return TRUE;
}

BOOL CXListCtrl::DeleteItem(int nItem)
{
    if (!HasRow(nItem))
        return FALSE;
    FreeRecords(nItem);
    return CListCtrl::DeleteItem(nItem);
}

BOOL CXListCtrl::DeleteAllItems()
{
    FreeAllRecords();
    return CListCtrl::DeleteAllItems();
}

void CXListCtrl::DeleteCheckedItems()
{
    for (int row = 0; row < RowCount();) {
        const XLISTCTRLDATA* const first = RowRecord(RecordsOf(row), 0);
        // A row that the list view does not delete is passed over.
        if (first == nullptr || first->nCheckedState == 0 || !DeleteItem(row))
            ++row;
    }
}

int CXListCtrl::GetCurSel()
{
    return m_hWnd != nullptr ? GetNextItem(-1, LVNI_SELECTED) : -1;
}

BOOL CXListCtrl::SetCurSel(int nItem)
{
    return SetItemState(nItem, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
}

// Cells

BOOL CXListCtrl::SetTextOf(int row, int column, LPCTSTR text)
{
    return CListCtrl::SetItemText(row, column, TextOrEmpty(text));
}

BOOL CXListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText)
{
    if (!HasCell(nItem, nSubItem))
        return FALSE;
    const BOOL isSet = SetTextOf(nItem, nSubItem, lpszText);
    RedrawCell(nItem, nSubItem);
    return isSet;
}

BOOL CXListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText, COLORREF crText,
                             COLORREF crBackground)
{
    if (!HasCell(nItem, nSubItem))
        return FALSE;
    const BOOL isSet = lpszText != nullptr ? SetTextOf(nItem, nSubItem, lpszText) : TRUE;
    if (XLISTCTRLDATA* const record = RowRecord(RecordsOf(nItem), nSubItem)) {
        record->crText = crText != WindowsOwn ? crText : m_crWindowText;
        record->crBackground = crBackground != WindowsOwn ? crBackground : m_crWindow;
    }
    RedrawCell(nItem, nSubItem);
    return isSet;
}

BOOL CXListCtrl::SetItemData(int nItem, DWORD dwData)
{
    XLISTCTRLDATA* const first = HasRow(nItem) ? RowRecord(RecordsOf(nItem), 0) : nullptr;
    if (first == nullptr)
        return FALSE;
    first->dwItemData = dwData;
    return TRUE;
}

DWORD CXListCtrl::GetItemData(int nItem)
{
    const XLISTCTRLDATA* const first = HasRow(nItem) ? RowRecord(RecordsOf(nItem), 0) : nullptr;
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
    XLISTCTRLDATA* const first = HasRow(nItem) ? RowRecord(RecordsOf(nItem), 0) : nullptr;
    if (first == nullptr)
        return FALSE;
    first->bEnabled = bEnable;
    CRect bounds;
    GetItemRect(nItem, &bounds, LVIR_BOUNDS);
    InvalidateRect(&bounds, TRUE);
    UpdateWindow();
    return TRUE;
}

BOOL CXListCtrl::GetEnabled(int nItem)
{
    const XLISTCTRLDATA* const first = HasRow(nItem) ? RowRecord(RecordsOf(nItem), 0) : nullptr;
    return first != nullptr ? first->bEnabled : FALSE;
}

BOOL CXListCtrl::SetItemImage(int nItem, int nSubItem, int nImage)
{
    if (!HasCell(nItem, nSubItem))
        return FALSE;
    if (XLISTCTRLDATA* const record = RowRecord(RecordsOf(nItem), nSubItem))
        record->nImage = nImage;
    RedrawCell(nItem, nSubItem);
    return TRUE;
}

BOOL CXListCtrl::SetItemToolTipText(int nItem, int nSubItem, LPCTSTR lpszToolTipText)
{
    XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    if (record == nullptr)
        return FALSE;
    record->strToolTip = TextOrEmpty(lpszToolTipText);
    return TRUE;
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
    if (state == 1)
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
    if (state != old)
        SetHeaderCheckedState(column, state);
}

BOOL CXListCtrl::SetCheckbox(int nItem, int nSubItem, int nCheckedState)
{
    XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    if (record == nullptr)
        return FALSE;
    SetCheckedState(*record, nSubItem, nCheckedState);
    RedrawCell(nItem, nSubItem);
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
    record->bCombo = bEnableCombo;
    if (bEnableCombo) {
        record->pComboStrings = psa;
        record->nComboListHeight = nComboListHeight;
        record->nComboInitialSel = selection;
        if (selection < psa->GetSize())
            SetItemText(nItem, nSubItem, psa->GetAt(selection));
    }
    RedrawCell(nItem, nSubItem);
    return TRUE;
}

CString CXListCtrl::GetComboText(int nItem, int nSubItem)
{
    return HasCell(nItem, nSubItem) ? TextOf(nItem, nSubItem) : CString();
}

// Progress bars

BOOL CXListCtrl::SetProgress(int nItem, int nSubItem, BOOL bShowProgressText, LPCTSTR lpszProgressText)
{
    XLISTCTRLDATA* const record = RecordOf(nItem, nSubItem);
    if (record == nullptr)
        return FALSE;
    record->bShowProgress = TRUE;
    record->nProgressPercent = 0;
    record->bShowProgressText = bShowProgressText;
    record->strProgressText = TextOrEmpty(lpszProgressText);
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

// The list

DWORD CXListCtrl::SetExtendedStyleX(DWORD dwNewStyle)
{
    const DWORD old = m_dwExtendedStyleX;
    m_dwExtendedStyleX = dwNewStyle;
    return old;
}

DWORD CXListCtrl::GetExtendedStyleX()
{
    return m_dwExtendedStyleX;
}

void CXListCtrl::SetDefaultTextMessage(CString strMessage)
{
    m_strNoItemsMessage = strMessage;
}

BOOL CXListCtrl::GetSubItemRect(int nItem, int nSubItem, int nArea, CRect& rect)
{
    if (!HasCell(nItem, nSubItem))
        return FALSE;
    BOOL isFound = CListCtrl::GetSubItemRect(nItem, nSubItem, nArea, rect);
    if (nSubItem == 0 && GetColumns() >= 2) {
        CRect next;
        isFound = CListCtrl::GetSubItemRect(nItem, 1, LVIR_BOUNDS, next);
        rect.right = next.left;
    }
    return isFound;
}

CRect CXListCtrl::CellRect(int row, int column)
{
    CRect rect(0, 0, 0, 0);
    GetSubItemRect(row, column, LVIR_BOUNDS, rect);
    return rect;
}

void CXListCtrl::UpdateSubItem(int nItem, int nSubItem)
{
    if (HasCell(nItem, nSubItem))
        RedrawCell(nItem, nSubItem);
}

void CXListCtrl::RedrawCell(int row, int column)
{
    const CRect cell = CellRect(row, column);
    InvalidateRect(&cell, TRUE);
    UpdateWindow();
}
