// SPDX-License-Identifier: MIT
#pragma once

#include "graph/axis_limits.h"
#include "graph/graph_content.h"

#include <cmath>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin::bench
{

/// A graph of sine waves, one above the other.
inline graph_content waves(std::size_t points, std::size_t curves)
{
    graph_content graph;
    std::vector<double> x(points);
    for (std::size_t i = 0; i < points; ++i)
        x[i] = 10.0 * static_cast<double>(i) / static_cast<double>(points);
    for (std::size_t curve = 0; curve < curves; ++curve) {
        std::vector<double> y(points);
        for (std::size_t i = 0; i < points; ++i)
            y[i] = static_cast<double>(curve) + std::sin(x[i] * (1.0 + 0.01 * static_cast<double>(curve)));
        graph.columns.push_back({"y" + std::to_string(curve), shared_values(std::move(y))});
        graph.curve_visible.push_back(true);
    }
    graph.columns.front() = {"x", shared_values(std::move(x))};
    settle_axis_limits(graph);
    return graph;
}

} // namespace kelvarin::bench
