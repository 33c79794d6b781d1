// SPDX-License-Identifier: MIT
#include "nle/nle_graph.h"

#include <string>
#include <variant>

namespace kelvarin
{

std::optional<graph_start> nle_graph_start(const nle_outcome& outcome, int solution_number)
{
    const auto* const single = std::get_if<nle_single_result>(&outcome.result);
    if (!outcome.has_report || !single) return std::nullopt;
    const named_columns& scan = single->scan;
    graph_start start;
    start.caption = "NLE Graph Solution #" + std::to_string(solution_number);
    // The column of the unknown is named "0", which no expression can refer to; its name is the axis title.
    start.columns = {{"0", scan.columns[0]}, {scan.names[1], scan.columns[1]}};
    start.x_title = scan.names[0];
    return start;
}

} // namespace kelvarin
