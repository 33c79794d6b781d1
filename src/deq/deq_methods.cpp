// SPDX-License-Identifier: MIT
#include "deq/deq_methods.h"

#include "numeric/arithmetic_check.h"
#include "numeric/ode/fehlberg.h"
#include "numeric/ode/ode_drivers.h"

#include <string_view>

namespace kelvarin
{

double output_step_from(const settings& store, double x1, double x2)
{
    return quotient(finite(x2 - x1), store.whole_number("deq_Intermediate_data_points"));
}

ode_summary integrate_by(deq_method method, ode_system& system, std::span<double> y, const ode_range& range,
                         const settings& store, ode_observer& observer)
{
    const auto value = [&](std::string_view key) { return store.number(key); };
    const double length = range.x2 - range.x1;
    switch (method) {
    case deq_method::rkf45:
        return integrate_rkf45(system, y, range, {.h = value("RKF45_H"), .tol = value("RKF45_TETOL")}, observer);
    case deq_method::rkf56:
        return integrate_rkf56(system, y, range, {.h = value("RKF56_H"), .tol = value("RKF56_TETOL")}, observer);
    case deq_method::bs:
        return odeint_bs(system, y, range,
                         {.eps = value("bs_eps"), .h1 = length * value("bs_h1"), .hmin = length * value("bs_hmin")},
                         observer);
    case deq_method::stiff:
        return odeint_st(system, y, range,
                         {.eps = value("stiff_eps"), .h1 = value("stiff_h1"), .hmin = value("stiff_hmin")}, observer);
    case deq_method::stiffbs:
        break;
    }
    return odeint_bsst(system, y, range,
                       {.eps = value("stiffbs_eps"), .h1 = value("stiffbs_h1"), .hmin = value("stiffbs_hmin")},
                       observer);
}

} // namespace kelvarin
