// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/minimize/objective.h"
#include "numeric/nonlinear/nonlinear_system.h"

#include <span>

namespace kelvarin
{

struct dfpmin_options
{
    /// Ends where the gradient, scaled by x and by the value, is below it.
    double gtol = 1e-9;
    iteration_hook on_iteration = {};
};

struct dfpmin_summary
{
    int iterations = 0;
    /// The value as the line search left it; where that gave up, of its last trial and not of x.
    double fret = 0.0;
};

/// Minimizes by the method of Broyden, Fletcher, Goldfarb and Shanno with the gradient of ridders_gradient. `x` comes
/// in as the start and leaves as the last accepted point. A start whose gradient is 0 is the result. Throws
/// runtime_failure 8888 "too many iterations in dfpmin" after 200 iterations and "LNSRCH: Roundoff problem in lnsrch.",
/// 6 or 11 where its arithmetic overflows or divides by zero. [Press1992] sec. 10.7
dfpmin_summary dfpmin(objective& target, std::span<double> x, const dfpmin_options& options = {});

} // namespace kelvarin
