// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"
#include "platform/message_box.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Function curves: expressions of x that are drawn beside the points.
namespace kelvarin
{

inline constexpr std::size_t function_point_count = 41;

struct function_point
{
    double x = 0.0;
    /// Nothing where the expression has no value.
    std::optional<double> y;

    friend bool operator==(const function_point&, const function_point&) = default;
};

/// The function's 41 points, evenly spread over `x`, both ends included. A text that is no expression of x has a value
/// nowhere.
std::vector<function_point> function_points(std::string_view text, axis_range x);

// Each of the following answers with the box of its refusal, and then has changed nothing.

/// Whether `text` can be a function: the only variable is x, and the checker accepts it.
std::optional<message_box> check_function(std::string_view text);

/// Refused beyond 30 functions, before anything is asked.
std::optional<message_box> check_function_count(const graph_content& graph);

std::optional<message_box> add_function(graph_content& graph, std::string_view text);
std::optional<message_box> edit_function(graph_content& graph, std::size_t function, std::string_view text);
void remove_function(graph_content& graph, std::size_t function);

} // namespace kelvarin
