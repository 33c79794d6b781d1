// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"
#include "platform/message_box.h"

#include <cstddef>
#include <optional>
#include <string_view>

/// What is done to the columns of a graph. What is refused answers with the box to show and has changed nothing.
namespace kelvarin
{

/// The first column to which expressions refer by `name`; nothing where there is none.
std::optional<std::size_t> find_column(const graph_content& graph, std::string_view name);

/// Whether a derived curve can have this name: valid, no word of the language, and no other column's.
std::optional<message_box> check_derived_name(const graph_content& graph, std::string_view name);
/// Whether `text` is an expression of the names of columns.
std::optional<message_box> check_derived_expression(const graph_content& graph, std::string_view text);

/// Adds the curve "name = text", whose values are those of the expression at each point, and shows it. Where a column
/// that it uses has a gap, it has one. An evaluation that fails refuses the curve whole.
std::optional<message_box> add_derived_curve(graph_content& graph, std::string_view name, std::string_view text);

/// Exchanges a column with that of x, with their names; which curves are shown stays with the places.
void use_as_x(graph_content& graph, std::size_t column);

/// Puts the points in the order of their x. Those with equal x stay in theirs, gaps go last.
void sort_by_x(graph_content& graph);

/// Both axes follow the data again.
void restore_xy(graph_content& graph);

} // namespace kelvarin
