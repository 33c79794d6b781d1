// SPDX-License-Identifier: MIT
#include "graph/graph_drawing.h"

#include "graph/clipped_path.h"
#include "graph/graph_functions.h"
#include "graph/graph_layout.h"
#include "graph/graph_legend.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <string>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr double points_per_pixel = 0.75;
/// Below this number, drawing is faster than thinning.
constexpr std::size_t least_to_thin = 4096;
/// Lines are thinned in columns of this part of a pixel: in whole ones the soft edge of a noisy curve would differ
/// visibly from that of all points.
constexpr double thinned_part_of_pixel = 0.25;

drawn_path straight_line(drawn_part part, const drawn_stroke& stroke, drawn_point from, drawn_point to)
{
    return {part, stroke, {from, to}, {0}};
}

class graph_painter
{
public:
    graph_painter(const graph_content& graph, const drawing_options& options, const text_metrics& metrics)
        : graph_(graph), options_(options), metrics_(metrics)
    {
        drawn_.limits = options.view ? *options.view : find_axis_limits(graph);
        if (drawn_.limits.ok()) settle_scales();
        drawn_.picture.width = options.width;
        drawn_.picture.height = options.height;
    }

    graph_drawing drawn()
    {
        const drawn_box page = {0.0, 0.0, options_.width, options_.height};
        add(drawn_rectangle{{drawn_role::page}, page, ground_colour, std::nullopt});
        if (!drawn_.limits.ok()) {
            add_notice(drawn_.limits.failure, page);
            return std::move(drawn_);
        }
        const graph_layout layout = lay_out_graph(graph_, drawn_.limits, scales_, page.width, page.height, metrics_);
        drawn_.plot = layout.plot;
        for (const drawn_text& title : layout.titles)
            add(title);
        add(drawn_rectangle{{drawn_role::ground}, layout.plot, ground_colour, std::nullopt});
        add_axes(layout);
        if (!drawn_.limits.y) {
            add_notice("No curve is shown.", layout.plot);
            return std::move(drawn_);
        }
        const axis_mapping mapping(drawn_.limits.x, *drawn_.limits.y, layout.plot, scales_);
        drawn_.mapping = mapping;
        const std::size_t first_curve = drawn_.picture.shapes.size();
        add_curves(mapping);
        add_functions(mapping);
        add_legend(layout, first_curve);
        return std::move(drawn_);
    }

private:
    /// The smallest positive one of some columns' values; 0 if there is none.
    double smallest_positive(bool of_x) const
    {
        double smallest = 0.0;
        const auto look_at = [&smallest](const shared_values& values) {
            for (const double value : values.span())
                if (value > 0.0 && std::isfinite(value) && (smallest == 0.0 || value < smallest)) smallest = value;
        };
        if (of_x) look_at(graph_.columns.front().values);
        for (std::size_t curve = 0; !of_x && curve < graph_.curve_count(); ++curve)
            if (graph_.curve_visible[curve]) look_at(graph_.columns[curve + 1].values);
        return smallest;
    }

    /// Makes axes logarithmic that can be.
    void settle_scales()
    {
        const auto settle = [this](axis_scale wished, axis_scale& scale, axis_range& range, bool of_x) {
            if (wished == axis_scale::linear) return;
            if (range.min <= 0.0) range = positive_range(range, smallest_positive(of_x));
            if (range.min > 0.0) scale = axis_scale::logarithmic;
        };
        settle(options_.scales.x, scales_.x, drawn_.limits.x, true);
        if (drawn_.limits.y) settle(options_.scales.y, scales_.y, *drawn_.limits.y, false);
    }

    bool is_hidden(drawn_part part) const { return std::ranges::find(options_.hidden, part) != options_.hidden.end(); }

    curve_style style_of(drawn_part part, std::size_t number) const
    {
        const auto own = std::ranges::find(options_.styles, part, &std::pair<drawn_part, curve_style>::first);
        return own == options_.styles.end() ? curve_style_of(number) : own->second;
    }

    void add(drawn_shape shape) { drawn_.picture.shapes.push_back(std::move(shape)); }

