// SPDX-License-Identifier: MIT
#include "reg/fit_graphs.h"

#include "reg/polynomial_text.h"

#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

start_column observation_numbers(const regression_fit& fit)
{
    std::vector<double> numbers(fit.y.size());
    std::iota(numbers.begin(), numbers.end(), 1.0);
    return {"data point", std::move(numbers)};
}

} // namespace

graph_start polynomial_graph(const fit_outcome& outcome, const regression_fit& fit, std::string caption)
{
    return {.caption = std::move(caption),
            .columns = {{outcome.independents.front(), fit.x.front()}, {outcome.dependent, fit.y}},
            .function_text = polynomial_curve(polynomial_terms(fit.values, outcome.free_parameter)),
            .connected = false,
            .points = true};
}

graph_start multiple_graph(const fit_outcome& outcome, const regression_fit& fit, int solution_number)
{
    return {.caption = "Multiple Linear Graph, Solution #" + std::to_string(solution_number),
            .columns = {observation_numbers(fit),
                        {outcome.dependent + " calc", fit.calculated},
                        {outcome.dependent + " expr", fit.y}},
            .function_text = "0",
            .points = true};
}

graph_start nonlinear_graph(const fit_outcome& outcome, const regression_fit& fit, int solution_number)
{
    return {.caption = "Nonlinear Graph, Solution #" + std::to_string(solution_number),
            .columns = {observation_numbers(fit),
                        {outcome.dependent + " exp", fit.y},
                        {outcome.dependent + " calc", fit.calculated}},
            .points = true};
}

graph_start residual_graph(const fit_outcome& outcome, const regression_fit& fit, std::string caption)
{
    std::vector<double> residuals(fit.y.size());
    for (std::size_t i = 0; i < residuals.size(); ++i)
        residuals[i] = fit.y[i] - fit.calculated[i];
    return {.caption = std::move(caption),
            .columns = {{outcome.dependent + " exp", fit.y},
                        {outcome.dependent + "exp -" + outcome.dependent + "calc", std::move(residuals)}},
            .function_text = "0",
            .connected = false,
            .points = true};
}

} // namespace kelvarin
