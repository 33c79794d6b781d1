// SPDX-License-Identifier: MIT
#include "expr/program_code.h"

#include <cassert>

namespace kelvarin
{

namespace
{

constexpr std::size_t most_registers = 65536;
constexpr std::size_t most_jumped = 65535;

/// Writes code for the values of a graph in the order in which they are needed. A value used more than
/// once is stored when it is first computed; one computed inside a branch is forgotten behind it, since
/// the branch may not have run.
class code_writer
{
public:
    using value_id = program_graph::value_id;
    using value = program_graph::value;
    using line_kind = code_line::line_kind;

    explicit code_writer(const program_graph& graph)
        : graph_(graph), register_of_(graph.values().size(), no_register), checked_(graph.values().size(), 0),
          next_register_(graph.input_count())
    {
        choose_checks();
        for (std::size_t id = 0; id < graph.values().size(); ++id) {
            const value& v = graph.values()[id];
            if (v.kind == program_graph::value_kind::input) {
                register_of_[id] = v.input;
            } else if (v.kind == program_graph::value_kind::constant) {
                register_of_[id] = static_cast<std::int32_t>(next_register_);
                code_.constants.emplace_back(register_number(next_register_++), v.constant);
            }
        }
        code_.lines.reserve(graph.values().size() + 8);
    }

    std::optional<program_code> write()
    {
        for (const value_id result : graph_.results())
            if (!available(result)) compute(result);
        for (const value_id output : graph_.outputs())
            code_.output_registers.push_back(register_of(output));
        halt();
        code_.register_count = next_register_;
        if (next_register_ > most_registers || !fits_) return std::nullopt;
        return std::move(code_);
    }

private:
    static constexpr std::int32_t no_register = -1;

    static std::uint16_t register_number(std::size_t number) { return static_cast<std::uint16_t>(number); }
    const value& at(value_id id) const { return graph_.values()[static_cast<std::size_t>(id)]; }
    bool available(value_id id) const { return register_of_[static_cast<std::size_t>(id)] != no_register; }
    std::uint16_t register_of(value_id id) const
    {
        assert(available(id));
        return register_number(static_cast<std::size_t>(register_of_[static_cast<std::size_t>(id)]));
    }
    /// Finds the results that need a check of their own: those that no value computed in any case would
    /// show or check.
    void choose_checks()
    {
        std::vector<char> certain(graph_.values().size(), 0);
        std::vector<char> covered(graph_.values().size(), 0);
        for (const value_id result : graph_.results())
            certain[static_cast<std::size_t>(result)] = 1;
        for (std::size_t id = graph_.values().size(); id-- > 0;) {
            const value& v = graph_.values()[id];
            if (v.is_result && !covered[id]) checked_[id] = covered[id] = 1;
            if (!certain[id] || v.kind != program_graph::value_kind::operation) continue;
            const bool conditional = v.operation == operation_code::if_then_else;
            cover(v.a, certain, covered, covered[id] || checks_first(v.operation));
            if (!conditional && v.b != program_graph::none)
                cover(v.b, certain, covered, covered[id] || checks_second(v.operation));
        }
    }

    static void cover(value_id id, std::vector<char>& certain, std::vector<char>& covered, bool seen)
    {
        certain[static_cast<std::size_t>(id)] = 1;
        if (seen) covered[static_cast<std::size_t>(id)] = 1;
    }

    /// Whether an operation adds its operand to the check.
    static bool checks_first(operation_code operation)
    {
        if (operation == operation_code::if_then_else || operation == operation_code::power) return true;
        return is_relation(operation) || (is_function(operation) && !shows_infinity(operation));
    }
    static bool checks_second(operation_code operation)
    {
        return operation == operation_code::divide || operation == operation_code::power || is_relation(operation);
    }

    /// Computes a value into the accumulator, and stores it where it is needed again.
    void compute(value_id id)
    {
        const value& v = at(id);
        if (v.operation == operation_code::if_then_else)
            write_conditional(v);
        else if (v.b == program_graph::none)
            write_function(v);
        else
            write_binary(v);
        accumulator_ = id;
        if (v.is_result || v.uses > 1) store(id);
    }

    /// Keeps the accumulator, which holds the value.
    void store(value_id id)
    {
        if (available(id)) return;
        if (!takes_store_) pass_on();
        code_line& line = code_.lines.back();
        // Beside a function or a power the check costs nothing, and saves the machine a handler for each of them.
        const bool checks = checked_[static_cast<std::size_t>(id)] || line.kind == line_kind::operation;
        line.kept = checks ? store_mode::store_checked : store_mode::store;
        line.d = register_number(next_register_);
        register_of_[static_cast<std::size_t>(id)] = static_cast<std::int32_t>(next_register_++);
        stored_.push_back(id);
        takes_store_ = takes_operation_ = takes_third_ = false;
    }

