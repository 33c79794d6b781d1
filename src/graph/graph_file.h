// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"

#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The text of a graph file: a value a line, CR LF behind each, then a line for each column with its values joined by
/// commas, and lines of the names, of which curves are shown and of the functions. Numbers have as many digits as they
/// need to read back equal; a gap among them is "NaN". Not in the file: marker size, label formats and which functions
/// are shown. Throws runtime_failure 6 where a count does not fit the file's 16 bits.
std::string write_graph(const graph_content& graph);

/// The graph of a file's text; nothing where it is none or damaged: no marker on line 1, too few lines, too few items
/// on a joined line, a count that is no 16-bit number, no point. Any other line that is no number is 0, and 0 ticks are
/// the default. The size of what the counts ask for is checked against the text before memory is taken.
std::optional<graph_content> read_graph(std::string_view text);

} // namespace kelvarin
