// SPDX-License-Identifier: MIT
#pragma once

#include "expr/operation_table.h"
#include "expr/program_code.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

/// The machine that runs a program's code, over a type of register: a double, or several doubles side by
/// side (lanes). Each line becomes an instruction of a handler and its registers, and there is one handler
/// for each combination of operand forms and operations, so that nothing is decided while it runs.
///
/// A handler hands on to the next one directly, by a call in the last place, which the compiler turns
/// into a jump at -O2. Where it doesn't (other builds, sanitizers), handlers return to a loop; the
/// constant `direct_jumps` decides.
///
/// Everything here has internal linkage: one source file that includes it is compiled for processors with
/// wider registers, and no other file may be handed its copies by the linker.
namespace kelvarin::machine
{
namespace
{

#ifdef KELVARIN_DIRECT_JUMPS
inline constexpr bool direct_jumps = true;
#else
inline constexpr bool direct_jumps = false;
#endif

// ------------------------------------------------------------------------------ lanes of a register

template <class V> constexpr int lane_count = sizeof(V) / sizeof(double);

template <class V> inline double lane(const V& v, int i)
{
    if constexpr (std::is_same_v<V, double>)
        return v;
    else
        return v[i];
}

/// Applies a scalar function to each lane.
template <class V, class Function> inline V each_lane(const V& x, Function function)
{
    if constexpr (std::is_same_v<V, double>) {
        return function(x);
    } else {
        V result;
        for (int i = 0; i < lane_count<V>; ++i)
            result[i] = function(x[i]);
        return result;
    }
}

template <class V, class Function> inline V each_lane(const V& x, const V& y, Function function)
{
    if constexpr (std::is_same_v<V, double>) {
        return function(x, y);
    } else {
        V result;
        for (int i = 0; i < lane_count<V>; ++i)
            result[i] = function(x[i], y[i]);
        return result;
    }
}

// ------------------------------------------------------------------------------ instructions

template <class V> struct instruction;

/// How a handler takes the accumulators and the check, and what it returns. Direct form: by value, and the check at
/// the end of the program. Loop form: by reference, and the next instruction, null at the end.
template <class V> using state = std::conditional_t<direct_jumps, V, V&>;
template <class V> using handler_result = std::conditional_t<direct_jumps, V, const instruction<V>*>;
template <class V>
using handler = handler_result<V> (*)(const instruction<V>*, V*, state<V> accumulator, state<V> before, state<V> check);

template <class V> struct instruction
{
    handler<V> run = nullptr;
    std::uint16_t a = 0;
    std::uint16_t b = 0;
    /// The second operation's register, or a jump's length.
    std::uint16_t c = 0;
    std::uint16_t d = 0;
};

/// Hands on to the next instruction, as the last act of a handler.
template <class V>
inline handler_result<V> hand_on(const instruction<V>* next, V* registers, state<V> accumulator, state<V> before,
                                 state<V> check)
{
    if constexpr (direct_jumps)
        return next->run(next, registers, accumulator, before, check);
    else
        return next;
}

/// Ends the program.
template <class V> inline handler_result<V> finish([[maybe_unused]] const V& check)
{
    if constexpr (direct_jumps)
        return check;
    else
        return nullptr;
}

// ------------------------------------------------------------------------------ steps

template <class V, arithmetic Operation> inline V compute(const V& left, const V& right, V& check)
{
    if constexpr (Operation == arithmetic::add) return left + right;
    if constexpr (Operation == arithmetic::subtract) return left - right;
    if constexpr (Operation == arithmetic::multiply) return left * right;
    check += right - right; // behind a denominator an infinity would not show
    return left / right;
}

template <class V, operand_form Form, arithmetic Operation>
inline V compute_operands(const V* registers, std::uint16_t a, std::uint16_t b, const V& accumulator, const V& before,
                          V& check)
{
    if constexpr (Form == operand_form::load)
        return registers[a];
    else if constexpr (Form == operand_form::register_register)
        return compute<V, Operation>(registers[a], registers[b], check);
    else if constexpr (Form == operand_form::accumulator_register || Form == operand_form::kept_register)
        return compute<V, Operation>(accumulator, registers[a], check);
    else if constexpr (Form == operand_form::register_accumulator)
        return compute<V, Operation>(registers[a], accumulator, check);
    else if constexpr (Form == operand_form::before_accumulator)
        return compute<V, Operation>(before, accumulator, check);
    else if constexpr (Form == operand_form::accumulator_before)
        return compute<V, Operation>(accumulator, before, check);
    else if constexpr (Form == operand_form::accumulator_twice)
        return compute<V, Operation>(accumulator, accumulator, check);
    else if constexpr (Form == operand_form::before_twice)
        return compute<V, Operation>(before, before, check);
    else
        return accumulator;
}

template <class V, store_mode Mode> inline void store_value(V* registers, std::uint16_t d, const V& value, V& check)
{
    if constexpr (Mode == store_mode::store_checked || Mode == store_mode::store_checked_and_halt)
        check += value - value;
    if constexpr (Mode != store_mode::no) registers[d] = value;
}

/// A line of one to three arithmetic operations.
struct arithmetic_shape
{
    operand_form first = operand_form::none;
    arithmetic first_operation = arithmetic::add;
    operand_form second = operand_form::none;
    arithmetic second_operation = arithmetic::add;
    third_operation third = third_operation::none;
    store_mode kept = store_mode::no;

