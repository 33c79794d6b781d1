// SPDX-License-Identifier: MIT
#include "tools/calculator.h"

#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"
#include "platform/text_file.h"

#include <algorithm>

namespace kelvarin
{

namespace
{

calculator_answer refused(std::string text, std::string title = guide_title)
{
    return {std::nullopt, "", message_box{std::move(text), box_icon::critical, std::move(title)}};
}

} // namespace

std::string on_one_line(std::string_view text)
{
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    return std::string(trimmed(line));
}

calculator_line read_calculator_line(std::string_view text)
{
    const std::string_view bare = trimmed(text);
    const auto start = bare.empty() ? 0 : static_cast<std::size_t>(bare.data() - text.data());
    const std::string whole = on_one_line(text);

    const auto equal_sign = whole.find('=');
    if (equal_sign == std::string::npos) return {"", whole, start};
    const std::string_view target = trimmed(std::string_view(whole).substr(0, equal_sign));
    if (!target.empty() && !is_valid_name(target)) return {"", whole, start};
    const std::string_view expression = trimmed(std::string_view(whole).substr(equal_sign + 1));
    const auto offset = expression.empty() ? whole.size() : static_cast<std::size_t>(expression.data() - whole.data());
    return {std::string(target), std::string(expression), start + offset};
}

calculator_answer calculator::solve_line(std::string_view text)
try {
    const calculator_line line = read_calculator_line(text);
    const check_result checked = check_expression(line.expression, &variables_);
    if (!checked.ok) return refused(checked.message);

    const solved_expression solved = variables_.Solve_expression(line.expression, context_);
    if (!solved.ok) {
        calculator_answer answer =
            refused(solved.message, std::string(solved.fatal ? fatal_title : "Expression Parsing Error"));
        answer.refusal->fatal = solved.fatal;
        return answer;
    }

    if (!line.target.empty()) {
        // Removed first, so that the variable set last is the last in the list.
        variables_.Remove_var(line.target);
        variables_.Add_new_var(line.target, solved.value);
    }
    return {solved.value, line.target, std::nullopt};
} catch (const runtime_failure& failure) {
    return refused("Internal Error trapped (" + std::to_string(failure.number()) + ")");
}

std::optional<calculator_fault> calculator::fault_of(std::string_view text) const
{
    if (trimmed(text).empty()) return std::nullopt;
    const calculator_line line = read_calculator_line(text);
    const check_result checked = check_expression(line.expression, &variables_);
    if (checked.ok) return std::nullopt;
    calculator_fault fault{checked.message, checked.place};
    if (fault.place) fault.place->offset += line.offset;
    return fault;
}

std::optional<message_box> calculator::set_variable(std::string_view name, std::string_view text)
{
    const std::optional<double> value = numeric_value(text);
    if (!value)
        return message_box{"'" + std::string(trimmed(text)) + "' is not a number: the variable '" + std::string(name) +
                               "' keeps its value.",
                           box_icon::exclamation};
    variables_.modify_add_var_value(name, *value);
    return std::nullopt;
}

} // namespace kelvarin
