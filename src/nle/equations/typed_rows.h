// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"
#include "platform/message_box.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Equations as people type them or as other texts hold them: reports, listings, problem files, messages.
namespace kelvarin
{

/// The parts of one equation in a text, as typed: nothing has been checked.
struct typed_row
{
    bool implicit = false;
    std::string name;
    std::string expression;
    /// Initial guess or value of an implicit row; nullopt if the text has none.
    std::optional<std::string> value = std::nullopt;
    std::string comment = {};
    /// The variable of the derivative, "t" of "d(y)/d(t)"; empty in rows of other kinds.
    std::string independent = {};
    /// The equation alone, as typed, without blanks at its ends.
    std::string text = {};
    /// Where name and expression begin in the text, in bytes.
    std::size_t name_offset = 0;
    std::size_t expression_offset = 0;
};

/// Reads the equation of a line: "f(x) = x^2 - 2", "a = 3 # comment". Cells of a row may be separated by tabs:
/// equation, value, comment. A "= 0" behind an implicit equation is dropped. Returns nullopt if the line has no equals
/// sign with something before it.
std::optional<typed_row> row_of_text(std::string_view line, const row_form& form);

/// An initial guess or value on a line of its own: "x(0) = 2".
struct typed_value
{
    std::string name;
    std::string value;
};

/// The values of a line such as "x(0) = 1, y(0) = 2". Empty if the line holds anything else.
std::vector<typed_value> values_of_text(std::string_view line);

/// A line of a pasted text, with its number from 1, that was not taken over.
struct left_out_line
{
    int number = 0;
    std::string text;
    /// Why its equation was refused; empty if the line holds none.
    std::string reason = {};
    /// The part of `text` that this is about; nullopt if it is all of it.
    std::optional<text_place> place = std::nullopt;
};

/// A text that was split into equations and the rest.
struct pasted_text
{
    struct equation
    {
        int line = 0;
        std::string text;
        typed_row row;
    };
    struct value
    {
        int line = 0;
        std::string text;
        typed_value given;
        /// Whether it comes from a table of results, which is about the equations of this text only.
        bool is_result = false;
    };

    std::vector<equation> equations;
    std::vector<value> values;
    /// Lines with neither, without empty ones.
    std::vector<left_out_line> others;
};

/// How a kind of problem reads an equation: row_of_text with its form, and what else it understands.
using row_reader = std::function<std::optional<typed_row>(std::string_view line)>;

/// Reads a text of many lines. Numbers in front, "[3]", are ignored; values of rows that don't hold them come from
/// lines like "x(0) = 1", from "Initial guess: 1" below an equation, and from the table of results of a report. An
/// equation that occurs again, as in a report's list of comments, is the same one, and an indented line below a
/// numbered equation is its comment.
pasted_text read_pasted_text(std::string_view text, const row_reader& read);

/// The outcome of a paste.
struct pasted_rows
{
    /// The numbers of the new rows.
    std::vector<int> rows;
    std::vector<left_out_line> left_out;
    /// The new unknowns for which the text had no initial guess or value.
    std::vector<std::string> without_value;
    /// Whether anything has changed: rows, or values of rows that were there.
    bool changed = false;
};

} // namespace kelvarin
