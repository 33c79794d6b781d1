// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The graph as JSON, including what a graph file omits.
std::string graph_recovery_text(const graph_content& graph);

/// The graph that graph_recovery_text wrote. Returns nullopt if the text is not valid.
std::optional<graph_content> read_graph_recovery(std::string_view text);

} // namespace kelvarin
