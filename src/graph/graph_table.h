// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"

#include <filesystem>
#include <optional>
#include <string>

namespace kelvarin
{

/// The points as text for a spreadsheet: the names, then a line for each point, columns separated by tabs; numbers read
/// back equal, a gap is empty. Only the points with x in `range`, if given.
std::string graph_table_text(const graph_content& graph, std::optional<axis_range> range = std::nullopt);

/// The text printed with the picture: titles, functions, points.
std::string graph_listing(const graph_content& graph, const std::filesystem::path& path);

} // namespace kelvarin
