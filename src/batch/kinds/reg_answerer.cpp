// SPDX-License-Identifier: MIT
#include "batch/kinds/reg_answerer.h"

#include "batch/exit_status.h"
#include "batch/kinds/analysis_actions.h"
#include "batch/kinds/graph_outputs.h"
#include "batch/kinds/matrix_action.h"
#include "batch/kinds/regression_action.h"
#include "batch/kinds/table_action.h"
#include "batch/kinds/table_edit_commands.h"
#include "batch/text_columns.h"
#include "platform/runtime_failure.h"
#include "reg/reg_kind.h"
#include "reg/table/column_statistics.h"
#include "reg/table/table_file.h"
#include "reg/table/table_json.h"
#include "shell/report/outcome_json.h"
#include "shell/report/report_text.h"
#include "shell/report/rich_text.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr const char* table_option = "--table";
constexpr const char* statistics_option = "--statistics";
constexpr const char* save_option = "--save";

/// A method of some action.
std::optional<std::string> method_refusal(std::string_view value)
{
    return is_regression_method(value) ? std::nullopt : analysis_method_refusal(value);
}

constexpr std::array<kind_option, 7> common_options = {
    {{.name = edit_option,
      .value_name = "COMMAND",
      .help = "Change the table first: cell R,C TEXT, define NAME FORMULA, undefine NAME, rename OLD NEW, digits N, "
              "insert R, delete R; may be repeated",
      .refusal = table_edit_refusal,
      .repeats = true},
     {.name = statistics_option, .help = "Sum, mean, standard deviation and variance of each column"},
     {.name = table_option,
      .help = "Print the used part of the table, which is also what is done without an action if it has no model"},
     {.name = save_option, .value_name = "NAME", .help = "Save the table to this file (.kvr)", .names_output = true},
     {.name = dependent_option, .value_name = "NAME", .help = "The dependent column; by default the second one"},
     {.name = independent_option,
      .value_name = "NAME",
      .help = "The independent column; by default the first one. Of --regress linear several, separated by commas"},
     {table_method_option, "NAME",
      "RATINT, SPLINT, LINEAR; STANDA, LAGRANGE, SPLINE; GAULEG, SPLINE, SIMPSON; mrqmin, L-M; or the number from 0 on",
      method_refusal}}};

std::span<const kind_option> all_options()
{
    static const std::vector<kind_option> options = [] {
        std::vector<kind_option> all(common_options.begin(), common_options.end());
        for (const std::span<const kind_option> added : {regression_options(), analysis_options(), matrix_options()})
            all.insert(all.end(), added.begin(), added.end());
        return all;
    }();
    return options;
}

table_content blank_table(const settings& store)
{
    return table_content({store.whole_number("table_rows"), store.whole_number("table_cols")});
}

table_answer statistics_of(const table_call& call)
{
    table_answer answer;
    try {
        const std::vector<column_statistics> columns = statistics_of_columns(call.content);
        answer.has_report = true;
        answer.report = column_statistics_report(columns, call.surroundings.clock.today());
        answer.write_members = [columns](json_writer& writer) { write_statistics_members(writer, columns); };
    } catch (const runtime_failure& failure) {
        answer.refuse({"Error: " + std::string(failure.description()), box_icon::critical});
    }
    return answer;
}

std::span<const table_action> all_actions()
{
    static const std::vector<table_action> actions = [] {
        std::vector<table_action> all = {
            regression_action(), {.option = statistics_option, .answer = statistics_of}, matrix_action()};
        all.insert(all.end(), analysis_actions().begin(), analysis_actions().end());
        return all;
    }();
    return actions;
}

table_answer table_alone(const table_content& content)
{
    table_answer answer;
    answer.has_report = true;
    answer.write_members = [&content](json_writer& writer) { write_table_members(writer, content); };
    return answer;
}

/// What is done without being asked for: the model of a table is fitted.
const table_action* action_by_itself(const table_content& content, const batch_request& request)
{
    const bool has_model = content.model.find('=') != std::string::npos;
    return has_model && !request.option(table_option) ? &all_actions().front() : nullptr;
}

/// The used part of a table as text in columns below the names.
std::string table_text(const table_content& content)
{
    const table_size used = used_size(content);
    std::vector<std::vector<std::string>> lines(static_cast<std::size_t>(used.rows) + 1);
    for (int column = 0; column < used.columns; ++column) {
        lines[0].push_back(content.name(column));
        for (int row = 0; row < used.rows; ++row)
            lines[static_cast<std::size_t>(row) + 1].push_back(content.cells.text(row, column));
    }
    return used.columns == 0 ? std::string() : text_columns(lines);
}

