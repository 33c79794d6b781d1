// SPDX-License-Identifier: MIT
#pragma once

#include "graph/axis_limits.h"
#include "graph/graph_content.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin::test
{

/// A graph of columns x, a, b, ... with all curves shown and the limits found.
inline graph_content graph_of(std::vector<std::vector<double>> columns)
{
    graph_content graph;
    graph.columns.clear();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string name = i == 0 ? "x" : std::string(1, static_cast<char>('a' + i - 1));
        graph.columns.push_back({name, shared_values(std::move(columns[i]))});
    }
    graph.curve_visible.assign(graph.curve_count(), true);
    settle_axis_limits(graph);
    return graph;
}

} // namespace kelvarin::test
