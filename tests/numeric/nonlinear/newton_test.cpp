// SPDX-License-Identifier: MIT
#include "failures.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "numeric/nonlinear/stopping_tests.h"
#include "published_problems.h"
#include "recording_system.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace kelvarin::test
{

namespace
{

void line(std::span<const double> x, std::span<double> f)
{
    f[0] = x[0] - 1.0;
}

function_system::function constant(double value)
{
    return [value](std::span<const double>, std::span<double> f) { f[0] = value; };
}

using enum solver_ending;

/// A search in one unknown, how and where it ends and what it costs.
template <class Options> struct ending_case
{
    std::string name;
    function_system::function f;
    double start;
    Options options;
    double end;
    solver_ending ending;
    int iterations, evaluations;
    double residual;
};

template <class Options, class Solver>
void expect_ending(const ending_case<Options>& given, Solver solve, double tolerance)
{
    SCOPED_TRACE(given.name);
    function_system system(1, given.f);
    std::vector<double> x = {given.start};
    std::vector<double> fvec(1);
    const solver_summary summary = solve(system, x, fvec, given.options);
    EXPECT_NEAR(x[0], given.end, tolerance);
    EXPECT_EQ(summary.ending, given.ending);
    EXPECT_EQ(summary.iterations, given.iterations);
    EXPECT_FALSE(summary.check);
    EXPECT_EQ(system.evaluations, given.evaluations);
    EXPECT_NEAR(fvec[0], given.residual, tolerance);
}

} // namespace

// By hand. A trial costs two evaluations; the step from 5 meets 1 but for the rounding of the difference.
TEST(Mnewt, EndsByTheToldTestsInTheToldOrder)
{
    const std::vector<ending_case<mnewt_options>> cases = {
        {"residual test in the second trial", line, 5.0, {}, 1.0, residual_small, 2, 4, 0.0},
        {"residual equal to tolf is enough", constant(0.5), 3.0, {.tolf = 0.5}, 3.0, residual_small, 1, 2, 0.5},
        // The slope is flat: each step is -f. The residual is that of the point before the last step.
        {"step equal to tolx is enough", constant(0.5), 3.0, {.tolx = 0.5}, 2.5, step_small, 1, 2, 0.5},
        {"trials used up in silence", constant(0.5), 3.0, {.ntrial = 10}, -2.0, trials_used, 10, 20, 0.5},
        {"tolerances of 0", line, 5.0, {.tolx = 0.0, .tolf = 0.0}, 1.0, residual_small, 3, 6, 0.0},
    };
    for (const auto& given : cases)
        expect_ending(given, mnewt, 1e-9);
}

TEST(Mnewt, SumsOverAllResiduals)
{
    // Each residual is below the tolerance, the sum isn't.
    function_system system(2, [](std::span<const double> x, std::span<double> f) { f[0] = x[0], f[1] = x[1]; });
    std::vector<double> x = {6e-8, 6e-8};
    std::vector<double> fvec(2);
    EXPECT_EQ(mnewt(system, x, fvec, {.tolf = 1e-7}).iterations, 2);
}

TEST(Newt, EndsByTheToldTestsInTheToldOrder)
{
    constexpr double near = 1.0 + 0x1p-31;
    constexpr double beside = 1.0 + 0x1p-24;
    const std::vector<ending_case<newt_options>> cases = {
        {"start within a hundredth of TOLF", line, near, {}, near, residual_small, 0, 1, 0x1p-31},
        {"start equal to a hundredth of TOLF", line, 1.5, {.TOLF = 50.0}, 1.0, residual_small, 1, 3, 0.0},
        {"one full step", line, 5.0, {}, 1.0, residual_small, 1, 3, 0.0},
        // alamin is 1e-7 / 2^-24 and above 1: x goes back, the residual of the trial stays and passes the test.
        {"step too short to make", line, beside, {}, beside, residual_small, 1, 3, 0.0},
        // Flat: each step is -1/2; relative to the unknown 1/4 at -2 and 1/5 at -2.5.
        {"step below TOLX", constant(0.5), 1.0, {.TOLX = 0.51}, 0.5, step_small, 1, 3, 0.5},
        {"step equal to TOLX is not enough", constant(0.5), -1.5, {.TOLX = 0.25}, -2.5, step_small, 2, 5, 0.5},
    };
    for (const auto& given : cases)
        expect_ending(given, newt, 1e-10);
}

// x^2 + 1 has its minimum at 0 and no root. Near it the Newton steps become ever longer and the search gives up.
TEST(Newt, SuspectsAMinimumThatIsNoRoot)
{
    function_system system(1, [](std::span<const double> x, std::span<double> f) { f[0] = x[0] * x[0] + 1.0; });
    std::vector<double> x = {1.0};
    std::vector<double> fvec(1);
    const solver_summary summary = newt(system, x, fvec, {.TOLMIN = 1e-2});
    EXPECT_EQ(summary.ending, no_descent);
    EXPECT_TRUE(summary.check);
    EXPECT_NEAR(x[0], 0.0, 1e-2);
}

// den is the larger of f and n / 2, so that each row is 3 / den against the tolerance.
TEST(StoppingTests, GradientIsScaledByTheFunction)
{
    const std::vector<double> g = {-3.0, 0.0};
    const std::vector<double> x = {0.5, 9.0};
    EXPECT_TRUE(gradient_vanishes(g, x, 10.0, 0.31));
    EXPECT_FALSE(gradient_vanishes(g, x, 10.0, 0.29));
    EXPECT_FALSE(gradient_vanishes(g, x, 0.0, 3.0));
    EXPECT_TRUE(gradient_vanishes(g, x, 0.0, 3.1));
    EXPECT_FALSE(gradient_vanishes(g, std::vector{2.0, 9.0}, 0.0, 5.9));
}

TEST(Solvers, GiveUpInTheirOwnWordsAtTheLastAcceptedPoint)
{
    // B = diag(1, 1/64) from (1, 1) leads to (0, 0); the residual (0, 1/32) found there changes the second row of
    // B to (-1/64, 0), so that it becomes singular in exact numbers.
    const auto to_singular = [](std::span<const double> x, std::span<double> f) {
        f[0] = x[0] < 0.5 ? 0.0 : x[0];
        f[1] = x[0] < 0.5 ? 0.03125 : x[1] / 64.0;
    };
    const auto square = [](auto x, auto f) { f[0] = x[0] * x[0]; };
    constexpr bool newton = false;
    constexpr bool broyden = true;
    using values = std::vector<double>;
    const table<function_system::function, values, bool, int, std::string, values> cases = {
        // Flat, so that each step is -f and none is refused.
        {constant(0.5), {3.0}, newton, 10, "8888 NEWT: MAXITS exceeded in newt", {-2.0}},
        {square, {1.0}, broyden, 1, "8888 BROYDN: MAXITS exceeded in broydn", {0.5}},
        {constant(0.5), {3.0}, broyden, 10, "8888 BROYDN: singular Jacobian in broydn", {3.0}},
        {to_singular, {1.0, 1.0}, broyden, 10, "8888 BROYDN: r singular in broydn", {0.0, 0.0}},
        // TOLF of 0 lets newt make a step of 0.
        {line, {1.0}, newton, 10, "11", {1.0}},
        {line, {1.0}, broyden, 10, "11", {1.0}},
    };
    for (const auto& [f, start, by_broyden, limit, failure, end] : cases) {
        SCOPED_TRACE(failure);
        function_system system(static_cast<int>(start.size()), f);
        std::vector<double> x = start;
        std::vector<double> fvec(x.size());
        EXPECT_EQ(failure_of([&, by_broydn = by_broyden, most = limit] {
                      if (by_broydn)
                          broydn(system, x, fvec, {.MAXITS = most, .TOLF = 0.0});
                      else
                          newt(system, x, fvec, {.MAXITS = most, .TOLF = 0.0});
                  }),
                  failure);
        for (std::size_t i = 0; i < x.size(); ++i)
            EXPECT_NEAR(x[i], end[i], 1e-6);
    }
}

// x - 10 has no finite value from 9 on: the step from 0 leads there.
TEST(Solvers, InfinityEndsThemAtTheLastAcceptedPoint)
{
    const auto walled = [](std::span<const double> x, std::span<double> f) {
        f[0] = x[0] > 9.0 ? std::numeric_limits<double>::quiet_NaN() : x[0] - 10.0;
    };
    function_system system(1, walled);
    std::vector<double> x = {0.0};
    std::vector<double> fvec(1);
    EXPECT_EQ(failure_of([&] { newt(system, x, fvec, {}); }), "6");
    EXPECT_EQ(x[0], 0.0);
    EXPECT_EQ(failure_of([&] { broydn(system, x, fvec, {}); }), "6");
    EXPECT_EQ(x[0], 0.0);
    // mnewt accepts each step unseen.
    EXPECT_EQ(failure_of([&] { mnewt(system, x, fvec, {}); }), "6");
    EXPECT_NEAR(x[0], 10.0, 1e-6);
}

TEST(Solvers, TellEachIterationAndStopAtTheLastAcceptedPointWhenTheHookThrows)
{
    struct stopped
    {
    };
    std::vector<double> x;
    std::vector<double> seen;
    std::vector<int> told;
    const iteration_hook stop_at_third = [&](int iteration, int limit) {
        EXPECT_EQ(limit, 40);
        told.push_back(iteration);
        seen = x;
        if (iteration == 3) throw stopped{};
    };
    function_system system(2, rosenbrock);
    std::vector<double> fvec(2);
    const std::vector<std::function<void()>> solvers = {
        [&] { mnewt(system, x, fvec, {.ntrial = 40, .on_iteration = stop_at_third}); },
        [&] { newt(system, x, fvec, {.MAXITS = 40, .on_iteration = stop_at_third}); },
        [&] { broydn(system, x, fvec, {.MAXITS = 40, .on_iteration = stop_at_third}); }};
    for (const auto& solve : solvers) {
        x = {-1.2, 1.0};
        told.clear();
        EXPECT_THROW(solve(), stopped);
        EXPECT_EQ(told, (std::vector{1, 2, 3}));
        EXPECT_EQ(x, seen);
        EXPECT_NE(x[0], -1.2);
    }
}

} // namespace kelvarin::test
