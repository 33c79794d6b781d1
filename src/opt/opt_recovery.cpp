// SPDX-License-Identifier: MIT
#include "opt/opt_recovery.h"

#include "nle/equations/row_recovery.h"
#include "shell/document/json_value.h"
#include "shell/report/json_writer.h"

namespace kelvarin
{

namespace
{

opt_content content_of(const json_value& text)
{
    opt_content content;
    const recovered_head head = read_recovery_head(text, opt_method_items.size());
    content.title = head.title;
    content.method = static_cast<opt_method>(head.method);
    content.target = text.at("target").text();
    content.rows = read_rows_member(text);
    return content;
}

} // namespace

std::string opt_recovery_text(const opt_content& content)
{
    json_writer text;
    text.begin_object();
    write_recovery_head(text, content.title, static_cast<int>(content.method));
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