    /// A number of its own for each shape.
    constexpr std::uint32_t code() const
    {
        std::uint32_t made = static_cast<std::uint32_t>(first);
        made = made << 4 | static_cast<std::uint32_t>(first_operation);
        made = made << 4 | static_cast<std::uint32_t>(second);
        made = made << 4 | static_cast<std::uint32_t>(second_operation);
        made = made << 4 | static_cast<std::uint32_t>(third);
        return made << 4 | static_cast<std::uint32_t>(kept);
    }
    static constexpr arithmetic_shape of(std::uint32_t code)
    {
        return {static_cast<operand_form>(code >> 20),        static_cast<arithmetic>(code >> 16 & 15),
                static_cast<operand_form>(code >> 12 & 15),   static_cast<arithmetic>(code >> 8 & 15),
                static_cast<third_operation>(code >> 4 & 15), static_cast<store_mode>(code & 15)};
    }
};

/// One function for each shape, whole, and its parameter a number: there are some two thousand, and what each of
/// them costs the compiler is most of what this file costs.
template <class V, std::uint32_t Code>
handler_result<V> run_arithmetic(const instruction<V>* at, V* registers, state<V> accumulator, state<V> before,
                                 state<V> check)
{
    constexpr arithmetic_shape shape = arithmetic_shape::of(Code);
    const V first =
        compute_operands<V, shape.first, shape.first_operation>(registers, at->a, at->b, accumulator, before, check);
    if constexpr (leaves_accumulator(shape.first)) before = accumulator;
    accumulator = compute_operands<V, shape.second, shape.second_operation>(registers, at->c, 0, first, before, check);
    if constexpr (shape.third != third_operation::none) {
        const V& operand = registers[shape.second == operand_form::accumulator_register ? at->b : at->c];
        if constexpr (shape.third == third_operation::add) accumulator += operand;
        if constexpr (shape.third == third_operation::subtract) accumulator -= operand;
        if constexpr (shape.third == third_operation::multiply) accumulator *= operand;
    }
    store_value<V, shape.kept>(registers, at->d, accumulator, check);
    if constexpr (shape.kept == store_mode::store_checked_and_halt)
        return finish(check);
    else
        return hand_on(at + 1, registers, accumulator, before, check);
}

template <class V, operation_code Operation> inline V function_value(const V& x, V& check)
{
    if constexpr (!shows_infinity(Operation)) check += x - x;
    if constexpr (std::is_same_v<V, double>) {
        constexpr auto value = operation_table::rows[static_cast<std::size_t>(Operation)].value;
        return value(x);
    } else {
        return each_lane(x, row_of(Operation).value);
    }
}

template <operation_code Operation> inline double relation(double l, double r)
{
    using enum operation_code;
    if constexpr (Operation == logical_or)
        return l == 0.0 && r == 0.0 ? 0.0 : 1.0;
    else if constexpr (Operation == logical_and)
        return l != 0.0 && r != 0.0 ? 1.0 : 0.0;
    else if constexpr (Operation == greater)
        return l > r ? 1.0 : 0.0;
    else if constexpr (Operation == less)
        return l < r ? 1.0 : 0.0;
    else if constexpr (Operation == equal)
        return l == r ? 1.0 : 0.0;
    else if constexpr (Operation == greater_equal || Operation == equal_greater)
        return l < r ? 0.0 : 1.0;
    else if constexpr (Operation == less_equal || Operation == equal_less)
        return l > r ? 0.0 : 1.0;
    else
        return l != r ? 1.0 : 0.0;
}

template <class V, operation_code Operation> inline V pair_value(const V& left, const V& right, V& check)
{
    check += left - left;
    check += right - right;
    if constexpr (Operation == operation_code::power)
        return each_lane(left, right, power_value);
    else
        return each_lane(left, right, relation<Operation>);
}

template <class V, operation_code Operation, operand_form Form>
inline V operation_value(const instruction<V>* at, const V* registers, [[maybe_unused]] const V& accumulator,
                         [[maybe_unused]] const V& before, V& check)
{
    using form = operand_form;
    if constexpr (Form == form::load)
        return function_value<V, Operation>(registers[at->a], check);
    else if constexpr (Form == form::accumulator)
        return function_value<V, Operation>(accumulator, check);
    else if constexpr (Form == form::register_register)
        return pair_value<V, Operation>(registers[at->a], registers[at->b], check);
    else if constexpr (Form == form::accumulator_register)
        return pair_value<V, Operation>(accumulator, registers[at->a], check);
    else if constexpr (Form == form::register_accumulator)
        return pair_value<V, Operation>(registers[at->a], accumulator, check);
    else if constexpr (Form == form::before_accumulator)
        return pair_value<V, Operation>(before, accumulator, check);
    else if constexpr (Form == form::accumulator_before)
        return pair_value<V, Operation>(accumulator, before, check);
    else
        return pair_value<V, Operation>(accumulator, accumulator, check);
}

/// A line of a function, power or relation.
struct operation_shape
{
    operation_code operation = operation_code::none;
    operand_form form = operand_form::none;
    store_mode kept = store_mode::no;

