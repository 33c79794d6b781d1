// SPDX-License-Identifier: MIT
#include "reg/details_text.h"

#include "platform/run_time_text.h"
#include "reg/fit_report.h"
#include "shell/report/rich_text.h"

#include <cmath>

namespace kelvarin
{

std::string shown(double value)
{
    constexpr int shown_digits = 5;
    return std::isfinite(value) ? plain_text(value, shown_digits) : std::string("none");
}

std::string cell(std::string text, std::size_t width)
{
    if (text.size() < width) text.resize(width, ' ');
    return text + " ";
}

void begin_report(report_text& report, const fit_problem& problem, const std::string& title, calendar_date date)
{
    add_report_head(report, problem, date);
    report.line({R"({\b\cf1\f5\fs20\ul )", title, "}"});
    report.line();
}

void add_sub_head(report_text& report, const std::string& head)
{
    report.line({R"({\cf1  )", head, "}"});
}

void add_row(report_text& report, const std::string& text)
{
    report.line({R"({\f6  )", escape_rich_text(text), "}"});
}

std::string model_of(const fit_outcome& outcome, const regression_fit& fit)
{
    return outcome.dependent + " = " +
           (outcome.kind == regression::nonlinear ? outcome.expression : linear_model_text(outcome, fit));
}

std::string number_of_fit(const fit_problem& problem, const regression_fit& fit)
{
    const std::string number = "#" + std::to_string(problem.solution_number);
    return problem.request.kind == regression::polynomial ? number + "." + std::to_string(fit.degree) : number;
}

} // namespace kelvarin
