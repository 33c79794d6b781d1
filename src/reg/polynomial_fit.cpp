// SPDX-License-Identifier: MIT
#include "platform/run_time_text.h"
#include "reg/fit_graphs.h"
#include "reg/fit_steps.h"
#include "reg/polynomial_text.h"

#include <algorithm>
#include <utility>

namespace kelvarin
{

namespace
{

/// ", Solution #3.2": the run, and the degree's place in the list.
std::string solution_mark(const fit_problem& problem, int degree)
{
    return ", Solution #" + std::to_string(problem.solution_number) + "." + std::to_string(degree);
}

void hand_over(const fit_problem& problem, const regression_fit& fit, fit_outcome& outcome)
{
    const fit_request& request = problem.request;
    const std::string title = polynomial_run_title(request);
    const std::string mark = solution_mark(problem, fit.degree);
    if (request.graph) outcome.graphs.push_back(polynomial_graph(outcome, fit, title + " Graph" + mark));
    if (request.residuals) outcome.graphs.push_back(residual_graph(outcome, fit, title + " Residuals" + mark));
    const std::vector<polynomial_term> terms = polynomial_terms(fit.values, outcome.free_parameter);
    store_model(problem, fit, polynomial_formula(terms, outcome.independents.front()), outcome);
}

/// The values of the integral and of the derivative where they are asked for.
void add_calculus(const fit_request& request, bool constant_term, regression_fit& fit)
{
    const std::vector<polynomial_term> terms = polynomial_terms(fit.values, constant_term);
    if (const auto& bounds = request.integral_bounds) {
        const std::vector<polynomial_term> primitive = integrated(terms);
        fit.integral = value_of(primitive, val(bounds->second)) - value_of(primitive, val(bounds->first));
    }
    if (request.derivative_point) fit.derivative = value_of(differentiated(terms), val(*request.derivative_point));
}

} // namespace

void run_polynomial(const fit_problem& problem, run_listener& listener, fit_outcome& outcome)
{
    const table_reader table(problem.content);
    if (outcome.independents.empty()) throw runtime_failure(failure_number::subscript);
    const int columns[] = {required_column(table, outcome.independents.front()),
                           required_column(table, outcome.dependent)};
    const int n = table.leading_rows(columns);
    const std::vector<double> x = table.prefix_values(columns[0], n);
    const std::vector<double> y = table.prefix_values(columns[1], n);
    const std::vector<int>& degrees = problem.request.degrees;
    for (std::size_t i = 0; i < degrees.size(); ++i) {
        if (listener.stop_asked()) throw run_stopped();
        listener.fraction_done(static_cast<double>(i) / static_cast<double>(degrees.size()));
        regression_fit fit = {.y = y, .x = {x}, .degree = degrees[i]};
        linear_fit solved = solve_normal_equations(polynomial_design(x, fit.degree, outcome.free_parameter), y);
        keep_solution(fit, solved, outcome.free_parameter);
        // Graphs and column come before the statistics, and stay if those fail.
        hand_over(problem, fit, outcome);
        add_statistics(solved, y);
        fit.conf = solved.conf;
        fit.statistics = solved.statistics;
        add_calculus(problem.request, outcome.free_parameter, fit);
        outcome.fits.push_back(std::move(fit));
    }
    outcome.has_report = true;
}

} // namespace kelvarin
