// SPDX-License-Identifier: MIT
#include "numeric/fit/marquardt.h"
#include "numeric/fit/scaled_marquardt.h"
#include "platform/run_time_text.h"
#include "reg/fit_graphs.h"
#include "reg/fit_steps.h"
#include "reg/nonlinear_model.h"
#include "reg/row_model.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <variant>

namespace kelvarin
{

namespace
{

constexpr std::size_t most_model_names = 60;

message_box compile_fault_box(const refused_expression& refused)
{
    message_box box = {refused.message, box_icon::critical};
    if (refused.fatal) {
        box.title = fatal_title;
        box.fatal = true;
    }
    return box;
}

/// Observations and guesses as numbers.
void read_data(const fit_problem& problem, const nonlinear_model& model, regression_fit& fit)
{
    const table_reader table(problem.content);
    fit.names = model.names.parameters;
    const std::size_t most = std::max(fit.names.size(), model.names.independents.size());
    // A model without parameters has nothing to fit.
    if (fit.names.empty() || most > most_model_names) throw runtime_failure(failure_number::subscript);
    std::vector<int> columns = {required_column(table, model.dependent)};
    for (const std::string& name : model.names.independents)
        columns.push_back(required_column(table, name));
    fit.n = table.leading_rows(columns);
    fit.y = table.prefix_values(columns.front(), fit.n);
    for (const int column : std::span(columns).subspan(1))
        fit.x.push_back(table.prefix_values(column, fit.n));
    for (const table_guess& guess : guesses_for(problem.request.model, table, problem.request.guesses))
        fit.guesses.push_back(val(guess.value));
}

nonlinear_fit fit_by_method(nonlinear_method method, row_model& model, const regression_fit& fit, const settings& store,
                            run_listener& listener)
{
    const fit_model values = [&model](std::span<const double> a, std::span<double> f) { model(a, f); };
    const iteration_hook tell = [&listener](int iteration, int limit) {
        listener.fraction_done(static_cast<double>(iteration - 1) / limit);
    };
    if (method == nonlinear_method::mrqmin)
        return fit_mrqmin(values, fit.y, fit.guesses,
                          {.maxiter = store.whole_number("nonlinearreg_maxiter"),
                           .tol = store.number("nonlinearreg_tol"),
                           .on_iteration = tell});
    return fit_scaled_marquardt(values, fit.y, fit.guesses,
                                {.maxiter = store.whole_number("nonlinearreg_lm_maxiter"), .on_iteration = tell});
}

void keep_fit(regression_fit& fit, nonlinear_fit found)
{
    fit.values = std::move(found.a);
    fit.conf = std::move(found.conf);
    fit.calculated = std::move(found.calculated);
    fit.statistics = found.statistics;
    fit.iterations = found.iterations;
    fit.limit_reached = found.limit_reached;
    fit.chisq = found.chisq;
    fit.alamda = found.alamda;
}

void hand_over(const fit_problem& problem, const regression_fit& fit, fit_outcome& outcome)
{
    if (problem.request.graph) outcome.graphs.push_back(nonlinear_graph(outcome, fit, problem.solution_number));
    if (problem.request.residuals)
        outcome.graphs.push_back(residual_graph(
            outcome, fit, "Nonlinear Residuals Graph, Solution #" + std::to_string(problem.solution_number)));
    store_model(problem, fit, model_formula(outcome.expression, fit.names, fit.values), outcome);
}

} // namespace

void run_nonlinear(const fit_problem& problem, const settings& store, run_listener& listener, fit_outcome& outcome)
{
    const table_reader table(problem.content);
    const nonlinear_model model = parts_of_model(problem.request.model, table);
    outcome.dependent = model.dependent;
    outcome.independents = model.names.independents;
    outcome.expression = model.expression;
    if (std::optional<message_box> refused = model_fault(model, table)) return outcome.refuse(std::move(*refused));

    regression_fit fit;
    try {
        read_data(problem, model, fit);
    } catch (const runtime_failure& failure) {
        return outcome.refuse({"Error: " + std::string(failure.description()), box_icon::critical});
    }
    const row_model::names_and_values names = {fit.names, outcome.independents, fit.x};
    auto compiled = row_model::compile(model.expression, names, listener);
    if (const auto* const refused = std::get_if<refused_expression>(&compiled))
        return outcome.refuse(compile_fault_box(*refused));

    row_model& values = *std::get<std::unique_ptr<row_model>>(compiled);
    keep_fit(fit, fit_by_method(problem.request.method, values, fit, store, listener));
    outcome.has_report = true;
    hand_over(problem, fit, outcome);
    outcome.fits.push_back(std::move(fit));
}

} // namespace kelvarin
