// SPDX-License-Identifier: MIT
#include "leq/leq_listing.h"
#include "leq/leq_report.h"
#include "shell/report/rich_text.h"
#include "support/golden.h"
#include "support/leq_problems.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{
namespace
{

/// A watch on which everything takes an eighth of a second.
stopwatch eighths()
{
    return [now = 0.0]() mutable { return now += 0.125; };
}

std::string report_of(const leq_content& content, const std::filesystem::path& path = {})
{
    const leq_outcome outcome = run_leq(content, eighths());
    EXPECT_TRUE(outcome.has_report);
    return leq_report({content, path}, outcome, {2026, 1, 2});
}

/// Solved by x = 2, -1, 0.5 exactly.
leq_content mixture()
{
    leq_content content = equations({{"4", "0", "-2", "7"}, {"-1", "2.50", "1e1", "0.5"}, {"0", "-0", "1000", "500"}});
    content.title = R"(Mixture {A} & \B)";
    content.names = {"feed", "product_2", "x3"};
    return content;
}

TEST(LeqReport, IsWhatItWas)
{
    expect_golden("leq/report.rtf", by_lines(report_of(mixture(), "/home/user/problems/mixture.kvr")));
    expect_golden("leq/report.txt", plain_text_of(read_rich_text(report_of(mixture()))));
    expect_golden("leq/listing.txt", leq_listing(mixture(), "/home/user/problems/mixture.kvr"));
}

/// Above 1e-8 the residual is told, below 1e-12 the reciprocal of the condition number.
TEST(LeqReport, WarnsWithTheFigureWhereTheSolutionMeansLittle)
{
    leq_outcome outcome;
    outcome.has_report = true;
    outcome.solution = {1, 1};
    std::string reports;
    for (const auto& [residual, condition] :
         table<double, double>{{1e-8, 1e-12}, {2e-8, 1e-12}, {0.0, 5e-13}, {2e-8, 5e-13}}) {
        outcome.residual = residual;
        outcome.reciprocal_condition = condition;
        reports +=
            by_lines(leq_report({equations({{"1", "1", "2"}, {"2", "2", "4"}}), {}}, outcome, {2026, 1, 2})) + '\n';
    }
    expect_golden("leq/warnings.rtf", reports);
}

TEST(LeqListing, ShowsCellsThatAreNoNumbersAsTheyAre)
{
    expect_golden("leq/odd_listing.txt", leq_listing(equations({{"1", "", "a"}, {"-2", "x y", ""}}), ""));
}

} // namespace
} // namespace kelvarin::test
