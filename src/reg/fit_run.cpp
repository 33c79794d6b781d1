// SPDX-License-Identifier: MIT
#include "reg/fit_run.h"

#include "platform/run_time_text.h"
#include "reg/fit_failures.h"
#include "reg/fit_steps.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace kelvarin
{

namespace
{

std::optional<std::string> polynomial_fault(const fit_request& request)
{
    if (!request.independents.empty() && request.dependent == request.independents.front())
        return "Dependent varible must not be the same as the independent variable.";
    if (request.degrees.empty()) return "User must select at least one polynomial degree.";
    if (const auto& bounds = request.integral_bounds;
        bounds && !(is_numeric(bounds->first) && is_numeric(bounds->second)))
        return "Upper and Lower integration boundaries are not numeric values.";
    if (request.derivative_point && !is_numeric(*request.derivative_point))
        return "Derivative data point is not a numeric value.";
    return std::nullopt;
}

std::optional<std::string> multiple_fault(const fit_request& request)
{
    if (std::ranges::find(request.independents, request.dependent) != request.independents.end())
        return "Dependent varible must not be the same as any one of the independent variables.";
    if (request.independents.empty()) return "User must select at least one independent variables.";
    return std::nullopt;
}

std::optional<std::string> nonlinear_fault(const table_content& content, const fit_request& request)
{
    for (const table_guess& guess : guesses_for(request.model, table_reader(content), request.guesses))
        if (!is_numeric(guess.value)) return "Invalid numeric format for '" + guess.name + "' initial guess";
    return std::nullopt;
}

std::optional<std::string> fault_of(const table_content& content, const fit_request& request)
{
    switch (request.kind) {
    case regression::polynomial:
        return polynomial_fault(request);
    case regression::multiple:
        return multiple_fault(request);
    case regression::nonlinear:
        break;
    }
    return nonlinear_fault(content, request);
}

void run_page(const fit_problem& problem, const settings& store, run_listener& listener, fit_outcome& outcome)
{
    switch (problem.request.kind) {
    case regression::polynomial:
        return run_polynomial(problem, listener, outcome);
    case regression::multiple:
        return run_multiple(problem, outcome);
    case regression::nonlinear:
        return run_nonlinear(problem, store, listener, outcome);
    }
}

} // namespace

const char* method_text(nonlinear_method method)
{
    return method == nonlinear_method::mrqmin ? "mrqmin" : "L-M";
}

std::optional<message_box> check_regression_input(const table_content& content, const fit_request& request)
{
    if (const std::optional<std::string> fault = fault_of(content, request)) return invalid_entry_box(*fault);
    return std::nullopt;
}

fit_outcome solve_regression(const fit_problem& problem, const settings& store, run_listener& listener,
                             const stopwatch& seconds)
{
    const fit_request& request = problem.request;
    fit_outcome outcome;
    outcome.kind = request.kind;
    outcome.dependent = request.dependent;
    outcome.independents = request.independents;
    outcome.free_parameter = !request.through_origin;
    outcome.method = request.method;
    if (std::optional<message_box> refused = check_regression_input(problem.content, request)) {
        outcome.refuse(std::move(*refused));
        return outcome;
    }
    const double start = seconds();
    const run_ending_boxes endings = {regression_failure_box, {"Calculations aborted.", box_icon::exclamation}};
    guard_run(outcome, endings, [&] { run_page(problem, store, listener, outcome); });
    outcome.elapsed_seconds = seconds() - start;
    return outcome;
}

std::string report_caption(const fit_problem& problem)
{
    const std::string number = std::to_string(problem.solution_number);
    switch (problem.request.kind) {
    case regression::polynomial:
        return polynomial_run_title(problem.request) + " Report, Solution #" + number;
    case regression::multiple:
        return "Multiple Linear Report, Solution #" + number;
    case regression::nonlinear:
        break;
    }
    return "Nonlinear Report #" + number;
}

std::string polynomial_run_title(const fit_request& request)
{
    const bool is_polynomial = request.degrees.size() > 1 || (request.degrees.size() == 1 && request.degrees[0] > 1);
    return is_polynomial ? "Polynomial Regression" : "Linear Regression";
}

int required_column(const table_reader& table, std::string_view name)
{
    const std::optional<int> column = table.column_of(name);
    if (!column) throw runtime_failure(failure_number::subscript);
    return *column;
}

std::vector<std::string> coefficient_names(std::size_t count, bool constant_term)
{
    std::vector<std::string> names;
    for (std::size_t j = 0; j < count; ++j)
        names.push_back("a" + std::to_string(constant_term ? j : j + 1));
    return names;
}

void keep_solution(regression_fit& fit, const linear_fit& solved, bool constant_term)
{
    fit.n = static_cast<int>(fit.y.size());
    fit.names = coefficient_names(solved.coef.size(), constant_term);
    fit.values = solved.coef;
    fit.calculated = solved.calculated;
}

void store_model(const fit_problem& problem, const regression_fit& fit, std::string formula, fit_outcome& outcome)
{
    if (!problem.request.model_column) return;
    const std::optional<int> column = table_reader(problem.content).column_of(*problem.request.model_column);
    if (!column) return;
    model_column stored = {*column, *problem.request.model_column, std::move(formula), {}};
    for (const double value : fit.calculated)
        stored.cells.push_back(format_digits(value, problem.content.calc_digits));
    outcome.stored = std::move(stored);
}

} // namespace kelvarin
