// SPDX-License-Identifier: MIT
#include "expr/basParse.h"
#include "support/calculator_lines.h"
#include "support/random_expressions.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

namespace kelvarin
{
namespace
{

RC_GTEST_PROP(RandomExpression, HasTheValueOfDirectArithmetic, ())
{
    const test::variable_values values = test::random_values(false);
    const test::random_expression expression = test::expression_maker(values, false).make(*rc::gen::inRange(0, 5));
    clsParse store;
    evaluation_context context;
    for (std::size_t i = 0; i < values.size(); ++i)
        store.modify_add_var_value(test::variable_names[i], values[i]);
    RC_LOG(expression.text);
    const solved_expression solved = test::solve_text(expression.text, store, context);
    if (!solved.ok) {
        // Something inside failed, which direct arithmetic may have lost again; but never by a refused text.
        RC_ASSERT(solved.message.starts_with("Error"));
        return;
    }
    RC_ASSERT(std::isfinite(solved.value));
    RC_ASSERT(solved.value == expression.value);
}

bool has_negative_number(const std::string& printed)
{
    for (std::size_t i = 0; i + 1 < printed.size(); ++i)
        if (printed[i] == '-' && printed[i + 1] != ' ') return true;
    return false;
}

RC_GTEST_PROP(RandomExpression, PrintsToATextOfTheSameValue, ())
{
    const test::variable_values values = test::random_values(false);
    const test::random_expression expression = test::expression_maker(values, false).make(3);
    clsParse store;
    evaluation_context context;
    for (std::size_t i = 0; i < values.size(); ++i)
        store.modify_add_var_value(test::variable_names[i], values[i]);
    const built_tree built = build_tree(scan_tokens(expression.text), store);
    const std::string printed = tree_to_text(built.tree, expression_tree::root, store);
    RC_LOG(printed);
    const double value = evaluate_tree(built.tree, expression_tree::root, store, context);
    if (context.eval_error_flag()) return;
    // Printed negative numbers and conditionals are for reading: typed, they would bind in another way.
    if (has_negative_number(printed) || printed.find("if (") != std::string::npos) return;
    const double again = store.Solve_expression(printed, context).value;
    RC_ASSERT(std::fabs(again - value) <= 1e-9 * std::fabs(value) + 1e-9);
}

RC_GTEST_PROP(AnyText, CrashesNoStepOfTheEngine, ())
{
    static const std::vector<std::string> pieces = {
        "if", "then", "else", "IF", "THEN", "ELSE", "or", "AND",  "(", ")", "(",   ")",  "+",  "-",    "*", "/",
        "^",  ">",    "<",    "=",  "==",   "1",    "2.", "1e-3", "x", "y", "sin", "ln", "2x", "\xC3", ".", "$"};
    std::string text;
    const int count = *rc::gen::inRange(0, 14);
    for (int i = 0; i < count; ++i) {
        text += *rc::gen::elementOf(pieces);
        if (*rc::gen::inRange(0, 3) != 0) text += ' ';
    }
    RC_LOG(text);
    clsParse store;
    evaluation_context context;
    const check_result checked = check_expression(text);
    RC_ASSERT(checked.ok == checked.message.empty());
    // The builder has to survive what the checker refuses, too.
    const built_tree built = build_tree(checked.tokens, store);
    RC_ASSERT(!built.fatal || !built.ok());
    if (!built.ok()) return;
    evaluate_tree(built.tree, expression_tree::root, store, context);
    tree_to_text(built.tree, expression_tree::root, store);
}

} // namespace
} // namespace kelvarin
