// SPDX-License-Identifier: MIT
#include "nle/nle_run.h"
#include "support/digits.h"
#include "support/equation_rows.h"
#include "support/nle_runs.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace kelvarin::test
{
namespace
{

void expect_box(const nle_outcome& outcome, const char* title, const char* text)
{
    EXPECT_FALSE(outcome.has_report);
    ASSERT_EQ(outcome.boxes.size(), 1U);
    EXPECT_EQ(outcome.boxes.front().title, title);
    EXPECT_EQ(outcome.boxes.front().text, text);
    EXPECT_EQ(outcome.boxes.front().icon, box_icon::critical);
}

/// One equation for x, solved from a guess within bounds.
nle_content equation(const std::string& text, std::string lower, std::string upper, const std::string& guess = "1")
{
    return single_of({implicit_row("x", text, guess)}, std::move(lower), std::move(upper));
}

TEST(NleSingle, FindsTheRootsOfTheRangeInTheOrderOfTheScan)
{
    const double root = std::sqrt(2.0);
    constexpr double e = std::numbers::e;
    const table<const char*, nle_content, std::vector<double>> searches = {
        {"two roots", equation("x^2 - 2", "-3", "3"), {-root, root}},
        {"downward", equation("x^2 - 2", "3", "-3"), {root, -root}},
        {"three roots", equation("(x - 1)*(x - 2)*(x - 4)", "0.3", "5"), {1, 2, 4}},
        {"with explicit rows",
         single_of({explicit_row("y", "x - k"), implicit_row("x", "y*y - 4"), explicit_row("k", "3")}, "0.3", "9"),
         {1, 5}},
        // The residual test holds at the first start, the middle of interval 43 from 1.
        {"values too small for a product", equation("1e-200*(x - 1)", "0.3", "3"), {0.3 + 43.5 * 2.7 / 167}},
        {"no change of sign: the guess decides", equation("(x - 3)*(x - 4)", "5", "9", "2.9"), {3}},
        {"no change of sign at a kept root outside", equation("x - 10", "0", "2"), {10}},
        {"two roots within a hundredth are one", equation("1000*(x - 1)*(x - 1.005)", "0.99", "1.02"), {1}},
        {"also downward", equation("1000*(x - 1)*(x - 1.005)", "1.02", "0.99"), {1.005}},
        {"roots further apart are two", equation("1000*(x - 1)*(x - 1.02)", "0.99", "1.03"), {1, 1.02}},
        {"no root at all", single_of({implicit_row("x", "x^2 + 1", "0")}, "-2", "2", nle_method::safenewt), {}},
        // The failure at the guess must not reach the scan. The root of ln x = 1 is Euler's number.
        {"guess outside the domain", equation("ln(x) - 1", "1", "5", "-1"), {e}},
        {"guess outside the domain, with explicit rows",
         single_of({explicit_row("y", "ln(x)"), implicit_row("x", "y - 1", "-1")}, "1", "5"),
         {e}},
    };
    for (const auto& [name, content, roots] : searches) {
        SCOPED_TRACE(name);
        const nle_outcome outcome = run_of(content);
        ASSERT_TRUE(outcome.has_report);
        EXPECT_EQ(outcome.converged(), !roots.empty());
        ASSERT_EQ(single_result(outcome).roots.size(), roots.size());
        for (std::size_t i = 0; i < roots.size(); ++i) {
            EXPECT_GE(digits_shown(single_result(outcome).roots[i].implicit.front().value, roots[i]), 6.0);
        }
    }
}

TEST(NleSingle, EveryMethodOfOneEquationFindsBothRoots)
{
    for (const nle_method method : {nle_method::fastnewt, nle_method::safenewt, nle_method::safebroydn}) {
        const nle_outcome outcome = run_of(single_of({implicit_row("x", "exp(x) - 3*x")}, "0.1", "3", method));
        // The roots of exp(x) = 3 x are -W(-1/3) on both branches.
        ASSERT_EQ(single_result(outcome).roots.size(), 2U);
        EXPECT_NEAR(single_result(outcome).roots[0].implicit.front().value, 0.619061286735945, 1e-6);
        EXPECT_NEAR(single_result(outcome).roots[1].implicit.front().value, 1.512134551657843, 1e-6);
    }
    const nle_outcome refused = run_of(single_of({implicit_row("x", "x")}, "1", "2", nle_method::constrained));
    expect_box(refused, "Kelvarin Guide",
               "Constrained NLE method may only be chosen for a system of nonlinear equations. Single NLE not allowed "
               "for this.");
}

TEST(NleSingle, TheGridEndsAtTheUpperBoundAndStartsAreMiddles)
{
    // The grid of a range of 167 has a step of 1: the points are -0.5 + i, the middles whole numbers.
    const nle_outcome outcome = run_of(equation("(x - 2)*(x - 5)", "-0.5", "166.5", "3"));
    ASSERT_EQ(single_result(outcome).scan.columns[0].size(), 167U);
    EXPECT_EQ(single_result(outcome).scan.columns[0].front(), 0.5);
    EXPECT_EQ(single_result(outcome).scan.columns[0].back(), 166.5);
    EXPECT_EQ(single_result(outcome).scan.columns[1].front(), 6.75);
    ASSERT_EQ(single_result(outcome).roots.size(), 2U);
    EXPECT_EQ(single_result(outcome).roots[0].implicit.front().guess, 2.0);
    EXPECT_EQ(single_result(outcome).roots[1].implicit.front().guess, 5.0);
    EXPECT_EQ(single_result(outcome).initial_values.implicit.front().value, 3.0);
    EXPECT_EQ(single_result(outcome).initial_values.implicit.front().residual, -2.0);
}

TEST(NleSingle, BehindAFailedGridPointTheScanHoldsZeros)
{
    // Grid step 4 / 167; point 84 is the first above 2, and keeps the 5 that was computed before the failure.
    const nle_outcome outcome = run_of(equation("5 + ln(2 - x)", "0", "4", "1.99"));
    ASSERT_TRUE(outcome.has_report);
    EXPECT_GT(single_result(outcome).scan.columns[1][82], 0.0);
    EXPECT_EQ(single_result(outcome).scan.columns[1][83], 5.0);
    for (std::size_t i = 84; i < 167; ++i)
        EXPECT_EQ(single_result(outcome).scan.columns[1][i], 0.0);
    ASSERT_EQ(single_result(outcome).roots.size(), 1U);
    EXPECT_NEAR(single_result(outcome).roots[0].implicit.front().value, 2.0 - std::exp(-5.0), 1e-7);
}

TEST(NleSingle, AKeptRootOfZeroEndsTheNextSearchInTheHandler)
{
    // The middle of interval 83 of the range is 0 exactly, and a root.
    expect_box(run_of(equation("x*(x - 0.5)*(x + 0.5)", "-1", "1")), "Kelvarin Guide",
               "Internal Error trapped.\r(11) Division by zero\r");
    const nle_outcome outcome = run_of(equation("x*(x + 0.5)", "-1", "1"));
    EXPECT_EQ(single_result(outcome).roots.size(), 2U);
}

TEST(NleSingle, AKeptRootOfZeroIsMetBeforeTheResidualIsLookedAt)
{
    // Ten doublings of the distance from the pole at 0.5 leave a residual near 1: no root, but the quotient
    // with the kept 0 comes first.
    settings few_trials;
    ASSERT_FALSE(few_trials.set_value("mnewt_n", "10"));
    const std::string pole = "x/(x - 0.5)";
    expect_box(run_of(equation(pole, "-1", "1"), few_trials), "Kelvarin Guide",
               "Internal Error trapped.\r(11) Division by zero\r");
    const nle_outcome without_zero = run_of(equation(pole, "0.3", "1", "0.6"), few_trials);
    EXPECT_TRUE(without_zero.has_report);
    EXPECT_TRUE(single_result(without_zero).roots.empty());
}

TEST(NleSingle, AtTheGuessAVariableThatFailsHindersNoOther)
{
    const nle_outcome outcome =
        run_of(single_of({explicit_row("a", "ln(x)"), explicit_row("b", "x + 3"), explicit_row("c", "a + b"),
                          implicit_row("x", "a - 1 + 0*(b + c)", "-1")},
                         "1", "5"));
    std::vector<double> values;
    for (const explicit_result& row : single_result(outcome).initial_values.explicit_values)
        values.push_back(row.value);
    EXPECT_EQ(values, (std::vector<double>{0.0, 2.0, 2.0}));
    EXPECT_EQ(single_result(outcome).roots.size(), 1U);
}

TEST(NleSingle, APoleMayPassForARootFarAway)
{
    const nle_outcome outcome = run_of(equation("1/(x - 0.1)", "0", "1"));
    ASSERT_EQ(single_result(outcome).roots.size(), 1U);
    EXPECT_GT(std::fabs(single_result(outcome).roots[0].implicit.front().value), 1e6);
}

TEST(NleSingle, AFailureInALocalSearchEndsTheRun)
{
    // The Newton step from 0.5 lands near -0.5.
    expect_box(run_of(equation("sqrt(x) - 0.001", "1", "2", "0.5")), "Expression evaluation error",
               "Error: sqrt() of negative number not allowed.\rsqrt(x)");
    settings few_steps;
    ASSERT_FALSE(few_steps.set_value("newt_MAXITS", "10"));
    expect_box(run_of(single_of({implicit_row("x", "x^20", "2")}, "1", "3", nle_method::safenewt), few_steps),
               "Kelvarin Guide", "Internal Error trapped.\r(8888) Numeric failure\rNEWT: MAXITS exceeded in newt");
    expect_box(run_of(equation("x", "-1e308", "1e308")), "Kelvarin Guide", "Internal Error trapped.\r(6) Overflow\r");
}

} // namespace
} // namespace kelvarin::test
