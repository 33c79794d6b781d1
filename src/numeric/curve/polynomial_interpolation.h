// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/curve/rational_interpolation.h"

#include <span>

namespace kelvarin
{

/// The polynomial through all points (x[i], y[i]), evaluated at `at` by Neville's scheme. Throws runtime_failure 8888
/// "Error in routine polint" where two nodes are equal, 9 where there is no point. [Press1992] sec. 3.1
interpolated_value polint(std::span<const double> x, std::span<const double> y, double at);

/// The derivative at `at` of the polynomial through the nodes around it: of order 3, or two less than the number of
/// points where that is smaller. The interval that holds `at` stands in the middle of the nodes, as far as there are
/// nodes on both sides. `x` ascends and has at least four points. Throws runtime_failure 11 where two nodes are equal.
/// [AbramowitzStegun1972] sec. 25.3
double lagrange_derivative(std::span<const double> x, std::span<const double> y, double at);

/// The value at `at` on the straight line between the nearest points on both sides; on a point, its y. The points may
/// stand in any order; `at` lies within their range. [AbramowitzStegun1972] sec. 25.2
double linear_interpolation(std::span<const double> x, std::span<const double> y, double at);

} // namespace kelvarin
