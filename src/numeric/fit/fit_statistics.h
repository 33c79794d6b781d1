// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace kelvarin
{

/// How well a model with p parameters meets n observations.
struct fit_statistics
{
    /// The sum of squared residuals.
    double SSE = 0.0;
    double R2 = 0.0;
    /// 0 where n = p.
    double R2adj = 0.0;
    /// The root of SSE, divided by n (not by its root).
    double Rmsd = 0.0;
    /// SSE by degree of freedom; 1e99 where n = p, negative where n < p.
    double Variance = 0.0;
};

/// Measured values `y` and what the model gives for them. The total sum of squares is taken around the mean, also for
/// models without a constant term, so R2 can be negative. Throws runtime_failure 11 where that sum is exactly 0, 6
/// where a sum is not finite.
fit_statistics statistics_of_fit(std::span<const double> y, std::span<const double> calculated, int p);

/// The 95 % half-width of a parameter: sqrt(variance) sqrt(|diagonal|) t, with the parameter's diagonal element of the
/// inverse of the normal matrix. Throws runtime_failure 5 where the variance is negative: fewer observations than
/// parameters.
double half_width(double variance, double diagonal, int degrees_of_freedom);

} // namespace kelvarin
