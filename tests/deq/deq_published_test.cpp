// SPDX-License-Identifier: MIT
#include "deq/deq_analysis.h"
#include "deq/deq_samples.h"
#include "support/deq_problems.h"
#include "support/published_problems.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelvarin
{
namespace
{

using test::published_problem;

/// The largest error of a variable at the end, in units of the largest variable.
double end_error(const deq_outcome& outcome, const std::vector<double>& expected)
{
    double error = 0.0;
    double size = 0.0;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const double value = outcome.summary.at(i + 1).final;
        error = std::isfinite(value) ? std::max(error, std::fabs(value - expected[i])) : INFINITY;
        size = std::max(size, std::fabs(expected[i]));
    }
    return error / size;
}

// As they are, the settings ask the first three methods for relative errors of 1e-6 and 1e-5 in each step, the others
// for an absolute 1e-7; errors of steps add up and are carried on.
TEST(DeqPublished, ProblemsEndAsPublishedWithTheSettingsAsTheyAre)
{
    for (const published_problem& problem : test::published_problems(KELVARIN_TEST_DATA))
        for (const deq_method method : test::all_deq_methods) {
            if (problem.stiff && !is_for_stiff(method)) continue;
            SCOPED_TRACE(problem.name + " by " + std::string(method_text(method)));
            const deq_outcome outcome = test::run_by(method, problem.content);
            if (problem.name == "Oregonator" && method == deq_method::stiff) {
                // Variables of 1e5 whose error has to be below 1e-7.
                ASSERT_EQ(outcome.boxes.size(), 1U);
                EXPECT_EQ(outcome.boxes[0].text, "Internal Error trapped (8888)\rODEINT_ST: Too many steps in routine "
                                                 "odeint");
                continue;
            }
            ASSERT_TRUE(outcome.has_report);
            EXPECT_TRUE(outcome.boxes.empty());
            EXPECT_EQ(outcome.points.columns[0].back(), outcome.x2);
            EXPECT_LT(end_error(outcome, problem.end), method == deq_method::bs ? 1e-2 : 1e-3);
            EXPECT_TRUE(outcome.statistics.end_reached);
            EXPECT_FALSE(outcome.stiffness_suspected);
        }
}

/// Stops a run as soon as it suspects stiffness.
class suspicious_listener final : public run_listener
{
public:
    void fraction_done(double) override {}
    bool stop_asked() const override { return alerts.stiffness_suspected; }

    deq_run_alerts alerts;
};

TEST(DeqPublished, StiffProblemsAreSuspectedOnTheWayByExplicitMethods)
{
    for (published_problem& problem : test::published_problems(KELVARIN_TEST_DATA))
        for (const deq_method method : {deq_method::rkf45, deq_method::rkf56, deq_method::bs}) {
            if (!problem.stiff) continue;
            SCOPED_TRACE(problem.name + " by " + std::string(method_text(method)));
            problem.content.method = method;
            suspicious_listener listener;
            const deq_outcome outcome =
                run_deq({problem.content, {}}, settings(), listener, steady_seconds, &listener.alerts);
            EXPECT_TRUE(outcome.stiffness_suspected);
            EXPECT_TRUE(outcome.stopped);
        }
}

/// Concentration in a slab that reacts in the first order, in parts of that at its surface. [Danckwerts 1950]
double danckwerts(double x, double t, double diffusivity, double k)
{
    const double decay = x * std::sqrt(k / diffusivity);
    const double spread = x / (2.0 * std::sqrt(diffusivity * t));
    const double root = std::sqrt(k * t);
    return 0.5 * (std::exp(-decay) * std::erfc(spread - root) + std::exp(decay) * std::erfc(spread + root));
}

TEST(DeqSamples, RunByEveryMethodToTheValuesOfTheirTheory)
{
    const auto samples = deq_samples();
    for (const deq_content& sample : samples) {
        SCOPED_TRACE(sample.title);
        EXPECT_TRUE(analyse_deq(sample).green);
        EXPECT_TRUE(listing_warnings(sample).empty());
        EXPECT_TRUE(analyse_deq(sample).set.rows_without_value.empty());
        for (const equation_row& row : sample.rows)
            EXPECT_FALSE(row.comment.empty()) << row.equation;
        const deq_outcome by_default = test::run_of(sample);
        for (const deq_method method : test::all_deq_methods) {
            const deq_outcome outcome = test::run_by(method, sample);
            ASSERT_TRUE(outcome.has_report) << method_text(method) << ' ' << outcome.boxes.at(0).text;
            for (std::size_t i = 1; i <= outcome.differential_names.size(); ++i)
                EXPECT_NEAR(outcome.summary[i].final, by_default.summary[i].final,
                            1e-3 * (1e-3 + std::fabs(by_default.summary[i].maximal)))
                    << method_text(method);
        }
    }
    // In the steady state of the tanks each adds what its coil gives: T = (W Cp T0 + UA Ts)/(W Cp + UA).
    const deq_outcome tanks = test::run_of(samples[0]);
    double steady = 15.0;
    for (const char* tank : {"T1", "T2", "T3"}) {
        steady = (231.0 * steady + 14.0 * 230.0) / 245.0;
        EXPECT_NEAR(test::column_of(tanks, tank).back(), steady, 0.3);
    }
    // Without air the ball would come down 211 m away.
    const deq_outcome ball = test::run_of(samples[1]);
    EXPECT_NEAR(test::column_of(ball, "y").back(), 0.0, 1.0);
    EXPECT_LT(test::column_of(ball, "x").back(), 140.0);
    // The controller brings the tank back to the set point.
    const deq_outcome heater = test::run_of(samples[2]);
    EXPECT_NEAR(test::column_of(heater, "T").back(), 75.0, 0.1);
    EXPECT_LT(heater.summary[1].minimal, 74.0);
    // Differences over a quarter of a millimetre are good for a few hundredths.
    const deq_outcome slab = test::run_of(samples[3]);
    for (int node : {1, 2, 4, 6, 8})
        EXPECT_NEAR(test::column_of(slab, "c" + std::to_string(node)).back() / 12.0,
                    danckwerts(0.00025 * node, 2500.0, 1.2e-9, 0.0015), 0.01);
}

} // namespace
} // namespace kelvarin
