// SPDX-License-Identifier: MIT
#include "opt/opt_map.h"

#include "graph/graph_start.h"
#include "opt/opt_system.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>
#include <variant>

namespace kelvarin
{

namespace
{

constexpr int points_a_side = 81;
constexpr int contour_count = 14;
constexpr int divisions = 10;

/// What the picture shows of an axis: the way with a margin, rounded outward.
axis_range range_around(const std::vector<std::array<double, 2>>& way, std::size_t variable)
{
    double least = way.front()[variable];
    double greatest = least;
    for (const std::array<double, 2>& point : way) {
        least = std::min(least, point[variable]);
        greatest = std::max(greatest, point[variable]);
    }
    const double length = greatest - least;
    const double margin = length > 0.0 ? 0.25 * length : std::max(1.0, 0.1 * std::fabs(least));
    const axis_range range = {least - margin, greatest + margin};
    return rounded_range(range, divisions).value_or(range);
}

double place_in(const axis_range& range, int number, int points)
{
    const double part = static_cast<double>(number) / (points - 1);
    return (1.0 - part) * range.min + part * range.max;
}

/// Quantiles of the values, closer together at the low ones, where the minimum is.
std::vector<double> levels_of(std::vector<double> values)
{
    std::erase_if(values, [](double value) { return !std::isfinite(value); });
    std::ranges::sort(values);
    std::vector<double> levels;
    for (int i = 0; i < contour_count && values.size() > 1; ++i) {
        const double part = std::pow((i + 0.5) / contour_count, 1.5);
        const double level = values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
        if (level > values.front() && (levels.empty() || level > levels.back())) levels.push_back(level);
    }
    return levels;
}

/// Draws the contours of a map, cell by cell, by linear interpolation along the cells' sides
class contour_tracer
{
public:
    contour_tracer(const opt_map& map, const axis_mapping& mapping) : map_(map), mapping_(mapping) {}

    drawn_path contour(std::size_t level) const
    {
        drawn_path path;
        path.part = {drawn_role::function, static_cast<int>(level)};
        path.stroke = {colour_of(level), 0.6, {}};
        for (int row = 0; row + 1 < map_.points; ++row)
            for (int column = 0; column + 1 < map_.points; ++column)
                add_cell(path, map_.levels[level], row, column);
        return path;
    }

private:
    struct corner
    {
        drawn_point at;
        double value = 0.0;
    };

    /// From a deep teal at the lowest to a light grey.
    drawn_colour colour_of(std::size_t level) const
    {
        constexpr int low[] = {0x00, 0x60, 0x64};
        constexpr int high[] = {0xC4, 0xCC, 0xCC};
        const double part =
            map_.levels.size() < 2 ? 0.0 : static_cast<double>(level) / static_cast<double>(map_.levels.size() - 1);
        drawn_colour colour = 0;
        for (int i = 0; i < 3; ++i)
            colour = colour * 256 + static_cast<drawn_colour>(std::lround((1.0 - part) * low[i] + part * high[i]));
        return colour;
    }

    corner corner_at(int row, int column) const
    {
        return {mapping_.at(place_in(map_.x, column, map_.points), place_in(map_.y, row, map_.points)),
                map_.values[static_cast<std::size_t>(row * map_.points + column)]};
    }

    void add_cell(drawn_path& path, double level, int row, int column) const
    {
        const std::array<corner, 4> corners = {corner_at(row, column), corner_at(row, column + 1),
                                               corner_at(row + 1, column + 1), corner_at(row + 1, column)};
        std::array<drawn_point, 4> crossings;
        std::size_t count = 0;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const corner& a = corners[i];
            const corner& b = corners[(i + 1) % corners.size()];
            if (!std::isfinite(a.value) || !std::isfinite(b.value)) return;
            if ((a.value < level) == (b.value < level)) continue;
            const double part = (level - a.value) / (b.value - a.value);
            crossings[count++] = {a.at.x + part * (b.at.x - a.at.x), a.at.y + part * (b.at.y - a.at.y)};
        }
        const auto add_line = [&path](drawn_point from, drawn_point to) {
            path.starts.push_back(path.points.size());
            path.points.push_back(from);
            path.points.push_back(to);
        };
        if (count == 2) add_line(crossings[0], crossings[1]);
        if (count != 4) return;
        // At a saddle the middle decides which corners belong together.
        const double middle = (corners[0].value + corners[1].value + corners[2].value + corners[3].value) / 4.0;
        const bool first_apart = (corners[0].value < level) != (middle < level);
        add_line(crossings[0], crossings[first_apart ? 3 : 1]);
        add_line(crossings[first_apart ? 1 : 3], crossings[2]);
    }

    const opt_map& map_;
    const axis_mapping& mapping_;
};

bool is_curve(const drawn_shape& shape)
{
    return std::visit([](const auto& each) { return each.part.role == drawn_role::curve; }, shape);
}

} // namespace

std::optional<opt_map> opt_map_of(const opt_content& content, const opt_outcome& outcome, run_listener& listener)
{
    if (!outcome.has_report || outcome.names.size() != 2) return std::nullopt;
    opt_system system(content, listener);
    system.opt_sort_explicit();
    if (system.opt_compile()) return std::nullopt;

    opt_map map;
    map.title = content.title;
    map.names = {outcome.names[0], outcome.names[1]};
    for (const std::size_t at : outcome.iterates)
        map.way.push_back({outcome.points[at].x[0], outcome.points[at].x[1]});
    map.way.push_back({outcome.x[0], outcome.x[1]});
    map.x = range_around(map.way, 0);
    map.y = range_around(map.way, 1);
    if (!is_axis_range(map.x) || !is_axis_range(map.y)) return std::nullopt;
    map.points = points_a_side;
    for (int row = 0; row < map.points; ++row)
        for (int column = 0; column < map.points; ++column) {
            const std::array<double, 2> at = {place_in(map.x, column, map.points), place_in(map.y, row, map.points)};
            map.values.push_back(system.try_value(at).value_or(std::numeric_limits<double>::quiet_NaN()));
        }
    map.levels = levels_of(map.values);
    if (map.levels.empty()) return std::nullopt;
    return map;
}

drawn_picture draw_opt_map(const opt_map& map, const settings& store, drawing_options options,
                           const text_metrics& metrics)
{
    graph_start start;
    start.caption = map.title;
    start.columns = {{map.names[0], {}}, {"iterations", {}}};
    for (const std::array<double, 2>& point : map.way) {
        start.columns[0].values.push_back(point[0]);
        start.columns[1].values.push_back(point[1]);
    }
    start.x_title = map.names[0];
    start.y_title = map.names[1];
    start.points = true;
    options.view = axis_limits{map.x, map.y, {}};
    graph_content graph = scatter_graph_form_startup(start, store);
    if (!map.title.empty()) graph.title = map.title;
    graph_drawing drawing = draw_graph(graph, options, metrics);
    if (!drawing.mapping) return std::move(drawing.picture);
    std::vector<drawn_shape> contours;
    const contour_tracer tracer(map, *drawing.mapping);
    for (std::size_t level = 0; level < map.levels.size(); ++level)
        contours.emplace_back(tracer.contour(level));
    std::vector<drawn_shape>& shapes = drawing.picture.shapes;
    shapes.insert(std::ranges::find_if(shapes, is_curve), std::make_move_iterator(contours.begin()),
                  std::make_move_iterator(contours.end()));
    return std::move(drawing.picture);
}

} // namespace kelvarin
