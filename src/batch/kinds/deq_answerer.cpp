// SPDX-License-Identifier: MIT
#include "batch/kinds/deq_answerer.h"

#include "batch/exit_status.h"
#include "batch/kinds/graph_outputs.h"
#include "batch/text_columns.h"
#include "deq/deq_file.h"
#include "deq/deq_graph.h"
#include "deq/deq_json.h"
#include "deq/deq_kind.h"
#include "deq/deq_report.h"
#include "deq/deq_run.h"
#include "deq/deq_run_card.h"
#include "platform/text_file.h"
#include "reg/table/table_file.h"
#include "reg/table/table_of_points.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr const char* method_option = "--method";
constexpr const char* csv_option = "--csv";
constexpr const char* table_option = "--table";
constexpr const char* save_option = "--save";

message_box no_problem()
{
    return {"Error while trying to open file.", box_icon::exclamation};
}

std::optional<std::string> method_refusal(std::string_view value)
{
    if (deq_method_named(value)) return std::nullopt;
    return "--method: there is no method '" + std::string(value) + "'.";
}

constexpr std::array<kind_option, 6> options = {
    {{method_option, "NAME", "RKF45, RKF56, BS, STIFF, STIFFBS, or the number 0 to 4", method_refusal},
     {.name = csv_option,
      .value_name = "NAME",
      .help = "Write the table of points to this file, comma-separated",
      .names_output = true},
     {.name = table_option, .help = "Print the table of points behind the report"},
     {.name = save_option,
      .value_name = "NAME",
      .help = "Save the table of points to this file (.kvr)",
      .names_output = true},
     graph_option,
     plot_option}};

/// The problem of a text, with the method of the command line if there is one. Returns nullopt if the text is no
/// problem.
std::optional<deq_content> content_of(const problem_text& problem, const batch_request& request)
{
    std::optional<deq_content> content = read_deq(problem.text);
    const std::string* const method = request.option(method_option);
    if (content && method) content->method = *deq_method_named(*method);
    return content;
}

/// The points as text in columns, numbers as in the data table.
std::string table_text(const named_columns& points)
{
    std::vector<std::vector<std::string>> lines = {points.names};
    for (std::size_t row = 0; row < points.row_count(); ++row) {
        std::vector<std::string>& line = lines.emplace_back();
        for (const std::vector<double>& column : points.columns)
            line.emplace_back(trimmed(format_number(column[row])));
    }
    return text_columns(lines);
}

file_answer solve(const problem_text& problem, const batch_request& request, const batch_surroundings& surroundings,
                  run_listener& listener)
{
    std::optional<deq_content> content = content_of(problem, request);
    if (!content) return refused_answer(problem.file, deq_kind().key, no_problem(), request);
    const deq_run_problem run = {std::move(*content), problem.file};
    deq_outcome outcome = run_deq(run, request.store, listener, surroundings.seconds);
    std::string report =
        outcome.has_report ? deq_report(run, outcome, request.store, surroundings.clock.today()) : std::string();
    const bool draws = outcome.has_report && asks_for_graphs(request);
    std::vector<output_file> graphs;
    if (draws)
        graphs = run_graph_outputs(scatter_graph_form_startup2(deq_graph_start(outcome, 1), {}, request.store),
                                   problem.file, request, outcome);
    file_answer answer = file_answer_of(problem.file, outcome, std::move(report), request);
    if (draws && graphs.empty()) answer.status = exit_status::a_run_failed;
    // Not in the report, whose lines are fixed: a result that is no state at the end of the range says so all the same.
    if (outcome.has_report) {
        for (const std::string& doubt : doubts_about_end(outcome))
            answer.messages += message_lines(problem.file, {doubt, box_icon::exclamation, "Note"});
    }
    if (outcome.stopped) answer.stop_message = answer.messages;
    if (const std::string* const csv = request.option(csv_option); csv && outcome.has_report)
        answer.outputs.push_back({output_name(*csv, problem.file), csv_text(outcome.points)});
    if (const std::string* const save = request.option(save_option); save && outcome.has_report)
        answer.outputs.push_back(
            {output_name(*save, problem.file), write_table(table_of_points(outcome.points, run.content.title))});
    std::ranges::move(graphs, std::back_inserter(answer.outputs));
    if (request.format == output_format::object) {
        json_writer writer(request.depth_of_object());
        write_deq_json(writer, problem.file, run.content, outcome, answer.report);
        answer.object = writer.take();
    }
    if (outcome.has_report && request.format == output_format::plain && request.option(table_option))
        answer.report += "\n" + table_text(outcome.points);
    return answer;
}

file_answer check(const problem_text& problem, const batch_request& request)
{
    const std::optional<deq_content> content = content_of(problem, request);
    if (!content) return refused_answer(problem.file, deq_kind().key, no_problem(), request);
    json_writer writer(request.depth_of_object());
    write_deq_check_json(writer, problem.file, *content);
    return {.object = writer.take()};
}

} // namespace

kind_answerer deq_answerer()
{
    return {&deq_kind(), options, solve, check};
}

} // namespace kelvarin
