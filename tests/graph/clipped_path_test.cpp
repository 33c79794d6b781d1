// SPDX-License-Identifier: MIT
#include "graph/clipped_path.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>

namespace kelvarin
{
namespace
{

constexpr drawn_box box = {10, 20, 100, 50};

TEST(ClippedLine, IsCutAtTheBorder)
{
    const test::table<drawn_point, drawn_point, drawn_point, drawn_point> cases = {
        {{20, 30}, {90, 60}, {20, 30}, {90, 60}},     {{0, 45}, {200, 45}, {10, 45}, {110, 45}},
        {{60, -30}, {60, 1e150}, {60, 20}, {60, 70}}, {{1e100, 1e100}, {40, 40}, {70, 70}, {40, 40}},
        {{0, 10}, {60, 70}, {10, 20}, {60, 70}},      {{110, 70}, {500, 500}, {110, 70}, {110, 70}},
        {{60, 45}, {60, 45}, {60, 45}, {60, 45}}};
    for (const auto& [from, to, cut_from, cut_to] : cases) {
        const auto line = clipped_line(from, to, box);
        ASSERT_TRUE(line);
        EXPECT_NEAR(line->first.x, cut_from.x, 1e-8);
        EXPECT_NEAR(line->first.y, cut_from.y, 1e-8);
        EXPECT_NEAR(line->second.x, cut_to.x, 1e-8);
        EXPECT_NEAR(line->second.y, cut_to.y, 1e-8);
    }
    EXPECT_FALSE(clipped_line({0, 0}, {200, 0}, box));
    EXPECT_FALSE(clipped_line({0, 60}, {20, 200}, box));
    EXPECT_FALSE(clipped_line({5, 45}, {5, 45}, box));
}

TEST(ClippedLine, NeverLeavesTheBoxNorTheLine)
{
    rc::check([] {
        const auto coordinate = [] {
            return *rc::gen::inRange(-3000, 3000) / 7.0 * std::pow(10.0, *rc::gen::inRange(0, 3));
        };
        const drawn_point from = {coordinate(), coordinate()};
        const drawn_point to = {coordinate(), coordinate()};
        const auto line = clipped_line(from, to, box);
        if (!line) return;
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        for (const drawn_point end : {line->first, line->second}) {
            RC_ASSERT(box.contains(end));
            const double area = (to.x - from.x) * (end.y - from.y) - (to.y - from.y) * (end.x - from.x);
            RC_ASSERT(std::abs(area) <= 1e-9 * length * length + 1e-9);
        }
    });
}

std::vector<drawn_point> thinned_line(const std::vector<drawn_point>& points, double column)
{
    std::vector<drawn_point> kept;
    const auto keep = [&kept](drawn_point point) { kept.push_back(point); };
    column_thinner thinner(column);
    for (const drawn_point point : points)
        thinner.add(point, keep);
    thinner.finish(keep);
    return kept;
}

TEST(ThinnedLine, KeepsFirstLowestHighestAndLastOfEachColumn)
{
    const std::vector<drawn_point> points = {{0.1, 5}, {0.2, 9}, {0.3, 1}, {0.4, 6}, {0.9, 7}, {1.5, 2}, {0.5, 3}};
    const std::vector<drawn_point> expected = {{0.1, 5}, {0.2, 9}, {0.3, 1}, {0.9, 7}, {1.5, 2}, {0.5, 3}};
    EXPECT_EQ(thinned_line(points, 1.0), expected);
    EXPECT_TRUE(thinned_line({}, 1.0).empty());
}

/// From where to where the points reach in each column.
std::map<int, std::pair<double, double>> covered_rows(const std::vector<drawn_point>& points)
{
    std::map<int, std::pair<double, double>> rows;
    for (const drawn_point point : points) {
        const auto [place, is_new] = rows.try_emplace(static_cast<int>(std::floor(point.x)), point.y, point.y);
        place->second = {std::min(place->second.first, point.y), std::max(place->second.second, point.y)};
    }
    return rows;
}

TEST(ThinnedLine, OfAMillionPointsLosesNoSpike)
{
    std::mt19937 generator(1);
    std::uniform_real_distribution<double> noise(-1.0, 1.0);
    std::vector<drawn_point> points;
    for (int i = 0; i < 1000000; ++i)
        points.push_back({i * 0.001, 100.0 + noise(generator)});
    points[777777].y = 5.0;
    const std::vector<drawn_point> thinned = thinned_line(points, 1.0);
    EXPECT_LE(thinned.size(), 4000U);
    EXPECT_EQ(covered_rows(thinned), covered_rows(points));
}

TEST(ThinnedPoints, KeepTheLastOneInEachCell)
{
    const std::vector<drawn_point> points = {{10.1, 20.1}, {10.2, 20.9}, {11.5, 20.5},
                                             {110, 70},    {5, 5},       {109.9, 69.9}};
    const std::vector<drawn_point> expected = {{10.2, 20.9}, {11.5, 20.5}, {110, 70}, {109.9, 69.9}};
    EXPECT_EQ(thinned_points(points, box, 1.0), expected);
}

} // namespace
} // namespace kelvarin
