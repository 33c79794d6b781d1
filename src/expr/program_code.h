// SPDX-License-Identifier: MIT
#pragma once

#include "expr/program_graph.h"

#include <cstdint>
#include <optional>
#include <vector>

/// The straight code of a program, as it is before a machine has chosen its handlers.
///
/// The code works on one file of registers (inputs, constants, intermediate values), an accumulator, and the
/// accumulator before. A line computes into the accumulator and may then apply a second and a third
/// operation to it and store it. A line that does not start from the accumulator moves it to the
/// accumulator before: the left side of an operation waits there while the right side is computed. While
/// nothing waits there, a line that goes on from the accumulator may leave it there as well: of a chain in
/// which each value serves two others, the second one then finds it there, and not in the register to which it
/// is still on its way.
///
/// Beside them runs a sum of v - v over the values v in which something not finite could otherwise get
/// lost: denominators, operands of powers and comparisons, conditions, arguments of functions that are
/// finite at infinity, and the results that no such value shows. It is not a number exactly when something
/// failed.
namespace kelvarin
{

/// Where an operation finds its two operands.
enum class operand_form : std::uint8_t
{
    none,
    load,                 // register a alone
    register_register,    // a op b
    accumulator_register, // accumulator op register
    register_accumulator, // register op accumulator
    before_accumulator,   // accumulator before op accumulator
    accumulator_before,   // accumulator op accumulator before
    accumulator,          // the accumulator alone
    accumulator_twice,    // accumulator op accumulator
    kept_register,        // accumulator op register, the accumulator going to the accumulator before
    before_twice          // accumulator before op accumulator before
};

/// Whether a line of this form leaves the accumulator to the accumulator before.
constexpr bool leaves_accumulator(operand_form form)
{
    using enum operand_form;
    return form == load || form == register_register || form == kept_register || form == before_twice;
}

enum class arithmetic : std::uint8_t
{
    add,
    subtract,
    multiply,
    divide
};

enum class third_operation : std::uint8_t
{
    none,
    add,
    subtract,
    multiply
};

enum class store_mode : std::uint8_t
{
    no,
    store,
    /// The value has to be finite.
    store_checked,
    /// The same in the last line of the program.
    store_checked_and_halt
};

/// Which lines take a third operation: those with a register number to spare, as far as they are frequent.
constexpr bool takes_third(operand_form first, operand_form second)
{
    using enum operand_form;
    if (second == before_accumulator) return first == register_register || first == accumulator_register;
    return (first == accumulator_register || first == kept_register) && second == accumulator_register;
}

struct code_line
{
    enum class line_kind : std::uint8_t
    {
        /// One to three arithmetic operations.
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
    /// A third operation, always of the accumulator and a register.
    third_operation third = third_operation::none;
    store_mode kept = store_mode::no;
    operation_code operation = operation_code::none;
    std::uint16_t a = 0;
    std::uint16_t b = 0;
    /// Operand of the second operation. That of a third one stands in whichever of b and c is free.
    std::uint16_t c = 0;
    /// Where the value is kept.
    std::uint16_t d = 0;
    std::uint16_t jump = 0;
};

struct program_code
{
    std::vector<code_line> lines;
    /// Constants by register; the inputs take the registers in front of them.
    std::vector<std::pair<std::uint16_t, double>> constants;
    std::size_t register_count = 0;
    /// The register of each output.
    std::vector<std::uint16_t> output_registers;

    /// Returns nullopt if the registers or a jump outgrow their 16 bits.
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
