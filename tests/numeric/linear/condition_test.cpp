// SPDX-License-Identifier: MIT
#include "matrices.h"
#include "numeric/linear/condition.h"
#include "support/digits.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace kelvarin::test
{

// By hand from the inverses. With d = 2^-20, that of {1, 1, 1, 1 + d} is {1 + d, -1, -1, 1} / d, so both norms
// are 2 + d, the second over d. The triangle {1, 1, 0, 1} has the inverse {1, -1, 0, 1}.
TEST(ReciprocalCondition, IsThatOfTheMaximumNorm)
{
    const double d = 0x1p-20;
    const table<std::string, std::vector<double>, double> cases = {
        {"identity", {1, 0, 0, 1}, 1.0},
        {"rows of very different size", {0x1p-40, 0, 0, 1}, 0x1p-40},
        {"an inverse too large for a number", {5e-324, 0, 0, 1}, 0.0},
        {"a condition too large for a number", {0x1p-990, 0, 0, 0x1p990}, 0.0},
        {"nearly equal rows", {1, 1, 1, 1 + d}, d / ((2 + d) * (2 + d))},
        {"triangle", {1, 1, 0, 1}, 0.25},
        {"one unknown", {-7}, 1.0},
        {"equal rows", {1, 2, 1, 2}, 0.0},
        {"a row of zeros", {0, 0, 1, 2}, 0.0},
        {"a column of zeros", {0, 1, 0, 2}, 0.0},
    };
    for (const auto& [name, a, expected] : cases) {
        SCOPED_TRACE(name);
        const double found = reciprocal_condition(matrix_of(a.size() == 1 ? 1 : 2, a));
        if (expected == 0.0) {
            EXPECT_EQ(found, 0.0);
        } else {
            EXPECT_GE(digits_shown(found, expected), expected < 1e-3 ? 9.0 : 14.0) << found;
        }
    }
}

RC_GTEST_PROP(ReciprocalCondition, AFactorOfTheWholeMatrixPlaysNoPart, ())
{
    matrix a = random_dominant_matrix(*rc::gen::inRange(2, 9));
    const double before = reciprocal_condition(a);
    RC_ASSERT(before > 0.0);
    RC_ASSERT(before <= 1.0);
    for (int row = 0; row < a.rows(); ++row)
        for (double& element : a.row(row))
            element *= 0x1p+300;
    RC_ASSERT(reciprocal_condition(a) == before);
}

} // namespace kelvarin::test
