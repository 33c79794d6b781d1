// SPDX-License-Identifier: MIT
#include "numeric/linear/matrix_algebra.h"

#include "../failures.h"
#include "matrices.h"
#include "support/digits.h"
#include "support/table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace kelvarin::test
{
namespace
{

matrix of_size(int n, double (*element)(int, int))
{
    matrix a(n, n);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            a(i, j) = element(i + 1, j + 1);
    return a;
}

matrix hilbert(int n)
{
    return of_size(n, [](int i, int j) { return 1.0 / (i + j - 1); });
}

matrix pascal(int n)
{
    matrix a(n, n, 1.0);
    for (int i = 1; i < n; ++i)
        for (int j = 1; j < n; ++j)
            a(i, j) = a(i - 1, j) + a(i, j - 1);
    return a;
}

const matrix permutation = matrix_of(4, {0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 1, 0, 1, 0, 0});

TEST(MatrixAlgebra, RankDeterminantAndTraceAreThoseKnown)
{
    // Hilbert: the reciprocals of the determinants are 12, 2160 and 266716800000. Pascal: 1.
    const table<const char*, matrix, int, std::optional<double>, double> rows = {
        {"one by one", matrix_of(1, {-2}), 1, -2.0, -2.0},
        {"Hilbert 2", hilbert(2), 2, 1.0 / 12, 4.0 / 3},
        {"Hilbert 3", hilbert(3), 3, 1.0 / 2160, 23.0 / 15},
        {"Hilbert 5: small pivots count as zeros", hilbert(5), 4, 1.0 / 266716800000.0, 563.0 / 315},
        {"Pascal 4", pascal(4), 4, 1.0, 29.0},
        {"an odd permutation", permutation, 4, -1.0, 0.0},
        {"rows in arithmetic progression", matrix_of(3, {1, 2, 3, 4, 5, 6, 7, 8, 9}), 2, std::nullopt, 15.0},
        {"zeros", matrix(3, 3), 0, std::nullopt, 0.0},
        {"a row of zeros", matrix_of(2, {1, 2, 0, 0}), 1, std::nullopt, 1.0},
        {"a pivot at the rank's bound", matrix_of(2, {1, 0, 0, 0.0001}), 2, 0.0001, 1.0001},
        {"a pivot below it", matrix_of(2, {1, 0, 0, 0.00009}), 1, 0.00009, 1.00009},
        {"small units", matrix_of(2, {1e-13, 0, 0, 1e-13}), 2, std::nullopt, 2e-13},
    };
    for (const auto& [name, a, rank, determinant, trace] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(matrix_rank(a), rank);
        const std::optional<double> found = matrix_determinant(a);
        ASSERT_EQ(found.has_value(), determinant.has_value());
        EXPECT_GE(digits_shown(found.value_or(0.0), determinant.value_or(0.0)), 11.0);
        EXPECT_DOUBLE_EQ(matrix_trace(a), trace);
    }
    EXPECT_EQ(matrix_rank(matrix_of(2, {0, 0, 2, 4, 0, 0, 3, 5})), 2);
    EXPECT_EQ(matrix_rank(matrix_of(3, {1, 2, 3})), 1);
}

TEST(MatrixAlgebra, InversesAreThoseKnown)
{
    const matrix of_hilbert = matrix_of(3, {9, -36, 30, -36, 192, -180, 30, -180, 180});
    const matrix of_pascal = matrix_of(3, {3, -3, 1, -3, 5, -2, 1, -2, 1});
    const table<matrix, matrix> rows = {
        {hilbert(3), of_hilbert}, {pascal(3), of_pascal}, {permutation, matrix_transposed(permutation)}};
    for (const auto& [a, expected] : rows) {
        const std::optional<matrix> inverse = matrix_inverted(a);
        ASSERT_TRUE(inverse);
        for (std::size_t k = 0; k < expected.values().size(); ++k)
            EXPECT_NEAR(inverse->values()[k], expected.values()[k], 1e-10);
    }
    EXPECT_FALSE(matrix_inverted(matrix_of(2, {1, 2, 2, 4})));
}

TEST(MatrixAlgebra, ResultsBeyondTheDoublesFail)
{
    const double most = std::numeric_limits<double>::max();
    const matrix large = matrix_of(2, {most, 0, 0, most});
    const matrix opposite = matrix_of(2, {-most, 0, 0, -most});
    EXPECT_EQ(failure_of([&] { matrix_add(large, large); }), "6");
    EXPECT_EQ(failure_of([&] { matrix_subtract(large, opposite); }), "6");
    EXPECT_EQ(failure_of([&] { matrix_product(large, large); }), "6");
    EXPECT_EQ(failure_of([&] { matrix_trace(large); }), "6");
    EXPECT_EQ(failure_of([&] { matrix_determinant(large); }), "6");
}

} // namespace
} // namespace kelvarin::test
