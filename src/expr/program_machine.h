// SPDX-License-Identifier: MIT
#pragma once

#include "expr/operation_table.h"
#include "expr/program_code.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

/// The machine that runs a program's code, over a type of cell: a double, or several doubles side by
/// side (lanes). Each line becomes an instruction of a handler and its cells, and there is one handler
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

// ------------------------------------------------------------------------------ lanes of a cell

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

/// Direct form: runs to the end of the program and returns the check.
template <class V> using direct_handler = V (*)(const instruction<V>*, V*, V, V, V);
/// Loop form: one step; nothing follows behind the end.
template <class V> using loop_handler = const instruction<V>* (*)(const instruction<V>*, V*, V&, V&, V&);
template <class V> using handler = std::conditional_t<direct_jumps, direct_handler<V>, loop_handler<V>>;

template <class V> struct instruction
{
    handler<V> run = nullptr;
    std::uint16_t a = 0;
    std::uint16_t b = 0;
    /// The second operation's cell, or a jump's length.
    std::uint16_t c = 0;
    std::uint16_t d = 0;
};

/// Makes a handler of a step `next = Step(instruction, cells, accumulator, before, check)`.
template <class V, auto Step> V run_directly(const instruction<V>* at, V* cells, V accumulator, V before, V check)
{
    at = Step(at, cells, accumulator, before, check);
    return at->run(at, cells, accumulator, before, check);
}

/// The last step: returns the check.
template <class V, auto Step> V run_last_directly(const instruction<V>* at, V* cells, V accumulator, V before, V check)
{
    Step(at, cells, accumulator, before, check);
    return check;
}
template <class V, auto Step>
const instruction<V>* run_last(const instruction<V>* at, V* cells, V& accumulator, V& before, V& check)
{
    Step(at, cells, accumulator, before, check);
    return nullptr;
}

