// SPDX-License-Identifier: MIT
#include "reg/table/table_file.h"

#include "platform/run_time_numbers.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "reg/table/table_reader.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr std::string_view line_end = "\r\n";
constexpr std::string_view end_of_data = "*";

using fields = std::vector<std::string_view>;

fields split_at_tabs(std::string_view line)
{
    fields found;
    while (true) {
        const std::size_t tab = line.find('\t');
        found.push_back(line.substr(0, tab));
        if (tab == std::string_view::npos) return found;
        line.remove_prefix(tab + 1);
    }
}

/// Empty fields at the end of a line are no columns.
int used_fields(const fields& line)
{
    std::size_t count = line.size();
    while (count > 0 && trimmed(line[count - 1]).empty())
        --count;
    return static_cast<int>(count);
}

/// The text in front of the first "=" and the one behind it.
std::pair<std::string_view, std::string_view> split_at_equals(std::string_view text)
{
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) return {text, {}};
    return {text.substr(0, equals), text.substr(equals + 1)};
}

/// The title, the size and the names.
constexpr std::size_t before_data = 3;

/// The lines of a file by their meaning.
struct table_lines
{
    std::string_view title;
    table_extent extent;
    fields header;
    std::span<const std::string_view> data;
    /// Without a line "*" the file is of the older form and has no model.
    std::span<const std::string_view> behind_data;
};

std::optional<table_lines> sort_lines(const std::vector<std::string_view>& lines)
{
    if (lines.size() < before_data) return std::nullopt;
    const std::optional<table_extent> extent = table_extent_of(lines[1]);
    if (!extent || extent->rows > largest_table_extent || extent->columns > largest_table_extent) return std::nullopt;
    const auto rest = std::span(lines).subspan(before_data);
    const auto count = static_cast<std::size_t>(std::ranges::find(rest, end_of_data) - rest.begin());
    return table_lines{.title = lines[0],
                       .extent = *extent,
                       .header = split_at_tabs(lines[2]),
                       .data = rest.first(count),
                       .behind_data = count < rest.size() ? rest.subspan(count + 1) : rest.last(0)};
}

/// The number of rows up to the last one that is not blank, and of columns that any line uses.
table_size size_of(const table_lines& lines)
{
    table_size size = {0, std::max(static_cast<int>(round_half_even(lines.extent.columns)), used_fields(lines.header))};
    for (std::size_t row = 0; row < lines.data.size(); ++row) {
        const int used = used_fields(split_at_tabs(lines.data[row]));
        if (used == 0) continue;
        size.rows = static_cast<int>(row) + 1;
        size.columns = std::max(size.columns, used);
    }
    return size;
}

/// The content of New, large enough for the lines; nullopt if it would be too large.
std::optional<table_content> table_for(const table_lines& lines, const table_content& current)
{
    if (lines.data.size() > static_cast<std::size_t>(largest_table_extent)) return std::nullopt;
    const table_size size = size_of(lines);
    if (size.columns > largest_table_extent || size.rows >= largest_table_extent) return std::nullopt;
    const table_size whole = size_to_hold(size, current.new_size);
    if (static_cast<long long>(whole.rows) * size.columns > most_table_cells) return std::nullopt;
    table_content content(current.new_size);
    content.grow(whole);
    content.calc_digits = current.calc_digits;
    return content;
}

void read_header(const fields& header, table_content& content)
{
    const std::size_t count = std::min(header.size(), content.names.size());
    for (std::size_t column = 0; column < count; ++column) {
        const auto [name, formula] = split_at_equals(header[column]);
        content.names[column] = name;
        content.formulas[column] = formula;
    }
}

/// The text of a calculated cell with the digits that calculated cells have; other texts than numbers stay.
std::string shortened(std::string_view text, int digits)
{
    const std::optional<double> value = numeric_value(text);
    return value ? format_digits(*value, digits) : std::string(text);
}

