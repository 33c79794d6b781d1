// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"
#include "numeric/nonlinear/nonlinear_system.h"

#include <span>
#include <vector>

namespace kelvarin
{

/// f = F(x); runtime_failure 6 unless all of it is finite.
void evaluate_finite(nonlinear_system& system, std::span<const double> x, std::span<double> f);

/// Jacobian by forward differences, f = F(x) given, with the step relative * |x(j)|, or `relative` itself
/// where that is 0. The divisor is the step as represented, (x(j) + step) - x(j). runtime_failure 6 when an
/// element is not finite.
void relative_differences(nonlinear_system& system, std::span<const double> x, std::span<const double> f,
                          double relative, matrix& df);

/// A Jacobian that a method forms again in each iteration, with the memory it takes.
struct jacobian_workspace
{
    explicit jacobian_workspace(int size);

    matrix elements;
    /// Elements outside of it are zero; null if any element may differ from zero.
    const sparsity_pattern* pattern = nullptr;
    std::vector<double> moved;
    std::vector<double> divisors;
};

/// As fdjac and usrfun into a matrix. Between two calls nobody else writes the elements.
void fdjac(nonlinear_system& system, std::span<const double> x, std::span<const double> fvec, jacobian_workspace& kept);
void usrfun(nonlinear_system& system, std::span<const double> x, std::span<double> fvec, jacobian_workspace& kept);

} // namespace kelvarin
