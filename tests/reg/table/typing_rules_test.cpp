// SPDX-License-Identifier: MIT
#include "reg/table/typing_rules.h"

#include "support/table.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace kelvarin
{
namespace
{

TEST(TypingRules, KeysMakeNumbers)
{
    // The cell before, the keys (Backspace is "<"), the cell afterwards, and how many of the keys are refused.
    const test::table<const char*, std::string, const char*, int> typed = {
        {"", "12", "12", 0},   {"", "1.5.2", "1.52", 1},  {"", "-5", "-5", 0},        {"1", "-", "1", 1},
        {"", "+1", "1", 1},    {"", "1e-5", "1e-5", 0},   {"", "1E+5", "1E+5", 0},    {"", "1e-5-", "1e-5", 1},
        {"", "e", "", 1},      {"", ".e", ".", 1},        {"", "-.5e", "-.5e", 0},    {"", "1eE", "1e", 1},
        {"", "1e.", "1e", 1},  {"", "a 5", "5", 2},       {"12", "<", "1", 0},        {"", "<", "", 0},
        {"12", "3", "123", 0}, {"$Err!", "4", "4", 0},    {"$Err!", "e", "$Err!", 1}, {"12abc", "-", "-", 0},
        {"abc", "<", "ab", 0}, {"1.50", "1", "1.501", 0}, {"1\xC3\xA9", "<", "1", 0},
    };
    for (const auto& [before, keys, after, refused] : typed) {
        std::string text = before;
        int refusals = 0;
        bool first = true;
        for (const char key : keys) {
            const std::optional<typed_text> next = typed_key(text, key == '<' ? backspace_key : key, first);
            first = false;
            if (next)
                text = next->text;
            else
                ++refusals;
        }
        EXPECT_EQ(text, after) << before << " " << keys;
        EXPECT_EQ(refusals, refused) << before << " " << keys;
    }
}

TEST(TypingRules, OnlyDigitsAndPointsMakeATableUnsaved)
{
    for (const char key : std::string("0.9"))
        EXPECT_TRUE(typed_key("", key, true)->clears_saved) << key;
    EXPECT_FALSE(typed_key("", '-', true)->clears_saved);
    EXPECT_FALSE(typed_key("1e", '+', false)->clears_saved);
    EXPECT_FALSE(typed_key("1", 'e', true)->clears_saved);
    EXPECT_FALSE(typed_key("1", backspace_key, true)->clears_saved);
    EXPECT_EQ(entered_text("1e"), "1");
    EXPECT_EQ(entered_text("1e5"), "1e5");
}

TEST(TypingRules, LinesGoThroughTheirNumber)
{
    const test::table<const char*, std::optional<std::string>, std::optional<std::string>> lines = {
        {"1.50", "1.5", "1.5"},
        {" ", "", "0"},
        {"12abc", std::nullopt, "12"},
        {"abc", std::nullopt, "0"},
        {"1e-7", "1E-07", "1E-07"},
        {"0.12345678901234567", "0.123456789012346", "0.123456789012346"},
        {"1e999", std::nullopt, std::nullopt},
        {"1,5", std::nullopt, "1"},
    };
    for (const auto& [line, accepted, converted] : lines) {
        EXPECT_EQ(accepted_text(line), accepted) << line;
        EXPECT_EQ(converted_text(line), converted) << line;
    }
    EXPECT_EQ(followed_text("1.50"), "1.5");
    EXPECT_EQ(followed_text(""), std::nullopt) << "the cell stays while the line is empty";
}

} // namespace
} // namespace kelvarin
