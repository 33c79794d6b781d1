// SPDX-License-Identifier: MIT
#include "nle/nle_run.h"
#include "support/digits.h"
#include "support/equation_rows.h"
#include "support/nle_runs.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelvarin::test
{
namespace
{

constexpr nle_method all_methods[] = {nle_method::fastnewt, nle_method::safenewt, nle_method::safebroydn,
                                      nle_method::constrained};

/// The one box of a run without report.
message_box only_box(const nle_outcome& outcome)
{
    EXPECT_FALSE(outcome.has_report);
    EXPECT_EQ(outcome.boxes.size(), 1U);
    return outcome.boxes.empty() ? message_box{} : outcome.boxes.front();
}

TEST(NleSystem, EveryMethodFindsPublishedRoots)
{
    const table<const char*, std::vector<equation_row>, std::vector<double>> problems = {
        // x = 2, y = 1 by inspection.
        {"circle and hyperbola",
         {implicit_row("x", "x^2 + y^2 - 5", "3"), implicit_row("y", "x*y - 2", "0.5")},
         {2, 1}},
        // Freudenstein and Roth; root (5, 4). More, Garbow, Hillstrom 1981, problem 2.
        {"Freudenstein and Roth",
         {implicit_row("x", "0 - 13 + x + ((5 - y)*y - 2)*y", "6"),
          implicit_row("y", "x - 29 + ((y + 1)*y - 14)*y", "5")},
         {5, 4}},
        // Brown almost linear, n = 3; root (1, 1, 1). More, Garbow, Hillstrom 1981, problem 27.
        {"Brown almost linear",
         {implicit_row("x", "x + s - 4", "0.9"), implicit_row("y", "y + s - 4", "0.9"), explicit_row("s", "x + y + z"),
          implicit_row("z", "x*y*z - 1", "0.9")},
         {1, 1, 1}},
        // Intersection of y = cos x with y = x: the fixed point of the cosine, Dottie's number.
        {"fixed point",
         {implicit_row("x", "y - cos(x)", "0.5"), implicit_row("y", "x - y", "0.5")},
         {0.739085133215161, 0.739085133215161}},
        // Rows before those they need: b = 2, a = 4, so x = 4 and y = 2.
        {"explicit chain",
         {implicit_row("x", "x*y - c", "3"), explicit_row("c", "a*b"), explicit_row("a", "b^2"), explicit_row("b", "2"),
          implicit_row("y", "x - a", "1")},
         {4, 2}},
    };
    for (const auto& [name, rows, roots] : problems) {
        for (const nle_method method : all_methods) {
            SCOPED_TRACE(std::string(name) + " by " + std::string(method_text(method)));
            const nle_outcome outcome = run_of(system_of(rows, method));
            ASSERT_TRUE(outcome.has_report);
            EXPECT_TRUE(outcome.boxes.empty());
            EXPECT_TRUE(outcome.converged());
            EXPECT_GE(system_result(outcome).iterations, 1);
            ASSERT_EQ(system_result(outcome).solution.implicit.size(), roots.size());
            for (std::size_t i = 0; i < roots.size(); ++i) {
                EXPECT_GE(digits_shown(system_result(outcome).solution.implicit[i].value, roots[i]), 6.0);
            }
        }
    }
}

TEST(NleSystem, KeepsGuessesConstraintsAndSortedExplicitValues)
{
    const nle_outcome outcome = run_of(
        system_of({implicit_row("x", "x - b", "1.5 p"), explicit_row("b", "a + 1"), implicit_row("y", "y - a*x", "2ap"),
                   explicit_row("a", "2"), implicit_row("z", "z + x", "-1")},
                  nle_method::constrained));
    ASSERT_TRUE(outcome.has_report);
    EXPECT_EQ(outcome.implicit_names, (std::vector<std::string>{"x", "y", "z"}));
    EXPECT_EQ(outcome.explicit_names, (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(outcome.explicit_right_sides, (std::vector<std::string>{"2", "a + 1"}));
    EXPECT_EQ(outcome.constraints, (std::vector{sign_constraint::physically_positive,
                                                sign_constraint::absolutely_positive, sign_constraint::any}));
    EXPECT_EQ(system_result(outcome).solution.implicit[0].guess, 1.5);
    EXPECT_EQ(system_result(outcome).solution.implicit[1].guess, 2.0);
    ASSERT_EQ(system_result(outcome).solution.explicit_values.size(), 2U);
    EXPECT_EQ(system_result(outcome).solution.explicit_values[1].name, "b");
    EXPECT_EQ(system_result(outcome).solution.explicit_values[1].value, 3.0);
}

TEST(NleSystem, OfUnknownsWithOneNameTheLastIsSolvedWithAndTheFirstShown)
{
    const nle_outcome outcome =
        run_of(system_of({implicit_row("x", "x - 3", "1"), implicit_row("x", "x - 3", "2"), explicit_row("a", "x")},
                         nle_method::safenewt));
    ASSERT_TRUE(outcome.has_report);
    EXPECT_EQ(system_result(outcome).solution.implicit[0].value, 1.0);
    EXPECT_NEAR(system_result(outcome).solution.implicit[1].value, 3.0, 1e-6);
    EXPECT_EQ(system_result(outcome).solution.explicit_values[0].value, 1.0);
}

TEST(NleSystem, AStartThatViolatesItsConditionIsReportedWithoutResiduals)
{
    const nle_outcome outcome = run_of(
        system_of({implicit_row("x", "x - 3", "-1 p"), implicit_row("y", "y - 3", "1")}, nle_method::constrained));
    ASSERT_TRUE(outcome.has_report);
    EXPECT_EQ(system_result(outcome).code, cnle_code::start_violates_constraint);
    EXPECT_EQ(system_result(outcome).residual_sum(), 0.0);
    EXPECT_FALSE(outcome.converged());
    EXPECT_EQ(system_result(outcome).iterations, 0);
}

TEST(NleSystem, ASumOfTenIsConvergedAndAboveIsNot)
{
    nle_system_result result;
    result.solution.implicit = {{"x", 0, -4, 0}, {"y", 0, 6, 0}};
    const auto converged = [&] {
        nle_outcome outcome;
        outcome.result = result;
        return outcome.converged();
    };
    EXPECT_TRUE(converged());
    result.solution.implicit[0].residual = std::nextafter(-10.0, -11.0);
    result.solution.implicit[1].residual = 0.0;
    EXPECT_FALSE(converged());
}

TEST(NleRun, RefusesBeforeAndWhileItCompiles)
{
    std::vector<equation_row> many;
    for (int k = 0; k < 201; ++k)
        many.push_back(explicit_row("v" + std::to_string(k), "1"));
    const table<const char*, nle_content, const char*, box_icon, std::optional<text_place>> refusals = {
        {"red light", system_of({implicit_row("x", "x"), implicit_row("y", "q")}), "Undefined Variable: q",
         box_icon::critical, text_place{2, 7, 1}},
        {"constrained without unknowns", system_of({explicit_row("a", "1")}, nle_method::constrained),
         "Constrained NLE method may only be chosen for a system of nonlinear equations. Single NLE not allowed for "
         "this.",
         box_icon::critical, std::nullopt},
        {"too many", system_of(many), "Too many equations entered. Kelvarin can solve up to 200 equations only.",
         box_icon::exclamation, std::nullopt},
        {"explicit text, by sorted number", system_of({explicit_row("a", "2*b*"), explicit_row("b", "2")}),
         "Explicit expression # 2\rSyntax Error: extra operator at the end of the expression; *", box_icon::critical,
         text_place{1, 7, 1}},
        {"explicit ones first", system_of({implicit_row("x", "x y"), implicit_row("y", "x"), explicit_row("a", "2x")}),
         "Explicit expression # 1\rSyntax Error: invalid number '2x'", box_icon::critical, text_place{3, 4, 2}},
        {"implicit text", system_of({implicit_row("x", "x"), implicit_row("y", "y + alog(x)")}),
         "Nonlinear equation # 2\rSyntax Error: unknown function 'alog'", box_icon::critical, text_place{2, 11, 4}},
        {"text that only the builder refuses", system_of({explicit_row("a", "1 >")}),
         "Explicit expression # 1\rExpression Parsing Error: Subscript out of range", box_icon::critical,
         text_place{1, 4, 3}},
        {"circle", system_of({explicit_row("a", "b"), explicit_row("b", "a")}),
         "Internal Error trapped.\r(8888) Numeric failure\rCircular definition of explicit variables not allowed.",
         box_icon::critical, std::nullopt},
        {"guess too large", system_of({implicit_row("x", "x", "1e999"), implicit_row("y", "y")}),
         "Internal Error trapped.\r(6) Overflow\r", box_icon::critical, std::nullopt},
    };
    for (const auto& [name, content, text, icon, place] : refusals) {
        SCOPED_TRACE(name);
        const message_box box = only_box(run_of(content));
        EXPECT_EQ(box.text, text);
        EXPECT_EQ(box.title, "Kelvarin Guide");
        EXPECT_EQ(box.icon, icon);
        EXPECT_EQ(box.place, place);
        EXPECT_FALSE(box.fatal);
    }
    const message_box fatal = only_box(run_of(system_of({explicit_row("a", "(1) (2)")})));
    EXPECT_EQ(fatal.title, "Fatal Error");
    EXPECT_TRUE(fatal.fatal);
    EXPECT_EQ(fatal.text, "Internal error found ! Please contact KELVARIN support personal.");
    many.pop_back();
    EXPECT_TRUE(run_of(system_of(many)).has_report);
}

TEST(NleRun, FailedEvaluationsAndSolversEndInOneBox)
{
    settings few_steps;
    ASSERT_FALSE(few_steps.set_value("newt_MAXITS", "10"));
    ASSERT_FALSE(few_steps.set_value("broydn_MAXITS", "10"));
    const std::vector<equation_row> slow = {implicit_row("x", "x^20", "2"), implicit_row("y", "y", "0")};
    const table<const char*, nle_content, const char*, const char*> failures = {
        {"explicit rows alone", system_of({explicit_row("a", "1/(b - 2)"), explicit_row("b", "2")}),
         "Expression evaluation error.", "Error: Zero denominator not allowed.\r1 / (b - 2)"},
        {"a row that names itself", system_of({explicit_row("a", "a + 1")}), "Expression evaluation error.",
         "Error: Variable a is empty"},
        {"system", system_of({implicit_row("x", "ln(x)", "-1"), implicit_row("y", "y", "1")}),
         "Expression evaluation error", "Error: ln() of negative number not allowed.\rln(x)"},
        {"constrained system",
         system_of({implicit_row("x", "ln(x)", "-1"), implicit_row("y", "y", "1")}, nle_method::constrained),
         "Expression evaluation error", "Error: ln() of negative number not allowed.\rln(x)"},
        // The zeros behind the failure meet the singular Jacobian before the run looks at the failure.
        {"failure hidden by a singular matrix",
         system_of({implicit_row("x", "5 + ln(x)", "-1"), implicit_row("y", "y + 3", "1")}, nle_method::safebroydn),
         "Kelvarin Guide", "Internal Error trapped.\r(8888) Numeric failure\rBROYDN: singular Jacobian in broydn"},
        {"newt out of iterations", system_of(slow, nle_method::safenewt), "Kelvarin Guide",
         "Internal Error trapped.\r(8888) Numeric failure\rNEWT: MAXITS exceeded in newt"},
        {"broydn out of iterations", system_of(slow, nle_method::safebroydn), "Kelvarin Guide",
         "Internal Error trapped.\r(8888) Numeric failure\rBROYDN: MAXITS exceeded in broydn"},
        {"overflow in the solver",
         system_of({implicit_row("x", "1e200*x", "1e100"), implicit_row("y", "y", "1e160")}, nle_method::safenewt),
         "Kelvarin Guide", "Internal Error trapped.\r(6) Overflow\r"},
    };
    for (const auto& [name, content, title, text] : failures) {
        SCOPED_TRACE(name);
        const message_box box = only_box(run_of(content, few_steps));
        EXPECT_EQ(box.title, title);
        EXPECT_EQ(box.text, text);
        EXPECT_EQ(box.icon, box_icon::critical);
    }
}

TEST(NleRun, StopsWhenAskedAndTellsTheTime)
{
    recording_listener stopped;
    stopped.ask_to_stop();
    const nle_content system = system_of({implicit_row("x", "x - 1"), implicit_row("y", "y - 2")});
    const nle_outcome none = run_nle({system, {}}, settings(), fixed_clock(), stopped);
    EXPECT_TRUE(none.stopped);
    EXPECT_EQ(only_box(none).text, "Solution stopped.");

    recording_listener listener;
    fixed_clock clock;
    clock.advance_by(7);
    EXPECT_EQ(run_nle({system, {}}, settings(), clock, listener).elapsed_seconds, 7);
}

TEST(NleRun, FailuresAndCirclesTellTheirRows)
{
    const table<const char*, nle_content, std::optional<text_place>, std::vector<int>> runs = {
        {"explicit rows",
         system_of({explicit_row("b", "2"), explicit_row("a", "3 + 1/(b - 2)")}),
         text_place{2, 8, 9},
         {}},
        {"system",
         system_of({explicit_row("k", "1"), implicit_row("y", "y", "1"), implicit_row("x", "k + ln(x)", "-1")}),
         text_place{3, 11, 5},
         {}},
        {"single",
         single_of({implicit_row("x", "x - 5 + 1/(x - x)"), explicit_row("k", "1")}, "1", "9"),
         text_place{1, 15, 9},
         {}},
        {"circle",
         system_of({explicit_row("c", "1"), explicit_row("a", "b + c"), explicit_row("b", "a")}),
         std::nullopt,
         {2, 3}},
    };
    for (const auto& [name, content, place, rows] : runs) {
        SCOPED_TRACE(name);
        const message_box box = only_box(run_of(content));
        EXPECT_EQ(box.place, place);
        EXPECT_EQ(box.rows, rows);
    }
}

} // namespace
} // namespace kelvarin::test
