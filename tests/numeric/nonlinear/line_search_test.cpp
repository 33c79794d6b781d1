// SPDX-License-Identifier: MIT
#include "failures.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "recording_system.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace kelvarin::test
{

namespace
{

/// A residual of which half the square is f.
double of(double f)
{
    return std::sqrt(2.0 * f);
}

double half_square(double residual)
{
    return 0.5 * (residual * residual);
}

/// 1 as a residual of it gives it.
const double fold = half_square(of(1.0));
/// Uphill, the slope whose parabola through 1.5 at the full step has its extreme there.
const double slope_back = 2.0 * (half_square(of(1.5)) - fold);

/// A search in one unknown from xold with fold = 1 along p; the values that it meets are told.
struct search_case
{
    std::string name;
    std::vector<double> values;
    double slope = -1.0;
    double p = 1.0;
    double xold = 0.0;
    double stpmax = 100.0;
    /// Where it looks, and whether it ends there or at xold.
    std::vector<double> points;
    bool check = false;
    std::string failure = "none";
};

void expect_search(const search_case& given)
{
    std::vector<double> residuals;
    for (const double f : given.values)
        residuals.push_back(of(f));
    recording_system system(1, scripted(residuals));
    const std::vector<double> xold = {given.xold};
    const std::vector<double> g = {given.p == 0.0 ? 1.0 : given.slope / given.p};
    std::vector<double> p = {given.p};
    std::vector<double> x = {given.xold};
    std::vector<double> fvec(1);
    line_search_result result;
    EXPECT_EQ(failure_of([&] { result = lnsrch(system, xold, fold, g, p, x, fvec, given.stpmax); }), given.failure);
    ASSERT_EQ(system.points.size(), given.points.size());
    for (std::size_t i = 0; i < given.points.size(); ++i)
        EXPECT_NEAR(system.points[i][0], given.points[i], 1e-12);
    EXPECT_EQ(result.check, given.check);
    const bool moved = given.failure == "none" && !given.check;
    EXPECT_EQ(x[0], moved ? system.points.back()[0] : given.xold);
    // The residuals are those of the last trial, also when x went back.
    EXPECT_EQ(fvec[0], given.points.empty() ? 0.0 : residuals[given.points.size() - 1]);
}

} // namespace

// With fold = 1 and slope = -1 the parabola through f at the full step has its minimum at 1 / (2 f). The cubic
// 1 - t + b t^2 + a t^3 through 2 at 1 and 1 at 1/4 has b = 14/3, a = -8/3 and its minimum at (7 - sqrt 31) / 12;
// through 50 at 1 and 1 at 1/10, b = 50/9, a = 400/9 and a minimum beyond 0.054.
TEST(Lnsrch, LooksWhereTheParabolaAndTheCubicHaveTheirMinima)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::string roundoff = "8888 LNSRCH: Roundoff problem in lnsrch.";
    const std::vector<search_case> cases = {
        {.name = "full step", .values = {0.5}, .points = {1.0}},
        {.name = "equality with the bound is enough", .values = {1.0}, .slope = 0.0, .points = {1.0}},
        {.name = "parabola", .values = {2.0, 0.5}, .points = {1.0, 0.25}},
        {.name = "not below a tenth", .values = {50.0, 0.5}, .points = {1.0, 0.1}},
        {.name = "cubic", .values = {2.0, 1.0, 0.5}, .points = {1.0, 0.25, (7.0 - std::sqrt(31.0)) / 12.0}},
        {.name = "cubic, not above a half", .values = {50.0, 1.0, 0.5}, .points = {1.0, 0.1, 0.05}},
        {.name = "cubic, not below a tenth", .values = {2.0, 100.0, 0.5}, .points = {1.0, 0.25, 0.025}},
        {.name = "scaled down to stpmax", .values = {0.5}, .p = 10.0, .stpmax = 2.0, .points = {2.0}},
        {.name = "too short to count", .values = {0.5}, .p = 1e-8, .points = {1e-8}, .check = true},
        {.name = "short beside an x", .values = {0.5}, .p = 1e-3, .xold = 1e5, .points = {1e5 + 1e-3}, .check = true},
        {.name = "no step at all", .values = {}, .slope = 0.0, .p = 0.0, .points = {}, .failure = "11"},
        {.name = "cubic uphill, no minimum",
         .values = {3.0, 1.1},
         .slope = 1.0,
         .points = {1.0, 0.1},
         .failure = roundoff},
        {.name = "full step again, uphill",
         .values = {1.5, 1.5},
         .slope = slope_back,
         .points = {1.0, 1.0},
         .failure = "11"},
        {.name = "overflow in a trial", .values = {2.0, infinity}, .points = {1.0, 0.25}, .failure = "6"},
    };
    for (const search_case& given : cases) {
        SCOPED_TRACE(given.name);
        expect_search(given);
    }
}

TEST(Fmax, GivesTheSecondOnATie)
{
    EXPECT_EQ(FMAX(1.0, 2.0), 2.0);
    EXPECT_EQ(FMAX(2.0, 1.0), 2.0);
    EXPECT_TRUE(std::signbit(FMAX(0.0, -0.0)));
    EXPECT_FALSE(std::signbit(FMAX(-0.0, 0.0)));
}

TEST(FminNle, IsHalfTheSumOfSquaresAndLeavesTheResiduals)
{
    function_system system(2, [](std::span<const double> x, std::span<double> f) { f[0] = x[0], f[1] = 4.0; });
    std::vector<double> f(2);
    EXPECT_EQ(fmin_nle(system, std::vector{3.0, 0.0}, f), 12.5);
    EXPECT_EQ(f, (std::vector{3.0, 4.0}));
    EXPECT_EQ(failure_of([&] { fmin_nle(system, std::vector{1e200, 0.0}, f); }), "6");
}

} // namespace kelvarin::test