template <class V, auto Step, keep Keep = keep::no> constexpr handler<V> handler_of()
{
    if constexpr (Keep == keep::store_checked_and_halt) {
        if constexpr (direct_jumps)
            return run_last_directly<V, Step>;
        else
            return run_last<V, Step>;
    } else if constexpr (direct_jumps)
        return run_directly<V, Step>;
    else
        return Step;
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
inline V compute_operands(const V* cells, std::uint16_t a, std::uint16_t b, const V& accumulator, const V& before,
                          V& check)
{
    if constexpr (Form == operand_form::load)
        return cells[a];
    else if constexpr (Form == operand_form::cell_cell)
        return compute<V, Operation>(cells[a], cells[b], check);
    else if constexpr (Form == operand_form::accumulator_cell || Form == operand_form::kept_cell)
        return compute<V, Operation>(accumulator, cells[a], check);
    else if constexpr (Form == operand_form::cell_accumulator)
        return compute<V, Operation>(cells[a], accumulator, check);
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

template <class V, keep Keep> inline void keep_value(V* cells, std::uint16_t d, const V& value, V& check)
{
    if constexpr (Keep == keep::store_checked || Keep == keep::store_checked_and_halt) check += value - value;
    if constexpr (Keep != keep::no) cells[d] = value;
}

template <class V, operand_form First, arithmetic FirstOperation, operand_form Second, arithmetic SecondOperation,
          third_operation Third, keep Keep>
inline const instruction<V>* arithmetic_step(const instruction<V>* at, V* cells, V& accumulator, V& before, V& check)
{
    const V first = compute_operands<V, First, FirstOperation>(cells, at->a, at->b, accumulator, before, check);
    if constexpr (leaves_accumulator(First)) before = accumulator;
    accumulator = compute_operands<V, Second, SecondOperation>(cells, at->c, 0, first, before, check);
    constexpr bool spare_b = Second == operand_form::accumulator_cell;
    if constexpr (Third == third_operation::add) accumulator += cells[spare_b ? at->b : at->c];
    if constexpr (Third == third_operation::subtract) accumulator -= cells[spare_b ? at->b : at->c];
    if constexpr (Third == third_operation::multiply) accumulator *= cells[spare_b ? at->b : at->c];
    keep_value<V, Keep>(cells, at->d, accumulator, check);
    return at + 1;
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
inline V operation_value(const instruction<V>* at, const V* cells, [[maybe_unused]] const V& accumulator,
                         [[maybe_unused]] const V& before, V& check)
{
    using form = operand_form;
    if constexpr (Form == form::load)
        return function_value<V, Operation>(cells[at->a], check);
    else if constexpr (Form == form::accumulator)
        return function_value<V, Operation>(accumulator, check);
    else if constexpr (Form == form::cell_cell)
        return pair_value<V, Operation>(cells[at->a], cells[at->b], check);
    else if constexpr (Form == form::accumulator_cell)
        return pair_value<V, Operation>(accumulator, cells[at->a], check);
    else if constexpr (Form == form::cell_accumulator)
        return pair_value<V, Operation>(cells[at->a], accumulator, check);
    else if constexpr (Form == form::before_accumulator)
        return pair_value<V, Operation>(before, accumulator, check);
    else if constexpr (Form == form::accumulator_before)
        return pair_value<V, Operation>(accumulator, before, check);
    else
        return pair_value<V, Operation>(accumulator, accumulator, check);
}

template <class V, operation_code Operation, operand_form Form, keep Keep>
inline const instruction<V>* operation_step(const instruction<V>* at, V* cells, V& accumulator, V& before, V& check)
{
    const V value = operation_value<V, Operation, Form>(at, cells, accumulator, before, check);
    if constexpr (leaves_accumulator(Form)) before = accumulator;
    accumulator = value;
    keep_value<V, Keep>(cells, at->d, accumulator, check);
    return at + 1;
}

template <class V> const instruction<V>* jump_step(const instruction<V>* at, V*, V&, V&, V&)
{
    return at + at->c;
}

/// Lanes that want different branches give up: the check becomes not a number, and the points are
/// evaluated one by one.
template <class V> const instruction<V>* jump_if_zero_step(const instruction<V>* at, V*, V& accumulator, V&, V& check)
{
    check += accumulator - accumulator;
    const bool zero = lane(accumulator, 0) == 0.0;
    for (int i = 1; i < lane_count<V>; ++i)
        if ((lane(accumulator, i) == 0.0) != zero) check += std::numeric_limits<double>::quiet_NaN();
    return at + (zero ? at->c : 1);
}

template <class V> V halt_directly(const instruction<V>*, V*, V, V, V check)
{
    return check;
}
template <class V> const instruction<V>* halt_step(const instruction<V>*, V*, V&, V&, V&)
{
    return nullptr;
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
    {operand_form::accumulator_cell, arithmetic::add},
    {operand_form::accumulator_cell, arithmetic::subtract},
    {operand_form::accumulator_cell, arithmetic::multiply},
    {operand_form::accumulator_cell, arithmetic::divide},
    {operand_form::cell_accumulator, arithmetic::subtract},
    {operand_form::cell_accumulator, arithmetic::divide},
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
    {operand_form::cell_cell, arithmetic::add},
    {operand_form::cell_cell, arithmetic::subtract},
    {operand_form::cell_cell, arithmetic::multiply},
    {operand_form::cell_cell, arithmetic::divide},
    {operand_form::kept_cell, arithmetic::add},
    {operand_form::kept_cell, arithmetic::subtract},
    {operand_form::kept_cell, arithmetic::multiply},
    {operand_form::before_twice, arithmetic::multiply},
}});
inline constexpr auto second_forms =
    with_continuing_forms(std::array<form_and_operation, 1>{{{operand_form::none, arithmetic::add}}});

inline constexpr std::array<third_operation, 4> thirds = {third_operation::none, third_operation::add,
                                                          third_operation::subtract, third_operation::multiply};
inline constexpr std::array<keep, 4> keeps = {keep::no, keep::store, keep::store_checked, keep::store_checked_and_halt};
inline constexpr std::array<operand_form, 8> operation_forms = {operand_form::load,
                                                                operand_form::accumulator,
                                                                operand_form::cell_cell,
                                                                operand_form::accumulator_cell,
                                                                operand_form::cell_accumulator,
                                                                operand_form::before_accumulator,
                                                                operand_form::accumulator_before,
                                                                operand_form::accumulator_twice};

template <std::size_t Count>
std::size_t index_in(const std::array<form_and_operation, Count>& forms, form_and_operation wanted)
{
    for (std::size_t i = 0; i < Count; ++i)
        if (forms[i] == wanted) return i;
    return Count;
}

/// The place of an arithmetic line's handler in their table.
constexpr std::size_t arithmetic_index(std::size_t first, std::size_t second, third_operation third, keep kept)
{
    return ((first * second_forms.size() + second) * thirds.size() + static_cast<std::size_t>(third)) * keeps.size() +
           static_cast<std::size_t>(kept);
}

template <class V, std::size_t I> constexpr handler<V> arithmetic_handler()
{
    constexpr keep kept = keeps[I % keeps.size()];
    constexpr third_operation third = thirds[I / keeps.size() % thirds.size()];
    constexpr auto second = second_forms[I / (keeps.size() * thirds.size()) % second_forms.size()];
    constexpr auto first = first_forms[I / (keeps.size() * thirds.size() * second_forms.size())];
    if constexpr (third == third_operation::none || takes_third(first.form, second.form))
        return handler_of<
            V, arithmetic_step<V, first.form, first.operation, second.form, second.operation, third, kept>, kept>();
    else
        return nullptr;
}

template <class V, std::size_t I> constexpr handler<V> operation_handler()
{
    constexpr auto operation = static_cast<operation_code>(I / (operation_forms.size() * keeps.size()));
    constexpr operand_form form = operation_forms[I / keeps.size() % operation_forms.size()];
    constexpr bool unary = form == operand_form::load || form == operand_form::accumulator;
    constexpr bool is_single = is_function(operation);
    constexpr bool is_pair = operation == operation_code::power || is_relation(operation);
    if constexpr ((unary && is_single) || (!unary && is_pair))
        return handler_of<V, operation_step<V, operation, form, keeps[I % keeps.size()]>, keeps[I % keeps.size()]>();
    else
        return nullptr;
}

template <class V, std::size_t... I> constexpr auto arithmetic_table(std::index_sequence<I...>)
{
    return std::array<handler<V>, sizeof...(I)>{arithmetic_handler<V, I>()...};
}
template <class V, std::size_t... I> constexpr auto operation_table_of(std::index_sequence<I...>)
{
    return std::array<handler<V>, sizeof...(I)>{operation_handler<V, I>()...};
}

template <class V> handler<V> handler_for(const code_line& line)
{
    static constexpr auto arithmetic_handlers =
        arithmetic_table<V>(std::make_index_sequence<arithmetic_index(first_forms.size(), 0, {}, {})>());
    static constexpr auto operation_handlers =
        operation_table_of<V>(std::make_index_sequence<operation_count * operation_forms.size() * keeps.size()>());
    const auto kept = static_cast<std::size_t>(line.kept);
    switch (line.kind) {
    case code_line::line_kind::arithmetic: {
        const std::size_t first = index_in(first_forms, {line.first, line.first_operation});
        const std::size_t second = index_in(second_forms, {line.second, line.second_operation});
        return arithmetic_handlers[arithmetic_index(first, second, line.third, line.kept)];
    }
    case code_line::line_kind::operation: {
        std::size_t form = 0;
        while (operation_forms[form] != line.first)
            ++form;
        return operation_handlers[(static_cast<std::size_t>(line.operation) * operation_forms.size() + form) *
                                      keeps.size() +
                                  kept];
    }
    case code_line::line_kind::jump_if_zero:
        return handler_of<V, jump_if_zero_step<V>>();
    case code_line::line_kind::jump:
        return handler_of<V, jump_step<V>>();
    case code_line::line_kind::halt:
        break;
    }
    if constexpr (direct_jumps)
        return halt_directly<V>;
    else
        return halt_step<V>;
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

    /// Runs over the cells; the result is not a number in each lane in which something failed, else 0.
    V run(V* cells) const
    {
        if constexpr (direct_jumps) {
            return instructions.front().run(instructions.data(), cells, V{}, V{}, V{});
        } else {
            V accumulator{};
            V before{};
            V check{};
            for (const instruction<V>* at = instructions.data(); at != nullptr;)
                at = at->run(at, cells, accumulator, before, check);
            return check;
        }
    }
};

} // namespace
} // namespace kelvarin::machine
