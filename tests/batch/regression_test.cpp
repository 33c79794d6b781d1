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
using testing::ElementsAre;
using testing::HasSubstr;
using texts = std::vector<std::string>;

class Regressions : public testing::Test
{
protected:
    Regressions()
    {
        // y = 2 - 3 x + x^2, z = 1 .. 5; m is empty.
        folder.write("t.kvr", "Parabola\r\n5 4\r\nx\ty\tz\tm\r\n0\t2\t1\t\r\n1\t0\t2\t\r\n2\t0\t3\t\r\n3\t2\t4\t\r\n"
                              "4\t6\t5\t\r\n*\r\ny = a+b*x+c*x^2\r\na=1\tb=1\tc=\r\n");
    }

    json answer_to(texts arguments)
    {
        arguments.insert(arguments.begin(), {"--format", "json"});
        arguments.push_back("t.kvr");
        return call(arguments).as_json();
    }

    batch_result call_with(texts arguments)
    {
        arguments.push_back("t.kvr");
        return call(arguments);
    }

    test::scratch_folder folder;
    test::batch_call call;
};

TEST_F(Regressions, PolynomialsOfTheDefaultsAndOfAllOptions)
{
    const json line = answer_to({"--regress", "polynomial"});
    EXPECT_EQ(line["ok"], true);
    EXPECT_EQ(line["regression"], "polynomial");
    EXPECT_EQ(line["dependent"], "y");
    EXPECT_EQ(line["independent"], (json{"x"}));
    ASSERT_EQ(line["fits"].size(), 1U);
    EXPECT_EQ(line["fits"][0]["degree"], 1);
    EXPECT_EQ(line["fits"][0]["free_parameter"], true);
    EXPECT_NEAR(line["fits"][0]["parameters"][1]["value"].get<double>(), 1.0, 1e-13);
    EXPECT_THAT(line["report"].get<std::string>(), HasSubstr("Linear Regression Report"));

    const json both = answer_to({"--regress", "polynomial", "--indep", "x", "--degree", "2,1", "--derivative", "2",
                                 "--integral", "-1,3", "--store", "m", "--graphs", "--table"});
    ASSERT_EQ(both["fits"].size(), 2U);
    EXPECT_EQ(both["fits"][0]["degree"], 1);
    EXPECT_NEAR(both["fits"][1]["derivative"].get<double>(), 1.0, 1e-11);
    // 2 x - 3/2 x^2 + x^3/3 from -1 to 3.
    EXPECT_NEAR(both["fits"][1]["integral"].get<double>(), 1.5 + 23.0 / 6.0, 1e-11);
    ASSERT_EQ(both["graphs"].size(), 4U);
    EXPECT_EQ(both["graphs"][2]["title"], "Polynomial Regression Graph, Solution #1.2");
    EXPECT_EQ(both["graphs"][2]["x_name"], "x");
    EXPECT_EQ(both["graphs"][2]["series"][0]["values"], json::parse("[2.0,0.0,0.0,2.0,6.0]"));
    EXPECT_EQ(both["graphs"][3]["function"], "0");
    EXPECT_EQ(both["stored"]["name"], "m");
    EXPECT_EQ(both["stored"]["formula"], "2-3*x+1*x^2");
    EXPECT_EQ(both["table"]["columns"][3]["formula"], "2-3*x+1*x^2");
    EXPECT_EQ(both["table"]["cells"][4][3], "6");
    EXPECT_EQ(answer_to({"--regress", "polynomial", "--origin", "--degree", "5"})["fits"][0]["parameters"][4]["name"],
              "a5");
}

TEST_F(Regressions, MultipleTakesVariablesInTheOrderOfTheTable)
{
    const json answer = answer_to({"--regress", "linear", "--dep", "z", "--indep", "y,x"});
    EXPECT_EQ(answer["regression"], "linear");
    EXPECT_EQ(answer["independent"], (json{"x", "y"}));
    EXPECT_FALSE(answer["fits"][0].contains("degree"));
    EXPECT_NEAR(answer["fits"][0]["parameters"][1]["value"].get<double>(), 1.0, 1e-12);
    EXPECT_EQ(answer_to({"--regress", "linear", "--indep", "x,z", "--edit", "cell 3,1"})["messages"][0]["text"]
                  .get<std::string>()
                  .rfind("Insufficient data sets", 0),
              0U);
}

