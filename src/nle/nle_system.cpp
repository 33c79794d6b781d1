// SPDX-License-Identifier: MIT
#include "nle/nle_system.h"

#include "expr/point_sweep.h"
#include "nle/equations/refused_equation.h"
#include "platform/run_time_text.h"

#include <string>
#include <utility>

namespace kelvarin
{

namespace
{

void stop_if_asked(const run_listener& listener)
{
    if (listener.stop_asked()) throw run_stopped();
}

} // namespace

nle_system::nle_system(const nle_content& content, run_listener& listener) : listener_(listener)
{
    int number = 0;
    for (const equation_row& row : content.rows) {
        ++number;
        const equation_parts parts = parts_of(row.equation, nle_row_form);
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
}

std::optional<message_box> nle_system::compile_equations()
{
    compilation made = compiled_system::compile({.inputs = implicit_.names,
                                                 .definition_names = explicit_.names,
                                                 .definitions = explicit_.right_sides,
                                                 .outputs = implicit_.right_sides});
    if (const auto* refused = std::get_if<refused_expression>(&made)) {
        return refused->is_output
                   ? refused_equation_box(*refused, implicit_, right_side_offsets_, "Nonlinear equation # ")
                   : refused_equation_box(*refused, explicit_, right_side_offsets_, "Explicit expression # ");
    }
    compiled_ = std::move(std::get<std::unique_ptr<compiled_system>>(made));
    jacobian_ = std::make_unique<system_jacobian>(*compiled_, [this] { stop_if_asked(listener_); });
    return std::nullopt;
}

void nle_system::evaluate(std::span<const double> x, std::span<double> f)
{
    stop_if_asked(listener_);
    compiled_->evaluate(x, f);
}

const sparsity_pattern* nle_system::difference_quotients(std::span<const double> x, std::span<const double> f,
                                                         std::span<const double> moved,
                                                         std::span<const double> divisors, matrix& df,
                                                         const sparsity_pattern* known)
{
    return jacobian_->difference_quotients(x, f, moved, divisors, df, known);
}

void nle_system::evaluate_points(std::span<const double> x, std::span<double> f)
{
    point_sweep sweep(*compiled_, [&] { stop_if_asked(listener_); });
    sweep.set_input(0, x);
    sweep.run(f);
}

std::vector<double> nle_system::evaluate_explicit()
{
    stop_if_asked(listener_);
    compiled_->evaluate({}, {});
    const std::span<const double> values = compiled_->definition_values();
    return {values.begin(), values.end()};
}

std::optional<text_place> nle_system::failed_place() const
{
    return kelvarin::failed_place(*compiled_, implicit_, explicit_, right_side_offsets_);
}

} // namespace kelvarin
