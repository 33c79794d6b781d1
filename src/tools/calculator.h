// SPDX-License-Identifier: MIT
#pragma once

#include "expr/basParse.h"
#include "expr/clsParse.h"
#include "platform/message_box.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// What a calculator line says: an expression, and the variable that takes its value, if any.
struct calculator_line
{
    /// Empty where nothing is assigned.
    std::string target;
    std::string expression;
    /// Where the expression stands in the text that was read, in bytes.
    std::size_t offset = 0;
};

/// The text as one line: line ends and tabs become blanks, and those around it go.
std::string on_one_line(std::string_view text);

/// Reads a line. It is split at its first "=", whatever that belongs to; what stands in front is the target
/// if it is a valid name, and nothing if it is empty. Otherwise the whole line is the expression, so that
/// `(a == b)` stays a comparison. Line ends and tabs count as blanks.
calculator_line read_calculator_line(std::string_view text);

/// What a line gave: a value, or the box that tells why there is none.
struct calculator_answer
{
    std::optional<double> value;
    /// The variable that took the value; empty where none did.
    std::string variable;
    std::optional<message_box> refusal;
};

/// What the checker has against a line, and where in its text, if that can be told.
struct line_fault
{
    std::string message;
    std::optional<byte_range> place;
};

/// Lines typed one after the other, each of which sees the variables that the ones before it made.
class calculator
{
public:
    /// Checks, evaluates and stores. A line that is refused or fails assigns nothing.
    calculator_answer solve_line(std::string_view text);
    /// Only checks: nothing where the line is acceptable or blank.
    std::optional<line_fault> fault_of(std::string_view text) const;
    /// Gives a variable the number that a text is. A text that is none is refused, and the variable keeps its value.
    std::optional<message_box> set_variable(std::string_view name, std::string_view text);

    clsParse& variables() { return variables_; }
    const clsParse& variables() const { return variables_; }
    random_generator& generator() { return context_.generator; }

private:
    clsParse variables_;
    evaluation_context context_;
};

} // namespace kelvarin
