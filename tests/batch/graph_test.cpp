// SPDX-License-Identifier: MIT
#include "batch_call.h"
#include "graph/graph_file.h"
#include "support/graphs.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gmock/gmock.h>

namespace kelvarin
{
namespace
{

using test::batch_result;
using testing::HasSubstr;
using testing::StartsWith;
using keys = std::vector<std::string>;

class BatchGraph : public testing::Test
{
protected:
    BatchGraph()
    {
        graph_content graph = test::graph_of({{0.0, 1.0, 2.0}, {0.0, 10.0, 5.0}, {1.0, 2.0, 300.0}});
        graph.caption = "Run";
        graph.title = "Title";
        graph.curve_visible[1] = false;
        graph.functions.push_back({.text = "1/x"});
        graph.legend_place = {100.0, 200.0};
        graph.margins.left = 1234;
        folder.write("a.kvg", write_graph(graph));
        folder.write("equal.kvg", write_graph(test::graph_of({{1.0, 1.0}, {2.0, 3.0}})));
    }

    json answer_to(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), {"--format", "json"});
        return call(arguments).as_json();
    }

    test::scratch_folder folder;
    test::batch_call call;
};

TEST_F(BatchGraph, JsonTellsWhatWouldBeDrawn)
{
    const json answer = answer_to({"a.kvg"});
    keys found;
    for (const auto& [key, value] : answer.items())
        found.push_back(key);
    EXPECT_EQ(found, (keys{"file", "kind", "title", "ok", "messages", "caption", "subtitle", "x_title", "y_title",
                           "points", "ticks", "x_name", "x", "curves", "y", "functions", "limits", "flags", "report"}));
    EXPECT_EQ(answer["kind"], "graph");
    EXPECT_EQ(answer["title"], "Title");
    EXPECT_EQ(answer["points"], 3);
    EXPECT_EQ(answer["ticks"], 10);
    EXPECT_EQ(answer["x"], (json{0.0, 1.0, 2.0}));
    EXPECT_EQ(answer["curves"], (json{{{"name", "a"}, {"visible", true}}, {{"name", "b"}, {"visible", false}}}));
    EXPECT_EQ(answer["y"], (json{{0.0, 10.0, 5.0}, {1.0, 2.0, 300.0}}));
    EXPECT_EQ(answer["limits"], (json{{"xmin", 0.0}, {"xmax", 2.0}, {"ymin", 0.0}, {"ymax", 10.0}}));
    const json& points = answer["functions"][0]["points"];
    ASSERT_EQ(points.size(), 41u);
    EXPECT_EQ(points[0], (json{0.0, nullptr})) << "1/x has no value at 0";
    EXPECT_EQ(points[10], (json{0.5, 2.0}));
    EXPECT_EQ(answer["flags"]["scatter_connected"], true);
    EXPECT_EQ(answer["flags"]["x_manual"], false);
    EXPECT_FALSE(answer_to({"--edit", "hide a", "a.kvg"})["limits"].contains("ymin"));
}

TEST_F(BatchGraph, EditsAreDoneInOrderAndKeptInTheSavedFile)
{
    const std::vector<std::string> edits = {"--edit", "derive sum a+b", "--edit", "hide a",       "--edit", "xmin -1",
                                            "--edit", "ticks 5",        "--edit", "function x^2", "--save", "b.kvg"};
    std::vector<std::string> arguments = edits;
    arguments.push_back("a.kvg");
    const json edited = answer_to(arguments);
    EXPECT_EQ(edited["ok"], true);
    EXPECT_EQ(edited["curves"][2], (json{{"name", "sum = a+b"}, {"visible", true}}));
    EXPECT_EQ(edited["y"][2], (json{1.0, 12.0, 305.0}));
    EXPECT_EQ(edited["limits"]["xmin"], -1.0);
    EXPECT_EQ(edited["flags"]["x_manual"], true);
    EXPECT_EQ(edited["functions"][1]["points"][0], (json{-1.0, 1.0}));

    json reopened = answer_to({"b.kvg"});
    reopened["file"] = "a.kvg";
    EXPECT_EQ(reopened, edited);
    const auto saved = read_graph(folder.read("b.kvg"));
    ASSERT_TRUE(saved);
    EXPECT_EQ(saved->margins.left, 1234) << "what the answer doesn't show is kept";
    EXPECT_EQ(saved->legend_place, (graph_place{100.0, 200.0}));

    const json other_x = answer_to({"--edit", "x sum", "--edit", "restore", "b.kvg"});
    EXPECT_EQ(other_x["x_name"], "sum = a+b");
    EXPECT_EQ(other_x["limits"]["xmax"], 310.0) << "305 in steps of 10";
}

