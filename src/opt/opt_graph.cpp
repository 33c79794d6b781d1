// SPDX-License-Identifier: MIT
#include "opt/opt_graph.h"

#include "opt/opt_system.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr int intervals = 200;

/// The range that is shown: from start to result and a quarter of that beyond both.
std::pair<double, double> range_of(double start, double result)
{
    const auto [least, greatest] = std::minmax(start, result);
    const double length = greatest - least;
    const double margin = length > 0.0 ? 0.25 * length : std::max(1.0, 0.1 * std::max(greatest, -least));
    return {least - margin, greatest + margin};
}

} // namespace

std::optional<graph_start> opt_graph_start(const opt_content& content, const opt_outcome& outcome, int solution_number,
                                           run_listener& listener)
{
    if (!outcome.has_report || outcome.names.size() != 1) return std::nullopt;
    opt_system system(content, listener);
    system.opt_sort_explicit();
    if (system.opt_compile()) return std::nullopt;

    start_column variable = {outcome.names.front(), {}};
    start_column target = {"Target", {}};
    const auto [first, last] = range_of(outcome.start.front(), outcome.x.front());
    for (int i = 0; i <= intervals; ++i) {
        const double part = static_cast<double>(i) / intervals;
        const double x = (1.0 - part) * first + part * last;
        const std::optional<double> f = system.try_value({&x, 1});
        if (!f) continue;
        variable.values.push_back(x);
        target.values.push_back(*f);
    }
    if (target.values.empty()) return std::nullopt;
    graph_start start;
    start.caption = "Optimization Graph, Solution #" + std::to_string(solution_number);
    start.columns = {std::move(variable), std::move(target)};
    return start;
}

} // namespace kelvarin
