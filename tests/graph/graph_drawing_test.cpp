// SPDX-License-Identifier: MIT
#include "graph/curve_style.h"
#include "graph/drawing_svg.h"
#include "graph/graph_drawing.h"
#include "graph/graph_functions.h"
#include "support/golden.h"
#include "support/graphs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kelvarin::test
{
namespace
{

template <class Shape> std::vector<Shape> shapes_of(const graph_drawing& drawn)
{
    std::vector<Shape> shapes;
    for (const drawn_shape& shape : drawn.picture.shapes)
        if (const auto* one = std::get_if<Shape>(&shape)) shapes.push_back(*one);
    return shapes;
}

template <class Shape> std::vector<Shape> shapes_of(const graph_drawing& drawn, drawn_role role)
{
    std::vector<Shape> shapes = shapes_of<Shape>(drawn);
    std::erase_if(shapes, [role](const Shape& shape) { return shape.part.role != role; });
    return shapes;
}

/// x from 0 to 2 in steps of 0.05 with a decay and an oscillation, a name for everything.
graph_content decay_and_oscillation()
{
    std::vector<double> x;
    std::vector<double> decay;
    std::vector<double> wave;
    for (int i = 0; i <= 40; ++i) {
        x.push_back(i * 0.05);
        decay.push_back(10.0 * std::exp(-2.0 * x.back()));
        wave.push_back(4.0 + 3.0 * std::sin(6.0 * x.back()));
    }
    graph_content graph = graph_of({x, decay, wave});
    graph.title = "Decay & oscillation";
    graph.subtitle = "two curves of forty-one points";
    graph.x_title = "time, s";
    graph.y_title = "amount < 10";
    graph.columns[1].name = "decay";
    graph.columns[2].name = "wave";
    return graph;
}

graph_content everything()
{
    graph_content graph = decay_and_oscillation();
    graph.draw_points = graph.hor_gridline = graph.ver_gridline = true;
    graph.ticks = 8;
    graph.functions = {{"1/(x-1)", true}, {"x^2", false}, {"5*x", true}};
    return graph;
}

graph_content measured_points()
{
    graph_content graph =
        graph_of({{1, 2, 3, 4, 5, 6, 7, 8}, {1.1e-7, 1.9e-7, 3.2e-7, gap, 4.9e-7, 6.1e-7, 6.8e-7, 8.3e-7}});
    graph.title = "Measured points";
    graph.x_title = "data point";
    graph.y_title = "p, bar";
    graph.draw_points = true;
    graph.scatter_connected = false;
    graph.y_labels = axis_label_format::scientific;
    graph.functions = {{"1e-7*x", true}};
    return graph;
}

graph_content many_curves()
{
    std::vector<std::vector<double>> columns = {{}};
    for (int i = 0; i <= 10; ++i)
        columns[0].push_back(i);
    for (int curve = 0; curve < 40; ++curve) {
        columns.emplace_back();
        for (int i = 0; i <= 10; ++i)
            columns.back().push_back(curve + i * (1 + curve % 3) / 4.0);
    }
    graph_content graph = graph_of(columns);
    for (std::size_t curve = 0; curve < 40; ++curve)
        graph.columns[curve + 1].name = "marker " + std::to_string(curve);
    graph.title = "All styles";
    graph.draw_points = true;
    graph.marker_size = 60;
    return graph;
}

struct golden_case
{
    const char* name;
    graph_content graph;
    drawing_options page;
};

std::vector<golden_case> golden_cases()
{
    graph_content outside = decay_and_oscillation();
    outside.x_manual = outside.y_manual = true;
    outside.x_range = {0.33, 1.5};
    outside.y_range = {3, 6};
    outside.legend_place = graph_place{6000, 2000};
    graph_content hidden = decay_and_oscillation();
    hidden.curve_visible = {false, false};
    graph_content equal_x = graph_of({{1, 1}, {2, 3}});
    return {{"curves", decay_and_oscillation(), {}},
            {"everything", everything(), {}},
            {"measured_points", measured_points(), {}},
            {"many_curves", many_curves(), {.width = 720, .height = 540}},
            {"outside", outside, {}},
            {"small_page", everything(), {.width = 150, .height = 112.5}},
            {"no_curve", hidden, {}},
            {"equal_x", equal_x, {.width = 300, .height = 200}}};
}

TEST(GraphDrawing, LooksAsItWasSeen)
{
    for (const golden_case& each : golden_cases())
        expect_golden(std::string("graph/") + each.name + ".svg",
                      drawing_svg(draw_graph(each.graph, each.page).picture));
}

TEST(GraphDrawing, PointsLandInProportion)
{
    graph_content graph = graph_of({{0, 5, 10}, {0, 20, 40}});
    const graph_drawing drawn = draw_graph(graph);
    const drawn_path curve = shapes_of<drawn_path>(drawn, drawn_role::curve).front();
    const drawn_box& plot = drawn.plot;
    EXPECT_EQ(curve.points[0], (drawn_point{plot.left, plot.bottom()}));
    EXPECT_EQ(curve.points[1], plot.middle());
    EXPECT_EQ(curve.points[2], (drawn_point{plot.right(), plot.top}));
    // 800, 400, 180 and 520 twentieths of a point, and 3 points of free edge.
    EXPECT_DOUBLE_EQ(plot.left, 43.0);
    EXPECT_DOUBLE_EQ(plot.width, 560.0 - 43.0 - 23.0);
    EXPECT_DOUBLE_EQ(plot.top, 12.0);
}

TEST(GraphDrawing, AGapBreaksTheLine)
{
    const graph_content graph = graph_of({{0, 1, 2, 3, 4, 5}, {0, 1, gap, 3, 4, 5}});
    const drawn_path curve = shapes_of<drawn_path>(draw_graph(graph), drawn_role::curve).front();
    EXPECT_EQ(curve.points.size(), 5U);
    EXPECT_EQ(curve.starts, (std::vector<std::size_t>{0, 2}));
    graph_content pole = graph_of({{-1, 1}, {-10, 10}});
    pole.functions = {{"1/x", true}};
    const drawn_path function = shapes_of<drawn_path>(draw_graph(pole), drawn_role::function).front();
    EXPECT_EQ(function.starts.size(), 2U);
}

/// Wild graphs on all sizes of pages: nothing is drawn where it does not belong.
std::vector<graph_content> wild_graphs()
{
    std::vector<graph_content> graphs = {decay_and_oscillation(), everything(), measured_points(), many_curves()};
    graph_content spikes = everything();
    spikes.x_manual = spikes.y_manual = true;
    spikes.x_range = {0.4, 0.6};
    spikes.y_range = {-1e-3, 1e-3};
    graphs.push_back(spikes);
    graphs.push_back(graph_of({{-1e300, 0, 1e300}, {1e300, -1e300, 1e300}}));
    graphs.push_back(graph_of({{1e-300, 2e-300, 3e-300}, {-1e-300, 1e-300, 5e-300}}));
    graphs.push_back(graph_of({{1, 1.0000001}, {12345.678, 12345.679}}));
    graphs.push_back(graph_of({{-123456.7, 987654.3}, {5, 5}}));
    graph_content far_away = graph_of({{-1e308, 0, 1, 1e308}, {-1e308, 0, 1, 1e308}});
    far_away.x_manual = far_away.y_manual = true;
    graphs.push_back(far_away);
    graph_content texts = everything();
    texts.title = texts.y_title = texts.x_title = std::string(300, 'W');
    texts.columns[1].name = texts.title;
    texts.margins = {-32768, 32767, 0, 32767};
    texts.axes_font.size = 60.0;
    texts.title_font.size = 1e6;
    texts.ticks = 100;
    texts.marker_size = 32767;
    texts.line_width = -3;
    graphs.push_back(texts);
    return graphs;
}

void expect_within(const graph_drawing& drawn, const std::string& where)
{
    const drawn_box page = {0, 0, drawn.picture.width, drawn.picture.height};
    ASSERT_GT(drawn.plot.width, 0.2 * page.width) << where;
    ASSERT_GT(drawn.plot.height, 0.2 * page.height) << where;
    EXPECT_TRUE(page.contains(drawn.plot)) << where;
    for (const drawn_role role : {drawn_role::curve, drawn_role::function}) {
        for (const drawn_path& path : shapes_of<drawn_path>(drawn, role))
            for (const drawn_point point : path.points)
                ASSERT_TRUE(drawn.plot.contains(point)) << where << ": " << point.x << ", " << point.y;
        for (const drawn_markers& markers : shapes_of<drawn_markers>(drawn, role))
            for (const drawn_point point : markers.points)
                ASSERT_TRUE(drawn.plot.contains(point)) << where;
    }
}

void expect_apart(const graph_drawing& drawn, const std::string& where)
{
    const drawn_box page = {0, 0, drawn.picture.width, drawn.picture.height};
    const std::vector<drawn_text> texts = shapes_of<drawn_text>(drawn);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_TRUE(page.contains(texts[i].box)) << where << ": " << texts[i].text << " leaves the page";
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(texts[i].box.touches(texts[j].box)) << where << ": " << texts[i].text << ", " << texts[j].text;
        if (texts[i].part.role < drawn_role::legend) {
            EXPECT_FALSE(texts[i].box.touches(drawn.plot)) << where << ": " << texts[i].text << " over the curves";
        }
    }
    for (const drawn_rectangle& legend : shapes_of<drawn_rectangle>(drawn, drawn_role::legend))
        EXPECT_TRUE(drawn.plot.contains(legend.box)) << where;
}

TEST(GraphDrawing, NothingTouchesOrLeavesThePage)
{
    struct size
    {
        double width;
        double height;
    };
    const std::vector<graph_content> graphs = wild_graphs();
    // In pixels of three quarters of a point, and the smallest once more at twice its scale.
    for (const size page :
         std::vector<size>{{100, 75}, {200, 150}, {300, 150}, {200, 400}, {640, 480}, {1920, 1080}, {3840, 2160}})
        for (std::size_t i = 0; i < graphs.size(); ++i)
            for (const axis_scale scale : {axis_scale::linear, axis_scale::logarithmic}) {
                const graph_drawing drawn = draw_graph(
                    graphs[i], {.width = page.width * 0.75, .height = page.height * 0.75, .scales = {scale, scale}});
                const std::string where = "graph " + std::to_string(i) + " on " + std::to_string(page.width);
                expect_within(drawn, where);
                expect_apart(drawn, where);
            }
}

TEST(GraphDrawing, EveryPageShowsSomeLabels)
{
    for (const double width : {150.0, 480.0, 2880.0}) {
        const graph_drawing drawn = draw_graph(decay_and_oscillation(), {.width = width, .height = width * 0.75});
        EXPECT_GE(shapes_of<drawn_text>(drawn, drawn_role::x_label).size(), 2U) << width;
        EXPECT_GE(shapes_of<drawn_text>(drawn, drawn_role::y_label).size(), 2U) << width;
        EXPECT_EQ(shapes_of<drawn_text>(drawn, drawn_role::title).size(), 1U) << width;
    }
}

TEST(GraphDrawing, TheLegendStandsWhereFewestPointsAre)
{
    // All points in the upper right.
    graph_content graph = graph_of({{0, 9.2, 9.4, 9.6, 9.8, 10}, {0, 9.6, 9.6, 9.6, 9.6, 10}});
    graph_drawing drawn = draw_graph(graph);
    const drawn_box corner = shapes_of<drawn_rectangle>(drawn, drawn_role::legend).front().box;
    EXPECT_LT(corner.right(), drawn.plot.middle().x);
    EXPECT_LT(corner.bottom(), drawn.plot.middle().y);
    // Moved, it keeps its place in proportion.
    graph.window_size = {4000, 8000};
    graph.legend_place = graph_place{1000, 4000};
    for (const double scale : {1.0, 2.0}) {
        drawn = draw_graph(graph, {.width = 400 * scale, .height = 200 * scale});
        const drawn_box moved = shapes_of<drawn_rectangle>(drawn, drawn_role::legend).front().box;
        EXPECT_DOUBLE_EQ(moved.left, 200 * scale);
        EXPECT_DOUBLE_EQ(moved.top, 50 * scale);
    }
    graph.legend_place = graph_place{1e9, -1e9};
    const drawn_box held = shapes_of<drawn_rectangle>(draw_graph(graph), drawn_role::legend).front().box;
    EXPECT_TRUE((drawn_box{0, 0, 560, 420}).contains(held));
}

TEST(GraphDrawing, TellsInWordsWhyItIsEmpty)
{
    const auto notice_of = [](const graph_content& graph) {
        return shapes_of<drawn_text>(draw_graph(graph, {.width = 900}), drawn_role::notice).front().text;
    };
    EXPECT_EQ(notice_of(graph_of({{1, 1}, {2, 3}})), equal_x_text);
    EXPECT_EQ(notice_of(graph_of({{-1.7e308, 1.7e308}, {2, 3}})),
              "The range of the x values is too large or too small to be drawn.");
    EXPECT_EQ(notice_of(graph_of({{1, 2}})), "No curve is shown.");
}

TEST(GraphDrawing, AViewIsDrawnAsManualLimitsAre)
{
    graph_content graph = everything();
    axis_limits view;
    view.x = {0.33, 1.5};
    view.y = axis_range{3, 6};
    const std::string viewed = drawing_svg(draw_graph(graph, {.view = view}).picture);
    graph.x_manual = graph.y_manual = true;
    graph.x_range = view.x;
    graph.y_range = *view.y;
    EXPECT_EQ(viewed, drawing_svg(draw_graph(graph).picture));
}

TEST(DrawingSvg, EscapesWhatIsTyped)
{
    graph_content graph = graph_of({{0, 1}, {0, 1}});
    graph.title = "<a> & \"b\"\x01";
    graph.title_font.name = "It's \"mine\"";
    const std::string svg = drawing_svg(draw_graph(graph).picture);
    EXPECT_NE(svg.find(">&lt;a&gt; &amp; &quot;b&quot; </text>"), std::string::npos);
    EXPECT_NE(svg.find("font-family=\"'Its &quot;mine&quot;', "), std::string::npos);
}

} // namespace
} // namespace kelvarin::test
