// SPDX-License-Identifier: MIT
#include "matrices.h"
#include "numeric/linear/gauss_jordan.h"
#include "platform/runtime_failure.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <functional>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace kelvarin::test
{

namespace
{

struct elimination_case
{
    std::string name;
    std::vector<double> a;
    std::vector<double> b;
    elimination_status status;
    std::vector<double> expected;
};

using elimination = std::function<elimination_status(matrix&, std::span<double>)>;
const std::vector<elimination> eliminations = {
    [](matrix& a, std::span<double> b) { return gauss_jordan_inverse(a, b); },
    [](const matrix& a, std::span<double> b) { return gauss_jordan_solve(a, b); }};

constexpr auto done = elimination_status::done;
constexpr auto singular = elimination_status::singular;

/// A matrix that no order of rows and columns leaves as it is: rows of a dominant one, interchanged.
matrix with_rows_interchanged(const matrix& a)
{
    const int n = a.rows();
    matrix made(n, n);
    for (int row = 0; row < n; ++row)
        std::ranges::copy(a.row((row + 1) % n), made.row(row).begin());
    return made;
}

} // namespace

// All by hand; every number in them is exact in binary.
TEST(GaussJordan, SolvesAndStopsAsCalculatedByHand)
{
    const std::vector<elimination_case> cases = {
        {"one unknown", {4.0}, {2.0}, done, {0.5}},
        {"one unknown, flat: the right side stays", {0.0}, {-3.0}, singular, {-3.0}},
        {"zero diagonal", {0.0, 1.0, 2.0, 0.0}, {3.0, 4.0}, done, {2.0, 3.0}},
        {"permutation", {0.0, 0.0, 1.0, 1.0, 0.0, 0.0, 0.0, 1.0, 0.0}, {7.0, 8.0, 9.0}, done, {8.0, 9.0, 7.0}},
        {"tiny pivot is no zero", {1e-300, 0.0, 0.0, 1.0}, {1e-300, 2.0}, done, {1.0, 2.0}},
        {"rows of very different size", {1.0, 0.0, 0.0, 0x1p+200}, {1.0, 0x1p+201}, done, {1.0, 2.0}},
        {"row of zeros", {0.0, 0.0, 1.0, 2.0}, {1.0, 2.0}, singular, {1.0, 1.0}},
        // The last of four equals is the pivot: 2 - 0, then 1 - 2. The first would leave 1, 1.
        {"last of equals", {1.0, 1.0, 1.0, 1.0}, {1.0, 2.0}, singular, {-1.0, 2.0}},
        {"pivot off the diagonal", {2.0, 1.0, 2.0, 1.0}, {3.0, 5.0}, singular, {2.5, -2.0}},
        {"pivot on the diagonal", {1.0, 2.0, 1.0, 2.0}, {3.0, 5.0}, singular, {-2.0, 2.5}},
        {"zeros carry no sign", {-1.0, 0.0, 0.0, 1.0}, {0.0, 0.0}, done, {0.0, 0.0}},
        {"nothing", {}, {}, done, {}},
    };
    for (const elimination_case& row : cases) {
        SCOPED_TRACE(row.name);
        for (const elimination& eliminate : eliminations) {
            matrix a = row.a.empty() ? matrix() : matrix_of(static_cast<int>(row.b.size()), row.a);
            std::vector<double> b = row.b;
            EXPECT_EQ(eliminate(a, b), row.status);
            EXPECT_EQ(bits(b), bits(row.expected));
        }
    }
}

RC_GTEST_PROP(GaussJordan, LeanEliminationHasTheBitsOfTheFullOne, ())
{
    const int n = *rc::gen::inRange(1, 40);
    matrix full = random_matrix(n);
    matrix lean = full;
    std::vector<double> b_full = random_vector(n);
    std::vector<double> b_lean = b_full;
    const elimination_status status = gauss_jordan_inverse(full, b_full);
    RC_CLASSIFY(status == singular);
    RC_ASSERT(gauss_jordan_solve(lean, b_lean) == status);
    RC_ASSERT(bits(b_lean) == bits(b_full));
}

/// Few elements in a row, of few values, so that there are ties; with a band, or a diagonal, or neither.
matrix sparse_matrix(int n, std::mt19937& random)
{
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const int kind = below(3);
    const int scattered = below(3 * n);
    matrix a(n, n);
    for (int i = 0; i < n; ++i) {
        if (kind > 0) a(i, i) = below(9) == 0 ? 0.0 : below(4) + 0.5;
        if (kind == 2 && i > 0) a(i, i - 1) = -1.0;
        if (kind == 2 && i + 1 < n) a(i, i + 1) = -2.0 + 0.25 * below(3);
    }
    for (int k = 0; k < scattered; ++k)
        a(below(n), below(n)) = below(7) - 3.0;
    return a;
}

/// Where the matrix differs from zero, and some elements more.
sparsity_pattern pattern_of(const matrix& a, std::mt19937& random)
{
    sparsity_pattern pattern;
    for (int row = 0; row < a.rows(); ++row) {
        for (int column = 0; column < a.columns(); ++column)
            if (a(row, column) != 0.0 || random() % 40 == 0)
                pattern.columns.push_back(static_cast<std::uint32_t>(column));
        pattern.row_ends.push_back(static_cast<std::uint32_t>(pattern.columns.size()));
    }
    return pattern;
}

RC_GTEST_PROP(GaussJordan, LeanEliminationHasTheBitsOfTheFullOneOnSparseMatrices, ())
{
    std::mt19937 random(*rc::gen::arbitrary<std::uint32_t>());
    elimination_workspace memory;
    const int given_n = *rc::gen::inRange(20, 140);
    // What one elimination leaves in the memory, the next one finds there.
    for (int repeat = 0; repeat < 4; ++repeat) {
        const int n = *rc::gen::element(given_n, given_n, 20 + given_n / 2);
        matrix full = sparse_matrix(n, random);
        const matrix lean = full;
        std::vector<double> b_full(static_cast<std::size_t>(n));
        for (double& value : b_full)
            value = static_cast<double>(random() % 11) - 5.0;
        std::vector<double> b_lean = b_full;
        const elimination_status status = gauss_jordan_inverse(full, b_full);
        RC_CLASSIFY(status == singular);
        const sparsity_pattern pattern = pattern_of(lean, random);
        const bool told = *rc::gen::inRange(0, 3) > 0;
        RC_ASSERT(gauss_jordan_solve(lean, b_lean, memory, told ? &pattern : nullptr) == status);
        RC_ASSERT(bits(b_lean) == bits(b_full));
    }
}

RC_GTEST_PROP(GaussJordan, LeanEliminationHasTheBitsOfTheFullOneOnPermutations, ())
{
    const int n = *rc::gen::inRange(1, 90);
    std::vector<int> order(static_cast<std::size_t>(n));
    std::iota(order.begin(), order.end(), 0);
    for (int i = n - 1; i > 0; --i)
        std::swap(order[static_cast<std::size_t>(i)], order[static_cast<std::size_t>(*rc::gen::inRange(0, i + 1))]);
    matrix a(n, n);
    for (int i = 0; i < n; ++i)
        a(i, order[static_cast<std::size_t>(i)]) = *rc::gen::element(1.0, -1.0);
    const matrix given = a;
    std::vector<double> b = random_vector(n);
    const std::vector<double> right_side = b;
    RC_ASSERT(gauss_jordan_solve(a, b) == done);
    for (int i = 0; i < n; ++i) {
        const std::size_t unknown = static_cast<std::size_t>(order[static_cast<std::size_t>(i)]);
        RC_ASSERT(given(i, order[static_cast<std::size_t>(i)]) * b[unknown] == right_side[static_cast<std::size_t>(i)]);
    }
}

RC_GTEST_PROP(GaussJordan, InverseAndSolutionFitTheMatrix, ())
{
    const int n = *rc::gen::inRange(1, 14);
    const matrix given = with_rows_interchanged(random_dominant_matrix(n));
    matrix a = given;
    std::vector<double> b = random_vector(n);
    const std::vector<double> right_side = b;
    RC_ASSERT(gauss_jordan_inverse(a, b) == done);
    RC_ASSERT(largest_difference(product(given, a).values(), identity(n).values()) < 1e-12);
    RC_ASSERT(largest_difference(product(given, matrix_of(n, b)).values(), right_side) < 1e-12);
}

TEST(GaussJordan, OverflowIsAFailureAndNeverASolution)
{
    const double huge = std::numeric_limits<double>::max();
    const table<std::string, std::vector<double>, std::vector<double>> cases = {
        {"the solution", {1e-200, 0.0, 0.0, 1.0}, {1e200, 1.0}},
        // The first step leaves huge - (-huge), or its like, for the second.
        {"a pivot", {huge, huge, -huge, huge}, {1.0, 1.0}},
        {"given infinity", {INFINITY, 1.0, 1.0, 1.0}, {1.0, 1.0}},
    };
    for (const auto& [name, coefficients, right_side] : cases) {
        SCOPED_TRACE(name);
        for (const elimination& eliminate : eliminations) {
            matrix a = matrix_of(2, coefficients);
            std::vector<double> b = right_side;
            try {
                eliminate(a, b);
                ADD_FAILURE() << b[0] << " " << b[1];
            } catch (const runtime_failure& failure) {
                EXPECT_EQ(failure.number(), failure_number::overflow);
            }
        }
    }
}

} // namespace kelvarin::test
