// SPDX-License-Identifier: MIT
#include "batch/file_answer.h"

#include "batch/exit_status.h"
#include "batch/json_output.h"
#include "shell/report/rich_text.h"

#include <algorithm>
#include <utility>

namespace kelvarin
{

file_answer file_answer_of(const std::string& file, const run_outcome& outcome, std::string report,
                           const batch_request& request)
{
    file_answer answer;
    for (const message_box& box : outcome.boxes)
        answer.messages += message_lines(file, box);
    answer.stopped = outcome.stopped;
    if (!outcome.has_report) answer.status = exit_status::a_run_failed;
    answer.report = request.format == output_format::rtf ? std::move(report) : plain_text_of(read_rich_text(report));
    return answer;
}

file_answer refused_answer(const std::string& file, std::string_view kind, const message_box& refusal,
                           const batch_request& request)
{
    file_answer answer;
    answer.object = refused_file_json(file, kind, refusal, request.depth_of_object());
    answer.messages = message_lines(file, refusal);
    answer.status = exit_status::unusable;
    return answer;
}

std::string message_lines(const std::string& file, const message_box& box)
{
    std::string text = box.text;
    std::ranges::replace(text, '\r', '\n');
    return std::string(batch_program_name) + ": " + (file.empty() ? "" : file + ": ") + box.title + "\n" + text + "\n";
}

} // namespace kelvarin
