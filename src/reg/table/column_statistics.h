// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "reg/table/table_content.h"
#include "shell/document/cell_block.h"

#include <span>
#include <string>
#include <vector>

namespace kelvarin
{

/// Sum, arithmetic mean, and variance (with n - 1) with its root, the standard deviation.
struct column_moments
{
    double sum = 0.0;
    double mean = 0.0;
    double variance = 0.0;
    double sd = 0.0;
};

/// Of at least two values. Throws runtime_failure 6 if a result is not finite.
column_moments moment_of_column(std::span<const double> values);

struct column_statistics
{
    std::string name;
    int n = 0;
    column_moments moments;
};

/// Of each column's cells up to its first blank one; the table's last row never counts. Columns with fewer than two
/// such rows have no entry. Throws runtime_failure 6 if a number or a result is too large for a double.
std::vector<column_statistics> statistics_of_columns(const table_content& content);

/// The report "Column Statistics" in rich text.
std::string column_statistics_report(std::span<const column_statistics> columns, calendar_date date);

/// What the status bar shows of a selection: how many of its cells hold numbers, their sum and their mean.
struct selection_statistics
{
    int count = 0;
    double sum = 0.0;
    /// 0 if there are no numbers.
    double mean() const { return count == 0 ? 0.0 : sum / count; }
};

selection_statistics statistics_of_selection(const table_content& content, const cell_range& range);

} // namespace kelvarin
