// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_run.h"
#include "graph/graph_start.h"

namespace kelvarin
{

/// The start of a run's graph: all columns of its points, with the differential variables visible. The outcome must
/// have at least one point. `solution_number` appears in the caption.
graph_start deq_graph_start(const deq_outcome& outcome, int solution_number);

} // namespace kelvarin
