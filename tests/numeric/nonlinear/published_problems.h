// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace kelvarin::test
{

/// A system of equations from the literature, with a start and the roots that may be reached from it.
struct published_problem
{
    std::string name;
    std::vector<double> start;
    std::vector<std::vector<double>> roots;
    /// Digits that a solver has to reach in each unknown; fewer where the root is ill determined.
    double digits = 6.0;
    std::function<void(std::span<const double>, std::span<double>)> evaluate;
    /// The method, if any, that ends at a minimum which is no root.
    std::string misled = {};
};

/// The root is (1, 1).
void rosenbrock(std::span<const double> x, std::span<double> f);
/// Roots +-(sqrt(2 + sqrt 3), 1 / sqrt(2 + sqrt 3)) and the same with the unknowns interchanged.
void hyperbola_and_circle(std::span<const double> x, std::span<double> f);

/// MGH n stands for problem n of [MoreGarbowHillstrom1981], from its starting point.
std::vector<published_problem> published_problems();

} // namespace kelvarin::test
