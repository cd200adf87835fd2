// The interaction of CXListCtrl.
#include "listctrl/XListCtrl.h"

#include <algorithm>
#include <new>

#include "frame/TipText.h"
#include "listctrl/RowRecords.h"

namespace
{

constexpr UINT_PTR ButtonTimer = 1;
constexpr UINT_PTR CloseTimer = 2;
constexpr UINT_PTR CommitTimer = 3;
constexpr UINT_PTR CopyTimer = 4;
constexpr UINT ButtonPeriod = 100;
constexpr UINT DeferPeriod = 50;
constexpr long ComboScrollBarWidth = 11;

// The bottom of a drop-down list of so many rows, within what a window can be.
int ComboListBottom(int top, int rowHeight, int rows)
{
    const __int64 height = static_cast<__int64>(rowHeight) * rows;
    return top + static_cast<int>(std::clamp<__int64>(height, 0, 0x7FFF));
}

} // namespace

int CXListCtrl::RowAt(CPoint point)
{
    CRect first;
    const int count = RowCount();
    if (count == 0 || !GetItemRect(0, &first, LVIR_BOUNDS))
        return -1;
    const auto contains = [&](int row) {
        CRect bounds;
        return GetItemRect(row, &bounds, LVIR_BOUNDS) && bounds.PtInRect(point);
    };
    // In report view all rows are alike, so nobody has to ask each of them.
    if ((GetStyle() & LVS_TYPEMASK) == LVS_REPORT && !IsGroupViewEnabled() && first.Height() > 0) {
        const int row = (point.y - first.top) / first.Height();
        return point.y >= first.top && row < count && contains(row) ? row : -1;
    }
    for (int row = 0; row < count; ++row) {
        if (contains(row))
            return row;
    }
    return -1;
}

int CXListCtrl::ColumnAt(int row, CPoint point)
{
    const int count = GetColumns();
    for (int column = 0; column < count; ++column) {
        if (CellRect(row, column).PtInRect(point))
            return column;
    }
    return -1;
}

// Returns whether the list is still there: its parent may do anything.
bool CXListCtrl::SendToParent(UINT message, int row, int column)
{
    const HWND list = m_hWnd;
    CWnd* parent = CWnd::FromHandle(::GetParent(list));
    if (parent == nullptr)
        parent = GetOwner();
    if (parent != nullptr && ::IsWindow(parent->m_hWnd))
        parent->SendMessage(message, static_cast<WPARAM>(row), column);
    return ::IsWindow(list) != FALSE;
}

void CXListCtrl::CloseOpenComboList()
{
    if (m_pCombo != nullptr)
        OnComboEscape(0, 0);
}

void CXListCtrl::DestroyComboList()
{
    CXComboList* const combo = m_pCombo;
    if (combo == nullptr || m_isClosingCombo)
        return;
    // The window's going moves the focus, and with it whatever the program does then.
    m_isClosingCombo = true;
    combo->DestroyWindow();
    delete combo;
    m_pCombo = nullptr;
    m_isClosingCombo = false;
}

void CXListCtrl::OnLButtonDown(UINT, CPoint point)
{
    const int row = RowAt(point);
    if (row < 0) {
        CloseOpenComboList();
        Default();
        return;
    }
    XLISTCTRLDATA* const records = RecordsOf(row);
    if (RowRecordCount(records) == 0 || !records[0].bEnabled)
        return;
    const int column = ColumnAt(row, point);
    const XLISTCTRLDATA* const record = RowRecord(records, column);
    if (record != nullptr && record->nCheckedState >= 0) {
        ToggleCheckbox(row, column);
    } else if (record != nullptr && record->bCombo) {
        PressComboButton(row, column, point);
    } else {
        CloseOpenComboList();
        Default();
    }
}

void CXListCtrl::ToggleCheckbox(int row, int column)
{
    XLISTCTRLDATA& record = *RecordOf(row, column);
    SetCheckedState(record, column, record.nCheckedState == 0 ? 1 : 0);
    RedrawCell(row, column);
    if (!SendToParent(WM_XLISTCTRL_CHECKBOX_CLICKED, row, column))
        return;
    UpdateHeaderCheckbox(column);
    Default();
}

