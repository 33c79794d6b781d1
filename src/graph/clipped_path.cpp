// SPDX-License-Identifier: MIT
#include "graph/clipped_path.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kelvarin
{

namespace
{

drawn_point held_within(drawn_point point, const drawn_box& box)
{
    return {std::clamp(point.x, box.left, box.right()), std::clamp(point.y, box.top, box.bottom())};
}

/// Returns `far`, or if it is so far outside that rounding would lose the point where its line enters the box, a point
/// on the line nearer to `near`.
drawn_point pulled_near(drawn_point far, drawn_point near, const drawn_box& box)
{
    const double limit = 1e4 * (box.width + box.height);
    const double dx = far.x - near.x;
    const double dy = far.y - near.y;
    const double length = std::max(std::abs(dx), std::abs(dy));
    if (length <= limit) return far;
    return {near.x + dx * (limit / length), near.y + dy * (limit / length)};
}

/// Whether rounding errors at the point are negligible against the size of the box.
bool is_near(drawn_point point, const drawn_box& box)
{
    const double limit = 100.0 * (box.width + box.height);
    return std::abs(point.x - box.left) <= limit && std::abs(point.y - box.top) <= limit;
}

} // namespace

std::optional<std::pair<drawn_point, drawn_point>> clipped_line(drawn_point from, drawn_point to, const drawn_box& box)
{
    if (is_near(from, box))
        to = pulled_near(to, from, box);
    else if (is_near(to, box))
        from = pulled_near(from, to, box);
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    struct side
    {
        double direction;
        double distance;
    };
    const std::array<side, 4> sides = {
        {{-dx, from.x - box.left}, {dx, box.right() - from.x}, {-dy, from.y - box.top}, {dy, box.bottom() - from.y}}};
    double enters = 0.0;
    double leaves = 1.0;
    for (const side& each : sides) {
        if (each.direction == 0.0) {
            if (each.distance < 0.0) return std::nullopt;
            continue;
        }
        const double at = each.distance / each.direction;
        if (each.direction < 0.0)
            enters = std::max(enters, at);
        else
            leaves = std::min(leaves, at);
    }
    if (enters > leaves) return std::nullopt;
    // Rounding may leave a cut end just outside; an end that was inside is unchanged.
    const auto point_at = [&](double t) { return held_within({from.x + t * dx, from.y + t * dy}, box); };
    return std::pair(enters > 0.0 ? point_at(enters) : held_within(from, box),
                     leaves < 1.0 ? point_at(leaves) : held_within(to, box));
}

void clipped_path::cut_line_to(drawn_point point)
{
    if (!last_) {
        last_ = point;
        end_.reset();
        return;
    }
    const auto line = clipped_line(*last_, point, box_);
    last_ = point;
    if (!line) {
        end_.reset();
        return;
    }
    if (end_ != line->first) {
        path_.starts.push_back(path_.points.size());
        path_.points.push_back(line->first);
    }
    path_.points.push_back(line->second);
    end_ = line->second;
}

std::vector<drawn_point> thinned_points(std::span<const drawn_point> points, const drawn_box& box, double cell)
{
    const auto columns = static_cast<std::size_t>(box.width / cell) + 2;
    const auto rows = static_cast<std::size_t>(box.height / cell) + 2;
    const double first_column = std::floor(box.left / cell);
    const double first_row = std::floor(box.top / cell);
    std::vector<bool> taken(columns * rows, false);
    std::vector<drawn_point> kept;
    for (std::size_t i = points.size(); i-- > 0;) {
        const drawn_point point = points[i];
        if (!box.contains(point)) continue;
        const auto column = static_cast<std::size_t>(point.x / cell - first_column);
        const auto row = static_cast<std::size_t>(point.y / cell - first_row);
        const std::size_t place = row * columns + column;
        if (taken[place]) continue;
        taken[place] = true;
        kept.push_back(point);
    }
    std::ranges::reverse(kept);
    return kept;
}

} // namespace kelvarin
