// SPDX-License-Identifier: MIT
#pragma once

#include "graph/axis_limits.h"
#include "graph/graph_content.h"
#include "platform/message_box.h"

#include <optional>
#include <string_view>

/// What a person types about a graph, as texts. What is refused answers with the box to show and has changed nothing.
namespace kelvarin
{

enum class axis_end
{
    xmin,
    xmax,
    ymin,
    ymax
};

/// Makes an axis manual, with this end moved and the other as it was found. Refused where the text is no number, or the
/// ends would be equal or reversed.
std::optional<message_box> set_axis_limit(graph_content& graph, axis_end end, std::string_view text);

/// Makes both axes manual, with the ranges in which the graph is looked at.
void set_axis_ranges(graph_content& graph, axis_range x, axis_range y);

/// A whole number within the bounds of axis_divisions.
std::optional<message_box> set_ticks(graph_content& graph, std::string_view text);

/// A margin of the graph, &graph_margins::left. From 0 to what 16 bits hold.
std::optional<message_box> set_margin(graph_content& graph, int graph_margins::*side, std::string_view text);

/// A width in pixels, &graph_content::line_width or border_width, from 1 to 4.
std::optional<message_box> set_width(graph_content& graph, int graph_content::*width, std::string_view text);

/// From 1 to 300.
std::optional<message_box> set_marker_size(graph_content& graph, std::string_view text);

/// A title or the legend, &graph_content::legend_place, moved in a window of `window`; where the window has another
/// size than before, the others stay in proportion.
void move_part(graph_content& graph, std::optional<graph_place> graph_content::*part, graph_place place,
               graph_size window);

/// The box of a graph that can't be drawn; nothing where it can.
std::optional<message_box> drawing_refusal(const axis_limits& limits);

} // namespace kelvarin
