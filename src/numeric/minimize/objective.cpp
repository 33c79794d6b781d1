// SPDX-License-Identifier: MIT
#include "numeric/minimize/objective.h"

#include "numeric/arithmetic_check.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr double first_step = 5.0;
constexpr std::size_t table_size = 10;

/// What the error's even powers of the step lose from one step to the next: the square of the ratio, and its powers.
constexpr std::array<double, table_size> extrapolation_factors = [] {
    std::array<double, table_size> factors{};
    double factor = gradient_step_ratio * gradient_step_ratio;
    for (double& each : factors) {
        each = factor;
        factor *= gradient_step_ratio * gradient_step_ratio;
    }
    return factors;
}();

double ridders_derivative(objective& target, std::span<const double> x, std::size_t variable, std::span<double> point)
{
    // A column of the table holds the quotient of one step, then its extrapolations of rising order.
    std::array<double, table_size> last{};
    std::array<double, table_size> column{};
    double derivative = 0.0;
    double error = 1e30;
    double step = first_step;
    for (std::size_t k = 0; k < table_size; ++k) {
        std::swap(last, column);
        const objective::value_pair values = target.values_beside(x, variable, step, point);
        column[0] = finite((finite(values.above) - finite(values.below)) / (2.0 * step));
        for (std::size_t j = 1; j <= k; ++j) {
            const double factor = extrapolation_factors[j - 1];
            column[j] = finite((column[j - 1] * factor - last[j - 1]) / (factor - 1.0));
            const double change = std::max(std::fabs(column[j] - column[j - 1]), std::fabs(column[j] - last[j - 1]));
            if (change > error) continue;
            error = change;
            derivative = column[j];
        }
        if (k > 0 && std::fabs(column[k] - last[k - 1]) >= 2.0 * error) break;
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
