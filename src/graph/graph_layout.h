// SPDX-License-Identifier: MIT
#pragma once

#include "graph/axis_limits.h"
#include "graph/drawing.h"
#include "graph/text_metrics.h"

#include <vector>

namespace kelvarin
{

/// A point of the graph by its place between the ends of both axes, and that on the page.
class axis_mapping
{
public:
    axis_mapping(axis_range x, axis_range y, const drawn_box& plot) : x_(x), y_(y), plot_(plot) {}

    double x_at(double x) const { return plot_.left + fraction(x, x_) * plot_.width; }
    // Both ends of an axis land on the border itself, not beside it by rounding.
    double y_at(double y) const { return plot_.top + (1.0 - fraction(y, y_)) * plot_.height; }
    drawn_point at(double x, double y) const { return {x_at(x), y_at(y)}; }
    /// The value at a place on the page.
    double x_of(double page_x) const { return x_.min + (page_x - plot_.left) / plot_.width * (x_.max - x_.min); }
    double y_of(double page_y) const { return y_.min + (plot_.bottom() - page_y) / plot_.height * (y_.max - y_.min); }

private:
    /// Held where clipping can still compute with it, however far the value lies outside.
    static double fraction(double value, axis_range range);

    axis_range x_;
    axis_range y_;
    drawn_box plot_;
};

/// Where everything but curves and legend stands on a page.
struct graph_layout
{
    drawn_box page;
    /// The plot area.
    drawn_box plot;
    graph_font axes_font;
    /// Titles, captions of the axes and labels, as far as there is room for them; none touches another or leaves the
    /// page, but a title goes wherever the user has moved it on the page.
    std::vector<drawn_text> titles;
    std::vector<drawn_text> labels;
};

/// The lengths between a tick and its label.
inline constexpr double tick_length = 3.0;

/// Lays a graph out on a page of `width` by `height` points.
graph_layout lay_out_graph(const graph_content& graph, const axis_limits& limits, double width, double height,
                           const text_metrics& metrics);

/// A place from the graph's window on a page of another size, for something of the given size, held on the page.
drawn_point place_on_page(const graph_place& place, const graph_size& window, const drawn_box& page, double width,
                          double height);

/// A font held within what can be drawn on the page.
graph_font font_on_page(graph_font font, const drawn_box& page);

} // namespace kelvarin
