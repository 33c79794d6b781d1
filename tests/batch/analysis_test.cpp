// SPDX-License-Identifier: MIT
#include "batch_call.h"
#include "shell/report/rich_text.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gmock/gmock.h>

namespace kelvarin
{
namespace
{

using test::batch_result;
using test::table;
using testing::HasSubstr;
using texts = std::vector<std::string>;

/// x, its cube, a column without numbers, and x + 1 with an e: 2 lines below the data.
constexpr const char* cubes = "Cubes\n9 5\nx\ty\tnote\tz\tempty\n"
                              "-3\t-27\ta\t-2\t\n-2\t-8\tb\t-1\t\n-1\t-1\tc\t0\t\n0\t0\td\t1\t\n"
                              "1\t1\te\t2\t\n2\t8\tf\t3\t\n3\t27\tg\t4\t\n*\n";

class BatchAnalysis : public testing::Test
{
protected:
    BatchAnalysis() { folder.write("t.kvr", cubes); }

    batch_result run(texts arguments)
    {
        arguments.insert(arguments.begin(), {"--format", "json"});
        arguments.emplace_back("t.kvr");
        return call(arguments);
    }

    test::scratch_folder folder;
    test::batch_call call;
};

TEST_F(BatchAnalysis, TellsAllThreeResultsAndTheChosenOne)
{
    const json answer = run({"--differentiate", "-2.6", "--method", "LAGRANGE"}).as_json();
    texts keys;
    for (const auto& [key, value] : answer.items())
        keys.push_back(key);
    EXPECT_EQ(keys, (texts{"file", "kind", "title", "ok", "messages", "analysis", "n", "methods", "chosen", "value",
                           "dev", "warning", "report"}));
    EXPECT_EQ(answer["ok"], true);
    EXPECT_EQ(answer["analysis"], "differentiation");
    EXPECT_EQ(answer["n"], 7);
    EXPECT_EQ(answer["methods"][2]["name"], "SPLINE");
    EXPECT_EQ(answer["value"], answer["methods"][1]["value"]);
    EXPECT_NEAR(answer["value"].get<double>(), 20.28, 1e-12) << "exact for cubics";

    const json whole = run({"--integrate", "-3,3", "--dep", "y", "--indep", "z"}).as_json();
    EXPECT_EQ(whole["messages"][0]["text"], "Integration range must be inside the range where x data is available.");
    EXPECT_EQ(whole["chosen"], "GAULEG");
    EXPECT_FALSE(whole.contains("methods"));
    EXPECT_EQ(run({"--integrate", "3,1", "--method", "2"}).as_json()["value"], -20.0) << "Simpson's rule on cubes";

    const json node = run({"--interpolate", "-2", "--table"}).as_json();
    EXPECT_EQ(node["err"], 0.0);
    EXPECT_EQ(node["value"], -8.0);
    EXPECT_EQ(node["table"]["rows"], 7);
    EXPECT_FALSE(run({"--interpolate", "-2.5", "--method", "LINEAR"}).as_json().contains("err"));
    const std::string printed = call({"--interpolate", "-2", "t.kvr"}).out;
    EXPECT_THAT(printed, HasSubstr("-8\n\nN = 7\nErr = 0.000E00\nDev = 0.00%\n"));
    // As rich text the same lines, with what ends every document.
    const std::string document = call({"--format", "rtf", "--interpolate", "-2", "t.kvr"}).out;
    EXPECT_THAT(document, testing::StartsWith(R"({\rtf1)"));
    EXPECT_THAT(plain_text_of(read_rich_text(document)), HasSubstr(printed));
}

TEST_F(BatchAnalysis, TellsMatricesOfSelections)
{
    const json product = run({"--matrix", "multiply", "--a", "2,2,1,1", "--b", "4,1,5,4"}).as_json();
    EXPECT_EQ(product["matrix"], "multiply");
    // (-3 -27; -2 -8) (0 0 0 1; 1 1 0 2)
    EXPECT_EQ(product["c"], json::parse("[[-27.0,-27.0,0.0,-57.0],[-8.0,-8.0,0.0,-18.0]]"));
    EXPECT_THAT(product["report"].get<std::string>(), HasSubstr("[C] = [A] x [B]"));

    const batch_result explored = run({"--matrix", "explore", "--a", "4,1,5,2"});
    EXPECT_EQ(explored.status, 0);
    EXPECT_EQ(explored.as_json()["ok"], true);
    EXPECT_EQ(explored.as_json()["rank"], 1);
    EXPECT_EQ(explored.as_json()["trace"], 1.0);
    EXPECT_FALSE(explored.as_json().contains("determinant"));
    EXPECT_EQ(explored.as_json()["messages"][0]["text"], "Singular matrix.");
    EXPECT_THAT(explored.err, HasSubstr("Singular matrix."));

    const batch_result refused = run({"--matrix", "inverse", "--a", "1,1,1,2"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.as_json()["ok"], false);
    EXPECT_FALSE(refused.as_json().contains("c"));
}

TEST_F(BatchAnalysis, WrongUsageIsNamed)
{
    const table<texts, const char*> rows = {
        {{"--interpolate", "1", "--statistics"}, "can not be asked for together"},
        {{"--interpolate", "1", "--dep", "empty"}, "no column 'empty'"},
        {{"--interpolate", "1", "--indep", "X"}, "no column 'X'"},
        {{"--interpolate", "1", "--method", "SPLINE"}, "no method 'SPLINE'"},
        {{"--interpolate", "1", "--a", "1,1,1,1"}, "--a: not an option of --interpolate"},
        {{"--dep", "y"}, "--dep: of no use without an action"},
        {{"--interpolate", "one"}, "a number is expected"},
        {{"--integrate", "1"}, "two numbers A,B"},
        {{"--matrix", "transpose"}, "--a is missing"},
        {{"--matrix", "add", "--a", "1,1,2,2"}, "--b is missing"},
        {{"--matrix", "invert", "--a", "1,1,2,2"}, "is expected"},
        {{"--matrix", "inverse", "--a", "0,1,2,2"}, "two corners"},
        {{"--matrix", "inverse", "--a", "1,1,2,31"}, "has only"},
        {{"--matrix", "inverse", "--a", "1,1,2,2", "--plot", "a.svg"}, "--plot"},
    };
    for (const auto& [arguments, text] : rows) {
        const batch_result result = run(arguments);
        EXPECT_EQ(result.status, 2) << text;
        EXPECT_THAT(result.err, HasSubstr(text));
    }
}

} // namespace
} // namespace kelvarin
