// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The text of a graph file: one value per line, each ended by CR LF, then a line for each column with its values
/// joined by commas, and lines with the names, the visibility of curves and the functions. Numbers have as many digits
/// as they need to read back equal; a gap is "NaN". The file doesn't hold marker size, label formats and visibility of
/// functions. Throws runtime_failure 6 if a count exceeds 16 bits.
std::string write_graph(const graph_content& graph);

/// The graph of a file's text. Returns nullopt if the text is not a valid graph: no marker on line 1, too few lines,
/// too few items on a joined line, a count that is not a 16-bit number, no point. Any other line that is not a number
/// is read as 0, and 0 ticks mean the default. The counts are checked against the size of the text before memory is
/// allocated.
std::optional<graph_content> read_graph(std::string_view text);

} // namespace kelvarin
