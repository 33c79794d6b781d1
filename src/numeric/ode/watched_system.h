// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/arithmetic_check.h"
#include "numeric/ode/ode_observer.h"
#include "numeric/ode/ode_system.h"

#include <span>

namespace kelvarin
{

/// A system as the integrators call it: counts the calls, refuses what is not finite (runtime_failure 6) and
/// fails with calculations_aborted as soon as the observer wishes to stop, be it in the midst of a step.
class watched_system
{
public:
    watched_system(ode_system& system, const ode_observer& observer, ode_summary& summary)
        : system_(system), observer_(observer), summary_(summary)
    {
    }

    int size() const { return system_.size(); }
    ode_summary& summary() { return summary_; }

    void derivatives(double x, std::span<const double> y, std::span<double> dydx)
    {
        stop_if_wished();
        finite(x);
        require_finite(y);
        ++summary_.evaluations;
        system_.derivatives(x, y, dydx);
        require_finite(dydx);
    }

    void jacobian(double x, std::span<const double> y, ode_jacobian& jacobian)
    {
        stop_if_wished();
        summary_.evaluations += size() + 2;
        evaluate_jacobian(system_, x, y, jacobian);
        require_finite(jacobian.dfdx);
        require_finite(jacobian.dfdy.values());
    }

    void stop_if_wished() const
    {
        if (observer_.stop_wished()) nrerror(calculations_aborted);
    }

private:
    ode_system& system_;
    const ode_observer& observer_;
    ode_summary& summary_;
};

} // namespace kelvarin
