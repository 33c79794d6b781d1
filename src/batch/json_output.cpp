// SPDX-License-Identifier: MIT
#include "batch/json_output.h"

#include "nle/nle_analysis.h"
#include "shell/report/json_writer.h"

namespace kelvarin
{

namespace
{

json messages_json(const std::vector<message_box>& boxes)
{
    json messages = json::array();
    for (const message_box& box : boxes)
        messages.push_back({{"title", box.title}, {"text", box.text}});
    return messages;
}

void write_messages(json_writer& writer, const std::vector<message_box>& boxes)
{
    writer.begin_array();
    for (const message_box& box : boxes) {
        writer.begin_object();
        writer.member("title", box.title);
        writer.member("text", box.text);
        writer.end_object();
    }
    writer.end_array();
}

void write_implicit(json_writer& writer, const nle_solution& solution)
{
    writer.begin_array();
    for (const implicit_result& result : solution.implicit) {
        writer.begin_object();
        writer.member("name", result.name);
        writer.member("value", result.value);
        writer.member("residual", result.residual);
        writer.member("guess", result.guess);
        writer.end_object();
    }
    writer.end_array();
}

void write_explicit(json_writer& writer, const nle_solution& solution)
{
    writer.begin_array();
    for (const explicit_result& result : solution.explicit_values) {
        writer.begin_object();
        writer.member("name", result.name);
        writer.member("value", result.value);
        writer.end_object();
    }
    writer.end_array();
}

/// The keys "implicit" and "explicit".
void write_solution(json_writer& writer, const nle_solution& solution)
{
    writer.key("implicit");
    write_implicit(writer, solution);
    writer.key("explicit");
    write_explicit(writer, solution);
}

void write_roots(json_writer& writer, const std::vector<nle_solution>& roots)
{
    writer.begin_array();
    for (const nle_solution& root : roots) {
        writer.begin_object();
        write_solution(writer, root);
        writer.end_object();
    }
    writer.end_array();
}

void write_numbers(json_writer& writer, std::string_view name, const std::vector<double>& numbers)
{
    writer.key(name);
    writer.begin_array();
    for (const double number : numbers)
        writer.value(number);
    writer.end_array();
}

void write_variables(json_writer& writer, const std::vector<std::string>& names, const std::vector<double>& values)
{
    writer.key("variables");
    writer.begin_array();
    for (std::size_t i = 0; i < values.size(); ++i) {
        writer.begin_object();
        writer.member("name", names[i]);
        writer.member("value", values[i]);
        writer.end_object();
    }
    writer.end_array();
}

/// What of an outcome without a report is told: nothing.
const nle_outcome& told_part(const nle_outcome& outcome)
{
    static const nle_outcome nothing;
    return outcome.has_report ? outcome : nothing;
}

/// Roughly the bytes of an answer, on the large side.
std::size_t size_of_answer(const nle_outcome& outcome, std::string_view report)
{
    constexpr std::size_t frame = 1024;
    constexpr std::size_t of_row = 200;
    const nle_solution& solution = outcome.solution;
    return frame + of_row * (solution.implicit.size() + solution.explicit_values.size()) + report.size() * 9 / 8;
}

std::string_view type_name(setting_type type)
{
    switch (type) {
    case setting_type::floating:
        return "double";
    case setting_type::integer:
        return "integer";
    case setting_type::boolean:
        return "boolean";
    case setting_type::string:
        break;
    }
    return "string";
}

/// A setting in the form that solvers read it in.
json value_json(const settings& store, const setting_row& row)
{
    switch (row.type) {
    case setting_type::floating:
        return store.number(row.key);
    case setting_type::integer:
        return store.whole_number(row.key);
    case setting_type::boolean:
        return store.is_true(row.key);
    case setting_type::string:
        break;
    }
    return store.value(row.key);
}

/// A bound of a setting, whole where the setting is.
json bound_json(const setting_row& row, double bound)
{
    if (row.type == setting_type::floating) return bound;
    if (row.type == setting_type::integer) return static_cast<int>(bound);
    return nullptr;
}

} // namespace

std::string solved_nle_text(const std::string& file, const nle_content& content, const nle_outcome& outcome,
                            std::string_view report, int depth)
{
    const nle_outcome& told = told_part(outcome);
    json_writer writer(depth);
    writer.reserve(size_of_answer(told, report));
    writer.begin_object();
    writer.member("file", file);
    writer.member("kind", kind_name(document_kind::nle));
    writer.member("title", content.title);
    writer.member("method", method_text(content.method));
    writer.member("ok", outcome.has_report);
    writer.key("messages");
    write_messages(writer, outcome.boxes);
    writer.member("converged", outcome.has_report && outcome.converged());
    if (told.iterations) writer.member("iterations", *told.iterations);
    if (outcome.kind == nle_run_kind::single) {
        writer.key("solutions");
        write_roots(writer, told.roots);
        writer.key("scan");
        writer.begin_object();
        write_numbers(writer, "x", told.scan_x);
        write_numbers(writer, "f", told.scan_f);
        writer.end_object();
    } else {
        write_solution(writer, told.solution);
    }
    writer.member("report", report);
    writer.end_object();
    return writer.take();
}

std::string solved_leq_text(const std::string& file, const leq_content& content, const leq_outcome& outcome,
                            std::string_view report, int depth)
{
    json_writer writer(depth);
    writer.begin_object();
    writer.member("file", file);
    writer.member("kind", kind_name(document_kind::leq));
    writer.member("title", content.title);
    writer.member("ok", outcome.has_report);
    writer.key("messages");
    write_messages(writer, outcome.boxes);
    if (outcome.has_report) {
        write_variables(writer, content.names, outcome.solution);
        writer.member("residual", outcome.residual);
    }
    writer.member("report", report);
    writer.end_object();
    return writer.take();
}

json checked_leq_json(const std::string& file, const leq_content& content)
{
    json warnings = json::array();
    if (const std::optional<leq_fault> fault = first_leq_fault(content)) warnings.push_back(fault->box.text);
    return {{"file", file},
            {"kind", kind_name(document_kind::leq)},
            {"title", content.title},
            {"green", warnings.empty()},
            {"variables", content.names},
            {"warnings", warnings}};
}

json checked_nle_json(const std::string& file, const nle_content& content)
{
    const nle_analysis analysis = analyse_nle(content);
    return {{"file", file},
            {"kind", kind_name(document_kind::nle)},
            {"title", content.title},
            {"method", method_text(content.method)},
            {"green", analysis.green},
            {"panels", analysis.panels},
            {"implicit", analysis.set.implicit_names},
            {"explicit", analysis.set.explicit_names},
            {"undefined", analysis.set.undefined},
            {"duplicates", analysis.set.duplicates},
            {"warnings", listing_warnings(content)}};
}

json refused_file_json(const std::string& file, document_kind kind, const message_box& refusal)
{
    return {{"file", file}, {"kind", kind_name(kind)}, {"ok", false}, {"messages", messages_json({refusal})}};
}

json calculator_json(const std::string& line, const calculator_answer& answer)
{
    return {{"line", line},
            {"ok", answer.value.has_value()},
            {"value", answer.value ? json(*answer.value) : json(nullptr)},
            {"message", answer.refusal ? answer.refusal->text : ""},
            {"variable", answer.variable}};
}

json settings_json(const settings& store)
{
    const settings defaults;
    json list = json::array();
    for (const setting_row& row : settings_table())
        list.push_back({{"key", row.key},
                        {"type", type_name(row.type)},
                        {"value", value_json(store, row)},
                        {"default", value_json(defaults, row)},
                        {"minimum", bound_json(row, row.minimum_value)},
                        {"maximum", bound_json(row, row.maximum_value)}});
    return list;
}

std::string json_text(const json& value, int depth)
{
    constexpr int indent = 2;
    std::string text = value.dump(indent, ' ', false, json::error_handler_t::replace);
    if (depth == 0) return text;
    const std::string margin(static_cast<std::size_t>(indent * depth), ' ');
    std::string moved;
    // Line ends stand between the parts of a value, never inside its strings.
    for (const char c : text) {
        moved += c;
        if (c == '\n') moved += margin;
    }
    return moved;
}

std::string json_array_text(std::span<const std::string> values)
{
    std::size_t size = 8;
    for (const std::string& value : values)
        size += value.size() + 4;
    std::string text;
    text.reserve(size);
    text = "[";
    for (const std::string& value : values) {
        text += text.size() == 1 ? "\n  " : ",\n  ";
        text += value;
    }
    text += "\n]";
    return text;
}

} // namespace kelvarin
