// SPDX-License-Identifier: MIT
#include "deq/deq_graph.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

} // namespace

graph_start deq_graph_start(const deq_outcome& outcome, int solution_number)
{
    graph_start start;
    start.caption = "ODE Results Graph, Solution #" + std::to_string(solution_number);
    for (std::size_t i = 0; i < outcome.points.column_count(); ++i)
        start.columns.push_back({outcome.points.names[i], outcome.points.columns[i]});
    start.visible.assign(outcome.differential_names.size(), true);
    start.visible.resize(outcome.points.column_count() - 1, false);
    return start;
}

named_columns differential_columns(const deq_outcome& outcome)
{
    named_columns kept;
    const std::size_t count = std::min(outcome.differential_names.size() + 1, outcome.points.column_count());
    const auto end = static_cast<std::ptrdiff_t>(count);
    kept.names.assign(outcome.points.names.begin(), outcome.points.names.begin() + end);
    kept.columns.assign(outcome.points.columns.begin(), outcome.points.columns.begin() + end);
    return kept;
}

std::vector<std::pair<drawn_part, curve_style>> add_earlier_run(graph_start& start, const named_columns& earlier)
{
    std::vector<std::pair<drawn_part, curve_style>> styles;
    if (earlier.row_count() == 0 || earlier.names.front() != start.columns.front().name) return styles;
    const std::size_t points = start.columns.front().values.size();
    const std::size_t all_points = points + earlier.row_count();
    const auto append = [](std::vector<double>& values, const std::vector<double>& more) {
        values.insert(values.end(), more.begin(), more.end());
    };
    append(start.columns.front().values, earlier.columns.front());
    for (start_column& column : start.columns)
        column.values.resize(all_points, not_a_number);
    for (std::size_t i = 1; i < earlier.column_count(); ++i) {
        const auto counterpart = std::ranges::find(start.columns, earlier.names[i], &start_column::name);
        const std::size_t curve = start.columns.size() - 1;
        // Curve c is column c + 1; without a counterpart the curve takes the colour of its own number.
        curve_style style = curve_style_of(counterpart == start.columns.end()
                                               ? curve
                                               : static_cast<std::size_t>(counterpart - start.columns.begin()) - 1);
        style.dashes = dashes_of(1);
        styles.emplace_back(drawn_part{drawn_role::curve, static_cast<int>(curve)}, style);
        std::vector<double> values(points, not_a_number);
        append(values, earlier.columns[i]);
        start.columns.push_back({earlier.names[i] + " (last)", std::move(values)});
        start.visible.push_back(true);
    }
    return styles;
}

} // namespace kelvarin
