// SPDX-License-Identifier: MIT
#include "batch/kinds/opt_answerer.h"

#include "batch/exit_status.h"
#include "batch/kinds/graph_outputs.h"
#include "graph/drawing_svg.h"
#include "opt/opt_analysis.h"
#include "opt/opt_file.h"
#include "opt/opt_graph.h"
#include "opt/opt_json.h"
#include "opt/opt_kind.h"
#include "opt/opt_map.h"
#include "opt/opt_report.h"
#include "opt/opt_run.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr const char* method_option = "--method";

message_box no_problem()
{
    return {"Error while trying to open file (The file is empty.)", box_icon::exclamation};
}

std::optional<std::string> method_refusal(std::string_view value)
{
    if (opt_method_named(value)) return std::nullopt;
    return "--method: there is no method '" + std::string(value) + "'.";
}

constexpr std::array<kind_option, 3> options = {
    {{method_option, "NAME", "'Conjugate Grad', Quasi-Newton, Dfpmin, or the number 0 to 2", method_refusal},
     graph_option,
     plot_option}};

/// The problem of a text, with the method of the command line if there is one. Returns nullopt if the text is no
/// problem.
std::optional<opt_content> content_of(const problem_text& problem, const batch_request& request)
{
    std::optional<opt_content> content = read_opt(problem.text);
    const std::string* const method = request.option(method_option);
    if (content && method) content->method = *opt_method_named(*method);
    return content;
}

/// Refuses graphs that the problem has not: one variable has a graph, two have a picture.
std::optional<message_box> graph_refusal(const opt_content& content, const batch_request& request)
{
    const std::size_t variables = analyse_opt(content).initialized.size();
    if (request.option(graph_option.name) && variables != 1)
        return message_box{"Only a target of one variable has a graph.", box_icon::exclamation};
    if (request.option(plot_option.name) && variables != 1 && variables != 2)
        return message_box{"Only a target of one or two variables has a picture.", box_icon::exclamation};
    return std::nullopt;
}

/// The files of the target along its variable, or the picture of its contours. None if it can't be drawn.
std::vector<output_file> graphs_of(const opt_run_problem& run, opt_outcome& outcome, const batch_request& request,
                                   run_listener& listener)
{
    if (const std::optional<graph_start> start = opt_graph_start(run.content, outcome, 1, listener))
        return run_graph_outputs(scatter_graph_form_startup(*start, request.store), run.path.string(), request,
                                 outcome);
    const std::optional<opt_map> map = opt_map_of(run.content, outcome, listener);
    if (!map) {
        outcome.boxes.push_back({"The target has no contours around the way of this run.", box_icon::exclamation});
        return {};
    }
    return {{output_name(*request.option(plot_option.name), run.path.string()),
             drawing_svg(draw_opt_map(*map, request.store))}};
}

file_answer solve(const problem_text& problem, const batch_request& request, const batch_surroundings& surroundings,
                  run_listener& listener)
{
    std::optional<opt_content> content = content_of(problem, request);
    if (!content) return refused_answer(problem.file, opt_kind().key, no_problem(), request);
    if (const std::optional<message_box> no_graph = graph_refusal(*content, request))
        return refused_answer(problem.file, opt_kind().key, *no_graph, request);
    const opt_run_problem run = {std::move(*content), problem.file};
    opt_outcome outcome = run_opt(run, request.store, surroundings.clock, listener);
    std::string report =
        outcome.has_report ? opt_report(run, outcome, request.store, surroundings.clock.today()) : std::string();
    const bool draws = asks_for_graphs(request) && outcome.has_report;
    std::vector<output_file> graphs = draws ? graphs_of(run, outcome, request, listener) : std::vector<output_file>();
    file_answer answer = file_answer_of(problem.file, outcome, std::move(report), request);
    if (draws && graphs.empty()) answer.status = exit_status::a_run_failed;
    answer.outputs = std::move(graphs);
    if (request.format == output_format::object) {
        json_writer writer(request.depth_of_object());
        write_opt_json(writer, problem.file, run.content, outcome, answer.report);
        answer.object = writer.take();
    }
    return answer;
}

file_answer check(const problem_text& problem, const batch_request& request)
{
    const std::optional<opt_content> content = content_of(problem, request);
    if (!content) return refused_answer(problem.file, opt_kind().key, no_problem(), request);
    json_writer writer(request.depth_of_object());
    write_opt_check_json(writer, problem.file, *content);
    return {.object = writer.take()};
}

} // namespace

kind_answerer opt_answerer()
{
    return {&opt_kind(), options, solve, check};
}

} // namespace kelvarin
