// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// A problem holds at most this many equations.
inline constexpr int equation_limit = 200;

/// One row of an equation table, as text.
struct equation_row
{
    /// "f(x) = expression" (implicit) or "x = expression" (explicit).
    std::string equation;
    /// The initial guess with nothing, " p" or " ap" behind it; "n.a." of an explicit row.
    std::string guess;
    std::string comment;

    friend bool operator==(const equation_row&, const equation_row&) = default;
};

inline constexpr std::string_view no_guess = "n.a.";

/// Exactly: the first two characters are "f(".
bool is_implicit(std::string_view equation);

/// The parts of an equation's text, with their places in it in bytes.
struct equation_parts
{
    bool implicit = false;
    /// Between the first "(" and the first ")" behind it, or before the first "="; trimmed.
    std::string_view name;
    std::size_t name_offset = 0;
    /// Behind the first "=", trimmed; empty where there is none.
    std::string_view right_side;
    std::size_t right_side_offset = 0;
};

equation_parts parts_of(std::string_view equation);

} // namespace kelvarin
