// SPDX-License-Identifier: MIT
#include "numeric/curve/polynomial_interpolation.h"

#include "numeric/arithmetic_check.h"
#include "numeric/curve/interval_search.h"
#include "numeric/curve/nearest_node.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <optional>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr std::size_t largest_lagrange_order = 3;

/// The derivative at `at` of the Lagrange basis polynomial that is 1 at node i and 0 at the others.
double basis_derivative(std::span<const double> x, std::size_t i, double at)
{
    double sum = 0.0;
    for (std::size_t left_out = 0; left_out < x.size(); ++left_out) {
        if (left_out == i) continue;
        double product = 1.0;
        for (std::size_t k = 0; k < x.size(); ++k) {
            if (k != i && k != left_out) product *= quotient(at - x[k], x[i] - x[k]);
        }
        sum += quotient(product, x[i] - x[left_out]);
    }
    return sum;
}

} // namespace

interpolated_value polint(std::span<const double> x, std::span<const double> y, double at)
{
    assert(x.size() == y.size());
    const std::size_t n = x.size();
    const std::size_t nearest = nearest_node(x, at);
    std::vector<double> upper(y.begin(), y.end());
    std::vector<double> lower(y.begin(), y.end());
    interpolated_value result{y[nearest], 0.0};
    // As in ratint: the path through the tableau keeps to its middle.
    std::ptrdiff_t row = static_cast<std::ptrdiff_t>(nearest) - 1;
    for (std::size_t column = 1; column < n; ++column) {
        for (std::size_t i = 0; i + column < n; ++i) {
            const double distance = x[i] - x[i + column];
            if (distance == 0.0) nrerror("Error in routine polint");
            const double factor = finite((upper[i + 1] - lower[i]) / distance);
            lower[i] = finite((x[i + column] - at) * factor);
            upper[i] = finite((x[i] - at) * factor);
        }
        if (2 * (row + 1) < static_cast<std::ptrdiff_t>(n - column))
            result.error = upper[static_cast<std::size_t>(row + 1)];
        else
            result.error = lower[static_cast<std::size_t>(row--)];
        result.value = finite(result.value + result.error);
    }
    return result;
}

double lagrange_derivative(std::span<const double> x, std::span<const double> y, double at)
{
    assert(x.size() == y.size() && x.size() >= 4);
    const std::size_t order = std::min(largest_lagrange_order, x.size() - 2);
    const std::size_t interval = interval_of(x, at);
    const std::size_t before = (order - 1) / 2;
    const std::size_t first = std::min(interval - std::min(interval, before), x.size() - 1 - order);
    const std::span<const double> nodes = x.subspan(first, order + 1);
    double derivative = 0.0;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        derivative += y[first + i] * basis_derivative(nodes, i, at);
    return finite(derivative);
}

double linear_interpolation(std::span<const double> x, std::span<const double> y, double at)
{
    assert(x.size() == y.size());
    std::optional<std::size_t> below;
    std::optional<std::size_t> above;
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (x[i] == at) return y[i];
        if (x[i] < at && (!below || x[i] > x[*below])) below = i;
        if (x[i] > at && (!above || x[i] < x[*above])) above = i;
    }
    if (!below || !above) throw runtime_failure(failure_number::subscript);
    const double slope = quotient(y[*above] - y[*below], x[*above] - x[*below]);
    return finite(y[*below] + slope * (at - x[*below]));
}

} // namespace kelvarin
