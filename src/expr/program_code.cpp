// SPDX-License-Identifier: MIT
#include "expr/program_code.h"

namespace kelvarin
{

namespace
{

constexpr std::size_t most_cells = 65536;
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
        : graph_(graph), cell_of_(graph.values().size(), no_cell), next_cell_(graph.input_count())
    {
        for (std::size_t id = 0; id < graph.values().size(); ++id) {
            const value& v = graph.values()[id];
            if (v.kind == program_graph::value_kind::input) {
                cell_of_[id] = v.input;
            } else if (v.kind == program_graph::value_kind::constant) {
                cell_of_[id] = static_cast<std::int32_t>(next_cell_);
                code_.constants.emplace_back(cell(next_cell_++), v.constant);
            }
        }
        code_.lines.reserve(graph.values().size() + 8);
    }

    std::optional<program_code> write()
    {
        for (const value_id result : graph_.results())
            if (!available(result)) compute(result);
        for (const value_id output : graph_.outputs())
            code_.output_cells.push_back(cell_of(output));
        code_.lines.push_back({});
        code_.cell_count = next_cell_;
        if (next_cell_ > most_cells || !fits_) return std::nullopt;
        return std::move(code_);
    }

private:
    static constexpr std::int32_t no_cell = -1;

    static std::uint16_t cell(std::size_t number) { return static_cast<std::uint16_t>(number); }
    const value& at(value_id id) const { return graph_.values()[static_cast<std::size_t>(id)]; }
    bool available(value_id id) const { return cell_of_[static_cast<std::size_t>(id)] != no_cell; }
    std::uint16_t cell_of(value_id id) const
    {
        return cell(static_cast<std::size_t>(cell_of_[static_cast<std::size_t>(id)]));
    }
    /// Inputs, constants and results are finite, or the check has seen that they are not.
    bool known_finite(value_id id) const
    {
        return at(id).kind != program_graph::value_kind::operation || at(id).is_result;
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
        if (v.is_result || v.uses > 1) store(id);
    }

    /// Keeps the accumulator, which holds the value.
    void store(value_id id)
    {
        if (available(id)) return;
        if (!takes_store_) pass_on();
        code_line& line = code_.lines.back();
        line.kept = at(id).is_result ? keep::store_checked : keep::store;
        line.d = cell(next_cell_);
        cell_of_[static_cast<std::size_t>(id)] = static_cast<std::int32_t>(next_cell_++);
        stored_.push_back(id);
        takes_store_ = takes_operation_ = false;
    }

    void append(const code_line& line)
    {
        code_.lines.push_back(line);
        takes_store_ = true;
        takes_operation_ = line.kind == line_kind::arithmetic && line.second == operand_form::none;
    }

    /// A line that leaves the accumulator as it is, for what is to be done behind a jump's target.
    void pass_on() { append({.kind = line_kind::arithmetic, .first = operand_form::accumulator}); }

    void load(value_id id)
    {
        if (available(id))
            append({.kind = line_kind::arithmetic, .first = operand_form::load, .a = cell_of(id)});
        else
            compute(id);
    }

    struct operands
    {
        operand_form form = operand_form::cell_cell;
        std::uint16_t a = 0;
        std::uint16_t b = 0;
    };

    /// Makes both operands of a line ready; at most one of them stays in the accumulator.
    operands ready(value_id left, value_id right)
    {
        if (!available(left) && !available(right) && left != right) {
            compute(left);
            if (available(right)) return {operand_form::accumulator_cell, cell_of(right)};
            // The second one takes the accumulator.
            store(left);
        }
        if (!available(left)) {
            compute(left);
            return {operand_form::accumulator_cell, cell_of(right)};
        }
        if (!available(right)) {
            compute(right);
            return {operand_form::cell_accumulator, cell_of(left)};
        }
        return {operand_form::cell_cell, cell_of(left), cell_of(right)};
    }

    void write_function(const value& v)
    {
        if (available(v.a)) {
            append({.kind = line_kind::operation,
                    .first = operand_form::load,
                    .operation = v.operation,
                    .a = cell_of(v.a)});
            return;
        }
        compute(v.a);
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
        const operands sides = ready(v.a, v.b);
        const auto operation = arithmetic_of(v.operation);
        if (operation)
            write_arithmetic(*operation, sides, known_finite(v.b));
        else
            append({.kind = line_kind::operation,
                    .first = sides.form,
                    .operation = v.operation,
                    .a = sides.a,
                    .b = sides.b});
    }

    void write_arithmetic(arithmetic operation, operands sides, bool finite_denominator)
    {
        const bool in_accumulator = sides.form == operand_form::cell_accumulator;
        if (operation == arithmetic::divide && (in_accumulator || !finite_denominator))
            operation = arithmetic::divide_checked;
        const bool commutes = operation == arithmetic::add || operation == arithmetic::multiply;
        if (in_accumulator && commutes) sides.form = operand_form::accumulator_cell;
        if (sides.form != operand_form::cell_cell && takes_operation_) {
            code_line& line = code_.lines.back();
            line.second = sides.form;
            line.second_operation = operation;
            line.c = sides.a;
            takes_operation_ = false;
            return;
        }
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
        takes_store_ = takes_operation_ = false;
        load(id);
        for (std::size_t i = outside; i < stored_.size(); ++i)
            cell_of_[static_cast<std::size_t>(stored_[i])] = no_cell;
        stored_.resize(outside);
        takes_store_ = takes_operation_ = false;
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
    }

    void write_conditional(const value& v)
    {
        load(v.a);
        const std::size_t to_else = open_jump(line_kind::jump_if_zero);
        write_branch(v.b);
        const std::size_t to_end = open_jump(line_kind::jump);
        close_jump(to_else);
        write_branch(v.c);
        close_jump(to_end);
    }

    const program_graph& graph_;
    program_code code_;
    std::vector<std::int32_t> cell_of_;
    std::vector<value_id> stored_;
    std::size_t next_cell_;
    /// Whether the last line made the accumulator's value and can still keep it, or apply a further
    /// operation to it.
    bool takes_store_ = false;
    bool takes_operation_ = false;
    bool fits_ = true;
};

} // namespace

std::optional<program_code> program_code::of(const program_graph& graph)
{
    return code_writer(graph).write();
}

} // namespace kelvarin
