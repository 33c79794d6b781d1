// SPDX-License-Identifier: MIT
#include "opt/opt_run_card.h"
#include "opt/opt_samples.h"
#include "support/opt_problems.h"
#include "support/table.h"

#include <gmock/gmock.h>

#include <cmath>

namespace kelvarin
{
namespace
{

using test::target_of;

opt_verdict verdict_of(const opt_content& content)
{
    recording_listener listener;
    return judge_end_point(content, test::run_of(content), listener).value();
}

TEST(OptVerdict, TheWordIsRight)
{
    const opt_method fast = opt_method::dfpmin;
    const test::table<opt_content, std::string> rows = {
        {opt_samples()[0], "minimum"},
        {target_of("100*(y-x^2)^2+(1-x)^2", {"x(0)=-1.2", "y(0)=1"}), "minimum"},
        {target_of("1E6*(x-1)^2+1E-3*(y-1000)^2", {"x(0)=-3", "y(0)=2"}), "minimum"},
        {target_of("sin(x/20)", {"x(0)=70"}), "minimum"},
        // Starts whose gradient is 0.
        {target_of("0-(x-2)^2-y^2", {"x(0)=2", "y(0)=0"}), "maximum"},
        {target_of("x^2-y^2", {"x(0)=3", "y(0)=0"}), "saddle"},
        {target_of("x*y+z^2", {"x(0)=0", "y(0)=0", "z(0)=1"}), "saddle"},
        {target_of("7", {"x(0)=3"}), "flat"},
        {target_of("(x-1)^2", {"x(0)=3", "y(0)=2"}), "flat"},
        {target_of("x^3", {"x(0)=0"}, fast), "flat"},
        // A minimum along every line, but not along a parabola between the two.
        {target_of("(y-x^2)*(y-3*x^2)", {"x(0)=0", "y(0)=0"}, fast), "flat"},
        {opt_samples()[1], "unbounded"},
        {target_of("3-x", {"x(0)=1"}), "unbounded"},
        // Waves that differences of 5 do not see; a kink, a tail that levels off, a fall that ends far away.
        {target_of("sin(x)", {"x(0)=5"}), "not converged"},
        {target_of("abs(x)", {"x(0)=3"}), "not converged"},
        {target_of("1E-06*abs(x)+(y-1)^2", {"x(0)=0", "y(0)=1"}), "not converged"},
        {target_of("exp(0-x)", {"x(0)=1"}), "not converged"},
    };
    for (const auto& [content, word] : rows)
        EXPECT_EQ(end_point_word(verdict_of(content).point), word) << content.target;
}

TEST(OptVerdict, NumbersAreThoseOfTheHessian)
{
    // Eigenvalues of ((4, 2), (2, 4)): 2 and 6.
    const opt_verdict bowl = verdict_of(target_of("2*(x-1)^2+2*(x-1)*(y+30)+2*(y+30)^2", {"x(0)=5", "y(0)=5"}));
    EXPECT_NEAR(bowl.least_eigenvalue, 2.0, 1e-4);
    EXPECT_NEAR(bowl.greatest_eigenvalue, 6.0, 1e-4);
    EXPECT_LT(bowl.gradient, 1e-6);
    // Third derivatives do not show: the valley's gradient at (1, 1) is 0.
    const opt_verdict valley = verdict_of(target_of("100*(y-x^2)^2+(1-x)^2", {"x(0)=-1.2", "y(0)=1"}));
    EXPECT_LT(valley.gradient, 1e-8);
    EXPECT_NEAR(valley.least_eigenvalue, 0.39936, 1e-4);
    const opt_verdict edge = verdict_of(target_of("if x < 10 then ln(-1) else (x-20)^2", {"x(0)=30"}));
    EXPECT_NEAR(edge.least_eigenvalue, 2.0, 1e-4);
}

TEST(OptRunCard, TellsVerdictAndFailure)
{
    const auto card_of = [](const opt_content& content) {
        recording_listener listener;
        const opt_outcome outcome = test::run_of(content);
        return opt_run_card_of(outcome, judge_end_point(content, outcome, listener));
    };
    EXPECT_THAT(card_of(opt_samples()[0]).verdict, testing::StartsWith("minimum: gradient "));
    EXPECT_TRUE(card_of(opt_samples()[0]).advice.empty());
    EXPECT_THAT(card_of(opt_samples()[1]).advice,
                testing::ElementsAre("The target falls without end on the way from the start."));
    EXPECT_THAT(card_of(target_of("y^2 - ln(x)", {"y(0) = 1", "x(0) = 1"})).advice,
                testing::Contains(testing::HasSubstr("at x = 1 with a step of -5 the target has no value")));
    recording_listener listener;
    EXPECT_FALSE(judge_end_point(target_of("x+q", {"x(0)=1"}), test::run_of(target_of("x+q", {"x(0)=1"})), listener));
    EXPECT_THAT(opt_trace(test::run_of(target_of("(x-1)^2", {"x(0) = 3"}))),
                testing::HasSubstr("{\\f6  1      1           4           3        }\\par "));
}

} // namespace
} // namespace kelvarin
