// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"
#include "platform/message_box.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// Why a text is not one of the commands xmin, xmax, ymin, ymax, ticks, show, hide, x, function, derive with what
/// follows them, or restore. Returns nullopt if it is one.
std::optional<std::string> graph_edit_refusal(std::string_view command);

/// Does to a graph what its window does on the command, and finds its limits anew. A refused command returns the
/// window's box and changes nothing.
std::optional<message_box> edit_graph(graph_content& graph, std::string_view command);

} // namespace kelvarin
