// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <vector>

/// The natural cubic spline through points (x[i], y[i]) of which x ascends. [Press1992] sec. 3.3
namespace kelvarin
{

/// The spline's second derivatives at the nodes, 0 at both ends. At least two points. Throws runtime_failure 11 where
/// two nodes are equal, 6 where a value is not finite.
std::vector<double> spline(std::span<const double> x, std::span<const double> y);

/// The spline with second derivatives `y2` at `at`; outside of the nodes the cubic of the first or the last interval.
/// Throws runtime_failure 8888 "Bad xa input to routine splint" where that interval has no width.
double splint(std::span<const double> x, std::span<const double> y, std::span<const double> y2, double at);

/// The same as a call of spline and one of splint.
double spline_value(std::span<const double> x, std::span<const double> y, double at);

/// The derivative of the cubic that splint evaluates.
double spline_derivative(std::span<const double> x, std::span<const double> y, std::span<const double> y2, double at);

/// The integral of the spline from `a` to `b` within the nodes, interval by interval; its negative where b < a.
double spline_integral(std::span<const double> x, std::span<const double> y, std::span<const double> y2, double a,
                       double b);

} // namespace kelvarin
