// SPDX-License-Identifier: MIT
#include "batch/answer_printer.h"

#include "batch/exit_status.h"
#include "batch/json_output.h"
#include "platform/named_stream.h"
#include "platform/posix_file.h"
#include "platform/saver.h"
#include "platform/uninterrupted.h"

#include <algorithm>
#include <optional>

#include <fcntl.h>
#include <unistd.h>

namespace kelvarin
{

namespace
{

/// Replaces a file. A pipe, a device, or a file that this process has open, is written to as it is: `-o /dev/stdout`
/// behind `> all.txt` must not replace all.txt.
std::optional<file_failure> save_or_append(const std::string& place, std::string_view content)
{
    if (const std::optional<int> number = open_file_named(place)) return write_to_open_file(*number, content);
    if (!is_pipe_or_device(place)) return save_file(place, content);
    const posix_file file(uninterrupted([&] { return ::open(place.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY); }));
    if (!file.is_open()) return file_failure{place, system_reason(errno)};
    return write_to_open_file(file.number(), content);
}

} // namespace

int write_output(const std::string& place, std::string_view content, std::ostream& out, std::ostream& err)
{
    if (place.empty() || place == standard_stream || open_file_named(place) == STDOUT_FILENO) {
        if (out << content << std::flush) return exit_status::every_file_reported;
        err << batch_program_name << ": Standard output can not be written.\n";
        return exit_status::unusable;
    }
    const auto failure = save_or_append(place, content);
    if (!failure) return exit_status::every_file_reported;
    err << message_lines(place, {"Error while trying to save file.\r" + failure->reason, box_icon::critical});
    return exit_status::unusable;
}

answer_printer::answer_printer(const batch_request& request, std::ostream& out, std::ostream& err)
    : request_(request), out_(out), err_(err), a_file_each_(request.answers_in_a_file_each())
{
    for (const std::string& file : request.files)
        if (!request.output.empty()) names_.insert(output_name(request.output, file));
}

void answer_printer::write(const std::string& place, std::string_view content)
{
    status_ = std::max(status_, write_output(place, content, out_, err_));
}

std::optional<std::string> answer_printer::refusal_of(const output_file& output)
{
    // The second file of a run has a name that the command line does not show.
    if (std::optional<std::string> refused = replacement_refusal(output.name, request_)) return refused;
    if (output.name == standard_stream || names_.insert(output.name).second) return std::nullopt;
    return "Two outputs would be written to '" + output.name + "'.";
}

void answer_printer::write_outputs(const std::string& file, const std::vector<output_file>& outputs)
{
    for (const output_file& output : outputs)
        if (std::optional<std::string> refused = refusal_of(output)) {
            err_ << message_lines(file, {std::move(*refused), box_icon::exclamation});
            status_ = std::max(status_, exit_status::unusable);
            return;
        }
    for (const output_file& output : outputs)
        write(output.name, output.content);
}

void answer_printer::take(const std::string& file, file_answer answer)
{
    status_ = std::max(status_, answer.status);
    err_ << answer.messages << std::flush;
    write_outputs(file, answer.outputs);
    const bool as_json = request_.format == output_format::object;
    if (a_file_each_) {
        if (as_json)
            write(output_name(request_.output, file), answer.object + "\n");
        else if (!answer.report.empty())
            write(output_name(request_.output, file), answer.report);
        return;
    }
    if (as_json) {
        objects_.push_back(std::move(answer.object));
        return;
    }
    if (answer.report.empty()) return;
    const std::string separated = (first_report_ ? "" : "\n") + answer.report;
    first_report_ = false;
    if (request_.output.empty())
        write("", separated);
    else
        reports_ += separated;
}

int answer_printer::finish()
{
    if (!objects_.empty())
        write(request_.output, (request_.answers_in_one_array() ? json_array_text(objects_) : objects_.front()) + "\n");
    if (!reports_.empty()) write(request_.output, reports_);
    return status_;
}

} // namespace kelvarin
