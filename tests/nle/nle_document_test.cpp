// SPDX-License-Identifier: MIT
#include "nle/nle_problem.h"
#include "nle/nle_recovery.h"
#include "nle/nle_samples.h"
#include "support/equation_rows.h"
#include "support/nle_runs.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace kelvarin
{
namespace
{

using test::explicit_row;
using test::implicit_row;

nle_problem problem_of(const nle_content& content)
{
    nle_problem problem;
    problem.load_example(content);
    return problem;
}

/// The problem as every window knows it.
problem_document& document_of(nle_problem& problem)
{
    return problem;
}

} // namespace

TEST(NleRecovery, ReadsTheTextOfAnEarlierVersionWithAMethodThatThereIs)
{
    const auto text = [](const std::string& method) {
        return R"({"format": 1, "lower_bound": "not yet", "method": )" + method +
               R"(, "rows": [{"comment": "c", "equation": "f(x) = x", "guess": "7 ap"}], "title": "t", )" +
               R"("upper_bound": ""})";
    };
    nle_content content = test::single_of({{"f(x) = x", "7 ap", "c"}}, "not yet", "", nle_method::constrained);
    content.title = "t";
    EXPECT_EQ(read_nle_recovery(text("3")), content);
    for (const char* method : {"4", "-1", "\"0\"", "1.0"})
        EXPECT_FALSE(read_nle_recovery(text(method))) << method;
}

TEST(NleDocument, EveryStepHasItsName)
{
    nle_problem problem = problem_of(test::system_of({implicit_row("x", "x - a"), explicit_row("a", "1")}));
    struct step
    {
        const char* name;
        std::function<void()> take;
    };
    for (const step& each : {step{"Add equation", [&] { problem.put_explicit("b", "2", ""); }},
                             {"Add equation", [&] { problem.put_implicit("y", "y", "1", 0, ""); }},
                             {"Edit equation", [&] { problem.put_explicit("b", "3", "", 3); }},
                             {"Move equation", [&] { problem.move(2, true); }},
                             {"Edit comment", [&] { problem.set_comment(1, "c"); }},
                             {"Remove equation", [&] { problem.remove(4); }},
                             {"Change bounds", [&] { problem.set_bounds("1", "2"); }},
                             {"Choose method", [&] { problem.choose_method(nle_method::safenewt); }},
                             {"Rename variable", [&] { problem.rename_variable("a", "c"); }},
                             {"Load example", [&] { problem.load_example(nle_samples()[0]); }}}) {
        SCOPED_TRACE(each.name);
        const nle_content before = problem.content();
        each.take();
        EXPECT_NE(problem.content(), before);
        EXPECT_EQ(problem.undo_step(), each.name);
    }
}

TEST(NleDocument, AMethodAloneIsNothingToLose)
{
    nle_problem problem;
    problem.choose_method(nle_method::safenewt);
    EXPECT_TRUE(problem.is_blank());
    ASSERT_FALSE(problem.put_explicit("a", "1", ""));
    EXPECT_FALSE(problem.is_blank());
}

TEST(NleDocument, PrintsRowsWithTheirGuessesCommentsAndBounds)
{
    const test::scratch_folder folder;
    nle_content content = test::single_of({{"f(x) = x - a", "1.5 p", " unknown "}, explicit_row("a", "2")}, "1", "2");
    nle_problem problem = problem_of(content);
    const std::string rows = "\n[1] f(x) = x - a\n    Initial guess: 1.5 p\n    unknown\n"
                             "[2] a = 2\n    Initial guess: n.a.\n";
    EXPECT_EQ(document_of(problem).printed_listing(),
              "Kelvarin NLE Program\nFile: \n" + rows + "\nLower limit: 1\nUpper limit: 2\n");
    std::filesystem::create_directory("sub");
    ASSERT_FALSE(problem.save("sub/p.kvr"));
    ASSERT_FALSE(problem.put_implicit("y", "y", "1", 0, ""));
    EXPECT_EQ(problem.printed_listing(),
              "Kelvarin NLE Program\nFile: p.kvr\n" + rows + "[3] f(y) = y\n    Initial guess: 1\n");
}

TEST(RenameVariable, RenamesTheRowAndEveryUseOfTheWholeWord)
{
    struct row
    {
        std::string before, after;
    };
    const row rows[] = {
        {"f(x) = x-a*x1", "f(t) = t-a*x1"},
        {"x1 = x^2+(x)+max", "x1 = t^2+(t)+max"},
        // Words that stand beside what replace_name does not take for the end of a word.
        {"b = if x<2 && x>=a then exp(x) else -x", "b = if t<2 && t>=a then exp(t) else -t"},
        {"c = xx + x_2 + X + 2e-3", "c = xx + x_2 + X + 2e-3"},
        {"a=x", "a=t"},
        {"no equation x", "no equation x"},
    };
    nle_content content;
    for (const row& each : rows)
        content.rows.push_back({each.before, "n.a.", "x"});
    content.rows[0].guess = "1 p";
    nle_problem problem = problem_of(content);
    EXPECT_FALSE(problem.rename_variable(" x ", " t "));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(problem.content().rows[i].equation, rows[i].after);
        EXPECT_EQ(problem.content().rows[i].comment, "x");
    }
    EXPECT_EQ(problem.content().rows[0].guess, "1 p");
    ASSERT_TRUE(problem.undo());
    EXPECT_EQ(problem.content(), content);
}

TEST(RenameVariable, RefusesAsTheEntryDialogsDo)
{
    nle_problem problem =
        problem_of(test::system_of({implicit_row("x", "x - a"), explicit_row("a", "2*b"), explicit_row("sin", "1")}));
    const nle_content before = problem.content();
    struct refusal
    {
        const char *from, *to;
        std::string text;
    };
    for (const refusal& each :
         {refusal{"x", "2x",
                  "Variable format for '2x' not valid.\rAll variables must start with a string character and may "
                  "contain the chars A..Z, a..z, 0..9, or underscore"},
          {"x", "a", "The variable 'a' has already been defined."},
          {"a", "x", "The variable 'x' has already been defined."},
          {"a", "b",
           "Circular definition of 'b'\rThe explicit varible being defined can not appear on the left hand side of "
           "the equation."}}) {
        SCOPED_TRACE(std::string(each.from) + " -> " + each.to);
        const nle_problem::refusal refused = problem.rename_variable(each.from, each.to);
        ASSERT_TRUE(refused);
        EXPECT_EQ(refused->text, each.text);
        EXPECT_EQ(refused->icon, box_icon::exclamation);
        EXPECT_EQ(problem.content(), before);
    }
    EXPECT_FALSE(problem.rename_variable("x", "x"));
    EXPECT_FALSE(problem.rename_variable("", "y"));
    EXPECT_FALSE(problem.rename_variable("nowhere", "y"));
    EXPECT_EQ(problem.undo_step(), "Load example") << "nothing was renamed";
    EXPECT_FALSE(problem.rename_variable("b", "y"));
    EXPECT_EQ(problem.content().rows[1].equation, "a = 2*y") << "a variable that no row defines";
}

/// A call stays a call, although a row has the function's name.
TEST(RenameVariable, LeavesFunctionsAlone)
{
    nle_problem problem = problem_of(test::system_of({explicit_row("sin", "1"), explicit_row("a", "sin(2)")}));
    EXPECT_FALSE(problem.rename_variable("sin", "s"));
    EXPECT_EQ(problem.content().rows, (std::vector{explicit_row("s", "1"), explicit_row("a", "sin(2)")}));
}

} // namespace kelvarin
