// SPDX-License-Identifier: MIT
#include "opt/opt_recovery.h"

#include "nle/equations/row_recovery.h"
#include "shell/document/json_value.h"
#include "shell/report/json_writer.h"

namespace kelvarin
{

namespace
{

/// Raised whenever a field changes its meaning, so that no older program misreads a newer one's text.
constexpr int recovery_format = 1;

opt_content content_of(const json_value& text)
{
    text.at("format").whole_number(recovery_format, recovery_format);
    opt_content content;
    content.title = text.at("title").text();
    constexpr int last_method = static_cast<int>(opt_method_items.size()) - 1;
    content.method = static_cast<opt_method>(text.at("method").whole_number(0, last_method));
    content.target = text.at("target").text();
    content.rows = read_rows_member(text);
    return content;
}

} // namespace

std::string opt_recovery_text(const opt_content& content)
{
    json_writer text;
    text.begin_object();
    text.member("format", recovery_format);
    text.member("title", content.title);
    text.member("method", static_cast<int>(content.method));
    text.member("target", content.target);
    write_rows_member(text, content.rows);
    text.end_object();
    return text.take();
}

std::optional<opt_content> read_opt_recovery(std::string_view text)
{
    return read_json(text, content_of);
}

} // namespace kelvarin
