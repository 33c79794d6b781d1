// SPDX-License-Identifier: MIT
#include "expr/program_graph.h"

#include <bit>
#include <cmath>

namespace kelvarin
{

/// Turns trees into values, looking each one up before it makes it.
class graph_maker
{
public:
    using value_id = program_graph::value_id;
    using value = program_graph::value;
    using code = operation_code;

    explicit graph_maker(const tree_system& system)
    {
        std::size_t nodes = system.inputs.size();
        clsParse::slot last_slot = 0;
        for (const auto& definition : system.definitions) {
            nodes += static_cast<std::size_t>(definition.tree->size());
            last_slot = std::max(last_slot, definition.slot);
        }
        for (const expression_tree* tree : system.outputs)
            nodes += static_cast<std::size_t>(tree->size());
        for (const clsParse::slot slot : system.inputs)
            last_slot = std::max(last_slot, slot);
        graph_.values_.reserve(nodes + nodes / 4);
        buckets_.assign(std::bit_ceil(2 * nodes + 16), none);
        of_slot_.assign(last_slot + 1u, none);
    }

    std::optional<program_graph> make(const tree_system& system)
    {
        for (std::size_t i = 0; i < system.inputs.size(); ++i)
            of_slot_[system.inputs[i]] = add_input(static_cast<std::int32_t>(i));
        graph_.input_count_ = system.inputs.size();
        for (const auto& definition : system.definitions) {
            const value_id made = take(*definition.tree, expression_tree::root);
            if (!possible_ || of_slot_[definition.slot] != none) return std::nullopt;
            of_slot_[definition.slot] = made;
            add_result(made);
        }
        for (const expression_tree* tree : system.outputs) {
            const value_id made = take(*tree, expression_tree::root);
            if (!possible_) return std::nullopt;
            add_result(made);
            graph_.outputs_.push_back(made);
        }
        return std::move(graph_);
    }

private:
    static constexpr value_id none = program_graph::none;

    value& at(value_id id) { return graph_.values_[static_cast<std::size_t>(id)]; }

    value_id add(const value& made)
    {
        graph_.values_.push_back(made);
        return static_cast<value_id>(graph_.values_.size() - 1);
    }

    value_id add_input(std::int32_t place)
    {
        value made;
        made.kind = program_graph::value_kind::input;
        made.input = place;
        return add(made);
    }

    void add_result(value_id id)
    {
        ++at(id).uses;
        if (at(id).is_result) return;
        at(id).is_result = true;
        graph_.results_.push_back(id);
    }

    /// The value of a subtree.
    value_id take(const expression_tree& tree, int node)
    {
        if (!possible_) return none;
        const expression_node& here = tree[node];
        switch (here.kind) {
        case node_kind::leaf:
            return here.is_number ? constant(here.value) : variable(here.variable);
        case node_kind::function: {
            if (here.operation == code::rand) return give_up();
            const value_id a = take(tree, here.left);
            return operation(here.operation, a, none, none);
        }
        case node_kind::binary: {
            const value_id a = take(tree, here.left);
            const value_id b = take(tree, here.right);
            return binary(here.operation, a, b);
        }
        case node_kind::if_then_else: {
            const value_id a = take(tree, here.left);
            const value_id b = take(tree, here.right);
            const value_id c = take(tree, here.third);
            return operation(code::if_then_else, a, b, c);
        }
        }
        return give_up();
    }

    value_id give_up()
    {
        possible_ = false;
        return none;
    }

    value_id variable(clsParse::slot slot)
    {
        if (slot >= of_slot_.size() || of_slot_[slot] == none) return give_up();
        return of_slot_[slot];
    }

    value_id binary(code op, value_id a, value_id b)
    {
        if (!possible_) return none;
        if (op == code::power && at(b).kind == program_graph::value_kind::constant) {
            // Whole powers 2 and 3 are products, here as in the walk.
            if (at(b).constant == 2.0) return operation(code::multiply, a, a, none);
            if (at(b).constant == 3.0) return operation(code::multiply, operation(code::multiply, a, a, none), a, none);
        }
        return operation(op, a, b, none);
    }

