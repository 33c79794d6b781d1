// SPDX-License-Identifier: MIT
#include "opt/opt_graph.h"
#include "opt/opt_map.h"
#include "opt/opt_report.h"
#include "opt/opt_samples.h"
#include "opt/opt_system.h"
#include "support/golden.h"
#include "support/opt_problems.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <variant>

namespace kelvarin
{
namespace
{

using test::run_of;
using test::target_of;

constexpr opt_method all_methods[] = {opt_method::conjugate_grad, opt_method::quasi_newton, opt_method::dfpmin};

TEST(OptRun, TheFirstSampleIsABowlForEveryMethod)
{
    for (const opt_method method : all_methods) {
        SCOPED_TRACE(method_text(method));
        opt_content content = opt_samples()[0];
        content.method = method;
        const opt_outcome outcome = run_of(content);
        ASSERT_TRUE(outcome.has_report);
        const std::vector<double> minimizer = {1.124, 2.033, -3.40192};
        for (std::size_t i = 0; i < minimizer.size(); ++i)
            EXPECT_NEAR(outcome.x[i], minimizer[i], 1e-8);
        EXPECT_NEAR(outcome.objective, -3012.5, 1e-9);
        EXPECT_NEAR(outcome.start_value, 0.876 * 0.876 + 29.967 * 29.967 + 8.59808 * 8.59808 - 3012.5, 1e-9);
        EXPECT_EQ(outcome.explicit_values, std::vector<double>{3012.5});
    }
}

TEST(OptRun, TheOtherSamplesFallForEverOrLeaveTheirDomain)
{
    const auto sample = [](std::size_t number, opt_method method) {
        opt_content content = opt_samples()[number - 1];
        content.method = method;
        return run_of(content);
    };
    for (const opt_method method : {opt_method::conjugate_grad, opt_method::quasi_newton}) {
        // t^3 with a negative sign, until a step in t is lost in rounding.
        const opt_outcome endless = sample(2, method);
        EXPECT_EQ(endless.ending, conmin_ending::converged);
        EXPECT_GT(endless.x[0], 1e15);
        const opt_outcome valley = sample(3, method);
        EXPECT_NEAR(valley.x[0], 6.78054032, 1e-7);
    }
    EXPECT_EQ(sample(2, opt_method::dfpmin).boxes.front().text, "LNSRCH: Roundoff problem in lnsrch.");
    const opt_outcome left = sample(3, opt_method::dfpmin);
    EXPECT_EQ(left.boxes.front().title, "Expression evaluation error");
    EXPECT_EQ(left.boxes.front().text, "Error: Fractional exponent with negative mantissa not allowed.\rt ^ 1.2");
}

TEST(OptRun, WhatEndsARunIsABox)
{
    const test::table<opt_content, std::string, std::string> rows = {
        {target_of("x+q", {"x(0)=1"}), "Kelvarin Guide", "Undefined Variable: q"},
        {target_of("x", {"x(0)=1", "a = b", "b = a"}), "Kelvarin Guide",
         "Circular definition of explicit variables not allowed."},
        {target_of("x", {"x(0)=1", "a = a+1"}), "Kelvarin Guide",
         "Circular definition of explicit variables not allowed."},
        {target_of("x", {"x(0)=one"}), "Kelvarin Guide", "Type mismatch"},
        {target_of("x + 1/0", {"x(0)=1"}), "Expression evaluation error",
         "Error: Zero denominator not allowed.\r1 / 0"}};
    for (const auto& [content, title, text] : rows) {
        SCOPED_TRACE(text);
        const opt_outcome outcome = run_of(content);
        EXPECT_FALSE(outcome.has_report);
        ASSERT_EQ(outcome.boxes.size(), 1u);
        EXPECT_EQ(outcome.boxes[0].title, title);
        EXPECT_EQ(outcome.boxes[0].text, text);
    }
    opt_content many = target_of("x", {"x(0)=1"});
    many.rows.resize(201, many.rows.front());
    EXPECT_EQ(run_of(many).boxes.front().text,
              "Too many equations entered. Kelvarin can solve up to 200 equations only.");
    std::string sum = "x";
    for (int i = 0; i < 200; ++i)
        sum += "+x";
    EXPECT_TRUE(run_of(target_of(sum, {"x(0)=1"})).boxes.front().text.starts_with("Target function error.\r"));
    EXPECT_TRUE(run_of(target_of("x", {"x(0)=1", "a=2", "b = " + sum}))
                    .boxes.front()
                    .text.starts_with("Explicit expression # 2\r"));
}

TEST(OptRun, EndingsThatAreNoMinimum)
{
    // Two kinks, which no gradient of differences of 5 tells; a valley that is too long for 200 iterations.
    settings store;
    ASSERT_FALSE(store.set_value("opt_cg_eps", "0"));
    ASSERT_FALSE(store.set_value("opt_cg_MAXITER", "300"));
    const opt_content kinks = target_of("abs(x)+abs(y-1)", {"x(0) = 3", "y(0) = 7"});
    EXPECT_EQ(run_of(kinks, store).ending, conmin_ending::line_search_failed);
    EXPECT_EQ(run_of(opt_samples()[2]).ending, conmin_ending::converged);
    const opt_content valley = target_of("1000*(y-x^2)^2+(1-x)^2", {"x(0) = -100", "y(0) = 1"}, opt_method::dfpmin);
    EXPECT_EQ(run_of(valley).boxes.front().text, "too many iterations in dfpmin");
    // The slope along the direction, 0.1 * 9e-324, is below the least number.
    ASSERT_FALSE(store.set_value("opt_qn_eps", "0"));
    for (const opt_method method : {opt_method::conjugate_grad, opt_method::quasi_newton}) {
        const opt_content uphill = target_of("5*x^2+3E-162*y", {"x(0) = 1", "y(0) = 1"}, method);
        const opt_outcome outcome = run_of(uphill, store);
        EXPECT_EQ(outcome.ending, conmin_ending::no_descent_direction);
        EXPECT_EQ(outcome.x, (std::vector<double>{0.0, 1.0}));
    }
    const opt_outcome line = run_of(target_of("3-x", {"x(0) = 1"}));
    EXPECT_EQ(line.boxes.front().text, "Division by zero");
}

TEST(OptRun, AWishToStopIsNoFailure)
{
    recording_listener listener;
    listener.ask_to_stop();
    const opt_outcome outcome = run_opt({opt_samples()[0], {}}, settings(), fixed_clock(), listener);
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.boxes.front().text, "Solution stopped.");
}

TEST(OptRun, AFailedDifferenceIsNamed)
{
    // The start is inside the domain, a difference of 5 is not.
    const opt_outcome outcome = run_of(target_of("y^2 - ln(x)", {"y(0) = 1", "x(0) = 1"}));
    ASSERT_TRUE(outcome.failed);
    EXPECT_EQ(outcome.failed->variable, 1u);
    EXPECT_EQ(outcome.failed->point, 1.0);
    EXPECT_EQ(outcome.failed->offset, -5.0);
}

TEST(OptRun, LookingAheadNeitherFailsNorCounts)
{
    // A straight line needs two steps, of 5 and 3.57, and no third; nobody sees that it has none there.
    const opt_content line = target_of("if abs(x-10) < 3 then (if x == 10 then x else ln(-1)) else x", {"x(0) = 10"});
    recording_listener listener;
    opt_system system(line, listener);
    ASSERT_FALSE(system.opt_compile());
    const std::vector<double> x = {10.0};
    std::vector<double> point(1);
    const objective::value_pair first = system.values_beside(x, 0, 5.0, point);
    EXPECT_EQ(first.above - first.below, 10.0);
    EXPECT_EQ(system.evaluations(), 2);
    double offset = 5.0 / gradient_step_ratio;
    EXPECT_EQ(system.values_beside(x, 0, offset, point).above, 10.0 + offset);
    offset /= gradient_step_ratio;
    EXPECT_THROW(system.values_beside(x, 0, offset, point), evaluation_failed);
    EXPECT_EQ(system.failed()->offset, offset);

    // A step that only the look ahead made leaves no failure behind.
    opt_system fresh(line, listener);
    ASSERT_FALSE(fresh.opt_compile());
    EXPECT_EQ(fresh.values_beside(x, 0, 4.0, point).below, 6.0);
    EXPECT_FALSE(fresh.context().eval_error_flag());
    EXPECT_EQ(fresh.value(x), 10.0);
}

TEST(OptRun, TheFirstDefinitionOfANameCounts)
{
    const opt_outcome outcome =
        run_of(target_of("(x-1)^2 + (a-2)^2", {"x(0) = 5", "x(0) = 7", "x = 100", "a = 2", "a = 3"}));
    ASSERT_TRUE(outcome.has_report);
    EXPECT_NEAR(outcome.x[0], 1.0, 1e-8);
    EXPECT_EQ(outcome.x[1], 7.0) << "nothing depends on it";
    EXPECT_NEAR(outcome.objective, 0.0, 1e-12);
    EXPECT_EQ(outcome.explicit_values, (std::vector<double>{outcome.x[0], 2.0, 2.0}));
}

TEST(OptRun, RoundsAndIteratesAreKept)
{
    for (const opt_method method : all_methods) {
        const opt_outcome outcome = run_of(target_of("(x-1)^4 + x", {"x(0) = 4"}, method));
        ASSERT_TRUE(outcome.has_report);
        EXPECT_EQ(outcome.iterates.size(), static_cast<std::size_t>(outcome.iterations));
        EXPECT_EQ(outcome.points.front().x, std::vector<double>{4.0});
        double last = HUGE_VAL;
        for (const std::size_t at : outcome.iterates) {
            EXPECT_LT(outcome.points[at].f, last) << method_text(method);
            last = outcome.points[at].f;
        }
        // The slope 4 (x-1)^3 + 1 vanishes there.
        EXPECT_NEAR(outcome.x[0], 1.0 - std::cbrt(0.25), 1e-6);
    }
}

TEST(OptReport, TellsTheEndingAndAllBlocks)
{
    opt_content content =
        target_of("(x-1)^2 + (long_name_of_it-2)^2*h", {"x(0) = 3", "h = 1", "long_name_of_it(0) = -4"});
    content.title = "Bowl {5}";
    content.rows[1].comment = "a {factor}";
    content.rows[2].comment = "start";
    opt_outcome outcome = run_of(content);
    ASSERT_TRUE(outcome.has_report);
    outcome.ending = conmin_ending::line_search_failed;
    outcome.elapsed_seconds = 2.0;
    const opt_run_problem problem = {content, "/home/anna/bowl.kvr"};
    test::expect_golden("opt/bowl.rtf", test::by_lines(opt_report(problem, outcome, settings(), {2026, 1, 2})));

    const opt_content bare = target_of("(x-1)^2", {"x(0) = 3"}, opt_method::dfpmin);
    test::expect_golden("opt/bare.rtf",
                        test::by_lines(opt_report({bare, {}}, run_of(bare), settings(), {2026, 1, 2}, false)));
}

TEST(OptReport, HasWordsForEachEnding)
{
    const opt_content content = target_of("(x-1)^2", {"x(0) = 3"});
    opt_outcome outcome = run_of(content);
    for (const auto& [ending, line] : test::table<conmin_ending, std::string>{
             {conmin_ending::converged, ""},
             {conmin_ending::too_many_rounds, "{\\cf3\\b  E: Maximum number of function evaluations.}\\par "},
             {conmin_ending::line_search_failed, "{\\cf3\\b  E: Linear search failure.}\\par "},
             {conmin_ending::no_descent_direction, "{\\cf3\\b  E: Search vector failure.}\\par "}}) {
        outcome.ending = ending;
        const std::string report = opt_report({content, {}}, outcome, settings(), {2026, 1, 2});
        EXPECT_NE(report.find("OPT Solution }\\par " + line + "{\\cf1\\f6  {\\ul Variable}"), std::string::npos)
            << line;
    }
}

TEST(OptGraph, HasThePointsWhereTheTargetHasAValue)
{
    recording_listener listener;
    const opt_content content = target_of("if x < 0.6 then ln(-1) else (x-20)^2", {"x(0) = 30"});
    const opt_outcome outcome = run_of(content);
    ASSERT_TRUE(outcome.has_report);
    const auto start = opt_graph_start(content, outcome, 3, listener);
    ASSERT_TRUE(start);
    EXPECT_EQ(start->caption, "Optimization Graph, Solution #3");
    ASSERT_EQ(start->columns.size(), 2u);
    EXPECT_EQ(start->columns[0].name, "x");
    EXPECT_NEAR(start->columns[0].values.front(), 17.5, 1e-6);
    EXPECT_NEAR(start->columns[0].values.back(), 32.5, 1e-6);
    EXPECT_NEAR(start->columns[1].values.back(), 156.25, 1e-4);
    EXPECT_FALSE(opt_map_of(content, outcome, listener));
    EXPECT_FALSE(opt_graph_start(opt_samples()[0], run_of(opt_samples()[0]), 1, listener));
}

TEST(OptMap, ContoursLieWhereTheTargetHasTheirValue)
{
    recording_listener listener;
    const opt_content content = target_of("(x-1)^2+4*(y-2)^2", {"x(0) = 6", "y(0) = 5"});
    const opt_outcome outcome = run_of(content);
    const auto map = opt_map_of(content, outcome, listener);
    ASSERT_TRUE(map);
    EXPECT_EQ(map->way.front(), (std::array{6.0, 5.0}));
    EXPECT_NEAR(map->way.back()[0], 1.0, 1e-8);
    EXPECT_TRUE(std::ranges::is_sorted(map->levels));
    EXPECT_FALSE(opt_map_of(opt_samples()[0], run_of(opt_samples()[0]), listener));

    const drawn_picture picture = draw_opt_map(*map, settings());
    drawn_box plot;
    for (const drawn_shape& shape : picture.shapes)
        if (const auto* ground = std::get_if<drawn_rectangle>(&shape);
            ground && ground->part.role == drawn_role::ground)
            plot = ground->box;
    const axis_mapping mapping(map->x, map->y, plot);
    int contours = 0;
    for (const drawn_shape& shape : picture.shapes) {
        const auto* path = std::get_if<drawn_path>(&shape);
        if (!path || path->part.role != drawn_role::function) continue;
        const double level = map->levels.at(static_cast<std::size_t>(contours++));
        ASSERT_FALSE(path->points.empty());
        for (const drawn_point& point : path->points) {
            const double dx = mapping.x_of(point.x) - 1.0;
            const double dy = mapping.y_of(point.y) - 2.0;
            // Linear between the grid's lines, which are less than 0.2 apart.
            EXPECT_NEAR(dx * dx + 4.0 * dy * dy, level, 0.05);
        }
    }
    EXPECT_EQ(contours, static_cast<int>(map->levels.size()));
}

} // namespace
} // namespace kelvarin
