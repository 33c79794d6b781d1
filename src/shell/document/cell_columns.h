// SPDX-License-Identifier: MIT
#pragma once

#include <cassert>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kelvarin
{

/// The texts of a grid's cells, column by column. Copies share their columns: a column is never changed but replaced by
/// a changed copy, so a copy costs one pointer a column, an edit costs the edited columns, and comparison passes over
/// columns that are one object. Undo by values lives from that. Rows and columns count from 0.
///
/// Every change of a cell copies its column: whoever changes many cells of a column does it by one `edit_column`.
class cell_columns
{
public:
    cell_columns() = default;
    /// Empty cells.
    cell_columns(int rows, int columns);

    int rows() const { return rows_; }
    int columns() const { return static_cast<int>(columns_.size()); }
    bool is_inside(int row, int column) const { return row >= 0 && row < rows() && column >= 0 && column < columns(); }

    const std::string& cell(int row, int column) const { return cells_of(column)[static_cast<std::size_t>(row)]; }
    const std::vector<std::string>& cells_of(int column) const { return *columns_[static_cast<std::size_t>(column)]; }
    /// Whether both hold the column as one object.
    bool shares_column(int column, const cell_columns& other) const
    {
        return &cells_of(column) == &other.cells_of(column);
    }

    void set_cell(int row, int column, std::string_view text);
    /// `cells` are as many as there are rows.
    void set_column(int column, std::vector<std::string> cells);
    /// Calls `edit` with the cells of a column, whose number stays.
    template <class Edit> void edit_column(int column, Edit edit)
    {
        std::vector<std::string> cells = cells_of(column);
        edit(cells);
        set_column(column, std::move(cells));
    }

    friend bool operator==(const cell_columns& left, const cell_columns& right);

private:
    int rows_ = 0;
    std::vector<std::shared_ptr<const std::vector<std::string>>> columns_;
};

} // namespace kelvarin
