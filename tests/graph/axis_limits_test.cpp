// SPDX-License-Identifier: MIT
#include "graph/axis_limits.h"
#include "support/graphs.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <limits>

namespace kelvarin::test
{
namespace
{

constexpr double infinite = std::numeric_limits<double>::infinity();

/// Worked out by hand: d = (max - min) / ticks, step = 10 ^ Int(log10 d).
TEST(AxisLimits, AreRoundedOutwardToAStep)
{
    const table<const char*, axis_range, int, axis_range> rows = {
        {"d 0.958, step 0.1", {0.12, 9.7}, 10, {0.1, 9.7}},
        {"d 1, step 1: no step is added to a whole multiple", {0, 10}, 10, {0, 10}},
        {"less than 1e-8 of a step above a multiple", {0, 10.000000005}, 10, {0, 10}},
        {"more than 1e-8 of a step above it", {0, 10.00000002}, 10, {0, 11}},
        {"d 0.99, step 0.1", {0, 9.9}, 10, {0, 9.9}},
        {"d 25, step 10: Int goes toward minus infinity", {-123, 127}, 10, {-130, 130}},
        {"d 1000: the logarithm is 3, not a little less", {0, 10000}, 10, {0, 10000}},
        {"d 3.4, step 1", {1.5, 18.5}, 5, {1, 19}},
        {"d 17, step 10: fewer divisions, a coarser step", {1.5, 18.5}, 1, {0, 20}},
        {"d 2e-5, step 1e-5", {-1e-4, 1e-4}, 10, {-1e-4, 1e-4}},
        {"d 1e299", {-5e299, 5e299}, 10, {-5e299, 5e299}},
        {"d 3e-301, step 1e-301", {1e-300, 4e-300}, 10, {1e-300, 4e-300}},
    };
    for (const auto& [why, data, ticks, expected] : rows) {
        const std::optional<axis_range> rounded = rounded_range(data, ticks);
        ASSERT_TRUE(rounded) << why;
        EXPECT_DOUBLE_EQ(rounded->min, expected.min) << why;
        EXPECT_DOUBLE_EQ(rounded->max, expected.max) << why;
    }
    for (const axis_range refused : {axis_range{1, 1}, {-1.7e308, 1.7e308}, {0, 5e-324}, {0, infinite}})
        EXPECT_FALSE(rounded_range(refused, 10)) << refused.min << " to " << refused.max;
}

TEST(AxisLimits, EqualYAreWidenedBeforeTheyAreRounded)
{
    EXPECT_EQ(find_axis_limits(graph_of({{1, 2}, {5, 5}})).y, (axis_range{4, 6}));
    EXPECT_EQ(find_axis_limits(graph_of({{1, 2}, {1e17, 1e17}})).failure,
              "The range of the y values is too large or too small to be drawn.");
}

TEST(AxisLimits, EqualXAreRefusedUnlessTheUserGaveTheRange)
{
    graph_content graph = graph_of({{3, 3, 3}, {1, 2, 3}});
    EXPECT_EQ(find_axis_limits(graph).failure, equal_x_text);
    EXPECT_EQ(find_axis_limits(graph_of({{3}, {1}})).failure, equal_x_text);
    EXPECT_EQ(find_axis_limits(graph_of({{gap, infinite}, {1, 2}})).failure, equal_x_text);
    graph.x_manual = true;
    graph.x_range = {0, 7};
    EXPECT_EQ(find_axis_limits(graph).x, (axis_range{0, 7}));
}

TEST(AxisLimits, ManualRangesStandIfTheyAreRanges)
{
    graph_content graph = graph_of({{0, 4}, {0, 40}});
    graph.x_manual = graph.y_manual = true;
    graph.x_range = {0.3, 0.7};
    graph.y_range = {-1, 1};
    EXPECT_EQ(find_axis_limits(graph).x, (axis_range{0.3, 0.7}));
    EXPECT_EQ(find_axis_limits(graph).y, (axis_range{-1, 1}));
    for (const axis_range none : {axis_range{2, 2}, {3, 1}, {gap, 1}, {0, infinite}}) {
        graph.x_range = graph.y_range = none;
        EXPECT_EQ(find_axis_limits(graph).x, (axis_range{0, 4}));
        EXPECT_EQ(find_axis_limits(graph).y, (axis_range{0, 40}));
    }
}

TEST(AxisLimits, OnlyVisibleCurvesAndFiniteValuesCount)
{
    graph_content graph = graph_of({{0, 1, 2, gap}, {0, gap, 10, 3}, {-1000, 1000, infinite, 0}});
    graph.curve_visible = {true, false};
    EXPECT_EQ(find_axis_limits(graph).x, (axis_range{0, 2}));
    EXPECT_EQ(find_axis_limits(graph).y, (axis_range{0, 10}));
    graph.curve_visible = {false, false};
    EXPECT_TRUE(find_axis_limits(graph).ok());
    EXPECT_FALSE(find_axis_limits(graph).y);
    graph.y_manual = true;
    graph.y_range = {0, 1};
    EXPECT_EQ(find_axis_limits(graph).y, (axis_range{0, 1}));
    EXPECT_FALSE(find_axis_limits(graph_of({{1, 2}})).y);
}

TEST(AxisLimits, WildDivisionsAreHeldWithinBounds)
{
    graph_content graph = graph_of({{0, 4}, {0, 40}});
    for (const int ticks : {-5, 0, 1}) {
        graph.ticks = ticks;
        EXPECT_EQ(find_axis_limits(graph).x, (axis_range{0, 4}));
    }
    graph.ticks = 1000000000;
    EXPECT_EQ(axis_divisions(graph), largest_ticks);
}

TEST(TickLabels, TellDivisionsApartWithoutNoise)
{
    using labels = std::vector<std::string>;
    const auto plain = [](axis_range range, int ticks) { return tick_labels(range, ticks, axis_label_format::plain); };
    EXPECT_EQ(plain({0, 1}, 5), (labels{"0.0", "0.2", "0.4", "0.6", "0.8", "1.0"}));
    EXPECT_EQ(plain({0, 10}, 2), (labels{"0", "5", "10"}));
    EXPECT_EQ(plain({-0.3, 0.3}, 2), (labels{"-0.3", "0.0", "0.3"}));
    EXPECT_EQ(plain({0, 1}, 3), (labels{"0.000", "0.333", "0.667", "1.000"}));
    EXPECT_EQ(plain({0.1, 9.7}, 2), (labels{"0.1", "4.9", "9.7"}));
    EXPECT_EQ(plain({0, 2e6}, 2), (labels{"0", "1E6", "2E6"}));
    EXPECT_EQ(plain({0, 1e300}, 4), (labels{"0", "2.5E299", "5.0E299", "7.5E299", "1.0E300"}));
    EXPECT_EQ(plain({0, 1e-300}, 2), (labels{"0", "5E-301", "1E-300"}));
    // Neighbours among the doubles, where a division is lost.
    EXPECT_EQ(plain({0, 5e-324}, 10), labels(11, "0"));
    EXPECT_EQ(plain({3, std::nextafter(3.0, 4.0)}, 10), labels(11, "3.00000000000000E0"));
    EXPECT_EQ(plain({1, 1.00002}, 2), (labels{"1.00000", "1.00001", "1.00002"}));
    for (const axis_label_format format : {axis_label_format::scientific, axis_label_format::engineering})
        EXPECT_EQ(tick_labels({-1, 1234}, 1, format), (labels{"-1.00E0", "1.23E3"}));
}

} // namespace
} // namespace kelvarin::test
