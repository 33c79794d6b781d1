// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/fit/fitted_model.h"
#include "numeric/nonlinear/nonlinear_system.h"

#include <span>

namespace kelvarin
{

struct scaled_marquardt_options
{
    /// Values below 40 count as 40.
    int maxiter = 64;
    /// Told of each iteration before it is made; what it throws ends the fit.
    iteration_hook on_iteration = {};
};

/// The least-squares fit of `model` to `y` from the guess on, by the method of Levenberg and Marquardt with central
/// differences of a hundredth of each parameter (0.01 where it is 0), the normal matrix scaled to a diagonal of ones
/// and taken apart by its eigenvalues. No parameter leaves the range a - 1 - 100 |a| to a + 1 + 100 |a| around its
/// guess. It ends where no parameter and not the sum of squares changes by more than 1e-5 of itself, where no step
/// helps, and at the limit of iterations. Throws what the model throws; runtime_failure 8888 "L-M: Singular Matrix"
/// where a parameter has no influence; 6 where a value is not finite; 5 where there are fewer observations than
/// parameters. [Marquardt1963]
nonlinear_fit fit_scaled_marquardt(const fit_model& model, std::span<const double> y, std::span<const double> guess,
                                   const scaled_marquardt_options& options = {});

} // namespace kelvarin
