// SPDX-License-Identifier: MIT
#include "failures.h"
#include "numeric/ode/fehlberg.h"
#include "ode_recorder.h"
#include "support/digits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <span>
#include <string>
#include <vector>

namespace kelvarin::test
{

namespace
{

using state = std::span<const double>;
using slopes = std::span<double>;

void nothing(double /*x*/, state /*y*/, slopes dydx)
{
    dydx[0] = 0.0;
}

void growth(double /*x*/, state y, slopes dydx)
{
    dydx[0] = y[0];
}

void square(double /*x*/, state y, slopes dydx)
{
    dydx[0] = y[0] * y[0];
}

using integrator = ode_summary (*)(ode_system&, std::span<double>, const ode_range&, const fehlberg_options&,
                                   ode_observer&);

struct result
{
    ode_summary summary;
    std::vector<double> y;
    std::vector<ode_recorder::point> points;
    std::vector<ode_summary> steps;
    int calls = 0;
    std::string failure;
};

/// One equation, integrated over points spacings.
result run(integrator integrate, recorded_system::function derivatives, double start, double x1, double x2,
           int spacings, const fehlberg_options& options = {}, int stop_at = 0)
{
    recorded_system system(1, std::move(derivatives));
    ode_recorder recorder(system);
    recorder.stop_at = stop_at;
    result made;
    made.y = {start};
    const ode_range range = {x1, x2, (x2 - x1) / spacings};
    made.failure = failure_of([&] { made.summary = integrate(system, made.y, range, options, recorder); });
    made.points = recorder.points;
    made.steps = recorder.steps;
    made.calls = system.calls;
    return made;
}

} // namespace

TEST(Fehlberg, StoresMultiplesOfTheSpacingCountedFromZero)
{
    struct stored
    {
        double x1;
        double x2;
        int spacings;
        std::size_t points;
    };
    // From 0 the second point lies beyond 2 spacings. Above it each of the 127 steps is stored, two that
    // grow from h and 125 of 0.8 spacings; below it nothing but start and end.
    const std::vector<stored> table = {{0.0, 1.0, 100, 100}, {100.0, 101.0, 100, 128}, {-1.0, 0.0, 100, 2}};
    for (const stored& expected : table) {
        SCOPED_TRACE(expected.x1);
        const result made = run(integrate_rkf45, nothing, 0.0, expected.x1, expected.x2, expected.spacings);
        EXPECT_EQ(made.points.size(), expected.points);
        EXPECT_EQ(made.points.size(), static_cast<std::size_t>(made.summary.points));
        EXPECT_EQ(made.points.front().x, expected.x1);
        EXPECT_EQ(made.points.back().x, expected.x2);
        EXPECT_TRUE(made.summary.end_reached);
        EXPECT_NEAR(made.summary.largest_step, 0.8 * (expected.x2 - expected.x1) / expected.spacings, 1e-15);
    }
}

TEST(Fehlberg, AppendsTheEndBehind1200Points)
{
    const result made = run(integrate_rkf45, nothing, 0.0, 1e6, 1e6 + 1.0, 2000);
    ASSERT_EQ(made.points.size(), 1201U);
    EXPECT_NEAR(made.points[1199].x, 1e6 + 1198 * 0.8 / 2000, 1e-3);
    EXPECT_EQ(made.points[1200].x, 1e6 + 1.0);
}

// What else is stored with a point comes from the last call of the derivatives: for RKF45 in the middle of
// the step, for RKF56 at its end, but with the last stage's state.
TEST(Fehlberg, CallsTheDerivativesLastAtTheLastStage)
{
    for (const bool fifth : {true, false}) {
        const result made = run(fifth ? integrate_rkf45 : integrate_rkf56, growth, 1.0, 0.0, 1.0, 20, {.tol = 0.01});
        const ode_recorder::point& inner = made.points[10];
        EXPECT_NEAR(inner.x - inner.called_x, fifth ? 0.02 : 0.0, 1e-15);
        EXPECT_NE(inner.y, inner.called_y);
        EXPECT_NEAR(inner.y[0], std::exp(inner.x), 1e-7);
        EXPECT_EQ(made.points.back().called_x, 1.0);
        EXPECT_EQ(made.points.back().y, made.points.back().called_y);
    }
}

TEST(Fehlberg, CountsAttemptsAndEvaluations)
{
    for (const int stages : {6, 8}) {
        const result made =
            run(stages == 6 ? integrate_rkf45 : integrate_rkf56, square, 1.0, 0.0, 0.999, 1, {.h = 0.5, .tol = 1e-8});
        const ode_summary& summary = made.summary;
        EXPECT_EQ(made.failure, "none");
        EXPECT_GT(summary.bad, 0);
        EXPECT_EQ(summary.steps, summary.good + summary.bad + 1);
        EXPECT_EQ(summary.evaluations, 1 + stages * (summary.good + summary.bad) + 1);
        EXPECT_EQ(summary.evaluations, made.calls);
        EXPECT_EQ(made.steps.size(), static_cast<std::size_t>(summary.steps - 1));
        EXPECT_GE(digits_shown(made.y[0], 1000.0), 5.0);
    }
}

// From a state that never changes the error of a step is 1e-20 and, carried over, 800 times the last one
// more: the sixth exceeds the tolerance.
TEST(Fehlberg, CarriesTheErrorOfRkf56FromStepToStep)
{
    const fehlberg_options options = {.h = 800.0};
    EXPECT_EQ(run(integrate_rkf45, nothing, 0.0, 0.0, 1e5, 100, options).summary.bad, 0);
    const result made = run(integrate_rkf56, nothing, 0.0, 0.0, 1e5, 100, options);
    ASSERT_GE(made.steps.size(), 6U);
    EXPECT_EQ(made.steps[4].good, 5);
    EXPECT_EQ(made.steps[5].bad, 1);
    EXPECT_TRUE(made.summary.end_reached);
}

// The estimate compares stages at the same nodes: 4 x cos(x^2/4) has no error in its eyes.
TEST(Fehlberg, FindsNoErrorByRkf56InAnIntegral)
{
    const auto integrand = [](double x, state /*y*/, slopes dydx) { dydx[0] = 4.0 * x * std::cos(x * x / 4.0); };
    const double integral = 8.0 * std::sin(50.0 * 50.0 / 4.0);
    const result blind = run(integrate_rkf56, integrand, 0.0, 0.0, 50.0, 100);
    EXPECT_EQ(blind.summary.good, 3 + 125);
    EXPECT_GT(std::fabs(blind.y[0] - integral), 1.0);
    EXPECT_NEAR(run(integrate_rkf45, integrand, 0.0, 0.0, 50.0, 100).y[0], integral, 1e-3);
}

TEST(Fehlberg, RelaxesTheToleranceAtACollapsedStepAndStillAimsAtTheFirst)
{
    const result asked = run(integrate_rkf45, growth, 1.0, 0.0, 10.0, 20, {.h = 2e-10, .tol = 1e-8});
    const result relaxed = run(integrate_rkf45, growth, 1.0, 0.0, 10.0, 20, {.h = 0.5e-10, .tol = 1e-8});
    EXPECT_EQ(asked.summary.relaxations, 0);
    EXPECT_EQ(relaxed.summary.relaxations, 1);
    EXPECT_DOUBLE_EQ(relaxed.summary.tolerance, 1e-5);
    EXPECT_NEAR(static_cast<double>(relaxed.summary.good), static_cast<double>(asked.summary.good), 2.0);
    const result loose = run(integrate_rkf45, growth, 1.0, 0.0, 10.0, 20, {.h = 0.5e-10, .tol = 1e-4});
    EXPECT_EQ(loose.summary.relaxations, 0);
}

// y = 1/(1 - x) has no value at 1.
TEST(Fehlberg, EndsWhereStepsCollapseBehind95PercentAndSaysSo)
{
    const result made = run(integrate_rkf45, square, 1.0, 0.0, 1.02, 20);
    EXPECT_EQ(made.failure, "none");
    EXPECT_FALSE(made.summary.end_reached);
    EXPECT_NEAR(made.summary.x, 1.0, 1e-6);
    EXPECT_EQ(made.points.back().x, 1.02);
    EXPECT_EQ(made.points.back().y, made.y);
    EXPECT_EQ(run(integrate_rkf45, square, 1.0, 0.0, 2.0, 20).failure, "6");
}

TEST(Fehlberg, CutsTheFirstStepToTheRange)
{
    const result made = run(integrate_rkf45, growth, 1.0, 0.0, 1e-3, 1, {.h = -0.1});
    EXPECT_EQ(made.summary.good, 1);
    EXPECT_EQ(made.summary.x, 1e-3);
    EXPECT_NEAR(made.y[0], std::exp(1e-3), 1e-15);
}

TEST(Fehlberg, RefusesWhatWouldNotEnd)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const auto failure = [](double x2, int spacings, const fehlberg_options& options) {
        return run(integrate_rkf56, growth, 1.0, 0.0, x2, spacings, options).failure;
    };
    EXPECT_EQ(failure(1.0, 20, {.h = 0.0}), "8888 RKF56: The initial step size must be greater than 0.");
    EXPECT_EQ(failure(1.0, 20, {.tol = 0.0}), "8888 RKF56: The truncation error tolerance must be greater than 0.");
    EXPECT_EQ(failure(0.0, 20, {}), "8888 RKF56: The final value must be greater than the initial value.");
    EXPECT_EQ(failure(1.0, -20, {}), "8888 RKF56: The spacing of the points must be greater than 0.");
    EXPECT_EQ(failure(nan, 20, {}), "6");
    // Back and forth over a jump the steps shrink to nothing.
    const auto jump = [](double /*x*/, state y, slopes dydx) { dydx[0] = y[0] > 0.0 ? -1e20 : 1e20; };
    EXPECT_EQ(run(integrate_rkf45, jump, 1.0, 1.0, 2.0, 20).failure,
              "8888 RKF45: The steps do not advance the independent variable any more.");
}

TEST(Fehlberg, FailsAtOnceWhereAStateIsNotFinite)
{
    const auto pole = [](double x, state /*y*/, slopes dydx) { dydx[0] = x > 0.5 ? INFINITY : 1.0; };
    const result made = run(integrate_rkf45, pole, 0.0, 0.0, 1.0, 20);
    EXPECT_EQ(made.failure, "6");
    EXPECT_LT(made.calls, 200);
    EXPECT_EQ(run(integrate_rkf45, growth, NAN, 0.0, 1.0, 20).failure, "6");
    EXPECT_EQ(run(integrate_rkf45, growth, 1e300, 0.0, 100.0, 20).failure, "6");
}

TEST(Fehlberg, StopsInTheMidstOfAStep)
{
    for (const int calls : {1, 10, 11}) {
        const result made = run(integrate_rkf56, growth, 1.0, 0.0, 1.0, 20, {}, calls);
        EXPECT_EQ(made.failure, "8888 Calculations aborted.");
        EXPECT_EQ(made.calls, calls);
        EXPECT_EQ(made.points.size(), 1U);
    }
}

} // namespace kelvarin::test
