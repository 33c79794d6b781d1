// SPDX-License-Identifier: MIT
#include "opt/opt_run_card.h"

#include "platform/text_file.h"
#include "shell/general_lib.h"
#include "shell/report/rich_text.h"

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

std::string verdict_text(const opt_verdict& verdict)
{
    std::string text(end_point_word(verdict.point));
    if (!verdict.has_numbers) return text + ": the target can not be evaluated around the end point";
    text += ": gradient " + number_text(verdict.gradient) + ", curvature ";
    if (verdict.least_eigenvalue == verdict.greatest_eigenvalue) return text + number_text(verdict.least_eigenvalue);
    return text + number_text(verdict.least_eigenvalue) + " to " + number_text(verdict.greatest_eigenvalue);
}

std::string advice_on(end_point point, bool has_report)
{
    switch (point) {
    case end_point::maximum:
        return "The target is greatest here: start elsewhere.";
    case end_point::flat:
        return "Along some direction the target does not change here: it may not depend on all variables.";
    case end_point::saddle:
        return "The target falls on both sides of this point: start elsewhere.";
    case end_point::unbounded:
        return "The target falls without end on the way from the start.";
    case end_point::not_converged:
        return has_report ? "The last point is no minimum: try another method, or scale the variables." : "";
    case end_point::minimum:
        break;
    }
    return {};
}

/// Where a difference of the gradient has left the domain of the target.
std::string failure_text(const opt_outcome& outcome)
{
    const failed_difference& failed = *outcome.failed;
    return "The gradient looks 5 far from each point: at " + outcome.names[failed.variable] + " = " +
           number_text(failed.point) + " with a step of " + number_text(failed.offset) +
           " the target has no value. Scale the variable, so that such steps are small.";
}

} // namespace

opt_run_card opt_run_card_of(const opt_outcome& outcome, const std::optional<opt_verdict>& verdict)
{
    opt_run_card card;
    if (verdict) {
        card.verdict = verdict_text(*verdict);
        if (std::string advice = advice_on(verdict->point, outcome.has_report); !advice.empty())
            card.advice.push_back(std::move(advice));
    }
    if (outcome.failed) card.advice.push_back(failure_text(outcome));
    return card;
}

std::string opt_trace(const opt_outcome& outcome)
{
    std::string text = R"({\b\cf1\f6  round  iteration   target    )";
    for (const std::string& name : outcome.names)
        text.append("  ")
            .append(escape_rich_text(name))
            .append(std::string(name.size() < 10 ? 10 - name.size() : 0, ' '));
    text += R"(}\par )";
    std::size_t iteration = 0;
    for (std::size_t i = 0; i < outcome.points.size(); ++i) {
        std::string begun;
        if (iteration < outcome.iterates.size() && outcome.iterates[iteration] == i)
            begun = std::to_string(++iteration);
        const std::string round = std::to_string(i + 1);
        text.append(R"({\f6  )").append(round).append(std::string(round.size() < 7 ? 7 - round.size() : 0, ' '));
        text.append(begun).append(std::string(begun.size() < 11 ? 11 - begun.size() : 0, ' '));
        text.append(format_number(outcome.points[i].f));
        for (const double x : outcome.points[i].x)
            text.append("  ").append(format_number(x));
        text += R"(}\par )";
    }
    return text;
}

} // namespace kelvarin
