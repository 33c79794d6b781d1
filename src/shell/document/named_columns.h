// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin
{

/// The numbers that a run passes to tables, graphs, CSV and JSON: columns of equal length with their names.
struct named_columns
{
    std::vector<std::string> names;
    /// One vector for each name.
    std::vector<std::vector<double>> columns;

    named_columns() = default;
    /// Named columns without rows.
    explicit named_columns(std::vector<std::string> column_names)
        : names(std::move(column_names)), columns(names.size())
    {
    }

    std::size_t column_count() const { return columns.size(); }
    std::size_t row_count() const { return columns.empty() ? 0 : columns.front().size(); }
    /// Appends one value to each column.
    void add_row(std::span<const double> row);

    friend bool operator==(const named_columns&, const named_columns&) = default;
};

/// The columns as comma-separated values: a line of names, then one for each row, each ended by LF. Numbers have a
/// decimal point and the fewest digits that read back as the same double; numbers that are not finite are empty fields.
/// Names with a comma, a quotation mark or a line end are quoted (RFC 4180).
std::string csv_text(const named_columns& table);
/// The same with tabs between the fields, for the clipboard; tabs and line ends in names become blanks.
std::string tab_separated_text(const named_columns& table);

} // namespace kelvarin
