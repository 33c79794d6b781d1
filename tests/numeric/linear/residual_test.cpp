// SPDX-License-Identifier: MIT
#include "matrices.h"
#include "numeric/linear/residual.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvarin::test
{

// All by hand. With e = 2^-52 the product (1 + e)(1 - e) is 1 - e^2, which a double rounds to 1; and 1 + e^2 less 1 is
// e^2 only where the sum keeps what it loses.
TEST(RelativeResidual, TellsDifferencesThatPlainSumsLose)
{
    constexpr double e = 0x1p-52;
    const table<std::string, std::vector<double>, std::vector<double>, std::vector<double>, double> cases = {
        {"solved", {2, 1, 1, -1}, {2, 1}, {5, 1}, 0.0},
        {"largest of the rows, over its largest product", {2, 1, 1, -1}, {2, 1}, {5, 2}, 0.5},
        {"over the right side where that is largest", {1, 0, 0, 1}, {0, 2}, {4, 2}, 1.0},
        {"rounding of a product", {1 + e, 0, 0, 1}, {1 - e, 1}, {1, 1}, e * e},
        {"rounding of a sum", {1, e * e, 0, 1}, {1, 1}, {1, 1}, e * e},
        {"products beyond doubles", {0x1p+990, -0x1p+990, 0, 0x1p-990}, {0x1p+990, 0x1p+990}, {0, 1}, 0.0},
        {"all zero", {0, 0, 0, 0}, {1, 2}, {0, 0}, 0.0},
        {"zero unknowns", {1, 2, 3, 4}, {0, 0}, {0, 0}, 0.0},
        {"zero unknowns, no solution", {1, 2, 3, 4}, {0, 0}, {1e-300, 0}, 1.0},
    };
    for (const auto& [name, a, x, b, expected] : cases)
        EXPECT_EQ(relative_residual(matrix_of(2, a), x, b), expected) << name;
}

} // namespace kelvarin::test
