// SPDX-License-Identifier: MIT
#include "reg/column_analysis.h"

#include "reg/analysis_drawing.h"
#include "reg/scatter_start.h"
#include "reg/value_table.h"
#include "support/digits.h"
#include "support/table.h"
#include "support/tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <sstream>

namespace kelvarin::test
{
namespace
{

using enum analysis_kind;
using testing::ElementsAre;

constexpr analysis_columns x_and_y = {0, 1};

/// A table of y at so many equal steps from a to b, with room below.
template <class Function> table_content tabulated(Function y, double a, double b, int steps)
{
    std::vector<std::string> xs;
    std::vector<std::string> ys;
    for (int i = 0; i <= steps; ++i) {
        const double x = a + (b - a) * i / steps;
        xs.push_back(std::to_string(x));
        std::ostringstream text;
        text.precision(std::numeric_limits<double>::max_digits10);
        text << y(std::stod(xs.back()));
        ys.push_back(text.str());
    }
    return table_of({{"x", xs}, {"y", ys}}, {steps + 3, 3});
}

analysis_outcome solve(const table_content& content, analysis_kind kind, const std::string& at,
                       const std::string& to = "", std::size_t method = 0)
{
    recording_listener listener;
    return solve_analysis(content, {kind, x_and_y, method, at, to}, listener);
}

std::string box_of(const run_outcome& outcome)
{
    return outcome.has_report || outcome.boxes.size() != 1 ? "no box" : outcome.boxes.front().text;
}

TEST(ColumnAnalysis, ThreeResultsAreThoseOfKnownFunctions)
{
    const table_content hyperbola = tabulated([](double x) { return 1.0 / (1.0 + x); }, 0, 4, 2);
    const table_content cubic = tabulated([](double x) { return x * x * x - 2.0 * x; }, -1, 3, 8);
    const table_content line = tabulated([](double x) { return 3.0 - 2.0 * x; }, 0, 5, 5);
    constexpr double rough = 2.0;
    constexpr double exact = 12.0;
    const table<const char*, table_content, analysis_kind, const char*, const char*, double, std::vector<double>> rows =
        {
            {"a hyperbola is rational", hyperbola, interpolation, "1", "", 0.5, {exact, 0.4, 0.4}},
            {"a node", hyperbola, interpolation, "2", "", 1.0 / 3.0, {exact, exact, exact}},
            {"the last node", hyperbola, interpolation, "4", "", 0.2, {exact, exact, exact}},
            {"a cubic's derivative", cubic, differentiation, "1.2", "", 2.32, {1.5, exact, rough}},
            {"a line's derivative", line, differentiation, "3.3", "", -2.0, {5.0, exact, exact}},
            {"a cubic's integral", cubic, integration, "-1", "3", 12.0, {rough, rough, exact}},
            {"between nodes", line, integration, "0.7", "4.3", -7.2, {10.0, exact, exact}},
            {"backwards", line, integration, "4.3", "0.7", 7.2, {10.0, exact, exact}},
        };
    for (const auto& [name, content, kind, at, to, expected, digits] : rows) {
        SCOPED_TRACE(name);
        const analysis_outcome outcome = solve(content, kind, at, to);
        ASSERT_TRUE(outcome.has_report) << box_of(outcome);
        EXPECT_EQ(outcome.n, content.rows() - 2);
        for (std::size_t method = 0; method < digits.size(); ++method)
            EXPECT_GE(digits_shown(outcome.values[method], expected), digits[method]) << outcome.values[method];
    }
}

// The sine has no curvature at 0 and pi, as the spline, whose error is then of the fourth order; so is that of
// Simpson's rule. The slope of the spline is of the fourth order at a node, that of a cubic through four points of the
// third.
TEST(ColumnAnalysis, HalfTheStepHasAnEighthOrASixteenthOfTheError)
{
    constexpr double end = 3.141593;
    const auto errors = [](int steps) {
        const table_content sine = tabulated([](double x) { return std::sin(x); }, 0, end, steps);
        const analysis_outcome integral = solve(sine, integration, "0", std::to_string(end));
        const std::string node = std::to_string(end / 4.0);
        const analysis_outcome slope = solve(sine, differentiation, node);
        const double exact = std::cos(std::stod(node));
        return std::array{integral.values[1] - 2.0, integral.values[2] - 2.0, slope.values[1] - exact,
                          slope.values[2] - exact};
    };
    const auto coarse = errors(16);
    const auto fine = errors(32);
    const std::array expected = {16.0, 16.0, 8.0, 16.0};
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(coarse[i] / fine[i], expected[i], 1.0) << i;
}

TEST(ColumnAnalysis, DeviationErrorAndWarningFollowTheThreeResults)
{
    // RATINT: 2/(3 - x) = 0.8; SPLINT: (2/3 + 1) / 2 - 0.375 y'' / 6 with y'' = 1; LINEAR: 5/6.
    const table_content three = table_of({{"x", {"2", "0", "1"}}, {"y", {"2", "0.66666666666666667", "1"}}});
    const analysis_outcome smooth = solve(three, interpolation, "0.5");
    ASSERT_TRUE(smooth.has_report);
    EXPECT_EQ(smooth.n, 3);
    EXPECT_NEAR(smooth.values[0], 0.8, 1e-14);
    EXPECT_NEAR(smooth.values[1], 0.7708333333333333, 1e-14);
    EXPECT_NEAR(smooth.values[2], 0.8333333333333333, 1e-14);
    // The mean is 0.80138889, the distances 0.00138889, 0.03055556 and 0.03194444.
    EXPECT_EQ(deviation_text(smooth.deviation), "Dev = 2.66%");
    EXPECT_FALSE(smooth.warns);
    ASSERT_TRUE(smooth.error);
    EXPECT_GE(*smooth.error, 0.0);
    EXPECT_FALSE(solve(three, interpolation, "0.5", "", 1).error);
    EXPECT_EQ(error_text(0.00001234), "Err = 1.234E-05");
    EXPECT_EQ(three.cells.text(0, 0), "2") << "only the working arrays are sorted";

    // Beside the peak the spline swings below 0; the integrals see little of it.
    const table_content peak =
        table_of({{"x", {"0", "1", "2", "3", "4", "5"}}, {"y", {"1", "1.2", "0.9", "50", "1.1", "0.8"}}}, {8, 2});
    EXPECT_TRUE(solve(peak, interpolation, "1.5").warns);
    EXPECT_TRUE(solve(peak, differentiation, "1.5").warns);
}

TEST(ColumnAnalysis, RequestsThatCanNotBeAnsweredSayWhy)
{
    const table_content line = table_of({{"x", {"1", "2", "3", "4"}}, {"y", {"-1.5", "-0.5", "0.5", "1.5"}}}, {6, 2});
    const table_content three = table_of({{"x", {"1", "2", "3"}}, {"y", {"1", "2", "5"}}});
    const table_content twice = table_of({{"x", {"3", "1", "1.0"}}, {"y", {"1", "2", "5"}}});
    const table_content full = table_of({{"x", {"1", "2"}}, {"y", {"1", "2"}}}, {2, 2});
    const table_content large = table_of({{"x", {"1", "1e999", "3"}}, {"y", {"1", "2", "5"}}});
    const table_content zeros = table_of({{"x", {"1", "2", "3"}}, {"y", {"0", "0", "0"}}});
    const char* const outside = "Independent variable value must be inside the range where x data is available.";
    const char* const outside_integral = "Integration range must be inside the range where x data is available.";
    const char* const divided = "Internal Error trapped.  (Division by zero). ";
    const table<table_content, analysis_kind, const char*, const char*, const char*> rows = {
        {line, interpolation, "2.5", "", "Internal Error trapped.  (Error in routine ratint). "},
        {line, interpolation, "0.999", "", outside},
        {line, differentiation, "4.001", "", outside},
        {line, integration, "1", "4.1", outside_integral},
        {line, integration, "0.9", "4", outside_integral},
        {line, integration, "2", "2", divided},
        {zeros, interpolation, "2", "", divided},
        {line, integration, "1", "4a", "The bounds of the integration must be numeric values."},
        {line, interpolation, "", "", "Independent variable value must be a numeric value."},
        {three, differentiation, "2", "", "At least four data points are required for this evaluation."},
        {three, interpolation, "3", "", "no box"},
        {twice, interpolation, "2", "", "Duplicate values not allowed in x vector (1)."},
        {table_of({}), interpolation, "2", "", "Duplicate values not allowed in x vector (0)."},
        {large, interpolation, "2", "", "Internal Error trapped.  (Overflow). "},
        {full, interpolation, "1", "", "Internal Error trapped.  (Subscript out of range). "},
    };
    for (const auto& [content, kind, at, to, box] : rows)
        EXPECT_EQ(box_of(solve(content, kind, at, to)), box) << at << ' ' << to;
    recording_listener listener;
    EXPECT_EQ(solve_analysis(line, {interpolation, {}, 0, "1", ""}, listener).n, 2) << "no columns";
}

TEST(ValueTable, NeedsPointsAndLeavesPolesBlank)
{
    // A rational function through a straight line has a pole half-way between neighbours where the line is 0.
    table_content line = table_of({{"x", {"1", "2", "3", "4"}}, {"y", {"-1.5", "-0.5", "0.5", "1.5"}}}, {6, 2});
    recording_listener listener;
    const auto fill = [&](const analysis_request& request, int count) {
        return fill_table_of_values(line, request, count, listener);
    };
    value_table filled = fill({interpolation, x_and_y, 0, "", ""}, 7);
    line = filled.content;
    EXPECT_EQ(filled.column, 2);
    EXPECT_EQ(line.columns(), 4);
    EXPECT_EQ(line.rows(), 8) << "one row more than is filled";
    EXPECT_EQ(cells_of(line, 2, 7), "1 1.5 2 2.5 3 3.5 4");
    EXPECT_EQ(line.cells.text(3, 3), "");
    EXPECT_EQ(line.cells.text(6, 3), "1.5");
    EXPECT_EQ(listener.fraction(), 1.0);
    filled = fill({integration, x_and_y, 1, "", ""}, 2);
    EXPECT_EQ(filled.column, 4);
    EXPECT_EQ(filled.content.name(4), "x_table_2");
    EXPECT_EQ(cells_of(filled.content, 5, 2), "0 0");
    EXPECT_EQ(box_of(fill_table_of_values(filled.content, {differentiation, {2, 5}, 0, "", ""}, 5, listener)),
              "At least four data points are required for this evaluation.");
}

TEST(ColumnAnalysis, AskedToStopEndsBeforeItsResult)
{
    std::vector<std::string> numbers;
    for (int i = 0; i < 20000; ++i)
        numbers.push_back(std::to_string(i));
    const table_content content = table_of({{"x", numbers}, {"y", numbers}}, {20001, 2});
    recording_listener listener;
    listener.ask_to_stop();
    for (const analysis_kind kind : {interpolation, integration}) {
        const analysis_outcome outcome = solve_analysis(content, {kind, x_and_y, 0, "0.5", "9.5"}, listener);
        EXPECT_TRUE(outcome.stopped);
        EXPECT_FALSE(outcome.has_report);
    }
    EXPECT_TRUE(fill_table_of_values(content, {interpolation, x_and_y, 0, "", ""}, 9999, listener).stopped);
}

TEST(AnalysisDrawing, MarksDataAndPlacesOnThePage)
{
    analysis_points points = {{0, 1, 2, 3}, {0, 1, 8, 27}};
    const graph_content graph = analysis_graph(points, "t", "p");
    EXPECT_EQ(graph.curve_count(), 3u);
    EXPECT_LE(graph.y_range.min, 0.0);
    EXPECT_GE(graph.y_range.max, 27.0);
    const std::vector<double> marked = {0.5, std::nan("")};
    const drawn_picture picture = draw_analysis(graph, points, marked, {.width = 200.0, .height = 120.0});
    std::vector<std::size_t> counts;
    for (const drawn_shape& shape : picture.shapes)
        if (const auto* markers = std::get_if<drawn_markers>(&shape)) counts.push_back(markers->points.size());
    EXPECT_THAT(counts, ElementsAre(4, 1));
}

TEST(ScatterStart, TakesTheRowsInWhichAllColumnsHoldSomething)
{
    const table_content content = table_of({{"t", {"3", "1", "2"}}, {"p", {"5", "6", "7"}}, {"q", {"8", "9"}}}, {3, 3});
    const scatter_outcome both =
        start_scatter_graph(content, {.x = 0, .y = {1, 2}, .connected = false, .points = true});
    ASSERT_TRUE(both.has_report);
    EXPECT_EQ(both.start.caption, "Scatter points graph");
    EXPECT_THAT(both.start.columns[0].values, ElementsAre(3, 1));
    EXPECT_THAT(both.start.columns[2].values, ElementsAre(8, 9));
    EXPECT_EQ(both.start.columns[2].name, "q");
    EXPECT_FALSE(both.start.connected);
    EXPECT_TRUE(both.start.points);
    EXPECT_EQ(start_scatter_graph(content, {.x = 0, .y = {1}}).start.columns[1].values.size(), 3u) << "the last row";
    EXPECT_FALSE(start_scatter_graph(content, {.x = 0, .y = {}}).has_report);
    EXPECT_FALSE(start_scatter_graph(table_of({}), {.x = 0, .y = {1}}).has_report);
}

} // namespace
} // namespace kelvarin::test
