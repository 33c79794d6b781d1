// SPDX-License-Identifier: MIT
#include "graph/graph_curves.h"

#include "expr/basParse.h"
#include "platform/text_file.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

message_box refusal_of(std::string text)
{
    return {std::move(text), box_icon::exclamation};
}

bool is_variable_name(std::string_view name)
{
    if (!is_valid_name(name)) return false;
    const token_list tokens = scan_tokens(name);
    return tokens.size() == 1 && tokens.front().is_variable();
}

/// An expression bound to the columns that it names.
class derived_expression
{
public:
    derived_expression(const graph_content& graph, std::string_view text)
    {
        const check_result checked = check_expression(text);
        for (const std::string_view name : checked.names)
            if (const auto column = find_column(graph, name))
                inputs_.push_back({store_.slot_of(name), graph.columns[*column].values});
        built_ = build_tree(checked.tokens, store_);
    }

    /// Nothing where the evaluation fails; a gap where a column has one.
    std::optional<double> at(std::size_t point)
    {
        for (const input& each : inputs_) {
            const double value = each.values[point];
            if (!std::isfinite(value)) return std::numeric_limits<double>::quiet_NaN();
            store_.set(each.slot, value);
        }
        const double value = evaluate_tree(built_.tree, expression_tree::root, store_, context_);
        if (context_.eval_error_flag()) return std::nullopt;
        return value;
    }

private:
    struct input
    {
        clsParse::slot slot = 0;
        shared_values values;
    };

    clsParse store_;
    evaluation_context context_;
    std::vector<input> inputs_;
    built_tree built_;
};

} // namespace

std::optional<std::size_t> find_column(const graph_content& graph, std::string_view name)
{
    const auto found =
        std::ranges::find(graph.columns, name, [](const graph_column& column) { return reference_name(column.name); });
    if (found == graph.columns.end()) return std::nullopt;
    return static_cast<std::size_t>(found - graph.columns.begin());
}

std::optional<message_box> check_derived_name(const graph_content& graph, std::string_view name)
{
    const std::string wanted(trimmed(name));
    if (!is_variable_name(wanted)) return refusal_of("'" + wanted + "' is not a valid variable name");
    if (find_column(graph, wanted)) return refusal_of("'" + wanted + "' is not a unique variable name");
    return std::nullopt;
}

std::optional<message_box> check_derived_expression(const graph_content& graph, std::string_view text)
{
    for (const std::string_view name : collect_variable_names(scan_tokens(text)))
        if (!find_column(graph, name))
            return refusal_of("'" + std::string(name) + "' is not a known scatter curve name");
    const check_result checked = check_expression(text);
    if (!checked.ok) return refusal_of(checked.message);
    clsParse store;
    const built_tree built = build_tree(checked.tokens, store);
    if (!built.ok()) return refusal_of(built.message);
    return std::nullopt;
}

std::optional<message_box> add_derived_curve(graph_content& graph, std::string_view name, std::string_view text)
{
    if (auto refused = check_derived_name(graph, name)) return refused;
    const std::string expression_text = field_text(text);
    if (auto refused = check_derived_expression(graph, expression_text)) return refused;

    derived_expression expression(graph, expression_text);
    std::vector<double> values;
    for (std::size_t point = 0; point < graph.point_count(); ++point) {
        const std::optional<double> value = expression.at(point);
        if (!value)
            return message_box{"Error found while evaluating derived curve.\rPlease close the current graph window.",
                               box_icon::critical, std::string(fatal_title)};
        values.push_back(*value);
    }
    graph.columns.push_back({std::string(trimmed(name)) + " = " + expression_text, shared_values(std::move(values))});
    graph.curve_visible.push_back(true);
    return std::nullopt;
}

void use_as_x(graph_content& graph, std::size_t column)
{
    assert(column < graph.columns.size());
    std::swap(graph.columns.front(), graph.columns[column]);
}

void sort_by_x(graph_content& graph)
{
    const shared_values& x = graph.columns.front().values;
    std::vector<std::size_t> order(graph.point_count());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, [&x](std::size_t a, std::size_t b) {
        if (std::isnan(x[a]) || std::isnan(x[b])) return !std::isnan(x[a]) && std::isnan(x[b]);
        return x[a] < x[b];
    });
    if (std::ranges::is_sorted(order)) return;
    for (graph_column& column : graph.columns) {
        std::vector<double> sorted;
        sorted.reserve(order.size());
        for (const std::size_t point : order)
            sorted.push_back(column.values[point]);
        column.values = shared_values(std::move(sorted));
    }
}

void restore_xy(graph_content& graph)
{
    graph.x_manual = false;
    graph.y_manual = false;
}

} // namespace kelvarin
