// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"
#include "shell/settings.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

struct start_column
{
    std::string name;
    std::vector<double> values;
};

/// The data that a run passes to a graph.
struct graph_start
{
    std::string caption = {};
    /// x first, then a column for each curve, all of equal length.
    std::vector<start_column> columns = {};
    /// Visibility of each curve; empty if all are visible.
    std::vector<bool> visible = {};
    /// A function of x drawn in addition to the curves; empty if there is none. Blanks and a plus in front are ignored.
    std::string function_text = {};
    /// The axes' captions; if empty, the name of x, and the name of the curve if there is only one.
    std::string x_title = {};
    std::string y_title = {};
    bool connected = true;
    bool points = false;
};

/// Makes the graph of a run, with titles, grid and marker size by the settings and with limits from the data;
/// find_axis_limits says whether it can be drawn. A comma in a name becomes ";", a line end a blank.
graph_content scatter_graph_form_startup(const graph_start& start, const settings& store);

/// The same with additional functions of x.
graph_content scatter_graph_form_startup2(const graph_start& start, std::span<const std::string> functions,
                                          const settings& store);

} // namespace kelvarin
