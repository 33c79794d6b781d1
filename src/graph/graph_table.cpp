// SPDX-License-Identifier: MIT
#include "graph/graph_table.h"

#include "graph/number_text.h"

#include <cmath>
#include <cstddef>

namespace kelvarin
{

std::string graph_table_text(const graph_content& graph, std::optional<axis_range> range)
{
    const shared_values& x = graph.columns.front().values;
    std::string text;
    const auto end_cell = [&](std::size_t column) { text += column + 1 < graph.columns.size() ? '\t' : '\n'; };
    for (std::size_t column = 0; column < graph.columns.size(); ++column) {
        text += graph.columns[column].name;
        end_cell(column);
    }
    for (std::size_t point = 0; point < graph.point_count(); ++point) {
        if (range && !(x[point] >= range->min && x[point] <= range->max)) continue;
        for (std::size_t column = 0; column < graph.columns.size(); ++column) {
            const double value = graph.columns[column].values[point];
            if (std::isfinite(value)) text += exact_text(value);
            end_cell(column);
        }
    }
    return text;
}

std::string graph_listing(const graph_content& graph, const std::filesystem::path& path)
{
    std::string text;
    const auto add_line = [&text](const std::string& line) {
        if (!line.empty()) text.append(line).append("\n");
    };
    add_line(graph.title);
    add_line(graph.subtitle);
    add_line(path.string());
    for (const graph_function& function : graph.functions)
        add_line("y = " + function.text);
    return text + "\n" + graph_table_text(graph);
}

} // namespace kelvarin
