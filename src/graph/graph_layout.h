// SPDX-License-Identifier: MIT
#pragma once

#include "graph/axis_limits.h"
#include "graph/axis_ticks.h"
#include "graph/drawing.h"
#include "graph/text_metrics.h"

#include <vector>

namespace kelvarin
{

/// Maps points of the graph to the page and back.
class axis_mapping
{
public:
    axis_mapping(axis_range x, axis_range y, const drawn_box& plot, axis_scales scales = {})
        : x_(x), y_(y), plot_(plot), scales_(scales)
    {
    }

    // Both ends of an axis map exactly to the border, without rounding errors.
    double x_at(double x) const { return plot_.left + axis_fraction(x, x_, scales_.x) * plot_.width; }
    double y_at(double y) const { return plot_.top + (1.0 - axis_fraction(y, y_, scales_.y)) * plot_.height; }
    /// Not finite for a point that a logarithmic axis can't show.
    drawn_point at(double x, double y) const { return {x_at(x), y_at(y)}; }
    /// The value at a position on the page.
    double x_of(double page_x) const { return axis_value((page_x - plot_.left) / plot_.width, x_, scales_.x); }
    double y_of(double page_y) const { return axis_value((plot_.bottom() - page_y) / plot_.height, y_, scales_.y); }
    const drawn_box& plot() const { return plot_; }
    axis_range x_range() const { return x_; }
    axis_range y_range() const { return y_; }

private:
    axis_range x_;
    axis_range y_;
    drawn_box plot_;
    axis_scales scales_;
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
    std::vector<axis_tick> x_ticks;
    /// Empty without a y axis.
    std::vector<axis_tick> y_ticks;
};

/// Length of a tick.
inline constexpr double tick_length = 3.0;

/// Lays a graph out on a page of `width` by `height` points.
graph_layout lay_out_graph(const graph_content& graph, const axis_limits& limits, axis_scales scales, double width,
                           double height, const text_metrics& metrics);

/// Converts a position in the graph's window to a page of another size, for an item of size `width` by `height`,
/// clamped to the page.
drawn_point place_on_page(const graph_place& place, const graph_size& window, const drawn_box& page, double width,
                          double height);

/// A font with its size clamped to what fits on the page.
graph_font font_on_page(graph_font font, const drawn_box& page);

} // namespace kelvarin
