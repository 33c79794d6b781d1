// SPDX-License-Identifier: MIT
#include "nle/nle_problem.h"
#include "nle/nle_samples.h"
#include "support/equation_rows.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cerrno>

namespace kelvarin
{
namespace
{

using test::explicit_row;
using test::implicit_row;

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
    struct implicit_check
    {
        const char *name, *expression, *guess;
        int row;
        std::string text;
    };
    const implicit_check implicit_checks[] = {
        {"y", "y - 1", "1", 0, ""},
        {" y ", "undefined + 1", " -1.5e3 ", 0, ""},
        {"2y", "y y", "z", 0, "Syntax Error: missing operator between variables; y y"},
        {"2y", "y", "z", 0, "Please enter a valid numeric value for initial guess."},
        {"2y", "y", "1 p", 0, "Please enter a valid numeric value for initial guess."},
        {"2y", "y", "1", 0, std::string("Variable format for '2y'") + bad_format},
        {"", "y", "1", 0, std::string("Variable format for ''") + bad_format},
        {"x", "x", "1", 0, "The variable 'x' has already been defined."},
        {" a", "x", "1", 0, "The variable 'a' has already been defined."},
        {"x", "x", "1", 1, ""},
        {"a", "x", "1", 1, "The variable 'a' has already been defined."},
        {"y", "", "1", 0, "Syntax Error: No expression entered."},
        {"y", "   ", "1", 0, "Syntax Error: cannot begin with an operator (except -)"},
    };
    for (const implicit_check& c : implicit_checks) {
        SCOPED_TRACE(std::string(c.name) + " / " + c.expression + " / " + c.guess);
        EXPECT_EQ(text_of(problem.check_implicit(c.name, c.expression, c.guess, c.row)), c.text);
    }

