// SPDX-License-Identifier: MIT
#pragma once

#include "reg/table/table_content.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kelvarin::test
{

/// A table of so many rows and columns whose first columns are these: name, or name=formula, and cells.
inline table_content table_of(const std::vector<std::pair<std::string, std::vector<std::string>>>& columns,
                              table_size size = {6, 4})
{
    table_content content(size);
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const std::string& head = columns[column].first;
        const std::size_t equals = head.find('=');
        content.names[column] = head.substr(0, equals);
        if (equals != std::string::npos) content.formulas[column] = head.substr(equals + 1);
        std::vector<std::string> cells = columns[column].second;
        cells.resize(static_cast<std::size_t>(size.rows));
        content.cells.set_column(static_cast<int>(column), std::move(cells));
    }
    return content;
}

/// The first cells of a column, as "1 2 _ abc"; an empty one is "_".
inline std::string cells_of(const table_content& content, int column, int rows)
{
    std::string all;
    for (int row = 0; row < rows; ++row) {
        const std::string& cell = content.cells.text(row, column);
        all += (row > 0 ? " " : "") + (cell.empty() ? "_" : cell);
    }
    return all;
}

} // namespace kelvarin::test
