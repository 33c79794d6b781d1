// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
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
    /// Of an implicit row its initial guess or value as text; nonlinear problems may append " p" or " ap". "n.a." of an
    /// explicit row.
    std::string guess;
    std::string comment;

    friend bool operator==(const equation_row&, const equation_row&) = default;
};

inline constexpr std::string_view no_guess = "n.a.";

/// How a kind of problem marks its implicit rows, those of its unknowns. All other rows are explicit.
struct row_form
{
    /// The letters that an implicit row begins with: "f(" of "f(x) = ...", "d(" of "d(y)/d(t) = ...".
    std::string_view letters;
    /// What follows the name on the left side of an implicit row, ignoring blanks: "(0)" of the start value "x(0) = 2".
    /// Used only if `letters` is empty.
    std::string_view suffix = {};
};

bool is_implicit(std::string_view equation, const row_form& form);

/// The parts of an equation's text, with their byte offsets in it.
struct equation_parts
{
    bool implicit = false;
    /// Trimmed: in an implicit row the text between the first "(" and the next ")", or in front of the form's suffix;
    /// in an explicit row the text before the first "=".
    std::string_view name;
    std::size_t name_offset = 0;
    /// The text after the first "=", trimmed; empty if there is none.
    std::string_view right_side;
    std::size_t right_side_offset = 0;
};

equation_parts parts_of(std::string_view equation, const row_form& form);

} // namespace kelvarin
