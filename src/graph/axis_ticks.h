// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"

#include <string>
#include <vector>

namespace kelvarin
{

/// How values are spread over an axis. A logarithmic axis is a way of looking at a graph, not a part of it.
enum class axis_scale
{
    linear,
    logarithmic
};

struct axis_scales
{
    axis_scale x = axis_scale::linear;
    axis_scale y = axis_scale::linear;
};

/// Where a value lies on an axis: 0 at its beginning, 1 at its end. Clamped to a range in which clipping can compute,
/// however far outside the value is; NaN for a value that is not positive on a logarithmic axis.
double axis_fraction(double value, axis_range range, axis_scale scale);

/// The value at a fraction of an axis.
double axis_value(double fraction, axis_range range, axis_scale scale);

struct axis_tick
{
    /// As in axis_fraction.
    double fraction = 0.0;
    /// Empty for a tick between labelled ones.
    std::string label;
};

/// The ticks of an axis. A linear one has `divisions` equal divisions; a logarithmic one has ticks at powers of ten,
/// and at their multiples if there are few of them, whatever the divisions.
std::vector<axis_tick> axis_ticks(axis_range range, int divisions, axis_label_format format, axis_scale scale);

/// The range of a logarithmic axis: `range` itself if it is positive, else its positive part from the power of ten
/// below `smallest`, the smallest positive value. Returns `range` if no part of it is positive.
axis_range positive_range(axis_range range, double smallest);

} // namespace kelvarin
