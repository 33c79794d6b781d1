// SPDX-License-Identifier: MIT
#include "graph/axis_ticks.h"

#include "graph/axis_limits.h"
#include "platform/format_mask.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace kelvarin
{

namespace
{

constexpr int multiples_in_decade = 9;
/// With more decades the multiples between them are too close to be seen.
constexpr int most_divided_decades = 8;

std::string decade_label(double value, axis_label_format format)
{
    constexpr double largest_plain = 1e5;
    constexpr double least_plain = 1e-4;
    if (format != axis_label_format::plain) return format_masked(value, "0.00E-0");
    // Rounding errors of the power are hidden by the masks.
    if (value >= 1.0 && value < largest_plain * 1.5) return format_masked(value, "0");
    if (value < 1.0 && value > least_plain * 0.5) {
        std::string text = format_masked(value, "0.######");
        while (text.ends_with('0'))
            text.pop_back();
        return text;
    }
    return format_masked(value, "0E-0");
}

std::vector<axis_tick> logarithmic_ticks(axis_range range, axis_label_format format)
{
    const double first = std::log10(range.min);
    const double last = std::log10(range.max);
    constexpr double tolerance = 1e-9;
    const int decades = static_cast<int>(std::floor(last + tolerance) - std::ceil(first - tolerance)) + 1;
    const bool labels_multiples = decades < 2;
    const int step = labels_multiples || last - first <= most_divided_decades ? 1 : multiples_in_decade;
    std::vector<axis_tick> ticks;
    for (int power = static_cast<int>(std::floor(first)); power <= static_cast<int>(std::floor(last + tolerance));
         ++power)
        for (int multiple = 1; multiple <= multiples_in_decade; multiple += step) {
            const double value = multiple * std::pow(10.0, power);
            const double fraction = (std::log10(value) - first) / (last - first);
            if (fraction < -tolerance || fraction > 1.0 + tolerance) continue;
            const bool is_labelled = multiple == 1 || labels_multiples;
            ticks.push_back(
                {std::clamp(fraction, 0.0, 1.0), is_labelled ? decade_label(value, format) : std::string()});
        }
    return ticks;
}

} // namespace

double axis_fraction(double value, axis_range range, axis_scale scale)
{
    constexpr double far_outside = 1e100;
    if (scale == axis_scale::logarithmic) {
        if (!(value > 0.0)) return std::nan("");
        return (std::log10(value) - std::log10(range.min)) / (std::log10(range.max) - std::log10(range.min));
    }
    return std::clamp((value - range.min) / (range.max - range.min), -far_outside, far_outside);
}

double axis_value(double fraction, axis_range range, axis_scale scale)
{
    if (scale == axis_scale::linear) return range.min + fraction * (range.max - range.min);
    const double first = std::log10(range.min);
    return std::pow(10.0, first + fraction * (std::log10(range.max) - first));
}

std::vector<axis_tick> axis_ticks(axis_range range, int divisions, axis_label_format format, axis_scale scale)
{
    if (scale == axis_scale::logarithmic) {
        std::vector<axis_tick> ticks = logarithmic_ticks(range, format);
        constexpr std::size_t least = 3;
        if (ticks.size() >= least) return ticks;
    }
    // On a short logarithmic axis too: there the divisions are nearly even.
    const std::vector<std::string> labels = tick_labels(range, divisions, format);
    const std::vector<double> values = tick_values(range, divisions);
    std::vector<axis_tick> ticks;
    for (int i = 0; i <= divisions; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const double fraction =
            scale == axis_scale::linear ? static_cast<double>(i) / divisions : axis_fraction(values[at], range, scale);
        ticks.push_back({fraction, labels[at]});
    }
    return ticks;
}

axis_range positive_range(axis_range range, double smallest)
{
    if (range.min > 0.0 || !(range.max > 0.0)) return range;
    const double below = std::pow(10.0, std::floor(std::log10(smallest)));
    const axis_range positive = {below, range.max};
    return below > 0.0 && is_axis_range(positive) ? positive : range;
}

} // namespace kelvarin
