// SPDX-License-Identifier: MIT
#include "batch/json_output.h"

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

/// An object whose members are put in one by one: an initializer list would copy each of them twice, and
/// a solution has hundreds.
json object_with_room(std::size_t members)
{
    json object = json::object();
    object.get_ref<json::object_t&>().reserve(members);
    return object;
}

json array_with_room(std::size_t elements)
{
    json array = json::array();
    array.get_ref<json::array_t&>().reserve(elements);
    return array;
}

json implicit_json(const nle_solution& solution)
{
    json values = array_with_room(solution.implicit.size());
    for (const implicit_result& result : solution.implicit) {
        json row = object_with_room(4);
        row.emplace("name", result.name);
        row.emplace("value", result.value);
        row.emplace("residual", result.residual);
        row.emplace("guess", result.guess);
        values.push_back(std::move(row));
    }
    return values;
}

json explicit_json(const nle_solution& solution)
{
    json values = array_with_room(solution.explicit_values.size());
    for (const explicit_result& result : solution.explicit_values) {
        json row = object_with_room(2);
        row.emplace("name", result.name);
        row.emplace("value", result.value);
        values.push_back(std::move(row));
    }
    return values;
}

json solutions_json(const std::vector<nle_solution>& roots)
{
    json solutions = json::array();
    for (const nle_solution& root : roots)
        solutions.push_back({{"implicit", implicit_json(root)}, {"explicit", explicit_json(root)}});
    return solutions;
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

json solved_nle_json(const std::string& file, const nle_content& content, const nle_outcome& outcome,
                     std::string_view report)
{
    const bool single = outcome.kind == nle_run_kind::single;
    const bool ok = outcome.has_report;
    json object = {{"file", file},
                   {"kind", kind_name(document_kind::nle)},
                   {"title", content.title},
                   {"method", method_text(content.method)},
                   {"ok", ok},
                   {"messages", messages_json(outcome.boxes)},
                   {"converged", ok && outcome.converged()}};
    if (ok && outcome.iterations) object["iterations"] = *outcome.iterations;
    if (single) {
        object["solutions"] = ok ? solutions_json(outcome.roots) : json::array();
        object["scan"] = {{"x", ok ? json(outcome.scan_x) : json::array()},
                          {"f", ok ? json(outcome.scan_f) : json::array()}};
    } else {
        object["implicit"] = ok ? implicit_json(outcome.solution) : json::array();
        object["explicit"] = ok ? explicit_json(outcome.solution) : json::array();
    }
    object["report"] = report;
    return object;
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

std::string json_text(const json& value)
{
    constexpr int indent = 2;
    return value.dump(indent, ' ', false, json::error_handler_t::replace);
}

std::string json_array_text(std::span<const std::string> values)
{
    std::size_t size = 8;
    for (const std::string& value : values)
        size += value.size() + value.size() / 8;
    std::string text;
    text.reserve(size);
    text = "[";
    for (const std::string& value : values) {
        text += text.size() == 1 ? "\n  " : ",\n  ";
        // Line ends stand between the parts of a value, never inside its strings.
        std::size_t start = 0;
        for (auto end = value.find('\n'); end != std::string::npos; end = value.find('\n', start)) {
            text.append(value, start, end + 1 - start).append("  ");
            start = end + 1;
        }
        text.append(value, start);
    }
    text += "\n]";
    return text;
}

} // namespace kelvarin
