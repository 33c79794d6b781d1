// SPDX-License-Identifier: MIT
#include "leq/leq_recovery.h"

#include "shell/document/json_value.h"
#include "shell/report/json_writer.h"

namespace kelvarin
{

namespace
{

/// To be raised when a field changes its meaning, so that an older program doesn't misread a newer text.
constexpr int recovery_format = 1;

leq_content content_of(const json_value& text)
{
    text.at("format").whole_number(recovery_format, recovery_format);
    std::vector<std::string> names = text.at("names").texts();
    const std::vector<std::string> cells = text.at("cells").texts();
    if (names.size() < least_leq_count || names.size() > largest_leq_count) throw json_mismatch("no number of names");
    leq_content content(static_cast<int>(names.size()));
    const std::size_t columns = names.size() + 1;
    if (cells.size() != names.size() * columns) throw json_mismatch("no number of cells");
    content.title = text.at("title").text();
    content.names = std::move(names);
    for (std::size_t i = 0; i < cells.size(); ++i)
        content.cells.set_cell(static_cast<int>(i / columns), static_cast<int>(i % columns), cells[i]);
    return content;
}

} // namespace

std::string leq_recovery_text(const leq_content& content)
{
    json_writer text;
    text.begin_object();
    text.member("format", recovery_format);
    text.member("title", content.title);
    text.member("names", content.names);
    // Row by row, each row with its beta.
    text.key("cells");
    text.begin_array();
    for (int row = 0; row < content.count(); ++row)
        for (int column = 0; column <= content.count(); ++column)
            text.value(content.cell(row, column));
    text.end_array();
    text.end_object();
    return text.take();
}

std::optional<leq_content> read_leq_recovery(std::string_view text)
{
    return read_json(text, content_of);
}

} // namespace kelvarin
