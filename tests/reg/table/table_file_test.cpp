// SPDX-License-Identifier: MIT
#include "reg/table/table_file.h"

#include "support/table.h"
#include "support/tables.h"

#include <gmock/gmock.h>
#include <rapidcheck.h>

#include <optional>
#include <string>

namespace kelvarin
{
namespace
{

using test::cells_of;
using test::table_of;

const table_content small({6, 4});

table_content two_columns()
{
    table_content content =
        table_of({{"x", {"1", "", "abc"}}, {"y=if (x == 1) then 2 else 3", {"2", "$Err!"}}, {"z", {"", "", "3"}}});
    content.title = "Two";
    content.model = "z = a*x^b";
    content.guesses = {{"a", "1"}, {"x", ""}, {"b", ""}};
    return content;
}

TEST(TableFile, IsWrittenLineByLine)
{
    EXPECT_EQ(write_table(two_columns()), "Two\r\n3 3\r\nx\ty=if (x == 1) then 2 else 3\tz\r\n1\t2\t\r\n\t$Err!\t\r\n"
                                          "abc\t\t3\r\n*\r\nz = a*x^b\r\na=1\tx=\tb=\r\n");
    EXPECT_EQ(write_table(small), "\r\n0 0\r\n\r\n*\r\n\r\n\r\n");
}

TEST(TableFile, TheSecondLineHasTwoNumbersAboveZero)
{
    for (const char* line : {"10 9", "10 9 ", "1 1", "10x 9y", "0.5 2"})
        EXPECT_TRUE(table_extent_of(line)) << line;
    for (const char* line : {"", "10", "10\t9", "0 0", "10 ", " 10 9", "-1 2", "1e999 5", "a b"})
        EXPECT_FALSE(table_extent_of(line)) << line;
}

/// What is read, as "rows columns | names and formulas | cells of the first columns | model | guesses".
std::string read(std::string_view text)
{
    const std::optional<table_content> content = read_table(text, small);
    if (!content) return "refused";
    std::string all = std::to_string(content->rows()) + " " + std::to_string(content->columns()) + " |";
    for (int column = 0; column < 3; ++column) {
        all += " " + content->name(column);
        if (content->has_formula(column)) all += "=" + content->formula(column);
    }
    for (int column = 0; column < 3; ++column)
        all += " | " + cells_of(*content, column, 3);
    all += " | " + content->model + " |";
    for (const table_guess& guess : content->guesses)
        all += " " + guess.name + "=" + guess.value;
    return all;
}

TEST(TableFile, ReadsWhatIsThere)
{
    const test::table<const char*, std::string, const char*> cases = {
        {"older form", "t\n2 2\nA\tB\n1\t2\n3\t4\n", "6 4 | A B C03 | 1 3 _ | 2 4 _ | _ _ _ |  |"},
        {"end behind the names", "t\n2 2\nA\tB", "6 4 | A B C03 | _ _ _ | _ _ _ | _ _ _ |  |"},
        {"end behind the mark", "t\n2 2\nA\n1\n*\n", "6 4 | A C02 C03 | 1 _ _ | _ _ _ | _ _ _ |  |"},
        {"end behind the model", "t\n2 1\nA\n1\n2\n*\nA=k", "6 4 | A C02 C03 | 1 2 _ | _ _ _ | _ _ _ | A=k | k="},
        {"first = only", "t\n1 2\nA\tB=if (A==1) then 2 else 3\n1\t2\n",
         "6 4 | A B=if (A==1) then 2 else 3 C03 | 1 _ _ | 2 _ _ | _ _ _ |  |"},
        {"blank cells stay", "t\n2 3\nA\tB\tC\n1\t\t3\n\t\t4\n", "6 4 | A B C | 1 _ _ | _ _ _ | 3 4 _ |  |"},
        {"calculated cells are shortened", "t\n2 2\nA\tB=A/3\n1\t0.333333333333333\n\t$Err!\n1\t\n",
         "6 4 | A B=A/3 C03 | 1 _ 1 | 0.3333333333 $Err! _ | _ _ _ |  |"},
        {"odd names", "t\n1 3\nA\t\tA\n1\t2\t3\n", "6 4 | A  A | 1 _ _ | 2 _ _ | 3 _ _ |  |"},
        {"further columns", "t\n1 1\nA\tB\n1\t2\t3\t4\t5\n", "6 5 | A B C03 | 1 _ _ | 2 _ _ | 3 _ _ |  |"},
        {"tabs at the end", "t\n1 1\nA\t\t\t\t\t\n1\t\t\t\t\t\t\n", "6 4 | A   | 1 _ _ | _ _ _ | _ _ _ |  |"},
        {"exactly full", "t\n6 1\nA\n1\n2\n3\n4\n5\n6\n\n\n", "6 4 | A C02 C03 | 1 2 3 | _ _ _ | _ _ _ |  |"},
        {"grows by one more", "t\n7 1\nA\n1\n2\n3\n4\n5\n6\n7\n", "8 4 | A C02 C03 | 1 2 3 | _ _ _ | _ _ _ |  |"},
        {"guesses by name", "t\n2 1\nx\n1\n2\n*\ny = a*x^b+exp(c)\nb=1=2\tq=4\tc=\n",
         "6 4 | x C02 C03 | 1 2 _ | _ _ _ | _ _ _ | y = a*x^b+exp(c) | a= b=1=2 c="},
        {"no model", "t\n1 1\nx\n1\n*\n\na=1\n", "6 4 | x C02 C03 | 1 _ _ | _ _ _ | _ _ _ |  | a=1"},
        {"no table", "t\n0 2\nA\n", "refused"},
        {"two lines", "t\n2 2\n", "refused"},
        {"rows beyond 16 bits", "t\n40000 2\nA\n1\n", "refused"},
        {"columns beyond 16 bits", "t\n2 1e6\nA\n1\n", "refused"},
        {"lines beyond 16 bits", "t\n2 1\nA\n" + std::string(32767, '\n') + "1\n", "refused"},
        {"cells beyond memory", "t\n2 1\nA\n" + std::string(2000, '\n') + std::string(30000, '\t') + "1\n", "refused"},
    };
    for (const auto& [name, text, expected] : cases)
        EXPECT_EQ(read(text), expected) << name;
}

TEST(TableFile, ARefusalSaysWhyAFileIsNoTable)
{
    EXPECT_EQ(table_open_refusal("No such file or directory", "").text,
              "Error while trying to open file (No such file or directory)");
    for (const auto& [text, reason] : {std::pair{"T\n2 2", "ends before its third line"},
                                       {"T\nx y\na\n", "Its second line"},
                                       {"T\n1 99999\na\n", "more rows or columns"}}) {
        EXPECT_EQ(read(text), "refused");
        EXPECT_THAT(table_open_refusal("", text).text, testing::HasSubstr(reason));
    }
}

TEST(TableFile, ComesBackAsItWasWritten)
{
    EXPECT_EQ(read_table(write_table(two_columns()), small)->model, "z = a*x^b");
    EXPECT_TRUE(rc::check("any cells", [] {
        const auto cell =
            rc::gen::element<std::string>("", "1", "-2.5E-07", "abc", "*", "$Err!", "a=b", "1 2", "\xC3\xA9");
        table_content content({5, 4});
        for (int count = *rc::gen::inRange(1, 12); count > 0; --count)
            content.cells.set_cell(*rc::gen::inRange(0, 5), *rc::gen::inRange(0, 4), *cell);
        content.cells.set_cell(*rc::gen::inRange(0, 5), *rc::gen::inRange(0, 4), "*");
        content.formulas[*rc::gen::inRange<std::size_t>(0, 4)] = "C01^2 == 4";
        const auto read = read_table(write_table(content), table_content({5, 4}));
        RC_ASSERT(read.has_value());
        RC_ASSERT(*read == content);
    }));
}

} // namespace
} // namespace kelvarin
