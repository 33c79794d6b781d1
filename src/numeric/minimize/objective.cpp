// SPDX-License-Identifier: MIT
#include "numeric/minimize/objective.h"

#include "numeric/arithmetic_check.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kelvarin
{

namespace
{

constexpr double first_step = 5.0;
constexpr std::size_t table_size = 10;

double ridders_derivative(objective& target, std::span<const double> x, std::size_t variable, std::span<double> point)
{
    std::array<std::array<double, table_size>, table_size> table{};
    double derivative = 0.0;
    double error = 1e30;
    double step = first_step;
    for (std::size_t k = 0; k < table_size; ++k) {
        const objective::value_pair values = target.values_beside(x, variable, step, point);
        table[0][k] = finite((finite(values.above) - finite(values.below)) / (2.0 * step));
        // Each order of extrapolation takes the error's next even power of the step away.
        double factor = gradient_step_ratio * gradient_step_ratio;
        for (std::size_t j = 1; j <= k; ++j) {
            table[j][k] = finite((table[j - 1][k] * factor - table[j - 1][k - 1]) / (factor - 1.0));
            factor *= gradient_step_ratio * gradient_step_ratio;
            const double change =
                std::max(std::fabs(table[j][k] - table[j - 1][k]), std::fabs(table[j][k] - table[j - 1][k - 1]));
            if (change > error) continue;
            error = change;
            derivative = table[j][k];
        }
        if (k > 0 && std::fabs(table[k][k] - table[k - 1][k - 1]) >= 2.0 * error) break;
        step /= gradient_step_ratio;
    }
    return derivative;
}

} // namespace

objective::value_pair objective::values_beside(std::span<const double> x, std::size_t variable, double offset,
                                               std::span<double> point)
{
    std::ranges::copy(x, point.begin());
    point[variable] = x[variable] + offset;
    value_pair values;
    values.above = value(point);
    point[variable] = x[variable] - offset;
    values.below = value(point);
    return values;
}

void ridders_gradient(objective& target, std::span<const double> x, std::span<double> g, std::span<double> point)
{
    for (std::size_t variable = 0; variable < x.size(); ++variable)
        g[variable] = ridders_derivative(target, x, variable, point);
}

} // namespace kelvarin
