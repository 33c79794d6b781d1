// SPDX-License-Identifier: MIT
#include "graph/graph_start.h"

#include "graph/axis_limits.h"
#include "platform/text_file.h"

#include <algorithm>
#include <cassert>

namespace kelvarin
{

namespace
{

void add_function(graph_content& graph, std::string_view handed_over)
{
    std::string_view text = trimmed(handed_over);
    if (text.starts_with('+')) text = trimmed(text.substr(1));
    if (!text.empty() && graph.functions.size() < largest_function_count)
        graph.functions.push_back({.text = joinable_text(text)});
}

void set_columns(graph_content& graph, const graph_start& start)
{
    graph.columns.clear();
    for (const start_column& column : start.columns) {
        assert(column.values.size() == start.columns.front().values.size());
        graph.columns.push_back({joinable_text(column.name), shared_values(column.values)});
    }
    graph.curve_visible = start.visible.empty() ? std::vector<bool>(graph.curve_count(), true) : start.visible;
    assert(graph.curve_visible.size() == graph.curve_count());
}

void set_titles(graph_content& graph, const graph_start& start, const settings& store)
{
    graph.caption = field_text(start.caption);
    graph.title = field_text(store.value("Graph_default_title"));
    graph.subtitle = field_text(store.value("Graph_default_sub_title"));
    graph.x_title = field_text(start.x_title);
    if (graph.x_title.empty()) graph.x_title = graph.columns.front().name;
    graph.y_title = field_text(start.y_title);
    if (graph.y_title.empty() && graph.curve_count() == 1) graph.y_title = graph.columns[1].name;
}

} // namespace

graph_content scatter_graph_form_startup(const graph_start& start, const settings& store)
{
    return scatter_graph_form_startup2(start, {}, store);
}

graph_content scatter_graph_form_startup2(const graph_start& start, std::span<const std::string> functions,
                                          const settings& store)
{
    assert(!start.columns.empty() && !start.columns.front().values.empty());
    graph_content graph;
    set_columns(graph, start);
    set_titles(graph, start, store);
    add_function(graph, start.function_text);
    for (const std::string& text : functions)
        add_function(graph, text);
    graph.scatter_connected = start.connected;
    graph.draw_points = start.points;
    graph.hor_gridline = store.is_true("Graph_hor_gridline");
    graph.ver_gridline = store.is_true("Graph_ver_gridline");
    graph.marker_size = store.whole_number("Graph_default_marker_size");
    settle_axis_limits(graph);
    return graph;
}

} // namespace kelvarin
