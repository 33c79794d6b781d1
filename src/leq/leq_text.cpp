// SPDX-License-Identifier: MIT
#include "leq/leq_text.h"

#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace kelvarin
{

namespace
{

std::size_t letter_count(std::string_view text)
{
    // UTF-8 continuation bytes are not characters of their own.
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0u) != 0x80u; }));
}

/// A coefficient without its sign, which is written between the terms; "?" for an empty cell.
std::string magnitude_text(std::string_view cell)
{
    if (const std::optional<double> value = numeric_value(cell)) return plain_text(std::fabs(*value));
    const std::string_view text = trimmed(cell);
    return text.empty() ? "?" : std::string(text);
}

bool is_negative(std::string_view cell)
{
    return numeric_value(cell).value_or(0.0) < 0.0;
}

} // namespace

std::string shown_cell(std::string_view cell)
{
    if (const std::optional<double> value = numeric_value(cell)) return plain_text(*value);
    return std::string(trimmed(cell));
}

std::string_view column_head(const leq_content& content, int column)
{
    return column == content.count() ? std::string_view("beta") : content.names[static_cast<std::size_t>(column)];
}

std::vector<std::size_t> column_widths(const leq_content& content)
{
    std::vector<std::size_t> widths;
    for (int column = 0; column <= content.count(); ++column) {
        std::size_t width = letter_count(column_head(content, column));
        for (int row = 0; row < content.count(); ++row)
            width = std::max(width, letter_count(shown_cell(content.cell(row, column))));
        widths.push_back(width);
    }
    return widths;
}

std::string blanks_before(std::string_view text, std::size_t width)
{
    const std::size_t letters = letter_count(text);
    return std::string(letters < width ? width - letters : 0, ' ');
}

std::string equation_text(const leq_content& content, int row)
{
    std::string text;
    for (int column = 0; column < content.count(); ++column) {
        const std::string& cell = content.cell(row, column);
        const bool negative = is_negative(cell);
        if (column == 0) {
            text += negative ? "-" : "";
        } else {
            text += negative ? " - " : " + ";
        }
        text.append(magnitude_text(cell)).append("*").append(column_head(content, column));
    }
    const std::string beta = shown_cell(content.cell(row, content.count()));
    return text.append(" = ").append(beta.empty() ? "?" : beta);
}

} // namespace kelvarin
