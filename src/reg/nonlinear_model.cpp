// SPDX-License-Identifier: MIT
#include "reg/nonlinear_model.h"

#include "expr/basParse.h"
#include "platform/format_mask.h"
#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <cstddef>

namespace kelvarin
{

namespace
{

/// Blanks around what replace_name takes for a part of a word, so that it finds every name.
std::string with_separate_names(std::string_view expression)
{
    std::string text;
    for (const char character : expression) {
        if (std::string_view("<>,").find(character) == std::string_view::npos)
            text += character;
        else
            (text += ' ').append(1, character) += ' ';
    }
    // "<=" is one sign.
    for (const std::string_view sign : {"< =", "> =", "<  >"})
        for (std::size_t at = text.find(sign); at != std::string::npos; at = text.find(sign, at + 1))
            text.erase(at + 1, sign.size() - 2);
    return text;
}

/// A value in parentheses with 4 digits, "(1.235e4)".
std::string substitute(double value)
{
    std::string text = format_masked(value, "0.000E-0");
    std::ranges::replace(text, 'E', 'e');
    return "(" + text + ")";
}

} // namespace

nonlinear_model parts_of_model(std::string_view text, const table_reader& table)
{
    nonlinear_model model;
    const std::size_t equals = text.find('=');
    model.has_equals = equals != std::string_view::npos;
    if (model.has_equals) model.dependent = trimmed(text.substr(0, equals));
    model.expression = trimmed(clean_expression_text(text.substr(model.has_equals ? equals + 1 : 0)));
    model.names = names_in_model(model.expression, table);
    return model;
}

std::optional<message_box> model_fault(const nonlinear_model& model, const table_reader& table)
{
    const check_result checked = check_expression(model.expression);
    if (!checked.ok) return message_box{checked.message, box_icon::critical};
    if (model.names.independents.empty())
        return message_box{"Independent variable/s not specified in the model.", box_icon::exclamation};
    if (!model.has_equals)
        return message_box{"The nonlinear model was not entered properly. Use the format: <dep var> = <nonlinear "
                           "expression>",
                           box_icon::exclamation};
    if (!table.column_of(model.dependent))
        return message_box{"Y function is not a valid column name.", box_icon::exclamation};
    return std::nullopt;
}

std::optional<message_box> entry_fault(std::string_view dependent, std::string_view expression)
{
    const std::string text = clean_expression_text(expression);
    if (trimmed(text).empty()) return message_box{"No regression model was entered.", box_icon::exclamation};
    const check_result checked = check_expression(text);
    if (!checked.ok) return message_box{checked.message, box_icon::critical};
    if (std::ranges::find(checked.names, dependent) != checked.names.end())
        return message_box{"Dependent variable can not be part of the model text (" + std::string(dependent) + ").",
                           box_icon::exclamation};
    return std::nullopt;
}

std::string model_formula(std::string_view expression, std::span<const std::string> parameters,
                          std::span<const double> values)
{
    std::string text = with_separate_names(expression);
    for (std::size_t j = 0; j < parameters.size(); ++j)
        text = replace_name(text, parameters[j], substitute(values[j]));
    return text;
}

} // namespace kelvarin
