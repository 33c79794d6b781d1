// SPDX-License-Identifier: MIT
#include "numeric/ode/bader_deuflhard.h"

#include "numeric/work_array.h"

#include <array>
#include <cstddef>

namespace kelvarin
{

namespace
{

constexpr std::array substep_numbers = {2, 6, 10, 14, 22, 34, 50, 70};

} // namespace

simpr::simpr(watched_system& system)
    : system_(system), lu_(system.size()), del_(work_array(system.size())), ytemp_(work_array(system.size()))
{
}

/// I - h dfdy
void simpr::decompose(const matrix& dfdy, double h)
{
    for (std::size_t k = 0; k < dfdy.values().size(); ++k)
        lu_.a.values()[k] = -h * dfdy.values()[k];
    for (int i = 0; i < dfdy.rows(); ++i)
        lu_.a(i, i) += 1.0;
    ludcmp(lu_);
}

void simpr::operator()(std::span<const double> y, std::span<const double> dydx, const ode_jacobian& jacobian, double xs,
                       double htot, int nstep, std::span<double> yout)
{
    const std::size_t n = y.size();
    const double h = htot / nstep;
    decompose(jacobian.dfdy, h);
    for (std::size_t i = 0; i < n; ++i)
        yout[i] = h * (dydx[i] + h * jacobian.dfdx[i]);
    lubksb(lu_, yout);
    for (std::size_t i = 0; i < n; ++i) {
        del_[i] = yout[i];
        ytemp_[i] = y[i] + del_[i];
    }
    double x = xs + h;
    system_.derivatives(x, ytemp_, yout);
    for (int substep = 1; substep < nstep; ++substep) {
        for (std::size_t i = 0; i < n; ++i)
            yout[i] = h * yout[i] - del_[i];
        lubksb(lu_, yout);
        for (std::size_t i = 0; i < n; ++i) {
            del_[i] += 2.0 * yout[i];
            ytemp_[i] += del_[i];
        }
        x += h;
        system_.derivatives(x, ytemp_, yout);
    }
    for (std::size_t i = 0; i < n; ++i)
        yout[i] = h * yout[i] - del_[i];
    lubksb(lu_, yout);
    for (std::size_t i = 0; i < n; ++i)
        yout[i] += ytemp_[i];
}

stifbs::stifbs(watched_system& system)
    : extrapolation_stepper(system.size(), substep_numbers, system.size(), "STIFBS: step size underflow in stifbs"),
      system_(system), jacobian_(system.size()), rule_(system)
{
}

void stifbs::start_step(const ode_position& at)
{
    system_.jacobian(at.x, at.y, jacobian_);
}

void stifbs::base_rule(double x, std::span<const double> y, std::span<const double> dydx, double htot, int substeps,
                       std::span<double> yout)
{
    rule_(y, dydx, jacobian_, x, htot, substeps, yout);
}

} // namespace kelvarin
