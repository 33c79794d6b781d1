// SPDX-License-Identifier: MIT
#include "batch_call.h"

#include <gmock/gmock.h>

namespace kelvarin
{
namespace
{

using testing::HasSubstr;

// 100 deg C are 212 deg F and an inch is 2.54 cm by definition.
TEST(ReferenceTables, ConvertPrintsTheNumberOrSaysWhyThereIsNone)
{
    struct row
    {
        std::vector<std::string> words;
        int status;
        std::string out, err;
    };
    const std::vector<row> rows = {
        {{"100", "deg C", "deg F"}, 0, "212\n", ""},
        {{"-40", "deg F", "deg C"}, 0, "-40\n", ""},
        {{"1", "in", "cm"}, 0, "2.54\n", ""},
        {{"1e3", "L", "m3"}, 0, "1\n", ""},
        {{"10", "K", "deg F", "Temperature difference"}, 0, "18\n", ""},
        {{"10", "K", "deg F", "Length"},
         2,
         "",
         "Kelvarin Guide\nThe type 'Length' does not have both 'K' and 'deg F'.\n"},
        {{"12abc", "in", "cm"}, 2, "", "Kelvarin Guide\nMust be numeric value !\n"},
        {{"1", "inch", "cm"}, 2, "", "Kelvarin Guide\nThere is no unit 'inch'; --units lists them.\n"},
        {{"1", "in", "kg"}, 2, "", "Kelvarin Guide\nNo type of units has both 'in' and 'kg'.\n"},
    };
    for (const row& expected : rows) {
        SCOPED_TRACE(testing::PrintToString(expected.words));
        test::batch_call call;
        std::vector<std::string> arguments = {"--convert"};
        arguments.insert(arguments.end(), expected.words.begin(), expected.words.end());
        const test::batch_result result = call(arguments);
        EXPECT_EQ(result.status, expected.status);
        EXPECT_EQ(result.out, expected.out);
        EXPECT_EQ(result.err, expected.err);
    }
    test::batch_call call;
    const json answer = call({"--format", "json", "--convert", "100", "deg C", "deg F"}).as_json();
    EXPECT_NEAR(answer["value"].get<double>(), 212.0, 1e-12);
    EXPECT_EQ(answer["text"], "100 deg C = 212 deg F");
    EXPECT_EQ(answer["type"], "Temperature");
}

TEST(ReferenceTables, ListsHoldEverythingUnlessWordsAreGiven)
{
    test::batch_call call;
    EXPECT_GT(call({"--units", "--format", "json"}).as_json().size(), 300u);
    EXPECT_GT(call({"--constants", "--format", "json"}).as_json().size(), 90u);
    EXPECT_THAT(call({"--units"}).out, HasSubstr("\nLength "));
    const json found = call({"--constants", "light", "speed", "--format", "json"}).as_json();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0]["value"], 299792458.0);
    EXPECT_EQ(call({"--units", "no such word", "--format", "json"}).as_json().size(), 0u);
}

} // namespace
} // namespace kelvarin
