// SPDX-License-Identifier: MIT
#include "reg/table/table_reader.h"

#include "platform/runtime_failure.h"
#include "support/table.h"
#include "support/tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

using testing::ElementsAre;

const table_content data = test::table_of({{"x", {"1", "2", "3", "4", "5", "6"}},
                                           {"y", {"1", "+2.5", "12abc", " ", "5", "6"}},
                                           {"x", {"a", "$Err!", "1"}},
                                           {"large", {"1e999", "1", "1"}}});

TEST(TableReader, ChoosesColumnsByTheirFirstRows)
{
    const table_reader table(data);
    EXPECT_THAT(table.numeric_columns(), ElementsAre(0, 1));
    EXPECT_THAT(table.model_columns(), ElementsAre(2));
    EXPECT_THAT(table.started_columns(), ElementsAre(0, 1, 2, 3));
    EXPECT_EQ(table.column_of("x"), 0) << "the first of two";
    EXPECT_EQ(table.column_of("X"), std::nullopt);
}

TEST(TableReader, DataEndAtTheFirstBlankOrTheLastRow)
{
    const table_reader table(data);
    const int x[] = {0};
    const int x_and_y[] = {0, 1};
    const int large[] = {3, 0};
    EXPECT_EQ(table.leading_rows(x), 6);
    EXPECT_EQ(table.leading_rows(x, last_row::left_out), 5);
    EXPECT_EQ(table.leading_rows(x_and_y), 3);
    EXPECT_EQ(table.leading_rows(x_and_y, last_row::left_out), 3);
    EXPECT_EQ(table.leading_rows(large), 3);
    EXPECT_EQ(table.numeric_rows(x_and_y), 4) << "in any rows";
}

TEST(TableReader, ReadsLeadingNumbersOrWholeOnes)
{
    const table_reader table(data);
    EXPECT_THAT(table.prefix_values(1, 4), ElementsAre(1, 2.5, 12, 0));
    EXPECT_THAT(table.prefix_values(2, 3), ElementsAre(0, 0, 1));
    EXPECT_EQ(table.strict_values(1, 3), std::nullopt);
    EXPECT_THAT(*table.strict_values(1, 2), ElementsAre(1, 2.5));
    try {
        table.prefix_values(3, 1);
        FAIL() << "no double is that large";
    } catch (const runtime_failure& failure) {
        EXPECT_EQ(failure.number(), failure_number::overflow);
    }
}

TEST(TableReader, NumbersFollowTheirTexts)
{
    table_content content = data;
    content.cells.set_cell(0, 0, "7");
    content.cells.insert_row(1);
    content.grow({9, 6});
    content.cells.delete_row(4);
    EXPECT_EQ(test::cells_of(content, 0, 8), "7 _ 2 3 5 6 _ _");
    EXPECT_EQ(table_reader(content).prefix_values(0, 8), (std::vector<double>{7, 0, 2, 3, 5, 6, 0, 0}));
    EXPECT_EQ(content.columns(), 6);
    EXPECT_EQ(content.name(5), "C06");
    EXPECT_EQ(data.cells.text(0, 0), "1") << "a copy was changed";
}

TEST(TableReader, ScansTheNamesOfAModel)
{
    const test::table<const char*, const char*, const char*> models = {
        {"a*x^b", "x", "a b"},
        {"exp(-k*x)+exp", "x", "k exp"},
        {"if x > 1 then a else pi and b", "x", "a pi b"},
        {"y*large+x1", "y", "large x1"},
        {"2", "", ""},
        {"", "", ""},
    };
    const auto joined = [](const std::vector<std::string>& names) {
        std::string all;
        for (const std::string& name : names)
            all += (all.empty() ? "" : " ") + name;
        return all;
    };
    for (const auto& [model, independents, parameters] : models) {
        const model_names found = names_in_model(model, table_reader(data));
        EXPECT_EQ(joined(found.independents), independents) << model;
        EXPECT_EQ(joined(found.parameters), parameters) << model;
    }
}

} // namespace
} // namespace kelvarin
