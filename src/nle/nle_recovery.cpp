// SPDX-License-Identifier: MIT
#include "nle/nle_recovery.h"

#include "nle/equations/row_recovery.h"
#include "shell/document/json_value.h"
#include "shell/report/json_writer.h"

namespace kelvarin
{

namespace
{

nle_content content_of(const json_value& text)
{
    nle_content content;
    const recovered_head head = read_recovery_head(text, nle_method_items.size());
    content.title = head.title;
    content.method = static_cast<nle_method>(head.method);
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
    write_recovery_head(text, content.title, static_cast<int>(content.method));
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
