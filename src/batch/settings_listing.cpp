// SPDX-License-Identifier: MIT
#include "batch/settings_listing.h"

#include "platform/run_time_text.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kelvarin
{

namespace
{

using listing_line = std::array<std::string, 5>;

std::string bound_text(const setting_row& row, double bound)
{
    const bool bounded = row.type == setting_type::floating || row.type == setting_type::integer;
    return bounded ? plain_text(bound) : "";
}

} // namespace

std::string settings_listing(const settings& store)
{
    std::vector<listing_line> lines = {{"Key", "Value", "Default", "Minimum", "Maximum"}};
    for (const setting_row& row : settings_table())
        lines.push_back({std::string(row.key), store.value(row.key), std::string(row.default_value),
                         bound_text(row, row.minimum_value), bound_text(row, row.maximum_value)});

    std::array<std::size_t, 5> widths = {};
    for (const listing_line& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], line[i].size());

    std::string text;
    for (const listing_line& line : lines) {
        std::string padded;
        for (std::size_t i = 0; i < line.size(); ++i)
            padded += line[i] + std::string(widths[i] - line[i].size() + 2, ' ');
        padded.erase(padded.find_last_not_of(' ') + 1);
        text += padded + "\n";
    }
    return text;
}

} // namespace kelvarin
