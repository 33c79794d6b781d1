// SPDX-License-Identifier: MIT
#include "numeric/backtracking_search.h"

#include "numeric/vector_sums.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace kelvarin::backtracking
{

namespace
{

/// alpha of the sufficient decrease, [DennisSchnabel1983] A6.3.1, [Press1992] eq. 9.7.7.
constexpr double ALF = 0.0001;
/// The shortest step worth a trial, relative to x.
constexpr double TOLX = 1e-07;
/// A backtrack keeps at least the tenth of the step and, once there are two trials, at most the half.
constexpr double shortest_backtrack = 0.1;
constexpr double longest_backtrack = 0.5;

/// Minimum of the parabola through fold, its slope and the full step's value. [Press1992] eq. 9.7.11
double parabola_minimum(double fold, double slope, double f)
{
    return quotient(-slope, 2.0 * (f - fold - slope));
}

/// Minimum of the cubic through fold, its slope and the last two trials. [DennisSchnabel1983] sec. 6.3.2,
/// [Press1992] eq. 9.7.13 for the coefficients a and b, 9.7.14 for the minimum.
double cubic_minimum(double fold, double slope, trial last, trial before)
{
    const double rhs1 = last.f - fold - last.alam * slope;
    const double rhs2 = before.f - fold - before.alam * slope;
    const double scaled1 = quotient(rhs1, last.alam * last.alam);
    const double scaled2 = quotient(rhs2, before.alam * before.alam);
    const double between = last.alam - before.alam;
    const double a = quotient(scaled1 - scaled2, between);
    const double b = quotient(-before.alam * scaled1 + last.alam * scaled2, between);
    if (a == 0.0) return quotient(-slope, 2.0 * b);
    const double disc = finite(b * b - 3.0 * a * slope);
    if (disc < 0.0) nrerror("LNSRCH: Roundoff problem in lnsrch.");
    return quotient(-b + std::sqrt(disc), 3.0 * a);
}

} // namespace

void scale_down(std::span<double> p, double stpmax)
{
    const double length = norm(p);
    if (!(length > stpmax)) return;
    const double factor = stpmax / length;
    for (double& value : p)
        value *= factor;
}

double shortest_step(std::span<const double> p, std::span<const double> xold)
{
    double test = 0.0;
    for (std::size_t i = 0; i < p.size(); ++i)
        test = std::max(test, finite(std::fabs(p[i]) / std::max(std::fabs(xold[i]), 1.0)));
    return quotient(TOLX, test);
}

void step_along(std::span<const double> xold, std::span<const double> p, double alam, std::span<double> x)
{
    for (std::size_t i = 0; i < x.size(); ++i)
        x[i] = finite(xold[i] + alam * p[i]); // [Press1992] eq. 9.7.6
}

bool decreases_enough(trial last, double fold, double slope)
{
    return last.f <= fold + ALF * last.alam * slope; // [Press1992] eq. 9.7.7
}

double next_fraction(double fold, double slope, trial last, const std::optional<trial>& before)
{
    double next = before ? cubic_minimum(fold, slope, last, *before) : parabola_minimum(fold, slope, last.f);
    if (before) next = std::min(next, longest_backtrack * last.alam);
    return std::max(next, shortest_backtrack * last.alam);
}

} // namespace kelvarin::backtracking
