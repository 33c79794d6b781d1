// SPDX-License-Identifier: MIT
#include "deq/deq_graph.h"

#include <cstddef>
#include <string>

namespace kelvarin
{

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

} // namespace kelvarin
