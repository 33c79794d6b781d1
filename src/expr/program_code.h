// SPDX-License-Identifier: MIT
#pragma once

#include "expr/program_graph.h"

#include <cstdint>
#include <optional>
#include <vector>

/// The straight code of a program, as it is before a machine has chosen its handlers.
///
/// The code works on one file of cells (inputs, constants, intermediate values) and an accumulator. An
/// instruction computes into the accumulator and may then apply a second operation to it and store it.
/// Beside the accumulator runs a sum of v - v over the values v in which something not finite could
/// otherwise get lost: denominators, operands of powers and comparisons, conditions, arguments of
/// functions that are finite at infinity, and all results. It is not a number exactly when something
/// failed.
namespace kelvarin
{

/// Where an operation finds its two operands.
enum class operand_form : std::uint8_t
{
    none,
    load,             // cell a alone
    cell_cell,        // a op b
    accumulator_cell, // accumulator op cell
    cell_accumulator, // cell op accumulator
    accumulator       // the accumulator alone
};

enum class arithmetic : std::uint8_t
{
    add,
    subtract,
    multiply,
    /// By a cell that is known to be finite.
    divide,
    divide_checked
};

enum class keep : std::uint8_t
{
    no,
    store,
    /// The value is a result: it has to be finite.
    store_checked
};

struct code_line
{
    enum class line_kind : std::uint8_t
    {
        /// One or two arithmetic operations.
        arithmetic,
        /// A function, power or relation of `operation`.
        operation,
        /// To the line `jump` lines further on, the first where the accumulator is 0.
        jump_if_zero,
        jump,
        halt
    };

    line_kind kind = line_kind::halt;
    operand_form first = operand_form::none;
    arithmetic first_operation = arithmetic::add;
    operand_form second = operand_form::none;
    arithmetic second_operation = arithmetic::add;
    keep kept = keep::no;
    operation_code operation = operation_code::none;
    std::uint16_t a = 0;
    std::uint16_t b = 0;
    /// Operand of the second operation.
    std::uint16_t c = 0;
    /// Where the value is kept.
    std::uint16_t d = 0;
    std::uint16_t jump = 0;
};

struct program_code
{
    std::vector<code_line> lines;
    /// Constants by cell; the inputs take the cells in front of them.
    std::vector<std::pair<std::uint16_t, double>> constants;
    std::size_t cell_count = 0;
    /// The cell of each output.
    std::vector<std::uint16_t> output_cells;

    /// Nothing where the cells or a jump outgrow their 16 bits.
    static std::optional<program_code> of(const program_graph& graph);
};

/// Whether a function shows a non-finite argument in its result.
constexpr bool shows_infinity(operation_code operation)
{
    using enum operation_code;
    switch (operation) {
    case sqr:
    case sqrt:
    case sin:
    case cos:
    case tan:
    case ln:
    case log:
    case abs:
    case fix:
    case int_:
    case frac:
    case round:
        return true;
    default:
        return false;
    }
}

/// Whether a program may compute it as a function of one value.
constexpr bool is_function(operation_code operation)
{
    return operation >= operation_code::sqr && operation != operation_code::rand;
}

constexpr bool is_relation(operation_code operation)
{
    return operation >= operation_code::logical_or && operation <= operation_code::greater_less;
}

} // namespace kelvarin
