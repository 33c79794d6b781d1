// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

namespace kelvarin
{

/// A point at which a minimizer evaluated the target, gradients apart.
struct target_point
{
    std::vector<double> x;
    double f = 0.0;
};

/// A difference of the gradient that could not be evaluated: at `point` with `offset` added to one variable.
struct failed_difference
{
    std::size_t variable = 0;
    double point = 0.0;
    double offset = 0.0;
};

} // namespace kelvarin
