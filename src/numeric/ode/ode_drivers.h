// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/ode/ode_observer.h"
#include "numeric/ode/ode_system.h"
#include "numeric/ode/output_grid.h"

#include <span>

namespace kelvarin
{

struct odeint_options
{
    /// Accuracy of a step, in each variable in units of its scale.
    double eps = 1e-5;
    /// First step, and the shortest that the driver asks for; its steppers may go below.
    double h1 = 1e-4;
    double hmin = 1e-8;
};

/// Most steps of one integration.
inline constexpr int most_odeint_steps = 10'000;

/// Integrates over the range with bsstep, stiff or stifbs. `y` is the start and becomes the state at the end;
/// after an exception it may be any. At a stored point the derivatives were last called at the point itself,
/// at the last of a range where the stepper called them last. A step that falls to hmin ends odeint_bs, while
/// the others go on with hmin and an eps of 1000 times, if it is below 1e-5. Throws runtime_failure: 8888 when
/// the observer wishes to stop, for an eps of 0, where the stepper gives up and after most_odeint_steps steps;
/// 6 for a state that is not finite. [Press1992] sec. 16.2
ode_summary odeint_bs(ode_system& system, std::span<double> y, const ode_range& range, const odeint_options& options,
                      ode_observer& observer);
ode_summary odeint_st(ode_system& system, std::span<double> y, const ode_range& range, const odeint_options& options,
                      ode_observer& observer);
ode_summary odeint_bsst(ode_system& system, std::span<double> y, const ode_range& range, const odeint_options& options,
                        ode_observer& observer);

} // namespace kelvarin
