// SPDX-License-Identifier: MIT
#include "nle/nle_problem.h"
#include "support/equation_rows.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <array>

namespace kelvarin::test
{
namespace
{

/// The text of a box, or nothing where there was none.
std::string text_of(const nle_problem::refusal& refused)
{
    return refused ? refused->text : std::string();
}

nle_problem problem_of(std::vector<equation_row> rows)
{
    nle_problem problem;
    nle_content content;
    content.rows = std::move(rows);
    problem.load_example(std::move(content));
    return problem;
}

constexpr const char* bad_format =
    " not valid.\rAll variables must start with a string character and may contain the chars A..Z, a..z, 0..9, or "
    "underscore";

TEST(NleProblem, DialogChecksComeInOrderWithTheirTexts)
{
    const nle_problem problem = problem_of({implicit_row("x", "x - 1"), explicit_row("a", "2")});
    const table<const char*, const char*, const char*, int, std::string> implicit_checks = {
        {"y", "y - 1", "1", 0, ""},
        {"2y", "y y", "z", 0, "Syntax Error: missing operator between variables; y y"},
        {"2y", "y", "z", 0, "Please enter a valid numeric value for initial guess."},
        {"2y", "y", "1", 0, std::string("Variable format for '2y'") + bad_format},
        {"x", "x", "1", 0, "The variable 'x' has already been defined."},
        {"x", "x", "1", 1, ""},
    };
    for (const auto& [name, expression, guess, row, text] : implicit_checks)
        EXPECT_EQ(text_of(problem.check_implicit(name, expression, guess, row)), text)
            << std::string(name) + " / " + expression + " / " + guess;

    const std::string circular = "\rThe explicit varible being defined can not appear on the left hand side of the "
                                 "equation.";
    EXPECT_EQ(text_of(problem.check_explicit("b", "1 + a", 0)), "");
    EXPECT_EQ(text_of(problem.check_explicit("a", "1 + a", 0)), "The variable 'a' has already been defined.");
    EXPECT_EQ(text_of(problem.check_explicit("a", "1 + a", 2)), "Circular definition of 'a'" + circular);
    EXPECT_EQ(text_of(problem.check_explicit("b", "2*", 0)),
              "Syntax Error: extra operator at the end of the expression; *");
}

TEST(NleProblem, RowsAreWrittenTrimmedWithTheirSuffix)
{
    nle_problem problem;
    EXPECT_FALSE(problem.put_implicit(" x ", " x - 1 ", " 3 ", 2, "c"));
    EXPECT_FALSE(problem.put_explicit(" a ", " 2*x ", "two\r\nlines"));
    EXPECT_FALSE(problem.put_implicit("y", "a", "3", 1, "", 1));
    const std::vector<equation_row> rows = {{"f(y) = a", "3 p", ""}, {"a = 2*x", "n.a.", "two  lines"}};
    EXPECT_EQ(problem.content().rows, rows);
    EXPECT_TRUE(problem.put_explicit("a", "1", ""));
    EXPECT_EQ(problem.content().rows, rows);
}

TEST(NleProblem, RefusedEditsLeaveNoStepOfUndo)
{
    nle_problem problem = problem_of({explicit_row("a", "1"), explicit_row("b", "2")});
    EXPECT_FALSE(problem.move(std::array{1}, true));
    EXPECT_TRUE(problem.rename_variable("a", "b"));
    EXPECT_FALSE(problem.rename_variable("nowhere", "y"));
    EXPECT_EQ(problem.undo_step(), "Load example");
    EXPECT_TRUE(problem.move(std::array{2}, true));
    EXPECT_FALSE(problem.remove(std::array{2}));
    EXPECT_EQ(text_of(problem.remove(std::array{1})), "Can not remove last equation.");
    EXPECT_EQ(problem.content().rows, std::vector{explicit_row("b", "2")});
    EXPECT_EQ(problem.undo_step(), "Remove equation");
}

std::vector<equation_row> two_rows()
{
    return {{"f(x) = x - a", "1 p", "c"}, explicit_row("a", "2")};
}

TEST(NleProblem, RowsTypedAsAWholeAreCheckedAndWrittenAsByTheDialogs)
{
    using place = std::optional<text_place>;
    using field = entry_field;
    for (const auto& [text, row, refused, at, about] : table<const char*, int, std::string, place, field>{
             {"b = 2*", 0, "Syntax Error: extra operator at the end of the expression; *", text_place{0, 5, 1},
              field::expression},
             {"a = 3", 0, "The variable 'a' has already been defined.", text_place{0, 0, 1}, field::name},
             {"a = 3 + a", 2,
              "Circular definition of 'a'\rThe explicit varible being defined can not appear on the "
              "left hand side of the equation.",
              text_place{0, 8, 1}, field::expression},
             {"f(y) = y", 0, "Please enter a valid numeric value for initial guess.", std::nullopt, field::value},
             {"f(2y) = y", 0, std::string("Variable format for '2y'") + bad_format, text_place{0, 2, 2}, field::name},
             {"y - 2", 0, "This is no equation. Write f(x) = ..., or a = ....", std::nullopt, field::expression},
         }) {
        SCOPED_TRACE(text);
        nle_problem problem = problem_of(two_rows());
        const nle_problem::refusal box = problem.put_text(text, row);
        EXPECT_EQ(text_of(box), refused);
        EXPECT_EQ(box->place, at);
        EXPECT_EQ(box->field, about);
        EXPECT_EQ(problem.content().rows, two_rows());
    }
    nle_problem problem = problem_of(two_rows());
    EXPECT_FALSE(problem.put_text(" f( x )=x^2-a = 0", 1));
    EXPECT_FALSE(problem.put_text("f(y) = y-1 # new", 0, "3ap"));
    EXPECT_FALSE(problem.set_value(1, " 7 "));
    EXPECT_EQ(text_of(problem.set_value(1, "seven")), "Please enter a valid numeric value for initial guess.");
    const std::vector<equation_row> rows = {
        {"f(x) = x^2-a", "7", "c"}, explicit_row("a", "2"), {"f(y) = y-1", "3 ap", "new"}};
    EXPECT_EQ(problem.content().rows, rows);
}

TEST(NleProblem, PastesARowsTextWithWhatBelongsToItAsOneStep)
{
    nle_problem problem = problem_of({explicit_row("a", "2"), explicit_row("z", "1")});
    const pasted_rows pasted = problem.paste("f(x) = x - a*b\na = 3\nb = 2*\nc = 1 # c\nf(y) = y\n\nbest regards\n"
                                             "x(0) = 4 p\n",
                                             1);
    const std::vector<equation_row> rows = {explicit_row("a", "2"),
                                            {"f(x) = x - a*b", "4 p", ""},
                                            {"c = 1", "n.a.", "c"},
                                            {"f(y) = y", "", ""},
                                            explicit_row("z", "1")};
    EXPECT_EQ(problem.content().rows, rows);
    EXPECT_EQ(pasted.rows, (std::vector<int>{2, 3, 4}));
    EXPECT_EQ(pasted.without_value, std::vector<std::string>{"y"});
    std::string left_out;
    for (const left_out_line& line : pasted.left_out)
        left_out += std::to_string(line.number) + ' ' + line.text + ": " + line.reason + '\n';
    EXPECT_EQ(left_out, "2 a = 3: The variable 'a' has already been defined.\n"
                        "3 b = 2*: Syntax Error: extra operator at the end of the expression; *\n"
                        "7 best regards: \n");
    // The guess of a row that is there already.
    EXPECT_TRUE(problem.paste("y(0)=8", 0).changed);
    EXPECT_EQ(problem.content().rows[3].guess, "8");
    EXPECT_FALSE(problem.paste("nothing", 0).changed);
    ASSERT_TRUE(problem.undo());
    ASSERT_TRUE(problem.undo());
    EXPECT_EQ(problem.equation_count(), 2);

    nle_problem full = problem_of(std::vector(199, explicit_row("a", "2")));
    EXPECT_EQ(full.paste("b = 1\nc = 2", 0).left_out.front().reason,
              "Kelvarin can not add new equation. Kelvarin can solve up to 200 equations only.");
}

TEST(NleProblem, PastesAProblemFileWithTitleAndBounds)
{
    nle_problem problem;
    problem.paste("Roots |KVRVER05_1\r\nf(x) = x^2 - a #c\r\na = 2 #\r\nx(min)=1, x(max)=3\r\n", 0);
    EXPECT_EQ(problem.content().title, "Roots");
    EXPECT_EQ(problem.content().rows, (std::vector<equation_row>{{"f(x) = x^2 - a", "2", "c"}, {"a = 2", "n.a.", ""}}));
    EXPECT_EQ(problem.content().lower_bound, "1");
    EXPECT_EQ(problem.content().upper_bound, "3");
}

TEST(NleProblem, ChoosingAMethodStripsSuffixesUpToAnEmptyGuess)
{
    nle_problem problem =
        problem_of({implicit_row("x", "y", "3 ap"), explicit_row("a", "1"), implicit_row("y", "y", "4 p"),
                    implicit_row("z", "z", ""), implicit_row("w", "w", "5 p")});
    problem.choose_method(nle_method::constrained);
    EXPECT_EQ(problem.content().rows[0].guess, "3 ap");
    problem.choose_method(nle_method::safenewt);
    std::vector<std::string> guesses;
    for (const equation_row& row : problem.content().rows)
        guesses.push_back(row.guess);
    EXPECT_EQ(guesses, (std::vector<std::string>{"3", "n.a.", "4", "", "5 p"}));
}

TEST(NleProblem, ReadsTheConditionFromTheEndOfTheGuess)
{
    EXPECT_EQ(constraint_of("3 p"), sign_constraint::physically_positive);
    EXPECT_EQ(constraint_of("3 ap"), sign_constraint::absolutely_positive);
    EXPECT_EQ(constraint_of("3ap"), sign_constraint::absolutely_positive);
    EXPECT_EQ(constraint_of("3p"), sign_constraint::any);
    EXPECT_EQ(constraint_of("3 p "), sign_constraint::any);
    EXPECT_EQ(constraint_of("n.a."), sign_constraint::any);
    EXPECT_EQ(method_named("safebroydn"), nle_method::safebroydn);
    EXPECT_EQ(method_named("3"), nle_method::constrained);
    EXPECT_EQ(method_named("4"), std::nullopt);
}

TEST(NleProblem, BoundsGoWithTheSingleEquationAndMakeOneStep)
{
    nle_problem problem = problem_of({implicit_row("x", "x")});
    problem.set_bounds("1", "");
    problem.set_bounds("1", "2");
    problem.set_bounds("1", "25");
    ASSERT_TRUE(problem.undo());
    EXPECT_EQ(problem.content().upper_bound, "");
    EXPECT_EQ(problem.content().lower_bound, "");
    ASSERT_TRUE(problem.redo());
    EXPECT_EQ(problem.content().upper_bound, "25");
    const scratch_folder folder;
    ASSERT_FALSE(problem.save("p.kvr"));
    problem.set_bounds("1", "250");
    EXPECT_FALSE(problem.problem_saved());
    ASSERT_TRUE(problem.undo());
    EXPECT_EQ(problem.content().upper_bound, "25") << "typing goes on with a step of its own behind a saved content";
    EXPECT_FALSE(problem.put_implicit("y", "y", "1", 0, ""));
    EXPECT_EQ(problem.content().upper_bound, "");
}

TEST(NleProblem, BoundsTooLargeForAFileAreNotSaved)
{
    const scratch_folder folder;
    nle_problem single = problem_of({implicit_row("x", "x")});
    single.set_bounds("1", "1e999");
    EXPECT_EQ(text_of(single.save("p.kvr")), "Error while trying to save file.");
    EXPECT_FALSE(folder.holds("p.kvr"));
    EXPECT_EQ(single.content().upper_bound, "1e999");
}

} // namespace
} // namespace kelvarin::test
