// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"
#include "platform/message_box.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

/// Operations on the columns of a graph. A refused operation returns the box to show and changes nothing.
namespace kelvarin
{

/// The first column to which expressions refer by `name`. Returns nullopt if there is none.
std::optional<std::size_t> find_column(const graph_content& graph, std::string_view name);

/// Checks the name of a derived curve: it must be a valid name, not a keyword or function, and not the name of another
/// column.
std::optional<message_box> check_derived_name(const graph_content& graph, std::string_view name);
/// Checks that `text` is an expression of the names of columns.
std::optional<message_box> check_derived_expression(const graph_content& graph, std::string_view text);

/// Adds the curve "name = text", whose values are those of the expression at each point, and shows it. It has gaps
/// where columns that it uses have gaps. Refused if an evaluation fails.
std::optional<message_box> add_derived_curve(graph_content& graph, std::string_view name, std::string_view text);

/// Curves over points of their own.
struct added_curves
{
    /// By its name the graph's column of their x.
    graph_column x;
    std::vector<graph_column> curves;
};

/// Adds curves and shows them. Their points follow behind those of the graph; where a column has no value there is a
/// gap.
void add_curves(graph_content& graph, const added_curves& added);

/// Exchanges a column with the x column, including their names; visibility stays with the positions.
void use_as_x(graph_content& graph, std::size_t column);

/// Sorts the points by x. The sort is stable, and gaps go last. Points of curves that share no point, such as those of
/// two runs, stay apart, so that neither cuts the lines of the other.
void sort_by_x(graph_content& graph);

/// Makes both axes follow the data again.
void restore_xy(graph_content& graph);

} // namespace kelvarin
