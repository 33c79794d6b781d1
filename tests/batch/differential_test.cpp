// SPDX-License-Identifier: MIT
#include "batch_call.h"
#include "graph/graph_file.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gmock/gmock.h>

#include <cmath>

namespace kelvarin
{
namespace
{

using test::batch_result;
using testing::HasSubstr;
using testing::StartsWith;
using keys = std::vector<std::string>;

class Differential : public testing::Test
{
protected:
    Differential()
    {
        folder.write("decay.kvr", test::differential);
        folder.write("sum.kvr", test::explicit_only);
    }

    json answer_to(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), {"--format", "json"});
        return call(arguments).as_json();
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

TEST_F(Differential, JsonHoldsTableSummaryAndCounters)
{
    for (const char* method : {"RKF45", "RKF56", "BS", "STIFF", "STIFFBS"}) {
        SCOPED_TRACE(method);
        const json answer = answer_to({"--method", method, "decay.kvr"});
        EXPECT_EQ(keys_of(answer), (keys{"file", "kind", "title", "ok", "messages", "method", "table", "minmax",
                                         "final", "stats", "report"}));
        EXPECT_EQ(answer["method"], method);
        EXPECT_EQ(answer["kind"], "deq");
        EXPECT_EQ(answer["table"]["names"], (keys{"t", "y"}));
        const json& rows = answer["table"]["rows"];
        EXPECT_EQ(rows.front(), (json{0.0, 1.0}));
        EXPECT_NEAR(rows.back()[1].get<double>(), std::exp(-1.0), 1e-6);
        EXPECT_EQ(keys_of(answer["minmax"][1]), (keys{"name", "initial", "minimum", "maximum", "final"}));
        EXPECT_EQ(answer["minmax"][1]["minimum"], rows.back()[1]);
        EXPECT_EQ(answer["final"], (json{{{"name", "y"}, {"value", rows.back()[1]}}}));
        const bool counts = std::string(method).find("RKF") == std::string::npos;
        EXPECT_EQ(keys_of(answer["stats"]),
                  counts ? (keys{"steps", "evaluations", "good", "bad"}) : (keys{"steps", "evaluations"}));
        EXPECT_THAT(answer["report"].get<std::string>(), HasSubstr("ODE Report (" + std::string(method) + ")"));
    }
    EXPECT_EQ(answer_to({"--method", "3", "decay.kvr"})["method"], "STIFF");
}

TEST_F(Differential, WhatDoesNotRunSaysWhyAndWritesNothing)
{
    folder.write("red.kvr", "Red |KVRVER05_2\nd(y)/d(t) = q\nt(0)=0\ny(0)=1\nt(f)=1\n");
    folder.write("none.kvr", "None\na = 1\nt(0)=0\nt(f)=1\n");
    folder.write("fails.kvr", "Fails\nd(y)/d(t) = ln(-t)\nt(0)=0\ny(0)=1\nt(f)=1\n");
    const test::table<std::string, std::string, std::string> rows = {
        {"red.kvr", "Kelvarin Guide", "Undefined Variable: q"},
        {"none.kvr", "Kelvarin Guide Guide", "No differential equations have been entered. Solution aborted."},
        {"fails.kvr", "Expression evaluation error", "Error: ln() of negative number not allowed.\rln((0 - t))"}};
    for (const auto& [file, title, text] : rows) {
        SCOPED_TRACE(file);
        const batch_result result =
            call({"--format", "json", "--csv", "a.csv", "--graph", "a.kvg", "--plot", "a.svg", "--table", file});
        EXPECT_EQ(result.status, 1);
        const json answer = result.as_json();
        EXPECT_EQ(keys_of(answer), (keys{"file", "kind", "title", "ok", "messages", "method", "report"}));
        EXPECT_EQ(answer["messages"], (json{{{"title", title}, {"text", text}}}));
        for (const char* output : {"a.csv", "a.kvg", "a.svg"})
            EXPECT_FALSE(folder.holds(output));
    }
}

TEST_F(Differential, WhatIsNoProblemOfTheKindIsNotOpened)
{
    folder.write("line.kvr", test::square_root_of_two);
    for (const char* option : {"--format=json", "--check"}) {
        const batch_result result = call({"--kind", "deq", option, "line.kvr"});
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.as_json(),
                  (json{{"file", "line.kvr"},
                        {"kind", "deq"},
                        {"ok", false},
                        {"messages", {{{"title", "Kelvarin Guide"}, {"text", "Error while trying to open file."}}}}}));
    }
}

TEST_F(Differential, CheckTellsWhatIsMissing)
{
    folder.write("red.kvr", "Red |KVRVER05_2\nd(y)/d(t) = q\na = 1\na = 2\nt(0)=0\ny(0)=1\nt(f)=x\n");
    const json answer = call({"--check", "red.kvr"}).as_json();
    EXPECT_EQ(keys_of(answer),
              (keys{"file", "kind", "title", "method", "green", "panels", "undefined", "duplicates", "warnings"}));
    EXPECT_EQ(answer["method"], "BS");
    EXPECT_EQ(answer["green"], false);
    EXPECT_EQ(answer["panels"],
              (keys{"Differential Equations: 1 ", "Auxiliary Equations: 2 ", "Undefined Variable: q "}));
    EXPECT_EQ(answer["undefined"], (keys{"q"}));
    EXPECT_EQ(answer["duplicates"], (keys{"a"}));
    EXPECT_EQ(answer["warnings"].back(), "Warning: Multiply defined variable/s exist.");
    EXPECT_EQ(call({"--check", "--method", "STIFFBS", "decay.kvr"}).as_json()["green"], true);
}

TEST_F(Differential, TableGraphAndPictureAreWrittenBesideTheReport)
{
    folder.write("chain.kvr", "d(y)/d(t) = k*y\nd(z)/d(t) = y\nk = -2\nt(0)=0\ny(0)=1\nz(0)=0\nt(f)=1\n");
    const std::string report = call({"chain.kvr"}).out;
    const batch_result result =
        call({"--csv", "{}.csv", "--graph", "{}.kvg", "--plot", "{}.svg", "chain.kvr", "decay.kvr"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, report + "\n" + call({"decay.kvr"}).out);
    EXPECT_THAT(folder.read("chain.csv"), StartsWith("t,y,z,k\n0,1,0,-2\n"));
    EXPECT_THAT(folder.read("decay.csv"), StartsWith("t,y\n0,1\n"));
    EXPECT_THAT(folder.read("decay.svg"), HasSubstr("<svg"));
    const auto graph = read_graph(folder.read("chain.kvg"));
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->caption, "ODE Results Graph, Solution #1");
    EXPECT_EQ(graph->x_title, "t");
    EXPECT_EQ(graph->curve_visible, (std::vector<bool>{true, true, false}));

    const json rows = answer_to({"decay.kvr"})["table"]["rows"];
    std::string csv = folder.read("decay.csv");
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(csv, '\n')), rows.size() + 1);
    const std::string last = csv.substr(csv.rfind('\n', csv.size() - 2) + 1);
    EXPECT_EQ(std::stod(last.substr(last.find(',') + 1)), rows.back()[1].get<double>()) << "in full precision";

    const std::string with_table = call({"--table", "decay.kvr"}).out;
    EXPECT_THAT(with_table, StartsWith(call({"decay.kvr"}).out + "\nt"));
    EXPECT_THAT(with_table, testing::EndsWith("\n1          0.3678794\n"));
    EXPECT_EQ(call({"--table", "--format", "rtf", "decay.kvr"}).out, call({"--format", "rtf", "decay.kvr"}).out);
}

