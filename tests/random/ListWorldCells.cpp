// The steps that call the list control's members: rows, columns and cells.
#include "ListWorld.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>

namespace randomplay
{
namespace
{

constexpr int MostRows = 12;
constexpr int MostColumns = 5;
constexpr int States[] = {-1, 0, 1, 1, 0, 2, -7};

} // namespace

bool ListWorld::DoRows(const Step& step)
{
    const auto [a, b, c, d] = step.numbers;
    const bool isFull = m_model.Rows() >= MostRows;
    const int end = m_model.Rows() + 2;
    const int place = a % 16 == 15 ? -1 : static_cast<int>(a / 16 % static_cast<uint32_t>(end));
    const int inserted = !HasWindow() || place < 0 ? -1 : std::min(place, m_model.Rows());
    const std::wstring& text = TextOf(b);
    const wchar_t* const argument = text.empty() && c % 2 == 1 ? nullptr : text.c_str();
    switch (static_cast<Op>(step.operation)) {
    case Op::InsertText:
        if (isFull)
            return true;
        if (inserted >= 0)
            m_model.InsertRow(inserted, text, true);
        Expect(m_list->InsertItem(place, argument), inserted, "InsertItem");
        return true;
    case Op::InsertColored:
        if (isFull)
            return true;
        if (inserted >= 0) {
            m_model.InsertRow(inserted, text, true);
            m_model.Cell(inserted, 0)->text = RGB(c % 256, 1, 2);
            m_model.Cell(inserted, 0)->background = RGB(d % 256, 3, 4);
        }
        Expect(m_list->InsertItem(place, argument, RGB(c % 256, 1, 2), RGB(d % 256, 3, 4)), inserted,
               "InsertItem with colours");
        return true;
    case Op::InsertDescribed: {
        if (isFull)
            return true;
        LVITEM item = {};
        item.mask = LVIF_TEXT | (c % 2 == 1 ? LVIF_PARAM : 0u);
        item.iItem = place;
        // The list view takes no description of another column.
        item.iSubItem = c % 8 == 7 ? 1 : 0;
        item.pszText = const_cast<wchar_t*>(text.c_str());
        item.lParam = 0x1234;
        item.iImage = static_cast<int>(d % 4) - 1;
        const bool isTaken = inserted >= 0 && item.iSubItem == 0;
        if (isTaken) {
            m_model.InsertRow(inserted, text, true);
            m_model.Cell(inserted, 0)->image = item.iImage;
        }
        Expect(m_list->InsertItem(&item), isTaken ? inserted : -1, "InsertItem from a description");
        Expect(m_list->InsertItem(nullptr), -1, "InsertItem of null");
        return true;
    }
    case Op::InsertPast:
        if (isFull || !HasWindow() || place < 0)
            return true;
        m_model.InsertRow(inserted, text, false);
        Expect(m_list->CListCtrl::InsertItem(place, text.c_str()), inserted, "CListCtrl::InsertItem");
        return true;
    case Op::DeleteRow: {
        const int row = RowOf(a);
        const bool isThere = HasWindow() && m_model.HasRow(row);
        if (isThere)
            m_model.DeleteRow(row);
        Expect(m_list->DeleteItem(row) != FALSE, isThere, "DeleteItem", row);
        return true;
    }
    case Op::DeleteRowPast: {
        const int row = RowOf(a);
        if (!HasWindow() || !m_model.HasRow(row))
            return true;
        m_model.DeleteRow(row);
        Ask(LVM_DELETEITEM, static_cast<WPARAM>(row));
        return true;
    }
    case Op::DeleteAll:
        m_model.rows.clear();
        Expect(m_list->DeleteAllItems() != FALSE, HasWindow(), "DeleteAllItems");
        return true;
    case Op::DeleteAllPast:
        if (HasWindow()) {
            m_model.rows.clear();
            Ask(LVM_DELETEALLITEMS);
        }
        return true;
    case Op::DeleteChecked:
        std::erase_if(m_model.rows,
                      [](const RowModel& row) { return row.HasRecords() && row.cells[0].checkedState != 0; });
        m_list->DeleteCheckedItems();
        return true;
    case Op::Select: {
        if (!HasWindow())
            return true;
        const int row = RowOf(a);
        m_list->SetCurSel(row);
        if (m_model.HasRow(row))
            Expect(static_cast<bool>(Selection()[static_cast<size_t>(row)]), true, "SetCurSel", row);
        return true;
    }
    case Op::Sort:
        if (HasWindow())
            Sort(std::max(ColumnOf(a), 0));
        return true;
    default:
        return false;
    }
}

// By the address of the records, which is what the list view knows of a row: the order is the test's to say.
// Rows without records would be alike, so there may be one.
void ListWorld::Sort(int column)
{
    std::map<LPARAM, size_t> places;
    std::vector<size_t> order(m_model.rows.size());
    std::iota(order.begin(), order.end(), size_t{0});
    for (const size_t row : order)
        places[reinterpret_cast<LPARAM>(RecordsOf(static_cast<int>(row)))] = row;
    if (places.size() != order.size() || column >= m_model.Columns())
        return;
    std::stable_sort(order.begin(), order.end(), [&](size_t left, size_t right) {
        return m_model.Text(static_cast<int>(left), column) < m_model.Text(static_cast<int>(right), column);
    });
    std::map<LPARAM, int> ranks;
    for (const auto& [records, row] : places)
        ranks[records] = static_cast<int>(std::find(order.begin(), order.end(), row) - order.begin());
    const auto compare = [](LPARAM left, LPARAM right, LPARAM data) -> int {
        const auto& all = *reinterpret_cast<const std::map<LPARAM, int>*>(data);
        return all.at(left) - all.at(right);
    };
    const std::vector<RowModel> rows = m_model.rows;
    for (size_t i = 0; i < order.size(); ++i)
        m_model.rows[i] = rows[order[i]];
    m_list->SortItems(static_cast<PFNLVCOMPARE>(compare), reinterpret_cast<DWORD_PTR>(&ranks));
}

// Columns come and go in their natural order: the platform's list view may place those of a changed order
// wrongly afterwards.
void ListWorld::OrderColumns(uint32_t first, bool isReversed)
{
    std::vector<int> order(static_cast<size_t>(m_model.Columns()));
    std::iota(order.begin(), order.end(), 0);
    std::rotate(order.begin(), order.begin() + static_cast<ptrdiff_t>(first), order.end());
    if (isReversed)
        std::reverse(order.begin(), order.end());
    Ask(LVM_SETCOLUMNORDERARRAY, order.size(), reinterpret_cast<LPARAM>(order.data()));
}

bool ListWorld::DoColumns(const Step& step)
{
    const auto [a, b, c, d] = step.numbers;
    switch (static_cast<Op>(step.operation)) {
    case Op::InsertColumn: {
        if (!HasWindow() || m_model.Columns() >= MostColumns)
            return true;
        // The first column stays the first: the list view keeps its texts elsewhere.
        const int column = 1 + static_cast<int>(a % static_cast<uint32_t>(m_model.Columns()));
        OrderColumns(0, false);
        m_model.InsertColumn(column);
        Expect(m_list->InsertColumn(column, L"New", LVCFMT_LEFT, 30 + static_cast<int>(b % 60)), column,
               "InsertColumn");
        return true;
    }
    case Op::DeleteColumn: {
        if (!HasWindow() || m_model.Columns() < 2)
            return true;
        const int column = 1 + static_cast<int>(a % static_cast<uint32_t>(m_model.Columns() - 1));
        OrderColumns(0, false);
        m_model.DeleteColumn(column);
        Expect(m_list->DeleteColumn(column) != FALSE, true, "DeleteColumn");
        return true;
    }
    case Op::SizeColumn:
        if (HasWindow())
            m_list->SetColumnWidth(std::max(ColumnOf(a), 0), static_cast<int>(b % 150));
        return true;
    case Op::OrderColumns:
        if (HasWindow())
            OrderColumns(a % static_cast<uint32_t>(m_model.Columns()), b % 2 == 1);
        return true;
    default:
        return false;
    }
}

bool ListWorld::DoTexts(const Step& step)
{
    const auto [a, b, c, d] = step.numbers;
    const int row = RowOf(a), column = ColumnOf(b);
    const bool isThere = HasWindow() && m_model.HasCell(row, column);
    CellModel* const cell = isThere ? m_model.Cell(row, column) : nullptr;
    const std::wstring& text = TextOf(c);
    switch (static_cast<Op>(step.operation)) {
    case Op::SetText:
        if (isThere)
            m_model.Text(row, column) = text;
        Expect(m_list->SetItemText(row, column, text.c_str()) != FALSE, isThere, "SetItemText", row, column);
        return true;
    case Op::SetTextColors: {
        const COLORREF textColor = ColorOf(d), background = ColorOf(d / 3);
        const bool isKept = c % 16 == 15;
        if (isThere && !isKept)
            m_model.Text(row, column) = text;
        if (cell != nullptr) {
            cell->text = textColor != 0xFFFFFFFF ? textColor : ::GetSysColor(COLOR_WINDOWTEXT);
            cell->background = background != 0xFFFFFFFF ? background : ::GetSysColor(COLOR_WINDOW);
        }
        Expect(m_list->SetItemText(row, column, isKept ? nullptr : text.c_str(), textColor, background) !=
                   FALSE,
               isThere, "SetItemText with colours", row, column);
        return true;
    }
    case Op::SetDescribed: {
        if (column < 0)
            return true;
        LVITEM item = {};
        item.mask = LVIF_TEXT | (d % 2 == 1 && column == 0 ? LVIF_PARAM : 0u);
        item.iItem = row;
        item.iSubItem = column;
        item.pszText = const_cast<wchar_t*>(text.c_str());
        item.iImage = static_cast<int>(d / 2 % 5) - 1;
        item.lParam = 0x4321;
        if (isThere)
            m_model.Text(row, column) = text;
        if (cell != nullptr)
            cell->image = item.iImage;
        Expect(static_cast<int>(m_list->SetItem(&item)),
               row < 0           ? -1
               : cell != nullptr ? 1
                                 : 0,
               "SetItem", row, column);
        return true;
    }
    default:
        return false;
    }
}

bool ListWorld::DoFields(const Step& step)
{
    const auto [a, b, c, d] = step.numbers;
    const int row = RowOf(a), column = ColumnOf(b);
    const bool isThere = HasWindow() && m_model.HasCell(row, column);
    CellModel* const cell = isThere ? m_model.Cell(row, column) : nullptr;
    RowModel* const recorded =
        HasWindow() && m_model.HasRow(row) && m_model.Row(row)->HasRecords() ? m_model.Row(row) : nullptr;
    switch (static_cast<Op>(step.operation)) {
    case Op::SetData:
        if (recorded != nullptr)
            recorded->data = c;
        Expect(m_list->SetItemData(row, c) != FALSE, recorded != nullptr, "SetItemData", row);
        return true;
    case Op::SetBold:
        if (cell != nullptr)
            cell->isBold = c % 2 == 1;
        Expect(m_list->SetBold(row, column, c % 2) != FALSE, cell != nullptr, "SetBold", row, column);
        return true;
    case Op::SetEnabled:
        if (recorded != nullptr)
            recorded->isEnabled = c % 4 != 1;
        Expect(m_list->SetEnabled(row, c % 4 != 1) != FALSE, recorded != nullptr, "SetEnabled", row);
        return true;
    case Op::SetImage: {
        const int image = static_cast<int>(c % 5) - 1;
        if (cell != nullptr)
            cell->image = image;
        Expect(m_list->SetItemImage(row, column, image) != FALSE, isThere, "SetItemImage", row, column);
        return true;
    }
    case Op::SetTip:
        if (cell != nullptr)
            cell->tip = TextOf(c);
        Expect(m_list->SetItemToolTipText(row, column, TextOf(c).c_str()) != FALSE, cell != nullptr,
               "SetItemToolTipText", row, column);
        return true;
    case Op::DeleteTips:
        for (RowModel& model : m_model.rows) {
            for (CellModel& each : model.cells)
                each.tip.clear();
        }
        m_list->DeleteAllToolTips();
        return true;
    case Op::SetCheckbox: {
        const int state = States[c % std::size(States)];
        if (cell != nullptr) {
            cell->checkedState = state;
            m_model.FollowRows(column);
        }
        Expect(m_list->SetCheckbox(row, column, state) != FALSE, cell != nullptr, "SetCheckbox", row, column);
        return true;
    }
    case Op::SetHeaderState: {
        const bool hasColumn = HasWindow() && 0 <= column && column < m_model.Columns();
        const int state = static_cast<int>(c % 3);
        if (hasColumn)
            m_model.HeaderState(column) = state;
        Expect(m_list->SetHeaderCheckedState(column, state) != FALSE, hasColumn, "SetHeaderCheckedState", -1,
               column);
        return true;
    }
    default:
        return false;
    }
}

bool ListWorld::DoKinds(const Step& step)
{
    const auto [a, b, c, d] = step.numbers;
    const int row = RowOf(a), column = ColumnOf(b);
    CellModel* const cell = HasWindow() ? m_model.Cell(row, column) : nullptr;
    switch (static_cast<Op>(step.operation)) {
    case Op::SetCombo: {
        CStringArray& choices = m_choices[c % m_choices.size()];
        const bool isOn = c / 8 % 8 != 7;
        const int height = static_cast<int>(d % 8), asked = static_cast<int>(d / 8 % 5) - 1;
        const int initial = 0 <= asked && asked < choices.GetSize() ? asked : 0;
        if (cell != nullptr) {
            cell->isCombo = isOn;
            if (isOn) {
                cell->choices = &choices;
                cell->comboHeight = height;
                cell->comboInitial = initial;
                if (initial < choices.GetSize())
                    m_model.Text(row, column) = choices.GetAt(initial);
            }
        }
        Expect(m_list->SetComboBox(row, column, isOn, &choices, height, asked) != FALSE, cell != nullptr,
               "SetComboBox", row, column);
        Expect(m_list->SetComboBox(row, column, isOn, nullptr, height, asked), FALSE, "SetComboBox of null",
               row, column);
        return true;
    }
    case Op::ChangeChoices: {
        CStringArray& choices = m_choices[a % m_choices.size()];
        if (b % 2 == 1 && choices.GetSize() > 0)
            choices.RemoveAt(static_cast<INT_PTR>(c % static_cast<uint32_t>(choices.GetSize())));
        else if (choices.GetSize() < 20)
            choices.Add(TextOf(c).c_str());
        return true;
    }
    case Op::SetProgress:
        if (cell != nullptr) {
            cell->isProgress = true;
            cell->percent = 0;
            cell->showsProgressText = d % 4 != 3;
            cell->progressText = TextOf(c);
        }
        Expect(m_list->SetProgress(row, column, d % 4 != 3, TextOf(c).c_str()) != FALSE, cell != nullptr,
               "SetProgress", row, column);
        return true;
    case Op::UpdateProgress:
        if (cell != nullptr)
            cell->percent = static_cast<int>(c % 140) - 10;
        m_list->UpdateProgress(row, column, static_cast<int>(c % 140) - 10);
        return true;
    case Op::DeleteProgress:
        if (cell != nullptr) {
            cell->isProgress = false;
            cell->percent = 0;
        }
        m_list->DeleteProgress(row, column);
        return true;
    default:
        return false;
    }
}

} // namespace randomplay
