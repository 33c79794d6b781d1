// SPDX-License-Identifier: MIT
#include "reg/table/table_json.h"

#include <cstddef>
#include <numeric>
#include <string>
#include <vector>

namespace kelvarin
{

void write_table_members(json_writer& writer, const table_content& content)
{
    const table_size used = used_size(content);
    std::vector<int> columns(static_cast<std::size_t>(used.columns));
    std::iota(columns.begin(), columns.end(), 0);
    writer.member("rows", used.rows);
    writer.member_objects("columns", columns, [&](int column) {
        writer.member("name", content.name(column));
        writer.member("formula", content.formula(column));
    });
    writer.key("cells");
    writer.begin_array();
    std::vector<std::string> row_texts(columns.size());
    for (int row = 0; row < used.rows; ++row) {
        for (std::size_t column = 0; column < row_texts.size(); ++column)
            row_texts[column] = content.cells.text(row, static_cast<int>(column));
        writer.value(std::span<const std::string>(row_texts));
    }
    writer.end_array();
    writer.member("model", content.model);
    writer.member_objects("guesses", content.guesses, [&](const table_guess& guess) {
        writer.member("name", guess.name);
        writer.member("value", guess.value);
    });
}

void write_statistics_members(json_writer& writer, std::span<const column_statistics> columns)
{
    writer.member_objects("columns", columns, [&](const column_statistics& column) {
        writer.member("name", column.name);
        writer.member("n", column.n);
        writer.member("sum", column.moments.sum);
        writer.member("mean", column.moments.mean);
        writer.member("sd", column.moments.sd);
        writer.member("variance", column.moments.variance);
    });
}

} // namespace kelvarin
