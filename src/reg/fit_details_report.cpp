// SPDX-License-Identifier: MIT
#include "numeric/fit/distributions.h"
#include "platform/run_time_text.h"
#include "reg/details_text.h"
#include "reg/fit_details.h"
#include "shell/report/report_text.h"
#include "shell/report/rich_text.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kelvarin
{

namespace
{

constexpr double doubtful = 0.05;

void add_parameters(report_text& report, const regression_fit& fit, const fit_diagnosis& diagnosis)
{
    add_sub_head(report, "Parameters");
    add_row(report, cell("Name") + cell("Value") + cell("Std error") + cell("t") + "p");
    for (std::size_t j = 0; j < fit.names.size(); ++j) {
        const double error = diagnosis.standard_errors[j];
        std::string row = cell(fit.names[j]) + cell(shown(fit.values[j])) + cell(shown(error));
        if (error > 0.0) {
            const double t = fit.values[j] / error;
            row += cell(shown(t)) + shown(two_sided_t(t, diagnosis.degrees_of_freedom));
        }
        add_row(report, row);
    }
    report.line();
}

void add_correlation(report_text& report, const regression_fit& fit, const fit_diagnosis& diagnosis)
{
    constexpr std::size_t most_shown = 12;
    const std::size_t count = std::min(fit.names.size(), most_shown);
    if (count < 2) return;
    add_sub_head(report, "Correlation of the parameters");
    for (std::size_t i = 0; i < count; ++i) {
        std::string row = cell(fit.names[i]);
        for (std::size_t j = 0; j <= i; ++j)
            row += cell(plain_text(diagnosis.correlation(static_cast<int>(i), static_cast<int>(j)), 3), 7);
        add_row(report, row);
    }
    report.line();
}

void add_model(report_text& report, const fit_diagnosis& diagnosis)
{
    add_sub_head(report, "Model");
    add_row(report, cell("Degrees of freedom", 22) + std::to_string(diagnosis.degrees_of_freedom));
    add_row(report, cell("Standard deviation", 22) + shown(diagnosis.deviation));
    if (diagnosis.F)
        add_row(report,
                cell("F against the mean", 22) + shown(*diagnosis.F) + ", p " + shown(*diagnosis.F_probability));
    add_row(report, cell("AICc", 22) + shown(diagnosis.AICc));
    add_row(report, cell("BIC", 22) + shown(diagnosis.BIC));
    add_row(report,
            cell("Runs of signs", 22) + std::to_string(diagnosis.runs) + ", p " + shown(diagnosis.runs_probability));
    add_row(report, cell("Normality of residuals", 22) + "p " + shown(diagnosis.normality_probability));
    add_row(report, cell("Condition", 22) + shown(diagnosis.condition));
    report.line();
}

void add_rows_that_pull(report_text& report, const regression_fit& fit, const fit_diagnosis& diagnosis)
{
    constexpr std::size_t most_shown = 5;
    std::vector<std::size_t> rows(fit.y.size());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    const std::size_t count = std::min(most_shown, rows.size());
    std::partial_sort(rows.begin(), rows.begin() + static_cast<std::ptrdiff_t>(count), rows.end(),
                      [&](std::size_t a, std::size_t b) { return diagnosis.pull[a] > diagnosis.pull[b]; });
    add_sub_head(report, "Rows that pull most");
    add_row(report, cell("Row") + cell("Residual") + cell("Leverage") + "Cook's distance");
    for (const std::size_t i : std::span(rows).first(count))
        add_row(report, cell(std::to_string(i + 1)) + cell(shown(fit.y[i] - fit.calculated[i])) +
                            cell(shown(diagnosis.leverage[i])) + shown(diagnosis.pull[i]));
    report.line();
}

/// The pairs of parameters that the data can hardly tell apart.
std::string near_dependent(const regression_fit& fit, const fit_diagnosis& diagnosis)
{
    constexpr double near = 0.98;
    std::string pairs;
    for (std::size_t i = 0; i < fit.names.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (std::fabs(diagnosis.correlation(static_cast<int>(i), static_cast<int>(j))) > near)
                pairs += (pairs.empty() ? "" : ", ") + fit.names[j] + " with " + fit.names[i];
    return pairs;
}

std::vector<std::string> doubts_about(const fit_outcome& outcome, const regression_fit& fit, const fit_details& details)
{
    constexpr double few_digits = 7.0;
    constexpr double ill = 1e6;
    std::vector<std::string> doubts;
    const auto& diagnosis = details.diagnosis;
    if (!diagnosis) {
        doubts.emplace_back("The parameters depend on each other, or there are no more observations than parameters: "
                            "nothing can be said of their errors.");
        return doubts;
    }
    if (details.agreeing_digits < few_digits)
        doubts.push_back("Only " + plain_text(std::floor(details.agreeing_digits)) +
                         " digits of the coefficients agree with those of a QR factorisation: the normal equations "
                         "have lost the others. \"Polish\" shows them.");
    if (diagnosis->condition > ill)
        doubts.push_back("The condition " + shown(diagnosis->condition) +
                         " is high: small changes of the data change the parameters much.");
    if (const std::string pairs = near_dependent(fit, *diagnosis); !pairs.empty())
        doubts.push_back("The data hardly tell apart " + pairs + ".");
    if (diagnosis->runs_probability < doubtful)
        doubts.emplace_back("The signs of the residuals have a pattern: the model may lack a term.");
    if (diagnosis->normality_probability < doubtful)
        doubts.emplace_back("The residuals are hardly normal, so the confidence widths are rough.");
    if (fit.limit_reached)
        doubts.emplace_back("The iterations came to their limit; \"Polish\" goes on from there.");
    else if (outcome.kind == regression::nonlinear)
        doubts.emplace_back(
            "The fit ends when its own tests are met, which may be before the minimum; \"Polish\" shows "
            "how far it is.");
    return doubts;
}

void add_doubts(report_text& report, const std::vector<std::string>& doubts)
{
    add_sub_head(report, "What to doubt");
    if (doubts.empty()) report.line({" Nothing stands out."});
    for (const std::string& doubt : doubts)
        report.line({" ", escape_rich_text(doubt)});
    report.line();
}

} // namespace

std::string more_statistics_report(const fit_problem& problem, const fit_outcome& outcome,
                                   const details_outcome& details, calendar_date date)
{
    report_text report({});
    begin_report(report, problem, "More statistics", date);
    for (std::size_t i = 0; i < outcome.fits.size(); ++i) {
        const regression_fit& fit = outcome.fits[i];
        const fit_details& of_fit = details.details[i];
        report.line({R"({\b  Model: } {\cf6 )", escape_rich_text(model_of(outcome, fit)), "}"});
        report.line();
        if (of_fit.diagnosis) {
            add_parameters(report, fit, *of_fit.diagnosis);
            add_correlation(report, fit, *of_fit.diagnosis);
            add_model(report, *of_fit.diagnosis);
            add_rows_that_pull(report, fit, *of_fit.diagnosis);
        }
        add_doubts(report, doubts_about(outcome, fit, of_fit));
    }
    return report.document();
}

std::string polish_report(const fit_problem& problem, const fit_outcome& outcome, const polished_fit& polished,
                          calendar_date date)
{
    constexpr int many_digits = 13;
    const regression_fit& before = outcome.fits.back();
    const regression_fit& after = polished.fit;
    report_text report({});
    begin_report(report, problem, "Polished fit", date);
    report.line({R"({\b  Model: } {\cf6 )", escape_rich_text(model_of(outcome, before)), "}"});
    report.line();
    add_sub_head(report, "Parameters");
    add_row(report, cell("Name") + cell("Reported", 20) + cell("Polished", 20) + "95% confidence");
    for (std::size_t j = 0; j < after.names.size(); ++j)
        add_row(report, cell(after.names[j]) + cell(plain_text(before.values[j], many_digits), 20) +
                            cell(plain_text(after.values[j], many_digits), 20) + shown(after.conf[j]));
    report.line();
    add_sub_head(report, "Sum of squares");
    add_row(report, cell("Reported") + plain_text(before.statistics.SSE, many_digits));
    add_row(report, cell("Polished") + plain_text(after.statistics.SSE, many_digits));
    report.line();
    const double gained = before.statistics.SSE > 0.0 ? 1.0 - after.statistics.SSE / before.statistics.SSE : 0.0;
    if (gained > 1e-3)
        report.line({R"({\cf7  The reported fit ended far from the minimum: its sum of squares is )",
                     shown(before.statistics.SSE / after.statistics.SSE), " times that of the polished one.}"});
    else
        report.line({" The reported fit was at the minimum as far as its digits go."});
    if (outcome.kind == regression::nonlinear)
        report.line({polished.converged
                         ? " The polished fit has converged: no step changes it any more."
                         : R"({\cf7  The polished fit did not converge; its digits are not to be trusted.})"});
    return report.document();
}

} // namespace kelvarin
