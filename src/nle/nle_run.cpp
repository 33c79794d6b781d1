// SPDX-License-Identifier: MIT
#include "nle/nle_run.h"

#include "nle/nle_analysis.h"
#include "nle/nle_single.h"
#include "nle/nle_solve.h"
#include "nle/nle_system.h"
#include "platform/runtime_failure.h"

#include <cmath>
#include <optional>
#include <utility>

namespace kelvarin
{

namespace
{

/// The box that refuses a complete problem. Returns nullopt if it may run.
std::optional<message_box> refused_problem(const nle_content& content, const equation_set& set)
{
    if (content.method == nle_method::constrained && set.implicit_count < 2) {
        return message_box{"Constrained NLE method may only be chosen for a system of nonlinear equations. Single NLE "
                           "not allowed for this.",
                           box_icon::critical};
    }
    if (set.implicit_count + set.explicit_count > equation_limit) {
        return message_box{"Too many equations entered. Kelvarin can solve up to " + std::to_string(equation_limit) +
                               " equations only.",
                           box_icon::exclamation};
    }
    return std::nullopt;
}

void run_nle_explicit(nle_system& system, const wall_clock& clock, nle_outcome& outcome)
{
    const std::int64_t start = clock.whole_seconds();
    const std::vector<double> values = system.evaluate_explicit();
    outcome.elapsed_seconds = static_cast<double>(clock.whole_seconds() - start);
    if (system.context().eval_error_flag())
        return outcome.refuse(evaluation_box(system, "Expression evaluation error."));
    nle_explicit_result result;
    const std::vector<std::string>& names = system.explicit_equations().names;
    for (std::size_t i = 0; i < names.size(); ++i)
        result.values.push_back({names[i], values[i]});
    outcome.result = std::move(result);
    outcome.has_report = true;
}

void run_nle_system(nle_system& system, const settings& store, const wall_clock& clock, run_listener& listener,
                    nle_outcome& outcome)
{
    std::vector<double> x = system.guesses();
    std::vector<double> fvec(x.size(), 0.0);
    const iteration_hook progress = [&](int iteration, int limit) {
        listener.fraction_done(static_cast<double>(iteration) / limit);
    };

    const std::int64_t start = clock.whole_seconds();
    const nle_solver_result solved = solve_nle(outcome.method, system, x, fvec, store, progress);
    outcome.elapsed_seconds = static_cast<double>(clock.whole_seconds() - start);
    if (system.context().eval_error_flag())
        return outcome.refuse(evaluation_box(system, "Expression evaluation error"));
    sum_of_absolutes(fvec);
    outcome.result = nle_system_result{solution_of(system, x, fvec, system.guesses()), solved.code, solved.iterations};
    outcome.has_report = true;
}

message_box failure_box(const runtime_failure& failure)
{
    std::string text = "Internal Error trapped.\r(" + std::to_string(failure.number()) + ") ";
    text += failure.description();
    text += '\r';
    text += failure.detail();
    return {std::move(text), box_icon::critical};
}

/// Builds the tables, then runs by the number of implicit equations.
void run_tables(const nle_content& content, const settings& store, const wall_clock& clock, run_listener& listener,
                nle_outcome& outcome)
{
    nle_system system(content, listener);
    try {
        system.sort();
    } catch (const runtime_failure& failure) {
        message_box box = failure_box(failure);
        box.rows = circular_rows(system.explicit_equations());
        return outcome.refuse(std::move(box));
    }
    outcome.implicit_names = system.implicit_equations().names;
    outcome.implicit_right_sides = system.implicit_equations().right_sides;
    outcome.explicit_names = system.explicit_equations().names;
    outcome.explicit_right_sides = system.explicit_equations().right_sides;
    outcome.constraints = system.constraints();
    if (std::optional<message_box> refused = system.compile_equations()) return outcome.refuse(std::move(*refused));

    switch (outcome.implicit_names.size()) {
    case 0:
        return run_nle_explicit(system, clock, outcome);
    case 1:
        return run_nle_single(content, system, store, clock, listener, outcome);
    default:
        return run_nle_system(system, store, clock, listener, outcome);
    }
}

/// The empty result for a problem with `implicit_count` implicit equations.
decltype(nle_outcome::result) no_result(int implicit_count)
{
    if (implicit_count == 0) return nle_explicit_result();
    if (implicit_count == 1) return nle_single_result();
    return nle_system_result();
}

} // namespace

double nle_system_result::residual_sum() const
{
    double sum = 0.0;
    for (const implicit_result& row : solution.implicit)
        sum += std::fabs(row.residual);
    return sum;
}

bool nle_outcome::converged() const
{
    if (const auto* single = std::get_if<nle_single_result>(&result)) return !single->roots.empty();
    if (const auto* system = std::get_if<nle_system_result>(&result))
        return !(system->residual_sum() > largest_residual_sum) && system->code == cnle_code::converged;
    return true;
}

nle_outcome run_nle(const nle_run_problem& problem, const settings& store, const wall_clock& clock,
                    run_listener& listener)
{
    nle_outcome outcome;
    const nle_content& content = problem.content;
    const nle_analysis analysis = analyse_nle(content);
    outcome.method = content.method;
    outcome.result = no_result(analysis.set.implicit_count);
    if (!analysis.green) {
        outcome.refuse(red_light_box(content));
        return outcome;
    }
    if (std::optional<message_box> refused = refused_problem(content, analysis.set)) {
        outcome.refuse(std::move(*refused));
        return outcome;
    }
    const run_ending_boxes endings = {failure_box, {"Solution stopped."}};
    guard_run(outcome, endings, [&] { run_tables(content, store, clock, listener, outcome); });
    return outcome;
}

} // namespace kelvarin
