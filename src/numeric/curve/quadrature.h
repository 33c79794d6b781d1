// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/curve/pause_point.h"

#include <span>
#include <vector>

namespace kelvarin
{

/// Nodes, ascending where a < b, and weights of a quadrature.
struct quadrature_rule
{
    std::vector<double> nodes;
    std::vector<double> weights;
};

/// The Gauss-Legendre rule of n points (1 or more) on [a, b]: Newton's method on the Legendre polynomial of degree n,
/// its start the usual estimate of the root. [Press1992] sec. 4.5
quadrature_rule gauleg(double a, double b, int n, const pause_point& pause = {});

/// The integral of tabulated points whose x ascends, not necessarily by equal steps: for each triple of points the
/// parabola through them, exactly, from the first to the third. Where the number of points is even, the last interval
/// is integrated under the parabola through the last three points; two points give the trapezoid, fewer 0. Throws
/// runtime_failure 11 where two nodes are equal. The parabolas: [AbramowitzStegun1972] sec. 25.2
double simpson_unequal(std::span<const double> x, std::span<const double> y);

} // namespace kelvarin
