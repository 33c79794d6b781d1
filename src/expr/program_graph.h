// SPDX-License-Identifier: MIT
#pragma once

#include "expr/basParse.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace kelvarin
{

/// A list of trees that are evaluated together: some slots are given, some trees define further slots one
/// after the other, and the values of the rest are wanted.
struct tree_system
{
    struct definition
    {
        clsParse::slot slot = 0;
        const expression_tree* tree = nullptr;
    };

    /// Slots that are set from outside. One that stands here twice has the value given last.
    std::vector<clsParse::slot> inputs;
    std::vector<definition> definitions;
    std::vector<const expression_tree*> outputs;
};

/// The values that a tree_system computes, each different one once. A value refers only to values in
/// front of it.
class program_graph
{
public:
    using value_id = std::int32_t;
    static constexpr value_id none = -1;

    enum class value_kind : std::uint8_t
    {
        input,
        constant,
        operation
    };

    struct value
    {
        value_kind kind = value_kind::operation;
        operation_code operation = operation_code::none;
        value_id a = none;
        value_id b = none;
        value_id c = none;
        /// How many values and results use it.
        std::int32_t uses = 0;
        /// A definition or an output: it has to be finite.
        bool is_result = false;
        /// Of an input: its place in the list of inputs.
        std::int32_t input = 0;
        double constant = 0.0;
    };

    /// Returns nullopt if only the plain walk gives the right meaning: a random number is drawn, or a variable
    /// may be empty.
    static std::optional<program_graph> of(const tree_system& system);

    std::span<const value> values() const { return values_; }
    /// The values of definitions and outputs, in this order and each once.
    std::span<const value_id> results() const { return results_; }
    std::span<const value_id> outputs() const { return outputs_; }
    std::size_t input_count() const { return input_count_; }

private:
    friend class graph_maker;

    std::vector<value> values_;
    std::vector<value_id> results_;
    std::vector<value_id> outputs_;
    std::size_t input_count_ = 0;
};

} // namespace kelvarin