/// `adds_table` for an action that is not the table itself.
std::string object_of(const problem_text& problem, const table_content& content, const table_answer& answer,
                      const std::string& report, bool adds_table, const batch_request& request)
{
    json_writer writer(request.depth_of_object());
    begin_answer(writer, problem.file, reg_kind().key, content.title);
    write_ending(writer, answer.has_report, answer.boxes);
    answer.write_members(writer);
    if (adds_table && request.option(table_option) && answer.has_report) {
        writer.key("table");
        writer.begin_object();
        write_table_members(writer, content);
        writer.end_object();
    }
    writer.member("report", report);
    writer.end_object();
    return writer.take();
}

/// The edited table, and the boxes of refused commands.
std::pair<table_content, std::vector<message_box>> edited_table(table_content content,
                                                                std::span<const std::string> edits)
{
    evaluation_context context;
    std::vector<message_box> boxes;
    for (const std::string& edit : edits)
        if (std::optional<message_box> refused = edit_table(content, edit, context))
            boxes.push_back(std::move(*refused));
    return {std::move(content), std::move(boxes)};
}

/// Lines of text as a document, for the answers that are no report of a window.
std::string rich_lines(std::string_view text)
{
    report_text document{report_layout()};
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        document.line({R"({\f6 )", escape_rich_text(text.substr(0, end)), "}"});
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return document.document();
}

file_answer printed(const problem_text& problem, const table_content& content, table_answer& done, bool is_action,
                    const batch_request& request)
{
    const bool has_report = !done.report.empty();
    file_answer answer = file_answer_of(problem.file, done, std::move(done.report), request);
    if (!has_report) answer.report.clear();
    if (done.stopped) answer.stop_message = answer.messages;
    // A graph that can't be drawn leaves its box beside the result.
    if (!done.boxes.empty() && asks_for_graphs(request)) answer.status = exit_status::a_run_failed;
    answer.outputs = std::move(done.outputs);
    if (request.format == output_format::object)
        answer.object = object_of(problem, content, done, answer.report, is_action, request);
    if (!done.has_report) return answer;
    if (const std::string* const name = request.option(save_option))
        answer.outputs.push_back({output_name(*name, problem.file), write_table(content)});
    if (request.format == output_format::object) return answer;
    // A report as rich text is a whole document, behind which nothing can follow.
    const bool as_document = request.format == output_format::rtf;
    if (as_document && has_report) return answer;
    std::string text = answer.report + done.text;
    if (request.option(table_option) || (text.empty() && answer.outputs.empty()))
        text += (text.empty() ? "" : "\n") + table_text(content);
    answer.report = as_document && !text.empty() ? rich_lines(text) : std::move(text);
    return answer;
}

file_answer solve(const problem_text& problem, const batch_request& request, const batch_surroundings& surroundings,
                  run_listener& listener)
{
    std::optional<table_content> read = read_table(problem.text, blank_table(request.store));
    if (!read) return refused_answer(problem.file, reg_kind().key, table_open_refusal({}, problem.text), request);
    auto [content, refused] = edited_table(std::move(*read), request.values_of(edit_option));
    std::string wrong;
    const table_action* const action =
        action_asked_for(all_actions(), request, action_by_itself(content, request), wrong);
    if (!wrong.empty())
        return refused_answer(problem.file, reg_kind().key, {std::move(wrong), box_icon::exclamation}, request);
    table_answer done;
    if (!refused.empty())
        done.boxes = std::move(refused);
    else
        done = action ? action->answer({problem.file, content, request, surroundings, listener}) : table_alone(content);
    if (done.is_wrong_usage) return refused_answer(problem.file, reg_kind().key, done.boxes.front(), request);
    const table_content& result = done.changed ? *done.changed : content;
    return printed(problem, result, done, action != nullptr, request);
}

file_answer check(const problem_text& problem, const batch_request& request)
{
    const std::optional<table_content> content = read_table(problem.text, blank_table(request.store));
    if (!content) return refused_answer(problem.file, reg_kind().key, table_open_refusal({}, problem.text), request);
    return {.object = object_of(problem, *content, table_alone(*content), "", false, request)};
}

} // namespace

kind_answerer reg_answerer()
{
    return {&reg_kind(), all_options(), solve, check};
}

} // namespace kelvarin
