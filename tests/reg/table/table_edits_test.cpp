// SPDX-License-Identifier: MIT
#include "reg/table/table_edits.h"

#include "reg/table/column_formulas.h"
#include "reg/table/column_statistics.h"
#include "reg/table/table_document.h"
#include "support/golden.h"
#include "support/scratch_folder.h"
#include "support/table.h"
#include "support/tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>

namespace kelvarin
{
namespace
{

using test::cells_of;
using test::table_of;

std::string texts_of(const std::vector<message_box>& boxes)
{
    std::string all;
    for (const message_box& box : boxes)
        all += box.text.substr(0, box.text.find('\r')) + "|";
    return all;
}

const char* const invalid = "Invalid numerical data cells were detected.|";
const char* const formulas = "Some destination cells contain formulas that can not be modified.|";

TEST(TableEdits, Pastes)
{
    const test::table<std::string, std::string, std::string, std::string> pastes = {
        {"1\t2\r\n3\t4", "1 3 _", "2 4 _", ""},
        {"1\t2\n3\t4\n", "1 3 _", "2 4 _", ""},
        {"1\r3\r", "1 3 _", "_ _ _", ""},
        {" 1 \t\t5\n", "1 _ _", "_ _ _", formulas},
        {"abc\t1e999", "abc _ _", "1e999 _ _", invalid},
        {"a\tb\tc\n", "a _ _", "b _ _", std::string(invalid) + formulas},
        {"\"1\"\t\"2\n\"", "1 _ _", "2 _ _", ""},
        {"", "_ _ _", "_ _ _", ""},
        {"1\t2\t3\t4\t5", "1 _ _", "2 _ _",
         std::string(formulas) + "1 pasted cell lies outside the grid and was left out: '5'.|"},
    };
    for (const auto& [text, first, second, boxes] : pastes) {
        table_content content = table_of({{"A", {}}, {"B", {}}, {"C=5*7", {}}, {"D", {}}}, {3, 4});
        evaluation_context context;
        const paste_result result = paste_cells(content, 0, 0, read_block(text), context);
        EXPECT_EQ(cells_of(content, 0, 3), first) << text;
        EXPECT_EQ(cells_of(content, 1, 3), second) << text;
        EXPECT_EQ(texts_of(result.boxes), boxes) << text;
    }
}

TEST(TableEdits, APasteAddsRowsAndFormulasFollow)
{
    table_content content = table_of({{"A", {"1", "2"}}, {"B=2*A", {"2", "4"}}, {"C", {}}, {"D", {}}}, {2, 4});
    evaluation_context context;
    const paste_result result = paste_cells(content, 1, 0, read_block("7\n8\n9\n\n\n"), context);
    EXPECT_TRUE(result.boxes.empty());
    EXPECT_EQ(cells_of(content, 0, content.rows()), "1 7 8 9 _") << "and one row more";
    EXPECT_EQ(cells_of(content, 1, content.rows()), "2 14 16 18 _");
    const cell_block large(40000, std::vector<std::string>{"1"});
    EXPECT_EQ(texts_of(paste_cells(content, 0, 2, large, context).boxes),
              "39995 pasted cells lie outside the grid and were left out: '1', '1', '1', '1', ...|");
    const cell_block too_large(3000, std::vector<std::string>(3000));
    EXPECT_EQ(texts_of(paste_cells(content, 0, 0, too_large, context).boxes),
              "The clipboard holds more cells than a table can have.|");
}

TEST(TableEdits, SkipsFormulaColumnsInCutAndClear)
{
    table_document document({2, 3});
    document.paste(0, 0, read_block("1\t2\n3\t4"));
    ASSERT_FALSE(document.define_column(2, "C01+C02"));
    EXPECT_EQ(document.cut({0, 0, 1, 3}), "1\t2\t3");
    EXPECT_EQ(cells_of(document.content(), 0, 2) + cells_of(document.content(), 2, 2), "_ 3_ 7");
    EXPECT_EQ(document.copy_with_headers({1, 0, 1, 3}), "C01\tC02\tC03\r\n3\t4\t7");
    EXPECT_EQ(document.copy({0, 1, 2, 2}), "\t\r\n4\t7");
    document.clear_cells({0, 0, 2, 3});
    EXPECT_EQ(cells_of(document.content(), 2, 2), "_ _") << "they follow";
    EXPECT_TRUE(selection_has_formula(document.content(), 0, 2));
    EXPECT_FALSE(selection_has_formula(document.content(), 0, 1));
}

TEST(TableEdits, Names)
{
    const std::string unique = "Error: Column name must be unique.";
    const std::string rule = "Error: The variable name must start with a letter and may contain only a combination of "
                             "letters, numbers and \"_\" sign.";
    const test::table<const char*, std::string, std::string> names = {
        {"x_1", "x_1", "2*x_1+Ab*(x_1)-A>A"},
        {"a", "a", "2*a+Ab*(a)-A>A"},
        {"", "A", "2*A+Ab*(A)-A>A"},
        {"B", unique, ""},
        {"1x", rule, ""},
        {"B ", rule, ""},
        {"A", "A", "2*A+Ab*(A)-A>A"},
        {" y", rule, ""},
        {"sin", "sin", "2*sin+Ab*(sin)-A>A"},
    };
    for (const auto& [name, result, formula] : names) {
        table_content content = table_of({{"A", {}}, {"B", {}}, {"C=2*A+Ab*(A)-A>A", {}}});
        const name_change change = change_column_name(content, name, 0);
        EXPECT_EQ(change.box ? change.box->text : content.name(0), result) << name;
        EXPECT_EQ(change.box ? "" : content.formula(2), formula) << name;
        EXPECT_EQ(change.changed, !change.box && *name != '\0') << name;
    }
}

TEST(TableEdits, RowsColumnsFormatsAndDigits)
{
    evaluation_context context;
    table_content content = table_of({{"A", {"1", "2.71828", "abc", "-0.5"}}, {"B=A/3", {"0.3", "0.9"}}}, {4, 3});
    insert_row(content, 1);
    EXPECT_EQ(cells_of(content, 0, 5), "1 _ 2.71828 abc -0.5");
    EXPECT_EQ(cells_of(content, 1, 3), "0.3 _ 0.9") << "nothing is evaluated";
    delete_row(content, 0);
    add_columns(content, 2);
    EXPECT_EQ(content.name(4), "C05");
    format_selection(content, {0, 0, 4, 2}, "0.000E+00");
    EXPECT_EQ(cells_of(content, 0, 4), "_ 2.718E+00 abc -5.000E-01");
    EXPECT_EQ(cells_of(content, 1, 4), "_ 9.000E-01 _ _");

    EXPECT_FALSE(set_calc_digits(content, " ", context));
    EXPECT_EQ(cells_of(content, 1, 2), "_ 9.000E-01") << "a blank answer does nothing";
    EXPECT_FALSE(set_calc_digits(content, "8", context));
    EXPECT_EQ(cells_of(content, 1, 2), "_ 0.906");
    for (const char* refused : {"7", "23", "abc", "1e999", "-8"})
        EXPECT_EQ(set_calc_digits(content, refused, context)->text,
                  "Numer of digits must be in the interval: 8 < n < 22");
    EXPECT_EQ(content.calc_digits, 8);
    EXPECT_FALSE(set_calc_digits(content, "22", context));
    EXPECT_EQ(content.calc_digits, 22);
    while (content.rows() > 1)
        delete_row(content, 0);
    delete_row(content, 0);
    EXPECT_EQ(content.rows(), 1);
}

/// The saved flag after an operation on a saved table.
TEST(TableEdits, WhatMakesATableUnsaved)
{
    const test::table<const char*, bool, void (*)(table_document&)> operations = {
        {"digit", false, [](table_document& d) { d.type_cell(0, 0, "15", true); }},
        {"minus", true, [](table_document& d) { d.type_cell(0, 0, "1e-", false); }},
        {"insert row", true, [](table_document& d) { d.insert_row(0); }},
        {"delete row", true, [](table_document& d) { d.delete_row(0); }},
        {"plain copy", false,
         [](table_document& d) {
             d.copy({0, 0, 1, 1});
         }},
        {"paste", false, [](table_document& d) { d.paste(1, 0, {{"1"}}); }},
        {"add columns", false, [](table_document& d) { d.add_columns(1); }},
        {"rename", false, [](table_document& d) { d.rename_column(0, "x"); }},
        {"refused name", true, [](table_document& d) { d.rename_column(0, "C02"); }},
        {"model", false, [](table_document& d) { d.set_model("y=a", {}); }},
        {"example", true, [](table_document& d) { d.load_sample_table(2, 1); }},
        {"new", true,
         [](table_document& d) {
             d.start_new({5, 5});
         }},
        {"digit taken back", true,
         [](table_document& d) {
             d.type_cell(0, 0, "15", true);
             d.undo();
         }},
    };
    const test::scratch_folder folder;
    for (const auto& [name, saved, operate] : operations) {
        table_document document({4, 3});
        document.type_cell(0, 0, "1", true);
        document.finish_typing(0, 0);
        ASSERT_FALSE(document.save("t.kvr"));
        ASSERT_TRUE(document.problem_saved());
        operate(document);
        EXPECT_EQ(document.problem_saved(), saved) << name;
    }
}

TEST(TableEdits, TypingInACellIsOneStepWithWhatFollows)
{
    table_document document({3, 2});
    ASSERT_FALSE(document.define_column(1, "2*C01"));
    document.type_cell(0, 0, "1", true);
    document.type_cell(0, 0, "12", true);
    document.finish_typing(0, 0);
    document.type_cell(1, 0, "5", true);
    document.finish_typing(1, 0);
    EXPECT_EQ(cells_of(document.content(), 1, 2), "24 10");
    ASSERT_TRUE(document.undo());
    EXPECT_EQ(cells_of(document.content(), 0, 2) + cells_of(document.content(), 1, 2), "12 _24 _");
    ASSERT_TRUE(document.undo());
    EXPECT_EQ(cells_of(document.content(), 0, 2) + cells_of(document.content(), 1, 2), "_ __ _");
    EXPECT_EQ(document.undo_step(), "Define column");
}

/// A table kept in the plainest way.
struct plain_table
{
    std::vector<std::vector<std::string>> rows;
};

TEST(TableEdits, AgreesWithAPlainTable)
{
    EXPECT_TRUE(rc::check("under random edits", [] {
        table_document document({4, 3});
        plain_table plain = {{4, std::vector<std::string>(3)}};
        const auto text = rc::gen::element<std::string>("", "1", "-2.5", "abc");
        for (int steps = *rc::gen::inRange(0, 30); steps > 0; --steps) {
            const int rows = document.content().rows();
            const int row = *rc::gen::inRange(0, rows);
            const int column = *rc::gen::inRange(0, 3);
            const auto at = plain.rows.begin() + row;
            const std::string typed = *text;
            switch (*rc::gen::inRange(0, 5)) {
            case 0:
                document.insert_row(row);
                plain.rows.insert(at, std::vector<std::string>(3));
                break;
            case 1:
                document.delete_row(row);
                if (rows > 1) plain.rows.erase(at);
                break;
            case 2:
                document.clear_cells({row, column, 1, 3 - column});
                std::fill(at->begin() + column, at->end(), "");
                break;
            default:
                document.set_cell(row, column, typed);
                (*at)[static_cast<std::size_t>(column)] = typed;
            }
        }
        RC_ASSERT(document.content().rows() == static_cast<int>(plain.rows.size()));
        for (int row = 0; row < document.content().rows(); ++row)
            for (int column = 0; column < 3; ++column) {
                const std::string& expected =
                    plain.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
                RC_ASSERT(document.content().cells.text(row, column) == expected);
                RC_ASSERT(document.content().cells.number(row, column).value == parse_cell(expected).value);
            }
    }));
}

TEST(ColumnStatistics, LeaveOutTheLastRowAndColumnsOfOneRow)
{
    const table_content content = table_of(
        {{"x", {"2", "4", "4", "4", "5", "5", "7", "9"}}, {"y", {"1", "", "3"}}, {"z", {"1", "12abc", "", "7"}}},
        {8, 4});
    const std::vector<column_statistics> found = statistics_of_columns(content);
    ASSERT_EQ(found.size(), 2U);
    // By hand: 31/7, and (231 - 7 (31/7)^2)/6 without the last row.
    EXPECT_EQ(found[0].n, 7);
    EXPECT_DOUBLE_EQ(found[0].moments.sum, 31);
    EXPECT_DOUBLE_EQ(found[0].moments.mean, 31.0 / 7);
    EXPECT_NEAR(found[0].moments.variance, (151.0 - 961.0 / 7) / 6, 1e-14);
    EXPECT_EQ(found[1].n, 2);
    EXPECT_DOUBLE_EQ(found[1].moments.sd, 11 / std::sqrt(2.0));
    test::expect_golden("reg/statistics.rtf", test::by_lines(column_statistics_report(found, {2026, 1, 2})));
    EXPECT_EQ(statistics_of_selection(content, {0, 0, 8, 4}).count, 12);
    EXPECT_EQ(statistics_of_selection(content, {0, 0, 8, 1}).mean(), 5);
}

} // namespace
} // namespace kelvarin
