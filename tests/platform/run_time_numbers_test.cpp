// SPDX-License-Identifier: MIT
#include "platform/run_time_numbers.h"

#include "platform/runtime_failure.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace kelvarin
{

TEST(Rounding, TakesHalvesToTheEvenNeighbour)
{
    const test::table<double, double> cases = {
        {2.5, 2.0},     {3.5, 4.0},  {-2.5, -2.0},     {-3.5, -4.0},
        {0.5, 0.0},     {1.5, 2.0},  {2.4999999, 2.0}, {0.49999999999999994, 0.0},
        {1e300, 1e300}, {-7.0, -7.0}};
    for (const auto& [value, expected] : cases)
        EXPECT_EQ(round_half_even(value), expected) << value;
}

TEST(Rounding, OverflowsOutsideSixteenBitsOnBothSides)
{
    EXPECT_EQ(to_int16(32767.4), 32767);
    EXPECT_EQ(to_int16(-32768.5), -32768);
    EXPECT_EQ(to_int16(2.5), 2);
    for (const double value : {32767.5, 32768.0, -32769.0, -40000.0, 1e300, std::nan("")}) {
        SCOPED_TRACE(value);
        EXPECT_THROW(to_int16(value), runtime_failure);
    }
}

TEST(RandomGenerator, FollowsThePublishedSequence)
{
    // The first states from 0 as printed in W. H. Press et al., "Numerical Recipes in C", 2nd ed., p. 284.
    random_generator random;
    random.seed(0);
    for (const std::uint32_t state : {0x3C6EF35Fu, 0x47502932u, 0xD1CCF6E9u, 0xAAF95334u, 0x6252E503u, 0x9F2EC686u})
        EXPECT_EQ(random.next(1.0f), static_cast<float>(state >> 8) / 16777216.0f);
}

TEST(RandomGenerator, RestartsBelowZeroAndRepeatsAtZero)
{
    random_generator random;
    const float before_any_draw = random.next(0.0f);
    EXPECT_EQ(random.next(0.0f), before_any_draw);
    const float first = random.next(-3.0f);
    EXPECT_EQ(random.next(0.0f), first);
    const float second = random.next(1.0f);
    EXPECT_NE(second, first);
    EXPECT_EQ(random.next(-0.0f), second);
    EXPECT_EQ(random.next(-3.0f), first);
    EXPECT_EQ(random.next(0.5f), second);
    EXPECT_NE(random.next(-4.0f), first);
}

TEST(RuntimeFailure, TellsNumberDescriptionAndDetail)
{
    for (const auto& [number, expected] : test::table<int, const char*>{{5, "Invalid procedure call or argument"},
                                                                        {6, "Overflow"},
                                                                        {9, "Subscript out of range"},
                                                                        {11, "Division by zero"},
                                                                        {13, "Type mismatch"},
                                                                        {8888, "Numeric failure"},
                                                                        {7, "Out of memory"},
                                                                        {10, "Unknown failure"}}) {
        EXPECT_EQ(runtime_failure_text(number), expected);
        EXPECT_EQ(runtime_failure(number).what(), std::to_string(number) + ": " + expected);
    }
    try {
        nrerror("NEWT: MAXITS exceeded in newt");
    } catch (const runtime_failure& failure) {
        EXPECT_EQ(failure.number(), 8888);
        EXPECT_EQ(failure.detail(), "NEWT: MAXITS exceeded in newt");
    }
}

} // namespace kelvarin
