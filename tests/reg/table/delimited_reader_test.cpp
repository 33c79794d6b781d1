// SPDX-License-Identifier: MIT
#include "reg/table/delimited_reader.h"

#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{
namespace
{

/// The records as "a|b / c", and what was odd.
std::string records_of(std::string_view text, char delimiter, std::size_t piece = 1000)
{
    std::string all;
    delimited_reader reader(delimiter, [&all](std::vector<std::string>& cells, std::int64_t) {
        if (!all.empty()) all += " / ";
        for (std::size_t i = 0; i < cells.size(); ++i)
            all += (i > 0 ? "|" : "") + cells[i];
        return true;
    });
    bool wanted = true;
    for (; wanted && !text.empty(); text.remove_prefix(std::min(piece, text.size())))
        wanted = reader.read(text.substr(0, piece));
    if (wanted) reader.finish();
    const auto add = [&all](const char* name, const line_tally& tally) {
        if (tally.count > 0) all += " " + (name + std::to_string(tally.count)) + "@" + std::to_string(tally.first_line);
    };
    add("nul", reader.nul_characters());
    add("open", reader.unclosed_quotations());
    add("cr", reader.lone_returns());
    if (reader.too_long_cell() > 0) all += " long@" + std::to_string(reader.too_long_cell());
    return all;
}

TEST(DelimitedReader, SplitsCellsAndLines)
{
    using namespace std::string_literals;
    const test::table<std::string, char, std::string> cases = {
        {"1,2\r\n3,4\n", ',', "1|2 / 3|4"},
        {"1,2", ',', "1|2"},
        {"a,,\n,\n", ',', "a|| / |"},
        {"a\n\nb\n", ',', "a /  / b"},
        {"a\r\r\nb\n", ',', "a / b"},
        {"a\rb\rc", ',', "a / b / c cr2@1"},
        {"a\nb\rc\n", ',', "a / b / c cr1@2"},
        {"1\0,2\n3\0\n"s, ',', "1|2 / 3 nul2@1"},
        {"\"a,b\",\"c\"\"d\"\n", ',', "a,b|c\"d"},
        {"\"two\r\nlines\";2\n3\n", ';', "two\r\nlines|2 / 3"},
        {"\"a\"b,c\n", ',', "ab|c"},
        {"5\" pipe,\"\"\n", ',', "5\" pipe|"},
        {"1,\"2\n3,4\n", ',', "1|\"2 / 3|4 open1@1"},
        {"1\n\"2\n3\n", ',', "1 / \"2 / 3 open1@2"},
        {"\"", ',', "\" open1@1"},
        {"  1   2\t3 \n4 5\n", ' ', "1|2|3 / 4|5"},
        {"1\t\t2\n", '\t', "1||2"},
        {"", ',', ""},
        {"1\n" + std::string(40000, 'x') + "\n2\n", ',', "1 long@2"},
        {"\"" + std::string(20000, '"') + std::string(20000, 'x'), ',', " open1@1 long@1"},
    };
    for (const auto& [text, delimiter, expected] : cases)
        EXPECT_EQ(records_of(text, delimiter), expected) << text.substr(0, 40);
}

TEST(DelimitedReader, TakesPiecesOfAnySize)
{
    EXPECT_TRUE(rc::check("any pieces", [] {
        const auto letters = rc::gen::container<std::string>(rc::gen::element('1', ',', '"', '\r', '\n', ' ', '\0'));
        const std::string text = *letters;
        const std::size_t piece = *rc::gen::inRange<std::size_t>(1, 8);
        RC_ASSERT(records_of(text, ',', piece) == records_of(text, ','));
    }));
}

} // namespace
} // namespace kelvarin
