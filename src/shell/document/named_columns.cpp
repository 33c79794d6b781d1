// SPDX-License-Identifier: MIT
#include "shell/document/named_columns.h"

#include "platform/text_file.h"

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <string_view>

namespace kelvarin
{

namespace
{

void append_name(std::string& text, std::string_view name)
{
    if (name.find_first_of(",\"\r\n") == std::string_view::npos) {
        text += name;
        return;
    }
    text += '"';
    for (const char letter : name) {
        if (letter == '"') text += '"';
        text += letter;
    }
    text += '"';
}

void append_number(std::string& text, double number)
{
    if (!std::isfinite(number)) return;
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

/// A line of names, each appended by `append`, then the rows.
std::string separated_text(const named_columns& table, char separator, void (*append)(std::string&, std::string_view))
{
    std::string text;
    for (std::size_t i = 0; i < table.names.size(); ++i) {
        if (i > 0) text += separator;
        append(text, table.names[i]);
    }
    text += '\n';
    for (std::size_t row = 0; row < table.row_count(); ++row) {
        for (std::size_t i = 0; i < table.column_count(); ++i) {
            if (i > 0) text += separator;
            append_number(text, table.columns[i][row]);
        }
        text += '\n';
    }
    return text;
}

} // namespace

void named_columns::add_row(std::span<const double> row)
{
    assert(row.size() == columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i)
        columns[i].push_back(row[i]);
}

std::string csv_text(const named_columns& table)
{
    return separated_text(table, ',', append_name);
}

std::string tab_separated_text(const named_columns& table)
{
    return separated_text(table, '\t', [](std::string& text, std::string_view name) { text += field_text(name); });
}

} // namespace kelvarin
