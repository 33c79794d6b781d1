// SPDX-License-Identifier: MIT
#pragma once

#include "graph/axis_limits.h"
#include "graph/curve_style.h"
#include "graph/drawing.h"
#include "graph/graph_content.h"
#include "graph/graph_layout.h"
#include "graph/text_metrics.h"

#include <optional>
#include <utility>
#include <vector>

namespace kelvarin
{

// The paper is white in every theme.
inline constexpr drawn_colour ground_colour = 0xFFFFFF;
inline constexpr drawn_colour text_colour = 0x202020;
inline constexpr drawn_colour axis_colour = 0x404040;
inline constexpr drawn_colour grid_colour = 0xDDDDDD;
inline constexpr drawn_colour faded_colour = 0xA0A0A0;
inline constexpr double hairline = 0.5;

struct drawing_options
{
    /// The page size in points.
    double width = 560.0;
    double height = 420.0;
    /// The size of a pixel in points: long lines are thinned to the visible detail. 0 draws every point.
    double pixel = 0.0;
    /// The displayed part of the graph, instead of the limits found from its data; both ranges must satisfy
    /// is_axis_range.
    std::optional<axis_limits> view = std::nullopt;
    /// An axis without positive values is linear all the same.
    axis_scales scales = {};
    /// Curves and functions that are not drawn, but faded in the legend.
    std::vector<drawn_part> hidden = {};
    /// Styles of curves and functions in place of curve_style_of.
    std::vector<std::pair<drawn_part, curve_style>> styles = {};
};

/// A drawn graph, with what a window needs to handle gestures on it.
struct graph_drawing
{
    drawn_picture picture;
    axis_limits limits;
    drawn_box plot;
    /// nullopt if no curve is drawn.
    std::optional<axis_mapping> mapping;
    /// The curves and functions of the legend, in its order.
    std::vector<drawn_part> entries;
};

/// Draws a graph: titles and captions, background, axes with grid, ticks and labels, curves, functions, legend. Lines
/// are cut at the plot area's border; markers outside it are left out; a value that is not finite breaks its line. If
/// the limits can't be found, the picture contains the reason as a text.
graph_drawing draw_graph(const graph_content& graph, const drawing_options& options = {},
                         const text_metrics& metrics = sans_serif_metrics());

/// The line style of a curve, with its width clamped to its bounds.
drawn_stroke curve_stroke(const graph_content& graph, const curve_style& style);

/// The markers of a curve at some points.
drawn_markers markers_at(const graph_content& graph, const curve_style& style, drawn_part part,
                         std::vector<drawn_point> points);

} // namespace kelvarin
