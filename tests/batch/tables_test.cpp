// SPDX-License-Identifier: MIT
#include "batch_call.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gmock/gmock.h>

namespace kelvarin
{
namespace
{

using test::batch_result;
using testing::HasSubstr;
using texts = std::vector<std::string>;

class Tables : public testing::Test
{
protected:
    Tables()
    {
        folder.write("t.kvr", "Squares\r\n3 2\r\nx\ty=x^2\r\n1\t1\r\n2\t4\r\n\t\r\n4\t16\r\n*\r\ny = a*x\r\na=1\r\n");
    }

    json answer_to(texts arguments)
    {
        arguments.insert(arguments.begin(), {"--format", "json"});
        return call(arguments).as_json();
    }

    test::scratch_folder folder;
    test::batch_call call;
};

TEST_F(Tables, ThePartInUseIsTheAnswer)
{
    const json answer = answer_to({"--table", "t.kvr"});
    EXPECT_EQ(answer, (json{{"file", "t.kvr"},
                            {"kind", "reg"},
                            {"title", "Squares"},
                            {"ok", true},
                            {"messages", json::array()},
                            {"rows", 4},
                            {"columns", {{{"name", "x"}, {"formula", ""}}, {{"name", "y"}, {"formula", "x^2"}}}},
                            {"cells", json::parse(R"([["1","1"],["2","4"],["",""],["4","16"]])")},
                            {"model", "y = a*x"},
                            {"guesses", {{{"name", "a"}, {"value", "1"}}}},
                            {"report", ""}}));
    EXPECT_EQ(call({"--table", "t.kvr"}).out, "x  y\n1  1\n2  4\n\n4  16\n");
}

TEST_F(Tables, StatisticsEndAtTheFirstBlank)
{
    const json answer = answer_to({"--statistics", "--table", "t.kvr"});
    ASSERT_EQ(answer["columns"].size(), 2U);
    EXPECT_EQ(answer["columns"][0],
              (json{{"name", "x"}, {"n", 2}, {"sum", 3.0}, {"mean", 1.5}, {"sd", std::sqrt(0.5)}, {"variance", 0.5}}));
    EXPECT_EQ(answer["table"]["rows"], 4);
    EXPECT_THAT(answer["report"].get<std::string>(), HasSubstr("Column Statistics"));
    EXPECT_THAT(call({"--statistics", "t.kvr"}).out, HasSubstr("Arithmetic mean    :  1.5"));
    folder.write("large.kvr", "t\n2 1\nx\n1e308\n1e308\n1e308\n");
    EXPECT_EQ(answer_to({"--statistics", "large.kvr"})["messages"][0]["text"], "Error: Overflow");
}

TEST_F(Tables, EditsComeFirstAndSavingLast)
{
    const json answer = answer_to({"--table",        "--edit", "cell 3,1 -3",  "--edit", "rename x t",   "--edit",
                                   "define C03 y/t", "--edit", "digits 8",     "--edit", "insert 2",     "--edit",
                                   "delete 1",       "--edit", "cell 9,1 abc", "--edit", "undefine C03", "--edit",
                                   "cell 2,3",       "--save", "out.kvr",      "t.kvr"});
    EXPECT_EQ(answer["ok"], true);
    EXPECT_EQ(answer["columns"][1]["formula"], "t^2");
    EXPECT_EQ(answer["cells"][2], (json{"-3", "9", "-3"}));
    EXPECT_EQ(answer["cells"][1], (json{"2", "4", ""}));
    EXPECT_EQ(answer["cells"][8], (json{"abc", "$Err!", "$Err!"}));
    EXPECT_TRUE(folder.read("out.kvr").starts_with("Squares\r\n9 3\r\nt\ty=t^2\tC03\r\n\t\t\r\n2\t4\t\r\n"));
    const json again = answer_to({"--table", "out.kvr"});
    EXPECT_EQ(again["cells"], answer["cells"]);
}

TEST_F(Tables, ARefusedEditLetsTheOthersBeDoneAndTheActionNot)
{
    const test::table<texts, std::string> refused = {
        {{"cell 1,2 5"},
         "Some destination cells contain formulas that can not be modified.\rNote that some data has not "
         "been pasted in this action."},
        {{"cell 1,31 5"}, "The table has no column 31."},
        {{"define q x"}, "The table has no column 'q'."},
        {{"define x y"}, "Circular column definitions not allowed."},
        {{"rename x y"}, "Error: Column name must be unique."},
        {{"digits 7"}, "Numer of digits must be in the interval: 8 < n < 22"},
        {{"delete 301"}, "The table has no row 301."},
    };
    for (const auto& [edits, text] : refused) {
        texts arguments = {"--statistics", "--save", "no.kvr", "--format", "json", "t.kvr"};
        for (const std::string& edit : edits)
            arguments.insert(arguments.begin(), {"--edit", edit});
        const batch_result result = call(arguments);
        EXPECT_EQ(result.status, 1) << text;
        EXPECT_EQ(result.as_json()["ok"], false);
        EXPECT_EQ(result.as_json()["messages"][0]["text"], text);
        EXPECT_FALSE(result.as_json().contains("columns"));
        EXPECT_FALSE(folder.holds("no.kvr"));
    }
    for (const char* wrong : {"cell 1 2", "cell 0,1 2", "rename x", "insert", "insert x", "fill 3"})
        EXPECT_EQ(call({"--edit", wrong, "t.kvr"}).status, 2) << wrong;
    EXPECT_EQ(call({"--kind", "reg", "--csv", "a.csv", "t.kvr"}).status, 2);
    folder.write("no.kvr", "no table\n0 0\nx\n");
    EXPECT_EQ(call({"--kind", "reg", "no.kvr"}).status, 2);
}

TEST_F(Tables, PointsOfARunAreSavedAsATable)
{
    folder.write("decay.kvr", test::differential);
    ASSERT_EQ(call({"--save", "{}-points.kvr", "decay.kvr"}).status, 0);
    const json points = answer_to({"decay-points.kvr"});
    EXPECT_EQ(points["title"], "Decay");
    EXPECT_EQ(points["columns"][1]["name"], "y");
    EXPECT_EQ(points["cells"][0], (json{"0", "1"}));
    EXPECT_EQ(points["cells"].back()[1], "0.3678794");
}

} // namespace
} // namespace kelvarin
