// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_drawing.h"
#include "opt/opt_run.h"
#include "platform/run_listener.h"
#include "shell/settings.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace kelvarin
{

/// The target of two variables over their plane, around the way of a run, with the way itself.
struct opt_map
{
    std::string title;
    std::array<std::string, 2> names;
    axis_range x, y;
    /// Values at `points` by `points` evenly spaced places, row by row upward; not a number where there is none.
    int points = 0;
    std::vector<double> values;
    /// The values at which contours are drawn, ascending.
    std::vector<double> levels;
    /// Where the iterations began, and the result.
    std::vector<std::array<double, 2>> way;
};

/// Returns nullopt without a report, with another number of variables, or where the target has no two values. May throw
/// run_stopped.
std::optional<opt_map> opt_map_of(const opt_content& content, const opt_outcome& outcome, run_listener& listener);

/// Contours and way as a picture, with axes, grid and fonts as in graphs.
drawn_picture draw_opt_map(const opt_map& map, const settings& store, drawing_options options = {},
                           const text_metrics& metrics = sans_serif_metrics());

} // namespace kelvarin
