// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

/// What is measured: each formula as text, and the same arithmetic compiled in C++.
namespace kelvarin::bench
{

struct named_value
{
    std::string name;
    double value = 0.0;
};

struct named_text
{
    std::string name;
    std::string text;
};

/// Equations that are evaluated one after the other; the last one is the result.
struct formula
{
    std::string name;
    std::vector<named_value> inputs;
    std::vector<named_text> equations;
    /// The same over slots: the inputs, then one for each equation. Its caller does not see the code.
    double (*native)(double* slots) = nullptr;

    std::size_t slot_count() const { return inputs.size() + equations.size(); }
};

formula cubic();
formula rate();
/// 30 explicit equations, each of which uses results of those before it.
formula chain();

/// Broyden's tridiagonal system, residual i of n: (3-2*x(i))*x(i)-x(i-1)-2*x(i+1)+1.
/// J. J. More, B. S. Garbow, K. E. Hillstrom, ACM Transactions on Mathematical Software 7 (1981), problem 30.
std::vector<std::string> broyden_unknowns(int n);
std::vector<std::string> broyden_texts(int n);
void broyden_native(std::span<const double> x, std::span<double> f);

} // namespace kelvarin::bench
