// SPDX-License-Identifier: MIT
#include "deq/deq_summary.h"

#include <algorithm>
#include <cstddef>

namespace kelvarin
{

std::vector<deq_summary_row> build_deq_summary(const named_columns& points)
{
    std::vector<deq_summary_row> summary;
    for (std::size_t i = 0; i < points.column_count(); ++i) {
        const std::vector<double>& column = points.columns[i];
        const auto [minimal, maximal] = std::ranges::minmax(column);
        summary.push_back({points.names[i], column.front(), minimal, maximal, column.back()});
    }
    return summary;
}

} // namespace kelvarin
