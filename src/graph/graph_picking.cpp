// SPDX-License-Identifier: MIT
#include "graph/graph_picking.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <variant>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr std::array pickable_titles = {drawn_role::title, drawn_role::subtitle, drawn_role::x_title,
                                        drawn_role::y_title};

/// The line of the legend at a position. Its texts stand in the order of the entries.
std::optional<drawn_part> entry_at(const graph_drawing& drawing, drawn_point position)
{
    std::size_t row = 0;
    for (const drawn_shape& shape : drawing.picture.shapes) {
        const auto* const text = std::get_if<drawn_text>(&shape);
        if (!text || text->part.role != drawn_role::legend_text) continue;
        const bool is_on_line = position.y >= text->box.top && position.y <= text->box.bottom();
        // The last line may count what is left out.
        if (is_on_line && text->part.index >= 0 && row < drawing.entries.size()) return drawing.entries[row];
        ++row;
    }
    return std::nullopt;
}

} // namespace

std::optional<picked_part> part_at(const graph_drawing& drawing, drawn_point position)
{
    // What is drawn last lies on top.
    const std::vector<drawn_shape>& shapes = drawing.picture.shapes;
    for (auto shape = shapes.rbegin(); shape != shapes.rend(); ++shape) {
        if (const auto* const frame = std::get_if<drawn_rectangle>(&*shape);
            frame && frame->part.role == drawn_role::legend && frame->box.contains(position))
            return picked_part{frame->part, frame->box, entry_at(drawing, position)};
        if (const auto* const text = std::get_if<drawn_text>(&*shape);
            text && std::ranges::find(pickable_titles, text->part.role) != pickable_titles.end() &&
            text->box.contains(position))
            return picked_part{text->part, text->box, std::nullopt};
    }
    return std::nullopt;
}

std::optional<drawn_box> box_of(const graph_drawing& drawing, drawn_role role)
{
    for (const drawn_shape& shape : drawing.picture.shapes) {
        const auto* const text = std::get_if<drawn_text>(&shape);
        if (text && text->part.role == role) return text->box;
        const auto* const frame = std::get_if<drawn_rectangle>(&shape);
        if (frame && frame->part.role == role) return frame->box;
    }
    return std::nullopt;
}

std::optional<picked_point> nearest_point(const graph_content& graph, const graph_drawing& drawing,
                                          std::span<const drawn_part> hidden, drawn_point position, double distance)
{
    if (!drawing.mapping) return std::nullopt;
    const std::span<const double> x = graph.columns.front().values.span();
    std::optional<picked_point> nearest;
    double least = distance * distance;
    for (std::size_t curve = 0; curve < graph.curve_count(); ++curve) {
        const drawn_part part = {drawn_role::curve, static_cast<int>(curve)};
        if (!graph.curve_visible[curve] || std::ranges::find(hidden, part) != hidden.end()) continue;
        const std::span<const double> y = graph.columns[curve + 1].values.span();
        for (std::size_t point = 0; point < x.size(); ++point) {
            const drawn_point at = drawing.mapping->at(x[point], y[point]);
            const double across = at.x - position.x;
            const double along = at.y - position.y;
            // False for a point without values.
            if (!(across * across + along * along <= least) || !drawing.plot.contains(at)) continue;
            least = across * across + along * along;
            nearest = picked_point{curve, point, at};
        }
    }
    return nearest;
}

std::optional<axis_limits> limits_of_box(const axis_mapping& mapping, const drawn_box& box)
{
    axis_limits limits;
    limits.x = {mapping.x_of(box.left), mapping.x_of(box.right())};
    limits.y = axis_range{mapping.y_of(box.bottom()), mapping.y_of(box.top)};
    // Less than this part of a value can't be distinguished in labels.
    constexpr double finest = 1e-12;
    for (const axis_range range : {limits.x, *limits.y}) {
        const double largest = std::max(std::abs(range.min), std::abs(range.max));
        if (!is_axis_range(range) || range.max - range.min < finest * largest) return std::nullopt;
    }
    return limits;
}

drawn_box zoomed_box(const drawn_box& plot, drawn_point centre, double factor)
{
    return {centre.x - (centre.x - plot.left) * factor, centre.y - (centre.y - plot.top) * factor, plot.width * factor,
            plot.height * factor};
}

} // namespace kelvarin