TEST_F(BatchGraph, WhatIsRefusedIsToldAndWritesNothing)
{
    const test::table<std::vector<std::string>, int, std::string> rows = {
        {{"--edit", "xmin one", "a.kvg"}, 1, "kelvarin-solve: a.kvg: Kelvarin GUIDE\nData input not legal !\n"},
        {{"--edit", "function y", "a.kvg"}, 1, "Only 'x' variable is allowed in the algebric expression."},
        {{"--edit", "derive a x", "a.kvg"}, 1, "'a' is not a unique variable name"},
        {{"--edit", "show x", "a.kvg"}, 1, "'x' is not a known scatter curve name"},
        {{"equal.kvg"},
         1,
         "kelvarin-solve: equal.kvg: Kelvarin Graph\nKelvarin can not create the requested graph. Error: Graph cannot "
         "be plotted when all x values are the same.\n"},
        {{"--edit", "turn 90", "a.kvg"}, 2, "--edit: there is no command 'turn' for graphs."},
        {{"--method", "1", "a.kvg"}, 2, "--method"}};
    for (const auto& [arguments, status, text] : rows) {
        SCOPED_TRACE(text);
        std::vector<std::string> with_outputs = {"--save", "out.kvg", "--plot", "out.svg"};
        with_outputs.insert(with_outputs.end(), arguments.begin(), arguments.end());
        const batch_result result = call(with_outputs);
        EXPECT_EQ(result.status, status);
        EXPECT_THAT(result.err, HasSubstr(text));
        EXPECT_FALSE(folder.holds("out.kvg"));
        EXPECT_FALSE(folder.holds("out.svg"));
    }
    const json equal = answer_to({"equal.kvg"});
    EXPECT_EQ(equal["ok"], false);
    EXPECT_FALSE(equal.contains("limits"));
    EXPECT_EQ(answer_to({"--edit", "xmax 3", "equal.kvg"})["limits"]["xmin"], 0.0)
        << "a manual axis needs no different x; its other end is that of the file";
}

TEST_F(BatchGraph, PicturesOfOneGraphAreEqual)
{
    EXPECT_EQ(call({"--plot", "a.svg", "a.kvg"}).status, 0);
    EXPECT_EQ(call({"--plot", "b.svg", "a.kvg"}).out, "");
    EXPECT_EQ(folder.read("a.svg"), folder.read("b.svg"));
    EXPECT_THAT(folder.read("a.svg"), HasSubstr(">Title</text>"));
    EXPECT_THAT(call({"a.kvg"}).out, HasSubstr("x\ta\tb\n0\t0\t1\n"));
}

TEST_F(BatchGraph, OneNonlinearEquationHandsOverItsScan)
{
    folder.write("root.kvr", test::square_root_of_two);
    folder.write("plane.kvr", test::plane_lines);
    folder.write("linear.kvr", test::linear_lines);
    EXPECT_EQ(call({"--graph", "r.kvg", "--plot", "r.svg", "root.kvr"}).status, 0);
    EXPECT_THAT(folder.read("r.svg"), StartsWith("<?xml"));
    const auto graph = read_graph(folder.read("r.kvg"));
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->caption, "NLE Graph Solution #1");
    EXPECT_EQ(graph->columns[0].name, "0");
    EXPECT_EQ(graph->columns[1].name, "f(x)");
    EXPECT_EQ(graph->x_title, "x");
    ASSERT_EQ(graph->point_count(), 167u);
    EXPECT_EQ(graph->columns[0].values[166], 2.0);
    EXPECT_EQ(graph->columns[1].values[166], 2.0);
    EXPECT_TRUE(graph->scatter_connected);
    EXPECT_FALSE(graph->draw_points);
    for (const char* file : {"plane.kvr", "linear.kvr"}) {
        EXPECT_EQ(call({"--graph", "none.kvg", file}).status, 2);
        EXPECT_FALSE(folder.holds("none.kvg"));
    }
}

TEST_F(BatchGraph, FurtherGraphsOfARunReplaceNoFileEither)
{
    // Lines of first and second degree open two graphs, of which the command line names one.
    const std::string table = "Line\r\n4 2\r\nx\ty\r\n0\t1\r\n1\t3\r\n2\t5\r\n3\t8\r\n*\r\n\r\n\r\n";
    folder.write("t.kvr", table);
    folder.write("t-2.kvr", table);
    const std::vector<std::string> fit = {"--regress", "polynomial", "--degree", "1,2", "--plot"};
    const auto run = [&](std::vector<std::string> rest) {
        rest.insert(rest.begin(), fit.begin(), fit.end());
        return call(rest);
    };
    ASSERT_EQ(run({"p.svg", "t.kvr"}).status, 0);
    ASSERT_TRUE(folder.holds("p-2.svg"));
    const test::table<std::vector<std::string>, std::string> rows = {
        {{"t.kvr", "t-2.kvr"}, "The output would replace the problem 't-2.kvr'."},
        {{"new.svg", "--graph", "new-2.svg", "t.kvr"}, "Two outputs would be written to 'new-2.svg'."}};
    for (const auto& [rest, reason] : rows) {
        const batch_result refused = run(rest);
        EXPECT_EQ(refused.status, 2);
        EXPECT_THAT(refused.err, HasSubstr(reason));
    }
    EXPECT_EQ(folder.read("t-2.kvr"), table);
    EXPECT_FALSE(folder.holds("new.svg"));
}

} // namespace
} // namespace kelvarin
