// SPDX-License-Identifier: MIT
#include "reg/analysis_drawing.h"

#include "numeric/curve/cubic_spline.h"
#include "numeric/curve/polynomial_interpolation.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr int curve_steps = 100;
constexpr int divisions = 4;
constexpr double font_size = 7.0;
constexpr int data_marker_size = 40;
constexpr int mark_size = 65;
/// How much of the data's range the y axis shows beyond it.
constexpr double room = 0.15;
/// A plot is ready before it is noticed; the time grows with the third power.
constexpr int most_points_of_rational = 300;
/// Markers of more points would hide the curves.
constexpr int most_marked_points = 300;

/// Evenly spaced values of x and those of the points, ascending.
std::vector<double> curve_places(const analysis_points& points)
{
    std::vector<double> places = points.x;
    const double first = points.x.front();
    const double width = points.x.back() - first;
    for (int i = 1; i < curve_steps; ++i)
        places.push_back(first + width * i / curve_steps);
    std::ranges::sort(places);
    return places;
}

/// What `value` computes, or a gap where it fails.
template <class Value> double value_or_gap(const Value& value)
{
    try {
        return value();
    } catch (const runtime_failure&) {
        return std::numeric_limits<double>::quiet_NaN();
    }
}

/// Between the two nodes around each place, without looking through all of them as one request does.
std::vector<double> lines_of(const analysis_points& points, std::span<const double> places)
{
    const std::span<const double> xs = points.x;
    const std::span<const double> ys = points.y;
    std::vector<double> values;
    std::size_t node = 0;
    for (const double x : places) {
        while (node + 2 < xs.size() && xs[node + 1] < x)
            ++node;
        values.push_back(
            value_or_gap([&] { return linear_interpolation(xs.subspan(node, 2), ys.subspan(node, 2), x); }));
    }
    return values;
}

std::vector<double> curve_of(const analysis_points& points, std::size_t method, std::span<const double> places)
{
    std::vector<double> values;
    if (method == 1) {
        const std::vector<double> y2 = spline(points.x, points.y);
        for (const double x : places)
            values.push_back(splint(points.x, points.y, y2, x));
        return values;
    }
    if (method == 2) return lines_of(points, places);
    const bool left_out = points.n() > most_points_of_rational;
    for (const double x : places)
        values.push_back(left_out ? std::numeric_limits<double>::quiet_NaN() : value_or_gap([&] {
            return analysis_value(points, analysis_kind::interpolation, method, x);
        }));
    return values;
}

axis_range range_of_data(const analysis_points& points)
{
    const auto [least, most] = std::ranges::minmax(points.y);
    const double beyond = least < most ? room * (most - least) : 1.0;
    const axis_range wide = {least - beyond, most + beyond};
    return rounded_range(wide, divisions).value_or(wide);
}

drawn_markers markers(graph_content graph, int size, int shape, drawn_colour colour, std::vector<drawn_point> points)
{
    graph.marker_size = size;
    return markers_at(graph, {.colour = colour, .dashes = {}, .marker = shape}, {drawn_role::curve}, std::move(points));
}

} // namespace

graph_content analysis_graph(const analysis_points& points, const std::string& x_name, const std::string& y_name)
{
    const std::vector<double> places = curve_places(points);
    graph_content graph;
    graph.x_title = x_name;
    graph.y_title = y_name;
    graph.columns = {{x_name, shared_values(places)}};
    const auto& methods = analysis_methods(analysis_kind::interpolation);
    for (std::size_t method = 0; method < methods.size(); ++method) {
        graph.columns.push_back({std::string(methods[method]), shared_values(curve_of(points, method, places))});
        graph.curve_visible.push_back(true);
    }
    graph.ticks = divisions;
    graph.line_width = 1;
    graph.axes_font.size = font_size;
    graph.x_manual = true;
    graph.x_range = {points.x.front(), points.x.back()};
    graph.y_manual = true;
    graph.y_range = range_of_data(points);
    return graph;
}

drawn_picture draw_analysis(const graph_content& graph, const analysis_points& points, std::span<const double> marked,
                            const drawing_options& options, const text_metrics& metrics)
{
    graph_drawing drawn = draw_graph(graph, options, metrics);
    if (!drawn.mapping) return std::move(drawn.picture);
    std::vector<drawn_point> data;
    for (std::size_t i = 0; points.n() <= most_marked_points && i < points.x.size(); ++i)
        data.push_back(drawn.mapping->at(points.x[i], points.y[i]));
    drawn.picture.shapes.emplace_back(markers(graph, data_marker_size, 0, text_colour, std::move(data)));
    std::vector<drawn_point> marks;
    for (const double x : marked) {
        if (!x_in_range(points, x)) continue;
        const drawn_point mark =
            drawn.mapping->at(x, value_or_gap([&] { return spline_value(points.x, points.y, x); }));
        if (drawn.plot.contains(mark)) marks.push_back(mark);
    }
    constexpr drawn_colour mark_colour = 0xD00000;
    drawn.picture.shapes.emplace_back(markers(graph, mark_size, 0, mark_colour, std::move(marks)));
    return std::move(drawn.picture);
}

} // namespace kelvarin
