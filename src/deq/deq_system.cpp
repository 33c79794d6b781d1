// SPDX-License-Identifier: MIT
#include "deq/deq_system.h"

#include "nle/equations/refused_equation.h"
#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"
#include "platform/text_file.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace kelvarin
{

deq_system::deq_system(const deq_content& content, run_listener& listener) : listener_(listener)
{
    input_names_.emplace_back(trimmed(content.independent));
    int number = 0;
    for (const equation_row& row : content.rows) {
        ++number;
        const equation_parts parts = parts_of(row.equation, deq_row_form);
        right_side_offsets_.push_back(parts.right_side_offset);
        if (row.equation.empty()) continue;
        equation_list& list = parts.implicit ? differential_ : explicit_;
        list.add(std::string(parts.name), std::string(parts.right_side), number);
        if (!parts.implicit) continue;
        input_names_.emplace_back(parts.name);
        initial_values_.push_back(val(row.guess));
    }
    inputs_.resize(input_names_.size());
    moved_.resize(input_names_.size());
    increments_.resize(input_names_.size());
}

void deq_system::sort()
{
    sort_explicit_equations(explicit_);
    for (std::size_t i = 0; i < explicit_.names.size(); ++i)
        if (uses_itself(explicit_, i)) nrerror(circular_definition_text);
}

std::optional<message_box> deq_system::compile_deq_expressions()
{
    compilation made = compiled_system::compile({.inputs = input_names_,
                                                 .definition_names = explicit_.names,
                                                 .definitions = explicit_.right_sides,
                                                 .outputs = differential_.right_sides,
                                                 .outputs_first = true});
    if (const auto* refused = std::get_if<refused_expression>(&made)) {
        return refused->is_output
                   ? refused_equation_box(*refused, differential_, right_side_offsets_, "Differential equation # ")
                   : refused_equation_box(*refused, explicit_, right_side_offsets_, "Explicit expression # ");
    }
    compiled_ = std::move(std::get<std::unique_ptr<compiled_system>>(made));
    differences_ = std::make_unique<system_jacobian>(*compiled_, [this] {
        if (listener_.stop_asked()) throw run_stopped();
    });
    return std::nullopt;
}

void deq_system::derivatives(double x, std::span<const double> y, std::span<double> dydx)
{
    set_inputs(x, y);
    compiled_->evaluate(inputs_, dydx);
    end_after_failure();
}

bool deq_system::try_derivatives(double x, std::span<const double> y, std::span<double> dydx)
{
    set_inputs(x, y);
    compiled_->evaluate(inputs_, dydx);
    if (!compiled_->context().eval_error_flag()) return true;
    compiled_->context().clear_failure();
    return false;
}

void deq_system::differences(double x, std::span<const double> y, ode_jacobian& jacobian)
{
    set_inputs(x, y);
    moved_[0] = jacobian.moved_x;
    std::ranges::copy(jacobian.moved, moved_.begin() + 1);
    increments_[0] = jacobian.increment_x;
    std::ranges::copy(jacobian.increments, increments_.begin() + 1);
    if (columns_.rows() != size()) columns_ = matrix(size(), size() + 1);
    pattern_ = differences_->difference_quotients(inputs_, jacobian.f, moved_, increments_, columns_, pattern_);
    end_after_failure();
    const bool has_zeros = pattern_ && jacobian.pattern == pattern_;
    for (int i = 0; i < size(); ++i) {
        const std::span<const double> row = columns_.row(i);
        const std::span<double> dfdy = jacobian.dfdy.row(i);
        jacobian.dfdx[static_cast<std::size_t>(i)] = row.front();
        if (!has_zeros) {
            std::ranges::copy(row.subspan(1), dfdy.begin());
            continue;
        }
        for (const std::uint32_t column : pattern_->columns_of(i))
            if (column > 0) dfdy[column - 1] = row[column];
    }
    jacobian.pattern = pattern_;
}

std::optional<text_place> deq_system::failed_place() const
{
    return kelvarin::failed_place(*compiled_, differential_, explicit_, right_side_offsets_);
}

void deq_system::set_inputs(double x, std::span<const double> y)
{
    inputs_[0] = x;
    std::ranges::copy(y, inputs_.begin() + 1);
}

void deq_system::end_after_failure() const
{
    if (compiled_->context().eval_error_flag()) throw evaluation_failed();
}

} // namespace kelvarin
