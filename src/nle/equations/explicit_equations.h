// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
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

/// The message of the failure below.
inline constexpr const char* circular_definition_text = "Circular definition of explicit variables not allowed.";

/// Sorts the equations so that each uses only names defined before it, by swapping until no pair needs it. An
/// occurrence of a name counts as a use if there is no letter directly before or after it, so a name inside `x1` or
/// `x_2` counts as well. Throws runtime_failure 8888 after n * n restarts: the definitions are circular, or look so.
void sort_explicit_equations(equation_list& explicit_equations);

/// Whether the right side of an equation uses its own variable, as a whole name.
bool uses_itself(const equation_list& equations, std::size_t equation);

/// The indices of the equations that use each other in a circle, as sort_explicit_equations counts uses, or that use
/// themselves.
std::vector<std::size_t> circular_equations(const equation_list& equations);

/// The problem's rows of circular_equations, ascending.
std::vector<int> circular_rows(const equation_list& equations);

} // namespace kelvarin
