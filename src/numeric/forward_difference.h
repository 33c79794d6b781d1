// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"
#include "numeric/nonlinear/nonlinear_system.h"

#include <span>

namespace kelvarin
{

/// f = F(x); runtime_failure 6 unless all of it is finite.
void evaluate_finite(nonlinear_system& system, std::span<const double> x, std::span<double> f);

/// Jacobian by forward differences, f = F(x) given, with the step relative * |x(j)|, or `relative` itself
/// where that is 0. The divisor is the step as represented, (x(j) + step) - x(j). runtime_failure 6 when an
/// element is not finite.
void relative_differences(nonlinear_system& system, std::span<const double> x, std::span<const double> f,
                          double relative, matrix& df);

/// The moved unknowns and the steps as represented, relative to the size of the unknowns as above. runtime_failure 6
/// when a moved unknown is not finite.
void make_relative_steps(std::span<const double> x, double relative, std::span<double> moved,
                         std::span<double> divisors);

} // namespace kelvarin
