// SPDX-License-Identifier: MIT
#include "shell/report/report_text.h"

#include "platform/format_mask.h"
#include "platform/run_time_text.h"
#include "shell/general_lib.h"
#include "shell/report/rich_text.h"

#include <algorithm>

namespace kelvarin
{

namespace
{

constexpr std::string_view line_end = R"(\par )";

bool has_comment(const commented_row& row)
{
    return !row.comment.empty();
}

} // namespace

report_text::report_text(std::string_view title, calendar_date date, report_layout layout)
    : layout_(layout), body_(report_head(title, date))
{
}

void report_text::line(std::initializer_list<std::string_view> parts)
{
    for (const std::string_view part : parts)
        body_ += part;
    body_ += line_end;
}

void report_text::margin_line(std::initializer_list<std::string_view> parts)
{
    add(layout_.margin);
    line(parts);
}

void report_text::numbered_line(std::size_t number, std::initializer_list<std::string_view> typed)
{
    body_ += R"({\cf3\f6  [)" + std::to_string(number) + "] }";
    for (const std::string_view part : typed)
        body_ += escape_rich_text(part);
    body_ += line_end;
}

bool report_text::comments(std::string_view head, std::span<const commented_row> rows)
{
    if (std::ranges::none_of(rows, has_comment)) return false;
    line({head});
    for (const commented_row& row : rows) {
        if (!has_comment(row)) continue;
        numbered_line(row.number, {row.text});
        const std::string blanks(std::to_string(row.number).size(), ' ');
        line({R"({\f6     )", blanks, R"(}{\i\cf6 )", escape_rich_text(row.comment), " }"});
    }
    return true;
}

void report_text::setting(std::string_view label, std::string_view value)
{
    margin_line({label, layout_.equals, value});
}

void report_text::settings_of(std::span<const setting_line> lines, const settings& store)
{
    for (const setting_line& each : lines)
        setting(each.label, plain_text(store.number(each.key)));
}

void report_text::data_file(const std::filesystem::path& path)
{
    if (path.empty()) return;
    margin_line({"Data file: ", escape_rich_text(shorten_path(path.string()))});
}

void report_text::elapsed_time(double seconds)
{
    margin_line({"Elapsed time: ", format_masked(seconds, "0.0000"), " sec"});
}

std::string report_text::document() const
{
    std::string_view body = body_;
    if (!layout_.ends_last_line && body.ends_with(line_end)) body.remove_suffix(line_end.size());
    return rich_text_document(body);
}

} // namespace kelvarin
