// What a list control should hold, kept the simplest way: vectors of rows, of cells and of columns.
#pragma once

#include <VelmUtil22.h>

#include <algorithm>
#include <string>
#include <vector>

namespace randomplay
{

struct CellModel
{
    COLORREF text = 0;
    COLORREF background = 0;
    bool isBold = false;
    int image = -1;
    std::wstring tip;
    bool isCombo = false;
    const CStringArray* choices = nullptr;
    int comboHeight = 10;
    int comboInitial = 0;
    bool isProgress = false;
    int percent = 0;
    bool showsProgressText = true;
    std::wstring progressText;
    int checkedState = -1;
    bool isDown = false; // the drop button
};

struct RowModel
{
    std::vector<std::wstring> texts; // one for each column that there is
    std::vector<CellModel> cells;    // one for each column that there was when the row came; none: no records
    bool isEnabled = true;
    DWORD data = 0;
    bool HasRecords() const { return !cells.empty(); }
};

class ListModel
{
public:
    std::vector<RowModel> rows;
    std::vector<int> headerStates; // one for each column

    int Rows() const { return static_cast<int>(rows.size()); }
    int Columns() const { return static_cast<int>(headerStates.size()); }
    bool HasRow(int row) const { return 0 <= row && row < Rows(); }
    bool HasCell(int row, int column) const { return HasRow(row) && 0 <= column && column < Columns(); }

    RowModel* Row(int row) { return HasRow(row) ? &rows[static_cast<size_t>(row)] : nullptr; }
    // Null for what is out of range and for cells without records.
    CellModel* Cell(int row, int column)
    {
        if (!HasCell(row, column) || column >= static_cast<int>(Row(row)->cells.size()))
            return nullptr;
        return &Row(row)->cells[static_cast<size_t>(column)];
    }
    std::wstring& Text(int row, int column) { return Row(row)->texts[static_cast<size_t>(column)]; }
    int& HeaderState(int column) { return headerStates[static_cast<size_t>(column)]; }

    int CheckedIn(int column)
    {
        int count = 0;
        for (int row = 0; row < Rows(); ++row) {
            const CellModel* const cell = Cell(row, column);
            count += cell != nullptr && cell->checkedState == 1;
        }
        return count;
    }
    bool IsAnyDown() const
    {
        return std::any_of(rows.begin(), rows.end(), [](const RowModel& row) {
            return std::any_of(row.cells.begin(), row.cells.end(),
                               [](const CellModel& c) { return c.isDown; });
        });
    }
    // A header's box is checked when the boxes of all rows are.
    void FollowRows(int column)
    {
        if (0 <= column && column < Columns() && HeaderState(column) != 0)
            HeaderState(column) = CheckedIn(column) == Rows() ? 2 : 1;
    }
    int InsertRow(int row, const std::wstring& text, bool hasRecords)
    {
        RowModel added;
        added.texts.resize(headerStates.size());
        if (Columns() > 0)
            added.texts[0] = text;
        if (hasRecords) {
            CellModel cell;
            cell.text = ::GetSysColor(COLOR_WINDOWTEXT);
            cell.background = ::GetSysColor(COLOR_WINDOW);
            added.cells.assign(headerStates.size(), cell);
        }
        row = std::min(row, Rows());
        rows.insert(rows.begin() + row, added);
        return row;
    }
    void DeleteRow(int row) { rows.erase(rows.begin() + row); }
    void InsertColumn(int column)
    {
        headerStates.insert(headerStates.begin() + column, 0);
        for (RowModel& row : rows)
            row.texts.insert(row.texts.begin() + column, std::wstring());
    }
    void DeleteColumn(int column)
    {
        headerStates.erase(headerStates.begin() + column);
        for (RowModel& row : rows)
            row.texts.erase(row.texts.begin() + column);
    }
};

} // namespace randomplay
