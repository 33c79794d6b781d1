// SPDX-License-Identifier: MIT
#include "ode_runs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>

/// What all integrators have in common.
namespace kelvarin::test
{

TEST(Integration, CutsTheFirstStepToTheRange)
{
    for (const ode_method& method : all_methods) {
        SCOPED_TRACE(method.name);
        const ode_run made = run(method, growth, {1.0}, {0.0, 1e-3, 1e-3}, {.h = -0.1});
        EXPECT_EQ(made.summary.good, 1);
        EXPECT_EQ(made.points.back().x, 1e-3);
        EXPECT_EQ(made.summary.x, 1e-3);
        EXPECT_NEAR(made.y[0], std::exp(1e-3), 1e-12);
    }
}

TEST(Integration, StoresNothingBelowTwoSpacingsButTheEnds)
{
    for (const ode_method& method : all_methods) {
        const ode_run made = run(method, growth, {1.0}, {-1.0, 0.0, 0.01});
        ASSERT_EQ(made.points.size(), 2U) << method.name;
        EXPECT_EQ(made.points[1].x, 0.0);
        EXPECT_GT(run(method, growth, {1.0}, {0.0, 1.0, 0.01}).points[1].x, 0.02);
    }
}

TEST(Integration, CountsStepsAndEvaluations)
{
    for (const ode_method& method : all_methods) {
        SCOPED_TRACE(method.name);
        const ode_run made = run(method, jump, {1.0}, {0.0, 1.0, 0.1}, {.h = 0.1, .tol = 1e-4});
        const ode_summary& summary = made.summary;
        ASSERT_EQ(made.failure, "none");
        EXPECT_NEAR(made.y[0], 1.67, 1e-2);
        EXPECT_EQ(summary.evaluations, made.calls);
        EXPECT_EQ(summary.points, static_cast<int>(made.points.size()));
        EXPECT_TRUE(summary.end_reached);
        EXPECT_LT(summary.smallest_step, 0.08);
        EXPECT_LE(summary.largest_step, 0.1);
        const bool fehlberg = method.name.starts_with("RKF");
        EXPECT_GT(summary.bad, method.name == "RKF56" ? -1 : 0);
        EXPECT_EQ(summary.steps, summary.good + summary.bad + (fehlberg ? 1 : 0));
        EXPECT_EQ(static_cast<std::int64_t>(made.steps.size()), summary.good + summary.bad);
        if (fehlberg) {
            EXPECT_EQ(summary.evaluations, 2 + (method.name == "RKF45" ? 6 : 8) * (summary.good + summary.bad));
        }
    }
}

TEST(Integration, GivesTheSameTwice)
{
    for (const ode_method& method : all_methods) {
        const ode_run first = run(method, growth, {1.0}, {0.0, 3.0, 0.03});
        run(method, jump, {1.0}, {0.0, 1.0, 0.1});
        const ode_run second = run(method, growth, {1.0}, {0.0, 3.0, 0.03});
        EXPECT_EQ(first.y, second.y) << method.name;
        EXPECT_EQ(first.calls, second.calls) << method.name;
    }
}

TEST(Integration, StopsInTheMidstOfAStep)
{
    for (const ode_method& method : all_methods)
        for (const int calls : {1, 2, 9, 10}) {
            const ode_run made = run(method, growth, {1.0}, {0.0, 1.0, 0.01}, {.stop_at = calls});
            EXPECT_EQ(made.failure, "8888 Calculations aborted.");
            // A Jacobian is made as a whole.
            EXPECT_LT(made.calls, calls + 3) << method.name;
        }
}

TEST(Integration, FailsAtOnceWhereAStateIsNotFinite)
{
    const auto cliff = [](double x, state /*y*/, slopes dydx) { dydx[0] = x > 0.5 ? INFINITY : 1.0; };
    for (const ode_method& method : all_methods) {
        EXPECT_EQ(run(method, cliff, {0.0}, {0.0, 1.0, 0.01}).failure, "6") << method.name;
        EXPECT_EQ(run(method, growth, {NAN}, {0.0, 1.0, 0.01}).failure, "6") << method.name;
        EXPECT_EQ(run(method, growth, {1.0}, {0.0, NAN, 0.01}).failure, "6") << method.name;
    }
    EXPECT_EQ(run(rkf45, growth, {1e300}, {0.0, 100.0, 1.0}).failure, "6");
}

TEST(Integration, RefusesWhatWouldNotEnd)
{
    for (const ode_method& method : all_methods) {
        const auto failure = [&](double x2, double spacing, const ode_settings& set) {
            return run(method, growth, {1.0}, {0.0, x2, spacing}, set).failure;
        };
        const std::string name = "8888 " + method.name + ": The ";
        const bool fehlberg = method.name.starts_with("RKF");
        EXPECT_EQ(failure(0.0, 0.1, {}), name + "final value must be greater than the initial value.");
        EXPECT_EQ(failure(1.0, 0.0, {}), name + "spacing of the points must be greater than 0.");
        EXPECT_EQ(failure(1.0, 0.1, {.tol = 0.0}),
                  name + (fehlberg ? "truncation error tolerance" : "accuracy eps") + " must be greater than 0.");
        if (fehlberg) {
            EXPECT_EQ(failure(1.0, 0.1, {.h = 0.0}), name + "initial step size must be greater than 0.");
        }
    }
    const ode_range range = {0.0, 1.0, 0.1};
    EXPECT_EQ(run(by_bs, growth, {1.0}, range, {.h = 0.0}).failure, "8888 BSSTEP: step size underflow in bsstep");
    EXPECT_EQ(run(by_st, growth, {1.0}, range, {.h = 0.0}).failure, "8888 STIFF: stepsize not significant in stiff");
    EXPECT_EQ(run(by_bsst, growth, {1.0}, range, {.h = 0.0}).failure, "8888 STIFBS: step size underflow in stifbs");
    // Back and forth over a jump the steps shrink to nothing.
    const auto chatter = [](double /*x*/, state y, slopes dydx) { dydx[0] = y[0] > 0.0 ? -1e20 : 1e20; };
    EXPECT_EQ(run(rkf45, chatter, {1.0}, {1.0, 2.0, 0.05}, {.h = 1e-6}).failure,
              "8888 RKF45: The steps do not advance the independent variable any more.");
}

} // namespace kelvarin::test
