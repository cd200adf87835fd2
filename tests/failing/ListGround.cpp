#include "ListGround.h"

namespace failingtest
{

ListGround::ListGround()
{
    choices.Add(L"the first of the choices");
    choices.Add(L"the second of the choices");
    images.Create(16, 16, ILC_COLOR32, 3, 1);
    CBitmap bitmap;
    bitmap.CreateBitmap(48, 16, 1, 32, nullptr);
    images.Add(&bitmap, static_cast<CBitmap*>(nullptr));
    parent.CreateEx(0, AfxRegisterWndClass(0), L"Parent", WS_POPUP | WS_VISIBLE, CRect(20, 20, 420, 320),
                    nullptr, 0);
    list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHAREIMAGELISTS, CRect(10, 10, 310, 260), &parent,
                1);
    list.SetImageList(&images, LVSIL_SMALL);
    list.InsertColumn(0, L"First", LVCFMT_LEFT, 100);
    list.InsertColumn(1, L"Second", LVCFMT_LEFT, 90);
    list.InsertColumn(2, L"Third", LVCFMT_LEFT, 60);
    for (int row = 0; row < Rows; ++row)
        list.InsertItem(row, L"row");
    list.SetItemText(0, 1, L"bold");
    list.SetBold(0, 1, TRUE);
    list.SetItemImage(0, 0, 1);
    list.SetItemToolTipText(0, 0, L"the tip of the first cell");
    list.SetCheckbox(1, 0, 0);
    list.SetCheckbox(1, 1, 1);
    list.SetHeaderCheckedState(0, 1);
    list.SetProgress(2, 1, TRUE, L"%d percent of it are done");
    list.UpdateProgress(2, 1, 40);
    list.SetComboBox(3, 1, TRUE, &choices, 5, 0);
    list.SetCurSel(3);
    list.SetItemText(4, 1, CString(L'x', 300));
    list.UpdateWindow();
}

ListGround::~ListGround()
{
    parent.DestroyWindow();
}

std::string ListGround::State()
{
    if (list.GetSafeHwnd() == nullptr)
        return "no list\n";
    std::string state;
    for (int row = 0; row < list.GetItemCount(); ++row) {
        const auto records = reinterpret_cast<XLISTCTRLDATA*>(list.CListCtrl::GetItemData(row));
        state += records ? "row:" : "row without records:";
        for (int column = 0; column < Columns; ++column) {
            wchar_t cell[400] = L"";
            list.CListCtrl::GetItemText(row, column, cell, 400);
            state += std::string(" ") + testkit::Quoted(cell);
            if (!records)
                continue;
            const XLISTCTRLDATA& record = records[column];
            state += std::string(" (") + Shown(record.bEnabled) + Shown(record.bBold) + " " +
                     Shown(record.nImage) + " " + Shown(record.strToolTip) + " " + Shown(record.bCombo) +
                     std::to_string(record.pComboStrings ? record.pComboStrings->GetSize() : -1) + " " +
                     Shown(record.nComboListHeight) + Shown(record.nComboInitialSel) + " " +
                     std::to_string(record.crText) + "/" + std::to_string(record.crBackground) + " " +
                     Shown(record.bShowProgress) + Shown(record.nProgressPercent) +
                     Shown(record.strProgressText) + Shown(record.bShowProgressText) + " " +
                     Shown(record.nCheckedState) + " " + std::to_string(record.dwItemData) + ")";
        }
        state += "\n";
    }
    state += "checked";
    for (int column = 0; column < Columns; ++column)
        state += std::string(" ") + Shown(list.CountCheckedItems(column)) + "/" +
                 Shown(list.GetHeaderCheckedState(column));
    return state + ", selected " + Shown(list.GetCurSel()) + ", columns " + Shown(list.GetColumns()) +
           "\ndrop-down " +
           (list.m_pCombo ? std::string("open with ") + Shown(static_cast<int>(list.m_pCombo->GetCount()))
                          : "closed") +
           ", button " + Shown(list.m_bComboButtonHeld);
}

void ListGround::Paint()
{
    parent.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void ListGround::Click(CPoint point)
{
    list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    list.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
}

CRect ListGround::Cell(int row, int column)
{
    CRect rect;
    list.GetSubItemRect(row, column, LVIR_BOUNDS, rect);
    return rect;
}

void ListGround::OpenDropDown()
{
    const CRect cell = Cell(3, 1);
    const CPoint point(cell.right - 5, cell.CenterPoint().y);
    list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
}

} // namespace failingtest
