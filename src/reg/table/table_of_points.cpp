// SPDX-License-Identifier: MIT
#include "reg/table/table_of_points.h"

#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace kelvarin
{

table_content table_of_points(const named_columns& points, std::string_view title)
{
    const auto row_count = std::min(points.row_count(), static_cast<std::size_t>(largest_table_extent));
    table_content content({std::max(static_cast<int>(row_count), 1), static_cast<int>(points.column_count())});
    content.title = field_text(title);
    content.names = points.names;
    for (std::size_t column = 0; column < points.column_count(); ++column) {
        std::vector<std::string> cells(static_cast<std::size_t>(content.rows()));
        for (std::size_t row = 0; row < row_count; ++row)
            if (const double value = points.columns[column][row]; std::isfinite(value))
                cells[row] = trimmed(format_number(value));
        content.cells.set_column(static_cast<int>(column), std::move(cells));
    }
    return content;
}

} // namespace kelvarin
