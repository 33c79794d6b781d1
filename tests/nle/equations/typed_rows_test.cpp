// SPDX-License-Identifier: MIT
#include "nle/equations/typed_rows.h"

#include "support/equation_rows.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{
namespace
{

/// "name|expression|value|comment" with "?" before an implicit one; "none" if the line is no equation.
std::string parts_text(const std::optional<typed_row>& row)
{
    if (!row) return "none";
    return (row->implicit ? "?" : "") + row->name + '|' + row->expression + '|' + row->value.value_or("-") + '|' +
           row->comment;
}

TEST(TypedRows, ReadsAnEquationInTheWaysOfPeopleAndOfOtherTexts)
{
    for (const auto& [line, parts] : table<const char*, const char*>{
             {"f(x) = x^2 - 2", "?x|x^2 - 2|-|"},
             {" f( x )=x-a # of the # kind ", "?x|x-a|-|of the # kind"},
             {"a = 3", "a|3|-|"},
             {"f(x) = x - a\t1.5 p\tfirst guess", "?x|x - a|1.5 p|first guess"},
             {"a = 3\tn.a.\tthree", "a|3|-|three"},
             {"f(x) = x^2 - 2 = 0", "?x|x^2 - 2|-|"},
             {"f(x) = x^2 - 2=0", "?x|x^2 - 2|-|"},
             {"f(x) = if x == 0", "?x|if x == 0|-|"},
             {"f(x) = 2*x >= 0", "?x|2*x >= 0|-|"},
             {"f(x) = x - 10", "?x|x - 10|-|"},
             {"a = b = 0", "a|b = 0|-|"},
             {"Tolerance X \t = 1E-07", "none"},
             {"x - 2", "none"},
             {"= 3", "none"},
             {"# a = 3", "none"},
         })
        EXPECT_EQ(parts_text(row_of_text(line, f_rows)), parts) << line;
    const auto placed = row_of_text("  f(x) =  x - a", f_rows);
    EXPECT_EQ(placed->name_offset, 4U);
    EXPECT_EQ(placed->expression_offset, 10U);
}

TEST(TypedRows, ReadsValuesOnLinesOfTheirOwn)
{
    for (const auto& [line, values] : table<const char*, const char*>{
             {"x(0)=1", "x=1;"},
             {" x (0) = 1.5 p ", "x=1.5 p;"},
             {"x(0)=1, y(0)=-2e3; z(0) = 4", "x=1;y=-2e3;z=4;"},
             {"x(0)=1, see above", ""},
             {"x(1)=1", ""},
             {"2(0)=1", ""},
             {"x = 1", ""},
         }) {
        std::string read;
        for (const typed_value& value : values_of_text(line))
            read += value.name + '=' + value.value + ';';
        EXPECT_EQ(read, values) << line;
    }
}

/// Equations as in parts_text, then values, then the lines with neither, each behind its line number.
std::string read_text(const std::string& text)
{
    const pasted_text read = read_pasted_text(text, [](std::string_view line) { return row_of_text(line, f_rows); });
    std::string all;
    for (const auto& equation : read.equations)
        all += std::to_string(equation.line) + ':' + parts_text(equation.row) + '\n';
    for (const auto& value : read.values)
        all += std::to_string(value.line) + ':' + value.given.name + '=' + value.given.value + '\n';
    for (const left_out_line& line : read.others)
        all += std::to_string(line.number) + '!' + line.text + '\n';
    return all;
}

TEST(TypedRows, ReadsALetterAReportAndAListing)
{
    EXPECT_EQ(read_text("Dear all,\r\n\r\nf(x) = x - a\r\na = 2 # two\r\nx(0) = 3\r\n"),
              "3:?x|x - a|-|\n4:a|2|-|two\n5:x=3\n1!Dear all,\n");
    EXPECT_EQ(read_text("  Variable      Value       f(x)       Ini Guess\n"
                        "  x              2        0.0        1.5\n"
                        "  a              2\n"
                        "\n"
                        "  [1] f(x) = x - a = 0\n"
                        "  [1] a = 2\n"
                        "  Comments\n"
                        "  [1] f(x) = x - a\n"
                        "        the unknown\n"
                        "  [2] a = 2\n"),
              "5:?x|x - a|-|the unknown\n6:a|2|-|\n2:x=1.5\n7!Comments\n");
    EXPECT_EQ(
        read_text("[1] f(x) = x - a\n    Initial guess: 1.5 p\n    unknown\n[2] a = 2\n    Initial guess: n.a.\n"),
        "1:?x|x - a|1.5 p|unknown\n4:a|2|-|\n");
}

} // namespace
} // namespace kelvarin::test
