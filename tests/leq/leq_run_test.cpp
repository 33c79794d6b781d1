// SPDX-License-Identifier: MIT
#include "leq/leq_run.h"
#include "support/digits.h"
#include "support/leq_problems.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <random>

namespace kelvarin
{
namespace
{

using test::equations;

std::string box_of(const leq_outcome& outcome)
{
    return outcome.boxes.empty() ? std::string() : outcome.boxes.front().title + ": " + outcome.boxes.front().text;
}

// All by hand.
TEST(LeqRun, GivesTheSolutionOrTheBox)
{
    const std::string empty = "Kelvarin Guide: The coefficients matrix contains one or more empty cells ";
    const std::string odd = "Kelvarin Guide: The coefficients matrix contains a cell that is not a number ";
    const std::string singular = "Kelvarin Guide: Error, Singular Matrix enetered !";
    const test::table<std::string, leq_content, std::vector<double>, std::string> cases = {
        {"plain", equations({{"2", "1", "5"}, {"1", "-1", "1"}}), {2, 1}, ""},
        {"zeros on the diagonal", equations({{"0", "1", "3"}, {"2", "0", "4"}}), {2, 3}, ""},
        {"a pivot of 1e-300", equations({{"1e-300", "0", "1e-300"}, {"0", "1", "2"}}), {1, 2}, ""},
        {"sizes far apart", equations({{"1E+200", "0", "2E+200"}, {"0", "1E-200", "3E-200"}}), {2, 3}, ""},
        {"every form of a number", equations({{"1e0", " 0 ", ".5"}, {"-0", "1d1", "+20."}}), {0.5, 2}, ""},
        {"zero right side", equations({{"1", "2", "0"}, {"2", "1", "0"}}), {0, 0}, ""},
        {"a row of zeros", equations({{"0", "0", "1"}, {"1", "2", "3"}}), {}, singular},
        {"equal rows", equations({{"1", "2", "3"}, {"1", "2", "3"}}), {}, singular},
        {"a zero column", equations({{"0", "2", "3"}, {"0", "1", "3"}}), {}, singular},
        {"an empty beta", equations({{"1", "2", "3"}, {"1", "2", ""}}), {}, empty + "(2,3)"},
        {"blanks are empty", equations({{"1", "  ", "3"}, {"", "2", "1"}}), {}, empty + "(1,2)"},
        {"12abc", equations({{"1", "12abc", ""}, {"1", "2", "3"}}), {}, odd + "(1,2): '12abc'"},
        {"a decimal comma", equations({{"1", "1", "2"}, {"1", "2", "1,5"}}), {}, odd + "(2,3): '1,5'"},
        {"hexadecimal", equations({{"0x10", "1", "2"}, {"1", "2", "1"}}), {}, odd + "(1,1): '0x10'"},
        {"nan", equations({{"1", "nan", "2"}, {"1", "2", "1"}}), {}, odd + "(1,2): 'nan'"},
        {"inf", equations({{"1", "1", "2"}, {"inf", "2", "1"}}), {}, odd + "(2,1): 'inf'"},
        {"half typed", equations({{"1", "1E-", "2"}, {"1", "2", "1"}}), {}, odd + "(1,2): '1E-'"},
        {"too large", equations({{"1", "1e999", "2"}, {"1", "2", "1"}}), {}, odd + "(1,2): '1e999'"},
        {"the solution overflows",
         equations({{"1e-200", "0", "1e200"}, {"0", "1", "1"}}),
         {},
         "Kelvarin Guide: Error: Overflow"},
    };
    for (const auto& [name, content, solution, box] : cases) {
        SCOPED_TRACE(name);
        const leq_outcome outcome = run_leq(content);
        EXPECT_EQ(box_of(outcome), box);
        EXPECT_EQ(outcome.has_report, box.empty());
        ASSERT_EQ(outcome.solution.size(), solution.size());
        for (std::size_t i = 0; i < solution.size(); ++i)
            EXPECT_GE(test::digits_shown(outcome.solution[i], solution[i]), 15.0) << outcome.solution[i];
        EXPECT_LT(outcome.residual, 1e-15);
    }
}

TEST(LeqRun, OnlyTheCellBeingEditedPassesTheCheck)
{
    const leq_content content = equations({{"1", "1E-", "2"}, {"1", "2", "1"}});
    EXPECT_FALSE(ok_to_run(content));
    EXPECT_FALSE(ok_to_run(content, leq_cell{1, 0}));
    EXPECT_TRUE(ok_to_run(content, leq_cell{0, 1}));
    EXPECT_EQ(run_leq(content).fault, (leq_cell{0, 1}));
}

/// Hilbert's matrix times 360360, so that up to 8 equations every coefficient is whole.
leq_content hilbert(int n)
{
    leq_content content(n);
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < n; ++column)
            content.cells.set_cell(row, column, std::to_string(360360 / (row + column + 1)));
        content.cells.set_cell(row, n, "360360");
    }
    return content;
}

