// SPDX-License-Identifier: MIT
#include "nle/nle_report.h"
#include "shell/report/rich_text.h"
#include "support/equation_rows.h"
#include "support/golden.h"
#include "support/nle_runs.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

using test::explicit_row;
using test::implicit_row;

/// A report with a line end behind every line of it, as the golden files have it to be read by people.
std::string by_lines(const std::string& report)
{
    static constexpr std::string_view end = R"(\par )";
    std::string lines;
    std::size_t from = 0;
    for (std::size_t at = report.find(end); at != std::string::npos; at = report.find(end, from)) {
        lines.append(report, from, at + end.size() - from).append("\n");
        from = at + end.size();
    }
    return lines.append(report, from).append("\n");
}

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
        test::system_of({implicit_row("x", "x^2 + y^2 - r^2", "3"), implicit_row("y", "y - x - shift", "4"),
                         explicit_row("circumference", "6*r"), explicit_row("r", "5"), explicit_row("shift", "1")});
    content.title = R"(Circle {5} & line \ 1)";
    content.rows[0].comment = "on the circle, {braces} kept";
    content.rows[3].comment = "radius";
    test::expect_golden("nle/system.rtf", by_lines(report_of({content, "circle.kvr"}, 54)));
}

TEST(NleReport, OfASingleEquationWithTwoRoots)
{
    nle_content content = test::single_of({implicit_row("x", "(x - 2)*(x - k)", "3"), explicit_row("k", "5")}, "-0.5",
                                          "166.5", nle_method::safebroydn);
    content.title = "Two roots";
    test::expect_golden("nle/single.rtf", by_lines(report_of({content, {}})));
}

TEST(NleReport, OfExplicitRowsAlone)
{
    nle_content content = test::system_of(
        {explicit_row("x1", "(-b + sqrt(disc))/(2*a)"), explicit_row("x2", "(-b - sqrt(disc))/(2*a)"),
         explicit_row("disc", "b^2 - 4*a*c"), explicit_row("a", "1"), explicit_row("b", "-3"), explicit_row("c", "2")});
    content.rows[3].comment = "constant of the equation: ax^2+bx+c=0";
    test::expect_golden("nle/explicit.rtf", by_lines(report_of({content, {}})));
}

/// The outcome of a system of two equations that ended with the given code and residuals.
nle_outcome ended(nle_method method, cnle_code code, double residual)
{
    nle_outcome outcome;
    outcome.has_report = true;
    outcome.method = method;
    outcome.implicit_names = {"x", "y"};
    outcome.implicit_right_sides = {"x - 1", "y - 2"};
    outcome.result = nle_system_result{{{{"x", 1, residual, 0.5}, {"y", -2, 0, 1e-7}}, {}}, code, 17};
    outcome.constraints = {sign_constraint::physically_positive, sign_constraint::absolutely_positive};
    return outcome;
}

TEST(NleReport, WarnsAndNamesTheErrorOfTheConstrainedMethod)
{
    struct ending
    {
        cnle_code code;
        double residual;
        const char* text;
    };
    const std::string head = R"(\par \par \par {\b\cf1\f5\fs21\ul NLES Solution }\par \par )";
    const std::string table = R"({\cf1\f6  \ul Variable)";
    const std::string warning =
        R"({\b  Solution did not converge !}\par {\b  Give better first estimates and try again.}\par \par )";
    const ending endings[] = {
        {cnle_code::converged, 10.0, ""},
        {cnle_code::bad_input, 0, R"({\b  Error: Improper parameters input }\par \par )"},
        {cnle_code::start_violates_constraint, 0,
         R"({\b  Error: Initial estimate of solution does not satisfy constraints }\par \par )"},
        {cnle_code::iteration_limit, 0,
         R"({\b  Error: Number of iterations greater than allowed in settings}\par \par )"},
        {cnle_code::minimal_dtheta, 0, R"({\b  Error: DTHETA has reached a minimal value}\par \par )"},
        {cnle_code::no_progress, 0, R"({\b  Error: Iteration is not making progress or is diverging }\par \par )"},
    };
    for (const ending& e : endings) {
        SCOPED_TRACE(e.text);
        const std::string report =
            nle_report({}, ended(nle_method::constrained, e.code, e.residual), settings(), {2026, 1, 2});
        EXPECT_NE(report.find(head + e.text + table), std::string::npos);
    }
    const std::string report =
        nle_report({}, ended(nle_method::constrained, cnle_code::no_progress, 10.5), settings(), {2026, 1, 2});
    EXPECT_NE(report.find(head + warning + endings[5].text + table), std::string::npos);
    EXPECT_EQ(nle_report({}, ended(nle_method::safenewt, cnle_code::converged, 10.0), settings(), {2026, 1, 2})
                  .find("did not converge"),
              std::string::npos);
}

