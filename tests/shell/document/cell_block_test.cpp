// SPDX-License-Identifier: MIT
#include "shell/document/cell_block.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace kelvarin
{
namespace
{

cell_columns grid_of(const std::vector<std::vector<std::string>>& rows)
{
    cell_columns cells(static_cast<int>(rows.size()), static_cast<int>(rows.front().size()));
    for (int row = 0; row < cells.rows(); ++row)
        for (int column = 0; column < cells.columns(); ++column)
            cells.set_cell(row, column, rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
    return cells;
}

TEST(CellBlock, ReadsWhatOtherProgramsPutOnTheClipboard)
{
    const test::table<std::string, cell_block> cases = {
        {"", {}},
        {"1", {{"1"}}},
        {"1\n", {{"1"}}},
        {"1\t2\r\n3\t4\r\n", {{"1", "2"}, {"3", "4"}}},
        {"1\t\n\t4", {{"1", ""}, {"", "4"}}},
        {"1\n\n2", {{"1"}, {""}, {"2"}}},
        {"\"1\t2\"\t3\n\"a\nb\"\t\"say \"\"x\"\"\"", {{"1\t2", "3"}, {"a\nb", "say \"x\""}}},
        {"5\" pipe\t\"open\n1", {{"5\" pipe", "\"open"}, {"1"}}},
        {"\"1\"2\t3", {{"12", "3"}}},
    };
    for (const auto& [text, block] : cases)
        EXPECT_EQ(read_block(text), block) << text;
}

TEST(CellBlock, WhatWasCopiedReadsBack)
{
    EXPECT_TRUE(rc::check("whatever the cells hold", [] {
        cell_columns cells(4, 5);
        const auto cell = rc::gen::element<std::string>("", "1", "a\tb", "\"", "\"\"x", "\n", "2,5");
        for (int row = 0; row < cells.rows(); ++row)
            for (int column = 0; column < cells.columns(); ++column)
                cells.set_cell(row, column, *cell);
        const cell_range range = {1, 2, *rc::gen::inRange(1, 4), *rc::gen::inRange(1, 4)};
        cell_block expected(static_cast<std::size_t>(range.rows));
        for (int row = 0; row < range.rows; ++row)
            for (int column = 0; column < range.columns; ++column)
                expected[static_cast<std::size_t>(row)].push_back(cells.cell(1 + row, 2 + column));
        // An empty row at the very end of a text is none: that of one column.
        if (range.columns == 1 && expected.back().front().empty()) expected.pop_back();
        RC_ASSERT(read_block(block_text(cells, range)) == expected);
    }));
}

TEST(CellBlock, DecimalCommasAreOfferedOnlyWhereAllCellsReadSo)
{
    const test::table<cell_block, std::optional<cell_block>> cases = {
        {{{"1,5", "-,25E+3"}, {" 3 ", ""}}, {{{"1.5", "-.25E+3"}, {" 3 ", ""}}}},
        {{{"1", "2"}}, std::nullopt},
        {{{"1,5", "2.5"}}, std::nullopt},
        {{{"1,5", "abc"}}, std::nullopt},
        {{{"1.234,5"}}, std::nullopt},
        {{{"1,2,3"}}, std::nullopt},
        {{{"1e3,5"}}, std::nullopt},
        {{{""}}, std::nullopt},
        {cell_block(), std::nullopt},
    };
    for (const auto& [block, converted] : cases)
        EXPECT_EQ(decimal_comma_block(block), converted) << (block.empty() ? "" : block.front().front());
}

TEST(CellBlock, PasteSaysWhatDidNotFit)
{
    const cell_columns grid = grid_of({{"1", "2", "3"}, {"4", "5", "6"}});
    const test::table<std::string, cell_range, std::string, cell_columns, std::vector<std::string>> cases = {
        {"inside", {0, 1, 1, 1}, "a\tb\nc\td", grid_of({{"1", "a", "b"}, {"4", "c", "d"}}), {}},
        {"over the edges", {1, 2, 1, 1}, "a\tb\nc\td", grid_of({{"1", "2", "3"}, {"4", "5", "a"}}), {"b", "c", "d"}},
        {"empty cells outside are nothing", {1, 2, 1, 1}, "a\t\n\t", grid_of({{"1", "2", "3"}, {"4", "5", "a"}}), {}},
        {"one cell fills the selection", {0, 0, 2, 2}, "0\n", grid_of({{"0", "0", "3"}, {"0", "0", "6"}}), {}},
        {"a comma stays one", {0, 0, 1, 1}, "1,5\t2", grid_of({{"1,5", "2", "3"}, {"4", "5", "6"}}), {}},
        {"cells lose line ends", {0, 0, 1, 1}, "\" 1\n2\"\tx", grid_of({{"1 2", "x", "3"}, {"4", "5", "6"}}), {}},
        {"nothing", {0, 0, 2, 2}, "", grid, {}},
    };
    for (const auto& [name, range, text, expected, left_out] : cases) {
        SCOPED_TRACE(name);
        cell_columns cells = grid;
        EXPECT_EQ(paste_block(cells, range, read_block(text)), left_out);
        EXPECT_EQ(cells, expected);
    }
    EXPECT_EQ(left_out_box({"9"}).text, "1 pasted cell lies outside the grid and was left out: '9'.");
    EXPECT_EQ(left_out_box({"1", "2", "3", "4", "5"}).text,
              "5 pasted cells lie outside the grid and were left out: '1', '2', '3', '4', ...");
}

} // namespace
} // namespace kelvarin
