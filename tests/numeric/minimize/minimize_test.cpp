// SPDX-License-Identifier: MIT
#include "failures.h"
#include "numeric/minimize/NR_OPT.h"
#include "numeric/minimize/NR_OptDFPMIN.h"
#include "numeric/minimize/objective.h"
#include "platform/run_listener.h"

#include <gtest/gtest.h>

#include <cmath>
#include <span>
#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

using test::failure_of;

using point = std::span<const double>;

double square(double value)
{
    return value * value;
}

double rosenbrock(point x)
{
    return 100.0 * square(x[1] - x[0] * x[0]) + square(1.0 - x[0]);
}
double beale(point x)
{
    return square(1.5 - x[0] * (1.0 - x[1])) + square(2.25 - x[0] * (1.0 - square(x[1]))) +
           square(2.625 - x[0] * (1.0 - x[1] * square(x[1])));
}
double powell_singular(point x)
{
    return square(x[0] + 10.0 * x[1]) + 5.0 * square(x[2] - x[3]) + square(square(x[1] - 2.0 * x[2])) +
           10.0 * square(square(x[0] - x[3]));
}
double wood(point x)
{
    return 100.0 * square(x[1] - x[0] * x[0]) + square(1.0 - x[0]) + 90.0 * square(x[3] - x[2] * x[2]) +
           square(1.0 - x[2]) + 10.0 * square(x[1] + x[3] - 2.0) + 0.1 * square(x[1] - x[3]);
}
double booth(point x)
{
    return square(x[0] + 2.0 * x[1] - 7.0) + square(2.0 * x[0] + x[1] - 5.0);
}
double parabola(point x)
{
    return 2.0 + 3.0 * square(x[0] - 4.0);
}

struct published_minimum
{
    const char* name;
    double (*f)(point);
    std::vector<double> start;
    std::vector<double> minimizer;
    double minimum;
    /// How near the methods come to the minimizer in a hundred or, for conjugate gradients, more rounds.
    double distance;
};

/// [MoreGarbowHillstrom1981] numbers 1, 5, 13, 14; Booth's function.
const published_minimum problems[] = {
    {"Rosenbrock", rosenbrock, {-1.2, 1.0}, {1.0, 1.0}, 0.0, 1e-4},
    {"Beale", beale, {1.0, 1.0}, {3.0, 0.5}, 0.0, 1e-4},
    {"Powell's singular function", powell_singular, {3.0, -1.0, 0.0, 1.0}, {0.0, 0.0, 0.0, 0.0}, 0.0, 0.05},
    {"Wood", wood, {-3.0, -1.0, -3.0, -1.0}, {1.0, 1.0, 1.0, 1.0}, 0.0, 1e-3},
    {"Booth", booth, {0.0, 0.0}, {1.0, 3.0}, 0.0, 1e-6},
    {"a parabola of one variable", parabola, {-10.0}, {4.0}, 2.0, 1e-6},
};

void expect_minimum(const published_minimum& problem, const std::vector<double>& x, double f)
{
    for (std::size_t i = 0; i < x.size(); ++i)
        EXPECT_NEAR(x[i], problem.minimizer[i], problem.distance) << i;
    EXPECT_NEAR(f, problem.minimum, 1e-5);
}

TEST(Minimizers, FindPublishedMinima)
{
    for (const published_minimum& problem : problems) {
        for (const conmin_method method : {conmin_method::conjugate_gradient, conmin_method::variable_metric}) {
            SCOPED_TRACE(std::string(problem.name) + ", method " + std::to_string(static_cast<int>(method)));
            function_objective target(static_cast<int>(problem.start.size()), problem.f);
            std::vector<double> x = problem.start;
            const conmin_summary found = conmin(target, x, {.method = method, .eps = 1e-6, .mxfun = 300});
            EXPECT_EQ(found.ending, conmin_ending::converged);
            expect_minimum(problem, x, found.f);
        }
        SCOPED_TRACE(std::string(problem.name) + ", dfpmin");
        function_objective target(static_cast<int>(problem.start.size()), problem.f);
        std::vector<double> x = problem.start;
        expect_minimum(problem, x, [&] { return dfpmin(target, x).fret; }());
    }
}

