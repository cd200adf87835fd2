// The interaction of CXListCtrl.
#include "listctrl/XListCtrl.h"

#include <algorithm>

#include "frame/Completing.h"
#include "frame/TipText.h"
#include "listctrl/ListWatch.h"
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
    CRect second;
    const bool isColumn = count == 1 || (GetItemRect(1, &second, LVIR_BOUNDS) && second.left == first.left &&
                                         second.top == first.bottom);
    if ((GetStyle() & LVS_TYPEMASK) == LVS_REPORT && !IsGroupViewEnabled() && isColumn && first.Height() > 0)
    {
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
    const Watch watch(*this);
    // By its handle: an object for it may have to be made, and there may be no memory.
    HWND parent = ::GetParent(m_hWnd);
    if (parent == nullptr)
        Completes([&] { parent = GetOwner()->GetSafeHwnd(); });
    if (::IsWindow(parent))
        ::SendMessage(parent, message, static_cast<WPARAM>(row), column);
    return !watch.IsGone();
}

void CXListCtrl::CloseOpenComboListAndGoOn()
{
    const Watch watch(*this);
    if (m_pCombo != nullptr)
        OnComboEscape(0, 0);
    if (!watch.IsGone())
        Default();
}

void CXListCtrl::DestroyComboList()
{
    CXComboList* const combo = m_pCombo;
    if (combo == nullptr || m_isClosingCombo)
        return;
    // The window's going moves the focus, and with it whatever the program does then.
    const Watch watch(*this);
    m_isClosingCombo = true;
    combo->DestroyWindow();
    delete combo;
    if (watch.IsDeleted())
        return;
    m_pCombo = nullptr;
    ++m_combosEnded;
    m_isClosingCombo = false;
}

void CXListCtrl::OnLButtonDown(UINT, CPoint point)
{
    const int row = RowAt(point);
    if (row < 0) {
        CloseOpenComboListAndGoOn();
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
        CloseOpenComboListAndGoOn();
    }
}

void CXListCtrl::ToggleCheckbox(int row, int column)
{
    XLISTCTRLDATA& record = *RecordOf(row, column);
    SetCheckedState(record, column, record.nCheckedState == 0 ? 1 : 0);
    const Watch watch(*this);
    RedrawCell(row, column);
    if (watch.IsGone() || !SendToParent(WM_XLISTCTRL_CHECKBOX_CLICKED, row, column))
        return;
    UpdateHeaderCheckbox(column);
    if (!watch.IsGone())
        Default();
}

void CXListCtrl::PressComboButton(int row, int column, CPoint point)
{
    const Watch watch(*this);
    DestroyComboList();
    if (watch.IsGone())
        return;
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
        if (watch.IsGone())
            return;
        SetTimer(ButtonTimer, ButtonPeriod, nullptr);
    }
    Default();
}

void CXListCtrl::OpenComboList(int row, int column, CDC* pDC, const CRect& cell)
{
    // Rows may have moved since the press.
    const XLISTCTRLDATA* const pressed = RecordOf(row, column);
    if (pressed == nullptr)
        return;
    const Watch watch(*this);
    CXComboList* combo = nullptr;
    LPCTSTR windowClass = nullptr;
    const bool isMade = Completes([&] {
        windowClass = AfxRegisterWndClass(CS_SAVEBITS | CS_CLASSDC, ::LoadCursor(nullptr, IDC_ARROW));
        combo = new CXComboList(this);
    });
    if (!isMade)
        return;
    m_pCombo = combo;
    m_nComboItem = row;
    m_nComboSubItem = column;
    m_rectComboList = cell;
    m_rectComboList.right -= 1;
    m_rectComboList.top += cell.Height() - 1;
    m_rectComboList.bottom =
        ComboListBottom(m_rectComboList.top, cell.Height() - 2, pressed->nComboListHeight);
    ClientToScreen(&m_rectComboList);

    // Activation and focus go round the program: afterwards the drop-down, the row or the list may be gone.
    const unsigned ended = m_combosEnded;
    BOOL isCreated = FALSE;
    Completes([&] {
        isCreated =
            combo->CreateEx(0, windowClass, L"", WS_POPUP | WS_VISIBLE | WS_BORDER, m_rectComboList, this, 0);
    });
    if (watch.IsGone() || m_combosEnded != ended)
        return;
    const XLISTCTRLDATA* const record = RecordOf(row, column);
    // Without its list box it would have no text to put back.
    if (!isCreated || record == nullptr || combo->GetCount() == LB_ERR) {
        DestroyComboList();
        return;
    }
    m_strComboOpenText.Empty();
    bool isFilled = false;
    const bool isComplete = Completes([&] {
        LOGFONT logFont = {};
        CFont* const current = pDC->GetCurrentFont();
        if (!m_bComboFontCreated && current != nullptr && current->GetLogFont(&logFont) != 0)
            m_bComboFontCreated = m_fontComboList.CreateFontIndirect(&logFont);
        if (m_bComboFontCreated)
            combo->SetFont(&m_fontComboList, FALSE);
        isFilled = FillComboList(row, column, *record);
    });
    if (isFilled)
        combo->SetActive(ComboScrollBarWidth);
    else if (!isComplete && !watch.IsGone() && m_combosEnded == ended)
        DestroyComboList();
}

