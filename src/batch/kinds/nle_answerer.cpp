// SPDX-License-Identifier: MIT
#include "batch/kinds/nle_answerer.h"

#include "batch/exit_status.h"
#include "batch/kinds/graph_outputs.h"
#include "nle/nle_analysis.h"
#include "nle/nle_file.h"
#include "nle/nle_graph.h"
#include "nle/nle_json.h"
#include "nle/nle_kind.h"
#include "nle/nle_report.h"
#include "nle/nle_run.h"

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
    return {"Error while trying to open file.", box_icon::exclamation};
}

std::optional<std::string> method_refusal(std::string_view value)
{
    if (method_named(value)) return std::nullopt;
    return "--method: there is no method '" + std::string(value) + "'.";
}

constexpr std::array<kind_option, 3> options = {
    {{method_option, "NAME", "fastnewt, safenewt, safebroydn, constrained, or the number 0 to 3", method_refusal},
     graph_option,
     plot_option}};

/// The problem of a text, with the method of the command line if given. Returns nullopt if the text is not a problem.
std::optional<nle_content> content_of(const problem_text& problem, const batch_request& request)
{
    std::optional<nle_content> content = read_nle(problem.text);
    const std::string* const method = request.option(method_option);
    if (content && method) content->method = *method_named(*method);
    return content;
}

std::string object_of(const std::string& file, const nle_content& content, const nle_outcome& outcome,
                      const std::string& report, const batch_request& request)
{
    json_writer writer(request.depth_of_object());
    write_nle_json(writer, file, content, outcome, report);
    return writer.take();
}

file_answer solve(const problem_text& problem, const batch_request& request, const batch_surroundings& surroundings,
                  run_listener& listener)
{
    std::optional<nle_content> content = content_of(problem, request);
    if (!content) {
        file_answer refused = refused_answer(problem.file, nle_kind().key, no_problem(), request);
        refused.object = object_of(problem.file, {}, outcome_refused<nle_outcome>(no_problem()), "", request);
        return refused;
    }
    if (asks_for_graphs(request) && analyse_nle(*content).set.implicit_count != 1) {
        const message_box no_graph = {"Only the search of one nonlinear equation has a graph.", box_icon::exclamation};
        return refused_answer(problem.file, nle_kind().key, no_graph, request);
    }
    const nle_run_problem run = {std::move(*content), problem.file};
    nle_outcome outcome = run_nle(run, request.store, surroundings.clock, listener);
    std::string report =
        outcome.has_report ? nle_report(run, outcome, request.store, surroundings.clock.today()) : std::string();
    const std::optional<graph_start> scan = asks_for_graphs(request) ? nle_graph_start(outcome, 1) : std::nullopt;
    std::vector<output_file> graphs;
    if (scan)
        graphs = run_graph_outputs(scatter_graph_form_startup(*scan, request.store), problem.file, request, outcome);
    file_answer answer = file_answer_of(problem.file, outcome, std::move(report), request);
    if (scan && graphs.empty()) answer.status = exit_status::a_run_failed;
    answer.outputs = std::move(graphs);
    if (request.format == output_format::object)
        answer.object = object_of(problem.file, run.content, outcome, answer.report, request);
    return answer;
}

file_answer check(const problem_text& problem, const batch_request& request)
{
    const std::optional<nle_content> content = content_of(problem, request);
    if (!content) return refused_answer(problem.file, nle_kind().key, no_problem(), request);
    json_writer writer(request.depth_of_object());
    write_nle_check_json(writer, problem.file, *content);
    return {.object = writer.take()};
}

} // namespace

kind_answerer nle_answerer()
{
    return {&nle_kind(), options, solve, check};
}

} // namespace kelvarin
