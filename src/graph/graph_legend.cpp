// SPDX-License-Identifier: MIT
#include "graph/graph_legend.h"

#include "graph/clipped_path.h"
#include "graph/graph_drawing.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr double sample_length = 22.0;
constexpr double padding = 4.0;
/// From the legend to the axes.
constexpr double distance = 6.0;
/// Maximum part of the plot area's width and height that the legend covers.
constexpr double largest_part = 0.55;
constexpr double row_of_height = 1.15;

struct legend_size
{
    std::size_t rows = 0;
    double row_height = 0.0;
    double text_width = 0.0;

    double width() const { return 3.0 * padding + sample_length + text_width; }
    double height() const { return 2.0 * padding + static_cast<double>(rows) * row_height; }
};

legend_size size_for(std::span<const std::string> names, const graph_layout& layout, const text_metrics& metrics)
{
    legend_size size;
    size.row_height = row_of_height * metrics.height(layout.axes_font);
    const double room = largest_part * layout.plot.width - 3.0 * padding - sample_length;
    for (const std::string& name : names)
        size.text_width = std::max(size.text_width, metrics.width(name, layout.axes_font));
    size.text_width = std::min(size.text_width, room);
    const double rows = (largest_part * layout.plot.height - 2.0 * padding) / size.row_height;
    size.rows = rows < 1.0 ? 0 : std::min(names.size(), static_cast<std::size_t>(rows));
    return size;
}

/// Whether a straight line may touch a box: false only if it can't.
bool comes_near(drawn_point from, drawn_point to, const drawn_box& box)
{
    return std::max(from.x, to.x) >= box.left && std::min(from.x, to.x) <= box.right() &&
           std::max(from.y, to.y) >= box.top && std::min(from.y, to.y) <= box.bottom();
}

/// The number of markers and of pieces of lines that a box covers.
std::size_t covered_by(const drawn_box& box, const drawn_shape& shape)
{
    std::size_t covered = 0;
    if (const auto* markers = std::get_if<drawn_markers>(&shape)) {
        for (const drawn_point point : markers->points)
            if (box.contains(point)) ++covered;
    } else if (const auto* path = std::get_if<drawn_path>(&shape)) {
        std::size_t next_start = 0;
        for (std::size_t i = 0; i < path->points.size(); ++i) {
            const bool starts = next_start < path->starts.size() && path->starts[next_start] == i;
            if (starts) {
                ++next_start;
                continue;
            }
            const drawn_point from = path->points[i - 1];
            const drawn_point to = path->points[i];
            if (comes_near(from, to, box) && clipped_line(from, to, box)) ++covered;
        }
    }
    return covered;
}

/// The corner of the plot area in which a box covers the least of the curves; the upper right comes first among equals.
drawn_box emptiest_corner(const legend_size& size, const drawn_box& plot, std::span<const drawn_shape> curves)
{
    const double left = plot.left + distance;
    const double right = plot.right() - distance - size.width();
    const double top = plot.top + distance;
    const double bottom = plot.bottom() - distance - size.height();
    std::array<drawn_box, 4> corners;
    const std::array<drawn_point, 4> places = {{{right, top}, {left, top}, {right, bottom}, {left, bottom}}};
    for (std::size_t i = 0; i < corners.size(); ++i)
        corners[i] = {places[i].x, places[i].y, size.width(), size.height()};
    std::array<std::size_t, 4> covered = {};
    for (const drawn_shape& shape : curves)
        for (std::size_t i = 0; i < corners.size(); ++i)
            covered[i] += covered_by(corners[i], shape);
    return corners[static_cast<std::size_t>(std::ranges::min_element(covered) - covered.begin())];
}

drawn_box legend_box(const graph_content& graph, const legend_size& size, const graph_layout& layout,
                     std::span<const drawn_shape> curves)
{
    if (!graph.legend_place) return emptiest_corner(size, layout.plot, curves);
    const drawn_point corner =
        place_on_page(*graph.legend_place, graph.window_size, layout.page, size.width(), size.height());
    return {corner.x, corner.y, size.width(), size.height()};
}

void add_sample(std::vector<drawn_shape>& shapes, const legend_entry& entry, const graph_content& graph,
                drawn_point left)
{
    const drawn_part part = {drawn_role::legend_sample, entry.part.index};
    drawn_stroke stroke = curve_stroke(graph, entry.style);
    if (entry.hidden) stroke.colour = grid_colour;
    if (entry.line) shapes.push_back(drawn_path{part, stroke, {left, {left.x + sample_length, left.y}}, {0}});
    if (!entry.marker) return;
    drawn_markers marker = markers_at(graph, entry.style, part, {{left.x + sample_length / 2.0, left.y}});
    marker.stroke.colour = stroke.colour;
    shapes.push_back(std::move(marker));
}

} // namespace

std::vector<drawn_shape> legend_shapes(const graph_content& graph, std::span<const legend_entry> entries,
                                       std::span<const drawn_shape> curves, const graph_layout& layout,
                                       const text_metrics& metrics)
{
    std::vector<std::string> names;
    for (const legend_entry& entry : entries)
        names.push_back(entry.name);
    const legend_size size = size_for(names, layout, metrics);
    constexpr double least_text = 8.0;
    if (size.rows == 0 || size.text_width < std::min(least_text, metrics.width(names.front(), layout.axes_font)))
        return {};

    const drawn_box box = legend_box(graph, size, layout, curves);
    std::vector<drawn_shape> shapes = {
        drawn_rectangle{{drawn_role::legend}, box, ground_colour, drawn_stroke{axis_colour, hairline, {}}}};
    const bool some_left_out = size.rows < entries.size();
    for (std::size_t row = 0; row < size.rows; ++row) {
        const double top = box.top + padding + static_cast<double>(row) * size.row_height;
        const bool is_count = some_left_out && row + 1 == size.rows;
        const std::string name = elided_text(is_count ? "+ " + std::to_string(entries.size() - row) : names[row],
                                             size.text_width, layout.axes_font, metrics);
        const legend_entry& entry = entries[row];
        if (!is_count) add_sample(shapes, entry, graph, {box.left + padding, top + size.row_height / 2.0});
        drawn_text text = {{drawn_role::legend_text, is_count ? -1 : entry.part.index},
                           name,
                           layout.axes_font,
                           entry.hidden && !is_count ? faded_colour : text_colour,
                           {},
                           text_anchor::start,
                           0.0,
                           {box.left + 2.0 * padding + sample_length, top, metrics.width(name, layout.axes_font),
                            metrics.height(layout.axes_font)}};
        text.position = {text.box.left, top + metrics.ascent(layout.axes_font)};
        shapes.push_back(std::move(text));
    }
    return shapes;
}

} // namespace kelvarin
