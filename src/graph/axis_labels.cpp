// SPDX-License-Identifier: MIT
#include "graph/axis_limits.h"
#include "platform/format_mask.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace kelvarin
{

namespace
{

constexpr std::string_view exponent_mask = "0.00E-0";
/// Digits beyond those that distinguish two divisions: 0.333 and 0.667 are enough for thirds.
constexpr int further_digits = 2;
constexpr int most_digits = 15;

/// `value` with this number of decimals; a value that rounds to zero has no sign.
std::string with_decimals(double value, int decimals)
{
    std::array<char, 64> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
    const std::string text(buffer.data(), end.ptr);
    const bool is_zero = text.find_first_of("123456789") == std::string::npos;
    return is_zero && text.starts_with('-') ? text.substr(1) : text;
}

/// The decimal exponent of the first digit: 2 for 345.
int decimal_exponent(double value)
{
    return static_cast<int>(std::floor(std::log10(std::abs(value))));
}

/// A number to be labelled, and the accepted error of its label.
struct labelled_number
{
    double value = 0.0;
    double tolerance = 0.0;
};

/// Accepted error of a label, as a fraction of a division.
constexpr double label_tolerance = 1e-3;

/// The fewest decimals, up to `most`, that represent every number within its tolerance.
int needed_decimals(const std::vector<labelled_number>& numbers, int most)
{
    for (int decimals = 0; decimals < most; ++decimals) {
        const double power = std::pow(10.0, decimals);
        const auto is_represented = [power](const labelled_number& number) {
            return std::abs(std::round(number.value * power) - number.value * power) <= number.tolerance * power;
        };
        if (std::ranges::all_of(numbers, is_represented)) return decimals;
    }
    return most;
}

std::vector<std::string> fixed_labels(const std::vector<double>& values, double division)
{
    std::vector<labelled_number> numbers;
    for (const double value : values)
        numbers.push_back({value, label_tolerance * division});
    const int decimals = needed_decimals(numbers, std::max(0, further_digits - decimal_exponent(division)));
    std::vector<std::string> labels;
    for (const double value : values)
        labels.push_back(with_decimals(value, decimals));
    return labels;
}

/// Whether the value is zero up to rounding errors.
bool is_zero_division(double value, double division)
{
    return std::abs(value) < division * 1e-9;
}

std::vector<std::string> exponent_labels(const std::vector<double>& values, double division)
{
    std::vector<labelled_number> mantissas;
    int largest = decimal_exponent(division);
    for (const double value : values) {
        if (is_zero_division(value, division)) continue;
        const int exponent = decimal_exponent(value);
        largest = std::max(largest, exponent);
        const double power = std::pow(10.0, exponent);
        mantissas.push_back({value / power, label_tolerance * (division / power)});
    }
    const int most = std::min(largest - decimal_exponent(division) + further_digits, most_digits - 1);
    const auto decimals = static_cast<std::size_t>(needed_decimals(mantissas, most));
    const std::string mask = std::string(decimals > 0 ? "0." : "0") + std::string(decimals, '0') + "E-0";
    std::vector<std::string> labels;
    for (const double value : values)
        labels.push_back(is_zero_division(value, division) ? "0" : format_masked(value, mask));
    return labels;
}

std::vector<std::string> masked_labels(const std::vector<double>& values, double division)
{
    std::vector<std::string> labels;
    for (const double value : values)
        labels.push_back(format_masked(is_zero_division(value, division) ? 0.0 : value, exponent_mask));
    return labels;
}

} // namespace

std::vector<double> tick_values(axis_range range, int ticks)
{
    std::vector<double> values;
    for (int i = 0; i <= ticks; ++i) {
        const double part = static_cast<double>(i) / ticks;
        values.push_back(range.min * (1.0 - part) + range.max * part);
    }
    return values;
}

std::vector<std::string> tick_labels(axis_range range, int ticks, axis_label_format format)
{
    constexpr double largest_fixed = 1e6;
    constexpr double least_fixed = 1e-3;
    constexpr double finest_fixed = 1e-8;
    const std::vector<double> values = tick_values(range, ticks);
    const double largest = std::max(std::abs(range.min), std::abs(range.max));
    // The ends of an axis may be neighbours among the doubles, so that a division between them is lost.
    using limits = std::numeric_limits<double>;
    const double division =
        std::max({range.max / ticks - range.min / ticks, largest / ticks * limits::epsilon(), limits::min()});
    if (format != axis_label_format::plain) return masked_labels(values, division);
    const bool is_fixed = largest < largest_fixed && largest >= least_fixed && division >= finest_fixed;
    return is_fixed ? fixed_labels(values, division) : exponent_labels(values, division);
}

} // namespace kelvarin
