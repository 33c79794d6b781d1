// SPDX-License-Identifier: MIT
#pragma once

#include "graph/axis_limits.h"
#include "graph/graph_content.h"
#include "platform/message_box.h"
#include "platform/runtime_failure.h"

#include <optional>
#include <string_view>

/// Operations on a graph with values typed as text. A refused operation returns the box to show and changes nothing.
namespace kelvarin
{

enum class axis_end
{
    xmin,
    xmax,
    ymin,
    ymax
};

/// Makes an axis manual, with one end set to `text` and the other as it was found. Refused if the text is not a number,
/// or the ends would be equal or reversed.
std::optional<message_box> set_axis_limit(graph_content& graph, axis_end end, std::string_view text);

/// Makes both axes manual, with the displayed ranges.
void set_axis_ranges(graph_content& graph, axis_range x, axis_range y);

/// Sets the number of divisions, a whole number within the bounds of axis_divisions.
std::optional<message_box> set_ticks(graph_content& graph, std::string_view text);

/// Sets a margin such as &graph_margins::left, from 0 to the largest 16-bit number.
std::optional<message_box> set_margin(graph_content& graph, int graph_margins::*side, std::string_view text);

/// Sets a width in pixels, &graph_content::line_width or border_width, from 1 to 4.
std::optional<message_box> set_width(graph_content& graph, int graph_content::*width, std::string_view text);

/// Sets the marker size, from 1 to 300.
std::optional<message_box> set_marker_size(graph_content& graph, std::string_view text);

/// Moves a title or the legend, such as &graph_content::legend_place, in a window of size `window`. If the size has
/// changed, the positions of the others are scaled.
void move_part(graph_content& graph, std::optional<graph_place> graph_content::*part, graph_place place,
               graph_size window);

/// The box of a drawing that failed.
message_box drawing_failure_box(std::string_view reason);

/// The box of a graph that can't be drawn. Returns nullopt if it can.
std::optional<message_box> drawing_refusal(const axis_limits& limits);

/// The box of a failure while a new graph is filled.
message_box start_failure_box(const runtime_failure& failure);

} // namespace kelvarin
