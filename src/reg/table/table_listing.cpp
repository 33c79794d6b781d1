// SPDX-License-Identifier: MIT
#include "reg/table/table_listing.h"

#include "shell/general_lib.h"

namespace kelvarin
{

namespace
{

constexpr const char* line_end = "\r\n";

std::string listed_cell(const table_content& content, int row, int column)
{
    const parsed_cell& cell = content.cells.number(row, column);
    if (cell.is_blank()) return "   ";
    return cell.is_number() ? format_number(cell.value) : content.cells.text(row, column);
}

template <class TextOf> void add_line(std::string& text, int columns, TextOf text_of)
{
    for (int column = 0; column < columns; ++column) {
        if (column > 0) text += '\t';
        text += text_of(column);
    }
    text += line_end;
}

} // namespace

std::string table_listing(const table_content& content)
{
    const table_size used = used_size(content);
    std::string text;
    text.append(line_end).append("Kelvarin Data Table").append(line_end);
    text.append(content.title.empty() ? "No Title " : content.title).append(line_end);
    std::string formulas;
    for (int column = 0; column < used.columns; ++column)
        if (content.has_formula(column))
            formulas.append(content.name(column)).append(" = ").append(content.formula(column)).append(line_end);
    if (!formulas.empty()) text.append(formulas).append(line_end);
    add_line(text, used.columns, [&](int column) { return content.name(column); });
    for (int row = 0; row < used.rows; ++row)
        add_line(text, used.columns, [&](int column) { return listed_cell(content, row, column); });
    return text;
}

std::string table_listing(const table_content& content, const std::filesystem::path&)
{
    return table_listing(content);
}

} // namespace kelvarin
