// SPDX-License-Identifier: MIT
#include "graph/graph_file.h"
#include "platform/runtime_failure.h"
#include "platform/text_file.h"
#include "shell/document/recognition.h"
#include "support/graphs.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <limits>

namespace kelvarin
{
namespace
{

/// Every line of a file, written by hand.
const std::vector<std::string> hand_written = {
    "96KVRGRF/V500//", " Tank 3", " 3 ", "2", "1", "Title", "", "5", "2", "1", "180", "800", "400", "520",
    // title, sub title, legend: top and left; height and width; ymin, ymax, xmin, xmax
    "10", "20", "0", "0", "300.5", "400", "6000", "8000", "-1", "4", "0", "2", "time, s", "level", "False", "True",
    "Sans", "8.25", "True", "False", "Serif", "14", "False", "False", "Sans", "10",
    // manual x and y, auto scale, grid lines, connected, points
    "True", "False", "True", "False", "True", "False", "True", "0,1,2", "0.1, 0.2 ,1E-07", "-1,x,4", "t,h1,h2",
    "True,False", "x*(sin(x)+2)"};

std::string joined(const std::vector<std::string>& lines, const std::string& end = "\r\n")
{
    std::string text;
    for (const std::string& line : lines)
        text.append(line).append(end);
    return text;
}

std::string with_line(std::size_t number, const std::string& line)
{
    std::vector<std::string> lines = hand_written;
    lines[number - 1] = line;
    return joined(lines);
}

graph_content expected_content()
{
    graph_content graph = test::graph_of({{0, 1, 2}, {0.1, 0.2, 1e-7}, {-1, 0, 4}});
    graph.caption = " Tank 3";
    graph.title = "Title";
    graph.columns[0].name = "t";
    graph.columns[1].name = "h1";
    graph.columns[2].name = "h2";
    graph.curve_visible = {true, false};
    graph.functions = {{"x*(sin(x)+2)", true}};
    graph.ticks = 5;
    graph.title_place = graph_place{10, 20};
    graph.legend_place = graph_place{300.5, 400};
    graph.window_size = {6000, 8000};
    graph.y_range = {-1, 4};
    graph.x_range = {0, 2};
    graph.x_title = "time, s";
    graph.y_title = "level";
    graph.axes_font = {false, true, "Sans", 8.25};
    graph.title_font = {true, false, "Serif", 14};
    graph.subtitle_font = {false, false, "Sans", 10};
    graph.x_manual = graph.auto_scale = graph.ver_gridline = graph.draw_points = true;
    graph.y_manual = graph.hor_gridline = graph.scatter_connected = false;
    return graph;
}

TEST(GraphFile, IsReadLineByLine)
{
    EXPECT_EQ(read_graph(joined(hand_written)), expected_content());
    EXPECT_EQ(read_graph(joined(hand_written, "\n")), expected_content());
    EXPECT_EQ(read_graph(with_line(1, "KVRGRF/V500//")), expected_content());
    EXPECT_EQ(recognise_document("a.kvg", joined(hand_written), {}).form, document_form::graph);
}

TEST(GraphFile, IsWrittenLineByLine)
{
    std::vector<std::string> lines = hand_written;
    lines[2] = "3";
    lines[48] = "0.1,0.2,1E-07";
    lines[49] = "-1,0,4";
    EXPECT_EQ(write_graph(expected_content()), joined(lines));
}

TEST(GraphFile, IsRefusedWholeWhereItIsDamaged)
{
    for (const auto& [line, text] : test::table<std::size_t, const char*>{{1, "KVRGRF/V400//"},
                                                                          {1, "XYKVRGRF/V500//"},
                                                                          {3, "0"},
                                                                          {3, "-1"},
                                                                          {3, "four"},
                                                                          {3, "32768"},
                                                                          {3, "4"},
                                                                          {4, "-1"},
                                                                          {4, "3"},
                                                                          {4, "32767"},
                                                                          {5, "-1"},
                                                                          {5, "2"},
                                                                          {49, "0.1,0.2"},
                                                                          {51, "t,h1"},
                                                                          {52, "True"}})
        EXPECT_FALSE(read_graph(with_line(line, text))) << line << ": " << text;
    for (std::size_t kept = 0; kept < hand_written.size(); ++kept)
        EXPECT_FALSE(read_graph(joined({hand_written.begin(), hand_written.begin() + static_cast<long>(kept)})))
            << kept;
    EXPECT_FALSE(read_graph(""));
}

TEST(GraphFile, TakesWhatIsOddButWhole)
{
    EXPECT_EQ(read_graph(with_line(8, "0"))->ticks, default_ticks);
    EXPECT_EQ(read_graph(with_line(8, "1E300"))->ticks, 1000000000);
    EXPECT_EQ(read_graph(with_line(9, "wide"))->line_width, 0);
    EXPECT_EQ(read_graph(with_line(48, "0,1,2,3,4")), expected_content());
    EXPECT_EQ(read_graph(joined(hand_written) + "more\r\n"), expected_content());
    EXPECT_EQ(read_graph(with_line(53, "x,2"))->functions.size(), 1U);
    // A last line that is empty may be cut off: without it nothing is missing.
    const graph_content bare = test::graph_of({{1, 2}, {3, 4}});
    const std::string text = write_graph(bare);
    EXPECT_EQ(read_graph(text.substr(0, text.size() - 2)), bare);
}

TEST(GraphFile, CountsBeyondItsSixteenBitsAreNotWritten)
{
    std::vector<double> x(largest_file_count + 1, 1.0);
    x[0] = 0.0;
    EXPECT_THROW(write_graph(test::graph_of({x, x})), runtime_failure);
}

rc::Gen<std::string> any_text()
{
    return rc::gen::container<std::string>(rc::gen::elementOf(std::string("ab ;=+(x)\"<\xC3\xA4")));
}

rc::Gen<double> any_number()
{
    return rc::gen::oneOf(rc::gen::arbitrary<double>(),
                          rc::gen::element(0.1, 1.0 / 3.0, 1e300, 5e-324, -1e-300, 1.7976931348623157e308,
                                           std::numeric_limits<double>::quiet_NaN()),
                          rc::gen::map(rc::gen::inRange(-9999, 9999), [](int n) { return n / 100.0; }));
}

graph_content any_graph()
{
    const auto flag = [] { return *rc::gen::arbitrary<bool>(); };
    const auto width = [] { return *rc::gen::inRange(-32768, 32768); };
    const auto number = [] { return *rc::gen::suchThat(any_number(), [](double x) { return std::isfinite(x); }); };
    const auto font = [&] { return graph_font{flag(), flag(), *any_text(), number()}; };
    graph_content graph;
    const std::size_t points = *rc::gen::inRange<std::size_t>(1, 8);
    const std::size_t curves = *rc::gen::inRange<std::size_t>(0, 5);
    graph.columns.clear();
    for (std::size_t column = 0; column <= curves; ++column)
        graph.columns.push_back(
            {*any_text(), shared_values(*rc::gen::container<std::vector<double>>(points, any_number()))});
    graph.curve_visible = *rc::gen::container<std::vector<bool>>(curves, rc::gen::arbitrary<bool>());
    for (const std::string& text : *rc::gen::container<std::vector<std::string>>(any_text()))
        graph.functions.push_back({text, true});
    graph.caption = *any_text();
    graph.title = *any_text();
    graph.x_title = *any_text();
    graph.ticks = *rc::gen::inRange(1, 32768);
    graph.line_width = width();
    graph.margins = {width(), width(), width(), width()};
    if (flag()) graph.legend_place = graph_place{1.0 + *rc::gen::inRange(0, 9000), number()};
    graph.window_size = {number(), number()};
    graph.x_range = {number(), number()};
    graph.y_range = {number(), number()};
    graph.axes_font = font();
    graph.subtitle_font = font();
    graph.x_manual = flag();
    graph.hor_gridline = flag();
    graph.draw_points = flag();
    return graph;
}

TEST(GraphFile, WhatIsWrittenReadsBackEqual)
{
    rc::check([] {
        const graph_content graph = any_graph();
        const std::string text = write_graph(graph);
        const auto again = read_graph(text);
        RC_ASSERT(again.has_value());
        // Infinite values come back as gaps: neither is drawn.
        graph_content expected = graph;
        for (graph_column& column : expected.columns) {
            std::vector<double> values(column.values.span().begin(), column.values.span().end());
            for (double& value : values)
                if (!std::isfinite(value)) value = std::numeric_limits<double>::quiet_NaN();
            column.values = shared_values(values);
        }
        RC_ASSERT(*again == expected);
        RC_ASSERT(write_graph(*again) == text);
    });
}

TEST(GraphFile, CutAnywhereItIsRefusedOrWhole)
{
    rc::check([] {
        const graph_content graph = any_graph();
        const std::string text = write_graph(graph);
        const std::vector<std::string_view> lines = split_lines(text);
        std::string cut;
        for (std::size_t kept = 0; kept < lines.size(); ++kept) {
            if (const auto read = read_graph(cut)) RC_ASSERT(write_graph(*read) == text);
            cut.append(lines[kept]).append("\r\n");
        }
    });
}

} // namespace
} // namespace kelvarin
