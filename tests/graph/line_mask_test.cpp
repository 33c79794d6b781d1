// SPDX-License-Identifier: MIT
#include "graph/line_mask.h"

#include <gtest/gtest.h>

#include <map>
#include <numbers>
#include <utility>
#include <vector>

namespace kelvarin
{
namespace
{

/// The covered area of each pixel by x and y, from 0 to 1.
std::map<std::pair<int, int>, double> coverage_of(const std::vector<drawn_point>& line, double width,
                                                  const std::vector<double>& dashes = {})
{
    line_mask mask(40, 30);
    mask.add_line(line, width, dashes);
    std::map<std::pair<int, int>, double> covered;
    mask.take([&](int x, int y, int coverage) {
        EXPECT_TRUE(covered.emplace(std::pair(x, y), coverage / 255.0).second) << "each pixel once";
    });
    mask.take([](int, int, int) { FAIL() << "it is not empty"; });
    return covered;
}

double area_of(const std::map<std::pair<int, int>, double>& covered)
{
    double area = 0.0;
    for (const auto& [pixel, part] : covered)
        area += part;
    return area;
}

TEST(LineMask, CoversWholePixelsOfAHorizontalLine)
{
    const auto covered = coverage_of({{5.0, 10.0}, {15.0, 10.0}}, 2.0);
    for (int x = 5; x < 15; ++x) {
        EXPECT_EQ(covered.at({x, 9}), 1.0);
        EXPECT_EQ(covered.at({x, 10}), 1.0);
        EXPECT_FALSE(covered.contains({x, 8}));
    }
}

TEST(LineMask, ManyShortPiecesCoverWhatOneLongOneDoes)
{
    const drawn_point from = {3.2, 4.1};
    const drawn_point to = {33.7, 21.9};
    std::vector<drawn_point> pieces;
    for (int i = 0; i <= 50; ++i)
        pieces.push_back({from.x + (to.x - from.x) * i / 50.0, from.y + (to.y - from.y) * i / 50.0});
    const auto whole = coverage_of({from, to}, 3.0);
    const auto parts = coverage_of(pieces, 3.0);
    ASSERT_EQ(parts.size(), whole.size());
    for (const auto& [pixel, part] : whole)
        EXPECT_NEAR(parts.at(pixel), part, 0.005);
    // A bar of the line's length with a half circle at each end.
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    EXPECT_NEAR(area_of(whole), 3.0 * length + std::numbers::pi * 1.5 * 1.5, 1.0);
}

TEST(LineMask, DashesLeaveGaps)
{
    std::vector<drawn_point> line;
    for (int x = 0; x <= 36; ++x)
        line.push_back({static_cast<double>(x), 15.0});
    const auto covered = coverage_of(line, 2.0, {8.0, 4.0});
    for (const int gap : {9, 10, 21, 22, 33, 34})
        EXPECT_FALSE(covered.contains({gap, 15})) << gap;
    for (const int dash : {2, 5, 14, 17, 26, 30})
        EXPECT_EQ(covered.at({dash, 15}), 1.0) << dash;
}

TEST(LineMask, WhatLiesOutsideIsLeftOut)
{
    for (const auto& [pixel, part] : coverage_of({{-100.0, -50.0}, {500.0, 300.0}}, 4.0)) {
        EXPECT_TRUE(pixel.first >= 0 && pixel.first < 40 && pixel.second >= 0 && pixel.second < 30);
        EXPECT_GT(part, 0.0);
    }
}

} // namespace
} // namespace kelvarin
