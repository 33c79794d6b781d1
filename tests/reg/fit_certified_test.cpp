// SPDX-License-Identifier: MIT
#include "numeric/fit/student_t.h"
#include "reg/fit_details.h"
#include "support/certified_problem.h"
#include "support/digits.h"
#include "support/tables.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kelvarin
{
namespace
{

using test::certified_problem;
using test::digits_shown;

/// A certified problem as a table, with its model and the guesses of a start.
fit_problem as_table(const certified_problem& certified, std::size_t start)
{
    const table_size size = {static_cast<int>(certified.y().size()), static_cast<int>(certified.columns.size())};
    fit_problem problem = {test::table_of(certified.texts, size), {}};
    problem.request.model = certified.model;
    for (const certified_problem::parameter& each : certified.parameters)
        if (!each.starts.empty())
            problem.request.guesses.push_back({each.name, test::shortest_text(each.starts[start])});
    return problem;
}

fit_outcome solved(const fit_problem& problem)
{
    recording_listener listener;
    return solve_regression(problem, settings(), listener);
}

struct nonlinear_case
{
    const char* name;
    nonlinear_method method;
    /// Of the sum of squares and of the parameters.
    double sum_digits, value_digits;
};

// Typed models, evaluated by rows in lanes, come to what the methods reach on functions of the same formula.
TEST(CertifiedRegression, TypedModelsShowTheDigitsOfTheMethods)
{
    using enum nonlinear_method;
    for (const nonlinear_case& each :
         {nonlinear_case{"misra1b", lm, 6.0, 3.1}, nonlinear_case{"chwirut1", lm, 6.0, 3.1},
          nonlinear_case{"danwood", lm, 6.0, 3.1}, nonlinear_case{"misra1c", lm, 6.0, 3.1},
          nonlinear_case{"misra1d", lm, 6.0, 3.1}, nonlinear_case{"gauss2", lm, 6.0, 3.1},
          nonlinear_case{"gauss3", lm, 6.0, 3.1}, nonlinear_case{"rat43", lm, 6.0, 3.1},
          nonlinear_case{"thurber", lm, 6.0, 3.1}, nonlinear_case{"eckerle4", lm, 2.4, 2.5},
          nonlinear_case{"mgh09", lm, 6.0, 3.1}, nonlinear_case{"danwood", mrqmin, 4.0, 2.5},
          nonlinear_case{"chwirut1", mrqmin, 2.0, 1.0}, nonlinear_case{"gauss2", mrqmin, 2.0, 1.0}}) {
        SCOPED_TRACE(each.name);
        const certified_problem certified = test::read_certified(each.name);
        fit_problem problem = as_table(certified, 1);
        problem.request.kind = regression::nonlinear;
        problem.request.method = each.method;
        const fit_outcome outcome = solved(problem);
        ASSERT_TRUE(outcome.has_report) << (outcome.boxes.empty() ? "" : outcome.boxes[0].text);
        const regression_fit& fit = outcome.fits.front();
        EXPECT_EQ(fit.n, static_cast<int>(certified.y().size()));
        EXPECT_GE(digits_shown(fit.statistics.SSE, certified.rss), each.sum_digits);
        for (const certified_problem::parameter& parameter : certified.parameters) {
            const auto place = std::ranges::find(fit.names, parameter.name);
            ASSERT_NE(place, fit.names.end()) << parameter.name;
            const auto j = static_cast<std::size_t>(place - fit.names.begin());
            EXPECT_GE(digits_shown(fit.values[j], parameter.value), each.value_digits) << parameter.name;
        }
    }
}

TEST(CertifiedRegression, LinearOnesThroughTheirPages)
{
    for (const auto& [name, degree, digits] :
         {std::tuple{"noint1", 1, 13.0}, {"pontius", 2, 10.0}, {"wampler2", 5, 5.5}, {"longley", 0, 6.5}}) {
        SCOPED_TRACE(name);
        const certified_problem certified = test::read_certified(name);
        fit_problem problem = as_table(certified, 0);
        fit_request& request = problem.request;
        request.kind = degree > 0 ? regression::polynomial : regression::multiple;
        request.dependent = "y";
        for (std::size_t i = 1; i < certified.texts.size(); ++i)
            request.independents.push_back(certified.texts[i].first);
        request.degrees = {degree};
        request.through_origin = certified.parameters.front().name == "a1";
        const fit_outcome outcome = solved(problem);
        ASSERT_TRUE(outcome.has_report);
        const regression_fit& fit = outcome.fits.front();
        ASSERT_EQ(fit.values.size(), certified.parameters.size());
        const int df = fit.n - static_cast<int>(fit.values.size());
        for (std::size_t j = 0; j < fit.values.size(); ++j) {
            EXPECT_EQ(fit.names[j], certified.parameters[j].name);
            EXPECT_GE(digits_shown(fit.values[j], certified.parameters[j].value), digits) << j;
            if (const double deviation = certified.parameters[j].standard_deviation; deviation > 0.0) {
                EXPECT_GE(digits_shown(fit.conf[j], deviation * Td(df)), digits - 1.0) << j;
            }
        }
    }
}

TEST(CertifiedRegression, PolishingAnEarlyEndReachesTheMinimum)
{
    // Ends of mrqmin that are far from the minimum, and polynomials whose normal equations lost digits.
    recording_listener listener;
    for (const char* name : {"boxbod",   "chwirut1", "chwirut2", "danwood", "eckerle4", "enso",   "gauss2",  "gauss3",
                             "lanczos1", "lanczos2", "lanczos3", "mgh09",   "mgh10",    "mgh17",  "misra1a", "misra1b",
                             "misra1c",  "misra1d",  "rat42",    "rat43",   "roszman1", "thurber"})
        for (const nonlinear_method method : {nonlinear_method::mrqmin, nonlinear_method::lm})
            for (const std::size_t start : {std::size_t{0}, std::size_t{1}}) {
                SCOPED_TRACE(name + std::to_string(start + 1) + method_text(method));
                const certified_problem certified = test::read_certified(name);
                fit_problem problem = as_table(certified, start);
                problem.request.kind = regression::nonlinear;
                problem.request.method = method;
                const fit_outcome outcome = solved(problem);
                // The far start may end with a message or a warning, but never with wrong digits without either.
                const bool far = start == 0;
                if (far && !outcome.has_report) continue;
                ASSERT_TRUE(outcome.has_report);
                const polished_fit polished = polish_fit(outcome, listener);
                ASSERT_TRUE(polished.has_report);
                if (far && !polished.converged) continue;
                EXPECT_TRUE(polished.converged);
                for (std::size_t j = 0; j < polished.fit.names.size(); ++j) {
                    const auto parameter = std::ranges::find(certified.parameters, polished.fit.names[j],
                                                             &certified_problem::parameter::name);
                    EXPECT_GE(digits_shown(polished.fit.values[j], parameter->value), 8.0) << parameter->name;
                    // The residuals of Lanczos1 are the rounding of its data.
                    if (certified.rss < 1e-20) continue;
                    const int df = polished.fit.n - static_cast<int>(polished.fit.names.size());
                    EXPECT_GE(digits_shown(polished.fit.conf[j], parameter->standard_deviation * Td(df)), 5.0);
                }
            }
    const certified_problem certified = test::read_certified("wampler4");
    fit_problem problem = as_table(certified, 0);
    problem.request.dependent = "y";
    problem.request.independents = {"x"};
    problem.request.degrees = {5};
    const fit_outcome outcome = solved(problem);
    EXPECT_LT(examine_fits(outcome, listener).details.at(0).agreeing_digits, 8.0);
    const polished_fit polished = polish_fit(outcome, listener);
    for (std::size_t j = 0; j < certified.parameters.size(); ++j)
        EXPECT_GE(digits_shown(polished.fit.values.at(j), certified.parameters[j].value), 7.5) << j;
}

} // namespace
} // namespace kelvarin
