// SPDX-License-Identifier: MIT
#include "numeric/nonlinear/stopping_tests.h"

#include "numeric/arithmetic_check.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "numeric/vector_sums.h"

#include <cmath>

namespace kelvarin
{

namespace
{

/// STPMX of [Press1992].
constexpr double longest_step_scale = 100.0;

} // namespace

double longest_step(std::span<const double> x)
{
    return finite(longest_step_scale * FMAX(norm(x), static_cast<double>(x.size())));
}

bool residuals_below(std::span<const double> fvec, double tolerance)
{
    double test = 0.0;
    for (const double value : fvec)
        test = FMAX(std::fabs(value), test);
    return test < tolerance;
}

bool start_is_root(std::span<const double> fvec, double TOLF)
{
    return residuals_below(fvec, 0.01 * TOLF);
}

bool step_below(std::span<const double> x, std::span<const double> xold, double TOLX)
{
    double test = 0.0;
    for (std::size_t i = 0; i < x.size(); ++i)
        test = FMAX(finite(std::fabs(x[i] - xold[i])) / FMAX(std::fabs(x[i]), 1.0), test);
    return test < TOLX;
}

bool gradient_vanishes(std::span<const double> g, std::span<const double> x, double f, double TOLMIN)
{
    const double den = FMAX(f, 0.5 * static_cast<double>(x.size()));
    double test = 0.0;
    for (std::size_t i = 0; i < g.size(); ++i)
        test = FMAX(finite(std::fabs(g[i]) * FMAX(std::fabs(x[i]), 1.0)) / den, test);
    return test < TOLMIN;
}

} // namespace kelvarin
