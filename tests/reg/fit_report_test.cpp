// SPDX-License-Identifier: MIT
#include "reg/fit_report.h"
#include "shell/report/rich_text.h"
#include "support/golden.h"
#include "support/tables.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

using test::table_of;

void expect_report(const std::string& name, fit_request request)
{
    // With these numbers coefficients and statistics come out by hand, but for the nonlinear models.
    table_content content = table_of({{"x", {"0", "1", "2", "3", "4"}},
                                      {"P_1", {"2.5", "-0.5", "0", "2.5", "5.5"}},
                                      {"z", {"1", "0", "0", "1", "3"}}});
    content.title = "Braces {kept}";
    const fit_problem problem = {content, std::move(request)};
    settings store;
    recording_listener listener;
    const fit_outcome outcome = solve_regression(problem, store, listener);
    ASSERT_TRUE(outcome.has_report) << outcome.boxes.at(0).text;
    test::expect_golden("reg/" + name, test::by_lines(fit_report(problem, outcome, store, {2026, 1, 2})));
}

TEST(FitReport, OfEachRegression)
{
    expect_report("polynomials.rtf", {.dependent = "P_1",
                                      .independents = {"x"},
                                      .degrees = {1, 2},
                                      .derivative_point = "2.0",
                                      .integral_bounds = {{"0", "1e0"}}});
    expect_report("line_through_origin.rtf",
                  {.dependent = "P_1", .independents = {"x"}, .through_origin = true, .degrees = {1}});
    expect_report("multiple.rtf", {.kind = regression::multiple, .dependent = "P_1", .independents = {"x", "z"}});
    const std::vector<table_guess> guesses = {{"slope", "1"}, {"start_value_", "2"}};
    expect_report("mrqmin.rtf",
                  {.kind = regression::nonlinear, .model = "P_1=start_value_*z+slope*x", .guesses = guesses});
    expect_report("lm.rtf", {.kind = regression::nonlinear,
                             .method = nonlinear_method::lm,
                             .model = "P_1 = start_value_*z+slope*x",
                             .guesses = guesses});
}

} // namespace
} // namespace kelvarin
