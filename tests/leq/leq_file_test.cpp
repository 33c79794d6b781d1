// SPDX-License-Identifier: MIT
#include "leq/leq_file.h"
#include "leq/leq_kind.h"
#include "platform/text_file.h"
#include "shell/document/recognition.h"
#include "support/leq_problems.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace kelvarin
{
namespace
{

using test::equations;

const std::string written = "Two lines\r\n1\r\nvarsnames==u,v\r\n2\t1\t\r\n1\t-1\t\r\n5\t1\t\r\r\n";
const std::string written_older = "Two lines\r\n1\r\n2\t1\t\r\n1\t-1\t\r\n5\t1\t\r\r\n";

leq_content two_lines()
{
    leq_content content = equations({{"2", "1", "5"}, {"1", "-1", "1"}});
    content.title = "Two lines";
    content.names = {"u", "v"};
    return content;
}

TEST(LeqFile, IsWrittenInBothFormats)
{
    EXPECT_EQ(write_leq(two_lines()), written);
    EXPECT_EQ(write_leq(two_lines(), true), written_older);
    EXPECT_TRUE(holds_problem(written, leq_kind()));
    EXPECT_TRUE(holds_problem(written_older, leq_kind()));
}

TEST(LeqFile, ReadsBothFormats)
{
    EXPECT_EQ(read_leq(written), two_lines());
    leq_content unnamed = two_lines();
    unnamed.names = {"x1", "x2"};
    EXPECT_EQ(read_leq(written_older), unnamed);
}

TEST(LeqFile, MissingPartsAreEmptyAndFurtherOnesPassedOver)
{
    const auto named = [](leq_content content, std::vector<std::string> names) {
        content.names = std::move(names);
        return content;
    };
    const test::table<std::string, std::string, leq_content> cases = {
        {"no cells", "\n1\n", leq_content(2)},
        {"short rows", "\n1\n\n3\n", equations({{"", "", ""}, {"3", "", ""}})},
        {"no last tab", "\n1\n1\t2\n3\t4\n5\t6", equations({{"1", "2", "5"}, {"3", "4", "6"}})},
        {"empty cell inside", "\n1\n\t2\t\n3\t\t\n\t6\t\n", equations({{"", "2", ""}, {"3", "", "6"}})},
        {"further cells", "\n1\n1\t2\t7\t\n3\t4\t\n5\t6\t8\t\n9\t\n", equations({{"1", "2", "5"}, {"3", "4", "6"}})},
        {"other texts", "\n1.0\n 1 \tabc\t\n3\t4\t\n5\t6\t\n", equations({{"1", "abc", "5"}, {"3", "4", "6"}})},
        {"names missing", "\n2\nvarsnames==a,,\n", named(leq_content(3), {"a", "x2", "x3"})},
        {"names over", "\n1\nvarsnames== a ,b,c\n", named(leq_content(2), {"a", "b"})},
        {"a name twice", "\n2\nvarsnames==a,a,b\n", named(leq_content(3), {"a", "x2", "b"})},
        {"a usual name elsewhere", "\n2\nvarsnames==x2\n", named(leq_content(3), {"x2", "x2_", "x3"})},
        {"no names", "\n1\nvarsnames==\n", leq_content(2)},
    };
    for (const auto& [name, text, content] : cases)
        EXPECT_EQ(read_leq(text), content) << name;
}

TEST(LeqFile, RefusesWhatIsNoNumberOfEquations)
{
    for (const std::string line : {"", "0", "-1", "64", "1.5", "1e999", "two", "1x", "10 5", "nan"})
        EXPECT_FALSE(read_leq("title\n" + line + "\n1\t2\t\n")) << line;
    EXPECT_FALSE(read_leq(""));
    EXPECT_FALSE(read_leq("title"));
    EXPECT_EQ(read_leq("title\n63\n")->count(), 64);
}

TEST(LeqFile, WhatWasWrittenReadsBack)
{
    EXPECT_TRUE(rc::check("all of it", [] {
        leq_content content(*rc::gen::inRange(least_leq_count, largest_leq_count + 1));
        content.title = *rc::gen::element<std::string>("", "T", "a | b", "varsnames==", "\xC3\xA9t\xC3\xA9", "1");
        for (std::string& name : content.names)
            name += *rc::gen::element<std::string>("", "_a", "B");
        const auto cell = rc::gen::element<std::string>("", "1", "-2.5", "1E-07", "1,5", "abc", "0", "\"");
        for (int column = 0; column <= content.count(); ++column)
            content.cells.edit_column(column, [&](std::vector<std::string>& cells) {
                for (std::string& text : cells)
                    text = *cell;
            });
        RC_ASSERT(read_leq(write_leq(content)) == content);
        content.names = leq_content(content.count()).names;
        RC_ASSERT(read_leq(write_leq(content, true)) == content);
    }));
}

TEST(LeqFile, ArbitraryBytesAreRefusedOrReadAndThenStayWhatTheyAre)
{
    EXPECT_TRUE(rc::check("reading never fails badly, and settles after one round", [] {
        const auto piece =
            rc::gen::element<std::string>("T", "\n", "\r", "\r\n", "\t", "1", "2", "-1", "63", "64", "1e999",
                                          "varsnames==", ",", "a", " ", "\xFF", std::string(1, '\0'), ".5");
        std::string bytes = *rc::gen::element<std::string>("", "T\n1\n", "T\r\n3\r\nvarsnames==");
        for (int pieces = *rc::gen::inRange(0, 40); pieces > 0; --pieces)
            bytes += *piece;
        const std::optional<leq_content> first = read_leq(to_utf8(bytes));
        if (!first) return;
        RC_ASSERT(read_leq(write_leq(*first)) == first);
    }));
}

} // namespace
} // namespace kelvarin
