// SPDX-License-Identifier: MIT
#include "leq/leq_report.h"

#include "leq/leq_text.h"
#include "platform/format_mask.h"
#include "shell/general_lib.h"
#include "shell/report/report_text.h"
#include "shell/report/rich_text.h"

#include <string_view>

namespace kelvarin
{

namespace
{

void add_warnings(report_text& report, const leq_outcome& outcome)
{
    static constexpr std::string_view warning = R"({\cf7{\b Warning:} )";
    if (outcome.residual > largest_leq_residual) {
        report.line({warning, "The equations are met only to ", format_masked(outcome.residual, "0.0E+00"),
                     " of their largest terms.}"});
    }
    if (outcome.reciprocal_condition < least_reciprocal_condition) {
        report.line({warning, "The matrix is singular or nearly so: the reciprocal of its condition number is ",
                     format_masked(outcome.reciprocal_condition, "0.0E+00"),
                     ". The solution may have no correct digit.}"});
    }
    if (!outcome.trustworthy()) report.line();
}

void add_solution(report_text& report, const leq_content& content, const leq_outcome& outcome)
{
    report.line({R"({\b\cf1\f5\fs20\ul LEQ SOLUTION})"});
    report.line();
    add_warnings(report, outcome);
    for (std::size_t i = 0; i < outcome.solution.size(); ++i) {
        report.line({R"({\cf3  [)", std::to_string(i + 1), "] }", escape_rich_text(content.names[i]), " = ",
                     format_number(outcome.solution[i])});
    }
    report.line();
}

/// The blanks before a column's text, and the mark before that of beta.
std::string column_margin(const leq_content& content, int column, std::size_t width, std::string_view text)
{
    return (column == content.count() ? " | " : " ") + blanks_before(text, width);
}

void add_matrix(report_text& report, const leq_content& content)
{
    static constexpr std::string_view row_start = R"({\f6\fs16 )";
    const std::vector<std::size_t> widths = column_widths(content);
    report.line({R"({\cf1  Coefficients matrix and beta matrix })"});
    report.add(row_start);
    for (std::size_t k = 0; k < widths.size(); ++k) {
        const std::string_view head = column_head(content, static_cast<int>(k));
        report.add(column_margin(content, static_cast<int>(k), widths[k], head));
        report.add(R"({\cf6\ul )");
        report.add(escape_rich_text(head));
        report.add("}");
    }
    report.line({"}"});
    for (int row = 0; row < content.count(); ++row) {
        report.add(row_start);
        for (std::size_t k = 0; k < widths.size(); ++k) {
            const std::string cell = shown_cell(content.cell(row, static_cast<int>(k)));
            report.add(column_margin(content, static_cast<int>(k), widths[k], cell) + cell);
        }
        report.line({"}"});
    }
    report.line();
}

void add_equations(report_text& report, const leq_content& content)
{
    report.line({R"({\cf1  The equations })"});
    for (int row = 0; row < content.count(); ++row)
        report.line({"[", std::to_string(row + 1), "] ", escape_rich_text(equation_text(content, row))});
    report.line();
}

void add_general(report_text& report, const leq_run_problem& problem, const leq_outcome& outcome)
{
    report.line({R"({\cf1  General})"});
    report.margin_line({"Number of equations : ", std::to_string(problem.content.count())});
    report.elapsed_time(outcome.elapsed_seconds);
    report.data_file(problem.path);
}

} // namespace

std::string leq_report(const leq_run_problem& problem, const leq_outcome& outcome, calendar_date date)
{
    report_text report(problem.content.title, date);
    report.line();
    add_solution(report, problem.content, outcome);
    report.line({R"({\b\cf1\f5\fs20\ul LEQ REPORT})"});
    report.line();
    add_matrix(report, problem.content);
    add_equations(report, problem.content);
    add_general(report, problem, outcome);
    return report.document();
}

} // namespace kelvarin
