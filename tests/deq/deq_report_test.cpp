// SPDX-License-Identifier: MIT
#include "deq/deq_report.h"
#include "shell/report/rich_text.h"
#include "support/deq_problems.h"
#include "support/equation_rows.h"
#include "support/golden.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

using test::differential_row;
using test::explicit_row;
using test::integrated;

std::string report_of(const deq_run_problem& problem, const settings& store = settings(), double seconds = 0.0,
                      bool with_comments = true)
{
    recording_listener listener;
    double watch = 0.0;
    const deq_outcome outcome = run_deq(problem, store, listener, [&] { return watch += seconds; });
    EXPECT_TRUE(outcome.has_report);
    return deq_report(problem, outcome, store, {2026, 1, 2}, with_comments);
}

// The slopes are constant, so that all numbers are known by hand.

TEST(DeqReport, OfAFehlbergMethod)
{
    deq_content content = integrated({explicit_row("shifted_clock", "t+one"), differential_row("distance_now", "2*one"),
                                      explicit_row("one", "1"), differential_row("z", "-1000", "0")});
    content.title = R"(Walk {5} & line \ 1)";
    content.rows[1].comment = "in metres, {braces} kept";
    content.rows[2].comment = "a constant";
    settings store;
    ASSERT_FALSE(store.set_value("RKF45_H", "0.1"));
    ASSERT_FALSE(store.set_value("deq_Intermediate_data_points", "20"));
    test::expect_golden("deq/rkf45.rtf", test::by_lines(report_of({content, "walk.kvr"}, store, 1.25)));
}

TEST(DeqReport, OfAStiffMethodWithItsCounters)
{
    deq_content content = integrated({differential_row("y", "1")}, "-0.5", "1E-07", "x");
    content.method = deq_method::stiff;
    content.rows[0].comment = "not asked for";
    test::expect_golden("deq/stiff.rtf", test::by_lines(report_of({content, {}}, settings(), 0.0, false)));
}

TEST(DeqReport, ShowsTheSettingsOfEachMethodAsTheyAreSet)
{
    struct section
    {
        deq_method method;
        std::string lines;
    };
    const std::string steps = "\n First stepsize guess. h1 = ";
    const std::string least = "\n Minimum allowed stepsize. hmin = ";
    for (const section& each :
         {section{deq_method::rkf45, " Step size guess. h = 1E-06\n Truncation error tolerance. eps = 1E-06"},
          {deq_method::rkf56, " Step size guess. h = 1E-06\n Truncation error tolerance. eps = 1E-06"},
          {deq_method::bs, " Independent variable accuracy. eps = 1E-05" + steps + "0.001" + least + "1E-15"},
          {deq_method::stiff, " Independent variable accuracy. eps = 1E-05" + steps + "0.0001" + least + "1E-08"},
          {deq_method::stiffbs, " Independent variable accuracy. eps = 1E-05" + steps + "0.001" + least + "1E-05"}}) {
        deq_content content = integrated({differential_row("y", "-y")});
        content.method = each.method;
        const std::string plain = plain_text_of(read_rich_text(report_of({content, {}})));
        const std::string head = "ODE Report (" + std::string(method_text(each.method)) + ")\n";
        EXPECT_NE(plain.find(head), std::string::npos) << plain;
        EXPECT_NE(plain.find(" Precision \n" + each.lines + "\n"), std::string::npos) << plain;
        EXPECT_EQ(plain.find("Good steps = ") != std::string::npos, is_for_stiff(each.method));
    }
}

} // namespace
} // namespace kelvarin
