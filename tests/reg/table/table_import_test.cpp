// SPDX-License-Identifier: MIT
#include "reg/table/table_import.h"

#include "reg/table/delimited_reader.h"
#include "reg/table/table_export.h"
#include "support/scratch_folder.h"
#include "support/table.h"
#include "support/tables.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <string>

namespace kelvarin
{
namespace
{

using namespace std::string_literals;
using test::cells_of;

const table_content small({4, 3});

TEST(TableImport, GuessesTheForm)
{
    constexpr bool names = true;
    constexpr bool no_names = false;
    const test::table<const char*, char, char, bool> cases = {
        {"", ',', '.', no_names},
        {"1\n2\n", ',', '.', no_names},
        {"x,y\n1,2\n3,4\n", ',', '.', names},
        {"x;y\n1,5;2\n3;4,25\n", ';', ',', names},
        {"1.5;2\n3;4\n", ';', '.', no_names},
        {"1\t2,5\n3\t4,5\n", '\t', ',', no_names},
        {"a|b\n1|2\n", '|', '.', names},
        {"  1   2\n  3.5 4\n 5   6", blank_delimiter, '.', no_names},
        {"x y\n1,5 2\n3 4,5\n", blank_delimiter, ',', names},
        {"1, 2\n3, 4\n", ',', '.', no_names},
        {"\"1,5\",\"2,5\"\n\"3,5\",\"4,5\"\n", ',', ',', no_names},
        {"12,5\n13\n14,25\n", ';', ',', no_names},
        {"date,town,C\n2020-01-01,Bonn,5\n2020-01-02,Bonn,6.5\n", ',', '.', names},
        {"town;remark\nBonn;wet, cold\nKiel;dry\n", ';', '.', no_names},
        {"x,y\n", ',', '.', names},
        {"1,nan\n2,1e999\n", ',', '.', no_names},
    };
    for (const auto& [text, delimiter, decimal_sign, has_header] : cases) {
        const import_form form = guess_form(text);
        EXPECT_EQ(form.delimiter, delimiter) << text;
        EXPECT_EQ(form.decimal_sign, decimal_sign) << text;
        EXPECT_EQ(form.has_header, has_header) << text;
    }
}

/// What is imported, as "rows columns | name: cells of the first rows | ... ! notes", or the reason why nothing is.
std::string imported(const std::string& text, import_form form)
{
    const import_result result = import_text(text, form, small);
    if (!result.content) return result.failure;
    std::string all = std::to_string(result.content->rows()) + " " + std::to_string(result.content->columns());
    for (int column = 0; column < 3; ++column)
        all += " | " + result.content->name(column) + ": " + cells_of(*result.content, column, 3);
    for (const std::string& note : result.notes)
        all += " ! " + note;
    return all;
}

TEST(TableImport, KeepsCellsAndTellsWhatIsOdd)
{
    constexpr import_form plain = {',', '.', false};
    constexpr import_form named = {',', '.', true};
    constexpr import_form german = {';', ',', true};
    const test::table<std::string, import_form, std::string> cases = {
        {"1,2\n3,4\n", plain, "4 3 | C01: 1 3 _ | C02: 2 4 _ | C03: _ _ _"},
        {"x,y\n1.50,2\n", named, "4 3 | x: 1.50 _ _ | y: 2 _ _ | C03: _ _ _"},
        {"x;y\n1,5;-2,5E3\n;abc\n", german,
         "4 3 | x: 1.5 _ _ | y: -2.5E3 abc _ | C03: _ _ _ ! 1 cell is no number and stays as it is: 'abc' in row 2, "
         "column y."},
        {"x;y\n1.5;1.234,5\n", german,
         "4 3 | x: 1.5 _ _ | y: 1.234,5 _ _ | C03: _ _ _ ! 1 cell is no number and stays as it is: '1.234,5' in row 1, "
         "column y. ! 1 number has a decimal point in place of a comma: '1.5' in row 1, column x."},
        {"nan,1e999\ninf,1\n", plain,
         "4 3 | C01: nan inf _ | C02: 1e999 1 _ | C03: _ _ _ ! 2 cells are no numbers and stay as they are, the first: "
         "'nan' in row 1, column C01. ! 1 number is too large: '1e999' in row 1, column C02."},
        {"1,2\n3\n\n4,5,6,7\n", plain,
         "4 4 | C01: 1 3 4 | C02: 2 _ 5 | C03: _ _ 6 ! 2 lines have not as many cells as the first one (the first: "
         "line "
         "2). ! 1 blank line was left out (line 3)."},
        {"1,\"2\n3,4\0\n"s, plain,
         "4 3 | C01: 1 3 _ | C02: \"2 4 _ | C03: _ _ _ ! 1 cell is no number and stays as it is: '\"2' in row 1, "
         "column "
         "C02. ! 1 quotation mark has no second one and stays as it is (line 1). ! 1 NUL character was left out (line "
         "2)."},
        {"1\r2\n3\n", plain, "4 3 | C01: 1 2 3 | C02: _ _ _ | C03: _ _ _ ! 1 line ends in a CR alone (line 1)."},
        {"1\r2\r3\r", plain, "4 3 | C01: 1 2 3 | C02: _ _ _ | C03: _ _ _"},
        {"1\n2\n3\n4\n5\n", plain, "6 3 | C01: 1 2 3 | C02: _ _ _ | C03: _ _ _"},
        {"T (\xC2\xB0"
         "C),T (\xC2\xB0"
         "C),\"two\nlines\"\n1,2,3\n",
         named,
         "4 3 | T_C: 1 _ _ | T_C_2: 2 _ _ | two_lines: 3 _ _ ! 3 names were changed so that formulas can use them, the "
         "first: 'T (\xC2\xB0"
         "C)' is T_C now."},
        {"C02,,2nd\n1,2,3\n", named,
         "4 3 | C02: 1 _ _ | C02_2: 2 _ _ | C2nd: 3 _ _ ! 1 name was changed so that formulas can use it: '2nd' is "
         "C2nd "
         "now."},
        {"\xEF\xBB\xBFx\n1\n", named, "4 3 | x: 1 _ _ | C02: _ _ _ | C03: _ _ _"},
        {"\xFF\xFEx\0\n\0"
         "1\0"s,
         named, "4 3 | x: 1 _ _ | C02: _ _ _ | C03: _ _ _"},
        {"\xE9t\xE9\n1\n", plain,
         "4 3 | C01: \xC3\xA9t\xC3\xA9 1 _ | C02: _ _ _ | C03: _ _ _ ! 1 cell is no number and stays as it is: "
         "'\xC3\xA9t\xC3\xA9' in row 1, column C01."},
        {"", plain, "it is empty"},
        {"\n\n", plain, "it is empty"},
        {"1\n" + std::string(33000, '2'), plain, "line 2 has a cell of more than 32767 characters"},
        {std::string(33000, ','), plain, "it has more cells than a table can have"},
        {std::string(9000, ',') + std::string(1000, '\n') + "1\n2\n", plain,
         "4 9001 | C01: _ 1 2 | C02: _ _ _ | C03: _ _ _ ! 2 lines have not as many cells as the first one (the first: "
         "line 1001). ! 999 blank lines were left out (the first: line 2)."},
    };
    for (const auto& [text, form, expected] : cases)
        EXPECT_EQ(imported(text, form), expected) << text.substr(0, 60);
}

TEST(TableImport, IsLimitedByCellsAndNotByBytes)
{
    std::string rows;
    for (int row = 0; row < 40'000; ++row)
        rows += "1\n";
    const import_result many_rows = import_text(rows, {}, small);
    ASSERT_TRUE(many_rows.content);
    EXPECT_EQ(many_rows.content->rows(), 32'766);
    EXPECT_EQ(many_rows.notes.at(0), "A table has room for 32765 rows: the file was read up to line 32765.");
    std::string cells = std::string(30'000, ',') + "\n";
    for (int row = 0; row < 300; ++row)
        cells += "1\n";
    EXPECT_EQ(import_text(cells, {}, small).failure, "it has more cells than a table can have");
}

TEST(TableImport, ReadsFilesPieceByPiece)
{
    const test::scratch_folder folder;
    // Longer than a piece, with a table of few cells.
    std::string text = "x;y\n";
    for (int row = 0; row < 100; ++row)
        text += std::to_string(row) + ",5;" + std::string(6000, ' ') + "1\n";
    const auto file = folder.write("long.csv", text);
    const import_sample sample = read_import_sample(file);
    EXPECT_EQ(guess_form(sample.text), (import_form{';', ',', true}));
    EXPECT_TRUE(sample.text.ends_with("\n"));
    EXPECT_LT(sample.text.size(), text.size());
    const import_result whole = import_file(file, {';', ',', true}, small, [] { return false; });
    ASSERT_TRUE(whole.content) << whole.failure;
    EXPECT_EQ(whole.content->cells.text(99, 0), "99.5");
    EXPECT_EQ(whole.content->cells.text(99, 1), "1");
    EXPECT_EQ(import_file(file, {}, small, [] { return true; }).failure, "interrupted");
    EXPECT_EQ(import_file(folder.path(), {}, small, [] { return false; }).failure, "it is a folder");
    EXPECT_EQ(read_import_sample(folder.path() / "none").failure.reason, "No such file or directory");
}

TEST(TableExport, WritesWhatImportReads)
{
    EXPECT_EQ(export_text(test::table_of({{"x", {"1.5", "", "a\"b"}}, {"y=2*x", {"3", "$Err!"}}}), {';', ',', true}),
              "x;y\r\n1,5;3\r\n;$Err!\r\n\"a\"\"b\";\r\n");
    EXPECT_TRUE(rc::check("any cells", [] {
        const auto cell = rc::gen::element<std::string>("", "1", "-2.5E-07", "abc", "1,5", "1;2", "\"", "1 2", "$Err!");
        table_content content({5, 4});
        for (int count = *rc::gen::inRange(1, 12); count > 0; --count)
            content.cells.set_cell(*rc::gen::inRange(0, 5), *rc::gen::inRange(0, 4), *cell);
        // A line of blank cells alone would be none.
        for (int row = 0; row < 5; ++row)
            content.cells.set_cell(row, 3, "7");
        const import_form form = {*rc::gen::element(',', ';', '\t', '|'), '.', true};
        const import_result read = import_text(export_text(content, form), form, table_content({5, 4}));
        RC_ASSERT(read.content.has_value());
        RC_ASSERT(*read.content == content);
    }));
}

} // namespace
} // namespace kelvarin
