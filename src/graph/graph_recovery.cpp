// SPDX-License-Identifier: MIT
#include "graph/graph_recovery.h"

#include "graph/graph_file.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

using nlohmann::json;

/// Raised whenever a field changes its meaning, so that no older program misreads a newer one's text.
constexpr int recovery_format = 1;

/// The fields that a file holds, with its lists empty: these have bounds and separators there, and none here.
graph_content fields_of(const graph_content& graph)
{
    graph_content fields = graph;
    fields.columns = {{"", shared_values({0.0})}};
    fields.curve_visible.clear();
    fields.functions.clear();
    return fields;
}

json column_json(const graph_column& column)
{
    json values = json::array();
    for (const double value : column.values.span())
        values.push_back(std::isfinite(value) ? json(value) : json());
    return {{"name", column.name}, {"values", std::move(values)}};
}

graph_column column_of(const json& kept)
{
    std::vector<double> values;
    for (const json& value : kept.at("values"))
        values.push_back(value.is_null() ? std::numeric_limits<double>::quiet_NaN() : value.get<double>());
    return {kept.at("name").get<std::string>(), shared_values(std::move(values))};
}

axis_label_format label_format_of(const json& kept)
{
    const int number = kept.get<int>();
    const bool is_known = number >= 0 && number <= static_cast<int>(axis_label_format::engineering);
    return is_known ? static_cast<axis_label_format>(number) : axis_label_format::plain;
}

bool fits_together(const graph_content& graph)
{
    if (graph.columns.empty() || graph.curve_visible.size() != graph.curve_count()) return false;
    for (const graph_column& column : graph.columns)
        if (column.values.size() != graph.point_count()) return false;
    return true;
}

} // namespace

std::string graph_recovery_text(const graph_content& graph)
{
    json columns = json::array();
    for (const graph_column& column : graph.columns)
        columns.push_back(column_json(column));
    json functions = json::array();
    for (const graph_function& function : graph.functions)
        functions.push_back({{"text", function.text}, {"visible", function.visible}});
    const json text = {{"format", recovery_format},
                       {"file", write_graph(fields_of(graph))},
                       {"columns", std::move(columns)},
                       {"visible", graph.curve_visible},
                       {"functions", std::move(functions)},
                       {"marker_size", graph.marker_size},
                       {"x_labels", static_cast<int>(graph.x_labels)},
                       {"y_labels", static_cast<int>(graph.y_labels)}};
    // Bytes that are no text must not keep the rest from being kept.
    return text.dump(-1, ' ', false, json::error_handler_t::replace);
}

std::optional<graph_content> read_graph_recovery(std::string_view text)
try {
    const json kept = json::parse(text);
    if (kept.at("format").get<int>() != recovery_format) return std::nullopt;
    std::optional<graph_content> graph = read_graph(kept.at("file").get<std::string>());
    if (!graph) return std::nullopt;
    graph->columns.clear();
    for (const json& column : kept.at("columns"))
        graph->columns.push_back(column_of(column));
    graph->curve_visible = kept.at("visible").get<std::vector<bool>>();
    for (const json& function : kept.at("functions"))
        graph->functions.push_back({function.at("text").get<std::string>(), function.at("visible").get<bool>()});
    graph->marker_size = kept.at("marker_size").get<int>();
    graph->x_labels = label_format_of(kept.at("x_labels"));
    graph->y_labels = label_format_of(kept.at("y_labels"));
    if (!fits_together(*graph)) return std::nullopt;
    return graph;
} catch (const json::exception&) {
    return std::nullopt;
}

} // namespace kelvarin
