// SPDX-License-Identifier: MIT
#include "graph/graph_curves.h"
#include "graph/graph_functions.h"
#include "graph/graph_start.h"
#include "support/graphs.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <limits>

namespace kelvarin::test
{

TEST(GraphFunctions, AreOfXAlone)
{
    const std::string only_x = "Only 'x' variable is allowed in the algebric expression.";
    graph_content graph = graph_of({{0, 1}, {0, 1}});
    EXPECT_EQ(text_of(add_function(graph, " x*(sin(x)+2)\r\n")), "");
    EXPECT_EQ(graph.functions.front().text, "x*(sin(x)+2)");
    for (const char* text : {"y", "x+a", "X", "sin(t)"})
        EXPECT_EQ(text_of(add_function(graph, text)), only_x) << text;
    EXPECT_EQ(text_of(edit_function(graph, 0, "t")), only_x);
    EXPECT_TRUE(text_of(add_function(graph, "x+")).starts_with("Syntax Error: "));
    EXPECT_NE(text_of(add_function(graph, "")), "");
    EXPECT_EQ(text_of(edit_function(graph, 0, "x^2")), "");
    ASSERT_EQ(graph.functions.size(), 1U);
    EXPECT_EQ(graph.functions.front().text, "x^2");
}

TEST(GraphFunctions, AreThirtyAtMost)
{
    graph_content graph = graph_of({{0, 1}, {0, 1}});
    for (int i = 0; i < 30; ++i)
        EXPECT_EQ(text_of(add_function(graph, std::to_string(i) + "*x")), "");
    EXPECT_EQ(text_of(add_function(graph, "t")),
              "You can not use more than 30 user function curves. Selection aborted.");
    remove_function(graph, 3);
    EXPECT_EQ(graph.functions[3].text, "4*x");
    EXPECT_EQ(text_of(add_function(graph, "x")), "");
}

TEST(GraphFunctions, HaveFortyOnePointsAndGapsWhereTheyFail)
{
    const std::vector<function_point> points = function_points("1/x", {-2, 2});
    ASSERT_EQ(points.size(), 41U);
    EXPECT_DOUBLE_EQ(points[0].x, -2.0);
    EXPECT_DOUBLE_EQ(points[40].x, 2.0);
    EXPECT_FALSE(points[20].y);
    EXPECT_NEAR(points[19].y.value(), -10.0, 1e-12);
    EXPECT_NEAR(points[21].y.value(), 10.0, 1e-12);
    for (const char* none : {"", "x+", "y", "ln(0)"})
        for (const function_point& point : function_points(none, {0, 1}))
            EXPECT_FALSE(point.y) << none;
}

TEST(DerivedCurve, NamesAndExpressionsAreChecked)
{
    graph_content graph = graph_of({{0, 1}, {2, 3}});
    const table<const char*, const char*, const char*> cases = {
        {"1a", "a", "'1a' is not a valid variable name"},  {"sin", "a", "'sin' is not a valid variable name"},
        {"", "a", "'' is not a valid variable name"},      {"a", "a", "'a' is not a unique variable name"},
        {" x ", "a", "'x' is not a unique variable name"}, {"z", "a*b+q", "'b' is not a known scatter curve name"},
    };
    for (const auto& [name, text, refusal] : cases) {
        EXPECT_EQ(text_of(add_derived_curve(graph, name, text)), refusal);
        EXPECT_EQ(graph.curve_count(), 1U);
    }
    EXPECT_EQ(text_of(add_derived_curve(graph, "z", "a*10+x")), "");
    EXPECT_EQ(graph.columns[2], (graph_column{"z = a*10+x", shared_values({20, 31})}));
    EXPECT_EQ(graph.curve_visible, (std::vector<bool>{true, true}));
    EXPECT_EQ(text_of(add_derived_curve(graph, "w", "z-a")), "") << "by the name in front of the equals sign";
    EXPECT_EQ(graph.columns[3].values, shared_values({18, 28}));
    EXPECT_EQ(text_of(add_derived_curve(graph, "z", "a")), "'z' is not a unique variable name");
}

TEST(DerivedCurve, FailsWholeButKeepsGaps)
{
    graph_content graph = graph_of({{0, 1, 2}, {1, gap, 0}});
    const auto refused = add_derived_curve(graph, "z", "1/a");
    EXPECT_EQ(text_of(refused), "Error found while evaluating derived curve.\rPlease close the current graph window.");
    EXPECT_EQ(refused->title, "Fatal Error");
    EXPECT_EQ(graph.curve_count(), 1U);
    EXPECT_EQ(text_of(add_derived_curve(graph, "z", "2*a")), "");
    EXPECT_EQ(graph.columns[2].values, shared_values({2, gap, 0}));
}

TEST(GraphCurves, AnotherColumnTakesThePlaceOfX)
{
    graph_content graph = graph_of({{0, 1}, {2, 3}, {4, 5}});
    graph.curve_visible = {true, false};
    use_as_x(graph, 2);
    EXPECT_EQ(graph.columns[0], (graph_column{"b", shared_values({4, 5})}));
    EXPECT_EQ(graph.columns[2], (graph_column{"x", shared_values({0, 1})}));
    EXPECT_EQ(graph.curve_visible, (std::vector<bool>{true, false}));
    use_as_x(graph, 0);
    EXPECT_EQ(graph.columns[0].name, "b");
}

TEST(GraphCurves, SortingIsStableAndKeepsPointsTogether)
{
    graph_content graph = graph_of({{2, gap, 1, 2, -1}, {10, 11, 12, 13, 14}});
    sort_by_x(graph);
    EXPECT_EQ(graph.columns[0].values, shared_values({-1, 1, 2, 2, gap}));
    EXPECT_EQ(graph.columns[1].values, shared_values({14, 12, 10, 13, 11}));

    // Curves a and b share a point, c has none with them.
    graph = graph_of({{3, 1, 2, 0, 1.5}, {gap, 21, gap, 20, gap}, {13, 11, gap, gap, gap}, {gap, gap, 32, gap, 31}});
    sort_by_x(graph);
    EXPECT_EQ(graph.columns[0].values, shared_values({0, 1, 3, 1.5, 2}));
    EXPECT_EQ(graph.columns[3].values, shared_values({gap, gap, gap, 31, 32}));
}

TEST(GraphStart, TakesOverWhatARunHands)
{
    const graph_start start = {.caption = "Graph, Solution #1",
                               .columns = {{"t", {0, 1, 2}}, {"f(u,v)", {5, 5, 5}}, {"b", {0, 0, 0}}},
                               .visible = {true, false},
                               .function_text = " + 2*x",
                               .connected = false,
                               .points = true};
    settings store;
    store.set_value("Graph_hor_gridline", "True");
    store.set_value("Graph_default_marker_size", "55");
    const graph_content graph = scatter_graph_form_startup2(start, std::vector<std::string>{"x^2", " "}, store);
    EXPECT_EQ(graph.caption, "Graph, Solution #1");
    EXPECT_EQ(graph.title, "Graph Title");
    EXPECT_EQ(graph.columns[1].name, "f(u;v)") << "a comma would shift the file's joined lines";
    EXPECT_EQ(graph.x_title, "t");
    EXPECT_EQ(graph.curve_visible, (std::vector<bool>{true, false}));
    EXPECT_EQ(graph.functions, (std::vector<graph_function>{{"2*x", true}, {"x^2", true}}));
    EXPECT_TRUE(graph.draw_points && graph.hor_gridline && !graph.scatter_connected && !graph.ver_gridline);
    EXPECT_EQ(graph.marker_size, 55);
    EXPECT_EQ(graph.y_range, (axis_range{4, 6}));
    EXPECT_EQ(scatter_graph_form_startup({.columns = {{"x", {1, 2}}, {"y", {3, 4}}}}, store).y_title, "y");
}

} // namespace kelvarin::test
