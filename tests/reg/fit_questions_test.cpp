// SPDX-License-Identifier: MIT
#include "reg/compare_fits.h"
#include "reg/diagnostic_graphs.h"
#include "reg/polynomial_bands.h"
#include "support/digits.h"
#include "support/tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace kelvarin
{
namespace
{

using testing::HasSubstr;

std::shared_ptr<const solved_fit> solved(const table_content& content, fit_request request)
{
    recording_listener listener;
    const fit_problem problem = {content, std::move(request), 3};
    return std::make_shared<const solved_fit>(solved_fit{problem, solve_regression(problem, settings(), listener)});
}

std::vector<graph_start> diagnostics(const solved_fit& run)
{
    recording_listener listener;
    return draw_diagnostics(run.problem, run.outcome, all_diagnostics, listener).graphs;
}

/// The orthogonal polynomials of five even points, of the degrees 2 and 3, are 2 -1 -2 -1 2 and -1 2 0 -2 1, with the
/// norms 14 and 10: P is three times the first and the second, Q is both once.
table_content orthogonal()
{
    return test::table_of({{"T", {"-2", "-1", "0", "1", "2"}},
                           {"P", {"5", "-1", "-6", "-5", "7"}},
                           {"Q", {"1", "1", "-2", "-3", "3"}},
                           {"V", {"1", "0", "-2", "-1", "2"}}});
}

fit_request polynomial(const char* dependent, std::vector<int> degrees)
{
    return {.dependent = dependent, .independents = {"T"}, .degrees = std::move(degrees)};
}

TEST(Diagnostics, ShowEachRowInEveryOrder)
{
    const auto run = solved(orthogonal(), polynomial("P", {1, 2}));
    const std::vector<graph_start> graphs = diagnostics(*run);
    std::vector<std::string> captions;
    for (const graph_start& graph : graphs)
        captions.push_back(graph.caption);
    EXPECT_EQ(captions,
              (std::vector<std::string>{"Residuals over calculated values, Solution #3.2",
                                        "Residuals over T, Solution #3.2", "Residuals over rows, Solution #3.2",
                                        "Normal probability plot, Solution #3.2", "Leverage, Solution #3.2"}));
    // The residuals are the polynomial of degree 3; sorted they come from the rows 4, 1, 3, 5, 2.
    const std::vector<double> residuals = {-1, 2, 0, -2, 1};
    for (std::size_t i = 0; i < residuals.size(); ++i)
        EXPECT_NEAR(graphs[1].columns[1].values[i], residuals[i], 1e-12);
    EXPECT_EQ(graphs[3].columns[2].values, (std::vector<double>{4, 1, 3, 5, 2}));
    EXPECT_NEAR(graphs[3].columns[0].values[2], 0.0, 1e-15);
    // The leverage of a parabola: 1/5 + T^2/10 + P2^2/14, by three parameters in five rows.
    const double leverage[] = {31.0 / 35.0, 13.0 / 35.0, 17.0 / 35.0, 13.0 / 35.0, 31.0 / 35.0};
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_NEAR(graphs[4].columns[1].values[i], leverage[i], 1e-13);
    EXPECT_EQ(graphs[4].function_text, "1.2");
    // Without degrees of freedom there is a box in place of the last.
    recording_listener listener;
    const auto through = solved(orthogonal(), polynomial("P", {4}));
    const diagnostics_outcome drawn = draw_diagnostics(through->problem, through->outcome, all_diagnostics, listener);
    EXPECT_EQ(drawn.graphs.size(), 4U);
    EXPECT_THAT(drawn.boxes.at(0).text, HasSubstr("no leverage"));
}

TEST(PolynomialBands, WidthsByHand)
{
    const auto run = solved(orthogonal(), polynomial("P", {1}));
    const auto bands = polynomial_bands(run->outcome, run->outcome.fits[0]);
    ASSERT_TRUE(bands);
    EXPECT_EQ(bands->curves[0].name, "P 95% confidence lower");
    EXPECT_EQ(bands->curves[3].name, "P 95% prediction upper");
    // The line is 0; its residuals' squares sum up to 136. t for 3 degrees of freedom is 3.182.
    const double half = 3.182 * std::sqrt(136.0 / 3.0);
    const std::size_t middle = 50;
    const std::size_t end = 100;
    EXPECT_EQ(bands->x.values[middle], 0.0);
    EXPECT_EQ(bands->x.values[end], 2.0);
    EXPECT_NEAR(bands->curves[0].values[middle], -half * std::sqrt(0.2), 1e-10);
    EXPECT_NEAR(bands->curves[1].values[end], half * std::sqrt(0.6), 1e-10);
    EXPECT_NEAR(bands->curves[2].values[middle], -half * std::sqrt(1.2), 1e-10);
    EXPECT_NEAR(bands->curves[3].values[end], half * std::sqrt(1.6), 1e-10);
    const auto through = solved(orthogonal(), polynomial("P", {4}));
    EXPECT_FALSE(polynomial_bands(through->outcome, through->outcome.fits[0]));
}

TEST(FitComparison, AVerdictInOneSentence)
{
    const table_content content = orthogonal();
    // F is 126 / (10 / 2) and 14 / (10 / 2); with 1 and 2 degrees of freedom p = 1 - sqrt(F / (F + 2)).
    const auto p = solved(content, polynomial("P", {1, 2}));
    const fit_comparison better = compare_fits({p, 1}, {p, 0});
    ASSERT_TRUE(better.test);
    EXPECT_NEAR(better.test->F, 25.2, 1e-10);
    EXPECT_NEAR(better.test->probability, 1.0 - std::sqrt(25.2 / 27.2), 1e-12);
    EXPECT_EQ(better.verdict, "#3.2: P = a0 + a1*T + a2*T^2 is better: its additional parameters explain more than "
                              "chance would (F = 25.2, p = 0.037467).");
    const auto q = solved(content, polynomial("Q", {1, 2}));
    EXPECT_THAT(compare_fits({q, 0}, {q, 1}).verdict, HasSubstr("#3.1: Q = a0 + a1*T will do"));
    EXPECT_FALSE(fit_same_data({p, 0}, {q, 0}));
    // Not nested: as many parameters, so AICc differ by 5 ln of the ratio of the sums. V without the constant explains
    // of Q, whose square is 24, (1 + 4 + 3 + 6)^2 / 10.
    const auto line = solved(content, polynomial("Q", {1}));
    fit_request other = {.kind = regression::multiple, .dependent = "Q", .independents = {"V"}};
    const auto of_v = solved(content, other);
    const fit_comparison apart = compare_fits({line, 0}, {of_v, 0});
    EXPECT_FALSE(apart.test);
    EXPECT_NEAR(std::fabs(apart.small_AICc - apart.large_AICc), 5.0 * std::log(24.0 / 4.4), 1e-10);
    EXPECT_THAT(apart.verdict, HasSubstr("Q = a0 + a1*V is better: its AICc is lower by 8.48"));
    EXPECT_THAT(comparison_report(apart, {2026, 1, 2}), HasSubstr("Verdict"));
    // A polynomial of degree 1 is a case of a multiple regression with its variable.
    other.independents = {"T", "V"};
    EXPECT_TRUE(compare_fits({line, 0}, {solved(content, other), 0}).test);
}

} // namespace
} // namespace kelvarin
