// SPDX-License-Identifier: MIT
#include "deq/deq_recovery.h"

#include "nle/equations/row_recovery.h"
#include "shell/document/json_value.h"
#include "shell/report/json_writer.h"

namespace kelvarin
{

namespace
{

deq_content content_of(const json_value& text)
{
    deq_content content;
    const recovered_head head = read_recovery_head(text, deq_method_items.size());
    content.title = head.title;
    content.method = static_cast<deq_method>(head.method);
    content.rows = read_rows_member(text);
    content.independent = text.at("independent").text();
    content.initial_value = text.at("initial_value").text();
    content.final_value = text.at("final_value").text();
    return content;
}

} // namespace

std::string deq_recovery_text(const deq_content& content)
{
    json_writer text;
    text.begin_object();
    write_recovery_head(text, content.title, static_cast<int>(content.method));
    write_rows_member(text, content.rows);
    text.member("independent", content.independent);
    text.member("initial_value", content.initial_value);
    text.member("final_value", content.final_value);
    text.end_object();
    return text.take();
}

std::optional<deq_content> read_deq_recovery(std::string_view text)
{
    return read_json(text, content_of);
}

} // namespace kelvarin
