// SPDX-License-Identifier: MIT
#include "numeric/ode/ode_system.h"

#include "numeric/work_array.h"

#include <algorithm>
#include <cassert>
#include <cstddef>

namespace kelvarin
{

namespace
{

constexpr double relative_increment = 1e-7;
constexpr double smallest_increment = 1e-10;

double increment_of(double value)
{
    return std::max(value * relative_increment, smallest_increment);
}

} // namespace

ode_jacobian::ode_jacobian(int size)
    : dfdx(work_array(size)), dfdy(work_matrix(size)), f(work_array(size)), moved(work_array(size)),
      increments(work_array(size)), point(work_array(size)), f_moved(work_array(size))
{
}

void ode_system::differences(double x, std::span<const double> y, ode_jacobian& jacobian)
{
    const std::size_t n = y.size();
    jacobian.pattern = nullptr;
    derivatives(jacobian.moved_x, y, jacobian.f_moved);
    for (std::size_t i = 0; i < n; ++i)
        jacobian.dfdx[i] = (jacobian.f_moved[i] - jacobian.f[i]) / jacobian.increment_x;
    std::ranges::copy(y, jacobian.point.begin());
    for (std::size_t j = 0; j < n; ++j) {
        jacobian.point[j] = jacobian.moved[j];
        derivatives(x, jacobian.point, jacobian.f_moved);
        jacobian.point[j] = y[j];
        for (std::size_t i = 0; i < n; ++i)
            jacobian.dfdy(static_cast<int>(i), static_cast<int>(j)) =
                (jacobian.f_moved[i] - jacobian.f[i]) / jacobian.increments[j];
    }
}

void evaluate_jacobian(ode_system& system, double x, std::span<const double> y, ode_jacobian& jacobian)
{
    assert(static_cast<int>(y.size()) == system.size());
    system.derivatives(x, y, jacobian.f);
    jacobian.increment_x = increment_of(x);
    jacobian.moved_x = x + jacobian.increment_x;
    for (std::size_t j = 0; j < y.size(); ++j) {
        jacobian.increments[j] = increment_of(y[j]);
        jacobian.moved[j] = y[j] + jacobian.increments[j];
    }
    system.differences(x, y, jacobian);
}

} // namespace kelvarin
