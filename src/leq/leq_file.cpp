// SPDX-License-Identifier: MIT
#include "leq/leq_file.h"

#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr std::string_view line_end = "\r\n";
constexpr std::string_view names_marker = "varsnames==";

std::vector<std::string_view> split_at(std::string_view text, char separator)
{
    std::vector<std::string_view> pieces;
    while (true) {
        const std::size_t end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

/// The number of equations. The second line holds it less 1. Returns nullopt if the line is not such a number.
std::optional<int> read_count(std::string_view line)
{
    const std::optional<double> value = numeric_value(line);
    if (!value) return std::nullopt;
    const double count = *value + 1.0;
    if (count != std::floor(count) || count < least_leq_count || count > largest_leq_count) return std::nullopt;
    return static_cast<int>(count);
}

/// The names in the line for `count` unknowns. A missing or repeated name is replaced by the default name of its
/// column, or the next free one, so that all names are distinct.
std::vector<std::string> read_names(std::string_view line, std::size_t count)
{
    const std::vector<std::string_view> pieces = split_at(line.substr(names_marker.size()), ',');
    std::vector<std::string> names;
    const auto is_taken = [&names](const std::string& name) { return std::ranges::find(names, name) != names.end(); };
    for (std::size_t i = 0; i < count; ++i) {
        std::string name = i < pieces.size() ? field_text(pieces[i]) : std::string();
        if (name.empty() || is_taken(name)) name = default_leq_name(static_cast<int>(i));
        while (is_taken(name))
            name += '_';
        names.push_back(std::move(name));
    }
    return names;
}

void read_cells(std::span<const std::string_view> lines, leq_content& content)
{
    const int n = content.count();
    for (int row = 0; row <= n && static_cast<std::size_t>(row) < lines.size(); ++row) {
        int place = 0;
        for (const std::string_view piece : split_at(lines[static_cast<std::size_t>(row)], '\t')) {
            if (place == n) break;
            // The last line holds the betas, which form a column of the grid.
            content.cells.set_cell(row < n ? row : place, row < n ? place : n, field_text(piece));
            ++place;
        }
    }
}

} // namespace

std::optional<leq_content> read_leq(std::string_view text)
{
    const std::vector<std::string_view> lines = split_lines(text);
    if (lines.size() < 2) return std::nullopt;
    const std::optional<int> count = read_count(lines[1]);
    if (!count) return std::nullopt;
    leq_content content(*count);
    content.title = field_text(lines[0]);
    std::span<const std::string_view> rest = std::span(lines).subspan(2);
    if (!rest.empty() && rest.front().starts_with(names_marker)) {
        content.names = read_names(rest.front(), content.names.size());
        rest = rest.subspan(1);
    }
    read_cells(rest, content);
    return content;
}

std::string write_leq(const leq_content& content, bool older_format)
{
    const int n = content.count();
    std::string text = field_text(content.title);
    text.append(line_end).append(std::to_string(n - 1)).append(line_end);
    if (!older_format) {
        text += names_marker;
        for (int column = 0; column < n; ++column) {
            if (column > 0) text += ',';
            text += content.names[static_cast<std::size_t>(column)];
        }
        text += line_end;
    }
    for (int row = 0; row < n; ++row) {
        for (int column = 0; column < n; ++column)
            text.append(content.cell(row, column)).append("\t");
        text += line_end;
    }
    for (int row = 0; row < n; ++row)
        text.append(content.cell(row, n)).append("\t");
    text.append("\r").append(line_end);
    return text;
}

} // namespace kelvarin
