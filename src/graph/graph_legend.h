// SPDX-License-Identifier: MIT
#pragma once

#include "graph/curve_style.h"
#include "graph/drawing.h"
#include "graph/graph_layout.h"

#include <span>
#include <string>
#include <vector>

namespace kelvarin
{

/// A line of the legend: a sample of the curve's style, and its name.
struct legend_entry
{
    drawn_part part;
    std::string name;
    curve_style style;
    bool line = true;
    bool marker = false;
    bool hidden = false;
};

/// The legend's shapes: frame, samples, names. It is where the user has moved it, else in the corner of the plot area
/// where it covers the fewest pieces and markers of `curves`. A last line counts the entries that don't fit. Empty if
/// there are no entries or no space.
std::vector<drawn_shape> legend_shapes(const graph_content& graph, std::span<const legend_entry> entries,
                                       std::span<const drawn_shape> curves, const graph_layout& layout,
                                       const text_metrics& metrics);

} // namespace kelvarin
