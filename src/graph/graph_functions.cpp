// SPDX-License-Identifier: MIT
#include "graph/graph_functions.h"

#include "expr/basParse.h"
#include "platform/text_file.h"

#include <algorithm>
#include <cassert>

namespace kelvarin
{

std::vector<function_point> function_points(std::string_view text, axis_range x)
{
    constexpr double intervals = function_point_count - 1;
    std::vector<function_point> points(function_point_count);
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i].x = (x.max - x.min) * (static_cast<double>(i) / intervals) + x.min;

    clsParse store;
    store.modify_add_var_value("x", x.min);
    const check_result checked = check_expression(text, &store);
    if (!checked.ok) return points;
    const built_tree built = build_tree(checked.tokens, store);
    if (!built.ok()) return points;
    const clsParse::slot slot = store.slot_of("x");
    evaluation_context context;
    for (function_point& point : points) {
        store.set(slot, point.x);
        context.clear_failure();
        const double y = evaluate_tree(built.tree, expression_tree::root, store, context);
        if (!context.eval_error_flag()) point.y = y;
    }
    return points;
}

std::optional<message_box> check_function(std::string_view text)
{
    for (const std::string_view name : collect_variable_names(scan_tokens(text)))
        if (name != "x")
            return message_box{"Only 'x' variable is allowed in the algebric expression.", box_icon::exclamation};
    const check_result checked = check_expression(text);
    if (!checked.ok) return message_box{checked.message, box_icon::exclamation};
    clsParse store;
    const built_tree built = build_tree(checked.tokens, store);
    if (!built.ok()) return message_box{built.message, box_icon::exclamation};
    return std::nullopt;
}

std::optional<message_box> check_function_count(const graph_content& graph)
{
    if (graph.functions.size() < largest_function_count) return std::nullopt;
    return message_box{"You can not use more than " + std::to_string(largest_function_count) +
                           " user function curves. Selection aborted.",
                       box_icon::exclamation};
}

std::optional<message_box> add_function(graph_content& graph, std::string_view text)
{
    if (auto refused = check_function_count(graph)) return refused;
    const std::string expression = field_text(text);
    if (auto refused = check_function(expression)) return refused;
    graph.functions.push_back({.text = expression});
    return std::nullopt;
}

std::optional<message_box> edit_function(graph_content& graph, std::size_t function, std::string_view text)
{
    assert(function < graph.functions.size());
    const std::string expression = field_text(text);
    if (auto refused = check_function(expression)) return refused;
    graph.functions[function].text = expression;
    return std::nullopt;
}

void remove_function(graph_content& graph, std::size_t function)
{
    assert(function < graph.functions.size());
    graph.functions.erase(graph.functions.begin() + static_cast<std::ptrdiff_t>(function));
}

} // namespace kelvarin