    constexpr std::uint32_t code() const
    {
        return static_cast<std::uint32_t>(operation) << 8 | static_cast<std::uint32_t>(form) << 4 |
               static_cast<std::uint32_t>(kept);
    }
    static constexpr operation_shape of(std::uint32_t code)
    {
        return {static_cast<operation_code>(code >> 8), static_cast<operand_form>(code >> 4 & 15),
                static_cast<store_mode>(code & 15)};
    }
};

template <class V, std::uint32_t Code>
handler_result<V> run_operation(const instruction<V>* at, V* registers, state<V> accumulator, state<V> before,
                                state<V> check)
{
    constexpr operation_shape shape = operation_shape::of(Code);
    const V value = operation_value<V, shape.operation, shape.form>(at, registers, accumulator, before, check);
    if constexpr (leaves_accumulator(shape.form)) before = accumulator;
    accumulator = value;
    store_value<V, shape.kept>(registers, at->d, accumulator, check);
    return hand_on(at + 1, registers, accumulator, before, check);
}

template <class V>
handler_result<V> run_jump(const instruction<V>* at, V* registers, state<V> accumulator, state<V> before,
                           state<V> check)
{
    return hand_on(at + at->c, registers, accumulator, before, check);
}

/// Lanes that want different branches give up: the check becomes not a number, and the points are
/// evaluated one by one.
template <class V>
handler_result<V> run_jump_if_zero(const instruction<V>* at, V* registers, state<V> accumulator, state<V> before,
                                   state<V> check)
{
    check += accumulator - accumulator;
    const bool zero = lane(accumulator, 0) == 0.0;
    for (int i = 1; i < lane_count<V>; ++i)
        if ((lane(accumulator, i) == 0.0) != zero) check += std::numeric_limits<double>::quiet_NaN();
    return hand_on(at + (zero ? at->c : 1), registers, accumulator, before, check);
}

template <class V> handler_result<V> run_halt(const instruction<V>*, V*, state<V>, state<V>, state<V> check)
{
    return finish(check);
}

// ------------------------------------------------------------------------------ tables of handlers

struct form_and_operation
{
    operand_form form = operand_form::none;
    arithmetic operation = arithmetic::add;

