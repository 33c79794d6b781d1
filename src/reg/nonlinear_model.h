// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "reg/table/table_content.h"
#include "reg/table/table_reader.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// A model "y = expression" in its parts. Without "=" the whole text is the expression.
struct nonlinear_model
{
    std::string dependent;
    std::string expression;
    bool has_equals = false;
    model_names names;
};

nonlinear_model parts_of_model(std::string_view text, const table_reader& table);

/// Why a model can't be fitted to the table; nullopt if it can. Guesses are not looked at.
std::optional<message_box> model_fault(const nonlinear_model& model, const table_reader& table);

/// Why a text can't be entered as the model of a dependent variable; nullopt if it can.
std::optional<message_box> entry_fault(std::string_view dependent, std::string_view expression);

/// The expression with each parameter's value, of 4 digits, in its place, as the formula of a column.
std::string model_formula(std::string_view expression, std::span<const std::string> parameters,
                          std::span<const double> values);

} // namespace kelvarin
