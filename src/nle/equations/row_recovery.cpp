// SPDX-License-Identifier: MIT
#include "nle/equations/row_recovery.h"

namespace kelvarin
{

void write_rows_member(json_writer& text, std::span<const equation_row> rows)
{
    text.key("rows");
    text.begin_array();
    for (const equation_row& row : rows) {
        text.begin_object();
        text.member("equation", row.equation);
        text.member("guess", row.guess);
        text.member("comment", row.comment);
        text.end_object();
    }
    text.end_array();
}

std::vector<equation_row> read_rows_member(const json_value& object)
{
    std::vector<equation_row> rows;
    for (const json_value& row : object.at("rows").items())
        rows.push_back({row.at("equation").text(), row.at("guess").text(), row.at("comment").text()});
    return rows;
}

} // namespace kelvarin
