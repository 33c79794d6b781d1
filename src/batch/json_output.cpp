// SPDX-License-Identifier: MIT
#include "batch/json_output.h"

#include "shell/report/json_writer.h"
#include "shell/report/outcome_json.h"

#include <cstddef>

namespace kelvarin
{

namespace
{

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

/// Writes a setting as the solvers read it.
void write_value(json_writer& writer, const settings& store, const setting_row& row)
{
    switch (row.type) {
    case setting_type::floating:
        return writer.value(store.number(row.key));
    case setting_type::integer:
        return writer.value(store.whole_number(row.key));
    case setting_type::boolean:
        return writer.value(store.is_true(row.key));
    case setting_type::string:
        break;
    }
    writer.value(store.value(row.key));
}

/// Writes a bound of a setting, as an integer if the setting is one.
void write_bound(json_writer& writer, const setting_row& row, double bound)
{
    if (row.type == setting_type::floating) return writer.value(bound);
    if (row.type == setting_type::integer) return writer.value(static_cast<int>(bound));
    writer.null();
}

void write_setting(json_writer& writer, const settings& store, const settings& defaults, const setting_row& row)
{
    writer.begin_object();
    writer.member("key", row.key);
    writer.member("type", type_name(row.type));
    writer.key("value");
    write_value(writer, store, row);
    writer.key("default");
    write_value(writer, defaults, row);
    writer.key("minimum");
    write_bound(writer, row, row.minimum_value);
    writer.key("maximum");
    write_bound(writer, row, row.maximum_value);
    writer.end_object();
}

} // namespace

std::string refused_file_json(const std::string& file, std::string_view kind, const message_box& refusal, int depth)
{
    json_writer writer(depth);
    writer.begin_object();
    writer.member("file", file);
    writer.member("kind", kind);
    write_ending(writer, false, {&refusal, 1});
    writer.end_object();
    return writer.take();
}

std::string calculator_json(std::span<const std::string> lines, std::span<const calculator_answer> answers)
{
    json_writer writer;
    writer.begin_array();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const calculator_answer& answer = answers[i];
        writer.begin_object();
        writer.member("line", lines[i]);
        writer.member("ok", answer.value.has_value());
        writer.key("value");
        if (answer.value)
            writer.value(*answer.value);
        else
            writer.null();
        writer.member("message", answer.refusal ? answer.refusal->text : "");
        writer.member("variable", answer.variable);
        writer.end_object();
    }
    writer.end_array();
    return writer.take();
}

std::string settings_json(const settings& store)
{
    const settings defaults;
    json_writer writer;
    writer.begin_array();
    for (const setting_row& row : settings_table())
        write_setting(writer, store, defaults, row);
    writer.end_array();
    return writer.take();
}

std::string json_array_text(std::span<const std::string> values)
{
    std::size_t size = 8;
    for (const std::string& value : values)
        size += value.size() + 4;
    json_writer writer;
    writer.reserve(size);
    writer.begin_array();
    for (const std::string& value : values)
        writer.raw(value);
    writer.end_array();
    return writer.take();
}

} // namespace kelvarin
