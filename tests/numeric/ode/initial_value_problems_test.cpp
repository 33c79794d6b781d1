// SPDX-License-Identifier: MIT
#include "ode_runs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <map>
#include <numbers>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelvarin::test
{

namespace
{

/// Seven bodies of masses 1 to 7: all x, all y, all x', all y'.
void pleiades(double /*x*/, state y, slopes f)
{
    constexpr std::size_t bodies = 7;
    for (std::size_t i = 0; i < bodies; ++i) {
        f[i] = y[2 * bodies + i];
        f[bodies + i] = y[3 * bodies + i];
        double pull_x = 0.0;
        double pull_y = 0.0;
        for (std::size_t j = 0; j < bodies; ++j) {
            if (i == j) continue;
            const double dx = y[j] - y[i];
            const double dy = y[bodies + j] - y[bodies + i];
            const double factor = static_cast<double>(j + 1) / std::pow(dx * dx + dy * dy, 1.5);
            pull_x += factor * dx;
            pull_y += factor * dy;
        }
        f[2 * bodies + i] = pull_x;
        f[3 * bodies + i] = pull_y;
    }
}

void arenstorf(double /*x*/, state y, slopes f)
{
    constexpr double m = 0.012277471;
    constexpr double n = 1.0 - m;
    const double d1 = std::pow((y[0] + m) * (y[0] + m) + y[1] * y[1], 1.5);
    const double d2 = std::pow((y[0] - n) * (y[0] - n) + y[1] * y[1], 1.5);
    f[0] = y[2];
    f[1] = y[3];
    f[2] = y[0] + 2.0 * y[3] - n * (y[0] + m) / d1 - m * (y[0] - n) / d2;
    f[3] = y[1] - 2.0 * y[2] - n * y[1] / d1 - m * y[1] / d2;
}

void brusselator(double /*x*/, state y, slopes f)
{
    constexpr double a = 2.0;
    constexpr double b = 8.533;
    f[0] = a + y[0] * y[0] * y[1] - (b + 1.0) * y[0];
    f[1] = b * y[0] - y[0] * y[0] * y[1];
}

void lorenz(double /*x*/, state y, slopes f)
{
    f[0] = 10.0 * (y[1] - y[0]);
    f[1] = y[0] * (28.0 - y[2]) - y[1];
    f[2] = y[0] * y[1] - 8.0 / 3.0 * y[2];
}

void rigid_body(double /*x*/, state y, slopes f)
{
    f[0] = y[1] * y[2];
    f[1] = -y[0] * y[2];
    f[2] = -0.51 * y[0] * y[1];
}

void kepler(double /*x*/, state y, slopes f)
{
    const double cube = std::pow(y[0] * y[0] + y[1] * y[1], 1.5);
    f[0] = y[2];
    f[1] = y[3];
    f[2] = -y[0] / cube;
    f[3] = -y[1] / cube;
}

void van_der_pol(double mu, state y, slopes f)
{
    f[0] = y[1];
    f[1] = mu * (1.0 - y[0] * y[0]) * y[1] - y[0];
}

void robertson(double /*x*/, state y, slopes f)
{
    f[0] = -0.04 * y[0] + 1e4 * y[1] * y[2];
    f[2] = 3e7 * y[1] * y[1];
    f[1] = -f[0] - f[2];
}

void hires(double /*x*/, state y, slopes f)
{
    f[0] = -1.71 * y[0] + 0.43 * y[1] + 8.32 * y[2] + 0.0007;
    f[1] = 1.71 * y[0] - 8.75 * y[1];
    f[2] = -10.03 * y[2] + 0.43 * y[3] + 0.035 * y[4];
    f[3] = 8.32 * y[1] + 1.71 * y[2] - 1.12 * y[3];
    f[4] = -1.745 * y[4] + 0.43 * y[5] + 0.43 * y[6];
    f[5] = -280.0 * y[5] * y[7] + 0.69 * y[3] + 1.71 * y[4] - 0.43 * y[5] + 0.69 * y[6];
    f[6] = 280.0 * y[5] * y[7] - 1.81 * y[6];
    f[7] = -f[6];
}

void oregonator(double /*x*/, state y, slopes f)
{
    f[0] = 77.27 * (y[1] + y[0] * (1.0 - 8.375e-6 * y[0] - y[1]));
    f[1] = (y[2] - (1.0 + y[0]) * y[1]) / 77.27;
    f[2] = 0.161 * (y[0] - y[2]);
}

right_sides named_right_sides(const std::string& name)
{
    static const std::map<std::string, right_sides> named = {
        {"Pleiades", pleiades},
        {"Arenstorf orbit, part of a period", arenstorf},
        {"Brusselator, A = 2, B = 8.533", brusselator},
        {"Lorenz", lorenz},
        {"Rigid body", rigid_body},
        {"Kepler orbit, e = 0.9", kepler},
        {"van der Pol, mu = 1", [](double, state y, slopes f) { van_der_pol(1.0, y, f); }},
        {"van der Pol, mu = 100", [](double, state y, slopes f) { van_der_pol(100.0, y, f); }},
        {"Robertson", robertson},
        {"HIRES", hires},
        {"Oregonator", oregonator}};
    return named.at(name);
}

/// A system of differential equations from the literature, from 0 to `range`.
struct initial_value_problem
{
    std::string name;
    double range = 0.0;
    std::vector<double> start;
    std::vector<double> end;
    right_sides f;
    /// No problem for explicit methods.
    bool stiff = false;
};

std::vector<double> numbers(std::istream& line)
{
    return {std::istream_iterator<double>(line), {}};
}

void read_problems(std::vector<initial_value_problem>& problems)
{
    std::ifstream file(KELVARIN_TEST_DATA "/ode/initial_value_problems.txt");
    if (!file) throw std::runtime_error("no initial value problems");
    std::string text;
    while (std::getline(file, text)) {
        std::istringstream line(text);
        std::string key;
        line >> key >> std::ws;
        if (key == "problem") {
            std::getline(line, problems.emplace_back().name);
            problems.back().f = named_right_sides(problems.back().name);
        } else if (key == "range") {
            line >> problems.back().range;
        } else if (key == "stiff") {
            problems.back().stiff = true;
        } else if (key == "start") {
            problems.back().start = numbers(line);
        } else if (key == "end") {
            problems.back().end = numbers(line);
        }
    }
}

/// Those of tests/data/ode/initial_value_problems.txt, and others with a closed solution.
std::vector<initial_value_problem> initial_value_problems()
{
    constexpr double pi = std::numbers::pi;
    std::vector<initial_value_problem> problems = {
        {"decay", 5.0, {1.0}, {std::exp(-5.0)}, [](double, state y, slopes f) { f[0] = -y[0]; }},
        {"oscillator", 2.0 * pi, {1.0, 0.0}, {1.0, 0.0}, [](double, state y, slopes f) { f[0] = y[1], f[1] = -y[0]; }},
        {"logistic growth",
         10.0,
         {0.1},
         {1.0 / (1.0 + 9.0 * std::exp(-10.0))},
         [](double, state y, slopes f) { f[0] = y[0] * (1.0 - y[0]); }},
        {"stiff pull to a cosine",
         3.0,
         {1.0},
         {std::cos(3.0)},
         [](double x, state y, slopes f) { f[0] = -1e4 * (y[0] - std::cos(x)) - std::sin(x); },
         true}};
    read_problems(problems);
    return problems;
}

double largest_error(const std::vector<double>& y, const std::vector<double>& expected)
{
    double error = 0.0;
    double size = 0.0;
    for (std::size_t i = 0; i < y.size(); ++i) {
        error = std::isfinite(y[i]) ? std::max(error, std::fabs(y[i] - expected[i])) : INFINITY;
        size = std::max(size, std::fabs(expected[i]));
    }
    return error / size;
}

struct promise
{
    ode_method method;
    bool for_stiff;
    double tolerance;
    /// Most error at the end in units of the tolerance and of the largest variable.
    double most_error;
};

/// The first three methods control the error of each step relative to the state, and errors of steps add up and
/// are carried on. The others ask for hundredths of the tolerance, in absolute terms.
const std::vector<promise> promises = {
    {rkf45, false, 1e-6, 1000.0},  {rkf45, false, 1e-10, 1000.0}, {rkf56, false, 1e-6, 1000.0},
    {rkf56, false, 1e-10, 1000.0}, {by_bs, false, 1e-6, 1000.0},  {by_bs, false, 1e-10, 1000.0},
    {by_st, true, 1e-4, 10.0},     {by_st, true, 1e-6, 10.0},     {by_bsst, true, 1e-10, 10.0}};

} // namespace

TEST(InitialValueProblems, EndWithTheDigitsThatTheToleranceAsksFor)
{
    for (const initial_value_problem& problem : initial_value_problems())
        for (const promise& by : promises) {
            if (problem.stiff && !by.for_stiff) continue;
            SCOPED_TRACE(problem.name + " by " + by.method.name + " to 10^" + std::to_string(std::log10(by.tolerance)));
            const ode_run made = run(by.method, problem.f, problem.start, {0.0, problem.range, problem.range / 100.0},
                                     {.tol = by.tolerance});
            // Variables of 1e5 whose error has to be below 1e-6.
            if (problem.name == "Oregonator" && by.method.name == "ODEINT_ST") {
                EXPECT_EQ(made.failure, "8888 ODEINT_ST: Too many steps in routine odeint");
                continue;
            }
            EXPECT_EQ(made.failure, "none");
            EXPECT_LE(largest_error(made.y, problem.end), by.most_error * by.tolerance);
            EXPECT_EQ(made.points.back().x, problem.range);
        }
}

} // namespace kelvarin::test
