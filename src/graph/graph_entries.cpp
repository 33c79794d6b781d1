// SPDX-License-Identifier: MIT
#include "graph/graph_entries.h"

#include "platform/run_time_text.h"

#include <cmath>
#include <string>

namespace kelvarin
{

namespace
{

/// Reads a whole number from `least` to `largest`. Returns nullopt for any other text.
std::optional<int> whole_number_within(std::string_view text, int least, int largest)
{
    const std::optional<double> value = numeric_value(text);
    if (!value || *value != std::floor(*value) || *value < least || *value > largest) return std::nullopt;
    return static_cast<int>(*value);
}

std::optional<message_box> set_whole(int& field, std::string_view text, int least, int largest)
{
    const std::optional<int> value = whole_number_within(text, least, largest);
    if (!value) return message_box{"Invalid data entry.", box_icon::exclamation};
    field = *value;
    return std::nullopt;
}

void rescale(std::optional<graph_place>& place, const graph_size& from, const graph_size& to)
{
    if (!place || from.height <= 0.0 || from.width <= 0.0) return;
    place->top *= to.height / from.height;
    place->left *= to.width / from.width;
}

} // namespace

std::optional<message_box> set_axis_limit(graph_content& graph, axis_end end, std::string_view text)
{
    const bool is_x = end == axis_end::xmin || end == axis_end::xmax;
    const bool is_min = end == axis_end::xmin || end == axis_end::ymin;
    const axis_limits found = find_axis_limits(graph);
    axis_range range = is_x ? graph.x_range : graph.y_range;
    if (found.ok() && is_x) range = found.x;
    if (found.ok() && !is_x && found.y) range = *found.y;
    const std::optional<double> value = numeric_value(text);
    if (value) (is_min ? range.min : range.max) = *value;
    if (!value || !is_axis_range(range))
        return message_box{"Data input not legal !", box_icon::exclamation, "Kelvarin GUIDE"};
    (is_x ? graph.x_range : graph.y_range) = range;
    (is_x ? graph.x_manual : graph.y_manual) = true;
    return std::nullopt;
}

void set_axis_ranges(graph_content& graph, axis_range x, axis_range y)
{
    graph.x_range = x;
    graph.y_range = y;
    graph.x_manual = true;
    graph.y_manual = true;
}

std::optional<message_box> set_ticks(graph_content& graph, std::string_view text)
{
    const std::optional<int> ticks = whole_number_within(text, least_ticks, largest_ticks);
    if (!ticks)
        return message_box{"Number of axis ticks must be greater than " + std::to_string(least_ticks - 1) +
                               " and smaller than " + std::to_string(largest_ticks + 1) + ".",
                           box_icon::exclamation};
    graph.ticks = *ticks;
    return std::nullopt;
}

std::optional<message_box> set_margin(graph_content& graph, int graph_margins::*side, std::string_view text)
{
    return set_whole(graph.margins.*side, text, 0, largest_file_count);
}

std::optional<message_box> set_width(graph_content& graph, int graph_content::*width, std::string_view text)
{
    return set_whole(graph.*width, text, least_width, largest_width);
}

std::optional<message_box> set_marker_size(graph_content& graph, std::string_view text)
{
    return set_whole(graph.marker_size, text, least_marker_size, largest_marker_size);
}

void move_part(graph_content& graph, std::optional<graph_place> graph_content::*part, graph_place place,
               graph_size window)
{
    for (std::optional<graph_place>* each : {&graph.title_place, &graph.subtitle_place, &graph.legend_place})
        rescale(*each, graph.window_size, window);
    graph.window_size = window;
    graph.*part = place;
}

message_box drawing_failure_box(std::string_view reason)
{
    return {"Kelvarin can not create the requested graph. Error: " + std::string(reason), box_icon::critical,
            "Kelvarin Graph"};
}

std::optional<message_box> drawing_refusal(const axis_limits& limits)
{
    if (limits.ok()) return std::nullopt;
    return drawing_failure_box(limits.failure);
}

message_box start_failure_box(const runtime_failure& failure)
{
    const std::string text = failure.detail().empty() ? std::string(failure.description()) : failure.detail();
    return {"Internal Error trapped. " + std::to_string(failure.number()) + " (" + text + "). ", box_icon::critical,
            "Kelvarin Guide"};
}

} // namespace kelvarin
