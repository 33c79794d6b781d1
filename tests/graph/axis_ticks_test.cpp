// SPDX-License-Identifier: MIT
#include "graph/axis_ticks.h"
#include "graph/graph_drawing.h"
#include "graph/graph_picking.h"
#include "support/graphs.h"
#include "support/table.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

using labels = std::vector<std::string>;

labels labels_of(const std::vector<axis_tick>& ticks)
{
    labels found;
    for (const axis_tick& tick : ticks)
        if (!tick.label.empty()) found.push_back(tick.label);
    return found;
}

TEST(AxisTicks, ALogarithmicAxisHasPowersOfTen)
{
    const test::table<axis_range, std::size_t, labels> rows = {
        {{1.0, 1000.0}, 28, {"1", "10", "100", "1000"}},
        {{0.01, 20.0}, 29, {"0.01", "0.1", "1", "10"}},
        {{1e-12, 1e12}, 25, {"1E-12", "1E-11", "1E-10", "1E-9", "1E-8", "1E-7", "1E-6", "1E-5",  "0.0001",
                             "0.001", "0.01",  "0.1",   "1",    "10",   "100",  "1000", "10000", "100000",
                             "1E6",   "1E7",   "1E8",   "1E9",  "1E10", "1E11", "1E12"}},
        {{2.0, 6.0}, 5, {"2", "3", "4", "5", "6"}},
        // Too short for multiples: four even divisions.
        {{2.0, 2.4}, 5, {"2.0", "2.1", "2.2", "2.3", "2.4"}}};
    for (const auto& [range, count, expected] : rows) {
        const auto ticks = axis_ticks(range, 4, axis_label_format::plain, axis_scale::logarithmic);
        EXPECT_EQ(ticks.size(), count) << range.min;
        EXPECT_EQ(labels_of(ticks), expected);
    }
    EXPECT_EQ(labels_of(axis_ticks({1.0, 100.0}, 4, axis_label_format::scientific, axis_scale::logarithmic)),
              (labels{"1.00E0", "1.00E1", "1.00E2"}));
}

TEST(AxisTicks, PositionsAndValuesAgree)
{
    for (const axis_scale scale : {axis_scale::linear, axis_scale::logarithmic})
        for (const double fraction : {0.0, 0.25, 1.0, 1.5}) {
            const axis_range range = {0.1, 1000.0};
            EXPECT_NEAR(axis_fraction(axis_value(fraction, range, scale), range, scale), fraction, 1e-12);
        }
    EXPECT_DOUBLE_EQ(axis_value(0.5, {1.0, 100.0}, axis_scale::logarithmic), 10.0);
    EXPECT_TRUE(std::isnan(axis_fraction(0.0, {1.0, 10.0}, axis_scale::logarithmic)));
}

TEST(AxisTicks, ARangeIsCutToItsPositivePart)
{
    EXPECT_EQ(positive_range({0.0, 50.0}, 0.03), (axis_range{0.01, 50.0}));
    EXPECT_EQ(positive_range({2.0, 50.0}, 3.0), (axis_range{2.0, 50.0}));
    EXPECT_EQ(positive_range({-5.0, 0.0}, 0.0), (axis_range{-5.0, 0.0}));
}

TEST(Logarithmic, PointsThatItCannotShowBreakTheLineAndNegativeAxesStayLinear)
{
    graph_content graph = test::graph_of({{1, 2, 3, 4}, {10, -10, 100, 1000}, {-1, -2, -3, -4}});
    graph.curve_visible[1] = false;
    const drawing_options options = {.scales = {axis_scale::linear, axis_scale::logarithmic}};
    const graph_drawing drawn = draw_graph(graph, options);
    for (const drawn_shape& shape : drawn.picture.shapes)
        if (const auto* path = std::get_if<drawn_path>(&shape); path && path->part.role == drawn_role::curve) {
            EXPECT_EQ(path->points.size(), 2u);
            EXPECT_DOUBLE_EQ(path->points[1].y, drawn.plot.top);
        }
    graph.curve_visible = {false, true};
    EXPECT_EQ(draw_graph(graph, options).limits.y, find_axis_limits(graph).y);
}

TEST(Picking, FindsTheNearestPointThatIsDrawn)
{
    graph_content graph = test::graph_of({{0, 5, 10}, {0, 5, 10}, {0, 5.1, test::gap}});
    const graph_drawing drawn = draw_graph(graph);
    const drawn_point at = drawn.mapping->at(5.0, 5.2);
    const auto nearest = nearest_point(graph, drawn, {}, at, 20.0);
    ASSERT_TRUE(nearest);
    EXPECT_EQ(nearest->curve, 1u);
    EXPECT_EQ(nearest->point, 1u);
    const std::vector<drawn_part> hidden = {{drawn_role::curve, 1}};
    EXPECT_EQ(nearest_point(graph, drawn, hidden, at, 20.0)->curve, 0u);
    EXPECT_FALSE(nearest_point(graph, drawn, {}, drawn.mapping->at(7.5, 2.0), 20.0));

    const drawn_box half = zoomed_box(drawn.plot, drawn.plot.middle(), 0.5);
    const auto limits = limits_of_box(*drawn.mapping, half);
    EXPECT_NEAR(limits->x.min, 2.5, 1e-9);
    EXPECT_NEAR(limits->y->max, 7.5, 1e-9);
    EXPECT_FALSE(limits_of_box(*drawn.mapping, zoomed_box(drawn.plot, drawn.plot.middle(), 1e-14)));
}

} // namespace
} // namespace kelvarin
