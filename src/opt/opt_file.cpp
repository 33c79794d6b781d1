// SPDX-License-Identifier: MIT
#include "opt/opt_file.h"

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

constexpr std::string_view start_marker = "(0)=";

bool holds_start_marker(std::string_view text)
{
    std::string packed(text);
    std::erase(packed, ' ');
    return packed.find(start_marker) != std::string::npos;
}

/// "3 4": two numbers above 0 with a blank between, as in the files of tables.
bool is_pair_of_sizes(std::string_view line)
{
    const std::size_t blank = line.find(' ');
    if (blank == std::string_view::npos) return false;
    return prefix_value(line.substr(0, blank)).value_or(0.0) > 0.0 &&
           prefix_value(line.substr(blank + 1)).value_or(0.0) > 0.0;
}

/// Whether the second line of a file may be a target: nothing that makes it a line of another kind of problem.
bool may_be_target(std::string_view line)
{
    if (line.starts_with("f(") || line.starts_with("d(")) return false;
    const std::size_t equals = line.find('=');
    if (equals != std::string_view::npos && is_valid_name(trimmed(line.substr(0, equals)))) return false;
    return !holds_start_marker(line) && !is_numeric(line) && !is_pair_of_sizes(line);
}

} // namespace

bool is_opt_file(std::span<const std::string_view> lines)
{
    if (lines.size() < 3 || !may_be_target(lines[1])) return false;
    return std::any_of(lines.begin() + 2, lines.end(),
                       [](std::string_view line) { return holds_start_marker(before_comment(line)); });
}

std::optional<opt_content> read_opt(std::string_view text, opt_method method)
{
    line_reader lines(split_lines(text));
    if (lines.at_end()) return std::nullopt;
    opt_content content;
    content.method = method;
    content.title = trimmed(lines.take());
    if (!lines.at_end()) content.target = lines.take();
    while (!lines.at_end())
        if (std::optional<equation_row> row = row_of_line(lines.take(), "")) content.rows.push_back(std::move(*row));
    return content;
}

std::string write_opt(const opt_content& content)
{
    std::string text;
    write_line(text, one_line(trimmed(content.title)));
    write_line(text, one_line(content.target));
    for (const equation_row& row : content.rows)
        if (!row.equation.empty()) write_line(text, line_of_row(row, true));
    return text;
}

} // namespace kelvarin
