// SPDX-License-Identifier: MIT
#include "shell/document/cell_block.h"

#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <utility>

namespace kelvarin
{

namespace
{

constexpr char quote = '"';

std::string quoted_where_needed(const std::string& cell)
{
    if (cell.find_first_of("\t\r\n\"") == std::string::npos) return cell;
    std::string quoted(1, quote);
    for (const char c : cell) {
        if (c == quote) quoted += quote;
        quoted += c;
    }
    return quoted + quote;
}

/// Removes a quotation from the front of the text and returns its content. Returns an empty text and removes nothing if
/// the quotation isn't closed.
std::string take_quotation(std::string_view& text)
{
    std::string held;
    for (std::size_t at = 1; at < text.size(); ++at) {
        if (text[at] == quote && !text.substr(at + 1).starts_with(quote)) {
            text.remove_prefix(at + 1);
            return held;
        }
        if (text[at] == quote) ++at;
        held += text[at];
    }
    return {};
}

/// Removes a cell from the front of the text and returns its content. Quotation marks inside an unquoted cell, and one
/// that isn't closed, are ordinary characters.
std::string take_cell(std::string_view& text)
{
    std::string cell;
    if (text.starts_with(quote)) cell = take_quotation(text);
    const std::size_t end = std::min(text.find_first_of("\t\r\n"), text.size());
    cell += text.substr(0, end);
    text.remove_prefix(end);
    return cell;
}

void skip_line_end(std::string_view& text)
{
    for (const std::string_view line_end : {"\r\r\n", "\r\n", "\r", "\n"}) {
        if (!text.starts_with(line_end)) continue;
        text.remove_prefix(line_end.size());
        return;
    }
}

/// A number with a decimal comma, rewritten with a point. Returns nullopt for any other text.
std::optional<std::string> with_point(std::string_view cell)
{
    std::string text(trimmed(cell));
    const std::size_t comma = text.find(',');
    if (comma == std::string::npos || text.find('.') != std::string::npos) return std::nullopt;
    text[comma] = '.';
    if (!is_numeric(text)) return std::nullopt;
    return text;
}

bool is_whole(std::string_view cell)
{
    return is_numeric(cell) && cell.find('.') == std::string_view::npos;
}

bool is_single_cell(const cell_block& block)
{
    return block.size() == 1 && block.front().size() == 1;
}

} // namespace

std::string block_text(const cell_columns& cells, cell_range range)
{
    std::string text;
    for (int row = range.row; row < range.row + range.rows; ++row) {
        if (row > range.row) text += '\n';
        for (int column = range.column; column < range.column + range.columns; ++column) {
            if (column > range.column) text += '\t';
            text += quoted_where_needed(cells.cell(row, column));
        }
    }
    return text;
}

cell_block read_block(std::string_view text)
{
    cell_block block;
    while (!text.empty()) {
        std::vector<std::string>& row = block.emplace_back();
        row.push_back(take_cell(text));
        while (text.starts_with('\t')) {
            text.remove_prefix(1);
            row.push_back(take_cell(text));
        }
        skip_line_end(text);
    }
    return block;
}

std::optional<cell_block> decimal_comma_block(const cell_block& block)
{
    cell_block converted = block;
    bool any = false;
    for (std::vector<std::string>& row : converted) {
        for (std::string& cell : row) {
            if (trimmed(cell).empty() || is_whole(cell)) continue;
            std::optional<std::string> number = with_point(cell);
            if (!number) return std::nullopt;
            cell = std::move(*number);
            any = true;
        }
    }
    if (!any) return std::nullopt;
    return converted;
}

cell_range pasted_range(const cell_columns& cells, cell_range range, const cell_block& block)
{
    if (is_single_cell(block)) return range;
    std::size_t columns = 1;
    for (const std::vector<std::string>& row : block)
        columns = std::max(columns, row.size());
    range.rows = std::min(static_cast<int>(block.size()), cells.rows() - range.row);
    range.columns = std::min(static_cast<int>(columns), cells.columns() - range.column);
    return range;
}

std::vector<std::string> paste_block(cell_columns& cells, cell_range range, const cell_block& block)
{
    const cell_range pasted = pasted_range(cells, range, block);
    for (int column = 0; column < pasted.columns; ++column) {
        cells.edit_column(pasted.column + column, [&](std::vector<std::string>& column_cells) {
            for (int row = 0; row < pasted.rows; ++row) {
                const std::vector<std::string>& from = block[is_single_cell(block) ? 0 : static_cast<std::size_t>(row)];
                const std::size_t place = is_single_cell(block) ? 0 : static_cast<std::size_t>(column);
                if (place < from.size())
                    column_cells[static_cast<std::size_t>(pasted.row + row)] = field_text(from[place]);
            }
        });
    }

    std::vector<std::string> left_out;
    for (std::size_t row = 0; row < block.size(); ++row)
        for (std::size_t column = 0; column < block[row].size(); ++column) {
            std::string text = field_text(block[row][column]);
            if (text.empty()) continue;
            if (!cells.is_inside(range.row + static_cast<int>(row), range.column + static_cast<int>(column)))
                left_out.push_back(std::move(text));
        }
    return left_out;
}

message_box left_out_box(const std::vector<std::string>& left_out)
{
    // Enough to recognise the part of the block.
    constexpr std::size_t most_shown = 4;
    std::string text = left_out.size() == 1
                           ? "1 pasted cell lies outside the grid and was left out: "
                           : std::to_string(left_out.size()) + " pasted cells lie outside the grid and were left out: ";
    for (std::size_t i = 0; i < std::min(left_out.size(), most_shown); ++i)
        text += (i == 0 ? "'" : ", '") + left_out[i] + "'";
    text += left_out.size() > most_shown ? ", ..." : ".";
    return {text, box_icon::information};
}

void clear_block(cell_columns& cells, cell_range range)
{
    for (int column = range.column; column < range.column + range.columns; ++column)
        cells.edit_column(column, [&](std::vector<std::string>& column_cells) {
            std::fill_n(column_cells.begin() + range.row, range.rows, std::string());
        });
}

} // namespace kelvarin