    void add_notice(const std::string& words, const drawn_box& where)
    {
        const graph_font font = font_on_page(graph_.axes_font, {0.0, 0.0, options_.width, options_.height});
        const std::string text = elided_text(words, where.width, font, metrics_);
        if (text.empty()) return;
        const double width = metrics_.width(text, font);
        const drawn_point middle = where.middle();
        add(drawn_text{{drawn_role::notice},
                       text,
                       font,
                       text_colour,
                       middle,
                       text_anchor::middle,
                       0.0,
                       {middle.x - width / 2.0, middle.y - metrics_.ascent(font), width, metrics_.height(font)}});
    }

    void add_axes(const graph_layout& layout)
    {
        const drawn_box& plot = layout.plot;
        const drawn_stroke grid = {grid_colour, hairline, {}};
        const auto for_each_tick = [](const std::vector<axis_tick>& ticks, const auto& act) {
            for (std::size_t i = 0; i < ticks.size(); ++i)
                act(static_cast<int>(i), ticks[i]);
        };
        const auto x_at = [&plot](const axis_tick& tick) { return plot.left + plot.width * tick.fraction; };
        const auto y_at = [&plot](const axis_tick& tick) { return plot.bottom() - plot.height * tick.fraction; };
        const auto has_grid_line = [](const axis_tick& tick) {
            return tick.fraction > 0.0 && tick.fraction < 1.0 && !tick.label.empty();
        };
        for_each_tick(layout.x_ticks, [&](int i, const axis_tick& tick) {
            if (!graph_.ver_gridline || !has_grid_line(tick)) return;
            const double x = x_at(tick);
            add(straight_line({drawn_role::grid_line, i}, grid, {x, plot.top}, {x, plot.bottom()}));
        });
        for_each_tick(layout.y_ticks, [&](int i, const axis_tick& tick) {
            if (!graph_.hor_gridline || !has_grid_line(tick)) return;
            const double y = y_at(tick);
            add(straight_line({drawn_role::grid_line, i}, grid, {plot.left, y}, {plot.right(), y}));
        });
        const double width = std::clamp(graph_.border_width, least_width, largest_width) * points_per_pixel;
        add(drawn_rectangle{{drawn_role::axis}, plot, std::nullopt, drawn_stroke{axis_colour, width, {}}});
        const drawn_stroke stroke = {axis_colour, hairline, {}};
        const auto length = [](const axis_tick& tick) { return tick.label.empty() ? tick_length / 2.0 : tick_length; };
        for_each_tick(layout.x_ticks, [&](int i, const axis_tick& tick) {
            const double x = x_at(tick);
            add(straight_line({drawn_role::tick, i}, stroke, {x, plot.bottom()}, {x, plot.bottom() + length(tick)}));
        });
        for_each_tick(layout.y_ticks, [&](int i, const axis_tick& tick) {
            const double y = y_at(tick);
            add(straight_line({drawn_role::tick, i}, stroke, {plot.left, y}, {plot.left - length(tick), y}));
        });
        for (const drawn_text& label : layout.labels)
            add(label);
    }

    /// Whether point i and both its neighbours are on the same side of the range, so that no line at it is visible.
    static bool is_out_of_sight(std::span<const double> values, std::size_t i, axis_range range)
    {
        if (i == 0 || i + 1 == values.size()) return false;
        const bool before = values[i - 1] < range.min && values[i] < range.min && values[i + 1] < range.min;
        return before || (values[i - 1] > range.max && values[i] > range.max && values[i + 1] > range.max);
    }

    /// Calls `on_point` with each point of a curve that is on the page or next to one that is, and `on_gap` at breaks
    /// of the line.
    template <class OnPoint, class OnGap>
    void for_each_point(std::size_t curve, const axis_mapping& mapping, const OnPoint& on_point,
                        const OnGap& on_gap) const
    {
        const std::span<const double> x = graph_.columns.front().values.span();
        const std::span<const double> y = graph_.columns[curve + 1].values.span();
        for (std::size_t i = 0; i < x.size(); ++i) {
            if (is_out_of_sight(x, i, drawn_.limits.x) && std::isfinite(y[i])) continue;
            // A value that is not finite, or that a logarithmic axis can't show, breaks the line.
            const drawn_point point = mapping.at(x[i], y[i]);
            if (std::isfinite(x[i]) && std::isfinite(y[i]) && std::isfinite(point.x) && std::isfinite(point.y))
                on_point(point);
            else
                on_gap();
        }
    }

    bool has_points_to_thin() const { return options_.pixel > 0.0 && graph_.point_count() >= least_to_thin; }

