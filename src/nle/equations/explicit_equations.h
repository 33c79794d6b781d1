// SPDX-License-Identifier: MIT
#pragma once

#include "expr/basParse.h"

#include <optional>
#include <string>
#include <vector>

namespace kelvarin
{

/// A text that was refused when it was compiled: which equation of its list, and why.
struct refused_equation
{
    /// From 1, in the order of the list.
    int number = 0;
    std::string message;
    bool fatal = false;
    std::optional<byte_range> place;
};

/// A list of equations `name = right side` and, once compiled, their trees.
struct equation_list
{
    std::vector<std::string> names;
    std::vector<std::string> right_sides;
    /// The problem's row of each equation, from 1.
    std::vector<int> rows;
    std::vector<expression_tree> trees;

    int size() const { return static_cast<int>(names.size()); }
    void add(std::string name, std::string right_side, int row);
};

/// Puts the equations in an order in which each uses only names defined before it, by swapping until no
/// pair needs it. A name counts as used where it stands between two characters that are no letters, so a
/// name inside `x1` or `x_2` is found as well. Throws runtime_failure 8888 when the budget of restarts
/// (n * n) is gone: a circle, or an apparent one.
void sort_explicit_equations(equation_list& explicit_equations);

/// Checks every right side against the names in the store, and compiles it. Returns the first refusal.
std::optional<refused_equation> compile_list(equation_list& equations, clsParse& store);

} // namespace kelvarin