TEST_F(Regressions, AModelIsFittedWithoutBeingAskedFor)
{
    const json missing = answer_to({});
    EXPECT_EQ(missing["messages"][0]["text"], "Invalid data entry : \rInvalid numeric format for 'c' initial guess");
    EXPECT_EQ(call_with({}).status, 1);
    const json fitted = answer_to({"--guess", "c=2,a=0.5", "--method", "L-M"});
    EXPECT_EQ(fitted["fits"][0]["model"], "y = a+b*x+c*x^2");
    EXPECT_EQ(fitted["fits"][0]["method"], "L-M");
    EXPECT_EQ(fitted["fits"][0]["parameters"][0]["guess"], 0.5);
    EXPECT_NEAR(fitted["fits"][0]["parameters"][2]["value"].get<double>(), 1.0, 1e-9);
    EXPECT_FALSE(fitted["fits"][0].contains("alamda"));
    EXPECT_EQ(fitted["fits"][0]["limit_reached"], false);
    const json other = answer_to({"--regress", "nonlinear", "--model", "z = b*x+q", "--guess", "q=3"});
    EXPECT_EQ(other["dependent"], "z");
    EXPECT_EQ(other["fits"][0]["parameters"][0]["guess"], 1.0);
    EXPECT_TRUE(other["fits"][0].contains("alamda"));
    EXPECT_EQ(answer_to({"--model", "y = a*y"})["messages"][0]["text"],
              "Dependent variable can not be part of the model text (y).");
}

TEST_F(Regressions, WhatNoPageOffersIsWrongUsage)
{
    for (const texts& wrong : std::vector<texts>{{"--regress", "cubic"},
                                                 {"--regress", "polynomial", "--dep", "m"},
                                                 {"--regress", "polynomial", "--indep", "q"},
                                                 {"--regress", "polynomial", "--indep", "x,z"},
                                                 {"--regress", "polynomial", "--degree", "5"},
                                                 {"--regress", "polynomial", "--degree", "0"},
                                                 {"--regress", "polynomial", "--integral", "1"},
                                                 {"--regress", "polynomial", "--store", "x"},
                                                 {"--regress", "polynomial", "--model", "y=a*x"},
                                                 {"--regress", "linear", "--indep", "y"},
                                                 {"--regress", "nonlinear", "--method", "BS"},
                                                 {"--guess", "a"},
                                                 {"--regress", "linear", "--statistics"},
                                                 {"--statistics", "--graph", "o.kvg"},
                                                 {"--table", "--plot", "o.svg"}})
        EXPECT_EQ(call_with(wrong).status, 2) << wrong.back();
    EXPECT_FALSE(folder.holds("o.kvg"));
}

TEST_F(Regressions, GraphsAreWrittenInTheOrderOfTheirWindows)
{
    ASSERT_EQ(call_with({"--regress", "polynomial", "--degree", "1,2", "--graph", "g.kvg", "--plot", "p.svg", "--store",
                         "m", "--save", "s.kvr"})
                  .status,
              0);
    for (const char* name : {"g.kvg", "g-2.kvg", "g-3.kvg", "g-4.kvg", "p-4.svg"})
        EXPECT_TRUE(folder.holds(name)) << name;
    EXPECT_FALSE(folder.holds("g-5.kvg"));
    const json graph = call({"--format", "json", "g-3.kvg"}).as_json();
    EXPECT_EQ(graph["caption"], "Polynomial Regression Graph, Solution #1.2");
    EXPECT_EQ(graph["flags"]["draw_points"], true);
    // Opened again, the model column is followed by its formula.
    const json again = call({"--format", "json", "--edit", "cell 5,1 10", "--table", "s.kvr"}).as_json();
    EXPECT_EQ(again["columns"][3]["formula"], "2-3*x+1*x^2");
    EXPECT_EQ(again["cells"][4][3], "72");
    EXPECT_EQ(again["cells"][3][3], "2");
    // A later degree that fails leaves the graphs of the earlier one.
    folder.write("u.kvr", "t\n3 2\nx\ty\n1\t1\n1\t2\n2\t3\n4\t4\n");
    const batch_result failed = call({"--format", "json", "--graphs", "--graph", "u.kvg", "--regress", "polynomial",
                                      "--edit", "cell 3,1 1", "--edit", "cell 4,1 1", "--degree", "1,2", "u.kvr"});
    EXPECT_EQ(failed.status, 1);
    EXPECT_THAT(failed.as_json()["messages"].back()["text"].get<std::string>(), HasSubstr("Singular matrix"));
}

} // namespace
} // namespace kelvarin