    void add_curves(const axis_mapping& mapping)
    {
        for (std::size_t curve = 0; curve < graph_.curve_count(); ++curve) {
            if (!graph_.curve_visible[curve]) continue;
            const drawn_part part = {drawn_role::curve, static_cast<int>(curve)};
            const curve_style style = style_of(part, curve);
            const bool hidden = is_hidden(part);
            const bool line = graph_.scatter_connected || style.always_line;
            const bool markers = graph_.draw_points && !style.always_line;
            if (line && !hidden) add_line(part, style, curve, mapping);
            if (markers && !hidden) add_markers(part, style, curve, mapping);
            // Even without line and points the curve is listed in the legend and counts as visible.
            entries_.push_back({part, graph_.columns[curve + 1].name, style, line, markers, hidden});
        }
    }

    void add_line(drawn_part part, const curve_style& style, std::size_t curve, const axis_mapping& mapping)
    {
        clipped_path line({part, curve_stroke(graph_, style), {}, {}}, drawn_.plot);
        const auto draw = [&line](drawn_point point) { line.line_to(point); };
        if (has_points_to_thin()) {
            column_thinner thinner(options_.pixel * thinned_part_of_pixel);
            const auto lift = [&] {
                thinner.finish(draw);
                line.lift();
            };
            for_each_point(
                curve, mapping, [&](drawn_point point) { thinner.add(point, draw); }, lift);
            thinner.finish(draw);
        } else {
            for_each_point(curve, mapping, draw, [&line] { line.lift(); });
        }
        add(line.taken());
    }

    void add_markers(drawn_part part, const curve_style& style, std::size_t curve, const axis_mapping& mapping)
    {
        std::vector<drawn_point> points;
        const auto keep = [&](drawn_point point) {
            if (drawn_.plot.contains(point)) points.push_back(point);
        };
        for_each_point(curve, mapping, keep, [] {});
        if (has_points_to_thin()) points = thinned_points(points, drawn_.plot, options_.pixel);
        add(markers_at(graph_, style, part, std::move(points)));
    }

    void add_functions(const axis_mapping& mapping)
    {
        for (std::size_t i = 0; i < graph_.functions.size(); ++i) {
            if (!graph_.functions[i].visible) continue;
            const drawn_part part = {drawn_role::function, static_cast<int>(i)};
            const curve_style style = style_of(part, graph_.curve_count() + i);
            const bool hidden = is_hidden(part);
            entries_.push_back({part, graph_.functions[i].text, style, true, false, hidden});
            if (hidden) continue;
            clipped_path line({part, curve_stroke(graph_, style), {}, {}}, drawn_.plot);
            for (const function_point& point : function_points(graph_.functions[i].text, drawn_.limits.x)) {
                const drawn_point at = point.y ? mapping.at(point.x, *point.y) : drawn_point{0.0, std::nan("")};
                if (std::isfinite(at.x) && std::isfinite(at.y))
                    line.line_to(at);
                else
                    line.lift();
            }
            add(line.taken());
        }
    }

    void add_legend(const graph_layout& layout, std::size_t first_curve)
    {
        if (entries_.empty()) return;
        for (const legend_entry& entry : entries_)
            drawn_.entries.push_back(entry.part);
        const std::span<const drawn_shape> curves = std::span(drawn_.picture.shapes).subspan(first_curve);
        std::vector<drawn_shape> legend = legend_shapes(graph_, entries_, curves, layout, metrics_);
        std::ranges::move(legend, std::back_inserter(drawn_.picture.shapes));
    }

    const graph_content& graph_;
    const drawing_options& options_;
    const text_metrics& metrics_;
    graph_drawing drawn_;
    axis_scales scales_;
    std::vector<legend_entry> entries_;
};

} // namespace

drawn_stroke curve_stroke(const graph_content& graph, const curve_style& style)
{
    return {style.colour, std::clamp(graph.line_width, least_width, largest_width) * points_per_pixel, style.dashes};
}

drawn_markers markers_at(const graph_content& graph, const curve_style& style, drawn_part part,
                         std::vector<drawn_point> points)
{
    const double radius = std::clamp(graph.marker_size, least_marker_size, largest_marker_size) / twips_per_point;
    return {part, style.marker, radius, {style.colour, points_per_pixel, {}}, std::move(points)};
}

graph_drawing draw_graph(const graph_content& graph, const drawing_options& options, const text_metrics& metrics)
{
    return graph_painter(graph, options, metrics).drawn();
}

} // namespace kelvarin
