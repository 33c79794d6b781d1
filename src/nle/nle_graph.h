// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_start.h"
#include "nle/nle_run.h"

#include <optional>

namespace kelvarin
{

/// The start of the graph of a run of one equation: the scan of its search range, whether or not a root was found.
/// Returns nullopt for any other outcome. `solution_number` appears in the caption.
std::optional<graph_start> nle_graph_start(const nle_outcome& outcome, int solution_number);

} // namespace kelvarin