/// The first blank behind \f6 ends the word; the second one indents the row like the heads above it.
TEST(NleReport, TableRowsStandUnderTheirHeads)
{
    const std::string system =
        nle_report({}, ended(nle_method::safenewt, cnle_code::converged, 0.25), settings(), {2026, 1, 2});
    EXPECT_NE(system.find(R"({\f6  x           1            0.25         0.5      }\par )"
                          R"({\f6  y          -2            0            1.0E-07  }\par \par )"),
              std::string::npos)
        << system;
    const std::string alone = report_of({test::system_of({explicit_row("length_of_pipe", "12.5")}), {}});
    EXPECT_NE(alone.find(R"({\f6  _of_pipe    12.5     }\par \par \par )"), std::string::npos) << alone;
}

TEST(NleReport, PrintsTheConditionsAndTheSettingsOfTheMethod)
{
    settings store;
    ASSERT_FALSE(store.set_value("newt_TOLX", "0.05"));
    struct section
    {
        nle_method method;
        const char* text;
    };
    const section sections[] = {
        {nle_method::fastnewt, R"({\f6  }{\cf1\fs20 Settings }\par {\f6  }Tolerance X \tab = 1E-07\par )"
                               R"({\f6  }Tolerance F \tab = 1E-07\par {\f6  }Max trials \tab = 150\par \par )"},
        {nle_method::safenewt, R"({\f6  }{\cf1\fs20 Settings }\par {\f6  }Max iterations \tab = 150\par )"
                               R"({\f6  }Tolerance F \tab = 1E-07\par {\f6  }Tolerance X\tab = 0.05\par )"
                               R"({\f6  }Tolerance min\tab = 1E-07\par \par )"},
        {nle_method::safebroydn, R"({\f6  }{\cf1\fs20 Settings }\par {\f6  }Max iterations \tab = 150\par )"
                                 R"({\f6  }eps \tab\tab = 1E-07\par {\f6  }Tolerance F\tab = 1E-07\par )"
                                 R"({\f6  }Tolerance X \tab = 1E-07\par {\f6  }Tolerance min\tab = 1E-07\par \par )"},
        {nle_method::constrained,
         R"({\f6  }{\cf1\fs20 Conditions for solution}\par {\cf3\f6  [1] }x : Physically Positive \par )"
         R"({\cf3\f6  [2] }y : Absolutely Positive \par \par )"
         R"({\f6  }{\cf1\fs20 Settings }\par {\f6  }Convergence tolerance \tab = 1E-07\par )"
         R"({\f6  }Maxumum # of iterations \tab = 150\par {\f6  }# of iterations used\tab = 17\par \par )"},
    };
    for (const section& s : sections) {
        SCOPED_TRACE(method_text(s.method));
        const std::string report = nle_report({}, ended(s.method, cnle_code::converged, 0), store, {2026, 1, 2});
        EXPECT_NE(report.find(s.text), std::string::npos) << report;
        EXPECT_NE(report.find("NLES Report (" + std::string(method_text(s.method)) + ")}\\par \\par "),
                  std::string::npos);
    }
}

TEST(NleReport, NoRootSaysSoAndOneRootHasNoHeading)
{
    const nle_content none = test::single_of({implicit_row("x", "x^2 + 1", "0")}, "-2", "2", nle_method::safenewt);
    const std::string text = report_of({none, {}});
    EXPECT_NE(text.find(R"({\b\cf1\f5\fs21\ul NLE Solution }\par \par )"
                        R"({\b No solution was found. Please give better first estimates and try again.} \par \par )"
                        R"({\b\cf1\f5\fs21\ul NLE Report (safenewt)}\par \par )"),
              std::string::npos)
        << text;
    const nle_content one = test::single_of({implicit_row("x", "x - 1", "0")}, "0.5", "2");
    const std::string single = report_of({one, {}});
    EXPECT_NE(
        single.find(R"(NLE Solution }\par \par {\cf1\f6  \ul Variable      Value       f(x)       Ini Guess}\par )"),
        std::string::npos);
    EXPECT_EQ(single.find("Solution #"), std::string::npos);
}

TEST(NleReport, UserTextComesBackWhole)
{
    nle_content content = test::system_of({explicit_row("a", "1")});
    content.title = "\xCE\xA9 {x} \\par";
    content.rows[0].comment = "\xC3\xA9t\xC3\xA9 \\b {";
    const std::string plain = plain_text_of(read_rich_text(report_of({content, "/data/p\xC3\xA9.kvr"})));
    EXPECT_NE(plain.find(content.title), std::string::npos);
    EXPECT_NE(plain.find(content.rows[0].comment), std::string::npos);
    EXPECT_NE(plain.find("/data/p\xC3\xA9.kvr"), std::string::npos);
}

} // namespace
} // namespace kelvarin
