// SPDX-License-Identifier: MIT
#include "deq/deq_run.h"

#include "deq/deq_graph.h"
#include "deq/deq_json.h"
#include "support/deq_problems.h"
#include "support/equation_rows.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <thread>

namespace kelvarin
{
namespace
{

using test::all_deq_methods;
using test::column_of;
using test::differential_row;
using test::explicit_row;
using test::integrated;
using test::run_by;
using test::run_of;

settings with(const std::vector<std::pair<std::string, std::string>>& values)
{
    settings store;
    for (const auto& [key, value] : values)
        EXPECT_FALSE(store.set_value(key, value)) << key;
    return store;
}

/// The one box of a run without report.
message_box only_box(const deq_outcome& outcome)
{
    EXPECT_FALSE(outcome.has_report);
    EXPECT_TRUE(outcome.summary.empty());
    EXPECT_EQ(outcome.boxes.size(), 1U);
    return outcome.boxes.empty() ? message_box{} : outcome.boxes.front();
}

TEST(DeqRun, ExplicitEquationsAreEvaluatedInSortedOrder)
{
    // y' = -2 y in detours, so y = exp(-2 t).
    const deq_content content =
        integrated({explicit_row("rate", "half*4"), differential_row("y", "-use"), explicit_row("use", "rate*y"),
                    explicit_row("half", "0.5"), differential_row("z", "t", "0")});
    for (const deq_method method : all_deq_methods) {
        SCOPED_TRACE(method_text(method));
        const deq_outcome outcome = run_by(method, content);
        ASSERT_TRUE(outcome.has_report);
        EXPECT_EQ(outcome.points.names, (std::vector<std::string>{"t", "y", "z", "half", "rate", "use"}));
        EXPECT_EQ(outcome.explicit_right_sides, (std::vector<std::string>{"0.5", "half*4", "rate*y"}));
        EXPECT_NEAR(column_of(outcome, "y").back(), std::exp(-2.0), 1e-5);
        EXPECT_NEAR(column_of(outcome, "z").back(), 0.5, 1e-5);
        EXPECT_EQ(outcome.summary.size(), 6U);
        EXPECT_EQ(outcome.summary[0].initial, 0.0);
        EXPECT_EQ(outcome.summary[0].final, 1.0);
        EXPECT_EQ(outcome.summary[1].maximal, 1.0);
        EXPECT_EQ(outcome.summary[1].minimal, column_of(outcome, "y").back());
        EXPECT_EQ(outcome.statistics.points, static_cast<int>(outcome.points.row_count()));
    }
}

TEST(DeqRun, ExplicitColumnsLagAsTheMethodLeavesThem)
{
    // On the way, where steps are 0.8 of the spacing, and at the end. The stages of a step end in its middle (RKF45),
    // at its end (RKF56, BS, STIFFBS) or at 0.6 of it (STIFF).
    const test::table<deq_method, double, bool> lagging = {{deq_method::rkf45, 0.4, false},
                                                           {deq_method::rkf56, 0.0, false},
                                                           {deq_method::bs, 0.0, false},
                                                           {deq_method::stiff, 0.0, true},
                                                           {deq_method::stiffbs, 0.0, false}};
    for (const auto& [method, lag, last_lags] : lagging) {
        SCOPED_TRACE(method_text(method));
        const deq_outcome outcome =
            run_by(method, integrated({differential_row("y", "1"), explicit_row("clock", "t")}, "0", "100"));
        ASSERT_TRUE(outcome.has_report);
        const auto behind = [&](std::size_t row) {
            return column_of(outcome, "t")[row] - column_of(outcome, "clock")[row];
        };
        EXPECT_EQ(behind(0), 0.0);
        EXPECT_NEAR(behind(20), lag, 1e-9);
        EXPECT_EQ(behind(outcome.points.row_count() - 1) > 0.01, last_lags);
    }
}

TEST(DeqRun, WhatCanNotRunSaysWhy)
{
    const std::string circular =
        "Internal Error trapped (8888)\rCircular definition of explicit variables not allowed.";
    const equation_row decay = differential_row("y", "-y");
    std::vector<equation_row> many(200, decay);
    for (std::size_t i = 0; i < many.size(); ++i)
        many[i] = differential_row("y" + std::to_string(i), "1");
    many.push_back(explicit_row("a", "1"));
    struct refusal
    {
        const char* name;
        deq_content content;
        std::string text;
        std::string title = "Kelvarin Guide";
        std::optional<text_place> place = std::nullopt;
        settings store = {};
        deq_method method = deq_method::rkf45;
    };
    const refusal refusals[] = {
        {"nothing", integrated({}), "No differential equations have been entered. Solution aborted.",
         "Kelvarin Guide Guide"},
        {"explicit rows alone", integrated({explicit_row("a", "1")}),
         "No differential equations have been entered. Solution aborted.", "Kelvarin Guide Guide"},
        {"red", integrated({differential_row("y", "y+q")}), "Undefined Variable: q", "Kelvarin Guide",
         text_place{1, 14, 1}},
        {"descending", integrated({decay}, "1", "0"),
         "Warning: Final value of the integration variable must be greater than the initial value"},
        {"too many", integrated(many), "Too many equations entered. Kelvarin can solve up to 200 equations only."},
        {"a circle", integrated({decay, explicit_row("a", "b"), explicit_row("c", "1"), explicit_row("b", "a*c")}),
         circular + "\rRows that use each other: 2 (a), 4 (b)", "Kelvarin Guide", text_place{2, 0, 1}},
        {"names that hide in each other",
         integrated({explicit_row("k", "2*k1"), decay, explicit_row("k1", "3*k2"), explicit_row("k2", "4")}),
         circular + "\rRows that use each other: 1 (k), 3 (k1)", "Kelvarin Guide", text_place{1, 0, 1}},
        {"itself", integrated({decay, explicit_row("a", "a+1")}), circular + "\rRows that use each other: 2 (a)",
         "Kelvarin Guide", text_place{2, 0, 1}},
        {"circle before syntax", integrated({differential_row("y", "(y"), explicit_row("a", "a")}),
         circular + "\rRows that use each other: 2 (a)", "Kelvarin Guide", text_place{2, 0, 1}},
        {"differential before explicit", integrated({explicit_row("a", "2x"), differential_row("y", "2z")}),
         "Differential equation # 1\rSyntax Error: invalid number '2z'", "Kelvarin Guide", text_place{2, 12, 2}},
        {"the place after sorting", integrated({explicit_row("a", "b+2x"), explicit_row("b", "1"), decay}),
         "Explicit expression # 2\rSyntax Error: invalid number '2x'", "Kelvarin Guide", text_place{1, 6, 2}},
        {"evaluation", integrated({differential_row("y", "sqrt(a)"), explicit_row("a", "0.5-t")}),
         "Error: sqrt() of negative number not allowed.\rsqrt(a)", "Expression evaluation error", text_place{1, 12, 7}},
        {"evaluation in a driver",
         integrated({differential_row("y", "1/(t-t)")}),
         "Error: Zero denominator not allowed.\r1 / (t - t)",
         "Expression evaluation error",
         text_place{1, 12, 7},
         {},
         deq_method::bs},
        {"a state too large", integrated({differential_row("y", "1e308")}, "0", "100"),
         "Internal Error trapped (6)\rOverflow"},
        {"a value too large", integrated({differential_row("y", "1", "1e999")}),
         "Internal Error trapped (6)\rOverflow"},
        {"no first step", integrated({decay}),
         "Internal Error trapped (8888)\rRKF45: The initial step size must be greater than 0.", "Kelvarin Guide",
         std::nullopt, with({{"RKF45_H", "0"}})},
        {"no accuracy", integrated({decay}),
         "Internal Error trapped (8888)\rODEINT_BSST: The accuracy eps must be greater than 0.", "Kelvarin Guide",
         std::nullopt, with({{"stiffBS_eps", "0"}}), deq_method::stiffbs},
        // A variable that is 0 leaves the scale nothing when the right side jumps.
        {"steps too small", integrated({differential_row("y", "if t<0.33 then 0 else 1", "0")}),
         "Internal Error trapped (8888)\rODEINT_BS: Step size too small in odeint", "Kelvarin Guide", std::nullopt,
         with({{"BS_hmin", "1e-4"}}), deq_method::bs},
    };
    for (const refusal& each : refusals) {
        SCOPED_TRACE(each.name);
        const deq_outcome outcome = run_by(each.method, each.content, each.store);
        const message_box box = only_box(outcome);
        EXPECT_EQ(box.text, each.text);
        EXPECT_EQ(box.title, each.title);
        EXPECT_EQ(box.place, each.place);
        EXPECT_FALSE(outcome.stopped);
    }
}

TEST(DeqRun, EveryMethodReadsItsOwnSettings)
{
    // Fast swings, so that tolerances count, and points that lie far apart, so that steps are not held down by them.
    const std::pair<std::string, std::string> points = {"deq_Intermediate_data_points", "20"};
    const deq_content content = integrated({differential_row("y", "cos(200*t)*y"), differential_row("z", "-y")});
    const auto found = [&](deq_method method, const settings& store) {
        const deq_outcome outcome = run_by(method, content, store);
        EXPECT_TRUE(outcome.has_report) << outcome.boxes.at(0).text;
        return outcome.points;
    };
    const std::vector<std::vector<std::pair<std::string, std::string>>> own = {
        {{"rkf45_h", "0.01"}, {"rkf45_tetol", "1e-9"}},
        {{"rkf56_h", "0.01"}, {"rkf56_tetol", "1e-9"}},
        {{"bs_eps", "1e-9"}, {"bs_h1", "0.01"}, {"bs_hmin", "0.1"}},
        {{"stiff_eps", "1e-7"}, {"stiff_h1", "0.01"}, {"stiff_hmin", "0.03"}},
        {{"stiffbs_eps", "1e-7"}, {"stiffbs_h1", "0.01"}, {"stiffbs_hmin", "0.03"}}};
    for (const deq_method method : all_deq_methods)
        for (const deq_method other : all_deq_methods)
            for (const auto& each : own[static_cast<std::size_t>(other)]) {
                SCOPED_TRACE(std::string(method_text(method)) + " with " + each.first);
                const settings store = with({points, each});
                // A smallest step of BS ends the run where steps fall to it.
                if (method == deq_method::bs && each.first == "bs_hmin") {
                    EXPECT_FALSE(run_by(method, content, store).has_report);
                    continue;
                }
                EXPECT_EQ(found(method, store) != found(method, with({points})), method == other);
            }
    EXPECT_EQ(run_of(content, with({points})).points.row_count(), 20U);
}

/// Asks to stop as soon as a part of the range is done.
class stopping_listener final : public run_listener
{
public:
    explicit stopping_listener(double at) : at_(at) {}

