// SPDX-License-Identifier: MIT
#include "tools/calculator.h"

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

calculator_line read_calculator_line(std::string_view text)
{
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    const std::string_view whole = trimmed(line);

    const auto equal_sign = whole.find('=');
    if (equal_sign == std::string_view::npos) return {"", std::string(whole)};
    const std::string_view target = trimmed(whole.substr(0, equal_sign));
    if (!target.empty() && !is_valid_name(target)) return {"", std::string(whole)};
    return {std::string(target), std::string(trimmed(whole.substr(equal_sign + 1)))};
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
        // Anew, so that the variable set last is the last one listed.
        variables_.Remove_var(line.target);
        variables_.Add_new_var(line.target, solved.value);
    }
    return {solved.value, line.target, std::nullopt};
} catch (const runtime_failure& failure) {
    return refused("Internal Error trapped (" + std::to_string(failure.number()) + ")");
}

} // namespace kelvarin
