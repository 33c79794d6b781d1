// SPDX-License-Identifier: MIT
#include "reg/fit_report.h"

#include "reg/polynomial_text.h"
#include "shell/general_lib.h"
#include "shell/report/report_text.h"
#include "shell/report/rich_text.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace kelvarin
{

void add_report_head(report_text& report, const fit_problem& problem, calendar_date date)
{
    report.line({R"({\b\cf2\f5\fs24\ul KELVARIN Results})"});
    report.line({report_title_group(problem.content.title)});
    report.line({R"({\cf2\f5\fs16\ )", report_date(date), "}"});
    report.line();
}

std::string linear_model_text(const fit_outcome& outcome, const regression_fit& fit)
{
    std::string text;
    int number = outcome.free_parameter ? 0 : 1;
    for (const std::string& name : fit.names) {
        if (!text.empty()) text += " + ";
        text += name;
        if (number > 0) {
            const bool is_power = outcome.kind == regression::polynomial;
            text += "*" + outcome.independents[is_power ? 0 : static_cast<std::size_t>(number - 1)];
            if (is_power && number > 1) text += "^" + std::to_string(number);
        }
        ++number;
    }
    return text;
}

namespace
{

void add_section_head(report_text& report, std::string_view title)
{
    report.line({R"({\b\cf1\f5\fs20\ul )", title, "} "});
    report.line();
}

void add_model_line(report_text& report, const fit_outcome& outcome, std::string_view right_side)
{
    report.line(
        {R"({\b  Model: } {\cf6 )", escape_rich_text(outcome.dependent), " = ", escape_rich_text(right_side), "}"});
    report.line();
}

std::string padded(std::string text, std::size_t width)
{
    if (text.size() < width) text.resize(width, ' ');
    return text;
}

void add_coefficients(report_text& report, const regression_fit& fit)
{
    report.line({R"({\cf1\f6  {\ul Variable}    {\ul   Value  }    {\ul 95% confidence} }  )"});
    report.add(R"({\f6 )");
    for (std::size_t j = 0; j < fit.names.size(); ++j)
        report.line(
            {" ", padded(fit.names[j], 11), format_number(fit.values[j]), "      ", format_number(fit.conf[j])});
    report.line({"}"});
}

void add_integral(report_text& report, const fit_request& request, const fit_outcome& outcome,
                  const regression_fit& fit)
{
    const std::string y = escape_rich_text(outcome.dependent);
    const std::string x = escape_rich_text(outcome.independents.front());
    const std::vector<polynomial_term> terms = polynomial_terms(fit.values, outcome.free_parameter);
    const std::string integral = " Integ(" + y + "," + x + "1," + x + "2) = ";
    report.line({R"({\cf1  Analytical polynomial integration }  )"});
    report.line({" ", y, " = ", polynomial_text(terms, x)});
    report.line({integral, polynomial_text(integrated(terms), x)});
    report.line({" ", x, "(1) = ", escape_rich_text(request.integral_bounds->first)});
    report.line({" ", x, "(2) = ", escape_rich_text(request.integral_bounds->second)});
    report.line({integral, R"({\cf6 )", format_number(*fit.integral), "}"});
    report.line();
}

void add_derivative(report_text& report, const fit_request& request, const fit_outcome& outcome,
                    const regression_fit& fit)
{
    const std::string y = escape_rich_text(outcome.dependent);
    const std::string x = escape_rich_text(outcome.independents.front());
    const std::vector<polynomial_term> terms = polynomial_terms(fit.values, outcome.free_parameter);
    const std::string derivative = " d(" + y + ")/d(" + x + ") = ";
    report.line({R"({\cf1  Analytical polynomial derivative }  )"});
    report.line({" ", y, " = ", polynomial_text(terms, x)});
    report.line({derivative, polynomial_text(differentiated(terms), x)});
    report.line({" ", x, " = ", escape_rich_text(*request.derivative_point)});
    report.line({derivative, R"({\cf6 )", format_number(*fit.derivative), "}"});
    report.line();
}

void add_free_parameter(report_text& report, const fit_outcome& outcome)
{
    report.line({outcome.free_parameter ? " Regression including free parameter "
                                        : " Regression not including free parameter "});
}

void add_observations(report_text& report, const regression_fit& fit)
{
    report.line({" Number of observations = ", std::to_string(fit.n)});
    report.line();
}

void add_statistics(report_text& report, std::string_view R2_label, const fit_statistics& statistics)
{
    report.line({R2_label, R"(\tab )", format_number(statistics.R2)});
    report.line({R"( R^2adj = \tab )", format_number(statistics.R2adj)});
    report.line({R"( Rmsd = \tab )", format_number(statistics.Rmsd)});
    report.line({R"( Variance = \tab )", format_number(statistics.Variance)});
}

void report_general_polynomial(report_text& report, const fit_outcome& outcome, const regression_fit& fit)
{
    report.line({R"({\cf1  General }  )"});
    if (fit.degree > 1) report.line({" Order of polynomial = ", std::to_string(fit.degree)});
    add_free_parameter(report, outcome);
    add_observations(report, fit);
    report.line({R"({\cf1  Statistics }  )"});
    add_statistics(report, " R^2 =       ", fit.statistics);
    report.line();
}

void report_general_multiple(report_text& report, const fit_outcome& outcome, const regression_fit& fit)
{
    report.line({" Number of independent variables = ", std::to_string(outcome.independents.size())});
    add_free_parameter(report, outcome);
    add_observations(report, fit);
    add_statistics(report, " R^2 =     ", fit.statistics);
}

void add_polynomials(report_text& report, const fit_problem& problem, const fit_outcome& outcome)
{
    add_section_head(report, polynomial_run_title(problem.request) + " Report");
    for (const regression_fit& fit : outcome.fits) {
        add_model_line(report, outcome, linear_model_text(outcome, fit));
        add_coefficients(report, fit);
        if (fit.integral) add_integral(report, problem.request, outcome, fit);
        if (fit.derivative) add_derivative(report, problem.request, outcome, fit);
        report_general_polynomial(report, outcome, fit);
        report.line();
    }
}

void add_multiple(report_text& report, const fit_outcome& outcome)
{
    const regression_fit& fit = outcome.fits.front();
    report.line({R"({\b\cf1\f5\fs20\ul Multiple linear regression }  )"});
    report.line();
    add_model_line(report, outcome, linear_model_text(outcome, fit));
    add_coefficients(report, fit);
    report_general_multiple(report, outcome, fit);
}

void add_parameters(report_text& report, const regression_fit& fit)
{
    report.line({R"({\f6 {\cf1  {\ul Variable}     {\ul Ini guess}   {\ul   Value  }  {\ul 95% confidence} })"});
    for (std::size_t j = 0; j < fit.names.size(); ++j)
        report.line({" ", padded(fit.names[j], 10), "  ", format_number(fit.guesses[j]), "  ",
                     format_number(fit.values[j]), "   ", format_number(fit.conf[j])});
    report.line({"}"});
}

void add_label(report_text& report, std::string_view label, std::string_view value)
{
    report.line({R"({\f6\fs18  )", label, "} = ", value});
}

void add_nonlinear(report_text& report, const fit_outcome& outcome, const settings& store)
{
    static constexpr setting_line mrqmin_settings[] = {{"Max # iterations", "nonlinearreg_maxiter"},
                                                       {"Tolerance", "nonlinearreg_tol"}};
    static constexpr setting_line lm_settings[] = {{"Max # iterations", "nonlinearreg_lm_maxiter"}};
    const regression_fit& fit = outcome.fits.front();
    const bool is_mrqmin = outcome.method == nonlinear_method::mrqmin;
    report.line({R"({\b\cf1\f5\fs20\ul Nonlinear regression ()", method_text(outcome.method), ") }"});
    report.line();
    add_model_line(report, outcome, outcome.expression);
    add_parameters(report, fit);
    if (fit.limit_reached) report.line({R"({\cf7  NOTE: Calculations exceeded the maximum number of iterations.})"});
    report.line({R"({\cf1  Nonlinear regression settings })"});
    report.settings_of(is_mrqmin ? std::span<const setting_line>(mrqmin_settings) : lm_settings, store);
    report.line();
    report.line({R"({\cf1  Precision })"});
    add_label(report, "R^2      ", format_number(fit.statistics.R2));
    add_label(report, "R^2adj   ", format_number(fit.statistics.R2adj));
    add_label(report, "Rmsd     ", format_number(fit.statistics.Rmsd));
    add_label(report, "Variance ", format_number(fit.statistics.Variance));
    if (is_mrqmin) {
        add_label(report, "Chi-Sq   ", format_number(fit.chisq));
        add_label(report, "Alamda   ", format_number(fit.alamda));
    }
    report.line({R"({\cf1  General })"});
    add_label(report, "Sample size  ", std::to_string(fit.n));
    add_label(report, "# Model vars ", std::to_string(fit.names.size()));
    add_label(report, "# Indep vars ", std::to_string(outcome.independents.size()));
    add_label(report, "# Iterations ", std::to_string(fit.iterations));
}

} // namespace

std::string fit_report(const fit_problem& problem, const fit_outcome& outcome, const settings& store,
                       calendar_date date)
{
    report_text report({});
    add_report_head(report, problem, date);
    switch (outcome.kind) {
    case regression::polynomial:
        add_polynomials(report, problem, outcome);
        break;
    case regression::multiple:
        add_multiple(report, outcome);
        break;
    case regression::nonlinear:
        add_nonlinear(report, outcome, store);
        break;
    }
    return report.document();
}

} // namespace kelvarin
