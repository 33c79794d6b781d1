// SPDX-License-Identifier: MIT
#pragma once

#include "graph/axis_limits.h"
#include "graph/drawing.h"
#include "graph/text_metrics.h"

#include <vector>

namespace kelvarin
{

/// Maps points of the graph to the page and back.
class axis_mapping
{
public:
    axis_mapping(axis_range x, axis_range y, const drawn_box& plot) : x_(x), y_(y), plot_(plot) {}

    double x_at(double x) const { return plot_.left + fraction(x, x_) * plot_.width; }
    // Both ends of an axis map exactly to the border, without rounding errors.
    double y_at(double y) const { return plot_.top + (1.0 - fraction(y, y_)) * plot_.height; }
    drawn_point at(double x, double y) const { return {x_at(x), y_at(y)}; }
    /// The value at a position on the page.
    double x_of(double page_x) const { return x_.min + (page_x - plot_.left) / plot_.width * (x_.max - x_.min); }
    double y_of(double page_y) const { return y_.min + (plot_.bottom() - page_y) / plot_.height * (y_.max - y_.min); }

private:
    /// Clamped to a range in which clipping can compute, however far outside the value is.
    static double fraction(double value, axis_range range);

    axis_range x_;
    axis_range y_;
    drawn_box plot_;
};

/// The positions of everything on a page but curves and legend.
struct graph_layout
{
    drawn_box page;
    /// The plot area.
    drawn_box plot;
    graph_font axes_font;
    /// Titles, captions of the axes and labels, as far as they fit; none overlaps another or leaves the page, but a
    /// title is where the user has moved it on the page.
    std::vector<drawn_text> titles;
    std::vector<drawn_text> labels;
};

/// Length of a tick.
inline constexpr double tick_length = 3.0;

/// Lays a graph out on a page of `width` by `height` points.
graph_layout lay_out_graph(const graph_content& graph, const axis_limits& limits, double width, double height,
                           const text_metrics& metrics);

/// Converts a position in the graph's window to a page of another size, for an item of size `width` by `height`,
/// clamped to the page.
drawn_point place_on_page(const graph_place& place, const graph_size& window, const drawn_box& page, double width,
                          double height);

/// A font with its size clamped to what fits on the page.
graph_font font_on_page(graph_font font, const drawn_box& page);

} // namespace kelvarin
