// SPDX-License-Identifier: MIT
#pragma once

#include "batch/command_line.h"
#include "batch/file_answer.h"
#include "batch/kinds/kind_answerer.h"
#include "graph/graph_content.h"
#include "shell/document/run_outcome.h"

#include <span>
#include <string>
#include <vector>

namespace kelvarin
{

inline constexpr kind_option graph_option = {
    .name = "--graph", .value_name = "NAME", .help = "Write the graph to this file (.kvg)", .names_output = true};
inline constexpr kind_option plot_option = {
    .name = "--plot", .value_name = "NAME", .help = "Draw the graph into this file (.svg)", .names_output = true};

/// The files asked for by --graph and --plot: the first graph has the option's name, further ones have "-2", "-3" .. in
/// front of the extension.
std::vector<output_file> graph_outputs(std::span<const graph_content> graphs, const std::string& file,
                                       const batch_request& request);

/// Whether --graph or --plot is given.
bool asks_for_graphs(const batch_request& request);

/// The same for the graph of a run. If it can't be drawn, its window would not open: nothing is written, and the box is
/// added to those of the run.
std::vector<output_file> run_graph_outputs(const graph_content& graph, const std::string& file,
                                           const batch_request& request, run_outcome& outcome);

} // namespace kelvarin
