// SPDX-License-Identifier: MIT
#include "reg/compare_fits.h"

#include "reg/details_text.h"
#include "reg/fit_details.h"
#include "shell/report/rich_text.h"

#include <cmath>
#include <limits>
#include <utility>

namespace kelvarin
{

namespace
{

fit_size size_of(const chosen_fit& chosen)
{
    return {chosen.fit().statistics.SSE, static_cast<int>(chosen.fit().values.size())};
}

bool is_linear(const chosen_fit& chosen)
{
    return chosen.run->outcome.kind != regression::nonlinear;
}

/// The F test, if the smaller model is a special case of the larger one.
std::optional<nested_test> nested_test_of(const chosen_fit& small, const chosen_fit& large)
{
    if (!is_linear(small) || !is_linear(large)) return std::nullopt;
    if (!are_spanned(columns_of(small.run->outcome, small.fit()), columns_of(large.run->outcome, large.fit())))
        return std::nullopt;
    return test_additional_parameters(size_of(small), size_of(large), small.fit().n);
}

std::string verdict_by_test(const fit_comparison& found)
{
    constexpr double significant = 0.05;
    const std::string evidence = " (F = " + shown(found.test->F) + ", p = " + shown(found.test->probability) + ").";
    if (found.test->probability < significant)
        return found.large.text() + " is better: its additional parameters explain more than chance would" + evidence;
    return found.small.text() + " will do: the additional parameters of the other explain no more than chance would" +
           evidence;
}

std::string verdict_by_AICc(const fit_comparison& found)
{
    constexpr double noticeable = 2.0;
    constexpr double beyond_doubt = 20.0;
    constexpr double infinite = std::numeric_limits<double>::infinity();
    if (found.small_AICc == infinite || found.large_AICc == infinite)
        return "There are too few observations to compare these models.";
    if (found.small_AICc == found.large_AICc) return "The two fit these data equally well.";
    if (found.small_AICc == -infinite || found.large_AICc == -infinite)
        return (found.small_AICc == -infinite ? found.small : found.large).text() +
               " is better: it leaves no residuals.";
    const double difference = std::fabs(found.small_AICc - found.large_AICc);
    if (difference < noticeable)
        return "The data hardly tell the two apart: their AICc differ by " + shown(difference) + ".";
    const chosen_fit& better = found.small_AICc < found.large_AICc ? found.small : found.large;
    if (difference > beyond_doubt)
        return better.text() + " is better beyond doubt: its AICc is lower by " + shown(difference) + ".";
    return better.text() + " is better: its AICc is lower by " + shown(difference) + ", which makes it " +
           shown(std::exp(difference / 2.0)) + " times as likely as the other.";
}

} // namespace

std::string chosen_fit::text() const
{
    return number_of_fit(run->problem, fit()) + ": " + model_of(run->outcome, fit());
}

bool fit_same_data(const chosen_fit& one, const chosen_fit& other)
{
    return one.run->outcome.dependent == other.run->outcome.dependent && one.fit().y == other.fit().y;
}

fit_comparison compare_fits(const chosen_fit& one, const chosen_fit& other)
{
    fit_comparison found = {one, other, {}, 0.0, 0.0, {}};
    if (size_of(found.small).p > size_of(found.large).p) std::swap(found.small, found.large);
    found.test = nested_test_of(found.small, found.large);
    found.small_AICc = corrected_information(size_of(found.small), found.small.fit().n);
    found.large_AICc = corrected_information(size_of(found.large), found.large.fit().n);
    found.verdict = found.test ? verdict_by_test(found) : verdict_by_AICc(found);
    return found;
}

std::string comparison_report(const fit_comparison& comparison, calendar_date date)
{
    report_text report({});
    begin_report(report, comparison.large.run->problem, "Comparison of models", date);
    for (const chosen_fit* each : {&comparison.small, &comparison.large})
        report.line({R"({\b  Model: } {\cf6 )", escape_rich_text(each->text()), "}"});
    report.line();
    add_sub_head(report, "Comparison");
    add_row(report, cell("Solution") + cell("Parameters") + cell("SSE") + cell("Variance") + "AICc");
    const std::pair<const chosen_fit*, double> rows[] = {{&comparison.small, comparison.small_AICc},
                                                         {&comparison.large, comparison.large_AICc}};
    for (const auto& [chosen, AICc] : rows) {
        const regression_fit& fit = chosen->fit();
        add_row(report, cell(number_of_fit(chosen->run->problem, fit)) + cell(std::to_string(fit.values.size())) +
                            cell(shown(fit.statistics.SSE)) + cell(shown(fit.statistics.Variance)) + shown(AICc));
    }
    if (comparison.test)
        add_row(report, "F of the additional parameters " + shown(comparison.test->F) + ", p " +
                            shown(comparison.test->probability));
    report.line();
    add_sub_head(report, "Verdict");
    report.line({" ", escape_rich_text(comparison.verdict)});
    return report.document();
}

} // namespace kelvarin
