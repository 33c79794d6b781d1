// SPDX-License-Identifier: MIT
#include "ode_runs.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelvarin::test
{

// Two steps grow from h up to 0.8 spacings, of which there are 125. From 0 the multiples of the spacing catch
// all but every fifth of them; far above it each step passes one.
TEST(Fehlberg, StoresMultiplesOfTheSpacingCountedFromZero)
{
    EXPECT_EQ(run(rkf45, nothing, {0.0}, {0.0, 1.0, 0.01}, {.h = 1e-6}).points.size(), 100U);
    const ode_run far = run(rkf45, nothing, {0.0}, {100.0, 101.0, 0.01}, {.h = 1e-6});
    EXPECT_EQ(far.summary.good, 127);
    EXPECT_EQ(far.points.size(), 128U);
    EXPECT_EQ(far.summary.largest_step, 0.8 * 0.01);
}

TEST(Fehlberg, AppendsTheEndBehind1200Points)
{
    const ode_run made = run(rkf45, nothing, {0.0}, {1e6, 1e6 + 2000.0, 1.25}, {.h = 1.0});
    ASSERT_EQ(made.points.size(), 1201U);
    EXPECT_EQ(made.points[1199].x, 1e6 + 1199.0);
    EXPECT_EQ(made.points[1200].x, 1e6 + 2000.0);
}

// What else is stored with a point comes from the last call of the derivatives: for RKF45 in the middle of
// the step, for RKF56 at its end, but with the last stage's state.
TEST(Fehlberg, CallsTheDerivativesLastAtTheLastStage)
{
    for (const ode_method& method : {rkf45, rkf56}) {
        const ode_run made = run(method, growth, {1.0}, {0.0, 1.0, 0.05}, {.tol = 0.01});
        const recorded_point& inner = made.points[10];
        EXPECT_NEAR(inner.x - inner.called_x, method.name == "RKF45" ? 0.02 : 0.0, 1e-15);
        EXPECT_NE(inner.y, inner.called_y);
        EXPECT_NEAR(inner.y[0], std::exp(inner.x), 1e-7);
        EXPECT_EQ(made.points.back().called_x, 1.0);
        EXPECT_EQ(made.points.back().y, made.points.back().called_y);
    }
}

// From a state that never changes the error of a step is 1e-20 and, carried over, 800 times the last one
// more: the sixth exceeds the tolerance.
TEST(Fehlberg, CarriesTheErrorOfRkf56FromStepToStep)
{
    EXPECT_EQ(run(rkf45, nothing, {0.0}, {0.0, 1e5, 1000.0}, {.h = 800.0}).summary.bad, 0);
    const ode_run made = run(rkf56, nothing, {0.0}, {0.0, 1e5, 1000.0}, {.h = 800.0});
    ASSERT_GE(made.steps.size(), 6U);
    EXPECT_EQ(made.steps[4].good, 5);
    EXPECT_EQ(made.steps[5].bad, 1);
    EXPECT_TRUE(made.summary.end_reached);
}

// The estimate compares stages at the same nodes: 4 x cos(x^2/4) has no error in its eyes, and all steps but
// the first three are 0.8 spacings long.
TEST(Fehlberg, FindsNoErrorByRkf56InAnIntegral)
{
    const auto integrand = [](double x, state /*y*/, slopes dydx) { dydx[0] = 4.0 * x * std::cos(x * x / 4.0); };
    const double integral = 8.0 * std::sin(50.0 * 50.0 / 4.0);
    const ode_run blind = run(rkf56, integrand, {0.0}, {0.0, 50.0, 0.5}, {.h = 1e-6});
    EXPECT_EQ(blind.summary.good, 3 + 125);
    EXPECT_GT(std::fabs(blind.y[0] - integral), 1.0);
    EXPECT_NEAR(run(rkf45, integrand, {0.0}, {0.0, 50.0, 0.5}).y[0], integral, 1e-3);
}

TEST(Fehlberg, RelaxesTheToleranceAtACollapsedStepAndStillAimsAtTheFirst)
{
    const ode_range range = {0.0, 10.0, 0.5};
    const ode_summary asked = run(rkf45, growth, {1.0}, range, {.h = 2e-10, .tol = 1e-8}).summary;
    const ode_summary relaxed = run(rkf45, growth, {1.0}, range, {.h = 0.5e-10, .tol = 1e-8}).summary;
    EXPECT_EQ(asked.relaxations, 0);
    EXPECT_EQ(relaxed.relaxations, 1);
    EXPECT_DOUBLE_EQ(relaxed.tolerance, 1e-5);
    EXPECT_NEAR(static_cast<double>(relaxed.good), static_cast<double>(asked.good), 2.0);
    EXPECT_EQ(run(rkf45, growth, {1.0}, range, {.h = 0.5e-10, .tol = 1e-4}).summary.relaxations, 0);
}

TEST(Fehlberg, EndsWhereStepsCollapseBehind95PercentAndSaysSo)
{
    const ode_run made = run(rkf45, pole, {1.0}, {0.0, 1.02, 0.05});
    EXPECT_EQ(made.failure, "none");
    EXPECT_FALSE(made.summary.end_reached);
    EXPECT_NEAR(made.summary.x, 1.0, 1e-6);
    EXPECT_EQ(made.points.back().x, 1.02);
    EXPECT_EQ(made.points.back().y, made.y);
    EXPECT_EQ(run(rkf45, pole, {1.0}, {0.0, 2.0, 0.05}).failure, "6");
}

} // namespace kelvarin::test
