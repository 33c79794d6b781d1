// SPDX-License-Identifier: MIT
#include "batch_call.h"
#include "graph/graph_file.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gmock/gmock.h>

namespace kelvarin
{
namespace
{

using testing::HasSubstr;
using keys = std::vector<std::string>;

class Optimization : public testing::Test
{
protected:
    Optimization()
    {
        folder.write("bowl.kvr", "Bowl\n(x-1)^2+(y-2)^2\nx(0)=3\ny(0)=4\n");
        folder.write("line.kvr", "Line\n(x-a)^2\nx(0)=3\na = 5\n");
        folder.write("red.kvr", "Red\nx+q\nx(0)=1\n");
    }

    static keys keys_of(const json& object)
    {
        keys found;
        for (const auto& [key, value] : object.items())
            found.push_back(key);
        return found;
    }

    test::scratch_folder folder;
    test::batch_call call;
};

TEST_F(Optimization, JsonHoldsTheMinimum)
{
    for (const char* method : {"Conjugate Grad", "Quasi-Newton", "Dfpmin"}) {
        SCOPED_TRACE(method);
        const json answer = call({"--format", "json", "--method", method, "line.kvr"}).as_json();
        keys expected = {"file",     "kind",      "title",      "ok",          "messages", "method", "variables",
                         "explicit", "objective", "iterations", "evaluations", "ending",   "report"};
        const bool has_ending = std::string(method) != "Dfpmin";
        if (!has_ending) expected.erase(expected.end() - 2);
        EXPECT_EQ(keys_of(answer), expected);
        EXPECT_EQ(answer["kind"], "opt");
        EXPECT_EQ(answer["method"], method);
        EXPECT_EQ(keys_of(answer["variables"][0]), (keys{"name", "value", "guess"}));
        EXPECT_NEAR(answer["variables"][0]["value"].get<double>(), 5.0, 1e-8);
        EXPECT_EQ(answer["variables"][0]["guess"], 3.0);
        EXPECT_EQ(answer["explicit"], (json{{{"name", "a"}, {"value", 5.0}}}));
        EXPECT_EQ(answer.value("ending", 0), 0);
    }
    // A limit that is reached is a line of the report.
    folder.write("valley.kvr", "Valley\n100*(y-x^2)^2+(1-x)^2\nx(0)=-1.2\ny(0)=1\n");
    const auto result = call({"--format", "json", "--set", "opt_cg_MAXITER=10", "valley.kvr"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.as_json()["ok"], true);
    EXPECT_EQ(result.as_json()["ending"], 1);
    EXPECT_THAT(result.as_json()["report"].get<std::string>(),
                HasSubstr(" E: Maximum number of function evaluations.\n"));
}

TEST_F(Optimization, RefusalsAndTheirStatus)
{
    folder.write("none.kvr", "None\n2\na = 1\n");
    folder.write("three.kvr", "Three\nx+y+z\nx(0)=1\ny(0)=1\nz(0)=1\n");
    const test::table<keys, int, std::string> rows = {
        {{"red.kvr"}, 1, "Undefined Variable: q\n"},
        {{"--kind", "opt", "none.kvr"}, 1, "Initialized Target Variables: 0\n"},
        {{"--graph", "a.kvg", "bowl.kvr"}, 2, "Only a target of one variable has a graph.\n"},
        {{"--plot", "a.svg", "three.kvr"}, 2, "Only a target of one or two variables has a picture.\n"},
        {{"--method", "STIFF", "bowl.kvr"}, 2, "--method: there is no method 'STIFF'.\n"},
        {{"--csv", "a.csv", "bowl.kvr"}, 2, "--csv: not an option of problems of the kind opt.\n"}};
    for (const auto& [arguments, status, text] : rows) {
        const test::batch_result result = call(arguments);
        EXPECT_EQ(result.status, status) << text;
        EXPECT_THAT(result.err, HasSubstr(text));
        EXPECT_EQ(result.out, "");
    }
}

TEST_F(Optimization, CheckTellsWhatIsMissing)
{
    EXPECT_EQ(call({"--check", "red.kvr"}).as_json(),
              (json{{"file", "red.kvr"},
                    {"kind", "opt"},
                    {"title", "Red"},
                    {"green", false},
                    {"panels", {"Initialized Target Variables: 1", "Auxiliary Equations: 0", "Undefined Variable: q"}},
                    {"undefined", {"q"}},
                    {"warnings", {"Warning: Undefined variables exist."}}}));
}

TEST_F(Optimization, TheTargetOfOneVariableIsDrawn)
{
    EXPECT_EQ(call({"--graph", "a.kvg", "--plot", "a.svg", "line.kvr"}).status, 0);
    EXPECT_THAT(folder.read("a.svg"), HasSubstr("<svg"));
    const auto graph = read_graph(folder.read("a.kvg"));
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->x_title, "x");
}

TEST_F(Optimization, TheTargetOfTwoVariablesHasContoursAndAPath)
{
    EXPECT_EQ(call({"--plot", "b.svg", "bowl.kvr"}).status, 0);
    const std::string picture = folder.read("b.svg");
    for (const char* part :
         {"function-0", "function-5", "class=\"curve curve-0\"", ">Bowl<", ">iterations<", ">x<", ">y<"})
        EXPECT_THAT(picture, HasSubstr(part));
}

} // namespace
} // namespace kelvarin
