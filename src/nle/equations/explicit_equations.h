// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace kelvarin
{

/// A list of equations `name = right side`.
struct equation_list
{
    std::vector<std::string> names;
    std::vector<std::string> right_sides;
    /// The problem's row of each equation, from 1.
    std::vector<int> rows;

    int size() const { return static_cast<int>(names.size()); }
    void add(std::string name, std::string right_side, int row);
};

/// Puts the equations in an order in which each uses only names defined before it, by swapping until no
/// pair needs it. A name counts as used where it stands between two characters that are no letters, so a
/// name inside `x1` or `x_2` is found as well. Throws runtime_failure 8888 when the budget of restarts
/// (n * n) is gone: a circle, or an apparent one.
void sort_explicit_equations(equation_list& explicit_equations);

} // namespace kelvarin
