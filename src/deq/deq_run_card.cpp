// SPDX-License-Identifier: MIT
#include "deq/deq_run_card.h"

#include "deq/deq_analysis.h"
#include "expr/basParse.h"
#include "numeric/ode/output_grid.h"
#include "platform/format_mask.h"
#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <string_view>

namespace kelvarin
{

namespace
{

std::string number_text(double value)
{
    return std::string(trimmed(format_number(value)));
}

std::string count_text(std::int64_t count, std::string_view one, std::string_view several)
{
    return std::to_string(count) + ' ' + std::string(count == 1 ? one : several);
}

bool is_fehlberg(deq_method method)
{
    return method == deq_method::rkf45 || method == deq_method::rkf56;
}

std::string counts_of(const deq_outcome& outcome)
{
    const ode_summary& found = outcome.statistics;
    std::string text = count_text(found.good + found.bad, "step", "steps");
    text += " (" + std::to_string(found.bad) + (is_fehlberg(outcome.method) ? " rejected), " : " shortened), ");
    text += count_text(found.evaluations, "evaluation", "evaluations");
    text += ", step length " + number_text(found.smallest_step) + " to " + number_text(found.largest_step);
    return text + ", " + format_masked(outcome.elapsed_seconds, "0.0000") + " sec";
}

/// "t = 2.5" at a stored point.
std::string place_text(const deq_outcome& outcome, double x)
{
    return outcome.independent + " = " + number_text(x);
}

/// Whether a right side uses one of the names.
bool uses_any(const std::vector<std::string>& right_sides, const std::vector<std::string>& names)
{
    return std::ranges::any_of(right_sides, [&](const std::string& text) {
        const std::vector<token> words = scan_tokens(text);
        return std::ranges::any_of(words, [&](const token& word) {
            return word.kind == token_kind::tokName && std::ranges::find(names, word.text) != names.end();
        });
    });
}

void advise_on_stiffness(const deq_outcome& outcome, std::vector<std::string>& advice)
{
    if (!outcome.stiffness_suspected) return;
    advice.push_back("The problem seems to be stiff: the steps of " + std::string(method_text(outcome.method)) +
                     " were held down by stability, not by accuracy. STIFF takes longer ones.");
}

void advise_on_problem(const deq_content& content, const deq_outcome& outcome, std::vector<std::string>& advice)
{
    for (const int row : analyse_deq(content).set.rows_without_value)
        advice.push_back("Row " + std::to_string(row) +
                         " has no number as its initial value; what it begins with was taken, else 0.");
    if (outcome.method == deq_method::rkf56 &&
        !uses_any(outcome.differential_right_sides, outcome.differential_names) &&
        !uses_any(outcome.explicit_right_sides, outcome.differential_names)) {
        advice.push_back("RKF56 can not see its error if the right sides depend on " + outcome.independent +
                         " alone. Use RKF45.");
    }
}

/// What to try after a failure.
void advise_on_failure(const deq_outcome& outcome, std::vector<std::string>& advice)
{
    const auto says = [&](std::string_view part) {
        return std::ranges::any_of(outcome.boxes, [&](const message_box& box) {
            return box.text.find(part) != std::string::npos || box.title == part;
        });
    };
    if (says("Expression evaluation error") && outcome.method == deq_method::stiffbs)
        advice.emplace_back("Trial steps of STIFFBS may go far astray where a shorter step would do. Try STIFF.");
    if (says("ODEINT_BS: Step size too small"))
        advice.emplace_back("BS can not pass a jump, or a variable that starts from 0 late. Try RKF45.");
    if (says("ODEINT_ST: Too many steps")) {
        advice.emplace_back("The accuracy eps of STIFF is absolute: a hundredth of it for every variable. With large "
                            "variables try a larger stiff_eps, 0.01 for instance.");
    }
    if (says("ODEINT_BSST: Too many steps")) {
        advice.emplace_back("The steps of STIFFBS were refused again and again. Try STIFF, with large variables with a "
                            "stiff_eps of 0.01 for instance.");
    }
}

} // namespace

std::vector<std::string> doubts_about_end(const deq_outcome& outcome)
{
    std::vector<std::string> doubts;
    const ode_summary& found = outcome.statistics;
    if (!found.end_reached) {
        doubts.push_back(
            "The steps came to nothing at " + place_text(outcome, found.x) +
            ": the last row holds the state there. The solution may have a pole; end the range before it.");
    }
    if (found.relaxations > 0) {
        doubts.push_back("The tolerance was relaxed to " + number_text(found.tolerance) +
                         " on the way, so fewer digits hold than were asked for. Try another method.");
    }
    const std::vector<double>& x = outcome.points.columns.front();
    if (found.points < output_grid::most_tested || x.size() < 2) return doubts;
    const double last_tested = x[output_grid::most_tested - 1];
    if (last_tested >= outcome.x2) return doubts;
    doubts.push_back("No points were stored between " + place_text(outcome, last_tested) +
                     " and the end: a table holds 1200. Minima and maxima are those of the points" +
                     (is_fehlberg(outcome.method) ? "." : ", and so are the final values."));
    return doubts;
}

deq_run_card deq_run_card_of(const deq_content& content, const deq_outcome& outcome)
{
    deq_run_card card;
    if (!outcome.has_report) {
        if (outcome.stopped && outcome.points.row_count() > 0) {
            card.counts = "Stopped at " + place_text(outcome, outcome.statistics.x) + ", with " +
                          count_text(static_cast<std::int64_t>(outcome.points.row_count()), "point", "points") +
                          " stored.";
        }
        advise_on_stiffness(outcome, card.advice);
        advise_on_failure(outcome, card.advice);
        return card;
    }
    card.counts = counts_of(outcome);
    card.advice = doubts_about_end(outcome);
    advise_on_stiffness(outcome, card.advice);
    advise_on_problem(content, outcome, card.advice);
    return card;
}

} // namespace kelvarin
