// SPDX-License-Identifier: MIT
#include "numeric/ode/stiffness_watch.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelvarin
{
namespace
{

/// Whether a watch suspects stiffness on the way along a known solution in steps of h.
bool suspects(const stiffness_watch::right_sides& f, double h, std::vector<double> (*solution)(double), int steps = 300,
              double longest_step = 1e6)
{
    stiffness_watch watch(static_cast<int>(solution(0.0).size()), longest_step, f);
    for (int i = 1; i <= steps; ++i)
        watch.step_done(i * h, solution(i * h));
    return watch.suspected();
}

std::vector<double> cosine(double x)
{
    return {std::cos(x)};
}

std::vector<double> circle(double x)
{
    return {std::cos(x), -std::sin(x)};
}

TEST(StiffnessWatch, SuspectsSlowSolutionsBesideAFastDecay)
{
    // Whatever starts beside the cosine comes to it within some thousandths.
    const auto pull = [](double x, std::span<const double> y, std::span<double> f) {
        f[0] = -1000.0 * (y[0] - std::cos(x)) - std::sin(x);
        return true;
    };
    EXPECT_TRUE(suspects(pull, 0.003, cosine));
    EXPECT_FALSE(suspects(pull, 0.003, cosine, 99)) << "too early";
    EXPECT_FALSE(suspects(pull, 0.001, cosine)) << "an accurate step is as short";
    EXPECT_FALSE(suspects(pull, 0.003, cosine, 300, 0.004)) << "limited by something else";
    // The second component decays a thousand times as fast as the first turns.
    const auto mixed = [](double, std::span<const double> y, std::span<double> f) {
        f[0] = y[1];
        f[1] = -y[0] - 1000.0 * (y[0] * y[0] + y[1] * y[1] - 1.0) * y[1];
        return true;
    };
    EXPECT_TRUE(suspects(mixed, 0.003, circle, 200) || suspects(mixed, 0.003, circle, 2000));
}

TEST(StiffnessWatch, DoesNotSuspectSwingsGrowthFastSolutionsOrWhatCanNotBeEvaluated)
{
    const auto swing = [](double, std::span<const double> y, std::span<double> f) {
        f[0] = 1000.0 * y[1];
        f[1] = -1000.0 * y[0];
        return true;
    };
    EXPECT_FALSE(suspects(swing, 0.003, circle));
    const auto growth = [](double x, std::span<const double> y, std::span<double> f) {
        f[0] = 1000.0 * (y[0] - std::cos(x)) - std::sin(x);
        return true;
    };
    EXPECT_FALSE(suspects(growth, 0.003, cosine));
    const auto decay = [](double, std::span<const double> y, std::span<double> f) {
        f[0] = -1000.0 * y[0];
        return true;
    };
    EXPECT_FALSE(suspects(decay, 0.003, cosine)) << "it would change a lot in each step";
    const auto nothing = [](double, std::span<const double>, std::span<double>) { return false; };
    EXPECT_FALSE(suspects(nothing, 0.003, cosine));
}

} // namespace
} // namespace kelvarin
