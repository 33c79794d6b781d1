// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <optional>
#include <span>

namespace kelvarin
{

struct line_search_result
{
    /// The function at the last trial.
    double f = 0.0;
    /// The search could not move: x is the old point again.
    bool check = false;
};

/// The parts of a backtracking line search that do not evaluate the function. [Press1992] sec. 9.7,
/// [DennisSchnabel1983] A6.3.1
namespace backtracking
{

/// A step along the direction, as a fraction of it, and the function there.
struct trial
{
    double alam = 0.0;
    double f = 0.0;
};

/// Shortens `p` to the length `stpmax` where it is longer.
void scale_down(std::span<double> p, double stpmax);
/// The fraction of the direction below which no unknown moves by more than 1e-7 of its size. Throws runtime_failure 11
/// for a direction of zeros.
double shortest_step(std::span<const double> p, std::span<const double> xold);
/// x = xold + alam p
void step_along(std::span<const double> xold, std::span<const double> p, double alam, std::span<double> x);
bool decreases_enough(trial last, double fold, double slope);
/// The next fraction to be tried, from the last trial and, once there are two, the one before it. Throws
/// runtime_failure 8888 "LNSRCH: Roundoff problem in lnsrch.".
double next_fraction(double fold, double slope, trial last, const std::optional<trial>& before);

} // namespace backtracking

/// Looks along `p` from `xold`, where the function is `fold` and rises by `slope` over the whole of p, for a point with
/// a sufficient decrease; p is shortened to `stpmax` first, and `slope_of` asked for the slope of what is left. The
/// point found goes to x. `point` is memory for trials, which are made beside x, so that a failure within one leaves x
/// alone. `value_at(point)` gives the function. Throws runtime_failure 8888, 11 or 6 as the parts above do.
template <class Value, class Slope>
line_search_result backtracking_search(std::span<const double> xold, double fold, std::span<double> p,
                                       std::span<double> x, double stpmax, std::span<double> point, Value value_at,
                                       Slope slope_of)
{
    using backtracking::trial;
    backtracking::scale_down(p, stpmax);
    const double slope = slope_of(p);
    const double alamin = backtracking::shortest_step(p, xold);
    std::optional<trial> before;
    for (double alam = 1.0;;) {
        backtracking::step_along(xold, p, alam, point);
        const trial last{alam, value_at(point)};
        if (alam < alamin) {
            std::ranges::copy(xold, x.begin());
            return {last.f, true};
        }
        if (backtracking::decreases_enough(last, fold, slope)) {
            std::ranges::copy(point, x.begin());
            return {last.f, false};
        }
        alam = backtracking::next_fraction(fold, slope, last, before);
        before = last;
    }
}

} // namespace kelvarin
