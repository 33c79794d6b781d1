// SPDX-License-Identifier: MIT
#include "batch_call.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{

// 100 deg C are 212 deg F and an inch is 2.54 cm by definition.
TEST(ReferenceTables, ConvertPrintsTheNumberOrSaysWhyThereIsNone)
{
    const table<std::vector<std::string>, int, std::string, std::string> rows = {
        {{"100", "deg C", "deg F"}, 0, "212\n", ""},
        {{"-40", "deg F", "deg C"}, 0, "-40\n", ""},
        {{"1", "in", "cm"}, 0, "2.54\n", ""},
        {{"10", "K", "deg F", "Temperature difference"}, 0, "18\n", ""},
        {{"1", "K", "R", "Length"},
         2,
         "",
         "kelvarin-solve: Kelvarin Guide\nThe type 'Length' does not have both 'K' and 'R'.\n"},
        {{"12abc", "in", "cm"}, 2, "", "kelvarin-solve: Kelvarin Guide\nMust be numeric value !\n"},
        {{"1", "inch", "cm"}, 2, "", "kelvarin-solve: Kelvarin Guide\nThere is no unit 'inch'; --units lists them.\n"},
        {{"1", "in", "kg"}, 2, "", "kelvarin-solve: Kelvarin Guide\nNo type of units has both 'in' and 'kg'.\n"},
    };
    for (const auto& [words, status, out, err] : rows) {
        SCOPED_TRACE(testing::PrintToString(words));
        batch_call call;
        std::vector<std::string> arguments = {"--convert"};
        arguments.insert(arguments.end(), words.begin(), words.end());
        const batch_result result = call(arguments);
        EXPECT_EQ(result.status, status);
        EXPECT_EQ(result.out, out);
        EXPECT_EQ(result.err, err);
    }
    batch_call call;
    const json answer = call({"--format", "json", "--convert", "100", "deg C", "deg F"}).as_json();
    EXPECT_NEAR(answer["value"].get<double>(), 212.0, 1e-12);
    EXPECT_EQ(answer["text"], "100 deg C = 212 deg F");
    EXPECT_EQ(answer["type"], "Temperature");
}

TEST(ReferenceTables, ASearchWithoutAResultSaysSo)
{
    for (const std::string list : {"--units", "--constants"}) {
        batch_call call;
        const batch_result result = call({list, "furlong", "xyz"});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "kelvarin-solve: Nothing is found for 'furlong xyz'.\n");
        EXPECT_EQ(call({list, "--format", "json", "xyz"}).as_json(), json::array());
    }
}

TEST(ReferenceTables, AreListedWholeWhereNoWordsAreGiven)
{
    batch_call call;
    EXPECT_GT(call({"--units", "--format", "json"}).as_json().size(), 300u);
    EXPECT_GT(call({"--constants", "--format", "json"}).as_json().size(), 90u);
}

} // namespace kelvarin::test
