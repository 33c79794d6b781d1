// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_drawing.h"

#include <cstddef>
#include <optional>

/// What lies at a position of a drawn graph, and what part of it to look at.
namespace kelvarin
{

/// What a person moves, edits or clicks.
struct picked_part
{
    drawn_part part;
    drawn_box box;
    /// The curve or function whose line of the legend was hit.
    std::optional<drawn_part> entry;
};

/// A title of the graph or of an axis, or the legend, at a position. Returns nullopt if there is none.
std::optional<picked_part> part_at(const graph_drawing& drawing, drawn_point position);

/// The box of a title or of the legend; nullopt if it isn't drawn.
std::optional<drawn_box> box_of(const graph_drawing& drawing, drawn_role role);

struct picked_point
{
    std::size_t curve = 0;
    /// Number of the point, from 0.
    std::size_t point = 0;
    drawn_point position;
};

/// The point of a drawn curve that is nearest to a position, not farther than `distance`. `hidden` as in
/// drawing_options. Returns nullopt if there is none.
std::optional<picked_point> nearest_point(const graph_content& graph, const graph_drawing& drawing,
                                          std::span<const drawn_part> hidden, drawn_point position, double distance);

/// The limits that show what is now drawn in `box`. Returns nullopt if they are no axis ranges.
std::optional<axis_limits> limits_of_box(const axis_mapping& mapping, const drawn_box& box);

/// The box around the plot area that is `factor` times as large, with `centre` at its place.
drawn_box zoomed_box(const drawn_box& plot, drawn_point centre, double factor);

} // namespace kelvarin
