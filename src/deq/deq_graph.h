// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_run.h"
#include "graph/curve_style.h"
#include "graph/drawing.h"
#include "graph/graph_start.h"

#include <utility>
#include <vector>

namespace kelvarin
{

/// The start of a run's graph: all columns of its points, with the differential variables visible. The outcome must
/// have at least one point. `solution_number` appears in the caption.
graph_start deq_graph_start(const deq_outcome& outcome, int solution_number);

/// What later runs are compared with: the independent variable and the differential variables of a run's points.
named_columns differential_columns(const deq_outcome& outcome);

/// Adds the curves of an earlier run to a graph, each named "y (last)". The runs have points of their own: those of the
/// earlier one follow behind the others, and where a curve has no value its column is not a number. An earlier run over
/// another independent variable adds nothing. Returns the styles of the curves added: dashed, each in the colour of
/// the curve of its name.
std::vector<std::pair<drawn_part, curve_style>> add_earlier_run(graph_start& start, const named_columns& earlier);

} // namespace kelvarin
