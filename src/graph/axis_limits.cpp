// SPDX-License-Identifier: MIT
#include "graph/axis_limits.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

namespace kelvarin
{

namespace
{

/// Added before rounding down, in place of a true ceiling.
constexpr double just_below_one = 0.99999999;

constexpr const char* x_range_text = "The range of the x values is too large or too small to be drawn.";
constexpr const char* y_range_text = "The range of the y values is too large or too small to be drawn.";

/// The extremes of the values added so far. They start at infinity, so that any finite number replaces them.
struct extremes_scan
{
    double min = std::numeric_limits<double>::infinity();
    double max = -std::numeric_limits<double>::infinity();

    bool any() const { return min <= max; }
    void add(std::span<const double> values)
    {
        for (const double value : values) {
            if (!std::isfinite(value)) continue;
            min = value < min ? value : min;
            max = value > max ? value : max;
        }
    }
};

/// Equal ends are moved apart by 1. Beyond 2^53 this has no effect, and rounded_range refuses them.
axis_range widened(double min, double max)
{
    if (min == max) return {min - 1.0, max + 1.0};
    return {min, max};
}

axis_limits refused_limits(std::string_view why)
{
    axis_limits refused;
    refused.failure = std::string(why);
    return refused;
}

} // namespace

double log10_of(double value)
{
    return std::log10(value);
}

bool is_axis_range(axis_range range)
{
    return std::isfinite(range.min) && std::isfinite(range.max) && range.min < range.max &&
           std::isfinite(range.max - range.min);
}

std::size_t count_visible_curves(const graph_content& graph)
{
    return static_cast<std::size_t>(std::ranges::count(graph.curve_visible, true));
}

int axis_divisions(const graph_content& graph)
{
    return std::clamp(graph.ticks, least_ticks, largest_ticks);
}

std::optional<axis_range> rounded_range(axis_range extremes, int ticks)
{
    const double division = std::abs(extremes.max - extremes.min) / ticks;
    if (division == 0.0) return std::nullopt;
    const double step = std::pow(10.0, std::floor(log10_of(division)));
    const axis_range rounded = {std::floor(extremes.min / step) * step,
                                std::floor(extremes.max / step + just_below_one) * step};
    if (!is_axis_range(rounded)) return std::nullopt;
    return rounded;
}

axis_limits find_axis_limits(const graph_content& graph)
{
    const int ticks = axis_divisions(graph);
    axis_limits limits;
    if (graph.x_manual && is_axis_range(graph.x_range)) {
        limits.x = graph.x_range;
    } else {
        extremes_scan x;
        x.add(graph.columns.front().values.span());
        if (!x.any() || x.min == x.max) return refused_limits(equal_x_text);
        const std::optional<axis_range> rounded = rounded_range({x.min, x.max}, ticks);
        if (!rounded) return refused_limits(x_range_text);
        limits.x = *rounded;
    }

    if (graph.y_manual && is_axis_range(graph.y_range)) {
        limits.y = graph.y_range;
        return limits;
    }
    if (count_visible_curves(graph) == 0) return limits;
    extremes_scan y;
    for (std::size_t curve = 0; curve < graph.curve_count(); ++curve)
        if (graph.curve_visible[curve]) y.add(graph.columns[curve + 1].values.span());
    if (!y.any()) return limits;
    limits.y = rounded_range(widened(y.min, y.max), ticks);
    if (!limits.y) return refused_limits(y_range_text);
    return limits;
}

void settle_axis_limits(graph_content& graph)
{
    const axis_limits limits = find_axis_limits(graph);
    if (!limits.ok()) return;
    graph.x_range = limits.x;
    if (limits.y) graph.y_range = *limits.y;
}

} // namespace kelvarin
