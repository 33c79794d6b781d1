// SPDX-License-Identifier: MIT
#include "support/table.h"
#include "tools/calculator_history.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvarin::test
{

TEST(CalculatorHistory, ColoursOperatorsAndParenthesesAlone)
{
    constexpr auto text = history_piece_kind::text;
    constexpr auto sign = history_piece_kind::operator_sign;
    constexpr auto bracket = history_piece_kind::parenthesis;
    const table<std::string, std::vector<history_piece>> rows = {
        {"x", {{text, "x"}}},
        {"x = 2*3", {{text, "x = 2"}, {sign, "*"}, {text, "3"}}},
        {"-a/b+c^d",
         {{sign, "-"}, {text, "a"}, {sign, "/"}, {text, "b"}, {sign, "+"}, {text, "c"}, {sign, "^"}, {text, "d"}}},
        {"((1))", {{bracket, "("}, {bracket, "("}, {text, "1"}, {bracket, ")"}, {bracket, ")"}}},
        {"a >= b", {{text, "a >= b"}}},
    };
    for (const auto& [line, pieces] : rows)
        EXPECT_EQ(pieces_of_line(line), pieces) << line;
    EXPECT_EQ(pieces_of_entry({"1+2", "3.0"}), (std::vector<history_piece>{{history_piece_kind::prompt, "> "},
                                                                           {text, "1"},
                                                                           {sign, "+"},
                                                                           {text, "2"},
                                                                           {history_piece_kind::value, "\t = 3.0"}}));
}

TEST(CalculatorHistory, WalksBackAndReturnsToWhatWasTyped)
{
    calculator_history history;
    EXPECT_FALSE(history.earlier("draft"));
    EXPECT_FALSE(history.later("draft"));
    for (const char* line : {"1", "2", "2", "3"})
        history.add({line, ""});

    EXPECT_EQ(history.earlier("draft"), "3");
    EXPECT_EQ(history.earlier("3"), "2");
    EXPECT_EQ(history.earlier("2"), "1") << "the same line twice is one step";
    EXPECT_FALSE(history.earlier("1"));
    EXPECT_EQ(history.later("1"), "2");
    EXPECT_EQ(history.later("2"), "3");
    EXPECT_EQ(history.later("3"), "draft");
    EXPECT_FALSE(history.later("draft"));

    EXPECT_EQ(history.earlier("3"), "2") << "the line that still stands in the field is passed over";
    history.add({"4", ""});
    EXPECT_EQ(history.earlier(""), "4") << "a new line ends the walk";
    history.clear();
    EXPECT_FALSE(history.earlier(""));
    EXPECT_FALSE(history.later(""));
}

TEST(CalculatorAnswer, HasTheMasksInTheirOrder)
{
    std::string all;
    for (const std::string_view mask : answer_masks())
        all += std::string(mask) + ' ';
    EXPECT_EQ(all, "0 0.0 0.00 0.000 0.0000 0.00000 0.000000 0.0000000 0.00000000 #.# #0.# #0.## #0.### #0.#### "
                   "#0.##### #0.###### #0.####### #0.######## 0.00E+00 0.000E+00 0.000#E+00 0.000##E+00 "
                   "0.000###E+00 0.0000###E+00 0.00000###E+000 ");
}

} // namespace kelvarin::test
