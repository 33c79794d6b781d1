// SPDX-License-Identifier: MIT
#include "batch/run_batch.h"

#include "batch/answer_printer.h"
#include "batch/command_line.h"
#include "batch/exit_status.h"
#include "batch/json_output.h"
#include "batch/ordered_answers.h"
#include "batch/progress_line.h"
#include "batch/reference_tables.h"
#include "batch/settings_listing.h"
#include "batch/solve_files.h"
#include "platform/run_time_text.h"
#include "tools/calculator.h"

#include <algorithm>
#include <vector>

namespace kelvarin
{

namespace
{

int answer_files(const batch_request& request, std::ostream& out, std::ostream& err,
                 const batch_surroundings& surroundings)
{
    answer_printer printer(request, out, err);
    const auto file_answer_of = [&](std::size_t i, run_listener& listener) {
        if (request.action == batch_action::check) return check_file(request.files[i], request, listener);
        return solve_file(request.files[i], request, surroundings, listener);
    };
    ordered_answers answers(request.files.size(), request.jobs, file_answer_of, surroundings.listener);
    for (const std::string& file : request.files) {
        file_answer answer = [&] {
            progress_line progress(surroundings.listener, surroundings.err_is_terminal ? &err : nullptr, file);
            return answers.next(progress);
        }();
        if (answer.stopped || surroundings.listener.stop_asked()) {
            err << answer.stop_message << std::flush;
            return exit_status::interrupted;
        }
        printer.take(file, std::move(answer));
    }
    return printer.finish();
}

int evaluate_lines(const batch_request& request, std::ostream& out, std::ostream& err)
{
    calculator tool;
    const bool as_json = request.format == output_format::object;
    int status = exit_status::every_file_reported;
    std::vector<calculator_answer> answers;
    // A line for each: what fails leaves its line empty.
    std::string values;
    for (const std::string& line : request.lines) {
        answers.push_back(tool.solve_line(line));
        const calculator_answer& answer = answers.back();
        values += (answer.value ? plain_text(*answer.value) : std::string()) + "\n";
        if (answer.value) continue;
        status = exit_status::a_run_failed;
        if (!as_json && answer.refusal) err << message_lines(line, *answer.refusal);
    }
    const std::string output = as_json ? calculator_json(request.lines, answers) + "\n" : std::move(values);
    return std::max(status, write_output(request.output, output, out, err));
}

} // namespace

int run_batch(std::span<const std::string> arguments, std::ostream& out, std::ostream& err,
              const batch_surroundings& surroundings)
{
    const auto read = read_command_line(arguments, surroundings.saved);
    if (const auto* end = std::get_if<command_line_end>(&read)) {
        if (end->status == exit_status::every_file_reported) return write_output("", end->text, out, err);
        err << batch_program_name << ": " << end->text << "\nRun with --help for more information.\n";
        return end->status;
    }
    const auto& request = std::get<batch_request>(read);
    switch (request.action) {
    case batch_action::eval:
        return evaluate_lines(request, out, err);
    case batch_action::convert:
    case batch_action::show_units:
    case batch_action::show_constants:
        return answer_from_tables(request, out, err);
    case batch_action::show_settings:
        return write_output(request.output,
                            request.format == output_format::object ? settings_json(request.store) + "\n"
                                                                    : settings_listing(request.store),
                            out, err);
    case batch_action::solve:
    case batch_action::check:
        break;
    }
    if (!request.date) return answer_files(request, out, err, surroundings);
    const fixed_clock clock(*request.date);
    return answer_files(
        request, out, err,
        {clock, surroundings.saved, surroundings.listener, surroundings.err_is_terminal, [] { return 0.0; }});
}

} // namespace kelvarin
