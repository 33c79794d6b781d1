// SPDX-License-Identifier: MIT
#include "deq/deq_file.h"

#include "expr/basParse.h"
#include "nle/equations/row_lines.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

/// Rows of nonlinear problems, "f(x) = ...".
constexpr row_form nonlinear_row_form = {"f("};
constexpr std::string_view start_marker = "(0)=";
constexpr std::string_view final_marker = "(f)=";

bool is_start_line(std::string_view line)
{
    return is_marked(line, start_marker);
}

bool is_final_line(std::string_view line)
{
    return is_marked(line, final_marker);
}

bool has_version_marker(std::string_view line)
{
    return line.find(version_marker) != std::string_view::npos;
}

bool begins_differential_row(std::string_view line)
{
    // "d(0)=" is the initial value of a variable d.
    return is_implicit(line, deq_row_form) && !is_start_line(line);
}

bool is_explicit_equation(std::string_view line)
{
    const std::string_view text = before_comment(line);
    return text.find('=') != std::string_view::npos && is_valid_name(trimmed(text.substr(0, text.find('='))));
}

/// Whether a first line without version marker is a row: files of the older format begin with their first equation. A
/// line that could be an explicit equation is taken as the title if differential rows follow.
bool is_first_row(std::string_view line, std::span<const std::string_view> behind)
{
    if (is_implicit(line, deq_row_form) || is_start_line(line) || is_final_line(line)) return true;
    return is_explicit_equation(line) && std::ranges::none_of(behind, begins_differential_row);
}

/// The name in front of a marker.
std::string_view marked_name(std::string_view line)
{
    return trimmed(line.substr(0, line.find('=')).substr(0, line.rfind('(', line.find('='))));
}

std::string_view value_of(std::string_view line)
{
    return trimmed(line.substr(line.find('=') + 1));
}

void read_title(std::string_view line, deq_content& content)
{
    title_line read = read_title_line(line, marker_search::first);
    content.title = std::move(read.title);
    if (!read.method) return;
    const std::optional<double> method = numeric_value(*read.method);
    for (std::size_t i = 0; method && i < deq_method_items.size(); ++i)
        if (*method == static_cast<double>(i)) content.method = static_cast<deq_method>(i);
}

/// Whether the line stands behind the rows. "d(f)=" there is a row, whatever it is behind them.
bool is_value_line(std::string_view line)
{
    return is_start_line(line) || (is_final_line(line) && !is_implicit(line, deq_row_form));
}

/// Reads the rows up to the first value; the name of the independent variable is still missing in them.
void read_rows(line_reader& lines, deq_content& content)
{
    for (; !lines.at_end() && !is_value_line(lines.line()); lines.take()) {
        std::optional<equation_row> row = row_of_line(lines.line(), no_guess);
        if (!row) continue;
        const equation_parts parts = parts_of(row->equation, deq_row_form);
        if (parts.implicit)
            row->guess.clear();
        else
            row->equation = std::string(parts.name) + " = " + std::string(parts.right_side);
        content.rows.push_back(std::move(*row));
    }
}

/// Sets the value of the first differential row of the name that has none yet.
void set_initial_value(std::vector<equation_row>& rows, std::vector<bool>& is_set, std::string_view name,
                       std::string_view value)
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const equation_parts parts = parts_of(rows[i].equation, deq_row_form);
        if (!parts.implicit || is_set[i] || row_symbol(parts.name) != name) continue;
        rows[i].guess = value;
        is_set[i] = true;
        return;
    }
}

/// Reads the lines of initial and final values.
void read_values(line_reader& lines, deq_content& content)
{
    const std::string independent(lines.at_end() ? std::string_view() : marked_name(lines.line()));
    if (!lines.at_end() && is_start_line(lines.line())) content.initial_value = value_of(lines.take());
    content = with_independent(std::move(content), independent);
    std::vector<bool> is_set(content.rows.size(), false);
    while (!lines.at_end()) {
        const std::string_view line = lines.take();
        if (is_start_line(line)) {
            set_initial_value(content.rows, is_set, marked_name(line), value_of(line));
        } else if (is_final_line(line)) {
            content.final_value = value_of(line);
            return;
        }
    }
}

/// Whether the lines after a title can be a differential problem, by the first that is not blank. If there is none, the
/// file may be truncated, provided that the title has the version marker.
bool goes_on_as_problem(std::string_view title, std::span<const std::string_view> lines)
{
    const auto first = std::ranges::find_if(lines, [](std::string_view line) { return !trimmed(line).empty(); });
    if (first == lines.end()) return has_version_marker(title);
    return is_implicit(*first, deq_row_form) || is_start_line(*first) || is_final_line(*first) ||
           is_explicit_equation(*first);
}

std::string marked_line(std::string_view name, std::string_view marker, std::string_view value)
{
    return row_symbol(name).append(marker).append(one_line(trimmed(value)));
}

} // namespace

bool is_deq_file(std::span<const std::string_view> lines)
{
    if (lines.size() < 2) return false;
    if (is_implicit(lines[0], deq_row_form) && !has_version_marker(lines[0])) return true;
    const auto start = std::ranges::find_if(lines.subspan(1), is_start_line);
    if (start == lines.end()) return false;
    const auto is_nonlinear = [](std::string_view line) { return is_implicit(line, nonlinear_row_form); };
    return std::none_of(lines.begin() + 1, start, is_nonlinear) && std::any_of(start + 1, lines.end(), is_final_line);
}

std::optional<deq_content> read_deq(std::string_view text, deq_method method)
{
    const std::vector<std::string_view> all = split_lines(text);
    line_reader lines(all);
    deq_content content;
    content.method = method;
    if (lines.at_end()) return std::nullopt;
    const std::span<const std::string_view> behind = std::span(all).subspan(1);
    const bool has_title = has_version_marker(lines.line()) || !is_first_row(lines.line(), behind);
    if (has_title) {
        if (!goes_on_as_problem(lines.line(), behind)) return std::nullopt;
        read_title(lines.take(), content);
    }
    read_rows(lines, content);
    read_values(lines, content);
    return content;
}

std::string write_deq(const deq_content& content, bool older_format)
{
    std::string text;
    if (!older_format) write_line(text, title_line_text(content.title, static_cast<int>(content.method), false));
    write_rows(text, content.rows, deq_row_form, true, !older_format);
    write_rows(text, content.rows, deq_row_form, false, !older_format);
    write_line(text, marked_line(content.independent, start_marker, content.initial_value));
    for (const equation_row& row : content.rows) {
        const equation_parts parts = parts_of(row.equation, deq_row_form);
        if (parts.implicit) write_line(text, marked_line(parts.name, start_marker, row.guess));
    }
    write_line(text, marked_line(content.independent, final_marker, content.final_value));
    return text;
}

} // namespace kelvarin
