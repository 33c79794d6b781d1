// SPDX-License-Identifier: MIT
#include "numeric/arithmetic_check.h"
#include "numeric/forward_difference.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "numeric/vector_sums.h"
#include "numeric/work_array.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <optional>
#include <vector>

namespace kelvarin
{

namespace
{

/// [DennisSchnabel1983] alpha of the sufficient decrease.
constexpr double ALF = 0.0001;
/// The shortest step worth a trial, relative to x.
constexpr double TOLX = 1e-07;
/// A backtrack keeps at least the tenth of the step and, once there are two trials, at most the half.
constexpr double shortest_backtrack = 0.1;
constexpr double longest_backtrack = 0.5;

/// A step along the direction, as a fraction of it, and half the sum of squares there.
struct trial
{
    double alam = 0.0;
    double f = 0.0;
};

void scale_down(std::span<double> p, double stpmax)
{
    const double length = norm(p);
    if (!(length > stpmax)) return;
    const double factor = stpmax / length;
    for (double& value : p)
        value *= factor;
}

/// The fraction of the direction below which no unknown moves by more than TOLX of its size.
double shortest_step(std::span<const double> p, std::span<const double> xold)
{
    double test = 0.0;
    for (std::size_t i = 0; i < p.size(); ++i)
        test = FMAX(finite(std::fabs(p[i]) / FMAX(std::fabs(xold[i]), 1.0)), test);
    return quotient(TOLX, test);
}

void step_along(std::span<const double> xold, std::span<const double> p, double alam, std::span<double> x)
{
    for (std::size_t i = 0; i < x.size(); ++i)
        x[i] = finite(xold[i] + alam * p[i]);
}

/// Minimum of the parabola through fold, its slope and the full step's value.
double parabola_minimum(double fold, double slope, double f)
{
    return quotient(-slope, 2.0 * (f - fold - slope));
}

/// Minimum of the cubic through fold, its slope and the last two trials. [DennisSchnabel1983] sec. 6.3.2
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

double FMAX(double a, double b)
{
    return a > b ? a : b;
}

double fmin_nle(nonlinear_system& system, std::span<const double> x, std::span<double> fvec)
{
    evaluate_finite(system, x, fvec);
    return 0.5 * dot(fvec, fvec);
}

line_search_result lnsrch(nonlinear_system& system, std::span<const double> xold, double fold,
                          std::span<const double> g, std::span<double> p, std::span<double> x, std::span<double> fvec,
                          double stpmax)
{
    std::vector<double> point = work_array(system.size());
    return lnsrch(system, xold, fold, g, p, x, fvec, stpmax, point);
}

line_search_result lnsrch(nonlinear_system& system, std::span<const double> xold, double fold,
                          std::span<const double> g, std::span<double> p, std::span<double> x, std::span<double> fvec,
                          double stpmax, std::span<double> point)
{
    scale_down(p, stpmax);
    const double slope = dot(g, p);
    const double alamin = shortest_step(p, xold);
    // Trials are made beside x, so that a failure within one leaves x alone.
    std::optional<trial> before;
    for (double alam = 1.0;;) {
        step_along(xold, p, alam, point);
        const trial last{alam, fmin_nle(system, point, fvec)};
        if (alam < alamin) {
            std::ranges::copy(xold, x.begin());
            return {last.f, true};
        }
        if (last.f <= fold + ALF * alam * slope) {
            std::ranges::copy(point, x.begin());
            return {last.f, false};
        }
        double next = before ? cubic_minimum(fold, slope, last, *before) : parabola_minimum(fold, slope, last.f);
        if (before) next = std::min(next, longest_backtrack * alam);
        before = last;
        alam = FMAX(next, shortest_backtrack * alam);
    }
}

} // namespace kelvarin