// The solution for a right side of ones is whole: (-1)^(n-i) (n+i-1)! / ((i-1)!^2 (n-i)!), the sums of the rows of
// the inverse. Condition numbers from 27 (n = 2) to 3.4e10 (n = 8) leave that many digits of sixteen.
TEST(LeqRun, KeepsTheDigitsThatHilbertsMatrixLeaves)
{
    const auto factorial = [](int k) { return std::tgamma(k + 1.0); };
    for (int n = 2; n <= 8; ++n) {
        SCOPED_TRACE(n);
        const leq_outcome outcome = run_leq(hilbert(n));
        ASSERT_TRUE(outcome.has_report);
        for (int i = 1; i <= n; ++i) {
            const double size = factorial(n + i - 1) / (factorial(i - 1) * factorial(i - 1) * factorial(n - i));
            const double expected = (n - i) % 2 == 0 ? size : -size;
            EXPECT_GE(test::digits_shown(outcome.solution[static_cast<std::size_t>(i - 1)], expected), 16.5 - 1.5 * n);
        }
        EXPECT_LT(outcome.residual, 1e-13);
        EXPECT_TRUE(outcome.trustworthy());
    }
}

TEST(LeqRun, WarnsOfMatricesWhoseSolutionMeansNothing)
{
    const test::table<std::string, leq_content, bool> cases = {
        // Singular in exact arithmetic; elimination leaves a pivot of rounding errors.
        {"1 to 9", equations({{"1", "2", "3", "1"}, {"4", "5", "6", "2"}, {"7", "8", "9", "4"}}), false},
        {"rows that differ in the 14th digit", equations({{"1", "1", "2"}, {"1", "1.00000000000001", "2"}}), false},
        {"rows that differ in the 10th digit", equations({{"1", "1", "2"}, {"1", "1.0000000001", "2"}}), true},
        {"a diagonal of very different size", equations({{"1", "0", "1"}, {"0", "1e-13", "1"}}), false},
    };
    for (const auto& [name, content, trustworthy] : cases) {
        SCOPED_TRACE(name);
        const leq_outcome outcome = run_leq(content);
        ASSERT_TRUE(outcome.has_report) << box_of(outcome);
        EXPECT_EQ(outcome.trustworthy(), trustworthy) << outcome.reciprocal_condition;
    }
}

RC_GTEST_PROP(LeqRun, RowsOfAPermutationComeOutExactly, ())
{
    const int n = *rc::gen::inRange(2, 65);
    std::mt19937 random(*rc::gen::arbitrary<std::uint32_t>());
    std::vector<int> order(static_cast<std::size_t>(n));
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), random);
    leq_content content(n);
    content = with_zeros(content);
    for (int row = 0; row < n; ++row) {
        content.cells.set_cell(row, order[static_cast<std::size_t>(row)], "1");
        content.cells.set_cell(row, n, std::to_string(row) + ".1");
    }
    const leq_outcome outcome = run_leq(content);
    RC_ASSERT(outcome.has_report);
    for (int row = 0; row < n; ++row)
        RC_ASSERT(outcome.solution[static_cast<std::size_t>(order[static_cast<std::size_t>(row)])] ==
                  std::stod(content.cell(row, n)));
    RC_ASSERT(outcome.residual == 0.0);
}

RC_GTEST_PROP(LeqRun, FindsWholeSolutionsOfLargeSystems, ())
{
    constexpr int n = largest_leq_count;
    std::mt19937 random(*rc::gen::arbitrary<std::uint32_t>());
    const auto whole = [&random] { return static_cast<int>(random() % 199) - 99; };
    std::vector<int> x(n);
    std::ranges::generate(x, whole);
    leq_content content(n);
    for (int row = 0; row < n; ++row) {
        int beta = 0;
        for (int column = 0; column < n; ++column) {
            const int coefficient = whole();
            content.cells.set_cell(row, column, std::to_string(coefficient));
            beta += coefficient * x[static_cast<std::size_t>(column)];
        }
        content.cells.set_cell(row, n, std::to_string(beta));
    }
    const leq_outcome outcome = run_leq(content);
    RC_ASSERT(outcome.has_report);
    RC_ASSERT(outcome.residual < 1e-12);
    // The bound that condition and residual give together, with a factor of 100 to spare.
    for (std::size_t i = 0; i < x.size(); ++i)
        RC_ASSERT(std::fabs(outcome.solution[i] - x[i]) <= 100 * 99 * 1e-14 / outcome.reciprocal_condition);
}

} // namespace
} // namespace kelvarin
