// SPDX-License-Identifier: MIT
#include "shell/settings.h"

#include "platform/letter_case.h"
#include "platform/run_time_numbers.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <limits>
#include <stdexcept>

namespace kelvarin
{

namespace
{

constexpr const char* value_name = "value";

std::string registry_key(const setting_row& row)
{
    return std::string(registry_root) + "\\settings\\" + std::string(row.key);
}

/// The row of an existing key.
std::size_t row_of(std::string_view key)
{
    if (const std::optional<std::size_t> row = settings::find(key)) return *row;
    assert(!"No item found in get_item_from_settings");
    throw std::logic_error("Code Error !!! Please contact support with the following data:\r"
                           "No item found in get_item_from_settings\r\r"
                           "item_type = value\rs_key = " +
                           std::string(key));
}

message_box refusal(std::string text)
{
    return {std::move(text), box_icon::exclamation};
}

bool is_boolean_text(std::string_view text)
{
    const std::string word = lower_case(trimmed(text));
    return word == "true" || word == "false";
}

/// Checks a number and sets `accepted` to the text to store. Returns the box if it is refused, leaving `accepted`
/// unchanged.
std::optional<message_box> check_number(const setting_row& row, std::string_view text, std::string& accepted)
{
    // A number too large to read exceeds the bounds.
    const double number = prefix_value(text).value_or(std::numeric_limits<double>::infinity());
    if (row.type == setting_type::integer && number != std::floor(number))
        return refusal("Only integer input is allowed.");
    if (number < row.minimum_value || number > row.maximum_value)
        return refusal("Value must be between " + plain_text(row.minimum_value) + " & " +
                       plain_text(row.maximum_value));
    accepted = plain_text(number);
    return std::nullopt;
}

} // namespace

settings::settings()
{
    restore_all();
}

settings::settings(const registry_store& saved) : settings()
{
    load_settings(saved);
}

void settings::load_settings(const registry_store& saved)
{
    for (std::size_t at = 0; at < values_.size(); ++at) {
        std::optional<std::string> value = saved.read(registry_key(settings_table()[at]), value_name);
        if (value) values_[at] = std::move(*value);
    }
}

void settings::save_settings(registry_store& saved) const
{
    for (std::size_t at = 0; at < values_.size(); ++at) {
        const bool blank = trimmed(values_[at]).empty();
        saved.write(registry_key(settings_table()[at]), value_name, blank ? " " : values_[at]);
    }
}

const std::string& settings::value(std::string_view key) const
{
    return values_[row_of(key)];
}

double settings::number(std::string_view key) const
{
    return prefix_value(value(key)).value_or(0.0);
}

int settings::whole_number(std::string_view key) const
{
    using limits = std::numeric_limits<std::int16_t>;
    const double whole = round_half_even(number(key));
    return static_cast<int>(std::clamp<double>(whole, limits::min(), limits::max()));
}

bool settings::is_true(std::string_view key) const
{
    return lower_case(trimmed(value(key))) == "true";
}

std::optional<message_box> settings::set_value(std::string_view key, std::string_view text)
{
    const std::optional<std::size_t> at = find(key);
    if (!at) return refusal("There is no setting named '" + std::string(key) + "'.");
    const setting_row& row = settings_table()[*at];
    switch (row.type) {
    case setting_type::boolean:
        if (!is_boolean_text(text))
            return refusal("Only Boolean input is allowed. Please enter 'True' or 'False' only.");
        [[fallthrough]];
    case setting_type::string:
        values_[*at] = text;
        return std::nullopt;
    case setting_type::integer:
    case setting_type::floating:
        break;
    }
    return check_number(row, text, values_[*at]);
}

void settings::restore(std::string_view key)
{
    const std::size_t at = row_of(key);
    values_[at] = settings_table()[at].default_value;
}

void settings::restore_all()
{
    values_.clear();
    for (const setting_row& row : settings_table())
        values_.emplace_back(row.default_value);
}

std::optional<std::size_t> settings::find(std::string_view key)
{
    const std::string wanted = lower_case(key);
    const std::span<const setting_row> rows = settings_table();
    const auto row =
        std::ranges::find_if(rows, [&](const setting_row& each) { return lower_case(each.key) == wanted; });
    if (row == rows.end()) return std::nullopt;
    return static_cast<std::size_t>(row - rows.begin());
}

} // namespace kelvarin
