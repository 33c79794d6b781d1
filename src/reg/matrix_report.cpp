// SPDX-License-Identifier: MIT
#include "reg/matrix_work.h"

#include "shell/general_lib.h"
#include "shell/report/report_text.h"

namespace kelvarin
{

namespace
{

void add_matrix(report_text& report, std::string_view heading, const matrix& values)
{
    report.line({R"({\b\cf6 )", heading, " }"});
    report.add(R"({\f6 )");
    for (int row = 0; row < values.rows(); ++row) {
        for (int column = 0; column < values.columns(); ++column) {
            if (column > 0) report.add(R"(\tab )");
            report.add(format_number(values(row, column)));
        }
        report.line();
    }
    report.add("}");
    report.line();
}

std::string_view heading_of_result(matrix_operation operation)
{
    switch (operation) {
    case matrix_operation::add:
        return "[C] = [A] + [B]";
    case matrix_operation::subtract:
        return "[C] = [A] - [B]";
    case matrix_operation::multiply:
        return "[C] = [A] x [B]";
    case matrix_operation::transpose:
        return "[C] = transpose[A]";
    default:
        return "[C] = invers[A]";
    }
}

void add_findings(report_text& report, const matrix_outcome& outcome)
{
    report.add(R"({\f6 )");
    report.line({"Rows     = ", std::to_string(outcome.matrices.a->rows())});
    report.line({"Columns  = ", std::to_string(outcome.matrices.a->columns())});
    report.line({"Rank [A] = ", std::to_string(outcome.rank)});
    if (outcome.trace) report.line({"Trace[A] = ", format_number(*outcome.trace)});
    if (outcome.determinant) report.line({"Deter[A] = ", format_number(*outcome.determinant)});
    report.add("}");
}

} // namespace

std::string matrix_report(std::string_view title, const matrix_outcome& outcome, calendar_date date)
{
    report_text report(title, date);
    report.line();
    report.line({R"({\b\cf1\f5\fs20\ul Matrix calculation })"});
    report.line();
    add_matrix(report, "[A]", *outcome.matrices.a);
    if (outcome.operation == matrix_operation::explore) {
        add_findings(report, outcome);
        return report.document();
    }
    if (needs_matrix_b(outcome.operation)) add_matrix(report, "[B]", *outcome.matrices.b);
    add_matrix(report, heading_of_result(outcome.operation), outcome.c);
    return report.document();
}

} // namespace kelvarin
