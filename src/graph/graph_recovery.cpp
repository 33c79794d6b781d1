// SPDX-License-Identifier: MIT
#include "graph/graph_recovery.h"

#include "graph/graph_file.h"
#include "shell/document/json_value.h"
#include "shell/report/json_writer.h"

#include <limits>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

/// To be raised when a field changes its meaning, so that an older program doesn't misread a newer text.
constexpr int recovery_format = 1;

/// The fields of the file format, with empty lists: the file's limits and separators don't apply to the lists here.
graph_content fields_of(const graph_content& graph)
{
    graph_content fields = graph;
    fields.columns = {{"", shared_values({0.0})}};
    fields.curve_visible.clear();
    fields.functions.clear();
    return fields;
}

void write_column(json_writer& text, const graph_column& column)
{
    text.begin_object();
    text.member("name", column.name);
    text.member("values", column.values.span());
    text.end_object();
}

graph_column column_of(const json_value& kept)
{
    std::vector<double> values;
    for (const json_value& value : kept.at("values").items())
        values.push_back(value.is_null() ? std::numeric_limits<double>::quiet_NaN() : value.number());
    return {kept.at("name").text(), shared_values(std::move(values))};
}

axis_label_format label_format_of(const json_value& kept)
{
    return static_cast<axis_label_format>(kept.whole_number(0, static_cast<int>(axis_label_format::engineering)));
}

void check_lengths(const graph_content& graph)
{
    if (graph.columns.empty() || graph.curve_visible.size() != graph.curve_count())
        throw json_mismatch("no number of columns");
    for (const graph_column& column : graph.columns)
        if (column.values.size() != graph.point_count()) throw json_mismatch("no number of points");
}

graph_content content_of(const json_value& kept)
{
    kept.at("format").whole_number(recovery_format, recovery_format);
    std::optional<graph_content> graph = read_graph(kept.at("file").text());
    if (!graph) throw json_mismatch("no graph file");
    graph->columns.clear();
    for (const json_value& column : kept.at("columns").items())
        graph->columns.push_back(column_of(column));
    for (const json_value& visible : kept.at("visible").items())
        graph->curve_visible.push_back(visible.truth());
    for (const json_value& function : kept.at("functions").items())
        graph->functions.push_back({function.at("text").text(), function.at("visible").truth()});
    graph->marker_size = kept.at("marker_size").whole_number(-largest_file_count, largest_file_count);
    graph->x_labels = label_format_of(kept.at("x_labels"));
    graph->y_labels = label_format_of(kept.at("y_labels"));
    check_lengths(*graph);
    return *std::move(graph);
}

} // namespace

std::string graph_recovery_text(const graph_content& graph)
{
    json_writer text;
    text.begin_object();
    text.member("format", recovery_format);
    text.member("file", write_graph(fields_of(graph)));
    text.key("columns");
    text.begin_array();
    for (const graph_column& column : graph.columns)
        write_column(text, column);
    text.end_array();
    text.key("visible");
    text.begin_array();
    for (const bool visible : graph.curve_visible)
        text.value(visible);
    text.end_array();
    text.member_objects("functions", graph.functions, [&](const graph_function& function) {
        text.member("text", function.text);
        text.member("visible", function.visible);
    });
    text.member("marker_size", graph.marker_size);
    text.member("x_labels", static_cast<int>(graph.x_labels));
    text.member("y_labels", static_cast<int>(graph.y_labels));
    text.end_object();
    return text.take();
}

std::optional<graph_content> read_graph_recovery(std::string_view text)
{
    return read_json(text, content_of);
}

} // namespace kelvarin
