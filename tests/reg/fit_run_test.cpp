// SPDX-License-Identifier: MIT
#include "reg/fit_run.h"
#include "reg/nonlinear_model.h"
#include "reg/polynomial_text.h"
#include "reg/regression_lists.h"
#include "reg/table/table_document.h"
#include "reg/table/table_file.h"
#include "support/digits.h"
#include "support/table.h"
#include "support/tables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace kelvarin
{
namespace
{

using test::digits_shown;
using test::table_of;

/// Squares and a bit, a column of text that can take a model, and a formula column.
table_content measured()
{
    return table_of({{"T", {"0", "1", "2", "3", "4"}},
                     {"P", {"1.1", "1.9", "5.2", "9.8", "17.1"}},
                     {"Q", {"1", "1", "2", "2", "3"}},
                     {"M", {}}},
                    {6, 4});
}

fit_request polynomial(std::vector<int> degrees)
{
    return {.dependent = "P", .independents = {"T"}, .degrees = std::move(degrees)};
}

fit_request nonlinear(std::string model, std::vector<table_guess> guesses,
                      nonlinear_method method = nonlinear_method::lm)
{
    return {.kind = regression::nonlinear, .method = method, .model = std::move(model), .guesses = std::move(guesses)};
}

fit_outcome solved(const fit_problem& problem)
{
    recording_listener listener;
    return solve_regression(problem, settings(), listener);
}

fit_outcome solved(const table_content& content, const fit_request& request)
{
    return solved({content, request});
}

std::string box_of(const fit_outcome& outcome)
{
    EXPECT_FALSE(outcome.has_report);
    return outcome.boxes.size() == 1 ? outcome.boxes[0].text : std::to_string(outcome.boxes.size()) + " boxes";
}

TEST(Regression, ListsFollowTheTable)
{
    const regression_lists lists = initialize_regression(measured());
    EXPECT_EQ(lists.numeric_columns, (std::vector<std::string>{"T", "P", "Q"}));
    EXPECT_EQ(lists.model_columns, (std::vector<std::string>{"M"}));
    EXPECT_EQ(without_dependent(lists.numeric_columns, "P"), (std::vector<std::string>{"T", "Q"}));
    EXPECT_EQ(highest_degree(measured(), "P", "T", false), 4);
    EXPECT_EQ(highest_degree(measured(), "P", "T", true), 5);
    // The last row of a full table is left out.
    EXPECT_EQ(highest_degree(table_of({{"T", {"1", "2", "3"}}, {"P", {"1", "2", "3"}}}, {3, 2}), "P", "T", false), 1);
    EXPECT_EQ(highest_degree(measured(), "P", "M", false), 1);
    table_content wide({10, 201});
    for (int column = 0; column < 201; ++column)
        wide.cells.set_column(column, {"1", "2", "", "", "", "", "", "", "", ""});
    EXPECT_THROW(initialize_regression(wide), runtime_failure);
}

TEST(Regression, RefusalsInTheirOrder)
{
    const table_content content = measured();
    fit_request same = polynomial({});
    same.independents = {"P"};
    fit_request bounds = polynomial({1});
    bounds.integral_bounds = {"1", "x"};
    bounds.derivative_point = "";
    fit_request point = polynomial({1});
    point.derivative_point = "1,5";
    const fit_request among = {.kind = regression::multiple, .dependent = "P", .independents = {"T", "P"}};
    const fit_request nothing = {.kind = regression::multiple, .dependent = "P"};
    const test::table<fit_request, std::string, box_icon> cases = {
        {same, "Invalid data entry : \rDependent varible must not be the same as the independent variable.",
         box_icon::exclamation},
        {polynomial({}), "Invalid data entry : \rUser must select at least one polynomial degree.",
         box_icon::exclamation},
        {bounds, "Invalid data entry : \rUpper and Lower integration boundaries are not numeric values.",
         box_icon::exclamation},
        {point, "Invalid data entry : \rDerivative data point is not a numeric value.", box_icon::exclamation},
        {among,
         "Invalid data entry : \rDependent varible must not be the same as any one of the independent variables.",
         box_icon::exclamation},
        {nothing, "Invalid data entry : \rUser must select at least one independent variables.", box_icon::exclamation},
        {nonlinear("P = a*T +* b", {{"a", "1"}, {"b", ""}}),
         "Invalid data entry : \rInvalid numeric format for 'b' initial guess", box_icon::exclamation},
        {nonlinear("P = a*T)", {{"a", "1"}}), "", box_icon::critical},
        {nonlinear("a*2", {{"a", "1"}}), "Independent variable/s not specified in the model.", box_icon::exclamation},
        {nonlinear("a*T", {{"a", "1"}}),
         "The nonlinear model was not entered properly. Use the format: <dep var> = <nonlinear expression>",
         box_icon::exclamation},
        {nonlinear("V = a*T", {{"a", "1"}}), "Y function is not a valid column name.", box_icon::exclamation},
        {nonlinear("P = T", {}), "Error: Subscript out of range", box_icon::critical},
    };
    for (const auto& [request, text, icon] : cases) {
        const fit_outcome outcome = solved(content, request);
        if (text.empty())
            EXPECT_TRUE(box_of(outcome).starts_with("Syntax Error: ")) << box_of(outcome);
        else
            EXPECT_EQ(box_of(outcome), text);
        EXPECT_EQ(outcome.boxes.at(0).icon, icon) << text;
        EXPECT_EQ(outcome.boxes.at(0).title, "Kelvarin Guide");
    }
}

TEST(Regression, APolynomialThroughItsPoints)
{
    // y = 2 - 3 x + x^2 at 0 .. 4; the integral from 1 to 3 is 2/3, the derivative at 2 is 1.
    fit_problem problem = {table_of({{"x", {"0", "1", "2", "3", "4"}}, {"y", {"2", "0", "0", "2", "6"}}, {"m", {}}}),
                           {.dependent = "y",
                            .independents = {"x"},
                            .degrees = {2},
                            .derivative_point = "2",
                            .integral_bounds = {{"1", "3"}},
                            .graph = true,
                            .residuals = true,
                            .model_column = "m"},
                           7};
    const fit_outcome outcome = solved(problem);
    ASSERT_TRUE(outcome.has_report);
    const regression_fit& fit = outcome.fits.at(0);
    EXPECT_EQ(fit.names, (std::vector<std::string>{"a0", "a1", "a2"}));
    EXPECT_NEAR(fit.values[0], 2.0, 1e-11);
    EXPECT_NEAR(fit.values[1], -3.0, 1e-11);
    EXPECT_NEAR(fit.values[2], 1.0, 1e-11);
    EXPECT_NEAR(*fit.integral, 2.0 / 3.0, 1e-11);
    EXPECT_NEAR(*fit.derivative, 1.0, 1e-11);
    ASSERT_EQ(outcome.graphs.size(), 2U);
    EXPECT_EQ(outcome.graphs[0].caption, "Polynomial Regression Graph, Solution #7.2");
    EXPECT_EQ(outcome.graphs[0].columns[0].name, "x");
    EXPECT_EQ(outcome.graphs[0].columns[1].values, (std::vector<double>{2, 0, 0, 2, 6}));
    EXPECT_EQ(outcome.graphs[0].function_text, "2.000E00 -3.0000000000E0*x + 1.0000000000E0*x^2");
    EXPECT_EQ(outcome.graphs[1].caption, "Polynomial Regression Residuals, Solution #7.2");
    EXPECT_EQ(outcome.graphs[1].columns[0].name, "y exp");
    EXPECT_EQ(outcome.graphs[1].columns[1].name, "yexp -ycalc");
    EXPECT_EQ(outcome.graphs[1].function_text, "0");
    ASSERT_TRUE(outcome.stored);
    EXPECT_EQ(outcome.stored->formula, "2-3*x+1*x^2");
    EXPECT_EQ(outcome.stored->column, 2);
    EXPECT_EQ(outcome.stored->cells.size(), 5U);
    EXPECT_EQ(outcome.stored->cells[4], "6");
    EXPECT_EQ(report_caption(problem), "Polynomial Regression Report, Solution #7");
    problem.request.degrees = {1};
    EXPECT_EQ(report_caption(problem), "Linear Regression Report, Solution #7");
}

TEST(Regression, ThroughTheOriginCoefficientsBeginWithTheFirstPower)
{
    fit_request request = polynomial({1});
    request.through_origin = request.graph = true;
    // sum x y / sum x^2 by hand.
    const fit_outcome outcome = solved(measured(), request);
    const regression_fit& fit = outcome.fits.at(0);
    EXPECT_EQ(fit.names, (std::vector<std::string>{"a1"}));
    EXPECT_GE(digits_shown(fit.values[0], (1.9 + 10.4 + 29.4 + 68.4) / 30.0), 14.0);
    EXPECT_EQ(outcome.graphs.at(0).function_text, "3.6700000000E0*x");
}

TEST(Regression, APageOfOneVariableAgreesWithTheOthers)
{
    const table_content content = measured();
    const regression_fit line = solved(content, polynomial({1})).fits.at(0);
    fit_request multiple = {.kind = regression::multiple,
                            .dependent = "P",
                            .independents = {"T"},
                            .graph = true,
                            .residuals = true,
                            .model_column = "M"};
    const fit_outcome outcome = solved(content, multiple);
    EXPECT_EQ(outcome.fits.at(0).values, line.values);
    EXPECT_EQ(outcome.fits.at(0).conf, line.conf);
    EXPECT_EQ(outcome.graphs.at(0).caption, "Multiple Linear Graph, Solution #1");
    EXPECT_EQ(outcome.graphs[0].columns[1].name, "P calc");
    EXPECT_EQ(outcome.graphs[0].columns[2].name, "P expr");
    EXPECT_EQ(outcome.graphs.at(1).caption, "Multiple Linear Residuals Graph, Solution #1");
    // By hand: slope 39.9 / 10, mean of P 7.02 at T = 2.
    EXPECT_EQ(outcome.stored->formula, "-0.96+3.99*T");
    for (const nonlinear_method method : {nonlinear_method::lm, nonlinear_method::mrqmin}) {
        const fit_outcome free = solved(content, nonlinear("P = a+b*T", {{"a", "1"}, {"b", "2"}}, method));
        EXPECT_GE(digits_shown(free.fits.at(0).values[1], line.values[1]), 6.0);
        EXPECT_GE(digits_shown(free.fits[0].conf[1], line.conf[1]), 6.0);
    }
}

TEST(Regression, EarlierDegreesStayWhenALaterOneFails)
{
    // Three rows: the fourth degree has a singular normal matrix, the second leaves no degree of freedom.
    const table_content content = table_of({{"T", {"0", "1", "2"}}, {"P", {"1", "2", "5"}}, {"M", {}}});
    fit_request request = polynomial({1, 2, 3});
    request.graph = true;
    request.model_column = "M";
    const fit_outcome outcome = solved(content, request);
    EXPECT_TRUE(box_of(outcome).find("\rInternal Error trapped (") != std::string::npos) << box_of(outcome);
    ASSERT_GE(outcome.fits.size(), 2U);
    EXPECT_EQ(outcome.fits[1].statistics.Variance, 1e99);
    EXPECT_EQ(outcome.fits[1].conf, (std::vector<double>{0, 0, 0}));
    EXPECT_GE(outcome.graphs.size(), 2U);
    EXPECT_TRUE(outcome.stored);
    // A constant column: the fit stands and is handed over, only its statistics fail.
    const table_content constant = table_of({{"T", {"0", "1", "2", "3"}}, {"P", {"5", "5", "5", "5"}}, {"M", {}}});
    request.degrees = {1};
    const fit_outcome flat = solved(constant, request);
    EXPECT_EQ(box_of(flat), "Division by zero\rInternal Error trapped (11 )");
    EXPECT_EQ(flat.graphs.size(), 1U);
    EXPECT_TRUE(flat.stored);
}

TEST(Regression, MultipleAsksForMoreRowsThanVariables)
{
    table_content content = table_of({{"y", {"1", "2", "4"}}, {"u", {"1", "2", "1"}}, {"v", {"3", "1", "1"}}});
    fit_request request = {.kind = regression::multiple, .dependent = "y", .independents = {"u", "v"}};
    EXPECT_EQ(solved(content, request).fits.at(0).statistics.R2adj, 0.0);
    content.cells.set_cell(2, 1, "");
    const std::string insufficient = "Insufficient data sets for regression. Either reduce the number of independent "
                                     "variables or add data sets.\rCalculation aborted.";
    EXPECT_EQ(box_of(solved(content, request)), insufficient);
    request.through_origin = true;
    EXPECT_TRUE(solved(content, request).has_report);
    content.cells.set_cell(1, 1, "2x");
    EXPECT_EQ(box_of(solved(content, request)), "Type mismatch\rInternal Error trapped (13 )");
    request.independents = {"u", "u"};
    content.cells.set_cell(1, 1, "2");
    EXPECT_EQ(box_of(solved(content, request)), "Numeric failure\rInternal Error trapped (8888 Singular matrix when "
                                                "evaluating inverse matrix)");
}

TEST(Regression, ANonlinearRunEndsWithTheEvaluatorsWords)
{
    const fit_outcome negative = solved(measured(), nonlinear("P = ln(a-T)", {{"a", "2"}}));
    EXPECT_TRUE(box_of(negative).find("Internal Error trapped (8888 ") != std::string::npos) << box_of(negative);
    EXPECT_TRUE(negative.fits.empty());
    std::string sum = "P = T";
    std::vector<table_guess> guesses;
    for (int j = 1; j <= 61; ++j) {
        guesses.push_back({"b" + std::to_string(j), "1"});
        sum += "+" + guesses.back().name;
    }
    EXPECT_EQ(box_of(solved(measured(), nonlinear(sum, guesses))), "Error: Subscript out of range");
    recording_listener stopped;
    stopped.ask_to_stop();
    const fit_outcome none = solve_regression({measured(), nonlinear("P = a*T", {{"a", "2"}})}, settings(), stopped);
    EXPECT_TRUE(none.stopped);
}

TEST(Regression, ModelColumnsComeBackFromTheFile)
{
    fit_request line = polynomial({2});
    fit_request columns = {.kind = regression::multiple, .dependent = "P", .independents = {"T", "Q"}};
    fit_request curve = nonlinear("P = a+b*T^c", {{"a", "1"}, {"b", "1"}, {"c", "2"}});
    for (fit_request* request : {&line, &columns, &curve}) {
        request->model_column = "M";
        const fit_outcome outcome = solved(measured(), *request);
        ASSERT_TRUE(outcome.stored);
        table_document table({6, 4});
        table.start_with(measured());
        table.store_model_column(outcome.stored->column, outcome.stored->formula, outcome.stored->cells);
        const auto read = read_table(write_table(table.content()), table_content({6, 4}));
        ASSERT_TRUE(read);
        EXPECT_EQ(read->formula(3), outcome.stored->formula);
        for (int row = 0; row < 5; ++row)
            EXPECT_EQ(read->cells.text(row, 3), outcome.stored->cells.at(static_cast<std::size_t>(row)));
    }
}

TEST(Regression, TheFormulaOfAModelHoldsNoParameter)
{
    const std::vector<std::string> names = {"a", "b"};
    const double values[] = {-0.51234, 12345.6};
    const test::table<const char*, std::string> cases = {
        {"a*T^b", "(-5.123e-1)*T^(1.235e4)"},
        {"if (T<a) then b else a2", "if (T < (-5.123e-1)) then (1.235e4) else a2"},
        {"if (T>=b) then 1 else b", "if (T >=(1.235e4)) then 1 else (1.235e4)"}};
    for (const auto& [expression, formula] : cases)
        EXPECT_EQ(model_formula(expression, names, values), formula);
    EXPECT_FALSE(entry_fault("y", "a*gamma_y"));
    EXPECT_EQ(entry_fault("y", "a*y+1")->text, "Dependent variable can not be part of the model text (y).");
    EXPECT_EQ(entry_fault("y", " \n")->text, "No regression model was entered.");
}

TEST(PolynomialText, SignsJoinTheTerms)
{
    const double coef[] = {1.0, 2.0, -0.5};
    const std::vector<polynomial_term> terms = polynomial_terms(coef, true);
    EXPECT_EQ(polynomial_text(terms, "x"), "1 + 2*x -0.5*x^2");
    EXPECT_EQ(polynomial_formula(terms, "x"), "1+2*x-0.5*x^2");
    EXPECT_EQ(polynomial_text(differentiated(terms), "x"), "2 -1*x");
    EXPECT_EQ(polynomial_text(integrated(terms), "x"), "1*x + 1*x^2 -0.1666667*x^3");
    EXPECT_EQ(polynomial_text(polynomial_terms(coef, false), "T"), "1*T + 2*T^2 -0.5*T^3");
}

} // namespace
} // namespace kelvarin
