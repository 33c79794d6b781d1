// SPDX-License-Identifier: MIT
#include "expr/basParse.h"
#include "expr/formulas.h"
#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"

#include <cmath>
#include <limits>

namespace kelvarin
{

namespace
{

constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

/// One walk over a tree. The normal path of a node is its arithmetic and one test for a finite result;
/// only where that fails, the reason is looked for and put into words.
class walk
{
public:
    walk(const expression_tree& tree, const clsParse& store, evaluation_context& context)
        : tree_(tree), store_(store), context_(context)
    {
    }

    double value_of(int node)
    {
        if (context_.eval_error_flag()) return 0.0;
        const expression_node& here = tree_[node];
        switch (here.kind) {
        case node_kind::leaf:
            return here.is_number ? here.value : variable(here);
        case node_kind::function:
            return function(here, value_of(here.left));
        case node_kind::binary: {
            const double left = value_of(here.left);
            const double right = value_of(here.right);
            return binary(here, left, right);
        }
        case node_kind::if_then_else:
            return value_of(value_of(here.left) == 0.0 ? here.third : here.right);
        }
        return 0.0;
    }

private:
    double variable(const expression_node& leaf)
    {
        if (store_.holds(leaf.variable)) return store_.value(leaf.variable);
        return fail(leaf, "Variable " + std::string(store_.slot_name(leaf.variable)) + " is empty");
    }

    double function(const expression_node& here, double x)
    {
        if (here.operation == operation_code::rand) return random(here, x);
        const double value = row_of(here.operation).value(x);
        return std::isfinite(value) ? value : failed_function(here, x);
    }

    double random(const expression_node& here, double x)
    {
        if (std::fabs(x) > static_cast<double>(std::numeric_limits<float>::max()))
            return fail_at_run_time(here, failure_number::overflow);
        return static_cast<double>(context_.generator.next(static_cast<float>(x)));
    }

    double binary(const expression_node& here, double left, double right)
    {
        const double value = operator_value(here.operation, left, right);
        return std::isfinite(value) ? value : failed_operator(here, left, right);
    }

    static double operator_value(operation_code operation, double left, double right)
    {
        using enum operation_code;
        switch (operation) {
        case add:
            return left + right;
        case subtract:
            return left - right;
        case multiply:
            return left * right;
        case divide:
            return right == 0.0 ? not_a_number : left / right;
        case power:
            return power_value(left, right);
        case logical_or:
            return left == 0.0 && right == 0.0 ? 0.0 : 1.0;
        case logical_and:
            return left != 0.0 && right != 0.0 ? 1.0 : 0.0;
        case greater:
            return left > right ? 1.0 : 0.0;
        case less:
            return left < right ? 1.0 : 0.0;
        case equal:
            return left == right ? 1.0 : 0.0;
        case greater_equal:
        case equal_greater:
            return left < right ? 0.0 : 1.0;
        case less_equal:
        case equal_less:
            return left > right ? 0.0 : 1.0;
        case unequal:
        case greater_less:
            return left != right ? 1.0 : 0.0;
        default:
            return not_a_number;
        }
    }

    double failed_function(const expression_node& here, double x)
    {
        const operation_row& row = row_of(here.operation);
        const int failure = row.checked(x).failure;
        if (failure == failure_number::invalid_argument && !row.refusal.empty() && !context_.eval_error_flag())
            return fail(here,
                        std::string(row.refusal) + '\r' + std::string(row.spelling) + '(' + text(here.left) + ')');
        return fail_at_run_time(here, failure);
    }

    double failed_operator(const expression_node& here, double left, double right)
    {
        if (here.operation == operation_code::divide && right == 0.0)
            return refuse(here, "Zero denominator not allowed.");
        if (here.operation == operation_code::power && left < 0.0 && std::floor(right) != right)
            return refuse(here, "Fractional exponent with negative mantissa not allowed.");
        if (here.operation == operation_code::power && left == 0.0 && right < 0.0)
            return refuse(here, "Negative exponent with zero mantissa not allowed. ");
        return fail_at_run_time(here, failure_number::overflow);
    }

    /// The evaluator's own refusal, with both operands behind it.
    double refuse(const expression_node& here, std::string_view sentence)
    {
        if (context_.eval_error_flag()) return 0.0;
        return fail(here, std::string(sentence) + '\r' + text(here.left) + ' ' +
                              std::string(row_of(here.operation).spelling) + ' ' + text(here.right));
    }

    std::string text(int node) const { return tree_to_text(tree_, node, store_); }

    double fail(const expression_node& here, const std::string& reason)
    {
        context_.fail("Error: " + reason, place_of(here));
        return 0.0;
    }

    double fail_at_run_time(const expression_node& here, int number)
    {
        context_.fail("Error " + std::to_string(number) + ": " + std::string(runtime_failure_text(number)),
                      place_of(here));
        return 0.0;
    }

    static byte_range place_of(const expression_node& here) { return {here.text_offset, here.text_length}; }

    const expression_tree& tree_;
    const clsParse& store_;
    evaluation_context& context_;
};

} // namespace

void evaluation_context::fail(std::string message, const std::optional<byte_range>& text)
{
    if (flag_) return;
    flag_ = true;
    message_ = std::move(message);
    failed_text_ = text;
}

void evaluation_context::clear_failure()
{
    flag_ = false;
    message_.clear();
    failed_text_.reset();
}

double evaluate_tree(const expression_tree& tree, int node, const clsParse& store, evaluation_context& context)
{
    return walk(tree, store, context).value_of(node);
}

} // namespace kelvarin
