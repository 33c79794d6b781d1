// SPDX-License-Identifier: MIT
#include "batch/kinds/leq_answerer.h"

#include "leq/leq_file.h"
#include "leq/leq_json.h"
#include "leq/leq_kind.h"
#include "leq/leq_report.h"
#include "leq/leq_run.h"

#include <utility>

namespace kelvarin
{

namespace
{

message_box no_problem()
{
    return {"Error while trying to open file.\rIts second line is to be the number of equations less 1, a whole "
            "number from " +
                std::to_string(least_leq_count - 1) + " to " + std::to_string(largest_leq_count - 1) + ".",
            box_icon::exclamation};
}

std::string object_of(const std::string& file, const leq_content& content, const leq_outcome& outcome,
                      const std::string& report, const batch_request& request)
{
    json_writer writer(request.depth_of_object());
    write_leq_json(writer, file, content, outcome, report);
    return writer.take();
}

file_answer solve(const problem_text& problem, const batch_request& request, const batch_surroundings& surroundings,
                  run_listener&)
{
    std::optional<leq_content> content = read_leq(problem.text);
    if (!content) {
        file_answer refused = refused_answer(problem.file, leq_kind().key, no_problem(), request);
        refused.object =
            object_of(problem.file, leq_content(), outcome_refused<leq_outcome>(no_problem()), "", request);
        return refused;
    }
    const leq_run_problem run = {std::move(*content), problem.file};
    const leq_outcome outcome = run_leq(run.content, surroundings.seconds);
    std::string report = outcome.has_report ? leq_report(run, outcome, surroundings.clock.today()) : std::string();
    file_answer answer = file_answer_of(problem.file, outcome, std::move(report), request);
    if (request.format == output_format::object)
        answer.object = object_of(problem.file, run.content, outcome, answer.report, request);
    return answer;
}

file_answer check(const problem_text& problem, const batch_request& request)
{
    const std::optional<leq_content> content = read_leq(problem.text);
    if (!content) return refused_answer(problem.file, leq_kind().key, no_problem(), request);
    json_writer writer(request.depth_of_object());
    write_leq_check_json(writer, problem.file, *content);
    return {.object = writer.take()};
}

} // namespace

kind_answerer leq_answerer()
{
    return {.kind = &leq_kind(), .solve = solve, .check = check};
}

} // namespace kelvarin
