// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/fit/fitted_model.h"
#include "numeric/nonlinear/nonlinear_system.h"

#include <span>

namespace kelvarin
{

struct mrqmin_options
{
    int maxiter = 64;
    double tol = 1e-4;
    /// Told of each iteration before it is made; what it throws ends the fit.
    iteration_hook on_iteration = {};
};

/// The least-squares fit of `model` to `y` from the guess on, by the method of Levenberg and Marquardt with forward
/// differences of the absolute step 1e-6. It ends where the sum of squares falls below 1e-20, where R2 is within `tol`
/// of 1, where a step changes little while R2 is above 0.98, or the sum of squares is small beside its first value, and
/// at the limit of iterations. Throws what the model throws; runtime_failure 8888 "GAUSSJ: Singular Matrix-2" where a
/// parameter has no influence of its own; 6 where a value is not finite; 5 where there are fewer observations than
/// parameters. [Press1992] sec. 15.5
nonlinear_fit fit_mrqmin(const fit_model& model, std::span<const double> y, std::span<const double> guess,
                         const mrqmin_options& options = {});

} // namespace kelvarin
