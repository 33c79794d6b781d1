// SPDX-License-Identifier: MIT
#include "batch/kinds/graph_answerer.h"

#include "batch/exit_status.h"
#include "batch/kinds/graph_edits.h"
#include "batch/kinds/graph_outputs.h"
#include "graph/axis_limits.h"
#include "graph/graph_entries.h"
#include "graph/graph_file.h"
#include "graph/graph_json.h"
#include "graph/graph_kind.h"
#include "graph/graph_table.h"

#include <array>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr const char* save_option = "--save";

constexpr std::array<kind_option, 3> options = {
    {{.name = edit_option,
      .value_name = "COMMAND",
      .help = "Change the graph first: xmin V, xmax V, ymin V, ymax V, restore, ticks N, show NAME, hide NAME, x NAME, "
              "function TEXT, derive NAME TEXT; may be repeated",
      .refusal = graph_edit_refusal,
      .repeats = true},
     {.name = save_option, .value_name = "NAME", .help = "Save the graph to this file (.kvg)", .names_output = true},
     plot_option}};

/// The graph as its window would show it, with the boxes that the window would show.
struct opened_graph
{
    graph_content graph;
    axis_limits limits;
    std::vector<message_box> boxes;
};

opened_graph edited_graph(graph_content graph, std::span<const std::string> edits)
{
    opened_graph opened;
    settle_axis_limits(graph);
    for (const std::string& edit : edits)
        if (std::optional<message_box> refused = edit_graph(graph, edit)) opened.boxes.push_back(std::move(*refused));
    opened.limits = find_axis_limits(graph);
    if (std::optional<message_box> refused = drawing_refusal(opened.limits))
        opened.boxes.push_back(std::move(*refused));
    opened.graph = std::move(graph);
    return opened;
}

file_answer answer_of(const problem_text& problem, const batch_request& request, bool writes)
{
    std::optional<graph_content> graph = read_graph(problem.text);
    if (!graph)
        return refused_answer(problem.file, graph_kind().key, {"Error while trying to open file.", box_icon::critical},
                              request);
    const opened_graph opened = edited_graph(std::move(*graph), request.values_of(edit_option));
    file_answer answer;
    for (const message_box& box : opened.boxes)
        answer.messages += message_lines(problem.file, box);
    if (!opened.boxes.empty()) answer.status = exit_status::a_run_failed;
    if (request.format == output_format::object) {
        json_writer writer(request.depth_of_object());
        write_graph_json(writer, problem.file, opened.graph, opened.limits, opened.boxes);
        answer.object = writer.take();
    }
    if (!writes || !opened.boxes.empty()) return answer;
    if (const std::string* const name = request.option(save_option))
        answer.outputs.push_back({output_name(*name, problem.file), write_graph(opened.graph)});
    for (output_file& picture : graph_outputs({&opened.graph, 1}, problem.file, request))
        answer.outputs.push_back(std::move(picture));
    // Without a file to write, the listing is the answer.
    if (answer.outputs.empty() && request.format == output_format::plain)
        answer.report = graph_listing(opened.graph, {});
    return answer;
}

file_answer solve(const problem_text& problem, const batch_request& request, const batch_surroundings& /*surroundings*/,
                  run_listener& /*listener*/)
{
    return answer_of(problem, request, true);
}

file_answer check(const problem_text& problem, const batch_request& request)
{
    return answer_of(problem, request, false);
}

} // namespace

kind_answerer graph_answerer()
{
    return {&graph_kind(), options, solve, check};
}

} // namespace kelvarin
