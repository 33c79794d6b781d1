// SPDX-License-Identifier: MIT
#include "batch/settings_listing.h"

#include "batch/text_columns.h"
#include "platform/run_time_text.h"

#include <vector>

namespace kelvarin
{

namespace
{

std::string bound_text(const setting_row& row, double bound)
{
    const bool bounded = row.type == setting_type::floating || row.type == setting_type::integer;
    return bounded ? plain_text(bound) : "";
}

} // namespace

std::string settings_listing(const settings& store)
{
    std::vector<std::vector<std::string>> lines = {{"Key", "Value", "Default", "Minimum", "Maximum"}};
    for (const setting_row& row : settings_table())
        lines.push_back({std::string(row.key), store.value(row.key), std::string(row.default_value),
                         bound_text(row, row.minimum_value), bound_text(row, row.maximum_value)});
    return text_columns(lines);
}

} // namespace kelvarin
