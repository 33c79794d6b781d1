// SPDX-License-Identifier: MIT
#pragma once

#include "graph/axis_limits.h"
#include "graph/graph_content.h"
#include "platform/message_box.h"
#include "shell/report/json_writer.h"

#include <span>
#include <string_view>

namespace kelvarin
{

/// Writes a graph with all values of its curves and functions, and the limits between which it is drawn. `boxes` says
/// why it isn't drawn or what was refused; without boxes the answer is ok.
void write_graph_json(json_writer& writer, std::string_view file, const graph_content& graph, const axis_limits& limits,
                      std::span<const message_box> boxes);

} // namespace kelvarin
