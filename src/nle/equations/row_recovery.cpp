// SPDX-License-Identifier: MIT
#include "nle/equations/row_recovery.h"

namespace kelvarin
{

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
