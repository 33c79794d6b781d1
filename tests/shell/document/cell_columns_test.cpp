// SPDX-License-Identifier: MIT
#include "shell/document/cell_block.h"
#include "shell/document/cell_columns.h"
#include "shell/document/value_document.h"

#include <gtest/gtest.h>

#include <set>

namespace kelvarin
{
namespace
{

struct sheet_content
{
    std::string title;
    cell_columns cells{600, 120};

    friend bool operator==(const sheet_content&, const sheet_content&) = default;
};

constexpr content_format<sheet_content> sheet_format = {};

/// A table of the largest size, whose contents' columns can be counted.
class sheet final : public value_document<sheet_content>
{
public:
    sheet() : value_document(sheet_format) {}
    bool is_blank() const override { return false; }
    void set_cell(int row, int column, std::string_view text)
    {
        sheet_content next = content();
        next.cells.set_cell(row, column, text);
        change("Edit cell", std::move(next));
    }
    void paste(cell_range range, const cell_block& block)
    {
        sheet_content next = content();
        paste_block(next.cells, range, block);
        change("Paste", std::move(next));
    }
    /// Walks back over all steps and counts the columns that are objects of their own.
    std::size_t columns_in_memory()
    {
        std::set<const std::vector<std::string>*> columns;
        do {
            for (int column = 0; column < content().cells.columns(); ++column)
                columns.insert(&content().cells.cells_of(column));
        } while (undo());
        return columns.size();
    }
};

void fill(sheet& table)
{
    table.paste({0, 0, 600, 120}, {{"1"}});
}

TEST(CellColumns, AStepOfUndoCostsTheColumnThatItChanges)
{
    sheet table;
    fill(table);
    // Of the empty table, whose columns are one, and the filled one.
    constexpr std::size_t before = 1 + 120;
    for (int edit = 0; edit < 200; ++edit) {
        const cell_columns last = table.content().cells;
        const int edited = edit * 7 % 120;
        table.set_cell(edit * 11 % 600, edited, std::to_string(2 + edit));
        for (int column = 0; column < 120; ++column)
            ASSERT_EQ(table.content().cells.shares_column(column, last), column != edited) << edit << ", " << column;
    }
    EXPECT_EQ(table.columns_in_memory(), before + 200);
}

TEST(CellColumns, WhatDoesNotChangeStaysShared)
{
    sheet table;
    fill(table);
    const cell_columns last = table.content().cells;
    table.set_cell(0, 0, "1");
    table.paste({0, 0, 1, 1}, {{"1", "2", "1"}});
    for (int column = 0; column < 120; ++column)
        EXPECT_EQ(table.content().cells.shares_column(column, last), column != 1) << column;
    EXPECT_EQ(table.columns_in_memory(), 1u + 120u + 1u);
}

TEST(CellColumns, CompareByTheirTexts)
{
    cell_columns cells(2, 2);
    EXPECT_EQ(cells, cell_columns(2, 2));
    EXPECT_NE(cells, cell_columns(2, 3));
    EXPECT_NE(cells, cell_columns(3, 2));
    EXPECT_NE(cell_columns(2, 0), cell_columns(3, 0));
    const cell_columns copy = cells;
    cells.set_cell(1, 0, "a");
    EXPECT_NE(cells, copy);
    EXPECT_EQ(copy.cell(1, 0), "");
    cells.set_cell(1, 0, "");
    EXPECT_EQ(cells, copy) << "in columns of its own";
}

} // namespace
} // namespace kelvarin
