// SPDX-License-Identifier: MIT
#include "leq/leq_run.h"
#include "leq/leq_sample.h"
#include "shell/document/cell_block.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>

namespace kelvarin::test
{

// The largest coefficient of a row is at most 25 + 5, and exceeds the sum of the others by 1 at least. Scaled by
// 1/32 a row sums up to less than 2 with a surplus of 1/32 or more, so that the inverse is at most 32 in the
// maximum norm: the bound of diagonally dominant matrices.
TEST(LeqSample, IsWellConditionedWithAWholeSolutionAndAnotherEachTime)
{
    std::set<std::string> seen;
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        const leq_content sample = sample_leq(seed);
        EXPECT_EQ(sample.title, "Sample random problem");
        const leq_outcome outcome = run_leq(sample);
        ASSERT_TRUE(outcome.has_report);
        EXPECT_GT(outcome.reciprocal_condition, 1.0 / 64.0);
        for (const double value : outcome.solution)
            EXPECT_NEAR(value, std::round(value), 1e-12);
        EXPECT_EQ(sample_leq(seed), sample);
        seen.insert(block_text(sample.cells, {0, 0, sample.count(), sample.count() + 1}));
    }
    EXPECT_EQ(seen.size(), 200u);
}

} // namespace kelvarin::test
