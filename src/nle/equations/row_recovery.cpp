// SPDX-License-Identifier: MIT
#include "nle/equations/row_recovery.h"

namespace kelvarin
{

namespace
{

/// To be raised when a field changes its meaning, so that an older program doesn't misread a newer text.
constexpr int recovery_format = 1;

} // namespace

void write_recovery_head(json_writer& text, std::string_view title, int method)
{
    text.member("format", recovery_format);
    text.member("title", title);
    text.member("method", method);
}

recovered_head read_recovery_head(const json_value& object, std::size_t method_count)
{
    object.at("format").whole_number(recovery_format, recovery_format);
    return {object.at("title").text(), object.at("method").whole_number(0, static_cast<int>(method_count) - 1)};
}

void write_rows_member(json_writer& text, std::span<const equation_row> rows)
{
    text.member_objects("rows", rows, [&](const equation_row& row) {
        text.member("equation", row.equation);
        text.member("guess", row.guess);
        text.member("comment", row.comment);
    });
}

std::vector<equation_row> read_rows_member(const json_value& object)
{
    std::vector<equation_row> rows;
    for (const json_value& row : object.at("rows").items())
        rows.push_back({row.at("equation").text(), row.at("guess").text(), row.at("comment").text()});
    return rows;
}

} // namespace kelvarin
