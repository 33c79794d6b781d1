// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"
#include "numeric/linear/sparsity.h"

#include <span>
#include <vector>

namespace kelvarin
{

/// Derivatives of the right sides with respect to x and y by forward differences, with what is needed to make
/// them: the memory of a stepper that makes one after the other.
struct ode_jacobian
{
    explicit ode_jacobian(int size);

    std::vector<double> dfdx;
    /// Element (i, j): of right side i with respect to y(j).
    matrix dfdy;
    /// Outside of these places of dfdx and dfdy side by side, row by row, all is 0 and may stay so; null if nobody
    /// knows.
    const sparsity_pattern* pattern = nullptr;

    /// The right sides at the point itself.
    std::vector<double> f;
    /// x and y(j) with their increments added, and the increments.
    double moved_x = 0.0;
    double increment_x = 0.0;
    std::vector<double> moved;
    std::vector<double> increments;
    /// Memory for the plain loop over the columns.
    std::vector<double> point;
    std::vector<double> f_moved;
};

/// A system y' = f(x, y) of n differential equations of first order, as the integrators see it.
class ode_system
{
public:
    virtual ~ode_system() = default;

    /// n
    virtual int size() const = 0;
    /// dydx = f(x, y); y and dydx of n elements. It may throw to end the integration.
    virtual void derivatives(double x, std::span<const double> y, std::span<double> dydx) = 0;

    /// Makes dfdx and dfdy from f, moved values and increments, which are given: for dfdx the derivatives are
    /// called at moved_x, for column j of dfdy with moved[j] in place of y(j). The plain loop, one call for
    /// each column; a system that knows which equation depends on which variable may do it at less cost as
    /// long as the bits stay.
    virtual void differences(double x, std::span<const double> y, ode_jacobian& jacobian);
};

/// f = f(x, y), then dfdx and dfdy. The increment is 1e-07 of the value, with its sign, and at least 1e-10, so
/// 1e-10 for all negative values; it is also the divisor, though the moved value is rounded. n + 2 calls of
/// the derivatives.
void evaluate_jacobian(ode_system& system, double x, std::span<const double> y, ode_jacobian& jacobian);

} // namespace kelvarin
