// SPDX-License-Identifier: MIT
#include "nle/nle_recovery.h"

#include "nle/equations/row_recovery.h"
#include "shell/document/json_value.h"
#include "shell/report/json_writer.h"

namespace kelvarin
{

namespace
{

/// To be raised when a field changes its meaning, so that an older program doesn't misread a newer text.
constexpr int recovery_format = 1;

nle_content content_of(const json_value& text)
{
    text.at("format").whole_number(recovery_format, recovery_format);
    nle_content content;
    content.title = text.at("title").text();
    constexpr int last_method = static_cast<int>(nle_method_items.size()) - 1;
    content.method = static_cast<nle_method>(text.at("method").whole_number(0, last_method));
    content.rows = read_rows_member(text);
    content.lower_bound = text.at("lower_bound").text();
    content.upper_bound = text.at("upper_bound").text();
    return content;
}

} // namespace

std::string nle_recovery_text(const nle_content& content)
{
    json_writer text;
    text.begin_object();
    text.member("format", recovery_format);
    text.member("title", content.title);
    text.member("method", static_cast<int>(content.method));
    write_rows_member(text, content.rows);
    text.member("lower_bound", content.lower_bound);
    text.member("upper_bound", content.upper_bound);
    text.end_object();
    return text.take();
}

std::optional<nle_content> read_nle_recovery(std::string_view text)
{
    return read_json(text, content_of);
}

} // namespace kelvarin
