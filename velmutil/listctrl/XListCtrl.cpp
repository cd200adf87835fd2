#include "listctrl/XListCtrl.h"

#include "frame/Completing.h"
#include "listctrl/ListWatch.h"
#include "listctrl/RowRecords.h"

UINT WM_XLISTCTRL_CHECKBOX_CLICKED = RegisterWindowMessageW(L"WM_XLISTCTRL_CHECKBOX_CLICKED");
UINT WM_XLISTCTRL_COMBO_SELECTION = RegisterWindowMessageW(L"WM_XLISTCTRL_COMBO_SELECTION");

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
ON_NOTIFY_REFLECT_EX(LVN_ITEMCHANGING, &CXListCtrl::OnItemChange)
ON_NOTIFY_REFLECT_EX(LVN_ITEMCHANGED, &CXListCtrl::OnItemChange)
ON_NOTIFY_REFLECT_EX(LVN_DELETEITEM, &CXListCtrl::OnDeleteItem)
ON_NOTIFY_REFLECT_EX(LVN_DELETEALLITEMS, &CXListCtrl::OnDeleteAllItems)
ON_MESSAGE(WM_SETREDRAW, &CXListCtrl::OnSetRedraw)
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
    Watch::TellDeleted(*this);
    // Whoever is closing the drop-down deletes it.
    if (!m_isClosingCombo)
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
    // What belonged to a former window.
    DestroyComboList();
    m_bComboButtonHeld = FALSE;
    m_isRedrawOn = true;
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
    if (m_bHeaderSubclassed || header == nullptr)
        return;
    bool isSubclassed = false;
    Completes([&] { isSubclassed = m_HeaderCtrl.SubclassWindow(header) != FALSE; });
    if (!isSubclassed)
        return;
    m_bHeaderSubclassed = TRUE;
    // A new header may have the handle of a former one.
    m_HeaderCtrl.ForgetCount();
}

void CXListCtrl::OnDestroy()
{
    Watch::TellGone(*this);
    FreeAllRecords();
    m_bHeaderSubclassed = FALSE;
    CListCtrl::OnDestroy();
}

// The parent neither sees nor stops the attaching and freeing of records.
BOOL CXListCtrl::OnItemChange(NMHDR*, LRESULT* pResult)
{
    *pResult = 0;
    return m_isSettingRecords;
}

// A row that goes past this class takes its records with it.
BOOL CXListCtrl::OnDeleteItem(NMHDR* pNMHDR, LRESULT*)
{
    FreeRecords(reinterpret_cast<NMLISTVIEW*>(pNMHDR)->iItem);
    return FALSE;
}

// The parent may answer that it does not want to hear of each row: then nobody hears.
BOOL CXListCtrl::OnDeleteAllItems(NMHDR*, LRESULT*)
{
    FreeAllRecords();
    return FALSE;
}

LRESULT CXListCtrl::OnSetRedraw(WPARAM wParam, LPARAM)
{
    const bool isTurnedOn = wParam != 0 && !m_isRedrawOn;
    m_isRedrawOn = wParam != 0;
    const LRESULT result = Default();
    // What was set meanwhile.
    if (isTurnedOn)
        Invalidate();
    return result;
}

// Records

bool CXListCtrl::FindRow(int row, XLISTCTRLDATA*& records)
{
    LVITEM item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    if (row < 0 || m_hWnd == nullptr || DefWindowProc(LVM_GETITEM, 0, reinterpret_cast<LPARAM>(&item)) == 0)
        return false;
    records = reinterpret_cast<XLISTCTRLDATA*>(item.lParam);
    return true;
}

bool CXListCtrl::FindCell(int row, int column, XLISTCTRLDATA*& records)
{
    return FindRow(row, records) && 0 <= column && column < GetColumns();
}

XLISTCTRLDATA* CXListCtrl::RecordsOf(int row)
{
    XLISTCTRLDATA* records = nullptr;
    FindRow(row, records);
    return records;
}

XLISTCTRLDATA* CXListCtrl::RecordOf(int row, int column)
{
    XLISTCTRLDATA* records = nullptr;
    return FindCell(row, column, records) ? RowRecord(records, column) : nullptr;
}

bool CXListCtrl::SetRecords(int row, XLISTCTRLDATA* records)
{
    LVITEM item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    item.lParam = reinterpret_cast<LPARAM>(records);
    const Watch watch(*this);
    m_isSettingRecords = true;
    const bool isSet = DefWindowProc(LVM_SETITEM, 0, reinterpret_cast<LPARAM>(&item)) != 0;
    if (!watch.IsDeleted())
        m_isSettingRecords = false;
    return isSet;
}

