// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_run.h"
#include "graph/graph_start.h"

namespace kelvarin
{

/// What a run hands over to a graph: all columns of its points, of which the differential variables are shown. There is
/// at least one point. `solution_number` is that of the run, for the caption.
graph_start deq_graph_start(const deq_outcome& outcome, int solution_number);

} // namespace kelvarin
