// SPDX-License-Identifier: MIT
#include "failures.h"
#include "numeric/forward_difference.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "numeric/nonlinear/jacobian.h"
#include "recording_system.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace kelvarin::test
{

namespace
{

void same(std::span<const double> x, std::span<double> f)
{
    std::ranges::copy(x, f.begin());
}

/// Two equations of one unknown each, which tell so; the zeros are written where they were not left.
class separate_squares final : public nonlinear_system
{
public:
    int size() const override { return 2; }
    void evaluate(std::span<const double> x, std::span<double> f) override
    {
        f[0] = x[0] * x[0];
        f[1] = x[1] < 0.0 ? std::numeric_limits<double>::infinity() : x[1];
    }
    const sparsity_pattern* difference_quotients(std::span<const double> x, std::span<const double> f,
                                                 std::span<const double> moved, std::span<const double> divisors,
                                                 matrix& df, const sparsity_pattern* left) override
    {
        kept.push_back(left == &diagonal_);
        matrix made(2, 2);
        difference_columns(x, f, moved, divisors, made);
        for (int i = 0; i < 2; ++i)
            df(i, i) = made(i, i);
        if (left == nullptr) df(0, 1) = df(1, 0) = 0.0;
        return &diagonal_;
    }

    std::vector<bool> kept;

private:
    sparsity_pattern diagonal_ = {{0, 1}, {1, 2}};
};

void products(std::span<const double> x, std::span<double> f)
{
    f[0] = x[0] * x[1];
    f[1] = x[0] + 3.0 * x[1];
}

} // namespace

TEST(Fdjac, StepIsRelativeToTheMagnitude)
{
    const table<double, double> cases = {{0.0, 1e-07},
                                         {-3.0, -3.0 + 1e-07 * 3.0},
                                         {2.0, 2.0 + 1e-07 * 2.0},
                                         {1e-320, 1e-320 + 1e-07},
                                         {-1e12, -1e12 + 1e-07 * 1e12}};
    for (const auto& [at, moved] : cases) {
        SCOPED_TRACE(at);
        recording_system system(1, same);
        matrix df(1, 1);
        fdjac(system, std::vector{at}, std::vector{at}, df);
        ASSERT_EQ(system.points.size(), 1U);
        EXPECT_EQ(system.points[0][0], moved);
        // Divided by the step as represented: the slope of f(x) = x is 1 to the last bit.
        EXPECT_EQ(df(0, 0), 1.0);
    }
}

TEST(Fdjac, CostsOneEvaluationForEachColumnInOrder)
{
    recording_system system(2, products);
    matrix df(2, 2);
    fdjac(system, std::vector{2.0, 5.0}, std::vector{10.0, 17.0}, df);
    const std::vector<std::vector<double>> expected = {{2.0 + 2e-07, 5.0}, {2.0, 5.0 + 5e-07}};
    EXPECT_EQ(system.points, expected);
    EXPECT_NEAR(df(0, 0), 5.0, 1e-6);
    EXPECT_NEAR(df(0, 1), 2.0, 1e-6);
    EXPECT_NEAR(df(1, 0), 1.0, 1e-6);
    EXPECT_NEAR(df(1, 1), 3.0, 1e-6);
}

TEST(Usrfun, StepIsAbsoluteAndResidualsComeFirst)
{
    recording_system system(2, products);
    matrix fjac(2, 2);
    std::vector<double> f(2);
    usrfun(system, std::vector{2.0, 5.0}, f, fjac);
    const std::vector<std::vector<double>> expected = {{2.0, 5.0}, {2.0 + 1e-05, 5.0}, {2.0, 5.0 + 1e-05}};
    EXPECT_EQ(system.points, expected);
    EXPECT_EQ(f, (std::vector{10.0, 17.0}));
    EXPECT_EQ(fjac(0, 1), (2.0 * (5.0 + 1e-05) - 10.0) / 1e-05);
}

TEST(Usrfun, StepIsLostBesideALargeUnknown)
{
    function_system system(1, same);
    matrix fjac(1, 1);
    std::vector<double> f(1);
    usrfun(system, std::vector{1e20}, f, fjac);
    EXPECT_EQ(fjac(0, 0), 0.0);
}

TEST(Jacobians, AKeptOneIsThatOfAFreshMatrix)
{
    separate_squares system;
    jacobian_workspace kept(2);
    std::vector<double> f(2);
    for (const double x0 : {2.0, -3.0, 0.0}) {
        const std::vector<double> x = {x0, 4.0};
        matrix fresh(2, 2);
        usrfun(system, x, f, fresh);
        usrfun(system, x, f, kept);
        EXPECT_TRUE(std::ranges::equal(kept.elements.values(), fresh.values()));
        fdjac(system, x, f, fresh);
        fdjac(system, x, f, kept);
        EXPECT_TRUE(std::ranges::equal(kept.elements.values(), fresh.values()));
    }
    EXPECT_EQ(system.kept, (std::vector<bool>{false, true, true, true, true, true}));
    // A failure at a place that may differ from zero is found as one elsewhere is.
    const std::vector<double> beside_failure = {1.0, -1.0};
    EXPECT_EQ(failure_of([&] { fdjac(system, beside_failure, f, kept); }), "6");
}

TEST(Jacobians, OverflowIsAFailure)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    // The residual itself, a column, a quotient.
    const table<std::vector<double>, double> cases = {{{infinity}, 1.0}, {{1.0, infinity}, 1.0}, {{0.0, 1e305}, 1.0}};
    for (const auto& [residuals, x] : cases) {
        matrix df(1, 1);
        std::vector<double> f(1);
        function_system system(1, scripted(residuals));
        const std::vector<double> point = {x};
        EXPECT_EQ(failure_of([&] { usrfun(system, point, f, df); }), "6");
    }
    function_system system(1, same);
    matrix df(1, 1);
    const double huge = std::numeric_limits<double>::max();
    EXPECT_EQ(failure_of([&] { fdjac(system, std::vector{huge}, std::vector{huge}, df); }), "6");
}

} // namespace kelvarin::test
