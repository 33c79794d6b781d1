// SPDX-License-Identifier: MIT
#pragma once

#include "graph/axis_limits.h"
#include "graph/graph_content.h"
#include "platform/message_box.h"

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin::test
{

/// A value that is missing.
inline constexpr double gap = std::numeric_limits<double>::quiet_NaN();

/// The text of a box, or nothing where there was none.
inline std::string text_of(const std::optional<message_box>& box)
{
    return box ? box->text : "";
}

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
