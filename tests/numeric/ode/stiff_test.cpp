// SPDX-License-Identifier: MIT
#include "numeric/ode/rosenbrock.h"
#include "ode_runs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace kelvarin::test
{

namespace
{

struct single_step
{
    double hdid = 0.0;
    double hnext = 0.0;
    std::vector<double> y;
    int calls = 0;
    std::string failure;
};

/// One step of length 1 from x with an eps of 1e-5.
single_step step(right_sides derivatives, double x, std::vector<double> y, const std::vector<double>& yscal,
                 double htry = 1.0)
{
    recorded_system system(y.size(), std::move(derivatives));
    const ode_recorder recorder(system);
    ode_summary summary;
    watched_system watched(system, recorder, summary);
    stiff stepper(watched);
    std::vector<double> dydx(y.size());
    system.derivatives(x, y, dydx);
    system.calls = 0;
    ode_position at = {x, y, dydx};
    ode_step made;
    single_step result;
    result.failure = failure_of([&] { stepper.advance(at, htry, 1e-5, yscal, made); });
    result.hdid = made.hdid;
    result.hnext = made.hnext;
    result.y = y;
    result.calls = system.calls;
    return result;
}

void two_decays(double /*x*/, state y, slopes dydx)
{
    dydx[0] = -y[0];
    dydx[1] = -y[1];
}

} // namespace

// The error of a decay has the sign of -y or of y: found out first. What reaches its scale from above replaces
// the larger errors before it.
TEST(StiffStepper, ForgetsLargerErrorsBehindAVariableWhoseSignedErrorReachesItsScale)
{
    const bool positive = step(two_decays, 0.0, {0.0, 1e-8}, {1.0, 1e-12}).hdid == 1.0;
    const double plus = positive ? 1.0 : -1.0;
    // The first variable asks for a shorter step, the second for nothing.
    EXPECT_LT(step(two_decays, 0.0, {-plus, 0.0}, {0.01, 1e-12}).hdid, 1.0);
    EXPECT_EQ(step(two_decays, 0.0, {-plus, 1e-8 * plus}, {0.01, 1e-12}).hdid, 1.0);
    // With the other sign it is measured in units of its scale, as it is where it comes first.
    EXPECT_LT(step(two_decays, 0.0, {-plus, -1e-8 * plus}, {0.01, 1e-12}).hdid, 1.0);
    EXPECT_LT(step(two_decays, 0.0, {1e-8 * plus, -plus}, {1e-12, 0.01}).hdid, 1.0);
}

TEST(StiffStepper, GrowsByOneAndAHalfAtMost)
{
    const single_step made = step(two_decays, 0.0, {1.0, 1.0}, {0.01, 0.01}, 1e-3);
    EXPECT_EQ(made.hdid, 1e-3);
    EXPECT_EQ(made.hnext, 1.5 * 1e-3);
    EXPECT_NEAR(made.y[0], std::exp(-1e-3), 1e-14);
    EXPECT_EQ(made.calls, (2 + 2) + 2);
}

// Right sides that double with each try, after the start and the Jacobian, have no error that a shorter step
// would lessen.
TEST(StiffStepper, GivesUpAfter420Tries)
{
    int calls = 0;
    const auto doubling = [&](double /*x*/, state /*y*/, slopes dydx) {
        dydx[0] = std::ldexp(1.0, std::max(calls++ - 2, 0) / 2);
    };
    const single_step at_zero = step(doubling, 0.0, {0.0}, {0.01});
    EXPECT_EQ(at_zero.failure, "8888 STIFF: exceeded MAXTRY in stiff");
    EXPECT_EQ(at_zero.calls, (1 + 2) + 420 * 2);
    calls = 0;
    EXPECT_EQ(step(doubling, 1.0, {0.0}, {0.01}).failure, "8888 STIFF: stepsize not significant in stiff");
}

TEST(OdeJacobian, TakesSignedIncrementsOfAtLeast1e10thPart)
{
    std::vector<double> xs;
    std::vector<double> ys;
    recorded_system system(1, [&](double x, state y, slopes dydx) {
        xs.push_back(x);
        ys.push_back(y[0]);
        dydx[0] = 3.0 * x * y[0];
    });
    ode_jacobian jacobian(1);
    evaluate_jacobian(system, 2.0, std::array{-5.0}, jacobian);
    EXPECT_EQ(xs, (std::vector<double>{2.0, 2.0 + 2.0e-7, 2.0}));
    EXPECT_EQ(ys, (std::vector<double>{-5.0, -5.0, -5.0 + 1e-10}));
    EXPECT_NEAR(jacobian.dfdx[0], -15.0, 1e-6);
    EXPECT_NEAR(jacobian.dfdy(0, 0), 6.0, 1e-3);
    // The divisor is the increment as planned, although -5e6 does not feel it.
    evaluate_jacobian(system, 2.0, std::array{-5e6}, jacobian);
    EXPECT_EQ(jacobian.dfdy(0, 0), 0.0);
}

} // namespace kelvarin::test
