// SPDX-License-Identifier: MIT
#include "matrices.h"
#include "numeric/linear/least_squares.h"
#include "numeric/linear/qr.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <vector>

namespace kelvarin::test
{

namespace
{

/// Q transposed and R as matrices of their own, multiplied together from what qrdcmp leaves.
struct factors
{
    matrix qt;
    matrix r;
    bool singular = false;
};

factors factorise(matrix a)
{
    const int n = a.rows();
    std::vector<double> c(static_cast<std::size_t>(n));
    std::vector<double> d(static_cast<std::size_t>(n));
    factors made{identity(n), matrix(n, n), qrdcmp(a, c, d)};
    for (int k = 0; k < n - 1; ++k) {
        const double c_k = c[static_cast<std::size_t>(k)];
        if (c_k == 0.0) continue;
        matrix reflection = identity(n);
        for (int i = k; i < n; ++i)
            for (int j = k; j < n; ++j)
                reflection(i, j) -= a(i, k) * a(j, k) / c_k;
        made.qt = product(reflection, made.qt);
    }
    for (int i = 0; i < n; ++i) {
        made.r(i, i) = d[static_cast<std::size_t>(i)];
        for (int j = i + 1; j < n; ++j)
            made.r(i, j) = a(i, j);
    }
    return made;
}

double size_of(const matrix& a)
{
    double largest = 1.0;
    for (const double element : a.values())
        largest = std::max(largest, std::fabs(element));
    return largest;
}

void assert_factors(const factors& made, const matrix& a)
{
    RC_ASSERT(largest_difference(product(made.qt, transposed(made.qt)).values(), identity(a.rows()).values()) < 1e-12);
    RC_ASSERT(largest_difference(product(transposed(made.qt), made.r).values(), a.values()) < 1e-12 * size_of(a));
    for (int i = 1; i < a.rows(); ++i)
        for (int j = 0; j < i; ++j)
            RC_ASSERT(std::fabs(made.r(i, j)) < 1e-12 * size_of(a));
}

} // namespace

RC_GTEST_PROP(Qr, FactorsAreOrthogonalAndTriangularAndGiveTheMatrix, ())
{
    const matrix a = random_matrix(*rc::gen::inRange(1, 10));
    const factors made = factorise(a);
    assert_factors(made, a);
    bool zero_on_diagonal = false;
    for (int i = 0; i < a.rows(); ++i)
        zero_on_diagonal = zero_on_diagonal || made.r(i, i) == 0.0;
    RC_ASSERT(made.singular == zero_on_diagonal);
}

RC_GTEST_PROP(Qr, UpdateAddsTheProductOfTwoVectors, ())
{
    const int n = *rc::gen::inRange(1, 10);
    const matrix a = random_dominant_matrix(n);
    factors made = factorise(a);
    const std::vector<double> u = random_vector(n);
    const std::vector<double> v = random_vector(n);
    matrix changed = a;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            changed(i, j) += u[static_cast<std::size_t>(i)] * v[static_cast<std::size_t>(j)];
    const matrix turned = product(made.qt, matrix_of(n, u));
    std::vector<double> turned_u(turned.values().begin(), turned.values().end());
    qrupdt(made.r, made.qt, turned_u, v);
    assert_factors(made, changed);
}

RC_GTEST_PROP(Qr, TriangularSolutionFits, ())
{
    const int n = *rc::gen::inRange(1, 10);
    const matrix r = factorise(random_dominant_matrix(n)).r;
    std::vector<double> d;
    for (int i = 0; i < n; ++i)
        d.push_back(r(i, i));
    const std::vector<double> right_side = random_vector(n);
    std::vector<double> b = right_side;
    rsolv(r, d, b);
    RC_ASSERT(largest_difference(product(r, matrix_of(n, b)).values(), right_side) < 1e-12);
}

TEST(Qr, ColumnOfZerosIsSingular)
{
    EXPECT_TRUE(factorise(matrix_of(2, {0.0, 1.0, 0.0, 2.0})).singular);
    EXPECT_TRUE(factorise(matrix_of(2, {1.0, 0.0, 2.0, 0.0})).singular);
    EXPECT_FALSE(factorise(matrix_of(2, {0.0, 1.0, 2.0, 0.0})).singular);
}

// The residual of a least-squares solution stands upright on all columns.
RC_GTEST_PROP(LeastSquares, ResidualIsOrthogonalToTheColumns, ())
{
    const int n = *rc::gen::inRange(1, 8);
    const matrix a =
        matrix_of(n, *rc::gen::container<std::vector<double>>(static_cast<std::size_t>(n * n), element(0)));
    const std::vector<double> b = random_vector(n);
    matrix used = a;
    std::vector<double> used_b = b;
    std::vector<double> x(static_cast<std::size_t>(n));
    solve_least_squares(used, used_b, 1e-12, x);
    matrix residual = product(a, matrix_of(n, x));
    for (int i = 0; i < n; ++i)
        residual(i, 0) -= b[static_cast<std::size_t>(i)];
    const matrix upright = product(transposed(a), residual);
    RC_ASSERT(largest_difference(upright.values(), std::vector<double>(x.size())) < 1e-9);
}

TEST(LeastSquares, UnknownsThatAddNothingAreZero)
{
    using values = std::vector<double>;
    // x1 + x2 = 1 and x1 + x2 = 3 agree best on a sum of 2; the first column is taken.
    const table<values, values, values> cases = {{{1.0, 1.0, 1.0, 1.0}, {1.0, 3.0}, {2.0, 0.0}},
                                                 {{0.0, 0.0, 0.0, 0.0}, {1.0, 3.0}, {0.0, 0.0}},
                                                 {{0.0, 1e-300, 2e-300, 0.0}, {1e-300, 2e-300}, {1.0, 1.0}},
                                                 {{1.0, 0.0, 0.0, 1e-13}, {1.0, 1.0}, {1.0, 0.0}}};
    for (const auto& [coefficients, right_side, expected] : cases) {
        SCOPED_TRACE(testing::PrintToString(coefficients));
        matrix a = matrix_of(2, coefficients);
        std::vector<double> b = right_side;
        std::vector<double> x(2, -1.0);
        solve_least_squares(a, b, 1e-12, x);
        EXPECT_LT(largest_difference(x, expected), 1e-12);
    }
}

} // namespace kelvarin::test
