// SPDX-License-Identifier: MIT
#include "graph/graph_json.h"

#include "graph/graph_functions.h"
#include "graph/graph_kind.h"
#include "shell/report/outcome_json.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace kelvarin
{

namespace
{

void write_curves(json_writer& writer, const graph_content& graph)
{
    writer.member("x_name", graph.columns.front().name);
    writer.member("x", graph.columns.front().values.span());
    std::vector<std::size_t> curves(graph.curve_count());
    for (std::size_t i = 0; i < curves.size(); ++i)
        curves[i] = i;
    writer.member_objects("curves", curves, [&](std::size_t curve) {
        writer.member("name", graph.columns[curve + 1].name);
        writer.member("visible", static_cast<bool>(graph.curve_visible[curve]));
    });
    writer.key("y");
    writer.begin_array();
    for (const std::size_t curve : curves)
        writer.value(graph.columns[curve + 1].values.span());
    writer.end_array();
}

void write_functions(json_writer& writer, const graph_content& graph, const axis_limits& limits)
{
    writer.member_objects("functions", graph.functions, [&](const graph_function& function) {
        writer.member("text", function.text);
        writer.member("visible", function.visible);
        writer.key("points");
        writer.begin_array();
        if (limits.ok())
            for (const function_point& point : function_points(function.text, limits.x)) {
                const std::vector<double> pair = {point.x, point.y.value_or(std::numeric_limits<double>::quiet_NaN())};
                writer.value(std::span<const double>(pair));
            }
        writer.end_array();
    });
}

void write_limits(json_writer& writer, const axis_limits& limits)
{
    if (!limits.ok()) return;
    writer.key("limits");
    writer.begin_object();
    writer.member("xmin", limits.x.min);
    writer.member("xmax", limits.x.max);
    if (limits.y) {
        writer.member("ymin", limits.y->min);
        writer.member("ymax", limits.y->max);
    }
    writer.end_object();
}

void write_flags(json_writer& writer, const graph_content& graph)
{
    writer.key("flags");
    writer.begin_object();
    writer.member("x_manual", graph.x_manual);
    writer.member("y_manual", graph.y_manual);
    writer.member("auto_scale", graph.auto_scale);
    writer.member("hor_gridline", graph.hor_gridline);
    writer.member("ver_gridline", graph.ver_gridline);
    writer.member("scatter_connected", graph.scatter_connected);
    writer.member("draw_points", graph.draw_points);
    writer.end_object();
}

} // namespace

void write_graph_json(json_writer& writer, std::string_view file, const graph_content& graph, const axis_limits& limits,
                      std::span<const message_box> boxes)
{
    begin_answer(writer, file, graph_kind().key, graph.title);
    write_ending(writer, boxes.empty(), boxes);
    writer.member("caption", graph.caption);
    writer.member("subtitle", graph.subtitle);
    writer.member("x_title", graph.x_title);
    writer.member("y_title", graph.y_title);
    writer.member("points", static_cast<std::int64_t>(graph.point_count()));
    writer.member("ticks", graph.ticks);
    write_curves(writer, graph);
    write_functions(writer, graph, limits);
    write_limits(writer, limits);
    write_flags(writer, graph);
    writer.member("report", "");
    writer.end_object();
}

} // namespace kelvarin
