// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/nonlinear/nonlinear_system.h"
#include "numeric/nonlinear/sign_constraint.h"

#include <functional>
#include <span>

namespace kelvarin
{

/// How the constrained solver ended.
enum class cnle_code
{
    converged = 0,
    bad_input = 1,
    start_violates_constraint = 2,
    iteration_limit = 3,
    minimal_dtheta = 4,
    no_progress = 5
};

struct cnle_options
{
    double tol = 1e-7;
    int maxiter = 150;
    /// Asked in every pass: the values are no longer worth iterating on (an evaluation has failed).
    std::function<bool()> give_up = {};
    iteration_hook on_iteration = {};
};

struct cnle_result
{
    cnle_code code = cnle_code::bad_input;
    int iterations = 0;
    /// give_up was true: x and fvec mean nothing.
    bool gave_up = false;
};

/// Solves F(x) = 0 by a homotopy F(x) - theta F(x0) = 0, theta falling from 1 to 0 in stages of damped
/// Newton steps that keep constrained unknowns from crossing zero. `fvec` holds the residuals at the end;
/// zeros where the code is bad_input or start_violates_constraint. `constraints` has n elements.
cnle_result solve_cnle(nonlinear_system& system, std::span<double> x, std::span<const sign_constraint> constraints,
                       std::span<double> fvec, const cnle_options& options);

} // namespace kelvarin
