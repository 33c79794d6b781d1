// SPDX-License-Identifier: MIT
#include "opt/opt_run.h"

#include "numeric/minimize/NR_OptDFPMIN.h"
#include "opt/opt_analysis.h"
#include "opt/opt_system.h"
#include "platform/runtime_failure.h"

#include <string_view>
#include <utility>

namespace kelvarin
{

namespace
{

message_box failure_box(const runtime_failure& failure)
{
    return {failure.detail().empty() ? std::string(failure.description()) : failure.detail(), box_icon::critical};
}

conmin_options options_of(opt_method method, const settings& store)
{
    if (method == opt_method::quasi_newton) {
        return {.method = conmin_method::variable_metric,
                .eps = store.number("opt_qn_eps"),
                .mxfun = store.whole_number("opt_qn_MAXITER")};
    }
    return {.eps = store.number("opt_cg_eps"), .mxfun = store.whole_number("opt_cg_MAXITER")};
}

/// Runs the method from the start in outcome.x on.
void minimize(opt_system& system, const settings& store, run_listener& listener, opt_outcome& outcome)
{
    const auto progress = [&](int done, int limit) { listener.fraction_done(static_cast<double>(done) / limit); };
    // Each iteration begins where the target was evaluated last.
    const auto note_iterate = [&] { outcome.iterates.push_back(system.points().size() - 1); };
    if (outcome.method == opt_method::dfpmin) {
        const dfpmin_summary found = dfpmin(system, outcome.x, {.on_iteration = [&](int iteration, int limit) {
                                                note_iterate();
                                                progress(iteration, limit);
                                            }});
        outcome.objective = found.fret;
        outcome.iterations = found.iterations;
        return;
    }
    conmin_options options = options_of(outcome.method, store);
    options.on_round = [&](int round, int limit) { progress(round > limit ? limit : round, limit); };
    options.on_iteration = [&](int) { note_iterate(); };
    const conmin_summary found = conmin(system, outcome.x, options);
    outcome.objective = found.f;
    outcome.iterations = found.iterations;
    outcome.ending = found.ending;
}

void run_tables(const opt_content& content, const settings& store, const wall_clock& clock, run_listener& listener,
                opt_outcome& outcome)
{
    opt_system system(content, listener);
    outcome.names = system.variable_names();
    outcome.start = outcome.x = system.start_values();
    try {
        system.opt_sort_explicit();
    } catch (const runtime_failure& failure) {
        message_box box = failure_box(failure);
        box.rows = circular_rows(system.explicit_equations());
        return outcome.refuse(std::move(box));
    }
    outcome.explicit_names = system.explicit_equations().names;
    if (std::optional<message_box> refused = system.opt_compile()) return outcome.refuse(std::move(*refused));

    const std::int64_t start = clock.whole_seconds();
    const auto keep_points = [&] {
        outcome.points = system.points();
        outcome.evaluations = system.evaluations();
    };
    try {
        minimize(system, store, listener, outcome);
    } catch (const evaluation_failed&) {
        keep_points();
        outcome.failed = system.failed();
        return outcome.refuse({system.context().eval_error_message(), box_icon::critical, "Expression evaluation error",
                               system.failed_place()});
    } catch (...) {
        keep_points();
        throw;
    }
    keep_points();
    outcome.elapsed_seconds = static_cast<double>(clock.whole_seconds() - start);
    outcome.start_value = outcome.points.front().f;
    outcome.explicit_values = system.explicit_values(outcome.x);
    outcome.has_report = true;
}

/// The box that refuses a complete problem; nullopt if it may run.
std::optional<message_box> refused_problem(const opt_content& content)
{
    if (content.rows.size() <= static_cast<std::size_t>(equation_limit)) return std::nullopt;
    return message_box{"Too many equations entered. Kelvarin can solve up to " + std::to_string(equation_limit) +
                           " equations only.",
                       box_icon::exclamation};
}

} // namespace

opt_outcome run_opt(const opt_run_problem& problem, const settings& store, const wall_clock& clock,
                    run_listener& listener)
{
    opt_outcome outcome;
    const opt_content& content = problem.content;
    outcome.method = content.method;
    const opt_analysis analysis = analyse_opt(content);
    if (!analysis.green) {
        for (message_box& box : red_light_boxes(analysis))
            outcome.refuse(std::move(box));
        return outcome;
    }
    if (std::optional<message_box> refused = refused_problem(content)) {
        outcome.refuse(std::move(*refused));
        return outcome;
    }
    const run_ending_boxes endings = {failure_box, {"Solution stopped."}};
    guard_run(outcome, endings, [&] { run_tables(content, store, clock, listener, outcome); });
    return outcome;
}

} // namespace kelvarin
