// SPDX-License-Identifier: MIT
#include "leq/leq_recovery.h"

#include "shell/document/json_value.h"
#include "shell/report/json_writer.h"

namespace kelvarin
{

namespace
{

/// Raised whenever a field changes its meaning, so that no older program misreads a newer one's text.
constexpr int recovery_format = 1;

leq_content content_of(const json_value& text)
{
    text.at("format").whole_number(recovery_format, recovery_format);
    std::vector<std::string> names = text.at("names").texts();
    std::vector<std::string> cells = text.at("cells").texts();
    if (names.size() < least_leq_count || names.size() > largest_leq_count) throw json_mismatch("no number of names");
    leq_content content(static_cast<int>(names.size()));
    if (cells.size() != content.cells.size()) throw json_mismatch("no number of cells");
    content.title = text.at("title").text();
    content.names = std::move(names);
    content.cells = std::move(cells);
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
    text.member("cells", content.cells);
    text.end_object();
    return text.take();
}

std::optional<leq_content> read_leq_recovery(std::string_view text)
{
    return read_json(text, content_of);
}

} // namespace kelvarin
