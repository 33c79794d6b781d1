// SPDX-License-Identifier: MIT
#include "shell/document/cell_columns.h"

#include <algorithm>

namespace kelvarin
{

cell_columns::cell_columns(int rows, int columns) : rows_(rows)
{
    const auto empty = std::make_shared<const std::vector<std::string>>(static_cast<std::size_t>(rows));
    columns_.assign(static_cast<std::size_t>(columns), empty);
}

void cell_columns::set_cell(int row, int column, std::string_view text)
{
    if (cell(row, column) == text) return;
    edit_column(column, [&](std::vector<std::string>& cells) { cells[static_cast<std::size_t>(row)] = text; });
}

void cell_columns::set_column(int column, std::vector<std::string> cells)
{
    assert(cells.size() == static_cast<std::size_t>(rows_));
    // An unchanged column stays shared.
    if (cells == cells_of(column)) return;
    columns_[static_cast<std::size_t>(column)] = std::make_shared<const std::vector<std::string>>(std::move(cells));
}

bool operator==(const cell_columns& left, const cell_columns& right)
{
    return left.rows_ == right.rows_ &&
           std::ranges::equal(left.columns_, right.columns_,
                              [](const auto& one, const auto& other) { return one == other || *one == *other; });
}

} // namespace kelvarin
