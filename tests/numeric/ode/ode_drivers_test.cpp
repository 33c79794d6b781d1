// SPDX-License-Identifier: MIT
#include "ode_runs.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelvarin::test
{

// Every step passes a multiple of the spacing that is counted from 0, the start itself as well.
TEST(OdeDrivers, StoreTheStartTwiceFarAboveZero)
{
    for (const ode_method& method : drivers) {
        const ode_run made = run(method, growth, {1.0}, {100.0, 101.0, 0.01}, {.h = 0.001});
        EXPECT_EQ(made.points[0].x, 100.0);
        EXPECT_EQ(made.points[1].x, 100.0);
        EXPECT_EQ(made.points.size(), static_cast<std::size_t>(made.summary.steps) + 2);
        EXPECT_EQ(made.points.back().x, 101.0);
    }
}

TEST(OdeDrivers, CallTheDerivativesLastAtTheStoredPointButForTheEnd)
{
    for (const ode_method& method : drivers) {
        const ode_run made = run(method, growth, {1.0}, {0.0, 1.0, 0.01});
        for (std::size_t i = 0; i + 1 < made.points.size(); ++i) {
            EXPECT_EQ(made.points[i].called_x, made.points[i].x);
            EXPECT_EQ(made.points[i].called_y, made.points[i].y);
        }
        EXPECT_NE(made.points.back().called_y, made.points.back().y);
    }
    const ode_run by_stiff = run(by_st, growth, {1.0}, {0.0, 1.0, 0.01}, {.h = 0.008, .tol = 0.1});
    EXPECT_NEAR(by_stiff.points.back().called_x, 1.0 - 0.4 * 0.008, 1e-12);
}

// With a spacing of 1.25 all steps are 1 long.
TEST(OdeDrivers, MakeTenThousandStepsAndStoreNoEndBehind1200Points)
{
    for (const ode_method& method : drivers) {
        const ode_run enough = run(method, nothing, {1.0}, {1e6, 1e6 + 1e4, 1.25}, {.h = 1.0});
        EXPECT_EQ(enough.summary.steps, 10'000);
        EXPECT_EQ(enough.summary.good, 10'000);
        EXPECT_EQ(enough.points.size(), 1200U);
        EXPECT_EQ(enough.points.back().x, 1e6 + 1198.0);
        EXPECT_EQ(enough.summary.x, 1e6 + 1e4);
        EXPECT_EQ(run(method, nothing, {1.0}, {0.0, 1e4 + 1.0, 1.25}, {.h = 1.0}).failure,
                  "8888 " + method.name + ": Too many steps in routine odeint");
    }
    EXPECT_EQ(run(by_bs, nothing, {1.0}, {1e6, 1e6 + 1198.0, 1.25}, {.h = 1.0}).points.back().x, 1e6 + 1198.0);
}

TEST(OdeDrivers, EndAtTheShortestStepOrRelaxTheTolerance)
{
    EXPECT_EQ(run(by_bs, jump, {0.0}, {0.0, 1.0, 0.01}, {.tol = 1e-9, .hmin = 1e-5}).failure,
              "8888 ODEINT_BS: Step size too small in odeint");
    const auto fast = [](double x, state /*y*/, slopes dydx) { dydx[0] = 50.0 * std::cos(50.0 * x); };
    for (const ode_method& method : {by_st, by_bsst}) {
        const ode_run made = run(method, fast, {0.0}, {0.0, 1.0, 0.1}, {.h = 1e-3, .tol = 1e-7, .hmin = 0.05});
        EXPECT_EQ(made.summary.relaxations, 1);
        EXPECT_DOUBLE_EQ(made.summary.tolerance, 1e-4);
        EXPECT_NEAR(made.y[0], std::sin(50.0), 1e-4);
        const ode_run loose = run(method, fast, {0.0}, {0.0, 1.0, 0.1}, {.h = 1e-3, .tol = 1e-5, .hmin = 0.05});
        EXPECT_EQ(loose.summary.relaxations, 0);
        EXPECT_EQ(loose.failure, "none");
    }
}

} // namespace kelvarin::test
