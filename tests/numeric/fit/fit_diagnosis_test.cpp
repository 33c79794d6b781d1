// SPDX-License-Identifier: MIT
#include "numeric/fit/distributions.h"
#include "numeric/fit/fit_diagnosis.h"
#include "numeric/fit/normal_equations.h"
#include "numeric/linear/matrix_products.h"
#include "numeric/linear/thin_qr.h"
#include "support/certified_problem.h"
#include "support/digits.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{
namespace
{

TEST(Distributions, TailsOfPrintedTables)
{
    // The 5 % and 1 % points of t and F as printed, to their digits.
    const table<double, double, double> t = {
        {12.706205, 1, 0.05}, {2.228139, 10, 0.05}, {2.749996, 30, 0.01}, {1.959964, 1e8, 0.05}};
    for (const auto& [value, df, p] : t)
        EXPECT_GE(digits_shown(two_sided_t(value, df), p), 5.5) << df;
    const table<double, double, double, double> F = {
        {161.4476, 1, 1, 0.05}, {3.325835, 5, 10, 0.05}, {5.636326, 5, 10, 0.01}, {1.0, 7, 7, 0.5}};
    for (const auto& [value, df1, df2, p] : F)
        EXPECT_GE(digits_shown(upper_F(value, df1, df2), p), 5.0) << df1;
    EXPECT_GE(digits_shown(two_sided_normal(1.959964), 0.05), 5.5);
    const table<double, double> quantiles = {
        {0.5, 0.0}, {0.975, 1.959963985}, {0.01, -2.326347874}, {1e-6, -4.753424309}, {0.5398278373, 0.1}};
    for (const auto& [probability, z] : quantiles)
        EXPECT_NEAR(normal_quantile(probability), z, 1e-9) << probability;
}

TEST(FitDiagnosis, ErrorsAreTheCertifiedOnes)
{
    const certified_problem problem = read_certified("longley");
    const std::vector<std::span<const double>> columns(problem.columns.begin() + 1, problem.columns.end());
    const matrix design = columns_design(columns, true);
    const linear_fit fit = fit_linear(design, problem.y());
    const auto found = diagnose_fit(matrix_transpose(design), problem.y(), fit.calculated);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->degrees_of_freedom, 9);
    for (std::size_t j = 0; j < problem.parameters.size(); ++j)
        EXPECT_GE(digits_shown(found->standard_errors[j], problem.parameters[j].standard_deviation), 7.0) << j;
    // As published for these data: F 330.285, and a scaled condition of some 43275.
    EXPECT_NEAR(*found->F, 330.285, 0.001);
    EXPECT_NEAR(found->condition, 43275.0, 1.0);
}

TEST(FitDiagnosis, ALineByHand)
{
    // Leverage of a line is 1/n + (x - mean)^2 / sum; the residuals alternate, so there are as many runs as rows.
    const std::vector<double> x = {0, 1, 2, 3, 4};
    const std::vector<double> y = {1, -1, 1, -1, 1};
    const matrix design = polynomial_design(x, 1, true);
    const auto found = diagnose_fit(matrix_transpose(design), y, fit_linear(design, y).calculated);
    ASSERT_TRUE(found);
    const double leverage[] = {0.6, 0.3, 0.2, 0.3, 0.6};
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_NEAR(found->leverage[i], leverage[i], 1e-14);
    EXPECT_EQ(found->runs, 5);
    EXPECT_NEAR(found->correlation(0, 1), -std::sqrt(4.0 / 6.0), 1e-14);
    // Dependent columns, and no degree of freedom.
    matrix twice(2, 3, 1.0);
    EXPECT_FALSE(diagnose_fit(twice, std::vector{1.0, 2.0, 3.0}, std::vector{2.0, 2.0, 2.0}));
    EXPECT_FALSE(diagnose_fit(matrix_transpose(polynomial_design(x, 4, true)), y, y));
}

TEST(ThinQr, KeepsTheDigitsThatNormalEquationsLose)
{
    const certified_problem problem = read_certified("wampler4");
    const std::vector<double> coef =
        least_squares_solution(factor_columns(matrix_transpose(polynomial_design(problem.x(), 5, true))), problem.y());
    for (std::size_t j = 0; j < coef.size(); ++j)
        EXPECT_GE(digits_shown(coef[j], problem.parameters[j].value), 8.0) << j;
}

} // namespace
} // namespace kelvarin::test
