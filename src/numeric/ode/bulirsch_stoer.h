// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/ode/extrapolation.h"
#include "numeric/ode/watched_system.h"

#include <span>
#include <vector>

namespace kelvarin
{

/// The modified midpoint rule: one step of htot from y at xs, where the right sides are dydx, made in `nstep`
/// substeps. The error is a series in the square of the substep. [Press1992] sec. 16.3
class mmid
{
public:
    explicit mmid(watched_system& system);

    void operator()(std::span<const double> y, std::span<const double> dydx, double xs, double htot, int nstep,
                    std::span<double> yout);

private:
    watched_system& system_;
    std::vector<double> ym_;
    std::vector<double> yn_;
};

/// A Bulirsch-Stoer step: the modified midpoint rule, extrapolated. Fails with "BSSTEP: step size underflow in
/// bsstep" where x does not feel the step any more. [Press1992] sec. 16.4, [StoerBulirsch2002] sec. 7.2
class bsstep final : public extrapolation_stepper
{
public:
    explicit bsstep(watched_system& system);

private:
    void base_rule(double x, std::span<const double> y, std::span<const double> dydx, double htot, int substeps,
                   std::span<double> yout) override;

    mmid rule_;
};

} // namespace kelvarin
