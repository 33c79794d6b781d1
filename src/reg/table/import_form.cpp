// SPDX-License-Identifier: MIT
#include "reg/table/import_form.h"

#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "reg/table/delimited_reader.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace kelvarin
{

namespace
{

using records = std::vector<std::vector<std::string>>;

/// The first records of a text that are not blank.
records first_records(std::string_view text, char delimiter)
{
    constexpr std::size_t most = 200;
    records found;
    delimited_reader reader(delimiter, [&found](std::vector<std::string>& cells, std::int64_t) {
        if (!cells.empty()) found.push_back(cells);
        return found.size() < most;
    });
    if (reader.read(text)) reader.finish();
    return found;
}

struct shares
{
    /// Of cells that are numbers among those that are not blank, without the first record if there are more.
    double numbers = 0.0;
    /// Of records that have the most frequent number of cells.
    double regular = 0.0;
    std::size_t columns = 0;
};

shares shares_of(const records& read, char decimal_sign)
{
    std::map<std::size_t, int> lengths;
    int filled = 0;
    int numbers = 0;
    for (std::size_t i = 0; i < read.size(); ++i) {
        ++lengths[read[i].size()];
        if (i == 0 && read.size() > 1) continue;
        for (const std::string& cell : read[i]) {
            if (trimmed(cell).empty()) continue;
            ++filled;
            if (is_numeric(with_decimal_point(cell, decimal_sign))) ++numbers;
        }
    }
    if (lengths.empty()) return {};
    const auto most = std::ranges::max_element(lengths, {}, [](const auto& each) { return each.second; });
    return {.numbers = filled > 0 ? static_cast<double>(numbers) / filled : 0.0,
            .regular = static_cast<double>(most->second) / static_cast<double>(read.size()),
            .columns = most->first};
}

/// How well a text fits a form, from 0 to 1.
double fitness(const shares& found)
{
    // Texts among the numbers are no fault of the delimiter.
    constexpr double without_numbers = 0.1;
    constexpr double single_column = 0.85;
    const double fit = found.regular * (without_numbers + (1.0 - without_numbers) * found.numbers);
    return found.columns > 1 ? fit : fit * single_column;
}

/// Names stand in the first record if it has no numbers and others do, or if it is the only one.
bool begins_with_names(const records& read, char decimal_sign)
{
    if (read.empty()) return false;
    const auto is_number = [&](const std::string& cell) { return is_numeric(with_decimal_point(cell, decimal_sign)); };
    return std::ranges::none_of(read.front(), is_number) &&
           (read.size() == 1 || std::ranges::any_of(read, [&](const std::vector<std::string>& record) {
                return std::ranges::any_of(record, is_number);
            }));
}

} // namespace

std::string with_decimal_point(std::string_view cell, char decimal_sign)
{
    std::string text(cell);
    if (decimal_sign != ',') return text;
    const std::size_t comma = text.find(',');
    if (comma == std::string::npos || text.find('.') != std::string::npos) return text;
    text[comma] = '.';
    return is_numeric(text) ? text : std::string(cell);
}

import_form guess_form(std::string_view text)
{
    import_form best;
    double best_fit = -1.0;
    for (const char delimiter : {',', ';', '\t', '|', blank_delimiter}) {
        const records read = first_records(text, delimiter);
        for (const char decimal_sign : {'.', ','}) {
            const double fit = fitness(shares_of(read, decimal_sign));
            if (fit <= best_fit) continue;
            best_fit = fit;
            best = {delimiter, decimal_sign, begins_with_names(read, decimal_sign)};
        }
    }
    return best;
}

} // namespace kelvarin
