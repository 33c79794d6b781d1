// SPDX-License-Identifier: MIT
#include "reg/table/table_document.h"

#include "reg/table/table_samples.h"
#include "support/scratch_folder.h"
#include "support/tables.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

using test::cells_of;

TEST(TableDocument, SharesTheColumnsThatAStepLeavesAlone)
{
    table_document document({300, 30});
    document.set_cell(0, 0, "1");
    const table_content before = document.content();
    document.set_cell(0, 1, "2");
    EXPECT_TRUE(document.content().cells.texts().shares_column(0, before.cells.texts()));
    EXPECT_FALSE(document.content().cells.texts().shares_column(1, before.cells.texts()));
    EXPECT_TRUE(document.content().cells.texts().shares_column(29, before.cells.texts()));
}

TEST(TableDocument, AModelColumnIsOneStep)
{
    table_document document({4, 3});
    document.set_cell(3, 2, "keep");
    document.store_model_column(2, "2*C01", {"2", "4"});
    EXPECT_EQ(cells_of(document.content(), 2, 4), "2 4 _ keep");
    EXPECT_EQ(document.content().formula(2), "2*C01");
    document.set_cell(0, 2, "typed");
    EXPECT_EQ(cells_of(document.content(), 2, 1), "2") << "cells of a formula column can't be typed";
    ASSERT_TRUE(document.undo());
    EXPECT_EQ(cells_of(document.content(), 2, 4), "_ _ _ keep");
}

TEST(TableDocument, AFileKeepsTheSizeOfNewAndTheDigits)
{
    const test::scratch_folder folder;
    folder.write("t.kvr", "t\r\n2 1\r\nA\r\n1\r\n2\r\n");
    table_document document({10, 2});
    ASSERT_FALSE(document.open("t.kvr"));
    EXPECT_EQ(document.content().rows(), 10);
    ASSERT_FALSE(document.open("t.kvr"));
    EXPECT_EQ(document.content().rows(), 10);
    EXPECT_EQ(document.content().new_size.columns, 2);
    EXPECT_TRUE(document.problem_saved());
}

TEST(TableSamples, AreTheOnesOfTheMenu)
{
    const table_content large;
    const auto shown = [&](int index) {
        const table_content sample = table_sample(index, large, 1);
        const table_size used = used_size(sample);
        std::string all = sample.title + " | " + std::to_string(used.rows) + " " + std::to_string(used.columns) + " |";
        for (int column = 0; column < used.columns; ++column)
            all += " " + sample.cells.text(0, column);
        return all;
    };
    EXPECT_EQ(shown(1), "Fitting Polynomials to vapor pressure data | 10 9 | -36.7 1 236.45 0 0.00422922 2.3737393 "
                        "55908.603 -12386.641 0.01369956");
    EXPECT_EQ(shown(2), "Heat capacity of Hydrogen Bromide | 18 2 | 118.99 10.79");
    EXPECT_EQ(shown(3), "Heat of hardening of portland cement | 13 5 | 7 26 6 60 78.7");
    EXPECT_TRUE(shown(0).starts_with("Sample random data | 18 5 | 1.")) << shown(0);
    EXPECT_NE(table_sample(0, large, 1), table_sample(0, large, 2));
    EXPECT_EQ(table_sample(1, large, 1).formula(8), "(P-(var11+3.96315e-06*TK^4))^2/(10-5)");
}

TEST(TableSamples, CalculatedCellsHaveTheDigitsOfCalculatedCells)
{
    table_content current;
    current.calc_digits = 8;
    EXPECT_EQ(table_sample(1, current, 1).cells.text(0, 5), "2.3737393");
    current.calc_digits = 22;
    EXPECT_EQ(table_sample(0, current, 1).calc_digits, 22);
}

} // namespace
} // namespace kelvarin
