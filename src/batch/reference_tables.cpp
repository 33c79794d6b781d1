// SPDX-License-Identifier: MIT
#include "batch/reference_tables.h"

#include "batch/answer_printer.h"
#include "batch/exit_status.h"
#include "batch/file_answer.h"
#include "batch/text_columns.h"
#include "platform/data_files.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/report/json_writer.h"
#include "tools/constants.h"
#include "tools/units.h"

#include <algorithm>

namespace kelvarin
{

namespace
{

/// The text of a data file, or a box if there is none.
struct data_text
{
    std::string text;
    std::optional<message_box> refusal;
};

data_text read_data_file(std::string_view name)
{
    const auto file = find_data_file(name);
    if (!file) return {{}, missing_data_box(name)};
    text_file content = read_text_file(*file, bounds_of_configuration);
    if (!content.ok()) return {{}, message_box{file->string() + ": " + content.failure.reason}};
    return {std::move(content.text), std::nullopt};
}

int refused(const message_box& box, std::ostream& err)
{
    err << message_lines("", box);
    return exit_status::unusable;
}

void report_faults(std::string_view name, const std::vector<data_fault>& faults, std::ostream& err)
{
    for (const data_fault& fault : faults)
        err << batch_program_name << ": " << name << ", line " << fault.line << ": " << fault.reason << "\n";
}

/// The search words after the option as one text.
std::string words_of(const batch_request& request)
{
    std::string words;
    for (const std::string& word : request.lines)
        words += word + " ";
    return words;
}

/// Writes what a search has found; if that is nothing, says so as well.
int write_found(std::size_t count, const std::string& listing, const batch_request& request, std::ostream& out,
                std::ostream& err)
{
    if (count > 0) return write_output(request.output, listing, out, err);
    err << batch_program_name << ": Nothing is found for '" << trimmed(words_of(request)) << "'.\n";
    if (request.format != output_format::object) return exit_status::a_run_failed;
    return std::max<int>(exit_status::a_run_failed, write_output(request.output, listing, out, err));
}

/// The message for two units that no type has both of.
std::string no_pair_text(const std::vector<measurement_unit>& units, const std::string& from, const std::string& to,
                         const std::string& type)
{
    if (find_unit_pair(units, from, to))
        return "The type '" + type + "' does not have both '" + from + "' and '" + to + "'.";
    for (const std::string& name : {from, to})
        if (!find_unit_pair(units, name, name)) return "There is no unit '" + name + "'; --units lists them.";
    return "No type of units has both '" + from + "' and '" + to + "'.";
}

int convert(const batch_request& request, const std::vector<measurement_unit>& units, std::ostream& out,
            std::ostream& err)
{
    const std::string& number = request.lines[0];
    const std::string& from = request.lines[1];
    const std::string& to = request.lines[2];
    const std::string type = request.lines.size() > 3 ? request.lines[3] : std::string();
    const auto pair = find_unit_pair(units, from, to, type);
    if (!pair) return refused({no_pair_text(units, from, to, type)}, err);
    const unit_conversion typed = convert_typed(number, pair->first, pair->second);
    if (typed.refusal) return refused(*typed.refusal, err);
    const double x = val(number);
    if (request.format != output_format::object)
        return write_output(request.output, convert_units(x, pair->first, pair->second).text + "\n", out, err);
    json_writer writer;
    writer.begin_object();
    writer.member("number", x);
    writer.member("from", pair->first.unit_name);
    writer.member("to", pair->second.unit_name);
    writer.member("type", pair->first.unit_type);
    writer.member("value", *typed.value);
    writer.member("text", typed.text);
    writer.end_object();
    return write_output(request.output, writer.take() + "\n", out, err);
}

std::string units_text(const std::vector<measurement_unit>& units)
{
    std::vector<std::vector<std::string>> lines = {{"Type", "Unit", "Factor", "Offset", "Note"}};
    for (const measurement_unit& each : units)
        lines.push_back(
            {each.unit_type, each.unit_name, plain_text(each.factor), plain_text(each.offset), each.unit_note});
    return text_columns(lines);
}

std::string units_json(const std::vector<measurement_unit>& units)
{
    json_writer writer;
    writer.objects(units, [&](const measurement_unit& each) {
        writer.member("type", each.unit_type);
        writer.member("name", each.unit_name);
        writer.member("factor", each.factor);
        writer.member("offset", each.offset);
        writer.member("note", each.unit_note);
    });
    return writer.take() + "\n";
}

std::string constants_text(const std::vector<constant_group>& groups)
{
    std::string text;
    for (const constant_group& group : groups) {
        text += (text.empty() ? "" : "\n") + group.name + "\n";
        for (const std::string& line : constant_lines(group))
            text += "  " + line + "\n";
    }
    return text;
}

void write_constant(json_writer& writer, const std::string& group, const physical_constant& constant)
{
    writer.begin_object();
    writer.member("group", group);
    writer.member("name", constant.name);
    // The value is stored as text, usually a number.
    if (const std::optional<double> number = numeric_value(constant.value))
        writer.member("value", *number);
    else
        writer.member("value", constant.value);
    writer.member("units", constant.units);
    writer.end_object();
}

std::string constants_json(const std::vector<constant_group>& groups)
{
    json_writer writer;
    writer.begin_array();
    for (const constant_group& group : groups)
        for (const physical_constant& each : group.constants)
            write_constant(writer, group.name, each);
    writer.end_array();
    return writer.take() + "\n";
}

int answer_from_units(const batch_request& request, std::ostream& out, std::ostream& err)
{
    const data_text file = read_data_file(units_file_name);
    if (file.refusal) return refused(*file.refusal, err);
    const unit_list list = read_units(file.text);
    report_faults(units_file_name, list.faults, err);
    if (request.action == batch_action::convert) return convert(request, list.units, out, err);
    const std::vector<measurement_unit> found = search_units(list.units, words_of(request));
    return write_found(found.size(), request.format == output_format::object ? units_json(found) : units_text(found),
                       request, out, err);
}

int answer_from_constants(const batch_request& request, std::ostream& out, std::ostream& err)
{
    const data_text file = read_data_file(constants_file_name);
    if (file.refusal) return refused(*file.refusal, err);
    const constant_list list = read_constants(file.text);
    report_faults(constants_file_name, list.faults, err);
    const std::vector<constant_group> found = search_constants(list.groups, words_of(request));
    return write_found(found.size(),
                       request.format == output_format::object ? constants_json(found) : constants_text(found), request,
                       out, err);
}

} // namespace

int answer_from_tables(const batch_request& request, std::ostream& out, std::ostream& err)
{
    if (request.action == batch_action::show_constants) return answer_from_constants(request, out, err);
    return answer_from_units(request, out, err);
}

} // namespace kelvarin
