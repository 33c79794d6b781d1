// SPDX-License-Identifier: MIT
#include "batch/kinds/graph_edits.h"

#include "graph/axis_limits.h"
#include "graph/graph_curves.h"
#include "graph/graph_entries.h"
#include "graph/graph_functions.h"
#include "platform/text_file.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace kelvarin
{

namespace
{

using refusal = std::optional<message_box>;

/// A text divided at its first blank.
std::pair<std::string_view, std::string_view> first_word(std::string_view text)
{
    text = trimmed(text);
    const std::string_view word = text.substr(0, text.find(' '));
    return {word, trimmed(text.substr(word.size()))};
}

message_box unknown_name(std::string_view name)
{
    return {"'" + std::string(name) + "' is not a known scatter curve name", box_icon::exclamation};
}

/// The column with this whole name, else the one to which expressions refer by it.
std::optional<std::size_t> column_named(const graph_content& graph, std::string_view name)
{
    const auto whole = std::ranges::find(graph.columns, name, &graph_column::name);
    if (whole != graph.columns.end()) return static_cast<std::size_t>(whole - graph.columns.begin());
    return find_column(graph, name);
}

refusal show(graph_content& graph, std::string_view name, bool visible)
{
    const std::optional<std::size_t> column = column_named(graph, name);
    if (!column || *column == 0) return unknown_name(name);
    graph.curve_visible[*column - 1] = visible;
    return std::nullopt;
}

refusal take_as_x(graph_content& graph, std::string_view name)
{
    const std::optional<std::size_t> column = column_named(graph, name);
    if (!column) return unknown_name(name);
    use_as_x(graph, *column);
    return std::nullopt;
}

refusal derive(graph_content& graph, std::string_view name_and_text)
{
    const auto [name, text] = first_word(name_and_text);
    return add_derived_curve(graph, name, text);
}

struct edit_command
{
    std::string_view name;
    bool takes_value = true;
    refusal (*apply)(graph_content& graph, std::string_view value) = nullptr;
};

constexpr std::array<edit_command, 11> commands = {
    {{"xmin", true, [](graph_content& graph, std::string_view v) { return set_axis_limit(graph, axis_end::xmin, v); }},
     {"xmax", true, [](graph_content& graph, std::string_view v) { return set_axis_limit(graph, axis_end::xmax, v); }},
     {"ymin", true, [](graph_content& graph, std::string_view v) { return set_axis_limit(graph, axis_end::ymin, v); }},
     {"ymax", true, [](graph_content& graph, std::string_view v) { return set_axis_limit(graph, axis_end::ymax, v); }},
     {"restore", false,
      [](graph_content& graph, std::string_view) -> refusal {
          restore_xy(graph);
          return std::nullopt;
      }},
     {"ticks", true, set_ticks},
     {"show", true, [](graph_content& graph, std::string_view name) { return show(graph, name, true); }},
     {"hide", true, [](graph_content& graph, std::string_view name) { return show(graph, name, false); }},
     {"x", true, take_as_x},
     {"function", true, add_function},
     {"derive", true, derive}}};

const edit_command* command_named(std::string_view name)
{
    const auto found = std::ranges::find(commands, name, &edit_command::name);
    return found == commands.end() ? nullptr : &*found;
}

} // namespace

std::optional<std::string> graph_edit_refusal(std::string_view command)
{
    const auto [name, value] = first_word(command);
    const edit_command* const found = command_named(name);
    if (!found) return "--edit: there is no command '" + std::string(name) + "' for graphs.";
    if (!found->takes_value && !value.empty()) return "--edit: nothing follows '" + std::string(name) + "'.";
    return std::nullopt;
}

std::optional<message_box> edit_graph(graph_content& graph, std::string_view command)
{
    const auto [name, value] = first_word(command);
    graph_content next = graph;
    if (refusal refused = command_named(name)->apply(next, value)) return refused;
    settle_axis_limits(next);
    graph = std::move(next);
    return std::nullopt;
}

} // namespace kelvarin
