// SPDX-License-Identifier: MIT
#include "batch/solve_files.h"

#include "batch/exit_status.h"
#include "batch/json_output.h"
#include "batch/problem_file.h"
#include "nle/nle_run.h"
#include "shell/rich_text.h"

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
    answer.object = json_text(refused_file_json(file, refused.kind, *refused.refusal), depth);
    answer.messages = message_lines(file, *refused.refusal);
    answer.status = exit_status::unusable;
    return answer;
}

} // namespace

std::string message_lines(const std::string& file, const message_box& box)
{
    std::string lines = box.title + " (" + file + ")\n" + box.text + "\n";
    std::replace(lines.begin() + static_cast<std::ptrdiff_t>(box.title.size()), lines.end(), '\r', '\n');
    return lines;
}

file_answer solve_file(const std::string& file, const batch_request& request, const wall_clock& clock,
                       run_listener& listener)
{
    const int depth = depth_of_object(request);
    problem_file read = read_problem_file(file, request);
    if (read.refusal) {
        file_answer refused = refused_answer(file, read, depth);
        if (read.kind == document_kind::nle) {
            nle_outcome not_run;
            not_run.boxes = {*read.refusal};
            refused.object = solved_nle_text(file, read.content, not_run, "", depth);
        }
        return refused;
    }

    const nle_run_problem problem = {std::move(read.content), file};
    const nle_outcome outcome = run_nle(problem, request.store, clock, listener);
    file_answer answer;
    answer.stopped = outcome.stopped;
    for (const message_box& box : outcome.boxes)
        answer.messages += message_lines(file, box);
    if (!outcome.has_report) answer.status = exit_status::a_run_failed;
    if (outcome.has_report) answer.report = nle_report(problem, outcome, request.store, clock.today());
    if (request.format != output_format::rtf) answer.report = plain_text_of(read_rich_text(answer.report));
    if (request.format == output_format::object)
        answer.object = solved_nle_text(file, problem.content, outcome, answer.report, depth);
    return answer;
}

file_answer check_file(const std::string& file, const batch_request& request)
{
    const int depth = depth_of_object(request);
    const problem_file read = read_problem_file(file, request);
    if (read.refusal) return refused_answer(file, read, depth);
    file_answer answer;
    answer.object = json_text(checked_nle_json(file, read.content), depth);
    return answer;
}

} // namespace kelvarin
