// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/curve/pause_point.h"

#include <span>

namespace kelvarin
{

/// A value found between tabulated points, and how far it may be off.
struct interpolated_value
{
    double value = 0.0;
    /// The last correction of the scheme, with its sign.
    double error = 0.0;
};

/// The diagonal rational function through the points (x[i], y[i]), evaluated at `at`. On a node the result is that
/// node's y with an error of 0. Throws runtime_failure 8888 "Error in routine ratint" where the function has a pole
/// at `at`, 6 where a value on the way is not finite, 9 where there is no point. [Press1992] sec. 3.2, the recurrences
/// of [StoerBulirsch2002] sec. 2.2
interpolated_value ratint(std::span<const double> x, std::span<const double> y, double at,
                          const pause_point& pause = {});

} // namespace kelvarin