void CXListCtrl::PressComboButton(int row, int column, CPoint point)
{
    DestroyComboList();
    const CRect cell = CellRect(row, column);
    // The second comparison is of unlike coordinates on purpose: so it has always been.
    if (point.x >= cell.right - cell.Height() && point.y <= cell.right) {
        // The former list's going has moved the focus, and the program may have acted on that.
        XLISTCTRLDATA* const record = RecordOf(row, column);
        if (record == nullptr) {
            Default();
            return;
        }
        record->bComboButtonDown = TRUE;
        m_bComboButtonHeld = TRUE;
        m_nComboItem = row;
        m_nComboSubItem = column;
        RedrawCell(row, column);
        SetTimer(ButtonTimer, ButtonPeriod, nullptr);
    }
    Default();
}

void CXListCtrl::OpenComboList(int row, int column, CDC* pDC, const CRect& cell, const XLISTCTRLDATA& record)
{
    try {
        m_pCombo = new CXComboList(this);
    } catch (CException* e) {
        e->Delete();
        return;
    } catch (const std::bad_alloc&) {
        return;
    }
    m_nComboItem = row;
    m_nComboSubItem = column;
    m_rectComboList = cell;
    m_rectComboList.right -= 1;
    m_rectComboList.top += cell.Height() - 1;
    m_rectComboList.bottom = ComboListBottom(m_rectComboList.top, cell.Height() - 2, record.nComboListHeight);
    ClientToScreen(&m_rectComboList);

    const LPCTSTR windowClass =
        AfxRegisterWndClass(CS_SAVEBITS | CS_CLASSDC, ::LoadCursor(nullptr, IDC_ARROW));
    if (!m_pCombo->CreateEx(0, windowClass, L"", WS_POPUP | WS_VISIBLE | WS_BORDER, m_rectComboList, this, 0))
    {
        DestroyComboList();
        return;
    }
    m_strComboOpenText.Empty();
    LOGFONT logFont = {};
    CFont* const current = pDC->GetCurrentFont();
    if (!m_bComboFontCreated && current != nullptr && current->GetLogFont(&logFont) != 0)
        m_bComboFontCreated = m_fontComboList.CreateFontIndirect(&logFont);
    if (m_bComboFontCreated)
        m_pCombo->SetFont(&m_fontComboList, FALSE);
    FillComboList(row, column, record);
    m_pCombo->SetActive(ComboScrollBarWidth);
}

void CXListCtrl::FillComboList(int row, int column, const XLISTCTRLDATA& record)
{
    const CStringArray* const choices = record.pComboStrings;
    const INT_PTR count = choices != nullptr ? choices->GetSize() : 0;
    for (INT_PTR i = 0; i < count; ++i) {
        if (!choices->GetAt(i).IsEmpty())
            m_pCombo->AddString(choices->GetAt(i));
    }
    INT_PTR selection = 0;
    const CString text = TextOf(row, column);
    if (!text.IsEmpty()) {
        selection = std::max<INT_PTR>(m_pCombo->FindStringExact(-1, text), 0);
    } else if (m_pCombo->GetCount() > 0) {
        CString first;
        m_pCombo->GetText(0, first);
        SetItemText(row, column, first);
    }
    m_pCombo->SetCurSel(selection);
    m_pCombo->GetText(selection, m_strComboOpenText);
}

// Makes the open list's selection the text of its cell; whether there was one, and such a cell.
bool CXListCtrl::TakeComboSelection()
{
    const INT_PTR selection = m_pCombo->GetCurSel();
    if (selection == -1 || !HasCell(m_nComboItem, m_nComboSubItem))
        return false;
    CString text;
    m_pCombo->GetText(selection, text);
    SetItemText(m_nComboItem, m_nComboSubItem, text);
    return true;
}

void CXListCtrl::OnTimer(UINT_PTR nIDEvent)
{
    switch (nIDEvent) {
    case ButtonTimer:
        if (m_bComboButtonHeld) {
            CPoint cursor;
            ::GetCursorPos(&cursor);
            ScreenToClient(&cursor);
            if (!m_rectComboButton.PtInRect(cursor))
                UnpressComboButton();
        } else if (m_pCombo == nullptr) {
            KillTimer(ButtonTimer);
        } else {
            m_pCombo->SetActive(ComboScrollBarWidth);
        }
        break;
    case CloseTimer:
        KillTimer(CloseTimer);
        DestroyComboList();
        break;
    case CommitTimer:
        KillTimer(CommitTimer);
        if (m_pCombo != nullptr && TakeComboSelection() &&
            !SendToParent(WM_XLISTCTRL_COMBO_SELECTION, m_nComboItem, m_nComboSubItem))
            return;
        DestroyComboList();
        break;
    case CopyTimer:
        KillTimer(CopyTimer);
        if (m_pCombo != nullptr)
            TakeComboSelection();
        break;
    }
}

