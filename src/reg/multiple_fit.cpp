// SPDX-License-Identifier: MIT
#include "reg/fit_graphs.h"
#include "reg/fit_steps.h"
#include "reg/polynomial_text.h"

#include <utility>

namespace kelvarin
{

namespace
{

std::vector<double> required_values(const table_reader& table, int column, int n)
{
    std::optional<std::vector<double>> values = table.strict_values(column, n);
    if (!values) throw runtime_failure(failure_number::type_mismatch);
    return std::move(*values);
}

} // namespace

void run_multiple(const fit_problem& problem, fit_outcome& outcome)
{
    const table_reader table(problem.content);
    std::vector<int> columns = {required_column(table, outcome.dependent)};
    for (const std::string& name : outcome.independents)
        columns.push_back(required_column(table, name));
    const int n = table.leading_rows(columns);
    const int k = static_cast<int>(outcome.independents.size());
    // With a constant term one observation more than parameters is asked for, without one only as many.
    if (n - k + (outcome.free_parameter ? 0 : 1) <= 0)
        return outcome.refuse({"Insufficient data sets for regression. Either reduce the number of independent "
                               "variables or add data sets.\rCalculation aborted.",
                               box_icon::critical});
    regression_fit fit;
    fit.y = required_values(table, columns.front(), n);
    for (int j = 1; j <= k; ++j)
        fit.x.push_back(required_values(table, columns[static_cast<std::size_t>(j)], n));
    const std::vector<std::span<const double>> x(fit.x.begin(), fit.x.end());
    const linear_fit solved = fit_linear(columns_design(x, outcome.free_parameter), fit.y);
    keep_solution(fit, solved, outcome.free_parameter);
    fit.conf = solved.conf;
    fit.statistics = solved.statistics;
    outcome.has_report = true;

    if (problem.request.graph) outcome.graphs.push_back(multiple_graph(outcome, fit, problem.solution_number));
    if (problem.request.residuals)
        outcome.graphs.push_back(residual_graph(
            outcome, fit, "Multiple Linear Residuals Graph, Solution #" + std::to_string(problem.solution_number)));
    store_model(problem, fit, linear_formula(fit.values, outcome.independents), outcome);
    outcome.fits.push_back(std::move(fit));
}

} // namespace kelvarin
