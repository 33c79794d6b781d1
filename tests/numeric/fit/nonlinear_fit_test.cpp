// SPDX-License-Identifier: MIT
#include "failures.h"
#include "numeric/fit/marquardt.h"
#include "numeric/fit/refined_fit.h"
#include "numeric/fit/scaled_marquardt.h"
#include "numeric/fit/student_t.h"
#include "numeric/linear/symmetric_eigen.h"
#include "support/certified_problem.h"
#include "support/digits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>
#include <string>
#include <vector>

namespace kelvarin::test
{
namespace
{

using point_model = double (*)(std::span<const double> b, double x);

fit_model over(const std::vector<double>& x, point_model f)
{
    return [&x, f](std::span<const double> b, std::span<double> values) {
        for (std::size_t i = 0; i < x.size(); ++i)
            values[i] = f(b, x[i]);
    };
}

struct nonlinear_case
{
    const char* name;
    point_model model;
    std::size_t start;
    /// Of the sum of squares, the parameters and their widths: what central differences of 1 % leave.
    double sum_digits = 6.0, value_digits = 3.1, width_digits = 1.5;
};

const nonlinear_case certified[] = {
    {"misra1b", [](std::span<const double> b, double x) { return b[0] * (1 - std::pow(1 + b[1] * x / 2, -2)); }, 1},
    {"chwirut1", [](std::span<const double> b, double x) { return std::exp(-b[0] * x) / (b[1] + b[2] * x); }, 1},
    {"danwood", [](std::span<const double> b, double x) { return b[0] * std::pow(x, b[1]); }, 0},
    {"misra1d", [](std::span<const double> b, double x) { return b[0] * b[1] * x / (1 + b[1] * x); }, 1},
    {"gauss2",
     [](std::span<const double> b, double x) {
         const auto bell = [](double distance) { return std::exp(-distance * distance); };
         return b[0] * std::exp(-b[1] * x) + b[2] * bell((x - b[3]) / b[4]) + b[5] * bell((x - b[6]) / b[7]);
     },
     1},
    {"rat43",
     [](std::span<const double> b, double x) { return b[0] / std::pow(1 + std::exp(b[1] - b[2] * x), 1 / b[3]); }, 1},
    {"thurber",
     [](std::span<const double> b, double x) {
         return (b[0] + x * (b[1] + x * (b[2] + x * b[3]))) / (1 + x * (b[4] + x * (b[5] + x * b[6])));
     },
     1},
    {"eckerle4",
     [](std::span<const double> b, double x) {
         const double distance = (x - b[2]) / b[1];
         return b[0] / b[1] * std::exp(-0.5 * distance * distance);
     },
     1,
     // A step of 1 % is wider than the peak.
     2.4, 2.5, 0.4},
    {"mgh09", [](std::span<const double> b, double x) { return b[0] * x * (x + b[1]) / (x * (x + b[2]) + b[3]); }, 1},
};

TEST(ScaledMarquardt, FindsTheCertifiedParametersAsFarAsItsDifferencesLetIt)
{
    for (const nonlinear_case& each : certified) {
        SCOPED_TRACE(each.name);
        const certified_problem problem = read_certified(each.name);
        const nonlinear_fit fit =
            fit_scaled_marquardt(over(problem.x(), each.model), problem.y(), problem.start(each.start));
        EXPECT_FALSE(fit.limit_reached);
        EXPECT_GE(digits_shown(fit.statistics.SSE, problem.rss), each.sum_digits);
        const int df = static_cast<int>(problem.y().size() - fit.a.size());
        for (std::size_t j = 0; j < fit.a.size(); ++j) {
            EXPECT_GE(digits_shown(fit.a[j], problem.parameters[j].value), each.value_digits) << j;
            EXPECT_GE(digits_shown(fit.conf[j], problem.parameters[j].standard_deviation * Td(df)), each.width_digits)
                << j;
        }
    }
}

TEST(Marquardt, ComesNearTheCertifiedSumOfSquaresWhereItsTestsLetIt)
{
    for (const char* name : {"danwood", "gauss2", "chwirut1"}) {
        SCOPED_TRACE(name);
        const auto& each = *std::ranges::find_if(
            certified, [name](const nonlinear_case& row) { return std::string(row.name) == name; });
        const certified_problem problem = read_certified(name);
        const nonlinear_fit fit = fit_mrqmin(over(problem.x(), each.model), problem.y(), problem.start(each.start));
        EXPECT_NEAR(fit.chisq / problem.rss, 1.0, 0.01);
        EXPECT_EQ(fit.chisq, fit.statistics.SSE);
        EXPECT_FALSE(fit.limit_reached);
        EXPECT_GE(fit.alamda, 0.0);
    }
}

TEST(Marquardt, AStalledStepEndsAGoodFitAtOnce)
{
    // Data of a straight line with one outlier: R2 is between 0.98 and 1, and the fourth call can no longer help.
    std::vector<double> x(20);
    std::iota(x.begin(), x.end(), 1.0);
    std::vector<double> y;
    for (const double at : x)
        y.push_back(at == 7.0 ? 8.0 : at);
    const fit_model line = over(x, [](std::span<const double> b, double at) { return b[0] + b[1] * at; });
    const nonlinear_fit fit = fit_mrqmin(line, y, std::vector{0.0, 0.5}, {.maxiter = 64, .tol = 1e-9});
    EXPECT_GT(fit.statistics.R2, 0.98);
    EXPECT_LE(fit.iterations, 8);
    // With a poor R2 it goes on to the limit, and one call beyond.
    std::vector<double> scattered = y;
    for (std::size_t i = 0; i < y.size(); ++i)
        scattered[i] += i % 2 == 0 ? 8.0 : -8.0;
    const nonlinear_fit poor = fit_mrqmin(line, scattered, std::vector{0.5, 0.9}, {.maxiter = 10, .tol = 1e-4});
    EXPECT_EQ(poor.iterations, 11);
    EXPECT_TRUE(poor.limit_reached);
}

TEST(NonlinearFit, FailuresEndTheFit)
{
    const std::vector<double> x = {1.0, 2.0, 3.0, 4.0};
    const std::vector<double> y = {1.0, 2.5, 2.5, 4.0};
    const fit_model without_b = over(x, [](std::span<const double> b, double at) { return b[0] * at + 0.0 * b[1]; });
    EXPECT_EQ(failure_of([&] { fit_mrqmin(without_b, y, std::vector{1.0, 1.0}); }), "8888 GAUSSJ: Singular Matrix-2");
    EXPECT_EQ(failure_of([&] {
                  fit_scaled_marquardt(without_b, y, std::vector{1.0, 1.0});
              }),
              "8888 L-M: Singular Matrix");
    const fit_model overflows = over(x, [](std::span<const double> b, double at) { return std::exp(b[0] * at); });
    EXPECT_EQ(failure_of([&] { fit_mrqmin(overflows, y, std::vector{500.0}); }), "6");
    // More parameters than observations: the variance is negative.
    const std::vector<double> twice = {1.0, 1.0};
    const fit_model parabola =
        over(twice, [](std::span<const double> b, double at) { return b[0] + at * (b[1] + at * b[2]); });
    EXPECT_EQ(failure_of([&] { fit_scaled_marquardt(parabola, std::vector{1.0, 2.0}, std::vector(3, 0.1)); }), "5");
}

TEST(ScaledMarquardt, NoParameterLeavesTheRangeAroundItsGuess)
{
    // The best b is 1000, the range of the guess 1 ends at 102.
    const std::vector<double> x = {1.0, 2.0, 3.0};
    const std::vector<double> y = {1000.0, 2000.0, 3001.0};
    const fit_model line = over(x, [](std::span<const double> b, double at) { return b[0] * at; });
    const nonlinear_fit fit = fit_scaled_marquardt(line, y, std::vector{1.0});
    EXPECT_LE(fit.a[0], 102.0);
    EXPECT_GT(fit.a[0], 1.0);
    // A guess of 0 moves by absolute steps.
    const nonlinear_fit small = fit_scaled_marquardt(line, std::vector{0.5, 1.0, 1.6}, std::vector{0.0});
    EXPECT_NEAR(small.a[0], 7.3 / 14.0, 1e-6);
}

TEST(ScaledMarquardt, ALimitBelowFortyCountsAsForty)
{
    const certified_problem problem = read_certified("mgh09");
    int calls = 0;
    const fit_model slow = over(problem.x(), certified[8].model);
    const nonlinear_fit fit =
        fit_scaled_marquardt(slow, problem.y(), problem.start(0), {.maxiter = 10, .on_iteration = [&](int, int limit) {
                                                                       ++calls;
                                                                       EXPECT_EQ(limit, 40);
                                                                   }});
    EXPECT_EQ(calls, fit.iterations);
    EXPECT_GT(fit.iterations, 10);
}

TEST(RefinedFit, ReachesTheCertifiedDigitsFromBothStarts)
{
    for (const nonlinear_case& each : certified)
        for (const std::size_t start : {std::size_t{0}, std::size_t{1}}) {
            SCOPED_TRACE(std::string(each.name) + " from start " + std::to_string(start + 1));
            const certified_problem problem = read_certified(each.name);
            const refined_fit fit = refine_fit(over(problem.x(), each.model), problem.y(), problem.start(start));
            EXPECT_TRUE(fit.converged);
            EXPECT_GE(digits_shown(fit.SSE, problem.rss), 9.5);
            for (std::size_t j = 0; j < fit.a.size(); ++j)
                EXPECT_GE(digits_shown(fit.a[j], problem.parameters[j].value), 9.5) << j;
        }
}

TEST(SymmetricEigen, PairsOfKnownMatrices)
{
    // The second difference matrix has the eigenvalues 4 sin(k pi / (2 (n + 1)))^2.
    constexpr int n = 60;
    matrix a(n, n);
    for (int i = 0; i < n; ++i) {
        a(i, i) = 2.0;
        if (i > 0) a(i, i - 1) = a(i - 1, i) = -1.0;
    }
    const eigen_pairs pairs = symmetric_eigen(a);
    std::vector<double> sorted = pairs.values;
    std::ranges::sort(sorted);
    for (int k = 1; k <= n; ++k) {
        const double root = 2.0 * std::sin(k * std::acos(-1.0) / (2.0 * (n + 1)));
        EXPECT_GE(digits_shown(sorted[static_cast<std::size_t>(k - 1)], root * root), 11.5) << k;
    }
    for (int k = 0; k < n; ++k) {
        double norm = 0.0;
        double worst = 0.0;
        for (int i = 0; i < n; ++i) {
            double product = 0.0;
            for (int j = 0; j < n; ++j)
                product += a(i, j) * pairs.vectors(j, k);
            worst =
                std::max(worst, std::fabs(product - pairs.values[static_cast<std::size_t>(k)] * pairs.vectors(i, k)));
            norm += pairs.vectors(i, k) * pairs.vectors(i, k);
        }
        EXPECT_LE(worst, 1e-13);
        EXPECT_NEAR(norm, 1.0, 1e-13);
    }
}

} // namespace
} // namespace kelvarin::test
