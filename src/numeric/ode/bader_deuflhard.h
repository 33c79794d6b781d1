// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/lu.h"
#include "numeric/ode/extrapolation.h"
#include "numeric/ode/watched_system.h"

#include <span>
#include <vector>

namespace kelvarin
{

/// The semi-implicit midpoint rule: one step of htot from y at xs, where the right sides are dydx and their
/// derivatives those of the Jacobian, made in `nstep` substeps with one LU decomposition. The error is a series
/// in the square of the substep. [BaderDeuflhard1983], [Press1992] eq. 16.6.31 to 16.6.34
class simpr
{
public:
    explicit simpr(watched_system& system);

    void operator()(std::span<const double> y, std::span<const double> dydx, const ode_jacobian& jacobian, double xs,
                    double htot, int nstep, std::span<double> yout);

private:
    void decompose(const matrix& dfdy, double h);

    watched_system& system_;
    lu_factors lu_;
    std::vector<double> del_;
    std::vector<double> ytemp_;
};

/// A step of Bader and Deuflhard for stiff systems: the semi-implicit midpoint rule, extrapolated. The Jacobian
/// is made once for each step. Fails with "STIFBS: step size underflow in stifbs" where x does not feel the
/// step any more. [BaderDeuflhard1983], [Press1992] sec. 16.6
class stifbs final : public extrapolation_stepper
{
public:
    explicit stifbs(watched_system& system);

private:
    void start_step(const ode_position& at) override;
    void base_rule(double x, std::span<const double> y, std::span<const double> dydx, double htot, int substeps,
                   std::span<double> yout) override;

    watched_system& system_;
    ode_jacobian jacobian_;
    simpr rule_;
};

} // namespace kelvarin
