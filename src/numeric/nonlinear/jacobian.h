// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"
#include "numeric/linear/sparsity.h"
#include "numeric/nonlinear/nonlinear_system.h"

#include <span>
#include <vector>

namespace kelvarin
{

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
