// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/fit/fit_statistics.h"

#include <functional>
#include <span>
#include <vector>

namespace kelvarin
{

/// A model with parameters: writes its value for each of the n observations. It throws where it can not be evaluated.
using fit_model = std::function<void(std::span<const double> parameters, std::span<double> values)>;

/// What a nonlinear fit found.
struct nonlinear_fit
{
    std::vector<double> a;
    /// The 95 % half-widths of the parameters.
    std::vector<double> conf;
    /// The model at each observation.
    std::vector<double> calculated;
    fit_statistics statistics;
    int iterations = 0;
    /// The iterations came to their limit.
    bool limit_reached = false;
    /// Of mrqmin alone: the sum of squares, and the damping before the last call, which sets it to 0.
    double chisq = 0.0;
    double alamda = 0.0;
};

} // namespace kelvarin
