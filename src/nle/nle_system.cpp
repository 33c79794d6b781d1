// SPDX-License-Identifier: MIT
#include "nle/nle_system.h"

#include "platform/run_time_text.h"

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
constexpr bool checked_build = true;
#else
constexpr bool checked_build = false;
#endif

/// Enters names in the store and gives their slots.
std::vector<clsParse::slot> enter_names(const std::vector<std::string>& names, clsParse& store)
{
    std::vector<clsParse::slot> slots;
    slots.reserve(names.size());
    for (const std::string& name : names) {
        const clsParse::slot place = store.slot_of(name);
        store.set(place, 0.0);
        slots.push_back(place);
    }
    return slots;
}

} // namespace

nle_system::nle_system(const nle_content& content, run_listener& listener) : listener_(listener)
{
    int number = 0;
    for (const equation_row& row : content.rows) {
        ++number;
        const equation_parts parts = parts_of(row.equation);
        right_side_offsets_.push_back(parts.right_side_offset);
        if (row.equation.empty()) continue;
        equation_list& list = parts.implicit ? implicit_ : explicit_;
        list.add(std::string(parts.name), std::string(parts.right_side), number);
        if (!parts.implicit) continue;
        guesses_.push_back(val(row.guess));
        constraints_.push_back(constraint_of(row.guess));
    }
}

void nle_system::sort()
{
    sort_explicit_equations(explicit_);
    nle_parser_.remove_all_vars();
    implicit_slots_ = enter_names(implicit_.names, nle_parser_);
    explicit_slots_ = enter_names(explicit_.names, nle_parser_);
}

std::optional<message_box> nle_system::compile_equations()
{
    if (std::optional<message_box> refused = compile(explicit_, "Explicit expression # ")) return refused;
    if (std::optional<message_box> refused = compile(implicit_, "Nonlinear equation # ")) return refused;
    make_program();
    return std::nullopt;
}

std::optional<message_box> nle_system::compile(equation_list& equations, std::string_view label)
{
    const std::optional<refused_equation> refused = compile_list(equations, nle_parser_);
    if (!refused) return std::nullopt;

    const int row = equations.rows[static_cast<std::size_t>(refused->number - 1)];
    message_box box = {refused->message, box_icon::critical};
    box.place = text_place{row, right_side_offsets_[static_cast<std::size_t>(row - 1)],
                           equations.right_sides[static_cast<std::size_t>(refused->number - 1)].size()};
    if (refused->place) {
        box.place->offset += refused->place->offset;
        box.place->length = refused->place->length;
    }
    if (refused->fatal) {
        box.title = fatal_title;
        box.fatal = true;
    } else {
        box.text = std::string(label) + std::to_string(refused->number) + '\r' + refused->message;
    }
    return box;
}

void nle_system::make_program()
{
    tree_system system;
    system.inputs = implicit_slots_;
    for (std::size_t i = 0; i < explicit_slots_.size(); ++i) {
        system.definitions.push_back({explicit_slots_[i], &explicit_.trees[i]});
    }
    for (const expression_tree& tree : implicit_.trees)
        system.outputs.push_back(&tree);
    program_ = nle_program::compile(std::move(system));
}

void nle_system::evaluate(std::span<const double> x, std::span<double> f)
{
    if (listener_.stop_asked()) throw run_stopped();
    if (program_ && !context_.eval_error_flag() && program_->evaluate(x, f)) {
        assert(!checked_build || agrees_with_walk(x, f));
        return;
    }
    walk(x, f);
}

const sparsity_pattern* nle_system::difference_quotients(std::span<const double> x, std::span<const double> f,
                                                         std::span<const double> moved,
                                                         std::span<const double> divisors, matrix& df,
                                                         const sparsity_pattern* known)
{
    if (listener_.stop_asked()) throw run_stopped();
    if (program_ && !context_.eval_error_flag()) {
        const auto made = program_->difference_quotients(x, f, moved, divisors, df, known);
        if (made) return *made;
    }
    nonlinear_system::difference_columns(x, f, moved, divisors, df);
    return nullptr;
}

void nle_system::walk(std::span<const double> x, std::span<double> f)
{
    nle_parser_.remove_all_vars();
    for (std::size_t i = 0; i < implicit_slots_.size(); ++i)
        nle_parser_.set(implicit_slots_[i], x[i]);
    for (std::size_t i = 0; i < explicit_slots_.size(); ++i) {
        const double value = evaluate_tree(explicit_.trees[i], expression_tree::root, nle_parser_, context_);
        nle_parser_.set(explicit_slots_[i], value);
    }
    for (std::size_t i = 0; i < implicit_slots_.size(); ++i) {
        f[i] = evaluate_tree(implicit_.trees[i], expression_tree::root, nle_parser_, context_);
    }
}

bool nle_system::agrees_with_walk(std::span<const double> x, std::span<const double> f)
{
    std::vector<double> walked(f.size());
    walk(x, walked);
    const auto same_bits = [](double a, double b) {
        return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    };
    return !context_.eval_error_flag() && std::ranges::equal(f, walked, same_bits);
}

std::vector<double> nle_system::evaluate_explicit()
{
    if (listener_.stop_asked()) throw run_stopped();
    walk({}, {});
    std::vector<double> values;
    values.reserve(explicit_slots_.size());
    for (const clsParse::slot place : explicit_slots_)
        values.push_back(nle_parser_.value(place));
    return values;
}

std::vector<double> nle_system::explicit_values(std::span<const double> x)
{
    nle_parser_.remove_all_vars();
    for (std::size_t i = 0; i < implicit_slots_.size(); ++i) {
        // Of unknowns that share a name the first one is shown, though the last one is solved with.
        if (!nle_parser_.holds(implicit_slots_[i])) nle_parser_.set(implicit_slots_[i], x[i]);
    }
    std::vector<double> values;
    values.reserve(explicit_slots_.size());
    for (std::size_t i = 0; i < explicit_slots_.size(); ++i) {
        nle_parser_.remove(explicit_slots_[i]);
        context_.clear_failure();
        values.push_back(evaluate_tree(explicit_.trees[i], expression_tree::root, nle_parser_, context_));
        nle_parser_.set(explicit_slots_[i], values.back());
    }
    context_.clear_failure();
    return values;
}

} // namespace kelvarin
