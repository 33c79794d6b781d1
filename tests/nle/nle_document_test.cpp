// SPDX-License-Identifier: MIT
#include "nle/nle_problem.h"
#include "nle/nle_recovery.h"
#include "nle/nle_samples.h"
#include "support/equation_rows.h"
#include "support/nle_runs.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

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

nle_content random_content()
{
    const auto text = rc::gen::container<std::string>(rc::gen::elementOf(std::string("af(x) =#\"\\\n\r\t\x01{}&/<")));
    nle_content content;
    content.title = *text;
    content.method = static_cast<nle_method>(*rc::gen::inRange(0, 4));
    content.lower_bound = *text;
    content.upper_bound = *text + "\xC3\xA9\xF0\x9F\x98\x80";
    for (int rows = *rc::gen::inRange(0, 4); rows > 0; --rows)
        content.rows.push_back({*text, *text, *text});
    return content;
}

} // namespace

RC_GTEST_PROP(NleRecovery, GivesAnyContentBack, ())
{
    const nle_content content = random_content();
    RC_ASSERT(read_nle_recovery(nle_recovery_text(content)) == content);
}

RC_GTEST_PROP(NleRecovery, ATextCutShortIsNone, ())
{
    const std::string text = nle_recovery_text(random_content());
    RC_ASSERT(!read_nle_recovery(text.substr(0, *rc::gen::inRange<std::size_t>(0, text.size()))));
}

TEST(NleRecovery, KeepsWhatAFileWouldLose)
{
    nle_problem problem;
    ASSERT_FALSE(problem.put_explicit("a", "2", "first"));
    ASSERT_FALSE(problem.put_implicit("x", "x - a", "7", 2, ""));
    problem.set_bounds("not yet", "");
    problem.choose_method(nle_method::constrained);
    nle_problem other;
    ASSERT_FALSE(other.put_explicit("b", "1", ""));
    ASSERT_TRUE(document_of(other).restore(problem.recovery_text(), "/tmp/p.kvr"));
    EXPECT_EQ(other.content(), problem.content());
    EXPECT_EQ(other.content().rows[1].guess, "7 ap");
    EXPECT_EQ(other.path(), "/tmp/p.kvr");
    EXPECT_FALSE(other.problem_saved());
    EXPECT_FALSE(other.undo()) << "what was there before is another problem";
    EXPECT_EQ(other.undo_step(), "");
}

TEST(NleRecovery, RefusesWhatItDidNotWrite)
{
    nle_problem problem = problem_of(test::system_of({explicit_row("a", "1")}));
    const nle_content before = problem.content();
    const std::string whole = problem.recovery_text();
    const auto with = [&](const std::string& from, const std::string& to) {
        std::string text = whole;
        const std::size_t at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return text.replace(at, from.size(), to);
    };
    for (const std::string& text :
         {std::string(), std::string("{}"), std::string("[1]"), std::string("null"), std::string(100000, '['),
          whole + "x", with("\"format\": 1", "\"format\": 2"), with("\"method\": 0", "\"method\": 4"),
          with("\"method\": 0", "\"method\": -1"), with("\"method\": 0", "\"method\": \"0\""),
          with("\"title\": \"\"", "\"title\": 5"), with("\"guess\"", "\"gues\"")}) {
        SCOPED_TRACE(text.substr(0, 200));
        EXPECT_FALSE(problem.restore(text, "p.kvr"));
        EXPECT_EQ(problem.content(), before);
        EXPECT_TRUE(problem.path().empty());
        EXPECT_TRUE(problem.undo_step() == "Load example");
    }
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
                             {"Change title", [&] { problem.set_title("t"); }},
                             {"Choose method", [&] { problem.choose_method(nle_method::safenewt); }},
                             {"Rename variable", [&] { problem.rename_variable("a", "c"); }},
                             {"Load example", [&] { problem.load_example(nle_samples()[0]); }}}) {
        SCOPED_TRACE(each.name);
        const nle_content before = problem.content();
        each.take();
        EXPECT_NE(problem.content(), before);
        EXPECT_EQ(problem.undo_step(), each.name);
        const nle_content after = problem.content();
        ASSERT_TRUE(document_of(problem).undo());
        EXPECT_EQ(problem.content(), before);
        EXPECT_EQ(problem.redo_step(), each.name);
        ASSERT_TRUE(document_of(problem).redo());
        EXPECT_EQ(problem.content(), after);
    }
}

TEST(NleDocument, IsBlankUntilThereIsSomethingToLose)
{
    const test::scratch_folder folder;
    nle_problem problem;
    EXPECT_TRUE(problem.is_blank());
    EXPECT_EQ(problem.kind(), "nle");
    problem.choose_method(nle_method::safenewt);
    EXPECT_TRUE(problem.is_blank());
    problem.set_title(" t ");
    EXPECT_EQ(document_of(problem).title(), "t");
    EXPECT_FALSE(problem.is_blank());
    problem.undo();
    EXPECT_TRUE(problem.is_blank());
    ASSERT_FALSE(problem.put_explicit("a", "1", ""));
    EXPECT_FALSE(problem.is_blank());
    ASSERT_FALSE(document_of(problem).save("p.kvr", false));

    nle_problem other;
    ASSERT_FALSE(document_of(other).open("p.kvr"));
    EXPECT_FALSE(other.is_blank());
    EXPECT_EQ(other.content().rows, std::vector{explicit_row("a", "1")});
}

TEST(NleDocument, AnExampleIsNotSavedOverTheFileThatWasOpen)
{
    const test::scratch_folder folder;
    nle_problem problem = problem_of(test::system_of({explicit_row("a", "1")}));
    ASSERT_FALSE(problem.save("p.kvr"));
    problem.load_example(nle_samples()[1]);
    EXPECT_TRUE(problem.path().empty());
    EXPECT_FALSE(problem.problem_saved());
    EXPECT_EQ(problem.content(), nle_samples()[1]) << "with its bounds";
    ASSERT_TRUE(problem.undo());
    EXPECT_EQ(problem.content().rows, std::vector{explicit_row("a", "1")});
    EXPECT_EQ(problem.path(), "p.kvr") << "the saved content came back without its file";
    ASSERT_TRUE(problem.redo());
    EXPECT_TRUE(problem.path().empty());
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
