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

/// The texts of a grid's cells, column by column. Copies share their columns: a column is never modified but replaced
/// by a modified copy, so a copy costs one pointer per column, an edit costs the edited columns, and comparison skips
/// shared columns. This keeps steps of undo small. Rows and columns count from 0.
///
/// Each call of `set_cell` copies its column: use one `edit_column` to change many cells of a column.
class cell_columns
{
public:
    cell_columns() = default;
    /// A grid of empty cells.
    cell_columns(int rows, int columns);

    int rows() const { return rows_; }
    int columns() const { return static_cast<int>(columns_.size()); }
    bool is_inside(int row, int column) const { return row >= 0 && row < rows() && column >= 0 && column < columns(); }

    const std::string& cell(int row, int column) const { return cells_of(column)[static_cast<std::size_t>(row)]; }
    const std::vector<std::string>& cells_of(int column) const { return *columns_[static_cast<std::size_t>(column)]; }
    /// Whether both objects share the column.
    bool shares_column(int column, const cell_columns& other) const
    {
        return &cells_of(column) == &other.cells_of(column);
    }

    void set_cell(int row, int column, std::string_view text);
    /// `cells` must have rows() elements.
    void set_column(int column, std::vector<std::string> cells);
    /// Shares a column of a grid with as many rows.
    void share_column(int column, const cell_columns& other, int other_column)
    {
        assert(other.rows_ == rows_);
        columns_[static_cast<std::size_t>(column)] = other.columns_[static_cast<std::size_t>(other_column)];
    }
    /// Calls `edit` with a copy of a column's cells and stores the result. `edit` must not change their number.
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