LRESULT CXListCtrl::OnComboReturn(WPARAM, LPARAM)
{
    KillTimer(ButtonTimer);
    SetTimer(CommitTimer, DeferPeriod, nullptr);
    return 0;
}

LRESULT CXListCtrl::OnComboLButtonUp(WPARAM wParam, LPARAM lParam)
{
    return OnComboReturn(wParam, lParam);
}

LRESULT CXListCtrl::OnComboEscape(WPARAM, LPARAM)
{
    KillTimer(ButtonTimer);
    SetTimer(CloseTimer, DeferPeriod, nullptr);
    SetItemText(m_nComboItem, m_nComboSubItem, m_strComboOpenText);
    return 0;
}

LRESULT CXListCtrl::OnComboKeydown(WPARAM, LPARAM)
{
    SetTimer(CopyTimer, DeferPeriod, nullptr);
    return 0;
}

void CXListCtrl::UnpressComboButton()
{
    static bool isRunning = false;
    if (isRunning)
        return;
    isRunning = true;
    if (m_bComboButtonHeld) {
        if (XLISTCTRLDATA* const record = RecordOf(m_nComboItem, m_nComboSubItem)) {
            record->bComboButtonDown = FALSE;
            RedrawCell(m_nComboItem, m_nComboSubItem);
        }
    }
    m_bComboButtonHeld = FALSE;
    isRunning = false;
}

BOOL CXListCtrl::OnClick(NMHDR*, LRESULT* pResult)
{
    UnpressComboButton();
    *pResult = 0;
    return FALSE;
}

BOOL CXListCtrl::OnColumnClick(NMHDR* pNMHDR, LRESULT* pResult)
{
    *pResult = 0;
    const int column = reinterpret_cast<NMLISTVIEW*>(pNMHDR)->iSubItem;
    const int old = GetHeaderCheckedState(column);
    if (old == 0 || old == -1)
        return FALSE;
    const int state = old == 1 ? 1 : 0;
    SetHeaderCheckedState(column, state + 1);
    m_HeaderCtrl.UpdateWindow();

    const int count = RowCount();
    for (int row = 0; row < count; ++row) {
        XLISTCTRLDATA* const record = RowRecord(RecordsOf(row), column);
        if (record != nullptr && record->nCheckedState != -1)
            SetCheckedState(*record, column, state);
    }
    // The others are drawn when they come into sight.
    const int top = GetTopIndex();
    const int end = std::min(count, top + GetCountPerPage() + 1);
    for (int row = top; row < end; ++row)
        UpdateSubItem(row, column);
    return FALSE;
}

INT_PTR CXListCtrl::OnToolHitTest(CPoint point, TOOLINFO* pTI) const
{
    LVHITTESTINFO hit = {};
    hit.pt = point;
    ::SendMessage(m_hWnd, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if ((hit.flags & LVHT_ONITEMLABEL) == 0)
        return -1;
    const INT_PTR id = hit.iItem * 1000 + hit.iSubItem + 1;
    if (pTI != nullptr) {
        pTI->hwnd = m_hWnd;
        pTI->uId = static_cast<UINT_PTR>(id);
        pTI->lpszText = LPSTR_TEXTCALLBACK;
        GetClientRect(&pTI->rect);
    }
    return id;
}

BOOL CXListCtrl::OnToolTipText(UINT, NMHDR* pNMHDR, LRESULT* pResult)
{
    if (pNMHDR->idFrom == 0)
        return TRUE;
    *pResult = 0;
    LVHITTESTINFO hit = {};
    hit.pt = CPoint(::GetMessagePos());
    ScreenToClient(&hit.pt);
    ::SendMessage(m_hWnd, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if ((hit.flags & LVHT_ONITEMLABEL) == 0)
        return FALSE;
    const XLISTCTRLDATA* const record = RowRecord(RecordsOf(hit.iItem), hit.iSubItem);
    if (record == nullptr || record->strToolTip.IsEmpty())
        return FALSE;
    PutTipText(pNMHDR, record->strToolTip);
    return FALSE;
}