    value_id constant(double number)
    {
        value made;
        made.kind = program_graph::value_kind::constant;
        made.constant = number;
        return found_or_added(made);
    }

    value_id operation(code op, value_id a, value_id b, value_id c)
    {
        if (!possible_) return none;
        if (const auto known = folded(op, a, b)) return constant(*known);
        value made;
        made.operation = op;
        made.a = a;
        made.b = b;
        made.c = c;
        const std::size_t before = graph_.values_.size();
        const value_id id = found_or_added(made);
        if (graph_.values_.size() > before)
            for (const value_id used : {a, b, c})
                if (used != none) ++at(used).uses;
        return id;
    }

    static std::uint64_t mixed(std::uint64_t key)
    {
        key *= 0x9E3779B97F4A7C15u;
        return key ^ (key >> 29);
    }

    static bool same(const value& a, const value& b)
    {
        return a.kind == b.kind && a.operation == b.operation && a.a == b.a && a.b == b.b && a.c == b.c &&
               std::bit_cast<std::uint64_t>(a.constant) == std::bit_cast<std::uint64_t>(b.constant);
    }

    value_id found_or_added(const value& made)
    {
        // Products made of powers can outnumber the nodes for which room was made.
        if (graph_.values_.size() * 4 > buckets_.size() * 3) grow_buckets();
        const std::size_t mask = buckets_.size() - 1;
        for (std::size_t i = hash_of(made) & mask;; i = (i + 1) & mask) {
            if (buckets_[i] == none) return buckets_[i] = add(made);
            if (same(at(buckets_[i]), made)) return buckets_[i];
        }
    }

    void grow_buckets()
    {
        std::vector<value_id> kept = std::move(buckets_);
        buckets_.assign(kept.size() * 2, none);
        const std::size_t mask = buckets_.size() - 1;
        for (const value_id id : kept) {
            if (id == none) continue;
            std::size_t i = hash_of(at(id)) & mask;
            while (buckets_[i] != none)
                i = (i + 1) & mask;
            buckets_[i] = id;
        }
    }

    static std::uint64_t hash_of(const value& v)
    {
        if (v.kind == program_graph::value_kind::constant) return mixed(std::bit_cast<std::uint64_t>(v.constant));
        const auto part = [](value_id id) { return static_cast<std::uint64_t>(static_cast<std::uint32_t>(id)); };
        return mixed((part(v.a) << 32 | part(v.b)) ^ (part(v.c) << 16) ^ static_cast<std::uint64_t>(v.operation) << 56);
    }

    /// What an operation on constants gives, where that is finite: nothing is lost by knowing it early.
    std::optional<double> folded(code op, value_id a, value_id b)
    {
        const auto is_constant = [&](value_id id) { return at(id).kind == program_graph::value_kind::constant; };
        if (op == code::if_then_else || !is_constant(a) || (b != none && !is_constant(b))) return std::nullopt;
        const double left = at(a).constant;
        double result = 0.0;
        if (b == none) {
            result = row_of(op).value(left);
        } else {
            const double right = at(b).constant;
            switch (op) {
            case code::add:
                result = left + right;
                break;
            case code::subtract:
                result = left - right;
                break;
            case code::multiply:
                result = left * right;
                break;
            case code::divide:
                result = right == 0.0 ? NAN : left / right;
                break;
            case code::power:
                result = power_value(left, right);
                break;
            default:
                return std::nullopt;
            }
        }
        if (!std::isfinite(result)) return std::nullopt;
        return result;
    }

    program_graph graph_;
    /// Open addressing over the ids of constants and operations.
    std::vector<value_id> buckets_;
    std::vector<value_id> of_slot_;
    bool possible_ = true;
};

std::optional<program_graph> program_graph::of(const tree_system& system)
{
    return graph_maker(system).make(system);
}

} // namespace kelvarin
