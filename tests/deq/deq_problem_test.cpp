// SPDX-License-Identifier: MIT
#include "deq/deq_problem.h"
#include "deq/deq_recovery.h"
#include "deq/deq_samples.h"
#include "support/deq_problems.h"
#include "support/equation_rows.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

namespace kelvarin
{
namespace
{

using test::differential_row;
using test::explicit_row;
using test::integrated;

deq_problem problem_of(const deq_content& content)
{
    deq_problem problem;
    problem.load_example(content);
    return problem;
}

std::string text_of(const problem_document::refusal& refused)
{
    return refused ? refused->text : "";
}

TEST(DeqProblem, EntriesAreCheckedInTheOrderOfTheDialogs)
{
    deq_problem problem = problem_of(integrated({differential_row("y", "-y"), explicit_row("k", "2")}));
    const std::string invalid = "Variable format for '2x' not valid.\rAll variables must start with a string character "
                                "and may contain the chars A..Z, a..z, 0..9, or underscore";
    const test::table<const char*, const char*, const char*, std::string> differential = {
        {" z ", "t*y", " 1e3 ", ""},
        {"2x", "", "a", "Syntax Error: No expression entered."},
        {"t", "1", "a", "Please enter a valid initial value."},
        {" t", "1", "0", "Differential var must be different than independet var."},
        {"2x", "1", "0", invalid},
        {"k", "1", "0", "The variable 'k' has already been defined."}};
    for (const auto& [name, expression, value, refusal] : differential)
        EXPECT_EQ(text_of(problem.check_differential(name, expression, value, 0)), refusal);
    EXPECT_FALSE(problem.check_differential("y", "2*y", "3", 1)) << "its own row";

    const std::string circular = "Circular definition of 'y'\rThe explicit varible being defined can not appear on the "
                                 "left hand side of the equation.";
    const test::table<const char*, const char*, std::string> entries = {
        {"m", "2*k", ""},
        {"t", "1", ""},
        {"2x", "k", invalid},
        {"y", "y+1", circular},
        {"y", "k", "The variable 'y' has already been defined."}};
    for (const auto& [name, expression, refusal] : entries)
        EXPECT_EQ(text_of(problem.check_explicit(name, expression, 0)), refusal);

    ASSERT_FALSE(problem.put_differential(" z ", " t*y ", " 1e3 ", "c\nd"));
    EXPECT_EQ(problem.rows()[2], (equation_row{"d(z)/d(t) = t*y", "1e3", "c d"}));
    ASSERT_FALSE(problem.put_explicit("m", "2*k", "", 3));
    EXPECT_EQ(problem.rows()[2], explicit_row("m", "2*k"));
}

TEST(DeqProblem, ReadsDerivativesAsPeopleWriteThem)
{
    for (const auto& [text, equation] : test::table<const char*, const char*>{{"d(y)/d(t) = -y", "d(y)/d(t) = -y"},
                                                                              {" dy/dt = -y", "d(y)/d(t) = -y"},
                                                                              {"dy / dt = -y", "d(y)/d(t) = -y"},
                                                                              {"y' = -y", "d(y)/d(t) = -y"},
                                                                              {"dy = 2", "dy = 2"}}) {
        SCOPED_TRACE(text);
        deq_problem problem = problem_of(integrated({}));
        ASSERT_FALSE(problem.put_text(text, 0, "1"));
        EXPECT_EQ(problem.content().rows.front().equation, equation);
    }
    deq_problem problem = problem_of(integrated({}));
    const auto fault = problem.put_text("dy/dt = 2*", 0, "1");
    EXPECT_EQ(fault->place, (text_place{0, 9, 1}));
    EXPECT_EQ(text_of(problem.put_text("dy/dx = y", 0, "1")),
              "The independent variable of this problem is 't', not 'x'.");
    EXPECT_EQ(text_of(problem.put_text("dt/dt = 1", 0, "1")),
              "Differential var must be different than independet var.");
    EXPECT_EQ(text_of(problem.put_text("y' = 1", 0)), "Please enter a valid initial value.");
}

TEST(DeqProblem, TakesVariableAndRangeFromAPastedFileWhereItHasNone)
{
    const std::string file = "Decay |KVRVER05_0\nd(y)/d(s) = -k*y #first\nk = 2 #\ns(0)=1\ny(0)=5\ns(f)=3\n";
    deq_problem problem;
    problem.paste(file, 0);
    const deq_content& content = problem.content();
    EXPECT_EQ(content.rows, (std::vector<equation_row>{{"d(y)/d(s) = -k*y", "5", "first"}, {"k = 2", "n.a.", ""}}));
    EXPECT_EQ(content.independent + content.initial_value + content.final_value, "s13");
    EXPECT_EQ(content.title, "Decay");

    deq_problem other = problem_of(integrated({}));
    EXPECT_EQ(other.paste(file, 0).left_out.front().reason,
              "The independent variable of this problem is 't', not 's'.");
    EXPECT_EQ(other.content().independent, "t");
}

TEST(DeqProblem, TheIndependentVariableIsRenamedInItsRows)
{
    deq_problem problem = problem_of(integrated({differential_row("y", "-t*y"), explicit_row("k", "t")}));
    EXPECT_EQ(text_of(problem.set_independent(" y")),
              "Please do not use the same valriable name for independent variable and differential variable.");
    EXPECT_EQ(text_of(problem.set_independent("k")),
              "Please do not use the same valriable name for independent variable and explicit variable.");
    EXPECT_EQ(problem.content().independent, "t");
    ASSERT_FALSE(problem.set_independent("x "));
    EXPECT_EQ(problem.content().independent, "x ");
    EXPECT_EQ(problem.rows()[0].equation, "d(y)/d(x) = -t*y");
    EXPECT_EQ(problem.rows()[1].equation, "k = t");
    EXPECT_EQ(problem.analyse().panels[2], "Undefined Variable: t ");
    ASSERT_FALSE(problem.set_independent("x1"));
    ASSERT_TRUE(problem.undo()) << "what is typed is one step";
    EXPECT_EQ(problem.rows()[0].equation, "d(y)/d(t) = -t*y");
    // What would make another equation of a row stays in the field.
    ASSERT_FALSE(problem.set_independent("x(0)=1"));
    EXPECT_EQ(problem.content().independent, "x(0)=1");
    EXPECT_EQ(problem.rows()[0].equation, "d(y)/d() = -t*y");
    ASSERT_FALSE(problem.set_independent("t"));
    EXPECT_EQ(problem.rows()[0].equation, "d(y)/d(t) = -t*y");
}

TEST(DeqProblem, RenamesVariablesWhereverTheyAreUsed)
{
    deq_problem problem = problem_of(integrated({differential_row("y", "-t*y"), explicit_row("k", "t+y")}));
    ASSERT_FALSE(problem.rename_variable("t", "x"));
    EXPECT_EQ(problem.content().independent, "x");
    EXPECT_EQ(problem.rows()[0].equation, "d(y)/d(x) = -x*y");
    EXPECT_EQ(problem.rows()[1].equation, "k = x+y");
    ASSERT_FALSE(problem.rename_variable("y", "z"));
    EXPECT_EQ(problem.rows()[0].equation, "d(z)/d(x) = -x*z");
    EXPECT_EQ(text_of(problem.rename_variable("z", "x")), "The variable 'x' has already been defined.");
    EXPECT_EQ(text_of(problem.rename_variable("x", "k")), "The variable 'k' has already been defined.");
    EXPECT_EQ(problem.undo_step(), "Rename variable");
}

TEST(DeqProblem, EveryStepHasItsName)
{
    deq_problem problem = problem_of(integrated({differential_row("y", "-a"), explicit_row("a", "1")}));
    const test::table<const char*, std::function<void()>> steps = {
        {"Add equation", [&] { problem.put_explicit("b", "2", ""); }},
        {"Add equation", [&] { problem.put_differential("z", "y", "1", ""); }},
        {"Edit equation", [&] { problem.put_explicit("b", "3", "", 3); }},
        {"Move equation", [&] { problem.move(std::array{2}, true); }},
        {"Edit comment", [&] { problem.set_comment(1, "c"); }},
        {"Remove equation", [&] { problem.remove(std::array{4}); }},
        {"Change range", [&] { problem.set_range("1", "2"); }},
        {"Change independent variable", [&] { problem.set_independent("s"); }},
        {"Choose method", [&] { problem.choose_method(deq_method::stiff); }},
        {"Rename variable", [&] { problem.rename_variable("a", "c"); }},
        {"Load example", [&] { problem.load_example(deq_samples()[0]); }}};
    for (const auto& [name, take] : steps) {
        const deq_content before = problem.content();
        take();
        EXPECT_NE(problem.content(), before) << name;
        EXPECT_EQ(problem.undo_step(), name);
    }
    EXPECT_EQ(problem.content().method, deq_method::stiff) << "an example names no method";
}

TEST(DeqProblem, WhatIsTypedAndTakenBackIsNoStep)
{
    deq_problem problem = problem_of(integrated({differential_row("y", "-y")}));
    problem.set_range("0", "12");
    problem.set_range("0", "123");
    problem.set_range("0", "1");
    EXPECT_EQ(problem.undo_step(), "Load example");
    problem.set_range("0", "12");
    EXPECT_EQ(problem.undo_step(), "Change range");
    ASSERT_TRUE(problem.undo());
    EXPECT_EQ(problem.content().final_value, "1");
}

TEST(DeqProblem, AMethodAloneIsNothingToLose)
{
    deq_problem problem;
    problem.choose_method(deq_method::bs);
    EXPECT_TRUE(problem.is_blank());
    problem.set_range("0", "");
    EXPECT_FALSE(problem.is_blank());
}

TEST(DeqProblem, IsPrintedWithItsRange)
{
    deq_problem problem;
    problem.set_independent("t");
    problem.set_range("0", "1.5");
    problem.put_differential("y", "-k*y", "1", " decays ");
    problem.put_explicit("k", "2", "");
    EXPECT_EQ(problem.printed_listing(), "Kelvarin DEQ Program\n"
                                         "File: \n"
                                         "\n"
                                         "[1] d(y)/d(t) = -k*y\n"
                                         "    Initial value: 1\n"
                                         "    decays\n"
                                         "[2] k = 2\n"
                                         "    Initial value: n.a.\n"
                                         "\n"
                                         "Independent variable: t\n"
                                         "Initial value: 0\n"
                                         "Final value: 1.5\n");
}

TEST(DeqProblem, RecoveryTakesOnlyMethodsThatThereAre)
{
    const auto text = [](const std::string& method) {
        return R"({"format": 1, "title": "t", "method": )" + method +
               R"(, "rows": [], "independent": "t", "initial_value": "", "final_value": "9"})";
    };
    deq_content expected = integrated({}, "", "9");
    expected.title = "t";
    expected.method = deq_method::stiffbs;
    EXPECT_EQ(read_deq_recovery(text("4")), expected);
    EXPECT_FALSE(read_deq_recovery(text("5")));
}

} // namespace
} // namespace kelvarin
