// SPDX-License-Identifier: MIT
#include "numeric/ode/bader_deuflhard.h"
#include "numeric/ode/bulirsch_stoer.h"
#include "ode_runs.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>

namespace kelvarin::test
{

namespace
{

/// y' = -2 x y^2 from 1 at 0: y = 1/(1 + x^2). Not linear, and x occurs.
void witch(double x, state y, slopes f)
{
    f[0] = -2.0 * x * y[0] * y[0];
}

double exact_witch(double x)
{
    return 1.0 / (1.0 + x * x);
}

/// The errors fall like this power of the step, which is halved.
double measured_order(const std::function<double(double)>& error_with_step, double step)
{
    return std::log2(error_with_step(step) / error_with_step(step / 2.0));
}

} // namespace

TEST(Order, OfTheWholeMethodsIsThatOfTheirTableaus)
{
    const auto order = [](const ode_method& method, double step, double tolerance) {
        const auto error_at_1 = [&](double h) {
            const ode_run made = run(method, witch, {1.0}, {0.0, 1.0, h / 0.8}, {.h = h, .tol = tolerance});
            EXPECT_EQ(made.summary.bad, 0);
            return std::fabs(made.y[0] - exact_witch(1.0));
        };
        return measured_order(error_at_1, step);
    };
    EXPECT_NEAR(order(rkf45, 1.0 / 32.0, 10.0), 5.0, 0.2);
    EXPECT_NEAR(order(rkf56, 1.0 / 32.0, 10.0), 6.0, 0.3);
    EXPECT_NEAR(order(by_st, 1.0 / 64.0, 1e6), 4.0, 0.2);
}

namespace
{

/// The error of one step from 0.5, made with the first `columns` numbers of substeps and extrapolated.
template <class Rule> double extrapolated_error(Rule rule, int columns, double htot)
{
    constexpr std::array substeps = {2, 6, 10, 14};
    pzextr extrapolate(columns, 1);
    std::array<double, 1> estimate = {};
    std::array<double, 1> y = {};
    std::array<double, 1> dy = {};
    for (int k = 0; k < columns; ++k) {
        const int n = substeps[static_cast<std::size_t>(k)];
        rule(htot, n, estimate);
        extrapolate(k, (htot / n) * (htot / n), estimate, y, dy);
    }
    return std::fabs(y[0] - exact_witch(0.5 + htot));
}

} // namespace

// The error of a single step is one order higher than that of the method. Each column brings two orders more;
// the semi-implicit rule, whose last substep is smoothed, is one short of the explicit one.
TEST(Order, OfExtrapolationRisesByTwoWithEachColumn)
{
    recorded_system system(1, witch);
    const ode_recorder recorder(system);
    ode_summary summary;
    watched_system watched(system, recorder, summary);
    mmid midpoint(watched);
    simpr semi_implicit(watched);
    const std::array<double, 1> y = {exact_witch(0.5)};
    std::array<double, 1> dydx = {};
    witch(0.5, y, dydx);
    ode_jacobian jacobian(1);
    jacobian.dfdx[0] = -2.0 * y[0] * y[0];
    jacobian.dfdy(0, 0) = -4.0 * 0.5 * y[0];
    for (int columns = 1; columns <= 3; ++columns) {
        SCOPED_TRACE(columns);
        const auto explicit_error = [&](double htot) {
            return extrapolated_error(
                [&](double h, int n, std::span<double> yout) { midpoint(y, dydx, 0.5, h, n, yout); }, columns, htot);
        };
        const auto implicit_error = [&](double htot) {
            return extrapolated_error(
                [&](double h, int n, std::span<double> yout) { semi_implicit(y, dydx, jacobian, 0.5, h, n, yout); },
                columns, htot);
        };
        EXPECT_NEAR(measured_order(explicit_error, 0.2), 2.0 * columns + 1.0, 0.4);
        EXPECT_NEAR(measured_order(implicit_error, 0.025), 2.0 * columns, 0.45);
    }
}

TEST(Order, OfPolynomialExtrapolationIsExactForPolynomials)
{
    pzextr extrapolate(3, 2);
    std::array<double, 2> y = {};
    std::array<double, 2> dy = {};
    const std::array<double, 3> xs = {4.0, 1.0, 0.25};
    for (int k = 0; k < 3; ++k) {
        const double x = xs[static_cast<std::size_t>(k)];
        extrapolate(k, x, std::array{1.0 + 2.0 * x + 3.0 * x * x, 5.0 - x}, y, dy);
    }
    EXPECT_NEAR(y[0], 1.0, 1e-13);
    EXPECT_NEAR(y[1], 5.0, 1e-13);
    EXPECT_NEAR(dy[1], 0.0, 1e-13);
}

} // namespace kelvarin::test
