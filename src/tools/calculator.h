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
};

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

/// Lines typed one after the other, each of which sees the variables that the ones before it made.
class calculator
{
public:
    /// Checks, evaluates and stores. A line that is refused or fails assigns nothing.
    calculator_answer solve_line(std::string_view text);

    clsParse& variables() { return variables_; }
    random_generator& generator() { return context_.generator; }

private:
    clsParse variables_;
    evaluation_context context_;
};

} // namespace kelvarin
