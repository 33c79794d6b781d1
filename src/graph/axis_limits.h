// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

inline constexpr std::string_view equal_x_text = "Graph cannot be plotted when all x values are the same.";

/// The ranges of both axes, or the reason why the graph can't be drawn.
struct axis_limits
{
    axis_range x;
    /// nullopt if no curve is visible and y is not manual: then there is nothing to draw.
    std::optional<axis_range> y;
    /// Empty if the ranges were found.
    std::string failure;

    bool ok() const { return failure.empty(); }
};

/// The common logarithm.
double log10_of(double value);

/// Whether a range can be an axis: both ends finite, the first less than the second, and their difference finite.
bool is_axis_range(axis_range range);

/// The number of visible curves.
std::size_t count_visible_curves(const graph_content& graph);

/// The number of divisions of each axis, clamped to its bounds.
int axis_divisions(const graph_content& graph);

/// `extremes` rounded outward to multiples of the step 10 ^ Int(log10(range / ticks)), Int toward minus infinity. A
/// largest value less than 1e-8 of a step above a multiple rounds down to it. Returns nullopt if there is no such axis
/// range: the ends are equal, or their difference underflows or overflows.
std::optional<axis_range> rounded_range(axis_range extremes, int ticks);

/// The limits of the axes: the user's if they are manual and a valid range, else the extremes of the data, rounded.
/// Values that are not finite are ignored. All x equal is a failure; equal y are widened by 1.
axis_limits find_axis_limits(const graph_content& graph);

/// Replaces the graph's limits by the ones found; limits that were not found are unchanged.
void settle_axis_limits(graph_content& graph);

/// The `ticks` + 1 evenly spaced ends of the divisions, including both ends of the axis.
std::vector<double> tick_values(axis_range range, int ticks);

/// The labels of the divisions, all in one form. `plain` has as many decimals as are needed to distinguish the
/// divisions and, within reason, to be exact; very large or very fine ranges are written with an exponent.
std::vector<std::string> tick_labels(axis_range range, int ticks, axis_label_format format);

} // namespace kelvarin
