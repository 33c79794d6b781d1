// SPDX-License-Identifier: MIT
#include "graph/graph_functions.h"

#include "expr/basParse.h"
#include "expr/compiled_system.h"
#include "expr/point_sweep.h"
#include "platform/text_file.h"

#include <cassert>
#include <memory>
#include <variant>

namespace kelvarin
{

std::vector<function_point> function_points(std::string_view text, axis_range x)
{
    constexpr double intervals = function_point_count - 1;
    std::vector<function_point> points(function_point_count);
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i].x = (x.max - x.min) * (static_cast<double>(i) / intervals) + x.min;

    const std::vector<std::string> inputs = {"x"};
    const std::vector<std::string> outputs = {std::string(text)};
    system_texts texts;
    texts.inputs = inputs;
    texts.outputs = outputs;
    const compilation compiled = compiled_system::compile(texts);
    const auto* system = std::get_if<std::unique_ptr<compiled_system>>(&compiled);
    if (system == nullptr) return points;

    std::vector<double> column;
    for (const function_point& point : points)
        column.push_back(point.x);
    point_sweep sweep(**system);
    sweep.set_input(0, column);
    std::vector<double> values(points.size());
    std::size_t next = 0;
    while (next < points.size()) {
        const std::size_t failed = sweep.run(values, next).value_or(points.size());
        for (; next < failed; ++next)
            points[next].y = values[next];
        // The failing point has no value; later ones are evaluated all the same.
        (*system)->context().clear_failure();
        ++next;
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