    friend bool operator==(const form_and_operation&, const form_and_operation&) = default;
};

/// Operations that go on from the accumulator. Sums and products commute and so need one form only.
inline constexpr std::array<form_and_operation, 12> continuing_forms = {{
    {operand_form::accumulator_register, arithmetic::add},
    {operand_form::accumulator_register, arithmetic::subtract},
    {operand_form::accumulator_register, arithmetic::multiply},
    {operand_form::accumulator_register, arithmetic::divide},
    {operand_form::register_accumulator, arithmetic::subtract},
    {operand_form::register_accumulator, arithmetic::divide},
    {operand_form::before_accumulator, arithmetic::add},
    {operand_form::before_accumulator, arithmetic::subtract},
    {operand_form::before_accumulator, arithmetic::multiply},
    {operand_form::before_accumulator, arithmetic::divide},
    {operand_form::accumulator_before, arithmetic::subtract},
    {operand_form::accumulator_before, arithmetic::divide},
}};

template <std::size_t Count> constexpr auto with_continuing_forms(const std::array<form_and_operation, Count>& others)
{
    std::array<form_and_operation, Count + continuing_forms.size()> all;
    std::copy(others.begin(), others.end(), all.begin());
    std::copy(continuing_forms.begin(), continuing_forms.end(), all.begin() + Count);
    return all;
}

inline constexpr auto first_forms = with_continuing_forms(std::array<form_and_operation, 11>{{
    {operand_form::load, arithmetic::add},
    {operand_form::accumulator, arithmetic::add},
    {operand_form::accumulator_twice, arithmetic::multiply},
    {operand_form::register_register, arithmetic::add},
    {operand_form::register_register, arithmetic::subtract},
    {operand_form::register_register, arithmetic::multiply},
    {operand_form::register_register, arithmetic::divide},
    {operand_form::kept_register, arithmetic::add},
    {operand_form::kept_register, arithmetic::subtract},
    {operand_form::kept_register, arithmetic::multiply},
    {operand_form::before_twice, arithmetic::multiply},
}});
inline constexpr auto second_forms =
    with_continuing_forms(std::array<form_and_operation, 1>{{{operand_form::none, arithmetic::add}}});

inline constexpr std::array<third_operation, 4> thirds = {third_operation::none, third_operation::add,
                                                          third_operation::subtract, third_operation::multiply};
inline constexpr std::array<store_mode, 4> store_modes = {store_mode::no, store_mode::store, store_mode::store_checked,
                                                          store_mode::store_checked_and_halt};
inline constexpr std::array<operand_form, 8> operation_forms = {operand_form::load,
                                                                operand_form::accumulator,
                                                                operand_form::register_register,
                                                                operand_form::accumulator_register,
                                                                operand_form::register_accumulator,
                                                                operand_form::before_accumulator,
                                                                operand_form::accumulator_before,
                                                                operand_form::accumulator_twice};

/// Whether the code writer makes such lines: a bare accumulator is only ever kept, a loaded register is followed by a
/// jump, and a value kept in the last place is checked.
constexpr bool occurs(const arithmetic_shape& shape)
{
    const bool plain = shape.second == operand_form::none;
    if (shape.third != third_operation::none && !takes_third(shape.first, shape.second)) return false;
    if (shape.first == operand_form::load) return plain && shape.kept == store_mode::no;
    if (shape.first == operand_form::accumulator) return plain && shape.kept != store_mode::no;
    return true;
}

/// Calls `visit` with each arithmetic shape that occurs, in ascending order of `first_forms` and the others.
template <class Visit> constexpr void for_each_arithmetic_shape(Visit visit)
{
    for (const form_and_operation& first : first_forms)
        for (const form_and_operation& second : second_forms)
            for (const third_operation third : thirds)
                for (const store_mode kept : store_modes) {
                    const arithmetic_shape shape = {first.form,       first.operation, second.form,
                                                    second.operation, third,           kept};
                    if (occurs(shape)) visit(shape.code());
                }
}

template <class Visit> constexpr void for_each_operation_shape(Visit visit)
{
    for (std::size_t number = 0; number < operation_count; ++number) {
        const auto operation = static_cast<operation_code>(number);
        const bool is_pair = operation == operation_code::power || is_relation(operation);
        for (const operand_form form : operation_forms) {
            const bool single = form == operand_form::load || form == operand_form::accumulator;
            if (!(single ? is_function(operation) : is_pair)) continue;
            for (const store_mode kept : {store_mode::no, store_mode::store_checked})
                visit(operation_shape{operation, form, kept}.code());
        }
    }
}

inline constexpr std::size_t arithmetic_shape_count = [] {
    std::size_t count = 0;
    for_each_arithmetic_shape([&](std::uint32_t) { ++count; });
    return count;
}();
inline constexpr std::size_t operation_shape_count = [] {
    std::size_t count = 0;
    for_each_operation_shape([&](std::uint32_t) { ++count; });
    return count;
}();

/// The codes of all shapes, ascending.
inline constexpr auto arithmetic_codes = [] {
    std::array<std::uint32_t, arithmetic_shape_count> codes{};
    std::size_t count = 0;
    for_each_arithmetic_shape([&](std::uint32_t code) { codes[count++] = code; });
    std::sort(codes.begin(), codes.end());
    return codes;
}();
inline constexpr auto operation_codes = [] {
    std::array<std::uint32_t, operation_shape_count> codes{};
    std::size_t count = 0;
    for_each_operation_shape([&](std::uint32_t code) { codes[count++] = code; });
    return codes;
}();

template <class V, std::size_t... I> constexpr auto arithmetic_table(std::index_sequence<I...>)
{
    return std::array<handler<V>, sizeof...(I)>{run_arithmetic<V, arithmetic_codes[I]>...};
}
template <class V, std::size_t... I> constexpr auto operation_table_of(std::index_sequence<I...>)
{
    return std::array<handler<V>, sizeof...(I)>{run_operation<V, operation_codes[I]>...};
}

template <std::size_t Count> std::size_t index_in(const std::array<std::uint32_t, Count>& codes, std::uint32_t code)
{
    const auto found = std::lower_bound(codes.begin(), codes.end(), code);
    assert(found != codes.end() && *found == code);
    return static_cast<std::size_t>(found - codes.begin());
}

template <class V> handler<V> handler_for(const code_line& line)
{
    static constexpr auto arithmetic_handlers =
        arithmetic_table<V>(std::make_index_sequence<arithmetic_codes.size()>());
    static constexpr auto operation_handlers =
        operation_table_of<V>(std::make_index_sequence<operation_codes.size()>());
    switch (line.kind) {
    case code_line::line_kind::arithmetic: {
        const arithmetic_shape shape = {
            line.first, line.first_operation, line.second, line.second_operation, line.third, line.kept};
        return arithmetic_handlers[index_in(arithmetic_codes, shape.code())];
    }
    case code_line::line_kind::operation: {
        const operation_shape shape = {line.operation, line.first, line.kept};
        return operation_handlers[index_in(operation_codes, shape.code())];
    }
    case code_line::line_kind::jump_if_zero:
        return run_jump_if_zero<V>;
    case code_line::line_kind::jump:
        return run_jump<V>;
    case code_line::line_kind::halt:
        break;
    }
    return run_halt<V>;
}

// ------------------------------------------------------------------------------ a loaded program

template <class V> struct loaded_program
{
    std::vector<instruction<V>> instructions;

    explicit loaded_program(const program_code& code)
    {
        instructions.reserve(code.lines.size());
        for (const code_line& line : code.lines) {
            const bool jumps =
                line.kind == code_line::line_kind::jump || line.kind == code_line::line_kind::jump_if_zero;
            instructions.push_back({handler_for<V>(line), line.a, line.b, jumps ? line.jump : line.c, line.d});
        }
    }

    /// Runs over the registers; the result is not a number in each lane in which something failed, else 0.
    V run(V* registers) const
    {
        if constexpr (direct_jumps) {
            return instructions.front().run(instructions.data(), registers, V{}, V{}, V{});
        } else {
            V accumulator{};
            V before{};
            V check{};
            for (const instruction<V>* at = instructions.data(); at != nullptr;)
                at = at->run(at, registers, accumulator, before, check);
            return check;
        }
    }
};

} // namespace
} // namespace kelvarin::machine
