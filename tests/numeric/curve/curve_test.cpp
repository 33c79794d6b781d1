// SPDX-License-Identifier: MIT
#include "failures.h"
#include "numeric/curve/cubic_spline.h"
#include "numeric/curve/polynomial_interpolation.h"
#include "numeric/curve/quadrature.h"
#include "numeric/curve/rational_interpolation.h"
#include "support/digits.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

namespace kelvarin::test
{
namespace
{

struct points
{
    std::vector<double> x;
    std::vector<double> y;
};

points tabulated(std::vector<double> x, const std::function<double(double)>& f)
{
    points made{std::move(x), {}};
    std::ranges::transform(made.x, std::back_inserter(made.y), f);
    return made;
}

/// Any natural spline through (0,0), (1,1), (2,0) has the second derivative -3 in the middle: 4 y2 = -12.
const points tent{{0.0, 1.0, 2.0}, {0.0, 1.0, 0.0}};

TEST(RationalInterpolation, GivesRationalFunctionsBackAndNodesExactly)
{
    // Three points fix (a + b x) / (1 + c x).
    const points p = tabulated({0.0, 1.0, 3.0}, [](double x) { return (1.0 + 2.0 * x) / (1.0 + x); });
    for (const double at : {0.5, 2.0, 2.9, 4.0})
        EXPECT_GE(digits_shown(ratint(p.x, p.y, at).value, (1.0 + 2.0 * at) / (1.0 + at)), 13.0) << at;
    const interpolated_value hit = ratint(p.x, p.y, 3.0);
    EXPECT_EQ(hit.value, p.y[2]);
    EXPECT_EQ(hit.error, 0.0);
}

TEST(RationalInterpolation, TellsHowFarItMayBeOff)
{
    const points p = tabulated({0.0, 0.5, 1.0, 1.5, 2.0}, [](double x) { return std::exp(x); });
    const interpolated_value found = ratint(p.x, p.y, 0.8);
    EXPECT_GT(std::fabs(found.error), 0.0);
    EXPECT_LE(std::fabs(found.value - std::exp(0.8)), std::fabs(found.error));
}

TEST(RationalInterpolation, APoleAtThePointIsAFailure)
{
    // The straight line 2 x + 1 through 0 and 1 has its pole at x1 + x2 + c/m = 1.5.
    const points line{{0.0, 1.0}, {1.0, 3.0}};
    EXPECT_EQ(failure_of([&] { ratint(line.x, line.y, 1.5); }), "8888 Error in routine ratint");
}

TEST(PolynomialInterpolation, GivesPolynomialsBackOfAnyOrderOfNodes)
{
    const auto cubic = [](double x) { return 2.0 - x + 0.5 * x * x * x; };
    const points p = tabulated({3.0, 0.0, 1.0, -2.0}, cubic);
    for (const double at : {0.5, -1.5, 3.0, 5.0})
        EXPECT_GE(digits_shown(polint(p.x, p.y, at).value, cubic(at)), 13.0) << at;
    const points twice{{0.0, 1.0, 1.0}, {0.0, 1.0, 2.0}};
    EXPECT_EQ(failure_of([&] { polint(twice.x, twice.y, 0.5); }), "8888 Error in routine polint");
}

TEST(PolynomialInterpolation, DerivativeIsExactForCubicsFromFivePointsOnAndForParabolasWithFour)
{
    const points five = tabulated({0.0, 1.0, 1.5, 3.0, 4.0}, [](double x) { return x * x * x - 2.0 * x; });
    const points four = tabulated({0.0, 1.0, 1.5, 3.0}, [](double x) { return 3.0 * x * x - x; });
    for (const double at : {0.0, 0.5, 1.0, 1.2, 2.9, 3.0}) {
        EXPECT_NEAR(lagrange_derivative(five.x, five.y, at), 3.0 * at * at - 2.0, 1e-12) << at;
        EXPECT_NEAR(lagrange_derivative(four.x, four.y, at), 6.0 * at - 1.0, 1e-12) << at;
    }
    EXPECT_NEAR(lagrange_derivative(five.x, five.y, 4.0), 46.0, 1e-12);
}

TEST(PolynomialInterpolation, LineBetweenTheNearestPointsOfUnsortedData)
{
    const points p{{4.0, 1.0, 2.0}, {40.0, 10.0, 30.0}};
    EXPECT_EQ(linear_interpolation(p.x, p.y, 2.0), 30.0);
    EXPECT_EQ(linear_interpolation(p.x, p.y, 1.25), 15.0);
    EXPECT_EQ(linear_interpolation(p.x, p.y, 3.0), 35.0);
}

TEST(CubicSpline, ValueDerivativeAndIntegralByHand)
{
    const std::vector<double> y2 = spline(tent.x, tent.y);
    EXPECT_EQ(y2, (std::vector<double>{0.0, -3.0, 0.0}));
    EXPECT_DOUBLE_EQ(splint(tent.x, tent.y, y2, 0.5), 0.6875);
    EXPECT_DOUBLE_EQ(spline_value(tent.x, tent.y, 1.5), 0.6875);
    EXPECT_DOUBLE_EQ(spline_derivative(tent.x, tent.y, y2, 0.0), 1.5);
    EXPECT_DOUBLE_EQ(spline_derivative(tent.x, tent.y, y2, 1.0), 0.0);
    EXPECT_DOUBLE_EQ(spline_integral(tent.x, tent.y, y2, 0.0, 1.0), 0.625);
    // On [0, 1] the spline is 1.5 x - 0.5 x^3, whose integral to 1/2 is 0.1875 - 0.0078125.
    EXPECT_DOUBLE_EQ(spline_integral(tent.x, tent.y, y2, 0.5, 2.0), 1.25 - 0.1796875);
    EXPECT_DOUBLE_EQ(spline_integral(tent.x, tent.y, y2, 2.0, 0.5), 0.1796875 - 1.25);
    // Beyond the ends the cubics go on.
    EXPECT_DOUBLE_EQ(splint(tent.x, tent.y, y2, -1.0), -1.0);
    EXPECT_DOUBLE_EQ(splint(tent.x, tent.y, y2, 3.0), -1.0);
}

TEST(CubicSpline, MeetsItsNodesAndConvergesOnASmoothFunction)
{
    std::vector<double> x;
    for (int i = 0; i <= 40; ++i)
        x.push_back(std::numbers::pi * i / 40.0);
    const points p = tabulated(x, [](double at) { return std::sin(at); });
    const std::vector<double> y2 = spline(p.x, p.y);
    for (std::size_t i = 0; i < x.size(); ++i)
        EXPECT_NEAR(splint(p.x, p.y, y2, x[i]), p.y[i], 1e-15);
    // sin has no second derivative at 0 and pi, so that the natural ends cost nothing: errors of order h^4.
    EXPECT_NEAR(splint(p.x, p.y, y2, 1.234), std::sin(1.234), 1e-7);
    EXPECT_NEAR(spline_derivative(p.x, p.y, y2, 1.234), std::cos(1.234), 1e-5);
    EXPECT_NEAR(spline_integral(p.x, p.y, y2, 0.0, std::numbers::pi), 2.0, 1e-6);
}

TEST(CubicSpline, EqualNodesAreAFailure)
{
    const points twice{{0.0, 1.0, 1.0}, {0.0, 1.0, 2.0}};
    EXPECT_EQ(failure_of([&] { spline(twice.x, twice.y); }), "11");
    EXPECT_EQ(failure_of([&] { splint(twice.x, twice.y, std::vector<double>(3, 0.0), 1.0); }),
              "8888 Bad xa input to routine splint");
}

TEST(Quadrature, NodesAndWeightsOfGaussAndLegendre)
{
    // [AbramowitzStegun1972] table 25.4.
    for (const auto& [n, index, node, weight] :
         table<int, std::size_t, double, double>{{1, 0, 0.0, 2.0},
                                                 {2, 1, 0.577350269189626, 1.0},
                                                 {5, 4, 0.906179845938664, 0.236926885056189},
                                                 {5, 2, 0.0, 0.568888888888889},
                                                 {10, 9, 0.973906528517172, 0.066671344308688}}) {
        const quadrature_rule rule = gauleg(-1.0, 1.0, n);
        EXPECT_NEAR(rule.nodes[index], node, 5e-16) << n;
        EXPECT_NEAR(rule.weights[index], weight, 2e-15) << n;
    }
    const quadrature_rule many = gauleg(2.0, 5.0, 600);
    EXPECT_TRUE(std::ranges::is_sorted(many.nodes));
    double sum = 0.0;
    for (std::size_t i = 0; i < many.nodes.size(); ++i)
        sum += many.weights[i] / many.nodes[i];
    EXPECT_NEAR(sum, std::log(2.5), 1e-12);
}

TEST(Quadrature, ParabolasAreIntegratedExactlyForAnyNumberOfPoints)
{
    const auto parabola = [](double x) { return 1.0 - x + 3.0 * x * x; };
    const auto integral = [](double x) { return x - x * x / 2.0 + x * x * x; };
    const std::vector<double> nodes = {0.0, 0.5, 2.0, 2.5, 4.0, 4.5};
    for (std::size_t n = 3; n <= nodes.size(); ++n) {
        const points p = tabulated({nodes.begin(), nodes.begin() + static_cast<std::ptrdiff_t>(n)}, parabola);
        EXPECT_NEAR(simpson_unequal(p.x, p.y), integral(p.x.back()), 1e-12) << n;
    }
    EXPECT_EQ(simpson_unequal(std::vector{1.0, 3.0}, std::vector{2.0, 4.0}), 6.0);
    EXPECT_EQ(simpson_unequal(std::vector{1.0}, std::vector{2.0}), 0.0);
}

} // namespace
} // namespace kelvarin::test
