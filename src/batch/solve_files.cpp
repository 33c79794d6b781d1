// SPDX-License-Identifier: MIT
#include "batch/solve_files.h"

#include "batch/exit_status.h"
#include "batch/json_output.h"
#include "batch/problem_file.h"
#include "leq/leq_json.h"
#include "leq/leq_report.h"
#include "nle/nle_json.h"
#include "nle/nle_report.h"
#include "shell/report/json_writer.h"
#include "shell/report/rich_text.h"

#include <algorithm>
#include <utility>

namespace kelvarin
{

namespace
{

/// Objects of one array are made with the margin that they have there.
int depth_of_object(const batch_request& request)
{
    return request.answers_in_one_array() ? 1 : 0;
}

file_answer refused_answer(const std::string& file, const problem_file& refused, int depth)
{
    file_answer answer;
    answer.object = refused_file_json(file, kind_name(refused.kind), *refused.refusal, depth);
    answer.messages = message_lines(file, *refused.refusal);
    answer.status = exit_status::unusable;
    return answer;
}

/// The outcome of a problem that was refused before its run.
template <class Outcome> Outcome not_run(const message_box& refusal)
{
    Outcome outcome;
    outcome.boxes = {refusal};
    return outcome;
}

/// What the outcomes of all kinds become in the same way; the report comes as rich text.
template <class Outcome>
file_answer answer_of(const std::string& file, const Outcome& outcome, std::string report, output_format format)
{
    file_answer answer;
    for (const message_box& box : outcome.boxes)
        answer.messages += message_lines(file, box);
    if (!outcome.has_report) answer.status = exit_status::a_run_failed;
    answer.report = format == output_format::rtf ? std::move(report) : plain_text_of(read_rich_text(report));
    return answer;
}

std::string nle_object(const std::string& file, const nle_content& content, const nle_outcome& outcome,
                       const std::string& report, int depth)
{
    json_writer writer(depth);
    write_nle_json(writer, file, content, outcome, report);
    return writer.take();
}

std::string leq_object(const std::string& file, const leq_content& content, const leq_outcome& outcome,
                       const std::string& report, int depth)
{
    json_writer writer(depth);
    write_leq_json(writer, file, content, outcome, report);
    return writer.take();
}

file_answer solve_nle_file(const std::string& file, const nle_run_problem& problem, const batch_request& request,
                           const wall_clock& clock, run_listener& listener)
{
    const nle_outcome outcome = run_nle(problem, request.store, clock, listener);
    std::string report = outcome.has_report ? nle_report(problem, outcome, request.store, clock.today()) : "";
    file_answer answer = answer_of(file, outcome, std::move(report), request.format);
    answer.stopped = outcome.stopped;
    if (request.format == output_format::object)
        answer.object = nle_object(file, problem.content, outcome, answer.report, depth_of_object(request));
    return answer;
}

file_answer solve_leq_file(const std::string& file, const leq_run_problem& problem, const batch_request& request,
                           const batch_surroundings& surroundings)
{
    const leq_outcome outcome = run_leq(problem.content, surroundings.seconds);
    std::string report = outcome.has_report ? leq_report(problem, outcome, surroundings.clock.today()) : "";
    file_answer answer = answer_of(file, outcome, std::move(report), request.format);
    if (request.format == output_format::object)
        answer.object = leq_object(file, problem.content, outcome, answer.report, depth_of_object(request));
    return answer;
}

} // namespace

std::string message_lines(const std::string& file, const message_box& box)
{
    std::string lines = box.title + (file.empty() ? "" : " (" + file + ")") + "\n" + box.text + "\n";
    std::replace(lines.begin() + static_cast<std::ptrdiff_t>(box.title.size()), lines.end(), '\r', '\n');
    return lines;
}

file_answer solve_file(const std::string& file, const batch_request& request, const batch_surroundings& surroundings,
                       run_listener& listener)
{
    const int depth = depth_of_object(request);
    problem_file read = read_problem_file(file, request);
    if (read.refusal) {
        file_answer refused = refused_answer(file, read, depth);
        if (read.kind == document_kind::nle)
            refused.object = nle_object(file, read.content, not_run<nle_outcome>(*read.refusal), "", depth);
        if (read.kind == document_kind::leq)
            refused.object = leq_object(file, leq_content(), not_run<leq_outcome>(*read.refusal), "", depth);
        return refused;
    }
    if (read.linear) return solve_leq_file(file, {std::move(*read.linear), file}, request, surroundings);
    return solve_nle_file(file, {std::move(read.content), file}, request, surroundings.clock, listener);
}

file_answer check_file(const std::string& file, const batch_request& request)
{
    const int depth = depth_of_object(request);
    const problem_file read = read_problem_file(file, request);
    if (read.refusal) return refused_answer(file, read, depth);
    file_answer answer;
    json_writer writer(depth);
    if (read.linear)
        write_leq_check_json(writer, file, *read.linear);
    else
        write_nle_check_json(writer, file, read.content);
    answer.object = writer.take();
    return answer;
}

} // namespace kelvarin
