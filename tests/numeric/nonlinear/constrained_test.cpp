// SPDX-License-Identifier: MIT
#include "failures.h"
#include "numeric/nonlinear/NR_vbCNLE.h"
#include "published_problems.h"
#include "recording_system.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace kelvarin::test
{

namespace
{

constexpr auto any = sign_constraint::any;
constexpr auto physically = sign_constraint::physically_positive;
constexpr auto absolutely = sign_constraint::absolutely_positive;

void no_root(std::span<const double> x, std::span<double> f)
{
    f[0] = x[0] * x[0] + 1.0;
    f[1] = x[1];
}

/// The root is (-1, 2), on the forbidden side of a positive x[0].
void root_below_zero(std::span<const double> x, std::span<double> f)
{
    f[0] = x[0] + 1.0;
    f[1] = x[1] - 2.0;
}

} // namespace

TEST(Constrained, EndsWithTheCodeThatFits)
{
    struct row
    {
        std::string name;
        function_system::function f;
        std::vector<double> start;
        std::vector<sign_constraint> constraints;
        cnle_options options;
        cnle_code code;
        std::vector<double> end;
    };
    const double a = std::sqrt(2.0 + std::sqrt(3.0));
    constexpr auto violates = cnle_code::start_violates_constraint;
    const std::vector<row> cases = {
        {"free", rosenbrock, {-1.2, 1.0}, {any, any}, {}, cnle_code::converged, {1.0, 1.0}},
        {"tolerance of 0", rosenbrock, {-1.2, 1.0}, {any, any}, {.tol = 0.0}, cnle_code::converged, {1.0, 1.0}},
        {"positive", hyperbola_and_circle, {2.0, 0.1}, {physically, absolutely}, {}, cnle_code::converged, {a, 1 / a}},
        {"start at the root", root_below_zero, {-1.0, 2.0}, {any, any}, {}, cnle_code::converged, {-1.0, 2.0}},
        {"no iterations allowed", rosenbrock, {0.0, 0.0}, {any, any}, {.maxiter = 0}, cnle_code::bad_input, {0.0, 0.0}},
        {"negative start", rosenbrock, {0.0, -1.0}, {any, physically}, {}, violates, {0.0, -1.0}},
        {"no root", no_root, {1.0, 1.0}, {any, any}, {}, cnle_code::no_progress, {}},
        {"held at zero", root_below_zero, {0.0, 2.0}, {absolutely, any}, {}, cnle_code::no_progress, {0.0, 2.0}},
        {"out of iterations", rosenbrock, {-1.2, 1.0}, {any, any}, {.maxiter = 1}, cnle_code::iteration_limit, {}},
    };
    for (const row& given : cases) {
        SCOPED_TRACE(given.name);
        function_system system(2, given.f);
        std::vector<double> x = given.start;
        std::vector<double> fvec = {9.0, 9.0};
        const cnle_result result = solve_cnle(system, x, given.constraints, fvec, given.options);
        EXPECT_EQ(result.code, given.code);
        for (std::size_t i = 0; i < given.end.size(); ++i)
            EXPECT_NEAR(x[i], given.end[i], 1e-7);
        // Refused at once, without an evaluation and with residuals of 0; else those of x.
        const bool refused = given.code == cnle_code::bad_input || given.code == violates;
        EXPECT_EQ(system.evaluations == 0, refused);
        EXPECT_EQ(result.iterations == 0, refused);
        std::vector<double> f(2);
        if (!refused) given.f(x, f);
        EXPECT_EQ(fvec, f);
    }
}

// A linear system by hand. Pass: F at the start; an iteration of 1 + 2 evaluations, whose step (undamped, since
// damping doubles to 1) leads to the root; another that finds a step of 0; F at the end. The second unknown would
// cross zero from 1 to -3: 0.99 / 4 of the step is made.
TEST(Constrained, CountsAndStepsAsCalculatedByHand)
{
    const auto linear = [](std::span<const double> x, std::span<double> f) {
        f[0] = x[0] - 4.0;
        f[1] = x[1] + 3.0;
    };
    recording_system system(2, linear);
    std::vector<double> x = {0.0, 1.0};
    std::vector<double> fvec(2);
    const std::vector<sign_constraint> free = {any, any};
    const cnle_result result = solve_cnle(system, x, free, fvec, {});
    EXPECT_EQ(result.iterations, 2);
    EXPECT_EQ(system.points.size(), 8U);

    system.points.clear();
    x = {0.0, 1.0};
    const std::vector<sign_constraint> second_positive = {any, absolutely};
    solve_cnle(system, x, second_positive, fvec, {});
    EXPECT_NEAR(system.points[4][0], 0.99, 1e-6);
    EXPECT_NEAR(system.points[4][1], 0.01, 1e-6);
}

// One unknown, slope 1 everywhere, so that each undamped step is minus the (homotopy) residual; the residual at the
// points that are met is told. By hand.
TEST(Constrained, DampsRefusesAndBeginsAnewAsCalculatedByHand)
{
    struct row
    {
        std::string name;
        std::vector<double> points;
        std::vector<double> residuals;
        int maxiter;
        /// Where it looks, Jacobians left out.
        std::vector<double> path;
        std::vector<sign_constraint> constraint = {any};
    };
    const std::vector<row> cases = {
        // 1, then 1/4 as the norm grows, then 1/2.
        {"norm grows, then falls", {8.0, 7.0, 6.5, 6.0}, {1.0, 2.0, 1.0, 0.5}, 3, {8.0, 7.0, 6.5, 6.0}},
        // Refused at 7, back to 8: 1/4 for the growth, 1/4 again for the thousandfold one, 1/8 when it falls.
        {"norm grows a thousandfold", {8.0, 7.0, 7.9375}, {1.0, 40.0, 0.5}, 3, {8.0, 7.0, 8.0, 7.9375, 7.875}},
        // From 1 the step of 1 is above 10 / 16, so that 1/16 stands for the next; that one, of 1/2, is not.
        {"damping stands after a large step",
         {1.0, 0.0, 0.9375, 0.90625},
         {1.0, 40.0, 0.5, 0.25},
         4,
         {1.0, 0.0, 1.0, 0.9375, 0.90625, 0.875}},
        {"a change by 6 percent is progress", {8.0, 7.0, 6.03}, {1.0, 0.97, 0.5}, 2, {8.0, 7.0, 6.03}},
        // Without progress at 7: from 8 again, where 9/10 of its residual is now allowed, then 8/10.
        {"second pass", {8.0, 7.0, 7.9, 7.8}, {1.0, 1.0, 0.9, 0.8}, 5, {8.0, 7.0, 8.0, 7.9, 7.8}},
        {"zero may be touched", {1.0, 0.0}, {1.0, 0.0}, 1, {1.0, 0.0}, {physically}},
    };
    for (const row& given : cases) {
        SCOPED_TRACE(given.name);
        recording_system system(1, [&](std::span<const double> x, std::span<double> f) {
            std::size_t nearest = 0;
            for (std::size_t i = 1; i < given.points.size(); ++i)
                if (std::fabs(x[0] - given.points[i]) < std::fabs(x[0] - given.points[nearest])) nearest = i;
            f[0] = given.residuals[nearest] + (x[0] - given.points[nearest]);
        });
        std::vector<double> x = {given.points[0]};
        std::vector<double> fvec(1);
        solve_cnle(system, x, given.constraint, fvec, {.maxiter = given.maxiter});
        std::vector<double> path;
        for (const std::vector<double>& point : system.points)
            if (path.empty() || std::fabs(point[0] - path.back()) > 1e-3) path.push_back(point[0]);
        ASSERT_EQ(path.size(), given.path.size()) << testing::PrintToString(path);
        for (std::size_t i = 0; i < path.size(); ++i)
            EXPECT_NEAR(path[i], given.path[i], 1e-6);
    }
}

RC_GTEST_PROP(Constrained, NeverLooksBelowZero, ())
{
    const auto guess = rc::gen::map(rc::gen::inRange(1, 500), [](int value) { return value / 100.0; });
    recording_system system(2, hyperbola_and_circle);
    std::vector<double> x = {*guess, *guess};
    std::vector<double> fvec(2);
    const std::vector<sign_constraint> constraints = {absolutely, physically};
    const cnle_result result = solve_cnle(system, x, constraints, fvec, {});
    for (const std::vector<double>& point : system.points)
        RC_ASSERT(std::ranges::min(point) > 0.0);
    RC_CLASSIFY(result.code == cnle_code::converged);
    if (result.code == cnle_code::converged) RC_ASSERT(std::fabs(std::max(x[0], x[1]) - 1.9318516525781366) < 1e-6);
}

TEST(Constrained, StopsWhenTheCallerGivesUp)
{
    function_system system(2, rosenbrock);
    std::vector<double> x = {-1.2, 1.0};
    std::vector<double> fvec(2);
    const std::vector<sign_constraint> free = {any, any};
    const auto failed = [&] { return system.evaluations > 4; };
    const cnle_result result = solve_cnle(system, x, free, fvec, {.give_up = failed});
    EXPECT_TRUE(result.gave_up);
    EXPECT_EQ(system.evaluations, 5);
}

TEST(Constrained, EndsAtTheLastAcceptedPointWhenItFails)
{
    struct stopped
    {
    };
    std::vector<double> x = {0.0, 2.0};
    std::vector<double> fvec(2);
    const std::vector<sign_constraint> free = {any, any};
    std::vector<int> told;
    const iteration_hook stop_at_third = [&](int iteration, int limit) {
        EXPECT_EQ(limit, 40);
        told.push_back(iteration);
        if (iteration == 3) throw stopped{};
    };
    function_system curved(2, rosenbrock);
    x = {-1.2, 1.0};
    EXPECT_THROW(solve_cnle(curved, x, free, fvec, {.maxiter = 40, .on_iteration = stop_at_third}), stopped);
    EXPECT_EQ(told, (std::vector{1, 2, 3}));

    // The first step leads to (10, 2), where there is no finite value.
    function_system walled(2, [](std::span<const double> at, std::span<double> f) {
        f[0] = at[0] > 9.0 ? std::numeric_limits<double>::infinity() : at[0] - 10.0;
        f[1] = at[1] - 2.0;
    });
    x = {0.0, 2.0};
    EXPECT_EQ(failure_of([&] { solve_cnle(walled, x, free, fvec, {}); }), "6");
    EXPECT_EQ(x, (std::vector{0.0, 2.0}));
}

} // namespace kelvarin::test