TEST(Minimizers, AStationaryStartIsTheResultOfOneRound)
{
    const auto bowl = [](point x) { return 1.0 + square(x[0]) + square(x[1]); };
    function_objective target(2, bowl);
    std::vector<double> x = {0.0, 0.0};
    for (const conmin_method method : {conmin_method::conjugate_gradient, conmin_method::variable_metric}) {
        const conmin_summary found = conmin(target, x, {.method = method});
        EXPECT_EQ(found.ending, conmin_ending::converged);
        EXPECT_EQ(found.rounds, 1);
        EXPECT_EQ(found.iterations, 0);
        EXPECT_EQ(found.f, 1.0);
    }
    EXPECT_EQ(dfpmin(target, x).fret, 1.0);
    EXPECT_EQ(x, (std::vector<double>{0.0, 0.0}));
}

TEST(Conmin, StopsOneRoundBehindItsLimitWithTheLastTrial)
{
    function_objective target(2, problems[0].f);
    std::vector<double> x = problems[0].start;
    const conmin_summary found = conmin(target, x, {.eps = 1e-9, .mxfun = 10});
    EXPECT_EQ(found.ending, conmin_ending::too_many_rounds);
    EXPECT_EQ(found.rounds, 11);
    EXPECT_EQ(found.f, problems[0].f(x));
}

TEST(Conmin, AHookEndsIt)
{
    function_objective target(2, problems[0].f);
    std::vector<double> x = problems[0].start;
    const auto stop_at_third = [](int round, int) {
        if (round == 3) throw run_stopped();
    };
    EXPECT_THROW(conmin(target, x, {.on_round = stop_at_third}), run_stopped);
}

TEST(Minimizers, ATargetThatFallsForEverEndsWithAFailureOrALimit)
{
    // Along a straight line no cubic has a minimum.
    function_objective line(1, [](point x) { return -x[0]; });
    std::vector<double> x = {1.0};
    EXPECT_NE(failure_of([&] {
                  const conmin_summary found = conmin(line, x, {.eps = 1e-9, .mxfun = 100});
                  if (found.ending != conmin_ending::converged) nrerror("not converged");
              }),
              "none");
    x = {1.0};
    EXPECT_NE(failure_of([&] { dfpmin(line, x); }), "none");
}

TEST(RiddersGradient, IsExactForPolynomialsAndLooksFiveFarForTheRest)
{
    function_objective quartic(2, [](point x) { return square(square(x[0])) - 3.0 * x[0] * x[1]; });
    std::vector<double> g(2);
    std::vector<double> memory(2);
    ridders_gradient(quartic, std::vector{2.0, 1.0}, g, memory);
    EXPECT_NEAR(g[0], 29.0, 1e-10);
    EXPECT_NEAR(g[1], -6.0, 1e-10);

    function_objective wave(1, [](point x) { return std::sin(0.3 * x[0]); });
    std::vector<double> slope(1);
    std::vector<double> moved(1);
    ridders_gradient(wave, std::vector{1.0}, slope, moved);
    EXPECT_NEAR(slope[0], 0.3 * std::cos(0.3), 1e-12);
    EXPECT_LE(wave.evaluations, 20);

    function_objective logarithm(1, [](point x) {
        if (x[0] <= 0.0) throw runtime_failure(failure_number::invalid_argument);
        return std::log(x[0]);
    });
    EXPECT_EQ(failure_of([&] { ridders_gradient(logarithm, std::vector{1.0}, slope, moved); }), "5");
    ridders_gradient(logarithm, std::vector{8.0}, slope, moved);
    EXPECT_NEAR(slope[0], 0.125, 1e-7);
}

} // namespace
} // namespace kelvarin
