// SPDX-License-Identifier: MIT
#include "reg/row_model.h"

#include "platform/runtime_failure.h"

#include <cstddef>
#include <utility>

namespace kelvarin
{

std::variant<std::unique_ptr<row_model>, refused_expression>
row_model::compile(const std::string& expression, const names_and_values& names, run_listener& listener)
{
    std::vector<std::string> inputs(names.parameters.begin(), names.parameters.end());
    inputs.insert(inputs.end(), names.independents.begin(), names.independents.end());
    compilation compiled = compiled_system::compile(
        {.inputs = inputs, .definition_names = {}, .definitions = {}, .outputs = {&expression, 1}});
    if (auto* const refused = std::get_if<refused_expression>(&compiled)) return std::move(*refused);
    return std::unique_ptr<row_model>(
        new row_model(std::move(std::get<std::unique_ptr<compiled_system>>(compiled)), names, listener));
}

row_model::row_model(std::unique_ptr<compiled_system> system, const names_and_values& names, run_listener& listener)
    : system_(std::move(system)), sweep_(*system_), listener_(listener)
{
    for (std::size_t i = 0; i < names.x.size(); ++i)
        sweep_.set_input(names.parameters.size() + i, std::span<const double>(names.x[i]));
}

void row_model::operator()(std::span<const double> parameters, std::span<double> values)
{
    if (listener_.stop_asked()) throw run_stopped();
    for (std::size_t j = 0; j < parameters.size(); ++j)
        sweep_.set_input(j, parameters[j]);
    // A caller that survived a failure tries another point.
    system_->context().clear_failure();
    if (sweep_.run(values)) nrerror(system_->context().eval_error_message());
}

} // namespace kelvarin
