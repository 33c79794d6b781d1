// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/fit/fitted_model.h"
#include "numeric/linear/matrix.h"
#include "numeric/nonlinear/nonlinear_system.h"

#include <span>
#include <vector>

namespace kelvarin
{

struct refine_options
{
    int maxiter = 1000;
    /// Told of each iteration before it is made; what it throws ends the fit.
    iteration_hook on_iteration = {};
};

/// A fit carried on to the digits that its arithmetic gives.
struct refined_fit
{
    std::vector<double> a;
    std::vector<double> calculated;
    double SSE = 0.0;
    /// The derivatives of the calculated values by each parameter, as rows.
    matrix gradient;
    int iterations = 0;
    /// The steps became as small as the arithmetic lets them be.
    bool converged = false;
};

/// The least-squares fit of `model` to `y` from the point `start` on: the method of Levenberg and Marquardt on the
/// derivatives themselves by QR, scaled by the lengths of their columns, with damping by the ratio of gained to
/// predicted reduction and central differences of fourth order. A trial that can't be evaluated counts as one that does
/// not help. Ends by steps without damping for as long as they shrink. Throws what the model throws at the start.
/// [More1978], [Nielsen1999]
refined_fit refine_fit(const fit_model& model, std::span<const double> y, std::span<const double> start,
                       const refine_options& options = {});

/// The derivatives of the model's n values by each parameter at `a`, as rows, by central differences of fourth order.
matrix model_gradient(const fit_model& model, std::span<const double> a, std::size_t n);

} // namespace kelvarin
