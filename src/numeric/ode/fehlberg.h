// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/ode/ode_observer.h"
#include "numeric/ode/ode_system.h"
#include "numeric/ode/output_grid.h"

#include <span>

namespace kelvarin
{

struct fehlberg_options
{
    /// First step; the range where that is shorter. Its sign does not matter.
    double h = 1e-6;
    /// Truncation error tolerance: a step is taken when the estimated error of each variable, relative to the
    /// larger of the variable and the tolerance itself, is at most this.
    double tol = 1e-6;
};

/// Integrates over the range with the embedded Runge-Kutta methods of orders 4 and 5, or 5 and 6. `y` is the
/// start and becomes the state at the end; after an exception it may be any. At a stored point that is not the
/// first the derivatives were last called at the last stage of the step that led there (RKF45: in its middle;
/// RKF56: at its end, with the stage's own y), at one appended at the end at the point itself. A step below
/// 1e-10 ends the integration behind 95 % of the range and relaxes the tolerance before. Throws
/// runtime_failure: 8888 when the observer wishes to stop, for h or tol of 0 and where no step advances any
/// more, 6 for a state that is not finite. [Fehlberg1970]
ode_summary integrate_rkf45(ode_system& system, std::span<double> y, const ode_range& range,
                            const fehlberg_options& options, ode_observer& observer);
/// [Fehlberg1968]
ode_summary integrate_rkf56(ode_system& system, std::span<double> y, const ode_range& range,
                            const fehlberg_options& options, ode_observer& observer);

} // namespace kelvarin
