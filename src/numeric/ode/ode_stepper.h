// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace kelvarin
{

/// Where an integration stands between two steps.
struct ode_position
{
    double x = 0.0;
    std::span<double> y;
    /// The right sides there.
    std::span<double> dydx;
};

struct ode_step
{
    /// The step that was made.
    double hdid = 0.0;
    /// The next one that the stepper proposes. It must come back in the next call to keep the stepper's plans;
    /// to take it over is up to the caller.
    double hnext = 0.0;
};

/// One step of an integration: moves x and y from where they are by htry, or by less where the error, in each
/// variable measured in units of yscal, would exceed eps. `dydx` is left as it was. `step` holds what the step
/// before gave. Throws runtime_failure.
class ode_stepper
{
public:
    virtual ~ode_stepper() = default;

    virtual void advance(ode_position& at, double htry, double eps, std::span<const double> yscal, ode_step& step) = 0;
};

} // namespace kelvarin
