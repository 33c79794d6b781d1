// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_start.h"
#include "reg/table/table_content.h"
#include "shell/document/run_outcome.h"

#include <vector>

namespace kelvarin
{

/// Columns of a table, from 0, to be drawn against one of them.
struct scatter_request
{
    int x = 0;
    std::vector<int> y;
    /// Lines between the points, and markers at them.
    bool connected = true;
    bool points = false;
};

struct scatter_outcome : run_outcome
{
    /// What the graph starts with, if there is something to draw (has_report).
    graph_start start;
};

/// The scatter graph of the leading rows without a blank in any of the columns. Refused if no column or no row is left.
/// Never throws.
scatter_outcome start_scatter_graph(const table_content& content, const scatter_request& request);

} // namespace kelvarin