bool CXListCtrl::FillComboList(int row, int column, const XLISTCTRLDATA& record)
{
    CXComboList* const combo = m_pCombo;
    const CStringArray* const choices = record.pComboStrings;
    const INT_PTR count = choices != nullptr ? choices->GetSize() : 0;
    for (INT_PTR i = 0; i < count; ++i) {
        if (!choices->GetAt(i).IsEmpty())
            combo->AddString(choices->GetAt(i));
    }
    INT_PTR selection = 0;
    const CString text = TextOf(row, column);
    if (!text.IsEmpty()) {
        selection = std::max<INT_PTR>(combo->FindStringExact(-1, text), 0);
    } else if (combo->GetCount() > 0) {
        CString first;
        combo->GetText(0, first);
        const Watch watch(*this);
        const unsigned ended = m_combosEnded;
        SetItemText(row, column, first);
        if (watch.IsGone() || m_combosEnded != ended)
            return false;
    }
    combo->SetCurSel(selection);
    combo->GetText(selection, m_strComboOpenText);
    return true;
}

// Makes the open list's selection the text of its cell; whether there was one, and such a cell.
bool CXListCtrl::TakeComboSelection()
{
    const INT_PTR selection = m_pCombo->GetCurSel();
    if (selection == -1 || !HasCell(m_nComboItem, m_nComboSubItem))
        return false;
    CString text;
    if (!Completes([&] { m_pCombo->GetText(selection, text); }))
        return false;
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
        CommitComboSelection();
        break;
    case CopyTimer:
        KillTimer(CopyTimer);
        if (m_pCombo != nullptr)
            TakeComboSelection();
        break;
    }
}

void CXListCtrl::CommitComboSelection()
{
    if (m_pCombo == nullptr)
        return;
    const Watch watch(*this);
    const unsigned ended = m_combosEnded;
    if (TakeComboSelection() && !watch.IsGone())
        SendToParent(WM_XLISTCTRL_COMBO_SELECTION, m_nComboItem, m_nComboSubItem);
    // The parent may have had another one opened meanwhile.
    if (!watch.IsGone() && m_combosEnded == ended)
        DestroyComboList();
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
    const CString text = m_strComboOpenText;
    SetItemText(m_nComboItem, m_nComboSubItem, text);
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
    const Watch watch(*this);
    if (m_bComboButtonHeld) {
        if (XLISTCTRLDATA* const record = RecordOf(m_nComboItem, m_nComboSubItem)) {
            record->bComboButtonDown = FALSE;
            RedrawCell(m_nComboItem, m_nComboSubItem);
        }
    }
    isRunning = false;
    if (!watch.IsDeleted())
        m_bComboButtonHeld = FALSE;
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
    const Watch watch(*this);
    SetHeaderCheckedState(column, state + 1);
    if (watch.IsGone())
        return FALSE;
    m_HeaderCtrl.UpdateWindow();

    const int count = RowCount();
    for (int row = 0; row < count; ++row) {
        XLISTCTRLDATA* const record = RowRecord(RecordsOf(row), column);
        if (record != nullptr && record->nCheckedState != -1)
            SetCheckedState(*record, column, state);
    }
    // The others are drawn when they come into sight. Groups show the rows in an order of their own.
    const bool isGrouped = IsGroupViewEnabled() != FALSE;
    const int top = isGrouped ? 0 : GetTopIndex();
    const int end = isGrouped ? count : std::min(count, top + GetCountPerPage() + 1);
    for (int row = top; row < end && !watch.IsGone(); ++row)
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
    const auto number = static_cast<unsigned>(hit.iItem) * 1000 + static_cast<unsigned>(hit.iSubItem) + 1;
    const INT_PTR id = static_cast<int>(number);
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
