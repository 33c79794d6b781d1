// SPDX-License-Identifier: MIT
#include "numeric/ode/bulirsch_stoer.h"

#include "numeric/work_array.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr std::array substep_numbers = {2, 4, 6, 8, 10, 12, 14, 16, 18};

} // namespace

mmid::mmid(watched_system& system) : system_(system), ym_(work_array(system.size())), yn_(work_array(system.size())) {}

void mmid::operator()(std::span<const double> y, std::span<const double> dydx, double xs, double htot, int nstep,
                      std::span<double> yout)
{
    const double h = htot / nstep;
    std::ranges::copy(y, ym_.begin());
    for (std::size_t i = 0; i < y.size(); ++i)
        yn_[i] = y[i] + h * dydx[i];
    double x = xs + h;
    system_.derivatives(x, yn_, yout);
    const double h2 = 2.0 * h;
    for (int substep = 1; substep < nstep; ++substep) {
        for (std::size_t i = 0; i < y.size(); ++i)
            ym_[i] += h2 * yout[i];
        std::swap(ym_, yn_);
        x += h;
        system_.derivatives(x, yn_, yout);
    }
    for (std::size_t i = 0; i < y.size(); ++i)
        yout[i] = 0.5 * (ym_[i] + yn_[i] + h * yout[i]);
}

bsstep::bsstep(watched_system& system)
    : extrapolation_stepper(system.size(), substep_numbers, 0, "BSSTEP: step size underflow in bsstep"), rule_(system)
{
}

void bsstep::base_rule(double x, std::span<const double> y, std::span<const double> dydx, double htot, int substeps,
                       std::span<double> yout)
{
    rule_(y, dydx, x, htot, substeps, yout);
}

} // namespace kelvarin
