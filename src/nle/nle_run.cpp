// SPDX-License-Identifier: MIT
#include "nle/nle_run.h"

#include "nle/nle_analysis.h"
#include "nle/nle_options.h"
#include "nle/nle_solve.h"
#include "nle/nle_system.h"
#include "platform/runtime_failure.h"

#include <cmath>
#include <utility>

namespace kelvarin
{

namespace
{

/// Why a problem that is complete does not run.
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

nle_run_kind kind_of(const equation_set& set)
{
    if (set.implicit_count == 0) return nle_run_kind::explicit_only;
    return set.implicit_count == 1 ? nle_run_kind::single : nle_run_kind::system;
}

void run_nle_explicit(nle_system& system, const wall_clock& clock, nle_outcome& outcome)
{
    const std::int64_t start = clock.whole_seconds();
    const std::vector<double> values = system.evaluate_explicit();
    outcome.elapsed_seconds = clock.whole_seconds() - start;
    if (system.context().eval_error_flag()) {
        outcome.boxes.push_back(evaluation_box(system.context(), "Expression evaluation error."));
        return;
    }
    const std::vector<std::string>& names = system.explicit_equations().names;
    for (std::size_t i = 0; i < names.size(); ++i)
        outcome.solution.explicit_values.push_back({names[i], values[i]});
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
    outcome.elapsed_seconds = clock.whole_seconds() - start;
    if (system.context().eval_error_flag()) {
        outcome.boxes.push_back(evaluation_box(system.context(), "Expression evaluation error"));
        return;
    }
    sum_of_absolutes(fvec);
    outcome.iterations = solved.iterations;
    outcome.code = solved.code;
    outcome.solution = solution_of(system, x, fvec, system.guesses());
    outcome.has_report = true;
}

/// The tables, then the run of the problem's kind.
void run_tables(const nle_content& content, const settings& store, const wall_clock& clock, run_listener& listener,
                nle_outcome& outcome)
{
    nle_system system(content, listener);
    system.sort();
    outcome.implicit_names = system.implicit_equations().names;
    outcome.implicit_right_sides = system.implicit_equations().right_sides;
    outcome.explicit_names = system.explicit_equations().names;
    outcome.explicit_right_sides = system.explicit_equations().right_sides;
    outcome.constraints = system.constraints();
    if (std::optional<message_box> refused = system.compile_equations()) {
        outcome.boxes.push_back(std::move(*refused));
        return;
    }

    switch (outcome.kind) {
    case nle_run_kind::explicit_only:
        return run_nle_explicit(system, clock, outcome);
    case nle_run_kind::single:
        return run_nle_single(content, system, store, clock, listener, outcome);
    case nle_run_kind::system:
        return run_nle_system(system, store, clock, listener, outcome);
    }
}

message_box handler_box(const runtime_failure& failure)
{
    std::string text = "Internal Error trapped.\r(" + std::to_string(failure.number()) + ") ";
    text += failure.description();
    text += '\r';
    text += failure.detail();
    return {std::move(text), box_icon::critical};
}

} // namespace

double nle_outcome::residual_sum() const
{
    double sum = 0.0;
    for (const implicit_result& row : solution.implicit)
        sum += std::fabs(row.residual);
    return sum;
}

bool nle_outcome::converged() const
{
    switch (kind) {
    case nle_run_kind::explicit_only:
        return true;
    case nle_run_kind::single:
        return !roots.empty();
    case nle_run_kind::system:
        break;
    }
    return !(residual_sum() > largest_residual_sum) && code == cnle_code::converged;
}

nle_outcome run_nle(const nle_run_problem& problem, const settings& store, const wall_clock& clock,
                    run_listener& listener)
{
    nle_outcome outcome;
    const nle_content& content = problem.content;
    const nle_analysis analysis = analyse_nle(content);
    outcome.kind = kind_of(analysis.set);
    outcome.method = content.method;
    if (!analysis.green) {
        outcome.boxes.push_back(red_light_box(content));
        return outcome;
    }
    if (std::optional<message_box> refused = refused_problem(content, analysis.set)) {
        outcome.boxes.push_back(std::move(*refused));
        return outcome;
    }
    try {
        run_tables(content, store, clock, listener, outcome);
    } catch (const runtime_failure& failure) {
        outcome.boxes.push_back(handler_box(failure));
    } catch (const run_stopped&) {
        outcome.stopped = true;
        outcome.boxes.push_back({"Solution stopped."});
    }
    return outcome;
}

} // namespace kelvarin
