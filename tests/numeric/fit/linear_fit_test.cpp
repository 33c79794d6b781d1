// SPDX-License-Identifier: MIT
#include "failures.h"
#include "numeric/fit/marquardt.h"
#include "numeric/fit/normal_equations.h"
#include "numeric/fit/scaled_marquardt.h"
#include "numeric/fit/student_t.h"
#include "numeric/linear/matrix_products.h"
#include "support/certified_problem.h"
#include "support/digits.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <span>
#include <vector>

namespace kelvarin::test
{
namespace
{

TEST(StudentT, IsTheTableAndNoFormula)
{
    const double rows[] = {0.0,   12.707, 4.303, 3.182, 2.776, 2.571, 2.447, 2.365, 2.306, 2.262, 2.228, 2.201, 2.179,
                           2.16,  2.145,  2.131, 2.12,  2.11,  2.101, 2.093, 2.086, 2.08,  2.074, 2.069, 2.064, 2.06,
                           2.056, 2.052,  2.048, 2.045, 2.042, 2.038, 2.034, 2.03,  2.026, 2.022, 2.017, 2.013, 2.009,
                           2.005, 2.001,  1.997, 1.993, 1.989, 1.985, 1.98,  1.976, 1.972, 1.968, 1.964, 1.96};
    for (int df = 0; df < 51; ++df)
        EXPECT_EQ(Td(df), rows[df]) << df;
    EXPECT_EQ(Td(1000), 1.96);
    EXPECT_EQ(Td(-1), 1.96);
}

struct linear_case
{
    const char* name;
    /// Of a polynomial; 0 where the columns of the data are the design.
    int degree;
    bool constant_term;
    /// What is left of the double's 16 digits by normal equations without scaling.
    double digits;
};

/// Certified digits that the explicit inverse must still show, and may not by far exceed: nothing stands behind its
/// back.
TEST(LinearFit, ShowsTheDigitsThatNormalEquationsLeave)
{
    for (const linear_case& each : {linear_case{"noint1", 1, false, 14.0}, linear_case{"pontius", 2, true, 10.0},
                                    linear_case{"wampler2", 5, true, 5.5}, linear_case{"wampler4", 5, true, 5.5},
                                    linear_case{"longley", 0, true, 6.5}}) {
        SCOPED_TRACE(each.name);
        const certified_problem problem = read_certified(each.name);
        const std::vector<std::span<const double>> columns(problem.columns.begin() + 1, problem.columns.end());
        const matrix design = each.degree > 0 ? polynomial_design(problem.x(), each.degree, each.constant_term)
                                              : columns_design(columns, each.constant_term);
        const linear_fit fit = fit_linear(design, problem.y());
        ASSERT_EQ(fit.coef.size(), problem.parameters.size());
        const int df = static_cast<int>(problem.y().size() - fit.coef.size());
        for (std::size_t j = 0; j < fit.coef.size(); ++j) {
            EXPECT_GE(digits_shown(fit.coef[j], problem.parameters[j].value), each.digits) << j;
            if (problem.parameters[j].standard_deviation == 0.0) continue;
            EXPECT_GE(digits_shown(fit.conf[j], problem.parameters[j].standard_deviation * Td(df)), each.digits) << j;
        }
        if (problem.rss > 0.0) {
            EXPECT_GE(digits_shown(fit.statistics.SSE, problem.rss), each.digits - 1.0);
            EXPECT_DOUBLE_EQ(fit.statistics.Rmsd,
                             std::sqrt(fit.statistics.SSE) / static_cast<double>(problem.y().size()));
        }
    }
}

TEST(LinearFit, StatisticsByHand)
{
    // y = 2, 4, 3 over x = 1, 2, 3: the line 2 + x/2 leaves -0.5, 1, -0.5, around the mean 3 there is 2.
    const std::vector<double> x = {1.0, 2.0, 3.0};
    const std::vector<double> y = {2.0, 4.0, 3.0};
    const linear_fit line = fit_linear(polynomial_design(x, 1, true), y);
    EXPECT_NEAR(line.coef[0], 2.0, 1e-13);
    EXPECT_NEAR(line.coef[1], 0.5, 1e-13);
    EXPECT_NEAR(line.statistics.SSE, 1.5, 1e-13);
    EXPECT_NEAR(line.statistics.R2, 0.25, 1e-13);
    EXPECT_NEAR(line.statistics.R2adj, -0.5, 1e-13);
    EXPECT_NEAR(line.statistics.Rmsd, std::sqrt(1.5) / 3.0, 1e-13);
    EXPECT_NEAR(line.statistics.Variance, 1.5, 1e-13);
    // The normal matrix 3, 6, 6, 14 has the inverse 14/6, -1, -1, 3/6.
    EXPECT_NEAR(line.conf[0], std::sqrt(1.5 * 14.0 / 6.0) * 12.707, 1e-11);
    EXPECT_NEAR(line.conf[1], std::sqrt(1.5 / 2.0) * 12.707, 1e-11);

    // As many parameters as observations: no degree of freedom is left.
    const linear_fit parabola = fit_linear(polynomial_design(x, 2, true), y);
    EXPECT_EQ(parabola.statistics.R2adj, 0.0);
    EXPECT_EQ(parabola.statistics.Variance, 1e99);
    EXPECT_EQ(parabola.conf, std::vector<double>(3, 0.0));

    // Through the origin the mean stays the measure: 18 / 14 x leaves more than the mean does.
    const linear_fit origin = fit_linear(polynomial_design(x, 1, false), y);
    EXPECT_NEAR(origin.coef[0], 19.0 / 14.0, 1e-13);
    EXPECT_NEAR(origin.statistics.R2, 1.0 - (29.0 - 19.0 * 19.0 / 14.0) / 2.0, 1e-12);
}

TEST(LinearFit, FailuresOfItsParts)
{
    const std::vector<double> x = {1.0, 2.0, 3.0};
    const std::vector<std::span<const double>> twice = {x, x};
    EXPECT_EQ(failure_of([&] { fit_linear(columns_design(twice, false), x); }),
              "8888 Singular matrix when evaluating inverse matrix");
    // The mean of four fives is exactly 5.
    const std::vector<double> constant(4, 5.0);
    EXPECT_EQ(failure_of([&] {
                  fit_linear(polynomial_design(std::vector{1.0, 2.0, 3.0, 4.0}, 1, true), constant);
              }),
              "11");
    EXPECT_EQ(failure_of([&] { matrix_multiply(matrix(2, 3), matrix(2, 3)); }),
              "8888 impossible to multiple arrays - inconsistent dimentions !");
    EXPECT_EQ(failure_of([] { half_width(-1.0, 1.0, -1); }), "5");
}

TEST(LinearFit, WidthsCoverTheTruthAsOftenAsTheySay)
{
    // 10,000 straight lines of 20 points with normal errors: 95 % of the widths hold the true slope and constant.
    constexpr int lines = 10000;
    std::mt19937_64 generator(20260102);
    std::normal_distribution<double> error(0.0, 3.0);
    std::vector<double> x(20);
    std::iota(x.begin(), x.end(), 1.0);
    const matrix design = polynomial_design(x, 1, true);
    int slope_held = 0;
    int constant_held = 0;
    for (int line = 0; line < lines; ++line) {
        std::vector<double> y;
        for (const double at : x)
            y.push_back(100.0 + 7.0 * at + error(generator));
        const linear_fit fit = fit_linear(design, y);
        constant_held += std::fabs(fit.coef[0] - 100.0) <= fit.conf[0] ? 1 : 0;
        slope_held += std::fabs(fit.coef[1] - 7.0) <= fit.conf[1] ? 1 : 0;
    }
    EXPECT_NEAR(slope_held / static_cast<double>(lines), 0.95, 0.01);
    EXPECT_NEAR(constant_held / static_cast<double>(lines), 0.95, 0.01);
}

struct straight_line
{
    std::vector<double> x, y;
};

/// x from 1 to 20, |y| up to 1000.
straight_line line_with_errors(std::mt19937_64& generator)
{
    std::uniform_real_distribution<double> number(-1.0, 1.0);
    const double slope = 20.0 * number(generator);
    straight_line line;
    for (int i = 1; i <= 20; ++i) {
        line.x.push_back(i);
        line.y.push_back(500.0 * number(generator) * number(generator) + slope * i);
    }
    return line;
}

/// Coefficients and widths by the ways of the three pages, if the one of mrqmin does not end by its test of R2.
std::vector<std::vector<double>> by_all_pages(const straight_line& line)
{
    const fit_model model = [&line](std::span<const double> b, std::span<double> values) {
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = b[0] + b[1] * line.x[i];
    };
    const auto all_of = [](std::vector<double> values, const std::vector<double>& conf) {
        values.insert(values.end(), conf.begin(), conf.end());
        return values;
    };
    const std::span<const double> column = line.x;
    // L-M takes no parameter farther from its guess than about a hundred times.
    const std::vector<double> guess = {10.0, 10.0};
    const linear_fit polynomial = fit_linear(polynomial_design(line.x, 1, true), line.y);
    const linear_fit multiple = fit_linear(columns_design({&column, 1}, true), line.y);
    const nonlinear_fit scaled = fit_scaled_marquardt(model, line.y, guess);
    std::vector<std::vector<double>> found = {all_of(polynomial.coef, polynomial.conf),
                                              all_of(multiple.coef, multiple.conf), all_of(scaled.a, scaled.conf)};
    const nonlinear_fit marquardt = fit_mrqmin(model, line.y, guess);
    if (marquardt.statistics.R2 <= 1.0 - mrqmin_options().tol) found.push_back(all_of(marquardt.a, marquardt.conf));
    return found;
}

// The nonlinear fits end by tests that the last bits of the sum of squares decide: one step more, or one less.
constexpr std::size_t linear_pages = 2;

TEST(LinearFit, AllPagesAgreeAndTheOrderOfRowsMattersToRoundingAlone)
{
    std::mt19937_64 generator(7);
    for (int round = 0; round < 200; ++round) {
        const straight_line line = line_with_errors(generator);
        std::vector<std::size_t> order(line.x.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::shuffle(order.begin(), order.end(), generator);
        straight_line mixed;
        for (const std::size_t i : order) {
            mixed.x.push_back(line.x[i]);
            mixed.y.push_back(line.y[i]);
        }
        const auto found = by_all_pages(line);
        const auto of_mixed = by_all_pages(mixed);
        ASSERT_EQ(found.size(), of_mixed.size());
        for (std::size_t page = 0; page < found.size(); ++page)
            for (std::size_t j = 0; j < found[page].size(); ++j) {
                SCOPED_TRACE(std::to_string(round) + ", " + std::to_string(page) + ", " + std::to_string(j));
                // Beside the size of the numbers that they come from.
                const double size = std::max(1.0, std::fabs(found[0][j]));
                EXPECT_NEAR(found[page][j], found[0][j], 1e-6 * size);
                EXPECT_NEAR(of_mixed[page][j], found[page][j], (page < linear_pages ? 1e-12 : 1e-6) * size);
            }
    }
}

} // namespace
} // namespace kelvarin::test
