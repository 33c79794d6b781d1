// SPDX-License-Identifier: MIT
#include "opt/opt_system.h"

#include "nle/equations/refused_equation.h"
#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"
#include "platform/text_file.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <variant>

namespace kelvarin
{

namespace
{

/// The box of a target that does not compile.
message_box refused_target_box(const refused_expression& refused, const text_place& place)
{
    message_box box = {refused.message, box_icon::critical};
    box.place = place;
    if (refused.fatal) {
        box.title = fatal_title;
        box.fatal = true;
    } else {
        box.text = "Target function error.\r" + refused.message;
    }
    return box;
}

} // namespace

opt_system::opt_system(const opt_content& content, run_listener& listener)
    : listener_(listener), target_(trimmed(content.target)), target_offset_(content.target.find(target_))
{
    int number = 0;
    for (const equation_row& row : content.rows)
        read_row(++number, row.equation);
    inputs_.resize(input_names_.size());
}

void opt_system::read_row(int number, std::string_view equation)
{
    const equation_parts parts = parts_of(equation, opt_row_form);
    right_side_offsets_.push_back(parts.right_side_offset);
    if (equation.empty()) return;
    const std::string name(parts.name);
    if (!parts.implicit) return explicit_.add(name, std::string(parts.right_side), number);
    const std::optional<double> start = numeric_value(parts.right_side);
    if (!start) throw runtime_failure(failure_number::type_mismatch);
    if (std::ranges::find(input_names_, name) == input_names_.end()) {
        input_names_.push_back(name);
        input_variables_.push_back(names_.size());
    }
    names_.push_back(name);
    start_values_.push_back(*start);
}

void opt_system::opt_sort_explicit()
{
    sort_explicit_equations(explicit_);
    for (std::size_t i = 0; i < explicit_.names.size(); ++i)
        if (uses_itself(explicit_, i)) nrerror(circular_definition_text);
}

std::vector<std::string> opt_system::definition_names() const
{
    std::vector<std::string> names;
    for (const std::string& name : explicit_.names) {
        const bool taken = std::ranges::find(input_names_, name) != input_names_.end() ||
                           std::ranges::find(names, name) != names.end();
        names.push_back(taken ? name + "(unused)" : name);
    }
    return names;
}

std::optional<message_box> opt_system::opt_compile()
{
    const std::vector<std::string> definitions = definition_names();
    compilation made = compiled_system::compile({.inputs = input_names_,
                                                 .definition_names = definitions,
                                                 .definitions = explicit_.right_sides,
                                                 .outputs = {&target_, 1}});
    if (const auto* refused = std::get_if<refused_expression>(&made)) {
        return refused->is_output
                   ? refused_target_box(*refused, place_in_target(refused->place))
                   : refused_equation_box(*refused, explicit_, right_side_offsets_, "Explicit expression # ");
    }
    compiled_ = std::move(std::get<std::unique_ptr<compiled_system>>(made));
    sweep_ = std::make_unique<point_sweep>(*compiled_, [this] { throw_if_stopped(); });
    return std::nullopt;
}

text_place opt_system::place_in_target(const std::optional<byte_range>& part) const
{
    if (!part) return {0, target_offset_, target_.size()};
    return {0, target_offset_ + part->offset, part->length};
}

std::optional<text_place> opt_system::failed_place() const
{
    const std::optional<failed_expression> failed = compiled_->failed_part();
    if (failed && failed->is_output) return place_in_target(failed->place);
    return kelvarin::failed_place(*compiled_, {}, explicit_, right_side_offsets_);
}

double opt_system::value(std::span<const double> x)
{
    throw_if_stopped();
    ++evaluations_;
    double f = 0.0;
    compiled_->evaluate(inputs_at(x), {&f, 1});
    if (context().eval_error_flag()) throw evaluation_failed();
    points_.push_back({{x.begin(), x.end()}, f});
    return f;
}

objective::value_pair opt_system::values_beside(std::span<const double> x, std::size_t variable, double offset,
                                                std::span<double>)
{
    evaluations_ += 2;
    const bool was_ahead =
        ahead_.next && ahead_.variable == variable && ahead_.next_offset == offset && std::ranges::equal(ahead_.x, x);
    if (was_ahead) return *std::exchange(ahead_.next, std::nullopt);
    return sweep_pairs(x, variable, offset);
}

std::optional<double> opt_system::try_value(std::span<const double> x)
{
    throw_if_stopped();
    double f = 0.0;
    compiled_->evaluate(inputs_at(x), {&f, 1});
    if (!context().eval_error_flag()) return f;
    compiled_->context().clear_failure();
    return std::nullopt;
}

std::vector<double> opt_system::explicit_values(std::span<const double> x)
{
    std::vector<double> values = compiled_->displayed_definitions(inputs_at(x));
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto input = std::ranges::find(input_names_, explicit_.names[i]);
        const auto first = std::ranges::find(explicit_.names, explicit_.names[i]);
        values[i] = input == input_names_.end() ? values[static_cast<std::size_t>(first - explicit_.names.begin())]
                                                : inputs_[static_cast<std::size_t>(input - input_names_.begin())];
    }
    return values;
}

std::span<const double> opt_system::inputs_at(std::span<const double> x)
{
    for (std::size_t i = 0; i < inputs_.size(); ++i)
        inputs_[i] = x[input_variables_[i]];
    return inputs_;
}

void opt_system::throw_if_stopped() const
{
    if (listener_.stop_asked()) throw run_stopped();
}

objective::value_pair opt_system::sweep_pairs(std::span<const double> x, std::size_t variable, double offset)
{
    ahead_.x.assign(x.begin(), x.end());
    ahead_.variable = variable;
    ahead_.next_offset = offset / gradient_step_ratio;
    ahead_.next.reset();
    const double next = ahead_.next_offset;
    column_ = {x[variable] + offset, x[variable] - offset, x[variable] + next, x[variable] - next};
    for (std::size_t i = 0; i < input_names_.size(); ++i) {
        if (input_variables_[i] == variable)
            sweep_->set_input(i, column_);
        else
            sweep_->set_input(i, x[input_variables_[i]]);
    }
    // Random numbers are drawn by no point that nobody asks for.
    const bool looks_ahead = compiled_->fast_program() != nullptr;
    const std::size_t asked = 2;
    const std::optional<std::size_t> failed = sweep_->run(std::span(swept_).first(looks_ahead ? swept_.size() : asked));
    if (failed && *failed < asked) {
        failed_ = {variable, x[variable], *failed == 0 ? offset : -offset};
        throw evaluation_failed();
    }
    if (failed)
        compiled_->context().clear_failure();
    else if (looks_ahead)
        ahead_.next = {swept_[2], swept_[3]};
    return {swept_[0], swept_[1]};
}

} // namespace kelvarin
