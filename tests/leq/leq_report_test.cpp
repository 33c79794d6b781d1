// SPDX-License-Identifier: MIT
#include "leq/leq_listing.h"
#include "leq/leq_report.h"
#include "shell/report/rich_text.h"
#include "support/golden.h"
#include "support/leq_problems.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

using test::equations;

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

/// The report with a line end behind every line of it, to be read by people.
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
    test::expect_golden("leq/report.rtf", by_lines(report_of(mixture(), "/home/user/problems/mixture.kvr")));
    test::expect_golden("leq/report.txt", plain_text_of(read_rich_text(report_of(mixture()))));
    test::expect_golden("leq/listing.txt", leq_listing(mixture(), "/home/user/problems/mixture.kvr"));
}

TEST(LeqReport, WarnsWithTheFigureWhereTheSolutionMeansLittle)
{
    const leq_content content = equations({{"1", "1", "2"}, {"2", "2", "4"}});
    leq_outcome outcome;
    outcome.has_report = true;
    outcome.solution = {1, 1};
    struct row
    {
        double residual, condition;
        std::string warnings;
    };
    const std::string residual_warning =
        R"({\cf7{\b Warning:} The equations are met only to 2.0E-08 of their largest terms.}\par )";
    const std::string condition_warning =
        R"({\cf7{\b Warning:} The matrix is singular or nearly so: the reciprocal of its condition number is 5.0E-13.)"
        R"( The solution may have no correct digit.}\par )";
    const std::vector<row> cases = {
        {1e-8, 1e-12, ""},
        {2e-8, 1e-12, residual_warning + R"(\par )"},
        {0, 5e-13, condition_warning + R"(\par )"},
        {2e-8, 5e-13, residual_warning + condition_warning + R"(\par )"},
    };
    for (const row& given : cases) {
        SCOPED_TRACE(given.warnings);
        outcome.residual = given.residual;
        outcome.reciprocal_condition = given.condition;
        const std::string report = leq_report({content, {}}, outcome, {2026, 1, 2});
        EXPECT_NE(report.find(R"(LEQ SOLUTION}\par \par )" + given.warnings + R"({\cf3  [1] }x1 =  1        \par )"),
                  std::string::npos)
            << report;
    }
}

TEST(LeqListing, ShowsCellsThatAreNoNumbersAsTheyAre)
{
    const std::string listing = leq_listing(equations({{"1", "", "a"}, {"-2", "x y", ""}}), "");
    EXPECT_EQ(listing, "Kelvarin LEQ Program\n"
                       "File:\n"
                       "\n"
                       "Coefficients matrix and beta vector\n"
                       "x1  x2 | beta\n"
                       " 1     |    a\n"
                       "-2 x y |\n"
                       "\n"
                       "The equations\n"
                       "[1] 1*x1 + ?*x2 = a\n"
                       "[2] -2*x1 + x y*x2 = ?\n"
                       "\n"
                       "Number of equations : 2\n");
}

} // namespace
} // namespace kelvarin
