// SPDX-License-Identifier: MIT
#include "failures.h"
#include "matrices.h"
#include "numeric/linear/lu.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace kelvarin::test
{

namespace
{

lu_factors factors_of(const matrix& a)
{
    lu_factors lu(a.rows());
    lu.a = a;
    return lu;
}

double reduced(const matrix& a, int i, int j)
{
    double sum = a(i, j);
    for (int k = 0; k < std::min(i, j); ++k)
        sum -= a(i, k) * a(k, j);
    return sum;
}

/// Crout's method, column by column and each element as one sum, without a thought of zeros. The pivots come
/// from the decomposition under test, which are right when no other candidate of the column is larger.
matrix crout(matrix a, const std::vector<int>& interchanges, std::vector<double> largest)
{
    for (int j = 0; j < a.columns(); ++j) {
        for (int i = 0; i < a.rows(); ++i)
            a(i, j) = reduced(a, i, j);
        const int pivot = interchanges[static_cast<std::size_t>(j)];
        for (int i = j; i < a.rows(); ++i) {
            const double candidate = 1.0 / largest[static_cast<std::size_t>(i)] * std::fabs(a(i, j));
            const double chosen = 1.0 / largest[static_cast<std::size_t>(pivot)] * std::fabs(a(pivot, j));
            RC_ASSERT((i <= pivot ? candidate <= chosen : candidate < chosen));
        }
        std::ranges::swap_ranges(a.row(pivot), a.row(j));
        largest[static_cast<std::size_t>(pivot)] = largest[static_cast<std::size_t>(j)];
        if (a(j, j) == 0.0) a(j, j) = 1e-20;
        for (int i = j + 1; i < a.rows(); ++i)
            a(i, j) *= 1.0 / a(j, j);
    }
    return a;
}

std::vector<double> largest_of_rows(const matrix& a)
{
    std::vector<double> largest;
    for (int i = 0; i < a.rows(); ++i)
        largest.push_back(std::fabs(*std::ranges::max_element(a.row(i), {}, [](double v) { return std::fabs(v); })));
    return largest;
}

} // namespace

RC_GTEST_PROP(LuDecomposition, GivesTheNumbersOfCroutsMethod, ())
{
    const matrix a = random_matrix(*rc::gen::inRange(1, 20));
    const std::vector<double> largest = largest_of_rows(a);
    lu_factors lu = factors_of(a);
    if (std::ranges::count(largest, 0.0) != 0) {
        RC_ASSERT(failure_of([&] { ludcmp(lu); }) == "8888 LUDCMP: Singular matrix in routine ludcmp");
        return;
    }
    ludcmp(lu);
    const matrix expected = crout(a, lu.indx, largest);
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.columns(); ++j)
            RC_ASSERT(lu.a(i, j) == expected(i, j));
}

RC_GTEST_PROP(LuDecomposition, SolvesForOneRightSideAfterTheOther, ())
{
    const int n = *rc::gen::inRange(1, 30);
    lu_factors lu(n);
    for (int round = 0; round < 2; ++round) {
        const matrix a = random_dominant_matrix(n);
        lu.a = a;
        ludcmp(lu);
        const std::vector<double> x = random_vector(n);
        std::vector<double> b(x.size(), 0.0);
        for (int i = 0; i < n; ++i)
            for (std::size_t j = 0; j < x.size(); ++j)
                b[static_cast<std::size_t>(i)] += a(i, static_cast<int>(j)) * x[j];
        lubksb(lu, b);
        RC_ASSERT(largest_difference(b, x) < 1e-10);
    }
}

TEST(LuDecomposition, PutsATinyPivotInPlaceOfZeroAndTellsTheSignOfTheInterchanges)
{
    lu_factors lu = factors_of(matrix_of(2, {1.0, 1.0, 1.0, 1.0}));
    ludcmp(lu);
    EXPECT_EQ(lu.a(1, 1), 1e-20);
    lu = factors_of(matrix_of(3, {0.0, 2.0, 0.0, 0.0, 0.0, 3.0, 5.0, 0.0, 0.0}));
    ludcmp(lu);
    EXPECT_EQ(lu.d * lu.a(0, 0) * lu.a(1, 1) * lu.a(2, 2), 30.0);
}

TEST(LuDecomposition, RefusesWhatIsNotFinite)
{
    lu_factors lu = factors_of(matrix_of(1, {std::numeric_limits<double>::quiet_NaN()}));
    EXPECT_EQ(failure_of([&] { ludcmp(lu); }), "6");
    lu = factors_of(matrix_of(1, {1e-10}));
    ludcmp(lu);
    std::vector<double> b = {1e300};
    EXPECT_EQ(failure_of([&] { lubksb(lu, b); }), "6");
}

} // namespace kelvarin::test
