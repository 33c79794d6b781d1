// SPDX-License-Identifier: MIT
#include "graph/graph_curves.h"

#include "expr/basParse.h"
#include "expr/compiled_system.h"
#include "expr/point_sweep.h"
#include "platform/text_file.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>
#include <memory>
#include <numeric>
#include <span>
#include <string>
#include <utility>
#include <variant>
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

/// The indexes of points at which all of the columns have a value.
std::vector<std::size_t> points_without_gap(std::span<const shared_values> columns, std::size_t count)
{
    std::vector<std::size_t> points;
    for (std::size_t point = 0; point < count; ++point)
        if (std::ranges::all_of(columns, [point](const shared_values& each) { return std::isfinite(each[point]); }))
            points.push_back(point);
    return points;
}

/// The values of a checked expression at all points. Returns nullopt if an evaluation fails.
std::optional<std::vector<double>> derived_values(const graph_content& graph, const std::string& text)
{
    std::vector<std::string> names;
    std::vector<shared_values> columns;
    for (const std::string_view name : check_expression(text).names) {
        names.emplace_back(name);
        columns.push_back(graph.columns[find_column(graph, name).value()].values);
    }
    const std::vector<std::string> outputs = {text};
    system_texts texts;
    texts.inputs = names;
    texts.outputs = outputs;
    const compilation compiled = compiled_system::compile(texts);
    const auto* system = std::get_if<std::unique_ptr<compiled_system>>(&compiled);
    if (system == nullptr) return std::nullopt;

    // The engine takes only finite values.
    const std::vector<std::size_t> points = points_without_gap(columns, graph.point_count());
    std::vector<std::vector<double>> inputs;
    point_sweep sweep(**system);
    for (const shared_values& column : columns) {
        std::vector<double>& input = inputs.emplace_back();
        for (const std::size_t point : points)
            input.push_back(column[point]);
    }
    for (std::size_t i = 0; i < inputs.size(); ++i)
        sweep.set_input(i, inputs[i]);
    std::vector<double> results(points.size());
    if (sweep.run(results)) return std::nullopt;

    std::vector<double> values(graph.point_count(), std::numeric_limits<double>::quiet_NaN());
    for (std::size_t i = 0; i < points.size(); ++i)
        values[points[i]] = results[i];
    return values;
}

/// For each point the first curve of those that it belongs to, directly or through curves that share points with it.
std::vector<std::size_t> parts_of_points(const graph_content& graph)
{
    // A curve points to one before it of the same part, the first of a part to itself.
    std::vector<std::size_t> joined(graph.curve_count() + 1);
    std::iota(joined.begin(), joined.end(), std::size_t{0});
    const auto first_of = [&](std::size_t curve) {
        while (joined[curve] != curve)
            curve = joined[curve];
        return curve;
    };
    std::vector<std::size_t> part(graph.point_count(), 0);
    for (std::size_t point = 0; point < part.size(); ++point) {
        std::optional<std::size_t> found;
        for (std::size_t curve = 0; curve < graph.curve_count(); ++curve) {
            if (std::isnan(graph.columns[curve + 1].values[point])) continue;
            const std::size_t first = first_of(curve);
            const std::size_t other = found.value_or(first);
            joined[std::max(first, other)] = std::min(first, other);
            found = std::min(first, other);
        }
        part[point] = found.value_or(0);
    }
    std::ranges::transform(part, part.begin(), first_of);
    return part;
}

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

    std::optional<std::vector<double>> values = derived_values(graph, expression_text);
    if (!values)
        return message_box{"Error found while evaluating derived curve.\rPlease close the current graph window.",
                           box_icon::critical, std::string(fatal_title)};
    graph.columns.push_back({std::string(trimmed(name)) + " = " + expression_text, shared_values(std::move(*values))});
    graph.curve_visible.push_back(true);
    return std::nullopt;
}

void add_curves(graph_content& graph, const added_curves& added)
{
    constexpr double gap = std::numeric_limits<double>::quiet_NaN();
    const std::size_t before = graph.point_count();
    const std::size_t more = added.x.values.size();
    for (graph_column& column : graph.columns) {
        std::vector<double> values(column.values.span().begin(), column.values.span().end());
        if (column.name == added.x.name)
            values.insert(values.end(), added.x.values.span().begin(), added.x.values.span().end());
        values.resize(before + more, gap);
        column.values = shared_values(std::move(values));
    }
    for (const graph_column& curve : added.curves) {
        assert(curve.values.size() == more);
        std::vector<double> values(before, gap);
        values.insert(values.end(), curve.values.span().begin(), curve.values.span().end());
        graph.columns.push_back({joinable_text(curve.name), shared_values(std::move(values))});
        graph.curve_visible.push_back(true);
    }
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
    const std::vector<std::size_t> part = parts_of_points(graph);
    std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) {
        if (part[a] != part[b]) return part[a] < part[b];
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
