// SPDX-License-Identifier: MIT
#include "deq/deq_run.h"

#include "deq/deq_analysis.h"
#include "deq/deq_methods.h"
#include "deq/deq_points.h"
#include "deq/deq_system.h"
#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"
#include "platform/text_file.h"

#include <optional>
#include <utility>

namespace kelvarin
{

namespace
{

/// The box that refuses a complete problem; nullopt if it may run.
std::optional<message_box> refused_problem(const equation_set& set)
{
    if (set.implicit_count == 0) return no_differential_box();
    if (set.equation_count() > equation_limit) {
        return message_box{"Too many equations entered. Kelvarin can solve up to " + std::to_string(equation_limit) +
                               " equations only.",
                           box_icon::exclamation};
    }
    return std::nullopt;
}

message_box failure_box(const runtime_failure& failure)
{
    std::string text = "Internal Error trapped (" + std::to_string(failure.number()) + ")\r";
    text += failure.detail().empty() ? failure.description() : failure.detail();
    return {std::move(text), box_icon::critical};
}

/// The box of a failed sort, with the rows that are circular.
message_box circle_box(const runtime_failure& failure, const equation_list& equations)
{
    message_box box = failure_box(failure);
    std::string rows;
    for (const std::size_t i : circular_equations(equations)) {
        rows += (rows.empty() ? "" : ", ") + std::to_string(equations.rows[i]) + " (" + equations.names[i] + ")";
        if (!box.place) box.place = text_place{equations.rows[i], 0, equations.names[i].size()};
    }
    box.rows = circular_rows(equations);
    if (!rows.empty()) box.text += "\rRows that use each other: " + rows;
    return box;
}

void keep_equations(const deq_system& system, deq_outcome& outcome)
{
    outcome.differential_names = system.differential_equations().names;
    outcome.differential_right_sides = system.differential_equations().right_sides;
    outcome.explicit_names = system.explicit_equations().names;
    outcome.explicit_right_sides = system.explicit_equations().right_sides;
}

/// Integrates. Points and statistics are kept if it throws.
void integrate(deq_system& system, const settings& store, run_listener& listener, deq_run_alerts& alerts,
               deq_outcome& outcome)
{
    const ode_range range = {outcome.x1, outcome.x2, output_step_from(store, outcome.x1, outcome.x2)};
    std::vector<double> y = system.initial_values();
    deq_points points(outcome.independent, system, range, outcome.method, listener, alerts.stiffness_suspected);
    const auto keep = [&] {
        outcome.points = points.take();
        outcome.stiffness_suspected = alerts.stiffness_suspected;
    };
    try {
        outcome.statistics = integrate_by(outcome.method, system, y, range, store, points);
    } catch (...) {
        outcome.statistics = points.so_far();
        keep();
        throw;
    }
    keep();
}

void run_tables(const deq_content& content, const settings& store, run_listener& listener, const stopwatch& seconds,
                deq_run_alerts& alerts, deq_outcome& outcome)
{
    deq_system system(content, listener);
    outcome.x1 = val(content.initial_value);
    outcome.x2 = val(content.final_value);
    try {
        system.sort();
    } catch (const runtime_failure& failure) {
        return outcome.refuse(circle_box(failure, system.explicit_equations()));
    }
    keep_equations(system, outcome);
    if (std::optional<message_box> refused = system.compile_deq_expressions())
        return outcome.refuse(std::move(*refused));

    const double start = seconds();
    try {
        integrate(system, store, listener, alerts, outcome);
    } catch (const evaluation_failed&) {
        return outcome.refuse({system.context().eval_error_message(), box_icon::critical, "Expression evaluation error",
                               system.failed_place()});
    } catch (const runtime_failure& failure) {
        if (failure.detail() == calculations_aborted) throw run_stopped();
        throw;
    }
    outcome.elapsed_seconds = seconds() - start;
    outcome.summary = build_deq_summary(outcome.points);
    outcome.has_report = true;
}

} // namespace

deq_outcome run_deq(const deq_run_problem& problem, const settings& store, run_listener& listener,
                    const stopwatch& seconds, deq_run_alerts* alerts)
{
    deq_outcome outcome;
    deq_run_alerts unheard;
    const deq_content& content = problem.content;
    outcome.method = content.method;
    outcome.independent = trimmed(content.independent);
    const deq_analysis analysis = analyse_deq(content);
    if (!analysis.green) {
        outcome.refuse(red_light_box(content));
        return outcome;
    }
    if (std::optional<message_box> refused = refused_problem(analysis.set)) {
        outcome.refuse(std::move(*refused));
        return outcome;
    }
    const run_ending_boxes endings = {failure_box, {std::string(calculations_aborted), box_icon::exclamation}};
    guard_run(outcome, endings,
              [&] { run_tables(content, store, listener, seconds, alerts ? *alerts : unheard, outcome); });
    return outcome;
}

} // namespace kelvarin
