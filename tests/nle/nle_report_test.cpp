// SPDX-License-Identifier: MIT
#include "nle/nle_report.h"
#include "support/equation_rows.h"
#include "support/golden.h"
#include "support/nle_runs.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{
namespace
{

std::string report_of(const nle_run_problem& problem, std::int64_t seconds = 0)
{
    recording_listener listener;
    fixed_clock clock;
    clock.advance_by(seconds);
    const settings store;
    const nle_outcome outcome = run_nle(problem, store, clock, listener);
    EXPECT_TRUE(outcome.has_report);
    return nle_report(problem, outcome, store, {2026, 1, 2});
}

// The runs of the golden files start at their roots, so that all numbers are exact and known by hand.

TEST(NleReport, OfASystem)
{
    nle_content content =
        system_of({implicit_row("x", "x^2 + y^2 - r^2", "3"), implicit_row("y", "y - x - shift", "4"),
                   explicit_row("circumference", "6*r"), explicit_row("r", "5"), explicit_row("shift", "1")});
    content.title = R"(Circle {5} & line \ 1)";
    content.rows[0].comment = "on the circle, {braces} kept";
    content.rows[3].comment = "radius";
    expect_golden("nle/system.rtf", by_lines(report_of({content, "circle.kvr"}, 54)));
}

TEST(NleReport, OfASingleEquationWithTwoRoots)
{
    nle_content content = single_of({implicit_row("x", "(x - 2)*(x - k)", "3"), explicit_row("k", "5")}, "-0.5",
                                    "166.5", nle_method::safebroydn);
    content.title = "Two roots";
    expect_golden("nle/single.rtf", by_lines(report_of({content, {}})));
}

TEST(NleReport, OfExplicitRowsAlone)
{
    nle_content content = system_of({explicit_row("x1", "(-b + sqrt(disc))/(2*a)"),
                                     explicit_row("x2", "(-b - sqrt(disc))/(2*a)"), explicit_row("disc", "b^2 - 4*a*c"),
                                     explicit_row("a", "1"), explicit_row("b", "-3"), explicit_row("c", "2")});
    content.rows[3].comment = "constant of the equation: ax^2+bx+c=0";
    expect_golden("nle/explicit.rtf", by_lines(report_of({content, {}})));
}

/// The report of a system of two equations that ended with the given code and residual.
std::string ended(nle_method method, cnle_code code, double residual)
{
    nle_outcome outcome;
    outcome.has_report = true;
    outcome.method = method;
    outcome.implicit_names = {"x", "y"};
    outcome.implicit_right_sides = {"x - 1", "y - 2"};
    outcome.result = nle_system_result{{{{"x", 1, residual, 0.5}, {"y", -2, 0, 1e-7}}, {}}, code, 17};
    outcome.constraints = {sign_constraint::physically_positive, sign_constraint::absolutely_positive};
    settings store;
    EXPECT_FALSE(store.set_value("newt_TOLX", "0.05"));
    return nle_report({}, outcome, store, {2026, 1, 2});
}

/// The settings of each method, the conditions and errors of the constrained one; a sum of residuals above 10 is told.
TEST(NleReport, OfEveryEnding)
{
    const table<nle_method, cnle_code, double> endings = {
        {nle_method::fastnewt, cnle_code::converged, 0},
        {nle_method::safenewt, cnle_code::converged, 10.5},
        {nle_method::safebroydn, cnle_code::converged, 0.25},
        {nle_method::constrained, cnle_code::converged, 10.0},
        {nle_method::constrained, cnle_code::bad_input, 0},
        {nle_method::constrained, cnle_code::start_violates_constraint, 0},
        {nle_method::constrained, cnle_code::iteration_limit, 0},
        {nle_method::constrained, cnle_code::minimal_dtheta, 0},
        {nle_method::constrained, cnle_code::no_progress, 10.5},
    };
    std::string reports;
    for (const auto& [method, code, residual] : endings)
        reports += by_lines(ended(method, code, residual)) + '\n';
    expect_golden("nle/endings.rtf", reports);
}

/// A root alone has no heading; of a long name the last eight letters stand in the table.
TEST(NleReport, OfNoRootOfOneRootAndOfALongName)
{
    const nle_content none = single_of({implicit_row("x", "x^2 + 1", "0")}, "-2", "2", nle_method::safenewt);
    const nle_content one = single_of({implicit_row("x", "x - 1", "0")}, "0.5", "2");
    std::string reports;
    for (const nle_content& content : {none, one, system_of({explicit_row("length_of_pipe", "12.5")})})
        reports += by_lines(report_of({content, {}})) + '\n';
    expect_golden("nle/roots.rtf", reports);
}

} // namespace
} // namespace kelvarin::test
