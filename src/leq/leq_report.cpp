// SPDX-License-Identifier: MIT
#include "leq/leq_run.h"
#include "leq/leq_text.h"
#include "platform/run_time_text.h"
#include "shell/general_lib.h"
#include "shell/report/rich_text.h"

#include <initializer_list>
#include <string_view>

namespace kelvarin
{

namespace
{

constexpr std::string_view empty_line = R"(\par )";

/// A line of a report: its parts, then the line end.
void add_line(std::string& report, std::initializer_list<std::string_view> parts)
{
    for (const std::string_view part : parts)
        report += part;
    report += empty_line;
}

void add_warnings(std::string& report, const leq_outcome& outcome)
{
    static constexpr std::string_view warning = R"({\cf7{\b Warning:} )";
    if (outcome.residual > largest_leq_residual) {
        add_line(report, {warning, "The equations are met only to ", format_masked(outcome.residual, "0.0E+00"),
                          " of their largest terms.}"});
    }
    if (outcome.reciprocal_condition < least_reciprocal_condition) {
        add_line(report, {warning, "The matrix is singular or nearly so: the reciprocal of its condition number is ",
                          format_masked(outcome.reciprocal_condition, "0.0E+00"),
                          ". The solution may have no correct digit.}"});
    }
    if (!outcome.trustworthy()) report += empty_line;
}

void add_solution(std::string& report, const leq_content& content, const leq_outcome& outcome)
{
    add_line(report, {R"({\b\cf1\f5\fs20\ul LEQ SOLUTION})", empty_line});
    add_warnings(report, outcome);
    for (std::size_t i = 0; i < outcome.solution.size(); ++i) {
        add_line(report, {R"({\cf3  [)", std::to_string(i + 1), "] }", escape_rich_text(content.names[i]), " = ",
                          format_number(outcome.solution[i])});
    }
    report += empty_line;
}

/// The blanks before a column's text, and the mark before beta's.
std::string column_margin(const leq_content& content, int column, std::size_t width, std::string_view text)
{
    return (column == content.count() ? " | " : " ") + blanks_before(text, width);
}

void add_matrix(std::string& report, const leq_content& content)
{
    static constexpr std::string_view row_start = R"({\f6\fs16 )";
    const std::vector<std::size_t> widths = column_widths(content);
    add_line(report, {R"({\cf1  Coefficients matrix and beta matrix })"});
    report += row_start;
    for (std::size_t k = 0; k < widths.size(); ++k) {
        const std::string_view head = column_head(content, static_cast<int>(k));
        report += column_margin(content, static_cast<int>(k), widths[k], head);
        report.append(R"({\cf6\ul )").append(escape_rich_text(head)).append("}");
    }
    add_line(report, {"}"});
    for (int row = 0; row < content.count(); ++row) {
        report += row_start;
        for (std::size_t k = 0; k < widths.size(); ++k) {
            const std::string cell = shown_cell(content.cell(row, static_cast<int>(k)));
            report += column_margin(content, static_cast<int>(k), widths[k], cell) + cell;
        }
        add_line(report, {"}"});
    }
    report += empty_line;
}

void add_equations(std::string& report, const leq_content& content)
{
    add_line(report, {R"({\cf1  The equations })"});
    for (int row = 0; row < content.count(); ++row)
        add_line(report, {"[", std::to_string(row + 1), "] ", escape_rich_text(equation_text(content, row))});
    report += empty_line;
}

void add_general(std::string& report, const leq_run_problem& problem, const leq_outcome& outcome)
{
    add_line(report, {R"({\cf1  General})"});
    add_line(report, {" Number of equations : ", std::to_string(problem.content.count())});
    add_line(report, {" Elapsed time: ", format_masked(outcome.elapsed_seconds, "0.0000"), " sec"});
    if (!problem.path.empty())
        add_line(report, {" Data file: ", escape_rich_text(shorten_path(problem.path.string()))});
}

} // namespace

std::string leq_report(const leq_run_problem& problem, const leq_outcome& outcome, calendar_date date)
{
    std::string report = report_head(problem.content.title, date);
    report += empty_line;
    add_solution(report, problem.content, outcome);
    add_line(report, {R"({\b\cf1\f5\fs20\ul LEQ REPORT})", empty_line});
    add_matrix(report, problem.content);
    add_equations(report, problem.content);
    add_general(report, problem, outcome);
    return rich_text_document(report);
}

} // namespace kelvarin
