// SPDX-License-Identifier: MIT
#include "opt/opt_file.h"
#include "opt/opt_listing.h"
#include "opt/opt_problem.h"
#include "support/opt_problems.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

using test::target_of;

opt_problem problem_of(const opt_content& content)
{
    opt_problem problem;
    problem.load_example(content);
    return problem;
}

TEST(OptProblem, RowsAreCheckedInOrder)
{
    opt_problem problem = problem_of(target_of("x+a", {"x(0) = 2", "a = 3"}));
    const std::string no_sign = "No \"=\" sign entered. \rYou must enter either an explicit equation or a variable "
                                "initialization expression.\r<var name> = <math expression>\r   OR \r"
                                "<var name>(0) = <initialization number>";
    const test::table<const char*, int, std::string> rows = {
        {"y(0) = -1e3", 0, ""},
        {" b = 2*undefined", 0, ""},
        {"a = 1+", 0, "The variable <a> has been already defined in equation 2."},
        {"x", 0, "The variable <x> has been already defined in equation 1."},
        {"x = 1", 2, "The variable <x> has been already defined in equation 1."},
        {"a (0)= 1", 2, ""},
        {"", 0, no_sign},
        {"y(0)", 0, no_sign},
        {"b = ", 0, "Syntax Error: No expression entered."},
        {"b = if a then b", 0, "Syntax Error: unequal number of 'then' and 'else' statements"},
        {"y(0) = ", 0, "Initialization value for <y> must be a valid number."},
        {"y(0) = 2*3", 0, "Initialization value for <y> must be a valid number."},
        {"y(0) = abc", 0, "<abc> is not a valid number."},
        {"2y(0) = 1", 0,
         "Variable format for '2y' not valid.\rAll variables must start with a string character and may contain the "
         "chars A..Z, a..z, 0..9, or underscore"}};
    for (const auto& [text, row, refusal] : rows) {
        const auto refused = problem.check_opt_row(text, row);
        EXPECT_EQ(refused ? refused->text : "", refusal) << text;
    }
    EXPECT_EQ(problem.check_opt_row("bb =  1 + * 2", 0)->place->row, 0);

    ASSERT_FALSE(problem.put_row_text(" y (0)\n= 1 ", "c\nd"));
    EXPECT_EQ(problem.rows()[2], (equation_row{"y (0) = 1", "", "c d"}));
    EXPECT_EQ(problem.undo_step(), "Add equation");
}

TEST(OptProblem, ARenamedVariableIsRenamedInTheTargetToo)
{
    opt_problem problem = problem_of(target_of("x^2+sqrt(x+a)", {"x(0) = 2", "a = 3*x"}));
    ASSERT_FALSE(problem.rename_variable("x", "y"));
    EXPECT_EQ(problem.content(), target_of("y^2+sqrt(y+a)", {"y(0) = 2", "a = 3*y"}));
    EXPECT_TRUE(problem.rename_variable("a", "y"));
    ASSERT_TRUE(problem.undo());
    EXPECT_EQ(problem.content().target, "x^2+sqrt(x+a)");
}

TEST(OptFile, LinesAreReadWhole)
{
    const std::string text = " Title \n a + \"b\", 1 \nx (0) = 2 #one, \"two\" # three\n\n  a= 1\n#only a comment\n";
    opt_content expected = target_of(" a + \"b\", 1 ", {"x (0) = 2", "a= 1"});
    expected.title = "Title";
    expected.rows[0].comment = "one, \"two\" # three";
    EXPECT_EQ(read_opt(text), expected);
    const std::string written = "Title\r\n a + \"b\", 1 \r\nx (0) = 2 #one, \"two\" # three\r\na= 1 #\r\n";
    EXPECT_EQ(write_opt(expected), written);
    EXPECT_EQ(read_opt(written), expected);
    // One that ends early is read as far as it goes.
    expected.rows.clear();
    EXPECT_EQ(read_opt(" Title \n a + \"b\", 1 "), expected);
    expected.target.clear();
    EXPECT_EQ(read_opt("Title"), expected);
    EXPECT_EQ(opt_listing(read_opt(text).value(), "folder/p.kvr"),
              "Kelvarin OPT Program\nFile: p.kvr\n\nTrget Function:\na + \"b\", 1\n\n[1] x (0) = 2\n"
              "    one, \"two\" # three\n[2] a= 1\n");
}

TEST(OptFile, ARefusalSaysWhy)
{
    const test::scratch_folder folder;
    folder.write("empty.kvr", "");
    opt_problem problem;
    EXPECT_EQ(problem.opt_open("empty.kvr")->text, "Error while trying to open file (The file is empty.)");
    EXPECT_EQ(problem.opt_open("missing.kvr")->text, "Error while trying to open file (No such file or directory)");
}

} // namespace
} // namespace kelvarin
