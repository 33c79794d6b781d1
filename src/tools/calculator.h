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

/// A parsed calculator line: an expression, and the variable that gets its value, if any.
struct calculator_line
{
    /// Empty if the line assigns nothing.
    std::string target;
    std::string expression;
    /// Byte offset of the expression in the original text.
    std::size_t offset = 0;
};

/// The text as one line: line ends and tabs become blanks, and the result is trimmed.
std::string on_one_line(std::string_view text);

/// Parses a line. It is split at its first "=": the part in front is the target if it is a valid name, and if it is
/// empty there is no target. Otherwise the whole line is the expression, so that `(a == b)` is a comparison. Line ends
/// and tabs count as blanks.
calculator_line read_calculator_line(std::string_view text);

/// The result of a line: a value, or the box that says why there is none.
struct calculator_answer
{
    std::optional<double> value;
    /// The variable that was set; empty if there is none.
    std::string variable;
    std::optional<message_box> refusal;
};

/// The checker's message about a line, and its place in the text if known.
struct calculator_fault
{
    std::string message;
    std::optional<byte_range> place;
};

/// Evaluates lines one after the other; each can use the variables that earlier ones set.
class calculator
{
public:
    /// Checks and evaluates a line and stores its variable. A line that is refused or fails assigns nothing.
    calculator_answer solve_line(std::string_view text);
    /// Only checks a line. Returns nullopt if it is acceptable or blank.
    std::optional<calculator_fault> fault_of(std::string_view text) const;
    /// Sets a variable to a number given as text. Returns a box and keeps the old value if the text is not a number.
    std::optional<message_box> set_variable(std::string_view name, std::string_view text);

    clsParse& variables() { return variables_; }
    const clsParse& variables() const { return variables_; }
    random_generator& generator() { return context_.generator; }

private:
    clsParse variables_;
    evaluation_context context_;
};

} // namespace kelvarin
