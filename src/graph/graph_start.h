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

/// What a run hands over to a graph.
struct graph_start
{
    std::string caption = {};
    /// x first, then a column for each curve, all as long as x.
    std::vector<start_column> columns = {};
    /// Which curves are shown, one for each; empty: all.
    std::vector<bool> visible = {};
    /// A function of x drawn beside the curves; blank: none. Blanks and a plus in front of it do not matter.
    std::string function_text = {};
    /// The axes' captions; blank: the name of x, and of the curve where there is one alone.
    std::string x_title = {};
    std::string y_title = {};
    bool connected = true;
    bool points = false;
};

/// The graph of what a run hands over, with titles, grid and marker size by the settings and the limits found; ready to
/// be drawn, or to be refused by find_axis_limits. A comma in a name becomes ";", a line end a blank.
graph_content scatter_graph_form_startup(const graph_start& start, const settings& store);

/// The same with functions of x beside the shared one.
graph_content scatter_graph_form_startup2(const graph_start& start, std::span<const std::string> functions,
                                          const settings& store);

} // namespace kelvarin
