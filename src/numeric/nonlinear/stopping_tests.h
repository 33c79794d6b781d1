// SPDX-License-Identifier: MIT
#pragma once

#include <span>

/// What newt and broydn have in common around the line search. [Press1992] sec. 9.7
namespace kelvarin
{

/// The bound that lnsrch sets to the length of a step: 100 times the larger of |x| and n.
double longest_step(std::span<const double> x);

/// The largest absolute residual is below the tolerance.
bool residuals_below(std::span<const double> fvec, double tolerance);

/// The start is a root already: a hundredth of the tolerance is demanded of it.
bool start_is_root(std::span<const double> fvec, double TOLF);

/// The largest step, relative to x and at least to 1, is below the tolerance.
bool step_below(std::span<const double> x, std::span<const double> xold, double TOLX);

/// The gradient g of f, scaled, is below the tolerance: a minimum of f that is no root.
bool gradient_vanishes(std::span<const double> g, std::span<const double> x, double f, double TOLMIN);

} // namespace kelvarin