    void halt()
    {
        const bool straight = !code_.lines.empty() && !takes_store_ &&
                              code_.lines.back().kept == store_mode::store_checked &&
                              code_.lines.back().kind == line_kind::arithmetic && code_.lines.size() != jump_target_;
        if (straight)
            code_.lines.back().kept = store_mode::store_checked_and_halt;
        else
            code_.lines.push_back({});
    }

    void append(const code_line& line)
    {
        if (leaves_accumulator(line.first)) before_ = accumulator_;
        code_.lines.push_back(line);
        takes_store_ = true;
        takes_operation_ = line.kind == line_kind::arithmetic && line.second == operand_form::none;
        takes_third_ = false;
    }

    /// A line that leaves the accumulator as it is, for what is to be done behind a jump's target.
    void pass_on() { append({.kind = line_kind::arithmetic, .first = operand_form::accumulator}); }

    void load(value_id id)
    {
        if (!available(id)) return compute(id);
        append({.kind = line_kind::arithmetic, .first = operand_form::load, .a = register_of(id)});
        accumulator_ = id;
    }

    struct operands
    {
        operand_form form = operand_form::register_register;
        std::uint16_t a = 0;
        std::uint16_t b = 0;
    };

    /// Whether a value that is not available takes one line that starts afresh, and otherwise goes on from
    /// the accumulator: then the accumulator before is left alone.
    bool is_chain(value_id id) const
    {
        while (true) {
            const value& v = at(id);
            if (v.operation == operation_code::if_then_else) return false;
            const bool has_a = available(v.a);
            const bool has_b = v.b == program_graph::none || available(v.b);
            if (has_a && has_b) return true;
            if (!has_a && !has_b && v.a != v.b) return false;
            id = has_a ? v.b : v.a;
        }
    }

    /// Computes two values of which neither is available. Afterwards one is in the accumulator, and the
    /// other one in the accumulator before or in a register.
    void compute_both(value_id left, value_id right)
    {
        const bool left_first = is_chain(right) || !is_chain(left);
        const value_id first = left_first ? left : right;
        const value_id second = left_first ? right : left;
        compute(first);
        if (available(second)) return;
        if (!is_chain(second) || accumulator_ != first) store(first);
        ++waiting_;
        compute(second);
        --waiting_;
    }

    /// Makes both operands of a line ready. They stay in the accumulators where they are there already:
    /// a value that has just been stored comes back faster from there than from its register.
    operands ready(value_id left, value_id right)
    {
        if (!available(left) && !available(right) && left != right)
            compute_both(left, right);
        else if (!available(left))
            compute(left);
        else if (!available(right))
            compute(right);
        if (before_ == left && before_ == right && accumulator_ != left) return {operand_form::before_twice};
        if (accumulator_ == left && accumulator_ == right) return {operand_form::accumulator_twice};
        if (before_ == left && accumulator_ == right) return {operand_form::before_accumulator};
        if (accumulator_ == left && before_ == right) return {operand_form::accumulator_before};
        if (accumulator_ == left) return {operand_form::accumulator_register, register_of(right)};
        if (accumulator_ == right) return {operand_form::register_accumulator, register_of(left)};
        return {operand_form::register_register, register_of(left), register_of(right)};
    }

    void write_function(const value& v)
    {
        if (available(v.a) && accumulator_ != v.a) {
            append({.kind = line_kind::operation,
                    .first = operand_form::load,
                    .operation = v.operation,
                    .a = register_of(v.a)});
            return;
        }
        if (accumulator_ != v.a) compute(v.a);
        append({.kind = line_kind::operation, .first = operand_form::accumulator, .operation = v.operation});
    }

    static std::optional<arithmetic> arithmetic_of(operation_code operation)
    {
        switch (operation) {
        case operation_code::add:
            return arithmetic::add;
        case operation_code::subtract:
            return arithmetic::subtract;
        case operation_code::multiply:
            return arithmetic::multiply;
        case operation_code::divide:
            return arithmetic::divide;
        default:
            return std::nullopt;
        }
    }

    void write_binary(const value& v)
    {
        operands sides = ready(v.a, v.b);
        const auto operation = arithmetic_of(v.operation);
        // Of the value before, too, there are only squares; it is in its register, since it is used twice.
        if (sides.form == operand_form::before_twice && operation != arithmetic::multiply)
            sides = {operand_form::register_register, register_of(v.a), register_of(v.a)};
        if (operation) return write_arithmetic(*operation, sides, v);
        append(
            {.kind = line_kind::operation, .first = sides.form, .operation = v.operation, .a = sides.a, .b = sides.b});
    }

