// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_start.h"
#include "opt/opt_run.h"
#include "platform/run_listener.h"

#include <optional>

namespace kelvarin
{

/// The start of the graph of a target of one variable: its values around the way from start to result; points where it
/// has none are left out. Returns nullopt without a report or with several variables. May throw run_stopped.
/// `solution_number` appears in the caption.
std::optional<graph_start> opt_graph_start(const opt_content& content, const opt_outcome& outcome, int solution_number,
                                           run_listener& listener);

} // namespace kelvarin
