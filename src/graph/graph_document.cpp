// SPDX-License-Identifier: MIT
#include "graph/graph_document.h"

#include "graph/axis_limits.h"
#include "graph/graph_curves.h"
#include "graph/graph_file.h"
#include "graph/graph_functions.h"
#include "graph/graph_recovery.h"
#include "graph/graph_table.h"

#include <cassert>
#include <type_traits>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr content_format<graph_content> graph_format = {
    .kind = "graph",
    .example_step = "Load example",
    .read = [](std::string_view text, const graph_content&) { return read_graph(text); },
    .write = [](const graph_content& graph, bool) { return write_graph(graph); },
    .recovery_text = graph_recovery_text,
    .read_recovery = read_graph_recovery,
    .listing = graph_listing,
    .bounds = bounds_of_numbers};

} // namespace

graph_document::graph_document() : value_document(graph_format) {}

graph_document::graph_document(graph_content start) : value_document(graph_format)
{
    start_unsaved(std::move(start));
}

bool graph_document::is_blank() const
{
    return path().empty() && content().point_count() == 0;
}

template <class Edit> graph_document::refusal graph_document::apply(std::string_view step, const Edit& edit)
{
    graph_content next = content();
    if constexpr (std::is_void_v<std::invoke_result_t<Edit, graph_content&>>)
        edit(next);
    else if (refusal refused = edit(next))
        return refused;
    settle_axis_limits(next);
    change(step, std::move(next));
    return std::nullopt;
}

void graph_document::show_curve(std::size_t curve, bool visible)
{
    assert(curve < content().curve_count());
    apply(visible ? "Show curve" : "Hide curve", [=](graph_content& graph) { graph.curve_visible[curve] = visible; });
}

void graph_document::show_function(std::size_t function, bool visible)
{
    assert(function < content().functions.size());
    apply(visible ? "Show function" : "Hide function",
          [=](graph_content& graph) { graph.functions[function].visible = visible; });
}

graph_document::refusal graph_document::add_function(std::string_view text)
{
    return apply("Add function", [=](graph_content& graph) { return kelvarin::add_function(graph, text); });
}

graph_document::refusal graph_document::edit_function(std::size_t function, std::string_view text)
{
    return apply("Edit function", [=](graph_content& graph) { return kelvarin::edit_function(graph, function, text); });
}

void graph_document::remove_function(std::size_t function)
{
    apply("Remove function", [=](graph_content& graph) { kelvarin::remove_function(graph, function); });
}

graph_document::refusal graph_document::add_derived_curve(std::string_view name, std::string_view text)
{
    return apply("Add derived curve",
                 [=](graph_content& graph) { return kelvarin::add_derived_curve(graph, name, text); });
}

void graph_document::add_curves(const added_curves& added)
{
    apply("Add curves", [&](graph_content& graph) { kelvarin::add_curves(graph, added); });
}

void graph_document::use_as_x(std::size_t column)
{
    apply("Change x column", [=](graph_content& graph) { kelvarin::use_as_x(graph, column); });
}

void graph_document::sort_by_x()
{
    apply("Sort points", kelvarin::sort_by_x);
}

graph_document::refusal graph_document::set_axis_limit(axis_end end, std::string_view text)
{
    return apply("Axis limits", [=](graph_content& graph) { return kelvarin::set_axis_limit(graph, end, text); });
}

void graph_document::keep_view(axis_range x, axis_range y)
{
    assert(is_axis_range(x) && is_axis_range(y));
    apply("Keep view", [=](graph_content& graph) { set_axis_ranges(graph, x, y); });
}

void graph_document::restore_xy()
{
    apply("Restore xy", kelvarin::restore_xy);
}

graph_document::refusal graph_document::set_ticks(std::string_view text)
{
    return apply("Axis ticks", [=](graph_content& graph) { return kelvarin::set_ticks(graph, text); });
}

void graph_document::set_label_format(axis_label_format graph_content::*axis, axis_label_format format)
{
    apply("Axis labels", [=](graph_content& graph) { graph.*axis = format; });
}

graph_document::refusal graph_document::set_margin(int graph_margins::*side, std::string_view text)
{
    return apply("Margins", [=](graph_content& graph) { return kelvarin::set_margin(graph, side, text); });
}

graph_document::refusal graph_document::set_width(int graph_content::*width, std::string_view text)
{
    return apply("Line width", [=](graph_content& graph) { return kelvarin::set_width(graph, width, text); });
}

graph_document::refusal graph_document::set_marker_size(std::string_view text)
{
    return apply("Marker size", [=](graph_content& graph) { return kelvarin::set_marker_size(graph, text); });
}

void graph_document::set_font(graph_font graph_content::*text, const graph_font& font)
{
    apply("Font", [&](graph_content& graph) { graph.*text = font; });
}

void graph_document::set_flag(bool graph_content::*flag, bool value)
{
    apply("Appearance", [=](graph_content& graph) { graph.*flag = value; });
}

void graph_document::set_subtitle(std::string_view text)
{
    apply("Change sub title", [=](graph_content& graph) { graph.subtitle = field_text(text); });
}

void graph_document::set_axis_title(std::string graph_content::*axis, std::string_view text)
{
    apply("Change axis title", [=](graph_content& graph) { graph.*axis = field_text(text); });
}

void graph_document::move_part(std::optional<graph_place> graph_content::*part, graph_place place, graph_size window)
{
    const bool is_legend = part == &graph_content::legend_place;
    apply(is_legend ? "Move legend" : "Move title",
          [=](graph_content& graph) { kelvarin::move_part(graph, part, place, window); });
}

} // namespace kelvarin