TEST_F(Differential, AnOptionOfAnotherKindIsWrongUsage)
{
    const test::table<std::vector<std::string>, std::string> rows = {
        {{"--method", "STIFF", "sum.kvr"}, "--method: there is no method 'STIFF'."},
        {{"--method", "fastnewt", "decay.kvr"}, "--method: there is no method 'fastnewt'."},
        {{"--csv", "a.csv", "sum.kvr"}, "--csv: not an option of problems of the kind nle."},
        {{"--table", "sum.kvr"}, "--table: not an option of problems of the kind nle."}};
    for (const auto& [arguments, reason] : rows) {
        SCOPED_TRACE(reason);
        const batch_result result = call(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.err, HasSubstr(reason));
        EXPECT_EQ(result.out, "");
        EXPECT_FALSE(folder.holds("a.csv"));
    }
}

TEST_F(Differential, AWishToStopIsToldAndWritesNothing)
{
    call.listener.ask_to_stop();
    const batch_result result = call({"--csv", "a.csv", "decay.kvr"});
    EXPECT_EQ(result.status, 130);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "kelvarin-solve: decay.kvr: Kelvarin Guide\nCalculations aborted.\n");
    EXPECT_FALSE(folder.holds("a.csv"));
}

/// y = 1 / (1 - t) has a pole at 1, which the steps never pass.
TEST_F(Differential, AResultThatIsNotAtTheEndOfTheRangeIsNotedBesideIt)
{
    folder.write("pole.kvr", "Pole |KVRVER05_0\r\nd(y)/d(t) = y^2 #\r\nt(0)=0\r\ny(0)=1\r\nt(f)=1.02\r\n");
    const batch_result result = call({"pole.kvr"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, StartsWith("kelvarin-solve: pole.kvr: Note\nThe steps came to nothing at t = 1"));
    EXPECT_EQ(answer_to({"pole.kvr"})["messages"], json::array());
    EXPECT_EQ(call({"decay.kvr"}).err, "");
}

} // namespace
} // namespace kelvarin
