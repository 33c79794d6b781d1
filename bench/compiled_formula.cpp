// SPDX-License-Identifier: MIT
#include "compiled_formula.h"

#include "values.h"

namespace kelvarin::bench
{

namespace
{

nle_content broyden_content(int n)
{
    nle_content content;
    const std::vector<std::string> names = broyden_unknowns(n);
    const std::vector<std::string> texts = broyden_texts(n);
    for (std::size_t i = 0; i < names.size(); ++i)
        content.rows.push_back({"f(" + names[i] + ") = " + texts[i], "-1", ""});
    return content;
}

} // namespace

compiled_formula::compiled_formula(const formula& source)
{
    tree_system system;
    for (const named_value& input : source.inputs) {
        store_.modify_add_var_value(input.name, input.value);
        system.inputs.push_back(store_.slot_of(input.name));
    }
    for (const named_text& equation : source.equations) {
        store_.modify_add_var_value(equation.name, 0.0);
        slots_.push_back(store_.slot_of(equation.name));
    }
    trees_.reserve(source.equations.size());
    for (const named_text& equation : source.equations) {
        const check_result checked = check_expression(equation.text, &store_);
        require(checked.ok, equation.text + " is refused");
        trees_.push_back(build_tree(checked.tokens, store_).tree);
    }
    for (std::size_t i = 0; i + 1 < trees_.size(); ++i)
        system.definitions.push_back({slots_[i], &trees_[i]});
    system.outputs.push_back(&trees_.back());
    program_ = program::compile(system);
    require(program_ != nullptr, source.name + " has no program");
    for (std::size_t i = 0; i < source.inputs.size(); ++i) {
        program_->inputs()[i] = source.inputs[i].value;
        for (std::size_t point = 0; point < program::lanes; ++point)
            program_->lane_inputs()[i * program::lanes + point] = source.inputs[i].value;
    }
}

double compiled_formula::walk()
{
    for (std::size_t i = 0; i < trees_.size(); ++i)
        store_.set(slots_[i], evaluate_tree(trees_[i], expression_tree::root, store_, context_));
    return store_.value(slots_.back());
}

broyden_system::broyden_system(int n) : system_(broyden_content(n), listener_)
{
    system_.sort();
    require(!system_.compile_equations(), "the tridiagonal system is refused");
}

} // namespace kelvarin::bench
