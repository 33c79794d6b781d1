// SPDX-License-Identifier: MIT
#include "expr/compiled_system.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <cstdint>
#include <utility>

namespace kelvarin
{

namespace
{

/// Whether every evaluation of the fast form is compared with the walk.
#ifdef KELVARIN_CHECKED
constexpr bool compares_with_walk = true;
#else
[[maybe_unused]] constexpr bool compares_with_walk = false;
#endif

bool same_bits(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

} // namespace

compilation compiled_system::compile(const system_texts& texts)
{
    assert(texts.definition_names.size() == texts.definitions.size());
    std::unique_ptr<compiled_system> made(new compiled_system);
    made->inputs_ = made->enter_names(texts.inputs);
    made->definitions_ = made->enter_names(texts.definition_names);
    for (const bool outputs : {texts.outputs_first, !texts.outputs_first}) {
        auto refused = made->compile_texts(outputs ? texts.outputs : texts.definitions, outputs);
        if (refused) return std::move(*refused);
    }
    made->make_program();
    made->definition_values_.resize(made->definitions_.size());
    return made;
}

compiled_system::slots compiled_system::enter_names(std::span<const std::string> names)
{
    slots entered;
    entered.reserve(names.size());
    for (const std::string& name : names) {
        entered.push_back(store_.slot_of(name));
        store_.set(entered.back(), 0.0);
    }
    return entered;
}

std::optional<refused_expression> compiled_system::compile_texts(std::span<const std::string> texts, bool are_outputs)
{
    trees& made = are_outputs ? output_trees_ : definition_trees_;
    made.reserve(texts.size());
    int number = 0;
    for (const std::string& text : texts) {
        ++number;
        check_result checked = check_expression(text, &store_);
        if (!checked.ok)
            return refused_expression{are_outputs, number, std::move(checked.message), false, checked.place};
        built_tree built = build_tree(checked.tokens, store_);
        if (!built.ok())
            return refused_expression{are_outputs, number, std::move(built.message), built.fatal, std::nullopt};
        made.push_back(std::move(built.tree));
    }
    return std::nullopt;
}

void compiled_system::make_program()
{
    if (output_trees_.empty()) return;
    tree_system system;
    system.inputs = inputs_;
    for (std::size_t i = 0; i < definitions_.size(); ++i)
        system.definitions.push_back({definitions_[i], &definition_trees_[i]});
    for (const trees* wanted : {&output_trees_, &definition_trees_}) {
        for (const expression_tree& tree : *wanted)
            system.outputs.push_back(&tree);
    }
    program_ = program::compile(system);
}

void compiled_system::evaluate(std::span<const double> x, std::span<double> f)
{
    assert(x.size() == inputs_.size() && f.size() == output_trees_.size());
    if (program_ && !context_.eval_error_flag() && program_->run(x, f)) {
        last_ = definitions_in::program;
        assert(!compares_with_walk || (agrees_with_walk(x, f) && definitions_agree_with_walk()));
        return;
    }
    walk(x, f);
    last_ = definitions_in::store;
}

std::span<const double> compiled_system::definition_values()
{
    assert(last_ != definitions_in::nowhere);
    for (std::size_t i = 0; i < definitions_.size(); ++i) {
        definition_values_[i] = last_ == definitions_in::program ? program_->output(output_trees_.size() + i)
                                                                 : store_.value(definitions_[i]);
    }
    return definition_values_;
}

std::vector<double> compiled_system::displayed_definitions(std::span<const double> x)
{
    last_ = definitions_in::nowhere;
    store_.remove_all_vars();
    for (std::size_t i = 0; i < inputs_.size(); ++i) {
        if (!store_.holds(inputs_[i])) store_.set(inputs_[i], x[i]);
    }
    std::vector<double> values;
    values.reserve(definitions_.size());
    for (std::size_t i = 0; i < definitions_.size(); ++i) {
        store_.remove(definitions_[i]);
        context_.clear_failure();
        values.push_back(evaluate_tree(definition_trees_[i], expression_tree::root, store_, context_));
        store_.set(definitions_[i], values.back());
    }
    context_.clear_failure();
    return values;
}

program* compiled_system::fast_program()
{
    last_ = definitions_in::nowhere;
    return program_.get();
}

void compiled_system::walk(std::span<const double> x, std::span<double> f)
{
    store_.remove_all_vars();
    for (std::size_t i = 0; i < inputs_.size(); ++i)
        store_.set(inputs_[i], x[i]);
    bool sound = !context_.eval_error_flag();
    const auto value_of = [&](const trees& list, std::size_t i) {
        const double value = evaluate_tree(list[i], expression_tree::root, store_, context_);
        if (sound && context_.eval_error_flag()) {
            sound = false;
            failed_ = {&list == &output_trees_, static_cast<int>(i) + 1, std::nullopt};
        }
        return value;
    };
    for (std::size_t i = 0; i < definitions_.size(); ++i)
        store_.set(definitions_[i], value_of(definition_trees_, i));
    for (std::size_t i = 0; i < output_trees_.size(); ++i)
        f[i] = value_of(output_trees_, i);
}

std::optional<failed_expression> compiled_system::failed_part() const
{
    if (!context_.eval_error_flag() || failed_.number == 0) return std::nullopt;
    return failed_expression{failed_.is_output, failed_.number, context_.failed_text()};
}

bool compiled_system::agrees_with_walk(std::span<const double> x, std::span<const double> f)
{
    std::vector<double> walked(f.size());
    walk(x, walked);
    return !context_.eval_error_flag() && std::ranges::equal(f, walked, same_bits);
}

bool compiled_system::definitions_agree_with_walk() const
{
    for (std::size_t i = 0; i < definitions_.size(); ++i) {
        // A name that is defined twice has its last value in the store.
        if (std::ranges::count(definitions_, definitions_[i]) > 1) continue;
        if (!same_bits(program_->output(output_trees_.size() + i), store_.value(definitions_[i]))) return false;
    }
    return true;
}

} // namespace kelvarin
