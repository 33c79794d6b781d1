// SPDX-License-Identifier: MIT
#include "numeric/fit/distributions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace kelvarin
{

namespace
{

/// The continued fraction of the incomplete beta function, by the method of Lentz; converges fast for x below
/// (a + 1) / (a + b + 2).
double beta_fraction(double a, double b, double x)
{
    constexpr double tiny = 1e-300;
    constexpr int most_terms = 10000;
    const auto away_from_zero = [](double value) { return std::fabs(value) < tiny ? tiny : value; };
    double c = 1.0;
    double d = 1.0 / away_from_zero(1.0 - (a + b) * x / (a + 1.0));
    double fraction = d;
    for (int m = 1; m <= most_terms; ++m) {
        const double even = m * (b - m) * x / ((a + 2 * m - 1.0) * (a + 2 * m));
        const double odd = -(a + m) * (a + b + m) * x / ((a + 2 * m) * (a + 2 * m + 1.0));
        double factor = 1.0;
        for (const double term : std::array{even, odd}) {
            d = 1.0 / away_from_zero(1.0 + term * d);
            c = away_from_zero(1.0 + term / c);
            factor = c * d;
            fraction *= factor;
        }
        if (std::fabs(factor - 1.0) < std::numeric_limits<double>::epsilon()) break;
    }
    return fraction;
}

} // namespace

double incomplete_beta(double a, double b, double x)
{
    if (x <= 0.0) return 0.0;
    if (x >= 1.0) return 1.0;
    const double front =
        std::exp(std::lgamma(a + b) - std::lgamma(a) - std::lgamma(b) + a * std::log(x) + b * std::log1p(-x));
    if (x < (a + 1.0) / (a + b + 2.0)) return front * beta_fraction(a, b, x) / a;
    return 1.0 - front * beta_fraction(b, a, 1.0 - x) / b;
}

double two_sided_t(double t, double df)
{
    return incomplete_beta(df / 2.0, 0.5, df / (df + t * t));
}

double upper_F(double f, double df1, double df2)
{
    return f <= 0.0 ? 1.0 : incomplete_beta(df2 / 2.0, df1 / 2.0, df2 / (df2 + df1 * f));
}

double two_sided_normal(double z)
{
    return std::erfc(std::fabs(z) / std::numbers::sqrt2);
}

double normal_quantile(double p)
{
    // Newton's steps on the tail itself, which keeps its digits; the logistic distribution of the same deviation gives
    // the start.
    constexpr int most_steps = 50;
    const double tail = std::min(p, 1.0 - p);
    const auto tail_at = [](double z) { return 0.5 * std::erfc(z / std::numbers::sqrt2); };
    double z = std::sqrt(3.0) / std::numbers::pi * std::log((1.0 - tail) / tail);
    for (int step = 0; step < most_steps; ++step) {
        const double density = std::exp(-0.5 * z * z) / std::sqrt(2.0 * std::numbers::pi);
        // On the logarithm, which is nearly a parabola far out.
        const double probability = tail_at(z);
        const double change = std::log(probability / tail) * probability / density;
        z += change;
        if (std::fabs(change) <= 1e-15 * (1.0 + std::fabs(z))) break;
    }
    return p < 0.5 ? -z : z;
}

} // namespace kelvarin
