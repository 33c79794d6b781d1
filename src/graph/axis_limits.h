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

/// The ranges of both axes, or in words why the graph can't be drawn.
struct axis_limits
{
    axis_range x;
    /// Nothing where no curve is visible and y is not manual: then there is nothing to draw.
    std::optional<axis_range> y;
    /// Empty where the ranges were found.
    std::string failure;

    bool ok() const { return failure.empty(); }
};

/// The common logarithm.
double log10_of(double value);

/// Whether a range can be an axis: both ends finite, the first below the second, and their distance finite.
bool is_axis_range(axis_range range);

/// How many of the curves are shown.
std::size_t count_visible_curves(const graph_content& graph);

/// The divisions of the axes, held within their bounds.
int axis_divisions(const graph_content& graph);

/// `extremes` rounded outward to multiples of the step 10 ^ Int(log10(range / ticks)), Int toward minus infinity. A
/// largest value less than 1e-8 of a step above a multiple rounds down to it. Nothing where the step has no value: the
/// ends equal, or so close or so far apart that a double can't hold their distance.
std::optional<axis_range> rounded_range(axis_range extremes, int ticks);

/// The limits of the axes: the user's where they are manual and a range, else the extremes of the data, rounded. What
/// is not finite counts neither way. All x equal is a failure; equal y are widened by 1.
axis_limits find_axis_limits(const graph_content& graph);

/// Puts the limits found in place of those that the graph holds; those that were not found stay.
void settle_axis_limits(graph_content& graph);

/// The ends of the divisions, both ends of the axis included, evenly spread.
std::vector<double> tick_values(axis_range range, int ticks);

/// The texts of the divisions, all of one form. `plain` has as many decimals as the divisions need to be told apart
/// and, within reason, to be exact; very large or very fine ranges are written with an exponent.
std::vector<std::string> tick_labels(axis_range range, int ticks, axis_label_format format);

} // namespace kelvarin
