// SPDX-License-Identifier: MIT
#include "reg/table/column_statistics.h"

#include "platform/runtime_failure.h"
#include "reg/table/table_reader.h"
#include "shell/general_lib.h"
#include "shell/report/report_text.h"
#include "shell/report/rich_text.h"

#include <cmath>

namespace kelvarin
{

column_moments moment_of_column(std::span<const double> values)
{
    column_moments moments;
    const auto n = static_cast<double>(values.size());
    for (const double value : values)
        moments.sum += value;
    moments.mean = moments.sum / n;
    double squares = 0.0;
    for (const double value : values)
        squares += (value - moments.mean) * (value - moments.mean);
    moments.variance = squares / (n - 1.0);
    moments.sd = std::sqrt(moments.variance);
    // A sum beyond the doubles spoils the variance as well.
    if (!std::isfinite(moments.variance)) throw runtime_failure(failure_number::overflow);
    return moments;
}

std::vector<column_statistics> statistics_of_columns(const table_content& content)
{
    const table_reader table(content);
    std::vector<column_statistics> found;
    for (int column = 0; column < table.columns(); ++column) {
        const int n = table.leading_rows(std::span(&column, 1), last_row::left_out);
        if (n > 1) found.push_back({table.name(column), n, moment_of_column(table.prefix_values(column, n))});
    }
    return found;
}

std::string column_statistics_report(std::span<const column_statistics> columns, calendar_date date)
{
    report_text report({});
    report.line({R"({\b\cf2\f5\fs24\ul KELVARIN Results})"});
    report.line({R"({\cf2\f5\fs16\ )", report_date(date), "}"});
    report.line();
    report.line({R"({\b\cf1\f5\fs20\ul Column Statistics })"});
    report.line();
    for (const column_statistics& column : columns) {
        report.line({R"({\f6  {\cf1\b Column name        :  )", escape_rich_text(column.name), "}"});
        report.line({" Number of rows     :  ", std::to_string(column.n)});
        report.line({" Sum                : ", format_number(column.moments.sum)});
        report.line({" Arithmetic mean    : ", format_number(column.moments.mean)});
        report.line({" Standard deviation : ", format_number(column.moments.sd)});
        report.line({" Variance           : ", format_number(column.moments.variance), "}"});
        report.line();
    }
    return report.document();
}

selection_statistics statistics_of_selection(const table_content& content, const cell_range& range)
{
    selection_statistics statistics;
    for (int column = range.column; column < range.column + range.columns; ++column)
        for (int row = range.row; row < range.row + range.rows; ++row)
            if (const parsed_cell& cell = content.cells.number(row, column); cell.is_number()) {
                ++statistics.count;
                statistics.sum += cell.value;
            }
    return statistics;
}

} // namespace kelvarin
