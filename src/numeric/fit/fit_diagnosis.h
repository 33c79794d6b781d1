// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"

#include <optional>
#include <span>
#include <vector>

namespace kelvarin
{

/// What the derivatives and residuals of a least-squares fit tell about it.
struct fit_diagnosis
{
    int degrees_of_freedom = 0;
    double SSE = 0.0;
    /// The root of SSE by degree of freedom, and all that follows from it; only with degrees of freedom.
    double deviation = 0.0;
    std::vector<double> standard_errors;
    /// p x p.
    matrix correlation;
    /// The influence of each observation on its own calculated value, 0 to 1.
    std::vector<double> leverage;
    /// Cook's distance: how far the fit moves without the observation.
    std::vector<double> pull;
    /// Of the derivatives, each parameter's scaled to length 1: greatest by least singular value.
    double condition = 0.0;
    /// The regression against the mean alone; needs more than one parameter.
    std::optional<double> F, F_probability;
    double AICc = 0.0, BIC = 0.0;
    /// Of the residuals' signs in row order, and the probability of so many or few.
    int runs = 0;
    double runs_probability = 1.0;
    /// Of skewness and kurtosis like these in normal residuals.
    double normality_probability = 1.0;
};

/// Judges a fit by the derivatives of the n calculated values by each parameter as rows (p x n). Returns nullopt where
/// they depend on each other, or without degrees of freedom. Tests: [DraperSmith1998] ch. 6 to 8; [JarqueBera1980].
std::optional<fit_diagnosis> diagnose_fit(const matrix& gradient, std::span<const double> y,
                                          std::span<const double> calculated);

} // namespace kelvarin