void read_cells(std::span<const std::string_view> lines, table_content& content)
{
    std::vector<std::vector<std::string>> columns(content.names.size());
    const auto rows = static_cast<std::size_t>(content.rows());
    for (std::size_t row = 0; row < std::min(lines.size(), rows); ++row) {
        const fields line = split_at_tabs(lines[row]);
        for (std::size_t column = 0; column < std::min(line.size(), columns.size()); ++column) {
            if (line[column].empty()) continue;
            if (columns[column].empty()) columns[column].resize(rows);
            columns[column][row] = content.formulas[column].empty() ? std::string(line[column])
                                                                    : shortened(line[column], content.calc_digits);
        }
    }
    for (std::size_t column = 0; column < columns.size(); ++column)
        if (!columns[column].empty()) content.cells.set_column(static_cast<int>(column), std::move(columns[column]));
}

void read_model(std::span<const std::string_view> lines, table_content& content)
{
    if (lines.empty()) return;
    content.model = lines[0];
    if (lines.size() > 1)
        for (const std::string_view field : split_at_tabs(lines[1])) {
            const auto [name, value] = split_at_equals(field);
            if (!trimmed(name).empty()) content.guesses.push_back({std::string(trimmed(name)), std::string(value)});
        }
    if (!trimmed(content.model).empty())
        content.guesses = guesses_for(content.model, table_reader(content), content.guesses);
}

void add_fields(std::string& text, int count, auto field_of)
{
    for (int column = 0; column < count; ++column) {
        if (column > 0) text += '\t';
        text += field_of(column);
    }
}

} // namespace

std::optional<table_extent> table_extent_of(std::string_view line)
{
    const std::size_t blank = line.find(' ');
    if (blank == std::string_view::npos) return std::nullopt;
    const table_extent extent = {prefix_value(line.substr(0, blank)).value_or(0.0),
                                 prefix_value(line.substr(blank)).value_or(0.0)};
    if (extent.rows <= 0.0 || extent.columns <= 0.0) return std::nullopt;
    return extent;
}

std::optional<table_content> read_table(std::string_view text, const table_content& current)
{
    const std::vector<std::string_view> all = split_lines(text);
    const std::optional<table_lines> lines = sort_lines(all);
    if (!lines) return std::nullopt;
    std::optional<table_content> content = table_for(*lines, current);
    if (!content) return std::nullopt;
    content->title = field_text(lines->title);
    read_header(lines->header, *content);
    read_cells(lines->data, *content);
    read_model(lines->behind_data, *content);
    return content;
}

message_box table_open_refusal(std::string_view failure, std::string_view text)
{
    std::string reason(failure);
    if (reason.empty()) {
        const std::vector<std::string_view> lines = split_lines(text, before_data);
        if (lines.size() < before_data)
            reason = "The file ends before its third line, the names of the columns";
        else if (!table_extent_of(lines[1]))
            reason = "Its second line is to be the numbers of rows and of columns";
        else
            reason = "It has more rows or columns than a table can hold";
    }
    return {"Error while trying to open file (" + reason + ")", box_icon::critical};
}

std::string write_table(const table_content& content)
{
    const table_size used = used_size(content);
    std::string text = field_text(content.title);
    text.append(line_end);
    text.append(std::to_string(used.rows)).append(" ").append(std::to_string(used.columns)).append(line_end);
    add_fields(text, used.columns, [&](int column) {
        return content.has_formula(column) ? content.name(column) + "=" + one_line(content.formula(column))
                                           : content.name(column);
    });
    text.append(line_end);
    for (int row = 0; row < used.rows; ++row) {
        const std::size_t begin = text.size();
        add_fields(text, used.columns, [&](int column) { return content.cells.text(row, column); });
        // A cell must not end the data; the blank field behind it is none.
        if (std::string_view(text).substr(begin) == end_of_data) text += '\t';
        text.append(line_end);
    }
    text.append(end_of_data).append(line_end);
    text.append(one_line(content.model)).append(line_end);
    add_fields(text, static_cast<int>(content.guesses.size()), [&](int guess) {
        const table_guess& written = content.guesses[static_cast<std::size_t>(guess)];
        return written.name + "=" + written.value;
    });
    text.append(line_end);
    return text;
}

} // namespace kelvarin
