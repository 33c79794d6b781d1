// SPDX-License-Identifier: MIT
#include "tools/units.h"

#include "platform/decimal_digits.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace kelvarin
{

namespace
{

/// Type, name, factor and offset; the note is optional.
constexpr std::size_t least_fields = 4;
constexpr std::size_t most_fields = 5;

std::vector<std::string_view> fields_of(std::string_view line)
{
    std::vector<std::string_view> fields;
    while (fields.size() < most_fields) {
        const std::size_t bar = line.find('|');
        fields.push_back(trimmed(line.substr(0, bar)));
        if (bar == std::string_view::npos) break;
        line.remove_prefix(bar + 1);
    }
    return fields;
}

/// Adds the unit of a line. Returns what is wrong with the line, or an empty text.
std::string add_unit(std::string_view line, std::vector<measurement_unit>& units)
{
    const std::vector<std::string_view> fields = fields_of(line);
    if (fields.size() < least_fields) return "fields are missing";
    if (fields[0].empty() || fields[1].empty()) return "type or name is missing";
    const std::optional<double> factor = prefix_value(fields[2]);
    const std::optional<double> offset = prefix_value(fields[3]);
    if (!factor || *factor == 0.0) return "the factor is no number other than 0";
    if (!offset) return "the offset is too large";
    const std::string_view note = fields.size() == most_fields ? fields[4] : std::string_view();
    units.push_back({std::string(fields[0]), std::string(fields[1]), std::string(note), *factor, *offset});
    return {};
}

unit_conversion refused(std::string text)
{
    return {std::nullopt, {}, message_box{std::move(text), box_icon::exclamation}};
}

int decimal_exponent(double value)
{
    return significant_digits(value).exponent;
}

/// The text of a result to the decimal place of the 14th digit of `largest_part`, the largest term of its sum: further
/// digits are rounding errors.
std::string text_of_result(double result, double largest_part)
{
    constexpr int digits_of_parts = 14;
    const int spoiled = largest_part == 0.0 ? 0 : decimal_exponent(largest_part) - decimal_exponent(result);
    if (spoiled <= 0) return plain_text(result);
    const decimal_digits kept = rounded_to(significant_digits(result), digits_of_parts - spoiled);
    if (kept.is_zero()) return "0";
    const std::string text = (kept.negative ? "-" : "") + kept.digits.substr(0, 1) + "." + kept.digits.substr(1) + "E" +
                             std::to_string(kept.exponent);
    return plain_text(prefix_value(text).value_or(result));
}

} // namespace

unit_list read_units(std::string_view text)
{
    unit_list list;
    int number = 0;
    while (!text.empty()) {
        const std::string_view line = take_line(text);
        ++number;
        const std::string_view content = trimmed(line);
        if (is_passed_over(content)) continue;
        if (std::string reason = add_unit(content, list.units); !reason.empty())
            list.faults.push_back({number, std::move(reason)});
    }
    return list;
}

std::vector<std::string> unit_types(const std::vector<measurement_unit>& units)
{
    std::vector<std::string> types;
    std::unordered_set<std::string_view> known;
    for (const measurement_unit& each : units)
        if (known.insert(each.unit_type).second) types.push_back(each.unit_type);
    return types;
}

std::vector<measurement_unit> units_of_type(const std::vector<measurement_unit>& units, std::string_view type)
{
    std::vector<measurement_unit> found;
    std::ranges::copy_if(units, std::back_inserter(found),
                         [&](const measurement_unit& each) { return each.unit_type == type; });
    return found;
}

std::vector<measurement_unit> search_units(const std::vector<measurement_unit>& units, std::string_view words)
{
    const word_search wanted(words);
    std::vector<measurement_unit> found;
    for (const measurement_unit& each : units)
        if (wanted.all_in({each.unit_type, each.unit_name, each.unit_note})) found.push_back(each);
    return found;
}

std::optional<std::pair<measurement_unit, measurement_unit>> find_unit_pair(const std::vector<measurement_unit>& units,
                                                                            std::string_view from, std::string_view to,
                                                                            std::string_view type)
{
    // The first units of these names in each type, in order of first appearance of the types.
    struct pair_of_type
    {
        const measurement_unit* from = nullptr;
        const measurement_unit* to = nullptr;
    };
    std::vector<pair_of_type> pairs;
    std::unordered_map<std::string_view, std::size_t> index;
    for (const measurement_unit& each : units) {
        if (!type.empty() && each.unit_type != type) continue;
        const auto [found, is_new] = index.try_emplace(each.unit_type, pairs.size());
        if (is_new) pairs.emplace_back();
        pair_of_type& pair = pairs[found->second];
        if (!pair.from && each.unit_name == from) pair.from = &each;
        if (!pair.to && each.unit_name == to) pair.to = &each;
    }
    const auto whole = std::ranges::find_if(pairs, [](const pair_of_type& pair) { return pair.from && pair.to; });
    if (whole == pairs.end()) return std::nullopt;
    return std::pair(*whole->from, *whole->to);
}

unit_conversion convert_units(double x, const measurement_unit& from, const measurement_unit& to)
{
    if (from.unit_type != to.unit_type)
        return refused(from.unit_name + " and " + to.unit_name + " are of different types.");
    if (from.factor == 0.0 || to.factor == 0.0)
        return refused((from.factor == 0.0 ? from : to).unit_name + " has no factor.");
    const double size = x / from.factor;
    const double result = (size + from.offset) * to.factor - to.offset * to.factor;
    if (!std::isfinite(result)) return refused("The result is too large.");
    const std::array parts = {std::fabs(size * to.factor), std::fabs(from.offset * to.factor),
                              std::fabs(to.offset * to.factor)};
    return {result, text_of_result(result, std::ranges::max(parts)), std::nullopt};
}

unit_conversion convert_typed(std::string_view number, const measurement_unit& from, const measurement_unit& to)
{
    const std::optional<double> x = numeric_value(number);
    if (!x) return refused("Must be numeric value !");
    unit_conversion converted = convert_units(*x, from, to);
    if (converted.value)
        converted.text = plain_text(*x) + " " + from.unit_name + " = " + converted.text + " " + to.unit_name;
    return converted;
}

} // namespace kelvarin
