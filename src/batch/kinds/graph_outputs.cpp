// SPDX-License-Identifier: MIT
#include "batch/kinds/graph_outputs.h"

#include "graph/axis_limits.h"
#include "graph/drawing_svg.h"
#include "graph/graph_drawing.h"
#include "graph/graph_entries.h"
#include "graph/graph_file.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <utility>

namespace kelvarin
{

namespace
{

/// "a.kvg", then "a-2.kvg".
std::string name_of_graph(const std::string& first, std::size_t number)
{
    if (number == 1) return first;
    std::filesystem::path name = first;
    const std::string extension = name.extension().string();
    name.replace_extension();
    return name.string() + "-" + std::to_string(number) + extension;
}

} // namespace

std::vector<output_file> graph_outputs(std::span<const graph_content> graphs, const std::string& file,
                                       const batch_request& request)
{
    std::vector<output_file> outputs;
    const auto add = [&](const kind_option& option, std::string (*text_of)(const graph_content&)) {
        const std::string* const name = request.option(option.name);
        if (!name) return;
        for (std::size_t i = 0; i < graphs.size(); ++i)
            outputs.push_back({name_of_graph(output_name(*name, file), i + 1), text_of(graphs[i])});
    };
    add(graph_option, write_graph);
    add(plot_option, [](const graph_content& graph) { return drawing_svg(draw_graph(graph).picture); });
    return outputs;
}

bool asks_for_graphs(const batch_request& request)
{
    return request.option(graph_option.name) || request.option(plot_option.name);
}

std::vector<output_file> run_graph_outputs(const graph_content& graph, const std::string& file,
                                           const batch_request& request, run_outcome& outcome)
{
    if (std::optional<message_box> refused = drawing_refusal(find_axis_limits(graph))) {
        outcome.boxes.push_back(std::move(*refused));
        return {};
    }
    return graph_outputs({&graph, 1}, file, request);
}

} // namespace kelvarin
