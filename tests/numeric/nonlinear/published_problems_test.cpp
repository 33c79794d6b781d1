// SPDX-License-Identifier: MIT
#include "numeric/nonlinear/NR_vbCNLE.h"
#include "numeric/nonlinear/NR_vbNLE.h"
#include "published_problems.h"
#include "support/digits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace kelvarin::test
{

namespace
{

constexpr double tolerance = 1e-10;

struct solution
{
    std::vector<double> x;
    std::vector<double> fvec;
    int iterations = 0;
    int evaluations = 0;
    /// The method itself doubts its result.
    bool doubtful = false;
};

struct method
{
    std::string name;
    std::function<void(nonlinear_system&, solution&)> solve;
};

void take(solution& result, const solver_summary& summary)
{
    result.iterations = summary.iterations;
    result.doubtful = summary.check;
}

std::vector<method> methods()
{
    return {{"mnewt",
             [](nonlinear_system& system, solution& result) {
                 take(result, mnewt(system, result.x, result.fvec, {.tolx = tolerance, .tolf = tolerance}));
             }},
            {"newt",
             [](nonlinear_system& system, solution& result) {
                 const newt_options options{.TOLF = tolerance, .TOLMIN = tolerance, .TOLX = tolerance};
                 take(result, newt(system, result.x, result.fvec, options));
             }},
            {"broydn",
             [](nonlinear_system& system, solution& result) {
                 const broydn_options options{.TOLF = tolerance, .TOLX = tolerance, .TOLMIN = tolerance};
                 take(result, broydn(system, result.x, result.fvec, options));
             }},
            {"constrained", [](nonlinear_system& system, solution& result) {
                 const std::vector<sign_constraint> free(result.x.size(), sign_constraint::any);
                 const cnle_result ended = solve_cnle(system, result.x, free, result.fvec, {.tol = tolerance});
                 result.iterations = ended.iterations;
                 result.doubtful = ended.code != cnle_code::converged;
             }}};
}

solution solve(const published_problem& problem, const method& by)
{
    function_system system(static_cast<int>(problem.start.size()), problem.evaluate);
    solution result{.x = problem.start, .fvec = std::vector<double>(problem.start.size())};
    by.solve(system, result);
    result.evaluations = system.evaluations;
    return result;
}

double fewest_digits(const std::vector<double>& x, const std::vector<double>& root)
{
    double fewest = digits_shown(x[0], root[0]);
    for (std::size_t i = 1; i < x.size(); ++i)
        fewest = std::min(fewest, digits_shown(x[i], root[i]));
    return fewest;
}

double digits_of_nearest_root(const std::vector<double>& x, const published_problem& problem)
{
    double digits = 0.0;
    for (const std::vector<double>& root : problem.roots)
        digits = std::max(digits, fewest_digits(x, root));
    return digits;
}

} // namespace

TEST(PublishedProblems, ReachTheirRootsByAllMethods)
{
    for (const published_problem& problem : published_problems())
        for (const method& by : methods()) {
            SCOPED_TRACE(problem.name + " by " + by.name);
            const solution result = solve(problem, by);
            const double digits = digits_of_nearest_root(result.x, problem);
            if (problem.misled == by.name) {
                EXPECT_TRUE(result.doubtful);
                EXPECT_LT(digits, 1.0);
                continue;
            }
            EXPECT_GE(digits, problem.digits);
        }
}

// Solved from the root itself, a problem costs the evaluation that finds it solved and, for mnewt, whose
// residual test stands behind the Jacobian, n more.
TEST(PublishedProblems, CostNothingAtTheRoot)
{
    for (published_problem problem : published_problems()) {
        if (problem.name.find("Rosenbrock") == std::string::npos && problem.name.find("helical") == std::string::npos)
            continue;
        problem.start = problem.roots.front();
        const int n = static_cast<int>(problem.start.size());
        SCOPED_TRACE(problem.name);
        EXPECT_EQ(solve(problem, methods()[0]).evaluations, n + 1);
        EXPECT_EQ(solve(problem, methods()[1]).evaluations, 1);
        EXPECT_EQ(solve(problem, methods()[2]).evaluations, 1);
    }
}

// mnewt pays n + 1 evaluations in each trial. Broyden's method pays for a Jacobian once: one evaluation for
// the start, n for the Jacobian, one for each full step.
TEST(PublishedProblems, CostWhatTheMethodsPromise)
{
    for (const published_problem& problem : published_problems()) {
        SCOPED_TRACE(problem.name);
        const int n = static_cast<int>(problem.start.size());
        const solution by_mnewt = solve(problem, methods()[0]);
        EXPECT_EQ(by_mnewt.evaluations, by_mnewt.iterations * (n + 1));
        if (problem.name.find("discrete boundary value") == std::string::npos) continue;
        const solution by_broydn = solve(problem, methods()[2]);
        EXPECT_EQ(by_broydn.evaluations, 1 + n + by_broydn.iterations);
    }
}

} // namespace kelvarin::test