XLISTCTRLDATA* CXListCtrl::NewRecords(COLORREF text, COLORREF background, int image)
{
    const int columns = GetColumns();
    XLISTCTRLDATA* records = nullptr;
    Completes([&] {
        if (m_checkedCounts.size() < static_cast<size_t>(columns))
            m_checkedCounts.resize(static_cast<size_t>(columns));
        records = NewRowRecords(columns);
    });
    if (XLISTCTRLDATA* const first = RowRecord(records, 0)) {
        first->crText = text;
        first->crBackground = background;
        first->nImage = image;
    }
    return records;
}

void CXListCtrl::FreeRecords(int row)
{
    XLISTCTRLDATA* const records = RecordsOf(row);
    if (records == nullptr)
        return;
    const Watch watch(*this);
    // A parent without reflection may refuse: the row keeps what it points to.
    if (!SetRecords(row, nullptr))
        return;
    if (!watch.IsDeleted()) {
        for (int column = 0; column < RowRecordCount(records); ++column)
            AdjustCheckedCount(column, records[column].nCheckedState, -1);
        ++m_recordsFreed;
    }
    DeleteRowRecords(records);
}

void CXListCtrl::FreeAllRecords()
{
    const Watch watch(*this);
    for (int row = 0; !watch.IsDeleted() && row < RowCount(); ++row)
        FreeRecords(row);
}

// Rows and columns

int CXListCtrl::GetColumns()
{
    if (m_HeaderCtrl.m_hWnd != nullptr)
        return m_HeaderCtrl.CountItems();
    if (m_hWnd == nullptr)
        return 0;
    const auto header = reinterpret_cast<HWND>(DefWindowProc(LVM_GETHEADER, 0, 0));
    return header != nullptr ? static_cast<int>(::SendMessage(header, HDM_GETITEMCOUNT, 0, 0)) : 0;
}

int CXListCtrl::InsertItem(int nItem, LPCTSTR lpszItem)
{
    return InsertItem(nItem, lpszItem, m_crWindowText, m_crWindow);
}

int CXListCtrl::InsertItem(int nItem, LPCTSTR lpszItem, COLORREF crText, COLORREF crBackground)
{
    LVITEM item = {};
    item.mask = LVIF_TEXT;
    item.iItem = nItem;
    item.pszText = const_cast<LPTSTR>(lpszItem != nullptr ? lpszItem : L"");
    return InsertWithRecords(item, crText, crBackground, -1);
}

int CXListCtrl::InsertItem(const LVITEM* pItem)
{
    return pItem != nullptr ? InsertWithRecords(*pItem, m_crWindowText, m_crWindow, pItem->iImage) : -1;
}

// The row comes with its records, so that those who hear of it find them, and no parameter of the caller's.
int CXListCtrl::InsertWithRecords(LVITEM item, COLORREF text, COLORREF background, int image)
{
    if (item.iItem < 0 || m_hWnd == nullptr)
        return -1;
    XLISTCTRLDATA* const records = NewRecords(text, background, image);
    item.mask |= LVIF_PARAM;
    item.lParam = reinterpret_cast<LPARAM>(records);
    const Watch watch(*this);
    const int row = CListCtrl::InsertItem(&item);
    if (watch.IsGone())
        return -1;
    if (row < 0)
        DeleteRowRecords(records);
    return row >= 0 && records == nullptr ? -1 : row;
}

BOOL CXListCtrl::SetItem(const LVITEM* pItem)
{
    if (pItem == nullptr || pItem->iItem < 0)
        return -1;
    LVITEM item = *pItem;
    item.mask &= ~static_cast<UINT>(LVIF_PARAM);
    const Watch watch(*this);
    if (!CListCtrl::SetItem(&item) || watch.IsGone())
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
    const Watch watch(*this);
    const int count = RowCount();
    FreeRecords(nItem);
    // The parent may have deleted it meanwhile: the index would be another row's.
    if (watch.IsGone() || RowCount() != count)
        return FALSE;
    return CListCtrl::DeleteItem(nItem);
}

BOOL CXListCtrl::DeleteAllItems()
{
    const Watch watch(*this);
    FreeAllRecords();
    return watch.IsGone() ? FALSE : CListCtrl::DeleteAllItems();
}

void CXListCtrl::DeleteCheckedItems()
{
    const Watch watch(*this);
    for (int row = 0; !watch.IsGone() && row < RowCount();) {
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
    // Nothing would come of it, and asking the window manager is most of what filling a list costs.
    if (!IsDrawn())
        return;
    const CRect cell = CellRect(row, column);
    InvalidateRect(&cell, TRUE);
    UpdateWindow();
}
