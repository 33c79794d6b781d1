// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"
#include "platform/message_box.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Function curves: expressions of x that are drawn in addition to the points.
namespace kelvarin
{

inline constexpr std::size_t function_point_count = 41;

struct function_point
{
    double x = 0.0;
    /// nullopt if the expression has no value at x.
    std::optional<double> y;

    friend bool operator==(const function_point&, const function_point&) = default;
};

/// The function's 41 points, evenly spaced over `x`, both ends included. A text that is not an expression of x has no
/// values.
std::vector<function_point> function_points(std::string_view text, axis_range x);

// Each of the following returns the box of its refusal and then changes nothing.

/// Checks a function: its only variable must be x, and the checker must accept it.
std::optional<message_box> check_function(std::string_view text);

/// Refuses more than 30 functions, before the user is asked for one.
std::optional<message_box> check_function_count(const graph_content& graph);

std::optional<message_box> add_function(graph_content& graph, std::string_view text);
std::optional<message_box> edit_function(graph_content& graph, std::size_t function, std::string_view text);
void remove_function(graph_content& graph, std::size_t function);

} // namespace kelvarin