    static third_operation third_of(arithmetic operation)
    {
        if (operation == arithmetic::add) return third_operation::add;
        return operation == arithmetic::subtract ? third_operation::subtract : third_operation::multiply;
    }

    /// Whether a line that goes on from the accumulator may leave it to the accumulator before, where a value
    /// that is needed again is found sooner than in its register.
    bool may_keep(operand_form form, arithmetic operation) const
    {
        return form == operand_form::accumulator_register && operation != arithmetic::divide && waiting_ == 0 &&
               accumulator_ != program_graph::none && available(accumulator_);
    }

    void write_arithmetic(arithmetic operation, operands sides, const value& v)
    {
        const bool commutes = operation == arithmetic::add || operation == arithmetic::multiply;
        if (commutes && sides.form == operand_form::register_accumulator)
            sides.form = operand_form::accumulator_register;
        if (commutes && sides.form == operand_form::accumulator_before) sides.form = operand_form::before_accumulator;
        if (sides.form == operand_form::accumulator_twice && operation != arithmetic::multiply) {
            // Squares are frequent; any other operation of a value on itself takes it from its register as well.
            store(v.a);
            sides = {operand_form::accumulator_register, register_of(v.a)};
        }
        const bool extends = !leaves_accumulator(sides.form) && sides.form != operand_form::accumulator_twice;
        if (extends && takes_operation_) {
            code_line& line = code_.lines.back();
            line.second = sides.form;
            line.second_operation = operation;
            line.c = sides.a;
            takes_operation_ = false;
            takes_third_ = takes_third(line.first, line.second);
            return;
        }
        if (takes_third_ && sides.form == operand_form::accumulator_register && operation != arithmetic::divide) {
            code_line& line = code_.lines.back();
            line.third = third_of(operation);
            (line.second == operand_form::accumulator_register ? line.b : line.c) = sides.a;
            takes_third_ = false;
            return;
        }
        if (may_keep(sides.form, operation)) sides.form = operand_form::kept_register;
        append({.kind = line_kind::arithmetic,
                .first = sides.form,
                .first_operation = operation,
                .a = sides.a,
                .b = sides.b});
    }

    /// Writes one branch; what it stores is not available behind it.
    void write_branch(value_id id)
    {
        const std::size_t outside = stored_.size();
        takes_store_ = takes_operation_ = takes_third_ = false;
        accumulator_ = before_ = program_graph::none;
        load(id);
        for (std::size_t i = outside; i < stored_.size(); ++i)
            register_of_[static_cast<std::size_t>(stored_[i])] = no_register;
        stored_.resize(outside);
        accumulator_ = before_ = program_graph::none;
        takes_store_ = takes_operation_ = takes_third_ = false;
    }

    /// Adds a jump whose length is set when its target is known.
    std::size_t open_jump(line_kind kind)
    {
        append({.kind = kind});
        return code_.lines.size() - 1;
    }

    void close_jump(std::size_t from)
    {
        const std::size_t length = code_.lines.size() - from;
        if (length > most_jumped) fits_ = false;
        code_.lines[from].jump = static_cast<std::uint16_t>(length);
        jump_target_ = code_.lines.size();
    }

    void write_conditional(const value& v)
    {
        load(v.a);
        accumulator_ = program_graph::none;
        const std::size_t to_else = open_jump(line_kind::jump_if_zero);
        write_branch(v.b);
        const std::size_t to_end = open_jump(line_kind::jump);
        close_jump(to_else);
        write_branch(v.c);
        close_jump(to_end);
    }

    const program_graph& graph_;
    program_code code_;
    std::vector<std::int32_t> register_of_;
    /// Whether a value is checked when it is stored.
    std::vector<char> checked_;
    std::vector<value_id> stored_;
    std::size_t next_register_;
    /// The values that the accumulators hold.
    value_id accumulator_ = program_graph::none;
    value_id before_ = program_graph::none;
    /// The line that the last jump leads to.
    std::size_t jump_target_ = static_cast<std::size_t>(-1);
    /// Whether the last line made the accumulator's value and can still keep it, or apply a further
    /// operation to it.
    bool takes_store_ = false;
    bool takes_operation_ = false;
    bool takes_third_ = false;
    /// How many left sides wait for their right sides, the last one perhaps in the accumulator before.
    int waiting_ = 0;
    bool fits_ = true;
};

} // namespace

std::optional<program_code> program_code::of(const program_graph& graph)
{
    return code_writer(graph).write();
}

} // namespace kelvarin
