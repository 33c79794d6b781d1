// SPDX-License-Identifier: MIT
#include "parsed_right_sides.h"
#include "values.h"

#include <gsl/gsl_errno.h>
#include <gsl/gsl_odeiv2.h>

namespace kelvarin::bench
{

namespace
{

constexpr double first_step = 1e-6;

int right_sides(double x, const double* y, double* dydx, void* parameters)
{
    auto& sides = *static_cast<parsed_right_sides*>(parameters);
    const std::size_t n = sides.size();
    sides.evaluate(x, {y, n}, {dydx, n});
    return GSL_SUCCESS;
}

integration integrated(const initial_values& problem, const gsl_odeiv2_step_type* method, double relative,
                       double absolute)
{
    gsl_set_error_handler_off();
    integration made;
    made.values = std::make_shared<std::vector<double>>();
    made.evaluations = std::make_shared<std::int64_t>(0);
    made.run = [=, sides = std::make_shared<parsed_right_sides>(problem), start = problem.start, x2 = problem.x2,
                values = made.values, evaluations = made.evaluations] {
        sides->evaluations = 0;
        *values = start;
        gsl_odeiv2_system system = {right_sides, nullptr, start.size(), sides.get()};
        gsl_odeiv2_driver* driver = gsl_odeiv2_driver_alloc_y_new(&system, method, first_step, absolute, relative);
        double x = 0.0;
        const int status = gsl_odeiv2_driver_apply(driver, &x, x2, values->data());
        gsl_odeiv2_driver_free(driver);
        *evaluations = sides->evaluations;
        require(status == GSL_SUCCESS, "GSL gave up");
    };
    return made;
}

} // namespace

yardstick parsed_derivatives(const initial_values& problem, double x)
{
    yardstick made;
    made.values = std::make_shared<std::vector<double>>(problem.start.size());
    made.run = [sides = std::make_shared<parsed_right_sides>(problem), start = problem.start, x, values = made.values] {
        sides->evaluate(x, start, *values);
    };
    return made;
}

integration parsed_rkf45(const initial_values& problem, double relative, double absolute)
{
    return integrated(problem, gsl_odeiv2_step_rkf45, relative, absolute);
}

integration parsed_reference(const initial_values& problem)
{
    return integrated(problem, gsl_odeiv2_step_rk8pd, 1e-13, 1e-14);
}

} // namespace kelvarin::bench