    void fraction_done(double fraction) override
    {
        EXPECT_GE(fraction, 0.0);
        EXPECT_LE(fraction, 1.0);
        stop_ = stop_ || fraction >= at_;
    }
    bool stop_asked() const override { return stop_; }

private:
    double at_;
    bool stop_ = false;
};

TEST(DeqRun, AStoppedRunKeepsItsPoints)
{
    for (const deq_method method : all_deq_methods) {
        SCOPED_TRACE(method_text(method));
        deq_content content = integrated({differential_row("y", "-y"), explicit_row("a", "t")});
        content.method = method;
        stopping_listener listener(0.5);
        const deq_outcome outcome = run_deq({content, {}}, settings(), listener);
        const message_box box = only_box(outcome);
        EXPECT_TRUE(outcome.stopped);
        EXPECT_EQ(box.text, "Calculations aborted.");
        EXPECT_EQ(box.icon, box_icon::exclamation);
        EXPECT_NEAR(static_cast<double>(outcome.points.row_count()), 50.0, 3.0);
        EXPECT_GE(outcome.statistics.x, 0.5);
        EXPECT_GT(outcome.statistics.evaluations, 0);
        stopping_listener at_once(0.0);
        EXPECT_TRUE(run_deq({content, {}}, settings(), at_once).stopped);
    }
}

std::string json_of(const deq_content& content)
{
    json_writer writer;
    write_deq_json(writer, "a.kvr", content, run_of(content), "");
    return writer.take();
}

TEST(DeqRun, TheSameProblemGivesTheSameBytesWheneverAndBesideWhateverItRuns)
{
    for (const deq_method method : all_deq_methods) {
        SCOPED_TRACE(method_text(method));
        deq_content content = integrated({differential_row("y", "-y+sin(t)"), explicit_row("a", "t*rand(1)")});
        content.method = method;
        deq_content other = integrated({differential_row("u", "u*u", "0.5"), differential_row("v", "u")});
        other.method = method;
        const std::string first = json_of(content);
        json_of(other);
        EXPECT_EQ(json_of(content), first);
        std::string beside;
        std::thread second([&] { beside = json_of(content); });
        json_of(other);
        second.join();
        EXPECT_EQ(beside, first);
    }
}

TEST(DeqGraph, ShowsTheDifferentialVariablesAndHandsOverAll)
{
    const deq_outcome outcome =
        run_of(integrated({explicit_row("a", "2"), differential_row("y", "a"), differential_row("z", "y")}));
    const graph_start start = deq_graph_start(outcome, 7);
    EXPECT_EQ(start.caption, "ODE Results Graph, Solution #7");
    ASSERT_EQ(start.columns.size(), 4U);
    EXPECT_EQ(start.columns[0].name, "t");
    EXPECT_EQ(start.columns[3].name, "a");
    EXPECT_EQ(start.columns[1].values, column_of(outcome, "y"));
    EXPECT_EQ(start.visible, (std::vector<bool>{true, true, false}));
}

} // namespace
} // namespace kelvarin
