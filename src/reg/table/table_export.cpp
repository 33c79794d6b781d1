// SPDX-License-Identifier: MIT
#include "reg/table/table_export.h"

#include "platform/run_time_text.h"

#include <algorithm>
#include <string_view>

namespace kelvarin
{

namespace
{

std::string cell_for(std::string text, const import_form& form)
{
    if (form.decimal_sign != '.' && is_numeric(text)) std::ranges::replace(text, '.', form.decimal_sign);
    const std::string_view special = "\"\r\n";
    if (text.find_first_of(special) == std::string::npos && text.find(form.delimiter) == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"') quoted += c;
        quoted += c;
    }
    return quoted + "\"";
}

} // namespace

std::string export_text(const table_content& content, const import_form& form)
{
    const table_size used = used_size(content);
    std::string text;
    const auto add_line = [&](auto cell_of) {
        for (int column = 0; column < used.columns; ++column) {
            if (column > 0) text += form.delimiter;
            text += cell_for(cell_of(column), form);
        }
        text += "\r\n";
    };
    add_line([&](int column) { return content.name(column); });
    for (int row = 0; row < used.rows; ++row)
        add_line([&](int column) { return content.cells.text(row, column); });
    return text;
}

} // namespace kelvarin
