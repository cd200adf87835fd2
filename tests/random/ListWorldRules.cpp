// What must hold after each step.
#include "ListWorld.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace randomplay
{

void ListWorld::Fail(std::string message)
{
    if (m_failure.empty())
        m_failure = std::move(message);
}

void ListWorld::Check()
{
    if (!m_failure.empty())
        return;
    Expect(m_window != nullptr && ::IsWindow(m_window) != FALSE, HasWindow(), "window lives");
    CheckTold();
    CheckDropDown();
    if (!m_failure.empty())
        return;
    if (!HasWindow()) {
        CheckWithoutWindow();
        return;
    }
    CheckCounts();
    if (!m_failure.empty())
        return;
    CheckOpening();
    CheckTexts();
    CheckRecords();
    CheckOutOfRange();
}

void ListWorld::CheckTold()
{
    const auto text = [](const std::vector<Told>& all) {
        std::string list;
        for (const Told& told : all) {
            list += (told.message == WM_XLISTCTRL_CHECKBOX_CLICKED ? "checkbox " : "choice ") +
                    std::to_string(told.row) + "/" + std::to_string(told.column) + " ";
        }
        return list;
    };
    if (m_told != m_expected)
        Fail("messages: the parent heard [" + text(m_told) + "], should hear [" + text(m_expected) + "]");
}

void ListWorld::CheckWithoutWindow()
{
    if (!m_list)
        return;
    Expect(m_list->GetSafeHwnd(), static_cast<HWND>(nullptr), "window of the object");
    Expect(m_list->GetColumns(), 0, "GetColumns without a window");
    Expect(m_list->GetCurSel(), -1, "GetCurSel without a window");
    Expect(m_list->GetCheckbox(0, 0), -1, "GetCheckbox without a window");
    Expect(m_list->CountCheckedItems(0), 0, "CountCheckedItems without a window");
    Expect(m_list->GetHeaderCheckedState(0), -1, "GetHeaderCheckedState without a window");
    Expect(m_list->GetComboText(0, 0).IsEmpty(), TRUE, "GetComboText without a window");
    CRect rect(1, 2, 3, 4);
    Expect(m_list->GetSubItemRect(0, 0, LVIR_BOUNDS, rect), FALSE, "GetSubItemRect without a window");
}

void ListWorld::CheckCounts()
{
    Expect(static_cast<int>(Ask(LVM_GETITEMCOUNT)), m_model.Rows(), "row count");
    Expect(m_list->GetItemCount(), m_model.Rows(), "GetItemCount");
    Expect(m_list->GetColumns(), m_model.Columns(), "GetColumns");
    for (int column = 0; column < m_model.Columns(); ++column) {
        Expect(m_list->CountCheckedItems(column), m_model.CheckedIn(column), "CountCheckedItems", -1, column);
        Expect(m_list->GetHeaderCheckedState(column), m_model.HeaderState(column), "header state", -1,
               column);
    }
    for (const int column : {-1, m_model.Columns()}) {
        Expect(m_list->CountCheckedItems(column), 0, "CountCheckedItems out of range", -1, column);
        Expect(m_list->GetHeaderCheckedState(column), -1, "header state out of range", -1, column);
    }
    const std::vector<bool> selection = Selection();
    const auto first = std::find(selection.begin(), selection.end(), true);
    Expect(m_list->GetCurSel(), first == selection.end() ? -1 : static_cast<int>(first - selection.begin()),
           "GetCurSel");
}

void ListWorld::CheckTexts()
{
    for (int row = 0; row < m_model.Rows(); ++row) {
        for (int column = 0; column < m_model.Columns(); ++column) {
            wchar_t text[200] = {};
            LVITEM item = {};
            item.iSubItem = column;
            item.pszText = text;
            item.cchTextMax = 200;
            Read(LVM_GETITEMTEXT, static_cast<WPARAM>(row), &item);
            if (m_model.Text(row, column) != text && MayBecome(row, column, text))
                m_model.Text(row, column) = text;
            Expect(std::wstring(text), m_model.Text(row, column), "text", row, column);
        }
    }
}

// Drawing gives a drop-down cell without text its initial choice, opening its list the first one that is not
// empty; an open drop-down writes into its cell.
bool ListWorld::MayBecome(int row, int column, const std::wstring& text) const
{
    const RowModel& rowModel = m_model.rows[static_cast<size_t>(row)];
    const auto place = static_cast<size_t>(column);
    const CellModel* const cell = place < rowModel.cells.size() ? &rowModel.cells[place] : nullptr;
    if (cell != nullptr && cell->isCombo && cell->choices != nullptr && rowModel.texts[place].empty()) {
        for (INT_PTR choice = 0; choice < cell->choices->GetSize(); ++choice) {
            if (text == static_cast<const wchar_t*>(cell->choices->GetAt(choice)) &&
                (choice == cell->comboInitial || m_isComboStep || cell->isDown))
                return true;
        }
    }

    const auto mayWrite = [&](const DropDown& list) {
        return list.row == row && list.column == column &&
               (text == list.openText ||
                std::find(list.entries.begin(), list.entries.end(), text) != list.entries.end());
    };
    const DropDown now = DropDownNow();
    const bool hasOpened = m_before.row == -1 && now.row != -1;
    return (m_isComboStep && mayWrite(m_before)) || ((m_isComboStep || hasOpened) && mayWrite(now));
}

void ListWorld::CheckRecords()
{
    for (int row = 0; row < m_model.Rows() && m_failure.empty(); ++row) {
        RowModel& model = *m_model.Row(row);
        XLISTCTRLDATA* const records = RecordsOf(row);
        Expect(records != nullptr, model.HasRecords(), "records", row);
        for (size_t column = 0; column < model.cells.size() && m_failure.empty(); ++column) {
            CheckRecord(records[column], model.cells[column], row, static_cast<int>(column));
            CheckButton(records[column], model.cells[column], row, static_cast<int>(column));
        }
        if (IsInTurn(row)) {
            CheckCalls(row);
            CheckRectangles(row);
        }
    }
}

// What costs many messages is asked of one row after each step, and of all at the end.
bool ListWorld::IsInTurn(int row) const
{
    return m_isEnding || m_steps % m_model.Rows() == row;
}

void ListWorld::CheckRecord(const XLISTCTRLDATA& record, const CellModel& cell, int row, int column)
{
    Expect(record.crText, cell.text, "text colour", row, column);
    Expect(record.crBackground, cell.background, "background", row, column);
    Expect(record.bBold != FALSE, cell.isBold, "bold", row, column);
    Expect(record.nImage, cell.image, "image", row, column);
    Expect(std::wstring(record.strToolTip), cell.tip, "tip", row, column);
    Expect(record.bCombo != FALSE, cell.isCombo, "drop-down", row, column);
    Expect(static_cast<const CStringArray*>(record.pComboStrings), cell.choices, "choices", row, column);
    Expect(record.nComboListHeight, cell.comboHeight, "drop-down height", row, column);
    Expect(record.nComboInitialSel, cell.comboInitial, "initial choice", row, column);
    Expect(record.bShowProgress != FALSE, cell.isProgress, "progress", row, column);
    Expect(record.nProgressPercent, cell.percent, "percentage", row, column);
    Expect(record.bShowProgressText != FALSE, cell.showsProgressText, "progress text shown", row, column);
    Expect(std::wstring(record.strProgressText), cell.progressText, "progress text", row, column);
    Expect(record.nCheckedState, cell.checkedState, "checked state", row, column);
}

void ListWorld::CheckCalls(int row)
{
    const RowModel& model = *m_model.Row(row);
    Expect(m_list->GetItemData(row), model.data, "GetItemData", row);
    Expect(m_list->GetEnabled(row) != FALSE, model.HasRecords() && model.isEnabled, "GetEnabled", row);
    for (int column = 0; column < m_model.Columns(); ++column)
        CheckGetters(row, column);
}

void ListWorld::CheckGetters(int row, int column)
{
    const CellModel* const cell = m_model.Cell(row, column);
    Expect(m_list->GetCheckbox(row, column), cell ? cell->checkedState : -1, "GetCheckbox", row, column);
    Expect(m_list->GetBold(row, column) != FALSE, cell && cell->isBold, "GetBold", row, column);
    Expect(std::wstring(m_list->GetItemToolTipText(row, column)), cell ? cell->tip : std::wstring(),
           "GetItemToolTipText", row, column);
    Expect(std::wstring(m_list->GetComboText(row, column)),
           m_model.HasCell(row, column) ? m_model.Text(row, column) : std::wstring(), "GetComboText", row,
           column);
}

void ListWorld::CheckRectangles(int row)
{
    const CRect bounds = RowRect(row);
    for (int column = 0; column < m_model.Columns(); ++column) {
        CRect cell(-1, -1, -1, -1);
        Expect(m_list->GetSubItemRect(row, column, LVIR_BOUNDS, cell), TRUE, "GetSubItemRect", row, column);
        const bool isInside = cell.top == bounds.top && cell.bottom == bounds.bottom &&
                              (cell.Width() <= 0 || (bounds.left <= cell.left && cell.right <= bounds.right));
        Expect(isInside, true, "rectangle inside its row", row, column);
        Expect(cell == CellRect(row, column), true, "rectangle is the list view's", row, column);
    }
}

void ListWorld::CheckOutOfRange()
{
    CheckGetters(-1, 0);
    CheckGetters(m_model.Rows(), 0);
    CheckGetters(0, m_model.Columns());
    Expect(m_list->GetItemData(m_model.Rows()), 0u, "GetItemData of no row");
    Expect(m_list->GetEnabled(-1), FALSE, "GetEnabled of no row");
    CRect untouched(1, 2, 3, 4);
    Expect(m_list->GetSubItemRect(m_model.Rows(), 0, LVIR_BOUNDS, untouched), FALSE, "rectangle of no row");
    Expect(m_list->GetSubItemRect(0, m_model.Columns(), LVIR_BOUNDS, untouched), FALSE,
           "rectangle of no column");
    Expect(untouched == CRect(1, 2, 3, 4), true, "rectangle of nothing is left");
}

void ListWorld::CheckDropDown()
{
    const std::vector<HWND> popups = Popups();
    if (popups.size() > 1)
        Fail("drop-downs: " + std::to_string(popups.size()) + " are open");
    const HWND known = m_list && m_list->m_pCombo != nullptr ? m_list->m_pCombo->GetSafeHwnd() : nullptr;
    Expect(popups.empty() ? nullptr : popups[0], known, "drop-down's window");
}

// Only a button that is down opens a list.
void ListWorld::CheckOpening()
{
    const DropDown now = DropDownNow();
    if (m_before.row != -1 || now.row == -1)
        return;
    ++dropDownsOpened;
    const CellModel* const cell = m_model.Cell(now.row, now.column);
    if (cell != nullptr && !cell->isDown && !m_isReleased)
        Fail("drop-down: opened in row " + std::to_string(now.row) + ", column " +
             std::to_string(now.column) + " without a press");
}

// It goes down by a press alone, and up when the mouse is released or leaves it.
void ListWorld::CheckButton(const XLISTCTRLDATA& record, CellModel& cell, int row, int column)
{
    const bool isDown = record.bComboButtonDown != FALSE;
    if (m_isReleased && !isDown)
        cell.isDown = false;
    Expect(isDown, cell.isDown, "button", row, column);
}

} // namespace randomplay
