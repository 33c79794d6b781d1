// SPDX-License-Identifier: MIT
#include "nle/equations/row_lines.h"

#include "platform/text_file.h"

namespace kelvarin
{

void write_line(std::string& text, std::string_view line)
{
    text += line;
    text += "\r\n";
}

title_line read_title_line(std::string_view line, marker_search search)
{
    const std::size_t marker = search == marker_search::first ? line.find(version_marker) : line.rfind(version_marker);
    title_line read = {std::string(trimmed(line.substr(0, marker))), std::nullopt};
    if (marker != std::string_view::npos) read.method = line.substr(marker + version_marker.size());
    return read;
}

std::string title_line_text(std::string_view title, int method, bool older_format)
{
    std::string line = one_line(trimmed(title));
    if (!older_format) line.append(version_marker).append(std::to_string(method));
    return line;
}

std::string_view before_comment(std::string_view line)
{
    return line.substr(0, line.find('#'));
}

bool is_marked(std::string_view line, std::string_view marker)
{
    const std::string_view text = before_comment(line);
    return text.substr(0, text.find('=') + 1).ends_with(marker);
}

std::optional<equation_row> row_of_line(std::string_view line, std::string_view guess)
{
    const std::string_view equation = before_comment(line);
    if (trimmed(equation).empty()) return std::nullopt;
    const std::string_view comment =
        equation.size() == line.size() ? std::string_view() : line.substr(equation.size() + 1);
    return equation_row{std::string(trimmed(equation)), std::string(guess), std::string(comment)};
}

std::string line_of_row(const equation_row& row, bool with_comment)
{
    std::string line = one_line(trimmed(row.equation));
    if (with_comment) line.append(" #").append(one_line(row.comment));
    return line;
}

void write_rows(std::string& text, std::span<const equation_row> rows, const row_form& form, bool implicit,
                bool with_comments)
{
    for (const equation_row& row : rows) {
        if (!row.equation.empty() && is_implicit(row.equation, form) == implicit)
            write_line(text, line_of_row(row, with_comments));
    }
}

} // namespace kelvarin
