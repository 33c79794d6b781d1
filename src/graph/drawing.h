// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

/// A picture as a list of shapes in painting order. Lengths are points of 1/72 inch, x to the right and y down from the
/// page's upper left corner; angles are degrees clockwise.
namespace kelvarin
{

struct drawn_point
{
    double x = 0.0;
    double y = 0.0;

    friend bool operator==(const drawn_point&, const drawn_point&) = default;
};

struct drawn_box
{
    double left = 0.0;
    double top = 0.0;
    double width = 0.0;
    double height = 0.0;

    double right() const { return left + width; }
    double bottom() const { return top + height; }
    drawn_point middle() const { return {left + width / 2.0, top + height / 2.0}; }
    bool contains(drawn_point point) const
    {
        return point.x >= left && point.x <= right() && point.y >= top && point.y <= bottom();
    }
    bool contains(const drawn_box& box) const
    {
        return contains(drawn_point{box.left, box.top}) && contains(drawn_point{box.right(), box.bottom()});
    }
    bool touches(const drawn_box& box) const
    {
        return box.left <= right() && left <= box.right() && box.top <= bottom() && top <= box.bottom();
    }

    friend bool operator==(const drawn_box&, const drawn_box&) = default;
};

/// What a shape represents.
enum class drawn_role
{
    page,
    title,
    subtitle,
    x_title,
    y_title,
    ground,
    grid_line,
    axis,
    tick,
    x_label,
    y_label,
    curve,
    function,
    legend,
    legend_sample,
    legend_text,
    /// A text in place of the picture.
    notice
};

struct drawn_part
{
    drawn_role role = drawn_role::page;
    /// Number of the curve, function or label; -1 if there is only one.
    int index = -1;

    friend bool operator==(const drawn_part&, const drawn_part&) = default;
};

/// 0xRRGGBB.
using drawn_colour = std::uint32_t;

struct drawn_stroke
{
    drawn_colour colour = 0;
    double width = 1.0;
    /// Alternating lengths of dashes and gaps, in multiples of the line width; empty for a solid line.
    std::span<const double> dashes = {};
};

/// Lines with round joins; one path of several pieces, each beginning at an index in `starts`.
struct drawn_path
{
    drawn_part part;
    drawn_stroke stroke;
    std::vector<drawn_point> points;
    std::vector<std::size_t> starts;
};

/// The outline marker_outline(shape) at each of the points.
struct drawn_markers
{
    drawn_part part;
    int shape = 0;
    /// From the centre to the edge.
    double radius = 2.0;
    drawn_stroke stroke;
    std::vector<drawn_point> points;
};

enum class text_anchor
{
    start,
    middle,
    end
};

struct drawn_text
{
    drawn_part part;
    std::string text;
    graph_font font;
    drawn_colour colour = 0;
    /// On the baseline, at the position of the anchor.
    drawn_point position;
    text_anchor anchor = text_anchor::start;
    double angle = 0.0;
    /// The bounding box by the metrics of the layout.
    drawn_box box;
};

struct drawn_rectangle
{
    drawn_part part;
    drawn_box box;
    std::optional<drawn_colour> fill;
    std::optional<drawn_stroke> stroke;
};

using drawn_shape = std::variant<drawn_rectangle, drawn_path, drawn_markers, drawn_text>;

struct drawn_picture
{
    double width = 0.0;
    double height = 0.0;
    std::vector<drawn_shape> shapes;
};

} // namespace kelvarin
