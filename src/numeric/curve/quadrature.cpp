// SPDX-License-Identifier: MIT
#include "numeric/curve/quadrature.h"

#include "numeric/arithmetic_check.h"

#include <cassert>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace kelvarin
{

namespace
{

struct legendre_value
{
    double value = 0.0;
    double derivative = 0.0;
};

/// The Legendre polynomial of degree n at z, |z| < 1. [AbramowitzStegun1972] 8.5.3, 8.5.4
legendre_value legendre(int n, double z)
{
    double before = 0.0;
    double value = 1.0;
    for (int j = 1; j <= n; ++j) {
        const double next = ((2.0 * j - 1.0) * z * value - (j - 1.0) * before) / j;
        before = value;
        value = next;
    }
    return {value, n * (z * value - before) / (z * z - 1.0)};
}

/// The root of the polynomial that is nearest to `z`.
double legendre_root(int n, double z)
{
    constexpr double precision = 3e-11;
    // Newton's method doubles the digits at each step.
    constexpr int most_steps = 20;
    for (int step = 0; step < most_steps; ++step) {
        const legendre_value at = legendre(n, z);
        const double change = at.value / at.derivative;
        z -= change;
        if (std::fabs(change) <= precision) break;
    }
    return z;
}

/// The integral of the parabola through three points from the first to the third.
double under_parabola(const double* x, const double* y)
{
    const double h0 = x[1] - x[0];
    const double h1 = x[2] - x[1];
    const double whole = h0 + h1;
    return whole / 6.0 *
           ((2.0 - quotient(h1, h0)) * y[0] + quotient(whole * whole, h0 * h1) * y[1] +
            (2.0 - quotient(h0, h1)) * y[2]);
}

/// The same from the second point to the third.
double under_end_of_parabola(const double* x, const double* y)
{
    const double h0 = x[1] - x[0];
    const double h1 = x[2] - x[1];
    const double whole = h0 + h1;
    return quotient(h1 * (2.0 * h1 + 3.0 * h0), 6.0 * whole) * y[2] + quotient(h1 * (h1 + 3.0 * h0), 6.0 * h0) * y[1] -
           quotient(h1 * h1 * h1, 6.0 * h0 * whole) * y[0];
}

} // namespace

quadrature_rule gauleg(double a, double b, int n, const pause_point& pause)
{
    assert(n >= 1);
    const auto size = static_cast<std::size_t>(n);
    quadrature_rule rule{std::vector<double>(size), std::vector<double>(size)};
    const double middle = 0.5 * (b + a);
    const double half = 0.5 * (b - a);
    // The roots lie symmetrically about the middle.
    for (std::size_t i = 0; i < (size + 1) / 2; ++i) {
        if (pause) pause();
        const double start = std::cos(std::numbers::pi * (static_cast<double>(i) + 0.75) / (n + 0.5));
        const double z = legendre_root(n, start);
        const double slope = legendre(n, z).derivative;
        rule.nodes[i] = finite(middle - half * z);
        rule.nodes[size - 1 - i] = finite(middle + half * z);
        // Eq. 4.5.16.
        rule.weights[i] = rule.weights[size - 1 - i] = finite(2.0 * half / ((1.0 - z * z) * slope * slope));
    }
    return rule;
}

double simpson_unequal(std::span<const double> x, std::span<const double> y)
{
    assert(x.size() == y.size());
    const std::size_t n = x.size();
    if (n < 2) return 0.0;
    if (n == 2) return finite((x[1] - x[0]) * (y[0] + y[1]) / 2.0);
    double sum = 0.0;
    std::size_t first = 0;
    for (; first + 2 < n; first += 2)
        sum += under_parabola(&x[first], &y[first]);
    if (first + 1 < n) sum += under_end_of_parabola(&x[n - 3], &y[n - 3]);
    return finite(sum);
}

} // namespace kelvarin
