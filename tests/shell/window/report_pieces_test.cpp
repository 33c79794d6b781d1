// SPDX-License-Identifier: MIT
#include "shell/window/report_pieces.h"

#include "shell/window/report_cells.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace kelvarin
{

namespace
{

std::string repeated(int times, const std::string& text)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

styled_line many_runs(int runs)
{
    styled_line line;
    for (int i = 0; i < runs; ++i)
        line.push_back({.text = "ab", .bold = i % 2 == 0});
    return line;
}

std::vector<report_piece> pieces_of(const std::vector<styled_line>& lines)
{
    std::vector<report_piece> pieces;
    for (piece_reader reader(lines); !reader.at_end();)
        pieces.push_back(reader.next());
    return pieces;
}

std::string text_of(const styled_line& line)
{
    std::string text;
    for (const styled_run& run : line)
        text += run.text;
    return text;
}

TEST(ReportPieces, AreBoundedAndTogetherTheText)
{
    const styled_run fixed = {.text = {}, .font = "Courier New", .family = font_class::monospace};
    const auto in_fixed = [&](std::string text) {
        styled_run run = fixed;
        run.text = std::move(text);
        return styled_line{run};
    };
    struct bounds
    {
        std::size_t bytes, tabs, runs;
    };
    const bounds of_text = {2000, 60, 250};
    const bounds of_rows = {12000, 600, 1000};
    const test::table<const char*, styled_line, bounds> cases = {
        {"nothing", {}, of_text},
        {"a word", {{.text = std::string(100'000, 'x')}}, of_text},
        {"words", {{.text = repeated(20'000, "some words ")}}, of_text},
        {"letters of two bytes", {{.text = repeated(20'000, "\xC3\xA9")}}, of_text},
        {"pairs behind an odd letter", {{.text = "a" + repeated(20'000, "\xF0\x9F\x98\x80")}}, of_text},
        {"tabs", in_fixed(std::string(2000, '\t')), of_text},
        {"runs", many_runs(8000), of_text},
        {"a row of a table", in_fixed(repeated(600, "1.5         ")), of_rows},
        {"a row wider than any table", in_fixed(repeated(20'000, "1.5         ")), of_rows},
    };
    for (const auto& [name, line, most] : cases) {
        SCOPED_TRACE(name);
        const std::vector<report_piece> pieces = pieces_of({styled_line(), line, styled_line{{.text = "behind"}}});
        ASSERT_GE(pieces.size(), 3U);
        EXPECT_EQ(pieces.back().line, 2U);
        std::string text;
        std::ptrdiff_t from = 0;
        for (const report_piece& piece : pieces) {
            if (piece.line != 1) continue;
            EXPECT_EQ(piece.from, from);
            const std::string part = text_of(piece.part);
            EXPECT_LE(part.size(), most.bytes);
            EXPECT_LE(static_cast<std::size_t>(std::ranges::count(part, '\t')), most.tabs);
            EXPECT_LE(piece.part.size(), most.runs);
            from += static_cast<std::ptrdiff_t>(
                std::ranges::count_if(part, [](char byte) { return (byte & 0xC0) != 0x80; }) +
                std::ranges::count_if(part, [](char byte) { return (byte & 0xF8) == 0xF0; }));
            text += part;
        }
        EXPECT_EQ(text, text_of(line));
    }
}

TEST(ReportPieces, BreakRowsOfTablesOnlyWhereTheyAreWiderThanAnyTable)
{
    const styled_line row = {
        {.text = repeated(900, "1.5         "), .font = "Courier New", .family = font_class::monospace}};
    EXPECT_EQ(pieces_of({row}).size(), 1U);
    const styled_line words = {{.text = repeated(900, "word and    ")}};
    const std::vector<report_piece> pieces = pieces_of({words});
    EXPECT_GT(pieces.size(), 4U);
    for (const report_piece& piece : pieces)
        EXPECT_TRUE(piece.part.back().text.ends_with(' ')) << "a word was torn";
}

} // namespace

} // namespace kelvarin