    const std::string circular = "\rThe explicit varible being defined can not appear on the left hand side of the "
                                 "equation.";
    EXPECT_EQ(text_of(problem.check_explicit("b", "1 + B + bb", 0)), "");
    EXPECT_EQ(text_of(problem.check_explicit("b", "1 + b", 0)), "Circular definition of 'b'" + circular);
    EXPECT_EQ(text_of(problem.check_explicit("a", "1 + a", 0)), "The variable 'a' has already been defined.");
    EXPECT_EQ(text_of(problem.check_explicit("a", "1 + a", 2)), "Circular definition of 'a'" + circular);
    EXPECT_EQ(text_of(problem.check_explicit("b", "2*", 0)),
              "Syntax Error: extra operator at the end of the expression; *");
    EXPECT_EQ(problem.check_explicit("b", "1 + b", 0)->place, (text_place{0, 4, 1}));
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

TEST(NleProblem, TheTwoHundredFirstEquationIsRefused)
{
    std::vector<equation_row> rows;
    for (int k = 0; k < 200; ++k)
        rows.push_back(explicit_row("a" + std::to_string(k), "1"));
    nle_problem problem = problem_of(rows);
    const std::string text = "Kelvarin can not add new equation. Kelvarin can solve up to 200 equations only.";
    const nle_problem::refusal refused = problem.may_add();
    EXPECT_EQ(text_of(refused), text);
    EXPECT_EQ(refused->icon, box_icon::critical);
    EXPECT_EQ(text_of(problem.put_explicit("b", "1", "")), text);
    EXPECT_EQ(text_of(problem.put_explicit("b", "1", "", 200)), "");
    EXPECT_EQ(problem.content().rows.back().equation, "b = 1");
}

TEST(NleProblem, TheLastEquationStaysAndRowsMoveWithinTheTable)
{
    nle_problem problem = problem_of({explicit_row("a", "1"), explicit_row("b", "2"), explicit_row("c", "3")});
    EXPECT_FALSE(problem.move(1, true));
    EXPECT_FALSE(problem.move(3, false));
    EXPECT_TRUE(problem.move(3, true));
    EXPECT_TRUE(problem.move(1, false));
    EXPECT_EQ(problem.content().rows,
              (std::vector{explicit_row("c", "3"), explicit_row("a", "1"), explicit_row("b", "2")}));
    EXPECT_FALSE(problem.remove(2));
    EXPECT_FALSE(problem.remove(1));
    EXPECT_EQ(text_of(problem.remove(1)), "Can not remove last equation.");
    EXPECT_EQ(problem.content().rows, std::vector{explicit_row("b", "2")});
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
    EXPECT_FALSE(problem.put_implicit("y", "y", "1", 0, ""));
    EXPECT_EQ(problem.content().upper_bound, "");
}

/// One operation of a random kind with random arguments; refusals are as good as changes.
void change_at_random(nle_problem& problem)
{
    const int row = *rc::gen::inRange(1, 5);
    const auto name = *rc::gen::element<std::string>("x", "y", "a", "2x");
    switch (*rc::gen::inRange(0, 11)) {
    case 0:
        problem.put_implicit(name, "x + 1", "2", *rc::gen::inRange(0, 3), "");
        break;
    case 1:
        problem.put_explicit(name, "3*x", "c");
        break;
    case 2:
        problem.remove(row);
        break;
    case 3:
        problem.move(row, *rc::gen::arbitrary<bool>());
        break;
    case 4:
        if (row <= problem.equation_count()) problem.set_comment(row, *rc::gen::element<std::string>("", "c", "d"));
        break;
    case 5:
        problem.set_title(*rc::gen::element<std::string>("", "t", "u "));
        break;
    case 6:
        problem.set_bounds(*rc::gen::element<std::string>("", "1"), *rc::gen::element<std::string>("2", "3"));
        break;
    case 7:
        problem.choose_method(static_cast<nle_method>(*rc::gen::inRange(0, 4)));
        break;
    case 8:
        problem.rename_variable(name, *rc::gen::element<std::string>("x", "z", "a", "2x"));
        break;
    case 9:
        problem.load_example(nle_samples()[*rc::gen::inRange<std::size_t>(0, nle_sample_count)]);
        break;
    default:
        if (*rc::gen::arbitrary<bool>()) problem.undo();
        break;
    }
}

TEST(NleProblem, UndoingAllGivesTheFirstContentBack)
{
    EXPECT_TRUE(rc::check("undo and redo walk the same way back and forth", [] {
        nle_problem problem;
        const nle_content first = problem.content();
        for (int steps = *rc::gen::inRange(0, 20); steps > 0; --steps)
            change_at_random(problem);
        const nle_content last = problem.content();
        int taken_back = 0;
        while (problem.undo())
            ++taken_back;
        RC_ASSERT(problem.content() == first);
        RC_ASSERT(problem.problem_saved());
        for (; taken_back > 0; --taken_back)
            RC_ASSERT(problem.redo());
        RC_ASSERT(problem.content() == last);

        nle_problem recovered;
        RC_ASSERT(recovered.restore(problem.recovery_text(), "p.kvr"));
        RC_ASSERT(recovered.content() == last);
        for (int steps = *rc::gen::inRange(0, 5); steps > 0; --steps)
            change_at_random(recovered);
        while (recovered.undo()) {
        }
        RC_ASSERT(recovered.content() == last);
        RC_ASSERT(!recovered.problem_saved());
    }));
}

TEST(NleProblem, SavingMovesTheCleanMarkAndKeepsUndo)
{
    const test::scratch_folder folder;
    nle_problem problem;
    EXPECT_TRUE(problem.problem_saved());
    problem.put_explicit("a", "1", "");
    EXPECT_FALSE(problem.problem_saved());
    ASSERT_FALSE(problem.save("p.kvr"));
    EXPECT_TRUE(problem.problem_saved());
    EXPECT_EQ(problem.path(), "p.kvr");
    problem.put_explicit("b", "2", "");
    EXPECT_FALSE(problem.problem_saved());
    problem.undo();
    EXPECT_TRUE(problem.problem_saved());
    problem.undo();
    EXPECT_FALSE(problem.problem_saved());

    nle_problem other;
    ASSERT_FALSE(other.nles_open("p.kvr"));
    EXPECT_TRUE(other.problem_saved());
    EXPECT_EQ(other.content().rows, std::vector{explicit_row("a", "1")});
    EXPECT_FALSE(other.undo());
}

TEST(NleProblem, AFileThatIsNoProblemLeavesTheDocumentAsItWas)
{
    const test::scratch_folder folder;
    folder.write("no.kvr", "title\n1 2 3\n");
    folder.write("latin.kvr", "Temp\xE9rature\nf(x) = x\nf(y) = y #\xE9t\xE9\nx(0)=1\ny(0)=2\n");
    nle_problem problem;
    problem.put_explicit("a", "1", "");
    for (const char* name : {"no.kvr", "missing.kvr", "."}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(text_of(problem.nles_open(name)), "Error while trying to open file.");
        EXPECT_EQ(problem.content().rows, std::vector{explicit_row("a", "1")});
        EXPECT_FALSE(problem.problem_saved());
        EXPECT_TRUE(problem.path().empty());
    }
    ASSERT_FALSE(problem.nles_open("latin.kvr"));
    EXPECT_EQ(problem.content().title, "Temp\xC3\xA9rature");
    EXPECT_EQ(problem.content().rows[1].comment, "\xC3\xA9t\xC3\xA9");
}

TEST(NleProblem, AFailedSaveLosesNothing)
{
    const test::scratch_folder folder;
    std::filesystem::create_directory("folder.kvr");
    folder.write("p.kvr", "before");
    nle_problem problem;
    problem.put_explicit("a", "1", "");

    std::vector<std::pair<std::string, save_calls>> faults;
    const auto fault = [&](const std::string& name) -> save_calls& {
        faults.emplace_back(name, system_save_calls());
        return faults.back().second;
    };
    const auto fail = [](int error) {
        errno = error;
        return -1;
    };
    faults.reserve(8);
    fault("open").open = [&](const char*, int, mode_t) { return fail(EACCES); };
    fault("write").write = [&](int, const void*, std::size_t) -> ssize_t { return fail(ENOSPC); };
    fault("fsync").fsync = [&](int) { return fail(EIO); };
    fault("rename").rename = [&](const char*, const char*) { return fail(EXDEV); };
    for (const auto& [name, calls] : faults) {
        SCOPED_TRACE(name);
        EXPECT_EQ(text_of(problem.save("p.kvr", false, calls)), "Error while trying to save file.");
        EXPECT_EQ(folder.read("p.kvr"), "before");
        EXPECT_FALSE(problem.problem_saved());
        EXPECT_TRUE(problem.path().empty());
    }
    EXPECT_EQ(text_of(problem.save("folder.kvr")), "Error while trying to save file.");
    EXPECT_FALSE(problem.problem_saved());

    nle_problem single = problem_of({implicit_row("x", "x")});
    single.set_bounds("1", "1e999");
    EXPECT_EQ(text_of(single.save("p.kvr")), "Error while trying to save file.");
    EXPECT_EQ(folder.read("p.kvr"), "before");
    EXPECT_EQ(single.content().upper_bound, "1e999");
}

} // namespace
} // namespace kelvarin
